#include "common/event/odds.h"
#include "kit/testkit.h"

class tst_odds : public QObject
{
    Q_OBJECT

private slots:
    void fraction()
    {
        const std::tuple<float, float, std::string> cases[] = {
            {100, 0, ""},        // no money, no odds
            {100, 100, "1/9"},   // all of it: the lowest
            {119, 100, "1/9"},   // just under 1/5
            {26, 10, "8/5"},     // survives the division
            {59.75F, 10, "9/2"}, // just under 5/1
            {69, 10, "5/1"},     // whole numbers from here
            {20000, 1, "99/1"}}; // the highest
        for (const auto &[pool, money, shown] : cases)
            QCOMPARE(oddsFraction(pool, money), shown);
    }

    void coupledEntries()
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
};

TRELAWN_TEST(tst_odds)
#include "tst_odds.moc"
