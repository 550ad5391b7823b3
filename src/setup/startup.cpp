#include "setup/startup.h"

#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int designedWidth = 1024;
constexpr int unsetFontIndex = 8;

void saveStartInit(Session &session)
{
    saveInit(session, InitWriter::Other, u"Init open-Setup"_s, u"Init output-Setup"_s);
}

} // namespace

bool isInitDriveAnswer(const QString &answer)
{
    return answer >= "C"_L1 && answer <= "E"_L1;
}

bool isDisplayTooNarrow(int physicalWidth)
{
    return physicalWidth < designedWidth;
}

void completeSettings(Settings &settings)
{
    if (settings.roundingIndex < 1)
        settings.roundingIndex = 1;
    if (settings.currentRace < 1)
        settings.currentRace = 1;
    if (settings.fontIndex < 1)
        settings.fontIndex = unsetFontIndex;
}

bool readOrCreateInit(Session &session)
{
    try {
        const bool whole = loadInit(session);
        completeSettings(session.settings);
        return whole;
    } catch (const FileError &error) {
        setFirstInit(session);
        completeSettings(session.settings);
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    saveStartInit(session);
    return true;
}

void sizeTables(Session &session)
{
    session.bettors = BettorTable(session.settings.bettorLimit);
}

QString resetEventDirectory(Session &session, bool initWasDamaged)
{
    Settings &settings = session.settings;
    const QString last = settings.eventDirectory;
    settings.eventDirectory = defaultEventDirectory(settings);
    if (last.compare(settings.eventDirectory, Qt::CaseInsensitive) != 0)
        settings.lastEventDirectory = last;
    QStringList notes;
    if (session.files.othersAreOpen)
        notes +=
            u"TRELAWN is open more than once on this computer: what one window shows may be old."_s;
    if (initWasDamaged) {
        const QString copy = labelled(session, u"Init open-Setup"_s,
                                      [&] { return keepInSaved(session, initFile(session)); });
        if (!copy.isEmpty())
            notes += "The damaged Init was kept in Saved as "_L1 + copy;
    }
    saveStartInit(session);
    return notes.join(u'\n');
}
