#include "kit/screentest.h"

const QByteArray twoBets = "2,3,1,2\r\n3,3,1,4\r\n";

// Race 1 has horses on posts 1, 3 and 12, race 2 has one on post 2; there are three bettors.
class tst_frmsheetb : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin(false);
        saveInit(event->session);
        event->write(u"Horses Race1"_s,
                     horseRecords(cardOf({{1, 1, u"1"_s, u"Grindstone"_s},
                                          {3, 0, u"3"_s, u"Secretariat"_s},
                                          {4, 1, u"4"_s, u"zzz"_s},
                                          {12, 1, u"12"_s, u"Fusaichi Pegasus"_s}})));
        event->write(u"Horses Race2"_s, horseRecords(cardOf({{2, 0, u"2B"_s, u"Sea Hero"_s}})));
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"BROWN\"\r\n");
        event->writeTwins(u"Bets Race1"_s, twoBets);
        event->write(u"Bets Race2"_s, "2,2,2,9\r\n");
        open(u"frmsheetb"_s);
    }

    // It reads Init again; a damaged one changes nothing.
    void opens()
    {
        QCOMPARE(text(u"txtnumber_105"_s), QString()); // no odds where no horse runs
        QVERIFY(!child<QWidget>(screen(), u"txtnumber_24"_s)->isVisible());
        Settings &settings = event->session.settings;
        settings.roundingIndex = 3;
        settings.banner = u"Old Banner"_s;
        settings.currentRace = 7;
        saveInit(event->session);
        settings.banner.clear();
        settings.currentRace = 1;
        settings.setRole(false, true);
        open(u"frmsheetb"_s);
        QCOMPARE(text(u"txtbanner"_s) + text(u"txtbanner1"_s), u"Old Banner Race1"_s);
        QVERIFY(settings.isSatelliteComputer());
        event->write(u"Init"_s, "\"Other\",\"D:\\\",2");
        open(u"frmsheetb"_s);
        QVERIFY2(event->note().contains(u"Init is damaged"_s), qPrintable(event->note()));
        QCOMPARE(text(u"txtbanner"_s) + text(u"txtbanner1"_s), u"Old Banner Race1"_s);
        QCOMPARE(settings.roundingIndex, 3);
    }

    void failuresOnOpening()
    {
        event->remove({u"Horses Race1"_s, u"Bettors"_s});
        expect(u"53 File not found"_s, u"Bettors Input"_s);
        expect(u"53 File not found"_s, u"Horses input"_s);
        open(u"frmsheetb"_s);
        QTRY_VERIFY(event->boxes.allCame());
        QCOMPARE(text(u"txthorse_2"_s), QString()); // no bet falls on another race's horse
    }

    void amountControls()
    {
        Rows<QStringList, QString> rows;
        rows("a preset leaves the sign", {u"txtone_5"_s}, u"$20.00 +"_s);
        rows("the amount's own click shows no leading zero",
             {u"txtplus"_s, u"txtone_0"_s, u"txtbetamt"_s}, u"$.00 -"_s);
        rows("the sign negates", {u"txtamt_0"_s, u"txtplus"_s}, u"-$1.25 -"_s);
        rows("steps subtract under minus", {u"txtplus"_s, u"txtamt_3"_s}, u"-$11.00 -"_s);
        rows("the clear cell leaves the sign", {u"txtplus"_s, u"txtclearamt"_s}, u"$0.00 -"_s);
        for (const auto &[row, clicks, shown] : rows) {
            open(u"frmsheetb"_s);
            clickCells(clicks);
            QCOMPARE(text(u"txtbetamt"_s) + u' ' + text(u"txtplus"_s), shown);
        }
    }

    void entering()
    {
        clickCells({u"txtone_3"_s, u"txtnumber_23"_s, u"txtnumber_23"_s, u"txtnumber_23"_s});
        QCOMPARE(text(u"txtnumber_23"_s) + u' ' + text(u"txtwintot"_s), u"15 15"_s);
        clickCells({u"txtplus"_s, u"txtnumber_23"_s});
        QCOMPARE(text(u"txtnumber_23"_s), u"10"_s);
        clickCells({u"txtclearamt"_s, u"txtnumber_44"_s}); // an amount of 0
        clickCells(
            {u"txtone_0"_s, u"txtnumber_22"_s, u"txtnumber_24"_s}); // posts 2 and 4: no horses
        QCOMPARE(text(u"txttotaltot"_s), u"10"_s);
        clickCells({u"txtclearamt"_s, u"txtplus"_s, u"txtamt_0"_s, u"txtnumber_65"_s});
        QCOMPARE(text(u"txtshowtot"_s), u"0.25"_s);
        QCOMPARE(label(u"lbltobeplaced"_s), u"to be placed: $10.00"_s);
        press(u"cmdclrentries"_s);
        QCOMPARE(text(u"txtnumber_23"_s) + text(u"txtshowtot"_s) + text(u"txttotaltot"_s),
                 QString());
    }

    void placing()
    {
        choose(u"SMITH"_s);
        clickCells({u"txtone_3"_s, u"txtnumber_74"_s, u"txtnumber_23"_s, u"txtone_0"_s,
                    u"txtnumber_21"_s});
        place(Answer::No);
        QCOMPARE(bets(), twoBets);
        QCOMPARE(text(u"txttotaltot"_s), u"11"_s);
        place();
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n2,3,1,5\r\n2,12,3,5\r\n");
        QCOMPARE(list(u"lstpriorbets"_s).join(u'|'),
                 u"3  Secretariat     $02.00 Win  | 1 Grindstone      $01.00 Win|"
                 " 3 Secretariat     $05.00 Win|12 Fusaichi Pegasu $05.00 Show"_s);
        QCOMPARE(text(u"txttotprior"_s), u"$13.00"_s);
        // $12 to win: 11 on post 3, 1 on the entry of posts 1 and 12.
        QCOMPARE(text(u"txtnumber_116"_s), u"11/1"_s);
        // The sheet is empty for the next bettor; the amount is kept.
        QCOMPARE(text(u"txttotaltot"_s) + text(u"txtnumber_21"_s), QString());
        QCOMPARE(text(u"txtbetamt"_s), u"$1.00"_s);
        press(u"cmdplacebets"_s); // an empty sheet says nothing
        clickCells({u"txtnumber_21"_s});
        press(u"cmdplacebets"_s, u"Must select bettor first."_s, u"Place Bets"_s);
        choose(u"SMITH"_s);
        clickCells({u"txtplus"_s, u"txtnumber_42"_s});
        press(u"cmdplacebets"_s); // neither does one whose total is 0
    }

    void placingStops()
    {
        choose(u"SMITH"_s);
        clickCells(
            {u"txtone_3"_s, u"txtnumber_21"_s, u"txtone_1"_s, u"txtplus"_s, u"txtnumber_42"_s});
        place(Answer::Yes, u"Bet amounts must be positive"_s, u"TRELAWN"_s);
        QCOMPARE(bets(), twoBets + "2,1,1,5\r\n");
        QCOMPARE(text(u"txtnumber_42"_s), u"-2"_s); // not cleared
        QVERIFY(event->slips.isEmpty());
        QVERIFY2(event->note().startsWith(u"1 bet of $5.00 saved"_s), qPrintable(event->note()));

        event->session.settings.betLimit = 4;
        press(u"cmdclrentries"_s);
        clickCells({u"txtplus"_s, u"txtone_1"_s, u"txtnumber_21"_s, u"txtnumber_42"_s});
        place(Answer::Yes, u"The race has room for 1 bet more. These bets were not placed."_s);
        QCOMPARE(bets(), twoBets + "2,1,1,5\r\n");
        QCOMPARE(text(u"txttotaltot"_s), u"4"_s);
    }

    void choosingARace()
    {
        choose(u"SMITH"_s);
        clickCells({u"txtnumber_23"_s});
        press(u"optrace_1"_s); // the race that is shown keeps what was entered for it
        QVERIFY(!text(u"txtnumber_23"_s).isEmpty());
        press(u"optrace_2"_s, u"The bets on this sheet are not placed. Throw them away?"_s,
              u"Bet Sheet"_s, Answer::Yes);
        QCOMPARE(text(u"txtbanner1"_s) + text(u"txthorse_1"_s), u" Race2Sea Hero"_s);
        QCOMPARE(text(u"txttotaltot"_s) + text(u"txtnumber_23"_s), QString());
        QCOMPARE(list(u"lstpriorbets"_s), QStringList{u"2B Sea Hero        $09.00 Place"_s});
        QVERIFY(loadInit(event->session));
        QCOMPARE(event->session.settings.currentRace, 2);
    }

    void deletingPriorBets()
    {
        event->writeTwins(u"Bets Race1"_s,
                          "2,3,1,2\r\n3,3,1,4\r\n0,1,1,9\r\n2,1,3,5\r\n2,3,1,2\r\n");
        choose(u"SMITH"_s);
        deletePrior({}); // nothing is printed
        deletePrior({0, 1});
        QCOMPARE(bets(), "3,3,1,4\r\n2,3,1,2\r\n");
        QCOMPARE(slipText(event->slips.value(0)).join(u'|'),
                 u"Refund Bets|SMITH for  Race1| |3  Secretariat     $02.00 Win  |"
                 "1  Grindstone      $05.00 Show | |Total Refund $7.00"_s);
        QCOMPARE(text(u"txttotprior"_s), u"$2.00"_s);
    }

    void withoutPaper()
    {
        event->printer.setDestination(
            [](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
        choose(u"SMITH"_s);
        clickCells({u"txtnumber_21"_s});
        place(Answer::Yes, u"482 Printer error"_s, u"Bet receipt"_s);
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n");
        QCOMPARE(text(u"txttotaltot"_s), QString()); // not there to be placed a second time
        expect(u"482 Printer error"_s, u"Refund Bets"_s);
        deletePrior({1});
        QCOMPARE(bets(), twoBets);
        QCOMPARE(event->takeListing().last(), u"Total Refund $1.00"_s);

        press(u"cmdprint"_s);
        const QByteArray written = event->read(u"Init"_s);
        QVERIFY2(written.contains(",\"no\",") && written.contains(",0.25,1,5,10,5,"), written);
        QCOMPARE(caption(screen(), u"cmdprint"_s), u"Receipts will not print"_s);
        choose(u"SMITH"_s);
        clickCells({u"txtnumber_21"_s});
        place();
        deletePrior({0});
        QCOMPARE(bets(), "3,3,1,4\r\n2,1,1,1\r\n");
        QVERIFY2(event->note().contains(u"refund $2.00 to SMITH"_s), qPrintable(event->note()));
    }

    // A horse that was scratched or entered since the sheet was filled: the new card is shown and
    // asked about; what can still be placed stays on the sheet.
    void oldCard()
    {
        choose(u"SMITH"_s);
        clickCells(
            {u"txtnumber_21"_s, u"txtnumber_23"_s, u"txtnumber_65"_s}); // 1 and 3 win, 3 show
        event->write(u"Horses Race1"_s,
                     horseRecords(cardOf({{1, 0, u"7"_s, u"Go For Gin"_s},
                                          {2, 0, u"2"_s, u"Unbridled"_s},
                                          {12, 1, u"12"_s, u"Fusaichi Pegasus"_s}})));
        const QString changes =
            u"The card has changed.\nPost 1: 1 Grindstone is now 7 Go For Gin\n"
            "Post 2: 2 Unbridled is new\nPost 3: Secretariat runs no longer\n"
            "$2.00 on horses that run no longer left the sheet.\nPlace these bets?"_s;
        expect(u"Place these bets?"_s, u"Place Bets"_s, Answer::Yes);
        press(u"cmdplacebets"_s, changes, u"Place Bets"_s, Answer::No);
        QCOMPARE(bets(), twoBets);
        QCOMPARE(text(u"txthorse_0"_s), u"Go For Gin"_s);
        QCOMPARE(text(u"txtnumber_21"_s) + text(u"txttotaltot"_s), u"11"_s);
        place(); // seen once, it is the card of the sheet
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n");

        choose(u"SMITH"_s);
        clickCells({u"txtnumber_22"_s});
        event->write(u"Horses Race1"_s, horseRecords({}));
        place(Answer::Yes,
              u"The card has changed.\nPost 1: Go For Gin runs no longer\n"
              "Post 2: Unbridled runs no longer\nPost 12: Fusaichi Pegasus runs no longer\n"
              "$1.00 on horses that run no longer left the sheet.\nNo bet was placed."_s);
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n");
    }

    void networkKind()
    {
        open(u"frmsheetbnw"_s);
        QCOMPARE(caption(screen(), u"cmdclearprior"_s), u"Clear Selected Prior Bets"_s);
        QVERIFY(child<QWidget>(screen(), u"cmdpay"_s)->isVisible());
        QVERIFY(!screen()->findChild<QWidget *>(u"cmdmulti"_s));
        choose(u"SMITH"_s);
        event->write(u"Bettors"_s,
                     "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n3,\"BROWN\"\r\n9,\"LATE\"\r\n");
        clickCells({u"txtnumber_21"_s});
        place();
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n");
        // A number that another computer gave to another name gets no bet.
        choose(u"LATE"_s);
        clickCells({u"txtnumber_21"_s});
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n9,\"OTHER\"\r\n10,\"LATE\"\r\n");
        place(Answer::Yes, u"Bettor number 9 is no longer LATE. No bet was placed. Select the "
                           "bettor again."_s);
        QCOMPARE(label(u"lblselected"_s), u"No bettor selected"_s);
        QCOMPARE(text(u"txtnumber_21"_s), u"1"_s);
        // Without the shared list nothing is placed.
        choose(u"LATE"_s);
        event->remove({u"Bettors"_s});
        place(Answer::Yes, u"53 File not found"_s, u"Bettors input"_s);
        QCOMPARE(bets(), twoBets + "2,1,1,1\r\n");
    }

private:
    QByteArray bets() { return event->readTwins(u"Bets Race1"_s); }
    void choose(const QString &bettor) { select(u"lstentries"_s, bettor); }

    void clickCells(const QStringList &cells)
    {
        for (const QString &cell : cells)
            clickCell(screen(), cell);
    }

    // Places what is entered; a box may follow the question.
    void place(Answer answer = Answer::Yes, const QString &box = {},
               const QString &title = u"Place Bets"_s)
    {
        expect(u"Place these bets?"_s, u"Place Bets"_s, answer);
        if (!box.isEmpty())
            expect(box, title);
        press(u"cmdplacebets"_s);
    }

    void deletePrior(const QList<int> &rows)
    {
        for (const int row : rows)
            child<QListWidget>(screen(), u"lstpriorbets"_s)->item(row)->setSelected(true);
        press(u"cmdclearprior"_s);
    }
};

TRELAWN_TEST(tst_frmsheetb)
#include "tst_frmsheetb.moc"
