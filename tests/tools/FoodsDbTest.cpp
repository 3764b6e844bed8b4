// The foods.db built from the packaged USDA SR24 data, checked against the data itself.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <string_view>
#include <set>

#include "NutrientOrder.h"
#include "ZipArchive.h"
#include "model/FoodDatabase.h"
#include "model/Nutrition.h"
#include "model/SafeFile.h"

namespace {

using namespace velmora;
using model::FoodDatabase;

// Every test here starts with this: the suite needs the foods.db that the build makes.
#define REQUIRE_BUILT_DATABASE()                                                                   \
    if (!VELMORA_HAVE_USDA_DATA)                                                                   \
    GTEST_SKIP() << "built without foods.db (VELMORA_BUILD_FOODS_DB is off)"

const FoodDatabase& built()
{
    static const FoodDatabase db = [] {
        auto loaded = FoodDatabase::load(VELMORA_FOODS_DB);
        if (!loaded)
            ADD_FAILURE() << "cannot load " << VELMORA_FOODS_DB << ": " << loaded.error().message();
        return loaded ? loaded.take() : FoodDatabase{};
    }();
    return db;
}

// The text of attribute `name` in the element that starts at `from`, found by plain search.
std::string_view attributeAt(std::string_view xml, std::size_t from, std::string_view name)
{
    const std::size_t end = xml.find('>', from);
    const std::string key = " " + std::string(name) + "=\"";
    const std::size_t at = xml.find(key, from);
    if (at == std::string_view::npos || at > end)
        return {};
    const std::size_t start = at + key.size();
    return xml.substr(start, xml.find('"', start) - start);
}

double value(const model::FoodItem& f, model::NutrientId n)
{
    return model::foodValue(built().catalogue(), f, n);
}

TEST(BuiltFoodsDb, OrderNumbersGroupsAndRelease)
{
    REQUIRE_BUILT_DATABASE();
    const FoodDatabase& db = built();
    EXPECT_EQ(db.sourceRelease(), "USDA SR24");
    ASSERT_EQ(db.foods().size(), 8858u);

    std::set<int> groupNumbers;
    for (const auto& g : db.groups())
        groupNumbers.insert(g.number);
    for (std::size_t i = 0; i < db.foods().size(); ++i) {
        const auto& f = db.foods()[i];
        ASSERT_LT(f.number, model::FirstUserDefinedNumber);
        if (i > 0) {
            ASSERT_LT(db.foods()[i - 1].number, f.number);
        }
        ASSERT_TRUE(groupNumbers.contains(f.group)) << f.number;
        ASSERT_FALSE(f.name.empty());
    }
    // The five foods numbered 80200 to 93600 follow the highest number below 50000, 48052.
    const model::FoodItem* turtle = db.findDatabaseFood(48057);
    ASSERT_NE(turtle, nullptr);
    EXPECT_EQ(turtle->name, "Turtle, green, raw");
    EXPECT_EQ(turtle->group, 1500) << "placed by name among the finfish and shellfish";
    EXPECT_EQ(db.foods().back().number, 48057);

    EXPECT_EQ(db.groups().back().number, FoodDatabase::SourceGroupNumber);
    EXPECT_EQ(db.groups().front().number, 100);
    EXPECT_EQ(db.groups().front().name, "Dairy and Egg Products");
}

TEST(BuiltFoodsDb, CatalogueAndIntakes)
{
    REQUIRE_BUILT_DATABASE();
    const FoodDatabase& db = built();
    const auto& entries = db.catalogue().entries();
    ASSERT_EQ(db.catalogue().fileCount(), 71u);
    EXPECT_EQ(entries[0].number, 208);
    EXPECT_EQ(entries[0].name, "Energy (kcal)");
    EXPECT_EQ(entries[0].shortText, "kcal");
    EXPECT_EQ(entries[1].name, "Protein (g)");
    for (model::NutrientId n : {501, 502, 503, 504, 505, 506, 508, 509, 510, 512, 291,
                                foodsdb::OmegaThreeSumNumber, foodsdb::OmegaSixSumNumber})
        EXPECT_GE(db.catalogue().indexOf(n), 0) << n;
    const model::NutrientDef* selenium = db.catalogue().find(317);
    ASSERT_NE(selenium, nullptr);
    EXPECT_EQ(selenium->name, "Selenium (\xb5g)");

    // Intakes of every nutrient with a USDA number and reference intakes (Chromium and Biotin
    // have no number).
    EXPECT_EQ(db.intakes().size(), 30u);
    const model::IntakeRecord* protein = db.findIntake(model::nutrient::Protein);
    ASSERT_NE(protein, nullptr);
    EXPECT_FLOAT_EQ(protein->recommended[0], 9.1f);
    EXPECT_FLOAT_EQ(protein->recommended[6], 56.0f);
    EXPECT_FLOAT_EQ(protein->recommended[11], 46.0f);
    EXPECT_FLOAT_EQ(protein->recommended[16], 71.0f);
    const model::IntakeRecord* iron = db.findIntake(303);
    ASSERT_NE(iron, nullptr);
    const float expectedIron[] = {0.27f, 11, 7,  10, 8, 11, 8,  8,  8,  8, 8,
                                  15,    18, 18, 8,  8, 27, 27, 27, 10, 9, 9};
    for (int g = 0; g < model::LifeStageGroupCount; ++g) {
        EXPECT_FLOAT_EQ(iron->recommended[static_cast<std::size_t>(g)], expectedIron[g]) << g;
        EXPECT_EQ(iron->upperLimit(g), 0.0f) << "the data gives no upper limits";
    }
    EXPECT_NE(db.findIntake(foodsdb::OmegaThreeSumNumber), nullptr);
}

TEST(BuiltFoodsDb, RewritesByteForByte)
{
    REQUIRE_BUILT_DATABASE();
    auto bytes = model::readWholeFile(VELMORA_FOODS_DB);
    ASSERT_TRUE(bytes.ok());
    auto parsed = FoodDatabase::parse(bytes.value(), "foods.db");
    ASSERT_TRUE(parsed.ok());
    EXPECT_TRUE(parsed.value().serialize() == bytes.value());
}

// Reads the archive's food files with a plain pattern, apart from the builder's XML reader, and
// compares each value with the database.
TEST(BuiltFoodsDb, ValuesAndProteinScoresMatchTheSourceFiles)
{
    REQUIRE_BUILT_DATABASE();
    const std::string jar = std::string(VELMORA_USDA_CACHE) + "/usr/share/cronometer/usda_sr24.jar";
    auto zip = foodsdb::ZipArchive::open(jar);
    ASSERT_TRUE(zip.ok()) << zip.error().detail;

    std::map<std::string, model::NutrientId> byName{
        {"Energy", 208},    {"Protein", 203},
        {"Fat", 204},       {"Carbs", 205},
        {"Fiber", 291},     {"Calcium", 301},
        {"Vitamin C", 401}, {"Omega-3", foodsdb::OmegaThreeSumNumber}};
    const std::pair<const char*, model::NutrientId> aminoAcids[] = {
        {"TRP", 501}, {"THR", 502}, {"ILE", 503}, {"LEU", 504}, {"LYS", 505},
        {"MET", 506}, {"PHE", 508}, {"TYR", 509}, {"VAL", 510}, {"HIS", 512}};
    byName.insert(std::begin(aminoAcids), std::end(aminoAcids));
    // The ideal pattern by the food files' names: mg per g protein.
    const std::pair<const char*, double> pattern[] = {{"TYR", 7},  {"HIS", 18}, {"MET", 25},
                                                      {"ILE", 25}, {"THR", 27}, {"VAL", 32},
                                                      {"LYS", 51}, {"PHE", 47}, {"LEU", 55}};

    const std::map<int, int> renumbered{
        {80200, 48053}, {83110, 48054}, {90240, 48055}, {90560, 48056}, {93600, 48057}};
    int foods = 0;
    int deficient = 0;
    for (const std::string& entry : zip.value().entryNames()) {
        if (!entry.ends_with(".xml"))
            continue;
        auto xml = zip.value().read(entry);
        ASSERT_TRUE(xml.ok());
        const std::string_view text = xml.value();
        int number = std::stoi(std::string(attributeAt(text, text.find("<food"), "uid")));
        if (const auto it = renumbered.find(number); it != renumbered.end())
            number = it->second;
        const model::FoodItem* food = built().findDatabaseFood(number);
        ASSERT_NE(food, nullptr) << entry;
        ++foods;

        std::map<std::string, float> source;
        for (std::size_t at = text.find("<nutrient "); at != std::string_view::npos;
             at = text.find("<nutrient ", at + 1))
            source[std::string(attributeAt(text, at, "name"))] =
                std::stof(std::string(attributeAt(text, at, "amount")));
        for (const auto& [name, n] : byName) {
            const auto s = source.find(name);
            EXPECT_FLOAT_EQ(value(*food, n), s == source.end() ? 0.0f : s->second)
                << entry << " " << name;
        }

        const double protein = source["Protein"];
        double expected = 1.0;
        for (const auto& [name, reference] : pattern) {
            const double r = source[name] / protein * 1000.0;
            if (r < reference)
                expected = std::min(expected, r / reference);
        }
        const double score = model::proteinScore(built().catalogue(), *food);
        EXPECT_NEAR(score, protein > 0 ? expected : 1.0, 1e-6) << entry;
        deficient += score < 1.0;
    }
    EXPECT_EQ(foods, 8858);
    EXPECT_GT(deficient, 1000);

    // Wheat flour falls short in lysine.
    const model::FoodItem* flour = built().findDatabaseFood(20081);
    ASSERT_NE(flour, nullptr);
    EXPECT_EQ(flour->name, "Wheat flour, white, all-purpose, enriched, bleached");
    const double lysineShare = value(*flour, 505) / value(*flour, 203) * 1000.0 / 51.0;
    EXPECT_LT(model::proteinScore(built().catalogue(), *flour), 1.0);
    EXPECT_NEAR(model::proteinScore(built().catalogue(), *flour), lysineShare, 1e-6);
    EXPECT_NEAR(lysineShare, 0.228 / 10.33 * 1000.0 / 51.0, 1e-6);
}

} // namespace
