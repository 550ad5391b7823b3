#include "kit/testkit.h"

// The menu, beside blank widgets for the screens that it opens.
class tst_frmmenub : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        event = std::make_unique<TestEvent>();
        navigator = std::make_unique<Navigator>(event->session, event->printer,
                                                someScreens({u"frmmenub"_s}, screens.values()));
    }

    void cleanup()
    {
        navigator.reset();
        event.reset();
    }

    // The menu shows the race that is current when it is shown again.
    void heading()
    {
        open();
        Settings &settings = event->session.settings;
        settings.banner = u"Derby & <Oaks>"_s;
        settings.currentRace = 3;
        QCOMPARE(fieldText(open(), u"txtbanner"_s), u"Derby & <Oaks> Race3"_s);
        QCOMPARE(caption(navigator->current(), u"cmdclearbets"_s), u"Clear/Refund  Race3 Bets"_s);
        settings.banner = u"Vefioze"_s; // the design text stands alone
        QCOMPARE(fieldText(open(), u"txtbanner"_s), u"Vefioze"_s);
        QVERIFY(closeBoxEnds(*navigator));
    }

    // The race, how far it is, and the next step; keys choose another as setup does.
    void raceInSight()
    {
        event->writeTwins(u"Horses Race2"_s, horseRecords(cardOf({{1, 0, u"1"_s, u"ALFA"_s}})));
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n");
        event->writeTwins(u"Bets Race2"_s, "2,1,1,5\r\nx\r\n0,1,1,0\r\n");
        open()->activateWindow();
        const auto shows = [this](const QString &race, const QString &text, const QString &button) {
            QCoreApplication::processEvents();
            QWidget *menu = navigator->current();
            QCOMPARE(labelText(menu, u"lblrace"_s), race);
            QCOMPARE(labelText(menu, u"lblprogress"_s), text);
            QCOMPARE(menu->focusWidget()->objectName(), button);
        };
        QTest::keyClick(navigator->current(), Qt::Key_PageUp, Qt::ControlModifier);
        shows(u"Race 1"_s, u"no horses yet"_s, u"cmdenterhorses"_s);
        QTest::keyClick(navigator->current(), Qt::Key_PageDown, Qt::ControlModifier);
        shows(u"Race 2"_s, u"1 horse, 1 bettor, 1 bet, $5.00"_s, u"cmdbet"_s);
        QVERIFY(event->read(u"Init"_s).contains(",1,2,0.25,"));
        event->remove({u"Bettors"_s});
        open();
        shows(u"Race 2"_s, u"File not found: Bettors input"_s, u"cmdenterhorses"_s);
    }

    void buttonsOpenTheirScreens()
    {
        for (const auto &[button, screen] : screens.asKeyValueRange()) {
            clickButton(open(), button);
            QCOMPARE(navigator->currentName(), screen);
        }
        event->session.settings.eventDirectory = u"C:\\Gone\\"_s;
        event->boxes.expect(u"Path not found Betsbackup Append"_s, u"Betsbackup Append"_s);
        clickButton(open(), u"cmdsetup"_s);
        QCOMPARE(navigator->currentName(), u"frminitb"_s);
    }

    void rolesRefuse()
    {
        const QString horses = u"Horses update not permitted in satellite computer mode"_s;
        const QString bettors = u"Bettor update not permitted in satellite computer mode"_s;
        const QString multiple = u"Horses update not permitted in multiple computer mode"_s;
        // Main computer, satellite (it comes first), and what is said of horses and bettors.
        const std::tuple<bool, bool, QString, QString> roles[] = {{true, false, multiple, {}},
                                                                  {false, true, horses, bettors},
                                                                  {true, true, horses, bettors}};
        for (const auto &[main, satellite, ofHorses, ofBettors] : roles) {
            event->session.settings.setRole(main, satellite);
            event->boxes.expect(ofHorses, u"TRELAWN"_s);
            if (!ofBettors.isEmpty())
                event->boxes.expect(ofBettors, u"TRELAWN"_s);
            clickButton(open(), u"cmdenterhorses"_s);
            QCOMPARE(navigator->currentName(), u"frmmenub"_s);
            clickButton(navigator->current(), u"cmdenterbettors"_s);
            QCOMPARE(navigator->currentName(),
                     ofBettors.isEmpty() ? u"frmbettorsb"_s : u"frmmenub"_s);
        }
    }

private:
    QWidget *open()
    {
        navigator->open(u"frmmenub"_s);
        QCoreApplication::processEvents();
        return navigator->current();
    }

    const QMap<QString, QString> screens{{u"cmdenterhorses"_s, u"frmhorsesb"_s},
                                         {u"cmdenterbettors"_s, u"frmbettorsb"_s},
                                         {u"cmdbet"_s, u"frmsheetb"_s},
                                         {u"cmdpay"_s, u"frmpaywinnersb"_s},
                                         {u"cmdmulti"_s, u"frmmulti"_s},
                                         {u"cmdfix"_s, u"frmfixb"_s},
                                         {u"cmdmc"_s, u"frmmc"_s},
                                         {u"cmdsetup"_s, u"frminitb"_s}};
    std::unique_ptr<TestEvent> event;
    std::unique_ptr<Navigator> navigator;
};

TRELAWN_TEST(tst_frmmenub)
#include "tst_frmmenub.moc"
