#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "model/DateText.h"

namespace velmora::analysis {

// The footnote of every printed page ("* Weight loss is estimated ...").
extern const char* const ReportFootnote;

// "Velmora Nutritional Analysis for %s\nPeriod of %s to %s\n": the user's name (UTF-8) and the
// period's dates as short date texts with the year, in the order of the unit setting.
std::string reportTitle(const std::string& userName, model::CalendarDate from,
                        model::CalendarDate to, bool metric);

// One printed page: which rows of the table it holds and its "Page %d of %d" text.
struct ReportPage
{
    int number = 1;           // from 1
    bool withTitle = false;   // the title stands at the head of the report, on page 1
    std::size_t firstRow = 0; // position in the table's rows
    std::size_t rowCount = 0;
    std::string pageText; // "Page 2 of 3"
};

// Splits rowCount rows into pages: the first page, below the title, holds up to firstPageRows
// rows, every later one up to rowsPerPage (each at least 1). An empty table makes one page with the
// title alone. Every page carries the headings, the footnote and its page text; the painter
// measures how many rows fit and only draws.
std::vector<ReportPage> paginateReport(std::size_t rowCount, std::size_t firstPageRows,
                                       std::size_t rowsPerPage);

} // namespace velmora::analysis
