#include "model/UserNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <fstream>
#include <system_error>

#include "model/TextCodec.h"

namespace velmora::model {

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

std::string upperAscii(std::string_view s)
{
    std::string out(s);
    for (char& c : out)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return out;
}

bool isReserved(std::string_view name)
{
    if (name == "." || name == "..")
        return true;
    // Reserved device names, also when followed by an extension ("nul.txt").
    const std::string stem = upperAscii(name.substr(0, name.find('.')));
    static const std::array<const char*, 4> plain = {"CON", "PRN", "AUX", "NUL"};
    for (const char* p : plain)
        if (stem == p)
            return true;
    if (stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) &&
        stem[3] >= '1' && stem[3] <= '9')
        return true;
    return false;
}

} // namespace

std::size_t userFileNameLength(std::string_view storedName)
{
#if defined(_WIN32)
    // Every Windows-1252 character is one UTF-16 unit.
    return storedName.size() + 3;
#else
    return cp1252ToUtf8(storedName).size() + 3;
#endif
}

NameProblem checkUserName(std::string_view name)
{
    if (std::all_of(name.begin(), name.end(), isBlank))
        return NameProblem::Empty;
    for (char ch : name) {
        const auto c = static_cast<unsigned char>(ch);
        if (c < 0x20 || c == 0x7F)
            return NameProblem::BadCharacter;
        if (std::string_view("<>:\"/\\|?*").find(ch) != std::string_view::npos)
            return NameProblem::BadCharacter;
    }
    if (isReserved(name))
        return NameProblem::ReservedName;
    if (isBlank(name.front()) || isBlank(name.back()) || name.front() == '.' || name.back() == '.')
        return NameProblem::LeadingOrTrailing;
    if (userFileNameLength(name) > MaxUserFileNameLength)
        return NameProblem::TooLong;
    return NameProblem::None;
}

NameProblem checkTypedUserName(std::string_view utf8)
{
    // The conversion turns what it cannot store into '?', so a text that does not come back
    // unchanged held such a character (or was not UTF-8 at all).
    const std::string stored = utf8ToCp1252(utf8);
    if (cp1252ToUtf8(stored) != utf8)
        return NameProblem::NotStorable;
    return checkUserName(stored);
}

std::string nameProblemText(NameProblem p)
{
    switch (p) {
    case NameProblem::None:
        return {};
    case NameProblem::Empty:
        return "The name is empty.";
    case NameProblem::TooLong:
        return "The name is too long to be a file name on this computer.  Letters other than "
               "A to Z take more room in a file name than on the screen; use a shorter name.";
    case NameProblem::BadCharacter:
        return "The name may not contain control characters or any of < > : \" / \\ | ? *";
    case NameProblem::ReservedName:
        return "The name is reserved by the operating system.";
    case NameProblem::LeadingOrTrailing:
        return "The name may not begin or end with a blank or a dot.";
    case NameProblem::NotStorable:
        return "The name contains letters or signs that Velmora cannot store.  Use the letters of "
               "Western European languages, digits and common punctuation.";
    }
    return {};
}

namespace {

char upperLetter(char ch)
{
    auto c = static_cast<unsigned char>(ch);
    if (c >= 'a' && c <= 'z')
        c = static_cast<unsigned char>(c - 'a' + 'A');
    else if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        c = static_cast<unsigned char>(c - 0x20);
    else if (c == 0x9A || c == 0x9C || c == 0x9E)
        c = static_cast<unsigned char>(c - 0x10);
    else if (c == 0xFF)
        c = 0x9F;
    return static_cast<char>(c);
}

} // namespace

bool sameNameIgnoringCase(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return upperLetter(x) == upperLetter(y);
           });
}

bool folderIgnoresCase(const std::filesystem::path& dir)
{
    namespace fs = std::filesystem;
    const fs::path probe = dir / ".case-probe-Velmora.tmp";
    const fs::path other = dir / ".CASE-PROBE-velmora.TMP";
    std::error_code ec;
    bool made = false;
    if (!fs::exists(probe, ec)) {
        std::ofstream(probe).put('\n');
        made = fs::exists(probe, ec);
    }
    if (!made && !fs::exists(probe, ec)) {
#if defined(_WIN32) || defined(__APPLE__)
        return true;
#else
        return false;
#endif
    }
    const bool ignores = fs::exists(other, ec);
    if (made)
        fs::remove(probe, ec);
    return ignores;
}

std::string capitaliseFirst(std::string name)
{
    if (name.empty())
        return name;
    name[0] = upperLetter(name[0]);
    return name;
}

std::string trimBlanks(std::string_view s)
{
    std::size_t b = 0;
    std::size_t e = s.size();
    while (b < e && isBlank(s[b]))
        ++b;
    while (e > b && isBlank(s[e - 1]))
        --e;
    return std::string(s.substr(b, e - b));
}

} // namespace velmora::model
