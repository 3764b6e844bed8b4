#pragma once

#include <QWidget>

#include <cstdint>
#include <optional>

#include "food/logic/FoodSearch.h"
#include "food/logic/MeasureChoices.h"
#include "food/logic/Suggestions.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace velmora::ui {
class AppContext;
}
namespace velmora::controls {
class AmountSpinBox;
}
namespace velmora::model {
struct FoodItem;
}

namespace velmora::food {

class SuggestionList;

// The left half of the food page: the three food lists, search, group filter, measure, amount and
// "&Add >>". It reads the store and never writes it; adding is the page's business.
class FoodChooser : public QWidget
{
    Q_OBJECT

public:
    explicit FoodChooser(ui::AppContext& context, QWidget* parent = nullptr);

    // Reloads the group picker and the current list from the store.
    void refresh();
    void setMode(FoodListMode mode);
    FoodListMode mode() const { return m_mode; }

    // Searches with the text in the box; with announce set a search without hits says so. The
    // list holds what the substring search finds, then, after a marker row, the foods whose names
    // hold every typed word. A food given as lead is moved to the top and selected.
    void search(bool announce = true, std::int32_t lead = -1);
    // The journal changed: the eating history behind the suggestions is read again when next
    // needed.
    void forgetHistory() { m_history.reset(); }

    // The food of the selected row, or nullptr.
    const model::FoodItem* selectedFood() const;
    // What "&Add >>" adds: amount x measure factor, in units of 100 g (servings for custom foods).
    double amountToAdd() const;
    // Takes over a number still being typed in the amount box (a shortcut may add before the box
    // has finished editing).
    void commitAmount();
    // Selects the row of a food when the list shows it.
    void selectFood(std::int32_t number);
    // Lists a food in All Foods mode as choosing it among the suggestions does: its full name in
    // the search box, found by the search, first and selected. The group list changes to
    // " <All Groups>" when the chosen group does not hold the food.
    void showFood(std::int32_t number);

    // Widgets that tests, the page and the keyboard handling reach.
    QLineEdit* searchBox() const { return m_searchBox; }
    QComboBox* groupList() const { return m_groups; }
    QListWidget* foodList() const { return m_foods; }
    QComboBox* measureList() const { return m_measures; }
    controls::AmountSpinBox* amountBox() const { return m_amount; }
    QPushButton* addButton() const { return m_add; }
    QPushButton* searchButton() const { return m_searchButton; }
    QLabel* amountHint() const { return m_hint; }
    QRadioButton* modeButton(FoodListMode mode) const;
    SuggestionList* suggestionList() const { return m_suggestions; }

signals:
    void highlightChanged();
    void addRequested();
    void detailsRequested(std::int32_t food);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // more follows numbers after a marker row when both hold foods.
    void fillList(const std::vector<std::int32_t>& numbers,
                  const std::vector<std::int32_t>& more = {});
    int chosenGroup() const;
    // The word search's index, history and date, built when first needed.
    WordSearchContext wordSearch();
    void suggest(const QString& text);
    void chooseSuggestion(std::int32_t number);
    // The search box's keys while the suggestions are shown; true when one was used.
    bool suggestionKey(int key);
    // Fills the list as the chosen mode says; a search without hits is announced when asked.
    void fillForMode(bool reportNoMatches);
    void onFoodChanged();
    void onMeasureChanged(int index);
    // Takes the chosen measure's weight and the amount box's maximum for it.
    void applyMeasure();
    void applyEnabling();

    ui::AppContext& m_context;
    FoodListMode m_mode = FoodListMode::All;
    double m_measureFactor = 1.0;
    // The measure list of the shown food: its own measures, then grams and ounces.
    std::vector<MeasureChoice> m_choices;
    // The food whose measures the measure list holds, or -1.
    std::int32_t m_shownFood = -1;

    QRadioButton* m_custom = nullptr;
    QRadioButton* m_recent = nullptr;
    QRadioButton* m_all = nullptr;
    QLineEdit* m_searchBox = nullptr;
    QPushButton* m_searchButton = nullptr;
    QComboBox* m_groups = nullptr;
    QListWidget* m_foods = nullptr;
    controls::AmountSpinBox* m_amount = nullptr;
    QComboBox* m_measures = nullptr;
    QPushButton* m_add = nullptr;
    QLabel* m_hint = nullptr;
    SuggestionList* m_suggestions = nullptr;

    FoodWordIndex m_wordIndex;
    const model::FoodItem* m_indexedFoods = nullptr; // the food list m_wordIndex was built from
    std::size_t m_indexedCount = 0;
    std::optional<FoodHistory> m_history;
};

} // namespace velmora::food
