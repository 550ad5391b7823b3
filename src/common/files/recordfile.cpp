#include "common/files/recordfile.h"

#include "common/files/fileerror.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringDecoder>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// A missing folder is told before a missing file, a folder in the file's place before a refusal.
[[noreturn]] void throwOpenError(const QString &path, int systemError)
{
    const QFileInfo info(path);
    if (!info.dir().exists())
        throw FileError(ErrorNumber::PathNotFound);
    if (info.isDir())
        throw FileError(ErrorNumber::PathFileAccess);
    throw FileError(errorFromSystem(systemError));
}

void openOrThrow(QFile &file, QIODevice::OpenMode mode)
{
    errno = 0;
    if (QFileInfo(file.fileName()).isDir() || !file.open(mode))
        throwOpenError(file.fileName(), lastSystemError());
}

bool lacksLineEnd(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
        return false;
    file.seek(file.size() - 1);
    return file.read(1) != "\n";
}

// Writes the whole new content next to the old one and flushes it to disk.
void writeNewContent(QSaveFile &file, const QByteArray &bytes)
{
    if (QFileInfo(file.fileName()).isDir())
        throw FileError(ErrorNumber::PathFileAccess);
    errno = 0;
    if (!file.open(QIODevice::WriteOnly))
        throwOpenError(file.fileName(), lastSystemError());
    errno = 0;
    const bool written = file.write(bytes) == bytes.size() && file.flush();
    if (!written) {
        const int systemError = lastSystemError();
        file.cancelWriting();
        throw FileError(errorFromSystem(systemError));
    }
    try {
        flushToDisk(file);
    } catch (const FileError &) {
        file.cancelWriting();
        throw;
    }
}

void commitOrThrow(QSaveFile &file)
{
    errno = 0;
    if (!file.commit())
        throw FileError(errorFromSystem(lastSystemError()));
    flushFolder(QFileInfo(file.fileName()).path());
}

// What the bytes 0x80 to 0x9F mean in Windows-1252; five of them mean nothing.
constexpr char16_t windows1252[32] = {
    0x20ac, 0xfffd, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xfffd, 0x017d, 0xfffd, 0xfffd, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0xfffd, 0x017e, 0x0178,
};

} // namespace

QByteArray readRecordFile(const QString &path)
{
    QFile file(path);
    openOrThrow(file, QIODevice::ReadOnly);
    errno = 0;
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw FileError(lastSystemError() ? errorFromSystem(lastSystemError())
                                          : ErrorNumber::DeviceIoError);
    return bytes;
}

void replaceRecordFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    writeNewContent(file, bytes);
    commitOrThrow(file);
}

void replaceRecordFiles(const QList<NamedBytes> &files)
{
    std::vector<std::unique_ptr<QSaveFile>> written;
    for (const NamedBytes &file : files) {
        written.push_back(std::make_unique<QSaveFile>(file.path));
        writeNewContent(*written.back(), file.bytes);
    }
    for (const auto &file : written)
        commitOrThrow(*file);
}

void appendRecords(const QString &path, const QByteArray &lines)
{
    if (lines.isEmpty())
        return;
    const QByteArray bytes = lacksLineEnd(path) ? recordEnd + lines : lines;
    QFile file(path);
    openOrThrow(file, QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
    const qint64 before = file.size();
    errno = 0;
    const qint64 written = file.write(bytes);
    if (written != bytes.size()) {
        const int systemError = lastSystemError();
        file.resize(before);
        throw FileError(systemError ? errorFromSystem(systemError) : ErrorNumber::DiskFull);
    }
    try {
        flushToDisk(file);
    } catch (const FileError &) {
        file.resize(before);
        throw;
    }
}

bool cutRecords(const QString &path, const QByteArray &lines)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        return false;
    const qint64 start = file.size() - lines.size();
    return start >= 0 && file.seek(start) && file.readAll() == lines && file.resize(start);
}

void createRecordFile(const QString &path)
{
    QFile file(path);
    openOrThrow(file, QIODevice::WriteOnly | QIODevice::Append);
}

void deleteRecordFile(const QString &path)
{
    errno = 0;
    if (QFile::remove(path) || !QFileInfo::exists(path)) {
        flushFolder(QFileInfo(path).path());
        return;
    }
    const int systemError = lastSystemError();
    throw FileError(systemError ? errorFromSystem(systemError) : ErrorNumber::PathFileAccess);
}

void makeFolder(const QString &path)
{
    errno = 0;
    if (QDir().mkpath(path))
        return;
    throw FileError(QFileInfo::exists(path) ? ErrorNumber::PathFileAccess
                                            : errorFromSystem(lastSystemError()));
}

QString storableText(const QString &text)
{
    QString stored = text;
    stored.replace(u'"', u'\'');
    stored.replace("\r\n"_L1, " "_L1);
    for (QChar lineBreak : {u'\r', u'\n', u'\x2028', u'\x2029'})
        stored.replace(lineBreak, u' ');
    return stored;
}

QByteArray quotedField(const QString &text)
{
    return '"' + storableText(text).toUtf8() + '"';
}

QString decodeText(std::string_view bytes)
{
    // Stateless, so that a letter cut off at the end counts as an error too.
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString text = utf8.decode(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
    if (!utf8.hasError())
        return text;
    text.clear();
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        text += QChar(code >= 0x80 && code < 0xa0 ? windows1252[code - 0x80] : char16_t(code));
    }
    return text;
}

QString fieldText(const RecordField &field)
{
    return decodeText(field.text);
}
