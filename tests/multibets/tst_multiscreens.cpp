#include "multibets/multiraces.h"
#include "ui/slippainter.h"

// The rules of the multibet screens one by one.
class tst_multiscreens : public MultibetTest
{
    Q_OBJECT

private slots:
    void init() { beginMultibets(); }

    void refusals()
    {
        open(u"frmmulti"_s);
        press(u"cmdplacebet"_s, u"Must select bet type"_s);
        press(u"cmdpick3"_s, u"Must select race first"_s);
        press(u"cmdexacta"_s);
        press(u"cmdplacebet"_s, u"Must select race number first"_s);
        chooseRace(3);
        press(u"cmdplacebet"_s, u"Must select bettor first"_s);
        select(u"lstentries"_s, u"ANN"_s);
        markPosts({{1}, {2}});
        press(u"chkbox_1"_s);
        press(u"cmdplacebet"_s, u"Must box at least 2 lines"_s);

        open(u"frmpaymulti"_s);
        press(u"cmdenterwin"_s, u"Must select bet type first"_s);
        press(u"cmdpick3"_s, u"Must select race first"_s);
        chooseRace(3);
        press(u"cmdexacta"_s);
        press(u"cmdenterwin"_s, u"No bets on this bet type"_s);
        QCOMPARE(event->note(), u"No winning post is selected on line 1, 2"_s);
    }

    // Whether the posts or the type are clicked first.
    void duplicatePost()
    {
        for (const auto &[name, typeFirst] : {std::pair{u"frmmulti"_s, true},
                                              {u"frmpaymulti"_s, true},
                                              {u"frmpaymulti"_s, false}}) {
            for (const QString &type : {u"cmdexacta"_s, u"cmdquinela"_s, u"cmdtrifecta"_s,
                                        u"cmddouble"_s, u"cmdpick3"_s}) {
                const bool severalRaces = type == "cmddouble"_L1 || type == "cmdpick3"_L1;
                open(name);
                chooseRace(3);
                if (!severalRaces)
                    expect(u"Duplicate horse post number"_s);
                if (typeFirst)
                    press(type);
                markPosts({{5}, {5}});
                if (!typeFirst)
                    press(type);
                QVERIFY(isSelected(1, 5));
                QCOMPARE(isSelected(2, 5), severalRaces);
            }
        }
    }

    void previewIsNotCarriedOver()
    {
        Rows<std::function<void()>> rows;
        rows("race", [this] { chooseRace(4); });
        rows("bettor", [this] { select(u"lstentries"_s, u"BOB"_s); });
        rows("type", [this] { press(u"cmdexacta"_s); });
        rows("entries", [this] { press(u"cmdclearentries"_s); });
        for (const auto &[what, change] : rows) {
            openForAnn();
            press(u"cmdtrifecta"_s);
            markPosts({{1}, {2}, {3}});
            clickCell(screen(), u"txtbetamt"_s, 2);
            press(u"cmdplacebet"_s);
            QCOMPARE(list(u"lstbets"_s), QStringList{u"T $2.00 1,2,3"_s});
            change();
            QCOMPARE(list(u"lstbets"_s), QStringList());
            QCOMPARE(text(u"txtthisbet"_s), u"$0.00"_s);
            press(u"cmdmake"_s);
            QCOMPARE(event->read(u"Multibets Race3"_s) + event->read(u"Multibets Race4"_s), "");
            QVERIFY(event->slips.isEmpty());
            QCOMPARE(isSelected(1, 1), qstrcmp(what, "bettor") == 0);
        }
    }

    // 400 of the combinations are saved; 399 were listed and counted.
    void fullPreview()
    {
        setHorses(3, postCount);
        openForAnn();
        press(u"cmddouble"_s);
        for (int post = 1; post <= 21; ++post)
            markPosts({{post}, {post}});
        clickCell(screen(), u"txtbetamt"_s);
        press(u"cmdplacebet"_s, u"400 bet maximum exceeded"_s);
        QCOMPARE(text(u"txtthisbet"_s), u"$399.00"_s);
        press(u"cmdmake"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s).count("\r\n"), 400);
        QCOMPARE(text(u"txttotprior"_s), u"$400.00"_s);
    }

    // Line 1 is this race's; the further lines of a pick 3 add the posts of the races they name.
    void legs()
    {
        openForAnn();
        const auto isShown = [this](int line, int post) {
            return child<QWidget>(screen(), cellName(line, post))->isVisible();
        };
        press(u"cmdpick3"_s);
        QVERIFY(isShown(1, 8) && isShown(2, 9) && isShown(3, 10));
        QVERIFY(!isShown(1, 9) && !isShown(2, 10) && !isShown(3, 11));
        QCOMPARE(text(u"txtgroup_2"_s), u"Line 3 Race5"_s);
        press(u"cmdtrifecta"_s);
        QVERIFY(isShown(3, 8) && !isShown(2, 9) && !isShown(3, 9));
        const QString end = u": this bet's last leg cannot be run"_s;
        const std::tuple<int, QString, QString> bets[] = {
            {10, u"cmdpick3"_s, {}},
            {11, u"cmdpick3"_s, u"Race11 has no second race after it"_s + end},
            {11, u"cmddouble"_s, {}},
            {12, u"cmddouble"_s, u"Race12 has no next race"_s + end},
            {12, u"cmdexacta"_s, {}}};
        for (const auto &[race, button, note] : bets) {
            chooseRace(race);
            press(button);
            QCOMPARE(event->note(), note);
        }
    }

    // Nothing is deleted by a list that another table made old; a refund that reaches no paper is
    // listed; a receipt may fail when the bets are on disk.
    void filesAndPaper()
    {
        event->writeTwins(u"Multibets Race3"_s, "1,2,0,\"Q\",1,2\r\n4,5,0,\"EX\",2,2\r\n");
        openForAnn();
        const QByteArray changed = "4,5,0,\"EX\",2,2\r\n";
        event->writeTwins(u"Multibets Race3"_s, changed);
        select(u"lstpriorbets"_s, u"Q  $01.00 1,2"_s);
        press(u"cmdclearprior"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), changed);
        QCOMPARE(list(u"lstpriorbets"_s), QStringList{u"EX $02.00 4,5"_s});
        QVERIFY(event->note().contains(u"nothing was deleted"));

        press(u"cmdonoff"_s);
        QCOMPARE(text(u"txtreceipts"_s), u"Receipts will not print"_s);
        select(u"lstpriorbets"_s, u"EX $02.00 4,5"_s);
        press(u"cmdclearprior"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), "");
        QVERIFY(event->slips.isEmpty());
        QCOMPARE(event->takeListing().value(0), u"Refund Bets for ANN for Race3"_s);

        press(u"cmdonoff"_s);
        event->printer.setDestination(
            [](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
        press(u"cmdexacta"_s);
        markPosts({{1}, {2}});
        clickCell(screen(), u"txtamt_2"_s);
        press(u"cmdplacebet"_s);
        press(u"cmdmake"_s, u"Printer error"_s, u"Print Receipt"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), "1,2,0,\"EX\",5,2\r\n");
        QCOMPARE(text(u"txttotprior"_s), u"$5.00"_s);
    }

    void blankSheets()
    {
        open(u"frmmulti"_s);
        for (const auto &[answer, copies] :
             {std::pair{u"-3"_s, 0}, {u"2.9"_s, 2}, {u"101"_s, 101}}) {
            event->slips.clear();
            expectInput(u"Enter number of copies to print"_s, u"TRELAWN"_s, answer);
            press(u"cmdprint"_s);
            QCOMPARE(event->slips.size(), copies);
        }
        // The bars stand under each other, and one copy is one page.
        const Slip &sheet = event->slips[0];
        QVERIFY(sheet.evenPitch);
        const QStringList lines = slipText(sheet);
        for (const QString &line : lines.filter(u"|    |"_s))
            QCOMPARE(line.size(), lines.filter(u"|QUINELA"_s).constFirst().size());
        QBuffer page;
        QVERIFY(page.open(QIODevice::WriteOnly));
        QPdfWriter writer(&page);
        writer.setPageSize(QPageSize(QPageSize::Letter));
        QCOMPARE(paintSlip(sheet, writer), 1);
    }

    // Arrows move in the grid, Space marks.
    void amountAndKeyboard()
    {
        openForAnn();
        clickCell(screen(), u"txtbetamt"_s, 2);
        for (int i = 0; i < 4; ++i)
            clickCell(screen(), u"txtamt_%1"_s.arg(i));
        QCOMPARE(text(u"txtbetamt"_s), u"$18.25"_s);
        const QRect place = child<QWidget>(screen(), cellName(2, 8))->geometry();
        child<QWidget>(screen(), cellName(1, 1))->setFocus();
        for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
            QTest::keyClick(screen()->focusWidget(), key);
        QVERIFY(isSelected(2, 3));
        QCOMPARE(child<QWidget>(screen(), cellName(2, 8))->geometry(), place); // nothing moves
    }

    // One cell a line; the finish stays between exacta, quinela and trifecta, but never becomes the
    // winners of several races. The house percentage survives leaving the screen.
    void finishAndHousePercent()
    {
        event->writeTwins(u"Multibets Race3"_s, "4,7,0,\"EX\",2,2\r\n");
        open(u"frmpaymulti"_s);
        chooseRace(3);
        press(u"cmdtrifecta"_s);
        markPosts({{3, 4}, {7}, {1}});
        QVERIFY(!isSelected(1, 3) && isSelected(1, 4));
        press(u"cmdexacta"_s);
        QVERIFY(isSelected(1, 4) && isSelected(2, 7) && !isSelected(3, 1));
        press(u"cmdenterwin"_s);
        QCOMPARE(list(u"lstbets"_s), QStringList{u"ANN $2.00"_s});
        press(u"cmddouble"_s);
        QVERIFY(!isSelected(1, 4) && !isSelected(2, 7));
        QCOMPARE(list(u"lstbets"_s), QStringList()); // another type's result is gone
        QCOMPARE(text(u"txtpool"_s), u"$0.00"_s);

        clickCell(screen(), u"txtpercent"_s, 101);
        open(u"frmmulti"_s);
        open(u"frmpaymulti"_s);
        QCOMPARE(text(u"txtpercent"_s), u"101"_s);
        QTest::mouseDClick(child<QWidget>(screen(), u"txtpercent"_s), Qt::LeftButton);
        QCOMPARE(text(u"txtpercent"_s), u"0"_s);
    }

    void missingFile()
    {
        event->session.settings.currentRace = 3;
        event->remove({u"Multibets Race3"_s});
        open(u"frmpaymulti"_s);
        chooseRace(3);
        press(u"cmdexacta"_s);
        press(u"cmdenterwin"_s, u"File not found"_s, u"Multibets"_s);
        expect(u"File not found"_s, u"Multibets"_s);
        open(u"frmsummmulti"_s);
        QTRY_COMPARE(list(u"lstsumm"_s).size(), 9);
        QCOMPARE(list(u"lstsumm"_s).constLast(), u"Total Bet $00.00"_s);
        // The entry screen creates the file, without a box, when a bettor is selected.
        openForAnn();
        QVERIFY(event->exists(u"Multibets Race3"_s));
    }

private:
    // The multibet screen with race 3 and ANN selected.
    void openForAnn()
    {
        open(u"frmmulti"_s);
        chooseRace(3);
        select(u"lstentries"_s, u"ANN"_s);
    }
};

TRELAWN_TEST(tst_multiscreens)
#include "tst_multiscreens.moc"
