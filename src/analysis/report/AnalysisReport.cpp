#include "analysis/report/AnalysisReport.h"

#include <algorithm>

#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include "analysis/logic/ReportPages.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::analysis {

namespace {

// Shares of the width of the four columns: the name, then three numbers.
constexpr std::array<double, 4> ColumnShares{0.46, 0.18, 0.18, 0.18};

struct ReportLayout
{
    QFont titleFont;
    QFont headingFont;
    QFont rowFont;
    QFont footFont;
    double width = 0.0;
    double height = 0.0;
    double titleHeight = 0.0;
    double headingHeight = 0.0;
    double rowHeight = 0.0;
    double footHeight = 0.0;

    ReportLayout(QPagedPaintDevice& device, const QString& title)
    {
        titleFont.setPointSizeF(13.0);
        titleFont.setBold(true);
        headingFont.setPointSizeF(10.0);
        headingFont.setBold(true);
        rowFont.setPointSizeF(10.0);
        footFont.setPointSizeF(8.5);
        width = device.width();
        height = device.height();
        const QFontMetricsF titleMetrics(titleFont, &device);
        const int titleLines = static_cast<int>(title.trimmed().count(QLatin1Char('\n'))) + 1;
        titleHeight = titleMetrics.lineSpacing() * (titleLines + 0.8);
        headingHeight = QFontMetricsF(headingFont, &device).lineSpacing() * 1.6;
        rowHeight = QFontMetricsF(rowFont, &device).lineSpacing() * 1.35;
        footHeight = QFontMetricsF(footFont, &device).lineSpacing() * 2.0;
    }

    std::size_t rowsFitting(bool withTitle) const
    {
        const double room = height - headingHeight - footHeight - (withTitle ? titleHeight : 0.0);
        return static_cast<std::size_t>(std::max(1.0, room / rowHeight));
    }
};

void paintCells(QPainter& painter, const ReportLayout& layout, double y, double h,
                const std::array<QString, 4>& cells)
{
    double x = 0.0;
    const double pad = layout.width * 0.01;
    for (std::size_t c = 0; c < cells.size(); ++c) {
        const double w = layout.width * ColumnShares[c];
        const Qt::Alignment align = Qt::AlignVCenter | (c == 0 ? Qt::AlignLeft : Qt::AlignRight);
        painter.drawText(QRectF(x + pad, y, w - 2 * pad, h), align, cells[c]);
        x += w;
    }
}

} // namespace

AnalysisReportContent analysisReport(const model::Store& store, model::CalendarDate from,
                                     model::CalendarDate to)
{
    const auto& names = store.shared.userNames;
    const std::string name =
        store.shared.currentUser < names.size() ? names[store.shared.currentUser] : std::string();
    AnalysisReportContent report;
    report.title = QString::fromUtf8(
        reportTitle(model::cp1252ToUtf8(name), from, to, store.journal.user.isMetric()));
    report.table = buildAnalysis(store, from, to);
    return report;
}

int paintAnalysisReport(QPainter& painter, QPagedPaintDevice& device,
                        const AnalysisReportContent& report)
{
    const ReportLayout layout(device, report.title);
    const auto& rows = report.table.rows;
    const auto pages =
        paginateReport(rows.size(), layout.rowsFitting(true), layout.rowsFitting(false));
    const std::array<QString, 4> headings{
        QString::fromUtf8(AnalysisHeadings[0]), QString::fromUtf8(AnalysisHeadings[1]),
        QString::fromUtf8(AnalysisHeadings[2]), QString::fromUtf8(AnalysisHeadings[3])};
    const QPen rule(Qt::black, std::max(1.0, device.logicalDpiX() / 150.0));

    for (const ReportPage& page : pages) {
        if (page.number > 1)
            device.newPage();
        double y = 0.0;
        if (page.withTitle) {
            painter.setFont(layout.titleFont);
            painter.setPen(Qt::black);
            painter.drawText(QRectF(0, 0, layout.width, layout.titleHeight),
                             Qt::AlignLeft | Qt::AlignTop, report.title.trimmed());
            y += layout.titleHeight;
        }

        painter.setFont(layout.headingFont);
        painter.setPen(Qt::black);
        paintCells(painter, layout, y, layout.headingHeight, headings);
        y += layout.headingHeight;
        painter.setPen(rule);
        painter.drawLine(QPointF(0, y), QPointF(layout.width, y));

        painter.setFont(layout.rowFont);
        painter.setPen(Qt::black);
        if (report.table.state == AnalysisTable::State::GoalsNotSet) {
            painter.drawText(QRectF(0, y, layout.width, layout.rowHeight * 2),
                             Qt::AlignLeft | Qt::AlignVCenter, QString::fromUtf8(GoalsNotSetText));
        }
        for (std::size_t r = page.firstRow; r < page.firstRow + page.rowCount; ++r) {
            // Every other row lightly shaded, so a long line is easy to follow across.
            if ((r - page.firstRow) % 2 == 1)
                painter.fillRect(QRectF(0, y, layout.width, layout.rowHeight),
                                 QColor(238, 238, 238));
            const auto& cells = rows[r].cells;
            paintCells(painter, layout, y, layout.rowHeight,
                       {QString::fromUtf8(cells[0]), QString::fromUtf8(cells[1]),
                        QString::fromUtf8(cells[2]), QString::fromUtf8(cells[3])});
            y += layout.rowHeight;
        }

        const double footTop = layout.height - layout.footHeight;
        painter.setPen(rule);
        painter.drawLine(QPointF(0, footTop), QPointF(layout.width, footTop));
        painter.setPen(Qt::black);
        painter.setFont(layout.footFont);
        const QRectF foot(0, footTop, layout.width, layout.footHeight);
        painter.drawText(foot, Qt::AlignLeft | Qt::AlignVCenter, QString::fromUtf8(ReportFootnote));
        painter.drawText(foot, Qt::AlignRight | Qt::AlignVCenter, QString::fromUtf8(page.pageText));
    }
    return static_cast<int>(pages.size());
}

bool writeAnalysisPdf(const QString& path, const AnalysisReportContent& report, QString* error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error != nullptr)
            *error = file.errorString();
        return false;
    }
    {
        QPdfWriter writer(&file);
        writer.setTitle(report.title.section(QLatin1Char('\n'), 0, 0));
        writer.setCreator(QStringLiteral("Velmora"));
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                         QMarginsF(18, 18, 18, 18), QPageLayout::Millimeter));
        QPainter painter;
        if (!painter.begin(&writer)) {
            if (error != nullptr)
                *error = QStringLiteral("The PDF could not be started.");
            file.cancelWriting();
            return false;
        }
        paintAnalysisReport(painter, writer, report);
        painter.end();
    }
    if (!file.commit()) {
        if (error != nullptr)
            *error = file.errorString();
        return false;
    }
    return true;
}

} // namespace velmora::analysis
