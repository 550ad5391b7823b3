#include "common/print/refundlist.h"

#include "common/event/betrecords.h"
#include "common/event/bettors.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

BettorTotals totalsByBettor(const BetTable &bets,
                            const std::function<bool(const BetRow &)> &refunded)
{
    BettorTotals totals;
    for (const BetRow &row : bets.rows) {
        if (!row.damaged && refunded(row))
            totals[row.bet.bettor] += row.bet.amount;
    }
    return totals;
}

QString bettorRefundHeading()
{
    return u"Bettor Name                  Amount"_s;
}

SlipLine bettorRefund(const QString &name, float amount)
{
    return zonedLine(leftColumn(name, 20), formatMoney(amount, "Currency"));
}

QList<SlipLine> bettorRefunds(const BettorTotals &totals, const BettorTable &bettors)
{
    const BettorNames names(bettors);
    QList<SlipLine> lines;
    QList<SlipLine> badNumbers;
    for (const auto &[number, amount] : totals) {
        if (amount == 0)
            continue;
        auto &list = names.nameOf(number).isNull() ? badNumbers : lines;
        list.append(bettorRefund(names.listed(number), amount));
    }
    return lines + badNumbers;
}

Slip refundSlip(const RefundList &list)
{
    Slip slip{u"MS Sans Serif"_s, 8, false, {}, 0};
    for (const QString &title : list.titles)
        slip.addLine(title);
    slip.addLine(list.spacer);
    if (!list.heading.isEmpty()) {
        slip.addLine(list.heading);
        slip.addLine(list.spacer);
    }
    slip.headingLines = int(slip.lines.size());
    slip.lines += list.refunds;
    if (!list.closing.isEmpty()) {
        slip.addLine(list.spacer);
        slip.addLine(list.closing);
    }
    return slip;
}
