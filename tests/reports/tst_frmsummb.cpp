#include "kit/testkit.h"

class tst_frmsummb : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestEvent> m_event;
    QWidget *m_screen = nullptr;

    QStringList grid() { return tableTexts(m_screen, u"grdsumm"_s); }

private slots:
    void init()
    {
        m_event = std::make_unique<TestEvent>();
        m_event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n");
        m_event->write(u"Horses Race1"_s, "1,4,\"1 \",\"ALFA\"\r\n2,4,\"1A\",\"BRAVO\"\r\n");
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n");
        m_event->write(u"Horses Race3"_s, horseRecords(cardOf({{1, 0, u"7"_s, u"COCO"_s}})));
        m_event->write(u"Bets Race3"_s, "2,1,3,4\r\n2,1,3\r\n");
        clickButton(m_event->open(u"frmsheetb"_s), u"Command1"_s);
        QVERIFY(m_event->isOpen(u"frmsummb"_s));
        m_screen = m_event->current();
        QTRY_COMPARE(grid().size(), 3);
    }
    void cleanup() { m_event.reset(); }

    void showsTheRace()
    {
        QCOMPARE(grid().first(), u"1|ALFA (entry 4)|$5.00|$0.00|$0.00|$5.00|1/9"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$2.50|$0.00|$7.50|"_s);
        // Another table's computer adds a bet.
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n2,1,3,100\r\n");
        clickButton(m_screen, u"cmdrefresh"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$2.50|$100.00|$107.50|"_s);

        child<QAbstractButton>(m_screen, u"optrace_3"_s)->click();
        QCOMPARE(m_event->session.settings.currentRace, 3);
        QCOMPARE(fieldText(m_screen, u"txtbanner"_s),
                 m_event->session.settings.banner + u" Race3"_s);
        QCOMPARE(grid().first(), u"7|COCO|$0.00|$0.00|$4.00|$4.00|"_s);
        QCOMPARE(m_event->note(), u"1 bad record is not counted: see Fix Files"_s);

        // A race that cannot be read leaves no other race's figures on the screen.
        m_event->remove({u"Horses Race4"_s});
        m_event->boxes.expect(u"File not found"_s, u"Horses input"_s);
        child<QAbstractButton>(m_screen, u"optrace_4"_s)->click();
        QCOMPARE(grid(), QStringList{u"||$0.00|$0.00|$0.00|$0.00|"_s});
    }

    // Each list is made from the bets as they are now, which the grid then shows.
    void listsAndPrints()
    {
        clickButton(m_screen, u"cmdbets"_s);
        QCOMPARE(m_event->takeListing().value(1), u"ALL BETS BY BETTOR"_s);
        m_event->write(u"Bets Race1"_s, "2,1,1,5\r\n1,2,2,1\r\n");
        clickButton(m_screen, u"cmdtotals"_s);
        QCOMPARE(simplified(m_event->takeListing()).last(), u"TOTAL BETS $6.00"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$1.00|$0.00|$6.00|"_s);
        clickButton(m_screen, u"cmdprint"_s);
        QCOMPARE(m_event->slips.size(), 1);
        QCOMPARE(slipText(m_event->slips.first()).filter(u"BRAVO (entry 4)"_s).size(), 1);
        clickButton(m_screen, u"cmdreturn"_s);
        QVERIFY(m_event->isOpen(u"frmsheetb"_s));
    }
};

TRELAWN_TEST(tst_frmsummb)
#include "tst_frmsummb.moc"
