#pragma once

#include <QDialog>

#include "model/DateText.h"

class QComboBox;
class QDateEdit;
class QDialogButtonBox;
class QLabel;
class QListWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

// "Copy meal from...": chooses a date and a meal whose foods are added to the food page's meal.
// It shows the foods of the chosen meal and offers OK only while that meal has foods.
class CopyMealDialog : public QDialog
{
    Q_OBJECT

public:
    CopyMealDialog(ui::AppContext& context, const model::CalendarDate& date, int kind,
                   QWidget* parent = nullptr);

    model::CalendarDate sourceDate() const;
    int sourceKind() const;

    QDateEdit* dateEdit() const { return m_date; }
    QComboBox* mealChoice() const { return m_meals; }
    QListWidget* preview() const { return m_preview; }
    QDialogButtonBox* buttons() const { return m_buttons; }

private:
    void showSource();

    ui::AppContext& m_context;
    QDateEdit* m_date = nullptr;
    QComboBox* m_meals = nullptr;
    QListWidget* m_preview = nullptr;
    QLabel* m_empty = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

} // namespace velmora::food
