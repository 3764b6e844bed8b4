#include "analysis/logic/ReportPages.h"

#include <algorithm>

#include "model/FoodDatabase.h"

namespace velmora::analysis {

const char* const ReportFootnote =
    "* Weight loss is estimated based on 3500 kcal per lb. or 0.45kg";

std::string reportTitle(const std::string& userName, model::CalendarDate from,
                        model::CalendarDate to, bool metric)
{
    const std::string first = model::shortDateText(from.year, from.month, from.day, metric, true);
    const std::string last = model::shortDateText(to.year, to.month, to.day, metric, true);
    return model::formatText("Velmora Nutritional Analysis for %s\nPeriod of %s to %s\n",
                             userName.c_str(), first.c_str(), last.c_str());
}

std::vector<ReportPage> paginateReport(std::size_t rowCount, std::size_t firstPageRows,
                                       std::size_t rowsPerPage)
{
    firstPageRows = std::max<std::size_t>(firstPageRows, 1);
    rowsPerPage = std::max<std::size_t>(rowsPerPage, 1);
    std::vector<ReportPage> pages;
    std::size_t row = 0;
    do {
        ReportPage page;
        page.number = static_cast<int>(pages.size()) + 1;
        page.withTitle = pages.empty();
        page.firstRow = row;
        page.rowCount = std::min(rowCount - row, page.withTitle ? firstPageRows : rowsPerPage);
        row += page.rowCount;
        pages.push_back(page);
    } while (row < rowCount);
    const int total = static_cast<int>(pages.size());
    for (ReportPage& page : pages)
        page.pageText = model::formatText("Page %d of %d", page.number, total);
    return pages;
}

} // namespace velmora::analysis
