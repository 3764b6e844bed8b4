// The graphs page's data over one year of a ten-year journal (3,650 days, 4 meals of 6 foods, one
// workout and one health entry a day) with the goal list a new user gets from foods.db: the
// nutritional analysis table and nutrient and health curves.
#include <benchmark/benchmark.h>

#include "analysis/logic/GraphSeries.h"
#include "analysis/logic/NutritionAnalysis.h"
#include "model/Store.h"
#include "model/User.h"
#include "support/Builders.h"

using namespace velmora;
using model::CalendarDate;

namespace {

struct TenYears
{
    model::Store store;
    bool realFoods = false;

    TenYears()
    {
        auto foods = model::FoodDatabase::load(VELMORA_FOODS_DB);
        realFoods = foods.ok();
        store.foods = realFoods ? foods.take() : test::generatedFoods(2000);
        store.foods.catalogue().appendComputed();
        store.journal.days =
            test::generatedJournal(store.foods, test::JournalShape{3650, 4, 6, 1, 1});
        model::User& user = store.journal.user;
        user.goalNutrients = model::defaultGoalNutrients(store.foods);
        user.goalValues.assign(user.goalNutrients.size(), 100.0f);
    }
};

TenYears& tenYears()
{
    static TenYears data;
    return data;
}

const CalendarDate YearFrom{2019, 1, 1};
const CalendarDate YearTo{2019, 12, 31};

void BM_AnalysisTableOneYear(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state) {
        auto table = analysis::buildAnalysis(data.store, YearFrom, YearTo);
        if (table.days != 365)
            state.SkipWithError("the year did not hold 365 days with meals");
        benchmark::DoNotOptimize(table);
    }
    state.counters["goals"] = static_cast<double>(data.store.journal.user.goalNutrients.size());
    state.counters["foods.db"] = data.realFoods ? 1 : 0;
}
BENCHMARK(BM_AnalysisTableOneYear)->Unit(benchmark::kMillisecond);

void BM_AnalysisTableTenYears(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state)
        benchmark::DoNotOptimize(analysis::buildAnalysis(data.store, {2015, 1, 1}, {2024, 12, 31}));
}
BENCHMARK(BM_AnalysisTableTenYears)->Unit(benchmark::kMillisecond);

// Energy is a stored nutrient; "% Fat" takes the group rule over each day's entries.
void BM_NutrientCurveOneYear(benchmark::State& state)
{
    TenYears& data = tenYears();
    const auto nutrient = static_cast<model::NutrientId>(state.range(0));
    for (auto _ : state) {
        auto curve = analysis::nutrientCurve(data.store, YearFrom, YearTo, nutrient);
        if (!curve || curve->points.size() != 365)
            state.SkipWithError("the curve did not have 365 points");
        benchmark::DoNotOptimize(curve);
    }
}
BENCHMARK(BM_NutrientCurveOneYear)->Arg(208)->Arg(100)->Unit(benchmark::kMillisecond);

void BM_HealthCurveOneYear(benchmark::State& state)
{
    TenYears& data = tenYears();
    for (auto _ : state)
        benchmark::DoNotOptimize(analysis::healthCurve(data.store.journal.days, YearFrom, YearTo,
                                                       analysis::HealthItem::WakeTime, false));
}
BENCHMARK(BM_HealthCurveOneYear)->Unit(benchmark::kMillisecond);

void BM_BaseCurveOneYear(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(analysis::baseCurve(YearFrom, YearTo));
}
BENCHMARK(BM_BaseCurveOneYear)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
