// What a save keeps of the file it replaces: permissions, links, and a backup that is a copy.

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

#include "model/SafeFile.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

struct stat statOf(const fs::path& p)
{
    struct stat st
    {
    };
    EXPECT_EQ(::lstat(p.c_str(), &st), 0) << p;
    return st;
}

unsigned modeOf(const fs::path& p)
{
    return statOf(p).st_mode & 07777u;
}

// Sets the process's umask for the lifetime of the object.
class Umask
{
public:
    explicit Umask(mode_t m) : m_old(::umask(m)) {}
    ~Umask() { ::umask(m_old); }

private:
    mode_t m_old;
};

} // namespace

TEST(SafeSave, ModesAreKeptAndNewFilesAreTheOwnersOnly)
{
    struct Case
    {
        int oldMode; // -1: no file before the save
        mode_t umask;
        unsigned expected;
    };
    const Case cases[] = {
        {0600, 022, 0600}, {0640, 022, 0640}, {0644, 077, 0644}, {0660, 002, 0660},
        {0400, 022, 0400}, {-1, 0, 0600},     {-1, 022, 0600},   {-1, 077, 0600},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE("old mode " + std::to_string(c.oldMode) + " umask " + std::to_string(c.umask));
        TempDir dir;
        const fs::path file = dir / "Anna.db";
        if (c.oldMode >= 0) {
            writeBytes(file, {1, 2, 3});
            ASSERT_EQ(::chmod(file.c_str(), static_cast<mode_t>(c.oldMode)), 0);
        }
        Umask mask(c.umask);
        ASSERT_TRUE(writeFileAtomically(file, Bytes{4, 5}, KeepBackup::Yes).ok());
        EXPECT_EQ(readBytes(file), (Bytes{4, 5}));
        EXPECT_EQ(modeOf(file), c.expected);
        if (c.oldMode >= 0) {
            // The backup holds the same health data and is kept as closed as the file was.
            EXPECT_EQ(readBytes(backupPathFor(file)), (Bytes{1, 2, 3}));
            EXPECT_EQ(modeOf(backupPathFor(file)), c.expected);
        } else {
            EXPECT_FALSE(fs::exists(backupPathFor(file)));
        }
    }
}

TEST(SafeSave, LinksAreWrittenThroughAndBackupsAreCopies)
{
    struct Case
    {
        const char* name;
        const char* link; // the link's text, relative to the data folder
        bool chained;     // through a second link
        bool targetExists;
    };
    const Case cases[] = {
        {"relative link", "../elsewhere/velmora.db", false, true},
        {"chain of links", "../elsewhere/link.db", true, true},
        {"absolute link", "", false, true},
        {"link to a missing file", "../elsewhere/velmora.db", false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        TempDir root;
        const fs::path data = root / "data";
        const fs::path elsewhere = root / "elsewhere";
        fs::create_directories(data);
        fs::create_directories(elsewhere);
        const fs::path real = elsewhere / "velmora.db";
        if (c.targetExists) {
            writeBytes(real, {1});
            ASSERT_EQ(::chmod(real.c_str(), 0640), 0);
        }
        if (c.chained)
            fs::create_symlink("velmora.db", elsewhere / "link.db");
        const fs::path linkText = *c.link ? fs::path(c.link) : real;
        const fs::path link = data / "velmora.db";
        fs::create_symlink(linkText, link);

        ASSERT_TRUE(writeFileAtomically(link, Bytes{2}, KeepBackup::Yes).ok());
        ASSERT_TRUE(writeFileAtomically(link, Bytes{3}, KeepBackup::Yes).ok());

        // The link is still the same link, and the file it names has the new content.
        ASSERT_TRUE(fs::is_symlink(link));
        EXPECT_EQ(fs::read_symlink(link), linkText);
        EXPECT_EQ(readBytes(real), (Bytes{3}));
        EXPECT_EQ(statOf(real).st_nlink, 1u);
        EXPECT_EQ(modeOf(real), c.targetExists ? 0640u : 0600u);
        // The backup is a file of its own holding the previous content: not a link to the live
        // file, nor a second name of a file that a later write could change.
        const fs::path backup = backupPathFor(link);
        ASSERT_TRUE(fs::is_regular_file(fs::symlink_status(backup)));
        EXPECT_EQ(statOf(backup).st_nlink, 1u);
        EXPECT_EQ(readBytes(backup), (Bytes{2}));
        // Nothing else was left in either folder.
        EXPECT_EQ(std::distance(fs::directory_iterator(data), {}), 2);
        EXPECT_EQ(std::distance(fs::directory_iterator(elsewhere), {}), c.chained ? 2 : 1);
    }
}
