#include "common/event/odds.h"

namespace {

struct Fraction
{
    int profit;
    int stake;
};

// Up to 5/1; from there on whole numbers.
constexpr Fraction toteFractions[] = {{1, 9}, {1, 5}, {2, 5}, {1, 2}, {3, 5}, {4, 5}, {1, 1},
                                      {6, 5}, {7, 5}, {3, 2}, {8, 5}, {9, 5}, {2, 1}, {5, 2},
                                      {3, 1}, {7, 2}, {4, 1}, {9, 2}, {5, 1}};
constexpr int highestOdds = 99;

// Multiplied out, so that odds of exactly 8/5 are not lost to a rounded division.
bool reaches(double profit, double stake, Fraction fraction)
{
    return profit * fraction.stake >= stake * fraction.profit;
}

} // namespace

std::string oddsFraction(float winPool, float entryMoney)
{
    if (entryMoney <= 0)
        return {};
    const double stake = double(entryMoney);
    const double profit = double(winPool) - stake;
    Fraction shown = toteFractions[0];
    for (const Fraction &fraction : toteFractions) {
        if (reaches(profit, stake, fraction))
            shown = fraction;
    }
    while (shown.profit >= 5 && shown.stake == 1 && shown.profit < highestOdds
           && reaches(profit, stake, {shown.profit + 1, 1}))
        ++shown.profit;
    return std::to_string(shown.profit) + '/' + std::to_string(shown.stake);
}

std::array<std::string, postCount> winOdds(const PoolTable &pools,
                                           const std::array<int, postCount> &couplings)
{
    std::array<std::string, postCount> odds;
    for (int post = 1; post <= postCount; ++post) {
        const int coupling = couplings[std::size_t(post - 1)];
        float money = 0;
        for (int other = 1; other <= postCount; ++other) {
            if (other == post || (coupling != 0 && couplings[std::size_t(other - 1)] == coupling))
                money += pools.amount(other, int(BetType::Win));
        }
        odds[std::size_t(post - 1)] = oddsFraction(pools.total(BetType::Win), money);
    }
    return odds;
}
