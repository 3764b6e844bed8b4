// The nutritional analysis table, its text and CSV forms, and the printed report's pages.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "analysis/logic/NutritionAnalysis.h"
#include "analysis/logic/ReportPages.h"
#include "model/Store.h"
#include "support/Builders.h"

using namespace velmora;
using analysis::AnalysisTable;
using model::CalendarDate;

namespace {

// A food of 100 kcal, 10 g protein and 2 g fat per 100 g: an amount of 25 is 2500 kcal.
struct AnalysisData
{
    model::Store store;
    AnalysisData()
    {
        auto catalogue = test::standardCatalogue();
        catalogue[4].name = "Fiber, \"total\"";
        store.foods.setCatalogue(catalogue);
        store.foods.catalogue().appendComputed();
        store.foods.addFood(test::FoodBuilder(catalogue, 1001)
                                .value(208, 100.0f)
                                .value(203, 10.0f)
                                .value(204, 2.0f)
                                .value(291, 1.0f));
        model::User& user = store.journal.user;
        user.goalNutrients = {208, 203, 100, 291};
        user.goalValues = {2000.0f, 50.0f, 30.0f, 20.0f};
    }
    // A day of the given kcal eaten and the given calories burned in one workout.
    void addDay(CalendarDate date, float kcal, std::int32_t burned = 0)
    {
        model::JournalDay day = test::dayWithMeal(date.toTime(), 0, {{1001, kcal / 100.0f}});
        if (kcal == 0.0f)
            day.meals.clear();
        if (burned != 0) {
            model::WorkoutEntry w;
            w.calories = burned;
            day.workouts.push_back(w);
        }
        store.journal.days.push_back(day);
    }
    std::vector<std::vector<std::string>> cells(CalendarDate from, CalendarDate to) const
    {
        std::vector<std::vector<std::string>> out;
        for (const auto& row : analysis::buildAnalysis(store, from, to).rows)
            out.push_back({row.cells.begin(), row.cells.end()});
        return out;
    }
};

using Rows = std::vector<std::vector<std::string>>;

} // namespace

TEST(NutritionAnalysis, AveragesOverDaysWithMealsAndEstimatesTheWeightChange)
{
    // Two days of 2500 kcal, the second with a 300 kcal workout: net 2500 and 2200. The 4th has a
    // workout but no meal and counts not at all; the 9th lies outside the period.
    AnalysisData data;
    data.addDay({2026, 3, 2}, 2500.0f);
    data.addDay({2026, 3, 4}, 0.0f, 1000);
    data.addDay({2026, 3, 3}, 2500.0f, 300);
    data.addDay({2026, 3, 9}, 9000.0f);
    const CalendarDate from{2026, 3, 1}, to{2026, 3, 8};

    const AnalysisTable table = analysis::buildAnalysis(data.store, from, to);
    EXPECT_EQ(table.state, AnalysisTable::State::Rows);
    EXPECT_EQ(table.days, 2);
    // (4700 - 4000) / 3500 = 0.2 lb; protein 250 g a day; fat 50 g x 9 / 2500 kcal = 18 %.
    const Rows imperial = {{"Energy", "2350.0", "2000.0", "0.2 lbs *"},
                           {"Protein", "250.0", "50.0", "200.0"},
                           {"% Fat", "18.0", "30.0", "-"},
                           {"Fiber, \"total\"", "25.0", "20.0", "5.0"}};
    EXPECT_EQ(data.cells(from, to), imperial);

    data.store.journal.user.metric = 1;
    EXPECT_EQ(data.cells(from, to)[0][3], "0.1 kg. *"); // 0.2 lb / 2.2046

    // While changing weight the plan's daily change counts as eaten: 4700 - 2 x 500 = 3700.
    data.store.journal.user.metric = 0;
    data.store.journal.user.changeWeight = 1;
    data.store.journal.user.dailyChange = -500.0f;
    EXPECT_EQ(data.cells(from, to)[0][3], "-0.1 lbs *");
}

TEST(NutritionAnalysis, FourDaysWithMealsOutOfTenAverageOverFour)
{
    AnalysisData data;
    data.addDay({2026, 5, 1}, 1000.0f);
    data.addDay({2026, 5, 4}, 2000.0f);
    data.addDay({2026, 5, 7}, 3000.0f);
    data.addDay({2026, 5, 10}, 4000.0f); // To is included
    const auto rows = data.cells({2026, 5, 1}, {2026, 5, 10});
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(rows[0], (std::vector<std::string>{"Energy", "2500.0", "2000.0", "0.6 lbs *"}));
}

TEST(NutritionAnalysis, EmptyTablesAndGoalsNotSet)
{
    struct Case
    {
        const char* what;
        float kcal;
        std::int32_t burned;
        bool goalsSet;
        CalendarDate from, to;
        AnalysisTable::State state;
    };
    const CalendarDate day{2026, 6, 15};
    const Case cases[] = {
        {"a period without meals", 0.0f, 500, true, day, day, AnalysisTable::State::Empty},
        {"From after To", 2000.0f, 0, true, {2026, 6, 16}, day, AnalysisTable::State::Empty},
        {"net energy of exactly 0", 500.0f, 500, true, day, day, AnalysisTable::State::Empty},
        {"goals never set", 2000.0f, 0, false, day, day, AnalysisTable::State::GoalsNotSet},
        {"no meal before goals matter", 0.0f, 0, false, day, day, AnalysisTable::State::Empty},
    };
    for (const Case& c : cases) {
        AnalysisData data;
        data.addDay(day, c.kcal, c.burned);
        if (!c.goalsSet)
            data.store.journal.user.goalValues.clear();
        const AnalysisTable table = analysis::buildAnalysis(data.store, c.from, c.to);
        EXPECT_EQ(table.state, c.state) << c.what;
        EXPECT_TRUE(table.rows.empty()) << c.what;
    }
}

TEST(NutritionAnalysis, TextAndCsvForms)
{
    AnalysisData data;
    data.addDay({2026, 3, 2}, 2500.0f);
    data.addDay({2026, 3, 3}, 2500.0f, 300);
    const AnalysisTable table = analysis::buildAnalysis(data.store, {2026, 3, 2}, {2026, 3, 3});

    std::ostringstream text;
    analysis::writeAnalysisText(text, table);
    EXPECT_EQ(text.str(), "Nutrient\tAvg\tDaily Goal\tNet\n"
                          "Energy\t2350.0\t2000.0\t0.2 lbs *\n"
                          "Protein\t250.0\t50.0\t200.0\n"
                          "% Fat\t18.0\t30.0\t-\n"
                          "Fiber, \"total\"\t25.0\t20.0\t5.0\n");

    std::ostringstream csv;
    analysis::writeAnalysisCsv(csv, table);
    EXPECT_EQ(csv.str(), "Nutrient,Avg,Daily Goal,Net\r\n"
                         "Energy,2350.0,2000.0,0.2 lbs *\r\n"
                         "Protein,250.0,50.0,200.0\r\n"
                         "% Fat,18.0,30.0,-\r\n"
                         "\"Fiber, \"\"total\"\"\",25.0,20.0,5.0\r\n");

    std::ostringstream empty, notSet;
    analysis::writeAnalysisText(empty, AnalysisTable{});
    EXPECT_EQ(empty.str(), "Nutrient\tAvg\tDaily Goal\tNet\n");
    analysis::writeAnalysisText(notSet, AnalysisTable{AnalysisTable::State::GoalsNotSet, 0, {}});
    EXPECT_EQ(notSet.str(), "");
}

TEST(ReportPages, PagesTitleAndPageTexts)
{
    struct Case
    {
        std::size_t rows, firstPage, perPage;
        std::vector<std::size_t> counts;
    };
    const Case cases[] = {
        {0, 10, 20, {0}},           {10, 10, 20, {10}},   {11, 10, 20, {10, 1}},
        {45, 10, 20, {10, 20, 15}}, {3, 0, 0, {1, 1, 1}},
    };
    for (const Case& c : cases) {
        const auto pages = analysis::paginateReport(c.rows, c.firstPage, c.perPage);
        std::vector<std::size_t> counts;
        std::size_t next = 0;
        for (const auto& p : pages) {
            counts.push_back(p.rowCount);
            EXPECT_EQ(p.firstRow, next);
            EXPECT_EQ(p.withTitle, p.number == 1);
            EXPECT_EQ(p.pageText,
                      "Page " + std::to_string(p.number) + " of " + std::to_string(pages.size()));
            next += p.rowCount;
        }
        EXPECT_EQ(counts, c.counts) << c.rows << " rows";
    }
    EXPECT_EQ(analysis::reportTitle("Ann", {2026, 3, 1}, {2026, 3, 14}, false),
              "Velmora Nutritional Analysis for Ann\nPeriod of 3/1/2026 to 3/14/2026\n");
    EXPECT_EQ(analysis::reportTitle("Ann", {2026, 3, 1}, {2026, 3, 14}, true),
              "Velmora Nutritional Analysis for Ann\nPeriod of 1/3/2026 to 14/3/2026\n");
}
