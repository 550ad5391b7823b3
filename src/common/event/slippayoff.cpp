#include "common/event/slippayoff.h"

#include "common/event/rounding.h"

#include <algorithm>
#include <initializer_list>

using enum Combination;

SlipPayoff slipPayoff(const SlipAmounts &stakes, const CombinationAmounts &perDollar)
{
    SlipPayoff payoff;
    for (std::size_t i = 0; i < stakes.size(); ++i)
        payoff.amounts[i] = toFourDecimals(stakes[i] * double(perDollar[Combination(i)]));
    const auto sum = [&](std::initializer_list<Combination> combinations) {
        double total = 0;
        for (const Combination combination : combinations)
            total = exactSum(total, payoff.amount(combination));
        return total;
    };
    payoff.horseTotals = {sum({WinWin, WinPlace, WinShow}), sum({PlacePlace, PlaceShow}),
                          sum({ShowShow})};
    for (const double horse : payoff.horseTotals)
        payoff.total = exactSum(payoff.total, horse);
    return payoff;
}

Payment paymentFor(const CombinationAmounts &stakes, const CombinationAmounts &payoffs,
                   int roundingIndex)
{
    SlipAmounts dollars;
    std::ranges::transform(stakes, dollars.begin(), [](float stake) { return double(stake); });
    Payment payment{slipPayoff(dollars, payoffs), stakes};
    payment.rounded = rounding(payment.total, roundingIndex);
    return payment;
}
