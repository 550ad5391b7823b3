#include "kit/testkit.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

// The menu in a program whose other screens are blank widgets of the names given.
class MenuEvent
{
public:
    explicit MenuEvent(const QStringList &otherScreens = {})
        : navigator(event.session, event.printer, someScreens({u"frmmenub"_s}, otherScreens))
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
    void buttonsOpenTheirScreens();
    void buttonsWithoutScreenAreDisabled();
    void rolesRefuse();
    void loadCreatesTheTwin();
    void failedLoadLeavesTheMenuOpen();
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
}

void tst_frmmenub::buttonsOpenTheirScreens()
{
    MenuEvent menu(allWorkingScreens);
    const QMap<QString, QString> screens{{u"cmdenterhorses"_s, u"frmhorsesb"_s},
                                         {u"cmdenterbettors"_s, u"frmbettorsb"_s},
                                         {u"cmdbet"_s, u"frmsheetb"_s},
                                         {u"cmdpay"_s, u"frmpaywinnersb"_s},
                                         {u"cmdmulti"_s, u"frmmulti"_s},
                                         {u"cmdfix"_s, u"frmfixb"_s},
                                         {u"cmdmc"_s, u"frmmc"_s},
                                         {u"cmdsetup"_s, u"frminitb"_s}};
    for (const auto &[button, screen] : screens.asKeyValueRange()) {
        clickButton(menu.open(), button);
        QCOMPARE(menu.navigator.currentName(), screen);
    }
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

void tst_frmmenub::rolesRefuse()
{
    const QString horses = u"Horses update not permitted in satellite computer mode"_s;
    const QString bettors = u"Bettor update not permitted in satellite computer mode"_s;
    const QString multiple = u"Horses update not permitted in multiple computer mode"_s;
    // Main computer, satellite (it comes first), and what is said of horses and bettors.
    const std::tuple<QString, QString, QString, QString> roles[] = {
        {u"yes"_s, u"no"_s, multiple, {}},
        {u"no"_s, u"yes"_s, horses, bettors},
        {u"yes"_s, u"yes"_s, horses, bettors}};
    MenuEvent menu(allWorkingScreens);
    for (const auto &[main, satellite, ofHorses, ofBettors] : roles) {
        menu.event.session.settings.mainComputer = main;
        menu.event.session.settings.satelliteComputer = satellite;
        menu.robot.expect(ofHorses, u"TRELAWN"_s);
        if (!ofBettors.isEmpty())
            menu.robot.expect(ofBettors, u"TRELAWN"_s);
        clickButton(menu.open(), u"cmdenterhorses"_s);
        QCOMPARE(menu.navigator.currentName(), u"frmmenub"_s);
        clickButton(menu.navigator.current(), u"cmdenterbettors"_s);
        QCOMPARE(menu.navigator.currentName(),
                 ofBettors.isEmpty() ? u"frmbettorsb"_s : u"frmmenub"_s);
        QVERIFY(menu.robot.allCame());
    }
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

void tst_frmmenub::closeBoxEndsTheProgram()
{
    MenuEvent menu;
    menu.open();
    QVERIFY(closeBoxEnds(menu.navigator));
}

TRELAWN_TEST_MAIN(tst_frmmenub)
#include "tst_frmmenub.moc"
