#pragma once

#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

namespace velmora::test {

// Hand-made file images for tests. Deliberately independent of the archive writer under test:
// each method appends the little-endian bytes that the file layout prescribes.
class Bytes
{
public:
    Bytes& raw(std::initializer_list<std::uint8_t> b)
    {
        m_b.insert(m_b.end(), b);
        return *this;
    }
    Bytes& u8(std::uint8_t v)
    {
        m_b.push_back(v);
        return *this;
    }
    Bytes& u16(std::uint16_t v)
    {
        m_b.push_back(static_cast<std::uint8_t>(v));
        m_b.push_back(static_cast<std::uint8_t>(v >> 8));
        return *this;
    }
    Bytes& u32(std::uint32_t v)
    {
        for (int i = 0; i < 4; ++i)
            m_b.push_back(static_cast<std::uint8_t>(v >> (8 * i)));
        return *this;
    }
    Bytes& i32(std::int32_t v) { return u32(static_cast<std::uint32_t>(v)); }
    Bytes& f32(float v)
    {
        std::uint32_t bits;
        std::memcpy(&bits, &v, 4);
        return u32(bits);
    }
    // A text with a one-byte length prefix (lengths below 255 only).
    Bytes& text(const std::string& s)
    {
        m_b.push_back(static_cast<std::uint8_t>(s.size()));
        m_b.insert(m_b.end(), s.begin(), s.end());
        return *this;
    }
    Bytes& repeatI32(int times, std::int32_t v)
    {
        for (int i = 0; i < times; ++i)
            i32(v);
        return *this;
    }
    Bytes& repeatF32(int times, float v)
    {
        for (int i = 0; i < times; ++i)
            f32(v);
        return *this;
    }
    Bytes& append(const std::vector<std::uint8_t>& other)
    {
        m_b.insert(m_b.end(), other.begin(), other.end());
        return *this;
    }

    const std::vector<std::uint8_t>& bytes() const { return m_b; }
    operator const std::vector<std::uint8_t>&() const { return m_b; }
    std::size_t size() const { return m_b.size(); }

private:
    std::vector<std::uint8_t> m_b;
};

} // namespace velmora::test
