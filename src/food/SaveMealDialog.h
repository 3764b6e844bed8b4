#pragma once

#include <QDialog>

#include "model/Journal.h"

class QLineEdit;

namespace velmora::ui {
class AppContext;
}

namespace velmora::food {

// "Save Meal as Custom Food": makes one custom food of a whole meal. exec() returns Accepted when
// a custom food was made; a blank name keeps the dialog open.
class SaveMealDialog : public QDialog
{
    Q_OBJECT

public:
    SaveMealDialog(ui::AppContext& context, const model::Meal& meal, QWidget* parent = nullptr);

    void accept() override;

private:
    ui::AppContext& m_context;
    model::Meal m_meal;
    QLineEdit* m_name = nullptr;
};

} // namespace velmora::food
