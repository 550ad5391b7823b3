#include "betting/priorbets.h"

#include "common/event/bettypes.h"
#include "common/event/cashjournal.h"
#include "common/event/racefiles.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

// The horse of a bet; a bet on no post of the race card has an empty one.
Horse horseOf(const HorseTable &horses, const Bet &bet)
{
    const bool onCard = bet.post >= 1 && bet.post <= float(postCount);
    return onCard ? horses.post(int(bet.post)) : Horse();
}

} // namespace

void PriorBets::append(const PriorBet &bet)
{
    bets.append(bet);
    sum += bet.bet.amount;
}

QStringList PriorBets::lines() const
{
    QStringList lines;
    for (const PriorBet &bet : bets)
        lines.append(bet.line);
    return lines;
}

QString savedBetLine(const HorseTable &horses, const Bet &bet)
{
    const Horse horse = horseOf(horses, bet);
    return leftColumn(horse.number, 2) + u' ' + leftColumn(horse.name, 15) + u' '
           + formatMoney(bet.amount, "$#,#00.00") + u' ' + leftColumn(betTypeWord(bet.type), 5);
}

QString placedBetLine(const HorseTable &horses, const Bet &bet)
{
    const Horse horse = horseOf(horses, bet);
    return rightColumn(horse.number, 2) + u' ' + leftColumn(horse.name.left(15), 15) + u' '
           + formatMoney(bet.amount, "$#,#00.00") + u' ' + betTypeWord(bet.type);
}

PriorBets priorBets(const BetTable &bets, const HorseTable &horses, int bettor, const QString &name)
{
    PriorBets prior{bettor, name, {}, 0};
    const auto isOwn = [&](const BetRow &row) { return bets.isBetOf(row, bettor); };
    for (const std::size_t place : placesWhere(bets, isOwn)) {
        const Bet &bet = bets.rows[place].bet;
        prior.append({place, bet, savedBetLine(horses, bet)});
    }
    return prior;
}

DeletedBets deletePriorBets(Session &session, const QList<PriorBet> &selected)
{
    const auto choose = [&](const BetTable &bets) -> std::optional<std::set<std::size_t>> {
        std::set<std::size_t> places;
        for (const PriorBet &prior : selected) {
            const bool isThere = prior.row < bets.rows.size() && !bets.rows[prior.row].damaged
                                 && bets.rows[prior.row].bet == prior.bet;
            if (!isThere)
                return {};
            places.insert(prior.row);
        }
        // A bet without a bettor does not outlive the rewrite.
        places.merge(placesWhere(bets, [&](const BetRow &row) { return bets.isBetOf(row, 0); }));
        return places;
    };
    DeletedBets deleted;
    deleted.twinError = errorOfTwin([&] {
        deleted.listWasStale =
            !removeBets(session, choose, refundPriorBets, u"Bets"_s, u"Betsbackup"_s);
    });
    if (deleted.listWasStale)
        return deleted;
    for (const PriorBet &prior : selected) {
        deleted.lines.append(prior.line);
        deleted.refund += prior.bet.amount;
    }
    return deleted;
}
