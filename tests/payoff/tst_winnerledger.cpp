#include "kit/testkit.h"
#include "payoff/winnerledger.h"

class tst_winnerledger : public QObject
{
    Q_OBJECT

private slots:
    // Owed before anybody is paid, and paid when everybody is, to the cent.
    void totals()
    {
        Rows<int, float, int, double, double> rows;
        rows("each total is rounded for itself", 3, 1.13F, 3, 3.39, 3.75);
        rows("many winners at .01 are owed what they are paid", 1626, 92.81F, 1, 150909.06,
             150909.06);
        rows("many winners at .10", 1626, 92.81F, 2, 150909.06, 150892.8);
        for (const auto &[row, winners, stake, index, owed, rounded] : rows) {
            WinnerLedger ledger;
            start(ledger, 1, winners, stake, index);
            QCOMPARE(ledger.owed(), owed);
            QCOMPARE(ledger.owedRounded(), rounded);
            for (int i = 0; i < winners; ++i)
                ledger.pay(std::size_t(i));
            QCOMPARE(ledger.unpaidCount(), 0);
            QCOMPARE(ledger.paid(), owed);
            QCOMPARE(ledger.paidRounded(), rounded);
        }
    }

    void namesTheUnpaid()
    {
        Rows<int, QList<int>, QString> rows;
        rows("all but one", 3, {1}, u"Not paid in Race7: A, C"_s);
        rows("none", 2, {0, 1}, {});
        rows("many", 5, {0}, u"Not paid in Race7: B, C, 4 Bad Bettor Number and 1 more"_s);
        for (const auto &[row, winnerCount, paid, note] : rows) {
            WinnerLedger ledger;
            start(ledger, 7, winnerCount);
            for (const int index : paid)
                ledger.pay(std::size_t(index));
            ledger.closeRace(bettors);
            QCOMPARE(ledger.unpaidNotes().join(u';'), note);
            // Paid later, the race is no longer named.
            start(ledger, 7, 1);
            ledger.pay(0);
            ledger.closeRace(bettors);
            QVERIFY(ledger.unpaidNotes().isEmpty());
        }
    }

private:
    // A winner has a win ticket of this many dollars, which pays $1 for $1.
    static void start(WinnerLedger &ledger, int race, int count, float stake = 1, int index = 1)
    {
        std::vector<WinningBettor> list;
        for (int number = 1; number <= count; ++number) {
            list.push_back({number, {}, stake});
            list.back().stakes[Combination::WinWin] = stake;
        }
        CombinationAmounts payoffs;
        payoffs[Combination::WinWin] = 1;
        ledger.start(race, std::move(list), payoffs, index);
    }
    const BettorTable bettors =
        BettorTable::parse("1,\"A\"\r\n2,\"B\"\r\n3,\"C\"\r\n5,\"E\"\r\n", 9);
};

TRELAWN_TEST(tst_winnerledger)
#include "tst_winnerledger.moc"
