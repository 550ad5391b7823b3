#include "common/event/cashjournal.h"
#include "kit/screentest.h"

const QStringList payoffFields{u"txtwinwin"_s,     u"txtwinplace"_s,  u"txtwinshow"_s,
                               u"txtplaceplace"_s, u"txtplaceshow"_s, u"txtshowshow"_s};

constexpr char horseLines[] =
    "1,0,\"1 \",\"ALPHA\"\r\n2,1,\"2 \",\"BRAVO\"\r\n3,0,\"3 \",\"CAIRO\"\r\n"
    "4,1,\"1A\",\"DELTA\"\r\n5,0,\"5 \",\"EMBER\"\r\n6,0,\"6 \",\"FABLE\"\r\n"
    "9,0,\"9 \",\"zzz\"\r\n";
// Finish 1, 3, 5: win pool 40, place pool 22, show pool 19, payoffs per $1 3.20, 2.50, 2.00, 2.00,
// 1.60, 2.50.
constexpr char bets[] = "1,1,1,10\r\n2,1,1,2.5\r\n3,3,1,20\r\n4,6,1,7.5\r\n1,1,2,4\r\n2,3,2,6\r\n"
                        "4,6,2,12\r\n1,1,3,3\r\n3,3,3,5\r\n5,5,3,2\r\n4,6,3,9\r\n";

// Paying winners through the real widgets. Post 4 carries number 1A; nobody runs from posts 7 to 21
// but 9, which is marked unused.
class tst_frmpaywinnersb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin(false);
        event->session.settings.roundingIndex = 3;
        event->write(u"Horses Race1"_s, horseLines);
        event->write(u"Bets Race1"_s, bets);
        event->write(u"Bettors"_s,
                     "1,\"AnyBettor\"\r\n2,\"BOB\"\r\n3,\"CAROL\"\r\n4,\"DAVE\"\r\n5,\"EVE\"\r\n");
        open(u"frmpaywinnersb"_s);
    }

    // They are posts, whatever their numbers; a small field gets posts where nobody runs.
    void finishers()
    {
        press(u"cmdplace"_s, u"Must select horse"_s, u"Payoff"_s);
        press(u"cmdpayoff"_s, u"Missing Win horse"_s);
        enter(u"cmdwinner"_s, u"1 ALPHA"_s);
        press(u"cmdpayoff"_s);
        QCOMPARE(text(u"txtplacehorse"_s) + text(u"txtshowhorse"_s), u"77"_s);
        QCOMPARE(payoffs(), u"$6.40 $11.00 $12.67 $0.00 $0.00 $0.00"_s);
        // A coupled horse's money counts: post 2 runs with post 4.
        event->write(u"Bets Race1"_s, "2,2,2,5\r\n3,1,2,5\r\n");
        enter(u"cmdwinner"_s, u"6 FABLE"_s);
        enter(u"cmdplace"_s, u"1A DELTA"_s);
        QCOMPARE(text(u"txtplacehorse"_s), u"4"_s);
        press(u"cmdpayoff"_s);
        QCOMPARE(winners(), QStringList{u"BOB"_s});
        QCOMPARE(text(u"txtplaceplace"_s), u"$4.00"_s);

        QByteArray full;
        for (int post = 1; post <= 21; ++post)
            full += QByteArray::number(post) + ",0,\"7 \",\"HORSE\"\r\n";
        event->write(u"Horses Race1"_s, full);
        press(u"optrace_1"_s);
        enter(u"cmdwinner"_s, u"7 HORSE"_s);
        press(u"cmdpayoff"_s, u"Missing win,place, or show horse"_s);
    }

    void calculations()
    {
        calculate();
        press(
            u"cmd532"_s,
            u"Use 532 Payoff for a 50,30,20 percent split of the win pool only - Use Calculate Payoff for a standard split"_s,
            u"532 Payoff"_s, Answer::Yes);
        QCOMPARE(text(u"txtwintotal"_s) + u' ' + text(u"txtwinwin"_s), u"$20.00 $3.20"_s);
        QVERIFY(event->session.payoffs.is532);
        event->write(u"Bets Race1"_s, QByteArray(bets) + "6,1,1,5\r\n");
        // Back to the standard split.
        press(u"cmdpayoff"_s, u"Bad bet file record. A bet may have been lost."_s);
        QCOMPARE(text(u"txtbet"_s) + u' ' + text(u"txtwinwin"_s), u"$81.00 $6.40"_s);

        const QString before = payoffs();
        const std::pair<QString, QString> files[] = {{u"Bets Race1"_s, u"Bet file empty"_s},
                                                     {u"Bettors"_s, u"Bets input"_s}};
        for (const auto &[file, title] : files) {
            const QByteArray bytes = event->read(file);
            event->remove({file});
            press(u"cmdpayoff"_s, u"File not found"_s, title);
            QCOMPARE(payoffs(), before);
            event->write(file, bytes);
        }
        event->write(u"Bets Race1"_s, "2,6,1,5\r\n");
        press(u"cmdpayoff"_s, u"No winners - Do 'CLEAR BETS' from main menu to calculate refunds"_s,
              u"Payoff"_s);
        QVERIFY(winners().isEmpty());
    }

    // The house percentage is taken once, however often payoffs become the track's.
    void trackPayoffs()
    {
        type(u"txthousepct"_s, u"10"_s);
        calculate();
        const QString expected = u"$5.76 $4.50 $3.60 $3.60 $2.88 $4.50"_s;
        QCOMPARE(payoffs(), expected);
        QCOMPARE(text(u"txthousetot"_s), u"$8.10"_s);
        QCOMPARE(label(u"lblowed"_s), u"4 of 4 to pay\nOwed $72.90, rounded $73.00"_s);
        press(u"cmdpayoff"_s);
        QCOMPARE(payoffs(), expected);
        press(u"cmdtrack"_s, u"Use track payoffs?"_s, u"Track Payoff"_s, Answer::Cancel);
        type(u"txtshowshow"_s, u"4.2x"_s);
        expect(u"Use track payoffs?"_s, u"Track Payoff"_s);
        press(
            u"cmdtrack"_s,
            u"Missing entry or non-numeric entry - enter an amount in all payoff fields using only numbers and decimal points"_s);
        QCOMPARE(winners().size(), 4);
        // EVE's amounts stand in the fields then; one typed payoff joins the others as calculated.
        payFirst(u"EVE"_s, Answer::No);
        type(u"txtwinwin"_s, u"8"_s);
        for (const bool again : {false, true}) {
            expect(u"Use track payoffs?"_s, u"Track Payoff"_s);
            if (!again)
                expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
            press(u"cmdtrack"_s);
            QVERIFY(child<QWidget>(screen(), u"cmdusing"_s)->isVisible());
            QVERIFY(winners().isEmpty()); // nobody is paid by the payoffs before
            if (!again)
                expect(u"Race1 was settled at "_s + clock()
                           + u": 1, 3, 5, house 10 %. Payments since then: 1. Settle it anew?"_s,
                       u"Pay winners"_s, Answer::Yes);
            press(u"cmdpayoff"_s);
            QCOMPARE(payoffs(), u"$7.20 $4.50 $3.60 $3.60 $2.88 $4.50"_s);
        }
    }

    // The calculator's window stays one and begins at 0 when it is opened again; it goes with the
    // race.
    void paysOneByOne()
    {
        calculate();
        payFirst(u"CAROL"_s, Answer::Yes); // $5 show on the place horse at 1.60
        QCOMPARE(payoffs(), u"$0.00 $0.00 $0.00 $0.00 $8.00 $0.00"_s);
        press(u"cmdpay"_s); // nobody is selected now
        QCOMPARE(winners(), (QStringList{u"AnyBettor"_s, u"BOB"_s, u"EVE"_s}));
        pay(u"BOB"_s); // on two finishers: 2.5 x 3.20 + 6 x 2.00
        QCOMPARE(text(u"txtwintotal"_s) + text(u"txtplacetotal"_s), u"$8.00$12.00"_s);
        QVERIFY(calculators().isEmpty());
        pay(u"AnyBettor"_s);
        QWidget *first = calculators().front();
        typeInto(first, u"txtwinwin"_s, u"2"_s);
        for (const auto &button : {u"cmdcalc"_s, u"cmdadd"_s, u"cmdpay"_s})
            clickButton(first, button);
        QCOMPARE(fieldText(first, u"txttotalpaid"_s), u"$6.40"_s);
        expect(u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
        calculate();
        QCOMPARE(text(u"txtpaid"_s), u"$0.00"_s);
        expect(u"AnyBettor was paid $48.00 at "_s + clock() + u". Pay again?"_s, u"Pay winners"_s,
               Answer::Yes);
        pay(u"AnyBettor"_s);
        QCOMPARE(calculators(), QList<QWidget *>{first});
        QCOMPARE(fieldText(first, u"txttotalpaid"_s), u"$0.00"_s);
        press(u"optrace_1"_s, u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
        QVERIFY(calculators().isEmpty());
        press(u"cmdreturn"_s);
        QVERIFY(event->slips.isEmpty()); // what was paid before no longer counts
    }

    // The whole race with Enter alone; the menu then tells who is left.
    void enterKey()
    {
        auto *horses = child<QListWidget>(screen(), u"lsthorses"_s);
        for (const int row : {0, 2, 4, 5}) {
            horses->setCurrentRow(row);
            QTest::keyClick(horses, Qt::Key_Return);
        }
        QCOMPARE(text(u"txtwinhorse"_s) + text(u"txtplacehorse"_s) + text(u"txtshowhorse"_s),
                 u"135"_s);
        QVERIFY(event->note().startsWith("All three places are entered."_L1));
        press(u"cmdpayoff"_s);
        auto *winners = child<QListWidget>(screen(), u"lstwinners"_s);
        QTest::keyClick(winners, Qt::Key_Return); // nobody is selected
        winners->setCurrentRow(0);
        expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
        QTest::keyClick(winners, Qt::Key_Enter, Qt::KeypadModifier);
        QTest::keyClick(winners, Qt::Key_Return);
        QCOMPARE(winners->count(), 3);
        // AnyBettor's calculator is what is typed into next.
        QWidget *calculator = calculators().value(0);
        QVERIFY(calculator && QTest::qWaitForWindowActive(calculator));
        auto *first = child<QLineEdit>(calculator, u"txtwinwin"_s);
        QTRY_COMPARE(first->selectedText(), u"0"_s);
        QVERIFY(first->hasFocus());
        press(u"cmdreturn"_s);
        QCOMPARE(label(u"lblprogress"_s), u"settled "_s + clock() + u", 3 unpaid"_s);
        QCOMPARE(screen()->focusWidget()->objectName(), u"cmdpay"_s);
    }

    // A winner whose bet reached the file after the calculation is never passed over in silence.
    void lateBets()
    {
        event->write(u"Bets Race1"_s, "5,1,1,2\r\n");
        type(u"txthousepct"_s, u"10"_s);
        calculate();
        event->write(u"Bets Race1"_s, "5,1,1,2\r\n2,1,1,2.5\r\n3,1,1,1\r\n");
        expect(u"2 bets of $3.50 came in after the payoffs were calculated. Calculate again?"_s,
               u"Pay winners"_s, Answer::Yes);
        type(u"txthousepct"_s, u"0"_s); // what was calculated with is taken again
        pay(u"EVE"_s);
        QCOMPARE(winners(), (QStringList{u"BOB"_s, u"CAROL"_s, u"EVE"_s}));
        QCOMPARE(label(u"lblowed"_s), u"3 of 3 to pay\nOwed $4.95, rounded $5.00"_s);

        event->write(u"Bets Race1"_s, "5,1,1,2\r\n");
        expect(u"The bets have changed since the payoffs were calculated. Calculate again?"_s,
               u"Pay winners"_s, Answer::No);
        payFirst(u"BOB"_s, Answer::No);
        pay(u"EVE"_s); // not asked again about the same bets
        QCOMPARE(winners(), QStringList{u"CAROL"_s});
        event->remove({u"Bets Race1"_s});
        expect(u"File not found"_s, u"Bet file empty"_s);
        pay(u"CAROL"_s);
        QCOMPARE(winners(), QStringList{u"CAROL"_s});
    }

    // A bettor without a name is not paid; a slip that cannot be printed is listed.
    void unknownBettorAndRefusedSlip()
    {
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n3,\"CAROL\"\r\n5,\"EVE\"\r\n");
        event->printer.setDestination(
            [](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
        calculate();
        expect(u"Bettor name not found"_s, u"Pay winners"_s);
        pay(u"2 Bad Bettor Number"_s);
        QCOMPARE(winners().size(), 4);
        QCOMPARE(text(u"txtpaid"_s), u"$0.00"_s);
        payFirst(u"EVE"_s, Answer::Yes);
        press(u"cmdreturn"_s, u"Printer error"_s, u"Pay winners"_s);
        QVERIFY(event->note().endsWith("The list of payoff slips is in its own window."_L1));
        QVERIFY(event->takeListing().value(0).startsWith("Bettor Name: EVE"_L1));
    }

    // A race that was paid in this visit is not paid again without a question. The slips of a race
    // that was left are printed, unless it was begun again; its unpaid bettors are named.
    void anotherRace()
    {
        calculate();
        payFirst(u"AnyBettor"_s, Answer::Yes);
        press(u"optrace_1"_s, u"Start over?"_s, u"TRELAWN"_s, Answer::No);
        QCOMPARE(winners().size(), 3);
        QCOMPARE(text(u"txtpaid"_s), u"$48.00"_s);

        event->write(u"Horses Race2"_s, "1,0,\"8 \",\"OTHER\"\r\n");
        event->write(u"Bets Race2"_s, "5,1,1,2\r\n");
        press(u"optrace_2"_s);
        QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race2"_s);
        QCOMPARE(text(u"txtwinhorse"_s) + payoffs().trimmed(), QString());
        QVERIFY(winners().isEmpty() && calculators().isEmpty());
        enter(u"cmdwinner"_s, u"8 OTHER"_s);
        press(u"cmdpayoff"_s);
        pay(u"EVE"_s);
        press(u"optrace_1"_s, u"Start over?"_s, u"TRELAWN"_s, Answer::No);
        QCOMPARE(event->session.settings.currentRace, 2);
        QVERIFY(child<QAbstractButton>(screen(), u"optrace_2"_s)->isChecked());
        press(u"optrace_1"_s, u"Start over?"_s, u"TRELAWN"_s, Answer::Yes);
        press(u"cmdreturn"_s);
        QCOMPARE(event->slips.size(), 1);
        QCOMPARE(slipText(event->slips.front()).size(), 6); // of race 2 alone
        QCOMPARE(event->note(), u"Not paid in Race1: BOB, CAROL, EVE"_s);
    }

private:
    // Of what the cash journal holds last.
    QString clock() { return readCashJournal(event->session).lines.back().clock(); }
    QStringList winners() { return list(u"lstwinners"_s); }

    QString payoffs()
    {
        QStringList texts;
        for (const QString &name : payoffFields)
            texts << text(name);
        return texts.join(u' ');
    }

    QList<QWidget *> calculators() const
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return event->navigator().window()->findChildren<QWidget *>(u"frmanyb"_s);
    }

    void enter(const QString &button, const QString &horse)
    {
        select(u"lsthorses"_s, horse);
        press(button);
    }

    // Finish 1, 3, 5.
    void calculate()
    {
        enter(u"cmdwinner"_s, u"1 ALPHA"_s);
        enter(u"cmdplace"_s, u"3 CAIRO"_s);
        enter(u"cmdshow"_s, u"5 EMBER"_s);
        press(u"cmdpayoff"_s);
    }

    void pay(const QString &name)
    {
        select(u"lstwinners"_s, name);
        press(u"cmdpay"_s);
    }

    void payFirst(const QString &name, Answer printing)
    {
        expect(u"Print Payoffs?"_s, u"TRELAWN"_s, printing);
        pay(name);
    }
};

TRELAWN_TEST(tst_frmpaywinnersb)
#include "tst_frmpaywinnersb.moc"
