#include "common/files/recordfile.h"

#include "common/files/fileerror.h"
#include "common/files/hostfile.h"
#include "common/files/hostsystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString otherName(const QString &path)
{
    return path + u'.' + QString::number(QRandomGenerator::global()->generate(), 36);
}

// A link is kept: what it leads to is replaced.
QString targetOf(const QString &path)
{
    constexpr int mostLinks = 40;
    QString target = path;
    for (int links = 0; links < mostLinks && QFileInfo(target).isSymLink(); ++links)
        target = QFileInfo(target).symLinkTarget();
    return target;
}

// The bytes on the disk in a file of their own, next to the path; returns its name.
QString writeBeside(const QString &path, const QByteArray &bytes)
{
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
    return made;
}

void renameOver(const QString &made, const QString &path)
{
    if (!patiently([&] { return renameFile(made, path); }))
        throw openError(path, systemError());
    flushFolder(QFileInfo(path).path());
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

// A rename that others hold up is tried again, which QSaveFile does not offer.
Replacement::Replacement(const QString &path, const QByteArray &bytes)
    : m_path(targetOf(path))
{
    const QFileInfo old(m_path);
    if (old.isDir())
        throw FileError(ErrorNumber::PathFileAccess);
    if (old.exists() && !old.isWritable())
        throw FileError(ErrorNumber::PermissionDenied);
    m_made = writeBeside(m_path, bytes);
    if (old.exists())
        QFile::setPermissions(m_made, old.permissions());
}

Replacement::~Replacement()
{
    if (!m_made.isEmpty())
        QFile::remove(m_made);
}

void Replacement::commit()
{
    renameOver(m_made, m_path);
    m_made.clear();
}

void replaceUnreadable(const QString &path, const QByteArray &bytes)
{
    const QString made = writeBeside(path, bytes);
    try {
        renameOver(made, path);
    } catch (const FileError &) {
        QFile::remove(made);
        throw;
    }
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
    std::optional<ErrorNumber> failed = ErrorNumber::PathFileAccess;
    if (bytes.isEmpty()) {
        if (HostFile::createNew(path))
            failed.reset();
    } else if (!QFileInfo::exists(path)) {
        // The bytes are on the disk under another name before the file has its own.
        const QString made = writeBeside(path, bytes);
        failed = moveToNewName(made, path);
        if (failed)
            QFile::remove(made);
        flushFolder(QFileInfo(path).path());
    }
    if (failed && !QFileInfo(path).isFile())
        throw openError(path, *failed);
    return !failed;
}

void deleteRecordFile(const QString &path)
{
    if (!patiently([&] { return QFile::remove(path); })) {
        const ErrorNumber reason = systemError(ErrorNumber::PathFileAccess);
        if (QFileInfo::exists(path))
            throw FileError(reason);
    }
    flushFolder(QFileInfo(path).path());
}

void makeFolder(const QString &path)
{
    forgetSystemError();
    if (!QDir().mkpath(path))
        throw FileError(systemError());
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
