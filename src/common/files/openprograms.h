#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

// Tells whether this program is open more than once on this computer, whatever events it works on:
// each open one holds a lock file of its own in the user's data folder until it ends.
class OpenProgram
{
public:
    explicit OpenProgram(const QString &dataFolder);

    // Whether another one was open when this one started.
    bool othersAreOpen() const { return m_others; }

private:
    std::unique_ptr<QLockFile> m_own;
    bool m_others = false;
};
