#include "export/CsvReader.h"

namespace velmora::exchange {

namespace {

std::string_view withoutByteOrderMark(std::string_view text)
{
    if (text.size() >= 3 && text.substr(0, 3) == "\xEF\xBB\xBF")
        text.remove_prefix(3);
    return text;
}

} // namespace

CsvTable readCsv(std::string_view text, char delimiter)
{
    text = withoutByteOrderMark(text);
    CsvTable table;
    CsvRecord record;
    std::string field;
    int line = 1;
    record.line = 1;
    bool inQuotes = false;
    bool fieldQuoted = false;
    bool fieldStarted = false; // anything of the record read: a blank line gives no record
    int quoteLine = 0;

    const auto endField = [&] {
        record.fields.push_back(std::move(field));
        field.clear();
        fieldQuoted = false;
    };
    const auto endRecord = [&] {
        if (fieldStarted || !record.fields.empty()) {
            endField();
            table.records.push_back(std::move(record));
        }
        record = CsvRecord{};
        fieldStarted = false;
    };

    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (inQuotes) {
            if (c == '"') {
                if (i + 1 < text.size() && text[i + 1] == '"') {
                    field += '"';
                    ++i;
                } else {
                    inQuotes = false;
                }
            } else {
                if (c == '\n' || (c == '\r' && !(i + 1 < text.size() && text[i + 1] == '\n')))
                    ++line;
                field += c;
            }
            continue;
        }
        if (c == '\r' || c == '\n') {
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
            endRecord();
            ++line;
            record.line = line;
            continue;
        }
        fieldStarted = true;
        if (c == delimiter) {
            endField();
        } else if (c == '"' && field.empty() && !fieldQuoted) {
            inQuotes = true;
            fieldQuoted = true;
            quoteLine = line;
        } else {
            field += c;
        }
    }
    if (inQuotes) {
        table.unterminatedQuoteLine = quoteLine;
        return table;
    }
    endRecord();
    return table;
}

char detectDelimiter(std::string_view text)
{
    text = withoutByteOrderMark(text);
    int commas = 0, semicolons = 0, tabs = 0;
    bool inQuotes = false;
    for (char c : text) {
        if (c == '"')
            inQuotes = !inQuotes;
        else if (!inQuotes && (c == '\n' || c == '\r'))
            break;
        else if (!inQuotes && c == ',')
            ++commas;
        else if (!inQuotes && c == ';')
            ++semicolons;
        else if (!inQuotes && c == '\t')
            ++tabs;
    }
    if (semicolons > commas && semicolons >= tabs)
        return ';';
    if (tabs > commas && tabs > semicolons)
        return '\t';
    return ',';
}

} // namespace velmora::exchange
