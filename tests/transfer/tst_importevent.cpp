#include "kit/testkit.h"
#include "transfer/importevent.h"

namespace {

constexpr ImportChoice everything{true, true, true};

// An event here, and the files of another computer in D:\Club\.
struct Event : TestEvent
{
    Event()
    {
        writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"JONES\"\r\n");
        putThere(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"NEW ONE\"\r\n3,\"SMITH\"\r\n");
    }
    void putThere(const QString &name, const QByteArray &bytes) const
    {
        write(u"D:\\Club\\"_s + name, bytes);
    }
    ImportPlan plan(const ImportChoice &choice)
    {
        return planImport(session, u"D:\\Club\\"_s, choice);
    }
    ImportPlan import(const ImportChoice &choice)
    {
        const ImportPlan planned = plan(choice);
        if (!planned.refusal.isEmpty() || !carryOutImport(session, planned).isEmpty())
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
    // follow them into file and twin. Numbers that no bettor can have are left out and never reach
    // the wrong one.
    void translatesNumbers()
    {
        Event event;
        event.write(u"Multibets Race9"_s, "1,2,0,\"EX\",2,5\r\n"); // of a bettor deleted since
        event.writeTwins(u"Bets Race1"_s, "2,1,1,5\r\n");
        event.putThere(u"Bets Race1"_s,
                       "1,4,1,1\r\n2,5,2,2.5\r\n3,6,3,3\r\n9,6,3,4\r\njunk\r\n3000000000,4,1,1\r\n"
                       "-3,4,1,1\r\n2.5,4,1,1\r\n0,4,1,1\r\n");
        const ImportPlan result = event.import(everything);
        QCOMPARE(result.duplicates, QStringList{u"SMITH"_s});
        QCOMPARE(result.added, QStringList{u"NEW ONE"_s});
        QCOMPARE(event.readTwins(u"Bettors"_s),
                 "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"JONES\"\r\n6,\"NEW ONE\"\r\n");
        QCOMPARE(event.readTwins(u"Bets Race1"_s),
                 "2,1,1,5\r\n1,4,1,1\r\n6,5,2,2.5\r\n2,6,3,3\r\n");
        QCOMPARE(result.races[0].bets, 3);
        QCOMPARE(result.races[0].dollars, 6.5);
        QCOMPARE(result.races[0].leftOut, 6);
        QCOMPARE(event.savedCopies(u"Bets Race1"_s), QByteArrayList{"2,1,1,5\r\n"});
    }

    // Bets that are on file are told one for one: as often as they are there, in any order.
    void betsOnFile()
    {
        Event event;
        const QByteArray before = "2,6,3,3\r\n1,4,1,1\r\n3,1,1,9\r\n";
        event.writeTwins(u"Bets Race1"_s, before);
        event.putThere(u"Bets Race1"_s, "1,4,1,1\r\n1,4,1,1\r\n3,6,3,3.00\r\n2,5,2,2.5\r\n");
        ImportPlan plan = event.plan(everything);
        QCOMPARE(plan.racesOnFile(), QStringList{u"Race1: 2 of 4 bets are new"_s});
        plan.leaveOutBetsOnFile();
        QCOMPARE(plan.races[0].bets, 2);
        QCOMPARE(plan.races[0].dollars, 3.5);
        QCOMPARE(carryOutImport(event.session, plan), QString());
        QCOMPARE(event.readTwins(u"Bets Race1"_s), before + "1,4,1,1\r\n4,5,2,2.5\r\n");
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
        QCOMPARE(event.readTwins(u"Horses Race2"_s),
                 horseRecords(cardOf({{1, 0, u"1"_s, u"Rex"_s}})));
    }

    // AnyBettor is number 1 on every computer, also where a list has lost him or misplaced him.
    void anyBettorStaysOne()
    {
        const QByteArray any = "1,\"AnyBettor\"\r\n";
        const QByteArray lee = "2,\"LEE\"\r\n";
        const QByteArray taken = "1,4,1,1\r\n2,4,1,2\r\n";
        // The list here, the list there, and the bets that come of it.
        Rows<QByteArray, QByteArray, QByteArray> rows;
        rows("lost there", any, lee, taken);
        rows("lost here", {}, any + lee, taken);
        rows("misplaced", any, "1,\"lee\"\r\n2,\"anybettor\"\r\n", "2,4,1,1\r\n1,4,1,2\r\n");
        for (const auto &[row, here, there, bets] : rows) {
            Event event;
            event.writeTwins(u"Bettors"_s, here);
            event.putThere(u"Bettors"_s, there);
            event.putThere(u"Bets Race1"_s, taken);
            event.import(everything);
            QCOMPARE(event.readTwins(u"Bettors"_s), any + lee);
            QCOMPARE(event.readTwins(u"Bets Race1"_s), bets);
        }
    }

    // The event's own files may still be missing: the import makes them. Numbers are given on top
    // of the list as it was read: another list needs another plan.
    void filesHere()
    {
        Event event;
        QVERIFY(QDir(event.path({})).removeRecursively());
        event.import(everything);
        QCOMPARE(event.readTwins(u"Bettors"_s),
                 "1,\"AnyBettor\"\r\n2,\"NEW ONE\"\r\n3,\"SMITH\"\r\n");
        QVERIFY(event.exists(u"Multibets Race12"_s));
        const QByteArray late = "1,\"AnyBettor\"\r\n4,\"LATE\"\r\n";
        event.writeTwins(u"Bettors"_s, late);
        const ImportPlan planned = event.plan(everything);
        event.writeTwins(u"Bettors"_s, late + "5,\"LATER\"\r\n");
        QCOMPARE(carryOutImport(event.session, planned),
                 u"The bettor list has changed meanwhile. Import again."_s);
        QCOMPARE(event.readTwins(u"Bettors"_s), late + "5,\"LATER\"\r\n");
    }

    // A refusal leaves every file as it was. Bets without their bettors are refused too, see the
    // screen.
    void refusals()
    {
        const QString club = u"D:\\Club\\"_s;
        // What is special to the row: a limit of bettors or bets, or a satellite.
        struct Here
        {
            int bettorLimit = 9;
            int betLimit = 9;
            bool isSatellite = false;
        };
        Rows<Here, ImportChoice, QString, QString> rows;
        rows("bettor limit", {3}, everything, club, u"No room for 1 new bettor"_s);
        rows("bet limit", {9, 1}, everything, club, u"No room for the bets of Race12"_s);
        rows("satellite", {9, 9, true}, everything, club,
             u"Horses update not permitted in satellite computer mode"_s);
        rows("satellite, no horses", {9, 9, true}, {false, true, true}, club,
             u"Bettor update not permitted in satellite computer mode"_s);
        rows("itself", {}, everything, u"C:\\Trelawn\\"_s, u"This is the event directory itself"_s);
        rows("no bettors there", {}, everything, u"D:\\"_s, u"There is no Bettors file in D:\\"_s);
        rows("nothing there", {}, {true, false, false}, club,
             u"None of the files chosen is in D:\\Club\\"_s);
        Event event;
        event.putThere(u"Bets Race12"_s, "2,5,2,2.5\r\n2,5,2,2.5\r\n");
        event.write(u"D:\\Bets Race1"_s, "2,5,2,2.5\r\n");
        for (const auto &[row, here, choice, folder, refusal] : rows) {
            event.session.settings.bettorLimit = here.bettorLimit;
            event.session.settings.betLimit = here.betLimit;
            event.session.settings.setRole(false, here.isSatellite);
            QCOMPARE(planImport(event.session, folder, choice).refusal, refusal);
            QVERIFY(event.readTwins(u"Bettors"_s).endsWith("3,\"JONES\"\r\n"));
            QCOMPARE(event.readTwins(u"Bets Race12"_s), "");
        }
    }
};

TRELAWN_TEST(tst_importevent)
#include "tst_importevent.moc"
