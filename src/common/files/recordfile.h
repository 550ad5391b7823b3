#pragma once

#include "common/files/hostfile.h"
#include "common/files/recordlines.h"

#include <QByteArray>
#include <QString>

#include <optional>

#include <optional>

// Reading and writing whole record files. Paths are this computer's own. Everything here throws
// FileError; a file that could not be replaced is still the old one, whole.

// The whole file. 76 when its folder is missing, 53 when the file is, 75 when it is no ordinary
// file, 7 when it is larger than a record file can be.
QByteArray readRecordFile(const QString &path, Links links = Links::Followed);

// The same, or nothing when the file is missing; a missing folder is still 76.
std::optional<QByteArray> readIfThere(const QString &path, Links links = Links::Followed);

// Replaces the file: temporary file in the same folder, flushed to disk, renamed over it. There is
// no other way: where that fails, the old file stays.
void replaceRecordFile(const QString &path, const QByteArray &bytes);

// The new content of a file, on the disk next to the old one, which it replaces when it is
// committed; without that it goes again.
class Replacement
{
public:
    Replacement(const QString &path, const QByteArray &bytes);
    ~Replacement();
    Q_DISABLE_COPY_MOVE(Replacement)
    void commit();

private:
    QString m_path; // of the file itself, when a link leads to it
    QString m_made; // the new content; empty once it is committed
};

// Replaces a file that cannot be read, whoever may write it.
void replaceUnreadable(const QString &path, const QByteArray &bytes);

// Appends whole lines to a file of this \a size and flushes them to disk. On failure what was
// written is cut off again; when that fails too, the error's aftermath is Unsure.
void appendSafely(HostFile &file, qint64 size, const QByteArray &lines);

// Creates a file that is missing, whole with these bytes. False, and nothing changed, when there is
// one by that name: whatever happens at the same moment, it is never replaced.
bool createRecordFile(const QString &path, const QByteArray &bytes = {});

// Deletes the file; one that is missing is no error.
void deleteRecordFile(const QString &path);

// Makes the folder and those above it; one that is there already is no error.
void makeFolder(const QString &path);

// A text field as it stands in a record: in quotes, UTF-8, with quotes and line breaks of the text
// turned into apostrophes and blanks, because the format has no escape.
QByteArray quotedField(const QString &text);

// The text with quotes turned into apostrophes and line breaks into blanks: what a record can hold.
QString storableText(const QString &text);

// The text of a field: UTF-8, or Windows-1252 where it is not valid UTF-8.
QString fieldText(const RecordField &field);
QString decodeText(std::string_view bytes);

inline std::string_view view(const QByteArray &bytes)
{
    return {bytes.constData(), size_t(bytes.size())};
}

// The end of every line written.
inline constexpr char recordEnd[] = "\r\n";
