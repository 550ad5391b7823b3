#include "kit/printserver.h"
#include "kit/testkit.h"
#include "racecard/papersheets.h"
#include "ui/slippainter.h"

class tst_papersheets : public QObject
{
    Q_OBJECT

private slots:
    // Each sheet is a job of its own; without receipts nothing goes to paper.
    void printed()
    {
        TestEvent event;
        event.write(u"Horses Race1"_s,
                    horseRecords(cardOf({{1, 1, u"1"_s, u"SEABISCUIT"_s},
                                         {2, 1, u"1A"_s, u"A NAME OF TWENTY CH."_s},
                                         {3, 0, u"3"_s, u"zzz"_s},
                                         {21, 0, u"21"_s, u"LAST"_s}})));
        QWidget *screen = event.open(u"frmhorsesb"_s);
        event.session.settings.betSheetMessage = u"First line.\nSecond line."_s;
        const std::tuple<bool, QString, int, QString> presses[] = {
            {true, {}, 0, {}},
            {true, u"3"_s, 3, u"Bet sheets printed: 3"_s},
            {false, u"3"_s, 3, u"Nothing was printed: receipt printing is off."_s}};
        for (const auto &[receipts, typed, sheets, note] : presses) {
            event.session.settings.setReceiptPrinting(receipts);
            event.boxes.expectInput(u"Enter number of forms to print"_s, u"Print Bet Sheets"_s,
                                    typed);
            clickButton(screen, u"cmdprint"_s);
            QCOMPARE(event.slips.size(), sheets);
            QCOMPARE(event.note(), note);
        }
        const QString rule(84, u'_');
        const QStringList expected{
            u"Bet Sheet for Kentucky Derby  Race1"_s,
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
            u"Second line."_s};
        QCOMPARE(slipText(event.slips[2]), expected);
        QCOMPARE(event.slips[2].fontName, u"MS Sans Serif"_s);
        QCOMPARE(event.slips[2].pointSize, 8.0);
    }

    // Whatever the letters, number and name stay apart and the bars under each other.
    void widestLetters()
    {
        const HorseTable horses =
            cardOf({{1, 0, u"WWWW"_s, QString(14, u'W')}, {2, 0, u"1"_s, u"i"_s}});
        const QTemporaryDir folder;
        const QString file = folder.filePath(u"sheet.pdf"_s);
        {
            QPdfWriter paper(file);
            QCOMPARE(paintSlip(betSheetSlip(horses, u"Derby  Race3"_s, {}), paper), 1);
        }
        const QString words = pdfText(file, {u"-bbox"_s});
        QVERIFY(words.contains(u">WWWW<"_s) && words.contains(u">WWWWWWWWWWWWWW<"_s));
        static const QRegularExpression bar(u"xMin=\"([^\"]+)\"[^>]*>\\|<"_s);
        QMap<QString, int> bars;
        for (const auto &match : bar.globalMatch(words))
            ++bars[match.captured(1)];
        QCOMPARE(bars.values(), (QList<int>{4, 4, 4, 4}));
    }
};

TRELAWN_TEST(tst_papersheets)
#include "tst_papersheets.moc"
