#pragma once

#include "common/print/slip.h"
#include "payoff/slippayoff.h"

#include <array>

// Paying one winner: what the bettor collects, and the slip that shows it.

// What one bettor collects.
struct Payment : SlipPayoff
{
    CombinationAmounts stakes; // dollars bet
    double rounded = 0;        // what is handed over
};

Payment paymentFor(const CombinationAmounts &stakes, const CombinationAmounts &payoffs,
                   int roundingIndex);

// The lines of a paid winner's slip. \a horseNumbers are those of the win, place and show horse.
QList<SlipLine> winnerSlipLines(const QString &bettor, const QString &bannerAndRace,
                                const std::array<QString, finishCount> &horseNumbers,
                                const Payment &payment);

// The print job for all slips of a visit to the screen.
Slip winnerSlips(const QList<SlipLine> &lines);
