#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmora::exchange {

// One record of a CSV text and the line (from 1) on which it starts.
struct CsvRecord
{
    int line = 0;
    std::vector<std::string> fields;
};

// The records of a CSV text. A quoted field that is still open at the end of the text ends the
// reading: the records before it are kept and unterminatedQuoteLine names the line where it
// began (0 when the text was read to its end).
struct CsvTable
{
    std::vector<CsvRecord> records;
    int unterminatedQuoteLine = 0;
};

// Reads a CSV text by RFC 4180: fields separated by the delimiter, records ended by CRLF, LF or
// CR, quoted fields with doubled quotes that may hold delimiters and line breaks. Leniently, a
// quote inside an unquoted field is taken as it is, and text after a closing quote is added to
// the field. A UTF-8 byte-order mark at the start is skipped; blank lines give no record. The
// fields are returned as they are written (no encoding conversion, no trimming).
CsvTable readCsv(std::string_view text, char delimiter = ',');

// The delimiter of a CSV text as files written by other programs use it: whichever of comma,
// semicolon and tab occurs most often outside quotes on the first line; comma when none does.
char detectDelimiter(std::string_view text);

} // namespace velmora::exchange
