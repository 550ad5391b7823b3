#pragma once

#include "common/event/racepayoffs.h"
#include "common/print/slip.h"

#include <array>

// Paying one winner: what the bettor collects, and the slip that shows it.

// What one bettor collects. Double precision; the sums are of amounts brought to four decimals.
struct Payment
{
    CombinationAmounts stakes;                      // dollars bet
    std::array<double, combinationCount> amounts{}; // dollars won on each, not rounded
    std::array<double, finishCount> horseTotals{};  // win, place and show horse
    double total = 0;
    double rounded = 0; // what is handed over

    double amount(Combination combination) const { return amounts[std::size_t(combination)]; }
};

Payment paymentFor(const CombinationAmounts &stakes, const CombinationAmounts &payoffs,
                   int roundingIndex);

// The lines of a paid winner's slip. \a horseNumbers are those of the win, place and show horse.
QList<SlipLine> winnerSlipLines(const QString &bettor, const QString &bannerAndRace,
                                const std::array<QString, finishCount> &horseNumbers,
                                const Payment &payment);

// The print job for all slips of a visit to the screen.
Slip winnerSlips(const QList<SlipLine> &lines);
