#include "kit/testkit.h"
#include "racecard/cardrows.h"
#include "racecard/scratch.h"

class tst_cardlogic : public QObject
{
    Q_OBJECT

private slots:
    void poolText()
    {
        CardRows rows;
        for (const QString &text : {QString(), u"10"_s, u"1 "_s, u"/"_s, u"\u0663"_s}) {
            rows[0].pool = text;
            QCOMPARE(postsWithBadPool(rows), QList<int>{1});
        }
        rows[0].pool = u"9"_s;
        QCOMPARE(postsWithBadPool(rows), QList<int>());
    }

    void rowsBecomeWhatARecordCanHold()
    {
        CardRows rows;
        rows[20] = {u" 1A "_s, u"THE \"KID\""_s, u"9"_s};
        rows[4] = {{}, {}, {}}; // as CLEAR HORSES leaves a row
        const HorseTable horses = horsesOf(rows);
        QCOMPARE(horses.post(21), (Horse{21, 9, u"1A"_s, u"THE 'KID'"_s}));
        QCOMPARE(horses.post(5), (Horse{5, 0, {}, {}}));
    }

    void scratchAnswer()
    {
        const std::tuple<QString, int, bool> answers[] = {
            {QString(), 0, true}, {u"SHAM"_s, 0, true}, {u"1"_s, 1, true},    {u"21"_s, 21, true},
            {u"22"_s, 0, false},  {u"-1"_s, 0, false},  {u"0.5"_s, 0, false}, {u"3.5"_s, 0, false}};
        for (const auto &[answer, post, valid] : answers) {
            QCOMPARE(::scratchAnswer(answer).post, post);
            QCOMPARE(::scratchAnswer(answer).valid, valid);
        }
    }

    void multibets()
    {
        const QByteArray none;
        Rows<QByteArray, QByteArray, QByteArray, int> rows;
        rows("exacta, either place", none, none, "7,1,0,\"EX\",2,2\r\n1,7,0,\"EX\",2,2\r\n", 2);
        rows("trifecta, third place", none, none, "1,2,7,\"T\",2,2\r\n", 1);
        rows("named twice counts once", none, none, "7,7,7,\"T\",2,2\r\n", 1);
        rows("first leg of a double", none, none, "7,1,0,\"DD\",2,2\r\n1,7,0,\"DD\",2,2\r\n", 1);
        rows("second leg of the race before", none, "7,1,0,\"DD\",2,2\r\n1,7,0,\"DD\",2,2\r\n",
             none, 1);
        rows("pick three legs", "1,2,7,\"P3\",2,2\r\n1,7,2,\"P3\",2,2\r\n",
             "1,7,2,\"P3\",2,2\r\n7,1,2,\"P3\",2,2\r\n", "7,1,2,\"P3\",2,2\r\n", 3);
        rows("another race's exacta", "7,1,7,\"EX\",2,2\r\n", "7,7,7,\"T\",2,2\r\n", none, 0);
        rows("damaged lines", none, none,
             "7,1,0,\"EX\",2\r\n7,1,0,\"EX,2,2\r\n7,1,0,\"EX\",2,2\r\n", 1);
        for (const auto &[row, race1, race2, race3, bets] : rows) {
            TestEvent event;
            event.session.settings.currentRace = 3;
            event.write(u"Multibets Race1"_s, race1);
            event.write(u"Multibets Race2"_s, race2);
            event.write(u"Multibets Race3"_s, race3);
            const MultibetCount count = multibetsOn(event.session, 7);
            QCOMPARE(count.bets, bets);
            QCOMPARE(count.stakes, 2.0 * count.bets);
        }
    }
};

TRELAWN_TEST(tst_cardlogic)
#include "tst_cardlogic.moc"
