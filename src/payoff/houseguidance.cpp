#include "payoff/houseguidance.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

QString houseGuidance(const RaceResult &result, const Settlement &settlement, double owed)
{
    if (result.trackPayoffs)
        return {};
    const QString percent = QString::number(result.housePercent) + u" %"_s;
    if (result.is532) {
        // Its three shares come out of the win money alone, and the place and show shares are
        // divided by all the money on their horses.
        const double kept = double(settlement.pools.amount(totalsRow, totalColumn)) - owed;
        return u"532 pays from the win pool alone, after the house percentage of "_s + percent
               + u": $PAID should be "_s + formatMoney(kept)
               + u" less than $BET, give or take rounding."_s;
    }
    if (settlement.houseCut <= 0)
        return {};
    return u"The house keeps "_s + formatMoney(settlement.houseCut) + u" ("_s + percent
           + u"): $PAID should be that much less than $BET, give or take rounding."_s;
}
