#include "common/event/racesummary.h"

#include "common/event/odds.h"
#include "common/event/settle.h"

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
