#include "kit/testkit.h"
#include "ui/printing.h"

class tst_frmlistb : public QObject
{
    Q_OBJECT

private slots:
    void copies()
    {
        Rows<QString, bool, int, int> rows;
        rows("each copy on its own", u"3"_s, true, 3, 3);
        rows("receipts off: not separated", u"3"_s, false, 1, 3);
        rows("100 is the most", u"100"_s, true, 100, 100);
        rows("101 prints one", u"101"_s, true, 1, 1);
        rows("0 prints none", u"0"_s, true, 0, 0);
        rows("a number with text", u" 2 copies"_s, true, 2, 2);
        rows("Cancel", QString(), true, 0, 0);
        TestEvent event(false);
        event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n");
        event.open(u"frmbettorsb"_s);
        Slip list;
        list.addLine(u" 2  5.00"_s);
        list.addPageBreak();
        list.startBlock();
        list.addLine(u"SMITH & <b>SONS</b>"_s);
        showListing({event.session, event.navigator(), event.printer}, list);
        QCoreApplication::processEvents();
        auto *listing = child<QWidget>(event.navigator().window(), u"frmlistb"_s);
        for (const auto &[row, answer, receipts, jobs, copies] : rows) {
            event.session.settings.setReceiptPrinting(receipts);
            event.slips.clear();
            event.boxes.expectInput(u"Enter number of forms to print"_s, u"Print Bets by Bettor"_s,
                                    answer);
            clickButton(listing, u"cmdprint"_s);
            QCOMPARE(event.slips.size(), jobs);
            QString printed;
            for (const Slip &slip : event.slips) {
                QVERIFY(slip.fontName == u"Courier New"_s && slip.pointSize == 8);
                for (int line = 1; line < slip.lines.size(); line += 2)
                    QVERIFY(slip.blockStarts.contains(line));
                printed += slipText(slip).join(u'|') + u'|';
            }
            QCOMPARE(printed, u" 2  5.00|SMITH & <b>SONS</b>|"_s.repeated(copies));
        }
    }

    // A refund list that is not on paper goes only when the operator says so.
    void unprinted()
    {
        TestEvent event;
        event.open(u"frmmenub"_s);
        bool isOutOfPaper = true;
        event.printer.setDestination([&](const Slip &slip) {
            if (isOutOfPaper)
                throw FileError(ErrorNumber::PrinterError);
            event.slips.append(slip);
        });
        const QString title = u"Print Refunds"_s;
        Slip refunds;
        refunds.addLine(u"ADA $5.00"_s);
        event.boxes.expect(u"Printer error"_s, title);
        printOrList(event.current(), {event.session, event.navigator(), event.printer}, {title},
                    refunds, u"The refund list"_s);
        const QPointer<QWidget> listing = child<QWidget>(event.navigator().window(), u"frmlistb"_s);
        QVERIFY(QTest::qWaitForWindowActive(listing));
        event.boxes.expect(u"Printer error"_s, title);
        clickButton(listing, u"cmdagain"_s);
        for (int way = 0; way < 2; ++way)
            event.boxes.expect(u"This list is not printed. Close it all the same?"_s,
                               u"Bettor/Bets List"_s, Answer::No);
        event.navigator().exitProgram();
        clickButton(listing, u"cmdreturn"_s);
        isOutOfPaper = false;
        clickButton(listing, u"cmdagain"_s);
        QCOMPARE(slipText(event.slips.value(0)), slipText(refunds));
        clickButton(listing, u"cmdreturn"_s);
        QTRY_VERIFY(!listing);
    }
};

TRELAWN_TEST(tst_frmlistb)
#include "tst_frmlistb.moc"
