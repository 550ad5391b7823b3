#include "kit/testkit.h"
#include "payoff/winnerledger.h"

using namespace Qt::StringLiterals;

class tst_winnerledger : public QObject
{
    Q_OBJECT

private slots:
    void roundsEachTotalForItself();
    void namesTheUnpaid();
    void slipsOfClosedRacesStay();

private:
    static std::vector<WinningBettor> winners(int count, float owed = 1)
    {
        std::vector<WinningBettor> list;
        for (int number = 1; number <= count; ++number)
            list.push_back({number, {}, owed});
        return list;
    }
    const BettorTable bettors =
        BettorTable::parse("1,\"A\"\r\n2,\"B\"\r\n3,\"C\"\r\n5,\"E\"\r\n", 9);
};

void tst_winnerledger::roundsEachTotalForItself()
{
    WinnerLedger ledger;
    ledger.start(1, winners(3, 1.13F), 3);
    QCOMPARE(ledger.owed(), 3.39F);
    QCOMPARE(ledger.owedRounded(), 3.75F);
    Payment payment;
    payment.total = 1.13;
    payment.rounded = 1.25;
    ledger.pay(1, payment);
    QCOMPARE(ledger.paidCount(), 1);
    QCOMPARE(ledger.unpaidCount(), 2);
    QCOMPARE(ledger.paid(), 1.13F);
    QCOMPARE(ledger.paidRounded(), 1.25F);
}

void tst_winnerledger::namesTheUnpaid()
{
    const std::tuple<int, QList<int>, QString> races[] = {
        {3, {1}, u"Not paid in Race7: A, C"_s},
        {2, {0, 1}, {}},
        {3, {}, u"Not paid in Race7: A, B, C"_s},
        {5, {0}, u"Not paid in Race7: B, C, 4 Bad Bettor Number and 1 more"_s}};
    for (const auto &[winnerCount, paid, note] : races) {
        WinnerLedger ledger;
        ledger.start(7, winners(winnerCount), 1);
        for (const int index : paid)
            ledger.pay(std::size_t(index), {});
        ledger.closeRace(bettors);
        QCOMPARE(ledger.unpaidNotes().join(u';'), note);
        // Paid later, the race is no longer named.
        ledger.start(7, winners(1), 1);
        ledger.pay(0, {});
        ledger.closeRace(bettors);
        QVERIFY(ledger.unpaidNotes().isEmpty());
    }
}

void tst_winnerledger::slipsOfClosedRacesStay()
{
    WinnerLedger ledger;
    ledger.start(1, winners(1), 1);
    ledger.addSlip({{{1, u"one"_s}}});
    ledger.closeRace(bettors);
    ledger.start(2, winners(1), 1);
    ledger.addSlip({{{1, u"two"_s}}});
    QCOMPARE(ledger.slips().size(), 2);
    ledger.start(2, winners(1), 1);
    QCOMPARE(ledger.slips().size(), 1);
    QCOMPARE(ledger.slips().front().front().text, u"one"_s);
}

TRELAWN_TEST_MAIN(tst_winnerledger)
#include "tst_winnerledger.moc"
