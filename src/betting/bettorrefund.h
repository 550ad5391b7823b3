#pragma once

#include "common/print/slip.h"

// The refund slip of a bettor who is deleted: the heading, and the bettor's line unless the
// \a amount (dollars, of the current race's bets) is 0.
Slip bettorRefundSlip(const QString &name, float amount);
