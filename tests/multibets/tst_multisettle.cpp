#include "common/print/format.h"
#include "kit/testkit.h"
#include "multibets/multisettle.h"
#include "multibets/multisummary.h"

using Outcome = MultibetSettlement::Outcome;

struct Asked
{
    QString type;
    std::array<int, 3> winners;
    int percent;
};

static BettorTable bettors()
{
    return BettorTable::parse("1,\"AnyBettor\"\r\n2,\"ANN\"\r\n5,\"BOB\"\r\n3,\"CARL\"\r\n", 100);
}

class tst_multisettle : public QObject
{
    Q_OBJECT

private slots:
    void settle()
    {
        const QByteArray exactas = "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX\",2,5\r\n7,4,0,\"EX\",16,3\r\n";
        Rows<QByteArray, Asked, QString, QString> rows;
        rows("house cut, one line a ticket", exactas + "4,7,0,\"Q\",50,2\r\n",
             {u"EX"_s, {4, 7, 0}, 10}, u"$20.00 $2.00 $18.00 $4.50"_s, u"ANN $9.00|BOB $9.00"_s);
        rows("tickets of one bettor are not merged", "4,7,0,\"EX\",1,5\r\n4,7,0,\"EX\",3,5\r\n",
             {u"EX"_s, {4, 7, 0}, 0}, u"$4.00 $0.00 $4.00 $1.00"_s, u"BOB $1.00|BOB $3.00"_s);
        rows("above 100 percent the net is negative", exactas, {u"EX"_s, {4, 7, 0}, 110},
             u"$20.00 $22.00 -$2.00 -$0.50"_s, u"ANN -$1.00|BOB -$1.00"_s);
        rows("quinela in the other order does not win", "3,5,0,\"Q\",2,2\r\n",
             {u"Q"_s, {5, 3, 0}, 10}, u"$2.00 $0.00 $0.00 $0.00"_s,
             u"NO WINNERS - REFUND| |ANN $2.00"_s);
        rows("the third post decides a trifecta", "1,2,3,\"T\",1,2\r\n1,2,4,\"T\",1,5\r\n",
             {u"T"_s, {1, 2, 4}, 0}, u"$2.00 $0.00 $2.00 $2.00"_s, u"BOB $2.00"_s);
        rows("refund sums each bettor in table order",
             "1,2,0,\"DD\",3,3\r\n1,3,0,\"DD\",4,5\r\n1,4,0,\"DD\",5,3\r\n",
             {u"DD"_s, {9, 9, 0}, 50}, u"$12.00 $0.00 $0.00 $0.00"_s,
             u"NO WINNERS - REFUND| |BOB $4.00|CARL $8.00"_s);
        rows("winner of an unknown number", "4,7,0,\"EX\",2,44\r\n", {u"EX"_s, {4, 7, 0}, 0},
             u"$2.00 $0.00 $2.00 $1.00"_s, u"44 Bad Bettor Number $2.00"_s);
        rows("refund of an unknown number comes last", "4,7,0,\"EX\",2,44\r\n4,7,0,\"EX\",1,5\r\n",
             {u"EX"_s, {1, 1, 0}, 0}, u"$3.00 $0.00 $0.00 $0.00"_s,
             u"NO WINNERS - REFUND| |BOB $1.00|44 Bad Bettor Number $2.00"_s);
        rows("damaged lines have no stake", "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX,2,2\r\nx\r\n",
             {u"EX"_s, {4, 7, 0}, 0}, u"$2.00 $0.00 $2.00 $1.00"_s, u"ANN $2.00"_s);
        rows("no bets of the type", exactas, {u"P3"_s, {4, 7, 0}, 10}, u"$0.00 $0.00 $0.00 $0.00"_s,
             u""_s);
        for (const auto &[row, file, asked, figures, lines] : rows) {
            const MultibetSettlement settled =
                settleMultibets(parseMultibets(file.toStdString()), bettors(), asked.type,
                                asked.winners, asked.percent);
            QCOMPARE(settled.outcome, lines.isEmpty()              ? Outcome::NoBets
                                      : lines.startsWith(u"NO "_s) ? Outcome::Refund
                                                                   : Outcome::Winners);
            QStringList shown;
            for (const double figure :
                 {settled.pool, settled.houseCut, settled.net, settled.payPerDollar})
                shown.append(formatMoney(figure, "$#,##0.00"));
            QCOMPARE(shown.join(u' '), figures);
            QCOMPARE(settled.lines.join(u'|'), lines);
        }
    }

    // A pay per dollar rounded to cents, $33.33, would leave one cent of the pool unpaid.
    void fullPrecision()
    {
        const auto bets = parseMultibets("4,7,0,\"EX\",3,2\r\n1,2,0,\"EX\",97,5\r\n");
        const MultibetSettlement settled = settleMultibets(bets, bettors(), u"EX"_s, {4, 7, 0}, 0);
        QCOMPARE(formatMoney(settled.payPerDollar, "$#,##0.00"), u"$33.33"_s);
        QCOMPARE(settled.lines, QStringList{u"ANN $100.00"_s});
    }

    // Each type in its line, other codes in none.
    void summary()
    {
        const auto bets = parseMultibets(
            "1,2,0,\"DD\",5,1\r\n1,2,3,\"T\",0.25,1\r\n1,2,3,\"T\",1000,1\r\n1,2,0,\"EX\",2,1\r\n"
            "1,2,0,\"Q\",3,1\r\n1,2,3,\"ZZ\",99,1\r\n");
        QCOMPARE(multibetSummary(bets, u"Kentucky Derby"_s, u" Race3"_s).join(u'|'),
                 u"Kentucky Derby  Race3 Bet Summary| |Trifecta  $1,000.25|Exacta    $02.00|"
                 "Quinela   $03.00|Pick 3    $00.00|Daily D   $05.00| |Total Bet $1,010.25"_s);
    }
};

TRELAWN_TEST(tst_multisettle)
#include "tst_multisettle.moc"
