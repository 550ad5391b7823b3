#pragma once

#include "common/event/horses.h"
#include "common/print/slip.h"

#include <QString>

// Blank bet sheets, on which bettors write their bets.

// The number of sheets for the answer to "Enter number of forms to print": its whole part, at most
// 1000, none below 1.
int betSheetCount(const QString &answer);

// One sheet: the race's horses with empty boxes for win, place, show and total, and \a message at
// the foot. \a event, banner and race, stands in the title.
Slip betSheetSlip(const HorseTable &horses, const QString &event, const QString &message);
