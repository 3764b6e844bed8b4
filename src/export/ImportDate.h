#pragma once

#include <optional>
#include <string_view>

#include "model/DateText.h"

namespace velmora::exchange {

// A date, with the time of day when the text gave one, as read from another program's file.
struct ImportedDate
{
    model::CalendarDate date;
    int secondOfDay = -1; // 0..86399, or -1 when the text holds no time
};

// Reads the date (or date and time) texts that journals and scales' companion programs write:
//   "2024-03-07", "2024/03/07", "2024.03.07", optionally followed by " " or "T" and a time
//   "HH:MM", "HH:MM:SS" or "HH:MM:SS.fff", optionally "AM"/"PM", optionally "Z" or an offset
//   "+01:00", "-0500" (a zone converts the moment to the local date and time);
//   "07.03.2024" (day first, always), "07/03/2024" or "03/07/2024" (day first when dayFirst is
//   set, else month first), with the same optional time;
//   a count of seconds since 1970-01-01 UTC of 9 or 10 digits, taken in local time.
// Nothing when the text is none of these or names no real date or time (2023-02-29, 25:00).
std::optional<ImportedDate> parseImportedDate(std::string_view text, bool dayFirst);

} // namespace velmora::exchange
