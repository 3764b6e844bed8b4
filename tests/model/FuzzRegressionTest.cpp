// Replays the inputs kept in tests/data/fuzz/<kind>/ (hostile files made by hand and inputs the
// fuzzers once found): each must give a clean error, or a value that writes back and reads again
// to the same bytes. A crash or an out-of-bounds read fails the run (more so under the sanitizers).

#include <gtest/gtest.h>

#include <filesystem>

#include "model/FoodDatabase.h"
#include "model/UserDatabase.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

std::vector<fs::path> inputsOf(const char* kind)
{
    std::vector<fs::path> out;
    const fs::path dir = fs::path(VELMORA_TEST_DATA_DIR) / "fuzz" / kind;
    for (const auto& e : fs::directory_iterator(dir))
        if (e.is_regular_file())
            out.push_back(e.path());
    return out;
}

template <class T> void replay(const char* kind, std::size_t expectedErrors)
{
    const auto inputs = inputsOf(kind);
    ASSERT_FALSE(inputs.empty()) << kind;
    std::size_t errors = 0;
    for (const fs::path& input : inputs) {
        const auto bytes = readBytes(input);
        auto first = T::parse(bytes, input.filename().string());
        if (!first) {
            ++errors;
            EXPECT_FALSE(first.error().detail.empty()) << input;
            EXPECT_LE(first.error().offset, bytes.size()) << input;
            continue;
        }
        const auto again = first.value().serialize();
        auto second = T::parse(again, "again");
        ASSERT_TRUE(second.ok()) << input;
        EXPECT_TRUE(second.value().serialize() == again) << input;
    }
    // The hand-made inputs are all damaged; found inputs may be either.
    EXPECT_GE(errors, expectedErrors) << kind;
}

} // namespace

TEST(FuzzRegressions, FoodDatabaseInputs)
{
    replay<FoodDatabase>("foods", 2);
}

TEST(FuzzRegressions, SharedDataInputs)
{
    replay<SharedData>("shared", 2);
}

TEST(FuzzRegressions, UserJournalInputs)
{
    replay<UserJournal>("user", 1);
}
