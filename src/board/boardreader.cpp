#include "board/boardreader.h"

#include "common/event/bettypes.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Times of files are coarse on some systems: a file that changed is read again for so many looks.
constexpr int looksAfterChange = 3;

constexpr RecordFile raceFiles[] = {RecordFile::Horses, RecordFile::Bets, RecordFile::Multibets};

QString stateOfFile(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() ? QString::number(file.size()) + u'@'
                               + QString::number(file.lastModified().toMSecsSinceEpoch())
                         : u"-"_s;
}

bool runs(const HorseTable &horses, const QString &name)
{
    return std::ranges::any_of(
        horses, [&](const Horse &horse) { return !isUnused(horse) && horse.name == name; });
}

} // namespace

std::optional<BoardPicture> BoardReader::look(const BoardWish &wish)
{
    BoardPicture picture;
    try {
        begin(wish);
        if (!hasChanged())
            return {};
        picture = read();
    } catch (const FileError &) {
        picture = waiting();
    }
    picture.folder = m_folder;
    picture.banner = wish.banner;
    if (picture == m_shown)
        return {};
    m_shown = picture;
    return picture;
}

void BoardReader::begin(const BoardWish &wish)
{
    if (wish.paths != m_wish.paths || wish.eventDirectory != m_wish.eventDirectory) {
        m_races.clear(); // another event
        m_race = 0;
    }
    m_wish = wish;
    m_session.paths = wish.paths;
    m_session.settings.eventDirectory = wish.eventDirectory;
    m_folder = eventFolder(m_session);
    if (!QFileInfo(m_folder).isDir())
        throw FileError(ErrorNumber::PathNotFound);
    m_journals.update(m_folder);
    m_race = raceFor(wish);
}

int BoardReader::raceFor(const BoardWish &wish)
{
    if (wish.shows == BoardWish::Shows::OneRace)
        return wish.race;
    if (wish.shows == BoardWish::Shows::Settled) {
        if (const QList<int> races = settledRaces(m_journals.journal()); !races.isEmpty())
            return races[wish.turn % races.size()];
    }
    return followedRace(m_journals.journal(), wish.computer, wish.race);
}

bool BoardReader::hasChanged()
{
    QStringList state{m_wish.banner, m_folder, QString::number(m_race),
                      QString::number(m_journals.journal().lines.size())};
    m_watched = QStringList(m_folder) + cashFiles(m_folder);
    for (const RecordFile file : raceFiles) {
        m_watched += mainFile(m_session, file, m_race);
        state += stateOfFile(m_watched.constLast());
    }
    const QString now = state.join(u'|');
    m_looksAgain = now == m_state ? m_looksAgain - 1 : looksAfterChange;
    m_state = now;
    return m_looksAgain >= 0;
}

BoardPicture BoardReader::read()
{
    m_isTorn = false;
    RaceRecords race;
    race.race = m_race;
    race.horses = parseHorses(bytesOf(RecordFile::Horses)).horses;
    race.bets = parseBets(bytesOf(RecordFile::Bets).toStdString());
    race.multibets = parseMultibets(bytesOf(RecordFile::Multibets).toStdString());
    Known &known = m_races[m_race];
    if (m_isTorn && known.picture)
        throw FileError(ErrorNumber::InputPastEnd);
    if (!m_isTorn)
        rememberCard(race.horses);
    BoardPicture picture =
        boardPicture(race, scratchedFrom(race.horses), m_journals.journal(), cards(race.horses));
    if (m_isTorn) {
        m_state.clear();
        picture.note = waitingForFiles();
    } else {
        known.picture = picture;
    }
    return picture;
}

// The next look reads again.
BoardPicture BoardReader::waiting()
{
    m_state.clear();
    BoardPicture picture;
    picture.race = m_race == 0 ? m_wish.race : m_race;
    if (const auto known = m_races.find(m_race); known != m_races.end() && known->second.picture)
        picture = *known->second.picture;
    picture.note = waitingForFiles();
    return picture;
}

// Weighed as every reader does. A file that is missing beside its twin, or empty beside a full one,
// is just being replaced; a record that nobody knows yet is just being written.
QByteArray BoardReader::bytesOf(RecordFile file)
{
    const auto bytes = readIfThere(mainFile(m_session, file, m_race));
    if (bytes && bytes->endsWith('\n'))
        return *bytes;
    const auto twin = readIfThere(twinFile(m_session, file, m_race));
    if (!bytes && twin)
        throw FileError(ErrorNumber::FileNotFound);
    if (!bytes)
        return {};
    const FileEnd end = fileEnd(*bytes, twin);
    m_isTorn |= end.fate == EndFate::Torn || (bytes->isEmpty() && twin && !twin->isEmpty());
    return *bytes + end.missing;
}

// A horse that leaves a card on which others go on was scratched, however that was done.
void BoardReader::rememberCard(const HorseTable &horses)
{
    Known &known = m_races[m_race];
    const bool goesOn = std::ranges::any_of(known.card, [&](const Horse &before) {
        return !isUnused(before) && runs(horses, before.name);
    });
    if (!goesOn)
        known.gone.clear();
    for (const Horse &before : known.card) {
        if (goesOn && !isUnused(before) && isUnused(horses.post(before.post)))
            known.gone.append(before);
    }
    known.card = horses;
}

// The horses that left the card while the board was shown, and those that the journals name.
QList<Horse> BoardReader::scratchedFrom(const HorseTable &horses)
{
    QList<Horse> scratched = m_races[m_race].gone;
    for (const CashEntry &line : m_journals.journal().lines) {
        if (line.kind == CashKind::Scratched && line.race == m_race)
            scratched.prepend({line.detail.section(u',', 0, 0).toInt(), 0,
                               line.detail.section(u',', 1), line.name});
    }
    scratched.removeIf([&](const Horse &horse) {
        return horse.post < 1 || horse.post > postCount || !isUnused(horses.post(horse.post))
               || runs(horses, horse.name);
    });
    return scratched;
}

// The cards that the settled multibets of this race and of those before it need.
std::map<int, HorseTable> BoardReader::cards(const HorseTable &horses)
{
    std::map<int, HorseTable> found{{m_race, horses}};
    for (const MultibetType &type : multibetTypes()) {
        for (int first = std::max(1, m_race - 2); type.races && first <= m_race; ++first) {
            if (!lastMultibetSettlement(m_journals.journal(), first, type.code))
                continue;
            for (int race = first; race < first + type.lines && race <= raceCount; ++race) {
                const auto bytes = readIfThere(mainFile(m_session, RecordFile::Horses, race));
                if (bytes)
                    found.try_emplace(race, parseHorses(*bytes).horses);
            }
        }
    }
    return found;
}
