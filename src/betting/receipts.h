#pragma once

#include "betting/priorbets.h"
#include "common/event/settings.h"
#include "common/print/slip.h"

// The receipt after a placement: all of the bettor's bets in the current race. An empty receipt
// font size becomes 8 and is stored.
Slip betReceipt(Settings &settings, const PriorBets &prior);

// The refund slip of deleted prior bets.
Slip priorBetsRefund(const Settings &settings, const QString &bettorName,
                     const DeletedBets &deleted);
