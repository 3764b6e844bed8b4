#pragma once

#include <QDialog>

#include <optional>

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
// "Copy day from..." (wholeDay) chooses only a date, whose every meal is added to the page's date.
// It shows the foods that will be added and offers OK only while there are some.
class CopyMealDialog : public QDialog
{
    Q_OBJECT

public:
    CopyMealDialog(ui::AppContext& context, const model::CalendarDate& date, int kind,
                   QWidget* parent = nullptr, bool wholeDay = false);

    // A whole day is never copied onto itself: the page's own date is refused as the source.
    void setTargetDate(const model::CalendarDate& date);

    model::CalendarDate sourceDate() const;
    int sourceKind() const;

    QDateEdit* dateEdit() const { return m_date; }
    QComboBox* mealChoice() const { return m_meals; }
    QListWidget* preview() const { return m_preview; }
    QDialogButtonBox* buttons() const { return m_buttons; }

private:
    void showSource();

    ui::AppContext& m_context;
    bool m_wholeDay = false;
    std::optional<model::CalendarDate> m_target;
    QDateEdit* m_date = nullptr;
    QComboBox* m_meals = nullptr;
    QListWidget* m_preview = nullptr;
    QLabel* m_empty = nullptr;
    QDialogButtonBox* m_buttons = nullptr;
};

} // namespace velmora::food
