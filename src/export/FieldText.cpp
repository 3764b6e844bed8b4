#include "export/FieldText.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <ctime>

#include "model/FoodDatabase.h"

namespace velmora::exchange {

namespace {

// Drops the zeros after the decimal point that carry nothing, and the point itself.
std::size_t trimZeros(const char* begin, std::size_t length)
{
    std::size_t point = length;
    for (std::size_t i = 0; i < length; ++i)
        if (begin[i] == '.')
            point = i;
    if (point == length)
        return length;
    while (length > point + 1 && begin[length - 1] == '0')
        --length;
    if (length == point + 1)
        --length;
    return length;
}

std::tm localFields(model::TimeT t)
{
    const std::time_t tt = static_cast<std::time_t>(t);
    std::tm fields{};
#if defined(_WIN32)
    localtime_s(&fields, &tt);
#else
    localtime_r(&tt, &fields);
#endif
    return fields;
}

} // namespace

void appendNumber(std::string& out, double value)
{
    if (!std::isfinite(value))
        return;
    if (value == 0.0) {
        out += '0';
        return;
    }
    const double magnitude = std::fabs(value);
    int decimals = 4;
    if (magnitude < 1.0) {
        // Four significant digits below 1: 0.05 keeps five decimals, 0.0001234 seven.
        decimals = 3 - static_cast<int>(std::floor(std::log10(magnitude)));
        if (decimals > 12)
            decimals = 12;
    }
    // Whole journals write millions of values: below 2^53 units of the last decimal the digits
    // come from one integer, which is several times faster than general formatting.
    static constexpr double Scale[] = {1e0, 1e1, 1e2, 1e3,  1e4,  1e5, 1e6,
                                       1e7, 1e8, 1e9, 1e10, 1e11, 1e12};
    const double scaled = magnitude * Scale[decimals];
    if (scaled < 9.0e15) {
        auto units = static_cast<std::uint64_t>(scaled + 0.5);
        if (units == 0) {
            out += '0';
            return;
        }
        int kept = decimals;
        while (kept > 0 && units % 10 == 0) {
            units /= 10;
            --kept;
        }
        // Laid out in one buffer: sign, integer digits, point, decimals (zero-padded in front).
        char digits[24];
        const char* end = std::to_chars(digits, digits + sizeof digits, units).ptr;
        const auto length = static_cast<int>(end - digits);
        char text[48];
        char* p = text;
        if (value < 0.0)
            *p++ = '-';
        if (length <= kept) {
            *p++ = '0';
            *p++ = '.';
            for (int i = length; i < kept; ++i)
                *p++ = '0';
            for (int i = 0; i < length; ++i)
                *p++ = digits[i];
        } else {
            for (int i = 0; i < length - kept; ++i)
                *p++ = digits[i];
            if (kept > 0) {
                *p++ = '.';
                for (int i = length - kept; i < length; ++i)
                    *p++ = digits[i];
            }
        }
        out.append(text, static_cast<std::size_t>(p - text));
        return;
    }
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed, decimals);
    if (r.ec != std::errc()) {
        out += model::formatText("%.4f", value);
        return;
    }
    std::size_t length = trimZeros(buf, static_cast<std::size_t>(r.ptr - buf));
    // A value too small for the decimals kept ("-0") is written as 0.
    if ((length == 2 && buf[0] == '-' && buf[1] == '0') || (length == 1 && buf[0] == '0')) {
        out += '0';
        return;
    }
    out.append(buf, length);
}

std::string numberText(double value)
{
    std::string out;
    appendNumber(out, value);
    return out;
}

void appendStoredNumber(std::string& out, float value)
{
    if (!std::isfinite(value))
        return;
    char buf[64];
    const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed);
    if (r.ec != std::errc()) {
        out += model::formatText("%.9g", static_cast<double>(value));
        return;
    }
    out.append(buf, static_cast<std::size_t>(r.ptr - buf));
}

std::string storedNumberText(float value)
{
    std::string out;
    appendStoredNumber(out, value);
    return out;
}

std::string isoDate(const model::CalendarDate& d)
{
    return model::formatText("%04d-%02d-%02d", d.year, d.month, d.day);
}

std::string isoDate(model::TimeT t)
{
    return isoDate(model::CalendarDate::fromTime(t));
}

std::string isoTime(model::TimeT t)
{
    const std::tm f = localFields(t);
    return model::formatText("%02d:%02d", f.tm_hour, f.tm_min);
}

bool isValidDate(int year, int month, int day)
{
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1)
        return false;
    static constexpr int Days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    const int last = month == 2 && leap ? 29 : Days[month - 1];
    return day <= last;
}

std::optional<model::CalendarDate> parseIsoDate(std::string_view text)
{
    text = trimmed(text);
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    int parts[3] = {0, 0, 0};
    const std::pair<std::size_t, std::size_t> spans[3] = {{0, 4}, {5, 2}, {8, 2}};
    for (int i = 0; i < 3; ++i) {
        const auto [at, n] = spans[i];
        const auto r = std::from_chars(text.data() + at, text.data() + at + n, parts[i]);
        if (r.ec != std::errc() || r.ptr != text.data() + at + n)
            return std::nullopt;
    }
    if (!isValidDate(parts[0], parts[1], parts[2]))
        return std::nullopt;
    return model::CalendarDate{parts[0], parts[1], parts[2]};
}

namespace {

// Copies a plain decimal number into buf (a decimal comma made a point, the sign left out);
// false for anything else.
bool plainNumber(std::string_view text, bool decimalComma, char (&buf)[64], std::size_t& n,
                 bool& negative)
{
    text = trimmed(text);
    if (text.empty() || text.size() > 60)
        return false;
    n = 0;
    negative = false;
    std::size_t i = 0;
    if (text[0] == '+' || text[0] == '-') {
        negative = text[0] == '-';
        i = 1;
    }
    bool digits = false;
    for (; i < text.size(); ++i) {
        char c = text[i];
        if (decimalComma && c == ',')
            c = '.';
        const bool digit = c >= '0' && c <= '9';
        digits = digits || digit;
        // Only the characters of a plain decimal number; from_chars alone would take "inf".
        if (!digit && c != '.' && c != 'e' && c != 'E' && c != '+' && c != '-')
            return false;
        buf[n++] = c;
    }
    return digits && buf[0] != '+' && buf[0] != '-';
}

template <class T> std::optional<T> parsePlain(std::string_view text, bool decimalComma)
{
    char buf[64];
    std::size_t n = 0;
    bool negative = false;
    if (!plainNumber(text, decimalComma, buf, n, negative))
        return std::nullopt;
    T value{};
    const auto r = std::from_chars(buf, buf + n, value);
    if (r.ec != std::errc() || r.ptr != buf + n || !std::isfinite(value))
        return std::nullopt;
    return negative ? -value : value;
}

} // namespace

std::optional<double> parseNumber(std::string_view text, bool decimalComma)
{
    return parsePlain<double>(text, decimalComma);
}

std::optional<float> parseFloat(std::string_view text, bool decimalComma)
{
    return parsePlain<float>(text, decimalComma);
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    return text;
}

} // namespace velmora::exchange
