#include "kit/testkit.h"
#include "racecard/betsheets.h"

using namespace Qt::StringLiterals;

class tst_betsheets : public QObject
{
    Q_OBJECT

private slots:
    void sheet();
    void count_data();
    void count();
    void printed_data();
    void printed();
};

namespace {

HorseTable threeHorses()
{
    HorseTable horses;
    horses.post(1) = {1, 1, u"1"_s, u"SEABISCUIT"_s};
    horses.post(2) = {2, 1, u"1A"_s, u"A NAME OF TWENTY CH."_s};
    horses.post(3) = {3, 0, u"3"_s, u"zzz"_s};
    horses.post(21) = {21, 0, u"21"_s, u"LAST"_s};
    return horses;
}

} // namespace

void tst_betsheets::sheet()
{
    const QString rule(84, u'_');
    const QStringList expected{
        u"Bet Sheet for Derby  Race3"_s,
        u" "_s,
        rule,
        u"Number   Horse Name        |     Win    |     Place  |     Show   | TOTAL"_s,
        rule,
        u"   1     SEABISCUIT        |            |            |            |"_s,
        rule,
        u"  1A A NAME OF TWEN        |            |            |            |"_s,
        rule,
        u"  21           LAST        |            |            |            |"_s,
        rule,
        u" TOTAL BET                 |            |            |            |"_s,
        rule,
        u" "_s,
        u" "_s,
        u"Name_______________________________________"_s,
        u" "_s,
        u"First line."_s,
        u"Second line."_s,
    };
    const Slip slip =
        betSheetSlip(threeHorses(), u"Derby  Race3"_s, u"First line.\nSecond line."_s);
    QCOMPARE(slipText(slip), expected);
    QCOMPARE(slip.fontName, u"MS Sans Serif"_s);
    QCOMPARE(slip.pointSize, 8.0);
}

void tst_betsheets::count_data()
{
    QTest::addColumn<QString>("answer");
    QTest::addColumn<int>("sheets");
    QTest::newRow("one") << u"1"_s << 1;
    QTest::newRow("whole part") << u"2.9"_s << 2;
    QTest::newRow("Cancel") << u""_s << 0;
    QTest::newRow("no number") << u"three"_s << 0;
    QTest::newRow("less than one") << u"0.5"_s << 0;
    QTest::newRow("negative") << u"-3"_s << 0;
    QTest::newRow("a slip of the finger") << u"99999999999"_s << 1000;
}

void tst_betsheets::count()
{
    QFETCH(QString, answer);
    QTEST(betSheetCount(answer), "sheets");
}

void tst_betsheets::printed_data()
{
    QTest::addColumn<QString>("typed"); // null cancels
    QTest::addColumn<bool>("receipts");
    QTest::addColumn<int>("jobs");
    QTest::addColumn<QString>("note");
    QTest::newRow("three sheets are three jobs")
        << u"3"_s << true << 3 << u"Bet sheets printed: 3"_s;
    QTest::newRow("Cancel") << QString() << true << 0 << QString();
    QTest::newRow("negative") << u"-1"_s << true << 0 << QString();
    QTest::newRow("no receipts, no paper")
        << u"3"_s << false << 0 << u"Receipt printing is off: no bet sheet was printed."_s;
}

void tst_betsheets::printed()
{
    QFETCH(QString, typed);
    QFETCH(bool, receipts);
    TestEvent event;
    event.session.settings.setReceiptPrinting(receipts);
    event.session.settings.currentRace = 3;
    event.write(u"Horses Race3"_s, horseRecords(threeHorses()));
    QWidget *screen = event.open(u"frmhorsesb"_s);
    QTRY_COMPARE(fieldText(screen, u"txthorse_0"_s), u"SEABISCUIT"_s);

    BoxRobot robot;
    robot.expectInput(u"Enter number of forms to print"_s, u"Print Bet Sheets"_s, typed);
    clickButton(screen, u"cmdprint"_s);
    QVERIFY(robot.allCame());
    QTEST(int(event.slips.size()), "jobs");
    QTEST(labelText(screen, u"lblnote"_s), "note");
    for (const Slip &slip : event.slips) {
        const QStringList lines = slipText(slip);
        QCOMPARE(lines.first(), u"Bet Sheet for Kentucky Derby  Race3"_s);
        QVERIFY(lines.last().startsWith("Use a new sheet"_L1) || lines.last().isEmpty());
    }
}

TRELAWN_TEST_MAIN(tst_betsheets)
#include "tst_betsheets.moc"
