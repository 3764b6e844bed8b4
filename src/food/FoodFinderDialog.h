#pragma once

#include <QDialog>

#include <cstdint>

class QComboBox;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

// "Food Finder": ranks every database food by two nutrients, each wanted high or low. It keeps the
// last nutrients and directions for the next time; a double-click on a result shows its details,
// and "Show on Food Page" closes it with that food chosen for the food page.
class FoodFinderDialog : public QDialog
{
    Q_OBJECT

public:
    explicit FoodFinderDialog(ui::AppContext& context, QWidget* parent = nullptr);

    // Ranks with the chosen nutrients and directions and refills the result list.
    void find();

    QComboBox* nutrientList(int which) const { return which == 0 ? m_first : m_second; }
    QRadioButton* highButton(int which) const { return which == 0 ? m_high1 : m_high2; }
    QRadioButton* lowButton(int which) const { return which == 0 ? m_low1 : m_low2; }
    QPushButton* findButton() const { return m_find; }
    QTreeWidget* resultList() const { return m_results; }
    QPushButton* foodPageButton() const { return m_toFoodPage; }

    // The food chosen with "Show on Food Page", or -1.
    std::int32_t chosenFood() const { return m_chosen; }

    void done(int result) override;

private:
    void openDetails();
    void restoreChoices();
    void rememberChoices() const;

    ui::AppContext& m_context;
    QComboBox* m_first = nullptr;
    QComboBox* m_second = nullptr;
    QRadioButton* m_high1 = nullptr;
    QRadioButton* m_low1 = nullptr;
    QRadioButton* m_high2 = nullptr;
    QRadioButton* m_low2 = nullptr;
    QPushButton* m_find = nullptr;
    QTreeWidget* m_results = nullptr;
    QPushButton* m_toFoodPage = nullptr;
    std::int32_t m_chosen = -1;
};

} // namespace velmora::food
