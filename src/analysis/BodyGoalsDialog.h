#pragma once

#include <array>

#include <QDialog>

#include "analysis/logic/BodyGoals.h"

class QLineEdit;

namespace velmora::ui {
class AppContext;
}

namespace velmora::analysis {

// "Set Body Goals": the ten body measurements the user wants to reach, in inches or centimetres.
// OK stores all ten into the current user's record; Cancel stores nothing.
class BodyGoalsDialog : public QDialog
{
    Q_OBJECT

public:
    BodyGoalsDialog(ui::AppContext& context, QWidget* parent = nullptr);

    void accept() override;

private:
    ui::AppContext& m_context;
    std::array<QLineEdit*, BodyGoalCount> m_boxes{};
};

} // namespace velmora::analysis
