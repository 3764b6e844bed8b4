// Names as typed are checked as the file names they become: their length in the platform's
// file-name encoding and the characters that the stored text can hold.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "model/TextCodec.h"
#include "model/UserNames.h"
#include "support/TempDir.h"

using namespace velmora::model;
using namespace velmora::test;
namespace fs = std::filesystem;

namespace {

std::string repeated(const std::string& s, int n)
{
    std::string out;
    for (int i = 0; i < n; ++i)
        out += s;
    return out;
}

// Creates a file whose name is given in UTF-8; false when the file system refuses the name.
bool canCreate(const fs::path& dir, const std::string& utf8Leaf)
{
    const fs::path p = dir / fs::path(std::u8string(utf8Leaf.begin(), utf8Leaf.end()));
    std::ofstream out(p);
    return out.good();
}

} // namespace

TEST(UserNameFiles, TypedNamesAreCheckedAsTheFileNamesTheyBecome)
{
    const std::string euro = "\u20AC"; // one byte stored, three in a UTF-8 file name
    struct Case
    {
        std::string typed;
        NameProblem problem;
    };
    const Case cases[] = {
        {"Anna", NameProblem::None},
        {"Zo\u00EB", NameProblem::None},
        {euro + "uro", NameProblem::None},
        {std::string(197, 'a'), NameProblem::None},
        {std::string(198, 'a'), NameProblem::TooLong},
        {std::string(300, 'a'), NameProblem::TooLong},
#if !defined(_WIN32)
        // 65 x 3 + 3 = 198 bytes; 66 x 3 + 3 = 201 bytes as a file name.
        {repeated(euro, 65), NameProblem::None},
        {repeated(euro, 66), NameProblem::TooLong},
        {repeated(euro, 100), NameProblem::TooLong},
        {repeated("\u00E9", 98), NameProblem::None},
        {repeated("\u00E9", 99), NameProblem::TooLong},
#else
        // One UTF-16 unit each in a file name, as a letter of A to Z: 70 are 213 bytes of UTF-8.
        {repeated(euro, 70), NameProblem::None},
        {repeated(euro, 198), NameProblem::TooLong},
#endif
        {"\u03A9\u03BC\u03AD\u03B3\u03B1", NameProblem::NotStorable}, // Greek
        {"\u0418\u0432\u0430\u043D", NameProblem::NotStorable},       // Cyrillic
        {"Anna \U0001F600", NameProblem::NotStorable},
        {"Anna\xFF", NameProblem::NotStorable}, // not UTF-8
        {"\u03A9/", NameProblem::NotStorable},
        {"what?", NameProblem::BadCharacter},
        {"a/b", NameProblem::BadCharacter},
        {"nul", NameProblem::ReservedName},
        {" Anna", NameProblem::LeadingOrTrailing},
        {"", NameProblem::Empty},
    };
    TempDir dir;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        EXPECT_EQ(checkTypedUserName(c.typed), c.problem);
        if (c.problem != NameProblem::None)
            continue;
        // An accepted name names real files: its own, its backup's temporary file and a dated
        // copy beside it.
        EXPECT_TRUE(canCreate(dir.path(), c.typed + ".db"));
        EXPECT_TRUE(canCreate(dir.path(), "." + c.typed + ".db.bak.tmp999999"));
        EXPECT_TRUE(canCreate(dir.path(), c.typed + ".db.conflict-20260101-120000-99"));
    }
#if !defined(_WIN32)
    // The name that could never be saved is indeed no file name here.
    EXPECT_FALSE(canCreate(dir.path(), repeated(euro, 100) + ".db"));
#endif
    // The stored form of a typed name is checked alike.
#if defined(_WIN32)
    EXPECT_EQ(checkUserName(utf8ToCp1252(repeated(euro, 198))), NameProblem::TooLong);
#else
    EXPECT_EQ(checkUserName(utf8ToCp1252(repeated(euro, 100))), NameProblem::TooLong);
#endif
}

// Stored names, as they come from a file: whatever could name no file, or another file than the
// user's own, is refused.
TEST(UserNameFiles, StoredNamesThatCannotBeFileNamesAreRefused)
{
    const std::pair<NameProblem, std::vector<std::string>> cases[] = {
        {NameProblem::None,
         {"Anna", "Jean-Luc Picard", "Zo\xEB", "Mr. Smith", "CONSOLE", "com10", "COM0",
          std::string(197, 'a')}},
        {NameProblem::Empty, {"", "  "}},
        {NameProblem::TooLong, {std::string(198, 'a')}},
        {NameProblem::BadCharacter,
         {"a/b", "a\\b", "what?", "a\tb", "a:b", "a*b", "a\"b", "a<b", "a|b"}},
        {NameProblem::ReservedName, {"..", ".", "con", "nul.txt", "COM1", "LPT3.txt", "lpt9"}},
        {NameProblem::LeadingOrTrailing, {" Anna", "Anna."}},
    };
    for (const auto& [problem, names] : cases)
        for (const std::string& name : names)
            EXPECT_EQ(checkUserName(name), problem) << '"' << name << '"';

    const std::pair<const char*, const char*> capitalised[] = {
        {"bench curl", "Bench curl"},
        {"\xE9mile", "\xC9mile"},
        {"\x9A", "\x8A"},
        {"1abc", "1abc"},
        {"", ""},
    };
    for (const auto& [typed, stored] : capitalised)
        EXPECT_EQ(capitaliseFirst(typed), stored);
    EXPECT_EQ(trimBlanks(" \tAnna B \t"), "Anna B");
}

TEST(UserNameFiles, EachProblemHasItsOwnMessage)
{
    const NameProblem problems[] = {
        NameProblem::Empty,        NameProblem::TooLong,           NameProblem::BadCharacter,
        NameProblem::ReservedName, NameProblem::LeadingOrTrailing, NameProblem::NotStorable};
    std::set<std::string> texts;
    for (NameProblem p : problems) {
        const std::string text = nameProblemText(p);
        EXPECT_FALSE(text.empty());
        texts.insert(text);
        // Only the message about forbidden characters lists them.
        if (p != NameProblem::BadCharacter) {
            EXPECT_EQ(text.find("< >"), std::string::npos) << text;
        }
    }
    EXPECT_EQ(texts.size(), std::size(problems));
}

TEST(UserNameFiles, NamesDifferingOnlyInCaseAreFoundAsOneFileName)
{
    struct Case
    {
        std::string a, b;
        bool same;
    };
    const Case cases[] = {
        {"Example User", "example user", true},
        {"Example User", "EXAMPLE USER", true},
        {"Zo\xEB", "ZO\xCB", true},     // e with diaeresis, small and capital
        {"\x9Aimon", "\x8Aimon", true}, // s with caron
        {"Example User", "Example Users", false},
        {"Ann", "Anna", false},
        {"Zo\xEB", "Zoe", false},  // an accent is not a case
        {"a\xF7", "a\xD7", false}, // division and multiplication signs
    };
    for (const Case& c : cases) {
        EXPECT_EQ(sameNameIgnoringCase(c.a, c.b), c.same) << c.a << " / " << c.b;
        EXPECT_EQ(sameNameIgnoringCase(c.b, c.a), c.same) << c.b << " / " << c.a;
    }
}

TEST(UserNameFiles, TheProbeFindsWhetherTheFolderIgnoresCaseAndLeavesNothing)
{
    TempDir dir;
    // What the file system itself says: a file written in small letters, looked for in capitals.
    TempDir other;
    std::ofstream(other.path() / "probe").put('x');
    const bool expected = fs::exists(other.path() / "PROBE");

    EXPECT_EQ(folderIgnoresCase(dir.path()), expected);
    EXPECT_TRUE(fs::is_empty(dir.path()));
}
