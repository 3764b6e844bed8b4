#include "model/Archive.h"

#include <bit>
#include <cstring>

namespace velmora::model {

namespace {
std::uint32_t load32(const std::uint8_t* p)
{
    return static_cast<std::uint32_t>(p[0]) | (static_cast<std::uint32_t>(p[1]) << 8) |
           (static_cast<std::uint32_t>(p[2]) << 16) | (static_cast<std::uint32_t>(p[3]) << 24);
}
} // namespace

void ArchiveReader::fail(FileErrorCode code, const std::string& what) const
{
    throw ArchiveError(code, m_pos, what);
}

const std::uint8_t* ArchiveReader::take(std::size_t n, const char* what)
{
    if (n > remaining())
        fail(FileErrorCode::UnexpectedEnd, std::string("expected ") + what);
    const std::uint8_t* p = m_bytes.data() + m_pos;
    m_pos += n;
    return p;
}

std::uint8_t ArchiveReader::u8()
{
    return *take(1, "a byte");
}

std::uint16_t ArchiveReader::u16()
{
    const std::uint8_t* p = take(2, "a 16-bit value");
    return static_cast<std::uint16_t>(p[0] | (p[1] << 8));
}

std::uint32_t ArchiveReader::u32()
{
    return load32(take(4, "a 32-bit value"));
}

std::int32_t ArchiveReader::i32()
{
    return static_cast<std::int32_t>(u32());
}

float ArchiveReader::f32()
{
    return std::bit_cast<float>(load32(take(4, "a 32-bit float")));
}

void ArchiveReader::f32s(std::span<float> values)
{
    if (values.size() > remaining() / 4) {
        for (float& v : values)
            v = f32(); // stops with the error of the first float that is cut off
        return;
    }
    const std::uint8_t* p = take(values.size() * 4, "32-bit floats");
    for (float& v : values) {
        v = std::bit_cast<float>(load32(p));
        p += 4;
    }
}

double ArchiveReader::f64()
{
    const std::uint8_t* p = take(8, "a 64-bit float");
    const std::uint64_t v =
        static_cast<std::uint64_t>(load32(p)) | (static_cast<std::uint64_t>(load32(p + 4)) << 32);
    return std::bit_cast<double>(v);
}

std::string ArchiveReader::text()
{
    const std::size_t start = m_pos;
    std::size_t length = u8();
    if (length == 0xFF) {
        length = u16();
        if (length == 0xFFFF)
            length = u32();
    }
    if (length > remaining()) {
        // Report the position of the prefix: that is where the damage is.
        throw ArchiveError(FileErrorCode::BadLength, start,
                           "a text of " + std::to_string(length) + " bytes but only " +
                               std::to_string(remaining()) + " remain");
    }
    const std::uint8_t* p = take(length, "text bytes");
    return std::string(reinterpret_cast<const char*>(p), length);
}

std::size_t ArchiveReader::count(std::size_t minRecordSize, bool allowNegative)
{
    const std::size_t start = m_pos;
    const std::int32_t n = i32();
    if (n < 0) {
        if (allowNegative)
            return 0;
        throw ArchiveError(FileErrorCode::BadCount, start,
                           "a negative count (" + std::to_string(n) + ")");
    }
    const std::size_t c = static_cast<std::size_t>(n);
    if (minRecordSize > 0 && c > remaining() / minRecordSize) {
        throw ArchiveError(FileErrorCode::BadCount, start,
                           "a count of " + std::to_string(c) + " records of at least " +
                               std::to_string(minRecordSize) + " bytes but only " +
                               std::to_string(remaining()) + " bytes remain");
    }
    return c;
}

void ArchiveWriter::u16(std::uint16_t v)
{
    m_bytes.push_back(static_cast<std::uint8_t>(v & 0xFF));
    m_bytes.push_back(static_cast<std::uint8_t>(v >> 8));
}

void ArchiveWriter::u32(std::uint32_t v)
{
    const std::uint8_t b[4] = {static_cast<std::uint8_t>(v), static_cast<std::uint8_t>(v >> 8),
                               static_cast<std::uint8_t>(v >> 16),
                               static_cast<std::uint8_t>(v >> 24)};
    m_bytes.insert(m_bytes.end(), b, b + 4);
}

void ArchiveWriter::f32(float v)
{
    u32(std::bit_cast<std::uint32_t>(v));
}

void ArchiveWriter::f64(double v)
{
    const auto bits = std::bit_cast<std::uint64_t>(v);
    u32(static_cast<std::uint32_t>(bits));
    u32(static_cast<std::uint32_t>(bits >> 32));
}

void ArchiveWriter::text(const std::string& s)
{
    const std::size_t n = s.size();
    if (n < 0xFF) {
        u8(static_cast<std::uint8_t>(n));
    } else if (n < 0xFFFE) {
        u8(0xFF);
        u16(static_cast<std::uint16_t>(n));
    } else {
        u8(0xFF);
        u16(0xFFFF);
        u32(static_cast<std::uint32_t>(n));
    }
    m_bytes.insert(m_bytes.end(), s.begin(), s.end());
}

} // namespace velmora::model
