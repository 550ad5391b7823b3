#include "kit/printserver.h"
#include "kit/testkit.h"
#include "racecard/papersheets.h"
#include "ui/slippainter.h"

#include <QPdfWriter>

using namespace Qt::StringLiterals;

class tst_papersheets : public QObject
{
    Q_OBJECT

private slots:
    void sheet();
    void widestLetters();
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

void tst_papersheets::sheet()
{
    const QString rule(84, u'_');
    const QStringList expected{
        u"Bet Sheet for Derby  Race3"_s,
        u" "_s,
        rule,
        u"Number            Horse Name   |     Win   |     Place |     Show  | TOTAL"_s,
        rule,
        u"   1                SEABISCUIT |           |           |           |"_s,
        rule,
        u"  1A            A NAME OF TWEN |           |           |           |"_s,
        rule,
        u"  21                      LAST |           |           |           |"_s,
        rule,
        u" TOTAL BET                     |           |           |           |"_s,
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

// Whatever the letters, number and name stay apart and the bars under each other.
void tst_papersheets::widestLetters()
{
    HorseTable horses;
    horses.post(1) = {1, 0, u"WWWW"_s, QString(14, u'W')};
    horses.post(2) = {2, 0, u"1"_s, u"i"_s};
    QTemporaryDir folder;
    const QString file = folder.filePath(u"sheet.pdf"_s);
    {
        QPdfWriter paper(file);
        QCOMPARE(paintSlip(betSheetSlip(horses, u"Derby  Race3"_s, {}), paper), 1);
    }
    const QString words = pdfText(file, {u"-bbox"_s});
    QVERIFY(words.contains(u">WWWW<"_s) && words.contains(u">WWWWWWWWWWWWWW<"_s));
    static const QRegularExpression bar(uR"_(xMin="([^"]+)"[^>]*>\|<)_"_s);
    QMap<QString, int> bars;
    for (const auto &match : bar.globalMatch(words))
        ++bars[match.captured(1)];
    QCOMPARE(bars.values(), (QList<int>{4, 4, 4, 4}));
}

// Each sheet is a job of its own; without receipts nothing goes to paper.
void tst_papersheets::printed()
{
    TestEvent event;
    event.session.settings.currentRace = 3;
    event.write(u"Horses Race3"_s, horseRecords(threeHorses()));
    QWidget *screen = event.open(u"frmhorsesb"_s);
    QTRY_COMPARE(fieldText(screen, u"txthorse_0"_s), u"SEABISCUIT"_s);
    BoxRobot robot;
    const auto print = [&](const QString &typed) {
        robot.expectInput(u"Enter number of forms to print"_s, u"Print Bet Sheets"_s, typed);
        clickButton(screen, u"cmdprint"_s);
        return robot.allCame();
    };
    QVERIFY(print({}));
    QCOMPARE(event.slips.size(), 0);
    QVERIFY(print(u"3"_s));
    QCOMPARE(event.slips.size(), 3);
    QCOMPARE(labelText(screen, u"lblnote"_s), u"Bet sheets printed: 3"_s);
    for (const Slip &slip : event.slips)
        QCOMPARE(slipText(slip).first(), u"Bet Sheet for Kentucky Derby  Race3"_s);
    event.session.settings.setReceiptPrinting(false);
    QVERIFY(print(u"3"_s));
    QCOMPARE(event.slips.size(), 3);
    QCOMPARE(labelText(screen, u"lblnote"_s), u"Nothing was printed: receipt printing is off."_s);
}

TRELAWN_TEST(tst_papersheets)
#include "tst_papersheets.moc"
