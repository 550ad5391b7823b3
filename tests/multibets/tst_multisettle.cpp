#include "common/format.h"
#include "kit/testkit.h"
#include "multibets/multisettle.h"
#include "multibets/multisummary.h"

using namespace Qt::StringLiterals;

using Outcome = MultibetSettlement::Outcome;

static BettorTable bettors()
{
    return BettorTable::parse("1,\"AnyBettor\"\r\n2,\"ANN\"\r\n5,\"BOB\"\r\n3,\"CARL\"\r\n", 100);
}

class tst_multisettle : public QObject
{
    Q_OBJECT

private slots:
    void settle_data();
    void settle();
    void fullPrecision();
    void summary_data();
    void summary();
};

void tst_multisettle::settle_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QList<int>>("winners");
    QTest::addColumn<int>("percent");
    QTest::addColumn<Outcome>("outcome");
    QTest::addColumn<QString>("figures"); // pool, house cut, net, pay per dollar
    QTest::addColumn<QStringList>("lines");

    const QByteArray exactas = "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX\",2,5\r\n7,4,0,\"EX\",16,3\r\n";
    QTest::newRow("house cut, one line a ticket")
        << exactas + "4,7,0,\"Q\",50,2\r\n"
        << "EX" << QList{4, 7, 0} << 10 << Outcome::Winners << "$20.00 $2.00 $18.00 $4.50"
        << QStringList{u"ANN $9.00"_s, u"BOB $9.00"_s};
    QTest::newRow("tickets of one bettor are not merged")
        << "4,7,0,\"EX\",1,5\r\n4,7,0,\"EX\",3,5\r\n"_ba
        << "EX" << QList{4, 7, 0} << 0 << Outcome::Winners << "$4.00 $0.00 $4.00 $1.00"
        << QStringList{u"BOB $1.00"_s, u"BOB $3.00"_s};
    QTest::newRow("above 100 percent the net is negative")
        << exactas << "EX" << QList{4, 7, 0} << 110 << Outcome::Winners
        << "$20.00 $22.00 -$2.00 -$0.50" << QStringList{u"ANN -$1.00"_s, u"BOB -$1.00"_s};
    QTest::newRow("quinela in the other order does not win")
        << "3,5,0,\"Q\",2,2\r\n"_ba
        << "Q" << QList{5, 3, 0} << 10 << Outcome::Refund << "$2.00 $0.00 $0.00 $0.00"
        << QStringList{u"NO WINNERS - REFUND"_s, u" "_s, u"ANN $2.00"_s};
    QTest::newRow("boxed quinela wins in the order entered")
        << "3,5,0,\"Q\",2,2\r\n5,3,0,\"Q\",2,2\r\n"_ba
        << "Q" << QList{5, 3, 0} << 0 << Outcome::Winners << "$4.00 $0.00 $4.00 $2.00"
        << QStringList{u"ANN $4.00"_s};
    QTest::newRow("the third post decides a trifecta")
        << "1,2,3,\"T\",1,2\r\n1,2,4,\"T\",1,5\r\n"_ba
        << "T" << QList{1, 2, 4} << 0 << Outcome::Winners << "$2.00 $0.00 $2.00 $2.00"
        << QStringList{u"BOB $2.00"_s};
    QTest::newRow("refund sums each bettor in table order")
        << "1,2,0,\"DD\",3,3\r\n1,3,0,\"DD\",4,5\r\n1,4,0,\"DD\",5,3\r\n"_ba
        << "DD" << QList{9, 9, 0} << 50 << Outcome::Refund << "$12.00 $0.00 $0.00 $0.00"
        << QStringList{u"NO WINNERS - REFUND"_s, u" "_s, u"BOB $4.00"_s, u"CARL $8.00"_s};
    QTest::newRow("winner of an unknown number")
        << "4,7,0,\"EX\",2,44\r\n"_ba
        << "EX" << QList{4, 7, 0} << 0 << Outcome::Winners << "$2.00 $0.00 $2.00 $1.00"
        << QStringList{u"44 Bad Bettor Number $2.00"_s};
    QTest::newRow("refund of an unknown number comes last")
        << "4,7,0,\"EX\",2,44\r\n4,7,0,\"EX\",1,5\r\n"_ba
        << "EX" << QList{1, 1, 0} << 0 << Outcome::Refund << "$3.00 $0.00 $0.00 $0.00"
        << QStringList{u"NO WINNERS - REFUND"_s, u" "_s, u"BOB $1.00"_s,
                       u"44 Bad Bettor Number $2.00"_s};
    QTest::newRow("damaged lines have no stake")
        << "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX,2,2\r\nx\r\n"_ba
        << "EX" << QList{4, 7, 0} << 0 << Outcome::Winners << "$2.00 $0.00 $2.00 $1.00"
        << QStringList{u"ANN $2.00"_s};
    QTest::newRow("no bets of the type")
        << exactas << "P3" << QList{4, 7, 0} << 10 << Outcome::NoBets << "$0.00 $0.00 $0.00 $0.00"
        << QStringList();
}

void tst_multisettle::settle()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, type);
    QFETCH(QList<int>, winners);
    QFETCH(int, percent);
    QFETCH(QString, figures);
    const MultibetSettlement settled =
        settleMultibets(parseMultibets(file.toStdString()), bettors(), type,
                        {winners[0], winners[1], winners[2]}, percent);
    QTEST(settled.outcome, "outcome");
    QStringList shown;
    for (const double figure : {settled.pool, settled.houseCut, settled.net, settled.payPerDollar})
        shown.append(formatMoney(figure, "$#,##0.00"));
    QCOMPARE(shown.join(u' '), figures);
    QTEST(settled.lines, "lines");
}

// A pay per dollar rounded to cents, $33.33, would leave one cent of the pool unpaid.
void tst_multisettle::fullPrecision()
{
    const auto bets = parseMultibets("4,7,0,\"EX\",3,2\r\n1,2,0,\"EX\",97,5\r\n");
    const MultibetSettlement settled = settleMultibets(bets, bettors(), u"EX"_s, {4, 7, 0}, 0);
    QCOMPARE(formatMoney(settled.payPerDollar, "$#,##0.00"), u"$33.33"_s);
    QCOMPARE(settled.lines, QStringList{u"ANN $100.00"_s});
}

void tst_multisettle::summary_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("empty file") << QByteArray()
                                << QStringList{u"Trifecta  $00.00"_s, u"Exacta    $00.00"_s,
                                               u"Quinela   $00.00"_s, u"Pick 3    $00.00"_s,
                                               u"Daily D   $00.00"_s, u" "_s,
                                               u"Total Bet $00.00"_s};
    QTest::newRow("each type in its line, other codes in none")
        << "1,2,0,\"DD\",5,1\r\n1,2,3,\"T\",0.25,1\r\n1,2,3,\"T\",1000,1\r\n1,2,0,\"EX\",2,1\r\n"
           "1,2,0,\"Q\",3,1\r\n1,2,3,\"P3\",4,1\r\n1,2,3,\"ZZ\",99,1\r\n"_ba
        << QStringList{u"Trifecta  $1,000.25"_s, u"Exacta    $02.00"_s, u"Quinela   $03.00"_s,
                       u"Pick 3    $04.00"_s,    u"Daily D   $05.00"_s, u" "_s,
                       u"Total Bet $1,014.25"_s};
}

void tst_multisettle::summary()
{
    QFETCH(QByteArray, file);
    QFETCH(QStringList, lines);
    const QStringList heading{u"Kentucky Derby  Race3 Bet Summary"_s, u" "_s};
    QCOMPARE(multibetSummary(parseMultibets(file.toStdString()), u"Kentucky Derby"_s, u" Race3"_s),
             heading + lines);
}

TRELAWN_TEST_MAIN(tst_multisettle)
#include "tst_multisettle.moc"
