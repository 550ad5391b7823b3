#include "transfer/importevent.h"

#include "common/event/cashstakes.h"
#include "common/event/eventrecords.h"
#include "common/event/filebatch.h"
#include "common/event/labelled.h"
#include "common/event/multibetrecords.h"
#include "common/event/roles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr int firstUnsafeNumber = 1 << 24; // from here on single precision merges numbers

// The file of the folder under its name here, or nothing when there is none.
std::optional<QByteArray> readForeign(Session &session, const QString &folder, RecordFile file,
                                      int race)
{
    return labelled(session, u"Import input"_s, [&] {
        const QString name = QFileInfo(mainFile(session, file, race)).fileName();
        return readIfThere(session.paths.toHost(folder + name), Links::Refused);
    });
}

bool isEventDirectory(Session &session, const QString &folder)
{
    return labelled(session, u"Import input"_s, [&] {
        const QFileInfo there(session.paths.toHost(folder));
        return there.exists()
               && there.canonicalFilePath() == QFileInfo(eventFolder(session)).canonicalFilePath();
    });
}

// A bet's bettor number, or 0 when the record is damaged or the number no whole one.
int bettorOf(const BetRow &row)
{
    const float number = row.bet.bettor;
    const bool inRange = !row.damaged && number >= 1 && number < float(firstUnsafeNumber);
    return inRange && number == float(int(number)) ? int(number) : 0;
}

QString nameKey(const QString &name)
{
    return name.trimmed().toUpper();
}

bool isAnyBettor(const QString &name)
{
    return nameKey(name) == nameKey(anyBettorName());
}

// What the other computer holds of the files chosen.
struct Foreign
{
    std::optional<QByteArray> bettors;
    std::array<std::optional<QByteArray>, raceCount> horses;
    std::array<std::optional<QByteArray>, raceCount> bets;

    bool hasBets() const { return std::ranges::any_of(bets, isThere); }
    bool isEmpty() const { return !bettors && !hasBets() && std::ranges::none_of(horses, isThere); }

private:
    static bool isThere(const std::optional<QByteArray> &file) { return file.has_value(); }
};

// What is on file here.
struct Local
{
    QByteArray bettors;
    std::array<HorseTable, raceCount> cards;
    std::array<BetTable, raceCount> bets;
    int highestBettor = 0; // of all numbers in Bettors, Bets and Multibets
};

Foreign readFolder(Session &session, const QString &folder, const ImportChoice &choice,
                   const Progress &progress)
{
    Foreign there;
    if (choice.bettors || choice.bets)
        there.bettors = readForeign(session, folder, RecordFile::Bettors, 0);
    for (std::size_t i = 0; i < raceCount; ++i) {
        const int race = int(i) + 1;
        if (choice.horses)
            there.horses[i] = readForeign(session, folder, RecordFile::Horses, race);
        if (choice.bets)
            there.bets[i] = readForeign(session, folder, RecordFile::Bets, race);
        progress(race, 3 * raceCount);
    }
    return there;
}

Local readEvent(Session &session, const Progress &progress)
{
    Local here;
    here.bettors = readMainFile(session, RecordFile::Bettors, 0, u"Bettors input"_s);
    here.highestBettor = BettorTable::parse(here.bettors, 0).highestNumber();
    for (std::size_t i = 0; i < raceCount; ++i) {
        const int race = int(i) + 1;
        here.cards[i] = readHorses(session, race).horses;
        here.bets[i] = readBets(session, race);
        const MultibetTable multibets = readMultibets(session, race);
        for (const BetRow &row : here.bets[i].rows)
            here.highestBettor = std::max(here.highestBettor, bettorOf(row));
        for (const MultibetRow &row : multibets.rows)
            here.highestBettor = std::max(here.highestBettor, row.bet.bettor);
        progress(raceCount + race, 3 * raceCount);
    }
    return here;
}

// The numbers there -> the numbers here.
class NumberMap
{
public:
    NumberMap(const BettorTable &here, const BettorTable &there, bool mayAdd, int nextNumber)
        : m_mayAdd(mayAdd)
        , m_nextNumber(nextNumber)
    {
        for (int slot = here.slotCount(); slot >= 1; --slot) {
            if (here.slot(slot).isBettor())
                m_numbersHere.insert(nameKey(here.slot(slot).name), here.slot(slot).number);
        }
        m_firstIsTaken = !here.nameOf(1).isEmpty();
        for (int slot = 1; slot <= there.slotCount(); ++slot) {
            if (there.slot(slot).isBettor() && !nameKey(there.slot(slot).name).isEmpty())
                take(there.slot(slot));
        }
        // Number 1 is AnyBettor's, also where the list does not say so.
        if (!m_numbers.contains(1) && !m_unknown.contains(1))
            take({1, anyBettorName()});
    }

    int numberHere(int numberThere) const { return m_numbers.value(numberThere); }

    // The name behind a number that has no number here; empty when there is none.
    QString unknownName(int numberThere) const { return m_unknown.value(numberThere); }

    QList<Bettor> added() const { return m_added; }
    QStringList duplicates() const { return m_duplicates; }

private:
    void take(const Bettor &bettor)
    {
        const QString key = nameKey(bettor.name);
        if (m_numbers.contains(bettor.number) || m_unknown.contains(bettor.number))
            return; // one number with two names: the first counts, as everywhere
        if (!m_numbersHere.contains(key) && !m_mayAdd) {
            m_unknown.insert(bettor.number, bettor.name.trimmed());
            return;
        }
        if (!m_numbersHere.contains(key))
            add(key);
        else if (!isAnyBettor(key))
            m_duplicates.append(key);
        m_numbers.insert(bettor.number, m_numbersHere.value(key));
    }

    void add(const QString &key)
    {
        const bool isFirst = isAnyBettor(key) && !m_firstIsTaken;
        const int number = isFirst ? anyBettor : m_nextNumber++;
        m_added.append({number, isAnyBettor(key) ? anyBettorName() : storableText(key)});
        m_numbersHere.insert(key, number);
    }

    static constexpr int anyBettor = 1;

    bool m_mayAdd;
    bool m_firstIsTaken = false;
    int m_nextNumber;
    QHash<QString, int> m_numbersHere; // by name
    QHash<int, int> m_numbers;
    QHash<int, QString> m_unknown; // bettors that are missing here and are not added
    QList<Bettor> m_added;
    QStringList m_duplicates;
};

// A race's bets as they will stand here.
std::vector<Bet> translatedBets(const BetTable &bets, const NumberMap &map, int &leftOut)
{
    std::vector<Bet> translated;
    for (const BetRow &row : bets.rows) {
        const int number = map.numberHere(bettorOf(row));
        if (number == 0) {
            ++leftOut;
            continue;
        }
        translated.push_back(row.bet);
        translated.back().bettor = float(number);
    }
    return translated;
}

// How often each bet is on file, by its record line.
std::map<std::string, int> countedBets(const BetTable &bets)
{
    std::map<std::string, int> counts;
    for (const BetRow &row : bets.rows) {
        if (!row.damaged)
            ++counts[betLine(row.bet)];
    }
    return counts;
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
QStringList bettorsWithBets(const std::array<BetTable, raceCount> &bets, const NumberMap &map)
{
    QStringList names;
    for (const BetTable &race : bets) {
        for (const BetRow &row : race.rows) {
            const QString name = map.unknownName(bettorOf(row));
            if (!name.isEmpty() && !names.contains(name))
                names.append(name);
        }
    }
    return names;
}

// Why this computer's role forbids the import, or nothing.
QString roleRefusal(const Settings &settings, const ImportChoice &choice)
{
    const QString horses = choice.horses ? horsesRefusal(settings) : QString();
    return horses.isEmpty() && choice.bettors ? bettorsRefusal(settings) : horses;
}

// Why the files of the folder cannot be imported at all, or nothing.
QString folderRefusal(const Foreign &there, const QString &folder, const ImportChoice &choice)
{
    if (there.isEmpty())
        return "None of the files chosen is in "_L1 + folder;
    if (!there.bettors && (choice.bettors || there.hasBets()))
        return "There is no Bettors file in "_L1 + folder;
    return {};
}

void planBettors(ImportPlan &plan, const NumberMap &map, int bettorLimit)
{
    const BettorTable here = BettorTable::parse(plan.bettorsHere, 0);
    qsizetype count = map.added().size();
    for (int slot = 1; slot <= here.slotCount(); ++slot)
        count += here.slot(slot).isBettor() ? 1 : 0;
    if (!map.added().isEmpty() && count > bettorLimit) {
        plan.refusal =
            "No room for "_L1 + counted(std::size_t(map.added().size()), u"new bettor"_s);
    }
    for (const Bettor &bettor : map.added()) {
        plan.added << bettor.name;
        plan.bettorLines +=
            QByteArray::number(bettor.number) + ',' + quotedField(bettor.name) + recordEnd;
    }
}

void planCard(ImportPlan &plan, ImportedRace &race, const QByteArray &bytes, const Local &here)
{
    const auto i = std::size_t(race.race - 1);
    const HorseFile file = parseHorses(bytes);
    const HorseTable &card = file.horses;
    race.horses = int(std::ranges::count_if(card, std::not_fn(&isUnused)));
    if (race.horses == 0)
        return;
    plan.cards[i] = horseRecords(card);
    race.cardDamage = file.damage();
    const bool replacesHorses = !std::ranges::all_of(here.cards[i], isUnused);
    race.cardHadBets = replacesHorses && !here.bets[i].rows.empty() && !(card == here.cards[i]);
}

void planBets(ImportPlan &plan, ImportedRace &race, const BetTable &bets, const NumberMap &map,
              const Local &here)
{
    const auto i = std::size_t(race.race - 1);
    race.betsHere = int(here.bets[i].rows.size());
    std::map<std::string, int> onFile = countedBets(here.bets[i]);
    for (const Bet &bet : translatedBets(bets, map, race.leftOut)) {
        const std::string line = betLine(bet);
        ++race.bets;
        race.dollars += double(bet.amount);
        plan.betLines[i].append(QByteArrayView(line));
        if (--onFile[line] >= 0) {
            ++race.onFile;
            race.onFileDollars += double(bet.amount);
        } else {
            plan.newBetLines[i].append(QByteArrayView(line));
        }
    }
}

// Why a race cannot take \a bets more, or nothing.
QString roomRefusal(const Session &session, const ImportedRace &race, int bets)
{
    if (bets == 0 || race.betsHere + bets <= session.settings.betLimit)
        return {};
    return "No room for the bets of"_L1 + raceName(race.race);
}

} // namespace

QStringList ImportPlan::racesOnFile() const
{
    QStringList lines;
    for (const ImportedRace &race : races) {
        if (race.onFile > 0) {
            lines << raceName(race.race).trimmed() + ": "_L1
                         + QString::number(race.bets - race.onFile) + " of "_L1
                         + QString::number(race.bets) + " bets are new"_L1;
        }
    }
    return lines;
}

void ImportPlan::leaveOutBetsOnFile()
{
    for (ImportedRace &race : races) {
        betLines[std::size_t(race.race - 1)] = newBetLines[std::size_t(race.race - 1)];
        race.bets -= race.onFile;
        race.dollars -= race.onFileDollars;
        race.onFileAdded = false;
    }
}

QStringList importableFiles(const Session &session, const QString &folder)
{
    QStringList names{u"Bettors"_s};
    for (int race = 1; race <= raceCount; ++race)
        names << u"Horses"_s + raceName(race) << u"Bets"_s + raceName(race);
    const QDir there(session.paths.toHost(folder));
    if (!there.exists())
        throw FileError(ErrorNumber::PathNotFound);
    QStringList found;
    for (const QString &name : std::as_const(names)) {
        if (QFileInfo(there.filePath(name)).isFile())
            found << name;
    }
    return found;
}

ImportPlan planImport(Session &session, const QString &folder, const ImportChoice &choice,
                      const Progress &progress)
{
    ImportPlan plan;
    plan.refusal = isEventDirectory(session, folder) ? u"This is the event directory itself"_s
                                                     : roleRefusal(session.settings, choice);
    if (!plan.refusal.isEmpty())
        return plan;
    const Foreign there = readFolder(session, folder, choice, progress);
    plan.refusal = folderRefusal(there, folder, choice);
    if (!plan.refusal.isEmpty())
        return plan;
    plan.note = createMissingEventFiles(session);
    const Local here = readEvent(session, progress);
    plan.bettorsHere = here.bettors;

    std::array<BetTable, raceCount> bets;
    std::ranges::transform(there.bets, bets.begin(), [](const auto &bytes) {
        return parseBets(bytes.value_or(QByteArray()).toStdString());
    });
    const NumberMap map(BettorTable::parse(here.bettors, 0),
                        BettorTable::parse(there.bettors.value_or(QByteArray()), 0), choice.bettors,
                        std::max(2, here.highestBettor + 1));
    const QStringList missing = bettorsWithBets(bets, map);
    if (!missing.isEmpty()) {
        plan.refusal = "There are bets of bettors who are not in the list here: "_L1
                       + namesList(missing) + ". Check Bettors too."_L1;
        return plan;
    }
    if (choice.bettors) {
        plan.duplicates = map.duplicates();
        planBettors(plan, map, session.settings.bettorLimit);
    }
    for (std::size_t i = 0; i < raceCount; ++i) {
        ImportedRace race;
        race.race = int(i) + 1;
        planCard(plan, race, there.horses[i].value_or(QByteArray()), here);
        planBets(plan, race, bets[i], map, here);
        if (const QString full = roomRefusal(session, race, race.bets - race.onFile);
            !full.isEmpty())
            plan.refusal = full;
        plan.races.append(race);
    }
    return plan;
}

QString carryOutImport(Session &session, const ImportPlan &plan, const Progress &progress)
{
    const QString label = u"Import output"_s;
    FileBatch batch(session, label);
    if (!plan.bettorLines.isEmpty()
        && readMainFile(session, RecordFile::Bettors, 0, u"Bettors input"_s) != plan.bettorsHere)
        return u"The bettor list has changed meanwhile. Import again."_s;
    for (const ImportedRace &race : plan.races) {
        if (const QString full = roomRefusal(session, race, race.bets); !full.isEmpty())
            return full;
    }
    if (!plan.bettorLines.isEmpty())
        batch.append(RecordFile::Bettors, 0, plan.bettorLines, label);
    session.bettors =
        BettorTable::parse(plan.bettorsHere + plan.bettorLines, session.settings.bettorLimit);
    std::vector<CashEntry> added;
    for (const ImportedRace &race : plan.races) {
        const auto i = std::size_t(race.race - 1);
        if (!plan.cards[i].isEmpty())
            batch.replaceTwins(RecordFile::Horses, race.race, plan.cards[i], label, label);
        if (!plan.betLines[i].isEmpty())
            batch.append(RecordFile::Bets, race.race, plan.betLines[i], label);
        const BetTable bets = parseBets(plan.betLines[i].toStdString());
        std::ranges::move(stakeLines(session, CashKind::Added, race.race, stakesOf(bets)),
                          std::back_inserter(added));
    }
    batch.commit([&](int done, int total) {
        progress(2 * raceCount + done * raceCount / total, 3 * raceCount + 1);
    });
    recordCash(session, added);
    progress(3 * raceCount + 1, 3 * raceCount + 1);
    return {};
}

ImportTable importTable(const QList<ImportedRace> &races)
{
    ImportTable table;
    table.columns = {u"Horses replaced"_s, u"Bets added"_s, u"Dollars"_s, u"Left out"_s, u"Note"_s};
    ImportedRace all;
    for (const ImportedRace &race : races) {
        if (race.horses == 0 && race.bets == 0 && race.leftOut == 0 && race.onFile == 0)
            continue;
        QStringList notes;
        if (race.onFile > 0) {
            notes << QString::number(race.onFile)
                         + (race.onFileAdded ? " on file before, added again"_L1
                                             : " on file before, not added again"_L1);
        }
        if (!race.cardDamage.isEmpty())
            notes << race.cardDamage.chopped(1); // as one note of several
        if (race.cardHadBets)
            notes << u"bets were on the old card"_s;
        table.rows << QStringList{raceName(race.race).trimmed(), QString::number(race.horses),
                                  QString::number(race.bets),    formatMoney(race.dollars),
                                  QString::number(race.leftOut), notes.join(", "_L1)};
        all.horses += race.horses;
        all.bets += race.bets;
        all.dollars += race.dollars;
        all.leftOut += race.leftOut;
    }
    table.rows << QStringList{u"All"_s,
                              QString::number(all.horses),
                              QString::number(all.bets),
                              formatMoney(all.dollars),
                              QString::number(all.leftOut),
                              {}};
    return table;
}

QString importSummary(const ImportPlan &plan)
{
    int horses = 0;
    int bets = 0;
    int leftOut = 0;
    double dollars = 0;
    for (const ImportedRace &race : plan.races) {
        horses += race.horses > 0 ? 1 : 0;
        bets += race.bets;
        leftOut += race.leftOut;
        dollars += race.dollars;
    }
    QString text = "Races with new horses: "_L1 + QString::number(horses) + ". New bettors: "_L1
                   + QString::number(plan.added.size()) + ". Bets added: "_L1
                   + QString::number(bets) + ", "_L1 + formatMoney(dollars) + '.'_L1;
    if (leftOut > 0)
        text += " Left out: "_L1 + QString::number(leftOut) + '.'_L1;
    return plan.note.isEmpty() ? text : QString(text + u'\n' + plan.note);
}
