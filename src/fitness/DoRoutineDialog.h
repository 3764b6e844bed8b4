#pragma once

#include <optional>
#include <vector>

#include <QDialog>

#include "fitness/logic/WorkoutSets.h"
#include "model/Journal.h"

class QDateEdit;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;
class QTimeEdit;

namespace velmora::ui {
class AppContext;
}

namespace velmora::fitness {

// "Do Routine": one workout being recorded or edited: its date and time, calories, notes, the
// sets in order of completion and the selected set's values beside the values of the same set
// last time. The dialog works on a copy; the caller stores workout() on "OK".
class DoRoutineDialog : public QDialog
{
    Q_OBJECT

public:
    // exclude: the journal's record of the workout being edited (never its own "last time"), or
    // nullptr for a new workout.
    DoRoutineDialog(ui::AppContext& context, model::WorkoutEntry workout,
                    const model::WorkoutEntry* exclude, QWidget* parent = nullptr);

    void accept() override;
    const model::WorkoutEntry& workout() const { return m_workout; }

private:
    void fillSets();
    void selectSet(std::optional<std::size_t> set);
    // Writes the grid's values into the set it shows.
    void storeGrid();
    void showGrid();
    void updateButtons();

    void onSelectionChanged();
    void onUp();
    void onDown();
    void onAdd();
    void onRemove();
    void onEstimate();
    void onPreviousNotes();
    void move(int direction);

    ui::AppContext& m_context;
    model::WorkoutEntry m_workout;
    const model::WorkoutEntry* m_exclude = nullptr;
    std::optional<std::size_t> m_shownSet; // the set whose values the grid shows
    std::vector<GridRow> m_grid;
    bool m_updating = false;

    QDateEdit* m_date = nullptr;
    QTimeEdit* m_time = nullptr;
    QLineEdit* m_calories = nullptr;
    QPlainTextEdit* m_notes = nullptr;
    QListWidget* m_sets = nullptr;
    QPushButton* m_up = nullptr;
    QPushButton* m_down = nullptr;
    QPushButton* m_add = nullptr;
    QPushButton* m_remove = nullptr;
    QLabel* m_heading = nullptr;
    QTableWidget* m_table = nullptr;
};

} // namespace velmora::fitness
