// The reader of the USDA SR ASCII release files, on the hand-made fixtures in tests/data/sr_ascii.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "DatabaseAssembler.h"
#include "NutrientOrder.h"
#include "SrAsciiReader.h"
#include "UsdaGroups.h"
#include "support/TempDir.h"

namespace {

using namespace velmora;
using foodsdb::SourceData;
using foodsdb::SourceFood;

const std::filesystem::path Fixtures = std::filesystem::path(VELMORA_TEST_DATA_DIR) / "sr_ascii";

const SourceFood* findFood(const SourceData& data, int number)
{
    for (const SourceFood& f : data.foods)
        if (f.number == number)
            return &f;
    return nullptr;
}

double valueOf(const SourceFood& f, model::NutrientId n)
{
    for (const auto& [id, v] : f.values)
        if (id == n)
            return v;
    return -1; // not listed
}

TEST(SrLineSplit, FieldsQuotesAndEmptyValues)
{
    struct Case
    {
        const char* line;
        std::vector<std::string_view> fields;
    };
    const Case cases[] = {
        {"~01123~^~0100~^~Egg, whole, raw, fresh~", {"01123", "0100", "Egg, whole, raw, fresh"}},
        {"~01123~^~301~^^0^^~4~", {"01123", "301", "", "0", "", "4"}},
        {"~01123~^~1~^1^~large~^50^3^0.4", {"01123", "1", "1", "large", "50", "3", "0.4"}},
        {"~a^b~^2", {"a^b", "2"}}, // a caret inside a quoted text is text
        {"~x~^^", {"x", "", ""}},  // a trailing separator ends in an empty field
        {"~~^~~", {"", ""}},
        {"12.5", {"12.5"}},
    };
    for (const Case& c : cases) {
        auto fields = foodsdb::splitSrLine(c.line);
        ASSERT_TRUE(fields.ok()) << c.line;
        EXPECT_EQ(fields.value(), c.fields) << c.line;
    }
    EXPECT_FALSE(foodsdb::splitSrLine("~01123~^~never closed").ok());
    EXPECT_FALSE(foodsdb::splitSrLine("~01123~x^~1~").ok());
}

TEST(SrAsciiReader, ReadsFoodsGroupsValuesAndMeasures)
{
    auto read = foodsdb::readSrAscii(Fixtures);
    ASSERT_TRUE(read.ok()) << read.error().file << ": " << read.error().detail;
    const SourceData& data = read.value();

    ASSERT_EQ(data.foods.size(), 7u);
    EXPECT_EQ(data.groupNames.at(900), "Fruits and Fruit Juices");

    const SourceFood* egg = findFood(data, 1123);
    ASSERT_NE(egg, nullptr);
    EXPECT_EQ(egg->name, "Egg, whole, raw, fresh");
    EXPECT_EQ(egg->group, 100);
    EXPECT_DOUBLE_EQ(valueOf(*egg, 203), 12.56);
    EXPECT_DOUBLE_EQ(valueOf(*egg, 208), 143.0);
    EXPECT_EQ(valueOf(*egg, 301), -1) << "an empty value field lists nothing";
    // Measures follow their sequence numbers, not the file's line order.
    ASSERT_EQ(egg->measures.size(), 3u);
    EXPECT_EQ(egg->measures[0].description, "large");
    EXPECT_EQ(egg->measures[1].description, "extra large");
    EXPECT_EQ(egg->measures[2].description, "jumbo");
    EXPECT_DOUBLE_EQ(egg->measures[2].grams, 63.0);

    // Texts stay Windows-1252 bytes.
    const SourceFood* creme = findFood(data, 1999);
    ASSERT_NE(creme, nullptr);
    EXPECT_EQ(creme->name, "Cr\xe8me fra\xee"
                           "che, cultured");
    EXPECT_EQ(findFood(data, 80200)->group, foodsdb::NoGroup);

    // The omega-3 sum adds up the parts a food has; a food with none of them gets no value.
    const SourceFood* flour = findFood(data, 20081);
    EXPECT_NEAR(valueOf(*flour, foodsdb::OmegaThreeSumNumber), 0.03, 1e-12);
    EXPECT_EQ(valueOf(*egg, foodsdb::OmegaThreeSumNumber), -1);
    EXPECT_EQ(valueOf(*flour, foodsdb::OmegaSixSumNumber), -1);

    const auto vitaminB12 = std::find_if(data.nutrients.begin(), data.nutrients.end(),
                                         [](const auto& n) { return n.number == 418; });
    ASSERT_NE(vitaminB12, data.nutrients.end());
    EXPECT_EQ(vitaminB12->unit, "\xb5g");
    EXPECT_EQ(vitaminB12->sourceOrder, 7300);
}

TEST(SrAsciiReader, AssembledDatabase)
{
    auto read = foodsdb::readSrAscii(Fixtures);
    ASSERT_TRUE(read.ok());
    auto built = foodsdb::assembleDatabase(read.take(), "USDA SR28");
    ASSERT_TRUE(built.ok()) << built.error().detail;
    const model::FoodDatabase& db = built.value().database;

    // Catalogue: macronutrients, minerals, vitamins, lipids, amino acids; a nutrient no food
    // lists (999) is left out.
    std::vector<model::NutrientId> numbers;
    for (const auto& e : db.catalogue().entries())
        numbers.push_back(e.number);
    const std::vector<model::NutrientId> expected{
        208, 203, 204, 205, 291, 301, 418, foodsdb::OmegaThreeSumNumber, 851, 621, 505};
    EXPECT_EQ(numbers, expected);
    EXPECT_EQ(db.catalogue().entries()[1].name, "Protein (g)");
    EXPECT_EQ(db.catalogue().entries()[6].name, "Vitamin B12 (\xb5g)");
    EXPECT_EQ(db.catalogue().entries()[6].shortText, "\xb5g");
    EXPECT_EQ(db.catalogue().entries()[8].name, "18:3 n-3 c,c,c (ALA) (g)")
        << "the data's own name";

    // Foods ascending; the two of 50000 and up take the free numbers after the highest one.
    std::vector<int> foodNumbers;
    for (const auto& f : db.foods())
        foodNumbers.push_back(f.number);
    EXPECT_EQ(foodNumbers, (std::vector<int>{1123, 1999, 9003, 9999, 20081, 20082, 20083}));
    EXPECT_EQ(built.value().renumbered,
              (std::vector<std::pair<int, int>>{{80200, 20082}, {93600, 20083}}));

    const model::FoodItem* turtle = db.findDatabaseFood(20083);
    ASSERT_NE(turtle, nullptr);
    EXPECT_EQ(turtle->name, "Turtle, green, raw");
    EXPECT_EQ(turtle->group, 1500) << "the group comes from FdGrp_Cd";
    EXPECT_EQ(db.findDatabaseFood(20082)->group, foodsdb::OtherGroupNumber);
    EXPECT_EQ(db.findDatabaseFood(9999)->group, 1100) << "FdGrp_Cd wins over the number's digits";

    const model::FoodItem* egg = db.findDatabaseFood(1123);
    ASSERT_NE(egg, nullptr);
    EXPECT_FLOAT_EQ(egg->values[0], 143.0f);
    EXPECT_FLOAT_EQ(egg->values[1], 12.56f);
    EXPECT_FLOAT_EQ(egg->values[5], 0.0f) << "calcium given as an empty field";
    EXPECT_FLOAT_EQ(egg->values[10], 0.912f);
    for (std::size_t i = numbers.size(); i < egg->values.size(); ++i)
        EXPECT_EQ(egg->values[i], 0.0f);

    const model::FoodItem* apple = db.findDatabaseFood(9003);
    ASSERT_EQ(apple->measures.size(), 2u);
    EXPECT_EQ(apple->measures[0].description, "medium (3\" dia)");
    EXPECT_EQ(apple->measures[1].description, "0.5 cup, quartered or chopped");
    EXPECT_FLOAT_EQ(apple->measures[1].grams, 62.5f);

    // Groups that have foods, by code, then the group that names the release.
    std::vector<std::pair<int, std::string>> groups;
    for (const auto& g : db.groups())
        groups.emplace_back(g.number, g.name);
    const std::vector<std::pair<int, std::string>> expectedGroups{
        {100, "Dairy and Egg Products"},
        {900, "Fruits and Fruit Juices"},
        {1100, "Vegetables and Vegetable Products"},
        {1500, "Finfish and Shellfish Products"},
        {2000, "Cereal Grains and Pasta"},
        {9900, "Other"},
        {-1, "USDA SR28"}};
    EXPECT_EQ(groups, expectedGroups);
    EXPECT_EQ(db.sourceRelease(), "USDA SR28");
    EXPECT_TRUE(db.intakes().empty());
}

// Copies the fixtures into a temporary folder and replaces one file's content.
void copyFixturesWith(const std::filesystem::path& to, const std::string& file,
                      const std::string& content)
{
    for (const auto& e : std::filesystem::directory_iterator(Fixtures))
        if (e.path().extension() == ".txt")
            std::filesystem::copy_file(e.path(), to / e.path().filename());
    std::ofstream(to / file, std::ios::binary | std::ios::trunc) << content;
}

TEST(SrAsciiReader, DamagedOrMissingFilesNameFileAndLine)
{
    {
        test::TempDir dir;
        copyFixturesWith(dir.path(), "WEIGHT.txt", "");
        std::filesystem::remove(dir / "NUTR_DEF.txt");
        auto read = foodsdb::readSrAscii(dir.path());
        ASSERT_FALSE(read.ok());
        EXPECT_EQ(read.error().code, model::FileErrorCode::NotFound);
        EXPECT_NE(read.error().file.find("NUTR_DEF.txt"), std::string::npos);
    }
    struct Case
    {
        const char* file;
        const char* content;
        const char* detail; // part of the error's detail
    };
    const Case cases[] = {
        {"NUT_DATA.txt", "~01123~^~203~^12.56\r\n~01124~^~203~^1.0\r\n", "line 2"},
        {"NUT_DATA.txt", "~01123~^~203~^twelve\r\n", "not a number"},
        {"NUT_DATA.txt", "~01123~^~268~^598\r\n", "NUTR_DEF.txt"},
        {"WEIGHT.txt", "~01123~^~1~^1^~large~^\r\n", "weight"},
        {"FOOD_DES.txt", "~01123~^~0100~^~Egg~\r\n~01123~^~0100~^~Egg again~\r\n", "twice"},
        {"FD_GROUP.txt", "~0100~^~Dairy and Egg Products\r\n", "never closed"},
        {"NUTR_DEF.txt", "~203~^~g~\r\n", "fields"},
    };
    for (const Case& c : cases) {
        test::TempDir dir;
        copyFixturesWith(dir.path(), c.file, c.content);
        auto read = foodsdb::readSrAscii(dir.path());
        ASSERT_FALSE(read.ok()) << c.file << ": " << c.content;
        EXPECT_EQ(read.error().code, model::FileErrorCode::BadValue);
        EXPECT_NE(read.error().file.find(c.file), std::string::npos) << read.error().file;
        EXPECT_NE(read.error().detail.find(c.detail), std::string::npos) << read.error().detail;
    }
}

} // namespace
