#pragma once

#include <QDialog>

#include "model/Journal.h"

class QDateTimeEdit;
class QLineEdit;

namespace velmora::fitness {

// "Use Variable": asks for the parts of a variable that its definition asks for each time; the
// other parts keep the definition's locked values.
class UseVariableDialog : public QDialog
{
    Q_OBJECT

public:
    UseVariableDialog(const model::UserVariable& definition, bool metric,
                      QWidget* parent = nullptr);

    void accept() override;
    // The use that "OK" gives.
    const model::VariableUse& use() const { return m_use; }

private:
    model::UserVariable m_definition;
    model::VariableUse m_use;
    QLineEdit* m_number = nullptr;
    QLineEdit* m_text = nullptr;
    QDateTimeEdit* m_time = nullptr;
};

} // namespace velmora::fitness
