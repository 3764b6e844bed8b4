// Export of a generated journal: every value against the core's own entry values and day totals.
#include <algorithm>
#include <filesystem>

#include <gtest/gtest.h>

#include "ExportFixture.h"
#include "export/ExportColumns.h"
#include "export/FieldText.h"
#include "export/JournalExport.h"
#include "model/TextCodec.h"
#include "support/TempDir.h"

using namespace velmora::exchange;
using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

const char* const CsvFiles[] = {ServingsFileName,  DailyFileName,    HealthFileName,
                                VariablesFileName, WorkoutsFileName, NotesFileName};

TEST(JournalExportTest, ServingsAndDailyTotalsMatchTheJournalRowByRow)
{
    const Store store = exportStore(12);
    TempDir dir;
    auto result = exportJournal(store, dir.path(), ExportOptions{});
    ASSERT_TRUE(result) << result.error().message();

    const CsvRows servings = readRows(dir / ServingsFileName);
    const auto columns = nutrientColumns(store.foods.catalogue());
    std::vector<std::size_t> valueColumns;
    for (const NutrientColumn& c : columns)
        valueColumns.push_back(servings.column(c.header));
    const std::size_t date = servings.column("Date"), meal = servings.column("Meal"),
                      time = servings.column("Meal time"), number = servings.column("Food number"),
                      food = servings.column("Food"), grams = servings.column("Weight (g)"),
                      serving = servings.column("Servings"), amount = servings.column("Amount");

    std::size_t row = 0;
    for (const JournalDay& day : store.journal.days) {
        for (const Meal& m : day.meals) { // generated meals are already in meal order
            for (const FoodEntry& e : m.entries) {
                ASSERT_LT(row, servings.rows.size());
                const auto& r = servings.rows[row++];
                SCOPED_TRACE("row " + std::to_string(row));
                EXPECT_EQ(r[date], isoDate(day.date));
                EXPECT_EQ(r[meal], MealNames[m.kind]);
                EXPECT_EQ(r[time], isoTime(m.time));
                EXPECT_EQ(r[number], std::to_string(e.food));
                const FoodItem* item = store.findFood(e.food);
                if (!item) {
                    // An entry whose food is gone keeps its number and amount, and no values.
                    EXPECT_EQ(r[food], "");
                    if (e.food >= FirstCustomFoodNumber) {
                        EXPECT_EQ(r[grams], "");
                        EXPECT_EQ(r[serving], storedNumberText(e.amount));
                    } else {
                        EXPECT_EQ(r[grams], numberText(e.amount * 100.0));
                        EXPECT_EQ(r[serving], "");
                    }
                    for (std::size_t c : valueColumns)
                        EXPECT_EQ(r[c], "");
                    continue;
                }
                EXPECT_EQ(r[food], cp1252ToUtf8(item->name));
                EXPECT_EQ(r[grams], numberText(store.value(e, nutrient::Amount)));
                if (item->isCustom()) {
                    EXPECT_EQ(r[serving], storedNumberText(e.amount));
                    EXPECT_EQ(r[amount], "1.50 x serving");
                } else {
                    EXPECT_EQ(r[serving], "");
                    EXPECT_EQ(r[amount], cp1252ToUtf8(store.servingText(e)));
                }
                for (std::size_t i = 0; i < columns.size(); ++i)
                    EXPECT_EQ(r[valueColumns[i]], numberText(store.value(e, columns[i].nutrient)))
                        << columns[i].header;
            }
        }
    }
    EXPECT_EQ(row, servings.rows.size());
    EXPECT_EQ(result.value().servings, servings.rows.size());

    // The daily totals are the program's own day totals.
    const CsvRows daily = readRows(dir / DailyFileName);
    row = 0;
    for (const JournalDay& day : store.journal.days) {
        const bool hasFood = std::any_of(day.meals.begin(), day.meals.end(),
                                         [](const Meal& m) { return !m.entries.empty(); });
        if (!hasFood && day.workouts.empty())
            continue; // the day of notes only has no row
        ASSERT_LT(row, daily.rows.size());
        const auto& r = daily.rows[row++];
        SCOPED_TRACE(isoDate(day.date));
        EXPECT_EQ(r[daily.column("Date")], isoDate(day.date));
        EXPECT_EQ(r[daily.column("Food weight (g)")],
                  numberText(store.value(day, nutrient::Amount)));
        for (const NutrientColumn& c : columns)
            EXPECT_EQ(r[daily.column(c.header)], numberText(store.value(day, c.nutrient)))
                << c.header;
        long long calories = 0;
        for (const WorkoutEntry& w : day.workouts)
            calories += w.calories;
        EXPECT_EQ(r[daily.column("Workout calories (kcal)")], std::to_string(calories));
        EXPECT_EQ(r[daily.column("Net energy (kcal)")],
                  numberText(store.value(day, nutrient::Energy) - static_cast<double>(calories)));
    }
    EXPECT_EQ(row, daily.rows.size());
    EXPECT_EQ(row, store.journal.days.size() - 1);
}

TEST(JournalExportTest, HeadersNameTheirUnits)
{
    for (const bool metric : {false, true}) {
        const Store store = exportStore(6, metric);
        TempDir dir;
        ASSERT_TRUE(exportJournal(store, dir.path(), ExportOptions{}));
        const CsvRows servings = readRows(dir / ServingsFileName);
        for (const char* name :
             {"Protein (g)", "Energy (kcal)", "Energy from fat (%)", "Energy from carbohydrate (%)",
              "Energy from protein (%)", "Points", "Net carbohydrate (g)", "Complete protein (g)"})
            EXPECT_NE(std::find(servings.header.begin(), servings.header.end(), name),
                      servings.header.end())
                << name;

        const CsvRows health = readRows(dir / HealthFileName);
        const std::string length = metric ? " (cm)" : " (in)";
        // Day 1 holds a left bicep of 13.25; the stored order puts right before left.
        const auto& r = health.rows.at(1);
        EXPECT_EQ(r[health.column("Left bicep" + length)], "13.25");
        EXPECT_EQ(r[health.column("Right bicep" + length)], "");
        EXPECT_EQ(r[health.column("Waist" + length)], "32");
        EXPECT_EQ(r[health.column(metric ? "Weight (kg)" : "Weight (lb)")], "151");
        EXPECT_EQ(r[health.column(metric ? "Temperature (\xC2\xB0"
                                           "C)"
                                         : "Temperature (\xC2\xB0"
                                           "F)")],
                  "98.6");
        EXPECT_EQ(r[health.column("Mood")], "Excellent");
        EXPECT_EQ(r[health.column("Wake time")], isoTime(store.journal.days[1].health.wakeTime));
    }
}

TEST(JournalExportTest, WorkoutsVariablesAndNotes)
{
    const Store store = exportStore(6);
    TempDir dir;
    ASSERT_TRUE(exportJournal(store, dir.path(), ExportOptions{}));

    const CsvRows workouts = readRows(dir / WorkoutsFileName);
    ASSERT_EQ(workouts.rows.size(), 5u * 3u); // days 0-3 and 5, three sets each
    const auto& set = workouts.rows[1];
    EXPECT_EQ(set[workouts.column("Routine")], "Strength");
    EXPECT_EQ(set[workouts.column("Workout calories (kcal)")], "300");
    EXPECT_EQ(set[workouts.column("Exercise")], "Bench press");
    EXPECT_EQ(set[workouts.column("Set")], "2");
    EXPECT_EQ(set[workouts.column("Reps")], "10");
    EXPECT_EQ(set[workouts.column("Weight")], "135");
    EXPECT_EQ(set[workouts.column("Comment")], "");

    const CsvRows variables = readRows(dir / VariablesFileName);
    ASSERT_EQ(variables.rows.size(), 5u);
    EXPECT_EQ(variables.rows[0][variables.column("Variable")], "Vitamin D");
    EXPECT_EQ(variables.rows[0][variables.column("Number")], "1");
    EXPECT_EQ(variables.rows[0][variables.column("Text")], "vitamin");

    const CsvRows notes = readRows(dir / NotesFileName);
    ASSERT_EQ(notes.rows.size(), 7u); // "Day N" on six days and one professional note
    EXPECT_EQ(notes.rows[3][notes.column("Category")], "Professional");
    EXPECT_EQ(notes.rows[3][notes.column("Text")], "Met Bob, said \"hi\"\r\nthen left");
}

TEST(JournalExportTest, RangeTakesTheDaysBetweenBothEnds)
{
    const Store store = exportStore(30);
    const auto dateOf = [&](int k) { return CalendarDate::fromTime(store.journal.days[k].date); };
    struct Case
    {
        std::optional<CalendarDate> from, to;
        std::size_t rows;
        std::string first, last;
    };
    const Case cases[] = {
        {dateOf(10), dateOf(19), 10, isoDate(dateOf(10)), isoDate(dateOf(19))},
        {std::nullopt, dateOf(5), 5, isoDate(dateOf(0)), isoDate(dateOf(5))}, // day 4: notes only
        {dateOf(25), std::nullopt, 5, isoDate(dateOf(25)), isoDate(dateOf(29))},
        {dateOf(19), dateOf(10), 0, "", ""},
    };
    for (const Case& c : cases) {
        TempDir dir;
        ExportOptions options;
        options.from = c.from;
        options.to = c.to;
        ASSERT_TRUE(exportJournal(store, dir.path(), options));
        const CsvRows daily = readRows(dir / DailyFileName);
        ASSERT_EQ(daily.rows.size(), c.rows);
        if (c.rows > 0) {
            EXPECT_EQ(daily.rows.front()[0], c.first);
            EXPECT_EQ(daily.rows.back()[0], c.last);
        }
    }
}

TEST(JournalExportTest, DaysComeInDateOrder)
{
    Store store = exportStore(8);
    std::reverse(store.journal.days.begin(), store.journal.days.end());
    TempDir dir;
    ASSERT_TRUE(exportJournal(store, dir.path(), ExportOptions{}));
    const CsvRows health = readRows(dir / HealthFileName);
    ASSERT_GT(health.rows.size(), 2u);
    EXPECT_TRUE(std::is_sorted(health.rows.begin(), health.rows.end(),
                               [](const auto& a, const auto& b) { return a[0] < b[0]; }));
}

TEST(JournalExportTest, JsonHoldsTheSameDays)
{
    const Store store = exportStore(6);
    JournalExport exporter(store, ExportOptions{std::nullopt, std::nullopt, true, true});
    const auto files = exporter.build();
    ASSERT_TRUE(files);
    ASSERT_EQ(files->size(), 7u);
    const std::string& json = files->back().content;
    EXPECT_EQ(files->back().name, JsonFileName);
    // One day per line, each starting with its date.
    std::size_t days = 0;
    for (std::size_t at = json.find("\n{\"date\":"); at != std::string::npos;
         at = json.find("\n{\"date\":", at + 1))
        ++days;
    EXPECT_EQ(days, 6u);
    // The first day's totals, in the order of the nutrient list.
    std::string totals = "\"totals\":[";
    for (const NutrientColumn& c : nutrientColumns(store.foods.catalogue()))
        totals += numberText(store.value(store.journal.days[0], c.nutrient)) + ",";
    totals.back() = ']';
    EXPECT_NE(json.find(totals), std::string::npos) << totals;
    EXPECT_NE(json.find("{\"number\":208,\"name\":\"Energy (kcal)\",\"unit\":\"kcal\"}"),
              std::string::npos);
    EXPECT_NE(json.find("\"name\":\"M\xC3\xBCsli bar, \\\"crunchy\\\"\""), std::string::npos);
    EXPECT_NE(json.find("\"Professional\":\"Met Bob, said \\\"hi\\\"\\r\\nthen left\""),
              std::string::npos);
    int depth = 0;
    bool inString = false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char c = json[i];
        if (inString) {
            if (c == '\\')
                ++i;
            else if (c == '"')
                inString = false;
        } else if (c == '"') {
            inString = true;
        } else if (c == '{' || c == '[') {
            ++depth;
        } else if (c == '}' || c == ']') {
            ASSERT_GT(depth, 0);
            --depth;
        }
    }
    EXPECT_EQ(depth, 0);
    EXPECT_FALSE(inString);
}

TEST(JournalExportTest, OldFilesAreReplacedOnlyWhenEveryFileIsWritten)
{
    const Store store = exportStore(6);
    TempDir dir;
    for (const char* name : CsvFiles)
        writeBytes(dir / name, {'o', 'l', 'd'});
    writeBytes(dir / "mine.txt", {'k', 'e', 'e', 'p'});

    // The last file cannot be written (a folder stands where it is put together beside its
    // target): no file of the folder may change.
    fs::create_directories(dir / ".notes.csv.export-new" / "blocker");
    auto failed = exportJournal(store, dir.path(), ExportOptions{});
    ASSERT_FALSE(failed);
    EXPECT_EQ(failed.error().code, FileErrorCode::CannotWrite);
    for (const char* name : CsvFiles)
        EXPECT_EQ(readText(dir / name), "old") << name;
    EXPECT_FALSE(fs::exists(dir / ".servings.csv.export-new"));

    // Cancelled half-way through the days: nothing changes either.
    const auto cancelAtHalf = [](std::size_t done, std::size_t total) { return done * 2 < total; };
    auto cancelled = exportJournal(store, dir.path(), ExportOptions{}, cancelAtHalf);
    ASSERT_TRUE(cancelled);
    EXPECT_TRUE(cancelled.value().cancelled);
    for (const char* name : CsvFiles)
        EXPECT_EQ(readText(dir / name), "old") << name;

    // Once the way is clear every file is replaced; other files stay.
    fs::remove_all(dir / ".notes.csv.export-new");
    std::vector<std::size_t> steps;
    auto done =
        exportJournal(store, dir.path(), ExportOptions{}, [&](std::size_t d, std::size_t t) {
            steps.push_back(d);
            EXPECT_EQ(t, 6u + 6u);
            return true;
        });
    ASSERT_TRUE(done);
    EXPECT_FALSE(done.value().cancelled);
    EXPECT_EQ(done.value().files.size(), 6u);
    for (const char* name : CsvFiles)
        EXPECT_NE(readText(dir / name), "old") << name;
    EXPECT_EQ(readText(dir / "mine.txt"), "keep");
    EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
    ASSERT_FALSE(steps.empty());
    EXPECT_EQ(steps.back(), 12u);
    for (const auto& entry : fs::directory_iterator(dir.path()))
        EXPECT_EQ(entry.path().filename().string().find(".export-new"), std::string::npos);
}

} // namespace
