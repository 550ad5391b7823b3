#include "common/event/eventrecords.h"

#include "common/event/eventfiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

using namespace Qt::StringLiterals;

namespace {

std::string readIfThere(Session &session, RecordFile file, int race, const QString &label)
{
    session.settings.operationLabel = label;
    try {
        return readRecordFile(mainFile(session, file, race)).toStdString();
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
}

} // namespace

RaceRecords readRaceHorses(Session &session, int race)
{
    session.settings.operationLabel = u"Horses input"_s;
    const HorseFile file = parseHorses(readRecordFile(mainFile(session, RecordFile::Horses, race)));
    RaceRecords records;
    records.race = race;
    records.damagedHorses = file.damagedLines;
    records.horses = file.horses;
    return records;
}

RaceRecords readRace(Session &session, int race)
{
    RaceRecords records = readRaceHorses(session, race);
    records.bets = parseBets(readIfThere(session, RecordFile::Bets, race, u"Bets input"_s));
    records.multibets =
        parseMultibets(readIfThere(session, RecordFile::Multibets, race, u"Multibets input"_s));
    return records;
}

std::vector<RaceRecords> readRaces(Session &session, int race)
{
    std::vector<RaceRecords> races;
    for (int number = 1; number <= raceCount; ++number) {
        if (race == 0 || race == number)
            races.push_back(readRace(session, number));
    }
    return races;
}

BettorTable readBettors(Session &session)
{
    session.settings.operationLabel = u"Bettors input"_s;
    return BettorTable::parse(readRecordFile(mainFile(session, RecordFile::Bettors, 0)),
                              session.settings.bettorLimit);
}
