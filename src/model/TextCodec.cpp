#include "model/TextCodec.h"

#include <array>
#include <cstdint>
#include <unordered_map>

namespace velmora::model {

namespace {

// Code points of the bytes 0x80..0x9F. The five bytes that Windows-1252 leaves undefined (0x81,
// 0x8D, 0x8F, 0x90, 0x9D) map to the C1 control of the same value so that every byte survives.
constexpr std::array<char32_t, 32> HighControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char32_t codePointOf(std::uint8_t b)
{
    if (b >= 0x80 && b <= 0x9F)
        return HighControls[b - 0x80];
    return b;
}

void appendUtf8(std::string& out, char32_t c)
{
    if (c < 0x80) {
        out.push_back(static_cast<char>(c));
    } else if (c < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (c >> 6)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else if (c < 0x10000) {
        out.push_back(static_cast<char>(0xE0 | (c >> 12)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xF0 | (c >> 18)));
        out.push_back(static_cast<char>(0x80 | ((c >> 12) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | ((c >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (c & 0x3F)));
    }
}

const std::unordered_map<char32_t, char>& reverseHigh()
{
    static const std::unordered_map<char32_t, char> map = [] {
        std::unordered_map<char32_t, char> m;
        for (int b = 0x80; b <= 0x9F; ++b)
            m.emplace(HighControls[static_cast<std::size_t>(b - 0x80)], static_cast<char>(b));
        return m;
    }();
    return map;
}

char cp1252Of(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    const auto& m = reverseHigh();
    const auto it = m.find(c);
    return it == m.end() ? '?' : it->second;
}

} // namespace

std::string cp1252ToUtf8(std::string_view cp1252)
{
    std::string out;
    out.reserve(cp1252.size() + cp1252.size() / 4);
    for (char ch : cp1252)
        appendUtf8(out, codePointOf(static_cast<std::uint8_t>(ch)));
    return out;
}

std::string utf8ToCp1252(std::string_view utf8)
{
    std::string out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    const std::size_t n = utf8.size();
    while (i < n) {
        const auto b = static_cast<std::uint8_t>(utf8[i]);
        int extra = 0;
        char32_t c = 0;
        if (b < 0x80) {
            out.push_back(static_cast<char>(b));
            ++i;
            continue;
        } else if ((b & 0xE0) == 0xC0) {
            extra = 1;
            c = b & 0x1F;
        } else if ((b & 0xF0) == 0xE0) {
            extra = 2;
            c = b & 0x0F;
        } else if ((b & 0xF8) == 0xF0) {
            extra = 3;
            c = b & 0x07;
        } else {
            out.push_back('?'); // a stray continuation byte or an invalid lead byte
            ++i;
            continue;
        }
        std::size_t j = i + 1;
        int got = 0;
        while (got < extra && j < n && (static_cast<std::uint8_t>(utf8[j]) & 0xC0) == 0x80) {
            c = (c << 6) | (static_cast<std::uint8_t>(utf8[j]) & 0x3F);
            ++j;
            ++got;
        }
        // Truncated sequences, overlong forms, surrogates and values past U+10FFFF are malformed;
        // the whole broken sequence becomes one '?'.
        static constexpr char32_t Minimum[4] = {0, 0x80, 0x800, 0x10000};
        if (got < extra || c < Minimum[extra] || c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
            out.push_back('?');
            i = j;
            continue;
        }
        out.push_back(cp1252Of(c));
        i = j;
    }
    return out;
}

std::filesystem::path pathFromUtf8(std::string_view utf8)
{
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

} // namespace velmora::model
