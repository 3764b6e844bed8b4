// The program velmora-foodsdb: options, the ASCII build, and what a missing or damaged input does
// to the output file.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "FoodsDbTool.h"
#include "model/FoodDatabase.h"
#include "support/TempDir.h"

namespace {

using namespace velmora;
namespace fs = std::filesystem;

const fs::path Cache(VELMORA_USDA_CACHE);
const fs::path FoodsJar = Cache / "usr/share/cronometer/usda_sr24.jar";
const fs::path NutrientsJar = Cache / "usr/share/java/cronometer.jar";
const fs::path SrAscii = fs::path(VELMORA_TEST_DATA_DIR) / "sr_ascii";

struct ToolRun
{
    int exitCode;
    std::string out, err;
};

ToolRun run(const std::vector<std::string>& args)
{
    std::ostringstream out, err;
    const int code = foodsdb::runFoodsDbTool(args, out, err);
    return {code, out.str(), err.str()};
}

TEST(FoodsDbTool, Usage)
{
    EXPECT_EQ(run({"--help"}).exitCode, 0);
    EXPECT_NE(run({"--help"}).out.find("--sr-ascii DIR --release NAME"), std::string::npos);
    const std::vector<std::vector<std::string>> bad{
        {},
        {"--usda-jar", "a.jar", "-o", "x.db"},               // no nutrients jar
        {"--sr-ascii", "dir", "-o", "x.db"},                 // no release
        {"--usda-jar", "a.jar", "--nutrients-jar", "b.jar"}, // no output
        {"--usda-jar", "a.jar", "--nutrients-jar", "b.jar", "--sr-ascii", "d", "-o", "x"},
        {"--frobnicate"},
        {"-o"},
    };
    for (const auto& args : bad) {
        const ToolRun r = run(args);
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_NE(r.err.find("Usage:"), std::string::npos);
    }
}

TEST(FoodsDbTool, BuildsFromAnAsciiRelease)
{
    test::TempDir dir;
    const fs::path out = dir / "foods.db";
    ToolRun r = run({"--sr-ascii", SrAscii.string(), "--release", "USDA SR28", "-o", out.string()});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    auto db = model::FoodDatabase::load(out);
    ASSERT_TRUE(db.ok());
    EXPECT_EQ(db.value().foods().size(), 7u);
    EXPECT_EQ(db.value().sourceRelease(), "USDA SR28");
    EXPECT_TRUE(db.value().intakes().empty());
    EXPECT_NE(r.err.find("Food 93600 is numbered 20083"), std::string::npos);

    // With the nutrient definitions the intake table comes along.
    if (!VELMORA_HAVE_USDA_DATA)
        return;
    r = run({"--sr-ascii", SrAscii.string(), "--release", "USDA SR28", "--nutrients-jar",
             NutrientsJar.string(), "-o", out.string()});
    ASSERT_EQ(r.exitCode, 0) << r.err;
    db = model::FoodDatabase::load(out);
    ASSERT_TRUE(db.ok());
    EXPECT_EQ(db.value().intakes().size(), 30u);
    ASSERT_NE(db.value().findIntake(203), nullptr);
    EXPECT_FLOAT_EQ(db.value().findIntake(203)->recommended[6], 56.0f);
}

// A copy of a jar cut in half, or with a few bytes of one entry's compressed data flipped (the
// first local header that carries `entry`'s name is followed by its data).
fs::path damagedCopy(const fs::path& dir, const fs::path& jar, const std::string& entry = {})
{
    const fs::path copy = dir / jar.filename();
    fs::copy_file(jar, copy);
    if (entry.empty()) {
        fs::resize_file(copy, fs::file_size(copy) / 2);
        return copy;
    }
    auto bytes = test::readBytes(copy);
    const std::string text(bytes.begin(), bytes.end());
    const std::size_t at = text.find(entry);
    EXPECT_NE(at, std::string::npos);
    for (std::size_t i = at + entry.size() + 40; i < at + entry.size() + 48; ++i)
        bytes[i] = static_cast<std::uint8_t>(bytes[i] ^ 0x5A);
    test::writeBytes(copy, bytes);
    return copy;
}

TEST(FoodsDbTool, MissingOrDamagedInputWritesNothing)
{
    if (!VELMORA_HAVE_USDA_DATA)
        GTEST_SKIP() << "needs the USDA data in the cache folder";
    test::TempDir dir;
    const fs::path out = dir / "foods.db";
    struct Case
    {
        std::string name;
        fs::path foods, nutrients;
        std::string mentioned; // the file the error must name
    };
    fs::create_directories(dir / "t1");
    fs::create_directories(dir / "t2");
    fs::create_directories(dir / "t3");
    const fs::path truncatedFoods = damagedCopy(dir / "t1", FoodsJar);
    const fs::path scrambledFoods = damagedCopy(dir / "t2", FoodsJar, "usda_sr24/01123.xml");
    const fs::path truncatedNutrients = damagedCopy(dir / "t3", NutrientsJar);
    const Case cases[] = {
        {"missing foods jar", dir / "none.jar", NutrientsJar, "none.jar"},
        {"missing nutrients jar", FoodsJar, dir / "none.jar", "none.jar"},
        {"truncated foods jar", truncatedFoods, NutrientsJar, truncatedFoods.string()},
        {"damaged food entry", scrambledFoods, NutrientsJar, "usda_sr24/01123.xml"},
        {"truncated nutrients jar", FoodsJar, truncatedNutrients, truncatedNutrients.string()},
        {"not a zip at all", SrAscii / "FOOD_DES.txt", NutrientsJar, "FOOD_DES.txt"},
    };
    for (const Case& c : cases) {
        const ToolRun r = run({"--usda-jar", c.foods.string(), "--nutrients-jar",
                               c.nutrients.string(), "-o", out.string()});
        EXPECT_EQ(r.exitCode, 1) << c.name;
        EXPECT_FALSE(fs::exists(out)) << c.name;
        EXPECT_NE(r.err.find(c.mentioned), std::string::npos) << c.name << ": " << r.err;
        EXPECT_NE(r.err.find("No foods.db was written."), std::string::npos) << c.name;
    }
    // An earlier foods.db stays as it was, and no temporary file is left beside it.
    test::writeBytes(out, {1, 2, 3});
    const ToolRun r = run({"--usda-jar", truncatedFoods.string(), "--nutrients-jar",
                           NutrientsJar.string(), "-o", out.string()});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_EQ(test::readBytes(out), (std::vector<std::uint8_t>{1, 2, 3}));
    int files = 0;
    for ([[maybe_unused]] const auto& e : fs::directory_iterator(dir.path()))
        ++files;
    EXPECT_EQ(files, 4) << "t1, t2, t3 and foods.db";

    const ToolRun ascii = run(
        {"--sr-ascii", (dir / "t1").string(), "--release", "X", "-o", (dir / "other.db").string()});
    EXPECT_EQ(ascii.exitCode, 1);
    EXPECT_NE(ascii.err.find("FOOD_DES.txt"), std::string::npos);
    EXPECT_FALSE(fs::exists(dir / "other.db"));
}

} // namespace
