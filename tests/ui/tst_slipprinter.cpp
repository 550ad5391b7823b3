#include "kit/printserver.h"
#include "kit/testkit.h"
#include "ui/slippainter.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

// Slips on paper: the lines, the columns and the pages.
class tst_slipprinter : public QObject
{
    Q_OBJECT

private slots:
    void zones();
    void columnsOnPaper();
    void pages();
    void blocks();
    void wideLines();
    void refusedDevice();
    void substitutes();

private:
    QStringList print(const Slip &slip, int &pages) const;

    QTemporaryDir m_folder;
};

// Paints the slip and reads the words back from the paper; a form feed ends each page.
QStringList tst_slipprinter::print(const Slip &slip, int &pages) const
{
    const QString file = m_folder.filePath(u"slip.pdf"_s);
    {
        QPdfWriter device(file);
        device.setPageSize(QPageSize(QPageSize::Letter));
        pages = paintSlip(slip, device);
    }
    return pdfText(file).split(u'\n');
}

void tst_slipprinter::zones()
{
    const std::pair<SlipLine, QString> cases[] = {
        {zonedLine(u"Win"_s, u"$5.00"_s), u"Win           $5.00"_s},
        {zonedLine(u"ABCDEFGHIJKLM"_s, u"x"_s), u"ABCDEFGHIJKLM x"_s},
        {zonedLine(u"ABCDEFGHIJKLMN"_s, u"x"_s), u"ABCDEFGHIJKLMN              x"_s}, // full
        {{{1, u"ABCDE"_s}, {3, u"x"_s}}, u"ABCDE x"_s}, // the column is taken
        {{{3, u"A"_s}, {0, u"B"_s}}, u"  AB"_s}};
    for (const auto &[line, text] : cases)
        QCOMPARE(lineText(line), text);
}

void tst_slipprinter::columnsOnPaper()
{
    Slip slip{u"Courier New"_s, 10, true, {}, 0};
    slip.addLine(u"<b>A & B</b>"_s);
    slip.addLine({{1, u"iii"_s}, {15, u"$5.00"_s}, {29, u"Win"_s}});
    slip.addLine({{1, u"WWW"_s}, {15, u"$7.50"_s}, {29, u"Show"_s}});
    int pages = 0;
    const QStringList lines = print(slip, pages);
    QCOMPARE(pages, 1);
    QCOMPARE(lines.value(0).trimmed(), u"<b>A & B</b>"_s);
    QCOMPARE(lines.value(1).simplified(), u"iii $5.00 Win"_s);
    QCOMPARE(lines.value(2).simplified(), u"WWW $7.50 Show"_s);
    QCOMPARE(lines.value(1).indexOf(u'$'), lines.value(2).indexOf(u'$'));
    QCOMPARE(lines.value(1).indexOf(u"Win"_s), lines.value(2).indexOf(u"Show"_s));
}

void tst_slipprinter::pages()
{
    Slip slip{u"Courier New"_s, 20, false, {}, 2};
    slip.addLine(u"Race1"_s);
    slip.addLine(u"Bettor"_s);
    for (int i = 1; i <= 60; ++i)
        slip.addLine("Line "_L1 + QString::number(i));
    slip.addPageBreak();
    slip.addLine(u"Total"_s);
    int pages = 0;
    const QString text = print(slip, pages).join(u'\n');
    QVERIFY(pages >= 3);
    const QStringList sheets = text.split(u'\f', Qt::SkipEmptyParts);
    QCOMPARE(sheets.size(), pages);
    QStringList printed;
    for (const QString &sheet : sheets) {
        QStringList lines = sheet.split(u'\n', Qt::SkipEmptyParts);
        QCOMPARE(lines.value(0).trimmed(), u"Race1"_s);
        QCOMPARE(lines.value(1).trimmed(), u"Bettor"_s);
        printed += lines.mid(2);
    }
    QCOMPARE(printed.size(), 61); // none cut off at the foot, none twice
    QCOMPARE(printed.at(59).trimmed(), u"Line 60"_s);
    QCOMPARE(sheets.last().split(u'\n').value(2).trimmed(), u"Total"_s);
}

// A block stays on one page unless it is longer than a page.
void tst_slipprinter::blocks()
{
    Slip slip{u"Courier New"_s, 20, false, {}, 1};
    slip.addLine(u"Heading"_s);
    const QString names = u"ABCDEF"_s;
    constexpr int lengths[] = {12, 12, 12, 12, 50, 3};
    for (const int length : lengths) {
        slip.startBlock();
        const QString name = names.sliced(slip.blockStarts.size() - 1, 1);
        for (int i = 1; i <= length; ++i)
            slip.addLine(name + QString::number(i));
        slip.addLine(QString());
    }
    int pages = 0;
    const QStringList sheets = print(slip, pages).join(u'\n').split(u'\f');
    const auto pageOf = [&](const QString &word) {
        for (int page = 0; page < sheets.size(); ++page) {
            if (sheets[page].simplified().split(u' ').contains(word))
                return page;
        }
        return -1;
    };
    for (int i : {0, 1, 2, 3, 5}) {
        const QString name = names.sliced(i, 1);
        QVERIFY(pageOf(name + u'1') >= 0);
        QCOMPARE(pageOf(name + u'1'), pageOf(name + QString::number(lengths[i])));
    }
    QCOMPARE(pageOf(u"C1"_s), pageOf(u"B1"_s) + 1); // two fill a page
    QVERIFY(pageOf(u"E50"_s) > pageOf(u"E1"_s));
}

// What is wider than the paper is printed smaller, and what no letters are small enough for goes on
// in the next line; nothing is cut off.
void tst_slipprinter::wideLines()
{
    for (const int length : {80, 150, 900}) {
        Slip slip{u"Courier New"_s, 12, false, {}, 0};
        slip.addLine(QString(length - 4, u'x') + u"LAST"_s);
        int pages = 0;
        QStringList lines = print(slip, pages);
        lines.removeAll(QString());
        QCOMPARE(lines.join(QString()).remove(u'\f').size(), length);
        QVERIFY(lines.join(QString()).contains(u"LAST"_s));
        QCOMPARE(lines.removeAll(u"\f"_s), 1);
        QCOMPARE(lines.size() > 1, length == 900);
    }
}

void tst_slipprinter::refusedDevice()
{
    QPdfWriter device(m_folder.filePath(u"none/slip.pdf"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
    QCOMPARE(paintSlip(Slip(), device), 0);
}

// Named fonts keep their widths on a system that lacks them.
void tst_slipprinter::substitutes()
{
    const QFontMetricsF fixed(QFont(u"Courier New"_s, 10));
    QCOMPARE(fixed.horizontalAdvance(u"iiii"_s), fixed.horizontalAdvance(u"WWWW"_s));
    const QFontMetricsF sans(QFont(u"MS Sans Serif"_s, 10));
    QVERIFY(sans.horizontalAdvance(u"iiii"_s) < sans.horizontalAdvance(u"WWWW"_s));
    QCOMPARE(sans.horizontalAdvance(u"iW"_s),
             QFontMetricsF(QFont(u"Arial"_s, 10)).horizontalAdvance(u"iW"_s));
}

TRELAWN_TEST(tst_slipprinter)
#include "tst_slipprinter.moc"
