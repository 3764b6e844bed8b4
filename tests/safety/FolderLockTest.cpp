// One program per data folder: a second process is refused and told who holds the folder; a
// holder that ends in any way frees it, and one that did not release it leaves a stale lock that
// is taken over.

#include <gtest/gtest.h>

#include <csignal>
#include <ctime>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "model/FolderLock.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

namespace {

std::string thisHost()
{
    char name[256] = {};
    ::gethostname(name, sizeof name - 1);
    return name;
}

// How the holding process ends.
enum class End
{
    Releases,     // releases the folder and exits
    ExitsHolding, // exits without releasing
    IsKilled,     // SIGKILL while holding
};

// A child process that takes dir and holds it until told to end. Returns its pid once it holds
// the folder, or -1.
pid_t startHolder(const std::filesystem::path& dir, int& control)
{
    int ready[2];
    int hold[2];
    if (::pipe(ready) != 0 || ::pipe(hold) != 0)
        return -1;
    const pid_t pid = ::fork();
    if (pid == 0) {
        ::close(ready[0]);
        ::close(hold[1]);
        FolderLock lock;
        const bool taken = lock.acquire(dir).outcome == FolderLock::Outcome::Taken;
        const char answer = taken ? 'y' : 'n';
        (void)!::write(ready[1], &answer, 1);
        char order = 0;
        (void)!::read(hold[0], &order, 1);
        if (order == 'r')
            lock.release();
        ::_exit(0); // no destructors: a lock still held is left as a crash leaves it
    }
    ::close(ready[1]);
    ::close(hold[0]);
    char answer = 0;
    const bool ok = ::read(ready[0], &answer, 1) == 1 && answer == 'y';
    ::close(ready[0]);
    control = hold[1];
    return ok ? pid : -1;
}

} // namespace

TEST(FolderLock, ASecondProcessIsRefusedAndAHolderThatEndsFreesTheFolder)
{
    const struct
    {
        End end;
        bool stale;
    } cases[] = {{End::Releases, false}, {End::ExitsHolding, true}, {End::IsKilled, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.end));
        TempDir dir;
        const std::time_t before = std::time(nullptr);
        int control = -1;
        const pid_t holder = startHolder(dir.path(), control);
        ASSERT_GT(holder, 0);

        // While the child holds it, this process is refused and told who holds the folder.
        FolderLock mine;
        const auto refused = mine.acquire(dir.path());
        EXPECT_EQ(refused.outcome, FolderLock::Outcome::HeldByOther);
        EXPECT_FALSE(mine.held());
        EXPECT_EQ(refused.holder.processId, holder);
        EXPECT_EQ(refused.holder.host, thisHost());
        EXPECT_GE(refused.holder.since, before);
        EXPECT_LE(refused.holder.since, std::time(nullptr));
        const auto seen = FolderLock::holderOf(dir.path());
        ASSERT_TRUE(seen.has_value());
        EXPECT_EQ(seen->processId, holder);

        if (c.end == End::IsKilled)
            ::kill(holder, SIGKILL);
        else
            (void)!::write(control, c.end == End::Releases ? "r" : "x", 1);
        ::close(control);
        int status = 0;
        ASSERT_EQ(::waitpid(holder, &status, 0), holder);

        // Now the folder is free: taken, and when the holder did not release it, taken over
        // from it by name.
        EXPECT_FALSE(FolderLock::holderOf(dir.path()).has_value());
        const auto taken = mine.acquire(dir.path());
        ASSERT_EQ(taken.outcome, FolderLock::Outcome::Taken);
        EXPECT_TRUE(mine.held());
        EXPECT_EQ(taken.wasStale, c.stale);
        if (c.stale) {
            EXPECT_EQ(taken.holder.processId, holder);
        }
        ASSERT_TRUE(FolderLock::holderOf(dir.path()).has_value());
        EXPECT_EQ(FolderLock::holderOf(dir.path())->processId, ::getpid());

        // A second lock in this same program is refused as well; looking at the holder above did
        // not loosen the lock.
        FolderLock second;
        EXPECT_EQ(second.acquire(dir.path()).outcome, FolderLock::Outcome::HeldByOther);
        mine.release();
        EXPECT_FALSE(FolderLock::holderOf(dir.path()).has_value());
        const auto after = second.acquire(dir.path());
        EXPECT_EQ(after.outcome, FolderLock::Outcome::Taken);
        EXPECT_FALSE(after.wasStale);
    }
}

TEST(FolderLock, AReadOnlyFolderCannotBeTaken)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "permissions do not bind the superuser";
    TempDir dir;
    ASSERT_EQ(::chmod(dir.path().c_str(), 0500), 0);
    FolderLock lock;
    const auto attempt = lock.acquire(dir.path());
    ::chmod(dir.path().c_str(), 0700);
    EXPECT_EQ(attempt.outcome, FolderLock::Outcome::Unavailable);
    EXPECT_FALSE(attempt.error.detail.empty());
    EXPECT_FALSE(lock.held());
}
