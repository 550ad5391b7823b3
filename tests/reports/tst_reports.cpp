#include "common/fileerror.h"
#include "common/racefiles.h"
#include "kit/testkit.h"
#include "reports/reports.h"

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

} // namespace

class tst_reports : public QObject
{
    Q_OBJECT

    // Making an event's files takes longer than the tests that only read them.
    std::unique_ptr<TestEvent> m_event;

private slots:
    void initTestCase() { m_event = std::make_unique<TestEvent>(); }
    void cleanupTestCase() { m_event.reset(); }

    void sorting_data()
    {
        QTest::addColumn<ReportRequest>("request");
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("cells");
        const auto row = [](const char *rule, const ReportRequest &request, int column,
                            const QString &cells) {
            QTest::newRow(rule) << request << column << cells;
        };
        using enum ReportKind;
        row("horses by post, not by number text", {Horses, 1, false, false, 0}, 3, u"BRAVO|alfa"_s);
        row("horses of all races, last race first", {Horses, 0, false, true, 0}, 3,
            u"COCO|alfa|BRAVO"_s);
        row("horses by name, whatever the case", {Horses, 0, true, false, 0}, 3,
            u"alfa|BRAVO|COCO"_s);
        row("bettors by number, 10 after 3", {Bettors, 1, false, false, 0}, 0, u"1|2|3|10"_s);
        row("a number without a bettor is listed too", {Bettors, 0, false, true, 0}, 1,
            u"77 Bad Bettor Number|ADA|ÉMILE|Zoe|AnyBettor"_s);
        row("bettors by name, accents and case aside", {Bettors, 1, true, false, 0}, 1,
            u"ADA|AnyBettor|ÉMILE|Zoe"_s);
        row("bettors' totals of one race", {Bettors, 1, false, false, 0}, 5,
            u"$0.00|$6.00|$0.00|$5.50"_s);
        row("bettors' totals of all races", {Bettors, 0, false, false, 0}, 5,
            u"$0.00|$8.50|$7.00|$5.50|$1.00"_s);
        row("a bettor's bets keep the order taken, going down", {Bets, 1, true, true, 0}, 6,
            u"$5.00|$1.00|$2.50"_s);
        row("bets name the horse of their race", {Bets, 0, false, false, 0}, 4,
            u"BRAVO|alfa|COCO|alfa|COCO"_s);
        row("multibets name their posts", {Multibets, 0, false, false, 0}, 4, u"1-2-3|1-2"_s);
    }

    void sorting()
    {
        QFETCH(ReportRequest, request);
        QFETCH(int, column);
        fillEvent(*m_event);
        QTEST(columnOf(makeReport(m_event->session, request), column).join(u'|'), "cells");
    }

    void totalsAndDamage()
    {
        const QString bets = u"1 damaged line of Bets is not listed."_s;
        const QString multibets = u"1 damaged line of Multibets is not listed."_s;
        const std::tuple<ReportKind, QString, QStringList> reports[] = {
            {ReportKind::Bettors,
             u"|TOTAL|7|$16.50|$5.50|$22.00"_s,
             {u"1 damaged line of Bettors is not listed."_s, bets, multibets}},
            {ReportKind::Bets, u"||TOTAL||||$16.50"_s, {u"Bets: 5."_s, bets}},
            {ReportKind::Multibets, u"||TOTAL|||$5.50"_s, {u"Multibets: 2."_s, multibets}}};
        fillEvent(*m_event);
        for (const auto &[kind, total, remarks] : reports) {
            const Report report = makeReport(m_event->session, {kind, 0, false, false, 0});
            QCOMPARE(report.rows.last().cells.join(u'|'), total);
            QCOMPARE(report.remarks, remarks);
        }
    }

    // A report looks; it neither creates a missing file nor touches the session's race.
    void readsOnly()
    {
        TestEvent event;
        fillEvent(event);
        QVERIFY(QFile::remove(event.path(u"Bets Race4"_s)));
        QVERIFY(QFile::remove(event.path(u"Multibets Race5"_s)));
        const HorseTable before = event.session.horses;
        makeReport(event.session, {ReportKind::Bets, 0, false, false, 0});
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
    }

    // Printed lines never run off the paper: 523 points hold 43 characters of 20 points (12 wide)
    // and 108 of 8 points (4.8 wide).
    void slipFont()
    {
        const std::tuple<int, int, double> widths[] = {
            {43, 20, 20}, {44, 20, 18}, {10, 8, 8}, {108, 20, 8}, {500, 14, 6}};
        for (const auto &[characters, wanted, points] : widths)
            QCOMPARE(reportSlip({{u"x"_s, QString(characters, u'x')}, 1}, wanted).pointSize,
                     points);
    }

    void cashRules_data()
    {
        QTest::addColumn<QByteArray>("bets");
        QTest::addColumn<QByteArray>("multibets");
        QTest::addColumn<double>("percent");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("cells"); // taken, house cut, refunds due, for winners
        const auto row = [](const char *rule, const QByteArray &bets, const QByteArray &multibets,
                            double percent, const char *type, const char *cells) {
            QTest::newRow(rule) << bets << multibets << percent << type << cells;
        };
        // 10 % of 0.55 + 0.55 + 0.55 is 0.165, shown as 0.17 by Pay Winners: the three parts of
        // 0.06 add up to 0.18, so that show gives a cent.
        const QByteArray odd = "2,1,1,.55\r\n2,1,2,.55\r\n2,1,3,.55\r\n";
        row("cut of the race", odd, {}, 10, "Total", "$1.65 $0.17 $0.00 $1.48");
        row("cut of win", odd, {}, 10, "Win", "$0.55 $0.06 $0.00 $0.49");
        row("cut of show", odd, {}, 10, "Show", "$0.55 $0.05 $0.00 $0.50");
        row("without show the rest falls to place", "2,1,1,.55\r\n2,1,2,.55\r\n", {}, 10, "Place",
            "$0.55 $0.05 $0.00 $0.50");
        row("a scratched horse's money is due back, uncut", "2,5,1,10\r\n2,1,1,20\r\n", {}, 10,
            "Win", "$30.00 $2.00 $10.00 $18.00");
        row("cut of a multibet", {}, "1,2,0,\"EX\",2.5,2\r\n2,1,0,\"EX\",7.5,2\r\n", 10, "Exacta",
            "$10.00 $1.00 $0.00 $9.00");
        row("an exacta on a scratched horse is due back", {},
            "1,5,0,\"EX\",4,2\r\n1,2,0,\"EX\",6,2\r\n", 0, "Exacta", "$10.00 $0.00 $4.00 $6.00");
        row("the second leg is judged by the next race's card", {},
            "1,9,0,\"DD\",4,2\r\n1,2,0,\"DD\",6,2\r\n", 0, "Daily Double",
            "$10.00 $0.00 $6.00 $4.00");
        row("a race whose card is still empty holds no scratch", {}, "1,9,20,\"P3\",4,2\r\n", 0,
            "Pick 3", "$4.00 $0.00 $0.00 $4.00");
        row("what Pay Winners refuses is due back", "2,1,1,1500\r\n99,1,1,5\r\n",
            "1,2,0,\"XX\",4,2\r\n", 10, "Bad records", "$1,509.00 $0.00 $1,509.00 $0.00");
        row("a damaged line is no money", "2,1,1\r\n2,1,1,3\r\n2,1,1,1e30\r\n", {}, 0, "Total",
            "$3.00 $0.00 $0.00 $3.00");
        row("the house never takes more than all", "2,1,1,3\r\n", {}, 1e30, "Total",
            "$3.00 $3.00 $0.00 $0.00");
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
        QTEST(cashCells(report, u"Race 1"_s, type).join(u' '), "cells");
        QTEST(cashCells(report, u"Evening"_s, type).join(u' '), "cells");
        QVERIFY(cashCells(report, u"Race 2"_s, u"Total"_s).isEmpty());
    }
};

TRELAWN_TEST_MAIN(tst_reports)
#include "tst_reports.moc"
