#include "common/event/cashanswers.h"
#include "kit/screentest.h"
#include "ui/paidlist.h"

// What the cash journals keep of paying: nobody is paid twice by mistake, after a crash or beside
// another computer, and what was paid by mistake can be taken back.
class tst_paidbefore : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        event->session.files.computer = u"DESK1"_s;
        event->writeTwins(u"Horses Race1"_s, horseRecords(cardOf({{2, 0, u"1A"_s, u"BRAVO"_s},
                                                                  {4, 0, u"4"_s, u"DELTA"_s}})));
        // $36 to win, 10 % for the house: 10.80 a dollar.
        event->writeTwins(u"Bets Race1"_s, "2,2,1,1\r\n3,2,1,2\r\n4,4,1,33\r\n");
        event->writeTwins(u"Bettors"_s,
                          "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n3,\"BOB\"\r\n4,\"CY\"\r\n");
        open(u"frmpaywinnersb"_s);
    }

    // The program crashed after the first payment: what was paid is seen, and how the race was
    // settled can be filled in again.
    void afterACrash()
    {
        QVERIFY(!child<QWidget>(screen(), u"cmdsame"_s)->isVisible());
        settle(u"1A BRAVO"_s, u"10"_s);
        pay(u"ADA"_s, true);
        open(u"frmpaywinnersb"_s);
        const QString settled = u"Race1 was settled at "_s + clock() + u": 1A, house 10 %"_s;
        QCOMPARE(label(u"lblnote"_s), settled);
        QCOMPARE(text(u"txtwinhorse"_s), QString());
        press(u"cmdsame"_s);
        QCOMPARE(text(u"txthousepct"_s), u"10"_s);
        press(u"cmdpayoff"_s);
        QCOMPARE(label(u"lblnote"_s), u"1 of 2 was paid before: ADA $10.80 at "_s + clock());
        QCOMPARE(spoken(),
                 (QStringList{u"ADA, $10.80, paid $10.80 at "_s + clock(), u"BOB, $21.60"_s}));
        QCOMPARE(label(u"lblrace2"_s), u"$2 on 1A BRAVO: $21.60 $0.00 $0.00"_s);
        expectAgain(u"ADA was paid $10.80 at "_s, {}, Answer::No);
        pay(u"ADA"_s, false);
        QCOMPARE(spoken().size(), 2);

        // Another result is no reason to pay otherwise without a question.
        select(u"lsthorses"_s, u"4 DELTA"_s);
        press(u"cmdwinner"_s);
        const QString question = settled + u". Payments since then: 1. Settle it anew?"_s;
        expect(question, u"Pay winners"_s, Answer::No);
        press(u"cmdpayoff"_s);
        QCOMPARE(spoken().size(), 2);
        settle(u"1A BRAVO"_s, u"0"_s, question);
        expectAgain(u"ADA was paid $10.80 at "_s, u" Now it is $12.00, $1.20 more."_s, Answer::Yes);
        pay(u"ADA"_s, true);
        QCOMPARE(spoken(), QStringList{u"BOB, $24.00"_s});
    }

    // Another computer pays between the calculation and the press.
    void besideAnotherComputer()
    {
        settle(u"1A BRAVO"_s, u"10"_s);
        Session other = event->session;
        other.files.computer = u"DESK2"_s;
        recordCash(other, {{CashKind::Paid, 1, 3, u"BOB"_s, exactMoney(21.6)}});
        expectAgain(u"BOB was paid $21.60 at "_s, {}, Answer::No);
        pay(u"BOB"_s, false);
        QVERIFY(spoken().last().contains(u"paid $21.60"_s));
        press(u"cmdundo"_s); // that one's payments are not this computer's
        QCOMPARE(label(u"lblnote"_s), u"There is no payment of this computer to take back."_s);
    }

    // PAY is the sum of whoever is selected; what is taken back is to be paid again, and no slip of
    // it is printed.
    void takeBack()
    {
        settle(u"1A BRAVO"_s, u"10"_s);
        select(u"lstwinners"_s, u"ADA"_s);
        QCOMPARE(payField(), u"PAY $10.80 ADA"_s);
        pay(u"ADA"_s, true);
        QCOMPARE(payField(), u"PAID $10.80 ADA"_s);
        select(u"lstwinners"_s, u"BOB"_s);
        QCOMPARE(payField(), u"PAY $21.60 BOB"_s);
        expect(u"Take back $10.80 paid to ADA at "_s + clock() + u", Race1?"_s, u"Pay winners"_s,
               Answer::Yes);
        press(u"cmdundo"_s);
        QCOMPARE(spoken(), (QStringList{u"ADA, $10.80"_s, u"BOB, $21.60"_s}));
        QCOMPARE(text(u"txtpaid"_s), u"$0.00"_s);
        QVERIFY(paidInRace(readCashJournal(event->session), 1).isEmpty());
        pay(u"BOB"_s, false);
        press(u"cmdreturn"_s);
        QCOMPARE(slipText(event->slips.value(0)).filter(u"Bettor Name"_s).size(), 1);
    }

private:
    void settle(const QString &horse, const QString &percent, const QString &question = {})
    {
        select(u"lsthorses"_s, horse);
        press(u"cmdwinner"_s);
        type(u"txthousepct"_s, percent);
        if (!question.isEmpty())
            expect(question, u"Pay winners"_s, Answer::Yes);
        press(u"cmdpayoff"_s);
    }
    void pay(const QString &name, bool isFirst)
    {
        select(u"lstwinners"_s, name);
        if (isFirst)
            expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::Yes);
        press(u"cmdpay"_s);
    }
    void expectAgain(const QString &start, const QString &difference, Answer answer)
    {
        expect(start + clock() + u'.' + difference + u" Pay again?"_s, u"Pay winners"_s, answer);
    }
    QString clock() { return readCashJournal(event->session).lines.back().clock(); }
    QString payField()
    {
        return label(u"lbltotalr"_s) + u' ' + text(u"txttotalr"_s) + u' '
               + text(u"txtwinnername"_s);
    }

    // What a screen reader says of the list.
    QStringList spoken()
    {
        auto *list = child<PaidList>(screen(), u"lstwinners"_s);
        QStringList lines;
        for (int row = 0; row < list->count(); ++row)
            lines += list->item(row)->data(Qt::AccessibleTextRole).toString();
        return lines;
    }
};

TRELAWN_TEST(tst_paidbefore)
#include "tst_paidbefore.moc"
