#include "common/event/eventfiles.h"
#include "common/event/racefiles.h"
#include "common/files/fileerror.h"
#include "kit/testkit.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

// The current race's files as screens load and save them.
class tst_racefiles : public QObject
{
    Q_OBJECT

private slots:
    void loadBets();
    void missingBets();
    void otherFailureIsReported();
    void append();
    void remove();
};

void tst_racefiles::loadBets()
{
    TestEvent event;
    event.session.settings.currentRace = 10;
    event.session.settings.betLimit = 1;
    event.write(u"BetsRace10"_s, "1,1,1,999\r\n"); // without the blank: another file
    event.write(u"Bets Race10"_s, "2,3,1,5\r\n2,22,1,5\r\n2,3,4,5\r\nbad\r\n3,3,2,2.5\r\n");
    RaceBets race = LoadRaceBets(event.session);
    QCOMPARE(race.note, QString());
    QCOMPARE(race.bets.rows.size(), 5); // all of them, whatever the limit
    QCOMPARE(race.bets.rows[4].bet, (Bet{3, 3, 2, 2.5F}));
    QCOMPARE(race.pools.amount(3, int(BetType::Win)), 5.0F);
    QCOMPARE(race.pools.amount(3, totalColumn), 7.5F);
    QCOMPARE(race.pools.amount(totalsRow, totalColumn), 7.5F); // countable bets alone
    QCOMPARE(race.pools.total(BetType::Place), 2.5F);
    event.session.settings.currentRace = 1;
    race = LoadRaceBets(event.session);
    QVERIFY(race.bets.rows.empty());
    QCOMPARE(race.pools.amount(totalsRow, totalColumn), 0.0F);
}

void tst_racefiles::missingBets()
{
    const QByteArray bets = "2,3,1,5\r\n";
    const QString main = u"Bets Race1"_s;
    const QString twin = u"Betsbackup Race1"_s;
    for (const QStringList &missing : {QStringList{main, twin}, {main}, {twin}}) {
        TestEvent event;
        event.write(main, bets);
        event.write(twin, bets);
        for (const QString &name : missing)
            QVERIFY(QFile::remove(event.path(name)));
        const QString note = LoadRaceBets(event.session).note;
        // Without Bets both begin anew, and a full twin is kept.
        const QByteArray after = missing.contains(main) ? QByteArray() : bets;
        QCOMPARE(event.read(main), after);
        QCOMPARE(event.read(twin), after);
        QCOMPARE(event.saved().size(), missing == QStringList{main} ? 1 : 0);
        if (!event.saved().isEmpty()) {
            QCOMPARE(event.read(u"Saved\\"_s + event.saved().front()), bets);
            QVERIFY(note.contains(event.saved().front()));
        }
    }
}

// Only missing Bets are made anew: no folder, or something else in the way, is told.
void tst_racefiles::otherFailureIsReported()
{
    TestEvent event;
    Settings &settings = event.session.settings;
    QVERIFY(QFile::remove(event.path(u"Bets Race2"_s)));
    QVERIFY(QDir(event.path({})).mkdir(u"Bets Race2"_s));
    settings.currentRace = 2;
    QCOMPARE(errorOf([&] { LoadRaceBets(event.session); }), 75);
    QCOMPARE(settings.operationLabel, u"Bets input"_s);
    settings.eventDirectory = u"C:\\Elsewhere\\"_s;
    QCOMPARE(errorOf([&] { LoadRaceBets(event.session); }), 76);
    QVERIFY(!QDir(event.path({})).exists());
}

void tst_racefiles::append()
{
    TestEvent event;
    event.session.settings.currentRace = 3;
    event.write(u"Bets Race3"_s, "9,9,1,1");
    event.write(u"Betsbackup Race3"_s, "9,9,1,1\r\n");
    constexpr Bet bets[] = {{2, 3, 1, 5}, {2, 21, 3, 0.25F}};
    AppendBet(event.session, bets);
    const QByteArray expected = "9,9,1,1\r\n2,3,1,5\r\n2,21,3,0.25\r\n";
    QCOMPARE(event.read(u"Bets Race3"_s), expected);
    QCOMPARE(event.read(u"Betsbackup Race3"_s), expected);
    QCOMPARE(LoadRaceBets(event.session).bets.rows[2].bet, bets[1]);

    // Where the twin cannot be written, nothing counts as placed.
    QVERIFY(QFile::remove(event.path(u"Betsbackup Race3"_s)));
    QVERIFY(QDir(event.path({})).mkdir(u"Betsbackup Race3"_s));
    QVERIFY_THROWS_EXCEPTION(FileError, AppendBet(event.session, bets));
    QCOMPARE(event.session.settings.operationLabel, u"Betsbackup Append"_s);
    QCOMPARE(event.read(u"Bets Race3"_s), expected);
}

// The bets of bettor 2 go; damaged lines keep their bytes, and what was there before is in Saved.
void tst_racefiles::remove()
{
    const std::pair<QByteArray, QByteArray> cases[] = {
        {"2,1,1,5\r\n\"open,1\r\n2,1\r\n\xff\xfe 2,2\r\n 2 ,2,\"1\",.5\r\n3,1,1,5",
         "\"open,1\r\n2,1\r\n\xff\xfe 2,2\r\n3,1,1,5\r\n"},
        {"2,1,1,5\n3,1,1,5\n4,1,1,5\n", "3,1,1,5\r\n4,1,1,5\r\n"}, // ends of another system
        {"2,1,1,5\r\n", {}}};
    for (const auto &[before, after] : cases) {
        TestEvent event;
        Session &session = event.session;
        LoadRaceBets(session);
        // Another computer's bets are in the file by now; the removal reads it again.
        event.write(u"Bets Race1"_s, before);
        event.write(u"Betsbackup Race1"_s, before);
        removeBets(session, [](const BetTable &bets) {
            return placesWhere(bets, [&](const BetRow &row) { return bets.isBetOf(row, 2); });
        });
        QCOMPARE(LoadRaceBets(session).bets.bytes, after.toStdString());
        for (const QString &twin : {u"Bets Race1"_s, u"Betsbackup Race1"_s}) {
            QCOMPARE(event.read(twin), after);
            QCOMPARE(event.savedCopies(twin), QByteArrayList{before});
        }
    }
}

TRELAWN_TEST(tst_racefiles)
#include "tst_racefiles.moc"
