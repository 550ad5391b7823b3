#include "common/print/format.h"
#include "kit/testkit.h"
#include "multibets/multisettle.h"
#include "payoff/settlerace.h"
#include "reports/cashreport.h"
#include "reports/eventreports.h"

namespace {

void writeRace(const TestEvent &event, int race, const QByteArray &horses, const QByteArray &bets,
               const QByteArray &multibets = {})
{
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"ANN\"\r\n3,\"BOB\"\r\n");
    event.write("Horses"_L1 + raceName(race), horses);
    event.write("Bets"_L1 + raceName(race), bets);
    event.write("Multibets"_L1 + raceName(race), multibets);
}

void fillEvent(const TestEvent &event)
{
    writeRace(event, 1,
              "1,0,\"9 \",\"BRAVO\"\r\n2,3,\"10\",\"alfa\"\r\nx\r\n3,0,\"2 \",\"zzz\"\r\n",
              "2,1,1,5\r\n10,2,2,2.5\r\n2,2,3,1\r\njunk\r\n", "1,2,0,\"EX\",3,10\r\n");
    writeRace(event, 2, "1,0,\"1 \",\"COCO\"\r\n", "3,1,1,7\r\n77,1,1,1\r\n",
              "1,2,3,\"T\",2.5,2\r\n1,2\r\n");
    event.write(u"Bettors"_s, "1,\"AnyBettor\"\r\n2,\"Zoe\"\r\n3,\"ÉMILE\"\r\nbroken\r\n"
                              "10,\"ADA\"\r\n");
}

// One column of a report without its total row.
QString columnOf(const Report &report, int column)
{
    QStringList cells;
    for (const ReportRow &row : report.rows) {
        if (!row.isTotal)
            cells.append(row.cells[column]);
    }
    return cells.join(u' ');
}

// Taken, house cut, refunds due and what is left for winners.
QString cashCells(const Report &report, const QString &race, const QString &type)
{
    for (const ReportRow &row : report.rows) {
        if (row.cells[0] == race && row.cells[1] == type)
            return row.cells.sliced(2).join(u' ');
    }
    return {};
}

} // namespace

class tst_eventreports : public QObject
{
    Q_OBJECT

private slots:
    void sorting()
    {
        using enum ReportKind;
        Rows<ReportRequest, int, QString> rows;
        rows("horses by post, not by number text", {Horses, 1}, 3, u"BRAVO alfa"_s);
        rows("horses, last race first", {Horses, 0, false, true}, 3, u"COCO alfa BRAVO"_s);
        rows("horses by name, whatever the case", {Horses, 0, true}, 3, u"alfa BRAVO COCO"_s);
        rows("bettors by number, 10 after 3", {Bettors, 1}, 0, u"1 2 3 10"_s);
        rows("a number without a bettor is listed too", {Bettors, 0, false, true}, 1,
             u"77 Bad Bettor Number ADA ÉMILE Zoe AnyBettor"_s);
        rows("by name, accents and case aside", {Bettors, 1, true}, 1,
             u"ADA AnyBettor ÉMILE Zoe"_s);
        rows("bettors' totals of one race", {Bettors, 1}, 5, u"$0.00 $6.00 $0.00 $5.50"_s);
        rows("bettors' totals", {Bettors, 0}, 5, u"$0.00 $8.50 $7.00 $5.50 $1.00"_s);
        rows("bets keep the order taken, going up", {Bets, 1}, 6, u"$5.00 $1.00 $2.50"_s);
        rows("and going down", {Bets, 1, true, true}, 6, u"$5.00 $1.00 $2.50"_s);
        rows("bets name the horse of their race", {Bets, 0}, 4, u"BRAVO alfa COCO alfa COCO"_s);
        rows("multibets", {Multibets, 0, false, true}, 3, u"Exacta Trifecta"_s);
        rows("multibets name their posts", {Multibets, 0}, 4, u"1-2-3 1-2"_s);
        TestEvent event;
        fillEvent(event);
        for (const auto &[row, request, column, cells] : rows)
            QCOMPARE(columnOf(makeReport(event.session, request), column), cells);
    }

    void totalsAndDamage()
    {
        const QString bettors = u"1 damaged line of Bettors is not listed."_s;
        const QString bets = u"1 damaged line of Bets is not listed."_s;
        const QString multibets = u"1 damaged line of Multibets is not listed."_s;
        Rows<ReportKind, QString, QStringList> rows;
        rows("bettors", ReportKind::Bettors, u"|TOTAL|7|$16.50|$5.50|$22.00"_s,
             {bettors, bets, multibets});
        rows("bets", ReportKind::Bets, u"||TOTAL||||$16.50"_s, {u"Bets: 5."_s, bets});
        rows("multibets", ReportKind::Multibets, u"||TOTAL|||$5.50"_s,
             {u"Multibets: 2."_s, multibets});
        TestEvent event;
        fillEvent(event);
        for (const auto &[row, kind, total, remarks] : rows) {
            const Report report = makeReport(event.session, {kind});
            QCOMPARE(report.rows.last().cells.join(u'|'), total);
            QCOMPARE(report.remarks, remarks);
        }
    }

    // A report looks; it neither creates a missing file nor touches the session's race.
    void readsOnly()
    {
        TestEvent event;
        fillEvent(event);
        event.remove({u"Bets Race4"_s, u"Multibets Race5"_s});
        const HorseTable before = event.session.horses;
        makeReport(event.session, {ReportKind::Bettors});
        QVERIFY(!event.exists(u"Bets Race4"_s) && !event.exists(u"Multibets Race5"_s));
        QVERIFY(event.session.horses == before);
        event.remove({u"Horses Race6"_s});
        QCOMPARE(errorOf([&] { makeReport(event.session, {}); }), 53);
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

    void cashRules()
    {
        // 10 % of 0.55 + 0.55 + 0.55 is 0.165, shown as 0.17 by Pay Winners: the three parts of
        // 0.06 add up to 0.18, so that show gives a cent.
        const QByteArray odd = "2,1,1,.55\r\n2,1,2,.55\r\n2,1,3,.55\r\n";
        const QByteArray none;
        Rows<QByteArray, QByteArray, double, QString, QString> rows;
        rows("cut of the race", odd, none, 10, u"Total"_s, u"$1.65 $0.17 $0.00 $1.48"_s);
        rows("cut of win", odd, none, 10, u"Win"_s, u"$0.55 $0.06 $0.00 $0.49"_s);
        rows("cut of show", odd, none, 10, u"Show"_s, u"$0.55 $0.05 $0.00 $0.50"_s);
        rows("without show the rest falls to place", "2,1,1,.55\r\n2,1,2,.55\r\n", none, 10,
             u"Place"_s, u"$0.55 $0.05 $0.00 $0.50"_s);
        rows("money on a post without a horse is paid out like the rest",
             "2,5,1,10\r\n2,1,1,20\r\n", none, 10, u"Win"_s, u"$30.00 $3.00 $0.00 $27.00"_s);
        rows("what Pay Winners refuses is due back", "2,1,1,1500\r\n99,1,1,5\r\n",
             "1,2,0,\"XX\",4,2\r\n", 10, u"Bad records"_s, u"$1,509.00 $0.00 $1,509.00 $0.00"_s);
        rows("a damaged line is no money", "2,1,1\r\n2,1,1,3\r\n2,1,1,1e30\r\n", none, 0,
             u"Total"_s, u"$3.00 $0.00 $0.00 $3.00"_s);
        rows("the house never takes more than all", "2,1,1,3\r\n", none, 1e30, u"Total"_s,
             u"$3.00 $3.00 $0.00 $0.00"_s);
        TestEvent event;
        for (const auto &[row, bets, multibets, percent, type, cells] : rows) {
            writeRace(event, 1, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", bets, multibets);
            const Report report =
                makeReport(event.session, {ReportKind::Cash, 0, false, false, percent});
            QCOMPARE(cashCells(report, u"Race 1"_s, type), cells);
            QCOMPARE(cashCells(report, u"Evening"_s, type), cells);
            QCOMPARE(cashCells(report, u"Race 2"_s, u"Total"_s), QString());
        }
    }

    void withoutHorse()
    {
        Rows<QByteArray, QByteArray, QString> rows;
        rows("bets on a scratched horse", "2,5,1,10\r\n2,5,3,2\r\n2,1,1,20\r\n", {}, u"$12.00"_s);
        rows("an exacta on a scratched horse", {}, "1,5,0,\"EX\",4,2\r\n1,2,0,\"EX\",6,2\r\n",
             u"$4.00"_s);
        rows("the second leg is judged by the next race's card", {},
             "1,9,0,\"DD\",4,2\r\n1,2,0,\"DD\",6,2\r\n", u"$6.00"_s);
        rows("a race whose card is still empty holds no scratch", {}, "1,9,20,\"P3\",4,2\r\n", {});
        TestEvent event;
        for (const auto &[row, bets, multibets, amount] : rows) {
            writeRace(event, 1, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", bets, multibets);
            writeRace(event, 2, "9,0,\"9 \",\"C\"\r\n", {});
            const QStringList remarks = makeReport(event.session, {ReportKind::Cash}).remarks;
            const QString line = "Race 1: "_L1 + amount + " is bet on posts without a horse."_L1;
            QCOMPARE(remarks.filter(u"posts without a horse."_s),
                     amount.isEmpty() ? QStringList() : QStringList{line});
        }
    }

    // Nothing typed: each race is cut by what it was paid with, multibets by their own percentage.
    void percentagesAsPaid()
    {
        TestEvent event;
        for (const auto &[race, percent] : {std::pair(1, 10.0), {3, 10.0}, {4, 12.5}}) {
            CashEntry settlement{CashKind::Settled, race};
            settlement.settled = RaceSettled{};
            settlement.settled->payoffs.finishers = {1, 2, 2};
            settlement.settled->housePercent = percent;
            recordCash(event.session, {settlement});
        }
        event.session.multibetHousePercent = 20;
        for (const int race : {1, 2, 4})
            writeRace(event, race, "1,0,\"1 \",\"A\"\r\n2,0,\"2 \",\"B\"\r\n", "2,1,1,100\r\n",
                      "1,2,0,\"EX\",50,2\r\n");
        const auto cut = [](const Report &report, const QString &race) {
            return cashCells(report, race, u"Total"_s).section(u' ', 1, 1);
        };
        const Report report = makeReport(event.session, {ReportKind::Cash});
        QCOMPARE(cut(report, u"Race 1"_s), u"$20.00"_s);
        QCOMPARE(cut(report, u"Race 2"_s), u"$10.00"_s);
        QCOMPARE(cut(report, u"Race 4"_s), u"$22.50"_s);
        QCOMPARE(report.titles.last(), u"House percentage as paid: 10 % in race 1, 3; "
                                       "12.5 % in race 4; multibets 20 %"_s);
        const Report typed = makeReport(event.session, {ReportKind::Cash, 0, false, false, 5});
        QCOMPARE(cut(typed, u"Evening"_s), u"$22.50"_s);
        QCOMPARE(typed.titles.last(), u"House percentage 5 %"_s);
    }

    // Pay Winners and Find Winners hand out what the report keeps for winners, to the cent.
    void agreesWithPayoffs()
    {
        TestEvent event;
        event.session.horses = cardOf({{1, 0, u"1"_s, u"A"_s},
                                       {2, 0, u"2"_s, u"B"_s},
                                       {3, 0, u"3"_s, u"C"_s},
                                       {4, 0, u"4"_s, u"D"_s}});
        writeRace(event, 1, horseRecords(event.session.horses),
                  "2,1,1,20\r\n2,1,2,10\r\n2,2,2,20\r\n2,1,3,10\r\n3,4,1,80\r\n3,4,2,30\r\n"
                  "3,2,3,20\r\n3,3,3,30\r\n3,4,3,30\r\n",
                  "1,2,0,\"EX\",2.5,2\r\n2,1,0,\"EX\",7.5,3\r\n1,2,3,\"T\",3,3\r\n");
        const Report report = makeReport(event.session, {ReportKind::Cash, 0, false, false, 10});
        // Win 90, place 54 and show 81 are left for winners, and of the trifecta 2.70.
        QCOMPARE(cashCells(report, u"Race 1"_s, u"Exacta"_s), u"$10.00 $1.00 $0.00 $9.00"_s);
        QCOMPARE(cashCells(report, u"Race 1"_s, u"Total"_s), u"$263.00 $26.30 $0.00 $236.70"_s);

        RaceResult result;
        result.finishers = {1, 2, 3};
        result.housePercent = 10;
        const Settlement settlement = settleCurrentRace(event.session, result).settlement;
        float owed = 0;
        for (const WinningBettor &winner : settlement.winners)
            owed += winner.owed;
        QCOMPARE(formatMoney(settlement.houseCut, "$#,##0.00"), u"$25.00"_s);
        QCOMPARE(formatMoney(owed, "$#,##0.00"), u"$225.00"_s);
        const MultibetSettlement exacta = settleMultibets(
            readMultibets(event.session, 1), event.session.bettors, u"EX"_s, {1, 2, 0}, 10);
        QCOMPARE(exacta.houseCut, 1.0);
        QCOMPARE(exacta.net, 9.0);
    }
};

TRELAWN_TEST(tst_eventreports)
#include "tst_eventreports.moc"
