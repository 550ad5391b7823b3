#include "common/horses.h"
#include "kit/testkit.h"

using namespace Qt::StringLiterals;

class tst_horses : public QObject
{
    Q_OBJECT

private slots:
    void unused_data();
    void unused();
    void coupling();
    void file();
    void damagedLine_data();
    void damagedLine();
};

void tst_horses::unused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isFree");
    QTest::newRow("empty") << QString() << true;
    QTest::newRow("blanks") << u"   "_s << true;
    QTest::newRow("zzz") << u"zzz"_s << true;
    QTest::newRow("zzz in blanks") << u" zzz "_s << true;
    QTest::newRow("capitals are a name") << u"ZZZ"_s << false;
    QTest::newRow("begins with zzz") << u"zzzz"_s << false;
}

void tst_horses::unused()
{
    QFETCH(QString, name);
    QTEST(isUnused({1, 3, u"1"_s, name}), "isFree");
}

void tst_horses::coupling()
{
    HorseTable card;
    card.post(1) = {1, 1, u"1"_s, u"A"_s};
    card.post(4) = {4, 1, u"1A"_s, u"B"_s};
    card.post(5) = {5, 0, u"2"_s, u"C"_s};
    card.post(6) = {6, 0, u"3"_s, u"D"_s};
    card.post(7) = {7, 1, u"4"_s, u"zzz"_s}; // unused: its pool number counts for nothing
    QVERIFY(card.runTogether(1, 4) && card.runTogether(4, 1));
    QVERIFY(card.runTogether(5, 5) && card.runTogether(7, 7));
    QVERIFY(!card.runTogether(5, 6));
    QVERIFY(!card.runTogether(1, 7));
    QCOMPARE(card.couplingOf(7), 0);
}

void tst_horses::file()
{
    HorseTable card;
    card.post(21) = {21, 9, u"1"_s, u"O'NEIL, \u00c9MILE"_s};
    const QByteArray bytes = horseRecords(card);
    QCOMPARE(bytes.count("\r\n"), 21);
    QVERIFY(bytes.startsWith("1,0,\"  \",\"\"\r\n2,0,\"  \",\"\"\r\n"));
    QVERIFY(bytes.endsWith("21,9,\"1 \",\"O'NEIL, \xc3\x89MILE\"\r\n"));
    QCOMPARE(parseHorses(bytes).horses, card);
}

void tst_horses::damagedLine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("damaged");
    QTest::newRow("post in quotes") << QByteArray("\"3\",2,\"7 \",\"A\"") << 0;
    QTest::newRow("number without quotes") << QByteArray("3,2,7,\"A\"") << 0;
    QTest::newRow("post 0") << QByteArray("0,2,\"7 \",\"A\"") << 1;
    QTest::newRow("post 22") << QByteArray("22,2,\"7 \",\"A\"") << 1;
    QTest::newRow("pool 100") << QByteArray("3,100,\"7 \",\"A\"") << 1;
    QTest::newRow("half a post") << QByteArray("3.5,2,\"7 \",\"A\"") << 1;
    QTest::newRow("field missing") << QByteArray("3,2,\"7 \"") << 1;
    QTest::newRow("field too many") << QByteArray("3,2,\"7 \",\"A\",5") << 1;
}

void tst_horses::damagedLine()
{
    QFETCH(QByteArray, line);
    QFETCH(int, damaged);
    const HorseFile file = parseHorses(line);
    QCOMPARE(file.damagedLines, damaged);
    QCOMPARE(file.horses.post(3), damaged ? Horse({3, 0, {}, {}}) : Horse({3, 2, u"7"_s, u"A"_s}));
}

TRELAWN_TEST_MAIN(tst_horses)
#include "tst_horses.moc"
