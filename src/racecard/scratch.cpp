#include "racecard/scratch.h"

#include "common/event/bettypes.h"
#include "common/event/cashjournal.h"
#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/event/multibetrecords.h"
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

Scratch prepareScratch(Session &session, int post, const QString &horseName)
{
    session.bettors = readBettors(session);
    const BetTable bets = LoadRaceBets(session).bets;
    RefundList list;
    list.titles = {"REFUND BETS ON "_L1 + horseName};
    list.heading = bettorRefundHeading();
    list.refunds = bettorRefunds(totalsByBettor(bets, isOn(post)), session.bettors);
    return {post, refundSlip(list), bets.rows.size()};
}

void removeScratchedBets(Session &session, const Scratch &scratch)
{
    const auto choose = [&](const BetTable &bets) {
        auto places = placesWhere(bets, isOn(scratch.post));
        places.erase(places.lower_bound(scratch.listed), places.end());
        return places;
    };
    removeBets(session, choose, refundScratch);
}

void recordScratch(Session &session, int post, const QString &number, const QString &name)
{
    CashEntry line{CashKind::Scratched, session.settings.currentRace, 0, name};
    line.detail = QString::number(post) + u',' + number;
    recordCash(session, {line});
}

QString betsNote(const PoolTable &pools, int post)
{
    const float amount = pools.amount(post, totalColumn);
    if (amount == 0)
        return {};
    return "Post "_L1 + QString::number(post) + " has bets of "_L1 + formatMoney(amount);
}

MultibetCount multibetsOn(Session &session, int post)
{
    MultibetCount count;
    const int race = session.settings.currentRace;
    for (int racesLater = 0; racesLater < 3 && racesLater < race; ++racesLater) {
        const auto bytes = readMainFileIfThere(session, RecordFile::Multibets, race - racesLater,
                                               u"Multibets Input"_s);
        if (bytes)
            countMultibets(parseMultibets(bytes->toStdString()), racesLater, post, count);
    }
    return count;
}
