#include "common/event/cashanswers.h"
#include "kit/testkit.h"

namespace {

CashEntry payment(int bettor, const QString &name, double dollars, int race = 1)
{
    CashEntry line{CashKind::Paid, race, bettor, name, exactMoney(dollars)};
    line.owed = line.dollars + 100;
    return line;
}

CashEntry settlement(int winner, double percent)
{
    CashEntry line{CashKind::Settled, 1};
    line.settled = RaceSettled{};
    line.settled->payoffs.finishers = {winner, 4, 21};
    line.settled->housePercent = percent;
    float payoff = 0.1F;
    for (float &perDollar : line.settled->payoffs.perDollar)
        perDollar = payoff *= 3.7F;
    return line;
}

CashEntry clearing(const QString &detail)
{
    return {CashKind::Refund, 1, 2, u"ANNA"_s, 50000, detail};
}

// "ANNA $16 20:41" of everybody who was paid for race 1.
QString paidNames(Session &session)
{
    QStringList names;
    for (const PaidBefore &paid : paidInRace(readCashJournal(session), 1))
        names += paid.name + " $"_L1 + QString::number(dollarsOf(paid.dollars));
    return names.join(u", "_s);
}

} // namespace

// What the computers of an event write down about money, and what all journals say together.
class tst_cashjournal : public QObject
{
    Q_OBJECT

private slots:
    // Every line comes back as it went, payoffs to the last digit.
    void roundTrip()
    {
        TestEvent event;
        CashEntry back{CashKind::TakenBack, 12, 7, u"O'NEIL, \"BO\"\nÅ"_s, -12345, u"paid"_s};
        back.takesBack = 2;
        const std::vector<CashEntry> lines{
            payment(2, u"ANNA"_s, 1234567.8901),
            settlement(3, 12.5),
            back,
            {CashKind::MultibetSettled, 1, 0, {}, 0, u"EX 4,7"_s, exactMoney(4.5)},
            {CashKind::Float, 0, 0, {}, exactMoney(0.25), {}}};
        QVERIFY(recordCash(event.session, lines));
        const CashJournal journal = readCashJournal(event.session);
        QCOMPARE(journal.lines.size(), lines.size());
        QCOMPARE(journal.damaged, 0);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const CashEntry &read = journal.lines[i];
            QCOMPARE(read.kind, lines[i].kind);
            QCOMPARE(read.dollars, lines[i].dollars);
            QCOMPARE(read.owed, lines[i].owed);
            QCOMPARE(read.takesBack, lines[i].takesBack);
            QCOMPARE(read.computer, computerName(event.session));
        }
        QCOMPARE(journal.lines[2].name, u"O'NEIL, 'BO' Å"_s);
        QVERIFY(journal.lines[1].settled->payoffs.perDollar == lines[1].settled->payoffs.perDollar);
        QVERIFY(journal.lines[1].settled->isSameAs(*lines[1].settled));
        QVERIFY(!journal.lines[1].settled->isSameAs(*settlement(3, 12).settled));
    }

    // Lines that a crash cut off or somebody damaged are skipped and counted; other files with such
    // a name are no journals.
    void damage()
    {
        TestEvent event;
        event.session.files.computer = u"DESK/2"_s;
        QVERIFY(recordCash(event.session, {payment(2, u"ANNA"_s, 5)}));
        const QByteArray whole = event.read(u"Cash DESK-2"_s);
        for (qsizetype cut = 1; cut < whole.size(); ++cut) {
            event.write(u"Cash DESK-2"_s, whole + whole.first(cut));
            QCOMPARE(readCashJournal(event.session).damaged, 1);
            QVERIFY(recordCash(event.session, {payment(3, u"BERT"_s, 5)}));
            QCOMPARE(paidNames(event.session), u"ANNA $5, BERT $5"_s);
            QCOMPARE(readCashJournal(event.session).damaged, 1);
        }
        event.write(u"Cash Report.csv"_s, "Race,Type\r\n");
        event.write(u"Cash DESK3"_s, QByteArray(whole).replace("\"paid\",1", "\"paid\",13")
                                         + QByteArray(whole).replace(",5,", ",five,") + "\r\n"
                                         + QByteArray(whole).replace("paid", "gold"));
        QCOMPARE(readCashJournal(event.session).damaged, 4);
        event.block(u"Cash DESK4"_s);
        QCOMPARE(paidNames(event.session), u"ANNA $5, BERT $5"_s);
    }

    // What came later among computers is told by the turns, not by their clocks.
    void severalComputers()
    {
        TestEvent event;
        Session &session = event.session;
        const auto at = [&](const QString &computer, const CashEntry &line) {
            session.files.computer = computer;
            QVERIFY(recordCash(session, {line}));
            // The other computer's clock is a day ahead.
            event.write(u"Cash B"_s, event.read(u"Cash B"_s).replace("\"20", "\"30"));
        };
        event.write(u"Cash B"_s, {});
        at(u"B"_s, payment(2, u"ANNA"_s, 5));
        at(u"B"_s, settlement(3, 10));
        at(u"A"_s, settlement(5, 10));
        at(u"A"_s, payment(2, u"ANNA"_s, 2.5));
        at(u"A"_s, payment(3, u"BERT"_s, 9, 2));
        QCOMPARE(paidNames(session), u"ANNA $7.5"_s);
        QCOMPARE(lastSettlement(readCashJournal(session), 1)->settled->payoffs.finishers[0], 5);
        at(u"A"_s, clearing(refundRaceMultibets));
        QCOMPARE(paidNames(session), u"ANNA $7.5"_s);
        at(u"A"_s, clearing(refundRace));
        QCOMPARE(paidNames(session), QString());
        QVERIFY(!lastSettlement(readCashJournal(session), 1));
        at(u"A"_s, payment(2, u"ANNA"_s, 4));
        at(u"B"_s, payment(2, u"ANNA"_s, 3));
        QCOMPARE(paidNames(session), u"ANNA $7"_s);

        const CashJournal journal = readCashJournal(session);
        const CashEntry *last = lastPayment(journal, u"A"_s);
        CashEntry back{CashKind::TakenBack,     1, 2, u"ANNA"_s, last->dollars,
                       cashKindWord(last->kind)};
        back.takesBack = last->turn;
        at(u"A"_s, back);
        QCOMPARE(paidNames(session), u"ANNA $3"_s);
        QCOMPARE(lastPayment(readCashJournal(session), u"A"_s)->race, 2);
        const CashTotals totals = totalsOf(readCashJournal(session), u"A"_s, 1);
        QCOMPARE(dollarsOf(totals[CashKind::Paid]), 6.5);
        QCOMPARE(dollarsOf(totals[CashKind::TakenBack]), 4.);
        QCOMPARE(dollarsOf(totals[CashKind::Refund]), 10.);
        QCOMPARE(dollarsOf(totalsOf(readCashJournal(session))[CashKind::Paid]), 23.5);
    }

    // The operator is told to write down what the journal could not take. What each step of an
    // operation that fails leaves in it is proved with the other files.
    void failing()
    {
        TestEvent event;
        QString told;
        event.session.files.tell = [&](const QString &note) { told = note; };
        event.block(u"Cash "_s + computerName(event.session));
        QVERIFY(!recordCash(event.session, {payment(3, u"BERT"_s, 16)}));
        QVERIFY2(told.contains(u"paid BERT $16.00 Race1"_s), qPrintable(told));
    }
};

TRELAWN_TEST(tst_cashjournal)
#include "tst_cashjournal.moc"
