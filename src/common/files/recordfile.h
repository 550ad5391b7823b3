#pragma once

#include "common/files/recordlines.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringView>

// Reading and writing whole record files. Paths are this computer's own. Everything here throws
// FileError; a file that could not be replaced is still the old one, whole.

// The whole file. 76 when its folder is missing, 53 when the file is.
QByteArray readRecordFile(const QString &path);

// Replaces the file: temporary file in the same folder, flushed to disk, renamed over it.
void replaceRecordFile(const QString &path, const QByteArray &bytes);

// A file's path and what it is to hold.
struct NamedBytes
{
    QString path;
    QByteArray bytes;
};

// Replaces several files: all are written to temporary files and flushed before the first is
// renamed over its old one, so that a full or failing disk changes none of them.
void replaceRecordFiles(const QList<NamedBytes> &files);

// Appends whole lines in one write and flushes them to disk. A last line without its end gets one
// first; on failure what was half written is cut off again.
void appendRecords(const QString &path, const QByteArray &lines);

// Cuts the end \a lines off a file again, if it still ends with them. Returns whether it did.
bool cutRecords(const QString &path, const QByteArray &lines);

// Creates an empty file; one that is there stays as it is.
void createRecordFile(const QString &path);

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
