#pragma once

#include "common/event/horses.h"
#include "common/print/slip.h"

#include <QString>

// Blank bet sheets, on which bettors write their bets.

// One sheet: the race's horses with empty boxes for win, place, show and total, and \a message at
// the foot. \a event, banner and race, stands in the title.
Slip betSheetSlip(const HorseTable &horses, const QString &event, const QString &message);
