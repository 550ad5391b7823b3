#include "common/print/copies.h"

#include "common/print/format.h"

#include <algorithm>
#include <limits>

int copiesAsked(const QString &answer)
{
    return int(std::clamp(numericValue(answer), 0.0, double(std::numeric_limits<int>::max())));
}

int listingCopies(const QString &answer)
{
    const double value = numericValue(answer);
    if (value == 0)
        return 0;
    return value < 1 || value > 100 ? 1 : int(value);
}

Slip copiesInOneJob(const Slip &listing, int copies)
{
    Slip all = listing;
    for (int copy = 1; copy < copies; ++copy) {
        for (const int start : listing.blockStarts)
            all.blockStarts.append(start + int(all.lines.size()));
        all.lines += listing.lines;
    }
    return all;
}
