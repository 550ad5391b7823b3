#include "common/event/cashjournal.h"
#include "kit/testkit.h"

// The current race's files as screens load and save them.
class tst_racefiles : public QObject
{
    Q_OBJECT

private slots:
    void loadBets()
    {
        TestEvent event;
        event.session.settings.currentRace = 10;
        event.session.settings.betLimit = 1;
        event.write(u"BetsRace10"_s, "1,1,1,999\r\n"); // without the blank: another file
        event.write(u"Bets Race10"_s, "2,3,1,5\r\n2,22,1,5\r\n2,3,4,5\r\nbad\r\n3,3,2,2.5\r\n");
        const RaceBets race = LoadRaceBets(event.session);
        QCOMPARE(race.note, QString());
        QCOMPARE(race.bets.rows.size(), 5); // all of them, whatever the limit
        QCOMPARE(race.bets.rows[4].bet, (Bet{3, 3, 2, 2.5F}));
        QCOMPARE(race.pools.amount(3, int(BetType::Win)), 5.0F);
        QCOMPARE(race.pools.amount(3, totalColumn), 7.5F);
        QCOMPARE(race.pools.amount(totalsRow, totalColumn), 7.5F); // countable bets alone
        QCOMPARE(race.pools.total(BetType::Place), 2.5F);
    }

    // Without Bets both begin anew, and a full twin is kept; anything else in the way is told.
    void missingBets()
    {
        const QByteArray bets = "2,3,1,5\r\n";
        const QString main = u"Bets Race1"_s;
        TestEvent event;
        event.writeTwins(main, bets);
        event.remove({main});
        const QString note = LoadRaceBets(event.session).note;
        QCOMPARE(event.readTwins(main), QByteArray());
        QCOMPARE(event.savedCopies(u"Betsbackup Race1"_s), QByteArrayList{bets});
        QVERIFY(note.contains(event.saved().value(0)));
        event.block(main);
        QCOMPARE(errorOf([&] { LoadRaceBets(event.session); }), 75);
        QCOMPARE(event.session.settings.operationLabel, u"Bets input"_s);
        event.session.settings.eventDirectory = u"C:\\Elsewhere\\"_s;
        QCOMPARE(errorOf([&] { LoadRaceBets(event.session); }), 76);
        QVERIFY(!event.exists({}));
    }

    // The bets of bettor 2 go; damaged lines keep their bytes, and what was there before is in
    // Saved.
    void remove()
    {
        Rows<QByteArray, QByteArray> rows;
        rows("damaged lines",
             "2,1,1,5\r\n\"open,1\r\n2,1\r\n\xff\xfe 2,2\r\n 2 ,2,\"1\",.5\r\n 3 ,1,1,5.00",
             "\"open,1\r\n2,1\r\n\xff\xfe 2,2\r\n 3 ,1,1,5.00\r\n");
        rows("line ends of another system", "2,1,1,5\n3,1,1,5\n4,1,1,5\n",
             "3,1,1,5\r\n4,1,1,5\r\n");
        rows("all of them", "2,1,1,5\r\n", {});
        for (const auto &[row, before, after] : rows) {
            TestEvent event;
            LoadRaceBets(event.session);
            // Another computer's bets are in the file by now; the removal reads it again.
            event.writeTwins(u"Bets Race1"_s, before);
            const auto ofBettor2 = [](const BetTable &bets) {
                return placesWhere(bets, [&](const BetRow &bet) { return bets.isBetOf(bet, 2); });
            };
            removeBets(event.session, ofBettor2, refundPriorBets);
            QCOMPARE(event.readTwins(u"Bets Race1"_s), after);
            for (const QString &twin : TestEvent::twins(u"Bets Race1"_s))
                QCOMPARE(event.savedCopies(twin), QByteArrayList{before});
        }
    }
};

TRELAWN_TEST(tst_racefiles)
#include "tst_racefiles.moc"
