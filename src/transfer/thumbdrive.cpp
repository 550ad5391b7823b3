#include "transfer/thumbdrive.h"

#include "common/event/cashstakes.h"
#include "common/event/eventrecords.h"
#include "common/event/filebatch.h"
#include "common/event/labelled.h"
#include "common/event/oldjournals.h"
#include "common/event/tornend.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QFileInfo>
#include <QMap>

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

// The path of a record file of the event on the drive.
QString onDrive(const Session &session, const QString &drive, RecordFile file, int race)
{
    const QString name = QFileInfo(mainFile(session, file, race)).fileName();
    return session.paths.toHost(drive + u'\\' + name);
}

// Bettors and the Horses of all races.
struct EventLists
{
    QByteArray bettors;
    QList<QByteArray> horses;
};

// Reads a record file of the event on the drive as the operation \a label. A drive that is not
// there fails the transfer itself, before its first operation.
QByteArray readOnDrive(Session &session, const QString &drive, RecordFile file, int race,
                       const QString &label)
{
    const QString path = onDrive(session, drive, file, race);
    return labelled(session, label, [&] {
        const QByteArray bytes = readRecordFile(path, Links::Refused);
        if (!fileEnd(bytes, {}).isWhole())
            tell(session, QFileInfo(path).fileName()
                              + u" on the drive ends without a line end: check its last record."_s);
        return bytes;
    });
}

// Throws 62 for lists that were cut short or hold something else.
void demandWhole(Session &session, const EventLists &lists)
{
    const auto demand = [&](const QString &label, bool whole) {
        labelled(session, label, [&] {
            if (!whole)
                throw FileError(ErrorNumber::InputPastEnd);
        });
    };
    demand(u"Bettors input"_s,
           BettorTable::parse(lists.bettors, 0).nameOf(anyBettorNumber) == anyBettorName());
    for (const QByteArray &horses : lists.horses)
        demand(u"Horses input"_s, parseHorses(horses).records == postCount);
}

// The lists from wherever `read` takes them.
template<typename Read>
EventLists readLists(const Read &read, const Progress &progress)
{
    EventLists lists;
    lists.bettors = read(RecordFile::Bettors, 0, u"Bettors input"_s);
    for (int race = 1; race <= raceCount; ++race) {
        lists.horses += read(RecordFile::Horses, race, u"Horses input"_s);
        progress(race, 2 * raceCount);
    }
    return lists;
}

// How often each record stands in a race's file.
QMap<std::string, int> countedRecords(const BetTable &bets)
{
    QMap<std::string, int> counts;
    for (const BetRow &row : bets.rows)
        ++counts[row.damaged ? std::string(bets.line(row)) : betLine(row.bet)];
    return counts;
}

AddedBets compareBets(const BetTable &before, const BetTable &added, const HorseTable &horses,
                      const BettorNames &bettors)
{
    AddedBets result;
    result.bets = int(added.rows.size());
    result.betsNow = int(before.rows.size() + added.rows.size());
    for (const BetRow &row : before.rows)
        result.dollarsNow += double(row.bet.amount);
    for (const BetRow &row : added.rows) {
        result.dollars += double(row.bet.amount);
        result.dollarsNow += double(row.bet.amount);
        result.unknownBettors += row.damaged || !bettors.nameOf(row.bet.bettor).isNull() ? 0 : 1;
        if (!row.damaged && (!isCountable(row.bet) || isUnused(horses.post(int(row.bet.post)))))
            ++result.withoutHorse;
    }
    const auto had = countedRecords(before);
    const auto come = countedRecords(added);
    result.looksImported = !added.rows.empty();
    for (auto record = come.cbegin(); record != come.cend(); ++record)
        result.looksImported &= had.value(record.key()) >= record.value();
    return result;
}

} // namespace

void saveHorsesAndBettors(Session &session, const QString &drive, const Progress &progress)
{
    const auto read = [&](RecordFile file, int race, const QString &label) {
        return readMainFile(session, file, race, label);
    };
    const EventLists lists = readLists(read, progress);
    FileBatch batch(session);
    const auto add = [&](RecordFile file, int race, const QByteArray &bytes, const QString &label) {
        const QString path =
            labelled(session, label, [&] { return onDrive(session, drive, file, race); });
        batch.replaceFile(path, bytes, label);
    };
    add(RecordFile::Bettors, 0, lists.bettors, u"Bettors output"_s);
    for (int race = 1; race <= raceCount; ++race)
        add(RecordFile::Horses, race, lists.horses[race - 1], u"Horses output"_s);
    batch.commit();
    progress(2 * raceCount, 2 * raceCount);
}

HeldBets heldBets(Session &session)
{
    HeldBets held;
    for (int race = 1; race <= raceCount; ++race) {
        const BetTable table = parseBets(
            readMainOrNothing(session, RecordFile::Bets, race, u"Bets Input"_s).toStdString());
        held.bets += int(table.rows.size());
        for (const BetRow &row : table.rows)
            held.dollars += double(row.bet.amount);
        held.multibets += int(countRecords(
            view(readMainOrNothing(session, RecordFile::Multibets, race, u"Multibets Input"_s))));
    }
    return held;
}

namespace {

void addEmptyBets(FileBatch &batch)
{
    for (int race = 1; race <= raceCount; ++race) {
        batch.replaceTwins(RecordFile::Bets, race, {}, u"Bets Output"_s, u"Betsbackup Output"_s);
        batch.replaceTwins(RecordFile::Multibets, race, {}, u"Multibets Output"_s,
                           u"Multibetsbackup Output"_s);
    }
}

} // namespace

void loadHorsesAndBettors(Session &session, const QString &drive, BetsHeld betsHeld,
                          const Progress &progress)
{
    const auto read = [&](RecordFile file, int race, const QString &label) {
        return readOnDrive(session, drive, file, race, label);
    };
    const EventLists lists = readLists(read, progress);
    demandWhole(session, lists);
    OldJournals journals(session);
    if (betsHeld == BetsHeld::GoToSaved)
        journals.keep();
    FileBatch batch(session, u"Bettors output"_s);
    batch.replaceTwins(RecordFile::Bettors, 0, lists.bettors, u"Bettors output"_s,
                       u"Bettorsbackup output"_s);
    for (int race = 1; race <= raceCount; ++race)
        batch.replaceTwins(RecordFile::Horses, race, lists.horses[race - 1], u"Horses output"_s,
                           u"Horsesbackup output"_s);
    if (betsHeld == BetsHeld::GoToSaved)
        addEmptyBets(batch);
    batch.commit();
    if (betsHeld == BetsHeld::GoToSaved)
        journals.remove(u"Cash output"_s, u"The older bets were moved to Saved"_s);
    progress(2 * raceCount, 2 * raceCount);
}

void saveSatelliteBets(Session &session, const QString &drive, const Progress &progress)
{
    FileBatch batch(session);
    for (int race = 1; race <= raceCount; ++race) {
        const QString path = onDrive(session, drive, RecordFile::Bets, race);
        batch.replaceFile(path, readMainOrNothing(session, RecordFile::Bets, race, u"Bets Input"_s),
                          u"Bets Output"_s);
        progress(race, raceCount + 1);
    }
    batch.commit();
    progress(raceCount + 1, raceCount + 1);
}

QList<AddedBets> addSatelliteBets(Session &session, const QString &drive, const Progress &progress)
{
    // Held from the comparison to the last file, so that what is told is what was added.
    FileBatch batch(session, u"Bets Append"_s);
    const QByteArray list = readMainOrNothing(session, RecordFile::Bettors, 0, u"Bettors input"_s);
    session.bettors = BettorTable::parse(list, session.settings.bettorLimit);
    const BettorNames bettors(session.bettors);
    std::vector<CashEntry> added;
    QList<AddedBets> results;
    for (int race = 1; race <= raceCount; ++race) {
        const BetTable incoming = parseBets(
            readOnDrive(session, drive, RecordFile::Bets, race, u"Bets Input"_s).toStdString());
        const BetTable before = parseBets(
            readMainOrNothing(session, RecordFile::Bets, race, u"Bets Input"_s).toStdString());
        const HorseFile card =
            parseHorses(readMainOrNothing(session, RecordFile::Horses, race, u"Horses input"_s));
        results += compareBets(before, incoming, card.horses, bettors);
        results.last().race = race;
        results.last().overLimit = results.last().betsNow > session.settings.betLimit;
        std::ranges::move(stakeLines(session, CashKind::Added, race, stakesOf(incoming)),
                          std::back_inserter(added));
        if (!incoming.rows.empty())
            batch.append(RecordFile::Bets, race,
                         QByteArray::fromStdString(recordsWithout(incoming.bytes, {})),
                         u"Bets Append"_s);
        progress(race, 2 * raceCount);
    }
    batch.commit([&](int done, int total) {
        progress(raceCount + done * raceCount / total, 2 * raceCount);
    });
    recordCash(session, added);
    return results;
}
