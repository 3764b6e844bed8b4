#pragma once

#include <optional>

#include "ui/Page.h"
#include "fitness/logic/FitnessLog.h"
#include "model/FitnessJournalEdits.h"

class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace velmora::fitness {

// Page 4: the recent workouts day by day, a row per set with the values of the chosen field
// columns, and the buttons that record, edit and delete workouts and open the definitions.
class FitnessLogPage : public ui::Page
{
    Q_OBJECT

public:
    FitnessLogPage(ui::AppContext& context, QWidget* parent = nullptr);

    void refreshPage() override;
    void storePage() override;
    QString pageTitle() const override;

protected:
    // The rows are rebuilt whenever the page comes into view.
    void showEvent(QShowEvent* event) override;

private:
    void rebuild();
    void setUpColumns();
    std::optional<FitnessRowRef> selectedRef() const;
    std::optional<model::WorkoutPlace> selectedWorkout() const;
    void updateButtons();

    void onDoRoutine();
    void onEdit();
    void onDelete();
    void onColumns();
    void onDefineFields();
    void onDefineExercises();
    void onDefineRoutines();
    void onSectionResized(int column, int oldSize, int newSize);

    QTreeWidget* m_tree = nullptr;
    QPushButton* m_doRoutine = nullptr;
    QPushButton* m_edit = nullptr;
    QPushButton* m_delete = nullptr;
    bool m_building = false;
};

} // namespace velmora::fitness
