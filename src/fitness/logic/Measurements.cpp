#include "fitness/logic/Measurements.h"

#include "model/User.h"

namespace velmora::fitness {

namespace {

float& slot(model::HealthEntry& entry, model::Measurement m)
{
    return entry.measurements[static_cast<std::size_t>(m)];
}

} // namespace

MeasurementEdits measurementEdits(const model::HealthEntry& entry)
{
    MeasurementEdits edits{};
    for (std::size_t i = 0; i < MeasurementRows.size(); ++i) {
        const MeasurementRow& row = MeasurementRows[i];
        edits[i].left = entry.measurement(row.left);
        if (row.pair)
            edits[i].right = entry.measurement(row.right);
    }
    return edits;
}

void applyMeasurementEdits(model::HealthEntry& entry, const MeasurementEdits& edits)
{
    for (std::size_t i = 0; i < MeasurementRows.size(); ++i) {
        const MeasurementRow& row = MeasurementRows[i];
        slot(entry, row.left) = edits[i].left;
        if (row.pair)
            slot(entry, row.right) = edits[i].right;
    }
}

float measurementGoal(const model::User& user, const MeasurementRow& row)
{
    return user.bodyGoals[static_cast<std::size_t>(row.goal)];
}

} // namespace velmora::fitness
