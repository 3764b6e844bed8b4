// Import of weigh-ins: our own health.csv read back, files as scales' companion programs write
// them, and rows that cannot be read.
#include <gtest/gtest.h>

#include "ExportFixture.h"
#include "export/HealthImport.h"
#include "export/JournalExport.h"
#include "support/TempDir.h"

using namespace velmora::exchange;
using namespace velmora::model;
using namespace velmora::test;

namespace {

UserJournal journalOf(bool metric)
{
    UserJournal journal;
    journal.user.metric = metric ? 1 : 0;
    return journal;
}

HealthImportPlan planOf(std::string_view text, const UserJournal& journal,
                        const HealthImportOptions& options = {})
{
    HealthImportOutcome outcome = planHealthImport(text, journal, options);
    EXPECT_TRUE(outcome.ok()) << outcome.error.message();
    return outcome.plan.value_or(HealthImportPlan{});
}

TEST(HealthImportTest, OwnHealthExportReadBackChangesNothing)
{
    for (const bool metric : {false, true}) {
        SCOPED_TRACE(metric ? "metric" : "imperial");
        Store store = exportStore(40, metric);
        // Values with every digit of a float, which a rounded text would change.
        store.journal.days[7].health.weight = 72.123456f;
        store.journal.days[8].health.bodyFat = 0.1f;
        store.journal.days[9].health.bmi = 1.0f / 3.0f;
        TempDir dir;
        ASSERT_TRUE(exportJournal(store, dir.path(), ExportOptions{}));
        const std::vector<std::uint8_t> before = store.journal.serialize();

        const HealthImportPlan plan = planOf(readText(dir / HealthFileName), store.journal);
        EXPECT_TRUE(plan.problems.empty());
        EXPECT_TRUE(plan.newValues.empty());
        EXPECT_TRUE(plan.replacements.empty());
        // Weight and waist on the 39 days with health values (day 4 has none), body fat and
        // BMI on days 1, 8 and 9.
        EXPECT_EQ(plan.unchanged, 39u * 2u + 4u);
        EXPECT_EQ(applyHealthImport(store.journal, plan, true), 0u);
        EXPECT_EQ(store.journal.serialize(), before);
    }
}

TEST(HealthImportTest, MalformedRowsAreReportedAndChangeNothing)
{
    const std::string text = "Date,Weight (lb),Body fat (%)\r\n"
                             "2015-13-01,161,20\r\n"      // line 2: no 13th month
                             "2015-01-05,heavy,20\r\n"    // line 3: a text for a number
                             "2015-01-06,162\r\n"         // line 4: a short row
                             "2015-01-07,163,120\r\n"     // line 5: body fat above 100
                             "\r\n"                       // blank, not a row
                             "2015-01-08,\"1,5\",20\r\n"; // line 7: a comma is no decimal point
    Store store = exportStore(12);
    const std::vector<std::uint8_t> before = store.journal.serialize();
    const HealthImportPlan plan = planOf(text, store.journal);
    const std::vector<std::pair<int, std::string>> expected = {
        {2, "the date \"2015-13-01\" cannot be read"}, {3, "the weight \"heavy\" is not a number"},
        {4, "the row has 2 fields, the header has 3"}, {5, "the body fat \"120\" is out of range"},
        {7, "the weight \"1,5\" is not a number"},
    };
    ASSERT_EQ(plan.problems.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(plan.problems[i].line, expected[i].first);
        EXPECT_EQ(plan.problems[i].message, expected[i].second);
    }
    EXPECT_EQ(plan.rowsRead, 0u);
    EXPECT_FALSE(plan.hasChanges(true));
    EXPECT_EQ(applyHealthImport(store.journal, plan, true), 0u);
    EXPECT_EQ(store.journal.serialize(), before);
}

TEST(HealthImportTest, FilesOfOtherProgramsAreReadInTheUsersUnits)
{
    struct Value
    {
        CalendarDate date;
        ImportedValue value;
        float number;
    };
    struct Case
    {
        const char* name;
        std::string text;
        bool metric;
        HealthImportOptions options;
        std::vector<Value> values;
    };
    const CalendarDate March1{2024, 3, 1};
    HealthImportOptions kilograms;
    kilograms.weightUnit = WeightUnit::Kilograms;
    const Case cases[] = {
        {"kilograms into pounds, units in the header",
         "Date,Weight (kg),Fat (%),BMI,Muscle mass (kg)\n2024-03-01 07:12:00,72.5,18.2,23.1,33\n",
         false,
         {},
         {{March1, ImportedValue::Weight, static_cast<float>(72.5 * 2.2046)},
          {March1, ImportedValue::BodyFat, 18.2f},
          {March1, ImportedValue::Bmi, 23.1f}}},
        {"semicolons, decimal commas, day-first dates",
         "\xEF\xBB\xBF"
         "DATE;weight;Body Fat %;Fat (kg)\n01.03.2024;72,5;18,2;13\n",
         true,
         {},
         {{March1, ImportedValue::Weight, 72.5f}, {March1, ImportedValue::BodyFat, 18.2f}}},
        {"pounds stated in the cells into kilograms",
         "timestamp,weight\n2024-03-01 12:00,160.2 lb\n",
         true,
         {},
         {{March1, ImportedValue::Weight, static_cast<float>(160.2 / 2.2046)}}},
        {"the latest weigh-in of a day wins",
         "Date,Time,Weight (lb)\n2024-03-01,21:00,150\n2024-03-01,07:00,149\n2024-03-02,,148\n",
         false,
         {},
         {{March1, ImportedValue::Weight, 150.0f}, {{2024, 3, 2}, ImportedValue::Weight, 148.0f}}},
        {"waist in centimetres into inches",
         "date,waist_cm\n2024-03-01,81.28\n",
         false,
         {},
         {{March1, ImportedValue::Waist, static_cast<float>(81.28 / 2.54)}}},
        {"unit from the option",
         "Date,Weight\n2024-03-01,70\n",
         false,
         kilograms,
         {{March1, ImportedValue::Weight, static_cast<float>(70 * 2.2046)}}},
        {"month-first dates for an imperial user",
         "Date,Weight\n03/04/2024,150\n",
         false,
         {},
         {{{2024, 3, 4}, ImportedValue::Weight, 150.0f}}},
        {"empty cells and zeros are no values",
         "Date,Weight,BMI\n2024-03-01,,0\n2024-03-02,150,\n",
         false,
         {},
         {{{2024, 3, 2}, ImportedValue::Weight, 150.0f}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const UserJournal journal = journalOf(c.metric);
        const HealthImportPlan plan = planOf(c.text, journal, c.options);
        EXPECT_TRUE(plan.problems.empty()) << plan.problems.front().message;
        EXPECT_TRUE(plan.replacements.empty());
        ASSERT_EQ(plan.newValues.size(), c.values.size());
        for (std::size_t i = 0; i < c.values.size(); ++i) {
            EXPECT_EQ(plan.newValues[i].date, c.values[i].date);
            EXPECT_EQ(plan.newValues[i].value, c.values[i].value);
            EXPECT_FLOAT_EQ(plan.newValues[i].newValue, c.values[i].number);
        }
    }
}

TEST(HealthImportTest, FilesThatCannotBeImportedSayWhy)
{
    const std::pair<const char*, HealthImportError::Code> cases[] = {
        {"", HealthImportError::Code::Empty},
        {"Weight,BMI\n150,21\n", HealthImportError::Code::NoDateColumn},
        {"Date,Steps\n2024-03-01,9000\n", HealthImportError::Code::NoValueColumn},
        {"Date,Weight (st)\n2024-03-01,11\n", HealthImportError::Code::UnknownUnit},
    };
    for (const auto& [text, code] : cases) {
        const HealthImportOutcome outcome = planHealthImport(text, journalOf(false));
        EXPECT_FALSE(outcome.ok()) << text;
        EXPECT_EQ(outcome.error.code, code) << text;
    }
}

TEST(HealthImportTest, OddRowsAreReportedOrIgnoredNeverMisread)
{
    struct Case
    {
        const char* text;
        std::size_t problems;
        std::size_t values;
    };
    const Case cases[] = {
        {"Date,Weight\n", 0, 0},                               // a header alone
        {"Date,Weight\n\"", 1, 0},                             // a quote never closed
        {"Date,Weight\n2024-03-01,1e400\n", 1, 0},             // beyond any number
        {"Date,Weight\n2024-03-01,-70\n", 1, 0},               // negative
        {"Date,Weight\n2024-03-01,70 stone\n", 1, 0},          // a unit not known
        {"Date,Weight\n2024-03-01,70 %\n", 1, 0},              // a unit of another kind
        {"Date,Weight\n9999-12-31T23:59:59-14:00,70\n", 0, 1}, // far away, still a date
        {"Date,Weight\n2024-03-01,70,extra,fields\n", 0, 1},   // more fields than named
        {"Date,Weight\n,,\n2024-03-01,\n", 1, 0},              // no date, then no value
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const HealthImportPlan plan = planOf(c.text, journalOf(true));
        EXPECT_EQ(plan.problems.size(), c.problems);
        EXPECT_EQ(plan.newValues.size(), c.values);
    }
}

TEST(HealthImportTest, ValuesAreReplacedOnlyWhenAsked)
{
    UserJournal journal = journalOf(false);
    JournalDay day;
    day.date = CalendarDate{2024, 3, 1}.toTime();
    day.health.weight = 150.0f;
    day.health.bodyFat = 20.0f;
    journal.days.push_back(day);
    const std::string text = "Date,Weight (lb),Body fat (%)\n"
                             "2024-03-01,155,20\n" // weight replaced, body fat unchanged
                             "2024-03-02,160,\n";  // a new day
    const HealthImportPlan plan = planOf(text, journal);
    ASSERT_EQ(plan.replacements.size(), 1u);
    EXPECT_EQ(plan.replacements[0].oldValue, 150.0f);
    EXPECT_EQ(plan.replacements[0].newValue, 155.0f);
    EXPECT_EQ(plan.replacements[0].line, 2);
    ASSERT_EQ(plan.newValues.size(), 1u);
    EXPECT_EQ(plan.unchanged, 1u);

    UserJournal kept = journal;
    EXPECT_EQ(applyHealthImport(kept, plan, false), 1u);
    EXPECT_EQ(kept.days[0].health.weight, 150.0f);
    ASSERT_EQ(kept.days.size(), 2u);
    EXPECT_EQ(CalendarDate::fromTime(kept.days[1].date), (CalendarDate{2024, 3, 2}));
    EXPECT_EQ(kept.days[1].health.weight, 160.0f);

    UserJournal replaced = journal;
    EXPECT_EQ(applyHealthImport(replaced, plan, true), 2u);
    EXPECT_EQ(replaced.days[0].health.weight, 155.0f);
    EXPECT_EQ(replaced.days[0].health.bodyFat, 20.0f);
    EXPECT_EQ(replaced.days[1].health.weight, 160.0f);
}

} // namespace
