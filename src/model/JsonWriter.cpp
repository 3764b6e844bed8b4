#include "model/JsonWriter.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "model/TextCodec.h"

namespace velmora::model {

void JsonWriter::prefix(const char* key)
{
    if (!m_first.empty()) {
        if (!m_first.back())
            m_out += ',';
        m_first.back() = false;
        m_out += '\n';
        m_out.append(m_first.size() * 2, ' ');
    }
    if (key) {
        quoted(key);
        m_out += ": ";
    }
}

void appendJsonString(std::string& out, std::string_view utf8)
{
    out += '"';
    for (unsigned char c : utf8) {
        switch (c) {
        case '"':
            out += "\\\"";
            break;
        case '\\':
            out += "\\\\";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (c < 0x20) {
                char buf[8];
                std::snprintf(buf, sizeof buf, "\\u%04x", c);
                out += buf;
            } else {
                out += static_cast<char>(c);
            }
        }
    }
    out += '"';
}

void JsonWriter::beginObject(const char* key)
{
    prefix(key);
    m_out += '{';
    m_first.push_back(true);
}

void JsonWriter::endObject()
{
    const bool empty = m_first.back();
    m_first.pop_back();
    if (!empty) {
        m_out += '\n';
        m_out.append(m_first.size() * 2, ' ');
    }
    m_out += '}';
    if (m_first.empty())
        m_out += '\n';
}

void JsonWriter::beginArray(const char* key)
{
    prefix(key);
    m_out += '[';
    m_first.push_back(true);
}

void JsonWriter::endArray()
{
    const bool empty = m_first.back();
    m_first.pop_back();
    if (!empty) {
        m_out += '\n';
        m_out.append(m_first.size() * 2, ' ');
    }
    m_out += ']';
}

void JsonWriter::text(const char* key, const std::string& cp1252)
{
    prefix(key);
    quoted(cp1252ToUtf8(cp1252));
}

void JsonWriter::integer(const char* key, std::int64_t v)
{
    prefix(key);
    m_out += std::to_string(v);
}

void JsonWriter::number(const char* key, double v)
{
    prefix(key);
    if (!std::isfinite(v)) {
        m_out += "null"; // JSON has no infinities or non-numbers
        return;
    }
    char buf[40];
    // The shortest of %.6g .. %.17g that reads back as the same value.
    for (int precision = 6; precision <= 17; ++precision) {
        std::snprintf(buf, sizeof buf, "%.*g", precision, v);
        if (std::strtod(buf, nullptr) == v)
            break;
    }
    m_out += buf;
}

void JsonWriter::real(const char* key, float v)
{
    prefix(key);
    if (!std::isfinite(v)) {
        m_out += "null";
        return;
    }
    char buf[40];
    for (int precision = 6; precision <= 9; ++precision) {
        std::snprintf(buf, sizeof buf, "%.*g", precision, static_cast<double>(v));
        if (std::strtof(buf, nullptr) == v)
            break;
    }
    m_out += buf;
}

void JsonWriter::boolean(const char* key, bool v)
{
    prefix(key);
    m_out += v ? "true" : "false";
}

void JsonWriter::time(const char* key, TimeT t)
{
    // By the calendar arithmetic of <chrono>, not the C library: the handheld files hold signed
    // times, and gmtime refuses times before 1970 on some systems.
    using namespace std::chrono;
    const sys_seconds moment{seconds{static_cast<std::int64_t>(t)}};
    const sys_days day = floor<days>(moment);
    const year_month_day date{day};
    const hh_mm_ss clock{moment - day};
    char buf[80];
    std::snprintf(buf, sizeof buf, "%04d-%02u-%02uT%02d:%02d:%02dZ", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
    prefix(key);
    quoted(buf);
}

} // namespace velmora::model
