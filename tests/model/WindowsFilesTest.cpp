// What a file is on Windows: a name in UTF-16, a file that other programs hold open, access rules
// and attributes, links, and the folders of the user. Built for Windows only; CI runs it under
// Wine.

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <sddl.h>

#include "model/DataLocations.h"
#include "model/SafeFile.h"
#include "model/Store.h"
#include "model/platform/WindowsText.h"
#include "support/DataFolderFixture.h"
#include "support/Fixtures.h"
#include "support/Shell.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

using Bytes = std::vector<std::uint8_t>;

// The name that Windows' own 8-bit API gives a stored (Windows-1252) name on a Western system,
// as the file names of journals kept there were made.
std::wstring nameByCodePage(const std::string& stored)
{
    std::wstring wide(stored.size(), L'\0');
    const int n = ::MultiByteToWideChar(1252, 0, stored.data(), static_cast<int>(stored.size()),
                                        wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(n));
    return wide;
}

// The folder's entries as Windows lists them.
std::set<std::wstring> namesIn(const fs::path& dir)
{
    std::set<std::wstring> names;
    WIN32_FIND_DATAW found{};
    HANDLE h = ::FindFirstFileW((dir / L"*").c_str(), &found);
    if (h == INVALID_HANDLE_VALUE)
        return names;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..")
            names.insert(name);
    } while (::FindNextFileW(h, &found));
    ::FindClose(h);
    return names;
}

// Writes a file through the wide-character API only.
void writeThroughWindows(const fs::path& path, const Bytes& bytes)
{
    HANDLE h = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                             FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(h, INVALID_HANDLE_VALUE) << path;
    DWORD done = 0;
    ASSERT_TRUE(::WriteFile(h, bytes.data(), static_cast<DWORD>(bytes.size()), &done, nullptr));
    ::CloseHandle(h);
}

// The file's access rules (its DACL) as text.
std::string accessRulesOf(const fs::path& path)
{
    DWORD needed = 0;
    ::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
    std::vector<std::uint8_t> descriptor(needed);
    if (needed == 0 || !::GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION,
                                           descriptor.data(), needed, &needed))
        return {};
    wchar_t* text = nullptr;
    if (!::ConvertSecurityDescriptorToStringSecurityDescriptorW(
            descriptor.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr))
        return {};
    const std::string out = platform::utf8FromWide(text);
    ::LocalFree(text);
    return out;
}

// Sets an environment variable of this process (and of the programs it starts) for the lifetime
// of the object.
class EnvironmentVariable
{
public:
    EnvironmentVariable(const wchar_t* name, const std::wstring& value) : m_name(name)
    {
        wchar_t old[32768];
        const DWORD n = ::GetEnvironmentVariableW(name, old, 32768);
        if (n > 0 && n < 32768)
            m_old = std::wstring(old, n);
        ::SetEnvironmentVariableW(name, value.c_str());
    }
    ~EnvironmentVariable() { ::SetEnvironmentVariableW(m_name, m_old ? m_old->c_str() : nullptr); }

private:
    const wchar_t* m_name;
    std::optional<std::wstring> m_old;
};

} // namespace

TEST(WindowsFiles, AUserNameBeyondAsciiNamesTheFileThatTheCodePageGivesIt)
{
    // Stored names with letters of the upper half, also those where Windows-1252 is not Latin-1.
    const struct
    {
        const char* stored;
        const wchar_t* file;
    } cases[] = {
        {"Zo\xEB", L"Zo\u00EB.db"},
        {"\x8Cuvre \x80", L"\u0152uvre \u20AC.db"},
        {"Ji\x9Ai \x84Kuba\x93", L"Ji\u0161i \u201EKuba\u201C.db"},
        {"\xC6sa \xFF", L"\u00C6sa \u00FF.db"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.stored);
        ASSERT_EQ(nameByCodePage(c.stored) + L".db", c.file);
        TempDir dir;
        writeHandMadeFolder(dir, HandMadeFiles::Foods);
        SharedData shared;
        shared.userNames = {c.stored};
        writeBytes(dir / "velmora.db", shared.serialize());
        // The user's journal as a program using the system's 8-bit names left it.
        writeThroughWindows(dir.path() / c.file, handMadeUserFile());

        Store s = storeIn(dir);
        const auto report = s.load();
        ASSERT_TRUE(report.userFileRead);
        ASSERT_EQ(s.journal.days.size(), 2u);
        s.journal.days.pop_back();
        ASSERT_TRUE(s.saveCurrentUser().ok());

        // The save replaced that same file, kept its backup, and made no file of another name.
        EXPECT_TRUE(namesIn(dir.path()).contains(std::wstring(c.file) + L".bak"));
        for (const std::wstring& name : namesIn(dir.path())) {
            if (!name.starts_with(L"foods.") && !name.starts_with(L"velmora.")) {
                EXPECT_TRUE(name == c.file || name == std::wstring(c.file) + L".bak")
                    << platform::utf8FromWide(name);
            }
        }
        Store again = storeIn(dir);
        ASSERT_TRUE(again.load().userFileRead);
        EXPECT_EQ(again.journal.days.size(), 1u);
    }
}

TEST(WindowsFiles, AFileThatAnotherProgramHoldsOpenIsReplacedOrLeftWhole)
{
    const struct
    {
        const char* reader;
        DWORD sharing;
    } cases[] = {
        {"a reader that lets others delete the file",
         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE},
        {"a reader that does not", FILE_SHARE_READ | FILE_SHARE_WRITE},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reader);
        TempDir dir;
        const fs::path file = dir / "velmora.db";
        writeBytes(file, {1, 2, 3});
        HANDLE reader = ::CreateFileW(file.c_str(), GENERIC_READ, c.sharing, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(reader, INVALID_HANDLE_VALUE);

        const Status saved = writeFileAtomically(file, Bytes{4, 5}, KeepBackup::Yes);
        // Windows 10 replaces a file whose readers allow its deletion; older systems, FAT and
        // Wine refuse as they refuse for any reader. A refusal says why and leaves the file whole.
        if (saved.ok()) {
            EXPECT_TRUE(c.sharing & FILE_SHARE_DELETE);
            EXPECT_EQ(readBytes(file), (Bytes{4, 5}));
        } else {
            EXPECT_EQ(saved.error().code, FileErrorCode::CannotWrite);
            EXPECT_FALSE(saved.error().detail.empty());
            EXPECT_EQ(readBytes(file), (Bytes{1, 2, 3}));
        }
        EXPECT_EQ(readBytes(backupPathFor(file)), (Bytes{1, 2, 3}));
        EXPECT_EQ(namesIn(dir.path()), (std::set<std::wstring>{L"velmora.db", L"velmora.db.bak"}));
        // The reader reads on what it opened.
        std::uint8_t seen[8] = {};
        DWORD got = 0;
        ASSERT_TRUE(::ReadFile(reader, seen, sizeof seen, &got, nullptr));
        EXPECT_EQ(Bytes(seen, seen + got), (Bytes{1, 2, 3}));
        ::CloseHandle(reader);

        // Once it has closed the file, the next save goes through.
        ASSERT_TRUE(writeFileAtomically(file, Bytes{6}, KeepBackup::Yes).ok());
        EXPECT_EQ(readBytes(file), (Bytes{6}));
    }
}

TEST(WindowsFiles, ASaveLeavesTheAccessRulesAndAttributesOfTheFileAsTheyWere)
{
    TempDir dir;
    const fs::path file = dir / "Anna.db";
    writeBytes(file, {1});
    // Rules that no new file of the folder gets: everyone may do everything.
    PSECURITY_DESCRIPTOR everyone = nullptr;
    ASSERT_TRUE(::ConvertStringSecurityDescriptorToSecurityDescriptorW(
        L"D:P(A;;FA;;;WD)", SDDL_REVISION_1, &everyone, nullptr));
    ASSERT_TRUE(::SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, everyone));
    ::LocalFree(everyone);
    const std::string rules = accessRulesOf(file);
    ASSERT_FALSE(rules.empty());
    const bool keepsHidden = ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_HIDDEN) &&
                             (::GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_HIDDEN);

    const fs::path fresh = dir / "fresh.db";
    writeThroughWindows(fresh, {0});
    ASSERT_NE(accessRulesOf(fresh), rules);

    for (int save = 0; save < 2; ++save) {
        ASSERT_TRUE(
            writeFileAtomically(file, Bytes{2, static_cast<std::uint8_t>(save)}, KeepBackup::Yes)
                .ok());
        EXPECT_EQ(accessRulesOf(file), rules);
        if (keepsHidden) {
            EXPECT_TRUE(::GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_HIDDEN);
        }
    }
    // A file that a save makes where there was none has the folder's rules, as any new file: no
    // permission bits are imitated.
    const fs::path made = dir / "Bert.db";
    ASSERT_TRUE(writeFileAtomically(made, Bytes{3}, KeepBackup::Yes).ok());
    EXPECT_EQ(accessRulesOf(made), accessRulesOf(fresh));
}

TEST(WindowsFiles, ASymbolicLinkIsWrittenThrough)
{
    TempDir root;
    fs::create_directories(root / "data");
    fs::create_directories(root / "elsewhere");
    const fs::path real = root / "elsewhere" / "velmora.db";
    writeBytes(real, {1});
    const fs::path link = root / "data" / "velmora.db";
    ::CreateSymbolicLinkW(link.c_str(), L"..\\elsewhere\\velmora.db",
                          SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE);
    const DWORD attributes = ::GetFileAttributesW(link.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        GTEST_SKIP() << "this system makes no symbolic links (Windows without developer mode or "
                        "the right to make them, Wine 8)";

    ASSERT_TRUE(writeFileAtomically(link, Bytes{2}, KeepBackup::Yes).ok());
    ASSERT_TRUE(writeFileAtomically(link, Bytes{3}, KeepBackup::Yes).ok());
    EXPECT_TRUE(::GetFileAttributesW(link.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(readBytes(real), (Bytes{3}));
    const fs::path backup = backupPathFor(link);
    EXPECT_FALSE(::GetFileAttributesW(backup.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_EQ(readBytes(backup), (Bytes{2}));
    EXPECT_EQ(namesIn(root / "elsewhere"), (std::set<std::wstring>{L"velmora.db"}));
}

TEST(WindowsFiles, TheDataOfAnInstalledProgramLiesUnderTheUsersAppData)
{
    TempDir dir;
    const fs::path profile = dir.path() / L"Zo\u00EB \u0152";
    const fs::path roaming = profile / L"AppData" / L"Roaming";
    EnvironmentVariable appData(L"APPDATA", roaming.wstring());
    EXPECT_EQ(defaultPerUserDataDir(), roaming / "Orvane" / "Velmora");
    ASSERT_FALSE(defaultInstalledDataDirs().empty());
    EXPECT_EQ(defaultInstalledDataDirs().front(), roaming / "Orvane" / "Velmora");

    // The console tool, started from a folder without data (an installed program), keeps the
    // journals there; its arguments name a folder beyond ASCII as well.
    const fs::path program = VELMORA_CLI;
    const fs::path bin = dir / "bin";
    fs::create_directory(bin);
    fs::copy_file(program, bin / program.filename());
    for (const auto& e : fs::directory_iterator(program.parent_path()))
        if (e.path().extension() == ".dll")
            fs::copy_file(e.path(), bin / e.path().filename());
    fs::create_directories(profile);
    writeBytes(profile / "foods.db", handMadeFoods());
    const std::string command = shellQuote((bin / program.filename()).string()) +
                                " resave --foods " + shellQuote((profile / "foods.db").string()) +
                                " >" + shellQuote((dir / "out.txt").string()) + " 2>&1";
    const int exitCode = runShell(command);
    const Bytes printed = readBytes(dir / "out.txt");
    ASSERT_EQ(exitCode, 0) << std::string(printed.begin(), printed.end());
    const fs::path data = roaming / "Orvane" / "Velmora";
    EXPECT_TRUE(namesIn(data).contains(L"velmora.db"));
    EXPECT_TRUE(namesIn(data).contains(L"Example User.db"));
    EXPECT_FALSE(namesIn(bin).contains(L"velmora.db"));
}
