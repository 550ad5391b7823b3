#pragma once

#include "common/event/session.h"
#include "common/files/progress.h"

#include <QStringList>

// What the practice event begins with. It is the same every time but for the times in its journal.

// The names of the forty made-up bettors.
const QStringList &guestNames();

// Makes the files of an event in the session's empty folder: the guests on the list of bettors, and
// the three races after \a emptyRace with horses, a coupled entry in each, a hundred bets in all,
// and multibets. Everything is placed as at the betting table. Afterwards the current race is
// \a emptyRace. Throws FileError.
void makeEventOfGuests(Session &session, int emptyRace, const Progress &progress);
