#include "betting/placement.h"
#include "betting/priorbets.h"
#include "common/event/eventfiles.h"
#include "common/event/eventrecords.h"
#include "common/event/racefiles.h"
#include "kit/faultywrites.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

namespace {

struct Entry
{
    int post;
    BetType type;
    float dollars;
};
using enum BetType;

BetEntries entriesOf(const QList<Entry> &list)
{
    BetEntries entries;
    for (const Entry &entry : list)
        entries.add(entry.post, entry.type, entry.dollars);
    return entries;
}

Placement placed(Session &session, const QList<Entry> &list)
{
    return placeBets(session, planPlacement(entriesOf(list), 4, 0, session.settings.betLimit));
}

QByteArray recordsOf(const std::vector<Bet> &bets)
{
    std::string records;
    for (const Bet &bet : bets)
        records += betLine(bet);
    return QByteArray::fromStdString(records);
}

} // namespace

class tst_placement : public QObject
{
    Q_OBJECT

private slots:
    void plan_data();
    void plan();
    void notes();
    void betLimit();
    void deletionOfAStaleList();
    void fileCalls();
};

void tst_placement::plan_data()
{
    QTest::addColumn<QList<Entry>>("entries");
    QTest::addColumn<QByteArray>("records");
    QTest::addColumn<bool>("stops");
    QTest::newRow("win, place, show columns, each from post 1")
        << QList<Entry>{{2, Show, 4}, {21, Win, 1}, {1, Place, 3}, {1, Win, 2}}
        << QByteArray("7,1,1,2\r\n7,21,1,1\r\n7,1,2,3\r\n7,2,3,4\r\n") << false;
    QTest::newRow("0.75 is dropped, 1.25 is placed")
        << QList<Entry>{{1, Win, 0.75F}, {2, Win, 1.25F}} << QByteArray("7,2,1,1.25\r\n") << false;
    QTest::newRow("a negative cell stops; earlier bets stay, later ones are not reached")
        << QList<Entry>{{1, Win, 5}, {1, Place, -2}, {2, Place, 9}} << QByteArray("7,1,1,5\r\n")
        << true;
    QTest::newRow("a cell back at zero is no bet")
        << QList<Entry>{{1, Win, 5}, {1, Win, -5}, {2, Win, 5}} << QByteArray("7,2,1,5\r\n")
        << false;
}

void tst_placement::plan()
{
    QFETCH(QList<Entry>, entries);
    const PlacementPlan plan = planPlacement(entriesOf(entries), 7, 0, 20000);
    QTEST(recordsOf(plan.bets), "records");
    QTEST(plan.stopsAtNegative, "stops");
    QVERIFY(!plan.overBettorLimit);
}

void tst_placement::notes()
{
    const QString note = entriesNote(entriesOf({{3, Win, 5}, {3, Show, -1}, {4, Win, 0.75F}}));
    QVERIFY(note.contains(u"below $1.00"_s) && note.contains(u"negative"_s));
    QVERIFY(entriesNote(entriesOf({{1, Win, 1000}})).isEmpty());
    QVERIFY(entriesNote(entriesOf({{1, Win, 1001}})).contains(u"Pay Winners"_s));
}

void tst_placement::betLimit()
{
    TestEvent event;
    event.write(u"Bets Race1"_s, "1,1,1,5\r\n");
    event.session.settings.betLimit = 3;
    QVERIFY(!placed(event.session, {{1, Win, 2}, {2, Win, 2}}).raceIsFull);
    const QByteArray full = event.read(u"Bets Race1"_s);
    QCOMPARE(full, QByteArray("1,1,1,5\r\n4,1,1,2\r\n4,2,1,2\r\n"));
    QVERIFY(placed(event.session, {{1, Win, 2}}).raceIsFull);
    QCOMPARE(event.read(u"Bets Race1"_s), full);
    // A sheet that places nothing needs no room.
    QVERIFY(!placed(event.session, {{1, Win, 0.5F}}).raceIsFull);
}

void tst_placement::deletionOfAStaleList()
{
    TestEvent event;
    event.write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,1,3\r\n");
    const PriorBets prior =
        priorBets(LoadRaceBets(event.session).bets, HorseTable(), 2, u"SMITH"_s);
    // Another computer deleted the first bet: the remembered rows moved.
    const QByteArray moved = "2,2,1,3\r\n3,1,1,8\r\n";
    event.write(u"Bets Race1"_s, moved);
    QVERIFY(deletePriorBets(event.session, {prior.bets[1]}).listWasStale);
    QCOMPARE(event.read(u"Bets Race1"_s), moved);
}

// Each call is a journey where the event is on a slow share.
void tst_placement::fileCalls()
{
    TestEvent event;
    Session &session = event.session;
    session.bettors = readBettors(session);
    BetEntries entries;
    entries.add(3, BetType::Win, 5);
    const FileCalls calls(eventFolder(session));
    priorBets(LoadRaceBets(session).bets, HorseTable(), 2, u"ANNA"_s);
    const int choosing = calls.all();
    session.bettors = readBettors(session);
    readHorses(session, 1);
    placeBets(session, planPlacement(entries, 2, 0, session.settings.betLimit));
    const QByteArray counts = QByteArray::number(choosing) + ' '
                              + QByteArray::number(calls.all() - choosing) + ' '
                              + QByteArray::number(calls.underLock());
    qInfo("choosing, placing, under the lock: %s", counts.constData());
    QVERIFY2(choosing > 0 && choosing <= 8, counts);
    QVERIFY2(calls.all() - choosing > 10 && calls.all() - choosing <= 25, counts);
    QVERIFY2(calls.underLock() > 8 && calls.underLock() <= 12, counts);
}

TRELAWN_TEST(tst_placement)
#include "tst_placement.moc"
