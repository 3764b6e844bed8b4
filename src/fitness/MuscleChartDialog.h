#pragma once

#include <array>

#include <QDialog>

#include "fitness/logic/MuscleChart.h"

class QPushButton;
class QSvgRenderer;

namespace velmora::fitness {

class BodyPicture;

// "Muscle Chart": the body from the front or the back with numbered muscle groups, and a button
// per group that tells which exercises work it.
class MuscleChartDialog : public QDialog
{
    Q_OBJECT

public:
    explicit MuscleChartDialog(QWidget* parent = nullptr);

    BodyView view() const { return m_view; }

private:
    void showView(BodyView view);
    void onMuscle(int button);

    BodyView m_view = InitialBodyView;
    BodyPicture* m_picture = nullptr;
    std::array<QPushButton*, MuscleButtonCount> m_buttons{};
};

} // namespace velmora::fitness
