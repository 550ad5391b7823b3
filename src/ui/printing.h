#pragma once

#include "common/files/fileerror.h"
#include "common/print/slip.h"
#include "ui/navigator.h"

// How screens print: one gate, one error trap, one wording of the notes.

// Which answers of the operator must allow it: that a printer is attached, or also that receipts
// print.
enum class PrintGate { Printer, Receipts };

struct PrintTask
{
    QString label; // names the operation in the box of an error
    ErrorStyle style = ErrorStyle::DescriptionOnly;
    QString done = {}; // the note of a success; the number of copies follows when they were counted
    PrintGate gate = PrintGate::Printer;
};

// What came of a task. The note is for the screen's status line: what was done, or why nothing was
// printed, or that a paused printer keeps it; empty after a failure, which its box has told.
struct Printed
{
    bool isComplete = false;
    QString note = {};

    NoteKind kind() const { return isComplete ? NoteKind::Plain : NoteKind::Warning; }
};

// Tells what came of a task in the status line, in place of what was told before.
void tellPrinted(NoteLine *line, const Printed &printed);

// Prints one job, unless the gate is closed.
Printed printSlip(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                  const Slip &slip);

// Prints so many copies, each as a job of its own; the note counts them. When it takes long a box
// shows how far it is and offers Cancel.
Printed printCopies(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                    const Slip &slip, int copies);

// Prints a list that must be seen, because what it lists is about to disappear. When it does not
// reach the printer it opens in the list window frmlistb, which keeps it until it is printed, and
// the note says so of \a listed, such as "The refund list".
Printed printOrList(QWidget *screen, const ScreenContext &context, const PrintTask &task,
                    const Slip &slip, const QString &listed);

// Opens the list window with these lines beside the screen shown; both stay usable. What it prints
// keeps the slip's blocks whole.
void showListing(const ScreenContext &context, const Slip &slip);
void showListing(const ScreenContext &context, const QStringList &lines);
