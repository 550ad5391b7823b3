#include "kit/testkit.h"
#include "repair/recordlist.h"
#include "repair/savedcopies.h"

namespace {

// An event with two bettors, horses on posts 1 and 2 of race 1 and on post 9 of race 2.
struct Event : TestEvent
{
    Event()
    {
        write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n");
        write(u"Horses Race1"_s,
              "1,1,\"1 \",\"Rex\"\r\n2,1,\"1A\",\"Ada\"\r\n5,0,\"5 \",\"zzz\"\r\n");
        write(u"Horses Race2"_s, "9,0,\"9 \",\"Next\"\r\n");
    }
    RecordList list(Listing listing) { return listRecords(session, listing, 1); }
};

QString joined(const RecordList &list, const RecordRow &row)
{
    return list.cells(row).join(u'|');
}

} // namespace

class tst_recordlist : public QObject
{
    Q_OBJECT

private slots:
    void checksBets()
    {
        const QString good = u"1|2|SMITH|1A|Ada| Win  |"_s;
        const QString badType = u" Bad Bet Type - Not 1,2, or 3"_s;
        const std::pair<QByteArray, QString> cases[] = {
            {"2,2,1,.01", good + u"0.01"_s},
            {"2,2,1,1000", good + u"1000"_s},
            {"2,2,1,0.005", good + u" Bad Bet Amount"_s},
            {"2,2,1,1000.01", good + u" Bad Bet Amount"_s},
            {"7,1,2,5", u"1|7|7 Bad Bettor Number|1|Rex| Place|5"_s},
            {"0,1,3,5", u"1|0| Null Bettor Number|1|Rex| Show |5"_s},
            {"2,22,1,5", u"1|2|SMITH|22| Bad Horse Number| Win  |5"_s},
            {"2,5,1,5", u"1|2|SMITH|5| Bad Horse Number| Win  |5"_s}, // nobody runs there
            {"2,1.5,1,5", u"1|2|SMITH|1.5| Bad Horse Number| Win  |5"_s},
            {"2,1,4,5", u"1|2|SMITH|1|Rex|"_s + badType + u"|5"_s},
            {"2,2", u"1|2|SMITH|1A|Ada|"_s + badType + u"| Bad Bet Amount"_s}, // torn
            {"2,2,1,5,1", good + u" Bad Bet Amount"_s},                        // no reader takes it
            {"\"2,2,1,5",
             u"1|| Null Bettor Number|| Bad Horse Number|"_s + badType + u"| Bad Bet Amount"_s},
            {"1e300,-1e300,99999999999,1e-40",
             u"1|inf|inf Bad Bettor Number|-1e300| Bad Horse Number|"_s + badType
                 + u"| Bad Bet Amount"_s}};
        Event event;
        for (const auto &[line, row] : cases) {
            event.write(u"Bets Race1"_s, line + "\r\n");
            const RecordList list = event.list(Listing::Bets);
            QCOMPARE(joined(list, list.rows[0]), row);
            const bool bad = row.contains(" Bad "_L1) || row.contains(" Null "_L1);
            QCOMPARE(list.damagedRows(), bad ? 1 : 0);
            QCOMPARE(joined(list, list.rows.last()), u"Total Bets|1 Bets"_s);
        }
    }

    void checksMultibets()
    {
        const std::pair<QByteArray, QString> cases[] = {
            {"1,2,0,\"EX\",2,2", u"1|2|SMITH| Exacta|1,1A|2"_s},
            // Further legs run in the next races; an exacta has none.
            {"1,9,0,\"DD\",2,2", u"1|2|SMITH| Daily Double|1,9|2"_s},
            {"1,9,0,\"EX\",2,2", u"1|2|SMITH| Exacta| Bad Horse Number|2"_s},
            {"1,2,0,\"T\",2,2", u"1|2|SMITH| Trifecta| Bad Horse Number|2"_s},
            {"1,2,x,\"EX\",2,2", u"1|2|SMITH| Exacta| Bad Horse Number|2"_s},
            {"1,2,0,\"EX\",2,2,2", u"1|2|SMITH| Exacta|1,1A| Bad Bet Amount"_s}, // not read
            {"1,2,0,\"X\",0,9", u"1|9|9 Bad Bettor Number| Bad Bet Type|1,2,0| Bad Bet Amount"_s}};
        Event event;
        for (const auto &[line, row] : cases) {
            event.write(u"Multibets Race1"_s, line + "\r\n");
            const RecordList list = event.list(Listing::Multibets);
            QCOMPARE(joined(list, list.rows[0]), row);
        }
        // Without the horses of a later race only what runs there is shown by its post.
        event.remove({u"Horses Race2"_s});
        event.write(u"Multibets Race1"_s, cases[0].first + "\r\n" + cases[1].first + "\r\n");
        const RecordList list = event.list(Listing::Multibets);
        QCOMPARE(list.missingHorses, QStringList{u"Horses Race2"_s});
        QCOMPARE(joined(list, list.rows[0]), cases[0].second);
        QCOMPARE(joined(list, list.rows[1]), u"2|2|SMITH| Daily Double|1,post 9|2"_s);
    }

    // The lists of bettors and horses mark what their readers pass over, and nothing else.
    void checksWhatReadersTake()
    {
        Rows<Listing, QByteArray, QStringList, QString> files;
        files("bettors", Listing::Bettors,
              "1,\"AnyBettor\"\r\n2,\"SMITH\"\r\n2,\"JONES\"\r\n1500000000,\"RICH\"\r\n3\r\n"
              "999,\"\"\r\n0,\"NIL\"\r\n4,\"A\",1\r\n",
              {u"1|1|AnyBettor"_s, u"2|2|SMITH"_s, u"3|2 Bad Bettor Number|JONES"_s,
               u"4|1500000000|RICH"_s, u"5|3 Bad Bettor Number|"_s, u"6|999 Bad Bettor Number|"_s,
               u"7| Null Bettor Number|NIL"_s, u"8|4 Bad Bettor Number|A"_s},
              {});
        files("horses", Listing::Horses,
              "1,1,\"1 \",\"Rex\"\r\n1,0,\"2 \",\"Ada\"\r\n2,x,\"3 \",\"Max\"\r\n3,0,\"4 \"\r\n",
              {u"1|1|Rex|1"_s, u"2| Bad Horse Number|Ada|2"_s, u"3| Bad Horse Number|Max|3"_s,
               u"4| Bad Horse Number||4"_s},
              u"The horse file has only 1 of 21 posts, 3 damaged lines."_s);
        files("no horses", Listing::Horses, {}, {}, u"The horse file has only 0 of 21 posts."_s);
        Event event;
        for (const auto &[row, listing, bytes, rows, damage] : files) {
            event.write(listing == Listing::Bettors ? u"Bettors"_s : u"Horses Race1"_s, bytes);
            const RecordList list = event.list(listing);
            QCOMPARE(list.damage, damage);
            QCOMPARE(list.rows.size(), rows.size());
            for (qsizetype i = 0; i < rows.size(); ++i) {
                QCOMPARE(joined(list, list.rows[i]), rows[i]);
                QCOMPARE(list.rows[i].isDamaged, rows[i].contains(" Number"_L1));
            }
        }
    }

    void headings()
    {
        const QString bet = u"Rec Nbr|Btr Nbr|Bettor|Horse Nbr|Horse Name|Position|Amount Bet"_s;
        const std::tuple<Listing, QString, QString> lists[] = {
            {Listing::Bets, u" Race 1  Bets"_s, bet},
            {Listing::BackupBets, u" Race 1  Backup Bets"_s, bet},
            {Listing::Multibets, u" Race 1  Multi Bets"_s,
             u"Rec Nbr|Btr Nbr|Bettor|Bet Type|Horse Nbrs|Amount Bet"_s},
            {Listing::Bettors, u"Bettors"_s, u"Rec Number|Bettor Number|Bettor Name"_s},
            {Listing::Horses, u" Race 1  Horses"_s,
             u"Rec Number|Post Number|Horse Name|Horse Number"_s},
            {Listing::BackupHorses, u" Race 1  Backup Horses"_s,
             u"Rec Number|Horse Number|Horse Name"_s}};
        Event event;
        for (const auto &[listing, heading, columns] : lists) {
            QCOMPARE(event.list(listing).heading, heading);
            QCOMPARE(event.list(listing).columns.join(u'|'), columns);
        }
        event.remove({u"Betsbackup Race1"_s});
        QCOMPARE(event.list(Listing::BackupBets).missingFile, u"Betsbackup Race1"_s);
    }

    // The record goes, by its number and only if it still stands there; damaged neighbours stay.
    void removesExactlyOneRecord()
    {
        Event event;
        const QByteArray file = "2,1,1,5\r\njunk \"line\r\n2,1,1,5\r\n2,2,1,1\r\n";
        event.writeTwins(u"Bets Race1"_s, file);
        const RecordList list = event.list(Listing::Bets);
        QVERIFY(removeRecord(event.session, list, list.rows[2]));
        QCOMPARE(event.readTwins(u"Bets Race1"_s), "2,1,1,5\r\njunk \"line\r\n2,2,1,1\r\n");
        QVERIFY(!removeRecord(event.session, list, list.rows[2]));
        QVERIFY(removeRecord(event.session, list, list.rows[1]));
        QCOMPARE(event.read(u"Bets Race1"_s), "2,1,1,5\r\n2,2,1,1\r\n");
        QCOMPARE(event.savedCopies(u"Bets Race1"_s).size(), 2);
    }

    void copyNames()
    {
        const QString time = u" 2026-05-02 20.15.00.123"_s;
        const std::pair<QString, QString> names[] = {
            {u"Multibetsbackup Race12"_s + time, u"Multibets Race12"_s},
            {u"Bettors"_s + time + u"-2"_s, u"Bettors"_s}, // the second of a moment
            {u"Bets Race13"_s + time, {}},
            {u"Bets"_s + time, {}},
            {u"notes.txt"_s, {}}};
        for (const auto &[name, origin] : names) {
            const auto found = originOf(name);
            QCOMPARE(found ? found->name : QString(), origin);
        }
    }
};

TRELAWN_TEST(tst_recordlist)
#include "tst_recordlist.moc"
