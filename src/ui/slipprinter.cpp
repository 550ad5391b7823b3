#include "ui/slipprinter.h"

#include "common/files/hostsystem.h"

#include <QFont>
#include <QPrinter>
#include <QPrinterInfo>

using namespace Qt::StringLiterals;

SlipPrinter::Job SlipPrinter::print(const Slip &slip, const Progress &progress) const
{
    if (m_destination) {
        m_destination(slip);
        return Job::Printed;
    }
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull())
        throw FileError(ErrorNumber::PrinterError);
    QPrinter printer(info, QPrinter::HighResolution);
    // Without its queue a QPrinter silently becomes a PDF file.
    if (printer.outputFormat() != QPrinter::NativeFormat
        || printer.printerName() != info.printerName())
        throw FileError(ErrorNumber::PrinterError);
    printer.setDocName(slip.lines.isEmpty() ? u"TRELAWN"_s
                                            : lineText(slip.lines.front()).trimmed());
    if (info.defaultPageSize().isValid())
        printer.setPageSize(info.defaultPageSize());
    // The printer's own state tells nothing of a refused job: the print system is asked.
    if (paintSlip(slip, printer, progress) == 0 || printer.printerState() == QPrinter::Error
        || printer.printerState() == QPrinter::Aborted || !printSystemTookJob())
        throw FileError(ErrorNumber::PrinterError);
    return info.state() == QPrinter::Error ? Job::Waiting : Job::Printed;
}

void substituteNamedFonts()
{
    QFont::insertSubstitutions(u"MS Sans Serif"_s, {u"Arial"_s, u"Liberation Sans"_s});
    QFont::insertSubstitutions(u"Courier New"_s, {u"Liberation Mono"_s, u"Cousine"_s});
    QFont::insertSubstitutions(u"Times New Roman"_s, {u"Liberation Serif"_s, u"Tinos"_s});
}
