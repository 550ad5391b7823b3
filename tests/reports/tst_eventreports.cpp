#include "betting/placement.h"
#include "betting/receipts.h"
#include "common/event/racefiles.h"
#include "common/files/fileerror.h"
#include "common/print/format.h"
#include "kit/testkit.h"
#include "multibets/multisettle.h"
#include "multibets/multislips.h"
#include "payoff/settlerace.h"
#include "payoff/winnerslips.h"
#include "reports/cashreport.h"
#include "reports/eventreports.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

void writeRace(const TestEvent &event, int race, const QByteArray &horses, const QByteArray &bets,
               const QByteArray &multibets = {})
{
    event.write("Horses"_L1 + raceName(race), horses);
    event.write("Bets"_L1 + raceName(race), bets);
    event.write("Multibets"_L1 + raceName(race), multibets);
}

void fillEvent(const TestEvent &event)
{
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"Zoe\"\r\n3,\"ÉMILE\"\r\nbroken\r\n"
                              "10,\"ADA\"\r\n");
    writeRace(event, 1,
              "1,0,\"9 \",\"BRAVO\"\r\n2,3,\"10\",\"alfa\"\r\nx\r\n3,0,\"2 \",\"zzz\"\r\n",
              "2,1,1,5\r\n10,2,2,2.5\r\n2,2,3,1\r\njunk\r\n", "1,2,0,\"EX\",3,10\r\n");
    writeRace(event, 2, "1,0,\"1 \",\"COCO\"\r\n", "3,1,1,7\r\n77,1,1,1\r\n",
              "1,2,3,\"T\",2.5,2\r\n1,2\r\n");
}

// One column of a report without its total row.
QStringList columnOf(const Report &report, int column)
{
    QStringList cells;
    for (const ReportRow &row : report.rows) {
        if (!row.isTotal)
            cells.append(row.cells[column]);
    }
    return cells;
}

QStringList cashCells(const Report &report, const QString &race, const QString &type)
{
    for (const ReportRow &row : report.rows) {
        if (row.cells[0] == race && row.cells[1] == type)
            return row.cells.sliced(2);
    }
    return {};
}

// The last amount of each line that begins with \a label, added up in cents.
int centsAfter(const QList<Slip> &slips, const QString &label)
{
    int cents = 0;
    for (const Slip &slip : slips) {
        for (const QString &line : slipText(slip)) {
            if (line.startsWith(label))
                cents += qRound(numericAmount(line.mid(line.lastIndexOf(u'$'))) * 100);
        }
    }
    return cents;
}

// The amounts of a line in cents.
QList<int> amountsIn(const QString &line)
{
    static const QRegularExpression amount(u"\\$([\\d,]+\\.\\d\\d)"_s);
    QList<int> cents;
    for (const QRegularExpressionMatch &match : amount.globalMatch(line))
        cents.append(qRound(numericAmount(match.captured(1)) * 100));
    return cents;
}

int centsOf(const QString &cell)
{
    return qRound(numericAmount(cell) * 100);
}

} // namespace

class tst_eventreports : public QObject
{
    Q_OBJECT

    // Making an event's files takes longer than the tests that only read them.
    std::unique_ptr<TestEvent> m_event;

private slots:
    void initTestCase() { m_event = std::make_unique<TestEvent>(); }
    void cleanupTestCase() { m_event.reset(); }

    void sorting_data()
    {
        QTest::addColumn<ReportKind>("kind");
        QTest::addColumn<int>("race");
        QTest::addColumn<bool>("byName");
        QTest::addColumn<bool>("down");
        QTest::addColumn<int>("column");
        QTest::addColumn<QStringList>("cells");

        using enum ReportKind;
        QTest::newRow("horses by post, not by number text")
            << Horses << 1 << false << false << 3 << QStringList{u"BRAVO"_s, u"alfa"_s};
        QTest::newRow("horses of all races, last race first")
            << Horses << 0 << false << true << 3 << QStringList{u"COCO"_s, u"alfa"_s, u"BRAVO"_s};
        QTest::newRow("horses by name, whatever the case")
            << Horses << 0 << true << false << 3 << QStringList{u"alfa"_s, u"BRAVO"_s, u"COCO"_s};
        QTest::newRow("bettors by number, 10 after 3")
            << Bettors << 1 << false << false << 0 << QStringList{u"1"_s, u"2"_s, u"3"_s, u"10"_s};
        QTest::newRow("a number without a bettor is listed too")
            << Bettors << 0 << false << true << 1
            << QStringList{u"77 Bad Bettor Number"_s, u"ADA"_s, u"ÉMILE"_s, u"Zoe"_s,
                           u"AnyBettor"_s};
        QTest::newRow("bettors by name, accents and case aside")
            << Bettors << 1 << true << false << 1
            << QStringList{u"ADA"_s, u"AnyBettor"_s, u"ÉMILE"_s, u"Zoe"_s};
        QTest::newRow("bettors' totals of one race")
            << Bettors << 1 << false << false << 5
            << QStringList{u"$0.00"_s, u"$6.00"_s, u"$0.00"_s, u"$5.50"_s};
        QTest::newRow("bettors' totals of all races")
            << Bettors << 0 << false << false << 5
            << QStringList{u"$0.00"_s, u"$8.50"_s, u"$7.00"_s, u"$5.50"_s, u"$1.00"_s};
        QTest::newRow("a bettor's bets keep the order taken, going up")
            << Bets << 1 << false << false << 6 << QStringList{u"$5.00"_s, u"$1.00"_s, u"$2.50"_s};
        QTest::newRow("a bettor's bets keep the order taken, going down")
            << Bets << 1 << true << true << 6 << QStringList{u"$5.00"_s, u"$1.00"_s, u"$2.50"_s};
        QTest::newRow("bets name the horse of their race")
            << Bets << 0 << false << false << 4
            << QStringList{u"BRAVO"_s, u"alfa"_s, u"COCO"_s, u"alfa"_s, u"COCO"_s};
        QTest::newRow("multibets of all races")
            << Multibets << 0 << false << true << 3 << QStringList{u"Exacta"_s, u"Trifecta"_s};
        QTest::newRow("multibets name their posts")
            << Multibets << 0 << false << false << 4 << QStringList{u"1-2-3"_s, u"1-2"_s};
    }

    void sorting()
    {
        QFETCH(ReportKind, kind);
        QFETCH(int, race);
        QFETCH(bool, byName);
        QFETCH(bool, down);
        QFETCH(int, column);
        TestEvent &event = *m_event;
        fillEvent(event);
        const Report report = makeReport(event.session, {kind, race, byName, down});
        QTEST(columnOf(report, column), "cells");
    }

    void totalsAndDamage_data()
    {
        QTest::addColumn<ReportKind>("kind");
        QTest::addColumn<QString>("total");
        QTest::addColumn<QStringList>("remarks");
        using enum ReportKind;
        QTest::newRow("bettors") << Bettors << u"|TOTAL|7|$16.50|$5.50|$22.00"_s
                                 << QStringList{u"1 damaged line of Bettors is not listed."_s,
                                                u"1 damaged line of Bets is not listed."_s,
                                                u"1 damaged line of Multibets is not listed."_s};
        QTest::newRow("bets") << Bets << u"||TOTAL||||$16.50"_s
                              << QStringList{u"Bets: 5."_s,
                                             u"1 damaged line of Bets is not listed."_s};
        QTest::newRow("multibets")
            << Multibets << u"||TOTAL|||$5.50"_s
            << QStringList{u"Multibets: 2."_s, u"1 damaged line of Multibets is not listed."_s};
    }

    void totalsAndDamage()
    {
        QFETCH(ReportKind, kind);
        TestEvent &event = *m_event;
        fillEvent(event);
        const Report report = makeReport(event.session, {kind});
        QTEST(report.rows.last().cells.join(u'|'), "total");
        QTEST(report.remarks, "remarks");
    }

    // A report looks; it neither creates a missing file nor touches the session's race.
    void readsOnly()
    {
        TestEvent event;
        fillEvent(event);
        QVERIFY(QFile::remove(event.path(u"Bets Race4"_s)));
        QVERIFY(QFile::remove(event.path(u"Multibets Race5"_s)));
        const HorseTable before = event.session.horses;
        makeReport(event.session, {ReportKind::Bets});
        QVERIFY(!event.exists(u"Bets Race4"_s));
        QVERIFY(!event.exists(u"Multibets Race5"_s));
        QVERIFY(event.session.horses == before);
        QVERIFY(QFile::remove(event.path(u"Horses Race6"_s)));
        QVERIFY_THROWS_EXCEPTION(FileError, makeReport(event.session, {}));
        QCOMPARE(event.session.settings.operationLabel, u"Horses input"_s);
    }

    void linesAndCsv()
    {
        Report report;
        report.titles = {u"Derby"_s, u"BETS"_s};
        report.columns = {{u"No."_s, ReportColumn::Kind::Number},
                          {u"Bettor"_s, ReportColumn::Kind::Text},
                          {u"Amount"_s, ReportColumn::Kind::Money}};
        report.rows = {{{u"7"_s, u"O'NEIL, \"JO\""_s, u"$1,234.50"_s}},
                       {{{}, u"TOTAL"_s, u"$1,234.50"_s}, true}};
        report.remarks = {u"Bets: 1."_s};
        const ReportLines text = reportLines(report);
        QCOMPARE(text.lines,
                 (QStringList{u"Derby"_s, u"BETS"_s, u" "_s, u"No.  Bettor           Amount"_s,
                              u"  7  O'NEIL, \"JO\"  $1,234.50"_s,
                              u"     TOTAL         $1,234.50"_s, u" "_s, u"Bets: 1."_s}));
        QCOMPARE(text.headingLines, 4);
        QCOMPARE(reportCsv(report), QByteArray("\xef\xbb\xbfNo.,Bettor,Amount\r\n"
                                               "7,\"O'NEIL, \"\"JO\"\"\",1234.50\r\n"
                                               ",TOTAL,1234.50\r\n"));
        report.rows.clear();
        for (const QString &name : {u"=1+1"_s, u"+A"_s, u"-A"_s, u"@A"_s, u"\tA"_s, u"A=B"_s})
            report.rows.append({{u"-1"_s, name, u"-$5.00"_s}});
        QCOMPARE(reportCsv(report), QByteArray("\xef\xbb\xbfNo.,Bettor,Amount\r\n"
                                               "-1,'=1+1,-5.00\r\n-1,'+A,-5.00\r\n"
                                               "-1,'-A,-5.00\r\n-1,'@A,-5.00\r\n"
                                               "-1,'\tA,-5.00\r\n-1,A=B,-5.00\r\n"));
    }

    // Printed lines never run off the paper: 523 points hold 43 characters of 20 points (12 wide)
    // and 108 of 8 points (4.8 wide).
    void slipFont_data()
    {
        QTest::addColumn<int>("characters");
        QTest::addColumn<int>("wanted");
        QTest::addColumn<double>("points");
        QTest::newRow("fits") << 43 << 20 << 20.0;
        QTest::newRow("one too many") << 44 << 20 << 18.0;
        QTest::newRow("chosen small stays small") << 10 << 8 << 8.0;
        QTest::newRow("108 at 8") << 108 << 20 << 8.0;
        QTest::newRow("no smaller than 6") << 500 << 14 << 6.0;
    }

    void slipFont()
    {
        QFETCH(int, characters);
        QFETCH(int, wanted);
        QTEST(reportSlip({{u"x"_s, QString(characters, u'x')}, 1}, wanted).pointSize, "points");
    }

    void cashRules_data()
    {
        QTest::addColumn<QByteArray>("bets");
        QTest::addColumn<QByteArray>("multibets");
        QTest::addColumn<double>("percent");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QStringList>("cells"); // taken, house cut, refunds due, for winners

        const auto cells = [](const char *taken, const char *cut, const char *due,
                              const char *winners) {
            return QStringList{QString::fromLatin1(taken), QString::fromLatin1(cut),
                               QString::fromLatin1(due), QString::fromLatin1(winners)};
        };
        // 10 % of 0.55 + 0.55 + 0.55 is 0.165, shown as 0.17 by Pay Winners: the three parts of
        // 0.06 add up to 0.18, so that show gives a cent.
        const QByteArray odd = "2,1,1,.55\r\n2,1,2,.55\r\n2,1,3,.55\r\n";
        QTest::newRow("cut of the race") << odd << QByteArray() << 10.0 << u"Total"_s
                                         << cells("$1.65", "$0.17", "$0.00", "$1.48");
        QTest::newRow("cut of win")
            << odd << QByteArray() << 10.0 << u"Win"_s << cells("$0.55", "$0.06", "$0.00", "$0.49");
        QTest::newRow("cut of show") << odd << QByteArray() << 10.0 << u"Show"_s
                                     << cells("$0.55", "$0.05", "$0.00", "$0.50");
        QTest::newRow("without show the rest falls to place")
            << QByteArray("2,1,1,.55\r\n2,1,2,.55\r\n") << QByteArray() << 10.0 << u"Place"_s
            << cells("$0.55", "$0.05", "$0.00", "$0.50");
        QTest::newRow("money on a post without a horse is paid out like the rest")
            << QByteArray("2,5,1,10\r\n2,1,1,20\r\n") << QByteArray() << 10.0 << u"Win"_s
            << cells("$30.00", "$3.00", "$0.00", "$27.00");
        QTest::newRow("what Pay Winners refuses is due back")
            << QByteArray("2,1,1,1500\r\n99,1,1,5\r\n") << QByteArray("1,2,0,\"XX\",4,2\r\n")
            << 10.0 << u"Bad records"_s << cells("$1,509.00", "$0.00", "$1,509.00", "$0.00");
        QTest::newRow("a damaged line is no money")
            << QByteArray("2,1,1\r\n2,1,1,3\r\n2,1,1,1e30\r\n") << QByteArray() << 0.0 << u"Total"_s
            << cells("$3.00", "$0.00", "$0.00", "$3.00");
        QTest::newRow("the house never takes more than all")
            << QByteArray("2,1,1,3\r\n") << QByteArray() << 1e30 << u"Total"_s
            << cells("$3.00", "$3.00", "$0.00", "$0.00");
    }

    void cashRules()
    {
        QFETCH(QByteArray, bets);
        QFETCH(QByteArray, multibets);
        QFETCH(double, percent);
        QFETCH(QString, type);
        TestEvent &event = *m_event;
        event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n");
        writeRace(event, 1, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", bets, multibets);
        writeRace(event, 2, "9,0,\"9 \",\"C\"\r\n", {});
        const Report report =
            makeReport(event.session, {ReportKind::Cash, 0, false, false, percent});
        QTEST(cashCells(report, u"Race 1"_s, type), "cells");
        QTEST(cashCells(report, u"Evening"_s, type), "cells");
        QVERIFY(cashCells(report, u"Race 2"_s, u"Total"_s).isEmpty());
    }

    void withoutHorse_data()
    {
        QTest::addColumn<QByteArray>("bets");
        QTest::addColumn<QByteArray>("multibets");
        QTest::addColumn<QString>("amount"); // that the report says has no horse; empty for none
        QTest::newRow("bets on a scratched horse")
            << QByteArray("2,5,1,10\r\n2,5,3,2\r\n2,1,1,20\r\n") << QByteArray() << u"$12.00"_s;
        QTest::newRow("an exacta on a scratched horse")
            << QByteArray() << QByteArray("1,5,0,\"EX\",4,2\r\n1,2,0,\"EX\",6,2\r\n") << u"$4.00"_s;
        QTest::newRow("the second leg is judged by the next race's card")
            << QByteArray() << QByteArray("1,9,0,\"DD\",4,2\r\n1,2,0,\"DD\",6,2\r\n") << u"$6.00"_s;
        QTest::newRow("a race whose card is still empty holds no scratch")
            << QByteArray() << QByteArray("1,9,20,\"P3\",4,2\r\n") << QString();
    }

    void withoutHorse()
    {
        QFETCH(QByteArray, bets);
        QFETCH(QByteArray, multibets);
        QFETCH(QString, amount);
        TestEvent &event = *m_event;
        writeRace(event, 1, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", bets, multibets);
        writeRace(event, 2, "9,0,\"9 \",\"C\"\r\n", {});
        const QStringList remarks = makeReport(event.session, {ReportKind::Cash}).remarks;
        const QString line = "Race 1: "_L1 + amount + " is bet on posts without a horse."_L1;
        QCOMPARE(remarks.contains(line), !amount.isEmpty());
        QCOMPARE(remarks.size() - cashReportNotes().size(), amount.isEmpty() ? 0 : 4);
    }

    // Nothing typed: each race is cut by what it was paid with, multibets by their own percentage.
    void percentagesAsPaid()
    {
        TestEvent &event = *m_event;
        event.session.paidHousePercents = {{1, 10}, {3, 10}, {4, 12.5}};
        event.session.multibetHousePercent = 20;
        for (const int race : {1, 2, 4})
            writeRace(event, race, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", "2,1,1,100\r\n",
                      "1,2,0,\"EX\",50,2\r\n");
        const Report report = makeReport(event.session, {ReportKind::Cash});
        const std::pair<QString, QString> cuts[] = {
            {u"Race 1"_s, u"$20.00"_s}, {u"Race 2"_s, u"$10.00"_s}, {u"Race 4"_s, u"$22.50"_s}};
        for (const auto &[race, cut] : cuts)
            QCOMPARE(cashCells(report, race, u"Total"_s).value(1), cut);
        QCOMPARE(report.titles.last(), u"House percentage as paid: 10 % in race 1, 3; "
                                       "12.5 % in race 4; multibets 20 %"_s);
        const Report typed = makeReport(event.session, {ReportKind::Cash, 0, false, false, 5});
        QCOMPARE(cashCells(typed, u"Evening"_s, u"Total"_s).value(1), u"$22.50"_s);
        QCOMPARE(typed.titles.last(), u"House percentage 5 %"_s);
    }

    // A race is played with receipts, a refund, multibets and payoffs: the cash report, made from
    // the files alone, gives the cents that the slips give.
    void agreesWithSlips()
    {
        TestEvent event;
        Session &session = event.session;
        QByteArray horses;
        for (int post = 1; post <= 4; ++post)
            horses += QByteArray::number(post) + ",0,\"1 \",\"HORSE\"\r\n";
        event.write(u"Horses Race1"_s, horses);
        event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n3,\"BOB\"\r\n");
        session.horses = readHorses(session, 1).horses;

        // Win 100, place 60, show 90, of which $4.75 more are taken back.
        const struct
        {
            int bettor;
            std::vector<std::tuple<int, BetType, float>> bets;
        } sheets[] = {{2,
                       {{1, BetType::Win, 20.0F},
                        {1, BetType::Place, 10.0F},
                        {2, BetType::Place, 20.0F},
                        {1, BetType::Show, 10.0F},
                        {4, BetType::Win, 4.75F}}},
                      {3,
                       {{4, BetType::Win, 80.0F},
                        {4, BetType::Place, 30.0F},
                        {2, BetType::Show, 20.0F},
                        {3, BetType::Show, 30.0F},
                        {4, BetType::Show, 30.0F}}}};
        QList<Slip> slips;
        for (const auto &sheet : sheets) {
            BetEntries entries;
            for (const auto &[post, type, dollars] : sheet.bets)
                entries.add(post, type, dollars);
            placeBets(session, planPlacement(entries, sheet.bettor, 0, session.settings.betLimit));
            slips.append(
                betReceipt(session.settings, priorBets(readBets(session, 1), session.horses,
                                                       sheet.bettor, u"NAME"_s)));
        }
        const PriorBets prior = priorBets(readBets(session, 1), session.horses, 2, u"ANN"_s);
        for (const PriorBet &bet : prior.bets) {
            if (bet.bet.amount == 4.75F)
                slips.append(
                    priorBetsRefund(session.settings, u"ANN"_s, deletePriorBets(session, {bet})));
        }
        const std::vector<Multibet> multibets{
            {{1, 2, 0}, u"EX"_s, 2.5, 2}, {{2, 1, 0}, u"EX"_s, 7.5, 3}, {{1, 2, 3}, u"T"_s, 3, 3}};
        appendMultibets(session, multibets);
        for (const int bettor : {2, 3}) {
            const MultibetTable saved = readMultibets(session, 1);
            slips.append(multibetReceipt({}, {}, multibetsOf(saved, bettor), 8));
        }
        RaceResult result;
        result.finishers = {1, 2, 3};
        result.housePercent = 10;
        const Settlement settlement = settleCurrentRace(session, result).settlement;
        int paid = 0;
        for (const WinningBettor &winner : settlement.winners) {
            const Slip slip = winnerSlips(
                winnerSlipLines({}, {}, {}, paymentFor(winner.stakes, settlement.payoffs, 1)));
            for (const QString &line : slipText(slip)) {
                const QList<int> pairs = amountsIn(line);
                for (qsizetype i = 1; i < pairs.size(); i += 2)
                    paid += pairs[i];
            }
        }
        const MultibetSettlement exacta =
            settleMultibets(readMultibets(session, 1), session.bettors, u"EX"_s, {1, 2, 0}, 10);

        const Report report = makeReport(session, {ReportKind::Cash, 0, false, false, 10});
        const auto cents = [&](const QString &type, int column) {
            return centsOf(cashCells(report, u"Race 1"_s, type).value(column));
        };
        QCOMPARE(cents(u"Total"_s, 0),
                 centsAfter(slips, u"TOTAL BETS"_s) - centsAfter(slips, u"Total Refund"_s));
        QCOMPARE(cents(u"Total"_s, 0), 26300);
        const int straight = cents(u"Win"_s, 1) + cents(u"Place"_s, 1) + cents(u"Show"_s, 1);
        QCOMPARE(straight, centsOf(formatMoney(settlement.houseCut, "$#,##0.00")));
        QCOMPARE(cents(u"Win"_s, 3) + cents(u"Place"_s, 3) + cents(u"Show"_s, 3), paid);
        QCOMPARE(paid, 22500);
        QCOMPARE(cents(u"Exacta"_s, 1), qRound(exacta.houseCut * 100));
        QCOMPARE(exacta.lines.size(), 1);
        QCOMPARE(cents(u"Exacta"_s, 3), amountsIn(exacta.lines.first()).value(0));
    }
};

TRELAWN_TEST(tst_eventreports)
#include "tst_eventreports.moc"
