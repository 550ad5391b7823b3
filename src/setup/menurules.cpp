#include "setup/menurules.h"

#include "common/event/settledrace.h"
#include "common/print/format.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Counts the bets that hold money, and what they hold.
template<typename Table>
void countBets(const Table &table, std::size_t &bets, double &dollars)
{
    ExactMoney sum = 0;
    for (const auto &row : table.rows) {
        const ExactMoney stake = row.damaged ? 0 : exactMoney(row.bet.amount);
        bets += stake != 0;
        sum += stake;
    }
    dollars = dollarsOf(sum);
}

QString countedOrNone(std::size_t number, const QString &noun)
{
    return number == 0 ? QString(u"no "_s + noun + u"s yet"_s) : counted(number, noun);
}

} // namespace

QString menuBanner(const Settings &settings)
{
    return settings.banner == "Vefioze"_L1 ? settings.banner : settings.bannerAndRace();
}

QString clearBetsCaption(const Settings &settings)
{
    return "Clear/Refund "_L1 + settings.raceName() + " Bets"_L1;
}

QString networkStatus(const Settings &settings)
{
    switch (settings.networkMode) {
    case NetworkMode::Master:
        return u"Using networked files as master computer"_s;
    case NetworkMode::Satellite:
        return u"Using networked files as satellite computer"_s;
    case NetworkMode::Off:
        break;
    }
    return {};
}

RaceProgress raceProgress(Session &session)
{
    const RaceRecords race = readRace(session, session.settings.currentRace);
    const BettorTable bettors = readBettors(session);
    const CashJournal journal = readCashJournal(session);
    RaceProgress progress;
    progress.horses = int(std::ranges::count(race.horses, false, isUnused));
    for (int slot = 1; slot <= bettors.slotCount(); ++slot)
        progress.bettors +=
            bettors.slot(slot).isBettor() && bettors.slot(slot).name != anyBettorName();
    countBets(race.bets, progress.bets, progress.dollars);
    countBets(race.multibets, progress.multibets, progress.multibetDollars);
    if (const CashEntry *settlement = lastSettlement(journal, race.race)) {
        progress.settledAt = settlement->clock();
        progress.unpaid = unpaidWinners(race, bettors.highestNumber(), journal);
    }
    return progress;
}

QString progressText(const RaceProgress &progress)
{
    if (!progress.settledAt.isEmpty())
        return u"settled "_s + progress.settledAt + u", "_s
               + (progress.unpaid == 0 ? u"all paid"_s
                                       : QString::number(progress.unpaid) + u" unpaid"_s);
    if (progress.horses == 0 && progress.bets + progress.multibets == 0)
        return countedOrNone(0, u"horse"_s);
    QStringList parts{countedOrNone(std::size_t(progress.horses), u"horse"_s),
                      countedOrNone(std::size_t(progress.bettors), u"bettor"_s),
                      countedOrNone(progress.bets, u"bet"_s)};
    if (progress.bets > 0)
        parts += formatMoney(progress.dollars);
    if (progress.multibets > 0)
        parts << counted(progress.multibets, u"multibet"_s)
              << formatMoney(progress.multibetDollars);
    return parts.join(u", "_s);
}

MenuStep nextStep(const RaceProgress &progress, bool isSatellite)
{
    if (!progress.settledAt.isEmpty())
        return progress.unpaid > 0 ? MenuStep::Pay : MenuStep::NextRace;
    if (progress.horses == 0)
        return isSatellite ? MenuStep::Transfer : MenuStep::Horses;
    if (progress.bettors == 0 && progress.bets + progress.multibets == 0)
        return isSatellite ? MenuStep::Transfer : MenuStep::Bettors;
    return MenuStep::Bet;
}
