#pragma once

#include "common/event/bettypes.h"
#include "common/event/cashanswers.h"
#include "multibets/multisettle.h"

#include <optional>

// Paying winning multibets, or giving the stakes back when nobody won.

// What the journals say was paid before of these payments of a race, one for each; nothing where it
// was not. Of equal tickets as many count as were paid.
QList<std::optional<PaidBefore>> paidBefore(const CashJournal &journal, int race,
                                            const QList<MultibetPayment> &payments);

// The winners of a type of the current race's multibets were found, or that there are none: the
// cash journal says so, once. Nothing is written as long as a line of the finish is empty or
// nothing was bet.
void recordMultibetSettlement(Session &session, const MultibetType &type,
                              const std::array<int, 3> &winners, const MultibetSettlement &settled);

// The payment is made: the cash journal says so.
void payTicket(Session &session, const MultibetPayment &payment);
