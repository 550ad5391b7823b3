#include "board/parts/boardview.h"
#include "common/event/cashjournal.h"
#include "common/event/multibetrecords.h"
#include "common/event/placement.h"
#include "kit/screentest.h"
#include "payoff/settlerace.h"
#include "racecard/scratch.h"
#include "ui/prompts.h"

// The odds board beside the operator's window, through a played night.
class tst_frmboard : public ScreenTest
{
    Q_OBJECT

private slots:
    void init()
    {
        begin();
        Settings &settings = event->session.settings;
        settings.banner = u"Harbour Cup"_s;
        settings.currentRace = 3;
        event->writeTwins(u"Horses Race3"_s, horseRecords(cardOf({{1, 1, u"1"_s, u"KETTLE"_s},
                                                                  {2, 0, u"2"_s, u"PROMISE"_s},
                                                                  {5, 1, u"1A"_s, u"SPOON"_s},
                                                                  {9, 0, u"7"_s, u"SILVER"_s}})));
        event->writeTwins(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"LUND-EVA\"\r\n3,\"BERG-OLE\"\r\n");
        event->open(u"frmmenub"_s);
        press(u"cmdboard"_s);
        press(u"cmdboard"_s); // the same one
        const auto boards = screen()->window()->findChildren<QWidget *>(u"frmboard"_s);
        QCOMPARE(boards.size(), 1);
        m_board = boards[0];
    }

    void night()
    {
        shows({u"Harbour Cup"_s, u"Race 3"_s, u"1, 1A KETTLE, SPOON: win $0, place $0, show $0"_s,
               u"2 PROMISE: win $0, place $0, show $0"_s, u"7 SILVER: win $0, place $0, show $0"_s,
               u"pools: win $0, place $0, show $0, total $0"_s});
        // Win pool 30: (30 - 15) / 15 = 1/1 for the entry, (30 - 10) / 10 and (30 - 5) / 5.
        place(2, {{1, BetType::Win, 5}, {5, BetType::Win, 10}, {9, BetType::Show, 1.5F}});
        place(3, {{2, BetType::Win, 10}, {9, BetType::Win, 5}, {2, BetType::Place, 40}});
        const std::vector<Multibet> exactas{{{1, 2, 0}, u"EX"_s, 2, 2}, {{2, 1, 0}, u"EX"_s, 6, 3}};
        appendMultibets(event->session, exactas);
        shows({u"Harbour Cup"_s, u"Race 3"_s,
               u"1, 1A KETTLE, SPOON: odds 1/1, win $15, place $0, show $0"_s,
               u"2 PROMISE: odds 2/1, win $10, place $40, show $0"_s,
               u"7 SILVER: odds 5/1, win $5, place $0, show $1.50"_s,
               u"pools: win $30, place $40, show $1.50, total $71.50"_s,
               u"most backed: 2 PROMISE"_s, u"Exacta: $8"_s});

        // While the operator has a box open the board goes on.
        bool goesOn = false;
        event->boxes.rest();
        QTimer::singleShot(0, this, [&] {
            place(2, {{1, BetType::Win, 30}});
            goesOn = QTest::qWaitFor([&] { return words().contains(u"falling"_s); });
            QApplication::activeModalWidget()->close();
        });
        showMessage(screen(), u"Anything else?"_s);
        QVERIFY(goesOn);
        scratch(9);
        // (55 - 45) / 45 is 1/5, (55 - 10) / 10 is 9/2.
        shows({u"Harbour Cup"_s, u"Race 3"_s,
               u"1, 1A KETTLE, SPOON: odds 1/5, falling, win $45, place $0, show $0"_s,
               u"2 PROMISE: odds 9/2, rising, win $10, place $40, show $0"_s,
               u"7 SILVER: SCRATCHED"_s, u"pools: win $55, place $40, show $0, total $95"_s,
               u"most backed: 2 PROMISE"_s, u"Exacta: $8"_s});

        settle();
        // The entry wins: $55 for $45. All $40 to place on the second.
        shows({u"Harbour Cup"_s, u"Race 3"_s, u"1A SPOON, win pays $2.44"_s,
               u"2 PROMISE, place pays $2.00"_s, u"pools: win $55, place $40, show $0, total $95"_s,
               u"Exacta: $8"_s, u"Exacta: 1, 2 pays $8.00"_s});
    }

    // It stays on a race, steps, goes back to the operator's race, and shows the results in turn.
    void races()
    {
        const auto race = [&] { return m_board->findChild<QButtonGroup *>()->checkedId(); };
        const std::pair<Qt::Key, int> keys[] = {{Qt::Key_7, 7},      {Qt::Key_0, 10},
                                                {Qt::Key_Equal, 12}, {Qt::Key_PageUp, 11},
                                                {Qt::Key_F, 3},      {Qt::Key_T, 3}};
        for (const auto &[key, shown] : keys) {
            QTest::keyClick(m_board, key);
            QTRY_COMPARE(race(), shown);
        }
        clickButton(m_board, u"optrace_5"_s);
        QTRY_COMPARE(race(), 5);
        clickButton(m_board, u"chkfollow"_s);
        event->session.settings.currentRace = 4;
        QTRY_COMPARE(race(), 4);

        // Another event, as a night to practise is one.
        QVERIFY(QDir().mkpath(event->path(u"D:\\Other"_s)));
        event->write(u"D:\\Other\\Horses Race4"_s,
                     horseRecords(cardOf({{1, 0, u"1"_s, u"ELSEWHERE"_s}})));
        event->session.settings.eventDirectory = u"D:\\Other\\"_s;
        QTRY_VERIFY(words().contains(u"ELSEWHERE"_s));
    }

    // The last row is on the picture too, whatever its size.
    void lastRow()
    {
        for (const QSize &size : {QSize(1024, 768), QSize(1280, 720), QSize(1920, 1080)}) {
            for (const int horses : {1, 5, 12, postCount}) {
                BoardPicture picture;
                for (int post = 1; post <= horses; ++post)
                    picture.rows.append({.post = post, .names = {QString(post * 4, u'W')}});
                BoardView view(nullptr);
                view.resize(size);
                view.setPicture(picture);
                const QImage before = view.grab().toImage();
                picture.rows.back().odds = u"5/2"_s;
                view.setPicture(picture);
                QVERIFY2(view.grab().toImage() != before, qPrintable(QString::number(horses)));
            }
        }
    }

    // F11 and Escape are the board's own.
    void fullScreen()
    {
        if (QGuiApplication::screens().size() > 1)
            QSKIP("the board is full screen on the other display");
        for (const auto leave : {Qt::Key_F11, Qt::Key_Escape}) {
            QTest::keyClick(m_board, Qt::Key_F11);
            QVERIFY(m_board->isFullScreen() && !screen()->window()->isFullScreen());
            QVERIFY(!child<QWidget>(m_board, u"cmdreturn"_s)->isVisible());
            QTest::keyClick(m_board, leave);
            QVERIFY(!m_board->isFullScreen() && m_board->isVisible());
            QVERIFY(child<QWidget>(m_board, u"cmdreturn"_s)->isVisible());
        }
        QTest::keyClick(m_board, Qt::Key_Escape);
        QVERIFY(!m_board->isVisible());
    }

    // The board fills the display that the operator's window is not on, and stays there.
    void secondDisplay()
    {
        if (QGuiApplication::screens().size() == 1)
            QSKIP("there is one display");
        QVERIFY(m_board->isFullScreen());
        QVERIFY(m_board->screen() != screen()->screen());
        QCOMPARE(m_board->geometry(), m_board->screen()->geometry());
        QVERIFY(!m_board->windowHandle()->transientParent()); // it stays where that is minimized
        screen()->window()->resize(900, 600);                 // letters there become smaller
        QCOMPARE(m_board->geometry(), m_board->screen()->geometry());
    }

private:
    struct Entered
    {
        int post;
        BetType type;
        float dollars;
    };

    QString words() { return child<QWidget>(m_board, u"board"_s)->accessibleDescription(); }
    void shows(const QStringList &lines) { QTRY_COMPARE(words(), lines.join(u'\n')); }

    void place(int bettor, std::initializer_list<Entered> bets)
    {
        BetEntries entries;
        for (const Entered &bet : bets)
            entries.add(bet.post, bet.type, bet.dollars);
        placeBets(event->session, planPlacement(entries, bettor, 0, 100));
    }

    void scratch(int post)
    {
        Session &session = event->session;
        HorseTable horses = parseHorses(event->readTwins(u"Horses Race3"_s)).horses;
        removeScratchedBets(session, prepareScratch(session, post, horses.post(post).name));
        horses.post(post) = {post, 0, {}, {}};
        saveHorses(session, horses);
        session.horses = horses;
    }

    // The finish is 1A, 2 and nobody; then the exacta 1, 2.
    void settle()
    {
        RaceResult result;
        result.finishers = {5, 2, firstUnusedPost(event->session.horses)};
        settleCurrentRace(event->session, result);
        open(u"frmpaymulti"_s);
        press(u"optrace_3"_s);
        press(u"cmdexacta"_s);
        press(u"cmdenterwin"_s); // without a finish it is none
        clickCell(screen(), u"txtnum_0"_s);
        clickCell(screen(), u"txtnum_22"_s);
        press(u"cmdenterwin"_s);
        press(u"cmdenterwin"_s);
    }

    QWidget *m_board = nullptr;
};

TRELAWN_TEST(tst_frmboard)
#include "tst_frmboard.moc"
