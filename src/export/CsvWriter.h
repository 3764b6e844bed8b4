#pragma once

#include <string>
#include <string_view>

namespace velmora::exchange {

// Builds an RFC 4180 CSV text in memory: fields separated by commas, records ended by CRLF, a
// field quoted (with its quotes doubled) when it holds a comma, a quote, a line break or blanks
// at either end. Texts are taken as UTF-8 and written unchanged.
class CsvWriter
{
public:
    void text(std::string_view utf8);
    // A computed value as numberText() writes it.
    void number(double value);
    // A stored 32-bit float as storedNumberText() writes it.
    void storedNumber(float value);
    // A stored value where 0 means "not recorded": an empty field for 0.
    void storedNumberOrEmpty(float value);
    void integer(long long value);
    void empty();
    void endRow();

    // A whole header row.
    template <class Range> void header(const Range& names)
    {
        for (const auto& n : names)
            text(n);
        endRow();
    }

    const std::string& result() const { return m_out; }
    std::string take() { return std::move(m_out); }
    void reserve(std::size_t n) { m_out.reserve(n); }

private:
    void separate();

    std::string m_out;
    bool m_rowStarted = false;
};

} // namespace velmora::exchange
