// Replays the inputs kept in tests/data/fuzz/<kind>/ (hostile files made by hand and inputs the
// fuzzers once found): each must give a clean error, or a value that writes back and reads again
// to the same bytes. A crash or an out-of-bounds read fails the run (more so under the sanitizers).

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "model/FileKinds.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

// Every kind of the file-kinds table whose folder holds inputs.
TEST(FuzzRegressions, KeptInputsGiveCleanErrorsOrStableValues)
{
    // The hand-made inputs are all damaged; found inputs may be either.
    const std::map<std::string, std::size_t> handMade = {{"foods", 2}, {"shared", 2}, {"user", 1}};
    std::size_t replayed = 0;
    for (const FileKindInfo& kind : fileKinds()) {
        const fs::path dir = fs::path(VELMORA_TEST_DATA_DIR) / "fuzz" / std::string(kind.name);
        if (!fs::is_directory(dir))
            continue;
        std::size_t errors = 0;
        for (const auto& e : fs::directory_iterator(dir)) {
            if (!e.is_regular_file())
                continue;
            SCOPED_TRACE(e.path().string());
            ++replayed;
            const auto bytes = readBytes(e.path());
            const auto once = kind.rewrite(bytes, e.path().filename().string());
            kind.salvage(bytes, "salvage");
            if (!once) {
                ++errors;
                EXPECT_FALSE(once.error().detail.empty());
                EXPECT_LE(once.error().offset, bytes.size());
                continue;
            }
            const auto twice = kind.rewrite(once.value(), "again");
            ASSERT_TRUE(twice.ok());
            EXPECT_TRUE(twice.value() == once.value());
        }
        const auto expected = handMade.find(std::string(kind.name));
        EXPECT_GE(errors, expected == handMade.end() ? 0 : expected->second) << kind.name;
    }
    EXPECT_GE(replayed, 5u);
}
