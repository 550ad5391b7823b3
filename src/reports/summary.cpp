#include "reports/summary.h"

#include "common/format.h"
#include "common/odds.h"
#include "payoff/settle.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

SummaryRow rowOf(const PoolTable &pools, int poolRow)
{
    SummaryRow row;
    for (int column = 1; column <= totalColumn; ++column)
        row.amounts[std::size_t(column - 1)] = pools.amount(poolRow, column);
    return row;
}

// The pool number of the post when another horse of the race runs with it.
int sharedEntry(const HorseTable &horses, int post)
{
    const int coupling = horses.couplingOf(post);
    const auto shares = [&](const Horse &other) {
        return other.post != post && horses.couplingOf(other.post) == coupling;
    };
    return coupling != 0 && std::ranges::any_of(horses, shares) ? coupling : 0;
}

} // namespace

QString SummaryRow::markedName() const
{
    return entry == 0 ? name : QString(name + " (entry "_L1 + QString::number(entry) + u')');
}

QString RaceSummary::note() const
{
    if (badRecords == 0)
        return {};
    return badRecords == 1
               ? u"1 bad record is not counted: see Fix Files"_s
               : QString::number(badRecords) + u" bad records are not counted: see Fix Files"_s;
}

RaceSummary summarizeRace(const RaceRecords &race, const BettorTable &bettors)
{
    RaceSummary summary;
    PoolTable pools;
    const int bettorCount = bettors.highestNumber();
    for (const BetRow &row : race.bets.rows) {
        if (isAcceptedBet(row, bettorCount) && isCountable(row.bet))
            pools.add(row.bet);
        else
            ++summary.badRecords;
    }
    std::array<int, postCount> couplings{};
    for (int post = 1; post <= postCount; ++post)
        couplings[std::size_t(post - 1)] = race.horses.couplingOf(post);
    const auto odds = winOdds(pools, couplings);
    for (const Horse &horse : race.horses) {
        SummaryRow row = rowOf(pools, horse.post);
        if (isUnused(horse) && row.amounts.back() == 0)
            continue;
        row.post = horse.post;
        row.number = isUnused(horse) ? "Post "_L1 + QString::number(horse.post) : horse.number;
        row.name = isUnused(horse) ? u"(no horse)"_s : horse.name;
        row.entry = sharedEntry(race.horses, horse.post);
        row.odds = QString::fromStdString(odds[std::size_t(horse.post - 1)]);
        summary.rows.append(row);
    }
    summary.totals = rowOf(pools, totalsRow);
    summary.totals.name = u"TOTALS"_s;
    return summary;
}

QStringList summaryHeadings()
{
    return {u"No."_s, u"Horse"_s, u"Win"_s, u"Place"_s, u"Show"_s, u"Total"_s, u"Odds"_s};
}

QStringList summaryCells(const SummaryRow &row)
{
    QStringList cells{row.number, row.markedName()};
    for (const float amount : row.amounts)
        cells.append(formatMoney(amount, "$#,##0.00"));
    cells.append(row.odds);
    return cells;
}

Slip summarySlip(const RaceSummary &summary, const QString &bannerAndRace)
{
    constexpr int numberWidth = 7;
    constexpr int amountWidth = 11;
    qsizetype nameWidth = 18;
    for (const SummaryRow &row : summary.rows)
        nameWidth = std::max(nameWidth, row.markedName().size() + 1);
    const auto lineOf = [&](const QStringList &cells) {
        QString line = leftColumn(cells[0], numberWidth) + leftColumn(cells[1], int(nameWidth));
        for (const QString &cell : cells.sliced(2))
            line += rightColumn(cell, amountWidth);
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
