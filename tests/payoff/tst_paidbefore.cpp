#include "common/event/cashanswers.h"
#include "kit/testkit.h"
#include "ui/paidlist.h"

// What the cash journals keep of paying: nobody is paid twice by mistake, after a crash or beside
// another computer, and what was paid by mistake can be taken back.
class tst_paidbefore : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_event = std::make_unique<TestEvent>();
        m_event->session.files.computer = u"DESK1"_s;
        HorseTable horses;
        horses.post(2) = {2, 0, u"1A"_s, u"BRAVO"_s};
        horses.post(4) = {4, 0, u"4 "_s, u"DELTA"_s};
        m_event->writeTwins(u"Horses Race1"_s, horseRecords(horses));
        // $36 to win, 10 % for the house: 10.80 a dollar.
        m_event->writeTwins(u"Bets Race1"_s, "2,2,1,1\r\n3,2,1,2\r\n4,4,1,33\r\n");
        m_event->writeTwins(u"Bettors"_s,
                            "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n3,\"BOB\"\r\n4,\"CY\"\r\n");
        m_screen = m_event->open(u"frmpaywinnersb"_s);
    }
    void cleanup() { m_event.reset(); }

    // The program crashed after the first payment: what was paid is seen, and how the race was
    // settled can be filled in again.
    void afterACrash()
    {
        QVERIFY(!child<QWidget>(m_screen, u"cmdsame"_s)->isVisible());
        settle(u"1A BRAVO"_s, u"10"_s);
        pay(u"ADA"_s, true);
        m_screen = m_event->open(u"frmpaywinnersb"_s);
        const QString settled = u"Race1 was settled at "_s + clock() + u": 1A, house 10 %"_s;
        QCOMPARE(labelText(m_screen, u"lblnote"_s), settled);
        QCOMPARE(fieldText(m_screen, u"txtwinhorse"_s), QString());
        clickButton(m_screen, u"cmdsame"_s);
        QCOMPARE(fieldText(m_screen, u"txthousepct"_s), u"10"_s);
        clickButton(m_screen, u"cmdpayoff"_s);
        QCOMPARE(labelText(m_screen, u"lblnote"_s),
                 u"1 of 2 was paid before: ADA $10.80 at "_s + clock());
        QCOMPARE(spoken(),
                 (QStringList{u"ADA, $10.80, paid $10.80 at "_s + clock(), u"BOB, $21.60"_s}));
        QCOMPARE(labelText(m_screen, u"lblrace2"_s), u"$2 on 1A BRAVO: $21.60 $0.00 $0.00"_s);
        expectAgain(u"ADA was paid $10.80 at "_s, {}, Answer::No);
        pay(u"ADA"_s, false);
        QCOMPARE(spoken().size(), 2);

        // Another result is no reason to pay otherwise without a question.
        selectInList(m_screen, u"lsthorses"_s, u"4 DELTA"_s);
        clickButton(m_screen, u"cmdwinner"_s);
        const QString question = settled + u". Payments since then: 1. Settle it anew?"_s;
        m_event->boxes.expect(question, u"Pay winners"_s, Answer::No);
        clickButton(m_screen, u"cmdpayoff"_s);
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
        Session other = m_event->session;
        other.files.computer = u"DESK2"_s;
        recordCash(other, {{CashKind::Paid, 1, 3, u"BOB"_s, exactMoney(21.6)}});
        expectAgain(u"BOB was paid $21.60 at "_s, {}, Answer::No);
        pay(u"BOB"_s, false);
        QVERIFY(spoken().last().contains(u"paid $21.60"_s));
        clickButton(m_screen, u"cmdundo"_s); // that one's payments are not this computer's
        QCOMPARE(labelText(m_screen, u"lblnote"_s),
                 u"There is no payment of this computer to take back."_s);
    }

    // PAY is the sum of whoever is selected; what is taken back is to be paid again, and no slip of
    // it is printed.
    void takeBack()
    {
        settle(u"1A BRAVO"_s, u"10"_s);
        selectInList(m_screen, u"lstwinners"_s, u"ADA"_s);
        QCOMPARE(payField(), u"PAY $10.80 ADA"_s);
        pay(u"ADA"_s, true);
        QCOMPARE(payField(), u"PAID $10.80 ADA"_s);
        selectInList(m_screen, u"lstwinners"_s, u"BOB"_s);
        QCOMPARE(payField(), u"PAY $21.60 BOB"_s);
        m_event->boxes.expect(u"Take back $10.80 paid to ADA at "_s + clock() + u", Race1?"_s,
                              u"Pay winners"_s, Answer::Yes);
        clickButton(m_screen, u"cmdundo"_s);
        QCOMPARE(spoken(), (QStringList{u"ADA, $10.80"_s, u"BOB, $21.60"_s}));
        QCOMPARE(fieldText(m_screen, u"txtpaid"_s), u"$0.00"_s);
        QVERIFY(paidInRace(readCashJournal(m_event->session), 1).isEmpty());
        pay(u"BOB"_s, false);
        clickButton(m_screen, u"cmdreturn"_s);
        QCOMPARE(slipText(m_event->slips.value(0)).filter(u"Bettor Name"_s).size(), 1);
    }

private:
    void settle(const QString &horse, const QString &percent, const QString &question = {})
    {
        selectInList(m_screen, u"lsthorses"_s, horse);
        clickButton(m_screen, u"cmdwinner"_s);
        typeInto(m_screen, u"txthousepct"_s, percent);
        if (!question.isEmpty())
            m_event->boxes.expect(question, u"Pay winners"_s, Answer::Yes);
        clickButton(m_screen, u"cmdpayoff"_s);
    }
    void pay(const QString &name, bool isFirst)
    {
        selectInList(m_screen, u"lstwinners"_s, name);
        if (isFirst)
            m_event->boxes.expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::Yes);
        clickButton(m_screen, u"cmdpay"_s);
    }
    void expectAgain(const QString &start, const QString &difference, Answer answer)
    {
        m_event->boxes.expect(start + clock() + u'.' + difference + u" Pay again?"_s,
                              u"Pay winners"_s, answer);
    }
    QString clock() const { return readCashJournal(m_event->session).lines.back().clock(); }
    QString payField() const
    {
        return labelText(m_screen, u"lbltotalr"_s) + u' ' + fieldText(m_screen, u"txttotalr"_s)
               + u' ' + fieldText(m_screen, u"txtwinnername"_s);
    }

    // What a screen reader says of the list.
    QStringList spoken() const
    {
        auto *list = child<PaidList>(m_screen, u"lstwinners"_s);
        QStringList lines;
        for (int row = 0; row < list->count(); ++row)
            lines += list->item(row)->data(Qt::AccessibleTextRole).toString();
        return lines;
    }

    std::unique_ptr<TestEvent> m_event;
    QWidget *m_screen = nullptr;
};

TRELAWN_TEST(tst_paidbefore)
#include "tst_paidbefore.moc"
