#include "common/files/openprograms.h"

#include <QDir>

using namespace Qt::StringLiterals;

OpenProgram::OpenProgram(const QString &dataFolder)
{
    constexpr int most = 8;
    QDir().mkpath(dataFolder);
    for (int place = 1; place <= most; ++place) {
        auto lock = std::make_unique<QLockFile>(dataFolder + "/open-"_L1 + QString::number(place));
        lock->setStaleLockTime(std::chrono::milliseconds::zero()); // until its process has ended
        if (!lock->tryLock(std::chrono::milliseconds::zero()))
            m_others |= lock->error() == QLockFile::LockFailedError;
        else if (!m_own)
            m_own = std::move(lock);
    }
}
