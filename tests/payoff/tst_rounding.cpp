#include "kit/testkit.h"
#include "payoff/rounding.h"

using namespace Qt::StringLiterals;

class tst_rounding : public QObject
{
    Q_OBJECT

private slots:
    void step_data();
    void step();
};

void tst_rounding::step_data()
{
    QTest::addColumn<double>("amount");
    QTest::addColumn<int>("index");
    QTest::addColumn<double>("rounded");
    const auto row = [](const char *rule, double amount, int index, double rounded) {
        QTest::newRow(rule) << amount << index << rounded;
    };
    row(".01 unchanged", 7.1299, 1, 7.1299);
    row(".01 four decimals", 7.12345678, 1, 7.1235);
    row(".10 down", 2.3499, 2, 2.3);
    row(".10 half goes up", 2.35, 2, 2.4);
    row(".10 binary just below half", 1.15, 2, 1.2);
    row(".10 to the next dollar", 9.95, 2, 10);
    row(".25 below .13", 7.12, 3, 7);
    row(".25 not the halfway .125", 7.125, 3, 7);
    row(".25 at .13", 7.13, 3, 7.25);
    row(".25 just below .13", 7.1299, 3, 7);
    row(".25 product in single precision", double(3.565F) * 2, 3, 7.25);
    row(".25 four decimals first", 7.12996, 3, 7.25);
    row(".25 below .38", 7.37, 3, 7.25);
    row(".25 at .38", 7.38, 3, 7.5);
    row(".25 below .63", 7.62, 3, 7.5);
    row(".25 at .63", 7.63, 3, 7.75);
    row(".25 below .88", 7.87, 3, 7.75);
    row(".25 at .88", 7.88, 3, 8);
    row(".50 below .25", 7.2499, 4, 7);
    row(".50 at .25", 7.25, 4, 7.5);
    row(".50 below .75", 7.7499, 4, 7.5);
    row(".50 at .75", 7.75, 4, 8);
    row("1.00 below half", 7.4999, 5, 7);
    row("1.00 half goes up", 7.5, 5, 8);
    row("nothing", 0, 3, 0);
    row("large", 123456.88, 3, 123457);
    row("below zero, toward minus infinity", -0.3, 3, -0.25);
    row("below zero, whole", -1.5, 5, -1);
}

void tst_rounding::step()
{
    QFETCH(double, amount);
    QFETCH(int, index);
    QFETCH(double, rounded);
    const double got = rounding(amount, index);
    QVERIFY2(std::abs(got - rounded) < 1e-9, qPrintable(QString::number(got)));
}

TRELAWN_TEST_MAIN(tst_rounding)
#include "tst_rounding.moc"
