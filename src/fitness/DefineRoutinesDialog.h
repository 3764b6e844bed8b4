#pragma once

#include <QDialog>
#include <QString>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace velmora::ui {
class AppContext;
}

namespace velmora::fitness {

// "Define Routines": named, ordered lists of exercises with an estimate of the calories a routine
// burns. What is shown is stored on "New", "OK" and when another routine is chosen.
class DefineRoutinesDialog : public QDialog
{
    Q_OBJECT

public:
    DefineRoutinesDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void accept() override;
    void reject() override; // Escape stores as "OK" does

private:
    void fillNames(int select);
    void showRoutine(int id);
    // False (after saying so) when the calories are not a whole number.
    bool storeShown();
    void updateButtons();

    void onChoice(int index);
    void onNew();
    void onDelete();
    void onEstimate();
    void onAdd();
    void onRemove();
    void move(int direction);

    ui::AppContext& m_context;
    QComboBox* m_names = nullptr;
    QLineEdit* m_calories = nullptr;
    QListWidget* m_defined = nullptr;
    QListWidget* m_contents = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QString m_typed; // the name shown, as typed or chosen
};

} // namespace velmora::fitness
