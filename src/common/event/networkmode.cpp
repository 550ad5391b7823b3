#include "common/event/networkmode.h"

#include "common/event/eventfiles.h"
#include "common/event/eventlock.h"
#include "common/event/init.h"
#include "common/event/labelled.h"
#include "common/files/fileerror.h"
#include "common/files/recordfile.h"

#include <QtEndian>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype recordSize = 128;
constexpr int mostComputers = 0xffff;

QByteArray twoBytes(int value)
{
    QByteArray bytes(2, '\0');
    qToLittleEndian(quint16(value), bytes.data());
    return bytes;
}

QByteArray encodeString(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    return twoBytes(int(utf8.size())) + utf8;
}

// Takes a number, or a string, off the front of the record.
std::optional<int> takeNumber(QByteArrayView &rest)
{
    if (rest.size() < 2)
        return {};
    const int value = qFromLittleEndian<quint16>(rest.data());
    rest = rest.sliced(2);
    return value;
}

std::optional<QString> takeString(QByteArrayView &rest)
{
    const auto length = takeNumber(rest);
    if (!length || *length > rest.size())
        return {};
    const QString text = QString::fromUtf8(rest.first(*length));
    rest = rest.sliced(*length);
    return text;
}

QString markerPath(const Session &session, const QString &folder)
{
    return session.paths.toHost(folder + u"res"_s);
}

ShareRecord readMarker(Session &session, const QString &folder)
{
    return labelled(session, u"res input"_s, [&] {
        const auto record = decodeShareRecord(readRecordFile(markerPath(session, folder)));
        if (!record)
            throw FileError(ErrorNumber::InputPastEnd);
        return *record;
    });
}

void writeMarker(Session &session, const QString &folder, const ShareRecord &record)
{
    labelled(session, u"res output"_s,
             [&] { replaceRecordFile(markerPath(session, folder), encodeShareRecord(record)); });
}

// Rewrites the marker record with what \a change makes of it, under the share's lock: computers
// join at the same moment. \a fresh is the record of a share that has none.
void changeMarker(Session &session, const QString &folder, const std::optional<ShareRecord> &fresh,
                  const std::function<void(ShareRecord &)> &change)
{
    const auto lock = labelled(session, u"res input"_s,
                               [&] { return EventLock(session, session.paths.toHost(folder)); });
    ShareRecord record;
    try {
        record = readMarker(session, folder);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound || !fresh)
            throw;
        record = *fresh;
    }
    change(record);
    lock.demandHeld();
    writeMarker(session, folder, record);
}

} // namespace

QByteArray encodeShareRecord(const ShareRecord &record)
{
    const QByteArray bytes = encodeString(record.folder) + encodeString(record.master)
                             + twoBytes(std::clamp(record.computers, 0, mostComputers));
    return bytes.leftJustified(recordSize, '\0', true);
}

std::optional<ShareRecord> decodeShareRecord(const QByteArray &bytes)
{
    if (bytes.size() != recordSize)
        return {};
    QByteArrayView rest = bytes;
    const auto folder = takeString(rest);
    const auto master = folder ? takeString(rest) : std::nullopt;
    const auto computers = master ? takeNumber(rest) : std::nullopt;
    if (!computers || folder->isEmpty() || master->isEmpty())
        return {};
    return ShareRecord{*folder, *master, *computers};
}

QString networkNameOf(const QString &hostName)
{
    return hostName.section(u'.', 0, 0).toUpper().left(15);
}

QString shareFolder(const QString &computer)
{
    return u"\\\\"_s + computer + u"\\Tshare\\"_s;
}

bool isShareMissing(const FileError &error)
{
    switch (error.number()) {
    case ErrorNumber::BadFileName:
    case ErrorNumber::PathNotFound:
    case ErrorNumber::DeviceUnavailable:
    case ErrorNumber::DiskNotReady:
        return true;
    default:
        return false;
    }
}

QString startAsMaster(Session &session, const QString &computer)
{
    Settings &settings = session.settings;
    const QString folder = shareFolder(computer);
    settings.eventDirectory = folder;
    settings.networkMode = NetworkMode::Off;
    settings.masterComputer = computer;
    changeMarker(session, folder, ShareRecord{folder, computer, 1}, [](ShareRecord &) {});
    const QString note = createMissingEventFiles(session);
    settings.networkMode = NetworkMode::Master;
    return note;
}

QString startAsSatellite(Session &session, const QString &master)
{
    Settings &settings = session.settings;
    const QString localDirectory = settings.eventDirectory;
    const QString folder = shareFolder(master);
    settings.networkMode = NetworkMode::Off;
    try {
        changeMarker(session, folder, {}, [](ShareRecord &record) { ++record.computers; });
        settings.eventDirectory = folder;
        settings.masterComputer = master;
        const QString note = createMissingEventFiles(session);
        settings.networkMode = NetworkMode::Satellite;
        return note;
    } catch (const FileError &) {
        settings.eventDirectory = localDirectory;
        throw;
    }
}

bool endNetworkMode(Session &session)
{
    Settings &settings = session.settings;
    const QString folder = settings.eventDirectory;
    const NetworkMode mode = settings.networkMode;
    settings.networkMode = NetworkMode::Off;
    settings.eventDirectory = defaultEventDirectory(settings);
    try {
        saveInit(session);
    } catch (const FileError &) {
        settings.networkMode = mode;
        settings.eventDirectory = folder;
        throw;
    }
    bool shareReached = true;
    try {
        changeMarker(session, folder, {}, [](ShareRecord &record) {
            record.computers = std::max(0, record.computers - 1);
        });
    } catch (const FileError &) {
        shareReached = false;
    }
    createMissingEventFiles(session);
    return shareReached;
}
