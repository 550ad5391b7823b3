#include "reports/summaryslip.h"

#include "common/event/bettypes.h"
#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QStringList summaryHeadings()
{
    return {u"No."_s,
            u"Horse"_s,
            betTypeWord(BetType::Win),
            betTypeWord(BetType::Place),
            betTypeWord(BetType::Show),
            u"Total"_s,
            u"Odds"_s};
}

QStringList summaryCells(const SummaryRow &row)
{
    QStringList cells{row.number, row.markedName()};
    for (const float amount : row.amounts)
        cells.append(formatMoney(amount));
    cells.append(row.odds);
    return cells;
}

Slip summarySlip(const RaceSummary &summary, const QString &bannerAndRace)
{
    constexpr int numberWidth = 7;
    constexpr int dollarsWidth = 11;
    qsizetype nameWidth = 18;
    for (const SummaryRow &row : summary.rows)
        nameWidth = std::max(nameWidth, row.markedName().size() + 1);
    const auto lineOf = [&](const QStringList &cells) {
        QString line = leftColumn(cells[0], numberWidth) + leftColumn(cells[1], int(nameWidth));
        for (const QString &cell : cells.sliced(2))
            line += rightColumn(cell, dollarsWidth);
        return line;
    };
    Slip slip{u"Courier New"_s, 8, false, {}, 0};
    slip.addLine(bannerAndRace + u" Summary"_s);
    slip.addLine(u" "_s);
    slip.addLine(lineOf(summaryHeadings()));
    slip.headingLines = int(slip.lines.size());
    for (const SummaryRow &row : summary.rows)
        slip.addLine(lineOf(summaryCells(row)));
    slip.addLine(u" "_s);
    slip.addLine(lineOf(summaryCells(summary.totals)));
    if (const QString note = summary.note(); !note.isEmpty())
        slip.addLine(note);
    return slip;
}
