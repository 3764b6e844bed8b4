// The food page's interactive paths: a search for a common word over the whole food database with
// the refill of the food list widget (target under 20 ms together), and the totals and both pies
// of a day of 40 entries (target under 2 ms).

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>

#include <filesystem>
#include <memory>

#include "ui/AppContext.h"
#include "charts/PieChart.h"
#include "food/FoodChooser.h"
#include "food/MacroPanel.h"
#include "food/logic/FoodSearch.h"
#include "food/logic/MealEditing.h"
#include "model/Store.h"
#include "support/Builders.h"

using namespace velmora;

namespace {

class BenchContext : public ui::AppContext
{
public:
    model::Store& store() override { return m_store; }
    void refreshAllPages() override {}
    void notifyChanged(ui::Change) override {}
    void showStatus(const QString&) override {}
    QWidget* mainWindow() override { return nullptr; }
    model::Store m_store;
};

// The real database when it has been built, otherwise a generated one of the same size.
BenchContext& context()
{
    static std::unique_ptr<BenchContext> c = [] {
        auto ctx = std::make_unique<BenchContext>();
        auto loaded = model::FoodDatabase::load(VELMORA_FOODS_DB);
        if (loaded.ok())
            ctx->m_store.foods = std::move(loaded.value());
        else
            ctx->m_store.foods = test::generatedFoods(8800);
        ctx->m_store.foods.catalogue().appendComputed();
        return ctx;
    }();
    return *c;
}

// A common word of the data: "CHICKEN" in the real database; the generated names are numbered.
QString commonWord()
{
    return std::filesystem::exists(VELMORA_FOODS_DB) ? QStringLiteral("chicken")
                                                     : QStringLiteral("1");
}

void BM_SearchOnly(benchmark::State& state)
{
    const model::Store& s = context().m_store;
    const std::string word = commonWord().toStdString();
    std::size_t found = 0;
    for (auto _ : state) {
        auto numbers = food::searchFoods(s.foods, s.shared.customFoods, word, food::AllGroupsValue);
        found = numbers.size();
        benchmark::DoNotOptimize(numbers);
    }
    state.counters["foods"] = static_cast<double>(s.foods.foods().size());
    state.counters["found"] = static_cast<double>(found);
}
BENCHMARK(BM_SearchOnly)->Unit(benchmark::kMillisecond);

void BM_SearchAndRefillFoodList(benchmark::State& state)
{
    food::FoodChooser chooser(context());
    chooser.resize(600, 700);
    chooser.show();
    chooser.refresh();
    chooser.searchBox()->setText(commonWord());
    for (auto _ : state) {
        chooser.search(false);
        QApplication::processEvents(); // the list lays out and paints its new rows
    }
    state.counters["rows"] = chooser.foodList()->count();
}
BENCHMARK(BM_SearchAndRefillFoodList)->Unit(benchmark::kMillisecond);

// The worst case: a blank search lists every food of the database.
void BM_BlankSearchAndRefillFoodList(benchmark::State& state)
{
    food::FoodChooser chooser(context());
    chooser.resize(600, 700);
    chooser.show();
    chooser.refresh();
    chooser.searchBox()->setText(QStringLiteral(" "));
    for (auto _ : state) {
        chooser.search(false);
        QApplication::processEvents();
    }
    state.counters["rows"] = chooser.foodList()->count();
}
BENCHMARK(BM_BlankSearchAndRefillFoodList)->Unit(benchmark::kMillisecond);

// A day of four meals of ten foods each.
struct Day40
{
    model::JournalDay day;
    Day40()
    {
        const auto& foods = context().m_store.foods.foods();
        for (int m = 0; m < 4; ++m) {
            model::Meal meal;
            meal.kind = static_cast<std::uint8_t>(m);
            for (int i = 0; i < 10; ++i)
                meal.entries.push_back(
                    {foods[static_cast<std::size_t>((m * 10 + i) * 97) % foods.size()].number,
                     0.5f + 0.25f * i});
            day.meals.push_back(meal);
        }
    }
};

void BM_DayTotalsAndBothPies(benchmark::State& state)
{
    static const Day40 d;
    const model::Store& s = context().m_store;
    food::MacroPanel panel;
    const std::vector<model::NutrientId> details = s.journal.user.detailsList();
    for (auto _ : state) {
        double sum = 0;
        for (model::NutrientId n : details) // the day's totals of the details nutrients
            sum += s.value(d.day, n);
        panel.setPie(0, food::mealShares(s, &d.day.meals[1]), QStringLiteral("Meal"));
        panel.setPie(1, food::dayShares(s, &d.day), QStringLiteral("3/14/2026"));
        benchmark::DoNotOptimize(sum);
    }
}
BENCHMARK(BM_DayTotalsAndBothPies)->Unit(benchmark::kMicrosecond);

void BM_PaintBothPies(benchmark::State& state)
{
    static const Day40 d;
    const model::Store& s = context().m_store;
    food::MacroPanel panel;
    panel.resize(600, 260);
    panel.setPie(0, food::mealShares(s, &d.day.meals[1]), QStringLiteral("Meal"));
    panel.setPie(1, food::dayShares(s, &d.day), QStringLiteral("3/14/2026"));
    QImage image(300, 240, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        for (int i = 0; i < 2; ++i) {
            panel.pie(i)->resize(300, 240);
            QPainter p(&image);
            panel.pie(i)->paintTo(p);
        }
    }
}
BENCHMARK(BM_PaintBothPies)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
