#pragma once

#include "common/event/racepayoffs.h"

#include <array>

// What the slips of one calculation are worth, in dollars and double precision.
struct SlipPayoff
{
    std::array<double, finishCount> rows{}; // of the win, place and show horse
    double total = 0;
};

// Dollars bet on each winning combination, in the order of Combination.
using SlipAmounts = std::array<double, combinationCount>;

SlipPayoff slipPayoff(const SlipAmounts &amounts, const CombinationAmounts &perDollar);

// The running amounts of paying people who hold slips of AnyBettor, in dollars.
struct AnyBettorTotals
{
    double slip = 0;          // the slip last calculated and not yet added
    double bettor = 0;        // the slips added for the person being paid
    double bettorRounded = 0; // the same, rounded
    double grand = 0;         // everybody paid so far
    double grandRounded = 0;

    // Adds the slip to the person's total; the same slip does not count twice.
    void addSlip(int roundingIndex);

    // Adds the person to the grand totals and begins the next one.
    void payBettor();
};
