#include "common/event/cashjournal.h"
#include "kit/screentest.h"

// Betting on a race that was settled, and the receipt that the printer spoilt.
class tst_settledrace : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->writeTwins(u"Horses Race2"_s, horseRecords(cardOf({{1, 0, u"1A"_s, u"ALPHA"_s}})));
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n");
        CashEntry settlement{CashKind::Settled, 2};
        settlement.settled = RaceSettled{};
        settlement.settled->payoffs.finishers = {1, 2, 2};
        settlement.settled->housePercent = 12;
        recordCash(event->session, {settlement});
        open(u"frmsheetb"_s);
    }

    void asksOnceMore()
    {
        const QString settled = u"Race2 was settled at "_s
                                + readCashJournal(event->session).lines.back().clock()
                                + u": 1A, house 12 %"_s;
        QVERIFY(!event->note().contains(u"settled"_s));
        press(u"optrace_2"_s);
        QCOMPARE(event->note(), settled + u". A bet on it comes too late."_s);
        select(u"lstentries"_s, u"ADA"_s);
        clickCell(screen(), u"txtnumber_21"_s);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
            expect(settled + u". Place these bets all the same?"_s, u"Place Bets"_s, answer);
            press(u"cmdplacebets"_s);
            QCOMPARE(event->readTwins(u"Bets Race2"_s),
                     QByteArray(answer == Answer::Yes ? "2,1,1,1\r\n" : ""));
        }
        // The bettor's receipt can be printed again as soon as it jams.
        QCOMPARE(event->slips.size(), 1);
        press(u"cmdreceipt"_s);
        QCOMPARE(slipText(event->slips.value(1)), slipText(event->slips.value(0)));
        QCOMPARE(event->note(), u"Printed once more for ADA"_s);
        press(u"optrace_1"_s);
        press(u"cmdreceipt"_s);
        QCOMPARE(event->note(), u"Select a bettor who has bets in this race first."_s);
    }
};

TRELAWN_TEST(tst_settledrace)
#include "tst_settledrace.moc"
