#pragma once

#include <QDialog>

class QComboBox;
class QListWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::fitness {

// "Define Exercises": the exercises and the fields each records, chosen by checking rows of the
// field list. What is shown is stored on "New", "Done" and when another exercise is chosen.
class DefineExercisesDialog : public QDialog
{
    Q_OBJECT

public:
    DefineExercisesDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void reject() override; // Escape stores as "Done" does

private:
    void fillNames(int select);
    void showExercise(int id);
    void storeShown();

    void onChoice(int index);
    void onNew();
    void onDelete();

    ui::AppContext& m_context;
    QComboBox* m_names = nullptr;
    QListWidget* m_fields = nullptr;
    QString m_typed; // the name shown, as typed or chosen
};

} // namespace velmora::fitness
