#include "kit/screentest.h"
#include "ui/controls.h"

// A whole race night through the real widgets, from the first start to the exit. The sums that
// files, labels and slips must show were worked out by hand.
class tst_racenight : public ScreenTest
{
    Q_OBJECT

    // What keys go to. The offscreen platform does not hand the keyboard back when a box is closed.
    QWidget *focused()
    {
        screen()->activateWindow();
        if (!QTest::qWaitForWindowActive(screen()->window()) || !QApplication::focusWidget())
            qFatal("no control takes keys on %s", qPrintable(screen()->objectName()));
        return QApplication::focusWidget();
    }

    void pressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(focused(), key, modifiers);
        QCoreApplication::processEvents();
    }

    // Presses the button with Alt and its letter.
    void pressLetter(const QString &button)
    {
        const QKeySequence keys = child<QAbstractButton>(screen(), button)->shortcut();
        QVERIFY2(keys.count() == 1, qPrintable(button));
        QSignalSpy clicks(child<QAbstractButton>(screen(), button), &QAbstractButton::clicked);
        pressKey(keys[0].key(), keys[0].keyboardModifiers());
        QVERIFY2(clicks.count() == 1 || clicks.wait(), qPrintable(button));
        QCoreApplication::processEvents();
    }

    // A sheet: the cells in the order in which they are clicked.
    void takeSheet(const QString &bettor, const QStringList &cells, const QString &total)
    {
        select(u"lstentries"_s, bettor);
        for (const QString &cell : cells)
            clickCell(screen(), cell);
        QCOMPARE(label(u"lbltobeplaced"_s), u"to be placed: "_s + total);
        expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
        press(u"cmdplacebets"_s);
        QCOMPARE(text(u"txttotaltot"_s), QString());
        QVERIFY(slipText(event->slips.back()).contains(bettor));
    }

private slots:
    void initTestCase() { begin(false); }
    void init() { failOnQtWarnings(); }
    void cleanup() { QVERIFY(event->boxes.allCame()); } // the night goes on
    void cleanupTestCase() { event.reset(); }

    void startProgram()
    {
        Settings &settings = event->session.settings;
        settings = {};
        expect(u"Display size must be set to 1024 x 768"_s, u"TRELAWN"_s);
        event->boxes.expectInputKept(
            u"Enter Init drive location - C, D, or E or press enter to use the C drive"_s,
            u"Init Drive"_s);
        expect(u"Is a printer attached to this computer? 'No' disables all printing."_s,
               u"Printer Attached?"_s, Answer::Yes);
        open(u"frminitb"_s);
        type(u"txtbanner1"_s, u"Harbour Cup"_s);
        expect(u"Banner information changed"_s, u"Setup"_s);
        pressKey(Qt::Key_Return);
        press(u"cmdround"_s);
        press(u"cmdround"_s);
        QCOMPARE(caption(screen(), u"cmdround"_s), u"Round payoff to nearest 0.25"_s);
        press(u"optrace_3"_s);
        press(u"cmdok"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(text(u"txtbanner"_s), u"Harbour Cup Race3"_s);
        QCOMPARE(caption(screen(), u"cmdclearbets"_s), u"Clear/Refund  Race3 Bets"_s);
    }

    // Posts 1 and 5 run as one entry; post 9 is scratched after the betting.
    void enterHorses()
    {
        press(u"cmdenterhorses"_s);
        const std::tuple<int, QString, QString, QString> field[] = {
            {1, u"1"_s, u"COPPER KETTLE"_s, u"1"_s}, {2, u"2"_s, u"LATE PROMISE"_s, u"0"_s},
            {3, u"3"_s, u"MOSS & STONE"_s, u"0"_s},  {4, u"4"_s, u"NINE TAILORS"_s, u"0"_s},
            {5, u"1A"_s, u"COPPER SPOON"_s, u"1"_s}, {9, u"7"_s, u"QUICKSILVER"_s, u"0"_s}};
        for (const auto &[post, number, name, pool] : field) {
            type(memberName(u"txtnumber"_s, post - 1), number);
            type(memberName(u"txthorse"_s, post - 1), name);
            type(memberName(u"txtpool"_s, post - 1), pool);
        }
        expect(u"Update Horses?"_s, u"Horses"_s, Answer::Yes);
        press(u"cmdupdatehorses"_s);
        press(u"cmdmainmenu"_s);
        QCOMPARE(event->note(), QString());
    }

    void addBettors()
    {
        press(u"cmdenterbettors"_s);
        for (const QString &typed :
             {u"lund-eva"_s, u"berg-ole"_s, u"dahl-ida"_s, u"moe-per"_s, u"vik-siv"_s}) {
            type(u"txtbettorname"_s, typed);
            expect(typed.toUpper() + u" added"_s, u"Bettors"_s);
            pressKey(Qt::Key_Return);
        }
        QCOMPARE(list(u"cbobettornames"_s).join(u' '),
                 u"AnyBettor BERG-OLE DAHL-IDA LUND-EVA MOE-PER VIK-SIV"_s);
        press(u"cmdreturn"_s);
    }

    // Cells 21 to 41 are win, 42 to 62 place, 63 to 83 show; txtone sets $1, 2, 3, 5, 10 or 20, and
    // txtamt adds $0.25, 1, 5 or 10.
    void takeBets()
    {
        press(u"cmdbet"_s);
        takeSheet(u"AnyBettor"_s, {u"txtone_3"_s, u"txtnumber_23"_s}, u"$5.00"_s);
        takeSheet(u"LUND-EVA"_s,
                  {u"txtone_4"_s, u"txtnumber_21"_s, u"txtone_5"_s, u"txtnumber_43"_s},
                  u"$30.00"_s);
        takeSheet(u"BERG-OLE"_s, {u"txtone_3"_s, u"txtnumber_25"_s}, u"$5.00"_s);
        takeSheet(u"DAHL-IDA"_s,
                  {u"txtone_5"_s, u"txtnumber_22"_s, u"txtone_2"_s, u"txtnumber_29"_s,
                   u"txtone_1"_s, u"txtamt_3"_s, u"txtnumber_66"_s},
                  u"$35.00"_s);
        takeSheet(u"MOE-PER"_s, {u"txtone_4"_s, u"txtnumber_42"_s, u"txtnumber_64"_s}, u"$20.00"_s);
        takeSheet(u"VIK-SIV"_s,
                  {u"txtone_3"_s, u"txtnumber_44"_s, u"txtnumber_44"_s, u"txtnumber_65"_s,
                   u"txtone_1"_s, u"txtamt_0"_s, u"txtnumber_50"_s},
                  u"$17.25"_s);
        takeSheet(u"AnyBettor"_s, {u"txtone_3"_s, u"txtnumber_67"_s}, u"$5.00"_s);
        QCOMPARE(text(u"txttotprior"_s), u"$10.00"_s);
        QCOMPARE(
            slipText(event->slips.back()),
            QStringList({u"Harbour Cup   Race3"_s, u" "_s, u"BET SUMMARY FOR "_s, u"AnyBettor"_s,
                         u" "_s, u"HORSE              BET"_s, u"3  MOSS & STONE    $05.00 Win  "_s,
                         u"1A COPPER SPOON    $05.00 Show"_s, u" "_s, u"TOTAL BETS $10.00"_s}));
        // $43 to win: 15 on the entry, 20, 5, nothing and 3 on the others.
        const std::pair<int, QString> odds[] = {{1, u"9/5"_s}, {5, u"9/5"_s},  {2, u"1/1"_s},
                                                {3, u"7/1"_s}, {4, QString()}, {9, u"13/1"_s}};
        for (const auto &[post, shown] : odds)
            QCOMPARE(text(memberName(u"txtnumber"_s, 104 + post)), shown);
        press(u"cmdmainmenu"_s);
    }

    void scratch()
    {
        press(u"cmdenterhorses"_s);
        expect(u"Scratch a horse?"_s, u"Horses"_s, Answer::Yes);
        expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, u"9"_s);
        expect(u"Scratch QUICKSILVER"_s, u"Horses"_s);
        expect(u"QUICKSILVERScratched"_s, u"Horses"_s);
        press(u"cmdscratch"_s);
        QCOMPARE(text(u"txthorse_8"_s), QString());
        const QStringList refunds = simplified(slipText(event->slips.back()));
        QVERIFY(refunds.endsWith(u"VIK-SIV $2.25"_s) && refunds.contains(u"DAHL-IDA $3.00"_s));
        press(u"cmdmainmenu"_s);
    }

    // Win 40, of which 15 on the entry that won; place 40: 10 and 20 and a profit of 10 to halve;
    // show 32: 5, 10 and 5 and a profit of 12 to share by three. The house takes a tenth.
    void settle()
    {
        press(u"cmdpay"_s);
        const std::pair<QString, QString> finishers[] = {{u"cmdwinner"_s, u"1A COPPER SPOON"_s},
                                                         {u"cmdplace"_s, u"2 LATE PROMISE"_s},
                                                         {u"cmdshow"_s, u"3 MOSS & STONE"_s}};
        for (const auto &[button, horse] : finishers) {
            select(u"lsthorses"_s, horse);
            press(button);
        }
        type(u"txthousepct"_s, u"10"_s);
        expect(u"House percentage is 10 %"_s, u"Payoff"_s);
        pressKey(Qt::Key_Return);
        press(u"cmdpayoff"_s);
        const std::pair<QString, QString> fields[] = {
            {u"txtwinhorse"_s, u"5"_s},         {u"txtwintotal"_s, u"$40.00"_s},
            {u"txtplacetotal"_s, u"$40.00"_s},  {u"txtshowtotal"_s, u"$32.00"_s},
            {u"txttotaltotal"_s, u"$112.00"_s}, {u"txtbet"_s, u"$112.00"_s},
            {u"txthousetot"_s, u"$11.20"_s},    {u"txtwinwin"_s, u"$4.80"_s},
            {u"txtwinplace"_s, u"$2.70"_s},     {u"txtwinshow"_s, u"$3.24"_s},
            {u"txtplaceplace"_s, u"$2.25"_s},   {u"txtplaceshow"_s, u"$2.52"_s},
            {u"txtshowshow"_s, u"$3.24"_s}};
        for (const auto &[name, shown] : fields)
            QCOMPARE(text(name), shown);
    }

    // Not in the order of the list; $26.10 and $8.10 are rounded to the quarter.
    void payEveryone()
    {
        QCOMPARE(list(u"lstwinners"_s).join(u' '),
                 u"AnyBettor LUND-EVA BERG-OLE MOE-PER VIK-SIV"_s);
        const std::tuple<QString, QString, QString, QString, QString> payments[] = {
            {u"VIK-SIV"_s, u"$8.10"_s, u"$8.00"_s, u"$8.10"_s, u"$8.00"_s},
            {u"LUND-EVA"_s, u"$46.50"_s, u"$46.50"_s, u"$54.60"_s, u"$54.50"_s},
            {u"AnyBettor"_s, u"$8.10"_s, u"$8.00"_s, u"$62.70"_s, u"$62.50"_s},
            {u"MOE-PER"_s, u"$26.10"_s, u"$26.00"_s, u"$88.80"_s, u"$88.50"_s},
            {u"BERG-OLE"_s, u"$12.00"_s, u"$12.00"_s, u"$100.80"_s, u"$100.50"_s}};
        expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::Yes);
        for (const auto &[name, owed, large, paid, rounded] : payments) {
            select(u"lstwinners"_s, name);
            press(u"cmdpay"_s);
            QCOMPARE(text(u"txtwinnername"_s), name);
            QCOMPARE(text(u"txttotaltotal"_s), owed);
            QCOMPARE(text(u"txttotalr"_s), large);
            QCOMPARE(text(u"txtpaid"_s), paid);
            QCOMPARE(text(u"txtrounded"_s), rounded);
        }
        QVERIFY(list(u"lstwinners"_s).isEmpty());
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(event->note(), QString());
        // Seven receipts, the refund list, and the payoffs of all five on one slip.
        QCOMPARE(event->slips.size(), 9);
        const QStringList lines = simplified(slipText(event->slips.back()));
        QCOMPARE(lines.filter(u"Bettor Name: "_s).size(), 5);
        QCOMPARE(lines.mid(6, 6), QStringList({u"Bettor Name: LUND-EVA Harbour Cup Race3"_s,
                                               u"Bet Paid Bet Paid Bet Paid"_s,
                                               u"1A $10.00 $24.00 $0.00 $0.00 $0.00 $0.00"_s,
                                               u"2 $20.00 $22.50 $0.00 $0.00"_s,
                                               u"3 $0.00 $0.00"_s,
                                               {}}));
    }

    void checkFiles()
    {
        const std::pair<QString, QByteArray> files[] = {
            {u"Bets Race3"_s, "1,3,1,5\r\n2,1,1,10\r\n2,2,2,20\r\n3,5,1,5\r\n4,2,1,20\r\n"
                              "4,4,3,12\r\n5,1,2,10\r\n5,2,3,10\r\n6,3,2,10\r\n6,3,3,5\r\n"
                              "1,5,3,5\r\n"},
            {u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"LUND-EVA\"\r\n3,\"BERG-OLE\"\r\n"
                           "4,\"DAHL-IDA\"\r\n5,\"MOE-PER\"\r\n6,\"VIK-SIV\"\r\n"},
            {u"Multibets Race3"_s, {}}};
        for (const auto &[name, bytes] : files)
            QCOMPARE(event->readTwins(name), bytes);
        QCOMPARE(parseHorses(event->readTwins(u"Horses Race3"_s)).horses,
                 cardOf({{1, 1, u"1"_s, u"COPPER KETTLE"_s},
                         {2, 0, u"2"_s, u"LATE PROMISE"_s},
                         {3, 0, u"3"_s, u"MOSS & STONE"_s},
                         {4, 0, u"4"_s, u"NINE TAILORS"_s},
                         {5, 1, u"1A"_s, u"COPPER SPOON"_s}}));
        QCOMPARE(event->read(u"Init"_s),
                 QByteArray("\"Harbour Cup\",\"C:\\Trelawn\\\",8,\"yes\",3,3,"
                            "0.25,1,5,10,5,20000,2000,0\r\n"));
    }

    void exitProgram()
    {
        press(u"cmdexit"_s);
        QVERIFY(!screen()->isVisible());
    }

    // A bet is placed and a winner paid with keys alone: letters for the buttons, arrows in the
    // lists.
    void withoutMouse()
    {
        begin();
        event->write(u"Horses Race1"_s, "1,0,\"1 \",\"ALFA\"\r\n2,0,\"2 \",\"BRAVO\"\r\n"
                                        "4,0,\"3 \",\"COCO\"\r\n");
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"KING-ADA\"\r\n3,\"KING-ZOE\"\r\n");
        event->write(u"Bets Race1"_s, "2,1,1,6\r\n");
        open(u"frmmenub"_s);
        pressLetter(u"cmdbet"_s);
        QVERIFY(event->isOpen(u"frmsheetb"_s));
        QTest::keyClicks(focused(), u"king-z"_s);
        pressKey(Qt::Key_Return);
        QCOMPARE(label(u"lblselected"_s), u"KING-ZOE"_s);
        pressKey(Qt::Key_Down);
        pressKey(Qt::Key_Down); // over the empty post
        for (const Qt::Key key : {Qt::Key_5, Qt::Key_Space, Qt::Key_Right, Qt::Key_2, Qt::Key_Space,
                                  Qt::Key_Minus, Qt::Key_Space, Qt::Key_Plus, Qt::Key_Space})
            pressKey(key);
        expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
        pressKey(Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(event->read(u"Bets Race1"_s), QByteArray("2,1,1,6\r\n3,4,1,5\r\n3,4,2,2\r\n"));
        QCOMPARE(focused()->objectName(), u"txtname"_s);
        pressKey(Qt::Key_Tab);
        pressKey(Qt::Key_Escape);
        QCOMPARE(focused()->objectName(), u"txtname"_s);
        pressLetter(u"cmdmainmenu"_s);

        pressLetter(u"cmdpay"_s);
        QVERIFY(event->isOpen(u"frmpaywinnersb"_s));
        QCOMPARE(focused()->objectName(), u"lsthorses"_s);
        pressKey(Qt::Key_Down);
        pressKey(Qt::Key_End);
        pressLetter(u"cmdwinner"_s);
        QCOMPARE(text(u"txtwinhorse"_s), u"4"_s);
        pressLetter(u"cmdpayoff"_s);
        QCOMPARE(focused()->objectName(), u"lstwinners"_s);
        pressKey(Qt::Key_Down);
        expect(u"Print Payoffs?"_s, u"TRELAWN"_s, Answer::No);
        pressLetter(u"cmdpay"_s);
        QCOMPARE(text(u"txtwinnername"_s), u"KING-ZOE"_s);
        QCOMPARE(text(u"txttotalr"_s), u"$13.00"_s);
        pressLetter(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s));
        QCOMPARE(event->note(), QString());
    }
};

TRELAWN_TEST(tst_racenight)
#include "tst_racenight.moc"
