#include "common/event/racefiles.h"
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
    ImportPlan plan(const ImportChoice &choice)
    {
        return planImport(session, u"D:\\Club\\"_s, choice);
    }
    ImportPlan import(const ImportChoice &choice)
    {
        const ImportPlan planned = plan(choice);
        if (planned.refusal.isEmpty() && !carryOutImport(session, planned).isEmpty())
            qFatal("refused");
        return planned;
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
        const ImportPlan result = event.import(everything);
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
        QVERIFY(result.races[0].onFile == 0 && result.races[1].bets == 0);
        QVERIFY(!QDir(event.path(u"Saved"_s)).entryList({u"Bets Race1 *"_s}).isEmpty());
    }

    // Bets that are on file are told one for one: as often as they are there, in any order.
    void betsOnFile()
    {
        Event event;
        event.write(u"Bets Race1"_s, "2,6,3,3\r\n1,4,1,1\r\n3,1,1,9\r\n");
        event.putThere(u"Bets Race1"_s, "1,4,1,1\r\n1,4,1,1\r\n3,6,3,3.00\r\n2,5,2,2.5\r\n");
        ImportPlan plan = event.plan(everything);
        QCOMPARE(plan.racesOnFile(), QStringList{u"Race1: 2 of 4 bets are new"_s});
        plan.leaveOutBetsOnFile();
        QCOMPARE(plan.races[0].bets, 2);
        QCOMPARE(plan.races[0].dollars, 3.5);
        QCOMPARE(carryOutImport(event.session, plan), QString());
        QCOMPARE(event.read(u"Bets Race1"_s),
                 "2,6,3,3\r\n1,4,1,1\r\n3,1,1,9\r\n1,4,1,1\r\n4,5,2,2.5\r\n"_qba);
        // There may be room for the new bets alone.
        event.putThere(u"Bets Race1"_s, "3,6,3,3\r\n2,5,3,2.5\r\n");
        event.session.settings.betLimit = 6;
        plan = event.plan(everything);
        QCOMPARE(plan.refusal, QString());
        QCOMPARE(carryOutImport(event.session, plan), u"No room for the bets of Race1"_s);
        plan.leaveOutBetsOnFile();
        QCOMPARE(carryOutImport(event.session, plan), QString());
    }

    void replacesCardsThatHoldHorses()
    {
        Event event;
        const QByteArray card = "1,0,\"1 \",\"Rex\"\r\n";
        event.write(u"Horses Race1"_s, card);
        event.putThere(u"Horses Race1"_s, horseRecords(HorseTable()));
        event.putThere(u"Horses Race2"_s, card + "2,torn");
        event.write(u"Horses Race2"_s, "3,0,\"3 \",\"Old\"\r\n");
        event.write(u"Bets Race2"_s, "2,3,1,5\r\n");
        const ImportPlan result = event.import({true, false, false});
        QVERIFY(result.races[0].horses == 0 && result.races[1].horses == 1);
        QVERIFY(result.races[1].cardHadBets);
        QVERIFY(importTable(result.races)
                    .rows[0]
                    .last()
                    .startsWith("The horse file has only 1 of 21 posts, 1 damaged line, bets"_L1));
        QCOMPARE(event.read(u"Horses Race1"_s), card);
        HorseTable expected;
        expected.post(1) = {1, 0, u"1"_s, u"Rex"_s};
        for (const auto &twin : {u"Horses Race2"_s, u"Horsesbackup Race2"_s})
            QCOMPARE(event.read(twin), horseRecords(expected));
    }

    // AnyBettor is number 1 on every computer, also where a list has lost him or misplaced him.
    void anyBettorStaysOne()
    {
        const QByteArray any = "1,\"AnyBettor\"\r\n";
        const QByteArray lee = "2,\"LEE\"\r\n";
        const QByteArray taken = "1,4,1,1\r\n2,4,1,2\r\n";
        // The list here, the list there, and the bets that come of it.
        const std::tuple<QByteArray, QByteArray, QByteArray> cases[] = {
            {any, lee, taken},
            {{}, any + lee, taken},
            {any, "1,\"lee\"\r\n2,\"anybettor\"\r\n", "2,4,1,1\r\n1,4,1,2\r\n"}};
        for (const auto &[here, there, bets] : cases) {
            Event event;
            for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
                event.write(twin, here);
            event.putThere(u"Bettors"_s, there);
            event.putThere(u"Bets Race1"_s, taken);
            event.import(everything);
            for (const auto &twin : {u"Bettors"_s, u"Bettorsbackup"_s})
                QCOMPARE(event.read(twin), any + lee);
            QCOMPARE(event.read(u"Bets Race1"_s), bets);
        }
    }

    // Numbers that no bettor can have are left out and never reach the wrong one.
    void impossibleNumbers()
    {
        Event event;
        event.putThere(u"Bets Race1"_s,
                       "3000000000,4,1,1\r\n-3,4,1,1\r\n2.5,4,1,1\r\n0,4,1,1\r\n3,4,1,1\r\n");
        const ImportPlan result = event.import(everything);
        QCOMPARE(result.races[0].leftOut, 4);
        QCOMPARE(event.read(u"Bets Race1"_s), "2,4,1,1\r\n"_qba);
    }

    // The event's own files may still be missing: the import makes them.
    void makesMissingFiles()
    {
        Event event;
        QVERIFY(QDir(event.path({})).removeRecursively());
        event.import(everything);
        QCOMPARE(event.read(u"Bettors"_s),
                 "1,\"AnyBettor\"\r\n2,\"NEW ONE\"\r\n3,\"SMITH\"\r\n"_qba);
        QVERIFY(event.exists(u"Multibets Race12"_s));
    }

    // Numbers were given on top of the list as it was read: another list needs another plan.
    void listChangedMeanwhile()
    {
        Event event;
        const ImportPlan planned = event.plan(everything);
        event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n4,\"LATE\"\r\n");
        QCOMPARE(carryOutImport(event.session, planned),
                 u"The bettor list has changed meanwhile. Import again."_s);
        QCOMPARE(event.read(u"Bettors"_s), "1,\"AnyBettor\"\r\n4,\"LATE\"\r\n"_qba);
    }

    // A refusal leaves every file as it was.
    void refusals_data()
    {
        QTest::addColumn<QString>("refusal");
        QTest::newRow("bets without their bettors")
            << u"There are bets of bettors who are not in the list here: NEW ONE. Check Bettors too."_s;
        QTest::newRow("bettor limit") << u"No room for 1 new bettor"_s;
        QTest::newRow("bet limit") << u"No room for the bets of Race12"_s;
        QTest::newRow("satellite") << u"Horses update not permitted in satellite computer mode"_s;
        QTest::newRow("satellite, no horses")
            << u"Bettor update not permitted in satellite computer mode"_s;
        QTest::newRow("itself") << u"This is the event directory itself"_s;
        QTest::newRow("no bettors there") << u"There is no Bettors file in D:\\Club\\"_s;
        QTest::newRow("nothing there") << u"None of the files chosen is in D:\\Club\\"_s;
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
        if (row.startsWith("satellite"))
            event.session.settings.setRole(false, true);
        const bool horsesAlone = row == "nothing there";
        const ImportChoice choice{row != "satellite, no horses",
                                  row != "bets without their bettors" && !horsesAlone,
                                  !horsesAlone};
        const QString folder = row == "itself" ? u"C:\\Trelawn\\"_s : u"D:\\Club\\"_s;
        QCOMPARE(planImport(event.session, folder, choice).refusal, refusal);
        QCOMPARE(event.read(u"Bettors"_s), event.read(u"Bettorsbackup"_s));
        QVERIFY(!event.read(u"Bettors"_s).contains("NEW"));
        QCOMPARE(event.read(u"Bets Race12"_s), QByteArray());
    }
};

TRELAWN_TEST(tst_importevent)
#include "tst_importevent.moc"
