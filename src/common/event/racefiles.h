#pragma once

#include "common/event/session.h"

#include <functional>
#include <optional>
#include <set>
#include <span>

// Changing the record files of the current race, and the list of bettors. All functions throw
// FileError with the label of the operation.

// Rewrites the current race's Horses and Horsesbackup (labels "Horses output", "Horsesbackup
// output").
void saveHorses(Session &session, const HorseTable &horses);

// Rewrites Bettors and Bettorsbackup with AnyBettor alone; what they held goes to Saved first. The
// labels are "Bettors output" and "Bettorsbackup output", each with \a labelEnd. Returns the number
// of copies.
int clearBettors(Session &session, const QString &labelEnd);

// The current race's bets, with the totals of its pools.
struct RaceBets
{
    BetTable bets;
    PoolTable pools;
    QString note; // of what was moved to Saved, or empty
};

// Reads the current race's Bets (label "Bets input"). Missing Bets are created empty; a missing
// Betsbackup is created as a copy of Bets (labels "Bets Append", "Betsbackup Append").
RaceBets LoadRaceBets(Session &session);

// Creates the current race's Bets and Betsbackup empty where Bets are missing; a full Betsbackup is
// copied to Saved first (label "Bets input"). Returns a note as above.
QString CreateMissingRaceBets(Session &session);

// Creates the current race's Betsbackup as a copy of Bets when it is missing (label "Betsbackup
// Append").
void createMissingBetsBackup(Session &session);

// Appends the bets' records to the current race's Bets and then to Betsbackup (labels "Bets
// Append", "Betsbackup Append"), one write and flush per file. When the twin fails, the bets are
// taken off Bets again, so that nothing counts as placed.
void AppendBet(Session &session, std::span<const Bet> bets);

// The places in the table, from 0, of the bets to take out of it; nothing to leave the files alone.
using BetChoice = std::function<std::optional<std::set<std::size_t>>(const BetTable &bets)>;

// Reads the current race's bets afresh, and rewrites Bets and Betsbackup without those that
// \a choose picks from what was read, after a copy of both went to Saved. All other lines stay byte
// for byte. The stakes go back to the bettors: the cash journal says so, with the \a reason.
// Returns false, and nothing is changed, when \a choose picks nothing at all. It may be asked
// again, when another computer wrote to the file meanwhile.
bool removeBets(Session &session, const BetChoice &choose, const QString &reason,
                const QString &label = QStringLiteral("Bets Output"),
                const QString &twinLabel = QStringLiteral("Betsbackup Output"));
