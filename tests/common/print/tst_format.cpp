#include "common/print/format.h"
#include "kit/testkit.h"

class tst_format : public QObject
{
    Q_OBJECT

private slots:
    void money()
    {
        Rows<double, bool, QByteArray, QString> rows;
        rows("thousands", 1234.5, true, "$#,##0.00", u"$1,234.50"_s);
        rows("negative", -1234.5, true, "$#,##0.00", u"-$1,234.50"_s);
        rows("two digits at least", 5, true, "$#,#00.00", u"$05.00"_s);
        rows("two digits, more", 1234, true, "$#,#00.00", u"$1,234.00"_s);
        rows("no separator", 1234.5, true, "$###0.00", u"$1234.50"_s);
        rows("no zero", 0.5, true, "$##.00", u"$.50"_s);
        rows("currency", 1234.5, false, "Currency", u"$1,234.50"_s);
        rows("currency, negative", -1234.5, false, "Currency", u"($1,234.50)"_s);
        rows("currency, rounds to nothing", -0.004, false, "Currency", u"$0.00"_s);
        rows("half cent up, double", 1.005, false, "$#,##0.00", u"$1.01"_s);
        rows("half cent away from zero", -2.675, false, "$#,##0.00", u"-$2.68"_s);
        rows("half a cent", 0.005, false, "$#,##0.00", u"$0.01"_s);
        rows("carry", 999.995, false, "$#,##0.00", u"$1,000.00"_s);
        rows("single noise is no cent", double(0.1F * 3), true, "$#,##0.00", u"$0.30"_s);
        rows("beyond seven digits", 16777216, true, "$#,##0.00", u"$16,777,220.00"_s);
        rows("no number", qQNaN(), false, "$#,##0.00", u"$0.00"_s);
        for (const auto &[row, value, single, pattern, text] : rows) {
            QCOMPARE(single ? formatMoney(float(value), pattern.constData())
                            : formatMoney(value, pattern.constData()),
                     text);
        }
    }

    void columns()
    {
        QCOMPARE(leftColumn(u"AB"_s, 4) + rightColumn(u"AB"_s, 4), u"AB    AB"_s);
        QCOMPARE(leftColumn(u"ABCDE"_s, 4) + rightColumn(u"ABCDE"_s, 4),
                 u"ABCDEABCDE"_s); // never cut
    }

    void typedNumber()
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
};

TRELAWN_TEST(tst_format)
#include "tst_format.moc"
