#include "multibets/multisettle.h"

#include "common/print/format.h"

#include <QHash>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

// "EX 4,7 $2.00".
QString ticketText(const Multibet &bet)
{
    QStringList posts;
    for (const int post : bet.posts) {
        if (post != 0)
            posts += QString::number(post);
    }
    return bet.type + u' ' + posts.join(u',') + u' ' + formatMoney(bet.amount);
}

void listWinners(MultibetSettlement &settled, const QList<Multibet> &winning,
                 const BettorTable &bettors)
{
    const BettorNames names(bettors);
    // By stake: a race has few different ones.
    QHash<double, std::pair<QString, QString>> texts;
    settled.lines.reserve(winning.size());
    settled.payments.reserve(winning.size());
    for (const Multibet &bet : winning) {
        const double payout = bet.amount * settled.payPerDollar;
        auto &[shown, ticket] = texts[bet.amount];
        if (shown.isEmpty()) {
            shown = u' ' + formatMoney(payout);
            ticket = ticketText(bet);
        }
        const QString name = names.listed(bet.bettor);
        settled.lines.append(name + shown);
        settled.payments.append({bet.bettor, name, payout, ticket});
    }
}

void listRefunds(MultibetSettlement &settled, QMap<int, double> stakes, const BettorTable &bettors,
                 const QString &type)
{
    settled.lines = {u"NO WINNERS - REFUND"_s, u" "_s};
    const auto add = [&](int number, const QString &name, double stake) {
        if (stake == 0)
            return;
        settled.lines.append(name + u' ' + formatMoney(stake));
        settled.payments.append({number, name, stake, type + u" refund"_s});
    };
    for (int slot = 1; slot <= bettors.slotCount(); ++slot) {
        const Bettor &bettor = bettors.slot(slot);
        add(bettor.number, bettor.name, bettor.isBettor() ? stakes.take(bettor.number) : 0);
    }
    // What is left was bet under numbers that are no longer in the list.
    for (auto stake = stakes.cbegin(); stake != stakes.cend(); ++stake)
        add(stake.key(), badBettorNumber(QString::number(stake.key())), *stake);
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
        listWinners(settled, winning, bettors);
    } else if (settled.pool != 0) {
        settled.outcome = MultibetSettlement::Outcome::Refund;
        listRefunds(settled, std::move(stakes), bettors, type);
    }
    return settled;
}
