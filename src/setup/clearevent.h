#pragma once

#include "common/event/filebatch.h"

// Clearing the record files of all races for a new event. Copies of what is there go to Saved
// before the first file is cleared. All functions throw FileError and set the operation label; they
// return the number of copies.

// Empties Bets and Betsbackup of every race, moves the cash journals of all computers to Saved, and
// remembers for this run that it was done. The event directory is made if needed.
int clearAllBets(Session &session, const Progress &progress = {});

// Rewrites Horses and Horsesbackup of every race with 21 unused posts.
int clearAllHorses(Session &session, const Progress &progress = {});

// Why the files of the event must not be cleared now, or an empty text: in network mode they are
// those of all computers.
QString clearRefusal(const Settings &settings);
