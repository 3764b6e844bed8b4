#pragma once

#include <QDialog>

#include <cstdint>

class QLabel;
class QTreeWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::charts {
class BarChart;
}

namespace velmora::food {

// "Food Details": name, data source, every nutrient per 100 g and the protein quality comparison
// of one food, with the sentence that says how complete its protein is.
class FoodDetailsDialog : public QDialog
{
    Q_OBJECT

public:
    FoodDetailsDialog(ui::AppContext& context, std::int32_t food, QWidget* parent = nullptr);

    QLabel* nameLabel() const { return m_name; }
    QLabel* sourceLabel() const { return m_source; }
    QTreeWidget* nutrientList() const { return m_nutrients; }
    charts::BarChart* chart() const { return m_chart; }
    QLabel* sentenceLabel() const { return m_sentence; }

private:
    QLabel* m_name = nullptr;
    QLabel* m_source = nullptr;
    QTreeWidget* m_nutrients = nullptr;
    charts::BarChart* m_chart = nullptr;
    QLabel* m_sentence = nullptr;
};

} // namespace velmora::food
