#pragma once

#include "common/event/bettors.h"
#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/event/racefiles.h"
#include "common/files/recordfile.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;

inline constexpr int bettorCount = 2000;
inline constexpr int fullRace = 20000;

// The n-th bet of a race whose amounts, horses and bettors follow no pattern.
inline Bet nthBet(int n)
{
    const auto mixed = unsigned(n) * 2654435761U >> 7;
    return {float(mixed % bettorCount + 1), float(mixed / 3 % postCount + 1),
            float(mixed / 7 % 3 + 1), float(mixed / 11 % 40 + 1) / 2};
}

inline std::string raceOf(int bets)
{
    std::string bytes;
    for (int n = 0; n < bets; ++n)
        bytes += betLine(nthBet(n));
    return bytes;
}

// An event in a temporary folder with a full race 1.
struct FullEvent
{
    FullEvent()
    {
        session.paths = HostPaths(folder.path());
        session.settings.initDrive = u"C:"_s;
        setFirstInit(session);
        session.settings.eventDirectory = defaultEventDirectory(session.settings);
        makeInitFolder(session);
        CreateEventFiles(session);
        QByteArray bettors;
        for (int n = 1; n <= bettorCount; ++n)
            bettors += QByteArray::number(n) + ",\"BETTOR " + QByteArray::number(n * 7919 % 9973)
                       + "\"\r\n";
        replaceRecordFile(mainFile(session, RecordFile::Bettors, 0), bettors);
        HorseTable horses;
        for (int post = 1; post <= postCount; ++post)
            horses.post(post) = {post, post <= 2 ? 1 : 0, QString::number(post),
                                 "HORSE "_L1 + QString::number(post)};
        saveHorses(session, horses);
        refill();
    }

    void refill()
    {
        const auto bytes = QByteArray::fromStdString(raceOf(fullRace));
        replaceRecordFile(mainFile(session, RecordFile::Bets, 1), bytes);
        replaceRecordFile(twinFile(session, RecordFile::Bets, 1), bytes);
    }

    QTemporaryDir folder;
    Session session;
};
