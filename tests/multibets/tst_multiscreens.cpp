#include "common/files/fileerror.h"
#include "multibets/multiraces.h"
#include "multibets/multislips.h"
#include "ui/controls.h"
#include "ui/mainwindow.h"
#include "ui/slippainter.h"

#include <QBuffer>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

// The rules of the multibet screens one by one.
class tst_multiscreens : public QObject
{
    Q_OBJECT

private slots:
    void refusals();
    void duplicatePost();
    void previewIsNotCarriedOver();
    void fullPreview();
    void legs();
    void lastRaces();
    void changedFile();
    void receiptsOff();
    void printerFails();
    void blankSheets();
    void amounts();
    void keyboard();
    void payRefusals();
    void housePercent();
    void finishFromTypeToType();
    void missingFile();
    void waysInAndOut();

private:
    QWidget *openForAnn(MultibetEvent &event);
};

// The multibet screen with race 3 and ANN selected.
QWidget *tst_multiscreens::openForAnn(MultibetEvent &event)
{
    QWidget *screen = event.open(u"frmmulti"_s);
    chooseRace(screen, 3);
    selectInList(screen, u"lstentries"_s, u"ANN"_s);
    return screen;
}

void tst_multiscreens::refusals()
{
    MultibetEvent event;
    BoxRobot robot;
    QWidget *screen = event.open(u"frmmulti"_s);
    const auto refused = [&](const QString &button, const QString &text) {
        robot.expect(text, u"TRELAWN"_s);
        clickButton(screen, button);
        return robot.allCame();
    };
    QVERIFY(refused(u"cmdplacebet"_s, u"Must select bet type"_s));
    QVERIFY(refused(u"cmdtrifecta"_s, u"Must select race first"_s));
    QVERIFY(refused(u"cmdpick3"_s, u"Must select race first"_s));
    QCOMPARE(fieldText(screen, u"txttype"_s), QString());
    clickButton(screen, u"cmdexacta"_s);
    QVERIFY(refused(u"cmdplacebet"_s, u"Must select race number first"_s));
    chooseRace(screen, 3);
    QVERIFY(refused(u"cmdplacebet"_s, u"Must select bettor first"_s));
    selectInList(screen, u"lstentries"_s, u"ANN"_s);
    markPosts(screen, {{1}, {2}});
    child<QAbstractButton>(screen, u"chkbox_1"_s)->click();
    QVERIFY(refused(u"cmdplacebet"_s, u"Must box at least 2 lines"_s));
    QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList());
}

void tst_multiscreens::duplicatePost()
{
    const std::pair<const char *, bool> types[] = {{"cmdexacta", true},
                                                   {"cmdquinela", true},
                                                   {"cmdtrifecta", true},
                                                   {"cmddouble", false},
                                                   {"cmdpick3", false}};
    MultibetEvent event;
    BoxRobot robot;
    for (const char *name : {"frmmulti", "frmpaymulti"}) {
        for (const auto &[button, refused] : types) {
            QWidget *screen = event.open(QLatin1StringView(name));
            chooseRace(screen, 3);
            clickButton(screen, QLatin1StringView(button));
            if (refused)
                robot.expect(u"Duplicate horse post number"_s, u"TRELAWN"_s);
            markPosts(screen, {{5}, {5}});
            QVERIFY(robot.allCame());
            QVERIFY(isSelected(screen, 1, 5));
            QCOMPARE(isSelected(screen, 2, 5), !refused);
            doubleClick(screen, cellName(1, 6));
            QVERIFY(!isSelected(screen, 1, 6)); // a fast double click is two clicks
        }
    }
    // Posts that were clicked before the type obey it too.
    for (const auto &[button, refused] : types) {
        QWidget *screen = event.open(u"frmpaymulti"_s);
        chooseRace(screen, 3);
        markPosts(screen, {{5}, {5}});
        if (refused)
            robot.expect(u"Duplicate horse post number"_s, u"TRELAWN"_s);
        clickButton(screen, QLatin1StringView(button));
        QVERIFY(robot.allCame());
        QVERIFY(isSelected(screen, 1, 5));
        QCOMPARE(isSelected(screen, 2, 5), !refused);
    }
}

void tst_multiscreens::previewIsNotCarriedOver()
{
    const std::pair<const char *, std::function<void(QWidget *)>> changes[] = {
        {"race", [](QWidget *screen) { chooseRace(screen, 4); }},
        {"bettor", [](QWidget *screen) { selectInList(screen, u"lstentries"_s, u"BOB"_s); }},
        {"type", [](QWidget *screen) { clickButton(screen, u"cmdexacta"_s); }},
        {"entries", [](QWidget *screen) { clickButton(screen, u"cmdclearentries"_s); }}};
    MultibetEvent event;
    for (const auto &[what, change] : changes) {
        QWidget *screen = openForAnn(event);
        clickButton(screen, u"cmdtrifecta"_s);
        markPosts(screen, {{1}, {2}, {3}});
        clickCell(screen, u"txtbetamt"_s, 2);
        clickButton(screen, u"cmdplacebet"_s);
        QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList{u"T $2.00 1,2,3"_s});
        change(screen);
        QCOMPARE(listTexts(screen, u"lstbets"_s), QStringList());
        QCOMPARE(fieldText(screen, u"txtthisbet"_s), u"$0.00"_s);
        clickButton(screen, u"cmdmake"_s);
        QCOMPARE(event.read(u"Multibets Race3"_s) + event.read(u"Multibets Race4"_s), QByteArray());
        QCOMPARE(event.slips.size(), 0);
        QCOMPARE(isSelected(screen, 1, 1), qstrcmp(what, "bettor") == 0);
    }
}

// 400 of the combinations are saved; 399 were listed and counted.
void tst_multiscreens::fullPreview()
{
    MultibetEvent event;
    event.setHorses(3, postCount);
    BoxRobot robot;
    QWidget *screen = openForAnn(event);
    clickButton(screen, u"cmddouble"_s);
    for (int post = 1; post <= 21; ++post)
        markPosts(screen, {{post}, {post}});
    clickCell(screen, u"txtbetamt"_s);
    robot.expect(u"400 bet maximum exceeded"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdplacebet"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(listTexts(screen, u"lstbets"_s).size(), 399);
    QCOMPARE(fieldText(screen, u"txtthisbet"_s), u"$399.00"_s);
    clickButton(screen, u"cmdmake"_s);
    QCOMPARE(event.read(u"Multibets Race3"_s).count("\r\n"), 400);
    QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$400.00"_s);
}

// Line 1 is this race's; the further lines of a pick 3 add the posts of the races they name.
void tst_multiscreens::legs()
{
    MultibetEvent event;
    QWidget *screen = openForAnn(event);
    const auto shown = [&](int line, int post) {
        return child<QWidget>(screen, cellName(line, post))->isVisible();
    };
    QVERIFY(shown(1, 8) && !shown(1, 9) && !shown(3, 1)); // no type yet: lines 1 and 2
    clickButton(screen, u"cmdpick3"_s);
    QVERIFY(shown(1, 8) && !shown(1, 9));
    QVERIFY(shown(2, 9) && !shown(2, 10));
    QVERIFY(shown(3, 10) && !shown(3, 11));
    QCOMPARE(fieldText(screen, u"txtgroup_2"_s), u"Line 3 Race5"_s);
    clickButton(screen, u"cmdtrifecta"_s);
    QVERIFY(shown(3, 8) && !shown(2, 9) && !shown(3, 9));
    chooseRace(screen, 5);
    QVERIFY(shown(1, 10) && !shown(1, 11));
}

void tst_multiscreens::lastRaces()
{
    const QString end = u": this bet's last leg cannot be run"_s;
    const std::tuple<int, QString, QString> bets[] = {
        {10, u"cmdpick3"_s, {}},
        {11, u"cmdpick3"_s, u"Race11 has no second race after it"_s + end},
        {11, u"cmddouble"_s, {}},
        {12, u"cmddouble"_s, u"Race12 has no next race"_s + end},
        {12, u"cmdexacta"_s, {}}};
    MultibetEvent event;
    QWidget *screen = event.open(u"frmmulti"_s);
    for (const auto &[race, button, note] : bets) {
        chooseRace(screen, race);
        clickButton(screen, button);
        QCOMPARE(labelText(screen, u"lblnote"_s), note);
    }
}

void tst_multiscreens::changedFile()
{
    MultibetEvent event;
    event.setMultibets(3, "1,2,0,\"Q\",1,2\r\n4,5,0,\"EX\",2,2\r\n");
    BoxRobot robot;
    QWidget *screen = openForAnn(event);
    const QByteArray changed = "4,5,0,\"EX\",2,2\r\n";
    event.write(u"Multibets Race3"_s, changed); // another table deleted the first bet
    selectInList(screen, u"lstpriorbets"_s, u"Q  $01.00 1,2"_s);
    clickButton(screen, u"cmdclearprior"_s);
    QCOMPARE(event.read(u"Multibets Race3"_s), changed);
    QCOMPARE(listTexts(screen, u"lstpriorbets"_s), QStringList{u"EX $02.00 4,5"_s});
    QVERIFY(labelText(screen, u"lblnote"_s).contains(u"nothing was deleted"));
    QCOMPARE(event.slips.size(), 0);
}

// A refund that reaches no paper is listed.
void tst_multiscreens::receiptsOff()
{
    MultibetEvent event;
    event.setMultibets(3, "1,2,0,\"Q\",1,2\r\n");
    QWidget *screen = openForAnn(event);
    QCOMPARE(fieldText(screen, u"txtreceipts"_s), u"Receipts will print"_s);
    clickButton(screen, u"cmdonoff"_s);
    QCOMPARE(fieldText(screen, u"txtreceipts"_s), u"Receipts will not print"_s);
    QVERIFY(event.read(u"Init"_s).contains(",\"no\","));
    selectInList(screen, u"lstpriorbets"_s, u"Q  $01.00 1,2"_s);
    clickButton(screen, u"cmdclearprior"_s);
    QCOMPARE(event.slips.size(), 0);
    QCOMPARE(event.read(u"Multibets Race3"_s), QByteArray());
    auto *window = child<QWidget>(event.navigator().window(), u"frmlistb"_s);
    QCOMPARE(listTexts(window, u"List1"_s).constFirst(), u"Refund Bets for ANN for Race3"_s);
}

// The receipt fails after the bets are on disk.
void tst_multiscreens::printerFails()
{
    MultibetEvent event;
    QWidget *screen = openForAnn(event);
    event.printer.setDestination([](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
    BoxRobot robot;
    clickButton(screen, u"cmdexacta"_s);
    markPosts(screen, {{1}, {2}});
    clickCell(screen, u"txtamt_2"_s);
    clickButton(screen, u"cmdplacebet"_s);
    robot.expect(u"Printer error"_s, u"Print Receipt"_s);
    clickButton(screen, u"cmdmake"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Multibetsbackup Race3"_s), QByteArray("1,2,0,\"EX\",5,2\r\n"));
    QCOMPARE(fieldText(screen, u"txttotprior"_s), u"$5.00"_s);
}

void tst_multiscreens::blankSheets()
{
    MultibetEvent event;
    BoxRobot robot;
    QWidget *screen = event.open(u"frmmulti"_s);
    for (const auto &[answer, copies] : {std::pair{u"-3"_s, 0}, {u"2.9"_s, 2}, {u"101"_s, 101}}) {
        event.slips.clear();
        robot.expectInput(u"Enter number of copies to print"_s, u"TRELAWN"_s, answer);
        clickButton(screen, u"cmdprint"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(event.slips.size(), copies);
    }
    const Slip &sheet = event.slips[0];
    const QStringList lines = slipText(sheet);
    QCOMPARE(lines.filter(u"|PICK 3   |"_s).size(), lines.filter(u"|RACE|BET TYPE |"_s).size());
    // The bars stand under each other, and one copy is one page.
    QVERIFY(sheet.evenPitch);
    for (const QString &line : lines.filter(u"|    |"_s))
        QCOMPARE(line.size(), lines.filter(u"|QUINELA"_s).constFirst().size());
    for (const auto size : {QPageSize::A4, QPageSize::Letter}) {
        QBuffer page;
        QVERIFY(page.open(QIODevice::WriteOnly));
        QPdfWriter writer(&page);
        writer.setPageSize(QPageSize(size));
        QCOMPARE(paintSlip(sheet, writer), 1);
    }
}

void tst_multiscreens::amounts()
{
    MultibetEvent event;
    QWidget *screen = event.open(u"frmmulti"_s);
    const auto bet = [&] { return fieldText(screen, u"txtbetamt"_s); };
    QCOMPARE(bet(), u"$.00"_s);
    doubleClick(screen, u"txtbetamt"_s);
    QCOMPARE(bet(), u"$2.00"_s);
    for (int i = 0; i < 4; ++i)
        clickCell(screen, u"txtamt_%1"_s.arg(i));
    QCOMPARE(bet(), u"$18.25"_s);
    clickCell(screen, u"txtclearamt"_s);
    QCOMPARE(bet(), u"$.00"_s);
}

// Arrows move in the grid, Space marks and moves nothing; the Tab key stops once a line.
void tst_multiscreens::keyboard()
{
    MultibetEvent event;
    QWidget *screen = openForAnn(event);
    const auto geometries = [screen] {
        QList<QRect> all;
        for (const auto *cell : screen->findChildren<ClickCell *>())
            all << cell->geometry();
        return all;
    };
    const QList<QRect> places = geometries();
    child<QWidget>(screen, cellName(1, 1))->setFocus();
    for (const auto key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down, Qt::Key_Space})
        QTest::keyClick(screen->focusWidget(), key);
    QVERIFY(isSelected(screen, 2, 3));
    QCOMPARE(geometries(), places);
    QCOMPARE(tabOrder(screen).filter(u"txtnum_"_s), (QStringList{u"txtnum_0"_s, u"txtnum_21"_s}));
}

void tst_multiscreens::payRefusals()
{
    MultibetEvent event;
    BoxRobot robot;
    QWidget *screen = event.open(u"frmpaymulti"_s);
    robot.expect(u"Must select bet type first"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdenterwin"_s);
    robot.expect(u"Must select race first"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdpick3"_s);
    QVERIFY(robot.allCame());
    chooseRace(screen, 3);
    clickButton(screen, u"cmdexacta"_s);
    robot.expect(u"No bets on this bet type"_s, u"TRELAWN"_s);
    clickButton(screen, u"cmdenterwin"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(labelText(screen, u"lblnote"_s), u"No winning post is selected on line 1, 2"_s);
}

void tst_multiscreens::housePercent()
{
    MultibetEvent event;
    QWidget *screen = event.open(u"frmpaymulti"_s);
    QCOMPARE(fieldText(screen, u"txtpercent"_s), u"0"_s);
    clickCell(screen, u"txtpercent"_s, 101);
    QCOMPARE(fieldText(screen, u"txtpercent"_s), u"101"_s);
    event.open(u"frmmulti"_s);
    screen = event.open(u"frmpaymulti"_s);
    QCOMPARE(fieldText(screen, u"txtpercent"_s), u"101"_s); // survives leaving the screen
    doubleClick(screen, u"txtpercent"_s);
    QCOMPARE(fieldText(screen, u"txtpercent"_s), u"0"_s);
}

// One cell a line; the finish stays between exacta, quinela and trifecta, but never becomes the
// winners of several races.
void tst_multiscreens::finishFromTypeToType()
{
    MultibetEvent event;
    event.setMultibets(3, "4,7,0,\"EX\",2,2\r\n");
    QWidget *screen = event.open(u"frmpaymulti"_s);
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
}

void tst_multiscreens::missingFile()
{
    MultibetEvent event;
    event.session.settings.currentRace = 3;
    QVERIFY(QFile::remove(event.path(u"Multibets Race3"_s)));
    BoxRobot robot;
    QWidget *screen = event.open(u"frmpaymulti"_s);
    chooseRace(screen, 3);
    clickButton(screen, u"cmdexacta"_s);
    robot.expect(u"File not found"_s, u"Multibets"_s);
    clickButton(screen, u"cmdenterwin"_s);
    QVERIFY(robot.allCame());

    robot.expect(u"File not found"_s, u"Multibets"_s);
    screen = event.open(u"frmsummmulti"_s);
    QTRY_COMPARE(listTexts(screen, u"lstsumm"_s).size(), 9);
    QVERIFY(robot.allCame());
    QCOMPARE(listTexts(screen, u"lstsumm"_s).constLast(), u"Total Bet $00.00"_s);

    // The entry screen creates the file, without a box, when a bettor is selected.
    screen = event.open(u"frmmulti"_s);
    chooseRace(screen, 3);
    selectInList(screen, u"lstentries"_s, u"ANN"_s);
    QVERIFY(robot.allCame());
    QVERIFY(event.exists(u"Multibets Race3"_s));
}

void tst_multiscreens::waysInAndOut()
{
    const std::array<QString, 3> ways[] = {{u"frmmenub"_s, u"cmdmulti"_s, u"frmmulti"_s},
                                           {u"frmsheetb"_s, u"cmdmulti"_s, u"frmmulti"_s},
                                           {u"frmmulti"_s, u"cmdreturn"_s, u"frmmenub"_s},
                                           {u"frmmulti"_s, u"cmdretbets"_s, u"frmsheetb"_s},
                                           {u"frmmulti"_s, u"cmdaddbettor"_s, u"frmbettorsb"_s},
                                           {u"frmsummmulti"_s, u"cmdreturn"_s, u"frmmulti"_s}};
    TestEvent event;
    BoxRobot robot;
    for (const auto &[from, button, to] : ways) {
        clickButton(event.open(from), button);
        QCOMPARE(event.current()->objectName(), to);
    }
    QVERIFY(robot.allCame());
}

TRELAWN_TEST(tst_multiscreens)
#include "tst_multiscreens.moc"
