#pragma once

#include "common/print/slip.h"

// The number of copies for an answer to "Enter number of forms to print": its whole part, none
// below 1.
int copiesAsked(const QString &answer);

// The same for the list window, where a number below 1 or above 100 means one copy; none for 0 or
// no number.
int listingCopies(const QString &answer);

// All copies of a listing in one job, one after the other.
Slip copiesInOneJob(const Slip &listing, int copies);
