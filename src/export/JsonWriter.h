#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/JsonWriter.h" // appendJsonString

namespace velmora::exchange {

// A small streaming JSON writer into memory. Texts are taken as UTF-8. Output is compact; with
// breakLines() each element of the current array starts on a line of its own, which keeps big
// documents readable line by line (one day per line) without the size of full indentation.
class JsonWriter
{
public:
    void beginObject(std::string_view key = {});
    void endObject();
    void beginArray(std::string_view key = {});
    void endArray();
    // Elements of the array just begun start on new lines.
    void breakLines();

    void text(std::string_view key, std::string_view utf8);
    // A computed value as numberText() writes it; null when not finite.
    void number(std::string_view key, double value);
    // A stored 32-bit float as storedNumberText() writes it.
    void storedNumber(std::string_view key, float value);
    void integer(std::string_view key, long long value);
    void null(std::string_view key);
    // A value already written as JSON (a number text, or "null").
    void raw(std::string_view key, std::string_view json);

    void reserve(std::size_t bytes) { m_out.reserve(bytes); }
    const std::string& result() const { return m_out; }
    std::string take() { return std::move(m_out); }

private:
    struct Level
    {
        bool first = true;
        bool breakLines = false;
    };
    void prefix(std::string_view key);
    void quoted(std::string_view utf8) { model::appendJsonString(m_out, utf8); }

    std::string m_out;
    std::vector<Level> m_levels;
};

} // namespace velmora::exchange
