#include "setup/clearbets.h"

#include "common/event/cashstakes.h"
#include "common/event/multibetrecords.h"
#include "common/event/twinfiles.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

// The current race's file; a missing one is empty.
QByteArray recordsOf(Session &session, RecordFile file, const QString &label)
{
    return readMainOrNothing(session, file, session.settings.currentRace, label);
}

std::vector<CashEntry> refundLines(const Session &session, RecordFile file, std::string records)
{
    const int race = session.settings.currentRace;
    if (file == RecordFile::Bets)
        return stakeLines(session, CashKind::Refund, race, stakesOf(parseBets(std::move(records))),
                          refundRace);
    return stakeLines(session, CashKind::Refund, race, stakesOf(parseMultibets(std::move(records))),
                      refundRaceMultibets);
}

} // namespace

RaceStakes straightStakes(Session &session)
{
    RaceStakes stakes;
    stakes.records = recordsOf(session, RecordFile::Bets, u"Bets input"_s);
    const BetTable bets = parseBets(stakes.records.toStdString());
    stakes.byBettor = totalsByBettor(bets, [](const BetRow &) { return true; });
    stakes.damaged = bets.damagedRows();
    for (const BetRow &row : bets.rows)
        stakes.total += row.damaged ? 0 : row.bet.amount;
    return stakes;
}

RaceStakes multibetStakes(Session &session)
{
    RaceStakes stakes;
    stakes.records = recordsOf(session, RecordFile::Multibets, u"Multibets Input"_s);
    const MultibetTable bets = parseMultibets(stakes.records.toStdString());
    for (const MultibetRow &row : bets.rows) {
        if (row.damaged) {
            ++stakes.damaged;
            continue;
        }
        stakes.byBettor[float(row.bet.bettor)] += float(row.bet.amount);
        stakes.total += float(row.bet.amount);
    }
    return stakes;
}

Slip raceRefunds(const Session &session, RecordFile file, const RaceStakes &stakes)
{
    RefundList list;
    list.titles = {u"REFUND BETS "_s + session.settings.raceName()};
    list.spacer = u" "_s;
    list.heading = bettorRefundHeading();
    list.refunds = bettorRefunds(stakes.byBettor, session.bettors);
    list.closing =
        u"TOTAL "_s + recordFileName(file).toUpper() + u' ' + formatMoney(stakes.total, "Currency");
    return refundSlip(list);
}

bool clearRaceFile(Session &session, RecordFile file, const RaceStakes &stakes,
                   const std::function<void()> &listRefunds)
{
    const QString name = recordFileName(file);
    const int race = session.settings.currentRace;
    return changeWithCash(
        session,
        [&] {
            return deleteTwins(session, file, race, stakes.records, listRefunds,
                               name + u" Output"_s, name + u"backup Output"_s);
        },
        [&] { return refundLines(session, file, stakes.records.toStdString()); });
}
