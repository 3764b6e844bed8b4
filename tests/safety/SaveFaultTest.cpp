// Every file-system call of a save is made to fail in turn, one failure per run, on the store's
// save of a real-sized velmora.db and journal, the checks for other programs' changes included.
// After each run both files and both backups must read back whole, each as either the content
// before the save or the content being saved, with their permissions; no temporary file may be
// left in the folder; the records in memory must be as they were; and a second save must then
// write them without taking the program's own file for another program's.

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <map>
#include <set>
#include <sys/stat.h>

#include "Generations.h"
#include "model/Normalisation.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/FailingFileSystem.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

// The two files of a save in one round.
struct Round
{
    Bytes shared;
    Bytes journal;
};

Round roundOf(const SharedData& sharedBase, const UserJournal& journalBase, long k)
{
    SharedData shared = sharedBase;
    UserJournal journal = journalBase;
    applyGeneration(shared, k);
    applyGeneration(journal, k);
    return Round{shared.serialize(), journal.serialize()};
}

unsigned modeOf(const fs::path& p)
{
    struct stat st
    {
    };
    return ::stat(p.c_str(), &st) == 0 ? (st.st_mode & 07777u) : 0;
}

std::set<std::string> namesIn(const fs::path& dir)
{
    std::set<std::string> out;
    for (const auto& e : fs::directory_iterator(dir))
        out.insert(e.path().filename().string());
    return out;
}

// Which round a file holds after parsing it whole; -1 when it does not parse.
long sharedRound(const fs::path& p)
{
    auto parsed = SharedData::parse(readBytes(p), p.filename().string());
    return parsed ? generationOf(parsed.value().header2) : -1;
}

long journalRound(const fs::path& p)
{
    auto parsed = UserJournal::parse(readBytes(p), p.filename().string());
    return parsed ? generationOf(parsed.value().days.front().notes[0]) : -1;
}

} // namespace

TEST(SaveFaults, EveryFailingCallLeavesOldOrNewFilesWholeBackupsAndTheRecordsInMemory)
{
    const FoodDatabase foods = generatedFoods(400);
    SharedData sharedBase;
    sharedBase.userNames = {"Anna", "Bert"};
    for (std::size_t i = 0; i < 150; ++i) {
        FoodItem f = foods.foods()[i];
        f.number = FirstCustomFoodNumber + static_cast<std::int32_t>(i);
        f.measures.clear();
        f.servingWeight = 50.0f;
        sharedBase.customFoods.push_back(std::move(f));
    }
    JournalShape shape;
    shape.days = 2920; // eight years of four meals a day
    UserJournal journalBase;
    journalBase.days = generatedJournal(foods, shape, 5);
    // As loading leaves them, so that a save writes exactly a round's bytes.
    normalise(sharedBase, journalBase.days);

    // Round 0 is the backup, round 1 is on disk, round 2 is being saved.
    const Round rounds[] = {roundOf(sharedBase, journalBase, 0),
                            roundOf(sharedBase, journalBase, 1),
                            roundOf(sharedBase, journalBase, 2)};
    ASSERT_GT(rounds[2].journal.size(), 1'000'000u);

    TempDir foodsDir;
    writeBytes(foodsDir / "foods.db", foods.serialize());
    TempDir dir;
    const fs::path shared = dir / "velmora.db";
    const fs::path journal = dir / "Anna.db";
    // A store that loaded round 1 and holds round 2 in memory.
    const auto prepare = [&] {
        for (const auto& e : fs::directory_iterator(dir.path()))
            fs::remove(e.path());
        writeBytes(backupPathFor(shared), rounds[0].shared);
        writeBytes(shared, rounds[1].shared);
        writeBytes(backupPathFor(journal), rounds[0].journal);
        writeBytes(journal, rounds[1].journal);
        for (const fs::path& p : {shared, journal, backupPathFor(shared), backupPathFor(journal)})
            fs::permissions(p, fs::perms::owner_read | fs::perms::owner_write);
        auto store = std::make_unique<Store>();
        store->setPaths(foodsDir / "foods.db", dir.path());
        const auto report = store->load();
        EXPECT_TRUE(report.sharedLoaded && report.userFileRead);
        applyGeneration(store->shared, 2);
        applyGeneration(store->journal, 2);
        return store;
    };
    // The save of both files, as at the end of a session: each file on its own, the journal
    // saved even when velmora.db could not be.
    const auto save = [&](Store& store, FileSystem& files) {
        store.files().setFileSystem(files);
        const bool a = store.saveShared().ok();
        const bool b = store.saveCurrentUser().ok();
        store.files().setFileSystem(realFileSystem());
        return std::pair{a, b};
    };

    FailingFileSystem counting;
    {
        auto store = prepare();
        ASSERT_EQ(save(*store, counting), (std::pair{true, true}));
    }
    const int points = counting.calls();
    // Every kind of call that a save makes is among the failure points.
    for (const char* kind :
         {"resolveLinks", "facts", "canWrite", "createNew", "setMode", "setOwner", "write", "sync",
          "close", "openRead", "read", "rename", "syncFolder"})
        EXPECT_GT(counting.callsByName().count(kind), 0u) << kind;
    // A new file's bytes reach the disk before it takes the old file's name.
    EXPECT_TRUE(counting.renamedUnsynced().empty()) << counting.renamedUnsynced().front();

    const std::set<std::string> expectedNames = {"velmora.db", "velmora.db.bak", "Anna.db",
                                                 "Anna.db.bak"};
    std::map<std::string, int> exercised;
    for (int n = 1; n <= points; ++n) {
        auto store = prepare();
        FailingFileSystem failing(n);
        const auto [sharedSaved, journalSaved] = save(*store, failing);
        ASSERT_TRUE(failing.failed()) << "call " << n;
        const std::string call = failing.failedCall();
        ++exercised[call];
        SCOPED_TRACE("failing call " + std::to_string(n) + " (" + call + ")");

        EXPECT_EQ(namesIn(dir.path()), expectedNames);
        const long s = sharedRound(shared);
        const long j = journalRound(journal);
        EXPECT_TRUE(s == 1 || s == 2) << s;
        EXPECT_TRUE(j == 1 || j == 2) << j;
        // A save that reports success has its content in place; one that fails has left the old
        // file, unless only the folder sync after the rename failed.
        if (sharedSaved) {
            EXPECT_EQ(s, 2);
        } else if (call != "syncFolder") {
            EXPECT_EQ(s, 1);
        }
        if (journalSaved) {
            EXPECT_EQ(j, 2);
        } else if (call != "syncFolder") {
            EXPECT_EQ(j, 1);
        }
        // The file content is exactly one round's bytes, not a parseable mix.
        EXPECT_EQ(readBytes(shared), rounds[s == 2 ? 2 : 1].shared);
        EXPECT_EQ(readBytes(journal), rounds[j == 2 ? 2 : 1].journal);

        const long sb = sharedRound(backupPathFor(shared));
        const long jb = journalRound(backupPathFor(journal));
        EXPECT_TRUE(sb == 0 || sb == 1) << sb;
        EXPECT_TRUE(jb == 0 || jb == 1) << jb;
        for (const std::string& name : expectedNames)
            EXPECT_EQ(modeOf(dir / name), 0600u) << name;

        // Nothing was freed or changed in memory by the failed save.
        EXPECT_EQ(store->shared.serialize(), rounds[2].shared);
        EXPECT_EQ(store->journal.serialize(), rounds[2].journal);
        // The next save writes what memory holds and finds no other program's version.
        ASSERT_EQ(save(*store, realFileSystem()), (std::pair{true, true}));
        EXPECT_EQ(readBytes(shared), rounds[2].shared);
        EXPECT_EQ(readBytes(journal), rounds[2].journal);
        EXPECT_TRUE(store->files().takeKeptVersions().empty());
        EXPECT_EQ(namesIn(dir.path()), expectedNames);
    }
    int total = 0;
    std::string byKind;
    for (const auto& [kind, count] : exercised) {
        total += count;
        byKind += " " + kind + " " + std::to_string(count);
    }
    EXPECT_EQ(total, points);
    std::cout << "[ fault points ] " << total << " failing calls exercised:" << byKind << '\n';
}
