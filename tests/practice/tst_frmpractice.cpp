#include "common/event/eventrecords.h"
#include "kit/screentest.h"
#include "screens.h"
#include "ui/printing.h"
#include "ui/undisturbed.h"

class tst_frmpractice : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        open(u"frminitb"_s);
        press(u"cmdpractice"_s);
        press(u"cmdpractice"_s);
        QVERIFY(event->isOpen(u"frmmenub"_s) && event->session.isPractice());
    }

    // Banner, list or title of every screen says it, and every slip does, once.
    void everythingSaysPractice()
    {
        for (const ScreenEntry &entry : allScreens()) {
            open(entry.name);
            event->boxes.allCame(); // what a screen asks on opening is refused
            const auto banners = screen()->findChildren<QLineEdit *>(u"txtbanner"_s);
            for (const QLineEdit *banner : banners)
                QVERIFY2(banner->text().startsWith("PRACTICE "_L1), qPrintable(entry.name));
            QCOMPARE(screen()->window()->windowTitle(), u"PRACTICE - "_s + entry.title);
            QVERIFY(panel()->isVisible());
        }
        Slip slip;
        slip.addLine(u"REFUND BETS ON SEABISCUIT"_s);
        const ScreenContext context{event->session, event->navigator(), event->printer};
        printSlip(screen(), context, {}, slip);
        QCOMPARE(slipText(event->slips.takeLast()),
                 QStringList({u"PRACTICE"_s, u"REFUND BETS ON SEABISCUIT"_s}));
        slip.addLine(event->session.settings.banner);
        printCopies(screen(), context, {}, slip, 1);
        QCOMPARE(slipText(event->slips.last()), slipText(slip));
        open(u"frmmenub"_s);
    }

    // They bet on while the operator works, on the race that is chosen, but not behind a box, and
    // what is on a bet sheet stays.
    void guestsPlay()
    {
        event->session.settings.currentRace = 3;
        open(u"frmsheetb"_s);
        select(u"lstentries"_s, u"FORD-GEORGE"_s);
        clickCell(screen(), u"txtone_4"_s);
        clickCell(screen(), u"txtnumber_24"_s);
        const QString toBePlaced = label(u"lbltobeplaced"_s);
        const std::size_t before = bets();
        clickButton(panel(), u"cmdpace"_s);
        clickButton(panel(), u"cmdpace"_s);
        {
            const Undisturbed box(nullptr);
            child<QAbstractButton>(panel(), u"cmdguests"_s)->click();
            QCOMPARE(bets(), before);
        }
        QTRY_VERIFY(bets() > before + 5);
        QCOMPARE(label(u"lbltobeplaced"_s), toBePlaced);
        clickButton(panel(), u"cmdguests"_s);
        const std::size_t stopped = bets();
        QCoreApplication::processEvents();
        QCOMPARE(bets(), stopped);
        expect(u"The bets on this sheet are not placed. Throw them away?"_s, u"Bet Sheet"_s,
               Answer::Yes);
        press(u"cmdmainmenu"_s);
    }

    void beginAgainAndLeave()
    {
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n");
        const QString question =
            u"Begin practice again? All that was done in the practice event is lost."_s;
        expect(question, u"Practice"_s, Answer::No);
        clickButton(panel(), u"cmdagain"_s);
        QCOMPARE(readBettors(event->session).sortedNames().size(), 1);
        expect(question, u"Practice"_s, Answer::Yes);
        clickButton(panel(), u"cmdagain"_s);
        QCOMPARE(readBettors(event->session).sortedNames().size(), 41);
        open(u"frmpractice"_s);
        press(u"cmdleave"_s,
              u"Leave practice and go back to the real event? What is not yet saved on this screen "
              "is lost."_s,
              u"Practice"_s, Answer::Yes);
        QVERIFY(event->isOpen(u"frminitb"_s));
        QCOMPARE(text(u"txtbanner"_s), u"Kentucky Derby Race1"_s);
        QCOMPARE(screen()->window()->windowTitle(), u"TRELAWN - Setup"_s);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!panel());
    }

private:
    QWidget *panel()
    {
        return event->navigator().window()->findChild<QWidget *>(u"practicepanel"_s);
    }
    std::size_t bets() { return readBets(event->session, 3).rows.size(); }
};

TRELAWN_TEST(tst_frmpractice)
#include "tst_frmpractice.moc"
