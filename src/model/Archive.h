#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/Result.h"

namespace velmora::model {

// Calendar time as stored in every file: seconds since 1970-01-01 00:00:00 UTC, kept in files as
// one unsigned 32-bit value. Held wider in memory so that date arithmetic cannot overflow; a value
// read from a file is always in 0 .. 2^32 - 1 and is written back unchanged.
using TimeT = std::int64_t;

// Thrown by ArchiveReader when the bytes do not hold what is being read. File-level readers catch
// it and turn it into a FileError with the file's name.
class ArchiveError : public std::runtime_error
{
public:
    ArchiveError(FileErrorCode code, std::uint64_t offset, const std::string& what)
        : std::runtime_error(what), m_code(code), m_offset(offset)
    {
    }
    FileErrorCode code() const { return m_code; }
    std::uint64_t offset() const { return m_offset; }

private:
    FileErrorCode m_code;
    std::uint64_t m_offset;
};

// Reads the archive encoding shared by all files of the system from a byte buffer held in memory:
// little-endian integers and IEEE floats, length-prefixed 8-bit texts in any of the three prefix
// forms, 4-byte times and counted lists. Never reads past the end of the buffer and never reserves
// memory for a count before checking it against the bytes that remain.
class ArchiveReader
{
public:
    explicit ArchiveReader(std::span<const std::uint8_t> bytes) : m_bytes(bytes) {}

    std::uint8_t u8();
    std::int8_t i8() { return static_cast<std::int8_t>(u8()); }
    std::uint16_t u16();
    std::int32_t i32();
    std::uint32_t u32();
    float f32();
    // Fills values with consecutive 32-bit floats; fails where f32() one by one would fail.
    void f32s(std::span<float> values);
    double f64();
    TimeT time() { return static_cast<TimeT>(u32()); }
    // A text of 8-bit bytes kept as they are stored (Windows-1252 in this system's files).
    std::string text();

    // A signed 32-bit list count. Negative counts read as 0 when allowNegative is set (the food
    // database treats "0 or less" as empty); otherwise they are an error. A count larger than
    // remaining() / minRecordSize is an error: the records could not fit in the bytes left.
    std::size_t count(std::size_t minRecordSize, bool allowNegative = false);

    std::size_t offset() const { return m_pos; }
    std::size_t remaining() const { return m_bytes.size() - m_pos; }
    bool atEnd() const { return m_pos == m_bytes.size(); }

    [[noreturn]] void fail(FileErrorCode code, const std::string& what) const;

private:
    const std::uint8_t* take(std::size_t n, const char* what);

    std::span<const std::uint8_t> m_bytes;
    std::size_t m_pos = 0;
};

// Writes the archive encoding into a growing byte buffer. Texts get the shortest length prefix.
class ArchiveWriter
{
public:
    void u8(std::uint8_t v) { m_bytes.push_back(v); }
    void i8(std::int8_t v) { u8(static_cast<std::uint8_t>(v)); }
    void u16(std::uint16_t v);
    void i32(std::int32_t v) { u32(static_cast<std::uint32_t>(v)); }
    void u32(std::uint32_t v);
    void f32(float v);
    void f64(double v);
    void time(TimeT t) { u32(static_cast<std::uint32_t>(t)); }
    void text(const std::string& s);
    void count(std::size_t n) { i32(static_cast<std::int32_t>(n)); }

    const std::vector<std::uint8_t>& bytes() const { return m_bytes; }
    std::vector<std::uint8_t> take() { return std::move(m_bytes); }
    void reserve(std::size_t n) { m_bytes.reserve(n); }

private:
    std::vector<std::uint8_t> m_bytes;
};

// Runs a parse over a buffer and turns an ArchiveError into a FileError naming the file.
template <class T, class Parse>
Result<T> parseArchive(std::span<const std::uint8_t> bytes, const std::string& fileName,
                       Parse&& parse)
{
    ArchiveReader in(bytes);
    try {
        return Result<T>(parse(in));
    } catch (const ArchiveError& e) {
        return Result<T>(FileError{e.code(), fileName, e.offset(), e.what()});
    }
}

// Runs a read over a buffer into value, keeping what the read took over before an ArchiveError
// stopped it; the error is returned with the file's name.
template <class T, class Read>
Salvaged<T> salvageArchive(std::span<const std::uint8_t> bytes, const std::string& fileName,
                           Read&& read)
{
    Salvaged<T> out;
    ArchiveReader in(bytes);
    try {
        read(in, out.value);
    } catch (const ArchiveError& e) {
        out.error = FileError{e.code(), fileName, e.offset(), e.what()};
        out.complete = false;
    }
    return out;
}

// parse() and salvage() of a record whose reader takes its parts over one by one and counts them:
// read(in, value, parts) with parts null when nobody counts.
template <class T, class Read>
Result<T> parseParts(std::span<const std::uint8_t> bytes, const std::string& fileName, Read&& read)
{
    return parseArchive<T>(bytes, fileName, [&read](ArchiveReader& in) {
        T value;
        read(in, value, nullptr);
        return value;
    });
}

template <class T, class Read>
Salvaged<T> salvageParts(std::span<const std::uint8_t> bytes, const std::string& fileName,
                         Read&& read)
{
    int parts = 0;
    auto out = salvageArchive<T>(bytes, fileName,
                                 [&](ArchiveReader& in, T& value) { read(in, value, &parts); });
    out.partsRead = parts;
    return out;
}

} // namespace velmora::model
