// Loading, saving and totalling a ten-year journal: 3,650 days, 4 meals of 6 foods each, one
// workout and one health entry a day.
#include <benchmark/benchmark.h>

#include "model/SafeFile.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

namespace {

struct TenYears
{
    TempDir dir;
    Store store;
    std::vector<std::uint8_t> bytes;

    TenYears()
    {
        store.foods = generatedFoods(2000);
        store.foods.catalogue().appendComputed();
        store.journal.days = generatedJournal(store.foods, JournalShape{3650, 4, 6, 1, 1});
        bytes = store.journal.serialize();
        writeBytes(dir / "Ten Years.db", bytes);
    }
};

TenYears& tenYears()
{
    static TenYears data;
    return data;
}

void BM_LoadJournal(benchmark::State& state)
{
    TenYears& data = tenYears();
    const auto path = data.dir / "Ten Years.db";
    for (auto _ : state) {
        auto bytes = readWholeFile(path);
        auto journal = UserJournal::parse(bytes.value(), path.string());
        if (!journal || journal.value().days.size() != 3650)
            state.SkipWithError("the journal did not load");
        benchmark::DoNotOptimize(journal);
    }
    state.counters["bytes"] = static_cast<double>(data.bytes.size());
}
BENCHMARK(BM_LoadJournal)->Unit(benchmark::kMillisecond);

// Serialising and the atomic replacement of the file, flush to the disk included.
void BM_SaveJournal(benchmark::State& state)
{
    TenYears& data = tenYears();
    const auto path = data.dir / "Saved.db";
    for (auto _ : state) {
        const auto bytes = data.store.journal.serialize();
        if (!writeFileAtomically(path, bytes))
            state.SkipWithError("the journal could not be saved");
    }
}
BENCHMARK(BM_SaveJournal)->Unit(benchmark::kMillisecond);

void BM_SerialiseJournal(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state) {
        auto bytes = data.store.journal.serialize();
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(BM_SerialiseJournal)->Unit(benchmark::kMillisecond);

// Every day's totals of all 78 stored nutrients and the three energy shares.
void BM_AllDayTotals(benchmark::State& state)
{
    TenYears& data = tenYears();
    const Store& store = data.store;
    const int fat = store.foods.catalogue().indexOf(nutrient::Fat);
    const int energy = store.foods.catalogue().indexOf(nutrient::Energy);
    std::vector<ResolvedEntry> entries;
    for (auto _ : state) {
        double check = 0.0;
        for (const JournalDay& day : store.journal.days) {
            entries.clear();
            for (const Meal& m : day.meals)
                for (const FoodEntry& e : m.entries)
                    if (const FoodItem* f = store.findFood(e.food))
                        entries.push_back(ResolvedEntry{f, e.amount});
            const auto totals = groupStoredTotals(entries);
            const double kcal = totals[static_cast<std::size_t>(energy)];
            const double fatShare =
                kcal == 0.0 ? 0.0 : totals[static_cast<std::size_t>(fat)] * 9.0 / kcal;
            check += totals[0] + fatShare;
        }
        benchmark::DoNotOptimize(check);
    }
}
BENCHMARK(BM_AllDayTotals)->Unit(benchmark::kMillisecond);

} // namespace
