#include "multibets/multiraces.h"

using namespace Qt::StringLiterals;

// A night's multibets through the real screens, from the first bet to the summary.
class tst_multinight : public QObject
{
    Q_OBJECT

private slots:
    void night();

private:
    struct Ticket
    {
        const char *button;
        const char *bettor;
        QList<QList<int>> posts;
        QList<int> boxes;
        int dollars;
        int quarters;
        const char *total;
    };
    void take(QWidget *screen, const Ticket &ticket);
};

void tst_multinight::take(QWidget *screen, const Ticket &ticket)
{
    selectInList(screen, u"lstentries"_s, QLatin1StringView(ticket.bettor));
    clickButton(screen, QLatin1StringView(ticket.button));
    markPosts(screen, ticket.posts);
    for (const int line : ticket.boxes)
        child<QAbstractButton>(screen, u"chkbox_%1"_s.arg(line - 1))->click();
    clickCell(screen, u"txtclearamt"_s);
    clickCell(screen, u"txtbetamt"_s, ticket.dollars);
    clickCell(screen, u"txtamt_0"_s, ticket.quarters);
    clickButton(screen, u"cmdplacebet"_s);
    QCOMPARE(fieldText(screen, u"txtthisbet"_s), QLatin1StringView(ticket.total));
    QCOMPARE(fieldText(screen, u"txttotalbet"_s), QLatin1StringView(ticket.total));
    clickButton(screen, u"cmdmake"_s);
    QCOMPARE(fieldText(screen, u"txtthisbet"_s), u"$0.00"_s);
    clickButton(screen, u"cmdmake"_s); // a second press saves nothing
}

void tst_multinight::night()
{
    MultibetEvent event;
    BoxRobot robot;
    QWidget *screen = event.open(u"frmmulti"_s);
    chooseRace(screen, 3);
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Kentucky Derby Race3"_s);

    take(screen, {"cmddouble", "ANN", {{4}, {9}}, {}, 5, 0, "$5.00"}); // post 9 runs in race 4
    take(screen, {"cmdexacta", "ANN", {{4}, {7, 8}}, {}, 2, 0, "$4.00"});
    take(screen, {"cmdquinela", "ANN", {{3}, {5}}, {1, 2}, 1, 0, "$2.00"});
    take(screen, {"cmdexacta", "BOB", {{4}, {7}}, {}, 6, 0, "$6.00"});
    take(screen, {"cmdtrifecta", "BOB", {{1}, {2}, {3}}, {1, 2, 3}, 0, 1, "$1.50"});
    take(screen, {"cmdpick3", "BOB", {{1}, {1}, {10}}, {}, 10, 0, "$10.00"});
    QVERIFY(robot.allCame());
    QCOMPARE(labelText(screen, u"lblnote"_s),
             u"Bets saved: 1; Multibets since this screen was opened: $28.50"_s);

    const QByteArray doubleRecord = "4,9,0,\"DD\",5,2\r\n";
    const QByteArray wheelRecords = "4,7,0,\"EX\",2,2\r\n4,8,0,\"EX\",2,2\r\n";
    const QByteArray later = "3,5,0,\"Q\",1,2\r\n5,3,0,\"Q\",1,2\r\n"
                             "4,7,0,\"EX\",6,3\r\n"
                             "1,2,3,\"T\",0.25,3\r\n1,3,2,\"T\",0.25,3\r\n2,1,3,\"T\",0.25,3\r\n"
                             "2,3,1,\"T\",0.25,3\r\n3,1,2,\"T\",0.25,3\r\n3,2,1,\"T\",0.25,3\r\n"
                             "1,1,10,\"P3\",10,3\r\n";
    QCOMPARE(event.read(u"Multibets Race3"_s), doubleRecord + wheelRecords + later);
    QCOMPARE(event.read(u"Multibetsbackup Race3"_s), doubleRecord + wheelRecords + later);
    QCOMPARE(event.read(u"Multibets Race4"_s), QByteArray());

    QCOMPARE(event.slips.size(), 6);
    const Slip receipt = event.slips[2]; // ANN's third
    QCOMPARE(receipt.fontName, u"MS Sans Serif"_s);
    QCOMPARE(slipText(receipt),
             (QStringList{u"Kentucky Derby  "_s, u""_s, u"BET SUMMARY FOR ANN"_s, u""_s,
                          u"     AMT    NUMBERS"_s, u"DD $05.00 4,9"_s, u"EX $02.00 4,7"_s,
                          u"EX $02.00 4,8"_s, u"Q  $01.00 3,5"_s, u"Q  $01.00 5,3"_s, u""_s,
                          u"TOTAL BETS $11.00"_s}));

    // ANN takes one exacta back.
    event.slips.clear();
    selectInList(screen, u"lstentries"_s, u"ANN"_s);
    QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$11.00"_s);
    selectInList(screen, u"lstpriorbets"_s, u"EX $02.00 4,8"_s);
    clickButton(screen, u"cmdclearprior"_s);
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips[0]),
             (QStringList{u"Refund Bets for ANN for Race3"_s, u"EX $02.00 4,8"_s, u""_s,
                          u"Total Refund $2.00"_s}));
    QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$9.00"_s);
    const QByteArray left = doubleRecord + "4,7,0,\"EX\",2,2\r\n" + later;
    QCOMPARE(event.read(u"Multibets Race3"_s), left);
    QCOMPARE(event.read(u"Multibetsbackup Race3"_s), left);

    // The finish is 4, 7, 1; the house takes 10 percent.
    event.slips.clear();
    clickButton(screen, u"cmdpay"_s);
    screen = event.current();
    chooseRace(screen, 3);
    clickCell(screen, u"txtpercent"_s, 10);
    clickButton(screen, u"cmdtrifecta"_s);
    markPosts(screen, {{4}, {7}, {1}});
    clickButton(screen, u"cmdenterwin"_s);
    const auto figures = [&] {
        QStringList texts;
        for (const auto &name :
             {u"txttotal"_s, u"txtpay"_s, u"txtpool"_s, u"txthouse"_s, u"txttpay"_s})
            texts << fieldText(screen, name);
        return texts.join(u' ');
    };
    QCOMPARE(figures(), u"Refund Total $1.50 $0.00 $0.00 $0.00"_s);
    QCOMPARE(listTexts(screen, u"lstbets"_s),
             (QStringList{u"NO WINNERS - REFUND"_s, u" "_s, u"BOB $1.50"_s}));
    clickButton(screen, u"cmdexacta"_s); // the finish stays; line 3 does not count
    clickButton(screen, u"cmdenterwin"_s);
    QCOMPARE(figures(), u"$1 Ticket Pays $0.90 $08.00 $00.80 $7.20"_s);
    robot.expectInput(u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s, u"2"_s);
    clickButton(screen, u"cmdprint"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 2);
    QCOMPARE(event.slips[0].pointSize, 8.0);
    QCOMPARE(slipText(event.slips[1]).join(u'|'),
             u"Kentucky Derby EXACTA  List of Winners/Refunds||ANN $1.80|BOB $5.40||"
             "House Cut     $00.80||Total Paid    $7.20||Total Pool    $08.00||"
             "$1 Ticket Pays              $0.90"_s);

    // Back on the multibet screen, and to the summary.
    event.slips.clear();
    clickButton(screen, u"cmdreturn"_s);
    QCOMPARE(event.current()->objectName(), u"frmmulti"_s);
    clickButton(event.current(), u"cmdsummary"_s);
    screen = event.current();
    const QString summary =
        u"Kentucky Derby  Race3 Bet Summary| |Trifecta  $01.50|Exacta    $08.00|"
        "Quinela   $02.00|Pick 3    $10.00|Daily D   $05.00| |Total Bet $26.50"_s;
    QTRY_COMPARE(listTexts(screen, u"lstsumm"_s).join(u'|'), summary);
    robot.expectInput(u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s, u"1"_s);
    clickButton(screen, u"cmdprint"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips[0]).join(u'|'), summary);
    QCOMPARE(event.read(u"Multibets Race3"_s), left); // settling and summing write nothing
}

TRELAWN_TEST(tst_multinight)
#include "tst_multinight.moc"
