#include "common/event/knownjournals.h"

#include "common/files/hostfile.h"
#include "common/files/recordfile.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

// Alone the mark stands behind a line that another program was just writing: nothing was cut off.
constexpr std::string_view loneTornMark = ",\"torn";

} // namespace

void KnownJournals::update(const QString &folder, const QString &skipped)
{
    std::map<QString, qint64> sizes;
    for (const QString &path : cashFiles(folder)) {
        const auto part = m_parts.find(path);
        const bool isSkipped = path == skipped && part != m_parts.end();
        sizes[path] = isSkipped ? part->second.read : QFileInfo(path).size();
    }
    const bool goesOn = m_folder == folder && std::ranges::all_of(m_parts, [&](const auto &part) {
                            const auto size = sizes.find(part.first);
                            return size != sizes.end() && size->second >= part.second.read;
                        });
    if (!goesOn)
        *this = {};
    m_folder = folder;
    m_journal.unreadable.clear();
    m_journal.damaged = m_damaged;
    for (const auto &[path, size] : sizes) {
        if (size > m_parts[path].read)
            readOn(path, size);
    }
}

bool KnownJournals::isWhole(const QString &path, qint64 size) const
{
    const auto part = m_parts.find(path);
    return size == 0 || (part != m_parts.end() && part->second.read == size);
}

void KnownJournals::added(const QString &path, qint64 size, const QByteArray &records)
{
    const auto part = m_parts.find(path);
    if (part != m_parts.end() && part->second.read == size)
        parse(path, records);
}

void KnownJournals::readOn(const QString &path, qint64 size)
{
    try {
        const qint64 from = m_parts[path].read;
        if (size > largestFile)
            throw FileError(ErrorNumber::OutOfMemory);
        const QByteArray bytes = HostFile(path, HostFile::Mode::Read).read(from, size - from);
        const qsizetype end = bytes.lastIndexOf('\n') + 1;
        parse(path, bytes.first(end));
        m_journal.damaged += end < bytes.size() ? 1 : 0;
    } catch (const FileError &) {
        m_journal.unreadable += journalComputer(path);
    }
}

void KnownJournals::parse(const QString &path, const QByteArray &records)
{
    const QString computer = journalComputer(path);
    std::vector<CashEntry> lines;
    std::vector<RecordField> fields;
    int damaged = 0;
    forEachRecord(view(records), [&](std::string_view record) {
        auto line = parseCash(record, fields);
        if (!line && record == loneTornMark)
            return;
        if (!line)
            return void(++damaged);
        line->computer = computer;
        lines.push_back(*std::move(line));
    });
    m_damaged += damaged;
    m_journal.damaged += damaged;
    std::size_t place = 0;
    for (auto part = m_parts.begin(); part->first != path; ++part)
        place += part->second.lines;
    Part &part = m_parts[path];
    m_journal.lines.insert(m_journal.lines.begin() + std::ptrdiff_t(place + part.lines),
                           std::make_move_iterator(lines.begin()),
                           std::make_move_iterator(lines.end()));
    part.read += records.size();
    part.lines += lines.size();
}
