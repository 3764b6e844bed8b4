#pragma once

#include <QDialog>

class QComboBox;
class QPushButton;
class QRadioButton;
class QTreeWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

// "Food Finder": ranks every database food by two nutrients, each wanted high or low.
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

private:
    void openDetails();

    ui::AppContext& m_context;
    QComboBox* m_first = nullptr;
    QComboBox* m_second = nullptr;
    QRadioButton* m_high1 = nullptr;
    QRadioButton* m_low1 = nullptr;
    QRadioButton* m_high2 = nullptr;
    QRadioButton* m_low2 = nullptr;
    QPushButton* m_find = nullptr;
    QTreeWidget* m_results = nullptr;
};

} // namespace velmora::food
