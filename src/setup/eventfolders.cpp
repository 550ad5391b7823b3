#include "setup/eventfolders.h"

#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QString withBackslash(const QString &folder)
{
    return folder.endsWith(u'\\') ? folder : folder + u'\\';
}

void demandReady(const Session &session, const QString &folder, ErrorNumber otherwise)
{
    const QFileInfo info(session.paths.toHost(folder));
    if (!info.isDir())
        throw FileError(otherwise);
    if (!info.isReadable())
        throw FileError(ErrorNumber::PermissionDenied);
}

} // namespace

QString lastDirectoryNote(const Settings &settings)
{
    const QString &last = settings.lastEventDirectory;
    return last.isEmpty() ? QString() : QString("Last event directory: "_L1 + last);
}

void chooseDrive(Session &session, const QString &drive)
{
    const QString root = withBackslash(drive);
    labelled(session, u"Directory-Drive"_s,
             [&] { demandReady(session, root, ErrorNumber::DiskNotReady); });
    session.settings.eventDirectory = root;
    session.settings.lastEventDirectory.clear();
}

void chooseFolder(Session &session, const QString &folder)
{
    labelled(session, u"Directory-Open"_s,
             [&] { demandReady(session, folder, ErrorNumber::PathNotFound); });
    const QString before = session.settings.eventDirectory;
    session.settings.eventDirectory = withBackslash(folder);
    try {
        saveInit(session, InitWriter::Directory, u"Init output-Directory"_s,
                 u"Init output-Directory"_s);
    } catch (const FileError &) {
        session.settings.eventDirectory = before;
        throw;
    }
    session.settings.lastEventDirectory.clear();
}

void createFolder(Session &session, const QString &parent, const QString &name)
{
    labelled(session, u"Directory-New"_s, [&] {
        if (!isPortableName(name))
            throw FileError(ErrorNumber::BadFileName);
        const QString path = session.paths.toHost(withBackslash(parent) + name);
        if (QFileInfo::exists(path))
            throw FileError(ErrorNumber::PathFileAccess);
        demandReady(session, parent, ErrorNumber::PathNotFound);
        forgetSystemError();
        if (!QDir().mkdir(path))
            throw FileError(systemError());
    });
    saveInit(session, InitWriter::Directory, u"Init output-Directory"_s,
             u"Init output-Directory"_s);
}
