#include "kit/printserver.h"
#include "kit/testkit.h"
#include "ui/slippainter.h"

#include <QPdfWriter>

// Slips on paper: the lines, the columns and the pages.
class tst_slipprinter : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;

    // Paints the slip and reads the lines of each page back from the paper.
    QList<QStringList> print(const Slip &slip) const
    {
        const QString file = m_folder.filePath(u"slip.pdf"_s);
        int pages = 0;
        {
            QPdfWriter device(file);
            device.setPageSize(QPageSize(QPageSize::Letter));
            pages = paintSlip(slip, device);
        }
        QList<QStringList> sheets;
        for (const QString &sheet : pdfText(file).split(u'\f', Qt::SkipEmptyParts))
            sheets << sheet.split(u'\n', Qt::SkipEmptyParts);
        if (sheets.size() != pages)
            qFatal("%d pages instead of %d", int(sheets.size()), pages);
        return sheets;
    }

private slots:
    void zones()
    {
        Rows<SlipLine, QString> rows;
        rows("next zone", zonedLine(u"Win"_s, u"$5.00"_s), u"Win           $5.00"_s);
        rows("nearly full", zonedLine(u"ABCDEFGHIJKLM"_s, u"x"_s), u"ABCDEFGHIJKLM x"_s);
        rows("full", zonedLine(u"ABCDEFGHIJKLMN"_s, u"x"_s), u"ABCDEFGHIJKLMN              x"_s);
        rows("the column is taken", {{1, u"ABCDE"_s}, {3, u"x"_s}}, u"ABCDE x"_s);
        rows("backwards", {{3, u"A"_s}, {0, u"B"_s}}, u"  AB"_s);
        for (const auto &[row, line, text] : rows)
            QCOMPARE(lineText(line), text);
    }

    void columnsOnPaper()
    {
        Slip slip{u"Courier New"_s, 10, true, {}, 0};
        slip.addLine(u"<b>A & B</b>"_s);
        slip.addLine({{1, u"iii"_s}, {15, u"$5.00"_s}, {29, u"Win"_s}});
        slip.addLine({{1, u"WWW"_s}, {15, u"$7.50"_s}, {29, u"Show"_s}});
        const QStringList lines = print(slip).value(0);
        QCOMPARE(simplified(lines),
                 (QStringList{u"<b>A & B</b>"_s, u"iii $5.00 Win"_s, u"WWW $7.50 Show"_s}));
        QCOMPARE(lines[1].indexOf(u'$'), lines[2].indexOf(u'$'));
        QCOMPARE(lines[1].indexOf(u"Win"_s), lines[2].indexOf(u"Show"_s));
    }

    // The heading is on every page, no line is cut off at the foot or printed twice.
    void pages()
    {
        Slip slip{u"Courier New"_s, 20, false, {}, 2};
        QStringList all{u"Race1"_s, u"Bettor"_s};
        for (int i = 1; i <= 60; ++i)
            all << "Line "_L1 + QString::number(i);
        for (const QString &line : all)
            slip.addLine(line);
        slip.addPageBreak();
        slip.addLine(u"Total"_s);
        const QList<QStringList> sheets = print(slip);
        QVERIFY(sheets.size() >= 3);
        QStringList printed = all.first(2);
        for (const QStringList &sheet : sheets) {
            QCOMPARE(simplified(sheet.first(2)), all.first(2));
            printed += simplified(sheet.mid(2));
        }
        QCOMPARE(printed, all + QStringList{u"Total"_s});
        QCOMPARE(sheets.last().size(), 3);
    }

    // A block stays on one page unless it is longer than a page.
    void blocks()
    {
        Slip slip{u"Courier New"_s, 20, false, {}, 1};
        slip.addLine(u"Heading"_s);
        constexpr int lengths[] = {12, 12, 12, 12, 50, 3};
        for (int block = 0; block < 6; ++block) {
            slip.startBlock();
            for (int i = 1; i <= lengths[block]; ++i)
                slip.addLine(u"%1-%2"_s.arg(block).arg(i));
            slip.addLine(QString());
        }
        const QList<QStringList> sheets = print(slip);
        const auto pageOf = [&](int block, int line) {
            for (qsizetype page = 0; page < sheets.size(); ++page) {
                if (simplified(sheets[page]).contains(u"%1-%2"_s.arg(block).arg(line)))
                    return page;
            }
            qFatal("block %d, line %d is not printed", block, line);
        };
        for (const int block : {0, 1, 2, 3, 5})
            QCOMPARE(pageOf(block, 1), pageOf(block, lengths[block]));
        QCOMPARE(pageOf(2, 1), pageOf(1, 1) + 1); // two fill a page
        QVERIFY(pageOf(4, 50) > pageOf(4, 1));
    }

    // What is wider than the paper is printed smaller, and what no letters are small enough for
    // goes on in the next line; nothing is cut off.
    void wideLines()
    {
        for (const int length : {80, 150, 900}) {
            Slip slip{u"Courier New"_s, 12, false, {}, 0};
            slip.addLine(QString(length - 4, u'x') + u"LAST"_s);
            const QList<QStringList> sheets = print(slip);
            QCOMPARE(sheets.size(), 1);
            QCOMPARE(sheets[0].join(QString()).size(), length);
            QVERIFY(sheets[0].join(QString()).contains(u"LAST"_s));
            QCOMPARE(sheets[0].size() > 1, length == 900);
        }
    }

    void refusedDevice()
    {
        QPdfWriter device(m_folder.filePath(u"none/slip.pdf"_s));
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        QCOMPARE(paintSlip(Slip(), device), 0);
    }
};

TRELAWN_TEST(tst_slipprinter)
#include "tst_slipprinter.moc"
