#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <limits>

#include "SyncSamples.h"
#include "model/DateText.h"
#include "sync/logic/JournalTransfer.h"
#include "sync/logic/KorvelConversion.h"
#include "sync/logic/TandryConversion.h"

using namespace velmora;
using namespace velmora::sync;

namespace {

// A handheld food with the given stored values (by value index).
model::TandryFood handheldFood(std::uint32_t id,
                               std::initializer_list<std::pair<int, std::uint16_t>> raw)
{
    model::TandryFood f;
    f.id = id;
    for (const auto& [index, value] : raw)
        f.setStored(index, value);
    return f;
}

std::tm local(model::TimeT t)
{
    const std::time_t tt = static_cast<std::time_t>(t);
    return *std::localtime(&tt); // the tests run on one thread
}

// Value indexes used below: 0 base amount, 1 energy, 2 carbohydrate, 3 protein, 4 fat, 9 fibre,
// 10..12 per-cent values, 33 points.
} // namespace

TEST(TandryValues, BaseAmountPerCentValuesAndPoints)
{
    struct Case
    {
        const char* name;
        model::TandryFood food;
        int index;
        double expected;
    };
    const Case cases[] = {
        {"id 50000 reads 100 g", handheldFood(50000, {{0, 250}}), 0, 100.0},
        {"id 50001 reads its own amount", handheldFood(50001, {{0, 250}}), 0, 25.0},
        {"no energy: no fat share", handheldFood(1, {{1, 0}, {4, 50}}), 10, 0.0},
        {"no energy: no carbohydrate share", handheldFood(1, {{1, 0}, {2, 50}}), 11, 0.0},
        {"no energy: no protein share", handheldFood(1, {{1, 0}, {3, 50}}), 12, 0.0},
        {"no fat: no fat share", handheldFood(1, {{1, 900}}), 10, 0.0},
        {"fat share", handheldFood(1, {{1, 900}, {4, 50}}), 10, 50.0},
        {"fat energy above the energy", handheldFood(1, {{1, 100}, {4, 200}}), 10, 100.0},
        {"carbohydrate share rounds down", handheldFood(1, {{1, 700}, {2, 100}}), 11, 57.0},
        {"protein share rounds half up", handheldFood(1, {{1, 800}, {3, 101}}), 12, 51.0},
        {"points with fibre above 4", handheldFood(1, {{1, 1000}, {4, 120}, {9, 100}}), 33, 2.2},
        {"points with fibre below 4", handheldFood(1, {{1, 1000}, {4, 120}, {9, 30}}), 33, 2.4},
        {"a float value", handheldFood(1, {{24, 25}}), 24, 2.5},
        {"index 34", handheldFood(1, {{1, 1000}}), 34, 0.0},
        {"index -1", handheldFood(1, {{1, 1000}}), -1, 0.0},
    };
    for (const Case& c : cases)
        EXPECT_NEAR(c.food.value(c.index), c.expected, 1e-12) << c.name;
}

TEST(TandryValues, ExportTruncatesTenthsAndKeepsTheLow16Bits)
{
    struct Case
    {
        float value;
        std::uint16_t tenths;
    };
    const Case cases[] = {
        {0.19f, 1},       {0.7f, 7},     {7000.0f, 4464}, // 70000 - 65536
        {6553.5f, 65535}, {6553.6f, 0},  {-0.1f, 65535},
        {-0.05f, 0},      {12.56f, 125}, {std::numeric_limits<float>::quiet_NaN(), 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(toTenths(c.value), c.tenths) << c.value;
}

TEST(TandryValues, EveryStoredTenthSurvivesAnImportAndAnExport)
{
    const model::NutrientCatalogue catalogue = test::syncCatalogue();
    for (std::uint32_t raw = 0; raw <= 0xFFFF; ++raw) {
        const auto r = static_cast<std::uint16_t>(raw);
        const model::TandryFood food = handheldFood(70000, {{0, r}, {1, r}, {26, r}});
        const model::TandryFood back = exportFood(importFood(food, catalogue), catalogue);
        ASSERT_EQ(back.stored(0), raw);
        ASSERT_EQ(back.stored(1), raw);
        ASSERT_EQ(back.stored(26), raw);
    }
}

TEST(TandryFoods, ExportAndImportMapEveryNutrientToItsValueIndex)
{
    const model::NutrientCatalogue catalogue = test::syncCatalogue();
    model::FoodItem food;
    food.number = 70005;
    food.name = "Stew";
    food.servingWeight = 123.45f;
    for (int i = 1; i < model::TandryValueCount; ++i) {
        const model::NutrientId n = model::TandryValueNutrients[static_cast<std::size_t>(i)];
        if (n != 0)
            food.values[static_cast<std::size_t>(catalogue.indexOf(n))] =
                static_cast<float>(i) + 0.25f;
    }
    food.values[static_cast<std::size_t>(catalogue.indexOf(208))] = 7000.0f;
    food.values[static_cast<std::size_t>(catalogue.indexOf(502))] = 9.0f;

    const model::TandryFood out = exportFood(food, catalogue);
    EXPECT_EQ(out.id, 70005u);
    EXPECT_EQ(out.name, "Stew");
    EXPECT_EQ(out.stored(0), 1234.0); // the serving weight in tenths of a gram
    EXPECT_EQ(out.stored(1), 4464.0); // 7000 kcal wraps
    EXPECT_EQ(out.stored(6), 0.0);
    EXPECT_EQ(out.stored(7), 0.0);
    for (int i : {2, 3, 4, 5, 8, 9, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 27, 28, 29, 30, 31, 32})
        EXPECT_EQ(out.stored(i), 10.0 * i + 2.0) << "value index " << i;
    // The float values receive the truncated integer itself.
    EXPECT_EQ(out.floats, (std::array<float, 4>{232.0f, 242.0f, 252.0f, 262.0f}));
    EXPECT_TRUE(out.measures.empty());

    model::TandryFood withMeasure = out;
    withMeasure.measures = {{2505, "bowl"}};
    withMeasure.words[6] = 77; // value index 6 is carried, never imported
    const model::FoodItem back = importFood(withMeasure, catalogue);
    EXPECT_EQ(back.number, 70005);
    EXPECT_EQ(back.servingWeight, 123.4f);
    EXPECT_EQ(back.values[static_cast<std::size_t>(catalogue.indexOf(208))], 446.4f);
    EXPECT_EQ(back.values[static_cast<std::size_t>(catalogue.indexOf(203))], 3.2f);
    EXPECT_EQ(back.values[static_cast<std::size_t>(catalogue.indexOf(394))], 26.2f);
    EXPECT_EQ(back.values[static_cast<std::size_t>(catalogue.indexOf(502))], 0.0f);
    ASSERT_EQ(back.measures.size(), 1u);
    EXPECT_EQ(back.measures[0].grams, 250.5f);
    EXPECT_EQ(back.measures[0].description, "bowl");
}

TEST(TandryGoals, GoalsFollowTheProfileOrderWhenTheUserHasGoals)
{
    model::TandryProfile profile;
    for (std::size_t k = 0; k < profile.goals.size(); ++k)
        profile.goals[k] = 10.0 * static_cast<double>(k) + 0.5;
    model::User user;
    user.goalNutrients = {203, 208, 103, 5000};
    user.goalValues = {1.0f, 2.0f, 3.0f, 4.0f};
    importGoals(profile, user);
    // 203 is third, 208 first and 103 last among the profile's goals; 5000 is not among them.
    EXPECT_EQ(user.goalValues, (std::vector<float>{20.5f, 0.5f, 320.5f, 4.0f}));
    EXPECT_EQ(user.goalNutrients, (std::vector<model::NutrientId>{203, 208, 103, 5000}));

    user.goalValues = {7.0f, 8.0f, 9.0f, 4.0f};
    exportGoals(user, profile);
    EXPECT_EQ(profile.goals[2], 7.0);
    EXPECT_EQ(profile.goals[0], 8.0);
    EXPECT_EQ(profile.goals[32], 9.0);
    EXPECT_EQ(profile.goals[1], 10.5); // not among the user's goals: kept

    model::User noGoals;
    noGoals.goalNutrients = {208, 203};
    importGoals(profile, noGoals);
    EXPECT_TRUE(noGoals.goalValues.empty());
    const model::TandryProfile before = profile;
    exportGoals(noGoals, profile);
    EXPECT_EQ(profile.goals, before.goals);
}

TEST(JournalTransferTimes, ImportedDaysStartAtOneInTheMorningOfTheirLocalDate)
{
    for (model::TimeT t : {model::TimeT{0}, model::TimeT{1262304000}, model::TimeT{1711846800},
                           model::TimeT{1730000000}, model::TimeT{2147483647}}) {
        const model::TimeT one = oneInTheMorning(t);
        const std::tm f = local(one);
        EXPECT_EQ(model::CalendarDate::fromTime(one), model::CalendarDate::fromTime(t)) << t;
        EXPECT_EQ(f.tm_hour, 1) << t;
        EXPECT_EQ(f.tm_min, 0) << t;
        EXPECT_EQ(f.tm_sec, 0) << t;
    }
}

TEST(JournalTransferTimes, DaysBeyondTheSignedTimesAreFound)
{
    model::JournalDay fine;
    fine.date = 2147483647;
    model::JournalDay late;
    late.date = 2147483648; // 2038-01-19 03:14:08 UTC
    model::JournalDay lateMeal;
    lateMeal.date = 1000;
    lateMeal.meals = {{4294967295, 0, {}}};
    model::JournalDay early;
    early.date = -1;
    EXPECT_EQ(daysBeyondSignedTimes({fine, late, lateMeal, early}),
              (std::vector<model::TimeT>{2147483648, 1000}));
    EXPECT_EQ(daysBeyondDesktopTimes({fine, late, lateMeal, early}),
              (std::vector<model::TimeT>{-1}));
}

TEST(KorvelImport, WorkoutDataIsReplacedDayByDayAndMealsStay)
{
    const model::NutrientCatalogue catalogue = test::syncCatalogue();
    test::Desktop d = test::sampleDesktop(catalogue);
    const model::TimeT eleventh = d.journal.days[1].date;
    const model::TimeT fifteenth = model::CalendarDate{2024, 3, 15}.toTime() + 12 * 3600;

    model::KorvelShared handheld; // no counters beyond the defaults, empty lists
    handheld.definitions.routines = {{40, 100, "Swim", {}}};
    model::KorvelUser user;
    model::KorvelDay onEleventh;
    onEleventh.date = eleventh + 5 * 3600;
    onEleventh.note = "k11";
    onEleventh.workouts = {{40, 100, eleventh + 6 * 3600, {}, "laps"}};
    model::KorvelDay onFifteenth;
    onFifteenth.date = fifteenth;
    onFifteenth.values.weight = 70.0f;
    user.days = {onEleventh, onFifteenth};

    importKorvel(handheld, user, d.shared, d.journal);

    // Empty handheld lists never replace the desktop's; the routines are replaced.
    EXPECT_EQ(d.shared.fields.size(), 2u);
    ASSERT_EQ(d.shared.routines.size(), 1u);
    EXPECT_EQ(d.shared.routines[0].name, "Swim");
    // Counters of fields, exercises and routines come from the handheld but stay above the ids.
    EXPECT_EQ(d.shared.counters.values[0], 70003);
    EXPECT_EQ(d.shared.counters.values[1], 32);
    EXPECT_EQ(d.shared.counters.values[2], 13); // fields 11, 12
    EXPECT_EQ(d.shared.counters.values[3], 22); // exercise 21
    EXPECT_EQ(d.shared.counters.values[4], 41); // routine 40

    // 10th: workout, day values and "Fitness" note gone, meals and other notes kept. 11th: the
    // handheld's workout and note, its lunch kept, its date kept. First 12th: untouched. Second
    // 12th: had only a workout, so it is dropped. 15th: new, at 01:00.
    ASSERT_EQ(d.journal.days.size(), 4u);
    const model::JournalDay& tenth = d.journal.days[0];
    EXPECT_TRUE(tenth.workouts.empty());
    EXPECT_TRUE(tenth.health.isEmpty());
    EXPECT_EQ(tenth.notes, (std::array<std::string, 4>{"p1", "", "d1", ""}));
    EXPECT_EQ(tenth.meals.size(), 1u);
    const model::JournalDay& eleventhDay = d.journal.days[1];
    EXPECT_EQ(eleventhDay.date, eleventh);
    EXPECT_EQ(eleventhDay.meals.size(), 1u);
    EXPECT_EQ(eleventhDay.notes[3], "k11");
    ASSERT_EQ(eleventhDay.workouts.size(), 1u);
    EXPECT_EQ(eleventhDay.workouts[0].notes, "laps");
    EXPECT_EQ(d.journal.days[2].notes[0], "p3");
    EXPECT_EQ(d.journal.days[3].date, oneInTheMorning(fifteenth));
    EXPECT_EQ(d.journal.days[3].health.weight, 70.0f);
}

TEST(TandryImport, ReplacesTheJournalWhileKeepingNotesTheHandheldDoesNotCarry)
{
    const model::NutrientCatalogue catalogue = test::syncCatalogue();
    test::Desktop d = test::sampleDesktop(catalogue);
    model::TandryShared handheld; // empty lists: foods and definitions stay
    handheld.counters = {50010, 2, 2, 2, 2, 2};
    model::TandryUser user;
    model::TandryDay onTenth;
    onTenth.date = d.journal.days[0].date + 9 * 3600;
    onTenth.note = "t10";
    onTenth.meals = {{onTenth.date, 3, {{70001, 3.0f}}}};
    user.days = {onTenth};

    importTandry(handheld, user, catalogue, d.shared, d.journal);

    EXPECT_EQ(d.shared.customFoods.size(), 2u);
    EXPECT_EQ(d.shared.fields.size(), 2u);
    // The handheld's counters are taken, but kept above the identifiers in use and the
    // custom-food counter at 70000 or more.
    EXPECT_EQ(d.shared.counters.values, (std::array<std::int32_t, 6>{70003, 32, 13, 22, 31, 2}));
    // The 10th is the handheld's day with the desktop's "Personal" and "Fitness" notes; the
    // first 12th keeps its "Personal" note; the 11th (only diet data) and the second 12th (a
    // workout, which the handheld carries) are gone.
    ASSERT_EQ(d.journal.days.size(), 2u);
    const model::JournalDay& tenth = d.journal.days[0];
    EXPECT_EQ(tenth.notes, (std::array<std::string, 4>{"p1", "", "t10", "f1"}));
    EXPECT_TRUE(tenth.workouts.empty());
    ASSERT_EQ(tenth.meals.size(), 1u);
    EXPECT_EQ(tenth.meals[0].kind, 3);
    EXPECT_EQ(local(tenth.date).tm_hour, 1);
    EXPECT_EQ(d.journal.days[1].notes, (std::array<std::string, 4>{"p3", "", "", ""}));
}
