#pragma once

#include <string>
#include <vector>

#include "model/DateText.h"

namespace velmora::model {
class Store;
}

namespace velmora::analysis {

// The energy need measured from the user's own journal rather than estimated from a formula: what
// was eaten, less what the weight says was stored or drawn from the body.

// The journal looked at: the last eight weeks up to today.
inline constexpr int MeasuredWindowDays = 56;
// Fewer days with meals, or weigh-ins spanning fewer days, say too little to measure from.
inline constexpr int MinimumLoggedDays = 14;
inline constexpr int MinimumWeighInSpanDays = 10;
// The smoothed weight moves a tenth of the way to each day's weight.
inline constexpr double WeightSmoothing = 0.1;
// Energy stored in a pound of body weight, and in a kilogram (3500 kcal per 0.4536 kg).
inline constexpr double KcalPerPound = 3500.0;
inline constexpr double KcalPerKilogram = 3500.0 / 0.4536;

// The net energy of one day with meals: kcal eaten less the kcal of the day's workouts.
struct DayIntake
{
    long day = 0; // day number (CalendarDate::dayNumber)
    double netKcal = 0.0;
};
// One weigh-in, in the user's unit (pounds, or kilograms when metric).
struct WeighIn
{
    long day = 0;
    double weight = 0.0;
};

enum class MeasuredEnergyStatus
{
    Measured,
    TooFewLoggedDays, // fewer than MinimumLoggedDays days with meals
    TooFewWeighIns,   // no two weigh-ins MinimumWeighInSpanDays days apart
};

struct MeasuredEnergy
{
    MeasuredEnergyStatus status = MeasuredEnergyStatus::TooFewLoggedDays;
    double maintenance = 0.0;       // kcal a day; set only when Measured
    double averageIntake = 0.0;     // net kcal a day over the logged days
    double dailyWeightChange = 0.0; // of the smoothed weight, user's unit a day
    int loggedDays = 0;
    int weighIns = 0;
    int spanDays = 0; // from the first to the last weigh-in of the measure
};

// Measures the need from the days with meals and the weigh-ins from firstDay on (any order; a day
// given twice counts its intake once per entry and its last weight). The weights are taken day by
// day between weigh-ins (straight lines between them) and smoothed by an exponential moving
// average; weigh-ins before firstDay only settle the average, so that the first weigh-in of the
// measure is not taken as it stands. The smoothed weight's change from the first to the last
// weigh-in from firstDay, per day, times the kcal of a unit of weight, is what the body stored, and
// maintenance = average net intake - that. An average follows a steady change with a delay that
// grows towards (1 - WeightSmoothing) / WeightSmoothing days from its start; the days it has
// followed the change are counted that much shorter, so that a steady loss or gain is measured in
// full.
MeasuredEnergy measureEnergy(const std::vector<DayIntake>& intake,
                             const std::vector<WeighIn>& weighIns, bool metric, long firstDay);

// The same from the current journal: the days of the MeasuredWindowDays up to today, both
// included (and the weigh-ins of as many days before them to settle the smoothing); a day counts
// as logged when one of its meals holds a food, and as a weigh-in when its health entry has a
// weight.
MeasuredEnergy measuredEnergyNeed(const model::Store& store, const model::CalendarDate& today);

// What a figure rests on, e.g. "from 26 logged days and 9 weigh-ins over 4 weeks", or why there
// is none: "Too few days with meals: 9 in the last 8 weeks, at least 14 are needed." (UTF-8).
std::string measuredEnergyBasis(const MeasuredEnergy& measured);

// The planner's daily change (kcal a day, negative to lose) against a measured need: "Against the
// 2431 kcal a day measured from your journal, this means eating about 1931 kcal a day." (UTF-8).
std::string planAgainstMeasuredText(double maintenance, int dailyChange);

} // namespace velmora::analysis
