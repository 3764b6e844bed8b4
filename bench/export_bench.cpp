// Export of a ten-year journal: 3,650 days, 4 meals of 6 foods each, one workout and one health
// entry a day, over foods with all 78 stored nutrients (so servings.csv has the width it has with
// the real food database).
#include <random>

#include <benchmark/benchmark.h>

#include "export/JournalExport.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/TempDir.h"

using namespace velmora::exchange;
using namespace velmora::model;
using namespace velmora::test;

namespace {

FoodDatabase fullWidthFoods(int count)
{
    std::vector<NutrientDef> catalogue = standardCatalogue();
    for (NutrientId n = 600; catalogue.size() < static_cast<std::size_t>(StoredNutrientCount); ++n)
        catalogue.push_back(NutrientDef{n, "mg", "Nutrient " + std::to_string(n)});
    std::mt19937 rng(7);
    std::uniform_real_distribution<float> value(0.0f, 30.0f);
    FoodDatabase db;
    db.setCatalogue(catalogue);
    for (int i = 0; i < count; ++i) {
        FoodItem f;
        f.number = 1000 + i;
        f.name = "Food number " + std::to_string(i) + ", raw";
        for (float& v : f.values)
            v = value(rng);
        f.values[3] = 50.0f + value(rng) * 10.0f; // energy
        f.measures.push_back(FoodMeasure{100.0f, "serving"});
        f.measures.push_back(FoodMeasure{28.35f, "oz"});
        db.addFood(std::move(f));
    }
    db.catalogue().appendComputed();
    return db;
}

struct TenYears
{
    Store store;

    TenYears()
    {
        store.foods = fullWidthFoods(2000);
        store.shared.userNames = {"Ten Years"};
        store.shared.fields = {{1, "Reps", 0}, {2, "Weight", 0}};
        store.shared.exercises = {{1, "Bench press", {1, 2}}};
        store.shared.routines = {{1, 300, "Strength", {1}}};
        store.journal.days = generatedJournal(store.foods, JournalShape{3650, 4, 6, 1, 1});
    }
};

TenYears& tenYears()
{
    static TenYears data;
    return data;
}

void exportInto(benchmark::State& state, bool csv, bool json)
{
    TenYears& data = tenYears();
    TempDir dir;
    ExportOptions options;
    options.csv = csv;
    options.json = json;
    std::size_t bytes = 0;
    for (auto _ : state) {
        auto result = exportJournal(data.store, dir.path(), options);
        if (!result || (csv && result.value().servings == 0))
            state.SkipWithError("the export failed");
    }
    for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
        bytes += static_cast<std::size_t>(entry.file_size());
    state.counters["bytes"] = static_cast<double>(bytes);
}

// The six CSV files, written into a folder and flushed to the disk.
void BM_ExportCsv(benchmark::State& state)
{
    exportInto(state, true, false);
}
BENCHMARK(BM_ExportCsv)->Unit(benchmark::kMillisecond);

void BM_ExportJson(benchmark::State& state)
{
    exportInto(state, false, true);
}
BENCHMARK(BM_ExportJson)->Unit(benchmark::kMillisecond);

void BM_ExportCsvAndJson(benchmark::State& state)
{
    exportInto(state, true, true);
}
BENCHMARK(BM_ExportCsvAndJson)->Unit(benchmark::kMillisecond);

// Building the CSV files in memory only: the share of the work that is not the disk's.
void BM_BuildCsv(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state) {
        JournalExport exporter(data.store, ExportOptions{});
        auto files = exporter.build();
        benchmark::DoNotOptimize(files);
    }
}
BENCHMARK(BM_BuildCsv)->Unit(benchmark::kMillisecond);

// The copy of the records that File > "Export..." makes on the window's thread before the export
// runs on its own: the pause the user sees before the progress bar moves.
void BM_CopyRecords(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state) {
        Store copy;
        copy.foods = data.store.foods;
        copy.shared = data.store.shared;
        copy.journal = data.store.journal;
        benchmark::DoNotOptimize(copy);
    }
}
BENCHMARK(BM_CopyRecords)->Unit(benchmark::kMillisecond);

} // namespace
