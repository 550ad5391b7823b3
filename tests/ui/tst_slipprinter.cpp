#include "common/files/fileerror.h"
#include "kit/testkit.h"
#include "ui/listwindow.h"
#include "ui/mainwindow.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <QListWidget>
#include <QPdfWriter>
#include <QProcess>

using namespace Qt::StringLiterals;

// Slips on paper: the lines, the columns, the pages, and what happens without a printer.
class tst_slipprinter : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void zones();
    void columnsOnPaper();
    void pages();
    void refusedDevice();
    void noPrinter();
    void listInsteadOfPaper();
    void substitutes();

private:
    QStringList print(const Slip &slip, int &pages) const;

    QTemporaryDir m_folder;
};

void tst_slipprinter::initTestCase()
{
    // No print server answers here, so that no test ever prints.
    qputenv("CUPS_SERVER", "/nonexistent");
}

// Paints the slip and reads the words back from the paper; a form feed ends each page.
QStringList tst_slipprinter::print(const Slip &slip, int &pages) const
{
    const QString file = m_folder.filePath(u"slip.pdf"_s);
    {
        QPdfWriter device(file);
        device.setPageSize(QPageSize(QPageSize::Letter));
        pages = paintSlip(slip, device);
    }
    QProcess reader;
    reader.start(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s});
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        qFatal("pdftotext: %s", reader.readAllStandardError().constData());
    return QString::fromUtf8(reader.readAllStandardOutput()).split(u'\n');
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

void tst_slipprinter::refusedDevice()
{
    QPdfWriter device(m_folder.filePath(u"none/slip.pdf"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
    QCOMPARE(paintSlip(Slip(), device), 0);
}

void tst_slipprinter::noPrinter()
{
    try {
        SlipPrinter().print(Slip());
        QFAIL("nothing can have been printed");
    } catch (const FileError &error) {
        QCOMPARE(int(error.number()), 482);
        QCOMPARE(error.description(), u"Printer error"_s);
    }
}

// What may not be printed, or cannot be, is shown.
void tst_slipprinter::listInsteadOfPaper()
{
    for (const auto &[mayPrint, works] : {std::pair{true, true}, {true, false}, {false, true}}) {
        const bool onPaper = mayPrint && works;
        TestEvent event(false);
        if (!works)
            event.printer.setDestination({});
        Slip refunds;
        refunds.addLine(zonedLine(u"ANNA"_s, u"$5.00"_s));
        QCOMPARE(printOrList({event.session, event.navigator(), event.printer}, refunds, mayPrint),
                 onPaper);
        QCOMPARE(event.slips.size(), onPaper ? 1 : 0);
        const auto *list = event.navigator().window()->findChild<QListWidget *>(u"List1"_s);
        QCOMPARE(list == nullptr, onPaper);
        if (list)
            QCOMPARE(list->item(0)->text(), slipText(refunds).front());
    }
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
