#include "analysis/AnalysisPreview.h"

#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QWidget>

namespace velmora::analysis {

void previewAnalysisReport(QWidget* parent, const AnalysisReportContent& report)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(QStringLiteral("Velmora"));
    printer.setPageMargins(QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter);
    QPrintPreviewDialog preview(&printer, parent);
    preview.setWindowTitle(QStringLiteral("Print Preview"));
    preview.resize(parent != nullptr ? parent->window()->size() * 0.9 : QSize(900, 700));
    QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                     [&report](QPrinter* target) {
                         QPainter painter(target);
                         paintAnalysisReport(painter, *target, report);
                     });
    preview.exec();
}

} // namespace velmora::analysis
