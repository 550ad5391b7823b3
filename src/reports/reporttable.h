#pragma once

#include "common/print/slip.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

// A report as plain data: titles over a table, perhaps others before it, and remarks under it.
// Preview, paper, PDF and CSV are made from the same cells.

struct ReportColumn
{
    enum class Kind { Text, Number, Money };
    QString heading;
    Kind kind = Kind::Text;
};

struct ReportRow
{
    QStringList cells; // one a column; money as "$1,234.50"
    bool isTotal = false;
};

struct ReportTable
{
    QString heading;
    QList<ReportColumn> columns;
    QList<ReportRow> rows;
};

struct Report
{
    QString name;                   // "Horses Race3", also the suggested file name
    QStringList titles;             // the lines above the table
    QList<ReportTable> before = {}; // tables of their own between the titles and the table
    QList<ReportColumn> columns;
    QList<ReportRow> rows;
    QStringList remarks; // the lines below the table
};

// The lines of the report in columns, as a fixed-pitch font shows them. The titles and headings, or
// the titles alone where there are several tables, are the first \a headingLines lines.
struct ReportLines
{
    QStringList lines;
    int headingLines = 0;
};
ReportLines reportLines(const Report &report);

// The report as a print job in a report font of \a points, or in the largest smaller one in which
// its lines fit the width of the paper.
Slip reportSlip(const ReportLines &report, int points);

// The table as comma-separated values for other programs: the headings, then the rows, and a blank
// line between tables; UTF-8 with a
// byte order mark, amounts as plain numbers. A text that a spreadsheet would take for a formula
// gets an apostrophe in front.
QByteArray reportCsv(const Report &report);
