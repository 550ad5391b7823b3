#include "transfer/importevent.h"

#include "common/eventfiles.h"
#include "common/fileerror.h"
#include "common/recordfile.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

// The file of the folder under its name here, or nothing when there is none.
std::optional<QByteArray> readForeign(Session &session, const QString &folder, RecordFile file,
                                      int race)
{
    session.settings.operationLabel = u"Import input"_s;
    const QString name = QFileInfo(mainFile(session, file, race)).fileName();
    try {
        return readRecordFile(session.paths.toHost(folder + name));
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
        return {};
    }
}

bool isForeignToItself(const Session &session, const QString &folder)
{
    const QFileInfo there(session.paths.toHost(folder));
    return there.exists()
           && there.canonicalFilePath() == QFileInfo(eventFolder(session)).canonicalFilePath();
}

QString sameName(const QString &name)
{
    return name.trimmed().toUpper();
}

// The numbers there -> the numbers here.
struct NumberMap
{
    QHash<int, int> numbers;
    QList<Bettor> added;
    QStringList duplicates;
    QHash<int, QString> unknown; // bettors that are missing here and are not added
};

NumberMap mapNumbers(const BettorTable &here, const BettorTable &there, bool mayAdd, int nextNumber)
{
    QHash<QString, int> numbersHere;
    for (int slot = here.slotCount(); slot >= 1; --slot) {
        if (here.slot(slot).isBettor())
            numbersHere.insert(sameName(here.slot(slot).name), here.slot(slot).number);
    }
    NumberMap map;
    for (int slot = 1; slot <= there.slotCount(); ++slot) {
        const Bettor &bettor = there.slot(slot);
        if (!bettor.isBettor())
            continue;
        const QString name = sameName(bettor.name);
        const bool known = numbersHere.contains(name);
        if (!known && !mayAdd) {
            map.unknown.insert(bettor.number, bettor.name);
            continue;
        }
        if (!known) {
            map.added.append({nextNumber, storableText(bettor.name)});
            numbersHere.insert(name, nextNumber++);
        } else if (bettor.name != anyBettorName()) {
            map.duplicates.append(bettor.name);
        }
        map.numbers.insert(bettor.number, numbersHere.value(name));
    }
    return map;
}

// Everything that an import reads.
struct Sources
{
    QByteArray bettorsHere;
    std::optional<QByteArray> bettors;
    std::array<std::optional<QByteArray>, raceCount> horses;
    std::array<std::optional<QByteArray>, raceCount> bets;
    std::array<BetTable, raceCount> betsHere;
    int highestBettor = 0; // of all numbers in Bettors, Bets and Multibets here

    bool isEmpty() const
    {
        const auto missing = [](const auto &file) { return !file; };
        return !bettors && std::ranges::all_of(horses, missing)
               && std::ranges::all_of(bets, missing);
    }
};

int highestMultibettor(const QByteArray &bytes)
{
    std::string_view rest = view(bytes);
    std::string_view line;
    std::vector<RecordField> fields;
    int highest = 0;
    while (nextRecordLine(rest, line)) {
        if (splitRecord(line, fields) && fields.size() == 6)
            highest = std::max(highest, fieldInteger(fields[5], 1, 999999).value_or(0));
    }
    return highest;
}

Sources readSources(Session &session, const QString &folder, const ImportChoice &choice)
{
    Sources sources;
    session.settings.operationLabel = u"Bettors input"_s;
    sources.bettorsHere = readRecordFile(mainFile(session, RecordFile::Bettors, 0));
    if (choice.bettors || choice.bets)
        sources.bettors = readForeign(session, folder, RecordFile::Bettors, 0);
    sources.highestBettor = BettorTable::parse(sources.bettorsHere, 0).highestNumber();
    for (std::size_t i = 0; i < raceCount; ++i) {
        const int race = int(i) + 1;
        if (choice.horses)
            sources.horses[i] = readForeign(session, folder, RecordFile::Horses, race);
        if (choice.bets)
            sources.bets[i] = readForeign(session, folder, RecordFile::Bets, race);
        session.settings.operationLabel = u"Bets input"_s;
        sources.betsHere[i] =
            parseBets(readRecordFile(mainFile(session, RecordFile::Bets, race)).toStdString());
        for (const BetRow &row : sources.betsHere[i].rows) {
            if (row.bet.bettor < 1e6F)
                sources.highestBettor = std::max(sources.highestBettor, int(row.bet.bettor));
        }
        session.settings.operationLabel = u"Multibets input"_s;
        const QByteArray multibets = readRecordFile(mainFile(session, RecordFile::Multibets, race));
        sources.highestBettor = std::max(sources.highestBettor, highestMultibettor(multibets));
    }
    return sources;
}

// The lines that a race's Bets gain.
std::string translatedBets(const BetTable &bets, const QHash<int, int> &numbers, ImportedRace &race)
{
    std::string lines;
    for (const BetRow &row : bets.rows) {
        Bet bet = row.bet;
        const bool whole = !row.damaged && bet.bettor == float(int(bet.bettor));
        const int number = whole ? numbers.value(int(bet.bettor)) : 0;
        if (number == 0) {
            ++race.leftOut;
            continue;
        }
        bet.bettor = float(number);
        lines += betLine(bet);
        ++race.bets;
        race.dollars += double(bet.amount);
    }
    return lines;
}

bool hadAll(const BetTable &here, const std::string &lines)
{
    std::map<std::string, int> counts;
    for (const BetRow &row : here.rows)
        ++counts[row.damaged ? std::string(here.line(row)) : betLine(row.bet)];
    for (const BetRow &row : parseBets(lines).rows) {
        if (--counts[betLine(row.bet)] < 0)
            return false;
    }
    return !lines.empty();
}

bool hasHorses(const QByteArray &card)
{
    const HorseTable horses = parseHorses(card).horses;
    return !std::ranges::all_of(horses, isUnused);
}

QString namesList(const QStringList &names)
{
    constexpr int most = 5;
    QString text = names.mid(0, most).join(", "_L1);
    if (names.size() > most)
        text += " and "_L1 + QString::number(names.size() - most) + " more"_L1;
    return text;
}

// The bettors whose bets would come without them.
QStringList bettorsWithBets(const Sources &sources, const QHash<int, QString> &bettors)
{
    QStringList names;
    for (const auto &bytes : sources.bets) {
        for (const BetRow &row : parseBets(bytes.value_or(QByteArray()).toStdString()).rows) {
            const QString name = bettors.value(int(row.bet.bettor));
            if (!row.damaged && !name.isEmpty() && !names.contains(name))
                names.append(name);
        }
    }
    return names;
}

void writeBettors(Session &session, const NumberMap &map)
{
    if (map.added.isEmpty())
        return;
    QByteArray lines;
    for (const Bettor &bettor : map.added)
        lines += QByteArray::number(bettor.number) + ',' + quotedField(bettor.name) + recordEnd;
    session.settings.operationLabel = u"Bettors output"_s;
    keepTwinsInSaved(session, RecordFile::Bettors, 0);
    appendTwins(session, RecordFile::Bettors, 0, lines, u"Bettors output"_s,
                u"Bettorsbackup output"_s);
}

} // namespace

QStringList importableFiles(const Session &session, const QString &folder)
{
    QStringList names{u"Bettors"_s};
    for (int race = 1; race <= raceCount; ++race)
        names << u"Horses"_s + raceName(race) << u"Bets"_s + raceName(race);
    const QDir there(session.paths.toHost(folder));
    QStringList found;
    for (const QString &name : std::as_const(names)) {
        if (QFileInfo(there.filePath(name)).isFile())
            found << name;
    }
    std::ranges::sort(found);
    return found;
}

ImportResult importEvent(Session &session, const QString &folder, const ImportChoice &choice)
{
    ImportResult result;
    if (isForeignToItself(session, folder)) {
        result.refusal = u"This is the event directory itself"_s;
        return result;
    }
    const Sources sources = readSources(session, folder, choice);
    session.settings.operationLabel = u"Import input"_s;
    if (sources.isEmpty() || (choice.bets && !sources.bettors))
        throw FileError(ErrorNumber::FileNotFound);

    const BettorTable here = BettorTable::parse(sources.bettorsHere, 0);
    const BettorTable there = BettorTable::parse(sources.bettors.value_or(QByteArray()), 0);
    const NumberMap map = mapNumbers(here, there, choice.bettors, sources.highestBettor + 1);
    const QStringList missing = bettorsWithBets(sources, map.unknown);
    if (!missing.isEmpty()) {
        result.refusal = "There are bets of bettors who are not in the list here: "_L1
                         + namesList(missing) + ". Check Bettors too."_L1;
        return result;
    }
    int bettorsHere = 0;
    for (int slot = 1; slot <= here.slotCount(); ++slot)
        bettorsHere += here.slot(slot).isBettor() ? 1 : 0;
    if (!map.added.isEmpty() && bettorsHere + map.added.size() > session.settings.bettorLimit) {
        result.refusal = "No room for "_L1 + QString::number(map.added.size()) + " new bettors"_L1;
        return result;
    }

    std::array<std::string, raceCount> lines;
    for (std::size_t i = 0; i < raceCount; ++i) {
        ImportedRace race;
        race.race = int(i) + 1;
        race.hasHorses = sources.horses[i] && hasHorses(*sources.horses[i]);
        race.hasBets = sources.bets[i].has_value();
        if (race.hasBets) {
            lines[i] = translatedBets(parseBets(sources.bets[i]->toStdString()), map.numbers, race);
            race.looksImported = hadAll(sources.betsHere[i], lines[i]);
        }
        if (race.bets > 0
            && int(sources.betsHere[i].rows.size()) + race.bets > session.settings.betLimit) {
            result.refusal = "No room for the bets of"_L1 + raceName(race.race);
            return result;
        }
        result.races.append(race);
    }

    writeBettors(session, map);
    for (const ImportedRace &race : std::as_const(result.races)) {
        const auto i = std::size_t(race.race - 1);
        if (race.hasHorses) {
            session.settings.operationLabel = u"Horses output"_s;
            keepTwinsInSaved(session, RecordFile::Horses, race.race);
            rewriteTwins(session, RecordFile::Horses, race.race, *sources.horses[i],
                         u"Horses output"_s, u"Horsesbackup output"_s);
        }
        if (!lines[i].empty()) {
            session.settings.operationLabel = u"Bets Append"_s;
            keepTwinsInSaved(session, RecordFile::Bets, race.race);
            appendTwins(session, RecordFile::Bets, race.race, QByteArray::fromStdString(lines[i]),
                        u"Bets Append"_s, u"Betsbackup Append"_s);
        }
    }
    result.duplicates = map.duplicates;
    for (const Bettor &bettor : map.added)
        result.added << bettor.name;
    return result;
}
