#pragma once

#include "common/event/cashjournal.h"
#include "common/event/multibetrecords.h"
#include "common/files/fileerror.h"

#include <QMap>

#include <set>

// The money of bets, as the cash journal writes it down.

// Dollars by bettor number. A record whose bettor is no whole number above 0 counts for 0.
using StakesByBettor = QMap<int, ExactMoney>;

StakesByBettor stakesOf(const BetTable &bets);
StakesByBettor stakesOf(const BetTable &bets, const std::set<std::size_t> &places);
StakesByBettor stakesOf(std::span<const Bet> bets);
StakesByBettor stakesOf(const MultibetTable &bets);
StakesByBettor stakesOf(std::span<const Multibet> bets);

// A line for each bettor who has money in it; the names are those of the session's list. Bets of
// bettor 0 are nobody's: no money moves with them.
std::vector<CashEntry> stakeLines(const Session &session, CashKind kind, int race,
                                  const StakesByBettor &stakes, const QString &detail = {});

// Runs \a change, which moves bets in or out of files, and writes down what \a lines then gives:
// when it returns true, and also when it throws because the twin alone could not be rewritten.
template<typename Change, typename Lines>
bool changeWithCash(Session &session, const Change &change, const Lines &lines)
{
    bool changed = false;
    try {
        changed = change();
    } catch (const FileError &error) {
        if (error.aftermath() == Aftermath::MainChanged)
            recordCash(session, lines());
        throw;
    }
    if (changed)
        recordCash(session, lines());
    return changed;
}
