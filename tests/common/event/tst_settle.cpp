#include "common/event/settle.h"
#include "kit/testkit.h"

namespace {

const QByteArray fullRace = "1,5,1,10 2,5,1,2.5 3,3,1,20 4,8,1,7.5 1,5,2,4 2,3,2,6 4,8,2,12 "
                            "1,5,3,3 3,3,3,5 5,7,3,2 4,8,3,9";

struct Terms
{
    double house = 0;
    QString entries = {}; // post=pool ...
    bool is532 = false;
};

Settlement settled(const QByteArray &bets, const RaceResult &race)
{
    return settle(parseBets(QByteArray(bets).replace(' ', "\r\n").toStdString()), race);
}

QString rounded(float value, int decimals)
{
    const double scale = std::pow(10, decimals);
    return QString::number(std::round(double(value) * scale) / scale);
}

// "win place show pools | six payoffs | bettor:owed ...", or "-" where nobody won.
QString shown(const Settlement &s)
{
    QStringList texts;
    for (const float pool : {s.winPool, s.placePool, s.showPool})
        texts << rounded(pool, 2);
    texts << (s.hasWinners ? u"|"_s : u"| -"_s);
    for (const Combination combination : allCombinations) {
        if (s.hasWinners)
            texts << rounded(s.payoffs[combination], 4);
    }
    texts << (s.hasWinners ? u"|"_s : QString());
    for (const WinningBettor &winner : s.winners)
        texts << QString::number(winner.number) + u':' + rounded(winner.owed, 2);
    return texts.join(u' ').trimmed();
}

} // namespace

// The expected numbers were computed with exact fractions from the rules, apart from this program.
class tst_settle : public QObject
{
    Q_OBJECT

private slots:
    void race()
    {
        Rows<QByteArray, Terms, QString> rows;
        // The finish is 5, 3, 7.
        rows("winning combinations in all pools", fullRace, {},
             u"40 22 19 | 3.2 2.5 2 2 1.6 2.5 | 1:48 2:20 3:8 5:5"_s);
        rows("house percentage off the gross payoff", fullRace, {10},
             u"40 22 19 | 2.88 2.25 1.8 1.8 1.44 2.25 | 1:43.2 2:18 3:7.2 5:4.5"_s);
        rows(
            "no win combination: half to place, half to show",
            "3,3,1,20 4,8,1,7.5 1,5,2,4 2,3,2,6 4,8,2,12 1,5,3,3 3,3,3,5 5,7,3,2 4,8,3,9", {},
            u"27.5 22 19 | 0 4.2188 3.5278 3.1458 2.5167 4.7917 | 1:27.46 2:18.88 3:12.58 5:9.58"_s);
        rows("show combinations alone take all pools",
             "3,3,1,20 4,8,1,7.5 4,8,2,12 1,5,3,3 3,3,3,5 5,7,3,2 4,8,3,9", {},
             u"27.5 12 19 | 0 0 6.3889 0 4.2333 9.0833 | 1:19.17 3:21.17 5:18.17"_s);
        rows("place combinations alone take all pools",
             "3,3,1,20 4,8,1,7.5 1,5,2,4 2,3,2,6 4,8,2,12 4,8,3,9", {},
             u"27.5 22 9 | 0 7.0625 0 5.0417 0 0 | 1:28.25 2:30.25"_s);
        rows("win combinations alone take all pools",
             "1,5,1,10 2,5,1,2.5 3,3,1,20 4,8,1,7.5 4,8,2,12 4,8,3,9", {},
             u"40 12 9 | 4.88 0 0 0 0 0 | 1:48.8 2:12.2"_s);
        rows("no show combination: half to win, half to place",
             "1,5,1,10 2,5,1,2.5 3,3,1,20 4,8,1,7.5 1,5,2,4 2,3,2,6 4,8,2,12 4,8,3,9", {},
             u"40 22 9 | 3.56 3.0625 0 2.375 0 0 | 1:47.85 2:23.15"_s);
        rows("no place combination: half to win, half to show",
             "1,5,1,10 2,5,1,2.5 3,3,1,20 4,8,1,7.5 4,8,2,12 1,5,3,3 3,3,3,5 5,7,3,2 4,8,3,9", {},
             u"40 12 19 | 3.68 0 2.6667 0 2 3.5 | 1:44.8 2:9.2 3:10 5:7"_s);
        rows("no winning combination at all", "4,8,1,7.5 4,8,2,12", {}, u"7.5 12 0 | -"_s);
        rows("place horse alone takes the place pool, one show horse the show pool",
             "1,5,1,2 2,3,2,6 4,8,2,12 5,7,3,2", {}, u"2 18 2 | 1 0 0 3 0 1 | 1:2 2:18 5:2"_s);
        rows("win horse alone takes the place pool, two horses share show",
             "1,5,1,2 2,5,2,6 4,8,2,12 5,7,3,2 3,3,3,4 4,8,3,9", {},
             u"2 18 15 | 1 3 0 0 2.125 3.25 | 1:2 2:18 3:8.5 5:6.5"_s);
        rows("win and place coupled: each has the other's money", fullRace, {0, u"5=1 3=1"_s},
             u"40 22 19 | 1.2308 1.1 1.0417 1.1 1.0417 1.1667 | 1:27.36 2:16.28 3:35.03 5:2.33"_s);
        rows("coupled with a horse that did not finish", fullRace, {0, u"5=2 8=2"_s},
             u"40 22 19 | 2 1 1 1 1 1 | 1:27 2:11 3:5 4:36 5:2"_s);
        rows("532: win bets share 50, 30 and 20 percent",
             "1,5,1,10 2,5,1,10 3,3,1,20 4,7,1,5 5,8,1,55", {0, {}, true},
             u"50 30 20 | 2.5 0 0 1.5 0 4 | 1:25 2:25 3:30 4:20"_s);
        rows("532: nobody on the show horse divides by nothing, no pool moves",
             "1,5,1,10 3,3,1,20 5,8,1,55", {0, {}, true},
             u"42.5 25.5 17 | 4.25 0 0 1.275 0 0 | 1:42.5 3:25.5"_s);
        rows("532: place and show bets too, a loss is not floored", fullRace, {0, {}, true},
             u"20 12 8 | 1.6 -1.25 0.7778 0.3871 0.8667 4 | 1:13.33 2:6.32 3:12.08 5:8"_s);
        rows("532: rows of a coupled entry are summed", fullRace + " 5,7,1,4",
             {0, u"3=1 8=1"_s, true},
             u"22 13.2 8.8 | 1.76 -3.5375 -0.5778 0.2218 0.6619 1.4667 | "
             "1:1.72 2:5.73 3:7.75 4:10.28 5:8.8"_s);
        rows("limits: 0.01 and 1000 pass, 0.005 and 1000.01 do not",
             "1,5,1,0.01 1,5,1,1000 1,5,1,0.005 1,5,1,1000.01", {},
             u"1000.01 0 0 | 1 0 0 0 0 0 | 1:1000.01"_s);
        for (const auto &[row, bets, terms, expected] : rows) {
            RaceResult race{{5, 3, 7}, {}, 9, terms.house, terms.is532, {}};
            for (const QString &entry : terms.entries.split(u' ', Qt::SkipEmptyParts))
                race.coupling[entry.section(u'=', 0, 0).toUInt()] = entry.section(u'=', 1).toInt();
            const Settlement settlement = settled(bets, race);
            QCOMPARE(shown(settlement), expected);
            const float pools = settlement.winPool + settlement.placePool + settlement.showPool;
            QCOMPARE(settlement.allPools, pools);
            QCOMPARE(settlement.houseCut, pools * float(terms.house) / 100);

            // The track's payoffs take the place of the calculated ones and give the house its
            // part.
            CombinationAmounts track;
            std::ranges::copy(std::array{4.0F, 2.1F, 1.5F, 2.5F, 1.3F, 1.1F}, track.begin());
            race.trackPayoffs = track;
            const Settlement tracked = settled(bets, race);
            QCOMPARE(tracked.hasWinners, settlement.hasWinners);
            if (tracked.hasWinners) {
                QVERIFY(tracked.beforeHouse == track);
                QCOMPARE(tracked.payoffs[Combination::PlaceShow],
                         1.3F * float(1 - terms.house / 100));
            }
        }
    }

    void damagedRecords()
    {
        const RaceResult race{{5, 3, 7}, {}, 9, 0, false, {}};
        // Posts outside 1 to 21 are passed over without being bad.
        const Settlement settlement = settled(
            "9,5,1,2 2,22,1,5 2,0,1,5 0,5,1,2 10,5,1,2 1.5,5,1,2 2,5,4,5 2,5,1.5,5 2,5.5,1,5 "
            "2,5,1,-3 2,5,1 junk 2,5,1,5,1",
            race);
        QCOMPARE(settlement.badRecords, 10);
        QCOMPARE(shown(settlement), u"2 0 0 | 1 0 0 0 0 0 | 9:2"_s);
    }

    void singlePrecision()
    {
        QByteArray bets;
        for (int i = 0; i < 3000; ++i)
            bets += "1,5,1,0.1 ";
        // 300.00 in exact numbers; single precision errs by this much on the way.
        QVERIFY(settled(bets, {{5, 3, 7}, {}, 9, 0, false, {}}).winPool == 300.00909423828125F);
    }
};

TRELAWN_TEST(tst_settle)
#include "tst_settle.moc"
