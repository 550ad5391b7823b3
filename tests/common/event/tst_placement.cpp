#include "betting/priorbets.h"
#include "betting/receipts.h"
#include "common/event/cashanswers.h"
#include "common/event/eventrecords.h"
#include "common/event/placement.h"
#include "kit/faultywrites.h"
#include "kit/testkit.h"

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

} // namespace

class tst_placement : public QObject
{
    Q_OBJECT

private slots:
    void plan()
    {
        Rows<QList<Entry>, std::string, bool> rows;
        rows("win, place, show columns, each from post 1",
             {{2, Show, 4}, {21, Win, 1}, {1, Place, 3}, {1, Win, 2}},
             "7,1,1,2\r\n7,21,1,1\r\n7,1,2,3\r\n7,2,3,4\r\n", false);
        rows("0.75 is dropped, 1.25 is placed", {{1, Win, 0.75F}, {2, Win, 1.25F}},
             "7,2,1,1.25\r\n", false);
        rows("a negative cell stops; earlier bets stay, later ones are not reached",
             {{1, Win, 5}, {1, Place, -2}, {2, Place, 9}}, "7,1,1,5\r\n", true);
        rows("a cell back at zero is no bet", {{1, Win, 5}, {1, Win, -5}, {2, Win, 5}},
             "7,2,1,5\r\n", false);
        for (const auto &[row, entries, records, stops] : rows) {
            const PlacementPlan plan = planPlacement(entriesOf(entries), 7, 0, 20000);
            std::string planned;
            for (const Bet &bet : plan.bets)
                planned += betLine(bet);
            QCOMPARE(planned, records);
            QCOMPARE(plan.stopsAtNegative, stops);
            QVERIFY(!plan.overBettorLimit);
        }
    }

    void notes()
    {
        const QString note = entriesNote(entriesOf({{3, Win, 5}, {3, Show, -1}, {4, Win, 0.75F}}));
        QVERIFY(note.contains(u"below $1.00"_s) && note.contains(u"negative"_s));
        QVERIFY(entriesNote(entriesOf({{1, Win, 1000}})).isEmpty());
        QVERIFY(entriesNote(entriesOf({{1, Win, 1001}})).contains(u"Pay Winners"_s));
    }

    void betLimit()
    {
        TestEvent event;
        event.write(u"Bets Race1"_s, "1,1,1,5\r\n");
        const auto isFull = [&](const QList<Entry> &list) {
            return placeBets(event.session, planPlacement(entriesOf(list), 4, 0, 3)).raceIsFull;
        };
        event.session.settings.betLimit = 3;
        QVERIFY(!isFull({{1, Win, 2}, {2, Win, 2}}));
        QVERIFY(isFull({{1, Win, 2}}));
        QCOMPARE(event.read(u"Bets Race1"_s), "1,1,1,5\r\n4,1,1,2\r\n4,2,1,2\r\n");
        QVERIFY(!isFull({{1, Win, 0.5F}})); // a sheet that places nothing needs no room
    }

    void deletionOfAStaleList()
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

    void betLines()
    {
        HorseTable horses;
        horses.post(3) = {3, 0, u"3"_s, u"Secretariat"_s};
        horses.post(4) = {4, 0, u"12"_s, u"A Name Beyond Fifteen"_s};
        // Only a placed bet's name is cut; the last post is not on the card.
        const std::tuple<Bet, QString, QString> bets[] = {
            {{1, 3, 1, 5},
             u" 3 Secretariat     $05.00 Win"_s,
             u"3  Secretariat     $05.00 Win  "_s},
            {{1, 4, 2, 1234.5F},
             u"12 A Name Beyond F $1,234.50 Place"_s,
             u"12 A Name Beyond Fifteen $1,234.50 Place"_s},
            {{1, 30, 3, 2},
             u"                   $02.00 Show"_s,
             u"                   $02.00 Show "_s}};
        for (const auto &[bet, placed, saved] : bets) {
            QCOMPARE(placedBetLine(horses, bet), placed);
            QCOMPARE(savedBetLine(horses, bet), saved);
        }
    }

    void receiptTotalAndFont()
    {
        Settings settings;
        const PriorBets prior{2, u"SMITH"_s, {}, 1007};
        QCOMPARE(slipText(betReceipt(settings, prior)).last(), u"TOTAL BETS $1007.00"_s);
        QCOMPARE(settings.receiptFontSize, u"8"_s); // an empty size becomes 8
        settings.receiptFontSize = u"12"_s;
        QCOMPARE(betReceipt(settings, prior).pointSize, 12.0);
    }

    // Each call is a journey where the event is on a slow share. What the journals of all computers
    // say of the race is known but for one look at each other's; the own line is one flushed
    // append.
    void fileCalls()
    {
        TestEvent event;
        Session &session = event.session;
        session.settings.networkMode = NetworkMode::Satellite;
        session.settings.currentRace = 2;
        event.writeTwins(u"Bets Race2"_s, "2,1,1,5\r\n");
        session.bettors = readBettors(session);
        recordCash(session, {{CashKind::Float, 0, 0, {}, 1}}); // the first line makes the journal
        event.write(u"Cash OTHER"_s, cashRecord({CashKind::Float, 0, 0, {}, 1}));
        lookIntoCashJournal(session);
        const FileCalls calls(eventFolder(session));
        priorBets(LoadRaceBets(session).bets, HorseTable(), 2, u"ANNA"_s);
        const int choosing = FileCalls::all;
        readBettors(session);
        readHorses(session, 2);
        const int checking = FileCalls::all - choosing;
        lookIntoCashJournal(session);
        const int looking = FileCalls::all - choosing - checking;
        placeBets(session,
                  planPlacement(entriesOf({{3, Win, 5}}), 2, 0, session.settings.betLimit));
        const int placing = FileCalls::all - choosing - looking;
        qInfo("choosing, looking, placing, under the lock: %d %d %d %d", choosing, looking, placing,
              FileCalls::underLock);
        QVERIFY(choosing > 0 && choosing <= 8);
        QCOMPARE(looking, 1);
        QVERIFY(placing > 10 && placing <= 23 + 5);
        QVERIFY(FileCalls::underLock > 8 && FileCalls::underLock <= 12);
        QVERIFY(event.read(u"Cash "_s + computerName(session)).contains("\"bets\",2,2,"));
    }
};

TRELAWN_TEST(tst_placement)
#include "tst_placement.moc"
