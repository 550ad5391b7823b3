#pragma once

#include "common/event/betrecords.h"
#include "common/event/bettors.h"
#include "common/event/horses.h"

#include <QHash>
#include <QStringList>

// The listings of a race's bets that the list window shows and prints.

// Looks up names by the bettor number of bet records.
class BettorNames
{
public:
    explicit BettorNames(const BettorTable &bettors);

    // The name, or "12 Bad Bettor Number" when no bettor carries the number.
    QString nameOf(float number) const;

private:
    QHash<int, QString> m_names;
};

// "Win", "Place" or "Show"; any other type of a record as its number.
QString betTypeWord(float type);

// The horse of a bet; where none runs, one with the post as its number and the name "(no horse)".
Horse horseOfBet(const HorseTable &horses, const Bet &bet);

// Every bettor with bets in the race, by name: the name, the bets in the order taken, and their
// total. Damaged records hold no bet.
QStringList betsByBettor(const BetTable &bets, const HorseTable &horses, const BettorTable &bettors,
                         const QString &bannerAndRace);

// What each bettor bet in the race, by name, and the total of all.
QStringList bettorTotals(const BetTable &bets, const BettorTable &bettors,
                         const QString &bannerAndRace);
