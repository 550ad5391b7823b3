// What the cash journal costs: a line, the till report of a full night, the ticks of a full race.

#include "common/event/bettors.h"
#include "common/event/cashanswers.h"
#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/files/recordfile.h"
#include "common/print/till.h"
#include "reports/eventreports.h"
#include "ui/paidlist.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int bettorsOfNight = 800;
constexpr int betsOfRace = 20000;
constexpr int winnersOfRace = 2000;

// Twelve full races, and a journal of two computers.
struct FullNight
{
    FullNight()
    {
        session.paths = HostPaths(folder.path());
        session.settings.initDrive = u"C:"_s;
        setFirstInit(session);
        session.settings.eventDirectory = defaultEventDirectory(session.settings);
        session.settings.roundingIndex = 3;
        makeInitFolder(session);
        CreateEventFiles(session);
    }

    void fill()
    {
        QByteArray bettors;
        for (int n = 1; n <= bettorsOfNight; ++n)
            bettors += QByteArray::number(n) + ",\"BETTOR " + QByteArray::number(n) + "\"\r\n";
        replaceRecordFile(mainFile(session, RecordFile::Bettors, 0), bettors);
        QByteArray bets;
        for (int n = 0; n < betsOfRace; ++n)
            bets += QByteArray::number(n * 7919 % bettorsOfNight + 1) + ','
                    + QByteArray::number(n % 21 + 1) + ',' + QByteArray::number(n % 3 + 1)
                    + ",5\r\n";
        for (int race = 1; race <= raceCount; ++race) {
            replaceRecordFile(mainFile(session, RecordFile::Bets, race), bets);
            CashEntry settlement{CashKind::Settled, race};
            settlement.settled = RaceSettled{};
            settlement.settled->payoffs.finishers = {3, 7, 12};
            for (float &payoff : settlement.settled->payoffs.perDollar)
                payoff = 2.5F;
            settlement.settled->roundingIndex = 3;
            recordCash(session, {settlement});
        }
        payAll();
    }

    // Every bettor's bets of every race are written down, and every winner is paid.
    void payAll()
    {
        std::vector<CashEntry> lines;
        for (int race = 1; race <= raceCount; ++race) {
            for (int bettor = 1; bettor <= bettorsOfNight; ++bettor)
                lines.push_back({CashKind::Bets, race, bettor, u"BETTOR %1"_s.arg(bettor),
                                 exactMoney(5.0 * betsOfRace / bettorsOfNight)});
        }
        recordCash(session, lines);
        lines.clear();
        for (const RaceTill &race :
             raceTills(readRaces(session, 0), readBettors(session), readCashJournal(session))) {
            for (const Unpaid &winner : race.unpaid)
                lines.push_back({CashKind::Paid, race.race, winner.name.section(u' ', 1).toInt(),
                                 winner.name, winner.dollars});
        }
        session.files.computer = u"DESK2"_s;
        recordCash(session, lines);
    }

    QTemporaryDir folder;
    Session session;
};

// To be set beside appendSheetOf63Cells: one more flushed append.
void appendCashLine(benchmark::State &state)
{
    FullNight night;
    for (auto _ : state)
        recordCash(night.session, {{CashKind::Bets, 1, 7, u"BETTOR 7"_s, 50000}});
}
BENCHMARK(appendCashLine)->Unit(benchmark::kMillisecond);

// What CALCULATE and PAY WINNER wait for.
void readJournals(benchmark::State &state)
{
    FullNight night;
    night.fill();
    for (auto _ : state)
        benchmark::DoNotOptimize(paidInRace(readCashJournal(night.session), 1));
}
BENCHMARK(readJournals)->Unit(benchmark::kMillisecond);

void tillReport(benchmark::State &state)
{
    FullNight night;
    night.fill();
    state.counters["journal_lines"] = double(readCashJournal(night.session).lines.size());
    for (auto _ : state)
        benchmark::DoNotOptimize(makeReport(night.session, {ReportKind::Cash}));
}
BENCHMARK(tillReport)->Unit(benchmark::kMillisecond);

void markWinners(benchmark::State &state)
{
    PaidList list;
    for (int n = 0; n < winnersOfRace; ++n)
        list.addItem(PaidList::makeLine(u"BETTOR %1"_s.arg(n), u"$16.00"_s));
    list.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        for (int row = 0; row < list.count(); ++row)
            PaidList::mark(list.item(row), u"paid $16.00 at 20:41"_s);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(markWinners)->Unit(benchmark::kMillisecond);

} // namespace
