#include "common/files/recordfile.h"

#include "common/files/fileerror.h"
#include "common/files/hostfile.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QStringDecoder>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

QString otherName(const QString &path)
{
    return path + u'.' + QString::number(QRandomGenerator::global()->generate(), 36);
}

// What the bytes 0x80 to 0x9F mean in Windows-1252; five of them mean nothing.
constexpr char16_t windows1252[32] = {
    0x20ac, 0xfffd, 0x201a, 0x0192, 0x201e, 0x2026, 0x2020, 0x2021, 0x02c6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xfffd, 0x017d, 0xfffd, 0xfffd, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
    0x2013, 0x2014, 0x02dc, 0x2122, 0x0161, 0x203a, 0x0153, 0xfffd, 0x017e, 0x0178,
};

} // namespace

QByteArray readRecordFile(const QString &path, Links links)
{
    return HostFile(path, HostFile::Mode::Read, links).readAll();
}

std::optional<QByteArray> readIfThere(const QString &path, Links links)
{
    try {
        return readRecordFile(path, links);
    } catch (const FileError &error) {
        if (error.number() != ErrorNumber::FileNotFound)
            throw;
    }
    return {};
}

void replaceRecordFile(const QString &path, const QByteArray &bytes)
{
    Replacement(path, bytes).commit();
}

Replacement::Replacement(const QString &path, const QByteArray &bytes)
    : m_file(path)
{
    if (QFileInfo(path).isDir())
        throw FileError(ErrorNumber::PathFileAccess);
    errno = 0;
    if (!m_file.open(QIODevice::WriteOnly))
        throw openError(path, lastSystemError());
    errno = 0;
    if (m_file.write(bytes) != bytes.size() || !m_file.flush()) {
        const int systemError = lastSystemError();
        m_file.cancelWriting();
        throw FileError(errorFromSystem(systemError));
    }
    try {
        flushToDisk(m_file);
    } catch (const FileError &) {
        m_file.cancelWriting();
        throw;
    }
}

void Replacement::commit()
{
    errno = 0;
    if (!m_file.commit())
        throw FileError(errorFromSystem(lastSystemError()));
    flushFolder(QFileInfo(m_file.fileName()).path());
}

void replaceUnreadable(const QString &path, const QByteArray &bytes)
{
    const QString made = otherName(path);
    createRecordFile(made, bytes);
    errno = 0;
    if (!renameFile(made, path)) {
        const int systemError = lastSystemError();
        QFile::remove(made);
        throw openError(path, systemError);
    }
    flushFolder(QFileInfo(path).path());
}

void appendSafely(HostFile &file, qint64 size, const QByteArray &lines)
{
    if (lines.isEmpty())
        return;
    try {
        file.append(lines);
        file.flush();
    } catch (FileError &error) {
        if (!file.cutTo(size))
            error.setAftermath(Aftermath::Unsure);
        throw;
    }
}

bool createRecordFile(const QString &path, const QByteArray &bytes)
{
    int systemError = EEXIST;
    if (bytes.isEmpty()) {
        systemError = HostFile::createNew(path) ? 0 : EEXIST;
    } else if (!QFileInfo::exists(path)) {
        // The bytes are on the disk under another name before the file has its own.
        const QString made = otherName(path);
        try {
            const auto file = HostFile::createNew(made);
            if (!file)
                throw FileError(ErrorNumber::PathFileAccess);
            file->append(bytes);
            file->flush();
        } catch (const FileError &) {
            QFile::remove(made);
            throw;
        }
        systemError = moveToNewName(made, path);
        if (systemError != 0)
            QFile::remove(made);
        flushFolder(QFileInfo(path).path());
    }
    if (systemError != 0 && !QFileInfo(path).isFile())
        throw openError(path, systemError);
    return systemError == 0;
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
    if (!QDir().mkpath(path))
        throw FileError(errorFromSystem(lastSystemError()));
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
    // Nearly every name is plain.
    const auto isPlain = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
    if (std::ranges::all_of(bytes, isPlain))
        return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));
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
