// The suggestions under the search box over every food of the built foods.db, one call per key
// typed, with a ten-year journal's eating history; the word index built once per database, and the
// eating history read again after the journal changed.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "food/logic/FoodSearch.h"
#include "food/logic/Suggestions.h"
#include "model/DateText.h"
#include "model/FoodDatabase.h"
#include "support/Builders.h"

namespace {

using namespace velmora;

const model::FoodDatabase& builtDatabase()
{
    static const model::FoodDatabase db = [] {
        auto loaded = model::FoodDatabase::load(VELMORA_FOODS_DB);
        if (!loaded) {
            std::cerr << loaded.error().message() << "\n";
            std::abort();
        }
        return loaded.take();
    }();
    return db;
}

// What people type, key by key.
const std::vector<std::string>& phrases()
{
    static const std::vector<std::string> p{"banana", "egg whole raw", "raw egg", "chicken breast",
                                            "b",      "cheese cheddar"};
    return p;
}

void BM_BuildWordIndex(benchmark::State& state)
{
    for (auto _ : state) {
        food::FoodWordIndex index(builtDatabase().foods());
        benchmark::DoNotOptimize(index.size());
    }
}
BENCHMARK(BM_BuildWordIndex)->Unit(benchmark::kMillisecond);

// The eating history of a ten-year journal, read again at the first key after the journal changed.
void BM_EatingHistory(benchmark::State& state)
{
    const std::vector<model::JournalDay> days =
        test::generatedJournal(builtDatabase(), test::JournalShape{}, 7);
    for (auto _ : state)
        benchmark::DoNotOptimize(food::eatingHistory(days).size());
}
BENCHMARK(BM_EatingHistory)->Unit(benchmark::kMillisecond);

// One iteration types a whole phrase, one suggestion list per key; the time per key is the
// iteration time over the phrase's length.
void BM_SuggestPerKey(benchmark::State& state)
{
    const model::FoodDatabase& db = builtDatabase();
    const food::FoodWordIndex index(db.foods());
    const food::FoodHistory history =
        food::eatingHistory(test::generatedJournal(db, test::JournalShape{}, 7));
    const std::vector<model::FoodItem> custom;
    const food::WordSearchContext context{index, custom, history,
                                          model::CalendarDate{2026, 11, 22}.dayNumber()};
    const std::string& phrase = phrases()[static_cast<std::size_t>(state.range(0))];
    for (auto _ : state)
        for (std::size_t n = 1; n <= phrase.size(); ++n)
            benchmark::DoNotOptimize(
                food::suggestFoods(context, phrase.substr(0, n), food::AllGroupsValue));
    state.SetLabel(phrase);
    state.counters["per key"] = benchmark::Counter(static_cast<double>(phrase.size()),
                                                   benchmark::Counter::kIsIterationInvariantRate |
                                                       benchmark::Counter::kInvert);
}
BENCHMARK(BM_SuggestPerKey)->DenseRange(0, 5)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
