#include "export/JsonWriter.h"

#include <cmath>

#include "export/FieldText.h"
#include "model/FoodDatabase.h"

namespace velmora::exchange {

void JsonWriter::prefix(std::string_view key)
{
    if (!m_levels.empty()) {
        Level& level = m_levels.back();
        if (!level.first)
            m_out += ',';
        if (level.breakLines)
            m_out += '\n';
        level.first = false;
    }
    if (!key.empty()) {
        quoted(key);
        m_out += ':';
    }
}

void JsonWriter::beginObject(std::string_view key)
{
    prefix(key);
    m_out += '{';
    m_levels.push_back({});
}

void JsonWriter::endObject()
{
    const bool broken = m_levels.back().breakLines;
    m_levels.pop_back();
    if (broken)
        m_out += '\n';
    m_out += '}';
    if (m_levels.empty())
        m_out += '\n';
}

void JsonWriter::beginArray(std::string_view key)
{
    prefix(key);
    m_out += '[';
    m_levels.push_back({});
}

void JsonWriter::endArray()
{
    const bool broken = m_levels.back().breakLines;
    m_levels.pop_back();
    if (broken)
        m_out += '\n';
    m_out += ']';
}

void JsonWriter::breakLines()
{
    m_levels.back().breakLines = true;
}

void JsonWriter::text(std::string_view key, std::string_view utf8)
{
    prefix(key);
    quoted(utf8);
}

void JsonWriter::number(std::string_view key, double value)
{
    prefix(key);
    if (!std::isfinite(value))
        m_out += "null";
    else
        appendNumber(m_out, value);
}

void JsonWriter::storedNumber(std::string_view key, float value)
{
    prefix(key);
    if (!std::isfinite(value))
        m_out += "null";
    else
        appendStoredNumber(m_out, value);
}

void JsonWriter::integer(std::string_view key, long long value)
{
    prefix(key);
    m_out += std::to_string(value);
}

void JsonWriter::null(std::string_view key)
{
    prefix(key);
    m_out += "null";
}

void JsonWriter::raw(std::string_view key, std::string_view json)
{
    prefix(key);
    m_out += json;
}

} // namespace velmora::exchange
