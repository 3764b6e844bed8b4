#pragma once

#include <QWidget>

#include <vector>

#include "food/logic/MealEditing.h"

class QPushButton;
class QStackedWidget;
class QTreeWidget;

namespace velmora::charts {
class PieChart;
}

namespace velmora::food {

// The lower right of the food page: the two macronutrient pies or the details list in the same
// place, switched by the "Macronutrient Graphs" / "Details List" pair of toggle buttons.
class MacroPanel : public QWidget
{
    Q_OBJECT

public:
    explicit MacroPanel(QWidget* parent = nullptr);

    // Clears pie 0 or 1 and gives it the three slices of the shares and a title.
    void setPie(int which, const EnergyShares& shares, const QString& title);
    void setDetails(const std::vector<NutrientRow>& rows);
    void clearDetails();

    void showPies(bool pies);
    bool piesShown() const;

    charts::PieChart* pie(int which) const { return which == 0 ? m_pie1 : m_pie2; }
    QTreeWidget* detailsList() const { return m_details; }
    QPushButton* graphsButton() const { return m_graphs; }
    QPushButton* detailsButton() const { return m_list; }

private:
    QPushButton* m_graphs = nullptr;
    QPushButton* m_list = nullptr;
    QStackedWidget* m_stack = nullptr;
    charts::PieChart* m_pie1 = nullptr;
    charts::PieChart* m_pie2 = nullptr;
    QTreeWidget* m_details = nullptr;
};

} // namespace velmora::food
