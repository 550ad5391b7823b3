#include "common/files/fileerror.h"
#include "common/files/recordfile.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"

#include <QDir>
#include <QLabel>
#include <QListWidget>

using namespace Qt::StringLiterals;

namespace {

// An event whose bettor list leads to stand-ins for the menu and the bet sheet.
class ListEvent : public TestEvent
{
public:
    explicit ListEvent(const QByteArray &bettors = "1,\"AnyBettor\"\r\n2,\"SMITH-JOHN\"\r\n"
                                                   "3,\"ADAMS-EVE\"\r\n")
        : TestEvent(false)
    {
        write(u"Bettors"_s, bettors);
        write(u"Bettorsbackup"_s, bettors);
    }

    // The bettor list, opened once.
    QWidget *list()
    {
        if (!m_screens) {
            m_screens = std::make_unique<Navigator>(
                session, printer,
                someScreens({u"frmbettorsb"_s, u"frmlistb"_s}, {u"frmmenub"_s, u"frmsheetb"_s}));
            m_screens->open(u"frmbettorsb"_s);
            QCoreApplication::processEvents();
        }
        return m_screens->current();
    }
    QString shown() { return m_screens->currentName(); }
    QWidget *window() { return m_screens->window(); }

    QStringList names() { return listTexts(list(), u"cbobettornames"_s); }
    QString note() { return labelText(list(), u"lblnote"_s); }
    void enter(const QString &name)
    {
        typeInto(list(), u"txtbettorname"_s, name);
        QTest::keyClick(child<QLineEdit>(list(), u"txtbettorname"_s), Qt::Key_Return);
    }
    // Adds NEW-ANN, number 4.
    void addNew(BoxRobot &robot)
    {
        list();
        robot.expect(u"NEW-ANN added"_s, u"Bettors"_s);
        enter(u"new-ann"_s);
    }
    void removeName(const QString &name)
    {
        selectInList(list(), u"cbobettornames"_s, name);
        clickButton(list(), u"cmddelete"_s);
    }

private:
    std::unique_ptr<Navigator> m_screens;
};

} // namespace

class tst_frmbettorsb : public QObject
{
    Q_OBJECT

private slots:
    void adding();
    void deletionRefused();
    void deletion();
    void refundWithoutPaper();
    void refundWhenTheBackupFails();
    void clearing();
    void leaving();
    void leavingWithoutSaving();
    void unreadListIsNotSaved();
    void failedSaveKeepsTheScreen();
    void keysInTheList();
    void missingAnyBettor();
};

void tst_frmbettorsb::adding()
{
    ListEvent event;
    BoxRobot robot;
    event.write(u"Bets Race5"_s, "4,1,1,12\r\n");
    event.list();
    event.enter({});
    robot.expect(u"ÅBERG-BO added"_s, u"Bettors"_s);
    event.enter(u"åberg-bo"_s);
    QCOMPARE(event.names(),
             QStringList({u"ÅBERG-BO"_s, u"ADAMS-EVE"_s, u"AnyBettor"_s, u"SMITH-JOHN"_s}));
    QCOMPARE(fieldText(event.list(), u"txtbettorname"_s), QString());
    QVERIFY2(event.note().contains("Race5 $12.00"_L1), qPrintable(event.note()));
    robot.expect(u"Duplicate bettor name"_s, u"Name error"_s);
    event.enter(u"Smith-John"_s);
    QCOMPARE(fieldText(event.list(), u"txtbettorname"_s), u"SMITH-JOHN"_s);
    event.session.settings.bettorLimit = 4;
    robot.expect(u"Bettor number 5 is beyond the bettor limit of 4"_s, u"Bettors"_s);
    event.enter(u"late"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.names().size(), 4);
    QVERIFY(!event.read(u"Bettors"_s).contains("BERG"));
}

void tst_frmbettorsb::deletionRefused()
{
    const std::tuple<bool, QString, QString> refusals[] = {
        {true, u"SMITH-JOHN"_s, u"Bettor delete not permitted in multiple computer mode"_s},
        {false, {}, u"Select bettor from list first"_s},
        {false, u"AnyBettor"_s, u"Can't delete AnyBettor"_s}};
    for (const auto &[mainComputer, name, message] : refusals) {
        ListEvent event;
        event.session.settings.mainComputer = mainComputer;
        BoxRobot robot;
        child<QListWidget>(event.list(), u"cbobettornames"_s)->setFocus();
        if (!name.isEmpty())
            selectInList(event.list(), u"cbobettornames"_s, name);
        robot.expect(message, u"TRELAWN"_s);
        clickButton(event.list(), u"cmddelete"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(event.names().size(), 3);
    }
}

void tst_frmbettorsb::deletion()
{
    ListEvent event;
    event.write(u"Bets Race1"_s, "2,1,1,5\r\n0,9,1,9\r\n3,4,2,2\r\n2,21,3,2.5\r\n");
    event.write(u"Bets Race8"_s, "2,1,1,40\r\n");
    BoxRobot robot;
    event.list();
    robot.expect(u"Delete SMITH-JOHN"_s, u"Bettors"_s, Answer::Cancel);
    event.removeName(u"SMITH-JOHN"_s);
    QCOMPARE(labelText(event.list(), u"lblselected"_s),
             u"SMITH-JOHN: number 2, bets Race1 $7.50, Race8 $40.00"_s);
    QCOMPARE(event.names().size(), 3);
    robot.expect(u"Delete SMITH-JOHN"_s, u"Bettors"_s);
    clickButton(event.list(), u"cmddelete"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.names(), QStringList({u"ADAMS-EVE"_s, u"AnyBettor"_s}));
    QVERIFY(child<QListWidget>(event.list(), u"cbobettornames"_s)->selectedItems().isEmpty());
    QCOMPARE(event.read(u"Bets Race1"_s), "3,4,2,2\r\n");
    QCOMPARE(event.read(u"Betsbackup Race1"_s), "3,4,2,2\r\n");
    QCOMPARE(event.read(u"Bets Race8"_s), "2,1,1,40\r\n");
    QVERIFY2(event.note().contains("Race8 $40.00"_L1), qPrintable(event.note()));
    QVERIFY(event.read(u"Bettors"_s).contains("SMITH"));
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips.front()),
             QStringList({u"REFUND BETS FOR SMITH-JOHN"_s, u" "_s,
                          u"Bettor Name                  Amount"_s, u" "_s,
                          u"SMITH-JOHN                  $7.50"_s}));
    robot.expect(u"SMITH-JOHN added"_s, u"Bettors"_s);
    event.enter(u"SMITH-JOHN"_s);
    clickButton(event.list(), u"cmdreturn"_s);
    QCOMPARE(event.read(u"Bettors"_s),
             "1,\"AnyBettor\"\r\n3,\"ADAMS-EVE\"\r\n4,\"SMITH-JOHN\"\r\n");
    QVERIFY(robot.allCame());
}

void tst_frmbettorsb::refundWithoutPaper()
{
    // Receipts off, no printer, and a bettor without bets, for whom the headings are printed.
    const std::tuple<bool, bool, QString, int> refunds[] = {{false, false, u"SMITH-JOHN"_s, 0},
                                                            {true, true, u"SMITH-JOHN"_s, 0},
                                                            {true, false, u"ADAMS-EVE"_s, 1}};
    for (const auto &[receipts, printerFails, name, slips] : refunds) {
        ListEvent event;
        event.session.settings.setReceiptPrinting(receipts);
        if (printerFails)
            event.printer.setDestination(
                [](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
        event.write(u"Bets Race1"_s, "2,1,1,5\r\n");
        BoxRobot robot;
        event.list();
        robot.expect("Delete "_L1 + name, u"Bettors"_s);
        if (printerFails)
            robot.expect(u"482 Printer error"_s, u"Refund Bets"_s);
        event.removeName(name);
        QVERIFY(robot.allCame());
        QCOMPARE(event.names().size(), 2);
        QCOMPARE(event.slips.size(), slips);
        auto *listing = event.window()->findChild<QWidget *>(u"frmlistb"_s);
        QCOMPARE(listing == nullptr, slips == 1);
        if (listing)
            QCOMPARE(listTexts(listing, u"List1"_s)[4], u"SMITH-JOHN                  $5.00"_s);
    }
}

// What the main file lost is owed to the bettor, although the deletion did not come to its end.
void tst_frmbettorsb::refundWhenTheBackupFails()
{
#ifdef Q_OS_LINUX
    ListEvent event;
    event.write(u"Bets Race1"_s, "2,1,1,5\r\n3,4,2,2\r\n");
    const QString twin = event.path(u"Betsbackup Race1"_s);
    // Next to it nobody can write, whatever the rights of the user are.
    QVERIFY(QFile::link(u"/proc/self/oom_score_adj"_s, twin));
    BoxRobot robot;
    event.list();
    robot.expect(u"Delete SMITH-JOHN"_s, u"Bettors"_s);
    const int refusal = errorOf([&] { replaceRecordFile(twin, {}); });
    robot.expect(QString::number(refusal) + u' ' + errorDescription(ErrorNumber(refusal))
                     + u"\nThe file was changed, its backup was not."_s,
                 u"Betsbackup Output"_s);
    event.removeName(u"SMITH-JOHN"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Bets Race1"_s), "3,4,2,2\r\n");
    QCOMPARE(event.names().size(), 3);
    QCOMPARE(event.slips.size(), 1);
    QCOMPARE(slipText(event.slips.front()).last(), u"SMITH-JOHN                  $5.00"_s);
#endif
}

void tst_frmbettorsb::clearing()
{
    ListEvent event;
    Settings &settings = event.session.settings;
    const QByteArray before = event.read(u"Bettors"_s);
    BoxRobot robot;
    event.list();
    settings.setRole(true, false);
    robot.expect(u"Bettor clear not permitted in multiple computer mode"_s, u"TRELAWN"_s);
    clickButton(event.list(), u"cmdclearbettors"_s);
    settings.clearRole();
    robot.expect(u"Must clear Bets first"_s, u"Bettors input"_s);
    clickButton(event.list(), u"cmdclearbettors"_s);
    settings.betsCleared = true;
    robot.expect(u"Clear and initialize Bettor file?"_s, u"Initialize"_s, Answer::Cancel);
    clickButton(event.list(), u"cmdclearbettors"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.read(u"Bettors"_s), before);

    robot.expect(u"Clear and initialize Bettor file?"_s, u"Initialize"_s);
    robot.expect(u"Bettor file cleared and initialized"_s, u"Initialize Bettor"_s);
    clickButton(event.list(), u"cmdclearbettors"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.names(), {u"AnyBettor"_s});
    QCOMPARE(event.session.bettors.nextNumber, 2);
    for (const QString &file : {u"Bettors"_s, u"Bettorsbackup"_s})
        QCOMPARE(event.read(file), QByteArray("1,\"AnyBettor\"\r\n"));
    QCOMPARE(event.saved().size(), 2);
    QCOMPARE(event.read("Saved\\"_L1 + event.saved().front()), before);
}

// Files that cannot be written keep nobody on the screen.
void tst_frmbettorsb::leavingWithoutSaving()
{
    for (const bool changed : {false, true}) {
        ListEvent event;
        BoxRobot robot;
        event.list();
        if (changed)
            event.addNew(robot);
        QVERIFY(QFile::remove(event.path(u"Bettors"_s)));
        QVERIFY(QDir().mkdir(event.path(u"Bettors"_s)));
        if (changed) {
            robot.expect(u"75 Path/File access error"_s, u"Bettors output"_s);
            clickButton(event.list(), u"cmdreturn"_s);
            QCOMPARE(event.shown(), u"frmbettorsb"_s);
            QVERIFY(event.note().contains(u"leaves without saving"_s));
        }
        clickButton(event.list(), u"cmdreturn"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(event.shown(), u"frmmenub"_s);
    }
}

void tst_frmbettorsb::leaving()
{
    // A null button stands for the close box.
    const std::pair<QString, QString> ways[] = {
        {u"cmdreturn"_s, u"frmmenub"_s}, {u"cmdbetsheet"_s, u"frmsheetb"_s}, {{}, u"frmmenub"_s}};
    for (const auto &[button, screen] : ways) {
        ListEvent event;
        BoxRobot robot;
        event.addNew(robot);
        if (button.isEmpty())
            event.window()->close();
        else
            clickButton(event.list(), button);
        QVERIFY(robot.allCame());
        QCOMPARE(event.shown(), screen);
        QVERIFY(event.read(u"Bettors"_s).endsWith("4,\"NEW-ANN\"\r\n"));
        QCOMPARE(event.read(u"Bettorsbackup"_s), event.read(u"Bettors"_s));
    }
}

void tst_frmbettorsb::unreadListIsNotSaved()
{
    ListEvent event;
    const QByteArray twin = event.read(u"Bettorsbackup"_s);
    QFile::remove(event.path(u"Bettors"_s));
    BoxRobot robot;
    robot.expect(u"53 File not found"_s, u"Bettors input"_s);
    event.list();
    QVERIFY(robot.allCame());
    QVERIFY(!child<QWidget>(event.list(), u"txtbettorname"_s)->isEnabled());
    clickButton(event.list(), u"cmdreturn"_s);
    QVERIFY(robot.allCame());
    QVERIFY(!event.exists(u"Bettors"_s));
    QCOMPARE(event.read(u"Bettorsbackup"_s), twin);
}

void tst_frmbettorsb::failedSaveKeepsTheScreen()
{
    ListEvent event;
    BoxRobot robot;
    event.addNew(robot);
    QFile::remove(event.path(u"Bettorsbackup"_s));
    QDir().mkdir(event.path(u"Bettorsbackup"_s));
    robot.expect(u"75 Path/File access error"_s, u"Bettorsbackup output"_s);
    clickButton(event.list(), u"cmdreturn"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.shown(), u"frmbettorsb"_s);
    QDir().rmdir(event.path(u"Bettorsbackup"_s));
    clickButton(event.list(), u"cmdreturn"_s);
    QCOMPARE(event.shown(), u"frmmenub"_s);
    QVERIFY(event.read(u"Bettorsbackup"_s).contains("NEW-ANN"));
}

// A letter in the list takes back what was not saved; a key that moves does not.
void tst_frmbettorsb::keysInTheList()
{
    for (const auto key : {Qt::Key_S, Qt::Key_Space, Qt::Key_Return, Qt::Key_Escape, Qt::Key_Down,
                           Qt::Key_PageUp, Qt::Key_Tab, Qt::Key_F5}) {
        const bool refused = key == Qt::Key_S || key == Qt::Key_Space || key == Qt::Key_Return
                             || key == Qt::Key_Escape;
        ListEvent event;
        BoxRobot robot;
        event.addNew(robot);
        robot.expect(u"Delete ADAMS-EVE"_s, u"Bettors"_s);
        event.removeName(u"ADAMS-EVE"_s);
        if (refused)
            robot.expect(u"Must select bettor name from drop down list"_s, u"Bettor name"_s);
        QTest::keyClick(child<QListWidget>(event.list(), u"cbobettornames"_s), key);
        QCoreApplication::processEvents();
        QVERIFY(robot.allCame());
        QCOMPARE(event.names().join(u' '),
                 refused ? u"ADAMS-EVE AnyBettor SMITH-JOHN"_s : u"AnyBettor NEW-ANN SMITH-JOHN"_s);
        QCOMPARE(event.session.bettors.nextNumber, refused ? 4 : 5);
        QCOMPARE(event.note(), refused ? u"Additions not saved and lost: 1 (NEW-ANN); "
                                         "Deleted names not saved and listed again: 1"_s
                                       : QString());
    }
}

void tst_frmbettorsb::missingAnyBettor()
{
    ListEvent event("2,\"SMITH-JOHN\"\r\n3,\"ADAMS\r\n");
    event.list();
    QVERIFY(event.note().contains("AnyBettor is missing"_L1));
    QVERIFY(event.note().contains("Use Backup Files"_L1));
    QVERIFY(event.note().contains("Damaged lines in the bettor file, kept as they are: 1"_L1));
}

TRELAWN_TEST(tst_frmbettorsb)
#include "tst_frmbettorsb.moc"
