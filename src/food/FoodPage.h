#pragma once

#include <cstdint>

#include "ui/Page.h"
#include "model/DateText.h"

class QComboBox;
class QDateEdit;
class QListWidget;
class QPushButton;
class QTimeEdit;

namespace velmora::controls {
class PieChart;
}
namespace velmora::model {
struct Meal;
struct FoodItem;
} // namespace velmora::model

namespace velmora::food {

class FoodChooser;
class MacroPanel;

// Page 0: what was eaten on one date, meal by meal. The left half chooses a food, a measure and
// an amount; the right half shows the chosen meal with its foods, the details list and the two
// macronutrient pies. A meal is written into its day as soon as it gets its first food; browsing
// dates and meals creates nothing.
class FoodPage : public ui::Page
{
    Q_OBJECT

public:
    FoodPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

    // The date and meal the page shows.
    model::CalendarDate currentDate() const;
    int currentMealKind() const;

    // Adds the chosen amount of the selected food to the current meal (what "&Add >>" does).
    void addSelectedFood();
    // Shows a food chosen elsewhere (the food finder) in the food list, selected and ready to add.
    void showFood(std::int32_t number);
    // Removes the selected meal-list entry after the delete confirmation.
    void removeSelectedEntry();
    // Adds the foods of the meal of kind on date to the current meal; returns the entries copied.
    int copyMealFrom(const model::CalendarDate& date, int kind);
    // Adds every meal of date to the current date; returns the entries copied.
    int copyDayFrom(const model::CalendarDate& date);

    FoodChooser* chooser() const { return m_chooser; }
    MacroPanel* macroPanel() const { return m_panel; }
    QListWidget* mealList() const { return m_mealList; }
    QComboBox* mealChoice() const { return m_meals; }
    QDateEdit* dateEdit() const { return m_date; }
    QTimeEdit* timeEdit() const { return m_time; }
    QPushButton* removeButton() const { return m_remove; }
    QPushButton* saveCustomButton() const { return m_saveCustom; }
    QPushButton* copyMealButton() const { return m_copyMeal; }
    QPushButton* copyDayButton() const { return m_copyDay; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    enum class Highlight
    {
        None,
        Food,
        MealEntry
    };

    const model::Meal* currentMeal() const;
    void rebuildMeal();
    void updateDisplays();
    void applyEnabling();
    void onTimeChanged();
    void openDetails(std::int32_t food);
    void openDisplaySettings();
    void openCustomFoods();
    void openSaveAsCustomFood();
    void openCopyMeal();
    void openCopyDay();

    FoodChooser* m_chooser = nullptr;
    MacroPanel* m_panel = nullptr;
    QComboBox* m_meals = nullptr;
    QDateEdit* m_date = nullptr;
    QTimeEdit* m_time = nullptr;
    QListWidget* m_mealList = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_saveCustom = nullptr;
    QPushButton* m_defineFoods = nullptr;
    QPushButton* m_copyMeal = nullptr;
    QPushButton* m_copyDay = nullptr;
    QPushButton* m_display = nullptr;
    Highlight m_highlight = Highlight::None;
    bool m_refreshed = false;
};

} // namespace velmora::food
