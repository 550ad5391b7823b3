#include "kit/screentest.h"

class tst_frmmenub : public ScreenTest
{
    Q_OBJECT

private slots:
    void init() { begin(); }

    // The menu shows the race that is current when it is shown again.
    void heading()
    {
        Settings &settings = event->session.settings;
        settings.banner = u"Derby & <Oaks>"_s;
        settings.currentRace = 3;
        QCOMPARE(bannerShown(), u"Derby & <Oaks> Race3"_s);
        QCOMPARE(caption(screen(), u"cmdclearbets"_s), u"Clear/Refund  Race3 Bets"_s);
        settings.banner = u"Vefioze"_s; // the design text stands alone
        QCOMPARE(bannerShown(), u"Vefioze"_s);
        QVERIFY(closeBoxEnds(event->navigator()));
    }

    // The race, how far it is, and the next step; keys choose another as setup does.
    void raceInSight()
    {
        event->writeTwins(u"Horses Race2"_s, horseRecords(cardOf({{1, 0, u"1"_s, u"ALFA"_s}})));
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ADA\"\r\n");
        event->writeTwins(u"Bets Race2"_s, "2,1,1,5\r\nx\r\n0,1,1,0\r\n");
        event->open(u"frmmenub"_s)->activateWindow();
        const auto shows = [this](const QString &race, const QString &text, const QString &button) {
            QCoreApplication::processEvents();
            QCOMPARE(label(u"lblrace"_s), race);
            QCOMPARE(label(u"lblprogress"_s), text);
            QCOMPARE(screen()->focusWidget()->objectName(), button);
        };
        QTest::keyClick(screen(), Qt::Key_PageUp, Qt::ControlModifier);
        shows(u"Race 1"_s, u"no horses yet"_s, u"cmdenterhorses"_s);
        QTest::keyClick(screen(), Qt::Key_PageDown, Qt::ControlModifier);
        shows(u"Race 2"_s, u"1 horse, 1 bettor, 1 bet, $5.00"_s, u"cmdbet"_s);
        QVERIFY(event->read(u"Init"_s).contains(",1,2,0.25,"));
        event->remove({u"Bettors"_s});
        open(u"frmmenub"_s);
        shows(u"Race 2"_s, u"File not found: Bettors input"_s, u"cmdenterhorses"_s);
    }

    void buttonsOpenTheirScreens()
    {
        const std::pair<QString, QString> buttons[] = {{u"cmdenterhorses"_s, u"frmhorsesb"_s},
                                                       {u"cmdenterbettors"_s, u"frmbettorsb"_s},
                                                       {u"cmdbet"_s, u"frmsheetb"_s},
                                                       {u"cmdpay"_s, u"frmpaywinnersb"_s},
                                                       {u"cmdmulti"_s, u"frmmulti"_s},
                                                       {u"cmdfix"_s, u"frmfixb"_s},
                                                       {u"cmdmc"_s, u"frmmc"_s},
                                                       {u"cmdsetup"_s, u"frminitb"_s}};
        for (const auto &[button, opened] : buttons) {
            open(u"frmmenub"_s);
            press(button);
            QVERIFY2(event->isOpen(opened), qPrintable(button));
        }
        event->session.settings.eventDirectory = u"C:\\Gone\\"_s;
        expect(u"Path not found Betsbackup Append"_s, u"Betsbackup Append"_s);
        open(u"frmmenub"_s);
        press(u"cmdsetup"_s);
        QVERIFY(event->isOpen(u"frminitb"_s));
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
            open(u"frmmenub"_s);
            press(u"cmdenterhorses"_s, ofHorses);
            QVERIFY(event->isOpen(u"frmmenub"_s));
            if (!ofBettors.isEmpty())
                expect(ofBettors);
            press(u"cmdenterbettors"_s);
            QVERIFY(event->isOpen(ofBettors.isEmpty() ? u"frmbettorsb"_s : u"frmmenub"_s));
        }
    }

private:
    QString bannerShown()
    {
        open(u"frmmenub"_s);
        return text(u"txtbanner"_s);
    }
};

TRELAWN_TEST(tst_frmmenub)
#include "tst_frmmenub.moc"
