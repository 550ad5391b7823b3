#include "kit/testkit.h"

class tst_bettors : public QObject
{
    Q_OBJECT

private slots:
    void lookup()
    {
        const BettorTable table = BettorTable::parse(
            "1,\"AnyBettor\"\r\n5,\"ANNA\"\r\n3,\"BERT\"\r\n999,\"REAL\"\r\n", 10);
        QCOMPARE(table.slotCount(), 10);
        QCOMPARE(table.slotOf(u"BERT"_s), 3);
        QCOMPARE(table.slotOf(u"bert"_s), 0); // to the letter
        QCOMPARE(table.slotOf({}), 0);        // an empty slot is nobody
        QCOMPARE(table.numberOf(u"ANNA"_s), 5);
        QCOMPARE(table.numberOf(u"NOBODY"_s), 0);
        QCOMPARE(table.nameOf(3), u"BERT"_s);
        QVERIFY(table.nameOf(4).isNull());
        QCOMPARE(table.nameOf(999), u"REAL"_s); // 999 with a name is a bettor
        QCOMPARE(table.highestNumber(), 999);
        QCOMPARE(table.nextNumber, 1000); // after the last record read
        QCOMPARE(BettorTable::parse({}, 10).nextNumber, 1);
        QCOMPARE(BettorTable::parse("9,\"A\"\n2,\"B\"\n", 10).nextNumber, 3);
    }

    // The main file passes over empty slots, the backup stops at the first one.
    void gapsAndDeletions()
    {
        BettorTable table =
            BettorTable::parse("1,\"AnyBettor\"\r\n2,\"ANNA\"\r\n3,\"BERT\"\r\n", 6);
        table.setSlot(2, {999, {}});
        table.setSlot(5, {5, u"CORA"_s});
        QCOMPARE(table.records(), "1,\"AnyBettor\"\r\n3,\"BERT\"\r\n5,\"CORA\"\r\n");
        QCOMPARE(table.backupRecords(), "1,\"AnyBettor\"\r\n3,\"BERT\"\r\n");
        QCOMPARE(table.slotOf({}), 0);
        QVERIFY(table.nameOf(999).isNull());
        QCOMPARE(newBettorRecords(), "1,\"AnyBettor\"\r\n");
    }

    void damagedLinesStay()
    {
        const QByteArray bytes =
            "1,\"AnyBettor\"\r\n2,\"ANNA\r\nx,\"BERT\"\r\n0,\"ZERO\"\r\n4,\"DORA\"\r\n";
        const BettorTable table = BettorTable::parse(bytes, 10);
        QCOMPARE(table.sortedNames(), (QStringList{u"AnyBettor"_s, u"DORA"_s}));
        QCOMPARE(table.damagedLines(), (QList<QByteArray>{"2,\"ANNA", "x,\"BERT\"", "0,\"ZERO\""}));
        for (const QByteArray &line : table.damagedLines()) {
            QVERIFY(table.records().split('\n').contains(QByteArray(line + '\r')));
            QVERIFY(table.backupRecords().split('\n').contains(QByteArray(line + '\r')));
        }
    }

    void order()
    {
        const BettorTable table =
            BettorTable::parse("1,\"AnyBettor\"\n2,\"ZOE\"\n3,\"\xc3\x89MILE\"\n"
                               "4,\"EMMA\"\n5,\"AZZO\"\n6,\"EMMA\"\n",
                               9);
        QCOMPARE(table.sortedNames(), (QStringList{u"AZZO"_s, u"AnyBettor"_s, u"\u00c9MILE"_s,
                                                   u"EMMA"_s, u"EMMA"_s, u"ZOE"_s}));
        QCOMPARE(table.sortedBettors().at(3).number, 4); // equal names in slot order
        QCOMPARE(searchKey(u"\u00c9mile"_s), u"EMILE"_s);
    }
};

TRELAWN_TEST(tst_bettors)
#include "tst_bettors.moc"
