#include "common/event/racefiles.h"
#include "kit/testkit.h"

#include <QTableWidget>

using namespace Qt::StringLiterals;

namespace {

// An option or check box is clicked on its mark, wherever the layout puts it.
void choose(QWidget *screen, const QString &name)
{
    child<QAbstractButton>(screen, name)->click();
}

QStringList gridRow(QWidget *screen, int row)
{
    const auto *grid = child<QTableWidget>(screen, u"grdsumm"_s);
    QStringList cells;
    for (int column = 0; column < grid->columnCount(); ++column)
        cells.append(grid->item(row, column)->text());
    return cells;
}

int gridRows(QWidget *screen)
{
    return child<QTableWidget>(screen, u"grdsumm"_s)->rowCount();
}

// The lines of the list window that stands beside the screens; closes it.
QStringList takeListing(TestEvent &event)
{
    auto *window = event.current()->window()->findChild<QWidget *>(u"frmlistb"_s);
    if (!window)
        return {};
    QStringList lines;
    for (const QString &line : listTexts(window, u"List1"_s))
        lines.append(line.simplified());
    window->setObjectName({});
    window->close();
    return lines;
}

} // namespace

class tst_frmsummb : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEvent> m_event;

private slots:
    void initTestCase()
    {
        m_event = std::make_unique<TestEvent>();
        m_event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n");
        m_event->write(u"Horses Race1"_s, "1,4,\"1 \",\"ALFA\"\r\n2,4,\"1A\",\"BRAVO\"\r\n");
        HorseTable card;
        card.post(1) = {1, 0, u"7"_s, u"COCO"_s};
        m_event->write(u"Horses Race3"_s, horseRecords(card));
    }

    void cleanupTestCase() { m_event.reset(); }

    void init()
    {
        Session &session = m_event->session;
        session.settings.currentRace = 1;
        session.settings.printerAttached = true;
        m_event->slips.clear();
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n");
        m_event->write(u"Bets Race3"_s, "2,1,3,4\r\n2,1,3\r\n");
    }

    void showsTheRace()
    {
        BoxRobot robot;
        m_event->open(u"frmmenub"_s);
        QWidget *screen = m_event->open(u"frmsummb"_s);
        QTRY_COMPARE(gridRows(screen), 3);
        QCOMPARE(gridRow(screen, 0), (QStringList{u"1"_s, u"ALFA (entry 4)"_s, u"$5.00"_s,
                                                  u"$0.00"_s, u"$0.00"_s, u"$5.00"_s, u"1/9"_s}));
        QCOMPARE(gridRow(screen, 2).join(u'|'), u"|TOTALS|$5.00|$2.50|$0.00|$7.50|"_s);

        // Another table's computer adds a bet.
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n2,1,3,100\r\n");
        QCOMPARE(gridRow(screen, 2)[5], u"$7.50"_s);
        clickButton(screen, u"cmdrefresh"_s);
        QCOMPARE(gridRow(screen, 2)[5], u"$107.50"_s);

        choose(screen, u"optrace_3"_s);
        QCOMPARE(m_event->session.settings.currentRace, 3);
        QCOMPARE(fieldText(screen, u"txtbanner"_s), m_event->session.settings.banner + u" Race3"_s);
        QCOMPARE(gridRows(screen), 2);
        QCOMPARE(gridRow(screen, 0)[1], u"COCO"_s);
        QCOMPARE(labelText(screen, u"lblnote"_s), u"1 bad record is not counted: see Fix Files"_s);
        QVERIFY(robot.allCame());

        // A race that cannot be read leaves no other race's figures on the screen.
        m_event->write(u"Horses Race4"_s, {});
        QVERIFY(QFile::remove(m_event->path(u"Horses Race4"_s)));
        robot.expect(u"File not found"_s, u"Horses input"_s);
        choose(screen, u"optrace_4"_s);
        QVERIFY(robot.allCame());
        QCOMPARE(gridRows(screen), 1);
        QCOMPARE(gridRow(screen, 0)[5], u"$0.00"_s);
    }

    // Each list is made from the bets as they are now, which the grid then shows.
    void listings()
    {
        QWidget *screen = m_event->open(u"frmsummb"_s);
        QTRY_COMPARE(gridRows(screen), 3);
        clickButton(screen, u"cmdbets"_s);
        QCOMPARE(takeListing(*m_event).value(1), u"ALL BETS BY BETTOR"_s);
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n1,2,2,1\r\n");
        clickButton(screen, u"cmdtotals"_s);
        QCOMPARE(takeListing(*m_event).last(), u"TOTAL BETS $6.00"_s);
        QCOMPARE(gridRow(screen, 2)[5], u"$6.00"_s);
    }

    void printsAndReturns()
    {
        BoxRobot robot;
        m_event->open(u"frmsheetb"_s);
        QWidget *screen = m_event->open(u"frmsummb"_s);
        clickButton(screen, u"cmdprint"_s);
        QCOMPARE(m_event->slips.size(), 1);
        QVERIFY(slipText(m_event->slips.first()).filter(u"BRAVO (entry 4)"_s).size() == 1);
        m_event->session.settings.printerAttached = false;
        clickButton(screen, u"cmdprint"_s);
        QCOMPARE(m_event->slips.size(), 1);
        QCOMPARE(labelText(screen, u"lblnote"_s),
                 u"Nothing was printed: no printer is attached."_s);
        clickButton(screen, u"cmdreturn"_s);
        QCOMPARE(m_event->navigator().currentName(), u"frmsheetb"_s);

        // The bet sheet leads here.
        clickButton(m_event->current(), u"Command1"_s);
        QCOMPARE(m_event->navigator().currentName(), u"frmsummb"_s);
        QVERIFY(robot.allCame());
    }
};

TRELAWN_TEST(tst_frmsummb)
#include "tst_frmsummb.moc"
