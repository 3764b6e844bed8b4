// One program per data folder on Windows: a second process is refused and told who holds the
// folder; a holder that ends in any way, TerminateProcess included, frees it, and one that did
// not release it leaves a stale lock that is taken over.

#include <gtest/gtest.h>

#include <ctime>
#include <string>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include "model/FolderLock.h"
#include "model/platform/WindowsText.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;

namespace {

// How the holding process ends.
enum class End
{
    Releases,     // releases the folder and exits
    ExitsHolding, // exits without releasing
    IsTerminated, // TerminateProcess while holding
};

// The program lock_holder.cpp, started with pipes for its input and output.
class Holder
{
public:
    explicit Holder(const std::filesystem::path& dir)
    {
        SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        HANDLE childIn = nullptr;
        HANDLE childOut = nullptr;
        if (!::CreatePipe(&childIn, &m_in, &inherit, 0) ||
            !::CreatePipe(&m_out, &childOut, &inherit, 0))
            return;
        ::SetHandleInformation(m_in, HANDLE_FLAG_INHERIT, 0);
        ::SetHandleInformation(m_out, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOW start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = childIn;
        start.hStdOutput = childOut;
        start.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
        std::wstring line = L"\"" +
                            std::filesystem::path(VELMORA_LOCK_HOLDER).make_preferred().wstring() +
                            L"\" \"" + dir.wstring() + L"\"";
        PROCESS_INFORMATION process{};
        const bool started = ::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0,
                                              nullptr, nullptr, &start, &process);
        ::CloseHandle(childIn);
        ::CloseHandle(childOut);
        if (!started)
            return;
        ::CloseHandle(process.hThread);
        m_process = process.hProcess;
        m_id = process.dwProcessId;
        // Blocks until the holder has answered.
        char answer[16] = {};
        DWORD got = 0;
        ::ReadFile(m_out, answer, sizeof answer - 1, &got, nullptr);
        m_holds = std::string(answer, got).starts_with("taken");
    }
    ~Holder()
    {
        if (m_process) {
            ::TerminateProcess(m_process, 1);
            ::CloseHandle(m_process);
        }
        for (HANDLE h : {m_in, m_out})
            if (h)
                ::CloseHandle(h);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    bool holds() const { return m_holds; }
    std::int64_t id() const { return m_id; }

    // Ends the holder as asked and waits until it has ended.
    bool end(End how)
    {
        if (how == End::IsTerminated) {
            ::TerminateProcess(m_process, 9);
        } else {
            DWORD done = 0;
            ::WriteFile(m_in, how == End::Releases ? "r" : "x", 1, &done, nullptr);
        }
        ::CloseHandle(m_in);
        m_in = nullptr;
        const bool ended = ::WaitForSingleObject(m_process, 30000) == WAIT_OBJECT_0;
        ::CloseHandle(m_process);
        m_process = nullptr;
        return ended;
    }

private:
    HANDLE m_in = nullptr;
    HANDLE m_out = nullptr;
    HANDLE m_process = nullptr;
    std::int64_t m_id = 0;
    bool m_holds = false;
};

std::string thisComputer()
{
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    ::GetComputerNameW(name, &size);
    return velmora::model::platform::utf8FromWide(std::wstring_view(name, size));
}

} // namespace

TEST(FolderLockWindows, ASecondProcessIsRefusedAndAHolderThatEndsFreesTheFolder)
{
    const struct
    {
        End end;
        bool stale;
    } cases[] = {{End::Releases, false}, {End::ExitsHolding, true}, {End::IsTerminated, true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.end));
        TempDir dir;
        const std::time_t before = std::time(nullptr);
        Holder holder(dir.path());
        ASSERT_TRUE(holder.holds());

        // While the other process holds it, this one is refused and told who holds the folder.
        FolderLock mine;
        const auto refused = mine.acquire(dir.path());
        EXPECT_EQ(refused.outcome, FolderLock::Outcome::HeldByOther);
        EXPECT_FALSE(mine.held());
        EXPECT_EQ(refused.holder.processId, holder.id());
        EXPECT_EQ(refused.holder.host, thisComputer());
        EXPECT_GE(refused.holder.since, before);
        ASSERT_TRUE(FolderLock::holderOf(dir.path()).has_value());
        EXPECT_EQ(FolderLock::holderOf(dir.path())->processId, holder.id());

        ASSERT_TRUE(holder.end(c.end));

        // Now the folder is free, and taken over by name from a holder that did not release it.
        EXPECT_FALSE(FolderLock::holderOf(dir.path()).has_value());
        const auto taken = mine.acquire(dir.path());
        ASSERT_EQ(taken.outcome, FolderLock::Outcome::Taken);
        EXPECT_EQ(taken.wasStale, c.stale);
        if (c.stale) {
            EXPECT_EQ(taken.holder.processId, holder.id());
        }
        EXPECT_EQ(FolderLock::holderOf(dir.path())->processId,
                  static_cast<std::int64_t>(::GetCurrentProcessId()));
        // A second lock in this same program is refused as well.
        FolderLock second;
        EXPECT_EQ(second.acquire(dir.path()).outcome, FolderLock::Outcome::HeldByOther);
        mine.release();
        EXPECT_EQ(second.acquire(dir.path()).outcome, FolderLock::Outcome::Taken);
    }
}

TEST(FolderLockWindows, AFolderThatIsNotThereCannotBeTaken)
{
    TempDir dir;
    const auto missing = dir / "no such folder";
    FolderLock lock;
    const auto attempt = lock.acquire(missing);
    EXPECT_EQ(attempt.outcome, FolderLock::Outcome::Unavailable);
    EXPECT_FALSE(attempt.error.detail.empty());
    EXPECT_FALSE(lock.held());
}
