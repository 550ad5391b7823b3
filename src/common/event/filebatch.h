#pragma once

#include "common/event/eventfiles.h"
#include "common/event/eventlock.h"
#include "common/files/progress.h"

#include <optional>

// Rewrites several files together: clearing, importing, downloading, the thumb drive. Nothing
// changes before commit. All functions throw FileError.
class FileBatch
{
public:
    // Files of the event: holds its lock, taken as the operation \a label, to its own end, so that
    // what is read meanwhile stays true.
    FileBatch(Session &session, const QString &label);

    // Files elsewhere alone.
    explicit FileBatch(Session &session);

    // A record file and its twin are to hold these records.
    void replaceTwins(RecordFile file, int race, const QByteArray &records, const QString &label,
                      const QString &twinLabel);

    // The main file alone; its twin stays.
    void replaceMain(RecordFile file, int race, const QByteArray &records, const QString &label);

    // Whole lines are to be added to a record file and its twin, as they are now.
    void append(RecordFile file, int race, const QByteArray &lines, const QString &label);

    // A file that is no record file of the event, as on a drive; it is not kept in Saved. 75 when a
    // link stands in its place.
    void replaceFile(const QString &path, const QByteArray &bytes, const QString &label);

    // Puts copies of all record files that change into Saved, writes everything next to the old
    // files and then renames one file after the other, so that a full disk changes none of them.
    // When a rename fails, each file is whole, old or new, and the error's remark names the new
    // ones. Returns the number of copies.
    int commit(const Progress &progress = {});

private:
    struct Item
    {
        QString path;
        QByteArray bytes;
        QString label;
        bool isRecordFile = true;
    };
    void add(const QString &path, const QByteArray &bytes, const QString &label);
    int keepCopies();

    Session &m_session;
    std::optional<EventLock> m_lock;
    QList<Item> m_items;
};
