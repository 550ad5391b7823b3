#include "ui/slipprinter.h"

#include "common/files/fileerror.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

void SlipPrinter::print(const Slip &slip) const
{
    if (m_destination)
        return m_destination(slip);
    // A QPrinter without a printer silently becomes a PDF file, so the queue is asked for first.
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        throw FileError(ErrorNumber::PrinterError);
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setDocName(slip.lines.isEmpty() ? u"TRELAWN"_s
                                            : lineText(slip.lines.front()).trimmed());
    if (info.defaultPageSize().isValid())
        printer.setPageSize(info.defaultPageSize());
    if (paintSlip(slip, printer) == 0 || printer.printerState() == QPrinter::Error
        || printer.printerState() == QPrinter::Aborted)
        throw FileError(ErrorNumber::PrinterError);
}

int paintSlip(const Slip &slip, QPagedPaintDevice &device)
{
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    QFont font(slip.fontName);
    font.setPointSizeF(slip.pointSize);
    font.setBold(slip.bold);
    painter.setFont(font);
    const QFontMetricsF metrics(font, &device);
    const QRectF page(QPointF(0, 0),
                      device.pageLayout().paintRectPixels(device.logicalDpiX()).size());
    const double columnWidth =
        slip.evenPitch ? metrics.horizontalAdvance(u'E') : metrics.averageCharWidth();
    int pages = 1;
    double y = 0;

    const auto paintText = [&](double x, const QString &text) {
        if (!slip.evenPitch) {
            painter.drawText(QPointF(x, y + metrics.ascent()), text);
            return metrics.horizontalAdvance(text);
        }
        double cell = x;
        for (const QChar character : text) {
            const double inset = (columnWidth - metrics.horizontalAdvance(character)) / 2;
            painter.drawText(QPointF(cell + inset, y + metrics.ascent()), QString(character));
            cell += columnWidth;
        }
        return cell - x;
    };
    const auto paintLine = [&](const SlipLine &line) {
        double x = 0;
        for (const SlipText &part : line) {
            if (part.endsAligned) {
                const QString text = part.text.trimmed();
                const double end = (part.column - 1 + double(part.text.size())) * columnWidth;
                x = std::max(x, end - metrics.horizontalAdvance(text));
                painter.drawText(QPointF(x, y + metrics.ascent()), text);
                x += metrics.horizontalAdvance(text);
                continue;
            }
            if (part.column > 0)
                x = std::max(x, (part.column - 1) * columnWidth);
            x += paintText(x, part.text);
        }
        y += metrics.lineSpacing();
    };
    const auto startPage = [&] {
        device.newPage();
        ++pages;
        y = 0;
        for (int i = 0; i < slip.headingLines; ++i)
            paintLine(slip.lines[i]);
    };

    for (const SlipLine &line : slip.lines) {
        if (Slip::isPageBreak(line)) {
            startPage();
            continue;
        }
        if (y > 0 && y + metrics.lineSpacing() > page.height())
            startPage();
        paintLine(line);
    }
    return painter.end() ? pages : 0;
}

void substituteNamedFonts()
{
    QFont::insertSubstitutions(u"MS Sans Serif"_s, {u"Arial"_s, u"Liberation Sans"_s});
    QFont::insertSubstitutions(u"Courier New"_s, {u"Liberation Mono"_s, u"Cousine"_s});
    QFont::insertSubstitutions(u"Times New Roman"_s, {u"Liberation Serif"_s, u"Tinos"_s});
}
