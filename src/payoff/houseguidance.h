#pragma once

#include "common/event/settle.h"

#include <QString>

// What a difference between $BET and $PAID is right when everybody is paid, where it is more than
// rounding; empty where the two should be equal, and for the track's payoffs. \a owed is what all
// winners are owed, in dollars.
QString houseGuidance(const RaceResult &result, const Settlement &settlement, double owed);
