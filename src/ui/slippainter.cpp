#include "ui/slippainter.h"

#include <QFontMetricsF>
#include <QPagedPaintDevice>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The smallest letters that can be read on paper.
constexpr double smallestPoints = 4;

QString withoutTrailingBlanks(QString text)
{
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

// Lays the lines of one slip on the pages of one device.
class SlipPainter
{
public:
    SlipPainter(const Slip &slip, QPagedPaintDevice &device, QPainter &painter);

    // Paints all lines; returns the number of pages.
    int paint(const Progress &progress);

private:
    void setPoints(double points);
    void fitWidth();
    double widestLine() const;
    double advance(const QString &text) const;
    double place(const SlipLine &line, bool draw) const;
    void drawText(double x, const QString &text) const;
    SlipLine cutToWidth(SlipLine &line) const;
    void paintLine(SlipLine line);
    int blockLength(int first) const;
    bool hasRoomFor(int lines) const;
    bool fitsOnPage(int lines) const;
    void startPage();

    const Slip &m_slip;
    QPagedPaintDevice &m_device;
    QPainter &m_painter;
    QFontMetricsF m_metrics;
    QSizeF m_page;
    double m_columnWidth = 0;
    bool m_isTooWide = false; // even in the smallest letters
    double m_y = 0;
    double m_top = 0; // where the lines below the heading begin
    int m_pages = 1;
};

SlipPainter::SlipPainter(const Slip &slip, QPagedPaintDevice &device, QPainter &painter)
    : m_slip(slip)
    , m_device(device)
    , m_painter(painter)
    , m_metrics(painter.font(), &device)
    , m_page(device.pageLayout().paintRectPixels(device.logicalDpiX()).size())
{
    setPoints(slip.pointSize);
    fitWidth();
}

void SlipPainter::setPoints(double points)
{
    QFont font(m_slip.fontName);
    font.setPointSizeF(points);
    font.setBold(m_slip.bold);
    m_painter.setFont(font);
    m_metrics = QFontMetricsF(font, &m_device);
    m_columnWidth =
        m_slip.evenPitch ? m_metrics.horizontalAdvance(u'E') : m_metrics.averageCharWidth();
}

void SlipPainter::fitWidth()
{
    double points = m_slip.pointSize;
    for (double width = widestLine(); width > m_page.width() && points > smallestPoints;
         width = widestLine()) {
        // A little less each time: widths do not follow the size exactly.
        points = std::max(smallestPoints, 0.995 * points * m_page.width() / width);
        setPoints(points);
    }
    m_isTooWide = widestLine() > m_page.width();
}

double SlipPainter::widestLine() const
{
    double widest = 0;
    for (const SlipLine &line : m_slip.lines)
        widest = std::max(widest, place(line, false));
    return widest;
}

double SlipPainter::advance(const QString &text) const
{
    return m_slip.evenPitch ? double(text.size()) * m_columnWidth
                            : m_metrics.horizontalAdvance(text);
}

// Draws the line's parts at their columns, or only measures them; returns where the last one ends.
// A part never touches the one before it.
double SlipPainter::place(const SlipLine &line, bool draw) const
{
    double x = 0;
    double end = 0;
    for (const SlipText &part : line) {
        const QString text = part.endsAligned ? part.text.trimmed() : part.text;
        if (part.column > 0) {
            const double column = (part.column - 1) * m_columnWidth;
            const double start =
                part.endsAligned ? column + double(part.text.size()) * m_columnWidth - advance(text)
                                 : column;
            x = std::max(x > 0 ? x + advance(u" "_s) : 0, start);
        }
        if (draw)
            drawText(x, text);
        end = std::max(end, x + advance(withoutTrailingBlanks(text)));
        x += advance(text);
    }
    return end;
}

void SlipPainter::drawText(double x, const QString &text) const
{
    const double base = m_y + m_metrics.ascent();
    if (!m_slip.evenPitch)
        return m_painter.drawText(QPointF(x, base), text);
    for (const QChar character : text) {
        const double inset = (m_columnWidth - m_metrics.horizontalAdvance(character)) / 2;
        m_painter.drawText(QPointF(x + inset, base), QString(character));
        x += m_columnWidth;
    }
}

// Shortens a line that is wider than the page by the end of its last part, which it returns.
SlipLine SlipPainter::cutToWidth(SlipLine &line) const
{
    if (!m_isTooWide || place(line, false) <= m_page.width())
        return {};
    const QString text = line.last().text;
    qsizetype fitting = 1;
    for (qsizetype tooMany = text.size(); tooMany - fitting > 1;) {
        const qsizetype middle = (fitting + tooMany) / 2;
        line.last().text = text.first(middle);
        (place(line, false) <= m_page.width() ? fitting : tooMany) = middle;
    }
    line.last().text = text.first(fitting);
    const QString rest = text.sliced(fitting);
    return rest.isEmpty() ? SlipLine() : SlipLine{{1, rest}};
}

void SlipPainter::paintLine(SlipLine line)
{
    while (!line.isEmpty()) {
        const SlipLine rest = cutToWidth(line);
        if (m_y > m_top && !hasRoomFor(1))
            startPage();
        place(line, true);
        m_y += m_metrics.lineSpacing();
        line = rest;
    }
}

// The lines from \a first to the end of its block, without the blank ones that part it from the
// next; 0 when no block begins there.
int SlipPainter::blockLength(int first) const
{
    const auto start = std::ranges::lower_bound(m_slip.blockStarts, first);
    if (start == m_slip.blockStarts.end() || *start != first)
        return 0;
    int end = start + 1 == m_slip.blockStarts.end() ? int(m_slip.lines.size()) : *(start + 1);
    while (end > first && lineText(m_slip.lines[end - 1]).trimmed().isEmpty())
        --end;
    return end - first;
}

bool SlipPainter::hasRoomFor(int lines) const
{
    return m_y + lines * m_metrics.lineSpacing() <= m_page.height();
}

bool SlipPainter::fitsOnPage(int lines) const
{
    return (m_slip.headingLines + lines) * m_metrics.lineSpacing() <= m_page.height();
}

void SlipPainter::startPage()
{
    m_device.newPage();
    ++m_pages;
    m_y = 0;
    for (int i = 0; i < m_slip.headingLines; ++i) {
        place(m_slip.lines[i], true);
        m_y += m_metrics.lineSpacing();
    }
    m_top = m_y;
}

int SlipPainter::paint(const Progress &progress)
{
    const int lines = int(m_slip.lines.size());
    for (int i = 0; i < lines; ++i) {
        progress(i, lines);
        if (Slip::isPageBreak(m_slip.lines[i])) {
            startPage();
            continue;
        }
        const int block = blockLength(i);
        if (m_y > m_top && !hasRoomFor(block) && fitsOnPage(block))
            startPage();
        paintLine(m_slip.lines[i]);
    }
    return m_pages;
}

} // namespace

int paintSlip(const Slip &slip, QPagedPaintDevice &device, const Progress &progress)
{
    QPainter painter;
    if (!painter.begin(&device))
        return 0;
    const int pages = SlipPainter(slip, device, painter).paint(progress);
    return painter.end() ? pages : 0;
}
