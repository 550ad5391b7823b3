#include "common/print/format.h"
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
    void summary();
};

void tst_multisettle::settle_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("type");
    QTest::addColumn<std::array<int, 3>>("winners");
    QTest::addColumn<int>("percent");
    QTest::addColumn<QString>("figures"); // pool, house cut, net, pay per dollar
    QTest::addColumn<QString>("lines");
    const auto row = [](const char *rule, const QByteArray &file, const char *type,
                        std::array<int, 3> winners, int percent, const char *figures,
                        const char *lines) {
        QTest::newRow(rule) << file << type << winners << percent << figures << lines;
    };
    const QByteArray exactas = "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX\",2,5\r\n7,4,0,\"EX\",16,3\r\n";
    row("house cut, one line a ticket", exactas + "4,7,0,\"Q\",50,2\r\n", "EX", {4, 7, 0}, 10,
        "$20.00 $2.00 $18.00 $4.50", "ANN $9.00|BOB $9.00");
    row("tickets of one bettor are not merged", "4,7,0,\"EX\",1,5\r\n4,7,0,\"EX\",3,5\r\n", "EX",
        {4, 7, 0}, 0, "$4.00 $0.00 $4.00 $1.00", "BOB $1.00|BOB $3.00");
    row("above 100 percent the net is negative", exactas, "EX", {4, 7, 0}, 110,
        "$20.00 $22.00 -$2.00 -$0.50", "ANN -$1.00|BOB -$1.00");
    row("quinela in the other order does not win", "3,5,0,\"Q\",2,2\r\n", "Q", {5, 3, 0}, 10,
        "$2.00 $0.00 $0.00 $0.00", "NO WINNERS - REFUND| |ANN $2.00");
    row("the third post decides a trifecta", "1,2,3,\"T\",1,2\r\n1,2,4,\"T\",1,5\r\n", "T",
        {1, 2, 4}, 0, "$2.00 $0.00 $2.00 $2.00", "BOB $2.00");
    row("refund sums each bettor in table order",
        "1,2,0,\"DD\",3,3\r\n1,3,0,\"DD\",4,5\r\n1,4,0,\"DD\",5,3\r\n", "DD", {9, 9, 0}, 50,
        "$12.00 $0.00 $0.00 $0.00", "NO WINNERS - REFUND| |BOB $4.00|CARL $8.00");
    row("winner of an unknown number", "4,7,0,\"EX\",2,44\r\n", "EX", {4, 7, 0}, 0,
        "$2.00 $0.00 $2.00 $1.00", "44 Bad Bettor Number $2.00");
    row("refund of an unknown number comes last", "4,7,0,\"EX\",2,44\r\n4,7,0,\"EX\",1,5\r\n", "EX",
        {1, 1, 0}, 0, "$3.00 $0.00 $0.00 $0.00",
        "NO WINNERS - REFUND| |BOB $1.00|44 Bad Bettor Number $2.00");
    row("damaged lines have no stake", "4,7,0,\"EX\",2,2\r\n4,7,0,\"EX,2,2\r\nx\r\n", "EX",
        {4, 7, 0}, 0, "$2.00 $0.00 $2.00 $1.00", "ANN $2.00");
    row("no bets of the type", exactas, "P3", {4, 7, 0}, 10, "$0.00 $0.00 $0.00 $0.00", "");
}

void tst_multisettle::settle()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, type);
    using Posts = std::array<int, 3>;
    QFETCH(Posts, winners);
    QFETCH(int, percent);
    QFETCH(QString, lines);
    const MultibetSettlement settled =
        settleMultibets(parseMultibets(file.toStdString()), bettors(), type, winners, percent);
    QCOMPARE(settled.outcome, lines.isEmpty()              ? Outcome::NoBets
                              : lines.startsWith(u"NO "_s) ? Outcome::Refund
                                                           : Outcome::Winners);
    QStringList shown;
    for (const double figure : {settled.pool, settled.houseCut, settled.net, settled.payPerDollar})
        shown.append(formatMoney(figure, "$#,##0.00"));
    QTEST(shown.join(u' '), "figures");
    QCOMPARE(settled.lines.join(u'|'), lines);
}

// A pay per dollar rounded to cents, $33.33, would leave one cent of the pool unpaid.
void tst_multisettle::fullPrecision()
{
    const auto bets = parseMultibets("4,7,0,\"EX\",3,2\r\n1,2,0,\"EX\",97,5\r\n");
    const MultibetSettlement settled = settleMultibets(bets, bettors(), u"EX"_s, {4, 7, 0}, 0);
    QCOMPARE(formatMoney(settled.payPerDollar, "$#,##0.00"), u"$33.33"_s);
    QCOMPARE(settled.lines, QStringList{u"ANN $100.00"_s});
}

// Each type in its line, other codes in none.
void tst_multisettle::summary()
{
    const auto bets = parseMultibets(
        "1,2,0,\"DD\",5,1\r\n1,2,3,\"T\",0.25,1\r\n1,2,3,\"T\",1000,1\r\n1,2,0,\"EX\",2,1\r\n"
        "1,2,0,\"Q\",3,1\r\n1,2,3,\"ZZ\",99,1\r\n");
    QCOMPARE(multibetSummary(bets, u"Kentucky Derby"_s, u" Race3"_s).join(u'|'),
             u"Kentucky Derby  Race3 Bet Summary| |Trifecta  $1,000.25|Exacta    $02.00|"
             "Quinela   $03.00|Pick 3    $00.00|Daily D   $05.00| |Total Bet $1,010.25"_s);
}

TRELAWN_TEST(tst_multisettle)
#include "tst_multisettle.moc"
