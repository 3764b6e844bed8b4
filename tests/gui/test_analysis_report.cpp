// The printed nutritional analysis: every row of a long goal list reaches a page, and the PDF
// holds the pages the painter reports.

#include <QFile>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <QtTest>

#include "analysis/report/AnalysisReport.h"

using namespace velmora;
using analysis::AnalysisReportContent;
using analysis::AnalysisTable;

namespace {

AnalysisReportContent reportOf(int rows)
{
    AnalysisReportContent report;
    report.title = QStringLiteral("Velmora Nutritional Analysis for Anna\nPeriod of 3/1/2026 to "
                                  "3/31/2026\n");
    report.table.state = rows > 0 ? AnalysisTable::State::Rows : AnalysisTable::State::Empty;
    for (int i = 0; i < rows; ++i) {
        analysis::AnalysisRow row;
        row.nutrient = 1000 + i;
        row.cells = {"Nutrient " + std::to_string(i), "1.0", "2.0", "-1.0"};
        report.table.rows.push_back(row);
    }
    return report;
}

// The page objects of a PDF file ("/Type /Page", not the "/Type /Pages" tree).
int pdfPageCount(const QByteArray& pdf)
{
    int count = 0;
    for (qsizetype at = pdf.indexOf("/Type /Page"); at >= 0;
         at = pdf.indexOf("/Type /Page", at + 1))
        if (at + 11 < pdf.size() && pdf[at + 11] != 's')
            ++count;
    return count;
}

// Pages painted for a table on an A4 writer with the given margins.
int paintedPages(const AnalysisReportContent& report, double marginMm, QByteArray* pdf)
{
    QBuffer buffer(pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                     QMarginsF(marginMm, marginMm, marginMm, marginMm),
                                     QPageLayout::Millimeter));
    QPainter painter(&writer);
    const int pages = analysis::paintAnalysisReport(painter, writer, report);
    painter.end();
    return pages;
}

} // namespace

class AnalysisReportTest : public QObject
{
    Q_OBJECT

private slots:
    void pagesHoldEveryRow()
    {
        // Rows per page on A4 with 18 mm margins, from one page of a short list: the capacity grows
        // with the rows until a second page is needed.
        int previous = 0;
        int firstTwoPages = -1;
        for (int rows : {0, 1, 20, 40, 60, 120, 400}) {
            QByteArray pdf;
            const int pages = paintedPages(reportOf(rows), 18.0, &pdf);
            QCOMPARE(pdfPageCount(pdf), pages);
            QVERIFY2(pages >= previous, qPrintable(QString::number(rows)));
            previous = pages;
            if (pages >= 2 && firstTwoPages < 0)
                firstTwoPages = rows;
            // A page holds at least 20 and at most 80 rows of 10 point type on A4.
            QVERIFY2(pages >= std::max(1, (rows + 79) / 80), qPrintable(QString::number(rows)));
            QVERIFY2(pages <= std::max(1, (rows + 19) / 20), qPrintable(QString::number(rows)));
        }
        QVERIFY(firstTwoPages > 20);

        // Wider margins leave less room: never fewer pages.
        QByteArray narrow, wide;
        QVERIFY(paintedPages(reportOf(400), 40.0, &wide) >
                paintedPages(reportOf(400), 10.0, &narrow));
    }

    void pdfIsWrittenWhole()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("report.pdf"));
        QString error;
        QVERIFY2(analysis::writeAnalysisPdf(path, reportOf(150), &error), qPrintable(error));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray pdf = file.readAll();
        QVERIFY(pdf.startsWith("%PDF-"));
        QVERIFY(pdfPageCount(pdf) >= 3);

        // A folder that does not exist: refused, nothing written.
        const QString missing = dir.filePath(QStringLiteral("no/such/report.pdf"));
        QVERIFY(!analysis::writeAnalysisPdf(missing, reportOf(3), &error));
        QVERIFY(!error.isEmpty());
        QVERIFY(!QFile::exists(missing));
    }
};

QTEST_MAIN(AnalysisReportTest)
#include "test_analysis_report.moc"
