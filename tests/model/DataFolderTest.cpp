// The data folder's promises beyond a single save: another program's version is never written
// over, a folder or file that cannot be written refuses every save, a salvage keeps every whole
// day and the good backup, and what a close would lose is told day by day.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>

#include "model/Clock.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/DataFolderFixture.h"
#include "support/Fixtures.h"
#include "support/TempDir.h"
#include "support/TestFileSystems.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

// Every file of a folder with its bytes (folders as empty entries).
std::map<std::string, std::vector<std::uint8_t>> contentOf(const fs::path& dir)
{
    std::map<std::string, std::vector<std::uint8_t>> out;
    for (const auto& e : fs::directory_iterator(dir))
        out[e.path().filename().string()] =
            e.is_regular_file() ? readBytes(e.path()) : std::vector<std::uint8_t>{};
    return out;
}

std::vector<JournalDay> tenDays()
{
    std::vector<JournalDay> days;
    for (int i = 0; i < 10; ++i)
        days.push_back(dayWithMeal(1600000000 + 86400 * i, i % 4, {{1000 + i, 1.5f}}));
    return days;
}

} // namespace

TEST(DataFolder, TwoProgramsOnOneFolderNeverOverwriteEachOtherSilently)
{
    TempDir dir;
    writeHandMadeFolder(dir);
    const FixedClock clock(1700000000);
    Store a = storeIn(dir);
    Store b = storeIn(dir);
    a.load();
    b.load();

    // A adds butter and a user; B, unaware, adds an apple and then a custom food.
    a.journal.days.push_back(dayWithMeal(1600000000, 0, {{1001, 0.1f}}));
    a.shared.userNames.push_back("Carl");
    ASSERT_TRUE(a.saveCurrentUser().ok());
    ASSERT_TRUE(a.saveShared().ok());
    const auto aJournal = readBytes(dir / "Bert.db");
    const auto aShared = readBytes(dir / "velmora.db");

    b.journal.days.push_back(dayWithMeal(1600086400, 2, {{1002, 1.2f}}));
    ASSERT_TRUE(b.saveCurrentUser().ok());
    // B's shared records are as it read them: nothing is written, and A's user stays.
    ASSERT_TRUE(b.saveShared().ok());
    EXPECT_EQ(readBytes(dir / "velmora.db"), aShared);
    b.shared.customFoods.push_back(b.shared.customFoods.front());
    b.shared.customFoods.back().number += 1;
    ASSERT_TRUE(b.saveShared().ok());

    // A's versions of both files are kept beside them under dated names; B's are in place.
    const auto kept = b.files().takeKeptVersions();
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].file, dir / "Bert.db");
    EXPECT_EQ(readBytes(kept[0].keptAs), aJournal);
    EXPECT_EQ(kept[1].file, dir / "velmora.db");
    EXPECT_EQ(readBytes(kept[1].keptAs), aShared);
    for (const KeptVersion& k : kept)
        EXPECT_EQ(k.keptAs.filename().string().rfind(k.file.filename().string() + ".conflict-", 0),
                  0u)
            << k.keptAs;
    EXPECT_EQ(UserJournal::parse(readBytes(dir / "Bert.db"), "Bert.db").value().days.size(), 3u);
    EXPECT_TRUE(b.files().takeKeptVersions().empty());

    // B's next save finds its own files: nothing more is kept.
    b.journal.days.pop_back();
    ASSERT_TRUE(b.saveCurrentUser().ok());
    EXPECT_TRUE(b.files().takeKeptVersions().empty());
}

TEST(DataFolder, WhatCannotBeWrittenRefusesSavesAndNothingChangesOnDisk)
{
    using Scope = WriteRefusal::Scope;
    struct Case
    {
        const char* what;
        std::function<std::unique_ptr<FileSystem>(const TempDir&)> prepare;
        Scope scope;
    };
    const auto readOnly = [](const char* leaf) {
        return [leaf](const TempDir& dir) -> std::unique_ptr<FileSystem> {
            return std::make_unique<ReadOnlyFileSystem>(*leaf ? dir / leaf : dir.path());
        };
    };
    const auto folderInPlaceOf = [](const char* leaf) {
        return [leaf](const TempDir& dir) -> std::unique_ptr<FileSystem> {
            fs::remove(dir / leaf);
            fs::create_directories(dir / leaf / "inside");
            return nullptr;
        };
    };
    const Case cases[] = {
        {"a read-only folder", readOnly(""), Scope::Folder},
        {"velmora.db cannot be written", readOnly("velmora.db"), Scope::Folder},
        {"the journal cannot be written", readOnly("Bert.db"), Scope::CurrentUser},
        {"a folder in place of velmora.db", folderInPlaceOf("velmora.db"), Scope::Folder},
        {"a folder in place of the journal", folderInPlaceOf("Bert.db"), Scope::CurrentUser},
        {"a current user whose name is no file name",
         [](const TempDir& dir) -> std::unique_ptr<FileSystem> {
             SharedData shared = SharedData::parse(handMadeShared(), "x").take();
             shared.userNames[shared.currentUser] = "Bert/..";
             writeBytes(dir / "velmora.db", shared.serialize());
             return nullptr;
         },
         Scope::CurrentUser},
        {"no food database",
         [](const TempDir& dir) -> std::unique_ptr<FileSystem> {
             fs::remove(dir / "foods.db");
             return nullptr;
         },
         Scope::Folder},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TempDir dir;
        writeHandMadeFolder(dir);
        const auto files = c.prepare(dir);
        Store s = storeIn(dir);
        if (files)
            s.files().setFileSystem(*files);
        s.load();
        const auto before = contentOf(dir.path());

        const auto refusal = s.writeRefusal();
        ASSERT_TRUE(refusal.has_value());
        EXPECT_EQ(refusal->scope, c.scope);
        EXPECT_FALSE(refusal->reason.empty());
        s.journal.days.push_back(dayWithMeal(1600000000, 0, {{1001, 0.5f}}));
        EXPECT_FALSE(s.saveCurrentUser().ok());
        // velmora.db may still be saved when only the current user's file is refused.
        EXPECT_EQ(s.saveShared().ok(), c.scope == Scope::CurrentUser);
        if (c.scope == Scope::Folder)
            EXPECT_EQ(contentOf(dir.path()), before);
        else
            for (const char* leaf : {"Bert.db", "Bert.db.bak"})
                EXPECT_EQ(contentOf(dir.path()).count(leaf), before.count(leaf)) << leaf;
    }

    // A reason set by the program (another program holds the folder) refuses everything too.
    TempDir dir;
    writeHandMadeFolder(dir);
    Store s = storeIn(dir);
    s.load();
    EXPECT_FALSE(s.writeRefusal().has_value());
    s.files().setReadOnly("another Velmora has the data folder open");
    const auto before = contentOf(dir.path());
    s.shared.userNames.push_back("Carl");
    EXPECT_FALSE(s.saveShared().ok());
    EXPECT_EQ(contentOf(dir.path()), before);
}

TEST(DataFolder, ACutJournalKeepsItsWholeDaysAndItsGoodBackupUntilTheUserDecides)
{
    TempDir dir;
    writeHandMadeFolder(dir, HandMadeFiles::FoodsAndShared);
    UserJournal full = UserJournal::parse(handMadeUserFile(), "Bert.db").take();
    full.days = tenDays();
    const auto good = full.serialize();
    auto cut = good;
    cut.resize(cut.size() - 22);
    writeBytes(dir / "Bert.db.bak", good);
    writeBytes(dir / "Bert.db", cut);

    const FixedClock clock(1700000000);
    Store s = storeIn(dir);
    const auto report = s.load();
    ASSERT_EQ(report.damaged.size(), 1u);
    const Store::DamagedFile damaged = report.damaged[0];
    EXPECT_EQ(damaged.kept, "9 of 10 days kept");
    EXPECT_EQ(s.journal.days.size(), 9u);
    EXPECT_EQ(readBytes(damaged.movedTo), cut);
    EXPECT_EQ(readBytes(damaged.backup), good);
    EXPECT_EQ(damaged.backup.filename().string().rfind("Bert.db.backup-", 0), 0u);
    EXPECT_FALSE(fs::exists(dir / "Bert.db.bak")); // out of the way of saves
    EXPECT_EQ(s.journal.user.height, 170);         // the whole profile record is used

    // The salvaged days are saved, and saved again after an edit: the good backup stays as it is.
    ASSERT_TRUE(s.saveCurrentUser().ok());
    s.journal.days.pop_back();
    ASSERT_TRUE(s.saveCurrentUser().ok());
    EXPECT_EQ(UserJournal::parse(readBytes(dir / "Bert.db.bak"), "b").value().days.size(), 9u);
    EXPECT_EQ(readBytes(damaged.backup), good);

    // Chosen later, it comes back whole; what stood in its place is kept aside.
    ASSERT_TRUE(s.restoreBackup(damaged).ok());
    EXPECT_EQ(s.journal.days.size(), 10u);
    EXPECT_EQ(readBytes(dir / "Bert.db"), good);
    EXPECT_EQ(readBytes(dir / "Bert.db.bak"), good);
    EXPECT_FALSE(fs::exists(damaged.backup));
    EXPECT_EQ(readBytes(damaged.movedTo), cut);
    std::size_t salvagedCopies = 0;
    for (const auto& [name, bytes] : contentOf(dir.path()))
        if (name.rfind("Bert.db.salvaged-", 0) == 0) {
            ++salvagedCopies;
            EXPECT_EQ(UserJournal::parse(bytes, name).value().days.size(), 8u);
        }
    EXPECT_EQ(salvagedCopies, 1u);
}

TEST(DataFolder, UnsavedChangesAreToldPartByPartAndDayByDay)
{
    TempDir dir;
    writeHandMadeFolder(dir, HandMadeFiles::FoodsAndShared);
    UserJournal journal = UserJournal::parse(handMadeUserFile(), "Bert.db").take();
    journal.days = tenDays();
    writeBytes(dir / "Bert.db", journal.serialize());
    Store s = storeIn(dir);
    s.load();
    EXPECT_FALSE(s.files().unsavedChanges().any());

    s.journal.days.erase(s.journal.days.begin());             // one removed
    s.journal.days.front().notes[1] = "changed";              // one changed
    s.journal.days.push_back(dayWithMeal(1500000000, 1, {})); // one added
    s.shared.variables.clear();
    const UnsavedChanges lost = s.files().unsavedChanges();
    EXPECT_EQ(lost.days, 3u);
    EXPECT_FALSE(lost.profile);
    EXPECT_EQ(lost.shared, std::vector<std::string>{"variables"});

    s.journal.user.height += 1;
    EXPECT_TRUE(s.files().unsavedChanges().profile);
    ASSERT_TRUE(s.saveShared().ok());
    ASSERT_TRUE(s.saveCurrentUser().ok());
    EXPECT_FALSE(s.files().unsavedChanges().any());
}
