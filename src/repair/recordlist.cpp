#include "repair/recordlist.h"

#include "common/event/labelled.h"
#include "common/event/twinfiles.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "common/print/format.h"
#include "repair/savedcopies.h"

#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

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
    RecordRow (*makeRow)(int, std::string_view, RecordLookup &);
    bool (*isGood)(std::string_view, const RecordLookup &) = nullptr; // null where rows are few
};

const ListingKind &kindOf(Listing listing)
{
    static const QStringList betColumns{u"Rec Nbr"_s,   u"Btr Nbr"_s,    u"Bettor"_s,
                                        u"Horse Nbr"_s, u"Horse Name"_s, u"Position"_s,
                                        u"Amount Bet"_s};
    static const QStringList bettorColumns{u"Rec Number"_s, u"Bettor Number"_s, u"Bettor Name"_s};
    static const ListingKind kinds[] = {
        {Listing::Bets, RecordFile::Bets, false, true, true, u"Bets Input"_s, u"  Bets"_s,
         u" Bets"_s, betColumns, betRow, isGoodBet},
        {Listing::BackupBets, RecordFile::Bets, true, true, true, u"Bets Backup Input"_s,
         u"  Backup Bets"_s, u" Bets"_s, betColumns, betRow, isGoodBet},
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

QByteArray readAs(Session &session, const QString &label, RecordFile file, int race,
                  RecordList &list, bool backup = false)
{
    return labelled(session, label, [&] {
        const QString path = backup ? twinFile(session, file, race) : mainFile(session, file, race);
        list.missingFile = QFileInfo(path).fileName();
        QByteArray bytes = backup ? readRecordFile(path) : readMainFile(session, file, race, label);
        list.missingFile.clear();
        return bytes;
    });
}

RecordLookup readLookup(Session &session, const ListingKind &kind, RecordList &list)
{
    RecordLookup lookup;
    if (kind.checksHorses) {
        const int last =
            kind.listing == Listing::Multibets ? std::min(list.race + 2, raceCount) : list.race;
        lookup.races = last - list.race + 1;
        for (int race = list.race; race <= last; ++race) {
            const auto leg = std::size_t(race - list.race);
            try {
                lookup.horses[leg] =
                    parseHorses(readAs(session, u"Horses Input"_s, RecordFile::Horses, race, list))
                        .horses;
            } catch (const FileError &error) {
                // Those of a later race are only for the bets that run over it.
                if (leg == 0 || error.number() != ErrorNumber::FileNotFound)
                    throw;
                lookup.isHorsesMissing[leg] = true;
                list.missingHorses << std::exchange(list.missingFile, QString());
            }
        }
    }
    if (kind.checksBettors) {
        const auto table = BettorTable::parse(
            readAs(session, u"Bettors input"_s, RecordFile::Bettors, 0, list), 0);
        for (int slot = 1; slot <= table.slotCount(); ++slot) {
            if (table.slot(slot).isBettor() && !lookup.bettors.contains(table.slot(slot).number))
                lookup.bettors.insert(table.slot(slot).number, table.slot(slot).name);
        }
    }
    return lookup;
}

void readRows(Session &session, const ListingKind &kind, RecordList &list)
{
    const auto lookup = std::make_shared<RecordLookup>(readLookup(session, kind, list));
    const QByteArray bytes = readAs(session, kind.label, kind.file, list.race, list, kind.backup);
    forEachRecord(view(bytes), [&](std::string_view line) {
        const int number = int(list.rows.size()) + 1;
        if (kind.isGood && kind.isGood(line, *lookup))
            list.rows.append({number, {}, QByteArray(line.data(), qsizetype(line.size()))});
        else
            list.rows.append(kind.makeRow(number, line, *lookup));
    });
    list.lateCells = [lookup, makeRow = kind.makeRow](const RecordRow &row) {
        return makeRow(row.number, view(row.line), *lookup).cells;
    };
    if (kind.file == RecordFile::Horses)
        list.damage = parseHorses(bytes).damage();
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

QStringList RecordList::cells(const RecordRow &row) const
{
    const bool isLate = row.isRecord && row.cells.size() < columns.size();
    return isLate && lateCells ? lateCells(row) : row.cells;
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
    const auto removed = std::size_t(row.number - 1);
    const auto withoutRecord = [&](const QByteArray &bytes) -> std::optional<QByteArray> {
        std::size_t place = 0;
        bool found = false;
        forEachRecord(view(bytes), [&](std::string_view line) {
            found |= place++ == removed && line == view(row.line);
        });
        if (!found)
            return {};
        return QByteArray::fromStdString(recordsWithout(view(bytes), {removed}));
    };
    const QString base = recordFileName(kind.file);
    return changeTwins(session, kind.file, list.race, withoutRecord, kind.label,
                       base + " Output"_L1, base + "backup Output"_L1);
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
