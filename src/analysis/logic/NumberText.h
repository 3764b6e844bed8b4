#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora::analysis {

// The number a number box holds: optional blanks around a decimal number with a '.' as its point,
// whatever the process locale says. Nothing when the text is empty, holds anything else, or names
// an infinity or a value out of range.
std::optional<double> parseNumber(std::string_view text);
// The same for a value kept as a 32-bit float, rounded once from the text, so that the text of
// numberBoxText() reads back as the very value it shows.
std::optional<float> parseFloatNumber(std::string_view text);

// A stored 32-bit value as a number box shows it: the shortest text that reads back as the same
// float, e.g. "15.5", "0", "1e-05".
std::string numberBoxText(float value);

} // namespace velmora::analysis
