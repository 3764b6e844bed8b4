#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/Archive.h"

namespace velmora::model {

// Appends utf8 to out as a quoted JSON string: quotes, backslashes and control characters escaped.
void appendJsonString(std::string& out, std::string_view utf8);

// A small streaming JSON writer with two-space indentation. Texts are taken as Windows-1252 bytes
// (as the files store them) and written as escaped UTF-8.
class JsonWriter
{
public:
    void beginObject(const char* key = nullptr);
    void endObject();
    void beginArray(const char* key = nullptr);
    void endArray();

    void text(const char* key, const std::string& cp1252);
    void integer(const char* key, std::int64_t v);
    void number(const char* key, double v); // shortest form that reads back as the same float
    // A stored 32-bit float in the shortest form that reads back as the same float.
    void real(const char* key, float v);
    void boolean(const char* key, bool v);
    // A time as "YYYY-MM-DDTHH:MM:SSZ" (UTC).
    void time(const char* key, TimeT t);

    const std::string& result() const { return m_out; }

private:
    void prefix(const char* key);
    void quoted(std::string_view utf8) { appendJsonString(m_out, utf8); }

    std::string m_out;
    std::vector<bool> m_first; // per open container: nothing written in it yet
};

} // namespace velmora::model
