#pragma once

#include "common/files/fileerror.h"

#include <QByteArray>
#include <QString>

#include <memory>

// Whether a file may be reached through a link: in the event's own folders it may, on a thumb drive
// or in a folder to import from, which others filled, it may not.
enum class Links { Followed, Refused };

// A record file is never larger; what is larger is another file, and reading it would end in a
// crash.
inline constexpr qint64 largestFile = 64LL << 20; // bytes

// An ordinary file that is open as long as this object lives, without a buffer: what a function
// does is on its way when it returns, in one call to the system, because on a slow share calls are
// what takes the time. Everything throws FileError: 76 for a missing folder, 53 for a missing
// file, 75 for a folder, a device, a pipe or a refused link in its place. Opening waits
// for nothing but another program that has the file to itself: about 2 s, then 70.
class HostFile
{
public:
    enum class Mode { Read, Append }; // Append reads too; the file must be there

    explicit HostFile(const QString &path, Mode mode, Links links = Links::Followed);
    // A new file, open for appending; none when there is one by that name, which stays as it is.
    static std::unique_ptr<HostFile> createNew(const QString &path);
    ~HostFile();
    Q_DISABLE_COPY_MOVE(HostFile)

    // The size in bytes now.
    qint64 size() const;

    // At most \a count bytes from \a offset on, fewer at the end of the file.
    QByteArray read(qint64 offset, qint64 count) const;

    // The whole file. 7 above largestFile.
    QByteArray readAll() const;

    // Writes behind the end. On failure a part may have been written.
    void append(const QByteArray &bytes);

    // Hands what was written to the disk itself.
    void flush();

    // Cuts the file to a size again, on the disk too; false when that fails.
    bool cutTo(qint64 size);

private:
    explicit HostFile(qintptr handle)
        : m_handle(handle)
    {
    }

    qintptr m_handle = -1;
};

// The error of a file that could not be opened for this reason, as far as nothing else is wrong
// with the path.
FileError openError(const QString &path, ErrorNumber reason);
