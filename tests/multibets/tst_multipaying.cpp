#include "common/event/cashanswers.h"
#include "multibets/multiraces.h"
#include "ui/paidlist.h"

// Marking tickets as paid on the multibet payoff screen.
class tst_multipaying : public MultibetTest
{
    Q_OBJECT

private slots:
    // Of two equal tickets each is paid once; a stake that is given back is a payment too.
    void marks()
    {
        beginMultibets();
        event->writeTwins(u"Multibets Race3"_s,
                          "1,2,0,\"EX\",2,2\r\n1,2,0,\"EX\",2,2\r\n2,1,0,\"EX\",5,3\r\n"
                          "2,1,0,\"Q\",4,3\r\n");
        open(u"frmpaymulti"_s);
        press(u"optrace_3"_s);
        press(u"cmdexacta"_s);
        markPosts({{1}, {2}});
        press(u"cmdenterwin"_s);
        press(u"cmdpaid"_s);
        QCOMPARE(event->note(), u"Select the line of a ticket first."_s);
        pay(0);
        QCOMPARE(ticks(), u"1 0"_s);
        const QString clock = readCashJournal(event->session).lines.back().clock();
        expect(u"ANN was paid $4.50 at "_s + clock + u". Pay again?"_s, u"Paymulti"_s, Answer::No);
        pay(0);
        pay(1);
        QCOMPARE(ticks(), u"1 1"_s);
        QCOMPARE(list(u"lstbets"_s), (QStringList{u"ANN $4.50"_s, u"ANN $4.50"_s}));

        press(u"cmdquinela"_s);
        press(u"cmdenterwin"_s);
        pay(0); // the heading of the refunds
        QCOMPARE(event->note(), u"Select the line of a ticket first."_s);
        pay(2);
        QCOMPARE(ticks(), u"0 0 1"_s);
        const CashTotals totals = totalsOf(readCashJournal(event->session), {}, 3);
        QCOMPARE(dollarsOf(totals[CashKind::MultibetPaid]), 13.0);
    }

private:
    void pay(int row)
    {
        child<PaidList>(screen(), u"lstbets"_s)->setCurrentRow(row);
        press(u"cmdpaid"_s);
    }
    QString ticks()
    {
        auto *tickets = child<PaidList>(screen(), u"lstbets"_s);
        QStringList marks;
        for (int row = 0; row < tickets->count(); ++row)
            marks += PaidList::isMarked(tickets->item(row)) ? u"1"_s : u"0"_s;
        return marks.join(u' ');
    }
};

TRELAWN_TEST(tst_multipaying)
#include "tst_multipaying.moc"
