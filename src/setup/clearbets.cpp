#include "setup/clearbets.h"

#include "common/event/labelled.h"
#include "common/event/multibetrecords.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

using namespace Qt::StringLiterals;

namespace {

// The current race's file; a missing one is empty.
QByteArray fileOrNothing(const Session &session, RecordFile file)
{
    try {
        return readRecordFile(mainFile(session, file, session.settings.currentRace));
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return {};
}

} // namespace

RaceStakes straightStakes(Session &session)
{
    const QByteArray bytes = labelled(session, u"Bets input"_s,
                                      [&] { return fileOrNothing(session, RecordFile::Bets); });
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
    stakes.records = labelled(session, u"Multibets Input"_s,
                              [&] { return fileOrNothing(session, RecordFile::Multibets); });
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

void keepTwins(Session &session, RecordFile file)
{
    labelled(session, recordFileName(file) + u" Saved"_s,
             [&] { keepTwinsInSaved(session, file, session.settings.currentRace); });
}

bool deleteTwins(Session &session, RecordFile file, const RaceStakes &stakes)
{
    const int race = session.settings.currentRace;
    const bool deleted = labelled(session, recordFileName(file) + u" Output"_s, [&] {
        const EventLock lock(session);
        if (fileOrNothing(session, file) != stakes.records)
            return false;
        deleteRecordFile(mainFile(session, file, race));
        labelled(session, recordFileName(file) + u"backup Output"_s,
                 [&] { deleteRecordFile(twinFile(session, file, race)); });
        return true;
    });
    if (!deleted)
        return false;
    if (file == RecordFile::Bets) {
        session.bets = BetTable();
        session.pools = PoolTable();
    }
    return true;
}
