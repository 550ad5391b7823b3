#include "multibets/multiraces.h"

// A night's multibets through the real screens, from the first bet to the summary.
class tst_multinight : public MultibetTest
{
    Q_OBJECT

private slots:
    void init() { beginMultibets(); }

    void night()
    {
        open(u"frmmulti"_s);
        chooseRace(3);
        take(u"cmddouble"_s, u"ANN"_s, {{4}, {9}}, 5, u"$5.00"_s); // post 9 runs in race 4
        take(u"cmdexacta"_s, u"ANN"_s, {{4}, {7, 8}}, 2, u"$4.00"_s);
        take(u"cmdquinela"_s, u"ANN"_s, {{3}, {5}}, 1, u"$2.00"_s, 2);
        take(u"cmdexacta"_s, u"BOB"_s, {{4}, {7}}, 6, u"$6.00"_s);
        take(u"cmdtrifecta"_s, u"BOB"_s, {{1}, {2}, {3}}, 0, u"$1.50"_s, 3);
        take(u"cmdpick3"_s, u"BOB"_s, {{1}, {1}, {10}}, 10, u"$10.00"_s);
        QCOMPARE(event->note(), u"Bets saved: 1; Multibets since this screen was opened: $28.50"_s);
        const QByteArray first = "4,9,0,\"DD\",5,2\r\n4,7,0,\"EX\",2,2\r\n";
        const QByteArray later =
            "3,5,0,\"Q\",1,2\r\n5,3,0,\"Q\",1,2\r\n4,7,0,\"EX\",6,3\r\n"
            "1,2,3,\"T\",0.25,3\r\n1,3,2,\"T\",0.25,3\r\n2,1,3,\"T\",0.25,3\r\n"
            "2,3,1,\"T\",0.25,3\r\n3,1,2,\"T\",0.25,3\r\n3,2,1,\"T\",0.25,3\r\n"
            "1,1,10,\"P3\",10,3\r\n";
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), first + "4,8,0,\"EX\",2,2\r\n" + later);
        QCOMPARE(event->readTwins(u"Multibets Race4"_s), "");
        QCOMPARE(event->slips.size(), 6);
        QCOMPARE(event->slips[2].fontName, u"MS Sans Serif"_s);
        QCOMPARE(slipText(event->slips[2]).join(u'|'), // ANN's third
                 u"Kentucky Derby  ||BET SUMMARY FOR ANN||     AMT    NUMBERS|DD $05.00 4,9|"
                 "EX $02.00 4,7|EX $02.00 4,8|Q  $01.00 3,5|Q  $01.00 5,3||TOTAL BETS $11.00"_s);

        // ANN takes one exacta back.
        event->slips.clear();
        select(u"lstentries"_s, u"ANN"_s);
        QCOMPARE(text(u"txttotprior"_s), u"$11.00"_s);
        select(u"lstpriorbets"_s, u"EX $02.00 4,8"_s);
        press(u"cmdclearprior"_s);
        QCOMPARE(slipText(event->slips[0]).join(u'|'),
                 u"Refund Bets for ANN for Race3|EX $02.00 4,8||Total Refund $2.00"_s);
        QCOMPARE(text(u"txttotprior"_s), u"$9.00"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), first + later);

        // The finish is 4, 7, 1; the house takes 10 percent.
        event->slips.clear();
        press(u"cmdpay"_s);
        chooseRace(3);
        clickCell(screen(), u"txtpercent"_s, 10);
        press(u"cmdtrifecta"_s);
        markPosts({{4}, {7}, {1}});
        press(u"cmdenterwin"_s);
        QCOMPARE(figures(), u"Refund Total $1.50 $0.00 $0.00 $0.00"_s);
        QCOMPARE(list(u"lstbets"_s).join(u'|'), u"NO WINNERS - REFUND| |BOB $1.50"_s);
        press(u"cmdexacta"_s); // the finish stays; line 3 does not count
        press(u"cmdenterwin"_s);
        QCOMPARE(figures(), u"$1 Ticket Pays $0.90 $08.00 $00.80 $7.20"_s);
        expectInput(u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s, u"2"_s);
        press(u"cmdprint"_s);
        QCOMPARE(event->slips.size(), 2);
        QCOMPARE(event->slips[0].pointSize, 8.0);
        QCOMPARE(slipText(event->slips[1]).join(u'|'),
                 u"Kentucky Derby EXACTA  List of Winners/Refunds||ANN $1.80|BOB $5.40||"
                 "House Cut     $00.80||Total Paid    $7.20||Total Pool    $08.00||"
                 "$1 Ticket Pays              $0.90"_s);

        // Back on the multibet screen, and to the summary.
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmulti"_s));
        press(u"cmdsummary"_s);
        const QString summary =
            u"Kentucky Derby  Race3 Bet Summary| |Trifecta  $01.50|Exacta    $08.00|"
            "Quinela   $02.00|Pick 3    $10.00|Daily D   $05.00| |Total Bet $26.50"_s;
        QTRY_COMPARE(list(u"lstsumm"_s).join(u'|'), summary);
        expectInput(u"Enter number of forms to print"_s, u"Print Winners/Refunds"_s, u"1"_s);
        press(u"cmdprint"_s);
        QCOMPARE(event->slips.size(), 3);
        QCOMPARE(slipText(event->slips[2]).join(u'|'), summary);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmulti"_s));
        // Settling and summing write nothing.
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), first + later);
    }

private:
    // The ticket's first lines may be boxed; without dollars it is one of 25 cents.
    void take(const QString &button, const QString &bettor, const QList<QList<int>> &posts,
              int dollars, const QString &total, int boxed = 0)
    {
        select(u"lstentries"_s, bettor);
        press(button);
        markPosts(posts);
        for (int line = 0; line < boxed; ++line)
            press(u"chkbox_%1"_s.arg(line));
        clickCell(screen(), u"txtclearamt"_s);
        clickCell(screen(), u"txtbetamt"_s, dollars);
        clickCell(screen(), u"txtamt_0"_s, dollars == 0 ? 1 : 0);
        press(u"cmdplacebet"_s);
        QCOMPARE(text(u"txtthisbet"_s), total);
        QCOMPARE(text(u"txttotalbet"_s), total);
        press(u"cmdmake"_s);
        QCOMPARE(text(u"txtthisbet"_s), u"$0.00"_s);
        press(u"cmdmake"_s); // a second press saves nothing
    }

    QString figures()
    {
        QStringList texts;
        for (const auto &name :
             {u"txttotal"_s, u"txtpay"_s, u"txtpool"_s, u"txthouse"_s, u"txttpay"_s})
            texts << text(name);
        return texts.join(u' ');
    }
};

TRELAWN_TEST(tst_multinight)
#include "tst_multinight.moc"
