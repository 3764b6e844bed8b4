#pragma once

#include <optional>

#include <QDialog>

#include "analysis/logic/DietGoals.h"
#include "analysis/logic/MeasuredEnergy.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QTableWidget;

namespace velmora::ui {
class AppContext;
}

namespace velmora::analysis {

// "Diet Goals": four steps that set the current user's diet goals: the personal information, the
// wish to keep or change weight (with the Diet Planner), the estimate of the nutrient goals into
// the grid on the right, and the body goals. OK stores the profile, the plan and the grid's goals;
// Cancel stores nothing (the body goals are stored by their own dialog). Beside "Estimate >>" it
// shows the energy need measured from the journal's last weeks, or why there is none, and
// "Use Measured >>" takes it as the energy goal.
class DietGoalsDialog : public QDialog
{
    Q_OBJECT

public:
    DietGoalsDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void accept() override;

    QLabel* measuredLabel() const { return m_measuredLabel; }
    QPushButton* useMeasuredButton() const { return m_useMeasured; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makePersonalInfo();
    QWidget* makeWeightGoals();
    QWidget* makeGrid();
    // The profile as the controls hold it, into m_goals; false (with the message shown and the
    // box focused) when the age or the weight box does not hold a number.
    bool readProfile();
    std::vector<std::string> gridCells() const;
    void setGridCells(const std::vector<std::string>& cells);
    void fitGridColumns();
    void onGender(int index);
    void onEstimate();
    void onUseMeasured();
    void onSetProgram();
    void onBodyGoals();

    ui::AppContext& m_context;
    DietGoals m_goals;
    QLineEdit* m_age = nullptr;
    QComboBox* m_gender = nullptr;
    QLineEdit* m_weight = nullptr;
    QSpinBox* m_heightMain = nullptr; // feet, or centimetres with metric units
    QSpinBox* m_inches = nullptr;
    QLabel* m_inchesLabel = nullptr;
    QComboBox* m_lifeStage = nullptr;
    QComboBox* m_activity = nullptr;
    QRadioButton* m_maintain = nullptr;
    QRadioButton* m_change = nullptr;
    QPushButton* m_setProgram = nullptr;
    QTableWidget* m_grid = nullptr;
    MeasuredEnergy m_measured;
    QLabel* m_measuredLabel = nullptr;
    QPushButton* m_useMeasured = nullptr;
};

} // namespace velmora::analysis
