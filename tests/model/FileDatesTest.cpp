// Dates are refused, not wrapped, when the files cannot hold their day, in several time zones.

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include "model/FileDates.h"

using namespace velmora::model;

namespace {

// Sets the time zone for the lifetime of the object and restores the previous one.
class TimeZone
{
public:
    explicit TimeZone(const char* tz)
    {
        if (const char* old = std::getenv("TZ"))
            m_old = old;
        set(tz);
    }
    ~TimeZone() { set(m_old ? m_old->c_str() : nullptr); }

private:
    static void set(const char* tz)
    {
#if defined(_WIN32)
        _putenv_s("TZ", tz ? tz : "");
        _tzset();
#else
        if (tz)
            ::setenv("TZ", tz, 1);
        else
            ::unsetenv("TZ");
        ::tzset();
#endif
    }
    std::optional<std::string> m_old;
};

} // namespace

TEST(FileDates, DaysThatTheFilesCannotHoldAreRefusedInEveryTimeZone)
{
    struct Case
    {
        const char* tz;
        CalendarDate first;        // first date of the user files
        CalendarDate last;         // last date of the user files
        CalendarDate lastHandheld; // last date of the handheld files
    };
    const Case cases[] = {
        {"UTC0", {1970, 1, 1}, {2106, 2, 6}, {2038, 1, 18}},
        // Nine hours ahead: 1970-01-01 began in 1969 as UTC counts.
        {"JST-9", {1970, 1, 2}, {2106, 2, 6}, {2038, 1, 18}},
#if !defined(_WIN32)
        // Zone names and the POSIX forms of offsets and daylight-saving rules.
        {"Asia/Tokyo", {1970, 1, 2}, {2106, 2, 6}, {2038, 1, 18}},
        // Five hours behind: 2038-01-18 ends after the handheld files' last second.
        {"EST5EDT,M3.2.0,M11.1.0", {1970, 1, 1}, {2106, 2, 6}, {2038, 1, 17}},
        {"<-12>12", {1970, 1, 1}, {2106, 2, 5}, {2038, 1, 17}},
        {"<+14>-14", {1970, 1, 2}, {2106, 2, 6}, {2038, 1, 18}},
        // Daylight saving in the southern summer, at the turn of the year.
        {"NZST-12NZDT,M9.5.0,M4.1.0/3", {1970, 1, 2}, {2106, 2, 6}, {2038, 1, 18}},
        // Offsets at which the last day ends on the files' very last second, which it may use.
        {"<-062816>6:28:16", {1970, 1, 1}, {2106, 2, 6}, {2038, 1, 17}},
        {"<-031408>3:14:08", {1970, 1, 1}, {2106, 2, 6}, {2038, 1, 18}},
#endif
    };
    const auto dayBefore = [](CalendarDate d) {
        const TimeT midnight = d.toTime();
        return CalendarDate::fromTime(midnight - 1);
    };
    const auto dayAfter = [](CalendarDate d) {
        return CalendarDate::fromTime(d.toTime() + 36 * 3600);
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.tz);
        TimeZone zone(c.tz);
        EXPECT_EQ(firstDateThatFits(), c.first);
        EXPECT_EQ(lastDateThatFits(), c.last);
        EXPECT_EQ(lastDateThatFits(TimeRange::HandheldFiles), c.lastHandheld);

        // The limits themselves fit, the days beyond them do not.
        EXPECT_TRUE(dateFits(c.first));
        EXPECT_FALSE(dateFits(dayBefore(c.first)));
        EXPECT_TRUE(dateFits(c.last));
        EXPECT_FALSE(dateFits(dayAfter(c.last)));
        EXPECT_TRUE(dateFits(c.lastHandheld, TimeRange::HandheldFiles));
        EXPECT_FALSE(dateFits(dayAfter(c.lastHandheld), TimeRange::HandheldFiles));
        EXPECT_TRUE(dateFits(dayAfter(c.lastHandheld), TimeRange::UserFiles));

        // 1969-12-31 is never stored: its time would have been read back as 2106-02-06.
        EXPECT_FALSE(storableMidnight({1969, 12, 31}).has_value());
        // Where a date fits, the time is the usual local midnight and reads back as the date.
        const auto t = storableMidnight({2026, 3, 29});
        ASSERT_TRUE(t.has_value());
        EXPECT_EQ(*t, (CalendarDate{2026, 3, 29}.toTime()));
        EXPECT_EQ(CalendarDate::fromTime(*t), (CalendarDate{2026, 3, 29}));
        // Dates that do not exist are refused rather than moved to another day.
        EXPECT_FALSE(dateFits({2023, 2, 29}));
        EXPECT_FALSE(dateFits({2026, 4, 31}));
        EXPECT_FALSE(dateFits({2026, 13, 1}));
        EXPECT_TRUE(dateFits({2024, 2, 29}));
    }
}

TEST(FileDates, TimesOutsideTheFieldsAreRefused)
{
    struct Case
    {
        TimeT t;
        std::optional<std::uint32_t> user;
        std::optional<std::int32_t> handheld;
    };
    const Case cases[] = {
        {0, 0u, 0},
        {-1, std::nullopt, -1},
        {2147483647, 2147483647u, 2147483647},
        {2147483648, 2147483648u, std::nullopt},
        {4294967295, 4294967295u, std::nullopt},
        {4294967296, std::nullopt, std::nullopt},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(userFileTime(c.t), c.user) << c.t;
        EXPECT_EQ(handheldFileTime(c.t), c.handheld) << c.t;
    }
}
