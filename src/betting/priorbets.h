#pragma once

#include "common/event/session.h"
#include "common/files/fileerror.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

// A saved bet of the bettor as the bet sheet lists it.
struct PriorBet
{
    std::size_t row = 0; // 0-based, in the race's bet table
    Bet bet;
    QString line;
};

// The saved bets of one bettor in the current race, in file order.
struct PriorBets
{
    int bettor = 0; // 0: nobody's
    QString name;
    QList<PriorBet> bets;
    float sum = 0; // dollars

    void append(const PriorBet &bet);
    QStringList lines() const;
};

// The line of a saved bet: number in 2 characters, name in 15, amount, bet type in 5.
QString savedBetLine(const HorseTable &horses, const Bet &bet);

// The line of a bet just placed: number on the right of 2 characters, name cut to 15.
QString placedBetLine(const HorseTable &horses, const Bet &bet);

// The bettor's bets among those of a race.
PriorBets priorBets(const BetTable &bets, const HorseTable &horses, int bettor,
                    const QString &name);

// What deleting prior bets came to.
struct DeletedBets
{
    bool listWasStale = false; // a remembered row is another bet by now; nothing was deleted
    QStringList lines;         // of the deleted bets, as they stood in the list
    float refund = 0;          // dollars
    std::optional<FileError> twinError; // the bets left Bets, but Betsbackup could not be rewritten
};

// Reads the race's bets again and rewrites Bets and Betsbackup without exactly these bets (labels
// "Bets", "Betsbackup"). Throws FileError.
DeletedBets deletePriorBets(Session &session, const QList<PriorBet> &selected);
