#pragma once

#include "common/event/slippayoff.h"
#include "common/print/slip.h"

#include <array>

// The slip that shows what a winner was paid.

// The lines of a paid winner's slip. \a horseNumbers are those of the win, place and show horse.
QList<SlipLine> winnerSlipLines(const QString &bettor, const QString &bannerAndRace,
                                const std::array<QString, finishCount> &horseNumbers,
                                const Payment &payment);

// The print job for all slips of a visit to the screen.
Slip winnerSlips(const QList<SlipLine> &lines);
