#include "common/eventfiles.h"
#include "kit/testkit.h"
#include "screens.h"
#include "ui/mainwindow.h"

#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

// The menu in a program whose other screens are blank widgets of the names given.
class MenuEvent
{
public:
    explicit MenuEvent(const QStringList &otherScreens = {})
        : navigator(event.session, event.printer, screens(otherScreens))
    {
    }

    QWidget *open()
    {
        navigator.open(u"frmmenub"_s);
        QCoreApplication::processEvents();
        return navigator.current();
    }

    TestEvent event;
    BoxRobot robot;
    Navigator navigator;

private:
    static std::vector<ScreenEntry> screens(const QStringList &others)
    {
        std::vector<ScreenEntry> entries;
        for (const ScreenEntry &entry : allScreens()) {
            if (entry.name == "frmmenub"_L1)
                entries.push_back(entry);
        }
        for (const QString &name : others)
            entries.push_back({name, name, {}, [](const ScreenContext &) { return new QWidget; }});
        return entries;
    }
};

const QStringList allWorkingScreens{u"frmhorsesb"_s,     u"frmbettorsb"_s, u"frmsheetb"_s,
                                    u"frmpaywinnersb"_s, u"frmmulti"_s,    u"frmfixb"_s,
                                    u"frmmc"_s,          u"frminitb"_s};

} // namespace

class tst_frmmenub : public QObject
{
    Q_OBJECT

private slots:
    void heading_data();
    void heading();
    void buttonsOpenTheirScreens_data();
    void buttonsOpenTheirScreens();
    void buttonsWithoutScreenAreDisabled();
    void rolesRefuse_data();
    void rolesRefuse();
    void loadCreatesTheTwin();
    void failedLoadLeavesTheMenuOpen();
    void noteAndKeyboard();
    void fitsTheDisplay();
    void closeBoxEndsTheProgram();
};

void tst_frmmenub::heading_data()
{
    QTest::addColumn<QString>("banner");
    QTest::addColumn<int>("race");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("clearCaption");
    QTest::newRow("race 3") << u"Derby & <Oaks>"_s << 3 << u"Derby & <Oaks> Race3"_s
                            << u"Clear/Refund  Race3 Bets"_s;
    QTest::newRow("race 12") << u"Derby"_s << 12 << u"Derby Race12"_s
                             << u"Clear/Refund  Race12 Bets"_s;
    QTest::newRow("the design text stands alone")
        << u"Vefioze"_s << 12 << u"Vefioze"_s << u"Clear/Refund  Race12 Bets"_s;
}

void tst_frmmenub::heading()
{
    QFETCH(QString, banner);
    QFETCH(int, race);
    MenuEvent menu;
    menu.open();
    // The menu shows the race that is current when it is shown again.
    menu.event.session.settings.banner = banner;
    menu.event.session.settings.currentRace = race;
    QWidget *screen = menu.open();
    QTEST(fieldText(screen, u"txtbanner"_s), "shown");
    QTEST(caption(screen, u"cmdclearbets"_s), "clearCaption");
    QTEST(QString(child<QPushButton>(screen, u"cmdclearbets"_s)->text()).remove(u'&'),
          "clearCaption");
}

void tst_frmmenub::buttonsOpenTheirScreens_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("screen");
    const std::pair<const char *, const char *> rows[] = {{"cmdenterhorses", "frmhorsesb"},
                                                          {"cmdenterbettors", "frmbettorsb"},
                                                          {"cmdbet", "frmsheetb"},
                                                          {"cmdpay", "frmpaywinnersb"},
                                                          {"cmdmulti", "frmmulti"},
                                                          {"cmdfix", "frmfixb"},
                                                          {"cmdmc", "frmmc"},
                                                          {"cmdsetup", "frminitb"}};
    for (const auto &[button, screen] : rows)
        QTest::newRow(button) << QString::fromLatin1(button) << QString::fromLatin1(screen);
}

void tst_frmmenub::buttonsOpenTheirScreens()
{
    QFETCH(QString, button);
    MenuEvent menu(allWorkingScreens);
    clickButton(menu.open(), button);
    QTEST(menu.navigator.currentName(), "screen");
    QVERIFY(menu.robot.allCame());
}

void tst_frmmenub::buttonsWithoutScreenAreDisabled()
{
    MenuEvent menu({u"frminitb"_s});
    QWidget *screen = menu.open();
    QStringList enabled;
    for (auto *button : screen->findChildren<QPushButton *>()) {
        QVERIFY2(button->isVisible(), qPrintable(button->objectName()));
        // What is done on the menu itself needs no screen.
        if (button->isEnabled() && !button->objectName().endsWith(u"nw"_s)
            && button->objectName() != "cmdclearbets"_L1 && button->objectName() != "cmdbackup"_L1)
            enabled << button->objectName();
    }
    QCOMPARE(enabled, (QStringList{u"cmdsetup"_s, u"cmdexit"_s}));
}

void tst_frmmenub::rolesRefuse_data()
{
    QTest::addColumn<QString>("mainComputer");
    QTest::addColumn<QString>("satelliteComputer");
    QTest::addColumn<QString>("horses");
    QTest::addColumn<QString>("bettors");
    const QString yes = u"yes"_s;
    const QString no = u"no"_s;
    const QString horsesSatellite = u"Horses update not permitted in satellite computer mode"_s;
    const QString bettorsSatellite = u"Bettor update not permitted in satellite computer mode"_s;
    QTest::newRow("main computer")
        << yes << no << u"Horses update not permitted in multiple computer mode"_s << QString();
    QTest::newRow("satellite") << no << yes << horsesSatellite << bettorsSatellite;
    QTest::newRow("satellite comes before main")
        << yes << yes << horsesSatellite << bettorsSatellite;
}

void tst_frmmenub::rolesRefuse()
{
    QFETCH(QString, horses);
    QFETCH(QString, bettors);
    MenuEvent menu(allWorkingScreens);
    QFETCH(QString, mainComputer);
    QFETCH(QString, satelliteComputer);
    menu.event.session.settings.mainComputer = mainComputer;
    menu.event.session.settings.satelliteComputer = satelliteComputer;
    menu.robot.expect(horses, u"TRELAWN"_s);
    clickButton(menu.open(), u"cmdenterhorses"_s);
    QCOMPARE(menu.navigator.currentName(), u"frmmenub"_s);
    if (!bettors.isEmpty())
        menu.robot.expect(bettors, u"TRELAWN"_s);
    clickButton(menu.navigator.current(), u"cmdenterbettors"_s);
    QCOMPARE(menu.navigator.currentName(), bettors.isEmpty() ? u"frmbettorsb"_s : u"frmmenub"_s);
    clickButton(menu.open(), u"cmdbet"_s);
    QCOMPARE(menu.navigator.currentName(), u"frmsheetb"_s);
    QVERIFY(menu.robot.allCame());
}

void tst_frmmenub::loadCreatesTheTwin()
{
    MenuEvent menu;
    const QByteArray bet = "7,4,1,2.5\r\n";
    menu.event.write(u"Bets Race1"_s, bet);
    QVERIFY(QFile::remove(menu.event.path(u"Betsbackup Race1"_s)));
    menu.open();
    QVERIFY(menu.robot.allCame());
    QCOMPARE(menu.event.read(u"Betsbackup Race1"_s), bet);
    menu.event.write(u"Betsbackup Race1"_s, "a longer twin");
    menu.open();
    QCOMPARE(menu.event.read(u"Betsbackup Race1"_s), QByteArray("a longer twin"));
}

void tst_frmmenub::failedLoadLeavesTheMenuOpen()
{
    MenuEvent menu({u"frminitb"_s});
    menu.event.session.settings.eventDirectory = u"C:\\Gone\\"_s;
    menu.robot.expect(u"Path not found Betsbackup Append"_s, u"Betsbackup Append"_s);
    clickButton(menu.open(), u"cmdsetup"_s);
    QVERIFY(menu.robot.allCame());
    QCOMPARE(menu.navigator.currentName(), u"frminitb"_s);
}

void tst_frmmenub::noteAndKeyboard()
{
    MenuEvent menu(allWorkingScreens);
    menu.navigator.open(u"frmmenub"_s, u"2 winners are not paid yet."_s);
    QCoreApplication::processEvents();
    QWidget *screen = menu.navigator.current();
    QCOMPARE(labelText(screen, u"lblnote"_s), u"2 winners are not paid yet."_s);
    QCOMPARE(menu.navigator.window()->focusWidget()->objectName(), u"cmdenterhorses"_s);
    QSet<QString> letters;
    for (auto *button : screen->findChildren<QPushButton *>()) {
        const QString letter = button->shortcut().toString();
        QVERIFY2(!letter.isEmpty() && !letters.contains(letter), qPrintable(button->objectName()));
        letters.insert(letter);
    }
}

void tst_frmmenub::fitsTheDisplay()
{
    TestEvent event;
    event.session.settings.currentRace = 12;
    for (const QString &name : {u"frminitb"_s, u"frmmenub"_s}) {
        const QSize needed = event.open(name)->minimumSizeHint();
        QVERIFY2(needed.width() <= 1016 && needed.height() <= 690, qPrintable(name));
    }
}

void tst_frmmenub::closeBoxEndsTheProgram()
{
    MenuEvent menu;
    menu.open();
    QTimer::singleShot(0, menu.navigator.window(), &QWidget::close);
    QTimer::singleShot(30000, menu.navigator.window(), [] { QApplication::exit(1); });
    QCOMPARE(QApplication::exec(), 0);
}

TRELAWN_TEST_MAIN(tst_frmmenub)
#include "tst_frmmenub.moc"
