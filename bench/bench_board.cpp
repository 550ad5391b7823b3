// What a bet costs the odds board in a full race: reading, in a thread of its own, and painting.

#include "board/boardreader.h"
#include "board/parts/boardview.h"
#include "fullevent.h"

#include <QImage>

#include <benchmark/benchmark.h>

namespace {

// The race with one more bet each time.
class GrowingRace
{
public:
    void addBet()
    {
        m_bytes += QByteArray::fromStdString(betLine(nthBet(++m_bets)));
        replaceRecordFile(mainFile(m_event.session, RecordFile::Bets, 1), m_bytes);
    }

    std::optional<BoardPicture> look()
    {
        return m_reader.look({m_event.session.paths, m_event.session.settings.eventDirectory});
    }

private:
    FullEvent m_event;
    BoardReader m_reader;
    int m_bets = fullRace;
    QByteArray m_bytes = QByteArray::fromStdString(raceOf(fullRace));
};

void readBoard(benchmark::State &state)
{
    GrowingRace race;
    for (auto _ : state) {
        state.PauseTiming();
        race.addBet();
        state.ResumeTiming();
        benchmark::DoNotOptimize(race.look());
    }
}
BENCHMARK(readBoard)->Unit(benchmark::kMillisecond)->Iterations(50);

// A look that finds nothing changed: what the board does every second.
void lookAtBoard(benchmark::State &state)
{
    FullEvent event;
    BoardReader reader;
    const BoardWish wish{event.session.paths, event.session.settings.eventDirectory};
    for (int looks = 0; looks < 10; ++looks)
        reader.look(wish);
    for (auto _ : state)
        benchmark::DoNotOptimize(reader.look(wish));
}
BENCHMARK(lookAtBoard)->Unit(benchmark::kMillisecond);

void paintBoard(benchmark::State &state)
{
    GrowingRace race;
    BoardView view(nullptr);
    view.resize(1920, 1080);
    QImage shown(view.size(), QImage::Format_RGB32);
    view.render(&shown);
    for (auto _ : state) {
        state.PauseTiming();
        race.addBet();
        const auto picture = race.look();
        state.ResumeTiming();
        view.setPicture(*picture);
        view.render(&shown);
    }
}
BENCHMARK(paintBoard)->Unit(benchmark::kMillisecond)->Iterations(50);

} // namespace
