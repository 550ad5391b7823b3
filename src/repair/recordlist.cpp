#include "repair/recordlist.h"

#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"
#include "repair/savedcopies.h"

#include <QFileInfo>
#include <QHash>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr float leastAmount = 0.01F; // dollars, of one bet
constexpr float mostAmount = 1000;

const QString badHorse = u" Bad Horse Number"_s;
const QString badAmount = u" Bad Bet Amount"_s;
const QString nullBettor = u" Null Bettor Number"_s;

// The fields of a damaged line count as missing, so that every column tells what it lacks.
class Record
{
public:
    explicit Record(std::string_view line)
    {
        if (!splitRecord(line, m_fields))
            m_fields.clear();
    }

    std::optional<double> number(std::size_t field) const
    {
        return field < m_fields.size() ? fieldNumber(m_fields[field]) : std::nullopt;
    }
    std::optional<int> whole(std::size_t field) const
    {
        return field < m_fields.size() ? fieldInteger(m_fields[field], -999999999, 999999999)
                                       : std::nullopt;
    }
    QString text(std::size_t field) const
    {
        return field < m_fields.size() ? fieldText(m_fields[field]) : QString();
    }

private:
    std::vector<RecordField> m_fields;
};

using BettorNames = QHash<int, QString>;

struct Lookup
{
    BettorNames bettors;
    std::array<HorseTable, 3> horses; // of the race and the two after it
    int races = 1;                    // of these that there are
};

// Puts values and messages side by side and remembers whether a message was among them.
class RowMaker
{
public:
    explicit RowMaker(int number) { m_row.cells << QString::number(number); }

    void value(const QString &text) { m_row.cells << text; }
    void fault(const QString &text)
    {
        m_row.cells << text;
        m_row.isDamaged = true;
    }
    void checked(bool good, const QString &text, const QString &message)
    {
        good ? value(text) : fault(message);
    }
    RecordRow row(std::string_view line)
    {
        m_row.line = QByteArray(line.data(), qsizetype(line.size()));
        return std::move(m_row);
    }

private:
    RecordRow m_row;
};

void addBettor(RowMaker &row, const Record &record, std::size_t field, const BettorNames &names)
{
    const auto number = record.number(field);
    const QString shown = number ? plainNumber(float(*number)) : record.text(field);
    row.value(shown);
    if (!number || *number == 0)
        return row.fault(nullBettor);
    const auto whole = record.whole(field);
    const auto name = whole ? names.constFind(*whole) : names.constEnd();
    row.checked(name != names.constEnd(), name != names.constEnd() ? *name : QString(),
                shown + " Bad Bettor Number"_L1);
}

void addAmount(RowMaker &row, const Record &record, std::size_t field)
{
    const auto amount = record.number(field);
    const float dollars = amount ? float(*amount) : 0;
    row.checked(amount && dollars >= leastAmount && dollars <= mostAmount, plainNumber(dollars),
                badAmount);
}

bool runs(const HorseTable &horses, int post)
{
    return post >= 1 && post <= postCount && !isUnused(horses.post(post));
}

RecordRow betRow(int number, std::string_view line, const Lookup &lookup)
{
    static const QString positions[] = {u" Win  "_s, u" Place"_s, u" Show "_s};
    const Record record(line);
    RowMaker row(number);
    addBettor(row, record, 0, lookup.bettors);
    const auto post = record.whole(1);
    const bool knownHorse = post && runs(lookup.horses[0], *post);
    row.value(knownHorse ? lookup.horses[0].post(*post).number : record.text(1));
    row.checked(knownHorse, knownHorse ? lookup.horses[0].post(*post).name : QString(), badHorse);
    const auto type = record.whole(2);
    const bool knownType = type && *type >= 1 && *type <= 3;
    row.checked(knownType, knownType ? positions[*type - 1] : QString(),
                u" Bad Bet Type - Not 1,2, or 3"_s);
    addAmount(row, record, 3);
    return row.row(line);
}

struct MultibetName
{
    QString code;
    QString name;
    std::size_t lines;
    bool races; // each line is a race of its own
};

const MultibetName *multibetName(const QString &code)
{
    static const MultibetName names[] = {{u"EX"_s, u" Exacta"_s, 2, false},
                                         {u"Q"_s, u" Quinela"_s, 2, false},
                                         {u"T"_s, u" Trifecta"_s, 3, false},
                                         {u"DD"_s, u" Daily Double"_s, 2, true},
                                         {u"P3"_s, u" Pick 3"_s, 3, true}};
    const auto *found = std::ranges::find(names, code, &MultibetName::code);
    return found == std::end(names) ? nullptr : found;
}

// The program number of the horse on a line of a multibet, or nothing when none runs there. Posts
// of the race itself are offered on every line, so they pass on every line.
std::optional<QString> multibetHorse(const Lookup &lookup, const MultibetName &type,
                                     std::size_t line, int post)
{
    const std::size_t leg = type.races ? line : 0;
    for (const std::size_t race : {leg, std::size_t(0)}) {
        if (race < std::size_t(lookup.races) && runs(lookup.horses[race], post))
            return lookup.horses[race].post(post).number;
    }
    return {};
}

RecordRow multibetRow(int number, std::string_view line, const Lookup &lookup)
{
    const Record record(line);
    RowMaker row(number);
    addBettor(row, record, 5, lookup.bettors);
    const MultibetName *type = multibetName(record.text(3));
    row.checked(type, type ? type->name : QString(), u" Bad Bet Type"_s);
    QStringList horses;
    bool allRun = true;
    for (std::size_t i = 0; i < (type ? type->lines : 2); ++i) {
        const auto post = record.whole(i);
        const auto horse = post && type ? multibetHorse(lookup, *type, i, *post) : std::nullopt;
        allRun = allRun && horse;
        horses << horse.value_or(QString());
    }
    row.checked(allRun, horses.join(u','), badHorse);
    addAmount(row, record, 4);
    return row.row(line);
}

RecordRow bettorRow(int number, std::string_view line, const Lookup &)
{
    const Record record(line);
    const auto bettor = record.whole(0);
    RowMaker row(number);
    row.checked(bettor && *bettor > 0, bettor ? QString::number(*bettor) : QString(), nullBettor);
    row.value(record.text(1));
    return row.row(line);
}

RecordRow horseRow(int number, std::string_view line, const Lookup &)
{
    const Record record(line);
    const auto post = record.whole(0);
    RowMaker row(number);
    row.checked(post && *post >= 1 && *post <= postCount, record.text(0), badHorse);
    row.value(record.text(3));
    row.value(record.text(2).trimmed());
    return row.row(line);
}

RecordRow backupHorseRow(int number, std::string_view line, const Lookup &lookup)
{
    RecordRow row = horseRow(number, line, lookup);
    row.cells = {row.cells[0], row.isDamaged ? badHorse : row.cells[3], row.cells[2]};
    return row;
}

// What is particular to each listing.
struct ListingKind
{
    Listing listing;
    RecordFile file;
    bool backup;
    bool checksBettors;
    bool checksHorses;
    QString label;
    QString what;  // of the heading
    QString total; // unit in the row of the total; empty when there is no such row
    QStringList columns;
    RecordRow (*makeRow)(int, std::string_view, const Lookup &);
};

const ListingKind &kindOf(Listing listing)
{
    static const QStringList betColumns{u"Rec Nbr"_s,   u"Btr Nbr"_s,    u"Bettor"_s,
                                        u"Horse Nbr"_s, u"Horse Name"_s, u"Position"_s,
                                        u"Amount Bet"_s};
    static const QStringList bettorColumns{u"Rec Number"_s, u"Bettor Number"_s, u"Bettor Name"_s};
    static const ListingKind kinds[] = {
        {Listing::Bets, RecordFile::Bets, false, true, true, u"Bets Input"_s, u"  Bets"_s,
         u" Bets"_s, betColumns, betRow},
        {Listing::BackupBets, RecordFile::Bets, true, true, true, u"Bets Backup Input"_s,
         u"  Backup Bets"_s, u" Bets"_s, betColumns, betRow},
        {Listing::Multibets,
         RecordFile::Multibets,
         false,
         true,
         true,
         u"Multibets Input"_s,
         u"  Multi Bets"_s,
         u" Bets"_s,
         {u"Rec Nbr"_s, u"Btr Nbr"_s, u"Bettor"_s, u"Bet Type"_s, u"Horse Nbrs"_s, u"Amount Bet"_s},
         multibetRow},
        {Listing::Bettors,
         RecordFile::Bettors,
         false,
         false,
         false,
         u"Bettors input"_s,
         u"Bettors"_s,
         {},
         bettorColumns,
         bettorRow},
        {Listing::BackupBettors,
         RecordFile::Bettors,
         true,
         false,
         false,
         u"Bettors Backup input"_s,
         u"Backup Bettors"_s,
         {},
         bettorColumns,
         bettorRow},
        {Listing::Horses,
         RecordFile::Horses,
         false,
         false,
         false,
         u"Horses Input"_s,
         u"  Horses"_s,
         {},
         {u"Rec Number"_s, u"Post Number"_s, u"Horse Name"_s, u"Horse Number"_s},
         horseRow},
        {Listing::BackupHorses,
         RecordFile::Horses,
         true,
         false,
         false,
         u"Horses Backup Input"_s,
         u"  Backup Horses"_s,
         {},
         {u"Rec Number"_s, u"Horse Number"_s, u"Horse Name"_s},
         backupHorseRow},
    };
    return *std::ranges::find(kinds, listing, &ListingKind::listing);
}

// Each record line of a file with its number, from 1.
template<typename Use>
void forEachRecord(const QByteArray &bytes, const Use &use)
{
    std::string_view rest = view(bytes);
    std::string_view line;
    int number = 0;
    while (nextRecordLine(rest, line)) {
        if (!isBlankLine(line))
            use(++number, line);
    }
}

QByteArray readAs(Session &session, const QString &label, RecordFile file, int race,
                  RecordList &list, bool backup = false)
{
    return labelled(session, label, [&] {
        const QString path = backup ? twinFile(session, file, race) : mainFile(session, file, race);
        list.missingFile = QFileInfo(path).fileName();
        QByteArray bytes = readRecordFile(path);
        list.missingFile.clear();
        return bytes;
    });
}

Lookup readLookup(Session &session, const ListingKind &kind, RecordList &list)
{
    Lookup lookup;
    if (kind.checksHorses) {
        const int last =
            kind.listing == Listing::Multibets ? std::min(list.race + 2, raceCount) : list.race;
        lookup.races = last - list.race + 1;
        for (int race = list.race; race <= last; ++race) {
            lookup.horses[std::size_t(race - list.race)] =
                parseHorses(readAs(session, u"Horses Input"_s, RecordFile::Horses, race, list))
                    .horses;
        }
    }
    if (kind.checksBettors) {
        const auto table = BettorTable::parse(
            readAs(session, u"Bettors input"_s, RecordFile::Bettors, 0, list), 0);
        for (int slot = 1; slot <= table.slotCount(); ++slot) {
            if (table.slot(slot).isBettor())
                lookup.bettors.insert(table.slot(slot).number, table.slot(slot).name);
        }
    }
    return lookup;
}

void readRows(Session &session, const ListingKind &kind, RecordList &list)
{
    const Lookup lookup = readLookup(session, kind, list);
    const QByteArray bytes = readAs(session, kind.label, kind.file, list.race, list, kind.backup);
    forEachRecord(bytes, [&](int number, std::string_view line) {
        list.rows.append(kind.makeRow(number, line, lookup));
    });
    if (!kind.total.isEmpty()) {
        RecordRow total;
        total.cells = {u"Total Bets"_s, QString::number(list.rows.size()) + kind.total};
        total.isRecord = false;
        list.rows.append(total);
    }
}

} // namespace

int RecordList::damagedRows() const
{
    return int(std::ranges::count_if(rows, &RecordRow::isDamaged));
}

bool isRaceListing(Listing listing)
{
    return listing != Listing::None && listing != Listing::SavedCopies
           && kindOf(listing).file != RecordFile::Bettors;
}

RecordList listRecords(Session &session, Listing listing, int race)
{
    if (listing == Listing::SavedCopies)
        return listSavedCopies(session);
    const ListingKind &kind = kindOf(listing);
    RecordList list;
    list.listing = listing;
    list.race = isRaceListing(listing) ? race : 0;
    list.columns = kind.columns;
    list.heading = list.race ? " Race "_L1 + QString::number(race) + kind.what : kind.what;
    try {
        readRows(session, kind, list);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return list;
}

bool removeRecord(Session &session, const RecordList &list, const RecordRow &row)
{
    const ListingKind &kind = kindOf(list.listing);
    const int removed = row.cells.first().toInt();
    bool found = false;
    const auto withoutRecord = [&](const QByteArray &bytes) {
        QByteArray kept;
        found = false;
        forEachRecord(bytes, [&](int number, std::string_view line) {
            if (number == removed && line == view(row.line))
                found = true;
            else
                kept.append(line.data(), qsizetype(line.size())).append(recordEnd);
        });
        return found ? kept : bytes;
    };
    const QString base = recordFileName(kind.file);
    changeTwins(session, kind.file, list.race, withoutRecord, kind.label, base + " Output"_L1,
                base + "backup Output"_L1);
    return found;
}

Slip recordListSlip(const RecordList &list, const QList<QStringList> &rows)
{
    QList<int> widths;
    for (int column = 0; column < int(list.columns.size()); ++column) {
        qsizetype width = list.columns[column].size();
        for (const QStringList &cells : rows)
            width = std::max(width, cells.value(column).size());
        widths << int(width) + 1;
    }
    const auto padded = [&widths](const QStringList &cells) {
        QString line;
        for (int column = 0; column < int(widths.size()); ++column)
            line += leftColumn(cells.value(column), widths[column]);
        return line;
    };
    Slip slip{u"Courier New"_s, 8, false, {}, 2};
    slip.addLine(list.heading);
    slip.addLine(padded(list.columns));
    for (const QStringList &cells : rows)
        slip.addLine(padded(cells));
    return slip;
}
