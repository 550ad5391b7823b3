#pragma once

#include "common/event/betrecords.h"
#include "common/event/bettors.h"
#include "common/event/horses.h"

#include <QStringList>

// The listings of a race's bets that the list window shows and prints.

// "Win", "Place" or "Show"; any other type of a record as its number.
QString listedBetType(float type);

// The horse of a bet; where none runs, one with the post as its number and the name "(no horse)".
Horse horseOfBet(const HorseTable &horses, const Bet &bet);

// Every bettor with bets in the race, by name: the name, the bets in the order taken, and their
// total. Damaged records hold no bet.
QStringList betsByBettor(const BetTable &bets, const HorseTable &horses, const BettorTable &bettors,
                         const QString &bannerAndRace);

// What each bettor bet in the race, by name, and the total of all.
QStringList bettorTotals(const BetTable &bets, const BettorTable &bettors,
                         const QString &bannerAndRace);
