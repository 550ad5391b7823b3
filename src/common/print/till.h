#pragma once

#include "common/event/cashanswers.h"
#include "common/event/eventrecords.h"

#include <optional>
#include <vector>

// What should be in the tills of an event, from the cash journals, and what its races owe and paid,
// from the journals and the record files together.

// The till of one computer, or of all together.
struct Till
{
    QString computer;
    std::optional<ExactMoney> floated; // in the till at the start
    ExactMoney bets = 0;
    ExactMoney multibets = 0;
    ExactMoney refunds = 0;
    ExactMoney paid = 0;          // to winners and on slips of AnyBettor
    ExactMoney multibetsPaid = 0; // winning tickets, and stakes given back where nobody won
    ExactMoney rounding = 0;      // kept by paying less than was owed; negative: given
    std::optional<ExactMoney> counted;
    QString closedAt;        // "23:05", empty while it is open
    int movedSinceClose = 0; // lines about money after that

    ExactMoney expected() const;
    std::optional<ExactMoney> difference() const; // what is too much; negative: missing
};

// The till of each computer that has a journal, by name. Payments that were taken back are in none.
// Where slips of AnyBettor were paid through the calculator, they count and not the press of PAY
// WINNER on the name: the money goes out once.
std::vector<Till> tillsOf(const CashJournal &journal);

// All of them as one till. It has a float when one of them has, and a count when all have.
Till allTills(const std::vector<Till> &tills);

// Who is still owed money of a race.
struct Unpaid
{
    QString name;
    ExactMoney dollars = 0;
};

// A race by its last settlement; everything but the pools is 0 while there is none.
struct RaceTill
{
    int race = 0;
    ExactMoney pools = 0; // win, place and show
    ExactMoney multibets = 0;
    QString settledAt; // "20:39"; empty: not settled
    double housePercent = 0;
    ExactMoney houseCut = 0;
    ExactMoney owed = 0; // rounded, bettor by bettor
    ExactMoney paid = 0;
    ExactMoney multibetsPaid = 0;
    std::vector<Unpaid> unpaid;
    // Of the journals with the files and with themselves, in plain words; only so many are worded.
    QStringList disagreements;
    int moreDisagreements = 0;
};

std::vector<RaceTill> raceTills(const std::vector<RaceRecords> &races, const BettorTable &bettors,
                                const CashJournal &journal);
