#pragma once

#include "common/event/cashanswers.h"
#include "multibets/multisettle.h"

#include <optional>

// Paying winning multibets, or giving the stakes back when nobody won.

// What the journals say was paid before of these payments of a race, one for each; nothing where it
// was not. Of equal tickets as many count as were paid.
QList<std::optional<PaidBefore>> paidBefore(const CashJournal &journal, int race,
                                            const QList<MultibetPayment> &payments);

// The payment is made: the cash journal says so.
void payTicket(Session &session, const MultibetPayment &payment);
