// The builder's pieces that do not need the USDA files: amounts, catalogue choice, renumbering,
// life-stage groups and the two XML forms of the packaged data.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "DatabaseAssembler.h"
#include "NutrientOrder.h"
#include "PackagedReader.h"
#include "UsdaGroups.h"

namespace {

using namespace velmora;
using foodsdb::SourceData;
using foodsdb::SourceFood;
using foodsdb::SourceMeasure;
using foodsdb::SourceNutrient;

TEST(MeasureDescription, AmountOtherThanOneGoesFirst)
{
    struct Case
    {
        double amount;
        const char* expected;
    };
    const Case cases[] = {
        {1.0, "cup"},         {0.5, "0.5 cup"},   {2.0, "2 cup"},   {1.5, "1.5 cup"},
        {0.333, "0.333 cup"}, {0.75, "0.75 cup"}, {12.0, "12 cup"}, {0.1, "0.1 cup"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(foodsdb::measureDescription(SourceMeasure{c.amount, "cup", 10.0}), c.expected);
}

TEST(FoodGroups, FromTheFoodNumbersFirstTwoDigits)
{
    EXPECT_EQ(foodsdb::groupFromFoodNumber(1123), 100);
    EXPECT_EQ(foodsdb::groupFromFoodNumber(20081), 2000);
    EXPECT_EQ(foodsdb::groupFromFoodNumber(36000), 3600);
    EXPECT_EQ(foodsdb::groupFromFoodNumber(25000), 2500);
    EXPECT_EQ(foodsdb::groupFromFoodNumber(23001), foodsdb::OtherGroupNumber) << "23 is no code";
    EXPECT_EQ(foodsdb::groupFromFoodNumber(43001), foodsdb::OtherGroupNumber);
    EXPECT_EQ(foodsdb::groupFromFoodNumber(999), foodsdb::OtherGroupNumber) << "00 is no code";
}

SourceFood foodWith(int number, const std::vector<SourceNutrient>& nutrients)
{
    SourceFood f;
    f.number = number;
    f.name = "Food";
    for (const SourceNutrient& n : nutrients)
        f.values.emplace_back(n.number, 1.0);
    return f;
}

TEST(Catalogue, KeepsTheSeventyEightMostImportantInReadingOrder)
{
    // 71 nutrients of the reading order (all but 320) and 30 the builder does not know.
    SourceData data;
    int order = 0;
    for (const auto& k : foodsdb::knownNutrients())
        if (k.number != 320)
            data.nutrients.push_back(SourceNutrient{k.number, "g", "data name", ++order});
    for (int i = 0; i < 30; ++i)
        data.nutrients.push_back(
            SourceNutrient{700 + i, "mg", "unknown " + std::to_string(i), 5000 - i});
    std::reverse(data.nutrients.begin(), data.nutrients.end()); // the data's order must not matter
    data.foods.push_back(foodWith(1001, data.nutrients));

    std::vector<SourceNutrient> dropped;
    const auto catalogue = foodsdb::chooseCatalogue(data, &dropped);
    ASSERT_EQ(catalogue.size(), 78u);
    ASSERT_EQ(dropped.size(), 23u);
    // Unknown ones rank by the data's order: the 7 with the lowest order (729..723) stay.
    for (const SourceNutrient& d : dropped)
        EXPECT_TRUE(d.number >= 700 && d.number <= 722) << d.number;

    EXPECT_EQ(catalogue[0].number, 208);
    EXPECT_EQ(catalogue[0].name, "Energy (g)");
    EXPECT_EQ(catalogue[1].number, 203);
    // Kinds in order: general, mineral, vitamin, lipid, amino acid, then the unknown 700s.
    for (std::size_t i = 1; i < catalogue.size(); ++i)
        EXPECT_LE(foodsdb::kindOf(catalogue[i - 1].number), foodsdb::kindOf(catalogue[i].number))
            << catalogue[i - 1].number << " before " << catalogue[i].number;
    EXPECT_EQ(catalogue[71].number, 729);
    EXPECT_EQ(catalogue[71].name, "unknown 29 (mg)");
}

TEST(Catalogue, OnlyNutrientsSomeFoodLists)
{
    SourceData data;
    data.nutrients = {{203, "g", "Protein", 1}, {204, "g", "Fat", 2}, {208, "kcal", "Energy", 3}};
    data.foods.push_back(foodWith(1001, {{208, "kcal", "", 0}, {203, "g", "", 0}}));
    const auto catalogue = foodsdb::chooseCatalogue(data);
    ASSERT_EQ(catalogue.size(), 2u);
    EXPECT_EQ(catalogue[0].name, "Energy (kcal)");
    EXPECT_EQ(catalogue[0].shortText, "kcal");
    EXPECT_EQ(catalogue[1].name, "Protein (g)");
}

TEST(Renumbering, HighNumbersTakeTheLowestFreeAboveTheHighestBelow50000)
{
    std::vector<SourceFood> foods;
    for (int n : {93600, 1001, 48052, 80200, 49999 - 1})
        foods.push_back(foodWith(n, {}));
    auto moved = foodsdb::renumberFoods(foods);
    ASSERT_FALSE(moved.ok()) << "49998 leaves only 49999 free, and two foods need a number";

    foods.clear();
    for (int n : {93600, 1001, 48052, 80200, 50000})
        foods.push_back(foodWith(n, {}));
    moved = foodsdb::renumberFoods(foods);
    ASSERT_TRUE(moved.ok());
    EXPECT_EQ(moved.value(),
              (std::vector<std::pair<int, int>>{{50000, 48053}, {80200, 48054}, {93600, 48055}}));
    EXPECT_EQ(foods[0].number, 48055);
    EXPECT_EQ(foods[3].number, 48054);
}

TEST(LifeStages, IntakesMapToTheTwentyTwoGroups)
{
    struct Case
    {
        double minAge;
        std::optional<double> maxAge;
        const char* gender;
        const char* status;
        std::vector<int> groups;
    };
    const Case cases[] = {
        {0, 0.5, "all", "", {0}},
        {0.5, 1, "all", "", {1}},
        {1, 3, "all", "", {2}},
        {4, 8, "all", "", {3}},
        {9, 13, "male", "", {4}},
        {71, std::nullopt, "male", "", {9}},
        {9, 13, "female", "", {10}},
        {51, 70, "female", "", {14}},
        {14, 18, "female", "pregnant", {16}},
        {31, 50, "female", "lactating", {21}},
        {19, 50, "all", "", {6, 7, 12, 13}},
        {9, 13, "male", "pregnant", {}},
    };
    for (const Case& c : cases) {
        std::vector<int> covered;
        for (int g = 0; g < model::LifeStageGroupCount; ++g)
            if (foodsdb::coversLifeStage(g, c.minAge, c.maxAge, c.gender, c.status))
                covered.push_back(g);
        EXPECT_EQ(covered, c.groups) << c.minAge << " " << c.gender << " " << c.status;
    }
}

const char* NutrientsXml = R"(<nutrients>
  <nutrient name="Protein" unit="g" usda="203" category="General">
    <rda min_age="0" max_age="0.5" gender="all" amount="9.1"/>
    <rda min_age="19" max_age="30" gender="male" amount="56"/>
    <rda min_age="19" max_age="30" gender="female" amount="46"/>
    <rda min_age="19" max_age="30" gender="female" amount="71" status="pregnant"/>
  </nutrient>
  <nutrient name="Chromium" unit="&#181;g" category="Minerals">
    <rda min_age="0" max_age="0.5" gender="all" amount="0.2"/>
  </nutrient>
  <nutrient name="Omega-3" unit="g" usda="621,629,631,851,852" category="Lipids"/>
  <nutrient name="Omega-9" unit="g" usda="617,628" category="Lipids"/>
  <nutrient name="Selenium" unit="&#181;g" usda="317" category="Minerals"/>
</nutrients>)";

TEST(PackagedNutrients, NumbersUnitsAndIntakes)
{
    auto defs = foodsdb::parseNutrientDefinitions(NutrientsXml, "nutrients.xml");
    ASSERT_TRUE(defs.ok()) << defs.error().detail;
    const auto& d = defs.value();
    ASSERT_EQ(d.entries.size(), 5u);

    const auto* protein = d.find("Protein");
    ASSERT_NE(protein, nullptr);
    EXPECT_EQ(protein->number, 203);
    ASSERT_TRUE(protein->hasIntakes);
    EXPECT_FLOAT_EQ(protein->intakes.recommended[0], 9.1f);
    EXPECT_FLOAT_EQ(protein->intakes.recommended[6], 56.0f);
    EXPECT_FLOAT_EQ(protein->intakes.recommended[12], 46.0f);
    EXPECT_FLOAT_EQ(protein->intakes.recommended[17], 71.0f);
    EXPECT_FLOAT_EQ(protein->intakes.recommended[16], 0.0f) << "the data gives none";

    EXPECT_EQ(d.find("Chromium")->number, 0) << "no USDA number";
    EXPECT_EQ(d.find("Chromium")->unit, "\xb5g");
    EXPECT_EQ(d.find("Omega-3")->number, foodsdb::OmegaThreeSumNumber);
    EXPECT_EQ(d.find("Omega-9")->number, foodsdb::FirstOtherSumNumber);
    EXPECT_EQ(d.find("Selenium")->number, 317);
}

TEST(PackagedNutrients, DamagedDefinitions)
{
    const char* bad[] = {
        "<nutrients><nutrient name=\"Protein\" usda=\"203\">",        // not closed
        "<foods/>",                                                   // wrong root
        "<nutrients/>",                                               // empty
        "<nutrients><nutrient name=\"P\" usda=\"20x\"/></nutrients>", // bad number
        "<nutrients><nutrient name=\"P\" usda=\"203\"><rda min_age=\"1\" max_age=\"3\" "
        "gender=\"all\"/>"
        "</nutrient></nutrients>",                                             // no amount
        "<nutrients><nutrient name=\"P\"/><nutrient name=\"P\"/></nutrients>", // twice
    };
    for (const char* xml : bad) {
        auto defs = foodsdb::parseNutrientDefinitions(xml, "nutrients.xml");
        ASSERT_FALSE(defs.ok()) << xml;
        EXPECT_EQ(defs.error().code, model::FileErrorCode::BadValue);
        EXPECT_EQ(defs.error().file, "nutrients.xml");
    }
}

TEST(PackagedFood, NameMeasuresAndValues)
{
    auto defs = foodsdb::parseNutrientDefinitions(NutrientsXml, "nutrients.xml");
    ASSERT_TRUE(defs.ok());
    // Attributes in any order; entities and non-ASCII letters become Windows-1252 bytes.
    const char* xml = "<food uid=\"01999\" name=\"Cr\xc3\xa8me fra\xc3\xae"
                      "che &quot;light&quot; &amp; co\">"
                      "<measure amount=\"0.5\" name=\"cup\" grams=\"120.0\"/>"
                      "<measure grams=\"15.0\" name=\"tbsp\" amount=\"1.0\"/>"
                      "<nutrient amount=\"2.96\" name=\"Protein\"/>"
                      "<nutrient amount=\"0.2\" name=\"Chromium\"/>"
                      "<nutrient amount=\"0.10200000000000001\" name=\"Omega-3\"/></food>";
    auto food = foodsdb::parseFoodXml(xml, defs.value(), "01999.xml");
    ASSERT_TRUE(food.ok()) << food.error().detail;
    const SourceFood& f = food.value();
    EXPECT_EQ(f.number, 1999);
    EXPECT_EQ(f.group, foodsdb::NoGroup);
    EXPECT_EQ(f.name, "Cr\xe8me fra\xee"
                      "che \"light\" & co");
    ASSERT_EQ(f.measures.size(), 2u);
    EXPECT_DOUBLE_EQ(f.measures[0].amount, 0.5);
    EXPECT_DOUBLE_EQ(f.measures[0].grams, 120.0);
    EXPECT_EQ(f.measures[1].description, "tbsp");
    EXPECT_DOUBLE_EQ(f.measures[1].grams, 15.0);
    // Chromium has no USDA number and is left out.
    const std::vector<std::pair<model::NutrientId, double>> values{
        {203, 2.96}, {foodsdb::OmegaThreeSumNumber, 0.10200000000000001}};
    EXPECT_EQ(f.values, values);
}

TEST(PackagedFood, DamagedFood)
{
    auto defs = foodsdb::parseNutrientDefinitions(NutrientsXml, "nutrients.xml");
    ASSERT_TRUE(defs.ok());
    const char* bad[] = {
        "<food uid=\"01001\" name=\"Butter\"><nutrient amount=\"1\" name=\"Protein\"/>", // cut off
        "<food name=\"Butter\"/>", // no number
        "<food uid=\"01001\"/>",   // no name
        "<food uid=\"01001\" name=\"B\"><nutrient amount=\"1\" name=\"Vitamin Q\"/></food>",
        "<food uid=\"01001\" name=\"B\"><nutrient amount=\"x\" name=\"Protein\"/></food>",
        "<food uid=\"01001\" name=\"B\"><measure amount=\"1\" name=\"cup\"/></food>",
        "<food uid=\"01001\" name=\"B\"><nutrient amount=\"1\" name=\"Protein\"/>"
        "<nutrient amount=\"2\" name=\"Protein\"/></food>",
    };
    for (const char* xml : bad) {
        auto food = foodsdb::parseFoodXml(xml, defs.value(), "01001.xml");
        ASSERT_FALSE(food.ok()) << xml;
        EXPECT_EQ(food.error().code, model::FileErrorCode::BadValue);
        EXPECT_EQ(food.error().file, "01001.xml");
    }
}

} // namespace
