#pragma once

#include "common/event/exactmoney.h"
#include "common/event/racepayoffs.h"

#include <array>

// Dollars bet on each winning combination, in the order of Combination.
using SlipAmounts = std::array<double, combinationCount>;

// What bets on the winning combinations are worth, in dollars. Every amount is brought to four
// decimals before it is shown or summed, so that the parts add up to the total wherever they
// appear: for a bettor, on paper and in the calculator.
struct SlipPayoff
{
    std::array<double, combinationCount> amounts{}; // won on each combination
    std::array<double, finishCount> horseTotals{};  // on the win, place and show horse
    double total = 0;

    double amount(Combination combination) const { return amounts[std::size_t(combination)]; }
};

// Each stake times its payoff per $1, multiplied in double precision.
SlipPayoff slipPayoff(const SlipAmounts &stakes, const CombinationAmounts &perDollar);

// What one bettor collects.
struct Payment : SlipPayoff
{
    CombinationAmounts stakes; // dollars bet
    double rounded = 0;        // by the event's rounding step

    // What goes over the counter: whole cents.
    ExactMoney cash() const { return wholeCents(exactMoney(rounded)); }
};

Payment paymentFor(const CombinationAmounts &stakes, const CombinationAmounts &payoffs,
                   int roundingIndex);
