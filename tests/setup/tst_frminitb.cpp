#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"

#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace {

const QString drivePrompt =
    u"Enter Init drive location - C, D, or E or press enter to use the C drive"_s;
const QString printerQuestion =
    u"Is a printer attached to this computer? 'No' disables all printing."_s;

// A run that has just been started: nothing asked, nothing known.
class NewRun
{
public:
    explicit NewRun(const QByteArray &init = {})
        : event(false)
    {
        if (!init.isNull())
            event.write(u"Init"_s, init);
        else
            QDir(event.path({})).removeRecursively();
        event.session.settings = Settings();
        if (QGuiApplication::primaryScreen()->size().width() < 1024)
            robot.expect(u"Display size must be set to 1024 x 768"_s, u"TRELAWN"_s);
    }

    // Answers the drive prompt with its default.
    void expectDrive() { robot.expectInputKept(drivePrompt, u"Init Drive"_s); }

    void expectPrinter(Answer answer)
    {
        robot.expect(printerQuestion, u"Printer Attached?"_s, answer);
    }

    // Opens the setup screen; true when every expected question was asked.
    bool start()
    {
        screen = event.open(u"frminitb"_s);
        return robot.allCame();
    }

    QByteArray init() const { return event.read(u"Init"_s); }

    TestEvent event;
    BoxRobot robot;
    QWidget *screen = nullptr;
};

} // namespace

class tst_frminitb : public QObject
{
    Q_OBJECT

private slots:
    void firstStart();
    void driveAnswers();
    void laterStart();
    void damagedInit();
    void unreadableInit();
    void comingBackAsksNothing();
    void raceIsStoredAtOnce();
    void bannerIsTakenOnEnter();
    void receiptsAndRounding();
    void receiptFont();
    void clearingForANewEvent();
    void goToMenu();
};

void tst_frminitb::firstStart()
{
    NewRun run;
    run.expectDrive();
    run.expectPrinter(Answer::Yes);
    QVERIFY(run.start());
    QCOMPARE(run.init(), QByteArray("\"Kentucky Derby\",\"C:\\Trelawn\\\",8,\"yes\",1,1,"
                                    "0.25,1,5,10,5,20000,2000,0\r\n"));
    QCOMPARE(fieldText(run.screen, u"txtfiles"_s), u"C:\\Trelawn\\"_s);
    QCOMPARE(labelText(run.screen, u"lblfont"_s), u"Print Font size is 8"_s);
    QVERIFY(child<QRadioButton>(run.screen, u"optrace_1"_s)->isChecked());
    QCOMPARE(run.event.session.settings.betSheetMessage.count(u'\n'), 4);
    QVERIFY(closeBoxEnds(run.event.navigator()));
}

void tst_frminitb::driveAnswers()
{
    const QString invalid = u"Invalid Init Drive - please re-enter"_s;
    const QString unusable = u"Bad file name or number Init directory-Setup"_s;
    // Answers, and the box that refuses them; "CD" is accepted, its folder cannot be made.
    const std::tuple<QString, QString, QString> answers[] = {
        {u"E"_s, {}, {}},
        {u"c"_s, invalid, u"TRELAWN"_s},
        {QString(), invalid, u"TRELAWN"_s},
        {u"EA"_s, invalid, u"TRELAWN"_s},
        {u"CD"_s, unusable, u"Init directory-Setup"_s}};
    for (const auto &[answer, complaint, title] : answers) {
        NewRun run;
        run.robot.expectInput(drivePrompt, u"Init Drive"_s, answer);
        if (!complaint.isNull()) {
            run.robot.expect(complaint, title);
            run.expectDrive();
        }
        run.expectPrinter(Answer::Yes);
        QVERIFY2(run.start(), qPrintable(answer));
        const QString drive = complaint.isNull() ? answer + u':' : u"C:"_s;
        QCOMPARE(run.event.session.settings.eventDirectory, drive + "\\Trelawn\\"_L1);
        QVERIFY(run.event.exists(u"Init"_s));
    }
}

void tst_frminitb::laterStart()
{
    NewRun run("\"Derby & <Oaks>\",\"D:\\Party\\\",3,\"yes\",5,7,9,8,7,6,5,100,50,4\r\n");
    run.expectDrive();
    run.expectPrinter(Answer::No);
    QVERIFY(run.start());
    QCOMPARE(run.init(), QByteArray("\"Derby & <Oaks>\",\"C:\\Trelawn\\\",3,\"no\",5,7,"
                                    "0.25,1,5,10,5,100,50,4\r\n"));
    QCOMPARE(labelText(run.screen, u"lblnote"_s), u"Last event directory: D:\\Party\\"_s);
    QCOMPARE(fieldText(run.screen, u"txtbanner"_s), u"Derby & <Oaks> Race7"_s);
    QCOMPARE(labelText(run.screen, u"lblfont"_s), u"Print Font size is 12"_s);
    QCOMPARE(caption(run.screen, u"cmdprint"_s), u"Bet receipts will not print"_s);
    QCOMPARE(caption(run.screen, u"cmdround"_s), u"Round payoff to nearest 1.00"_s);
    QVERIFY(child<QRadioButton>(run.screen, u"optrace_7"_s)->isChecked());
    for (const QString &away : {u"Command1"_s, u"cmdreturn"_s}) {
        clickButton(run.event.current(), away); // it stays until a directory is chosen or used
        QCOMPARE(labelText(run.event.current(), u"lblnote"_s),
                 u"Last event directory: D:\\Party\\"_s);
    }
    QVERIFY(!run.event.session.settings.mayPrint());
    QCOMPARE(run.event.session.bettors.slotCount(), 50);
}

// What can be read of it holds, and the file is kept.
void tst_frminitb::damagedInit()
{
    const QByteArray bytes = "\"Oaks\",\"D:\\P";
    NewRun run(bytes);
    run.expectDrive();
    run.robot.expect(u"Init is damaged - defaults are used for what cannot be read"_s,
                     u"Init open-Setup"_s);
    run.expectPrinter(Answer::Yes);
    QVERIFY(run.start());
    QCOMPARE(run.init(),
             "\"Oaks\",\"C:\\Trelawn\\\",8,\"yes\",1,1,0.25,1,5,10,5,20000,2000,0\r\n"_qba);
    QCOMPARE(run.event.savedCopies(u"Init"_s), QByteArrayList{bytes});
    QCOMPARE(labelText(run.screen, u"lblnote"_s),
             "The damaged Init was kept in Saved as "_L1 + run.event.saved().value(0));
}

void tst_frminitb::unreadableInit()
{
    NewRun run;
    QVERIFY(QDir().mkpath(run.event.session.paths.toHost(u"C:\\Trelawn\\Init"_s)));
    run.expectDrive();
    const QString fault = u"Path/File access error Init open-Setup"_s;
    run.robot.expect(fault, u"Init open-Setup"_s);
    run.expectPrinter(Answer::Yes);
    run.robot.expect(fault, u"Init open-Setup"_s);
    QVERIFY(run.start());
    QCOMPARE(fieldText(run.screen, u"txtbanner"_s), u"Kentucky Derby Race1"_s);
    QCOMPARE(fieldText(run.screen, u"txtfiles"_s), u"C:\\Trelawn\\"_s);
}

void tst_frminitb::comingBackAsksNothing()
{
    NewRun run;
    run.expectDrive();
    run.expectPrinter(Answer::Yes);
    QVERIFY(run.start());
    clickButton(run.screen, u"cmdok"_s);
    QCOMPARE(run.event.navigator().currentName(), u"frmmenub"_s);
    run.event.session.settings.eventDirectory = u"D:\\Party\\"_s;
    run.event.session.settings.currentRace = 9;
    clickButton(run.event.current(), u"cmdsetup"_s);
    QVERIFY(run.robot.allCame());
    QWidget *screen = run.event.current();
    QCOMPARE(run.event.navigator().currentName(), u"frminitb"_s);
    QCOMPARE(fieldText(screen, u"txtfiles"_s), u"D:\\Party\\"_s);
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Kentucky Derby Race9"_s);
    QVERIFY(child<QRadioButton>(screen, u"optrace_9"_s)->isChecked());
}

void tst_frminitb::raceIsStoredAtOnce()
{
    TestEvent event;
    QWidget *screen = event.open(u"frminitb"_s);
    clickButton(screen, u"optrace_3"_s);
    QCOMPARE(event.session.settings.currentRace, 3);
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Kentucky Derby Race3"_s);
    QVERIFY(event.read(u"Init"_s).contains(",1,3,0.25,1,5,10,5,"));

    BoxRobot robot;
    robot.expect(u"Path/File access error \\Trelawn\\Init"_s, u"\\Trelawn\\Init"_s);
    QVERIFY(QFile::remove(event.path(u"Init"_s)));
    QVERIFY(QDir().mkdir(event.path(u"Init"_s)));
    clickButton(screen, u"optrace_4"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.session.settings.currentRace, 4);

    // A banner that cannot be stored does not come into force; what was typed stays.
    robot.expect(u"Path/File access error \\Trelawn\\Init"_s, u"\\Trelawn\\Init"_s);
    typeInto(screen, u"txtbanner1"_s, u"Oaks"_s);
    QTest::keyClick(child<QLineEdit>(screen, u"txtbanner1"_s), Qt::Key_Return);
    QVERIFY(robot.allCame());
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"Kentucky Derby Race4"_s);
    QCOMPARE(fieldText(screen, u"txtbanner1"_s), u"Oaks"_s);
}

void tst_frminitb::bannerIsTakenOnEnter()
{
    TestEvent event;
    BoxRobot robot;
    event.session.settings.reserved = {1, 2, 3, 4};
    QWidget *screen = event.open(u"frminitb"_s);
    typeInto(screen, u"txtbanner1"_s, u"The \"Oaks\""_s);
    QCOMPARE(event.session.settings.banner, u"Kentucky Derby"_s);
    QVERIFY(!labelText(screen, u"lblnote"_s).isEmpty());
    robot.expect(u"Banner information changed"_s, u"Setup"_s);
    QTest::keyClick(child<QLineEdit>(screen, u"txtbanner1"_s), Qt::Key_Return);
    QVERIFY(robot.allCame());
    QCOMPARE(fieldText(screen, u"txtbanner1"_s), u"The 'Oaks'"_s);
    QCOMPARE(fieldText(screen, u"txtbanner"_s), u"The 'Oaks' Race1"_s);
    QCOMPARE(labelText(screen, u"lblnote"_s), QString());
    QVERIFY(event.read(u"Init"_s).startsWith("\"The 'Oaks'\","));
    QVERIFY(event.read(u"Init"_s).contains(",1,2,3,4,5,20000,"));
}

void tst_frminitb::receiptsAndRounding()
{
    TestEvent event;
    event.session.settings.printerAttached = false;
    event.session.settings.setReceiptPrinting(false);
    QWidget *screen = event.open(u"frminitb"_s);
    clickButton(screen, u"cmdprint"_s);
    QCOMPARE(caption(screen, u"cmdprint"_s), u"Bet receipts will print"_s);
    QVERIFY(event.session.settings.mayPrint());
    QVERIFY(event.read(u"Init"_s).contains("\"yes\",1,1,0.25,1,5,10,5,"));
    QStringList captions;
    for (int click = 0; click < 5; ++click) {
        clickButton(screen, u"cmdround"_s);
        captions << caption(screen, u"cmdround"_s).section(u' ', -1);
    }
    QCOMPARE(captions.join(u' '), u"0.10 0.25 0.50 1.00 0.01"_s);
    clickButton(screen, u"cmdround"_s);
    QVERIFY(event.read(u"Init"_s).contains("\"yes\",1,1,"));
    clickButton(screen, u"cmdprint"_s);
    QCOMPARE(caption(screen, u"cmdprint"_s), u"Bet receipts will not print"_s);
    QVERIFY(event.read(u"Init"_s).contains("\"no\",2,1,"));
}

void tst_frminitb::receiptFont()
{
    TestEvent event;
    BoxRobot robot;
    QWidget *screen = event.open(u"frminitb"_s);
    // The answers, and the size that holds after each.
    const std::pair<QString, QString> answers[] = {
        {u" 14 "_s, u"14"_s}, {u"16"_s, u"14"_s}, {{}, u"14"_s}, {u"8"_s, u"8"_s}};
    for (const auto &[answer, size] : answers) {
        robot.expectInput(u"Enter receipt font size - options are 8, 10, 12, or 14"_s,
                          u"Receipt font size"_s, answer);
        if (answer.trimmed() != size)
            robot.expect(u"Invalid font size entered"_s, u"TRELAWN"_s);
        clickButton(screen, u"cmdrecptfont"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(event.session.settings.receiptFontSize, size);
    }
}

void tst_frminitb::clearingForANewEvent()
{
    TestEvent event;
    BoxRobot robot;
    const QByteArray bet = "7,4,1,2.5\r\n";
    const QByteArray unused = event.read(u"Horses Race5"_s);
    for (const QString &name : {u"Bets Race1"_s, u"Bets Race12"_s, u"Multibets Race3"_s})
        event.write(name, bet);
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n");
    event.write(u"Horses Race5"_s, "1,0,\"1 \",\"Second Wind\"\r\n");
    QWidget *screen = event.open(u"frminitb"_s);
    event.session.settings.networkMode = NetworkMode::Master; // every computer's files
    for (const QString &button : {u"cmdbettors"_s, u"cmdhorses"_s, u"cmdbets"_s}) {
        clickButton(screen, button);
        QVERIFY(labelText(screen, u"lblnote"_s).startsWith("Nothing was cleared"_L1));
    }
    event.session.settings.networkMode = NetworkMode::Off;
    robot.expect(u"Must clear Bets first"_s, u"Clear Bettors"_s);
    robot.expect(u"Must clear Bets first"_s, u"Clear Horses"_s);
    robot.expect(u"Clear and initialize ALL Bet files?"_s, u"Initialize"_s, Answer::Cancel);
    for (const QString &button : {u"cmdbettors"_s, u"cmdhorses"_s, u"cmdbets"_s})
        clickButton(screen, button);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Bets Race1"_s), bet);

    robot.expect(u"Clear and initialize ALL Bet files?"_s, u"Initialize"_s);
    robot.expect(u"All Bet files cleared and initialized"_s, u"Initialize Bets"_s);
    robot.expect(u"Clear and initialize Bettor file?"_s, u"Initialize"_s);
    robot.expect(u"Bettor file cleared and initialized"_s, u"Initialize Bettor"_s);
    robot.expect(u"Clear and initialize Horses file?"_s, u"Initialize"_s);
    robot.expect(u"All Horse files cleared and initialized"_s, u"Initialize Players"_s);
    for (const QString &button : {u"cmdbets"_s, u"cmdbettors"_s, u"cmdhorses"_s})
        clickButton(screen, button);
    QVERIFY(robot.allCame());
    for (const QString &twin : {QString(), u"backup"_s}) {
        for (int race = 1; race <= 12; ++race)
            QCOMPARE(event.read(u"Bets"_s + twin + raceName(race)), QByteArray());
        QCOMPARE(event.read(u"Bettors"_s + twin), QByteArray("1,\"AnyBettor\"\r\n"));
        QCOMPARE(event.read(u"Horses"_s + twin + u" Race5"_s), unused);
    }
    QCOMPARE(event.read(u"Multibets Race3"_s), bet);
    QVERIFY(event.saved().size() >= 4);
}

void tst_frminitb::goToMenu()
{
    TestEvent event(false);
    BoxRobot robot;
    event.session.settings.eventDirectory = u"D:\\Party\\"_s;
    QWidget *screen = event.open(u"frminitb"_s);
    clickButton(screen, u"cmdok"_s);
    QCOMPARE(event.navigator().currentName(), u"frmmenub"_s);
    QVERIFY(event.exists(u"Bets Race12"_s));

    event.session.settings.eventDirectory = u"Q:\\Party\\"_s;
    robot.expect(u"Device unavailable Bets drivedir-Setup"_s, u"Bets drivedir-Setup"_s);
    robot.expect(u"Make sure drive and directory names are valid-try using default names"_s,
                 u"Menu"_s);
    clickButton(event.open(u"frminitb"_s), u"cmdok"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.navigator().currentName(), u"frminitb"_s);
}

TRELAWN_TEST(tst_frminitb)
#include "tst_frminitb.moc"
