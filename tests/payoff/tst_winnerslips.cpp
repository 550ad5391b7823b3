#include "common/event/rounding.h"
#include "kit/testkit.h"
#include "payoff/winnerslips.h"

namespace {

CombinationAmounts six(std::array<float, 6> values)
{
    CombinationAmounts amounts;
    std::ranges::copy(values, amounts.begin());
    return amounts;
}

} // namespace

class tst_winnerslips : public QObject
{
    Q_OBJECT

private slots:
    void roundingSteps()
    {
        Rows<int, QList<double>> rows;
        rows(".01 leaves the amount as it is", 1, {7.12345678, 7.12345678});
        rows(".10, half goes up", 2, {2.3499, 2.3, 2.35, 2.4, 1.15, 1.2, 9.95, 10});
        rows(".25 at .13", 3, {7.12, 7, 7.125, 7, 7.1299, 7, 7.12996, 7.25, 7.13, 7.25});
        rows(".25 of a product in single precision", 3, {double(3.565F) * 2, 7.25});
        rows(
            ".25 at .38, .63 and .88", 3,
            {7.37, 7.25, 7.38, 7.5, 7.62, 7.5, 7.63, 7.75, 7.87, 7.75, 7.88, 8, 123456.88, 123457});
        rows(".50 at .25 and .75", 4, {7.2499, 7, 7.25, 7.5, 7.7499, 7.5, 7.75, 8});
        rows("1.00, half goes up", 5, {7.4999, 7, 7.5, 8});
        rows("below zero, toward minus infinity", 3, {0, 0, -0.3, -0.25});
        for (const auto &[row, index, amounts] : rows) {
            for (qsizetype i = 0; i < amounts.size(); i += 2) {
                const double got = rounding(amounts[i], index);
                QVERIFY2(std::abs(got - amounts[i + 1]) < 1e-9, qPrintable(QString::number(got)));
            }
        }
    }

    void payment()
    {
        using Six = std::array<float, 6>;
        Rows<Six, Six, int, QList<double>> rows;
        rows("each kind goes to its horse", {1, 2, 4, 8, 16, 32}, {1, 1, 1, 1, 1, 1}, 1,
             {7, 24, 32, 63, 63});
        rows("7.13 becomes 7.25 with .25", {2}, {3.565F}, 3, {7.13, 0, 0, 7.13, 7.25});
        rows("the total is rounded, not its parts", {1, 1, 1}, {0.4F, 0.4F, 0.4F}, 5,
             {1.2, 0, 0, 1.2, 1});
        rows("parts are brought to four decimals before they are summed", {1, 0, 0, 1, 0, 1},
             {0.33334F, 0, 0, 0.33334F, 0, 0.33334F}, 1, {0.3333, 0.3333, 0.3333, 0.9999, 0.9999});
        for (const auto &[row, stakes, payoffs, index, expected] : rows) {
            const Payment p = paymentFor(six(stakes), six(payoffs), index);
            const auto [win, place, show] = p.horseTotals;
            const QList<double> got{win, place, show, p.total, p.rounded};
            for (int i = 0; i < 5; ++i)
                QVERIFY2(std::abs(got[i] - expected[i]) < 1e-9,
                         qPrintable(QString::number(got[i])));
        }
    }

    void slip()
    {
        const Payment payment =
            paymentFor(six({2, 4, 6, 1000, 0, 3}), six({3.2F, 2.5F, 2, 1.5F, 1.6F, 2.5F}), 3);
        // A long name keeps its distance, a horse without a number its place.
        const QString name(50, u'N');
        const Slip slip =
            winnerSlips(winnerSlipLines(name, u"Derby Race3"_s, {u"1A"_s, u"7"_s, {}}, payment));
        const QStringList expected{
            u"Bettor Name: "_s + name + u"  Derby Race3"_s,
            u"                        Bet       Paid      Bet       Paid      Bet       Paid"_s,
            u"1A                      $2.00     $6.40     $4.00     $10.00    $6.00     $12.00"_s,
            u"7                                           $1,000.00 $1,500.00 $0.00     $0.00"_s,
            u"                                                                $3.00     $7.50"_s,
            u""_s};
        QCOMPARE(slipText(slip), expected);
    }
};

TRELAWN_TEST(tst_winnerslips)
#include "tst_winnerslips.moc"
