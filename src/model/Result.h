#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace velmora::model {

// Why a file could not be read or written. Tests compare codes; errorText() words them for people.
enum class FileErrorCode
{
    NotFound,      // the file does not exist
    CannotOpen,    // it exists but could not be opened for reading
    CannotWrite,   // creating, writing, flushing or renaming the new file failed
    UnexpectedEnd, // the file ends before the record being read is complete
    BadCount,      // a count is negative or larger than the bytes that remain could hold
    BadLength,     // a text length prefix claims more bytes than remain
    TrailingBytes, // bytes are left after the last record (only where a format forbids that)
    BadValue,      // a value is out of the range its field allows
    UnsafeName,    // a user name that cannot name a file inside the data folder
};

struct FileError
{
    FileErrorCode code = FileErrorCode::CannotOpen;
    std::string file;         // the file's path or name as the caller gave it
    std::uint64_t offset = 0; // byte offset of the failing read, for damaged files
    std::string detail;       // what was expected, or the operating system's error text

    // One line for a message box or a terminal, e.g.
    // "velmora.db is damaged at byte 1234: a text length runs past the end of the file".
    std::string message() const;
};

// The user-facing wording of an error code alone.
std::string errorText(FileErrorCode code);

// Either a value or the error that prevented it.
template <class T> class Result
{
public:
    Result(T value) : m_data(std::move(value)) {}
    Result(FileError error) : m_data(std::move(error)) {}

    bool ok() const { return m_data.index() == 0; }
    explicit operator bool() const { return ok(); }
    T& value() { return std::get<0>(m_data); }
    const T& value() const { return std::get<0>(m_data); }
    T&& take() { return std::get<0>(std::move(m_data)); }
    const FileError& error() const { return std::get<1>(m_data); }

private:
    std::variant<T, FileError> m_data;
};

// Success, or the error of an operation that yields no value.
class Status
{
public:
    Status() = default;
    Status(FileError error) : m_error(std::move(error)), m_failed(true) {}
    static Status success() { return {}; }

    bool ok() const { return !m_failed; }
    explicit operator bool() const { return ok(); }
    const FileError& error() const { return m_error; }

private:
    FileError m_error;
    bool m_failed = false;
};

// How much of one list of a damaged file was read.
struct ListKept
{
    std::string list;                  // what the records are, plural: "days", "custom foods"
    std::size_t kept = 0;              // the complete records read, all of them kept
    std::optional<std::size_t> inFile; // the count the file gives; nothing when reading stopped
                                       // before the count (the list could not be read at all)
};

// What a reader could take from a damaged file: every record it read completely, and the error
// that stopped it (complete is true when nothing was wrong).
template <class T> struct Salvaged
{
    T value{};
    FileError error;
    bool complete = true;
    int partsRead = 0; // how many of the file's parts were read whole, where a reader counts them
    std::vector<ListKept> lists; // the file's lists in file order, where a reader counts them
};

// What a salvage kept, for a message or a terminal: "9 of 10 days kept", or "2 of 2 users, 12 of
// 15 custom foods kept; the exercise fields, exercises, routines and variables could not be read".
// Empty when there are no lists.
std::string keptText(const std::vector<ListKept>& lists);

} // namespace velmora::model
