#include "betting/bettorlist.h"
#include "common/event/eventrecords.h"
#include "kit/testkit.h"

// A record file, written in one line: 1,'AnyBettor'|2,'B'
static QByteArray file(QByteArray lines)
{
    if (!lines.isEmpty())
        lines += '|';
    return lines.replace('\'', '"').replace("|", "\r\n");
}

class tst_bettorlist : public QObject
{
    Q_OBJECT

private slots:
    void places()
    {
        const std::pair<QByteArray, QString> lists[] = {
            {"1,'AnyBettor'|3,'C'", {}}, // a gap is no obstacle
            {"1,'AnyBettor'|4,'D'", {}}, // the last place
            {"1,'AnyBettor'|5,'E'", u"Bettor number 6 is beyond the bettor limit of 5"_s},
            {"1,'AnyBettor'|5,'E'|2,'B'", u"Bettor number 3 has no place: it is taken by B"_s},
            {"1,'AnyBettor'|4,'D'|3,'C'", u"Bettor number 4 has no place: it is taken by D"_s}};
        for (const auto &[records, reason] : lists)
            QCOMPARE(noPlaceReason(BettorTable::parse(file(records), 5), 5), reason);
    }

    void savedFiles()
    {
        // The file before, the changes (-B deletes B, +C adds C), main file and twin afterwards, an
        // empty twin like the main file, and how many copies went to Saved.
        Rows<QByteArray, QString, QByteArray, QByteArray, int> rows;
        rows("behind a gap the backup stops", "1,'AnyBettor'|2,'B'|4,'D'", u"+E"_s,
             "1,'AnyBettor'|2,'B'|4,'D'|5,'E'", "1,'AnyBettor'|2,'B'|4,'D'", 0);
        rows("a deleted slot is no gap", "1,'AnyBettor'|2,'B'|3,'C'", u"-B +D"_s,
             "1,'AnyBettor'|3,'C'|4,'D'", {}, 2);
        rows("999 with a name is a bettor", "1,'AnyBettor'|999,'Z'", {}, "1,'AnyBettor'|999,'Z'",
             {}, 0);
        rows("changes join those of another program", "1,'AnyBettor'|2,'B'|3,'C'", u"-B +M"_s,
             "1,'AnyBettor'|3,'C'|4,'X'|5,'M'", {}, 2);
        rows("an empty list keeps the full backup", {}, {}, {}, "1,'old'", 0);
        rows("a damaged line stays", "1,'AnyBettor'|2,'B|3,'C'", u"-C"_s, "1,'AnyBettor'|2,'B", {},
             2);
        for (const auto &[row, before, changes, main, twin, copies] : rows) {
            TestEvent event(false);
            event.write(u"Bettors"_s, file(before));
            event.write(u"Bettorsbackup"_s, file(before.isEmpty() ? "1,'old'" : before));
            event.session.bettors = readBettors(event.session);
            const BettorTable asRead = event.session.bettors;
            for (const QString &step : changes.split(u' ', Qt::SkipEmptyParts)) {
                if (step.startsWith(u'-'))
                    markBettorDeleted(event.session.bettors, step.mid(1));
                else
                    addBettor(event.session.bettors, step.mid(1));
            }
            if (changes.contains("+M"_L1)) // another program adds somebody
                event.write(u"Bettors"_s, file(before + "|4,'X'"));
            saveBettors(event.session, asRead);
            QCOMPARE(event.read(u"Bettors"_s), file(main));
            QCOMPARE(event.read(u"Bettorsbackup"_s), file(twin.isEmpty() ? main : twin));
            QCOMPARE(event.saved().size(), copies);
        }
    }

    void betsOfOtherRaces()
    {
        TestEvent event(false);
        event.write(u"Bets Race1"_s, file("7,1,1,3"));
        event.write(u"Bets Race5"_s, file("7,1,1,10|8,1,1,50|7,2,3,2"));
        event.write(u"Bets Race12"_s, file("7,1,1,1234.5"));
        const QString elsewhere = u"Race5 $12.00, Race12 $1,234.50"_s;
        QCOMPARE(racesWithBets(event.session, 7, false), elsewhere);
        QCOMPARE(racesWithBets(event.session, 7, true), u"Race1 $3.00, "_s + elsewhere);
        QCOMPARE(racesWithBets(event.session, 9, true), QString());
        QVERIFY(!event.exists(u"Bets Race3"_s));
        event.block(u"Bets Race3"_s);
        QCOMPARE(racesWithBets(event.session, 8, true),
                 u"Race3 (Path/File access error), Race5 $50.00"_s);
    }
};

TRELAWN_TEST(tst_bettorlist)
#include "tst_bettorlist.moc"
