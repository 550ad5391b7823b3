#include "repair/savedcopies.h"

#include "common/event/filebatch.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QDir>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// Name, race number and time of a copy: "Betsbackup Race3 2026-05-02 20.15.00.000-2".
QRegularExpressionMatch matchCopyName(const QString &name)
{
    static const QRegularExpression pattern(
        u"^((Bettors|Horses|Bets|Multibets)(?:backup)?(?: Race(\\d{1,2}))?) "
        "(\\d{4}-\\d\\d-\\d\\d) (\\d\\d)\\.(\\d\\d)\\.(\\d\\d)\\.\\d{3}(?:-\\d+)?$"_s);
    return pattern.match(name);
}

// The copies in the folder with the time of each, the newest first.
QList<std::pair<QString, QFileInfo>> copiesByTime(const QString &folder)
{
    QList<std::pair<QString, QFileInfo>> copies;
    for (const QFileInfo &info : QDir(folder).entryInfoList(QDir::Files)) {
        const auto match = matchCopyName(info.fileName());
        if (match.hasMatch()) {
            copies.append({match.captured(4) + u' ' + match.captured(5) + u':' + match.captured(6)
                               + u':' + match.captured(7),
                           info});
        }
    }
    std::ranges::stable_sort(copies, std::greater(), &std::pair<QString, QFileInfo>::first);
    return copies;
}

} // namespace

RecordList listSavedCopies(Session &session)
{
    RecordList list;
    list.listing = Listing::SavedCopies;
    list.heading = u"Saved copies"_s;
    list.columns = {u"Number"_s, u"File"_s, u"Saved at"_s, u"Bytes"_s, u"Records"_s};
    const QString folder = savedFolder(session);
    list.lateCells = [folder](const RecordRow &row) {
        QStringList cells = row.cells;
        try {
            const QString copy = folder + u'/' + QString::fromUtf8(row.line);
            cells << QString::number(countRecords(view(readRecordFile(copy))));
        } catch (const FileError &error) {
            cells << errorDescription(error.number());
        }
        return cells;
    };
    labelled(session, u"Saved input"_s, [&] {
        for (const auto &[time, info] : copiesByTime(folder)) {
            RecordRow row;
            row.number = int(list.rows.size()) + 1;
            row.cells = {QString::number(row.number), matchCopyName(info.fileName()).captured(1),
                         time, QString::number(info.size())};
            row.line = info.fileName().toUtf8();
            list.rows.append(row);
        }
    });
    return list;
}

std::optional<SavedOrigin> originOf(const QString &copyName)
{
    const auto match = matchCopyName(copyName);
    if (!match.hasMatch())
        return {};
    const QString base = match.captured(2);
    const int race = match.captured(3).toInt();
    const bool wholeEvent = base == "Bettors"_L1;
    if (wholeEvent ? race != 0 : race < 1 || race > raceCount)
        return {};
    const RecordFile file = wholeEvent            ? RecordFile::Bettors
                            : base == "Horses"_L1 ? RecordFile::Horses
                            : base == "Bets"_L1   ? RecordFile::Bets
                                                  : RecordFile::Multibets;
    return SavedOrigin{file, race, wholeEvent ? base : base + raceName(race)};
}

void putBackCopy(Session &session, const QString &copyName)
{
    const auto origin = originOf(copyName);
    const QByteArray bytes = labelled(session, u"Saved input"_s, [&] {
        if (!origin)
            throw FileError(ErrorNumber::BadFileName);
        return readRecordFile(savedFolder(session) + u'/' + copyName);
    });
    FileBatch batch(session, u"Saved output"_s);
    batch.replaceTwins(origin->file, origin->race, bytes, origin->name + " output"_L1,
                       origin->name + " backup output"_L1);
    batch.commit();
}
