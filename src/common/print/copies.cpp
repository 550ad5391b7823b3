#include "common/print/copies.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

int listingCopies(const QString &answer)
{
    const double value = numericValue(answer);
    if (value == 0)
        return 0;
    return value < 1 || value > 100 ? 1 : int(value);
}

QList<Slip> listingSlips(const QStringList &lines, int copies, bool separated)
{
    QList<Slip> slips;
    for (int copy = 0; copy < copies; ++copy) {
        if (separated || slips.isEmpty())
            slips.append(Slip{u"Courier New"_s, 8, false, {}, 0});
        for (const QString &line : lines)
            slips.last().addLine(line);
    }
    return slips;
}
