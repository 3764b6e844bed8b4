// Damaged files, backups, and saves that must not happen: the store never loses what is on disk.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "model/Clock.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/UserNames.h"
#include "support/DataFolderFixture.h"
#include "support/Fixtures.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

// The files in dir whose names start with prefix.
std::vector<fs::path> filesStartingWith(const TempDir& dir, const std::string& prefix)
{
    std::vector<fs::path> out;
    for (const auto& e : fs::directory_iterator(dir.path()))
        if (e.path().filename().string().rfind(prefix, 0) == 0)
            out.push_back(e.path());
    std::sort(out.begin(), out.end());
    return out;
}

} // namespace

TEST(DamagedFiles, SharedFileIsMovedAsideAndWholePartsAreKept)
{
    TempDir dir;
    writeBytes(dir / "foods.db", handMadeFoods());
    const auto good = handMadeShared();
    auto damaged = good;
    damaged.resize(damaged.size() - 5); // cuts into the last list, the user variables
    writeBytes(dir / "velmora.db", damaged);
    writeBytes(dir / "Bert.db", handMadeUserFile());

    Store s = storeIn(dir);
    const auto report = s.load();
    ASSERT_EQ(report.damaged.size(), 1u);
    const auto& d = report.damaged[0];
    EXPECT_EQ(d.kind, Store::DamagedFile::Kind::Shared);
    EXPECT_EQ(d.error.code, FileErrorCode::UnexpectedEnd);
    EXPECT_GT(d.error.offset, 0u);
    EXPECT_NE(d.error.message().find("velmora.db"), std::string::npos);

    // The damaged bytes are kept, untouched, under a name that says so.
    ASSERT_FALSE(d.movedTo.empty());
    EXPECT_NE(d.movedTo.filename().string().find("velmora.db.damaged-"), std::string::npos);
    EXPECT_EQ(readBytes(d.movedTo), damaged);
    EXPECT_FALSE(fs::exists(dir / "velmora.db"));

    // Every complete record is used: users and the complete lists; the one variable was cut and
    // is not half-applied. The user's journal is loaded as usual.
    ASSERT_EQ(s.shared.userNames.size(), 2u);
    EXPECT_FALSE(s.shared.customFoods.empty());
    EXPECT_FALSE(s.shared.routines.empty());
    EXPECT_TRUE(s.shared.variables.empty());
    EXPECT_TRUE(report.userFileRead);
    EXPECT_EQ(s.journal.days.size(), 2u);

    // Saving writes a fresh file and leaves the damaged one where it was moved.
    ASSERT_TRUE(s.saveShared().ok());
    EXPECT_TRUE(SharedData::parse(readBytes(dir / "velmora.db"), "velmora.db").ok());
    EXPECT_EQ(readBytes(d.movedTo), damaged);
}

TEST(DamagedFiles, SharedBackupRestoresTheUsers)
{
    TempDir dir;
    writeBytes(dir / "foods.db", handMadeFoods());
    const auto good = handMadeShared();
    writeBytes(dir / "velmora.db", good);
    writeBytes(dir / "velmora.db.bak", good);
    writeBytes(dir / "velmora.db", std::vector<std::uint8_t>{131, 0, 0}); // cut inside the version

    Store s = storeIn(dir);
    const auto report = s.load();
    ASSERT_EQ(report.damaged.size(), 1u);
    EXPECT_EQ(readBytes(report.damaged[0].backup), good);
    // Nothing whole could be read: the example user stands in until the backup is restored.
    EXPECT_EQ(s.currentUserName(), "Example User");

    ASSERT_TRUE(s.restoreBackup(report.damaged[0]).ok());
    EXPECT_EQ(s.shared.userNames.size(), 2u);
    EXPECT_EQ(s.currentUserName(), "Bert");
    EXPECT_EQ(s.journal.days.size(), 0u); // Bert has no file in this folder
    EXPECT_EQ(readBytes(dir / "velmora.db"), good);
}

TEST(DamagedFiles, RestoringWithoutABackupChangesNothing)
{
    TempDir dir;
    writeBytes(dir / "foods.db", handMadeFoods());
    Store s = storeIn(dir);
    s.load();
    EXPECT_FALSE(s.restoreBackup(Store::DamagedFile{}).ok());
    EXPECT_EQ(s.currentUserName(), "Example User");
    EXPECT_TRUE(filesStartingWith(dir, "velmora.db").empty());
}

TEST(DamagedFiles, DamagedFoodDatabaseKeepsItsWholeCollections)
{
    TempDir dir;
    auto foods = handMadeFoods();
    foods.resize(foods.size() - 3); // cuts into the intake table, the last collection
    writeBytes(dir / "foods.db", foods);
    writeBytes(dir / "velmora.db", handMadeShared());
    Store s = storeIn(dir);
    const auto report = s.load();
    EXPECT_TRUE(report.foodsLoaded);
    ASSERT_EQ(report.damaged.size(), 1u);
    EXPECT_EQ(report.damaged[0].kind, Store::DamagedFile::Kind::Foods);
    EXPECT_EQ(s.foods.foods().size(), 2u);
    EXPECT_TRUE(s.foods.intakes().empty());
    EXPECT_TRUE(report.sharedLoaded);
    EXPECT_EQ(readBytes(report.damaged[0].movedTo), foods);
}

TEST(HostileNames, AUserNameFromTheFileNeverReachesOutsideTheDataFolder)
{
    TempDir root;
    fs::create_directories(root / "data");
    SharedData shared;
    shared.userNames = {"../outside", "Anna"};
    shared.currentUser = 0;
    writeBytes(root / "data" / "velmora.db", shared.serialize());
    writeBytes(root / "data" / "foods.db", handMadeFoods());
    UserJournal planted;
    planted.days.resize(3);
    writeBytes(root / "outside.db", planted.serialize());

    Store s;
    s.setPaths(root / "data" / "foods.db", root / "data");
    const auto report = s.load();
    ASSERT_EQ(report.errors.size(), 1u);
    EXPECT_EQ(report.errors[0].code, FileErrorCode::UnsafeName);
    // Listed, but its journal is neither read nor written.
    EXPECT_EQ(s.shared.userNames[0], "../outside");
    EXPECT_TRUE(s.journal.days.empty());
    s.journal.days.resize(1);
    EXPECT_FALSE(s.saveCurrentUser().ok());
    EXPECT_EQ(UserJournal::parse(readBytes(root / "outside.db"), "x").value().days.size(), 3u);
    // The shared file itself may still be saved, names as they are.
    ASSERT_TRUE(s.saveShared().ok());
}

TEST(HostileNames, NamesBeyondAsciiNameValidFiles)
{
    TempDir dir;
    Store s;
    s.setPaths(dir / "foods.db", dir.path());
    s.shared.userNames = {std::string("Zo\xEB")}; // "Zoë" in Windows-1252
    const auto path = s.userFilePath(0);
    ASSERT_TRUE(path);
    const std::u8string leaf = path->filename().u8string();
    EXPECT_EQ(std::string(leaf.begin(), leaf.end()), "Zo\xC3\xAB.db"); // UTF-8 on disk
}

// Every save that changes a file keeps the file it replaces as the one backup; a save without a
// change writes nothing, so the backup keeps the last different version.
TEST(SavingGuards, ChangedFilesKeepOneBackupGenerationAndUnchangedOnesAreNotRewritten)
{
    TempDir dir;
    writeHandMadeFolder(dir);
    Store s = storeIn(dir);
    s.load();
    EXPECT_FALSE(s.hasUnsavedChanges()); // the fixtures are already normalised

    s.journal.days.pop_back();
    EXPECT_TRUE(s.hasUnsavedChanges());
    ASSERT_TRUE(s.saveCurrentUser().ok());
    ASSERT_TRUE(s.saveShared().ok());
    EXPECT_FALSE(s.hasUnsavedChanges());
    const auto saved = readBytes(dir / "Bert.db");
    EXPECT_EQ(readBytes(dir / "Bert.db.bak"), handMadeUserFile());
    EXPECT_FALSE(fs::exists(dir / "velmora.db.bak"));

    ASSERT_TRUE(s.saveCurrentUser().ok());
    EXPECT_EQ(readBytes(dir / "Bert.db.bak"), handMadeUserFile());
    EXPECT_EQ(readBytes(dir / "Bert.db"), saved);

    s.shared.userNames.push_back("Carl");
    ASSERT_TRUE(s.saveShared().ok());
    EXPECT_EQ(readBytes(dir / "velmora.db.bak"), handMadeShared());
    s.shared.userNames.push_back("Dora");
    const auto second = readBytes(dir / "velmora.db");
    ASSERT_TRUE(s.saveShared().ok());
    EXPECT_EQ(readBytes(dir / "velmora.db.bak"), second);
    EXPECT_TRUE(filesStartingWith(dir, ".").empty()); // no temporary file is left behind

    // A file removed behind the program's back is written again.
    fs::remove(dir / "velmora.db");
    EXPECT_TRUE(s.hasUnsavedChanges());
    ASSERT_TRUE(s.saveShared().ok());
    EXPECT_EQ(readBytes(dir / "velmora.db"), s.shared.serialize());
}

TEST(DamagedFiles, AUserFileCutInsideItsProfileLeavesTheProfileInMemoryAsItWas)
{
    TempDir dir;
    writeBytes(dir / "foods.db", handMadeFoods());
    writeBytes(dir / "velmora.db", handMadeShared());
    auto cut = handMadeUserFile();
    cut.resize(handMadeUserRecord().size() - 1); // every field but the last one's final byte
    writeBytes(dir / "Bert.db", cut);
    Store s = storeIn(dir);
    s.journal.user.height = 123; // the profile in memory, as a previous user left it
    const auto report = s.load();
    EXPECT_FALSE(report.userFileRead);
    ASSERT_EQ(report.damaged.size(), 1u);
    // The half-read record is not used: the profile stays as it was in memory.
    EXPECT_EQ(s.journal.user.height, 123);
    EXPECT_TRUE(s.journal.days.empty());
}

TEST(DamagedFiles, FilesMovedAsideInTheSameSecondGetNumberedNamesAndNothingIsOverwritten)
{
    TempDir dir;
    const FixedClock clock(1700000000);
    std::vector<fs::path> moved;
    for (std::uint8_t i = 0; i < 3; ++i) {
        writeBytes(dir / "velmora.db", {i});
        auto aside = moveAside(dir / "velmora.db");
        ASSERT_TRUE(aside.ok());
        moved.push_back(aside.value());
    }
    const std::string first = moved[0].filename().string();
    EXPECT_EQ(first.rfind("velmora.db.damaged-", 0), 0u) << first;
    EXPECT_EQ(moved[1].filename().string(), first + "-2");
    EXPECT_EQ(moved[2].filename().string(), first + "-3");
    for (std::uint8_t i = 0; i < 3; ++i)
        EXPECT_EQ(readBytes(moved[i]), (std::vector<std::uint8_t>{i}));
    EXPECT_FALSE(fs::exists(dir / "velmora.db"));
}
