#include "common/odds.h"
#include "kit/testkit.h"

class tst_odds : public QObject
{
    Q_OBJECT

private slots:
    void fraction_data();
    void fraction();
    void coupledEntries();
};

void tst_odds::fraction_data()
{
    QTest::addColumn<float>("pool");
    QTest::addColumn<float>("money");
    QTest::addColumn<std::string>("shown");
    const auto row = [](const char *rule, float pool, float money, const char *shown) {
        QTest::newRow(rule) << pool << money << std::string(shown);
    };
    row("no money, no odds", 100, 0, "");
    row("all money on one horse shows the lowest", 100, 100, "1/9");
    row("exactly 1/9", 100, 90, "1/9");
    row("just under 1/5 falls to 1/9", 119, 100, "1/9");
    row("exactly 1/5", 120, 100, "1/5");
    row("even money", 50, 25, "1/1");
    row("exactly 8/5 survives the division", 26, 10, "8/5");
    row("just under 8/5 falls to 3/2", 25.75F, 10, "3/2");
    row("between 2/1 and 5/2", 34, 10, "2/1");
    row("exactly 9/2", 55, 10, "9/2");
    row("between 9/2 and 5/1", 59.75F, 10, "9/2");
    row("exactly 5/1", 60, 10, "5/1");
    row("between 5/1 and 6/1", 69, 10, "5/1");
    row("whole numbers above 5/1", 70, 10, "6/1");
    row("exactly 99/1", 100, 1, "99/1");
    row("higher shows the highest", 20000, 1, "99/1");
}

void tst_odds::fraction()
{
    QFETCH(float, pool);
    QFETCH(float, money);
    QTEST(oddsFraction(pool, money), "shown");
}

void tst_odds::coupledEntries()
{
    PoolTable pools;
    pools.add({1, 1, 1, 10});
    pools.add({1, 21, 1, 10});
    pools.add({1, 3, 1, 40});
    pools.add({1, 3, 2, 500}); // place money does not move win odds
    std::array<int, postCount> couplings{};
    couplings[0] = couplings[20] = couplings[4] = 9;
    const auto odds = winOdds(pools, couplings);
    QCOMPARE(odds[0], "2/1");
    QCOMPARE(odds[20], "2/1");
    QCOMPARE(odds[4], "2/1"); // without money of its own, it shows its entry's odds
    QCOMPARE(odds[2], "1/2");
    QCOMPARE(odds[1], ""); // uncoupled posts share nothing
}

TRELAWN_TEST_MAIN(tst_odds)
#include "tst_odds.moc"
