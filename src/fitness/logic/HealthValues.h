#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace velmora::fitness {

// The mood list of the health page, in index order (the index is what a health entry stores).
inline constexpr int MoodCount = 5;
inline constexpr std::array<const char*, MoodCount> MoodNames = {"Bad", "Poor", "OK", "Good",
                                                                 "Excellent"};
inline constexpr int DefaultMood = 2; // "OK", the mood of a new entry

// The two height edits of the health page. Imperial: feet and inches; metric: centimetres in the
// first edit and the hidden second edit at 0.
struct HeightFields
{
    float first = 0.0f;
    float second = 0.0f;
};

// The edits for a stored height (inches, or centimetres when metric). Imperial feet are the
// stored inches times 1/12 in single precision, truncated toward zero; the inches are the
// floating remainder of the stored inches by 12, fractions kept (70.5 shows 5 ft 10.5 in).
HeightFields heightFields(float storedHeight, bool metric);

// The height that the edits store: feet x 12 + inches (imperial) or the centimetres as entered.
float storedHeight(const HeightFields& fields, bool metric);

// Body mass index from a weight (pounds, or kilograms when metric) and the height edits, in
// double precision: metric weight / (cm x 0.01)^2, imperial weight / (feet x 12 + inches)^2 x 705.
// Nothing when the sum of the two edits is not above 0 (or is not a number); the page then keeps
// its BMI as it was.
std::optional<double> bodyMassIndex(float weight, const HeightFields& height, bool metric);

// "%.1lf", the BMI edit's text.
std::string bmiText(double bmi);

// The text a value edit shows for a stored single-precision value: "%.6g", the six digits that a
// float holds reliably. So the remainder 11.989998 of a 71.99-inch height shows as 11.99, and 0 as
// "0".
std::string valueEditText(float value);

// A value edit's text as a number. Blanks around the number are ignored and a blank edit counts
// as 0; anything else that is not wholly a finite decimal number (digits, one point, an optional
// sign and exponent) gives nothing, and the page refuses it and keeps its previous values. The
// decimal separator is always the point, whatever the locale.
std::optional<double> parseNumber(std::string_view text);

// A whole-number edit's text ("Hours:", "Minutes:", "Calories:"): blanks ignored, blank is 0;
// nothing unless the text is an optionally signed run of digits that fits 32 bits.
std::optional<int> parseWholeNumber(std::string_view text);

} // namespace velmora::fitness
