#include "common/event/racesummary.h"
#include "kit/testkit.h"
#include "reports/betlistings.h"
#include "reports/summaryslip.h"

namespace {

RaceRecords raceWith(const QByteArray &bets)
{
    RaceRecords race;
    race.race = 1;
    race.horses =
        cardOf({{1, 1, u"1"_s, u"ALFA"_s}, {2, 1, u"1A"_s, u"BRAVO"_s}, {3, 2, u"3"_s, u"COCO"_s}});
    race.bets = parseBets(bets.toStdString());
    return race;
}

const BettorTable bettors = BettorTable::parse("1,\"AnyBettor\"\r\n2,\"ZOE\"\r\n3,\"ANN\"\r\n", 10);

QStringList cellsOf(const RaceSummary &summary)
{
    QStringList lines;
    for (const SummaryRow &row : summary.rows)
        lines.append(summaryCells(row).join(u'|'));
    lines.append(summaryCells(summary.totals).join(u'|'));
    return lines;
}

} // namespace

class tst_racesummary : public QObject
{
    Q_OBJECT

private slots:
    void summary()
    {
        const QString none = u"|$0.00|$0.00|$0.00|$0.00|"_s;
        Rows<QByteArray, QStringList, QString> rows;
        // Win pool 40: (40 - 25) / 25 = 3/5 for the entry, (40 - 15) / 15 = 1.67 shows 8/5.
        rows("the horses of an entry share their odds",
             "2,1,1,5\r\n2,2,1,20\r\n3,3,1,15\r\n3,3,2,2.5\r\n3,1,3,1000\r\n",
             {u"1|ALFA (entry 1)|$5.00|$0.00|$1,000.00|$1,005.00|3/5"_s,
              u"1A|BRAVO (entry 1)|$20.00|$0.00|$0.00|$20.00|3/5"_s,
              u"3|COCO|$15.00|$2.50|$0.00|$17.50|8/5"_s,
              u"|TOTALS|$40.00|$2.50|$1,000.00|$1,042.50|"_s},
             {});
        rows("money on a post without a horse is not hidden", "2,4,1,5\r\n",
             {u"1|ALFA (entry 1)"_s + none, u"1A|BRAVO (entry 1)"_s + none, u"3|COCO"_s + none,
              u"Post 4|(no horse)|$5.00|$0.00|$0.00|$5.00|1/9"_s,
              u"|TOTALS|$5.00|$0.00|$0.00|$5.00|"_s},
             {});
        rows("what Pay Winners refuses is counted apart",
             "4,1,1,5\r\n2,22,1,5\r\n2,1,4,5\r\n2,1,1,1000.5\r\n2,1\r\n2,1,1,5\r\n",
             {u"1|ALFA (entry 1)|$5.00|$0.00|$0.00|$5.00|1/9"_s,
              u"1A|BRAVO (entry 1)|$0.00|$0.00|$0.00|$0.00|1/9"_s, u"3|COCO"_s + none,
              u"|TOTALS|$5.00|$0.00|$0.00|$5.00|"_s},
             u"5 bad records are not counted: see Fix Files"_s);
        for (const auto &[row, bets, lines, note] : rows) {
            const RaceSummary summary = summarizeRace(raceWith(bets), bettors);
            QCOMPARE(cellsOf(summary), lines);
            QCOMPARE(summary.note(), note);
        }
    }

    void listings()
    {
        const RaceRecords race =
            raceWith("2,1,1,5\r\n3,2,3,2.5\r\n2,4,2,1\r\n7,3,1,10\r\njunk\r\n2,3,1,20\r\n");
        QCOMPARE(
            betsByBettor(race.bets, race.horses, bettors, u"Derby Race1"_s),
            (QStringList{u"Derby Race1"_s, u"ALL BETS BY BETTOR"_s, u" "_s,
                         u"7 Bad Bettor Number"_s, u"  3   COCO            Win         $10.00"_s,
                         u"      TOTAL                       $10.00"_s, u" "_s, u"ANN"_s,
                         u"  1A  BRAVO           Show         $2.50"_s,
                         u"      TOTAL                        $2.50"_s, u" "_s, u"ZOE"_s,
                         u"  1   ALFA            Win          $5.00"_s,
                         u"  4   (no horse)      Place        $1.00"_s,
                         u"  3   COCO            Win         $20.00"_s,
                         u"      TOTAL                       $26.00"_s, u" "_s,
                         u"TOTAL BETS $38.50"_s}));
    }

    // Two bettors of one name are two bettors; the amounts stand under each other.
    void totals()
    {
        const BettorTable namesakes = BettorTable::parse("2,\"ANN\"\r\n3,\"ANN\"\r\n", 10);
        const RaceRecords race = raceWith("3,1,1,5\r\n2,1,1,7\r\n3,1,1,1\r\n7,3,1,10\r\n");
        const QStringList lines = bettorTotals(race.bets, namesakes, {}).sliced(3);
        QCOMPARE(lines.join(u' ').simplified(),
                 u"7 Bad Bettor Number $10.00 ANN $7.00 ANN $6.00 TOTAL BETS $23.00"_s);
        QCOMPARE(lines.first().size(), lines.last().size());
    }
};

TRELAWN_TEST(tst_racesummary)
#include "tst_racesummary.moc"
