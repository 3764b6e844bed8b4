// A process that saves a large journal in a loop is killed at random moments; after every kill
// both files (and their backups) must read back completely and hold exactly one round's content.

#include <gtest/gtest.h>

#include <csignal>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "Generations.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "support/Builders.h"
#include "support/TempDir.h"

extern char** environ;

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

// Starts the save loop on dir and returns once it has loaded the folder and begins saving.
pid_t startSaveLoop(const fs::path& dir)
{
    int out[2];
    if (::pipe(out) != 0)
        return -1;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
    posix_spawn_file_actions_addclose(&actions, out[0]);
    const std::string program = VELMORA_SAVE_LOOP;
    const std::string folder = dir.string();
    char* argv[] = {const_cast<char*>(program.c_str()), const_cast<char*>(folder.c_str()), nullptr};
    pid_t pid = -1;
    const int rc = posix_spawn(&pid, program.c_str(), &actions, nullptr, argv, environ);
    posix_spawn_file_actions_destroy(&actions);
    ::close(out[1]);
    if (rc != 0) {
        ::close(out[0]);
        return -1;
    }
    char c = 0;
    std::string line;
    while (line != "ready" && ::read(out[0], &c, 1) == 1)
        if (c != '\n')
            line += c;
    ::close(out[0]);
    return line == "ready" ? pid : -1;
}

template <class T> long checkFile(const fs::path& path, const T& base, const char* what)
{
    auto bytes = readWholeFile(path);
    EXPECT_TRUE(bytes.ok()) << what;
    if (!bytes)
        return -1;
    auto parsed = T::parse(bytes.value(), path.string());
    EXPECT_TRUE(parsed.ok()) << what << ": " << (parsed ? "" : parsed.error().message());
    if (!parsed)
        return -1;
    long k;
    if constexpr (std::is_same_v<T, SharedData>)
        k = generationOf(parsed.value().header2);
    else
        k = generationOf(parsed.value().days.front().notes[0]);
    EXPECT_GE(k, 0) << what;
    T expected = base;
    applyGeneration(expected, k);
    EXPECT_TRUE(bytes.value() == expected.serialize()) << what << " holds no round's exact content";
    return k;
}

} // namespace

TEST(KillTest, FilesAreWholeAfterEveryKill)
{
    TempDir dir;
    writeBytes(dir / "foods.db", generatedFoods(400).serialize());
    {
        Store s;
        s.setPaths(dir / "foods.db", dir.path());
        s.load();
        JournalShape shape;
        shape.days = 2000;
        s.shared.routines.push_back(Routine{1, 250, "Morning", {1}});
        s.journal.days = generatedJournal(s.foods, shape, 7);
        applyGeneration(s.shared, 0);
        applyGeneration(s.journal, 0);
        ASSERT_TRUE(s.saveShared().ok());
        ASSERT_TRUE(s.saveCurrentUser().ok());
    }
    const fs::path sharedFile = dir / "velmora.db";
    const fs::path userFile = dir / "Example User.db";
    const SharedData baseShared = SharedData::parse(readBytes(sharedFile), "velmora.db").take();
    const UserJournal baseUser = UserJournal::parse(readBytes(userFile), "user").take();

    std::mt19937 rng(20261121);
    std::uniform_int_distribution<int> delayUs(0, 60000);
    long lastShared = 0;
    long lastUser = 0;
    for (int round = 0; round < 200; ++round) {
        const pid_t pid = startSaveLoop(dir.path());
        ASSERT_GT(pid, 0) << "the save loop did not start in round " << round;
        std::this_thread::sleep_for(std::chrono::microseconds(delayUs(rng)));
        ::kill(pid, SIGKILL);
        int status = 0;
        ::waitpid(pid, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the save loop ended by itself in round " << round;

        const long s = checkFile(sharedFile, baseShared, "velmora.db");
        const long u = checkFile(userFile, baseUser, "the user's file");
        // Saves never go back to older content.
        EXPECT_GE(s, lastShared);
        EXPECT_GE(u, lastUser);
        lastShared = s;
        lastUser = u;
        if (fs::exists(backupPathFor(sharedFile)))
            checkFile(backupPathFor(sharedFile), baseShared, "velmora.db.bak");
        if (fs::exists(backupPathFor(userFile)))
            checkFile(backupPathFor(userFile), baseUser, "the user's backup");
        if (::testing::Test::HasFailure())
            FAIL() << "stopped after round " << round;
    }
    // The loop really saved many rounds between the kills.
    EXPECT_GT(lastShared, 50);
}
