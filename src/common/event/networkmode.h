#pragma once

#include "common/event/session.h"
#include "common/files/fileerror.h"

#include <optional>

// Network mode: every computer works on the record files in the master computer's shared folder.

// The marker record `res` in the shared folder.
struct ShareRecord
{
    QString folder;    // "\\NAME\Tshare\"
    QString master;    // the master computer's name
    int computers = 0; // that have joined, the master among them

    bool operator==(const ShareRecord &) const = default;
};

// One record of 128 bytes: two strings, each a 2-byte little-endian length and its UTF-8 bytes,
// then the number in 2 bytes, the rest zero. What does not decode is damaged.
QByteArray encodeShareRecord(const ShareRecord &record);
std::optional<ShareRecord> decodeShareRecord(const QByteArray &bytes);

// The host name up to its first dot, upper case, at most 15 characters.
QString networkNameOf(const QString &hostName);

// "\\NAME\Tshare\".
QString shareFolder(const QString &computer);

// True for the errors that an unreachable shared folder is told by: a bad name, a missing folder or
// device.
bool isShareMissing(const FileError &error);

// Makes the share of \a computer, this one, the event directory and writes its marker record (1
// computer when it is new, else as it was); missing record files are created. On failure the error
// is thrown, the directory stays the share and network mode is off. Returns a note as
// createMissingEventFiles does.
QString startAsMaster(Session &session, const QString &computer);

// Joins the share of the computer \a master, counting one more. On failure the event directory is
// what it was, network mode is off and the error is thrown.
QString startAsSatellite(Session &session, const QString &master);

// Leaves network mode: counts one less in the share, goes back to the local event directory and
// rewrites Init. Goes local even when the share is gone; the result is false then. When Init cannot
// be written, network mode goes on as it was.
bool endNetworkMode(Session &session);
