#include "common/files/recordfile.h"
#include "kit/testkit.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX
// Takes the privileges away that let a system's administrator write where others may not.
class OrdinaryUser
{
public:
    OrdinaryUser()
        : m_lowered(getuid() == 0 && setresuid(nobody, nobody, 0) == 0)
    {
    }
    ~OrdinaryUser()
    {
        if (m_lowered && setresuid(0, 0, 0) != 0)
            qFatal("the privileges are gone");
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    static constexpr unsigned nobody = 65534;
    const bool m_lowered;
};
#endif

QStringList filesOf(const TestEvent &event)
{
    return QDir(event.path({})).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

// Whole files and appended lines, and the error number of each failure.
class tst_recordfile : public QObject
{
    Q_OBJECT

private slots:
    void replaceAndCreate()
    {
        TestEvent event(false);
        const QString path = event.path(u"Bets Race1"_s);
        for (const QByteArray &bytes :
             {QByteArray("new\r\n"), QByteArray(), QByteArray(3'000'000, 'x')}) {
            replaceRecordFile(path, bytes);
            QCOMPARE(readRecordFile(path), bytes);
            QVERIFY(!createRecordFile(path, "2\r\n"));
            QCOMPARE(readRecordFile(path), bytes);
        }
        QVERIFY(createRecordFile(event.path(u"empty"_s)));
        QCOMPARE(event.read(u"empty"_s), QByteArray());
        QCOMPARE(filesOf(event), (QStringList{u"Bets Race1"_s, u"empty"_s}));
    }

#ifdef Q_OS_UNIX
    // What stands in a record file's place on somebody else's drive.
    void foreignFiles()
    {
        TestEvent event(false);
        event.write(u"file"_s, "1\r\n");
        const QString pipe = event.path(u"pipe"_s);
        const QString large = event.path(u"large"_s);
        const QString link = event.path(u"link"_s);
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(QFile::link(event.path(u"file"_s), link));
        QFile hole(large);
        QVERIFY(hole.open(QIODevice::WriteOnly) && hole.resize(largestFile + 1));
        for (const QString &path : {pipe, link, u"/dev/zero"_s})
            QCOMPARE(errorOf([&] { readRecordFile(path, Links::Refused); }), 75);
        QCOMPARE(errorOf([&] { readRecordFile(large, Links::Refused); }), 7);
        QCOMPARE(errorOf([&] { HostFile(pipe, HostFile::Mode::Append).size(); }), 75);
        QCOMPARE(readRecordFile(link), "1\r\n");
    }

    void errors()
    {
        Rows<QString, QList<int>> rows; // the file; the errors of read, replace, append, create
        rows("missing file", u"none"_s, {53, 0, 53, 0});
        rows("missing folder", u"none\\f"_s, {76, 76, 76, 76});
        rows("folder in a file's place", u"folder"_s, {75, 75, 75, 75});
        rows("read-only file", u"readonly"_s, {0, 70, 70, 0});
        rows("file in a locked folder", u"locked\\f"_s, {0, 70, 0, 0});
        rows("folder without access", u"closed\\f"_s, {70, 70, 70, 70});
        rows("name too long", QString(300, u'x'), {52, 52, 52, 52});
        for (const auto &[row, file, errors] : rows) {
            TestEvent event(false);
            event.write(u"readonly"_s, "1\r\n");
            event.write(u"closed\\f"_s, {});
            event.write(u"locked\\f"_s, {});
            event.block(u"folder"_s);
            const auto setAccess = [&](const QString &name, int access) {
                QVERIFY(QFile::setPermissions(event.path(name), QFile::Permissions(access)));
            };
            // The folders above are the user's own; the ordinary user has to come through them.
            for (QDir above(event.path({})); above.absolutePath() != QDir::tempPath(); above.cdUp())
                QFile::setPermissions(above.absolutePath(), QFile::Permissions(0x7777));
            setAccess(u"readonly"_s, 0x4444);
            setAccess(u"locked\\f"_s, 0x7777);
            setAccess(u"locked"_s, 0x5555);
            setAccess(u"closed"_s, 0);
            const QString path = event.path(file);
            const std::function<void()> works[] = {
                [&] { readRecordFile(path); }, [&] { replaceRecordFile(path, "2"); },
                [&] { HostFile(path, HostFile::Mode::Append).append("2"); },
                [&] { createRecordFile(path); }};
            QList<int> found;
            {
                const OrdinaryUser ordinary;
                for (const auto &work : works) {
                    found.append(errorOf(work));
                    if (file == "none"_L1)
                        QFile::remove(path);
                }
            }
            setAccess(u"closed"_s, 0x7777);
            setAccess(u"locked"_s, 0x7777);
            QCOMPARE(found, errors);
            QCOMPARE(event.read(u"readonly"_s), "1\r\n");
        }
    }
#endif

    void stored()
    {
        QCOMPARE(quotedField(u"\"BIG\" AL"_s), QByteArray("\"'BIG' AL\""));
        QCOMPARE(quotedField(u"A\r\nB\nC"_s), QByteArray("\"A B C\""));
        QCOMPARE(storableText(u"\"A\"\r\nB"_s), u"'A' B"_s);
    }
};

TRELAWN_TEST(tst_recordfile)
#include "tst_recordfile.moc"
