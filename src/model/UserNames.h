#pragma once

#include <string>
#include <string_view>

namespace velmora::model {

// Why a user name cannot be used; None when it can.
enum class NameProblem {
    None,
    Empty,             // empty or only blanks
    TooLong,           // the file name would pass 200 bytes
    BadCharacter,      // a path separator, a control character or one of < > : " / \ | ? *
    ReservedName,      // CON, PRN, AUX, NUL, COM1..9, LPT1..9 (also with an extension), "." or ".."
    LeadingOrTrailing, // begins or ends with a blank or a dot
};

// A user's name becomes a file name (name + ".db") in the data folder. This check accepts only
// names that are valid file names on Windows, Linux and macOS and cannot reach outside the folder.
NameProblem checkUserName(std::string_view name);
std::string nameProblemText(NameProblem p);

// First character upper-cased (ASCII and the Windows-1252 letters), as new names are stored.
std::string capitaliseFirst(std::string name);
// Blanks (spaces and tabs) trimmed from both ends.
std::string trimBlanks(std::string_view s);

} // namespace velmora::model
