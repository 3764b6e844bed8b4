#pragma once

#include <array>

#include <QDialog>

#include "fitness/logic/Measurements.h"

class QLineEdit;

namespace velmora::fitness {

// "Measurements": the fourteen body measurements of a health entry, with the user's body goal
// beside each measurement or pair (read-only).
class MeasurementsDialog : public QDialog
{
    Q_OBJECT

public:
    MeasurementsDialog(const model::User& user, const model::HealthEntry& entry,
                       QWidget* parent = nullptr);

    // Refuses "OK" while an edit does not hold a number.
    void accept() override;
    // Writes the values of the edits into an entry ("OK" only).
    void applyTo(model::HealthEntry& entry) const;

private:
    std::array<QLineEdit*, MeasurementRowCount> m_left{};
    std::array<QLineEdit*, MeasurementRowCount> m_right{};
    MeasurementEdits m_edits{};
};

} // namespace velmora::fitness
