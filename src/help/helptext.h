#pragma once

#include "common/event/session.h"
#include "common/print/slip.h"

#include <QList>

// The help text: the organiser's own Horsehelp.txt in the folder Trelawn of the Init drive, or the
// one that comes with the program.

// "C:\Trelawn\Horsehelp.txt".
QString helpFile(const Session &session);

// The text that comes with the program.
QString shippedHelp();

struct HelpText
{
    QString text;
    bool isShipped = false; // there is no file, or nothing in it
};

// Throws FileError when there is a file and it cannot be read.
HelpText loadHelp(Session &session);

// Writes the organiser's own text. Throws FileError; the old file is whole then.
void saveHelp(Session &session, const QString &text);

// A chapter begins with a line that is underlined with "=" signs.
struct Chapter
{
    QString title;
    int line = 0; // of its title, 0-based
};
QList<Chapter> chapters(const QString &text);

// The first line of the chapter on the screen with this window title: of that name, whatever the
// case. -1 when there is none.
int chapterLine(const QString &text, const QString &title);

// The text as one print job; lines too wide for the paper are broken at blanks.
Slip helpSlip(const QString &text);
