#pragma once

#include <cstdint>

#include <QDialog>
#include <QString>

#include "fitness/logic/UserVariables.h"

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::fitness {

// "Add/Define Variable": the user's variable definitions, each fixing its number, text and time
// once or asking for them each time the variable is used. What is shown is stored on "Done",
// "New" and when another variable is chosen.
class DefineVariableDialog : public QDialog
{
    Q_OBJECT

public:
    DefineVariableDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void reject() override; // Escape stores as "Done" does

private:
    void fillNames(std::int32_t select);
    void showDefinition(std::int32_t id);
    // Reads the controls into the form; false (after saying so) when the number is not one.
    bool readForm();
    bool storeShown();
    void updateEnabling();

    void onChoice(int index);
    void onNew();
    void onDelete();
    void onDone();

    ui::AppContext& m_context;
    QComboBox* m_names = nullptr;
    QLineEdit* m_number = nullptr;
    QRadioButton* m_lockNumber = nullptr;
    QRadioButton* m_askNumber = nullptr;
    QLineEdit* m_text = nullptr;
    QRadioButton* m_lockText = nullptr;
    QRadioButton* m_askText = nullptr;
    QRadioButton* m_ignoreTime = nullptr;
    QRadioButton* m_askTime = nullptr;
    QPushButton* m_delete = nullptr;

    model::VariableForm m_form;
    std::int32_t m_shownId = -1; // the definition shown, -1 for none
    QString m_typed;             // the name shown, as typed or chosen
    bool m_enteringNew = false;
    bool m_showing = false;
};

} // namespace velmora::fitness
