#include "practice/practice.h"

#include "common/event/eventfiles.h"
#include "common/event/eventlock.h"
#include "common/event/eventrecords.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "practice/madeevent.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

const Session &realOf(const Session &session)
{
    return session.isPractice() ? *session.realEvent : session;
}

// A session of its own on the event in the folder. What the operator said about this computer
// holds there too.
Session sessionIn(const QString &folder, const Session &session)
{
    const Session &real = realOf(session);
    Session practice;
    practice.paths = HostPaths::sealed(folder);
    practice.realEvent = std::make_shared<const Session>(real);
    practice.files = real.files;
    practice.files.unsure.reset();
    practice.files.journals.reset();
    Settings &settings = practice.settings;
    settings.started = true;
    settings.initDrive = u"C:"_s;
    settings.fontIndex = std::max(1, real.settings.fontIndex);
    settings.roundingIndex = std::max(1, real.settings.roundingIndex);
    settings.receiptFontSize = real.settings.receiptFontSize;
    settings.receiptPrinting = real.settings.receiptPrinting;
    settings.printerAttached = real.settings.printerAttached;
    setFirstInit(practice);
    return practice;
}

void removeFolder(const QString &folder)
{
    if (QFileInfo::exists(folder) && !QDir(folder).removeRecursively())
        throw FileError(ErrorNumber::PathFileAccess);
}

void renameFolder(const QString &from, const QString &to)
{
    if (!QDir().rename(from, to))
        throw FileError(ErrorNumber::PathFileAccess);
}

// The club's own guide, and the address of its race cards, serve in practice too.
void takeAlong(const Session &real, const Session &practice)
{
    const auto pathOf = [](const Session &session, const QString &name) {
        return session.paths.toHost(defaultEventDirectory(session.settings) + name);
    };
    for (const QString &name : {u"Horsehelp.txt"_s, u"Download"_s})
        QFile::copy(pathOf(real, name), pathOf(practice, name));
}

// The event bears its name once it is whole, and the old one is there until then: a power cut
// leaves none that is half made.
void makePractice(Session &session, const Progress &progress)
{
    const QString folder = practiceFolder(session);
    const QString fresh = folder + "-new"_L1;
    const QString old = folder + "-old"_L1;
    removeFolder(fresh);
    removeFolder(old);
    Session making = sessionIn(fresh, session);
    makeEventOfGuests(making, lessonRace, progress);
    takeAlong(realOf(session), making);
    if (QFileInfo::exists(folder))
        renameFolder(folder, old);
    renameFolder(fresh, folder);
    QDir(old).removeRecursively(); // what stays of it goes the next time
}

void turnTo(Session &session)
{
    Session practice = sessionIn(practiceFolder(session), session);
    const Settings first = practice.settings;
    Settings &settings = practice.settings;
    loadInit(practice);
    settings.eventDirectory = first.eventDirectory;
    settings.currentRace = std::max(1, settings.currentRace);
    if (settings.fontIndex == 0)
        settings.fontIndex = first.fontIndex;
    if (settings.roundingIndex == 0)
        settings.roundingIndex = first.roundingIndex;
    settings.receiptPrinting = settings.receiptsPrint() && first.printerAttached;
    createMissingEventFiles(practice);
    practice.bettors = readBettors(practice);
    session = practice;
}

// Nobody else on this computer makes or opens the event meanwhile.
void turnToPractice(Session &session, bool afresh, const Progress &progress)
{
    labelled(session, u"Practice"_s, [&] {
        const QString dataFolder = QFileInfo(practiceFolder(session)).path();
        makeFolder(dataFolder);
        Session locking = realOf(session);
        const EventLock lock(locking, dataFolder);
        if (afresh || !isPracticeMade(session))
            makePractice(session, progress);
        turnTo(session);
    });
}

} // namespace

QString practiceFolder(const Session &session)
{
    return realOf(session).paths.dataFolder() + "/practice"_L1;
}

bool isPracticeMade(const Session &session)
{
    return QFileInfo(initFile(sessionIn(practiceFolder(session), session))).isFile();
}

void enterPractice(Session &session, const Progress &progress)
{
    if (!session.isPractice())
        turnToPractice(session, false, progress);
}

void beginPracticeAgain(Session &session, const Progress &progress)
{
    turnToPractice(session, true, progress);
}

void leavePractice(Session &session)
{
    if (session.isPractice())
        session = Session(*session.realEvent);
}
