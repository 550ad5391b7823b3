#include "kit/testkit.h"

class tst_horses : public QObject
{
    Q_OBJECT

private slots:
    void unused()
    {
        for (const QString &name : {QString(), u"zzz"_s, u" zzz "_s})
            QVERIFY2(isUnused({1, 3, u"1"_s, name}), qPrintable(name));
        QVERIFY(!isUnused({1, 3, u"1"_s, u"ZZZ"_s})); // capitals are a name
    }

    void coupling()
    {
        const HorseTable card = cardOf({{1, 1, u"1"_s, u"A"_s},
                                        {4, 1, u"1A"_s, u"B"_s},
                                        {5, 0, u"2"_s, u"C"_s},
                                        {6, 0, u"3"_s, u"D"_s},
                                        {7, 1, u"4"_s, u"zzz"_s}}); // unused: not in the pool
        QVERIFY(card.runTogether(1, 4) && card.runTogether(4, 1));
        QVERIFY(card.runTogether(5, 5) && card.runTogether(7, 7));
        QVERIFY(!card.runTogether(5, 6));
        QVERIFY(!card.runTogether(1, 7));
        QCOMPARE(card.couplingOf(7), 0);
    }

    void file()
    {
        const HorseTable card = cardOf({{21, 9, u"1"_s, u"O'NEIL, \u00c9MILE"_s}});
        const QByteArray bytes = horseRecords(card);
        QCOMPARE(bytes.count("\r\n"), 21);
        QVERIFY(bytes.startsWith("1,0,\"  \",\"\"\r\n2,0,\"  \",\"\"\r\n"));
        QVERIFY(bytes.endsWith("21,9,\"1 \",\"O'NEIL, \xc3\x89MILE\"\r\n"));
        QCOMPARE(parseHorses(bytes).horses, card);
    }

    void damagedLine()
    {
        for (const char *line :
             {"22,2,\"7 \",\"A\"", "3,100,\"7 \",\"A\"", "3.5,2,\"7 \",\"A\"", "3,2,\"7 \""}) {
            const HorseFile file = parseHorses(line);
            QCOMPARE(file.damagedLines, 1);
            QCOMPARE(file.horses.post(3), Horse({3, 0, {}, {}}));
        }
        const HorseFile file = parseHorses("\"3\",2,7,\"A\""); // quotes are the writer's choice
        QCOMPARE(file.damagedLines, 0);
        QCOMPARE(file.horses.post(3), Horse({3, 2, u"7"_s, u"A"_s}));
    }

    // A card has 21 records: a torn one is damaged, and so is a second record of a post.
    void tornFile()
    {
        const QByteArray whole = horseRecords({});
        const std::pair<QByteArray, QString> files[] = {
            {whole, {}},
            {{}, u"The horse file has only 0 of 21 posts."_s},
            {whole.first(whole.lastIndexOf("21")), u"The horse file has only 20 of 21 posts."_s},
            {whole.chopped(5), u"The horse file has only 20 of 21 posts, 1 damaged line."_s},
            {whole + "3,2,\"7 \",\"A\"\r\n", u"The horse file has 1 damaged line."_s}};
        for (const auto &[bytes, damage] : files) {
            QCOMPARE(parseHorses(bytes).damage(), damage);
            QCOMPARE(parseHorses(bytes).horses, HorseTable());
        }
    }

    void changes()
    {
        const HorseTable before =
            cardOf({{1, 0, u"1"_s, u"A"_s}, {2, 0, u"2"_s, u"B"_s}, {4, 0, u"4"_s, u"D"_s}});
        const HorseTable after = cardOf({{1, 3, u"1"_s, u"A"_s},
                                         {2, 0, u"2"_s, u"zzz"_s},
                                         {3, 0, u"3"_s, u"C"_s},
                                         {4, 0, u"4A"_s, u"D"_s},
                                         {5, 0, {}, u"zzz"_s}}); // nobody ran there before
        QCOMPARE(cardChanges(before, after),
                 (QStringList{u"Post 1: A has pool number 3"_s, u"Post 2: B runs no longer"_s,
                              u"Post 3: 3 C is new"_s, u"Post 4: 4 D is now 4A D"_s}));
        QVERIFY(cardChanges(after, after).isEmpty());
    }
};

TRELAWN_TEST(tst_horses)
#include "tst_horses.moc"
