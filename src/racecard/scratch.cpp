#include "racecard/scratch.h"

#include "common/event/eventfiles.h"
#include "common/event/labelled.h"
#include "common/event/multibetrecords.h"
#include "common/event/multibettypes.h"
#include "common/event/racefiles.h"
#include "common/print/format.h"
#include "common/print/refundlist.h"

#include <algorithm>
#include <cmath>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

std::function<bool(const BetRow &)> isOn(int post)
{
    return [post](const BetRow &row) { return !row.damaged && row.bet.post == float(post); };
}

// The posts of a multibet of this type that run \a racesLater races after the race it was made on:
// doubles and pick threes have one leg a race, the others have all in their race.
std::pair<int, int> legsIn(const QString &code, int racesLater)
{
    const MultibetType *type = multibetType(code);
    if (type && type->races)
        return {racesLater, std::min(racesLater + 1, type->lines)};
    return {0, racesLater == 0 ? 3 : 0};
}

void countMultibets(const MultibetTable &bets, int racesLater, int post, MultibetCount &count)
{
    for (const MultibetRow &row : bets.rows) {
        const auto [first, end] = legsIn(row.bet.type, racesLater);
        const auto legs = row.bet.posts.begin();
        if (std::find(legs + first, legs + end, post) != legs + end) {
            ++count.bets;
            count.stakes += row.bet.amount;
        }
    }
}

} // namespace

ScratchAnswer scratchAnswer(const QString &answer)
{
    const double value = numericValue(answer);
    if (value == 0)
        return {0, true};
    if (value < 1 || value > postCount || value != std::floor(value))
        return {0, false};
    return {int(value), true};
}

Slip scratchRefunds(Session &session, int post, const QString &horseName)
{
    loadBettors(session, u"Bettors input"_s);
    LoadRaceBets(session);
    RefundList list;
    list.titles = {"REFUND BETS ON "_L1 + horseName};
    list.heading = bettorRefundHeading();
    list.refunds = bettorRefunds(totalsByBettor(session.bets, isOn(post)), session.bettors);
    return refundSlip(list);
}

void removeBetsOn(Session &session, int post, std::size_t listed)
{
    removeBets(session, [&](const BetRow &row) {
        return isOn(post)(row) && std::size_t(&row - session.bets.rows.data()) < listed;
    });
}

QString betsNote(const PoolTable &pools, int post)
{
    const float amount = pools.amount(post, totalColumn);
    if (amount == 0)
        return {};
    return "Post "_L1 + QString::number(post) + " has bets of "_L1
           + formatMoney(amount, "$#,##0.00");
}

MultibetCount multibetsOn(Session &session, int post)
{
    MultibetCount count;
    labelled(session, u"Multibets Input"_s, [&] {
        const int race = session.settings.currentRace;
        for (int racesLater = 0; racesLater < 3 && racesLater < race; ++racesLater) {
            const QByteArray bets = readMainOrNothing(session, RecordFile::Multibets,
                                                      race - racesLater, u"Multibets Input"_s);
            countMultibets(parseMultibets(bets.toStdString()), racesLater, post, count);
        }
    });
    return count;
}
