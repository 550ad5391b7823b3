#pragma once

#include "common/event/cashjournal.h"

#include <map>

// What this run of the program knows of the cash journals of one event. Journals only grow, so what
// was read once is not read again: on a slow share, at a busy table, calls are what takes the time.
class KnownJournals
{
public:
    // Reads what was appended in the event's folder since the last time. What was moved away, or
    // has become shorter, begins anew. \a skipped is the path of a journal whose growth nobody
    // asks for now, if it is known.
    void update(const QString &folder, const QString &skipped = {});

    // Whether the journal, which has this size now, ended with a whole line when it was read last.
    bool isWhole(const QString &path, qint64 size) const;

    // This program appended whole records to a journal that had this size.
    void added(const QString &path, qint64 size, const QByteArray &records);

    const CashJournal &journal() const { return m_journal; }

private:
    struct Part
    {
        qint64 read = 0;       // bytes, up to the last line end
        std::size_t lines = 0; // of the journal, which has the parts one behind the other
    };

    void readOn(const QString &path, qint64 size);
    void parse(const QString &path, const QByteArray &records);

    QString m_folder;
    CashJournal m_journal;
    std::map<QString, Part> m_parts; // by path
    int m_damaged = 0;               // lines, without those that may still be being written
};
