#include "export/CsvWriter.h"

#include "export/FieldText.h"

namespace velmora::exchange {

void CsvWriter::separate()
{
    if (m_rowStarted)
        m_out += ',';
    m_rowStarted = true;
}

void CsvWriter::text(std::string_view utf8)
{
    separate();
    bool quote = !utf8.empty() && (utf8.front() == ' ' || utf8.back() == ' ' ||
                                   utf8.front() == '\t' || utf8.back() == '\t');
    for (char c : utf8) {
        if (c == ',' || c == '"' || c == '\r' || c == '\n') {
            quote = true;
            break;
        }
    }
    if (!quote) {
        m_out += utf8;
        return;
    }
    m_out += '"';
    for (char c : utf8) {
        if (c == '"')
            m_out += '"';
        m_out += c;
    }
    m_out += '"';
}

void CsvWriter::number(double value)
{
    separate();
    appendNumber(m_out, value);
}

void CsvWriter::storedNumber(float value)
{
    separate();
    appendStoredNumber(m_out, value);
}

void CsvWriter::storedNumberOrEmpty(float value)
{
    separate();
    if (value != 0.0f)
        appendStoredNumber(m_out, value);
}

void CsvWriter::integer(long long value)
{
    separate();
    m_out += std::to_string(value);
}

void CsvWriter::empty()
{
    separate();
}

void CsvWriter::endRow()
{
    m_out += "\r\n";
    m_rowStarted = false;
}

} // namespace velmora::exchange
