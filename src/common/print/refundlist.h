#pragma once

#include "common/print/slip.h"

#include <functional>
#include <map>

class BettorTable;
struct BetRow;
struct BetTable;

// The list of what bettors get back when their bets disappear: a horse is scratched, a race is
// called off, a bettor leaves, single bets are taken back.

// Dollars by the bettor number of the bet records, in number order.
using BettorTotals = std::map<float, float>;

// What each bettor bet on the rows for which \a refunded is true, added in file order. Damaged rows
// hold no bet and never count.
BettorTotals totalsByBettor(const BetTable &bets,
                            const std::function<bool(const BetRow &)> &refunded);

// A refund list before it is laid out.
struct RefundList
{
    QStringList titles; // "REFUND BETS ON SEABISCUIT"
    QString spacer;     // the line between titles, heading, refunds and closing line
    QString heading;    // over the columns; empty for none
    QList<SlipLine> refunds;
    QString closing; // "TOTAL BETS $12.00"; empty for none
};

// "Bettor Name                  Amount": the heading over lines of bettorRefund.
QString bettorRefundHeading();

// A line of the list: the name in 20 characters and, in the next print zone, the dollars.
SlipLine bettorRefund(const QString &name, float amount);

// One line a bettor, in number order; a bettor whose bets sum to 0 gets none. A number that is no
// longer among the bettors is listed after them as "12 Bad Bettor Number", so that its money is not
// lost.
QList<SlipLine> bettorRefunds(const BettorTotals &totals, const BettorTable &bettors);

// The list as a print job. Titles and heading are repeated on further pages.
Slip refundSlip(const RefundList &list);
