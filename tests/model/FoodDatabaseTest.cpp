#include <gtest/gtest.h>

#include "model/FoodDatabase.h"
#include "support/Builders.h"
#include "support/Bytes.h"

using namespace velmora::model;
using velmora::test::Bytes;

namespace {

// One food record of "foods.db" by the layout table: number, group, name, 78 floats, measures.
Bytes& food(Bytes& b, std::int32_t number, std::int32_t group, const std::string& name, float first,
            std::initializer_list<std::pair<float, std::string>> measures)
{
    b.i32(number).i32(group).text(name).f32(first).repeatF32(StoredNutrientCount - 1, 0.0f);
    b.i32(static_cast<std::int32_t>(measures.size()));
    for (const auto& [grams, text] : measures)
        b.f32(grams).text(text);
    return b;
}

std::vector<std::uint8_t> smallFoodsDb()
{
    Bytes b;
    b.i32(3);
    food(b, 1001, 100, "Butter, salted", 0.85f, {{14.2f, "tbsp"}, {227.0f, "cup"}});
    food(b, 70001, 100, "Stray custom", 1.0f, {});
    food(b, 1001, 200, "Butter, whipped", 0.5f, {});
    b.i32(2).i32(203).text("g").text("Protein").i32(208).text("kcal").text("Energy");
    b.i32(2).i32(100).text("Dairy and Egg Products").i32(-1).text("USDA SR24");
    b.i32(1).i32(203);
    for (int g = 0; g < LifeStageGroupCount; ++g)
        b.f32(static_cast<float>(g) + 0.5f)
            .u32(0x7F800000u + static_cast<std::uint32_t>(g)); // raw bits
    return b.bytes();
}

} // namespace

TEST(FoodDatabase, ParsesTheFourCollectionsAndWritesThemBackByteForByte)
{
    const auto bytes = smallFoodsDb();
    auto parsed = FoodDatabase::parse(bytes, "foods.db");
    ASSERT_TRUE(parsed.ok()) << parsed.error().message();
    const FoodDatabase& db = parsed.value();

    ASSERT_EQ(db.foods().size(), 3u); // duplicates stay in the list
    EXPECT_EQ(db.foods()[0].name, "Butter, salted");
    EXPECT_FLOAT_EQ(db.foods()[0].values[0], 0.85f);
    ASSERT_EQ(db.foods()[0].measures.size(), 2u);
    EXPECT_FLOAT_EQ(db.foods()[0].measures[1].grams, 227.0f);
    EXPECT_EQ(db.foods()[0].measures[1].description, "cup");

    // The map holds the later duplicate; numbers of 70000 and up are never found here.
    ASSERT_NE(db.findDatabaseFood(1001), nullptr);
    EXPECT_EQ(db.findDatabaseFood(1001)->name, "Butter, whipped");
    EXPECT_EQ(db.findDatabaseFood(70001), nullptr);
    EXPECT_EQ(db.findDatabaseFood(5), nullptr);

    EXPECT_EQ(db.catalogue().fileCount(), 2u);
    EXPECT_EQ(db.catalogue().indexOf(208), 1);
    EXPECT_EQ(db.catalogue().entries()[1].shortText, "kcal");
    EXPECT_EQ(db.groups().size(), 2u);
    EXPECT_EQ(db.sourceRelease(), "USDA SR24");

    const IntakeRecord* protein = db.findIntake(203);
    ASSERT_NE(protein, nullptr);
    EXPECT_FLOAT_EQ(protein->recommended[21], 21.5f);
    EXPECT_EQ(protein->second[3], 0x7F800003u);
    EXPECT_EQ(db.findIntake(208), nullptr);

    EXPECT_EQ(db.serialize(), bytes);
}

TEST(FoodDatabase, ComputedEntriesAreAppendedOnceAndNeverWritten)
{
    auto parsed = FoodDatabase::parse(smallFoodsDb(), "foods.db");
    ASSERT_TRUE(parsed.ok());
    FoodDatabase db = parsed.take();
    db.catalogue().appendComputed();
    db.catalogue().appendComputed();
    ASSERT_EQ(db.catalogue().entries().size(), 8u);
    EXPECT_EQ(db.catalogue().entries()[7].name, "Carbs, Net (g)");
    EXPECT_EQ(db.catalogue().nameOf(104), "Amount (g)");
    EXPECT_EQ(db.catalogue().indexOf(104), -1); // not a stored value
    // Sorted by name as unsigned bytes: "% ..." first, "Protein" after "Points".
    const auto& sorted = db.catalogue().sortedByName();
    EXPECT_EQ(db.catalogue().entries()[sorted.front()].name, "% Carb");
    EXPECT_EQ(db.serialize(), smallFoodsDb());
}

TEST(FoodDatabase, NonPositiveCountsReadNothing)
{
    const auto bytes = Bytes().i32(-5).i32(0).i32(-1).i32(0).bytes();
    auto parsed = FoodDatabase::parse(bytes, "foods.db");
    ASSERT_TRUE(parsed.ok()) << parsed.error().message();
    EXPECT_TRUE(parsed.value().empty());
}

TEST(FoodDatabase, DamagedFilesNameTheFileAndOffset)
{
    const auto good = smallFoodsDb();
    auto cutIntake = good; // the last intake record cut: its count no longer fits the bytes left
    cutIntake.resize(good.size() - 3);
    auto hugeFoods = good;
    hugeFoods[3] = 0x7F; // 0x7F000003 foods
    auto longName = good;
    longName[12] = 0xFF; // the first food's name prefix becomes 0xFF and a 16-bit length
    struct Case
    {
        const char* what;
        std::vector<std::uint8_t> bytes;
        FileErrorCode code;
        std::size_t offset;
    };
    const Case cases[] = {
        {"cut intake", cutIntake, FileErrorCode::BadCount, good.size() - 4 - 22 * 8 - 4},
        {"huge food count", hugeFoods, FileErrorCode::BadCount, 0},
        {"long name", longName, FileErrorCode::BadLength, 12},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        auto r = FoodDatabase::parse(c.bytes, "foods.db");
        ASSERT_FALSE(r.ok());
        EXPECT_EQ(r.error().code, c.code);
        EXPECT_EQ(r.error().offset, c.offset);
        EXPECT_EQ(r.error().file, "foods.db");
    }
}

TEST(ServingText, FirstFittingMeasureOrGrams)
{
    const auto cat = velmora::test::standardCatalogue();
    const FoodItem egg = velmora::test::FoodBuilder(cat, 1123, "Egg").measure(100.0f, "large");
    const FoodItem butter = velmora::test::FoodBuilder(cat, 1001)
                                .measure(227.0f, "cup")
                                .measure(14.2f, "tbsp")
                                .measure(5.0f, "pat");
    const FoodItem plain = velmora::test::FoodBuilder(cat, 1002);
    // A custom food's measures are never used.
    const FoodItem custom = velmora::test::FoodBuilder(cat, 70000).measure(100.0f, "large");
    struct Case
    {
        const FoodItem& food;
        float amount;
        const char* text;
    };
    const Case cases[] = {
        {egg, 2.0f, "2 x large"},   {egg, 1.0f, "large"},     {egg, 1.5f, "150.00g"},
        {egg, 0.2f, "20.00g"},      {egg, 3.0f, "3 x large"}, {egg, 0.25f, "25.00g"},
        {egg, 0.0f, "0.00g"},       {butter, 2.27f, "cup"},   {butter, 0.284f, "2 x tbsp"},
        {butter, 0.15f, "3 x pat"}, {butter, 0.07f, "7.00g"}, {plain, 1.0f, "100.00g"},
        {custom, 1.0f, "100.00g"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(servingText(c.food, c.amount), c.text) << c.food.number << " x " << c.amount;
}
