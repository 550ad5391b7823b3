#include "common/event/eventrecords.h"

#include "common/event/eventfiles.h"

using namespace Qt::StringLiterals;

HorseFile readHorses(Session &session, int race, const QString &label)
{
    return parseHorses(readMainFile(session, RecordFile::Horses, race, label));
}

HorseFile readHorsesIfThere(Session &session, int race, const QString &label)
{
    const auto bytes = readMainFileIfThere(session, RecordFile::Horses, race, label);
    return bytes ? parseHorses(*bytes) : HorseFile();
}

BetTable readBets(Session &session, int race, const QString &label)
{
    return parseBets(readMainFile(session, RecordFile::Bets, race, label).toStdString());
}

MultibetTable readMultibets(Session &session, int race, const QString &label)
{
    return parseMultibets(readMainFile(session, RecordFile::Multibets, race, label).toStdString());
}

BettorTable readBettors(Session &session, const QString &label)
{
    return BettorTable::parse(readMainFile(session, RecordFile::Bettors, 0, label),
                              session.settings.bettorLimit);
}

RaceRecords readRace(Session &session, int race)
{
    const auto bytesOf = [&](RecordFile file, const QString &label) {
        return readMainFileIfThere(session, file, race, label).value_or(QByteArray()).toStdString();
    };
    const HorseFile card = readHorses(session, race);
    RaceRecords records;
    records.race = race;
    records.horseDamage = card.damage();
    records.horses = card.horses;
    records.bets = parseBets(bytesOf(RecordFile::Bets, u"Bets input"_s));
    records.multibets = parseMultibets(bytesOf(RecordFile::Multibets, u"Multibets input"_s));
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
