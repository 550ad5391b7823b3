#include "payoff/settlerace.h"

#include "common/event/eventfiles.h"
#include "common/event/racefiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

BetTable readBets(Session &session)
{
    try {
        const int race = session.settings.currentRace;
        return parseBets(
            readMainFile(session, RecordFile::Bets, race, u"Bets input"_s).toStdString());
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        throw FileError(ErrorNumber::FileNotFound, u"Bet file empty"_s);
    }
}

} // namespace

int firstUnusedPost(const HorseTable &horses)
{
    const auto found = std::ranges::find_if(horses, isUnused);
    return found == horses.end() ? 0 : found->post;
}

Settlement settleCurrentRace(Session &session, RaceResult result)
{
    loadBettors(session, u"Bets input"_s);
    BetTable bets = readBets(session);
    for (int post = 1; post <= postCount; ++post)
        result.coupling[std::size_t(post)] = session.horses.couplingOf(post);
    result.bettorCount = session.bettors.highestNumber();

    Settlement settlement = settle(bets, result);
    session.bets = std::move(bets);
    session.pools = settlement.pools;
    session.payoffs = {};
    if (settlement.hasWinners) {
        session.payoffs = {
            session.settings.currentRace, result.finishers, settlement.payoffs,
            settlement.beforeHouse,       result.is532,     result.trackPayoffs.has_value()};
    }
    return settlement;
}

QString betsSinceSettled(Session &session, const BetTable &settled, BetTable &found)
{
    found = readBets(session);
    if (found.bytes == settled.bytes)
        return {};
    if (found.rows.size() <= settled.rows.size() || !found.bytes.starts_with(settled.bytes))
        return u"The bets have changed since the payoffs were calculated."_s;
    double dollars = 0;
    for (std::size_t i = settled.rows.size(); i < found.rows.size(); ++i)
        dollars += double(found.rows[i].bet.amount);
    const std::size_t bets = found.rows.size() - settled.rows.size();
    return QString::number(bets) + (bets == 1 ? u" bet"_s : u" bets"_s) + u" of "_s
           + formatMoney(dollars, "$#,##0.00") + u" came in after the payoffs were calculated."_s;
}
