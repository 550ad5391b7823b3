#include "common/event/multibetrecords.h"
#include "kit/testkit.h"

class tst_multibetrecords : public QObject
{
    Q_OBJECT

private slots:
    void read()
    {
        Rows<QByteArray, QByteArray> rows; // a line; the same bet, as this program writes it
        rows("quarter without zero", "4,7,1,\"T\",.25,12", "4,7,1,\"T\",0.25,12\r\n");
        rows("large currency keeps its cents", "4,7,1,\"T\",123456.75,12",
             "4,7,1,\"T\",123456.75,12\r\n");
        rows("quoted numbers, blanks", "\"4\", \"7\" ,0,\"EX\", \"2\",12", "4,7,0,\"EX\",2,12\r\n");
        rows("bad: a field is missing", "4,7,0,\"EX\",2", {});
        rows("bad: a field too many", "4,7,0,\"EX\",2,12,1", {});
        rows("bad: post is not whole", "4.5,7,0,\"EX\",2,12", {});
        rows("bad: amount is no number", "4,7,0,\"EX\",x,12", {});
        rows("bad: bettor is empty", "4,7,0,\"EX\",2,", {});
        rows("bad: open quote", "4,7,0,\"EX,2,12", {});
        for (const auto &[row, line, written] : rows) {
            Multibet bet;
            QCOMPARE(parseMultibet(line.toStdString(), bet), !written.isEmpty());
            if (!written.isEmpty())
                QCOMPARE(multibetLine(bet), written);
        }
    }

    void append()
    {
        TestEvent event(false);
        event.session.settings.currentRace = 10;
        event.writeTwins(u"Multibets Race10"_s, "1,2,0,\"Q\",1,2\r\n");
        const Multibet bets[] = {{{1, 2, 3}, u"T"_s, 0.25, 7}, {{3, 2, 0}, u"DD"_s, 10, 7}};
        appendMultibets(event.session, bets);
        const QByteArray both = "1,2,0,\"Q\",1,2\r\n1,2,3,\"T\",0.25,7\r\n3,2,0,\"DD\",10,7\r\n";
        QCOMPARE(event.readTwins(u"Multibets Race10"_s), both);
        event.block(u"Multibetsbackup Race10"_s);
        QVERIFY_THROWS_EXCEPTION(FileError, appendMultibets(event.session, bets));
        QCOMPARE(event.session.settings.operationLabel, u"Append Bets"_s);
    }

    void remove()
    {
        const QByteArray a = "1,2,0,\"Q\",1,7\r\n";
        const QByteArray b = "4,5,6,\"T\",2,7\r\n";
        const QByteArray other = "1,2,0,\"Q\",1,8\r\n";
        const Multibet listed[] = {
            {{1, 2, 0}, u"Q"_s, 1, 7}, {{1, 2, 0}, u"Q"_s, 1, 7}, {{4, 5, 6}, u"T"_s, 2, 7}};
        // The file, the chosen places among the bets a, a, b that were listed, what is left.
        Rows<QByteArray, QList<int>, QByteArray> rows;
        rows("of two equal combinations one stays", a + other + a + b, {0}, other + a + b);
        rows("damaged lines stay, with the usual line end", "9,9,\"Q\",.5,7\n" + a + a + b,
             {0, 1, 2}, "9,9,\"Q\",.5,7\r\n");
        rows("a bet added meanwhile stays", a + a + b + a, {2}, a + a + a);
        rows("another bet in the place: nothing is deleted", a + b + a, {1}, a + b + a);
        rows("fewer bets than listed: nothing is deleted", a + a, {0, 2}, a + a);
        for (const auto &[row, file, places, left] : rows) {
            TestEvent event(false);
            event.writeTwins(u"Multibets Race1"_s, file);
            QList<PlacedMultibet> chosen;
            for (const int place : places)
                chosen.append({place, listed[place]});
            QCOMPARE(removeMultibets(event.session, 7, chosen), left != file);
            QCOMPARE(event.readTwins(u"Multibets Race1"_s), left);
            QCOMPARE(event.saved().size(), left != file ? 2 : 0);
        }
    }
};

TRELAWN_TEST(tst_multibetrecords)
#include "tst_multibetrecords.moc"
