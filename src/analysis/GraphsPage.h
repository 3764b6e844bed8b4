#pragma once

#include <array>
#include <optional>

#include <QColor>

#include "analysis/logic/GraphSeries.h"
#include "ui/Page.h"

class QAction;
class QButtonGroup;
class QCheckBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTreeWidget;

namespace velmora::analysis {

class GraphView;

// Page 5: the user's data drawn over a date range, and the nutritional analysis of the range.
// "Nutrient Goals" shows the analysis table; "Diet Plan and Progress" the recorded weight against
// the diet plan; "Advanced Graphing" any nutrient, health item, user variable or exercise field,
// each curve with its own scale. "Trend" adds the smoothed curve of every health item shown; the
// range buttons set From and To to the last week, month, quarter, year or the whole journal. The
// page only reads the store.
class GraphsPage : public ui::Page
{
    Q_OBJECT

public:
    enum class Mode
    {
        NutrientGoals,
        DietPlan,
        Advanced
    };

    GraphsPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override {}
    QString pageTitle() const override;

    Mode mode() const { return m_mode; }
    GraphView* graph() const { return m_graph; }
    QCheckBox* trendBox() const { return m_trend; }
    QPushButton* rangeButton(QuickRange range) const
    {
        return m_ranges[static_cast<std::size_t>(range)];
    }
    model::CalendarDate from() const;
    model::CalendarDate to() const;

protected:
    // The page host does not refresh this page with the others: it brings itself up to date
    // whenever it comes into view.
    void showEvent(QShowEvent* event) override;

private:
    // A curve the user added, kept so that the graph can be drawn again with or without trends.
    struct ShownCurve
    {
        Series series;
        QColor colour;
        bool trendable = false; // a health item or user variable of numbers
    };

    void setDates(model::CalendarDate from, model::CalendarDate to);
    void chooseMode(Mode mode);
    void updateEnabling();
    // Remakes the base curve of the pickers' range, or shows why there can be no graph.
    void resetGraph();
    void showText(const QString& text);
    void showGraphIfDrawn();
    // Adds a curve, or tells that there is no data for it (the curves shown stay).
    void addCurve(const std::optional<Series>& series, bool trendable = false);
    // Draws one added curve, and its trend right after it (sharing its scale) when asked for.
    void drawCurve(const ShownCurve& shown);
    // Lays the base curve down again and draws every added curve.
    void redraw();
    void onTrend();
    void onRange(QuickRange range);
    void rebuildAnalysis(bool askedByUser);
    void onDatesChanged();
    void onNutrient();
    void onHealth();
    void onFitness();
    void onPrint();
    void printAnalysis();
    void saveAnalysisPdf();
    void printGraph();

    Mode m_mode = Mode::NutrientGoals;
    bool m_rangeValid = false;
    QDateEdit* m_from = nullptr;
    QDateEdit* m_to = nullptr;
    QPushButton* m_nutrient = nullptr;
    QPushButton* m_health = nullptr;
    QPushButton* m_fitness = nullptr;
    QPushButton* m_clear = nullptr;
    QPushButton* m_print = nullptr;
    QButtonGroup* m_modes = nullptr;
    QCheckBox* m_legend = nullptr;
    QCheckBox* m_trend = nullptr;
    std::array<QPushButton*, 5> m_ranges{};
    std::vector<ShownCurve> m_shown;
    QStackedWidget* m_stack = nullptr;
    GraphView* m_graph = nullptr;
    QLabel* m_text = nullptr;
    QWidget* m_analysis = nullptr;
    QLabel* m_analysisMessage = nullptr;
    QTreeWidget* m_table = nullptr;
    QAction* m_printAnalysis = nullptr;
    QAction* m_saveAnalysisPdf = nullptr;
};

} // namespace velmora::analysis
