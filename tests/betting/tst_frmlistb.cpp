#include "common/files/fileerror.h"
#include "kit/testkit.h"
#include "ui/mainwindow.h"
#include "ui/printing.h"

using namespace Qt::StringLiterals;

class tst_frmlistb : public QObject
{
    Q_OBJECT

private slots:
    void copies_data();
    void copies();
    void printerFails();
};

namespace {

const QString question = u"Enter number of forms to print"_s;
const QString questionTitle = u"Print Bets by Bettor"_s;

QWidget *openListing(TestEvent &event)
{
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n");
    event.open(u"frmbettorsb"_s);
    Slip listing;
    listing.addLine(u" 2  5.00"_s);
    listing.addPageBreak();
    listing.startBlock();
    listing.addLine(u"SMITH & <b>SONS</b>"_s);
    showListing({event.session, event.navigator(), event.printer}, listing);
    QCoreApplication::processEvents();
    return child<QWidget>(event.navigator().window(), u"frmlistb"_s);
}

} // namespace

void tst_frmlistb::copies_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("receipts");
    QTest::addColumn<int>("jobs");
    QTest::addColumn<int>("copies");
    QTest::newRow("each copy on its own") << u"3"_s << true << 3 << 3;
    QTest::newRow("receipts off: not separated") << u"3"_s << false << 1 << 3;
    QTest::newRow("100 is the most") << u"100"_s << true << 100 << 100;
    QTest::newRow("101 prints one") << u"101"_s << true << 1 << 1;
    QTest::newRow("0 prints none") << u"0"_s << true << 0 << 0;
    QTest::newRow("a number with text") << u" 2 copies"_s << true << 2 << 2;
    QTest::newRow("Cancel") << QString() << true << 0 << 0;
}

void tst_frmlistb::copies()
{
    QFETCH(QString, answer);
    QFETCH(bool, receipts);
    QFETCH(int, jobs);
    QFETCH(int, copies);
    TestEvent event(false);
    event.session.settings.setReceiptPrinting(receipts);
    QWidget *listing = openListing(event);
    BoxRobot robot;
    robot.expectInput(question, questionTitle, answer);
    clickButton(listing, u"cmdprint"_s);
    QVERIFY(robot.allCame());
    QCOMPARE(event.slips.size(), jobs);
    QStringList printed;
    for (const Slip &slip : event.slips) {
        QVERIFY(slip.fontName == u"Courier New"_s && slip.pointSize == 8);
        for (int line = 1; line < slip.lines.size(); line += 2)
            QVERIFY(slip.blockStarts.contains(line));
        printed += slipText(slip);
    }
    QStringList expected;
    for (int copy = 0; copy < copies; ++copy)
        expected << u" 2  5.00"_s << u"SMITH & <b>SONS</b>"_s;
    QCOMPARE(printed, expected);
}

void tst_frmlistb::printerFails()
{
    TestEvent event(false);
    event.printer.setDestination([](const Slip &) { throw FileError(ErrorNumber::PrinterError); });
    QWidget *listing = openListing(event);
    BoxRobot robot;
    robot.expectInput(question, questionTitle, u"1"_s);
    robot.expect(u"482 Printer error"_s, u"Print Bets by Bettor"_s);
    clickButton(listing, u"cmdprint"_s);
    QVERIFY(robot.allCame());
}

TRELAWN_TEST(tst_frmlistb)
#include "tst_frmlistb.moc"
