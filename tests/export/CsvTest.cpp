// The CSV writer and reader, and the texts of numbers and dates in exported and imported files.
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "export/CsvReader.h"
#include "export/CsvWriter.h"
#include "export/FieldText.h"
#include "export/ImportDate.h"

using namespace velmora::exchange;
using velmora::model::CalendarDate;

namespace {

TEST(CsvTest, AwkwardFieldsSurviveWritingAndReading)
{
    const std::vector<std::string> fields = {"plain",        "a,b",       "say \"hi\"",
                                             "two\r\nlines", "one\nline", " lead",
                                             "trail ",       "",          "Vitamin B12 (\xC2\xB5g)",
                                             "\"",           ","};
    CsvWriter out;
    out.header(fields);
    out.header(std::vector<std::string>{"second", "row"});
    const CsvTable table = readCsv(out.result());
    ASSERT_EQ(table.unterminatedQuoteLine, 0);
    ASSERT_EQ(table.records.size(), 2u);
    EXPECT_EQ(table.records[0].fields, fields);
    EXPECT_EQ(table.records[0].line, 1);
    // The quoted line breaks in the first record push the second record's line on.
    EXPECT_EQ(table.records[1].line, 4);
    // RFC 4180: records end with CRLF, quotes only where needed.
    EXPECT_EQ(out.result().substr(0, 17), "plain,\"a,b\",\"say ");
    EXPECT_EQ(out.result().substr(out.result().size() - 12), "second,row\r\n");
}

// The records of a table as "line:field|field" lines, and the line of an unclosed quote.
std::string shown(const CsvTable& table)
{
    std::string out;
    for (const CsvRecord& r : table.records) {
        out += std::to_string(r.line) + ":";
        for (std::size_t i = 0; i < r.fields.size(); ++i)
            out += (i ? "|" : "") + r.fields[i];
        out += "\n";
    }
    return out + "unclosed " + std::to_string(table.unterminatedQuoteLine);
}

TEST(CsvTest, ReadsWhatOtherProgramsWrite)
{
    const std::tuple<const char*, std::string, char, const char*> cases[] = {
        {"LF endings, no final break", "a,b\nc,d", ',', "1:a|b\n2:c|d\nunclosed 0"},
        {"CR endings", "a\rb\r", ',', "1:a\n2:b\nunclosed 0"},
        {"byte-order mark and blank lines", "\xEF\xBB\xBFx,y\r\n\r\n1,2\r\n\r\n", ',',
         "1:x|y\n3:1|2\nunclosed 0"},
        {"empty fields at either end", ",a,\n\"\"", ',', "1:|a|\n2:\nunclosed 0"},
        {"semicolons with decimal commas", "Date;Weight\n2024-03-01;\"72,5\"", ';',
         "1:Date|Weight\n2:2024-03-01|72,5\nunclosed 0"},
        {"quote inside an unquoted field is kept", "5\" tall,x", ',', "1:5\" tall|x\nunclosed 0"},
        {"unclosed quote keeps the records before it", "a,b\nc,\"d\ne,f\n", ',',
         "1:a|b\nunclosed 2"},
    };
    for (const auto& [name, text, delimiter, expected] : cases)
        EXPECT_EQ(shown(readCsv(text, delimiter)), expected) << name;
}

TEST(CsvTest, DelimiterIsFoundFromTheHeader)
{
    EXPECT_EQ(detectDelimiter("Date;Weight;\"a,b,c\"\n1,2,3,4,5"), ';');
    EXPECT_EQ(detectDelimiter("Date\tWeight\n"), '\t');
    EXPECT_EQ(detectDelimiter("Date,Weight;kg\n"), ',');
    EXPECT_EQ(detectDelimiter("Date\n"), ',');
}

TEST(FieldTextTest, ComputedNumbersKeepFourDecimalsOrFourSignificantDigits)
{
    const std::pair<double, const char*> cases[] = {
        {0.0, "0"},
        {-0.0, "0"},
        {1.0, "1"},
        {12.345678, "12.3457"},
        {-3.5, "-3.5"},
        {1234567.891, "1234567.891"},
        {0.99999, "1"},
        {0.5, "0.5"},
        {0.05, "0.05"},
        {0.0123456, "0.01235"},
        {0.000123456, "0.0001235"},
        {-0.00001234, "-0.00001234"},
        {0.00005, "0.00005"},
        {0.0009999999, "0.001"},
        {999999.99995, "1000000"},
        {-123.45004, "-123.45"},
        {1e-20, "0"},
        {1e20, "100000000000000000000"},
        {std::numeric_limits<double>::quiet_NaN(), ""},
        {std::numeric_limits<double>::infinity(), ""},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(numberText(value), text) << value;
}

TEST(FieldTextTest, StoredFloatsReadBackExactly)
{
    const float values[] = {150.3f, 21.581632f, 0.1f, 98.6f, 1e-7f, 123456.79f, -4.25f, 3.4e38f};
    for (float v : values) {
        const std::string text = storedNumberText(v);
        EXPECT_EQ(text.find('e'), std::string::npos) << text;
        const auto back = parseFloat(text);
        ASSERT_TRUE(back) << text;
        EXPECT_EQ(*back, v) << text;
    }
    EXPECT_EQ(storedNumberText(150.3f), "150.3");
}

TEST(FieldTextTest, NumbersAreReadOnlyWhenPlain)
{
    const std::tuple<const char*, bool, std::optional<double>> cases[] = {
        {"72.5", false, 72.5},         {" -1e3 ", false, -1000.0},     {"+4", false, 4.0},
        {"72,5", true, 72.5},          {"72,5", false, std::nullopt},  {"", false, std::nullopt},
        {"12kg", false, std::nullopt}, {"inf", false, std::nullopt},   {"nan", false, std::nullopt},
        {"--1", false, std::nullopt},  {"1.2.3", false, std::nullopt}, {".", false, std::nullopt},
    };
    for (const auto& [text, comma, expected] : cases)
        EXPECT_EQ(parseNumber(text, comma), expected) << text;
}

TEST(ImportDateTest, DatesOfOtherProgramsAreRead)
{
    struct Case
    {
        const char* text;
        bool dayFirst;
        std::optional<CalendarDate> date;
        int second;
    };
    const Case cases[] = {
        {"2024-02-29", false, CalendarDate{2024, 2, 29}, -1},
        {"2023-02-29", false, std::nullopt, -1},
        {"2024/03/07 06:45", false, CalendarDate{2024, 3, 7}, 6 * 3600 + 45 * 60},
        {"2024-03-07T06:45:30.250", false, CalendarDate{2024, 3, 7}, 6 * 3600 + 45 * 60 + 30},
        {"2024-03-07 7:05 PM", false, CalendarDate{2024, 3, 7}, 19 * 3600 + 5 * 60},
        {"2024-03-07 12:10 am", false, CalendarDate{2024, 3, 7}, 10 * 60},
        {"07.03.2024", false, CalendarDate{2024, 3, 7}, -1},
        {"03/07/2024", false, CalendarDate{2024, 3, 7}, -1},
        {"07/03/2024", true, CalendarDate{2024, 3, 7}, -1},
        {"13/07/2024", false, std::nullopt, -1},
        {"2024-03-07 25:00", false, std::nullopt, -1},
        {"2024-03-07 13:00 PM", false, std::nullopt, -1},
        {"2024-03-07 soon", false, std::nullopt, -1},
        {"24-03-07", false, std::nullopt, -1},
        {"", false, std::nullopt, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const auto read = parseImportedDate(c.text, c.dayFirst);
        ASSERT_EQ(read.has_value(), c.date.has_value());
        if (read) {
            EXPECT_EQ(read->date, *c.date);
            EXPECT_EQ(read->secondOfDay, c.second);
        }
    }
}

TEST(ImportDateTest, MomentsWithAZoneOrAsSecondsTakeTheLocalDate)
{
    // 2024-03-01 12:00:00 UTC, written three ways.
    const velmora::model::TimeT moment = 1709294400;
    const CalendarDate local = CalendarDate::fromTime(moment);
    for (const char* text : {"2024-03-01T12:00:00Z", "2024-03-01T14:00:00+02:00",
                             "2024-03-01 07:00:00 -0500", "1709294400"}) {
        const auto read = parseImportedDate(text, false);
        ASSERT_TRUE(read) << text;
        EXPECT_EQ(read->date, local) << text;
    }
}

} // namespace
