#pragma once

#include "board/boardreader.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QThread>
#include <QTimer>

#include <memory>

// Looks at the files for a board, in a thread of its own: a share that does not answer keeps no
// window waiting.
class BoardLooker : public QObject
{
    Q_OBJECT

public:
    BoardLooker();

    // From now on this is what is looked for.
    void follow(const BoardWish &wish);

signals:
    void changed(const BoardPicture &picture);
    void looked(); // each time, changed or not

private:
    void begin();
    void look();
    void watchFiles();

    BoardReader m_reader;
    BoardWish m_wish;
    QFileSystemWatcher *m_watcher = nullptr; // tells at once where the system can tell
    QTimer m_every;                          // where it cannot
    QTimer m_soon;
};

// Keeps a board's picture true to the files: a change is told within little more than a second.
class BoardWatch : public QObject
{
    Q_OBJECT

public:
    BoardWatch();
    ~BoardWatch() override;

    void follow(const BoardWish &wish);

signals:
    void changed(const BoardPicture &picture);

    // The files did not answer for some seconds, or do so again.
    void answers(bool yes);

private:
    void hear();

    std::unique_ptr<QThread> m_thread;
    BoardLooker *m_looker; // lives in the thread
    BoardWish m_wish;
    QTimer m_silence;
    bool m_isSilent = false;
};
