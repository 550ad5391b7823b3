#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// A text at a print column, 1-based. Column 0 continues right after the text before it.
struct SlipText
{
    int column = 0;
    QString text;
    bool endsAligned = false; // on paper its end, not its start, lines up with the lines around it
};

using SlipLine = QList<SlipText>;

// A printed slip as plain data: one print job. Screens hand it to the printer, tests read its
// lines.
struct Slip
{
    QString fontName; // "Courier New", "MS Sans Serif"
    double pointSize = 8;
    bool bold = false;
    QList<SlipLine> lines = {};
    int headingLines = 0;   // the first lines, repeated at the top of every further page
    bool evenPitch = false; // every character takes the same width, whatever the font
    // The lines, in rising order, at which a block begins that no page's end may part. Each reaches
    // to the next, the last to the end.
    QList<int> blockStarts = {};

    void addLine(const QString &text) { lines.append(SlipLine{{1, text}}); }
    void addLine(const SlipLine &line) { lines.append(line); }

    // Lets a block begin at the next line.
    void startBlock() { blockStarts.append(int(lines.size())); }

    // Ends the page: what follows starts on a new one.
    void addPageBreak();
    static bool isPageBreak(const SlipLine &line) { return line.isEmpty(); }
};

// The slip with a further line above it, on every page.
Slip headed(const Slip &slip, const QString &line);

// The column of the print zone after \a column characters: zones are 14 columns wide (1, 15, 29).
int nextPrintZone(int column);

// A text and, in the next print zone, a second text.
SlipLine zonedLine(const QString &first, const QString &second);

// The lines as text, each part at its column (at least one blank after the part before it).
QString lineText(const SlipLine &line);
QStringList slipText(const Slip &slip);
