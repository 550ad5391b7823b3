#include "multibets/multiraces.h"
#include "ui/slippainter.h"

// The rules of the multibet screens one by one.
class tst_multiscreens : public QObject
{
    Q_OBJECT

private slots:
    void init() { event = std::make_unique<MultibetEvent>(); }
    void cleanup() { event.reset(); }

    void refusals()
    {
        screen = event->open(u"frmmulti"_s);
        refused(u"cmdplacebet"_s, u"Must select bet type"_s);
        refused(u"cmdpick3"_s, u"Must select race first"_s);
        clickButton(screen, u"cmdexacta"_s);
        refused(u"cmdplacebet"_s, u"Must select race number first"_s);
        chooseRace(screen, 3);
        refused(u"cmdplacebet"_s, u"Must select bettor first"_s);
        selectInList(screen, u"lstentries"_s, u"ANN"_s);
        markPosts(screen, {{1}, {2}});
        clickButton(screen, u"chkbox_1"_s);
        refused(u"cmdplacebet"_s, u"Must box at least 2 lines"_s);

        screen = event->open(u"frmpaymulti"_s);
        refused(u"cmdenterwin"_s, u"Must select bet type first"_s);
        refused(u"cmdpick3"_s, u"Must select race first"_s);
        chooseRace(screen, 3);
        clickButton(screen, u"cmdexacta"_s);
        refused(u"cmdenterwin"_s, u"No bets on this bet type"_s);
        QCOMPARE(event->note(), u"No winning post is selected on line 1, 2"_s);
    }

    // Whether the posts or the type are clicked first.
    void duplicatePost()
    {
        const std::pair<QString, bool> orders[] = {
            {u"frmmulti"_s, true}, {u"frmpaymulti"_s, true}, {u"frmpaymulti"_s, false}};
        const std::pair<QString, bool> types[] = {{u"cmdexacta"_s, true},
                                                  {u"cmdquinela"_s, true},
                                                  {u"cmdtrifecta"_s, true},
                                                  {u"cmddouble"_s, false},
                                                  {u"cmdpick3"_s, false}};
        for (const auto &[name, typeFirst] : orders) {
            for (const auto &[button, isRefused] : types) {
                screen = event->open(name);
                chooseRace(screen, 3);
                if (isRefused)
                    event->boxes.expect(u"Duplicate horse post number"_s, u"TRELAWN"_s);
                if (typeFirst)
                    clickButton(screen, button);
                markPosts(screen, {{5}, {5}});
                if (!typeFirst)
                    clickButton(screen, button);
                QVERIFY(event->boxes.allCame());
                QVERIFY(isSelected(screen, 1, 5));
                QCOMPARE(isSelected(screen, 2, 5), !isRefused);
            }
        }
    }

    void previewIsNotCarriedOver()
    {
        Rows<std::function<void()>> rows;
        rows("race", [this] { chooseRace(screen, 4); });
        rows("bettor", [this] { selectInList(screen, u"lstentries"_s, u"BOB"_s); });
        rows("type", [this] { clickButton(screen, u"cmdexacta"_s); });
        rows("entries", [this] { clickButton(screen, u"cmdclearentries"_s); });
        for (const auto &[what, change] : rows) {
            openForAnn();
            clickButton(screen, u"cmdtrifecta"_s);
            markPosts(screen, {{1}, {2}, {3}});
            clickCell(screen, u"txtbetamt"_s, 2);
            clickButton(screen, u"cmdplacebet"_s);
            QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList{u"T $2.00 1,2,3"_s});
            change();
            QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList());
            QCOMPARE(fieldText(screen, u"txtthisbet"_s), u"$0.00"_s);
            clickButton(screen, u"cmdmake"_s);
            QCOMPARE(event->read(u"Multibets Race3"_s) + event->read(u"Multibets Race4"_s), "");
            QVERIFY(event->slips.isEmpty());
            QCOMPARE(isSelected(screen, 1, 1), qstrcmp(what, "bettor") == 0);
        }
    }

    // 400 of the combinations are saved; 399 were listed and counted.
    void fullPreview()
    {
        event->setHorses(3, postCount);
        openForAnn();
        clickButton(screen, u"cmddouble"_s);
        for (int post = 1; post <= 21; ++post)
            markPosts(screen, {{post}, {post}});
        clickCell(screen, u"txtbetamt"_s);
        refused(u"cmdplacebet"_s, u"400 bet maximum exceeded"_s);
        QCOMPARE(fieldText(screen, u"txtthisbet"_s), u"$399.00"_s);
        clickButton(screen, u"cmdmake"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s).count("\r\n"), 400);
        QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$400.00"_s);
    }

    // Line 1 is this race's; the further lines of a pick 3 add the posts of the races they name.
    void legs()
    {
        openForAnn();
        const auto isShown = [this](int line, int post) {
            return child<QWidget>(screen, cellName(line, post))->isVisible();
        };
        clickButton(screen, u"cmdpick3"_s);
        QVERIFY(isShown(1, 8) && isShown(2, 9) && isShown(3, 10));
        QVERIFY(!isShown(1, 9) && !isShown(2, 10) && !isShown(3, 11));
        QCOMPARE(fieldText(screen, u"txtgroup_2"_s), u"Line 3 Race5"_s);
        clickButton(screen, u"cmdtrifecta"_s);
        QVERIFY(isShown(3, 8) && !isShown(2, 9) && !isShown(3, 9));
        const QString end = u": this bet's last leg cannot be run"_s;
        const std::tuple<int, QString, QString> bets[] = {
            {10, u"cmdpick3"_s, {}},
            {11, u"cmdpick3"_s, u"Race11 has no second race after it"_s + end},
            {11, u"cmddouble"_s, {}},
            {12, u"cmddouble"_s, u"Race12 has no next race"_s + end},
            {12, u"cmdexacta"_s, {}}};
        for (const auto &[race, button, note] : bets) {
            chooseRace(screen, race);
            clickButton(screen, button);
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
        selectInList(screen, u"lstpriorbets"_s, u"Q  $01.00 1,2"_s);
        clickButton(screen, u"cmdclearprior"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), changed);
        QCOMPARE(listTexts(screen, u"lstpriorbets"_s), QStringList{u"EX $02.00 4,5"_s});
        QVERIFY(event->note().contains(u"nothing was deleted"));

        clickButton(screen, u"cmdonoff"_s);
        QCOMPARE(fieldText(screen, u"txtreceipts"_s), u"Receipts will not print"_s);
        selectInList(screen, u"lstpriorbets"_s, u"EX $02.00 4,5"_s);
        clickButton(screen, u"cmdclearprior"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), "");
        QVERIFY(event->slips.isEmpty());
        QCOMPARE(event->takeListing().value(0), u"Refund Bets for ANN for Race3"_s);

        clickButton(screen, u"cmdonoff"_s);
        event->printer.setDestination(
            [](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
        clickButton(screen, u"cmdexacta"_s);
        markPosts(screen, {{1}, {2}});
        clickCell(screen, u"txtamt_2"_s);
        clickButton(screen, u"cmdplacebet"_s);
        event->boxes.expect(u"Printer error"_s, u"Print Receipt"_s);
        clickButton(screen, u"cmdmake"_s);
        QCOMPARE(event->readTwins(u"Multibets Race3"_s), "1,2,0,\"EX\",5,2\r\n");
        QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$5.00"_s);
    }

    void blankSheets()
    {
        screen = event->open(u"frmmulti"_s);
        for (const auto &[answer, copies] :
             {std::pair{u"-3"_s, 0}, {u"2.9"_s, 2}, {u"101"_s, 101}}) {
            event->slips.clear();
            event->boxes.expectInput(u"Enter number of copies to print"_s, u"TRELAWN"_s, answer);
            clickButton(screen, u"cmdprint"_s);
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

    // A fast double click is two clicks. Arrows move in the grid, Space marks; the Tab key stops
    // once a line.
    void mouseAndKeyboard()
    {
        openForAnn();
        doubleClick(screen, u"txtbetamt"_s);
        QCOMPARE(fieldText(screen, u"txtbetamt"_s), u"$2.00"_s);
        for (int i = 0; i < 4; ++i)
            clickCell(screen, u"txtamt_%1"_s.arg(i));
        QCOMPARE(fieldText(screen, u"txtbetamt"_s), u"$18.25"_s);
        doubleClick(screen, cellName(1, 6));
        QVERIFY(!isSelected(screen, 1, 6));
        const QRect place = child<QWidget>(screen, cellName(2, 8))->geometry();
        child<QWidget>(screen, cellName(1, 1))->setFocus();
        for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
            QTest::keyClick(screen->focusWidget(), key);
        QVERIFY(isSelected(screen, 2, 3));
        QCOMPARE(child<QWidget>(screen, cellName(2, 8))->geometry(), place); // nothing moves
        QCOMPARE(tabOrder(screen).filter(u"txtnum_"_s),
                 (QStringList{u"txtnum_0"_s, u"txtnum_21"_s}));
    }

    // One cell a line; the finish stays between exacta, quinela and trifecta, but never becomes the
    // winners of several races. The house percentage survives leaving the screen.
    void finishAndHousePercent()
    {
        event->writeTwins(u"Multibets Race3"_s, "4,7,0,\"EX\",2,2\r\n");
        screen = event->open(u"frmpaymulti"_s);
        chooseRace(screen, 3);
        clickButton(screen, u"cmdtrifecta"_s);
        markPosts(screen, {{3, 4}, {7}, {1}});
        QVERIFY(!isSelected(screen, 1, 3) && isSelected(screen, 1, 4));
        clickButton(screen, u"cmdexacta"_s);
        QVERIFY(isSelected(screen, 1, 4) && isSelected(screen, 2, 7) && !isSelected(screen, 3, 1));
        clickButton(screen, u"cmdenterwin"_s);
        QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList{u"ANN $2.00"_s});
        clickButton(screen, u"cmddouble"_s);
        QVERIFY(!isSelected(screen, 1, 4) && !isSelected(screen, 2, 7));
        QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList()); // another type's result is gone
        QCOMPARE(fieldText(screen, u"txtpool"_s), u"$0.00"_s);

        clickCell(screen, u"txtpercent"_s, 101);
        event->open(u"frmmulti"_s);
        screen = event->open(u"frmpaymulti"_s);
        QCOMPARE(fieldText(screen, u"txtpercent"_s), u"101"_s);
        doubleClick(screen, u"txtpercent"_s);
        QCOMPARE(fieldText(screen, u"txtpercent"_s), u"0"_s);
    }

    void missingFile()
    {
        event->session.settings.currentRace = 3;
        event->remove({u"Multibets Race3"_s});
        screen = event->open(u"frmpaymulti"_s);
        chooseRace(screen, 3);
        clickButton(screen, u"cmdexacta"_s);
        event->boxes.expect(u"File not found"_s, u"Multibets"_s);
        clickButton(screen, u"cmdenterwin"_s);
        event->boxes.expect(u"File not found"_s, u"Multibets"_s);
        screen = event->open(u"frmsummmulti"_s);
        QTRY_COMPARE(listTexts(screen, u"lstsumm"_s).size(), 9);
        QCOMPARE(listTexts(screen, u"lstsumm"_s).constLast(), u"Total Bet $00.00"_s);
        // The entry screen creates the file, without a box, when a bettor is selected.
        openForAnn();
        QVERIFY(event->exists(u"Multibets Race3"_s));
    }

private:
    // The multibet screen with race 3 and ANN selected.
    void openForAnn()
    {
        screen = event->open(u"frmmulti"_s);
        chooseRace(screen, 3);
        selectInList(screen, u"lstentries"_s, u"ANN"_s);
    }

    void refused(const QString &button, const QString &text)
    {
        event->boxes.expect(text, u"TRELAWN"_s);
        clickButton(screen, button);
    }

    std::unique_ptr<MultibetEvent> event;
    QWidget *screen = nullptr;
};

TRELAWN_TEST(tst_multiscreens)
#include "tst_multiscreens.moc"
