#pragma once

#include <array>

#include "model/Journal.h"

namespace velmora::model {
struct User;
}

namespace velmora::fitness {

// The rows of the Measurements dialog, top to bottom. A single measurement has one edit; a pair
// has a "Left:" and a "Right:" edit that share one goal. The goal is the user's body goal at the
// row's goal index (neck, shoulders, chest, stomach, waist, hips, biceps, forearms, thighs,
// calves), in inches or centimetres; the dialog shows it read-only and never changes it.
struct MeasurementRow
{
    const char* label;
    bool pair;
    model::Measurement left;  // the single measurement, or the left one of a pair
    model::Measurement right; // the right one of a pair (equal to left for a single measurement)
    int goal;
};

inline constexpr int MeasurementRowCount = 10;
inline constexpr std::array<MeasurementRow, MeasurementRowCount> MeasurementRows = {{
    {"Neck:", false, model::Measurement::Neck, model::Measurement::Neck, 0},
    {"Shoulders:", false, model::Measurement::Shoulders, model::Measurement::Shoulders, 1},
    {"Chest:", false, model::Measurement::Chest, model::Measurement::Chest, 2},
    {"Stomach:", false, model::Measurement::Stomach, model::Measurement::Stomach, 3},
    {"Waist:", false, model::Measurement::Waist, model::Measurement::Waist, 4},
    {"Hips:", false, model::Measurement::Hips, model::Measurement::Hips, 5},
    {"Biceps:", true, model::Measurement::LeftBicep, model::Measurement::RightBicep, 6},
    {"Forearms:", true, model::Measurement::LeftForearm, model::Measurement::RightForearm, 7},
    {"Thighs:", true, model::Measurement::LeftThigh, model::Measurement::RightThigh, 8},
    {"Calves:", true, model::Measurement::LeftCalf, model::Measurement::RightCalf, 9},
}};

// What the dialog's edits hold, row by row: the single value (or the left one) and the right one
// (unused for single measurements).
struct MeasurementEdit
{
    float left = 0.0f;
    float right = 0.0f;
};
using MeasurementEdits = std::array<MeasurementEdit, MeasurementRowCount>;

// The edits for an entry's measurements, and the measurements that "OK" writes back from them.
MeasurementEdits measurementEdits(const model::HealthEntry& entry);
void applyMeasurementEdits(model::HealthEntry& entry, const MeasurementEdits& edits);

// The goal shown beside a row.
float measurementGoal(const model::User& user, const MeasurementRow& row);

} // namespace velmora::fitness
