#include "kit/testkit.h"

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
    void heading();
    void buttonsOpenTheirScreens();
    void rolesRefuse();
    void failedLoadLeavesTheMenuOpen();
    void closeBoxEndsTheProgram();
};

// The menu shows the race that is current when it is shown again.
void tst_frmmenub::heading()
{
    MenuEvent menu;
    menu.open();
    Settings &settings = menu.event.session.settings;
    settings.banner = u"Derby & <Oaks>"_s;
    settings.currentRace = 3;
    QCOMPARE(fieldText(menu.open(), u"txtbanner"_s), u"Derby & <Oaks> Race3"_s);
    QCOMPARE(caption(menu.navigator.current(), u"cmdclearbets"_s), u"Clear/Refund  Race3 Bets"_s);
    settings.banner = u"Vefioze"_s; // the design text stands alone
    QCOMPARE(fieldText(menu.open(), u"txtbanner"_s), u"Vefioze"_s);
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

void tst_frmmenub::rolesRefuse()
{
    const QString horses = u"Horses update not permitted in satellite computer mode"_s;
    const QString bettors = u"Bettor update not permitted in satellite computer mode"_s;
    const QString multiple = u"Horses update not permitted in multiple computer mode"_s;
    // Main computer, satellite (it comes first), and what is said of horses and bettors.
    const std::tuple<bool, bool, QString, QString> roles[] = {
        {true, false, multiple, {}}, {false, true, horses, bettors}, {true, true, horses, bettors}};
    MenuEvent menu(allWorkingScreens);
    for (const auto &[main, satellite, ofHorses, ofBettors] : roles) {
        menu.event.session.settings.setRole(main, satellite);
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

TRELAWN_TEST(tst_frmmenub)
#include "tst_frmmenub.moc"
