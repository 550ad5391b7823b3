#include "common/event/eventrecords.h"

#include "common/event/eventfiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

using namespace Qt::StringLiterals;

namespace {

std::string readIfThere(Session &session, RecordFile file, int race, const QString &label)
{
    try {
        return readMainFile(session, file, race, label).toStdString();
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
}

} // namespace

RaceRecords readRaceHorses(Session &session, int race)
{
    const HorseFile file =
        parseHorses(readMainFile(session, RecordFile::Horses, race, u"Horses input"_s));
    RaceRecords records;
    records.race = race;
    records.horses = file.horses;
    records.horseDamage = file.damage();
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
    return BettorTable::parse(readMainFile(session, RecordFile::Bettors, 0, u"Bettors input"_s),
                              session.settings.bettorLimit);
}
