#include "betting/bettorrefund.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

Slip bettorRefundSlip(const QString &name, float amount)
{
    Slip slip{u"MS Sans Serif"_s, 8, false, {}, 0};
    slip.addLine("REFUND BETS FOR "_L1 + name);
    slip.addLine(u" "_s);
    slip.addLine(u"Bettor Name                  Amount"_s);
    slip.addLine(u" "_s);
    if (amount != 0)
        slip.addLine(zonedLine(leftColumn(name, 20), formatMoney(amount, "Currency")));
    return slip;
}
