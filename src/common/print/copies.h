#pragma once

#include "common/print/slip.h"

// The number of copies for the answer to "Enter number of forms to print": none for 0 or no
// number, one below 1 and above 100.
int listingCopies(const QString &answer);

// The print jobs of a listing: one a copy, or all copies in one job when they are not separated.
QList<Slip> listingSlips(const QStringList &lines, int copies, bool separated);
