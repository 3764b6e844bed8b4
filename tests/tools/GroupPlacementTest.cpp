// Foods that the packaged data leaves without a group, placed by the words of their names: the
// rules on hand-made foods, and a hand-checked sample of the built foods.db against USDA's groups.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "DatabaseAssembler.h"
#include "GroupPlacement.h"
#include "UsdaGroups.h"
#include "model/FoodDatabase.h"

namespace {

using namespace velmora;
using foodsdb::OtherGroupNumber;
using foodsdb::SourceFood;

SourceFood food(int number, int group, std::string name)
{
    SourceFood f;
    f.number = number;
    f.group = group;
    f.name = std::move(name);
    return f;
}

// Each case: the known foods to learn from and one food in "Other" with the group it must take.
TEST(GroupPlacement, Rules)
{
    struct Case
    {
        const char* what;
        std::vector<SourceFood> known;
        const char* name;
        int expected;
    };
    const std::vector<Case> cases{
        {"the group most foods with the start belong to",
         {food(1, 1300, "Beef, chuck, raw"), food(2, 1300, "Beef, rib, raw"),
          food(3, 2200, "Beef, macaroni, frozen")},
         "Beef, loin, cooked",
         1300},
        {"the longest shared start wins over a shorter one",
         {food(1, 1800, "Cookies, chocolate chip, dough"),
          food(2, 1800, "Cookies, chocolate chip, baked"), food(3, 1900, "Cookies, graham"),
          food(4, 1900, "Cookies, sugar"), food(5, 1900, "Cookies, oatmeal")},
         "Cookies, chocolate chip, frozen",
         1800},
        {"a start of three parts",
         {food(1, 100, "Milk, buttermilk, fluid, whole"), food(2, 1900, "Milk, buttermilk, dried"),
          food(3, 1900, "Milk, buttermilk, sweet")},
         "Milk, buttermilk, fluid, reduced fat",
         100},
        {"the first word when no start of parts is shared",
         {food(1, 500, "Turkey, breast, raw"), food(2, 500, "Turkey, wing, raw"),
          food(3, 700, "Turkey ham, sliced")},
         "Turkey roll, light meat",
         500},
        {"a tie goes to the lower group code",
         {food(1, 1600, "Beans, kidney"), food(2, 1100, "Beans, snap")},
         "Beans, liquid from stewed kidney beans",
         1100},
        {"the table of exceptions comes before what is learned",
         {food(1, 500, "Chicken, broiler, raw"), food(2, 500, "Chicken, roasting, raw")},
         "Chicken, meatless, breaded, fried",
         1600},
        {"foods in Other teach nothing",
         {food(1, OtherGroupNumber, "Papaw, raw"), food(2, OtherGroupNumber, "Papaw, dried")},
         "Papaw, canned",
         OtherGroupNumber},
        {"case and blanks around the parts do not matter",
         {food(1, 1400, "Beverages, coffee, brewed")},
         "BEVERAGES ,  tea",
         1400},
    };
    for (const Case& c : cases) {
        std::vector<SourceFood> foods = c.known;
        foods.push_back(food(99, OtherGroupNumber, c.name));
        std::vector<SourceFood> reversed(foods.rbegin(), foods.rend());
        foodsdb::placeByName(foods);
        foodsdb::placeByName(reversed);
        EXPECT_EQ(foods.back().group, c.expected) << c.what;
        EXPECT_EQ(reversed.front().group, c.expected) << c.what << " (foods in reverse order)";
        for (std::size_t i = 0; i < c.known.size(); ++i)
            EXPECT_EQ(foods[i].group, c.known[i].group) << c.what << ": known groups stay";
    }
}

TEST(GroupPlacement, CountsEachRule)
{
    std::vector<SourceFood> foods{
        food(1, 1300, "Beef, chuck, raw"),        food(2, 500, "Turkey, wing, raw"),
        food(3, OtherGroupNumber, "Beef, rib"),   food(4, OtherGroupNumber, "Beef, loin"),
        food(5, OtherGroupNumber, "Turkey roll"), food(6, OtherGroupNumber, "Soyburger"),
        food(7, OtherGroupNumber, "Zzyzx root"),
    };
    const foodsdb::PlacementCounts counts = foodsdb::placeByName(foods);
    EXPECT_EQ(counts.byLeadingParts, 2);
    EXPECT_EQ(counts.byLeadingWord, 1);
    EXPECT_EQ(counts.byException, 1);
    EXPECT_EQ(counts.left, 1);
}

// Data that carries groups (an ASCII release) keeps a food without one in "Other"; data that
// carries none has it placed.
TEST(GroupPlacement, OnlyForDataWithoutGroups)
{
    for (const bool carriesGroups : {false, true}) {
        foodsdb::SourceData data;
        data.foods.push_back(food(1001, carriesGroups ? 100 : foodsdb::NoGroup, "Cheese, brie"));
        data.foods.push_back(food(43405, foodsdb::NoGroup, "Cheese, swiss, low sodium"));
        auto built = foodsdb::assembleDatabase(data, "test");
        ASSERT_TRUE(built.ok());
        const model::FoodItem* swiss = built.value().database.findDatabaseFood(43405);
        ASSERT_NE(swiss, nullptr);
        EXPECT_EQ(swiss->group, carriesGroups ? OtherGroupNumber : 100) << carriesGroups;
        EXPECT_EQ(built.value().placement.byLeadingParts, carriesGroups ? 0 : 1);
    }
}

#define REQUIRE_BUILT_DATABASE()                                                                   \
    if (!VELMORA_HAVE_USDA_DATA)                                                                   \
    GTEST_SKIP() << "built without foods.db (VELMORA_BUILD_FOODS_DB is off)"

const model::FoodDatabase& built()
{
    static const model::FoodDatabase db = [] {
        auto loaded = model::FoodDatabase::load(VELMORA_FOODS_DB);
        if (!loaded)
            ADD_FAILURE() << "cannot load " << VELMORA_FOODS_DB << ": " << loaded.error().message();
        return loaded ? loaded.take() : model::FoodDatabase{};
    }();
    return db;
}

// Foods the packaged data gives no group, with their groups in USDA's tables, checked by hand.
TEST(BuiltFoodsDbGroups, SampleMatchesUsdaGroups)
{
    REQUIRE_BUILT_DATABASE();
    struct Sample
    {
        int number;
        const char* nameStart;
        int group;
    };
    const Sample samples[] = {
        {23000, "Beef, shoulder pot roast", 1300},
        {23501, "USDA Commodity, beef patties with VPP", 1300},
        {27000, "Soup, egg drop", 600},
        {27046, "Sauce, duck", 600},
        {31001, "CAMPBELL Soup Company, Tomato juice", 1100},
        {42040, "Syrups, grenadine", 1900},
        {42117, "Imitation cheese", 100},
        {42129, "Bologna, beef and pork", 700},
        {42137, "Salad dressing, peppercorn", 400},
        {42148, "Candies, MARS SNACKFOOD US", 1900},
        {42155, "Cheese, monterey, low fat", 100},
        {42231, "Oil, flaxseed", 400},
        {42259, "Snacks, popcorn, home-prepared", 2500},
        {43112, "Beans, chili, barbecue", 1600},
        {43128, "Chicken, meatless", 1600},
        {43133, "Soyburger", 1600},
        {43261, "Yogurt, fruit variety, nonfat", 100},
        {43282, "Quail, cooked", 500},
        {43325, "Pork, cured, ham, boneless, low sodium", 1000},
        {43366, "Turkey, wing, smoked", 500},
        {43401, "Coffee, dry, powder", 1400},
        {43541, "Ice creams, chocolate, rich", 1900},
        {48052, "Vital wheat gluten", 2000},
        {48053, "Frog legs, raw", 1500},
    };
    for (const Sample& s : samples) {
        const model::FoodItem* f = built().findDatabaseFood(s.number);
        ASSERT_NE(f, nullptr) << s.number;
        EXPECT_TRUE(f->name.starts_with(s.nameStart)) << s.number << " is " << f->name;
        EXPECT_EQ(f->group, s.group) << s.number << " " << f->name;
    }
}

TEST(BuiltFoodsDbGroups, EveryBeefFoodInBeefProducts)
{
    REQUIRE_BUILT_DATABASE();
    int numbered23 = 0;
    int other = 0;
    for (const model::FoodItem& f : built().foods()) {
        other += f.group == OtherGroupNumber;
        if (f.number / 1000 != 23)
            continue;
        ++numbered23;
        EXPECT_EQ(f.group, 1300) << f.number << " " << f.name;
    }
    EXPECT_EQ(numbered23, 432);
    EXPECT_LE(other, 1) << "only the yeast extract spread is left in Other";
}

} // namespace
