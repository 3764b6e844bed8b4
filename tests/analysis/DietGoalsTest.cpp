// The goal grid of the diet goals: the estimate, the cells as the dialog opens, and storing on OK.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/logic/DietGoals.h"
#include "analysis/logic/DietPlanner.h"
#include "model/FoodDatabase.h"
#include "model/User.h"
#include "support/Builders.h"

using namespace velmora;

namespace {

model::IntakeRecord intake(model::NutrientId n, int group, float value)
{
    model::IntakeRecord r;
    r.nutrient = n;
    r.recommended[static_cast<std::size_t>(group)] = value;
    return r;
}

// Calcium (301) and vitamin D (324) are recommended for men of 19 to 30 (group 6) and for nursing
// women of 19 to 30 (group 20); iron (303) has a record whose value for group 6 is 0; potassium
// (306) has a record that its fixed goal overrides.
model::FoodDatabase intakeDatabase()
{
    model::FoodDatabase db;
    db.setCatalogue(
        test::catalogueOf({208, 203, 204, 205, 291, 301, 303, 306, 307, 324, 601, 999}));
    db.catalogue().appendComputed();
    model::IntakeRecord calcium = intake(301, 6, 1000.0f);
    calcium.recommended[20] = 1300.0f;
    db.addIntake(calcium);
    db.addIntake(intake(324, 6, 5.0f));
    db.addIntake(intake(303, 6, 0.0f));
    db.addIntake(intake(306, 6, 4700.0f));
    return db;
}

const std::vector<model::NutrientId> GoalList = {208, 203, 204, 205, 291, 100, 101, 102,
                                                 306, 307, 601, 301, 324, 303, 999};

analysis::DietGoals manOf30()
{
    analysis::DietGoals g;
    g.profile = analysis::Profile{30.0f, analysis::Male, 0, 0, 70.0f, 175, true};
    g.goalNutrients = GoalList;
    return g;
}

} // namespace

TEST(DietGoals, EstimateFillsTheGridAndLeavesCellsWithoutRecommendation)
{
    const model::FoodDatabase db = intakeDatabase();
    struct Case
    {
        const char* what;
        analysis::DietGoals goals;
        std::vector<std::string> expected;
    };
    analysis::DietGoals losing = manOf30();
    losing.changeWeight = true;
    losing.dailyChange = -500.0f;
    analysis::DietGoals planNotWanted = manOf30();
    planNotWanted.dailyChange = -500.0f; // kept from an earlier plan, but not changing weight
    analysis::DietGoals nursing = manOf30();
    nursing.profile = analysis::Profile{25.0f, analysis::Female, 4, 0, 60.0f, 166, true};

    const std::vector<Case> cases = {
        {"man of 30",
         manOf30(),
         {"2434.1", "60.9", "81.1", "365.1", "34.1", "30", "60", "10", "2000.0", "500.0", "300.0",
          "1000.0", "200.0", "was 1", "was 2"}},
        {"changing weight adds the daily change to energy alone",
         losing,
         {"1934.1", "60.9", "81.1", "365.1", "34.1", "30", "60", "10", "2000.0", "500.0", "300.0",
          "1000.0", "200.0", "was 1", "was 2"}},
        {"the daily change counts only while changing weight",
         planNotWanted,
         {"2434.1", "60.9", "81.1", "365.1", "34.1", "30", "60", "10", "2000.0", "500.0", "300.0",
          "1000.0", "200.0", "was 1", "was 2"}},
        // 726 x 1.66 + 9.36 x 60 + 330 + 354 - 6.91 x 25 = 2278.01; no vitamin D for group 20.
        {"nursing woman: her group's intake",
         nursing,
         {"2278.0", "57.0", "75.9", "341.7", "31.9", "30", "60", "10", "2000.0", "500.0", "300.0",
          "1300.0", "was 0", "was 1", "was 2"}},
    };
    for (const Case& c : cases) {
        std::vector<std::string> cells(GoalList.size());
        cells[12] = "was 0";
        cells[13] = "was 1";
        cells[14] = "was 2";
        EXPECT_EQ(analysis::estimateGoalCells(c.goals, db, cells), c.expected) << c.what;
    }
}

TEST(DietGoals, CellsOpenEmptyUntilGoalsAreSetAndReadBackAsNumbers)
{
    analysis::DietGoals g = manOf30();
    g.goalNutrients = {208, 203, 100};
    EXPECT_EQ(analysis::goalCells(g), (std::vector<std::string>{"", "", ""}));
    g.goalValues = {2434.1f, 60.86f, 30.0f};
    EXPECT_EQ(analysis::goalCells(g), (std::vector<std::string>{"2434.1", "60.9", "30.0"}));

    const std::vector<float> parsed =
        analysis::goalValuesFromCells({"2434.1", " 12 ", "", "abc", "1e3", "12abc"});
    EXPECT_EQ(parsed, (std::vector<float>{2434.1f, 12.0f, 0.0f, 0.0f, 1000.0f, 0.0f}));
}

TEST(DietGoals, OkStoresTheLifeStageGroupAndTheAcceptedPlan)
{
    model::User user;
    user.metric = 1;
    analysis::DietGoals g = analysis::dietGoalsOf(user);
    EXPECT_TRUE(g.profile.metric);
    g.profile = analysis::Profile{50.0f, analysis::Female, 3, 2, 61.5f, 170, true};
    g.changeWeight = true;
    analysis::acceptDiet(g, {{2026, 1, 1}, {2026, 3, 12}, 70.0f, 65.0f, true});
    g.goalNutrients = {208, 203};
    g.goalValues = analysis::goalValuesFromCells({"1800.5", "45"});
    analysis::storeDietGoals(user, g);

    EXPECT_EQ(user.lifeStageGroup, 14); // 50 starts the group of 50 to 69; 3rd trimester as none
    // 5 kg x 2.2046 x 3500 / 70 days = 551.15: a loss, so the stored change is negative.
    EXPECT_EQ(user.dailyChange, -551.0f);
    EXPECT_EQ(user.planStart, (model::CalendarDate{2026, 1, 1}.toTime()));
    EXPECT_TRUE(user.goalsSet());
    EXPECT_EQ(analysis::dietGoalsOf(user).goalValues, (std::vector<float>{1800.5f, 45.0f}));

    analysis::chooseGender(g.profile, analysis::Male);
    EXPECT_EQ(g.profile.lifeStageVariable, 0);
}
