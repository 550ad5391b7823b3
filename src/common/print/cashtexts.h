#pragma once

#include "common/event/cashanswers.h"

// What screens say of the cash journal.

// "paid $16.00 at 20:41".
QString paidText(const PaidBefore &paid);

// "2 of 3 were paid before: BAKER-ANN $16.00 at 20:41", empty for nobody; only some are named.
QString paidBeforeNote(const QList<PaidBefore> &paid, int ofAll);

// "BAKER-ANN was paid $16.00 at 20:41. Pay again?"; names the difference to what is owed \a now.
QString payAgainQuestion(const PaidBefore &paid, ExactMoney now);

// "Race1 was settled at 20:39: 1A, 3, 5, house 12 %".
QString settledText(const CashEntry &settlement, const HorseTable &horses);

// The same of a race's last settlement, if it was settled; else empty.
QString settledNote(Session &session, int race, const HorseTable &horses);

// What of the journals could not be read; empty when all could.
QString journalNote(const CashJournal &journal);
