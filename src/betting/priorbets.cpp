#include "betting/priorbets.h"

#include "common/event/racefiles.h"
#include "common/print/format.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

// The horse of a bet; a bet on no post of the race card has an empty one.
Horse horseOf(const HorseTable &horses, const Bet &bet)
{
    const bool onCard = bet.post >= 1 && bet.post <= float(postCount);
    return onCard ? horses.post(int(bet.post)) : Horse();
}

QString typeWord(const Bet &bet)
{
    if (bet.type == float(BetType::Win))
        return u"Win"_s;
    if (bet.type == float(BetType::Place))
        return u"Place"_s;
    return bet.type == float(BetType::Show) ? u"Show"_s : QString();
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
           + formatMoney(bet.amount, "$#,#00.00") + u' ' + leftColumn(typeWord(bet), 5);
}

QString placedBetLine(const HorseTable &horses, const Bet &bet)
{
    const Horse horse = horseOf(horses, bet);
    return rightColumn(horse.number, 2) + u' ' + leftColumn(horse.name.left(15), 15) + u' '
           + formatMoney(bet.amount, "$#,#00.00") + u' ' + typeWord(bet);
}

PriorBets loadPriorBets(Session &session, int bettor, const QString &name)
{
    PriorBets prior{bettor, name, {}, 0};
    LoadRaceBets(session);
    for (std::size_t i = 0; i < session.bets.rows.size(); ++i) {
        const BetRow &row = session.bets.rows[i];
        if (session.bets.isBetOf(row, bettor))
            prior.append({i, row.bet, savedBetLine(session.horses, row.bet)});
    }
    return prior;
}

DeletedBets deletePriorBets(Session &session, const QList<PriorBet> &selected)
{
    std::set<std::size_t> doomed;
    for (const PriorBet &prior : selected)
        doomed.insert(prior.row);
    const auto rowOf = [&](const BetRow &row) {
        return std::size_t(&row - session.bets.rows.data());
    };
    const auto isThere = [&](const PriorBet &prior) {
        const auto &rows = session.bets.rows;
        return prior.row < rows.size() && !rows[prior.row].damaged
               && rows[prior.row].bet == prior.bet;
    };
    // A bet without a bettor does not outlive the rewrite.
    const auto isDropped = [&](const BetRow &row) {
        return doomed.contains(rowOf(row)) || session.bets.isBetOf(row, 0);
    };
    DeletedBets deleted;
    deleted.twinError = errorOfTwin([&] {
        deleted.listWasStale = !removeBets(
            session, isDropped, [&] { return std::ranges::all_of(selected, isThere); }, u"Bets"_s,
            u"Betsbackup"_s);
    });
    if (deleted.listWasStale)
        return deleted;
    for (const PriorBet &prior : selected) {
        deleted.lines.append(prior.line);
        deleted.refund += prior.bet.amount;
    }
    return deleted;
}
