#include "setup/restore.h"

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

int recordCount(const QByteArray &bytes)
{
    std::string_view rest = view(bytes);
    std::string_view line;
    int count = 0;
    while (nextRecordLine(rest, line))
        count += isBlankLine(line) ? 0 : 1;
    return count;
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
    const QByteArray twin = labelled(session, recordFileName(file) + u"backup input"_s,
                                     [&] { return readRecordFile(twinFile(session, file, race)); });
    return labelled(session, recordFileName(file) + u" output"_s, [&] {
        const QString main = mainFile(session, file, race);
        const bool existed = QFileInfo::exists(main);
        const int before = existed ? recordCount(readRecordFile(main)) : 0;
        keepInSaved(session, main);
        replaceRecordFile(main, twin);
        return QString(QFileInfo(main).fileName() + u": "_s + QString::number(before)
                       + u" records before, "_s + QString::number(recordCount(twin)) + u" now"_s);
    });
}
