// Where the program and velmora-cli find the data folder and "foods.db".

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "model/DataLocations.h"
#include "support/TempDir.h"
#include "support/TestFileSystems.h"

using namespace velmora::model;
using velmora::test::TempDir;
namespace fs = std::filesystem;

namespace {

void touch(const fs::path& p)
{
    fs::create_directories(p.parent_path());
    std::ofstream(p) << "x";
}

} // namespace

TEST(DataLocations, FoodsAreFoundInTheDataFolderThenBesideTheProgramThenInstalled)
{
    TempDir root;
    const fs::path program = root / "bin";
    const fs::path data = root / "data";
    const fs::path installed = root / "share";
    const fs::path perUser = root / "user";
    fs::create_directories(program);
    fs::create_directories(data);

    struct Case
    {
        const char* what;
        fs::path dataOption;
        fs::path foodsOption;
        std::vector<fs::path> present; // foods.db files that exist
        fs::path dataDir;
        fs::path found;
        fs::path loaded;
    };
    const fs::path inData = data / "foods.db";
    const fs::path inProgram = program / "foods.db";
    const fs::path inInstalled = installed / "foods.db";
    const fs::path named = root / "elsewhere" / "mine.db";
    const fs::path inShare = root / "share" / "velmora" / "foods.db";
    // An installed program's folder is bin/, its share folder bin/../share/velmora.
    const Case cases[] = {
        {"own copy first", data, {}, {inData, inProgram}, data, inData, inData},
        {"the program's copy", data, {}, {inProgram}, data, inProgram, inProgram},
        {"installed copy last", data, {}, {inInstalled}, data, inInstalled, inInstalled},
        {"none: the data folder's is missing", data, {}, {}, data, {}, inData},
        {"no data folder: the program's", {}, {}, {inProgram}, program, inProgram, inProgram},
        {"installed: share, per-user", {}, {}, {inShare, inInstalled}, perUser, inShare, inShare},
        {"share before installed", data, {}, {inShare, inInstalled}, data, inShare, inShare},
        {"a named file is the only place", data, named, {inData}, data, {}, named},
        {"a named file that exists", data, named, {named, inData}, data, named, named},
    };
    for (const Case& c : cases) {
        for (const fs::path& p : {inData, inProgram, inInstalled, inShare, named})
            fs::remove(p);
        for (const fs::path& p : c.present)
            touch(p);
        DataSearch search{c.dataOption, c.foodsOption, program, perUser, {installed}};
        const DataLocations where = findDataLocations(search);
        EXPECT_EQ(where.dataDir, c.dataDir) << c.what;
        EXPECT_EQ(where.foodsPath, c.found) << c.what;
        EXPECT_EQ(where.foodsToLoad(), c.loaded) << c.what;
    }

    // Each place is looked at once, in order; a folder given with a trailing separator is the
    // same folder.
    DataSearch same{program / "", {}, program, perUser, {program, installed}};
    const DataLocations where = findDataLocations(same);
    EXPECT_EQ(where.dataDir, program);
    EXPECT_EQ(where.searched, (std::vector<fs::path>{inProgram, inShare, inInstalled}));
}

TEST(DataLocations, AFolderThatCannotBeWrittenGivesWayOnlyWhenItWasNotNamedAndHoldsNoUsers)
{
    struct Case
    {
        const char* what;
        bool named;       // given with --data-dir
        bool holdsUsers;  // "velmora.db" in it
        bool usesPerUser; // the per-user folder is used instead
    };
    const Case cases[] = {
        {"a named folder", true, true, false},
        {"an empty named folder", true, false, false},
        {"the program's folder with users", false, true, false},
        {"the program's folder with only foods.db", false, false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TempDir root;
        const fs::path program = root / "bin";
        const fs::path folder = c.named ? root / "named" : program;
        touch(program / "foods.db");
        fs::create_directories(folder);
        if (c.holdsUsers)
            touch(folder / "velmora.db");
        velmora::test::ReadOnlyFileSystem readOnly(folder);
        const DataSearch search{c.named ? folder : fs::path(), {}, program, root / "per-user", {}};
        const DataLocations where = findDataLocations(search, readOnly);
        EXPECT_EQ(where.dataDir, c.usesPerUser ? root / "per-user" : folder);
    }
}
