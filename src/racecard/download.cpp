#include "racecard/download.h"

#include "common/event/filebatch.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/recordfile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

// "Race2, Race5" for the races that already hold bets or multibets.
QString racesWithBets(const Session &session)
{
    QStringList races;
    for (int race = 1; race <= raceCount; ++race) {
        if (QFileInfo(mainFile(session, RecordFile::Bets, race)).size() > 0
            || QFileInfo(mainFile(session, RecordFile::Multibets, race)).size() > 0)
            races.append(raceName(race).trimmed());
    }
    return races.join(u", "_s);
}

// A page may hold numbers, commas and even END, but no card begins with a tag.
bool isPage(const QByteArray &text)
{
    QByteArray start = text.trimmed();
    if (start.startsWith("\xef\xbb\xbf"))
        start = start.sliced(3).trimmed();
    return start.startsWith('<');
}

} // namespace

QString downloadAddress(Session &session)
{
    const QByteArray bytes = labelled(session, u"Download input"_s, [&] {
        return readIfThere(
                   session.paths.toHost(defaultEventDirectory(session.settings) + u"Download"_s))
            .value_or(QByteArray());
    });
    QString address;
    std::vector<RecordField> fields;
    forEachRecord(view(bytes), [&](std::string_view line) {
        if (address.isEmpty() && splitRecord(line, fields))
            address = fieldText(fields[0]).trimmed();
    });
    return address.isEmpty() ? QStringLiteral(TRELAWN_DOWNLOAD_URL) : address;
}

PublishedCard readDownload(const QByteArray &text)
{
    if (isPage(text))
        return {};
    const PublishedCard card = parsePostboard(postboardRecord(text));
    return card.closedRaces > 0 ? card : PublishedCard();
}

QString saveDownload(Session &session, const QByteArray &text)
{
    const QString postboard = labelled(session, u"postboard output"_s, [&] {
        return session.paths.toHost(session.settings.eventDirectory + u"postboard"_s);
    });
    const PublishedCard card = parsePostboard(postboardRecord(text));
    FileBatch batch(session, u"postboard output"_s);
    batch.replaceFile(postboard, postboardRecord(text), u"postboard output"_s);
    for (int race = 1; race <= raceCount; ++race) {
        const QByteArray records = horseRecords(card.races[std::size_t(race - 1)]);
        const auto here = labelled(session, u"Horses input"_s, [&] {
            return readIfThere(mainFile(session, RecordFile::Horses, race));
        });
        if (here != records)
            batch.replaceMain(RecordFile::Horses, race, records, u"Horses output"_s);
    }
    batch.commit();

    QStringList notes;
    if (card.openRace > 0)
        notes << u"The download ends within Race"_s + QString::number(card.openRace)
                     + u": check that it is complete"_s;
    if (card.damaged > 0)
        notes << u"Lines of the download that could not be read: "_s
                     + QString::number(card.damaged);
    if (const QString races = racesWithBets(session); !races.isEmpty())
        notes << u"Bets are already placed on "_s + races + u": check the horses there"_s;
    return notes.join(u'\n');
}
