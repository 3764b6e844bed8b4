// Series of the graphs page: the base curve, nutrient, health, variable and fitness curves and the
// diet plan graph.

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "analysis/logic/DayRange.h"
#include "analysis/logic/GraphSeries.h"
#include "model/Store.h"
#include "support/Builders.h"

using namespace velmora;
using analysis::HealthItem;
using analysis::Series;
using model::CalendarDate;

namespace {

model::TimeT at(CalendarDate d, int hour = 0, int minute = 0)
{
    return d.toTime() + hour * 3600 + minute * 60;
}

// A curve as "label: M/D=value ...", or "none".
std::string shown(const std::optional<Series>& s)
{
    if (!s)
        return "none";
    std::string out = s->label + ":";
    for (const auto& p : s->points) {
        const CalendarDate d = CalendarDate::fromTime(p.date);
        out += model::formatText(" %d/%d=%g", d.month, d.day, p.value);
    }
    return out;
}

model::ExerciseRecord set(std::int32_t exercise, std::vector<model::ExerciseValue> values)
{
    model::ExerciseRecord r;
    r.exercise = exercise;
    r.values = std::move(values);
    return r;
}

// March 2026: the 12th with a meal and a health entry, the 10th with a meal only (stored after
// the 12th), the 11th with health values and a workout but no meal, the 14th with an empty health
// entry and a meal, the 20th (outside the usual range) with everything.
struct GraphData
{
    model::Store store;
    GraphData()
    {
        const auto catalogue = test::standardCatalogue();
        store.foods.setCatalogue(catalogue);
        store.foods.catalogue().appendComputed();
        store.foods.addFood(
            test::FoodBuilder(catalogue, 1001).value(208, 200.0f).value(203, 10.0f));

        auto& days = store.journal.days;
        days.push_back(test::dayWithMeal(CalendarDate{2026, 3, 12}.toTime(), 0, {{1001, 2.0f}}));
        model::HealthEntry& h = days.back().health;
        h.weight = 181.5f;
        h.bodyFat = 21.0f;
        h.vo2Max = 44.0f;
        h.temperature = 98.2f;
        h.wakeTime = at({2026, 3, 12}, 7, 30);
        h.measurements[static_cast<std::size_t>(model::Measurement::RightBicep)] = 15.0f;
        h.measurements[static_cast<std::size_t>(model::Measurement::LeftBicep)] = 14.5f;
        h.measurements[static_cast<std::size_t>(model::Measurement::RightCalf)] = 16.0f;
        h.measurements[static_cast<std::size_t>(model::Measurement::LeftCalf)] = 15.5f;
        h.variables = {{5, 1.5f, "", 0}, {6, 9.0f, "", 0}, {5, 2.0f, "", 0}};

        days.push_back(test::dayWithMeal(CalendarDate{2026, 3, 10}.toTime(), 2, {{1001, 1.0f}}));

        model::JournalDay d11;
        d11.date = CalendarDate{2026, 3, 11}.toTime();
        d11.health.weight = 182.0f;
        model::WorkoutEntry w;
        w.exercises = {set(7, {{1, "10"}, {2, "0:31:05"}}), set(7, {{1, "12"}, {2, "oops"}}),
                       set(8, {{1, "50"}})};
        d11.workouts.push_back(w);
        days.push_back(d11);

        days.push_back(test::dayWithMeal(CalendarDate{2026, 3, 14}.toTime(), 1, {{1001, 0.5f}}));

        model::JournalDay d20 =
            test::dayWithMeal(CalendarDate{2026, 3, 20}.toTime(), 0, {{1001, 1.0f}});
        d20.health.weight = 179.0f;
        model::WorkoutEntry w20;
        w20.exercises = {set(7, {{1, "8"}, {2, "0:29:40"}})};
        d20.workouts.push_back(w20);
        days.push_back(d20);
    }
};

const CalendarDate From{2026, 3, 10};
const CalendarDate To{2026, 3, 14};

} // namespace

TEST(GraphSeries, BaseCurveRunsFromFromToTheDayBeforeTo)
{
    struct Case
    {
        CalendarDate from, to;
        std::size_t count;
        CalendarDate last;
    };
    const Case cases[] = {
        {{2026, 3, 1}, {2026, 3, 8}, 7, {2026, 3, 7}},
        {{2025, 12, 30}, {2026, 1, 2}, 3, {2026, 1, 1}},
        {{2024, 2, 28}, {2024, 3, 1}, 2, {2024, 2, 29}},
        {{2026, 3, 8}, {2026, 3, 8}, 0, {}}, // same day: no graph
        {{2026, 3, 8}, {2026, 3, 1}, 0, {}},
    };
    for (const Case& c : cases) {
        const auto base = analysis::baseCurve(c.from, c.to);
        ASSERT_EQ(base.has_value(), c.count > 0) << c.from.day;
        if (!base)
            continue;
        EXPECT_EQ(base->points.size(), c.count);
        EXPECT_EQ(base->points.front().date, c.from.toTime());
        EXPECT_EQ(base->points.back().date, c.last.toTime());
        for (const auto& p : base->points)
            EXPECT_EQ(p.value, 0.0);
    }
}

TEST(GraphSeries, NutrientCurveTakesDaysWithMealsInDateOrder)
{
    GraphData data;
    EXPECT_EQ(shown(analysis::nutrientCurve(data.store, From, To, 208)),
              "Energy: 3/10=200 3/12=400 3/14=100");
    // Only the 11th in range, which has no meal.
    EXPECT_FALSE(analysis::nutrientCurve(data.store, {2026, 3, 11}, {2026, 3, 11}, 208));
    EXPECT_FALSE(analysis::nutrientCurve(data.store, To, From, 208));
}

TEST(GraphSeries, HealthItemsReadTheFieldOfTheirOwnName)
{
    GraphData data;
    const auto& days = data.store.journal.days;
    // The 11th and the 12th hold health values; the 14th's entry is empty. The 11th has no wake
    // time.
    const std::pair<HealthItem, const char*> cases[] = {
        {HealthItem::Weight, "Weight: 3/11=182 3/12=181.5"},
        {HealthItem::BodyFat, "Body Fat %: 3/11=0 3/12=21"},
        {HealthItem::Vo2Max, "V02 Max: 3/11=0 3/12=44"},
        {HealthItem::Temperature, "Temperature: 3/11=0 3/12=98.2"},
        {HealthItem::LeftBicep, "Left Bicep: 3/11=0 3/12=14.5"},
        {HealthItem::RightBicep, "Right Bicep: 3/11=0 3/12=15"},
        {HealthItem::LeftCalf, "Left Calf: 3/11=0 3/12=15.5"},
        {HealthItem::RightCalf, "Right Calf: 3/11=0 3/12=16"},
        {HealthItem::WakeTime, "Wake Time: 3/12=27000"}, // 7:30 as seconds after midnight
    };
    for (const auto& [item, expected] : cases)
        EXPECT_EQ(shown(analysis::healthCurve(days, From, To, item, false)), expected);
    const auto imperial = analysis::healthCurve(days, From, To, HealthItem::WakeTime, false);
    const auto metric = analysis::healthCurve(days, From, To, HealthItem::WakeTime, true);
    EXPECT_EQ(imperial->axis, analysis::AxisKind::Time);
    EXPECT_STREQ(imperial->axisFormat, "%I:%M:%S%p");
    EXPECT_STREQ(metric->axisFormat, "%H:%M:%S ");
    EXPECT_EQ(analysis::healthCurve(days, From, To, HealthItem::Weight, true)->axis,
              analysis::AxisKind::Number);
    EXPECT_FALSE(
        analysis::healthCurve(days, {2026, 3, 13}, {2026, 3, 14}, HealthItem::Pulse, false));

    model::UserVariable vitamin;
    vitamin.id = 5;
    vitamin.name = "Vitamin c";
    EXPECT_EQ(shown(analysis::variableCurve(days, From, To, vitamin)),
              "Vitamin c: 3/11=0 3/12=3.5");
}

TEST(GraphSeries, FitnessCurveTakesEachDaysGreatestReadableValue)
{
    GraphData data;
    const auto& days = data.store.journal.days;
    const model::Exercise running{7, "Running", {1, 2}};
    const model::ExerciseField laps{1, "Laps", 0};
    const model::ExerciseField time{2, "Time", 2};

    const auto lapCurve = analysis::fitnessCurve(days, From, {2026, 3, 31}, running, laps);
    EXPECT_EQ(shown(lapCurve), "Running - Laps: 3/11=12 3/20=8");
    EXPECT_EQ(lapCurve->axis, analysis::AxisKind::Number);
    const auto timeCurve = analysis::fitnessCurve(days, From, {2026, 3, 31}, running, time);
    EXPECT_EQ(shown(timeCurve), "Running - Time: 3/11=1865 3/20=1780");
    EXPECT_EQ(timeCurve->axis, analysis::AxisKind::Time);
    EXPECT_STREQ(timeCurve->axisFormat, "%H:%M:%S ");

    EXPECT_FALSE(analysis::fitnessCurve(days, {2026, 3, 12}, {2026, 3, 14}, running, laps));

    struct TimeCase
    {
        const char* text;
        std::optional<double> seconds;
    };
    const TimeCase times[] = {{"00:00:00", 0.0},         {"1:02:03", 3723.0},
                              {" 0:10 ", 600.0},         {"0:61:00", std::nullopt},
                              {"1:2:3:4", std::nullopt}, {"12", std::nullopt}};
    for (const TimeCase& c : times)
        EXPECT_EQ(analysis::fieldTimeSeconds(c.text), c.seconds) << c.text;
}

TEST(GraphSeries, DietPlanGraphNeedsAPlanAndAValidRange)
{
    GraphData data;
    model::User& user = data.store.journal.user;
    user.planStart = at({2026, 3, 11});
    user.planEnd = at({2026, 3, 21});
    user.planStartWeight = 182.0f;
    user.planEndWeight = 175.0f;

    auto g = analysis::dietPlanGraph(user, data.store.journal.days);
    EXPECT_EQ(g.state, analysis::DietPlanGraph::State::NoPlan);

    user.changeWeight = 1;
    g = analysis::dietPlanGraph(user, data.store.journal.days);
    ASSERT_EQ(g.state, analysis::DietPlanGraph::State::Shown);
    EXPECT_EQ(g.from, (CalendarDate{2026, 3, 11}));
    EXPECT_EQ(g.to, (CalendarDate{2026, 3, 21}));
    EXPECT_EQ(g.base->points.size(), 10u);
    EXPECT_EQ(shown(g.weight).substr(g.weight->label.size()), ": 3/11=182 3/12=181.5 3/20=179");
    EXPECT_EQ(g.plan.label, "Plan");
    EXPECT_FALSE(g.plan.ownAxisShown);
    EXPECT_EQ(g.plan.points,
              (std::vector<analysis::SeriesPoint>{{user.planStart, 182.0}, {user.planEnd, 175.0}}));

    user.planStart = at({2026, 3, 1});
    user.planEnd = at({2026, 3, 9});
    g = analysis::dietPlanGraph(user, data.store.journal.days);
    EXPECT_EQ(g.state, analysis::DietPlanGraph::State::Shown);
    EXPECT_FALSE(g.weight); // no weight recorded in the plan's days
    EXPECT_EQ(g.plan.points.size(), 2u);

    user.planEnd = user.planStart + 3600;
    EXPECT_EQ(analysis::dietPlanGraph(user, data.store.journal.days).state,
              analysis::DietPlanGraph::State::InvalidRange);
}

// The trend of a constructed series: values worked by hand, a gap of days weighing as many days.
TEST(GraphSeries, TrendSmoothsOverTheDaysBetweenPoints)
{
    const CalendarDate d1{2026, 3, 1};
    Series weight;
    weight.label = "Weight";
    const auto day = [&](int n) { return at(analysis::dateOfDayNumber(d1.dayNumber() + n)); };
    weight.points = {{day(0), 180.0}, {day(1), 170.0}, {day(3), 170.0}, {day(3), 190.0}};
    const std::optional<Series> trend = analysis::trendCurve(weight);
    ASSERT_TRUE(trend);
    EXPECT_FALSE(trend->ownAxisShown); // on the weight's scale
    // 180; 180 + 0.1 (170 - 180) = 179; two days: 179 + 0.19 (170 - 179) = 177.29; the same
    // day again moves nothing.
    EXPECT_EQ(shown(trend), "Weight trend: 3/1=180 3/2=179 3/4=177.29 3/4=177.29");

    // A steady line is followed with the smoothing's delay, settling at 9 days' change behind.
    Series line;
    for (int n = 0; n < 200; ++n)
        line.points.push_back({day(n), 100.0 + 0.5 * n});
    EXPECT_NEAR(line.points.back().value - analysis::trendCurve(line)->points.back().value, 4.5,
                1e-6);

    Series times;
    times.axis = analysis::AxisKind::Time;
    times.points = weight.points;
    EXPECT_FALSE(analysis::trendCurve(times));
    EXPECT_FALSE(analysis::trendCurve(Series{}));
}

TEST(GraphSeries, QuickRangesEndToday)
{
    const CalendarDate today{2028, 2, 29};
    std::vector<model::JournalDay> days(2);
    days[0].date = at({2025, 6, 3}, 12);
    days[1].date = at({2026, 1, 1});
    std::vector<model::JournalDay> ahead(1);
    ahead[0].date = at({2028, 3, 4});
    using analysis::QuickRange;
    struct Case
    {
        QuickRange range;
        const std::vector<model::JournalDay>& days;
        CalendarDate from;
        CalendarDate to;
    };
    const std::vector<model::JournalDay> none;
    const Case cases[] = {
        {QuickRange::Week, days, {2028, 2, 22}, today},
        {QuickRange::Month, days, {2028, 1, 30}, today},
        {QuickRange::Quarter, days, {2027, 12, 1}, today},
        {QuickRange::Year, days, {2027, 2, 28}, today},
        {QuickRange::All, days, {2025, 6, 3}, today},
        {QuickRange::All, none, {2028, 1, 30}, today},
        {QuickRange::Week, ahead, {2028, 2, 22}, {2028, 3, 4}}, // a day ahead of today shows
    };
    for (const Case& c : cases) {
        const analysis::DateRange r = analysis::quickRange(c.range, today, c.days);
        EXPECT_EQ(r.from, c.from) << static_cast<int>(c.range);
        EXPECT_EQ(r.to, c.to) << static_cast<int>(c.range);
    }
}
