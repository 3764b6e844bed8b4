#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace velmora::model {

// Why a user name cannot be used; None when it can.
enum class NameProblem
{
    None,
    Empty,             // empty or only blanks
    TooLong,           // the file name would pass MaxUserFileNameLength (see userFileNameLength)
    BadCharacter,      // a path separator, a control character or one of < > : " / \ | ? *
    ReservedName,      // CON, PRN, AUX, NUL, COM1..9, LPT1..9 (also with an extension), "." or ".."
    LeadingOrTrailing, // begins or ends with a blank or a dot
    NotStorable,       // a character that the files' 8-bit text (Windows-1252) cannot hold
};

// File systems allow 255 bytes (Linux, macOS) or 255 UTF-16 units (Windows) for a file name. A
// user's file name (name + ".db") is kept to 200 of them so that the names made from it, the
// backup, the temporary file of a save and the dated damaged and conflict copies, fit as well.
inline constexpr std::size_t MaxUserFileNameLength = 200;

// The length of the user's file name (stored name + ".db") as this platform encodes file names:
// UTF-8 bytes on Linux and macOS, UTF-16 units on Windows. storedName is Windows-1252.
std::size_t userFileNameLength(std::string_view storedName);

// A user's name becomes a file name (name + ".db") in the data folder. This check accepts only
// names that are valid file names on Windows, Linux and macOS, that fit the file-name length of
// this platform and that cannot reach outside the folder. name is the stored (Windows-1252) text.
NameProblem checkUserName(std::string_view name);
// The same check for a name as typed (UTF-8), before it is converted for storing: characters that
// the stored text cannot hold (Greek or Cyrillic letters, say) and malformed UTF-8 are
// NotStorable rather than turned into '?' and refused as a bad character.
NameProblem checkTypedUserName(std::string_view utf8);
// One sentence for the user that names the problem.
std::string nameProblemText(NameProblem p);

// The names of two users whose files are one file where the file system ignores case: equal once
// every letter (ASCII and the Windows-1252 letters) is upper-cased. Both names are stored text.
bool sameNameIgnoringCase(std::string_view a, std::string_view b);
// True when the file system of dir treats names that differ only in case as one name (Windows and
// macOS by default). Found out by writing and removing a small file in dir; when dir cannot be
// written, the platform's usual behaviour is assumed.
bool folderIgnoresCase(const std::filesystem::path& dir);

// First character upper-cased (ASCII and the Windows-1252 letters), as new names are stored.
std::string capitaliseFirst(std::string name);
// Blanks (spaces and tabs) trimmed from both ends.
std::string trimBlanks(std::string_view s);

} // namespace velmora::model
