// Loading the built foods.db, searching its food names and scoring every food's protein.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "model/FoodDatabase.h"
#include "model/Nutrition.h"

namespace {

using velmora::model::FoodDatabase;

const FoodDatabase& builtDatabase()
{
    static const FoodDatabase db = [] {
        auto loaded = FoodDatabase::load(VELMORA_FOODS_DB);
        if (!loaded) {
            std::cerr << loaded.error().message() << "\n";
            std::abort();
        }
        FoodDatabase d = loaded.take();
        d.catalogue().appendComputed();
        return d;
    }();
    return db;
}

// The food page's search rule: the Windows-1252 name, upper-cased, contains the upper-cased text.
char upper(char c)
{
    const auto b = static_cast<unsigned char>(c);
    if ((b >= 'a' && b <= 'z') || (b >= 0xE0 && b <= 0xFE && b != 0xF7))
        return static_cast<char>(b - 0x20);
    return c;
}

std::size_t countMatches(const FoodDatabase& db, std::string_view key)
{
    std::size_t found = 0;
    for (const auto& f : db.foods())
        if (std::search(f.name.begin(), f.name.end(), key.begin(), key.end(),
                        [](char n, char k) { return upper(n) == k; }) != f.name.end())
            ++found;
    return found;
}

void BM_LoadFoodsDb(benchmark::State& state)
{
    for (auto _ : state) {
        auto db = FoodDatabase::load(VELMORA_FOODS_DB);
        if (!db) {
            state.SkipWithError(db.error().message().c_str());
            return;
        }
        benchmark::DoNotOptimize(db.value().foods().data());
    }
}
BENCHMARK(BM_LoadFoodsDb)->Unit(benchmark::kMillisecond);

void BM_SearchFoodNames(benchmark::State& state)
{
    const FoodDatabase& db = builtDatabase();
    // A common word, a rarer one, and one that matches nothing (every name is read to its end).
    static const std::string keys[] = {"CHEESE", "RAW", "QUINOA", "ZZZZ"};
    const std::string& key = keys[static_cast<std::size_t>(state.range(0))];
    std::size_t found = 0;
    for (auto _ : state) {
        found = countMatches(db, key);
        benchmark::DoNotOptimize(found);
    }
    state.SetLabel(key + ": " + std::to_string(found) + " foods");
}
BENCHMARK(BM_SearchFoodNames)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

void BM_ProteinScoreOfEveryFood(benchmark::State& state)
{
    const FoodDatabase& db = builtDatabase();
    for (auto _ : state) {
        double sum = 0;
        for (const auto& f : db.foods())
            sum += velmora::model::proteinScore(db.catalogue(), f);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(db.foods().size()));
}
BENCHMARK(BM_ProteinScoreOfEveryFood)->Unit(benchmark::kMillisecond);

} // namespace
