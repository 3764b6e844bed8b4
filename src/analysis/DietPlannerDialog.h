#pragma once

#include <QDialog>

#include <optional>

#include "analysis/logic/DietPlanner.h"

class QDateEdit;
class QLabel;
class QLineEdit;

namespace velmora::analysis {

struct DietGoals;

// "Diet Planner": a diet from a start weight on a start date to an end weight on an end date.
// "Calculate Diet" tells the daily change of energy intake and how hard the diet is; "Accept Diet"
// writes the plan into the goals being edited (the Diet Goals dialog stores them on its OK).
class DietPlannerDialog : public QDialog
{
    Q_OBJECT

public:
    // goals: the working copy of the Diet Goals dialog; its plan fills the controls.
    DietPlannerDialog(DietGoals& goals, QWidget* parent = nullptr);

    // The energy need measured from the journal (kcal a day): a calculated plan then also says
    // how much that leaves to eat each day.
    void setMeasuredNeed(double kcal) { m_measuredNeed = kcal; }

private:
    // The four values of the controls; nothing when a weight box does not hold a number (the
    // message is shown and the box takes the focus).
    std::optional<DietPlanInput> readInput();
    void onCalculate();
    void onAccept();

    DietGoals& m_goals;
    QDateEdit* m_startDate = nullptr;
    QDateEdit* m_endDate = nullptr;
    QLineEdit* m_startWeight = nullptr;
    QLineEdit* m_endWeight = nullptr;
    QLabel* m_planText = nullptr;
    QLabel* m_difficultyText = nullptr;
    QLabel* m_measuredText = nullptr;
    std::optional<double> m_measuredNeed;
};

} // namespace velmora::analysis
