#include "common/files/hostsystem.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"

#include <thread>
#include <windows.h>

namespace {

// Another program that holds a file and lets others do only this with it.
class Holder
{
public:
    Holder(const QString &path, DWORD others)
        : m_handle(CreateFileW(reinterpret_cast<const wchar_t *>(path.utf16()), GENERIC_READ,
                               others, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr))
    {
        if (m_handle == INVALID_HANDLE_VALUE)
            qFatal("cannot hold %s", qPrintable(path));
    }
    ~Holder() { CloseHandle(m_handle); }
    Q_DISABLE_COPY_MOVE(Holder)

private:
    const HANDLE m_handle;
};

} // namespace

// Files as Windows has them: its error codes, its sharing, its names.
class tst_windowsfiles : public QObject
{
    Q_OBJECT

private slots:
    void errors()
    {
        TestEvent event(false);
        event.write(u"readonly"_s, "1\r\n");
        QVERIFY(QFile::setPermissions(event.path(u"readonly"_s), QFile::ReadOwner));
        event.block(u"folder"_s);
        Rows<QString, QList<int>> rows; // the file; the errors of read, replace, append, create
        rows("missing file", event.path(u"none"_s), {53, 0, 53, 0});
        rows("missing folder", event.path(u"none\\f"_s), {76, 76, 76, 76});
        rows("missing drive", u"Q:/f"_s, {76, 76, 76, 76});
        rows("folder in a file's place", event.path(u"folder"_s), {75, 75, 75, 75});
        rows("read-only file", event.path(u"readonly"_s), {0, 70, 70, 0});
        rows("no name for a file", event.path({}) + "/a|b"_L1, {52, 52, 52, 52});
        for (const auto &[row, path, errors] : rows) {
            const std::function<void()> works[] = {
                [&path = path] { readRecordFile(path); },
                [&path = path] { replaceRecordFile(path, "2"); },
                [&path = path] { HostFile(path, HostFile::Mode::Append).append("2"); },
                [&path = path] { createRecordFile(path); }};
            QList<int> found;
            for (const auto &work : works) {
                found.append(errorOf(work));
                if (path.endsWith("none"_L1))
                    QFile::remove(path);
            }
            QCOMPARE(found, errors);
        }
        QCOMPARE(event.read(u"readonly"_s), "1\r\n");
        QCOMPARE(errorOf([] { HostPaths().toHost(u"Q:\\Trelawn"_s); }), 68);
    }

    // Two who append at the same time, and one who cuts off what he wrote.
    void appending()
    {
        TestEvent event(false);
        const QString path = event.path(u"Bets Race1"_s);
        const auto made = HostFile::createNew(path);
        QVERIFY(made && !HostFile::createNew(path));
        HostFile other(path, HostFile::Mode::Append);
        made->append("1\r\n");
        other.append("2\r\n");
        QCOMPARE(made->read(3, 100), "2\r\n"); // reading moves no end
        made->append("3\r\n");
        made->flush();
        QCOMPARE(other.readAll(), "1\r\n2\r\n3\r\n");
        QVERIFY(made->cutTo(6));
        other.append("4\r\n");
        QCOMPARE(made->readAll(), "1\r\n2\r\n4\r\n");
        event.write(u"other"_s, "5\r\n");
        QCOMPARE(int(*moveToNewName(event.path(u"other"_s), path)), 75);
        QCOMPARE(made->readAll(), "1\r\n2\r\n4\r\n");
    }

    // What others hold is tried again for a while, then refused, and nothing is changed.
    void heldByOthers()
    {
        TestEvent event(false);
        event.write(u"file"_s, "old\r\n");
        const QString path = event.path(u"file"_s);
        QElapsedTimer waiting;
        waiting.start();
        {
            const Holder reader(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
            QCOMPARE(errorOf([&] { replaceRecordFile(path, "new\r\n"); }), 70);
            QVERIFY(waiting.elapsed() >= 1900);
            QCOMPARE(errorOf([&] { deleteRecordFile(path); }), 70);
            QCOMPARE(readRecordFile(path), "old\r\n");
        }
        {
            const Holder scanner(path, 0);
            QCOMPARE(errorOf([&] { readRecordFile(path); }), 70);
        }
        QCOMPARE(QDir(event.path({})).entryList(QDir::Files), QStringList(u"file"_s));

        auto scanner = std::make_unique<Holder>(path, 0);
        std::thread letsGo([&] {
            QThread::msleep(300);
            scanner.reset();
        });
        replaceRecordFile(path, "new\r\n");
        letsGo.join();
        QCOMPARE(readRecordFile(path), "new\r\n");
    }
};

TRELAWN_TEST(tst_windowsfiles)
#include "tst_windowsfiles.moc"
