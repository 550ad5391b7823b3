#include "common/print/format.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_format : public QObject
{
    Q_OBJECT

private slots:
    void money_data();
    void money();
    void columns();
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
    row("negative", -1234.5, true, "$#,##0.00", "-$1,234.50");
    row("two digits at least", 5, true, "$#,#00.00", "$05.00");
    row("two digits, more", 1234, true, "$#,#00.00", "$1,234.00");
    row("no separator", 1234.5, true, "$###0.00", "$1234.50");
    row("no zero", 0.5, true, "$##.00", "$.50");
    row("currency", 1234.5, false, "Currency", "$1,234.50");
    row("currency, negative", -1234.5, false, "Currency", "($1,234.50)");
    row("currency, rounds to nothing", -0.004, false, "Currency", "$0.00");
    row("half cent up, double", 1.005, false, "$#,##0.00", "$1.01");
    row("half cent away from zero", -2.675, false, "$#,##0.00", "-$2.68");
    row("half a cent", 0.005, false, "$#,##0.00", "$0.01");
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
    QCOMPARE(leftColumn(u"AB"_s, 4) + rightColumn(u"AB"_s, 4), u"AB    AB"_s);
    QCOMPARE(leftColumn(u"ABCDE"_s, 4) + rightColumn(u"ABCDE"_s, 4), u"ABCDEABCDE"_s); // never cut
}

void tst_format::typedNumber()
{
    // Text, the number at its start, and the amount if the whole text is a number.
    const std::tuple<QString, double, std::optional<double>> cases[] = {
        {u".5"_s, 0.5, 0.5},         {u"-2.5"_s, -2.5, -2.5}, {u"12 %"_s, 12, {}},
        {u"$1,234.50"_s, 0, 1234.5}, {u"-$3"_s, 0, -3},       {u"1,23"_s, 1, {}},
        {u"+-5"_s, 0, {}},           {u"."_s, 0, {}},         {QString(), 0, {}}};
    for (const auto &[text, atStart, amount] : cases) {
        QCOMPARE(numericValue(text), atStart);
        QCOMPARE(isNumeric(text), amount.has_value());
        if (amount)
            QCOMPARE(numericAmount(text), *amount);
    }
}

TRELAWN_TEST(tst_format)
#include "tst_format.moc"
