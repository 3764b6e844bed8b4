#include "fitness/logic/HealthValues.h"

#include <charconv>
#include <cmath>

#include "model/FoodDatabase.h"

namespace velmora::fitness {

namespace {

std::string_view trimmed(std::string_view s)
{
    const auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    while (!s.empty() && blank(s.front()))
        s.remove_prefix(1);
    while (!s.empty() && blank(s.back()))
        s.remove_suffix(1);
    return s;
}

} // namespace

HeightFields heightFields(float storedHeight, bool metric)
{
    if (metric)
        return {storedHeight, 0.0f};
    // Single precision on purpose: 1/12 as a float is 0.0833333358, a little above a twelfth, so
    // whole multiples of 12 inches never truncate to one foot less.
    const float feet = storedHeight * (1.0f / 12.0f);
    return {std::trunc(feet), std::fmod(storedHeight, 12.0f)};
}

float storedHeight(const HeightFields& fields, bool metric)
{
    if (metric)
        return fields.first;
    return fields.first * 12.0f + fields.second;
}

std::optional<double> bodyMassIndex(float weight, const HeightFields& height, bool metric)
{
    const double first = height.first;
    const double second = height.second;
    if (!(first + second > 0.0))
        return std::nullopt;
    if (metric) {
        const double metres = first * 0.01;
        return weight / (metres * metres);
    }
    const double inches = first * 12.0 + second;
    return weight / (inches * inches) * 705.0;
}

std::string bmiText(double bmi)
{
    return model::formatText("%.1lf", bmi);
}

std::string valueEditText(float value)
{
    return model::formatText("%.6g", static_cast<double>(value));
}

std::optional<double> parseNumber(std::string_view text)
{
    text = trimmed(text);
    if (text.empty())
        return 0.0;
    if (text.front() == '+' && text.size() > 1 && text[1] != '-')
        text.remove_prefix(1);
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value, std::chars_format::general);
    if (ec != std::errc() || ptr != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<int> parseWholeNumber(std::string_view text)
{
    text = trimmed(text);
    if (text.empty())
        return 0;
    if (text.front() == '+' && text.size() > 1 && text[1] != '-')
        text.remove_prefix(1);
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    if (ec != std::errc() || ptr != end)
        return std::nullopt;
    return value;
}

} // namespace velmora::fitness
