#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "model/Archive.h"
#include "model/DateText.h"

namespace velmora::exchange {

// Texts of the values in exported files: plain decimal numbers with "." as decimal point, ISO
// dates and 24-hour times in local time. Nothing here depends on the user's locale.

// A computed value (a nutrient amount, a total): at most four digits after the decimal point, but
// at least four significant digits for values below 1 (0.000123456 -> "0.0001235"); trailing
// zeros dropped; never an exponent. Non-finite values give an empty text.
void appendNumber(std::string& out, double value);
std::string numberText(double value);

// A value stored as a 32-bit float (health values, variable numbers): the shortest plain decimal
// text that reads back as the same float, so a file written and read again keeps every value.
void appendStoredNumber(std::string& out, float value);
std::string storedNumberText(float value);

// "YYYY-MM-DD" of the local calendar date of t.
std::string isoDate(model::TimeT t);
std::string isoDate(const model::CalendarDate& d);
// "HH:MM" (24-hour) of the local time of t.
std::string isoTime(model::TimeT t);

// Whether y-m-d names a day of the proleptic Gregorian calendar.
bool isValidDate(int year, int month, int day);

// Reads "YYYY-MM-DD" exactly (no time part); nothing when the text is not such a date.
std::optional<model::CalendarDate> parseIsoDate(std::string_view text);

// Reads a decimal number: optional sign, digits with an optional "." (or "," when decimalComma
// is set) and an optional exponent, surrounded by blanks. Nothing for anything else (an empty
// text, "12kg", "n/a", infinities and non-numbers).
std::optional<double> parseNumber(std::string_view text, bool decimalComma = false);
// The same read straight into a 32-bit float, so that a stored value written by
// storedNumberText() reads back as exactly the same float.
std::optional<float> parseFloat(std::string_view text, bool decimalComma = false);

// The text without blanks (spaces, tabs) at either end.
std::string_view trimmed(std::string_view text);

} // namespace velmora::exchange
