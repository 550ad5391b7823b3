#include "common/event/cashjournal.h"
#include "common/print/till.h"
#include "kit/testkit.h"
#include "reports/tillreport.h"

namespace {

CashEntry entry(CashKind kind, int race, int bettor, double dollars, double owed = 0)
{
    CashEntry made{kind, race, bettor, u"NAME"_s, exactMoney(dollars)};
    made.owed = exactMoney(owed);
    return made;
}

CashEntry settlement(int winner)
{
    CashEntry made{CashKind::Settled, 1};
    made.settled = RaceSettled{};
    made.settled->payoffs.finishers = {winner, 20, 21};
    made.settled->payoffs.perDollar[Combination::WinWin] = 1.8F;
    made.settled->housePercent = 10;
    made.settled->roundingIndex = 5;
    return made;
}

} // namespace

// The tills of an event, from its journals, and what is said where they and the files differ.
class tst_till : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_event = std::make_unique<TestEvent>();
        m_event->session.files.computer = u"DESK1"_s;
        m_event->write(u"Horses Race1"_s, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n");
        m_event->write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n3,\"BOB\"\r\n");
    }

    void figures()
    {
        using enum CashKind;
        write({entry(Float, 0, 0, 50), entry(Bets, 1, 2, 30.25), entry(Multibets, 1, 3, 4)});
        write({entry(Refund, 1, 2, 5.25), entry(Added, 1, 3, 99)});
        write({entry(Paid, 1, 2, 12, 11.6), entry(Paid, 1, 3, 7, 7.4)});
        CashEntry back = entry(TakenBack, 1, 2, 12);
        back.detail = cashKindWord(Paid);
        back.takesBack = 1;
        write({back, entry(MultibetPaid, 1, 3, 3.5, 3.5), entry(Float, 0, 0, 60)});
        // The name is paid, then its slips: the money goes out once.
        write({entry(Paid, 2, 1, 20, 20), entry(Slip, 2, 1, 8, 8.1)});
        write({entry(Counted, 0, 0, 71)});
        m_event->session.files.computer = u"DESK2"_s;
        write({entry(Bets, 1, 2, 10), entry(Paid, 2, 1, 9, 9), entry(Paid, 3, 1, 2, 2)});

        const std::vector<Till> tills = tillsOf(readCashJournal(m_event->session));
        QCOMPARE(tills.size(), 2U);
        QCOMPARE(dollarsOf(tills[0].paid), 15.0);
        QCOMPARE(dollarsOf(tills[0].expected()), 60 + 30.25 + 4 - 5.25 - 15 - 3.5);
        QCOMPARE(dollarsOf(*tills[0].difference()), 0.5);
        QCOMPARE(dollarsOf(tills[0].rounding), 0.5);
        QCOMPARE(dollarsOf(tills[1].expected()), 8.0);
        QVERIFY(!tills[1].difference());
        QCOMPARE(dollarsOf(allTills(tills).expected()), 78.5);
    }

    void typed()
    {
        Session &session = m_event->session;
        QCOMPARE(enterTill(session, {u"fifty"_s, {}}, false),
                 u"The float is no sum of money: fifty"_s);
        QVERIFY(!enterTill(session, {u"$50"_s, {}}, true).isEmpty()); // not counted
        QVERIFY(readCashJournal(session).lines.empty());
        QCOMPARE(enterTill(session, {u"50"_s, u"49.75"_s}, true), QString());
        QCOMPARE(enterTill(session, {u"50.00"_s, u"49.75"_s}, false), QString()); // nothing new
        const CashJournal journal = readCashJournal(session);
        QCOMPARE(journal.lines.size(), 3U);
        QCOMPARE(dollarsOf(journal.lines.back().dollars), 50.0);
        QCOMPARE(tillText(journal, u"DESK1"_s), u"Expected $50.00, $0.25 missing"_s);
        QVERIFY(tillState(tillsOf(journal)).startsWith(u"DESK1 closed at "_s));
        write({entry(CashKind::Bets, 1, 2, 1)});
        QVERIFY(tillRemarks(readCashJournal(session), tillsOf(readCashJournal(session)), {})
                    .value(1)
                    .startsWith(u"DESK1 was closed at "_s));
    }

    // ANN has $10 and BOB $20 on the winner, which pays 1.80.
    void races()
    {
        using enum CashKind;
        Rows<std::vector<CashEntry>, QString, QString> rows; // unpaid, disagreement
        rows("unsettled", {}, {}, {});
        rows("unpaid", {settlement(1), entry(Paid, 1, 2, 18)}, u"BOB $36.00"_s, {});
        rows("all paid", {settlement(1), entry(Paid, 1, 2, 18), entry(Paid, 1, 3, 36)}, {}, {});
        rows("paid too little", {settlement(1), entry(Paid, 1, 2, 17), entry(Paid, 1, 3, 36)},
             u"ANN $1.00"_s, u"Race 1: ANN was paid $17.00 and is owed $18.00."_s);
        rows("paid without a settlement", {entry(Paid, 1, 2, 18)}, {},
             u"Race 1: $18.00 was paid, but no settlement of the race is written down."_s);
        rows("paid by another result", {settlement(2), entry(Paid, 1, 2, 18)}, {},
             u"Race 1: ANN was paid $18.00, but has not won by the last settlement."_s);
        rows("a sheet that is not on file", {entry(Bets, 1, 3, 5)}, {},
             u"Race 1: BOB has bets of $20.00 on file, the journal says $25.00."_s);
        rows("a refund that is still on file", {entry(Refund, 1, 2, 10)}, {},
             u"Race 1: ANN has bets of $10.00 on file, the journal says $0.00."_s);
        for (const auto &[row, entries, unpaid, disagreement] : rows) {
            init();
            m_event->write(u"Bets Race1"_s, "2,1,1,10\r\n3,1,1,20\r\n");
            write({entry(Bets, 1, 2, 10), entry(Bets, 1, 3, 20)});
            write(entries);
            Session &session = m_event->session;
            const RaceTill race =
                raceTills(readRaces(session, 1), readBettors(session), readCashJournal(session))
                    .front();
            QStringList owed;
            for (const Unpaid &winner : race.unpaid)
                owed += winner.name + " $"_L1 + QString::number(dollarsOf(winner.dollars), 'f', 2);
            QCOMPARE(owed.join(u' '), unpaid);
            QCOMPARE(race.disagreements.join(u' '), disagreement);
        }
    }

private:
    void write(const std::vector<CashEntry> &entries)
    {
        for (const CashEntry &one : entries)
            QVERIFY(recordCash(m_event->session, {one}));
    }

    std::unique_ptr<TestEvent> m_event;
};

TRELAWN_TEST(tst_till)
#include "tst_till.moc"
