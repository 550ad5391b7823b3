#include "multibets/multisettle.h"

#include "common/print/format.h"

#include <QHash>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

QString payLine(const QString &name, double amount)
{
    return name + u' ' + formatMoney(amount);
}

QStringList winnerLines(const QList<Multibet> &winning, const BettorTable &bettors,
                        double payPerDollar)
{
    const BettorNames names(bettors);
    QHash<double, QString> payouts; // by stake: a race has few different ones
    QStringList lines;
    lines.reserve(winning.size());
    for (const Multibet &bet : winning) {
        QString &payout = payouts[bet.amount];
        if (payout.isEmpty())
            payout = u' ' + formatMoney(bet.amount * payPerDollar);
        lines.append(names.listed(bet.bettor) + payout);
    }
    return lines;
}

QStringList refundLines(QMap<int, double> stakes, const BettorTable &bettors)
{
    QStringList lines{u"NO WINNERS - REFUND"_s, u" "_s};
    for (int slot = 1; slot <= bettors.slotCount(); ++slot) {
        const Bettor &bettor = bettors.slot(slot);
        const double stake = bettor.isBettor() ? stakes.take(bettor.number) : 0;
        if (stake != 0)
            lines.append(payLine(bettor.name, stake));
    }
    // What is left was bet under numbers that are no longer in the list.
    for (auto stake = stakes.cbegin(); stake != stakes.cend(); ++stake) {
        if (*stake != 0)
            lines.append(payLine(badBettorNumber(QString::number(stake.key())), *stake));
    }
    return lines;
}

} // namespace

MultibetSettlement settleMultibets(const MultibetTable &bets, const BettorTable &bettors,
                                   const QString &type, const std::array<int, 3> &winners,
                                   int housePercent)
{
    MultibetSettlement settled;
    double winningAmount = 0;
    QList<Multibet> winning;
    QMap<int, double> stakes;
    for (const MultibetRow &row : bets.rows) {
        if (row.damaged || row.bet.type != type)
            continue;
        settled.pool += row.bet.amount;
        stakes[row.bet.bettor] += row.bet.amount;
        if (row.bet.posts == winners) {
            winningAmount += row.bet.amount;
            winning.append(row.bet);
        }
    }
    if (winningAmount != 0) {
        settled.outcome = MultibetSettlement::Outcome::Winners;
        settled.houseCut = settled.pool * housePercent / 100;
        settled.net = settled.pool - settled.houseCut;
        settled.payPerDollar = settled.net / winningAmount;
        settled.lines = winnerLines(winning, bettors, settled.payPerDollar);
    } else if (settled.pool != 0) {
        settled.outcome = MultibetSettlement::Outcome::Refund;
        settled.lines = refundLines(std::move(stakes), bettors);
    }
    return settled;
}
