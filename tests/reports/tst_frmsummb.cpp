#include "kit/screentest.h"

class tst_frmsummb : public ScreenTest
{
    Q_OBJECT

    QStringList grid() { return tableTexts(screen(), u"grdsumm"_s); }

private slots:
    void init()
    {
        begin();
        event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n");
        event->write(u"Horses Race1"_s, "1,4,\"1 \",\"ALFA\"\r\n2,4,\"1A\",\"BRAVO\"\r\n");
        event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n");
        event->write(u"Horses Race3"_s, horseRecords(cardOf({{1, 0, u"7"_s, u"COCO"_s}})));
        event->write(u"Bets Race3"_s, "2,1,3,4\r\n2,1,3\r\n");
        open(u"frmsheetb"_s);
        press(u"Command1"_s);
        QVERIFY(event->isOpen(u"frmsummb"_s));
        QTRY_COMPARE(grid().size(), 3);
    }

    void showsTheRace()
    {
        QCOMPARE(grid().first(), u"1|ALFA (entry 4)|$5.00|$0.00|$0.00|$5.00|1/9"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$2.50|$0.00|$7.50|"_s);
        // Another table's computer adds a bet.
        event->write(u"Bets Race1"_s, "2,1,1,5\r\n2,2,2,2.5\r\n2,1,3,100\r\n");
        press(u"cmdrefresh"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$2.50|$100.00|$107.50|"_s);

        child<QAbstractButton>(screen(), u"optrace_3"_s)->click();
        QCOMPARE(event->session.settings.currentRace, 3);
        QCOMPARE(text(u"txtbanner"_s), event->session.settings.banner + u" Race3"_s);
        QCOMPARE(grid().first(), u"7|COCO|$0.00|$0.00|$4.00|$4.00|"_s);
        QCOMPARE(event->note(), u"1 bad record is not counted: see Fix Files"_s);

        // A race that cannot be read leaves no other race's figures on the screen.
        event->remove({u"Horses Race4"_s});
        expect(u"File not found"_s, u"Horses input"_s);
        child<QAbstractButton>(screen(), u"optrace_4"_s)->click();
        QCOMPARE(grid(), QStringList{u"||$0.00|$0.00|$0.00|$0.00|"_s});
    }

    // Each list is made from the bets as they are now, which the grid then shows.
    void listsAndPrints()
    {
        press(u"cmdbets"_s);
        QCOMPARE(event->takeListing().value(1), u"ALL BETS BY BETTOR"_s);
        event->write(u"Bets Race1"_s, "2,1,1,5\r\n1,2,2,1\r\n");
        press(u"cmdtotals"_s);
        QCOMPARE(simplified(event->takeListing()).last(), u"TOTAL BETS $6.00"_s);
        QCOMPARE(grid().last(), u"|TOTALS|$5.00|$1.00|$0.00|$6.00|"_s);
        press(u"cmdprint"_s);
        QCOMPARE(event->slips.size(), 1);
        QCOMPARE(slipText(event->slips.first()).filter(u"BRAVO (entry 4)"_s).size(), 1);
        press(u"cmdreturn"_s);
        QVERIFY(event->isOpen(u"frmsheetb"_s));
    }
};

TRELAWN_TEST(tst_frmsummb)
#include "tst_frmsummb.moc"
