#include "ui/printing.h"

#include "common/event/init.h"
#include "ui/listwindow.h"
#include "ui/progressbox.h"
#include "ui/prompts.h"
#include "ui/slipprinter.h"

using namespace Qt::StringLiterals;

namespace {

// Why the gate is closed; empty when it is open.
QString closedBy(PrintGate gate, const Settings &settings)
{
    if (!settings.mayPrint())
        return u"Nothing was printed: no printer is attached."_s;
    if (gate == PrintGate::Receipts && !settings.receiptsPrint())
        return u"Nothing was printed: receipt printing is off."_s;
    return {};
}

QString joined(const QString &first, const QString &second)
{
    return first.isEmpty() || second.isEmpty() ? first + second : QString(first + u' ' + second);
}

// In practice every slip says so, those too that bear no banner.
Slip marked(const Session &session, const Slip &slip)
{
    if (!session.isPractice() || slipText(slip).join(u'\n').contains(practiceWord))
        return slip;
    return headed(slip, practiceWord);
}

ListWindow *openListing(const ScreenContext &context, const Slip &slip)
{
    auto *window = qobject_cast<ListWindow *>(context.navigator.openBeside(u"frmlistb"_s));
    window->showLines(marked(context.session, slip));
    return window;
}

QString pausedNote(SlipPrinter::Job job)
{
    return job == SlipPrinter::Job::Waiting
               ? u"The printer is paused: it prints when it is resumed."_s
               : QString();
}

} // namespace

void tellPrinted(NoteLine *line, const Printed &printed)
{
    line->setText(printed.note, printed.kind());
}

Printed printSlip(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                  const Slip &slip)
{
    if (const QString reason = closedBy(task.gate, context.session.settings); !reason.isEmpty())
        return {false, reason};
    auto job = SlipPrinter::Job::Printed;
    const bool isPrinted = trapErrors(screen, context.session, task.style, task.label, [&] {
        ProgressBox box(screen, u"Printing ..."_s, ProgressBox::Ending::OnlyWhenDone);
        job = context.printer.print(marked(context.session, slip), box.progress());
    });
    if (!isPrinted)
        return {};
    return {true, joined(task.done, pausedNote(job))};
}

Printed printCopies(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                    const Slip &slip, int copies)
{
    if (const QString reason = closedBy(task.gate, context.session.settings); !reason.isEmpty())
        return {false, reason};
    int printed = 0;
    auto job = SlipPrinter::Job::Printed;
    trapErrors(screen, context.session, task.style, task.label, [&] {
        ProgressBox box(screen, u"Printing ..."_s);
        const Slip copy = marked(context.session, slip);
        for (; printed < copies && box.step(printed, copies); ++printed)
            job = context.printer.print(copy);
    });
    QString note = task.done + QString::number(printed);
    if (printed < copies)
        note += " of "_L1 + QString::number(copies);
    return {printed == copies, joined(note, pausedNote(job))};
}

Printed printOrList(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                    const Slip &slip, const QString &listed)
{
    Printed result = printSlip(screen, context, task, slip);
    if (result.isComplete)
        return result;
    PrintTask again = task;
    again.gate = PrintGate::Printer; // asked for, so that it does not count as a receipt
    again.done = u"Printed."_s;
    openListing(context, slip)->keepUntilPrinted([=](QWidget *window) {
        return printSlip(window, context, again, slip);
    });
    result.note = joined(result.note, listed + u" is in its own window."_s);
    return result;
}

void showListing(const ScreenContext &context, const Slip &slip)
{
    openListing(context, slip);
}

void showListing(const ScreenContext &context, const QStringList &lines)
{
    Slip slip;
    for (const QString &line : lines)
        slip.addLine(line);
    showListing(context, slip);
}
