#pragma once

#include "common/event/cashanswers.h"
#include "common/event/settle.h"
#include "payoff/winnerledger.h"

// Paying the winners of the race at hand: on file, and in the ledger of the visit.

// The winner at \a index of the ledger is paid: the cash journal says so, then the ledger.
void handOver(Session &session, WinnerLedger &ledger, std::size_t index);

// Those of the ledger's winners whom the journals say were paid for its race, by their index.
QMap<std::size_t, PaidBefore> paidBefore(const CashJournal &journal, const WinnerLedger &ledger,
                                         int race);

// Why the current race should not be settled as \a result says without a question: somebody was
// paid after another settlement. Empty when there is no such reason.
QString settledOtherwise(const Session &session, const CashJournal &journal,
                         const RaceResult &result);

// "Take back $16.00 paid to BAKER-ANN at 20:41, Race1?".
QString takeBackQuestion(const CashEntry &payment);

// The payment of this computer is undone: its money is in the till again, and the journal says so.
void takeBack(Session &session, const CashEntry &payment);
