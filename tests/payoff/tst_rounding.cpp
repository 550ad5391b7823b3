#include "kit/testkit.h"
#include "payoff/rounding.h"

class tst_rounding : public QObject
{
    Q_OBJECT

private slots:
    void step()
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
};

TRELAWN_TEST(tst_rounding)
#include "tst_rounding.moc"
