#pragma once

#include "analysis/report/AnalysisReport.h"

class QWidget;

namespace velmora::analysis {

// Shows the print preview of the report; its print button leads to the print dialog, where a
// printer or a PDF file is chosen.
void previewAnalysisReport(QWidget* parent, const AnalysisReportContent& report);

} // namespace velmora::analysis
