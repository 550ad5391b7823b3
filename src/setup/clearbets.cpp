#include "setup/clearbets.h"

#include "common/event/multibetrecords.h"
#include "common/event/twinfiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

RaceStakes straightStakes(Session &session)
{
    const QByteArray bytes =
        readMainOrNothing(session, RecordFile::Bets, session.settings.currentRace, u"Bets input"_s);
    const BetTable bets = parseBets(bytes.toStdString());
    RaceStakes stakes;
    stakes.byBettor = totalsByBettor(bets, [](const BetRow &) { return true; });
    stakes.damaged = bets.damagedRows();
    stakes.records = bytes;
    for (const BetRow &row : bets.rows)
        stakes.total += row.damaged ? 0 : row.bet.amount;
    return stakes;
}

RaceStakes multibetStakes(Session &session)
{
    RaceStakes stakes;
    stakes.records = readMainOrNothing(session, RecordFile::Multibets, session.settings.currentRace,
                                       u"Multibets Input"_s);
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

bool clearRaceFile(Session &session, RecordFile file, const RaceStakes &stakes)
{
    const QString name = recordFileName(file);
    if (!deleteTwins(session, file, session.settings.currentRace, stakes.records,
                     name + u" Output"_s, name + u"backup Output"_s))
        return false;
    if (file == RecordFile::Bets) {
        session.bets = BetTable();
        session.pools = PoolTable();
    }
    return true;
}
