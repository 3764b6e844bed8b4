#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;

namespace velmora::fitness {

// "Define Activity": estimates the calories of an activity from its duration, its level and the
// user's body weight. The caller takes calories() on "OK".
class DefineActivityDialog : public QDialog
{
    Q_OBJECT

public:
    // weight: the body weight of the diet goals, as stored; calories: the figure shown first.
    DefineActivityDialog(float weight, int calories, QWidget* parent = nullptr);

    void accept() override;
    int calories() const { return m_calories; }

private:
    void onEstimate();
    void onHelp();

    float m_weight = 0.0f;
    int m_calories = 0;
    QLineEdit* m_hours = nullptr;
    QLineEdit* m_minutes = nullptr;
    QComboBox* m_level = nullptr;
    QLineEdit* m_caloriesEdit = nullptr;
};

} // namespace velmora::fitness
