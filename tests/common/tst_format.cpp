#include "common/format.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_format : public QObject
{
    Q_OBJECT

private slots:
    void money_data();
    void money();
    void columns();
    void typedNumber_data();
    void typedNumber();
};

void tst_format::money_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("single");
    QTest::addColumn<QByteArray>("pattern");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, double value, bool single, const char *pattern,
                        const char *text) {
        QTest::newRow(name) << value << single << QByteArray(pattern) << QString::fromLatin1(text);
    };
    row("thousands", 1234.5, true, "$#,##0.00", "$1,234.50");
    row("millions", 1234567.0, true, "$#,##0.00", "$1,234,567.00");
    row("below a dollar", 0.5, true, "$#,##0.00", "$0.50");
    row("negative", -1234.5, true, "$#,##0.00", "-$1,234.50");
    row("two digits at least", 5, true, "$#,#00.00", "$05.00");
    row("two digits, zero", 0, true, "$#,#00.00", "$00.00");
    row("two digits, more", 1234, true, "$#,#00.00", "$1,234.00");
    row("no separator", 1234.5, true, "$###0.00", "$1234.50");
    row("no zero", 0.5, true, "$##.00", "$.50");
    row("currency", 1234.5, false, "Currency", "$1,234.50");
    row("currency, negative", -1234.5, false, "Currency", "($1,234.50)");
    row("currency, rounds to nothing", -0.004, false, "Currency", "$0.00");
    row("half cent up, single", 1.005, true, "$#,##0.00", "$1.01");
    row("half cent up, double", 1.005, false, "$#,##0.00", "$1.01");
    row("half cent away from zero", -2.675, false, "$#,##0.00", "-$2.68");
    row("below half a cent", 2.6749999, false, "$#,##0.00", "$2.67");
    row("half a cent", 0.005, false, "$#,##0.00", "$0.01");
    row("far below a cent", 0.0004, false, "$#,##0.00", "$0.00");
    row("carry", 999.995, false, "$#,##0.00", "$1,000.00");
    row("single noise is no cent", 0.1F * 3, true, "$#,##0.00", "$0.30");
    row("beyond seven digits", 16777216, true, "$#,##0.00", "$16,777,220.00");
    row("no number", qQNaN(), false, "$#,##0.00", "$0.00");
}

void tst_format::money()
{
    QFETCH(double, value);
    QFETCH(bool, single);
    QFETCH(QByteArray, pattern);
    QTEST(single ? formatMoney(float(value), pattern.constData())
                 : formatMoney(value, pattern.constData()),
          "text");
}

void tst_format::columns()
{
    QCOMPARE(leftColumn(u"AB"_s, 4), u"AB  "_s);
    QCOMPARE(rightColumn(u"AB"_s, 4), u"  AB"_s);
    QCOMPARE(leftColumn(u"ABCDE"_s, 4), u"ABCDE"_s); // pads, never cuts
    QCOMPARE(rightColumn(u"ABCDE"_s, 4), u"ABCDE"_s);
}

void tst_format::typedNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("atStart"); // numericValue
    QTest::addColumn<bool>("isNumber");
    QTest::addColumn<double>("amount");
    QTest::newRow("whole") << u"12"_s << 12.0 << true << 12.0;
    QTest::newRow("leading point") << u".5"_s << 0.5 << true << 0.5;
    QTest::newRow("trailing point") << u"5."_s << 5.0 << true << 5.0;
    QTest::newRow("blanks round it") << u" 7 "_s << 7.0 << true << 7.0;
    QTest::newRow("negative") << u"-2.5"_s << -2.5 << true << -2.5;
    QTest::newRow("text behind") << u"12 %"_s << 12.0 << false << 0.0;
    QTest::newRow("dollars") << u"$1,234.50"_s << 0.0 << true << 1234.5;
    QTest::newRow("negative dollars") << u"-$3"_s << 0.0 << true << -3.0;
    QTest::newRow("misplaced separator") << u"1,23"_s << 1.0 << false << 0.0;
    QTest::newRow("two signs") << u"+-5"_s << 0.0 << false << 0.0;
    QTest::newRow("a point alone") << u"."_s << 0.0 << false << 0.0;
    QTest::newRow("a dollar sign alone") << u"$"_s << 0.0 << false << 0.0;
    QTest::newRow("words") << u"five"_s << 0.0 << false << 0.0;
    QTest::newRow("empty") << QString() << 0.0 << false << 0.0;
}

void tst_format::typedNumber()
{
    QFETCH(QString, text);
    QTEST(numericValue(text), "atStart");
    QTEST(isNumeric(text), "isNumber");
    if (isNumeric(text))
        QTEST(numericAmount(text), "amount");
}

TRELAWN_TEST_MAIN(tst_format)
#include "tst_format.moc"
