#include "analysis/logic/NumberText.h"

#include <array>
#include <charconv>
#include <cmath>

namespace velmora::analysis {

namespace {

template <class T> std::optional<T> parse(std::string_view text)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t'; };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    if (!text.empty() && text.front() == '+')
        text.remove_prefix(1);
    if (text.empty())
        return std::nullopt;
    T value{};
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::general);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace

std::optional<double> parseNumber(std::string_view text)
{
    return parse<double>(text);
}

std::optional<float> parseFloatNumber(std::string_view text)
{
    return parse<float>(text);
}

std::string numberBoxText(float value)
{
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    if (error != std::errc())
        return "0";
    return std::string(buffer.data(), end);
}

} // namespace velmora::analysis
