#include "common/fileerror.h"
#include "common/racefiles.h"
#include "kit/testkit.h"
#include "transfer/importevent.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace {

constexpr ImportChoice everything{true, true, true};

// An event here, and the files of another computer in D:\Club\.
struct Event : TestEvent
{
    Event()
    {
        QDir().mkpath(there({}));
        for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
            write(twin, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"JONES\"\r\n");
        putThere(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"NEW ONE\"\r\n3,\"SMITH\"\r\n");
    }
    QString there(const QString &name) const
    {
        return session.paths.toHost(u"D:\\Club\\"_s + name);
    }
    void putThere(const QString &name, const QByteArray &bytes) const
    {
        QFile file(there(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    ImportResult import(const ImportChoice &choice)
    {
        return importEvent(session, u"D:\\Club\\"_s, choice);
    }
};

} // namespace

class tst_importevent : public QObject
{
    Q_OBJECT

private slots:
    // The same name is the same person; the others get numbers that nothing here uses, and the bets
    // follow them into file and twin.
    void translatesNumbers()
    {
        Event event;
        event.write(u"Multibets Race9"_s, "1,2,0,\"EX\",2,5\r\n"); // of a bettor deleted since
        event.write(u"Bets Race1"_s, "2,1,1,5\r\n");
        event.write(u"Betsbackup Race1"_s, "2,1,1,5\r\n");
        event.putThere(u"Bets Race1"_s, "1,4,1,1\r\n2,5,2,2.5\r\n3,6,3,3\r\n9,6,3,4\r\njunk\r\n");
        const ImportResult result = event.import(everything);
        QCOMPARE(result.refusal, QString());
        QCOMPARE(result.duplicates, QStringList{u"SMITH"_s});
        QCOMPARE(result.added, QStringList{u"NEW ONE"_s});
        for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s}) {
            QCOMPARE(event.read(twin),
                     "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"JONES\"\r\n6,\"NEW ONE\"\r\n"_qba);
        }
        for (const auto &twin : {u"Bets Race1"_s, u"Betsbackup Race1"_s})
            QCOMPARE(event.read(twin), "2,1,1,5\r\n1,4,1,1\r\n6,5,2,2.5\r\n2,6,3,3\r\n"_qba);
        QCOMPARE(result.races[0].bets, 3);
        QCOMPARE(result.races[0].dollars, 6.5);
        QCOMPARE(result.races[0].leftOut, 2);
        QVERIFY(!result.races[0].looksImported && !result.races[1].hasBets);
        QVERIFY(!QDir(event.path(u"Saved"_s)).entryList({u"Bets Race1 *"_s}).isEmpty());

        const ImportResult again = event.import(everything);
        QVERIFY(again.races[0].looksImported && again.added.isEmpty());
    }

    void replacesCardsThatHoldHorses()
    {
        Event event;
        const QByteArray card = "1,0,\"1 \",\"Rex\"\r\n";
        event.write(u"Horses Race1"_s, card);
        event.putThere(u"Horses Race1"_s, horseRecords(HorseTable()));
        event.putThere(u"Horses Race2"_s, card);
        const ImportResult result = event.import({true, false, false});
        QVERIFY(!result.races[0].hasHorses && result.races[1].hasHorses);
        QCOMPARE(event.read(u"Horses Race1"_s), card);
        QCOMPARE(event.read(u"Horses Race2"_s), card);
        QCOMPARE(event.read(u"Horsesbackup Race2"_s), card);
    }

    // A refusal and a missing file leave every file as it was.
    void refusals_data()
    {
        QTest::addColumn<QString>("refusal");
        QTest::newRow("bets without their bettors")
            << u"There are bets of bettors who are not in the list here: NEW ONE. Check Bettors too."_s;
        QTest::newRow("bettor limit") << u"No room for 1 new bettors"_s;
        QTest::newRow("bet limit") << u"No room for the bets of Race12"_s;
        QTest::newRow("itself") << u"This is the event directory itself"_s;
        QTest::newRow("no bettors there") << u"53"_s;
    }
    void refusals()
    {
        QFETCH(QString, refusal);
        const QByteArray row = QTest::currentDataTag();
        Event event;
        event.putThere(u"Bets Race12"_s, "2,5,2,2.5\r\n2,5,2,2.5\r\n");
        if (row == "bettor limit")
            event.session.settings.bettorLimit = 3;
        if (row == "bet limit")
            event.session.settings.betLimit = 1;
        if (row == "no bettors there")
            QFile::remove(event.there(u"Bettors"_s));
        const ImportChoice choice{true, row != "bets without their bettors", true};
        const QString folder = row == "itself" ? u"C:\\Trelawn\\"_s : u"D:\\Club\\"_s;
        QString told;
        try {
            told = importEvent(event.session, folder, choice).refusal;
        } catch (const FileError &error) {
            told = QString::number(int(error.number()));
        }
        QCOMPARE(told, refusal);
        QCOMPARE(event.read(u"Bettors"_s), event.read(u"Bettorsbackup"_s));
        QVERIFY(!event.read(u"Bettors"_s).contains("NEW"));
        QCOMPARE(event.read(u"Bets Race12"_s), QByteArray());
    }
};

TRELAWN_TEST_MAIN(tst_importevent)
#include "tst_importevent.moc"
