// A thirty-year journal through the store: 10,950 days, 5 meals of 8 foods each, a workout and a
// health entry a day. Load (read, parse, normalise), normalise alone, and save with the backup.
#include <benchmark/benchmark.h>

#include "model/Store.h"
#include "support/Builders.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

namespace {

struct ThirtyYears
{
    TempDir dir;
    std::size_t fileSize = 0;

    ThirtyYears()
    {
        writeBytes(dir / "foods.db", generatedFoods(2000).serialize());
        Store s;
        s.setPaths(dir / "foods.db", dir.path());
        s.load();
        s.shared.routines.push_back(Routine{1, 250, "Morning", {1}});
        s.journal.days = generatedJournal(s.foods, JournalShape{10950, 5, 8, 1, 1}, 3);
        s.saveShared();
        s.saveCurrentUser();
        fileSize = readBytes(dir / "Example User.db").size();
    }
};

ThirtyYears& thirtyYears()
{
    static ThirtyYears data;
    return data;
}

void BM_LoadThirtyYears(benchmark::State& state)
{
    ThirtyYears& data = thirtyYears();
    for (auto _ : state) {
        Store s;
        s.setPaths(data.dir / "foods.db", data.dir.path());
        const auto report = s.load();
        if (!report.userFileRead || s.journal.days.size() != 10950)
            state.SkipWithError("the journal did not load");
        benchmark::DoNotOptimize(s.journal.days.data());
    }
    state.counters["bytes"] = static_cast<double>(data.fileSize);
}
BENCHMARK(BM_LoadThirtyYears)->Unit(benchmark::kMillisecond);

void BM_NormaliseThirtyYears(benchmark::State& state)
{
    ThirtyYears& data = thirtyYears();
    Store s;
    s.setPaths(data.dir / "foods.db", data.dir.path());
    s.load();
    for (auto _ : state)
        s.normalise();
}
BENCHMARK(BM_NormaliseThirtyYears)->Unit(benchmark::kMillisecond);

void BM_SaveThirtyYears(benchmark::State& state)
{
    ThirtyYears& data = thirtyYears();
    Store s;
    s.setPaths(data.dir / "foods.db", data.dir.path());
    s.load();
    long round = 0;
    for (auto _ : state) {
        // A changed note each round, so the file is really written (unchanged files are skipped).
        s.journal.days.front().notes[3] = std::to_string(++round);
        if (!s.saveCurrentUser().ok())
            state.SkipWithError("the journal could not be saved");
    }
}
BENCHMARK(BM_SaveThirtyYears)->Unit(benchmark::kMillisecond);

} // namespace
