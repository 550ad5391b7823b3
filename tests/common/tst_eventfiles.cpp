#include "common/eventfiles.h"
#include "common/fileerror.h"
#include "common/racefiles.h"
#include "kit/testkit.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

// The error number that the work fails with, 0 when it does not.
template<typename Work>
int errorOf(Work work)
{
    try {
        work();
    } catch (const FileError &error) {
        return int(error.number());
    }
    return 0;
}

const QByteArray oneBet = "7,4,1,2.5\r\n";

} // namespace

class tst_eventfiles : public QObject
{
    Q_OBJECT

private slots:
    void newEvent();
    void existingFilesAreNotTouched();
    void fullTwinOfMissingFileIsKept_data();
    void fullTwinOfMissingFileIsKept();
    void unusableDirectory_data();
    void unusableDirectory();
    void fileInTheWayIsReported();
    void missingBetsOfARace();
    void suffixKeepsItsBlank();
    void keepInSaved();

private:
    static QStringList savedNames(const TestEvent &event)
    {
        return QDir(savedFolder(event.session)).entryList(QDir::Files, QDir::Name);
    }
};

void tst_eventfiles::newEvent()
{
    TestEvent event(false);
    event.session.settings.eventDirectory = u"D:\\Party\\2026\\"_s;
    QCOMPARE(CreateEventFiles(event.session), QString());
    QStringList expected{u"Bettors"_s, u"Bettorsbackup"_s};
    QByteArray unused;
    for (int post = 1; post <= 21; ++post)
        unused += QByteArray::number(post) + ",0,\"  \",\"\"\r\n";
    for (int race = 1; race <= 12; ++race) {
        const QString suffix = " Race"_L1 + QString::number(race);
        for (const QString &name :
             {u"Bets"_s, u"Betsbackup"_s, u"Multibets"_s, u"Multibetsbackup"_s}) {
            QCOMPARE(event.read(name + suffix), QByteArray());
            expected << name + suffix;
        }
        for (const QString &name : {u"Horses"_s, u"Horsesbackup"_s}) {
            QCOMPARE(event.read(name + suffix), unused);
            expected << name + suffix;
        }
    }
    QCOMPARE(event.read(u"Bettors"_s), QByteArray("1,\"AnyBettor\"\r\n"));
    QCOMPARE(event.read(u"Bettorsbackup"_s), QByteArray("1,\"AnyBettor\"\r\n"));
    expected.sort();
    QCOMPARE(QDir(event.path({}))
                 .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name),
             expected);
    // Init stays on its drive.
    event.session.settings.eventDirectory = u"C:\\Trelawn\\"_s;
    QVERIFY(event.read(u"Init"_s).contains(",\"D:\\Party\\2026\\\","));
}

void tst_eventfiles::existingFilesAreNotTouched()
{
    TestEvent event;
    const QStringList names{u"Bets Race3"_s, u"Multibets Race4"_s, u"Horses Race5"_s, u"Bettors"_s,
                            u"Betsbackup Race3"_s};
    for (const QString &name : names)
        event.write(name, "damaged \"but mine");
    event.write(u"Horses Race6"_s, {});
    QCOMPARE(CreateEventFiles(event.session), QString());
    for (const QString &name : names)
        QCOMPARE(event.read(name), QByteArray("damaged \"but mine"));
    QCOMPARE(event.read(u"Horses Race6"_s), QByteArray());
    QCOMPARE(savedNames(event), QStringList());
}

void tst_eventfiles::fullTwinOfMissingFileIsKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("twin");
    QTest::newRow("bets") << u"Bets Race3"_s << u"Betsbackup Race3"_s;
    QTest::newRow("multibets") << u"Multibets Race12"_s << u"Multibetsbackup Race12"_s;
    QTest::newRow("horses") << u"Horses Race1"_s << u"Horsesbackup Race1"_s;
    QTest::newRow("bettors") << u"Bettors"_s << u"Bettorsbackup"_s;
}

void tst_eventfiles::fullTwinOfMissingFileIsKept()
{
    QFETCH(QString, name);
    QFETCH(QString, twin);
    TestEvent event;
    const QByteArray fresh = event.read(name);
    event.write(twin, oneBet);
    QVERIFY(QFile::remove(event.path(name)));
    const QString note = CreateEventFiles(event.session);
    QCOMPARE(event.read(name), fresh);
    QCOMPARE(event.read(twin), fresh);
    QCOMPARE(savedNames(event).size(), 1);
    const QString copy = savedNames(event).front();
    QVERIFY(copy.startsWith(twin + u' '));
    QCOMPARE(event.read("Saved\\"_L1 + copy), oneBet);
    QCOMPARE(note, twin + " was moved to Saved as "_L1 + copy);
}

void tst_eventfiles::unusableDirectory_data()
{
    QTest::addColumn<QString>("directory");
    QTest::addColumn<int>("error");
    QTest::newRow("drive that does not exist") << u"Q:\\Party\\"_s << 68;
    QTest::newRow("no drive") << u"Party\\"_s << 52;
    QTest::newRow("two colons") << u"C::\\Party\\"_s << 52;
    QTest::newRow("empty") << QString() << 76;
    QTest::newRow("share of nobody is not made here") << u"\\\\MASTER\\Tshare\\"_s << 76;
    QTest::newRow("a file has its name") << u"C:\\Trelawn\\Taken\\"_s << 75;
    QTest::newRow("below a file") << u"C:\\Trelawn\\Taken\\Party\\"_s << 76;
}

void tst_eventfiles::unusableDirectory()
{
    QFETCH(QString, directory);
    TestEvent event(false);
    event.write(u"Taken"_s, "x");
    event.session.settings.eventDirectory = directory;
    QTEST(errorOf([&] { CreateEventFiles(event.session); }), "error");
    QCOMPARE(event.session.settings.operationLabel, u"Bets drivedir-Setup"_s);
}

void tst_eventfiles::fileInTheWayIsReported()
{
    TestEvent event;
    QVERIFY(QFile::remove(event.path(u"Horses Race2"_s)));
    QVERIFY(QDir().mkdir(event.path(u"Horses Race2"_s)));
    QCOMPARE(errorOf([&] { CreateEventFiles(event.session); }), 75);
    QCOMPARE(event.session.settings.operationLabel, u"Horses input-Setup"_s);
}

void tst_eventfiles::missingBetsOfARace()
{
    TestEvent event;
    event.session.settings.currentRace = 10;
    event.write(u"Betsbackup Race10"_s, oneBet);
    QVERIFY(QFile::remove(event.path(u"Bets Race10"_s)));
    const QString note = LoadRaceBets(event.session);
    QVERIFY(note.startsWith(u"Betsbackup Race10 was moved to Saved as "_s));
    QVERIFY(event.session.bets.rows.empty());
    QCOMPARE(event.read(u"Bets Race10"_s), QByteArray());
    QCOMPARE(event.read(u"Betsbackup Race10"_s), QByteArray());
    QCOMPARE(event.read("Saved\\"_L1 + savedNames(event).value(0)), oneBet);
}

void tst_eventfiles::suffixKeepsItsBlank()
{
    TestEvent event;
    event.session.settings.currentRace = 10;
    event.write(u"BetsRace10"_s, oneBet);
    LoadRaceBets(event.session);
    QVERIFY(event.session.bets.rows.empty());
    event.write(u"Bets Race10"_s, oneBet);
    LoadRaceBets(event.session);
    QCOMPARE(event.session.bets.rows.size(), std::size_t(1));
}

void tst_eventfiles::keepInSaved()
{
    TestEvent event;
    const QString path = event.path(u"Bets Race1"_s);
    QCOMPARE(::keepInSaved(event.session, path), QString());
    QCOMPARE(::keepInSaved(event.session, event.path(u"Nothing"_s)), QString());
    QVERIFY(!event.exists(u"Saved"_s));
    // Copies of one moment never take each other's name.
    QSet<QString> names;
    for (int copy = 0; copy < 40; ++copy) {
        event.write(u"Bets Race1"_s, QByteArray::number(copy));
        const QString name = ::keepInSaved(event.session, path);
        QCOMPARE(event.read("Saved\\"_L1 + name), QByteArray::number(copy));
        names.insert(name);
    }
    QCOMPARE(names.size(), 40);
    QCOMPARE(savedNames(event).size(), 40);
    event.write(u"Betsbackup Race1"_s, {});
    QCOMPARE(keepTwinsInSaved(event.session, RecordFile::Bets, 1), 1);
}

TRELAWN_TEST_MAIN(tst_eventfiles)
#include "tst_eventfiles.moc"
