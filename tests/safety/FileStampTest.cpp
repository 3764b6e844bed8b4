// A save can tell whether the file on disk was changed by someone else since it was read or
// written, and keeps that other version beside it without overwriting anything.

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <functional>
#include <sys/stat.h>

#include "model/FileStamp.h"
#include "model/SafeFile.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {
using Bytes = std::vector<std::uint8_t>;
}

TEST(FileStamp, ChangesByOthersAreToldApartFromUntouchedFiles)
{
    const Bytes ours = {1, 2, 3, 4, 5, 6};
    struct Case
    {
        const char* name;
        bool fileBefore; // a file existed when the stamp was taken
        std::function<void(const fs::path&)> meanwhile;
        DiskChange expected;
    };
    const Case cases[] = {
        {"untouched", true, [](const fs::path&) {}, DiskChange::Unchanged},
        {"same bytes written again later", true,
         [&](const fs::path& p) {
             writeBytes(p, ours);
             fs::last_write_time(p, fs::last_write_time(p) + std::chrono::hours(1));
         },
         DiskChange::Unchanged},
        {"a byte added", true,
         [&](const fs::path& p) {
             writeBytes(p, {1, 2, 3, 4, 5, 6, 7});
         },
         DiskChange::Changed},
        {"same size, other bytes, time set back", true,
         [&](const fs::path& p) {
             const auto t = fs::last_write_time(p);
             writeBytes(p, {1, 2, 3, 4, 5, 9});
             fs::last_write_time(p, t);
         },
         DiskChange::Changed},
        {"removed", true, [](const fs::path& p) { fs::remove(p); }, DiskChange::Removed},
        {"made by someone else", false, [&](const fs::path& p) { writeBytes(p, ours); },
         DiskChange::Created},
        {"still absent", false, [](const fs::path&) {}, DiskChange::Unchanged},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TempDir dir;
        const fs::path file = dir / "Anna.db";
        FileStamp stamp = FileStamp::none();
        if (c.fileBefore) {
            // The stamp of this program's own save.
            ASSERT_TRUE(writeFileAtomically(file, ours).ok());
            stamp = FileStamp::of(file, ours);
            ASSERT_EQ(changeSince(file, stamp).value(), DiskChange::Unchanged);
        }
        c.meanwhile(file);
        const auto change = changeSince(file, stamp);
        ASSERT_TRUE(change.ok()) << change.error().message();
        EXPECT_EQ(change.value(), c.expected);
    }
}

TEST(FileStamp, TheOtherVersionIsKeptUnderADatedNameThatNeverOverwrites)
{
    const char* oldTz = std::getenv("TZ");
    const std::string savedTz = oldTz ? oldTz : "";
    ::setenv("TZ", "UTC0", 1);
    ::tzset();

    TempDir dir;
    const fs::path file = dir / "velmora.db";
    writeBytes(file, {7, 7, 7});
    ASSERT_EQ(::chmod(file.c_str(), 0600), 0);
    const std::time_t now = 1774101902; // 2026-03-21 14:05:02 UTC
    // A copy under the second name exists already and belongs to someone else.
    writeBytes(dir / "velmora.db.conflict-20260321-140502-2", {9});

    const char* expected[] = {"velmora.db.conflict-20260321-140502",
                              "velmora.db.conflict-20260321-140502-3",
                              "velmora.db.conflict-20260321-140502-4"};
    for (const char* name : expected) {
        const auto kept = keepOtherVersion(file, now);
        ASSERT_TRUE(kept.ok()) << kept.error().message();
        EXPECT_EQ(kept.value(), dir / name);
        EXPECT_EQ(readBytes(kept.value()), (Bytes{7, 7, 7}));
        struct stat st
        {
        };
        ASSERT_EQ(::stat(kept.value().c_str(), &st), 0);
        EXPECT_EQ(st.st_mode & 0777u, 0600u);
    }
    EXPECT_EQ(readBytes(dir / "velmora.db.conflict-20260321-140502-2"), (Bytes{9}));
    EXPECT_EQ(readBytes(file), (Bytes{7, 7, 7}));
    EXPECT_EQ(keepOtherVersion(dir / "missing.db", now).error().code, FileErrorCode::NotFound);

    if (oldTz)
        ::setenv("TZ", savedTz.c_str(), 1);
    else
        ::unsetenv("TZ");
    ::tzset();
}
