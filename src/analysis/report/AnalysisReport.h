#pragma once

#include <QString>

#include "analysis/logic/NutritionAnalysis.h"

class QPagedPaintDevice;
class QPainter;

namespace velmora::model {
class Store;
}

namespace velmora::analysis {

// What the printed nutritional analysis shows: the title ("Velmora Nutritional Analysis for ...")
// and the table as the graphs page shows it.
struct AnalysisReportContent
{
    QString title;
    AnalysisTable table;
};

// The report of the current user over the local dates from .. to, both included.
AnalysisReportContent analysisReport(const model::Store& store, model::CalendarDate from,
                                     model::CalendarDate to);

// Paints the report onto the pages of device through painter, which must be active on device:
// the title at the head of the first page, then the column headings and as many rows as fit on
// each page, with the footnote and "Page %d of %d" at the foot of every page. Fonts are sized in
// points, so the layout holds on any resolution. Returns the number of pages painted (at least
// one; a table without rows prints the title and headings alone, a table whose goals are not set
// prints the goals-not-set text in place of the rows).
int paintAnalysisReport(QPainter& painter, QPagedPaintDevice& device,
                        const AnalysisReportContent& report);

// Writes the report as a PDF file of A4 pages. The file is replaced only once the whole report is
// written; on failure it is left as it was and false is returned with the reason in error.
bool writeAnalysisPdf(const QString& path, const AnalysisReportContent& report,
                      QString* error = nullptr);

} // namespace velmora::analysis
