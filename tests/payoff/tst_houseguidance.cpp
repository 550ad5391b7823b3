#include "kit/testkit.h"
#include "payoff/houseguidance.h"

class tst_houseguidance : public QObject
{
    Q_OBJECT

private slots:
    // What it says agrees with what the winners of a race are owed in the end.
    void differences()
    {
        Rows<double, bool, bool, QString> rows; // house percentage, 532, track payoffs
        rows("no house", 0, false, false, QString());
        rows("ten percent", 10, false, false,
             u"The house keeps $12.00 (10 %): $PAID should be that much less than $BET, give or "
             "take rounding."_s);
        rows("the track's", 10, false, true, QString());
        rows("532", 10, true, false,
             u"532 pays from the win pool alone, after the house percentage of 10 %: $PAID should "
             "be $25.50 less than $BET, give or take rounding."_s);
        const BetTable placed =
            parseBets("1,1,1,50\r\n2,2,1,30\r\n3,3,1,20\r\n1,1,2,10\r\n2,3,3,10\r\n");
        for (const auto &[row, percent, is532, isTrack, text] : rows) {
            RaceResult result;
            result.finishers = {1, 2, 3};
            result.bettorCount = 3;
            result.housePercent = percent;
            result.is532 = is532;
            if (isTrack)
                result.trackPayoffs.emplace();
            const Settlement settlement = settle(placed, result);
            double owed = 0;
            for (const WinningBettor &winner : settlement.winners)
                owed += double(winner.owed);
            QCOMPARE(houseGuidance(result, settlement, owed), text);
            if (!is532 && !isTrack)
                QCOMPARE(float(owed), 120 - settlement.houseCut);
        }
    }
};

TRELAWN_TEST(tst_houseguidance)
#include "tst_houseguidance.moc"
