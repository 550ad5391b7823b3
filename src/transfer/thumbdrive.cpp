#include "transfer/thumbdrive.h"

#include "common/event/eventfiles.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QFileInfo>
#include <QMap>

using namespace Qt::StringLiterals;

namespace {

// The path of a record file of the event on the drive.
QString onDrive(const Session &session, const QString &drive, RecordFile file, int race)
{
    const QString name = QFileInfo(mainFile(session, file, race)).fileName();
    return session.paths.toHost(drive + u'\\' + name);
}

// Reads a record file of the event on the drive as the operation \a label. A drive that is not
// there fails the transfer itself, before its first operation.
QByteArray readOnDrive(Session &session, const QString &drive, RecordFile file, int race,
                       const QString &label)
{
    const QString path = onDrive(session, drive, file, race);
    return labelled(session, label, [&] { return readRecordFile(path); });
}

void tell(const TransferProgress &progress, int done, int total)
{
    if (progress)
        progress(done, total);
}

// Bettors and the Horses of all races, from wherever `read` takes them.
struct EventLists
{
    QByteArray bettors;
    QList<QByteArray> horses;
};

template<typename Read>
EventLists readLists(const Read &read, const TransferProgress &progress)
{
    EventLists lists;
    lists.bettors = read(RecordFile::Bettors, 0, u"Bettors input"_s);
    for (int race = 1; race <= raceCount; ++race) {
        lists.horses += read(RecordFile::Horses, race, u"Horses input"_s);
        tell(progress, race, 2 * raceCount);
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

AddedBets compareBets(const BetTable &before, const BetTable &added, const HorseTable &horses)
{
    AddedBets result;
    result.bets = int(added.rows.size());
    result.betsNow = int(before.rows.size() + added.rows.size());
    for (const BetRow &row : before.rows)
        result.dollarsNow += row.bet.amount;
    for (const BetRow &row : added.rows) {
        result.dollars += row.bet.amount;
        result.dollarsNow += row.bet.amount;
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

// The drive's lines as they stand, each with its line end.
std::string wholeLines(const BetTable &bets)
{
    return betFileWithout(bets, [](const BetRow &) { return false; });
}

} // namespace

void saveHorsesAndBettors(Session &session, const QString &drive, const TransferProgress &progress)
{
    const auto read = [&](RecordFile file, int race, const QString &label) {
        return readMainFile(session, file, race, label);
    };
    const EventLists lists = readLists(read, progress);
    QList<NamedBytes> files;
    labelled(session, u"Bettors output"_s, [&] {
        files.append({onDrive(session, drive, RecordFile::Bettors, 0), lists.bettors});
    });
    labelled(session, u"Horses output"_s, [&] {
        for (int race = 1; race <= raceCount; ++race)
            files.append(
                {onDrive(session, drive, RecordFile::Horses, race), lists.horses[race - 1]});
        replaceRecordFiles(files);
    });
    tell(progress, 2 * raceCount, 2 * raceCount);
}

void loadHorsesAndBettors(Session &session, const QString &drive, const TransferProgress &progress)
{
    const auto read = [&](RecordFile file, int race, const QString &label) {
        return readOnDrive(session, drive, file, race, label);
    };
    const EventLists lists = readLists(read, progress);
    labelled(session, u"Bettors output"_s,
             [&] { keepTwinsInSaved(session, RecordFile::Bettors, 0); });
    rewriteTwins(session, RecordFile::Bettors, 0, lists.bettors, u"Bettors output"_s,
                 u"Bettorsbackup output"_s);
    for (int race = 1; race <= raceCount; ++race) {
        labelled(session, u"Horses output"_s,
                 [&] { keepTwinsInSaved(session, RecordFile::Horses, race); });
        rewriteTwins(session, RecordFile::Horses, race, lists.horses[race - 1], u"Horses output"_s,
                     u"Horsesbackup output"_s);
        tell(progress, raceCount + race, 2 * raceCount);
    }
}

void saveSatelliteBets(Session &session, const QString &drive, const TransferProgress &progress)
{
    QList<NamedBytes> files;
    for (int race = 1; race <= raceCount; ++race) {
        const QString path = onDrive(session, drive, RecordFile::Bets, race);
        files.append({path, readMainFile(session, RecordFile::Bets, race, u"Bets Input"_s)});
        tell(progress, race, raceCount + 1);
    }
    labelled(session, u"Bets Output"_s, [&] { replaceRecordFiles(files); });
    tell(progress, raceCount + 1, raceCount + 1);
}

QList<AddedBets> addSatelliteBets(Session &session, const QString &drive,
                                  const TransferProgress &progress)
{
    QList<BetTable> incoming;
    QList<AddedBets> results;
    for (int race = 1; race <= raceCount; ++race) {
        incoming += parseBets(
            readOnDrive(session, drive, RecordFile::Bets, race, u"Bets Input"_s).toStdString());
        const BetTable before =
            parseBets(readMainFile(session, RecordFile::Bets, race, u"Bets Input"_s).toStdString());
        const HorseFile card =
            parseHorses(readMainFile(session, RecordFile::Horses, race, u"Horses input"_s));
        results += compareBets(before, incoming.last(), card.horses);
        results.last().race = race;
        tell(progress, race, 2 * raceCount);
    }
    labelled(session, u"Bets Append"_s, [&] {
        QList<NamedBytes> files;
        for (int race = 1; race <= raceCount; ++race) {
            const BetTable &bets = incoming[race - 1];
            if (!bets.rows.empty()) {
                keepTwinsInSaved(session, RecordFile::Bets, race);
                addTwinsWithLines(files, session, RecordFile::Bets, race,
                                  QByteArray::fromStdString(wholeLines(bets)));
            }
            tell(progress, raceCount + race, 2 * raceCount);
        }
        replaceRecordFiles(files);
    });
    return results;
}
