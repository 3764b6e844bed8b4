#include "export/ImportDate.h"

#include <cctype>
#include <charconv>
#include <ctime>

#include "export/FieldText.h"

namespace velmora::exchange {

namespace {

// A small cursor over the text.
struct Scanner
{
    std::string_view text;
    std::size_t pos = 0;

    bool atEnd() const { return pos >= text.size(); }
    char peek() const { return atEnd() ? '\0' : text[pos]; }
    bool take(char c)
    {
        if (peek() != c)
            return false;
        ++pos;
        return true;
    }
    // Digits at the cursor (at most maxDigits); how many were read goes to count.
    bool number(int& value, int& count, int maxDigits)
    {
        const std::size_t start = pos;
        while (!atEnd() && std::isdigit(static_cast<unsigned char>(peek())) &&
               pos - start < static_cast<std::size_t>(maxDigits))
            ++pos;
        count = static_cast<int>(pos - start);
        if (count == 0)
            return false;
        std::from_chars(text.data() + start, text.data() + pos, value);
        return true;
    }
    void skipBlanks()
    {
        while (peek() == ' ' || peek() == '\t')
            ++pos;
    }
};

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

ImportedDate localOf(model::TimeT t)
{
    const std::tm f = localFields(t);
    return ImportedDate{model::CalendarDate{f.tm_year + 1900, f.tm_mon + 1, f.tm_mday},
                        f.tm_hour * 3600 + f.tm_min * 60 + f.tm_sec};
}

bool allDigits(std::string_view s)
{
    if (s.empty())
        return false;
    for (char c : s)
        if (!std::isdigit(static_cast<unsigned char>(c)))
            return false;
    return true;
}

// The date part: three numbers with one separator.
bool readDate(Scanner& in, bool dayFirst, model::CalendarDate& out)
{
    int a = 0, b = 0, c = 0, na = 0, nb = 0, nc = 0;
    if (!in.number(a, na, 4))
        return false;
    const char sep = in.peek();
    if (sep != '-' && sep != '/' && sep != '.')
        return false;
    ++in.pos;
    if (!in.number(b, nb, 2) || !in.take(sep) || !in.number(c, nc, 4))
        return false;
    if (na == 4 && nc <= 2)
        out = {a, b, c};
    else if (na <= 2 && nc == 4)
        out =
            (sep == '.' || dayFirst) ? model::CalendarDate{c, b, a} : model::CalendarDate{c, a, b};
    else
        return false;
    return isValidDate(out.year, out.month, out.day);
}

// "HH:MM[:SS[.fff]]" with an optional AM/PM; the seconds of the day.
bool readTime(Scanner& in, int& seconds)
{
    int h = 0, m = 0, s = 0, n = 0;
    if (!in.number(h, n, 2) || !in.take(':') || !in.number(m, n, 2) || n != 2)
        return false;
    if (in.take(':')) {
        if (!in.number(s, n, 2) || n != 2)
            return false;
        if (in.take('.') || in.take(',')) {
            int fraction = 0;
            if (!in.number(fraction, n, 9))
                return false;
        }
    }
    Scanner probe = in;
    probe.skipBlanks();
    const auto upper = [](char c) {
        return static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    };
    if ((upper(probe.peek()) == 'A' || upper(probe.peek()) == 'P') &&
        probe.pos + 1 < probe.text.size() && upper(probe.text[probe.pos + 1]) == 'M') {
        if (h < 1 || h > 12)
            return false;
        const bool pm = upper(probe.peek()) == 'P';
        h = h % 12 + (pm ? 12 : 0);
        in.pos = probe.pos + 2;
    }
    if (h > 23 || m > 59 || s > 60)
        return false;
    seconds = h * 3600 + m * 60 + (s > 59 ? 59 : s);
    return true;
}

// "Z", "+hh:mm", "-hhmm", "+hh": the zone's offset east of UTC in seconds.
bool readZone(Scanner& in, bool& present, int& offset)
{
    present = false;
    if (in.take('Z') || in.take('z')) {
        present = true;
        offset = 0;
        return true;
    }
    const char sign = in.peek();
    if (sign != '+' && sign != '-')
        return true;
    ++in.pos;
    int h = 0, m = 0, n = 0;
    if (!in.number(h, n, 2) || n != 2)
        return false;
    in.take(':');
    if (!in.atEnd() && !in.number(m, n, 2))
        return false;
    if (h > 14 || m > 59)
        return false;
    present = true;
    offset = (sign == '-' ? -1 : 1) * (h * 3600 + m * 60);
    return true;
}

} // namespace

std::optional<ImportedDate> parseImportedDate(std::string_view text, bool dayFirst)
{
    text = trimmed(text);
    if (allDigits(text) && (text.size() == 9 || text.size() == 10)) {
        long long seconds = 0;
        std::from_chars(text.data(), text.data() + text.size(), seconds);
        return localOf(static_cast<model::TimeT>(seconds));
    }

    Scanner in{text};
    ImportedDate result;
    if (!readDate(in, dayFirst, result.date))
        return std::nullopt;
    if (in.atEnd())
        return result;
    if (!in.take('T') && !in.take('t')) {
        if (in.peek() != ' ' && in.peek() != '\t' && in.peek() != ',')
            return std::nullopt;
        in.take(',');
        in.skipBlanks();
    }
    int seconds = 0;
    if (!readTime(in, seconds))
        return std::nullopt;
    in.skipBlanks();
    bool zoned = false;
    int offset = 0;
    if (!readZone(in, zoned, offset))
        return std::nullopt;
    in.skipBlanks();
    if (!in.atEnd())
        return std::nullopt;
    if (!zoned) {
        result.secondOfDay = seconds;
        return result;
    }
    const model::TimeT utc =
        static_cast<model::TimeT>(result.date.dayNumber()) * 86400 + seconds - offset;
    return localOf(utc);
}

} // namespace velmora::exchange
