#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"

#include <QDir>
#include <QFile>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

// Whole files and appended lines, and the error number of each failure.
class tst_recordfile : public QObject
{
    Q_OBJECT

private slots:
    void replace();
    void create();
    void foreignFiles();
    void error_data();
    void error();
    void stored();
};

namespace {

// Takes the privileges away that let a system's administrator write where others may not.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
#ifdef Q_OS_UNIX
        m_lowered = getuid() == 0 && setresuid(nobody, nobody, 0) == 0;
#endif
    }
    ~OrdinaryUser()
    {
#ifdef Q_OS_UNIX
        if (m_lowered && setresuid(0, 0, 0) != 0)
            qFatal("the privileges are gone");
#endif
    }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    static constexpr unsigned nobody = 65534;
    bool m_lowered = false;
};

} // namespace

void tst_recordfile::replace()
{
    TestEvent event(false);
    const QString path = event.path(u"Bets Race1"_s);
    for (const QByteArray &bytes :
         {QByteArray("new\r\n"), QByteArray(), QByteArray(3'000'000, 'x')}) {
        replaceRecordFile(path, bytes);
        QCOMPARE(readRecordFile(path), bytes);
    }
    QCOMPARE(QDir(event.path({})).entryList(QDir::Files | QDir::Hidden), {u"Bets Race1"_s});
}

void tst_recordfile::create()
{
    TestEvent event(false);
    const QString path = event.path(u"f"_s);
    QVERIFY(createRecordFile(path, "1\r\n"));
    for (const QByteArray &bytes : {QByteArray(), QByteArray("2\r\n")})
        QVERIFY(!createRecordFile(path, bytes));
    QCOMPARE(event.read(u"f"_s), "1\r\n");
    QVERIFY(createRecordFile(event.path(u"empty"_s)));
    QCOMPARE(QDir(event.path({})).entryList(QDir::Files | QDir::Hidden),
             (QStringList{u"empty"_s, u"f"_s}));
}

#ifdef Q_OS_UNIX
// What stands in a record file's place on somebody else's drive.
void tst_recordfile::foreignFiles()
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
    const std::pair<QString, int> cases[] = {
        {pipe, 75}, {large, 7}, {link, 75}, {u"/dev/zero"_s, 75}};
    for (const auto &[path, error] : cases)
        QCOMPARE(errorOf([&] { readRecordFile(path, Links::Refused); }), error);
    QCOMPARE(errorOf([&] { HostFile(pipe, HostFile::Mode::Append).size(); }), 75);
    QCOMPARE(readRecordFile(link), "1\r\n");
}
#endif

void tst_recordfile::error_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QList<int>>("errors"); // of read, replace, append, create
    QTest::newRow("missing file") << u"none"_s << QList{53, 0, 53, 0};
    QTest::newRow("missing folder") << u"none\\f"_s << QList{76, 76, 76, 76};
    QTest::newRow("folder in a file's place") << u"folder"_s << QList{75, 75, 75, 75};
#ifdef Q_OS_UNIX
    QTest::newRow("read-only file") << u"readonly"_s << QList{0, 70, 70, 0};
    QTest::newRow("file in a locked folder") << u"locked\\f"_s << QList{0, 70, 0, 0};
    QTest::newRow("folder without access") << u"closed\\f"_s << QList{70, 70, 70, 70};
#endif
    QTest::newRow("name too long") << QString(300, u'x') << QList{52, 52, 52, 52};
}

void tst_recordfile::error()
{
    QFETCH(QString, file);
    QFETCH(QList<int>, errors);
    TestEvent event(false);
    event.write(u"plain"_s, {});
    event.write(u"readonly"_s, "1\r\n");
    for (const QString &folder : {u"folder"_s, u"locked"_s, u"closed"_s})
        makeFolder(event.path(folder));
    event.write(u"closed\\f"_s, {});
    event.write(u"locked\\f"_s, {});
    const auto setAccess = [&](const QString &name, QFile::Permissions access) {
        QVERIFY(QFile::setPermissions(event.path(name), access));
    };
    const QFile::Permissions all = QFile::Permissions(0x7777);
    // The folders above are the user's own; the ordinary user has to come through them.
    for (QDir folder(event.path({})); folder.absolutePath() != QDir::tempPath(); folder.cdUp())
        QFile::setPermissions(folder.absolutePath(), all);
    setAccess(u"readonly"_s, QFile::Permissions(0x4444));
    setAccess(u"locked\\f"_s, all);
    setAccess(u"locked"_s, QFile::Permissions(0x5555));
    setAccess(u"closed"_s, {});
    const QString path = event.path(file);
    QList<int> found;
    {
        const OrdinaryUser ordinary;
        const QList<std::function<void()>> works{
            [&] { readRecordFile(path); }, [&] { replaceRecordFile(path, "2"); },
            [&] { HostFile(path, HostFile::Mode::Append).append("2"); },
            [&] { createRecordFile(path); }};
        for (const auto &work : works) {
            found.append(errorOf(work));
            if (file == "none"_L1)
                QFile::remove(path);
        }
    }
    setAccess(u"closed"_s, all);
    setAccess(u"locked"_s, all);
    QCOMPARE(found, errors);
    QCOMPARE(event.read(u"readonly"_s), "1\r\n");
}

void tst_recordfile::stored()
{
    const std::pair<QString, QByteArray> cases[] = {{u"\"BIG\" AL"_s, "\"'BIG' AL\""},
                                                    {u"A\r\nB\nC"_s, "\"A B C\""}};
    for (const auto &[text, field] : cases) {
        QCOMPARE(quotedField(text), field);
        std::vector<RecordField> fields;
        QVERIFY(splitRecord(view(field), fields) && fields.size() == 1);
        QCOMPARE(fieldText(fields.front()), storableText(text));
    }
}

TRELAWN_TEST(tst_recordfile)
#include "tst_recordfile.moc"
