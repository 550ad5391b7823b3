#include "payoff/settlerace.h"

#include "common/event/cashjournal.h"
#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/files/fileerror.h"
#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

BetTable readBetsToSettle(Session &session)
{
    const auto bytes = readMainFileIfThere(session, RecordFile::Bets, session.settings.currentRace,
                                           u"Bets input"_s);
    if (!bytes)
        throw FileError(ErrorNumber::FileNotFound, u"Bet file empty"_s);
    return parseBets(bytes->toStdString());
}

void recordSettlement(Session &session, double housePercent)
{
    CashEntry line{CashKind::Settled, session.payoffs.race};
    line.settled = {session.payoffs, housePercent, session.settings.roundingIndex};
    line.settled->payoffs.beforeHouse = {};
    recordCash(session, {line});
}

} // namespace

int firstUnusedPost(const HorseTable &horses)
{
    const auto found = std::ranges::find_if(horses, isUnused);
    return found == horses.end() ? 0 : found->post;
}

SettledRace settleCurrentRace(Session &session, RaceResult result)
{
    session.bettors = readBettors(session, u"Bets input"_s);
    BetTable bets = readBetsToSettle(session);
    for (int post = 1; post <= postCount; ++post)
        result.coupling[std::size_t(post)] = session.horses.couplingOf(post);
    result.bettorCount = session.bettors.highestNumber();

    Settlement settlement = settle(bets, result);
    session.payoffs = {};
    if (settlement.hasWinners) {
        session.payoffs = {
            session.settings.currentRace, result.finishers, settlement.payoffs,
            settlement.beforeHouse,       result.is532,     result.trackPayoffs.has_value()};
        recordSettlement(session, result.housePercent);
    }
    return {std::move(bets), std::move(settlement)};
}

QString betsSinceSettled(Session &session, const BetTable &settled, BetTable &found)
{
    found = readBetsToSettle(session);
    if (found.bytes == settled.bytes)
        return {};
    if (found.rows.size() <= settled.rows.size() || !found.bytes.starts_with(settled.bytes))
        return u"The bets have changed since the payoffs were calculated."_s;
    double dollars = 0;
    for (std::size_t i = settled.rows.size(); i < found.rows.size(); ++i)
        dollars += double(found.rows[i].bet.amount);
    const std::size_t bets = found.rows.size() - settled.rows.size();
    return counted(bets, u"bet"_s) + u" of "_s + formatMoney(dollars)
           + u" came in after the payoffs were calculated."_s;
}
