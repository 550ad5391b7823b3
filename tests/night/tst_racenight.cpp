#include "kit/screentest.h"

// A race through the real widgets, from the first bet to the last winner. The sums that files,
// fields and slips must show were worked out by hand.
class tst_racenight : public ScreenTest
{
    Q_OBJECT

private slots:
    // Posts 1 and 5 run as one entry; post 9 is scratched after the betting.
    void night()
    {
        begin();
        Settings &settings = event->session.settings;
        settings.banner = u"Harbour Cup"_s;
        settings.currentRace = 3;
        settings.roundingIndex = 3;
        saveInit(event->session);
        event->writeTwins(u"Horses Race3"_s,
                          horseRecords(cardOf({{1, 1, u"1"_s, u"COPPER KETTLE"_s},
                                               {2, 0, u"2"_s, u"LATE PROMISE"_s},
                                               {3, 0, u"3"_s, u"MOSS & STONE"_s},
                                               {4, 0, u"4"_s, u"NINE TAILORS"_s},
                                               {5, 1, u"1A"_s, u"COPPER SPOON"_s},
                                               {9, 0, u"7"_s, u"QUICKSILVER"_s}})));
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"LUND-EVA\"\r\n3,\"BERG-OLE\"\r\n"
                                        "4,\"DAHL-IDA\"\r\n5,\"MOE-PER\"\r\n6,\"VIK-SIV\"\r\n");
        takeBets();
        scratch();
        settle();
        payEveryone();
    }

private:
    // A sheet: the cells in the order in which they are clicked. Cells 21 to 41 are win, 42 to 62
    // place, 63 to 83 show; txtone sets $1, 2, 3, 5, 10 or 20, and txtamt adds $0.25, 1, 5 or 10.
    void takeSheet(const QString &bettor, const QStringList &cells, const QString &total)
    {
        select(u"lstentries"_s, bettor);
        for (const QString &cell : cells)
            clickCell(screen(), cell);
        QCOMPARE(label(u"lbltobeplaced"_s), u"to be placed: "_s + total);
        press(u"cmdplacebets"_s, u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
    }

    void takeBets()
    {
        open(u"frmsheetb"_s);
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
        QCOMPARE(
            slipText(event->slips.back()),
            QStringList({u"Harbour Cup   Race3"_s, u" "_s, u"BET SUMMARY FOR "_s, u"AnyBettor"_s,
                         u" "_s, u"HORSE              BET"_s, u"3  MOSS & STONE    $05.00 Win  "_s,
                         u"1A COPPER SPOON    $05.00 Show"_s, u" "_s, u"TOTAL BETS $10.00"_s}));
    }

    void scratch()
    {
        open(u"frmhorsesb"_s);
        expect(u"Scratch a horse?"_s, u"Horses"_s, Answer::Yes);
        expectInput(u"Enter post position to scratch"_s, u"Scratch"_s, u"9"_s);
        expect(u"Scratch QUICKSILVER"_s, u"Horses"_s);
        press(u"cmdscratch"_s, u"QUICKSILVERScratched"_s, u"Horses"_s);
        const QStringList refunds = simplified(slipText(event->slips.back()));
        QVERIFY(refunds.endsWith(u"VIK-SIV $2.25"_s) && refunds.contains(u"DAHL-IDA $3.00"_s));
        QCOMPARE(event->readTwins(u"Bets Race3"_s),
                 "1,3,1,5\r\n2,1,1,10\r\n2,2,2,20\r\n3,5,1,5\r\n4,2,1,20\r\n4,4,3,12\r\n"
                 "5,1,2,10\r\n5,2,3,10\r\n6,3,2,10\r\n6,3,3,5\r\n1,5,3,5\r\n");
    }

    // Win 40, of which 15 on the entry that won; place 40: 10 and 20 and a profit of 10 to halve;
    // show 32: 5, 10 and 5 and a profit of 12 to share by three. The house takes a tenth.
    void settle()
    {
        open(u"frmpaywinnersb"_s);
        const std::pair<QString, QString> finishers[] = {{u"cmdwinner"_s, u"1A COPPER SPOON"_s},
                                                         {u"cmdplace"_s, u"2 LATE PROMISE"_s},
                                                         {u"cmdshow"_s, u"3 MOSS & STONE"_s}};
        for (const auto &[button, horse] : finishers) {
            select(u"lsthorses"_s, horse);
            press(button);
        }
        type(u"txthousepct"_s, u"10"_s);
        expect(u"House percentage is 10 %"_s, u"Payoff"_s);
        QTest::keyClick(child<QLineEdit>(screen(), u"txthousepct"_s), Qt::Key_Return);
        press(u"cmdpayoff"_s);
        const std::pair<QString, QString> fields[] = {
            {u"txtwintotal"_s, u"$40.00"_s},  {u"txtplacetotal"_s, u"$40.00"_s},
            {u"txtshowtotal"_s, u"$32.00"_s}, {u"txttotaltotal"_s, u"$112.00"_s},
            {u"txtbet"_s, u"$112.00"_s},      {u"txthousetot"_s, u"$11.20"_s},
            {u"txtwinwin"_s, u"$4.80"_s},     {u"txtwinplace"_s, u"$2.70"_s},
            {u"txtwinshow"_s, u"$3.24"_s},    {u"txtplaceplace"_s, u"$2.25"_s},
            {u"txtplaceshow"_s, u"$2.52"_s},  {u"txtshowshow"_s, u"$3.24"_s}};
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
            QCOMPARE(text(u"txttotaltotal"_s), owed);
            QCOMPARE(text(u"txttotalr"_s), large);
            QCOMPARE(text(u"txtpaid"_s), paid);
            QCOMPARE(text(u"txtrounded"_s), rounded);
        }
        press(u"cmdreturn"_s);
        QCOMPARE(event->note(), QString());
        // Seven receipts, the refund list, and the payoffs of all five on one slip.
        QCOMPARE(event->slips.size(), 9);
        QCOMPARE(slipText(event->slips.back()).filter(u"Bettor Name: "_s).size(), 5);
    }
};

TRELAWN_TEST(tst_racenight)
#include "tst_racenight.moc"
