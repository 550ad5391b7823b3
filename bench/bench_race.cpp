// What a full race costs: 20,000 bets of 2,000 bettors on 21 horses.

#include "betting/placement.h"
#include "common/event/bettors.h"
#include "common/event/eventfiles.h"
#include "common/event/init.h"
#include "common/event/racefiles.h"
#include "common/event/settle.h"
#include "common/files/recordfile.h"
#include "screens.h"
#include "ui/mainwindow.h"
#include "ui/printing.h"
#include "ui/slipprinter.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int bettorCount = 2000;
constexpr int fullRace = 20000;

// The n-th bet of a race whose amounts, horses and bettors follow no pattern.
Bet nthBet(int n)
{
    const auto mixed = unsigned(n) * 2654435761U >> 7;
    return {float(mixed % bettorCount + 1), float(mixed / 3 % postCount + 1),
            float(mixed / 7 % 3 + 1), float(mixed / 11 % 40 + 1) / 2};
}

std::string raceOf(int bets)
{
    std::string bytes;
    for (int n = 0; n < bets; ++n)
        bytes += betLine(nthBet(n));
    return bytes;
}

RaceResult raceResult()
{
    RaceResult race;
    race.finishers = {3, 7, 12};
    race.bettorCount = bettorCount;
    race.housePercent = 10;
    return race;
}

// An event in a temporary folder with a full race 1.
struct FullEvent
{
    FullEvent()
    {
        session.paths = HostPaths(folder.path());
        session.settings.initDrive = u"C:"_s;
        setFirstInit(session);
        session.settings.eventDirectory = defaultEventDirectory(session.settings);
        makeInitFolder(session);
        CreateEventFiles(session);
        QByteArray bettors;
        for (int n = 1; n <= bettorCount; ++n)
            bettors += QByteArray::number(n) + ",\"BETTOR " + QByteArray::number(n * 7919 % 9973)
                       + "\"\r\n";
        replaceRecordFile(mainFile(session, RecordFile::Bettors, 0), bettors);
        HorseTable horses;
        for (int post = 1; post <= postCount; ++post)
            horses.post(post) = {post, post <= 2 ? 1 : 0, QString::number(post),
                                 "HORSE "_L1 + QString::number(post)};
        saveHorses(session, horses);
        refill();
    }

    void refill()
    {
        const auto bytes = QByteArray::fromStdString(raceOf(fullRace));
        replaceRecordFile(mainFile(session, RecordFile::Bets, 1), bytes);
        replaceRecordFile(twinFile(session, RecordFile::Bets, 1), bytes);
    }

    QTemporaryDir folder;
    Session session;
};

BetEntries fullSheet()
{
    BetEntries entries;
    for (int post = 1; post <= postCount; ++post) {
        for (const BetType type : {BetType::Win, BetType::Place, BetType::Show})
            entries.add(post, type, 2);
    }
    return entries;
}

void loadBets(benchmark::State &state)
{
    const std::string bytes = raceOf(int(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(poolsOf(parseBets(bytes)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(loadBets)
    ->RangeMultiplier(10)
    ->Range(2000, 200000)
    ->Arg(fullRace)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void settleRace(benchmark::State &state)
{
    const BetTable bets = parseBets(raceOf(int(state.range(0))));
    const RaceResult race = raceResult();
    for (auto _ : state)
        benchmark::DoNotOptimize(settle(bets, race));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(settleRace)
    ->RangeMultiplier(10)
    ->Range(2000, 200000)
    ->Arg(fullRace)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

void loadRaceFile(benchmark::State &state)
{
    FullEvent event;
    for (auto _ : state)
        LoadRaceBets(event.session);
}
BENCHMARK(loadRaceFile)->Unit(benchmark::kMillisecond);

void planSheetOf63Cells(benchmark::State &state)
{
    const BetEntries entries = fullSheet();
    for (auto _ : state)
        benchmark::DoNotOptimize(planPlacement(entries, 7, 0, fullRace));
}
BENCHMARK(planSheetOf63Cells)->Unit(benchmark::kMicrosecond);

// To file and twin, flushed to the disk.
void appendSheetOf63Cells(benchmark::State &state)
{
    FullEvent event;
    const PlacementPlan plan = planPlacement(fullSheet(), 7, 0, fullRace);
    for (auto _ : state)
        AppendBet(event.session, plan.bets);
}
BENCHMARK(appendSheetOf63Cells)->Unit(benchmark::kMillisecond);

// The list window with every bet of the race, as long as a bet's line is.
void listAllBets(benchmark::State &state)
{
    FullEvent event;
    SlipPrinter printer;
    Navigator navigator(event.session, printer, allScreens());
    navigator.open(u"frmmenub"_s);
    QStringList lines;
    for (int n = 1; n <= fullRace; ++n)
        lines.append(QString::number(n) + u"  SECOND WIND           Win            $1,234.50"_s);
    for (auto _ : state) {
        showListing({event.session, navigator, printer}, lines);
        QCoreApplication::processEvents();
        navigator.window()->findChild<QAbstractButton *>(u"cmdreturn"_s)->click();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(listAllBets)->Unit(benchmark::kMillisecond);

// Bytes of memory that the process has taken; 0 where the system does not tell.
double memoryTaken()
{
    QFile status(u"/proc/self/statm"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    return status.readAll().split(' ').value(1).toDouble() * 4096;
}

void openBetSheet(benchmark::State &state)
{
    FullEvent event;
    SlipPrinter printer;
    Navigator navigator(event.session, printer, allScreens());
    const auto open = [&navigator] {
        navigator.open(u"frmsheetb"_s);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    for (int n = 0; n < 50; ++n)
        open();
    const double before = memoryTaken();
    for (auto _ : state)
        open();
    state.counters["growth_bytes"] = (memoryTaken() - before) / double(state.iterations());
}
BENCHMARK(openBetSheet)->Unit(benchmark::kMillisecond);

// The repair screen: the bet file in its grid, then sorted by amount.
void showBetFile(benchmark::State &state)
{
    FullEvent event;
    SlipPrinter printer;
    Navigator navigator(event.session, printer, allScreens());
    navigator.open(u"frmfixb"_s);
    navigator.current()->findChild<QAbstractButton *>(u"optflight_1"_s)->click();
    for (auto _ : state) {
        navigator.current()->findChild<QAbstractButton *>(u"cmdbets"_s)->click();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(showBetFile)->Unit(benchmark::kMillisecond);

void sortBetFile(benchmark::State &state)
{
    FullEvent event;
    SlipPrinter printer;
    Navigator navigator(event.session, printer, allScreens());
    navigator.open(u"frmfixb"_s);
    QWidget *screen = navigator.current();
    screen->findChild<QAbstractButton *>(u"optflight_1"_s)->click();
    screen->findChild<QAbstractButton *>(u"cmdbets"_s)->click();
    auto *grid = screen->findChild<QAbstractItemView *>(u"grdfix"_s);
    grid->setCurrentIndex(grid->model()->index(0, 6));
    for (auto _ : state) {
        screen->findChild<QAbstractButton *>(u"chknum"_s)->click();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(sortBetFile)->Unit(benchmark::kMillisecond);

} // namespace
