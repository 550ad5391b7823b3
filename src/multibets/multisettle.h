#pragma once

#include "common/event/bettors.h"
#include "common/event/multibetrecords.h"

#include <QString>
#include <QStringList>

#include <array>

// One winning ticket, or what a bettor gets back when nobody won.
struct MultibetPayment
{
    int bettor = 0;
    QString name;
    double dollars = 0;
    QString ticket; // "EX 4,7 $2.00", or "EX refund"
};

// How the pool of one bet type of one race is shared out. Money is in dollars.
struct MultibetSettlement
{
    enum class Outcome { NoBets, Winners, Refund };
    Outcome outcome = Outcome::NoBets;
    double pool = 0;                 // all bets of the type
    double houseCut = 0;             // taken only when there are winners
    double net = 0;                  // the pool without the house cut
    double payPerDollar = 0;         // what $1 on the winning combination pays, in full precision
    QStringList lines;               // the winners, or the refunds under their heading
    QList<MultibetPayment> payments; // what the last lines stand for, one each
};

// Settles the bets of \a type against the \a winners entered on lines 1 to 3 (0 where none is).
// Tickets match line by line, those of a quinela too. Bettors that are not in the table are listed
// by number.
MultibetSettlement settleMultibets(const MultibetTable &bets, const BettorTable &bettors,
                                   const QString &type, const std::array<int, 3> &winners,
                                   int housePercent);
