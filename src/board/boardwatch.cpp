#include "board/boardwatch.h"

#include <QSet>

using namespace std::chrono_literals;

namespace {

constexpr auto betweenLooks = 1s;
constexpr auto afterAChange = 50ms; // more of them belong together
constexpr auto longSilence = 3s;
constexpr auto longestEnd = 2s; // that a closing board waits for a look under way

} // namespace

BoardLooker::BoardLooker()
    : m_every(this)
    , m_soon(this)
{
    m_every.setInterval(betweenLooks);
    m_soon.setInterval(afterAChange);
    m_soon.setSingleShot(true);
    connect(&m_every, &QTimer::timeout, this, &BoardLooker::look);
    connect(&m_soon, &QTimer::timeout, this, &BoardLooker::look);
}

// Windows tells the thread in which a watcher was made, and goes on to do so when it ends in
// another.
void BoardLooker::begin()
{
    m_watcher = new QFileSystemWatcher(this);
    const auto lookSoon = [this] {
        if (!m_soon.isActive())
            m_soon.start();
    };
    connect(m_watcher, &QFileSystemWatcher::fileChanged, this, lookSoon);
    connect(m_watcher, &QFileSystemWatcher::directoryChanged, this, lookSoon);
}

void BoardLooker::follow(const BoardWish &wish)
{
    if (!m_watcher)
        begin();
    m_wish = wish;
    look();
    m_every.start();
}

void BoardLooker::look()
{
    const auto picture = m_reader.look(m_wish);
    watchFiles();
    if (picture)
        emit changed(*picture);
    emit looked();
}

void BoardLooker::watchFiles()
{
    const QStringList watched = m_watcher->files() + m_watcher->directories();
    const QSet<QString> before(watched.begin(), watched.end());
    const QStringList paths = m_reader.watched();
    const QSet<QString> now(paths.begin(), paths.end());
    if (const auto left = before - now; !left.isEmpty())
        m_watcher->removePaths(left.values());
    for (const QString &path : now - before) {
        if (QFileInfo::exists(path))
            m_watcher->addPath(path);
    }
}

BoardWatch::BoardWatch()
    : m_thread(std::make_unique<QThread>())
    , m_looker(new BoardLooker)
    , m_silence(this)
{
    m_looker->moveToThread(m_thread.get());
    connect(m_thread.get(), &QThread::finished, m_looker, &QObject::deleteLater);
    connect(m_looker, &BoardLooker::changed, this, &BoardWatch::changed);
    connect(m_looker, &BoardLooker::looked, this, &BoardWatch::hear);
    m_silence.setInterval(longSilence);
    m_silence.setSingleShot(true);
    connect(&m_silence, &QTimer::timeout, this, [this] {
        m_isSilent = true;
        emit answers(false);
    });
    m_thread->start(QThread::LowPriority);
    m_silence.start();
}

BoardWatch::~BoardWatch()
{
    m_looker->disconnect(this);
    m_thread->quit();
    // A look that hangs in a share that went away ends with the program.
    if (!m_thread->wait(QDeadlineTimer(longestEnd)))
        static_cast<void>(m_thread.release());
}

void BoardWatch::follow(const BoardWish &wish)
{
    if (wish == m_wish)
        return;
    m_wish = wish;
    QMetaObject::invokeMethod(m_looker, [looker = m_looker, wish] { looker->follow(wish); });
}

void BoardWatch::hear()
{
    m_silence.start();
    if (std::exchange(m_isSilent, false))
        emit answers(true);
}
