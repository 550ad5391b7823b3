#include "common/betrecords.h"
#include "common/recordlines.h"
#include "kit/testkit.h"

class tst_records : public QObject
{
    Q_OBJECT

private slots:
    void number_data();
    void number();
};

void tst_records::number_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("whole") << 5.0F << QByteArray("5");
    QTest::newRow("leading zero") << 0.25F << QByteArray("0.25");
    QTest::newRow("seven digits") << 1234.567F << QByteArray("1234.567");
    QTest::newRow("no exponent, large") << 20000000.0F << QByteArray("20000000");
    QTest::newRow("no exponent, small") << 0.00001F << QByteArray("0.00001");
    QTest::newRow("negative") << -2.5F << QByteArray("-2.5");
}

void tst_records::number()
{
    QFETCH(float, value);
    QTEST(QByteArray::fromStdString(recordNumber(value)), "text");
}

TRELAWN_TEST_MAIN(tst_records)
#include "tst_records.moc"
