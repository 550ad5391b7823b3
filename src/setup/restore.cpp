#include "setup/restore.h"

#include "common/event/filebatch.h"
#include "common/event/labelled.h"
#include "common/files/recordfile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

RestoreChoice choiceOf(RecordFile file, const QString &nameInConfirmation)
{
    const QString base = recordFileName(file);
    return {file, u"Replace "_s + base + u" with "_s + base + u"backup?"_s,
            nameInConfirmation + u" file replaced with "_s + base + u"backup file"_s};
}

} // namespace

std::array<RestoreChoice, 4> restoreChoices()
{
    return {choiceOf(RecordFile::Bets, u"Bet"_s), choiceOf(RecordFile::Horses, u"Horses"_s),
            choiceOf(RecordFile::Bettors, u"Bettors"_s),
            choiceOf(RecordFile::Multibets, u"Multibets"_s)};
}

QString restoreFromTwin(Session &session, RecordFile file)
{
    const int race = session.settings.currentRace;
    const QString label = recordFileName(file) + u" output"_s;
    FileBatch batch(session, label);
    const QByteArray twin = labelled(session, recordFileName(file) + u"backup input"_s,
                                     [&] { return readRecordFile(twinFile(session, file, race)); });
    const QString main = mainFile(session, file, race);
    const QString name = QFileInfo(main).fileName();
    const QString now = QString::number(countRecords(view(twin))) + u" now"_s;
    QByteArray before;
    try {
        before = readIfThere(main).value_or(QByteArray());
    } catch (const FileError &) {
        // Being unreadable is what a file is restored for.
        labelled(session, label, [&] { replaceUnreadable(main, twin); });
        return name + u" could not be read before: "_s + now;
    }
    batch.replaceMain(file, race, twin, label);
    batch.commit();
    return name + u": "_s + QString::number(countRecords(view(before))) + u" records before, "_s
           + now;
}
