// The printed nutritional analysis of a year of a ten-year journal with a goal list of 40
// nutrients: painting its pages into a PDF in memory, and writing the PDF file.
#include <benchmark/benchmark.h>

#include <QBuffer>
#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include "analysis/report/AnalysisReport.h"
#include "model/Store.h"
#include "model/User.h"
#include "support/Builders.h"

using namespace velmora;

namespace {

struct YearReport
{
    model::Store store;
    analysis::AnalysisReportContent report;
    bool realFoods = false;

    YearReport()
    {
        auto foods = model::FoodDatabase::load(VELMORA_FOODS_DB);
        realFoods = foods.ok();
        store.foods = realFoods ? foods.take() : test::generatedFoods(2000);
        store.foods.catalogue().appendComputed();
        store.journal.days =
            test::generatedJournal(store.foods, test::JournalShape{3650, 4, 6, 1, 1});
        store.shared.userNames = {"Example User"};
        model::User& user = store.journal.user;
        // Forty goals: the new user's list, then catalogue entries until there are forty.
        user.goalNutrients = model::defaultGoalNutrients(store.foods);
        for (const auto& def : store.foods.catalogue().entries()) {
            if (user.goalNutrients.size() >= 40)
                break;
            if (std::find(user.goalNutrients.begin(), user.goalNutrients.end(), def.number) ==
                user.goalNutrients.end())
                user.goalNutrients.push_back(def.number);
        }
        user.goalNutrients.resize(std::min<std::size_t>(user.goalNutrients.size(), 40));
        user.goalValues.assign(user.goalNutrients.size(), 100.0f);
        report = analysis::analysisReport(store, {2019, 1, 1}, {2019, 12, 31});
    }
};

YearReport& yearReport()
{
    static YearReport data;
    return data;
}

void BM_ReportPdfInMemory(benchmark::State& state)
{
    YearReport& data = yearReport();
    if (data.report.table.rows.size() != 40)
        state.SkipWithError("the table does not hold 40 rows");
    int pages = 0;
    for (auto _ : state) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        QPainter painter(&writer);
        pages = analysis::paintAnalysisReport(painter, writer, data.report);
        painter.end();
        benchmark::DoNotOptimize(bytes.data());
    }
    state.counters["pages"] = pages;
    state.counters["rows"] = static_cast<double>(data.report.table.rows.size());
    state.counters["foods.db"] = data.realFoods ? 1 : 0;
}
BENCHMARK(BM_ReportPdfInMemory)->Unit(benchmark::kMillisecond);

void BM_ReportPdfFile(benchmark::State& state)
{
    YearReport& data = yearReport();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("report.pdf"));
    for (auto _ : state)
        if (!analysis::writeAnalysisPdf(path, data.report))
            state.SkipWithError("the PDF was not written");
}
BENCHMARK(BM_ReportPdfFile)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    // Fonts need a GUI application; no display is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
