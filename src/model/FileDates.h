#pragma once

#include <cstdint>
#include <optional>

#include "model/Archive.h"
#include "model/DateText.h"

namespace velmora::model {

// The times each kind of file can hold, in seconds since 1970-01-01 00:00:00 UTC.
enum class TimeRange
{
    UserFiles,     // velmora.db and the journals: unsigned 32 bits, up to 2106-02-07 06:28:15 UTC
    HandheldFiles, // the transfer files: signed 32 bits, up to 2038-01-19 03:14:07 UTC
};

// Whether every second of a local calendar day (the current time zone, the day's length as
// daylight saving makes it) can be stored in files of the given range, so that the day's midnight
// and every meal, workout and note time of the day keep their value. False for dates that do not
// exist ("February 30") and for days that begin before 1970-01-01 00:00 UTC in the user files.
bool dateFits(const CalendarDate& date, TimeRange range = TimeRange::UserFiles);

// Local midnight of a date, as CalendarDate::toTime(), but only for a date whose day fits the
// range; nullopt instead of a time that the file would turn into another date (1969-12-31 would be
// read back as 2106-02-06).
std::optional<TimeT> storableMidnight(const CalendarDate& date,
                                      TimeRange range = TimeRange::UserFiles);

// The first and last local dates whose whole day fits the range in the current time zone: the
// limits a date picker offers.
CalendarDate firstDateThatFits(TimeRange range = TimeRange::UserFiles);
CalendarDate lastDateThatFits(TimeRange range = TimeRange::UserFiles);

// The 4-byte values that the files hold for a time; nullopt for a time outside the range.
std::optional<std::uint32_t> userFileTime(TimeT t);
std::optional<std::int32_t> handheldFileTime(TimeT t);

} // namespace velmora::model
