#include "common/event/cashstakes.h"

#include "common/event/bettors.h"

#include <QHash>

namespace {

// Of a record's bettor field, which may hold anything.
int bettorOf(float number)
{
    constexpr float most = 1e6;
    return number >= 1 && number <= most && number == float(int(number)) ? int(number) : 0;
}

void addStake(auto &stakes, const BetRow &row)
{
    if (!row.damaged)
        stakes[bettorOf(row.bet.bettor)] += exactMoney(row.bet.amount);
}

} // namespace

StakesByBettor stakesOf(const BetTable &bets)
{
    QHash<int, ExactMoney> sums; // a full race has many rows
    for (const BetRow &row : bets.rows)
        addStake(sums, row);
    StakesByBettor stakes;
    for (const auto &[bettor, dollars] : sums.asKeyValueRange())
        stakes.insert(bettor, dollars);
    return stakes;
}

StakesByBettor stakesOf(const BetTable &bets, const std::set<std::size_t> &places)
{
    StakesByBettor stakes;
    for (const std::size_t place : places)
        addStake(stakes, bets.rows[place]);
    return stakes;
}

StakesByBettor stakesOf(std::span<const Bet> bets)
{
    StakesByBettor stakes;
    for (const Bet &bet : bets)
        stakes[bettorOf(bet.bettor)] += exactMoney(bet.amount);
    return stakes;
}

StakesByBettor stakesOf(const MultibetTable &bets)
{
    StakesByBettor stakes;
    for (const MultibetRow &row : bets.rows)
        stakes[row.bet.bettor] += row.damaged ? 0 : exactMoney(row.bet.amount);
    return stakes;
}

StakesByBettor stakesOf(std::span<const Multibet> bets)
{
    StakesByBettor stakes;
    for (const Multibet &bet : bets)
        stakes[bet.bettor] += exactMoney(bet.amount);
    return stakes;
}

std::vector<CashEntry> stakeLines(const Session &session, CashKind kind, int race,
                                  const StakesByBettor &stakes, const QString &detail)
{
    const BettorNames names(session.bettors);
    std::vector<CashEntry> lines;
    for (auto stake = stakes.cbegin(); stake != stakes.cend(); ++stake) {
        if (stake.key() != 0 && *stake != 0)
            lines.push_back({kind, race, stake.key(), names.nameOf(stake.key()), *stake, detail});
    }
    return lines;
}
