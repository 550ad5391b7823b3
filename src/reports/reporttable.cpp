#include "reports/reporttable.h"

#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int smallestPoints = 6;
constexpr int pointStep = 2;
// What Letter and A4 both leave between half-inch margins, in points.
constexpr double paperWidth = 523;
constexpr double pitch = 0.6; // width of a fixed-pitch character by its size

QString trimmedRight(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

// A spreadsheet would calculate with such a cell, or run what it names.
bool beginsLikeFormula(const QString &text)
{
    return !text.isEmpty() && u"=+-@\t\r"_s.contains(text.front());
}

QString csvField(const QString &cell, ReportColumn::Kind kind)
{
    QString text = cell;
    if (kind == ReportColumn::Kind::Money)
        text.remove(u'$').remove(u',');
    else if (kind == ReportColumn::Kind::Text && beginsLikeFormula(text))
        text.prepend(u'\'');
    if (!text.contains(u',') && !text.contains(u'"'))
        return text;
    return u'"' + text.replace(u'"', u"\"\""_s) + u'"';
}

QByteArray csvLine(const QList<ReportColumn> &columns, const QStringList &cells)
{
    QStringList fields;
    for (qsizetype i = 0; i < columns.size(); ++i)
        fields.append(csvField(cells[i], columns[i].kind));
    return fields.join(u',').toUtf8() + "\r\n";
}

// The headings, and a line for each row; a blank line behind each total.
QStringList tableLines(const QList<ReportColumn> &columns, const QList<ReportRow> &rows)
{
    QList<int> widths;
    QStringList headings;
    for (qsizetype i = 0; i < columns.size(); ++i) {
        qsizetype width = columns[i].heading.size();
        for (const ReportRow &row : rows)
            width = std::max(width, row.cells[i].size());
        widths.append(int(width));
        headings.append(columns[i].heading);
    }
    const auto lineOf = [&](const QStringList &cells) {
        QString line;
        for (qsizetype i = 0; i < widths.size(); ++i) {
            const bool left = columns[i].kind == ReportColumn::Kind::Text;
            line += left ? leftColumn(cells[i], widths[i]) : rightColumn(cells[i], widths[i]);
            line += "  "_L1;
        }
        return trimmedRight(line);
    };
    QStringList lines{lineOf(headings)};
    for (const ReportRow &row : rows) {
        lines.append(lineOf(row.cells));
        if (row.isTotal)
            lines.append(u" "_s);
    }
    return lines;
}

QByteArray tableCsv(const QList<ReportColumn> &columns, const QList<ReportRow> &rows)
{
    QStringList headings;
    QList<ReportColumn> asText = columns;
    for (ReportColumn &column : asText) {
        headings.append(column.heading);
        column.kind = ReportColumn::Kind::Text;
    }
    QByteArray csv = csvLine(asText, headings);
    for (const ReportRow &row : rows)
        csv += csvLine(columns, row.cells);
    return csv;
}

void endBlock(QStringList &lines)
{
    if (!lines.last().trimmed().isEmpty())
        lines.append(u" "_s);
}

} // namespace

ReportLines reportLines(const Report &report)
{
    ReportLines text;
    text.lines = report.titles;
    text.lines.append(u" "_s);
    text.headingLines = int(text.lines.size()) + (report.before.isEmpty() ? 1 : 0);
    for (const ReportTable &table : report.before) {
        text.lines += table.heading;
        text.lines += tableLines(table.columns, table.rows);
        endBlock(text.lines);
    }
    text.lines += tableLines(report.columns, report.rows);
    if (!report.remarks.isEmpty())
        endBlock(text.lines);
    text.lines += report.remarks;
    return text;
}

Slip reportSlip(const ReportLines &report, int points)
{
    qsizetype longest = 1;
    for (const QString &line : report.lines)
        longest = std::max(longest, line.size());
    int fitting = points;
    while (fitting > smallestPoints && double(longest) * pitch * fitting > paperWidth)
        fitting -= pointStep;
    Slip slip{u"Courier New"_s, double(fitting), false, {}, report.headingLines};
    for (const QString &line : report.lines)
        slip.addLine(line);
    return slip;
}

QByteArray reportCsv(const Report &report)
{
    QByteArray csv = "\xef\xbb\xbf";
    for (const ReportTable &table : report.before)
        csv += tableCsv(table.columns, table.rows) + "\r\n";
    return csv + tableCsv(report.columns, report.rows);
}
