#include "common/event/settle.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace {

using enum Combination;

// The three pools that payoffs are paid from.
struct PayingPools
{
    float win = 0;
    float place = 0;
    float show = 0;
};

float quotient(float amount, float divisor)
{
    return divisor == 0 ? 0 : amount / divisor;
}

// The winning combinations that a bet counts for, as a bit each, by post and bet type.
class CombinationFinder
{
public:
    explicit CombinationFinder(const RaceResult &race)
    {
        for (int post = 1; post <= postCount; ++post) {
            const bool first = countsFor(race, post, Finish::Win);
            const bool second = countsFor(race, post, Finish::Place);
            const bool third = countsFor(race, post, Finish::Show);
            // With 50/30/20 a win bet on any of the three horses is a winning combination.
            set(post, BetType::Win, WinWin, first);
            set(post, BetType::Win, PlacePlace, race.is532 && second);
            set(post, BetType::Win, ShowShow, race.is532 && third);
            set(post, BetType::Place, WinPlace, first);
            set(post, BetType::Place, PlacePlace, second);
            set(post, BetType::Show, WinShow, first);
            set(post, BetType::Show, PlaceShow, second);
            set(post, BetType::Show, ShowShow, third);
        }
    }

    // A bet counts for a finisher when it is on that horse or on one of the same coupled entry.
    static bool countsFor(const RaceResult &race, int post, Finish finish)
    {
        const int finisher = race.finishers[std::size_t(finish)];
        if (post == finisher)
            return true;
        if (finisher < 1 || finisher > postCount)
            return false;
        const int coupling = race.coupling[std::size_t(finisher)];
        return coupling != 0 && race.coupling[std::size_t(post)] == coupling;
    }

    unsigned combinations(const Bet &bet) const
    {
        return m_combinations[cell(int(bet.post), int(bet.type))];
    }

    static bool has(unsigned combinations, Combination combination)
    {
        return (combinations & bit(combination)) != 0;
    }

private:
    static unsigned bit(Combination combination) { return 1U << unsigned(combination); }
    static std::size_t cell(int post, int type) { return std::size_t(post * 4 + type); }

    void set(int post, BetType type, Combination combination, bool counts)
    {
        if (counts)
            m_combinations[cell(post, int(type))] |= bit(combination);
    }

    std::array<unsigned, (postCount + 1) * 4> m_combinations{};
};

bool isWhole(float value)
{
    return value == std::floor(value);
}

// Money of a pool without a winning combination goes to the pools that have one. Returns false when
// none has.
bool movePools(PayingPools &pools, float win, float place, float show)
{
    const bool w = win > 0;
    const bool p = place > 0;
    const bool s = show > 0;
    if (!w && !p && !s)
        return false;
    if (w && p && s)
        return true;
    const float all = pools.win + pools.place + pools.show;
    if (!w && p && s) {
        pools.place += pools.win / 2;
        pools.show += pools.win / 2;
        pools.win = 0;
    } else if (w && p) {
        pools.win += pools.show / 2;
        pools.place += pools.show / 2;
        pools.show = 0;
    } else if (w && s) {
        pools.win += pools.place / 2;
        pools.show += pools.place / 2;
        pools.place = 0;
    } else {
        pools = {w ? all : 0, p ? all : 0, s ? all : 0};
    }
    return true;
}

// Splits a pool over the combinations that somebody holds: a lone one takes the pool, several get
// their stakes back and equal parts of the rest, which may be a loss.
void splitPool(float pool, std::initializer_list<Combination> combinations,
               const CombinationAmounts &stakes, CombinationAmounts &payoffs)
{
    float staked = 0;
    int held = 0;
    for (const Combination combination : combinations) {
        staked += stakes[combination];
        held += stakes[combination] > 0 ? 1 : 0;
    }
    const float part = held == 0 ? 0 : (pool - staked) / float(held);
    for (const Combination combination : combinations) {
        const float stake = stakes[combination];
        if (stake > 0)
            payoffs[combination] = held == 1 ? pool / stake : (stake + part) / stake;
    }
}

// All money bet on the horses of a finisher's entry.
float moneyOnEntry(const Settlement &settlement, const RaceResult &race, Finish finish)
{
    float sum = 0;
    for (int post = 1; post <= postCount; ++post) {
        if (CombinationFinder::countsFor(race, post, finish))
            sum += settlement.pools.amount(post, totalColumn);
    }
    return sum;
}

CombinationAmounts calculatedPayoffs(const Settlement &settlement, const RaceResult &race,
                                     const PayingPools &pools)
{
    CombinationAmounts payoffs;
    const CombinationAmounts &stakes = settlement.winningStakes;
    splitPool(pools.win, {WinWin}, stakes, payoffs);
    splitPool(pools.place, {WinPlace, PlacePlace}, stakes, payoffs);
    splitPool(pools.show, {WinShow, PlaceShow, ShowShow}, stakes, payoffs);
    if (race.is532) {
        payoffs[PlacePlace] =
            quotient(settlement.placePool, moneyOnEntry(settlement, race, Finish::Place));
        payoffs[ShowShow] =
            quotient(settlement.showPool, moneyOnEntry(settlement, race, Finish::Show));
    }
    return payoffs;
}

float owedFor(const CombinationAmounts &stakes, const CombinationAmounts &payoffs)
{
    float owed = 0;
    for (const Combination combination : allCombinations) {
        const float part = payoffs[combination] * stakes[combination];
        owed += part;
    }
    return owed;
}

} // namespace

bool isAcceptedBet(const BetRow &row, int bettorCount)
{
    const Bet &bet = row.bet;
    return !row.damaged && isWhole(bet.bettor) && bet.bettor >= 1
           && double(bet.bettor) <= double(bettorCount) && isWhole(bet.post)
           && (bet.type == 1 || bet.type == 2 || bet.type == 3) && bet.amount >= 0.01F
           && bet.amount <= 1000.0F;
}

Settlement settle(const BetTable &bets, const RaceResult &race)
{
    Settlement settlement;
    const CombinationFinder finder(race);
    std::unordered_map<int, CombinationAmounts> stakes; // by bettor number
    for (const BetRow &row : bets.rows) {
        const Bet &bet = row.bet;
        if (!isAcceptedBet(row, race.bettorCount)) {
            ++settlement.badRecords;
            continue;
        }
        if (!isCountable(bet))
            continue;
        settlement.pools.add(bet);
        const unsigned combinations = finder.combinations(bet);
        if (combinations == 0)
            continue;
        CombinationAmounts &bettorStakes = stakes[int(bet.bettor)];
        for (const Combination combination : allCombinations) {
            if (CombinationFinder::has(combinations, combination)) {
                bettorStakes[combination] += bet.amount;
                settlement.winningStakes[combination] += bet.amount;
            }
        }
    }

    const float winMoney = settlement.pools.total(BetType::Win);
    PayingPools pools{winMoney, settlement.pools.total(BetType::Place),
                      settlement.pools.total(BetType::Show)};
    if (race.is532)
        pools = {0.5F * winMoney, 0.3F * winMoney, 0.2F * winMoney};
    settlement.winPool = pools.win;
    settlement.placePool = pools.place;
    settlement.showPool = pools.show;
    settlement.allPools = pools.win + pools.place + pools.show;
    settlement.houseCut = settlement.allPools * float(race.housePercent) / 100;

    const CombinationAmounts &winning = settlement.winningStakes;
    PayingPools moved = pools;
    settlement.hasWinners =
        movePools(moved, winning[WinWin], winning[WinPlace] + winning[PlacePlace],
                  winning[WinShow] + winning[PlaceShow] + winning[ShowShow]);
    if (!settlement.hasWinners)
        return settlement;
    if (!race.is532)
        pools = moved;

    settlement.beforeHouse =
        race.trackPayoffs ? *race.trackPayoffs : calculatedPayoffs(settlement, race, pools);
    const auto kept = float(1.0 - race.housePercent / 100.0);
    settlement.payoffs = settlement.beforeHouse;
    for (float &payoff : settlement.payoffs)
        payoff *= kept;

    for (const auto &[number, bettorStakes] : stakes) {
        const float owed = owedFor(bettorStakes, settlement.payoffs);
        if (owed != 0)
            settlement.winners.push_back({number, bettorStakes, owed});
    }
    std::ranges::sort(settlement.winners, {}, &WinningBettor::number);
    return settlement;
}
