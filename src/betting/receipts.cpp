#include "betting/receipts.h"

#include "common/print/format.h"

using namespace Qt::StringLiterals;

Slip betReceipt(Settings &settings, const PriorBets &prior)
{
    if (settings.receiptFontSize.isEmpty())
        settings.receiptFontSize = u"8"_s;
    Slip slip{u"Courier New"_s, numericValue(settings.receiptFontSize), true, {}, 0};
    slip.addLine(settings.banner + u"  "_s + settings.raceName());
    slip.addLine(u" "_s);
    slip.addLine(u"BET SUMMARY FOR "_s);
    slip.addLine(prior.name);
    slip.addLine(u" "_s);
    slip.addLine(u"HORSE              BET"_s);
    for (const PriorBet &bet : prior.bets)
        slip.addLine(bet.line);
    slip.addLine(u" "_s);
    slip.addLine(u"TOTAL BETS "_s + formatMoney(prior.sum, "$###0.00"));
    return slip;
}

Slip priorBetsRefund(const Settings &settings, const QString &bettorName,
                     const DeletedBets &deleted)
{
    Slip slip{u"MS Sans Serif"_s, 8, false, {}, 0};
    slip.addLine(u"Refund Bets"_s);
    slip.addLine(bettorName + u" for "_s + settings.raceName());
    slip.addLine(u" "_s);
    for (const QString &line : deleted.lines)
        slip.addLine(line);
    slip.addLine(u" "_s);
    slip.addLine(u"Total Refund "_s + formatMoney(deleted.refund));
    return slip;
}
