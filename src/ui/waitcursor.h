#pragma once

#include <QElapsedTimer>
#include <QObject>

#include <chrono>

// The pointer of work on files that takes long, as on a slow share: it shows a wait once a handler
// has been at it for 200 ms, until the program listens to the operator again.
class WaitCursor : public QObject
{
    Q_OBJECT

public:
    explicit WaitCursor(std::chrono::milliseconds before = std::chrono::milliseconds(200));
    ~WaitCursor() override;

    // Called as each operation on files begins.
    void work();

private:
    void end();

    std::chrono::milliseconds m_patience;
    QElapsedTimer m_begun; // valid while a handler is at work
    bool m_isShown = false;
};
