#pragma once

#include <QDialog>

class QComboBox;

namespace velmora::model {
class Store;
struct Exercise;
struct ExerciseField;
} // namespace velmora::model

namespace velmora::analysis {

// The chooser of the graphs page's "Fitness": an exercise, then one of that exercise's fields.
class ExerciseFieldDialog : public QDialog
{
    Q_OBJECT

public:
    ExerciseFieldDialog(const model::Store& store, QWidget* parent = nullptr);

    // The choice once accepted; nullptr while the exercise has no field.
    const model::Exercise* exercise() const;
    const model::ExerciseField* field() const;

private:
    void fillFields();

    const model::Store& m_store;
    QComboBox* m_exercises = nullptr;
    QComboBox* m_fields = nullptr;
};

} // namespace velmora::analysis
