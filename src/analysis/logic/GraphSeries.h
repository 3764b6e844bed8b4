#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "model/Archive.h"
#include "model/DateText.h"
#include "model/Nutrients.h"

namespace velmora::model {
class Store;
struct Exercise;
struct ExerciseField;
struct JournalDay;
struct User;
struct UserVariable;
} // namespace velmora::model

namespace velmora::analysis {

// The texts the graphs page shows in place of a graph, or in a message box.
extern const char* const InvalidRangeText;  // "You must select a valid date range before ..."
extern const char* const NotEnoughDataText; // "Not enough data exists to create this graph."
extern const char* const NoDietPlanText;    // "You must define a diet plan in your goals ..."

// The X axis: a date axis labelled "Date", shown as month/day and a blank.
extern const char* const DateAxisLabel;  // "Date"
extern const char* const DateAxisFormat; // "%m/%d "
// Y axes of times: the wake time follows the unit setting's clock; time fields of exercises use
// the 24-hour clock. The formats are strftime-style.
extern const char* const WakeTimeFormatImperial; // "%I:%M:%S%p"
extern const char* const WakeTimeFormatMetric;   // "%H:%M:%S "
extern const char* const FieldTimeFormat;        // "%H:%M:%S "
extern const char* const PlanLabel;              // "Plan"

enum class AxisKind
{
    Number,
    Time, // values are seconds since midnight, shown in the series' axisFormat
};

struct SeriesPoint
{
    model::TimeT date = 0; // the journal day's date
    double value = 0.0;
    bool operator==(const SeriesPoint&) const = default;
};

// One curve of the graph with what its own Y axis needs.
struct Series
{
    std::string label; // UTF-8
    AxisKind axis = AxisKind::Number;
    const char* axisFormat = "";     // for AxisKind::Time
    bool ownAxisShown = true;        // false: the curve shares the scale of the curve before it
    std::vector<SeriesPoint> points; // in date order
};

// The items of the "Health" menu, in menu order. Pairs of measurements are named left first; each
// item reads the field of its own name.
enum class HealthItem
{
    Weight,
    Height,
    BodyFat,
    Bmi,
    Sleep,
    WakeTime,
    Pulse,
    Systolic,
    Diastolic,
    Vo2Max,
    Temperature,
    Neck,
    Shoulders,
    Chest,
    Stomach,
    Waist,
    Hips,
    LeftBicep,
    RightBicep,
    LeftForearm,
    RightForearm,
    LeftThigh,
    RightThigh,
    LeftCalf,
    RightCalf
};
inline constexpr std::size_t HealthItemCount = 25;
extern const std::array<const char*, HealthItemCount> HealthItemNames;

// The base curve that fixes the X range: one point of value 0 for each day from `from` up to the
// day before `to`, at local midnight. Nothing when `to` is not later than `from` (the page then
// shows InvalidRangeText instead of the graph).
std::optional<Series> baseCurve(model::CalendarDate from, model::CalendarDate to);

// A nutrient's daily totals over the days from `from` to `to`, both included, that hold a meal,
// labelled with the nutrient's name. Nothing when no such day exists (NotEnoughDataText).
std::optional<Series> nutrientCurve(const model::Store& store, model::CalendarDate from,
                                    model::CalendarDate to, model::NutrientId nutrient);

// A health item over the days whose health entry holds a value. The wake time is a time of day, on
// the clock of the unit setting, and days without one are left out. Nothing without such a day.
std::optional<Series> healthCurve(const std::vector<model::JournalDay>& days,
                                  model::CalendarDate from, model::CalendarDate to, HealthItem item,
                                  bool metric);

// A user variable over the same days: the sum of the numbers of its uses on each day (0 when the
// day has none), labelled with the variable's name.
std::optional<Series> variableCurve(const std::vector<model::JournalDay>& days,
                                    model::CalendarDate from, model::CalendarDate to,
                                    const model::UserVariable& variable);

// One field of an exercise over the days that hold the exercise: each day's greatest value of the
// field among the exercise's sets that day. Number and text fields count when they hold a number,
// time fields ("h:mm:ss" or "h:mm") as seconds on a time axis; a day without a readable value is
// left out. Labelled "exercise - field". Nothing without a day.
std::optional<Series> fitnessCurve(const std::vector<model::JournalDay>& days,
                                   model::CalendarDate from, model::CalendarDate to,
                                   const model::Exercise& exercise,
                                   const model::ExerciseField& field);

// A time field's text as seconds: "h:mm:ss" or "h:mm"; nothing for any other text.
std::optional<double> fieldTimeSeconds(const std::string& text);

// "Diet Plan and Progress": the graph of the user's diet plan against the weights recorded.
struct DietPlanGraph
{
    enum class State
    {
        NoPlan,       // the user does not wish to change weight: NoDietPlanText, no graph
        InvalidRange, // the plan ends on or before its start day: InvalidRangeText, no graph
        Shown,
    };
    State state = State::NoPlan;
    model::CalendarDate from; // the dates the page's pickers take: the plan's start and end
    model::CalendarDate to;
    std::optional<Series> base;
    std::optional<Series> weight; // nothing while no weight was recorded (NotEnoughDataText)
    Series plan; // "Plan": start and end weight, sharing the weight curve's scale; drawn blue
};
DietPlanGraph dietPlanGraph(const model::User& user, const std::vector<model::JournalDay>& days);

// The share of each day's value in the smoothed trend (the same smoothing as the measured energy
// need's weight).
inline constexpr double TrendSmoothing = 0.1;

// The "Trend" of a curve: an exponential moving average of its values over the days, starting at
// the first point and moving a share of 1 - (1 - TrendSmoothing)^gap towards each later point, gap
// being the days since the point before. Labelled "<label> trend", on the same days, sharing the
// curve's scale. Nothing for a curve without points or of times.
std::optional<Series> trendCurve(const Series& curve);

// The quick ranges of the graphs page's range buttons.
enum class QuickRange
{
    Week,    // the last 7 days
    Month,   // the last 30 days
    Quarter, // the last 90 days
    Year,    // the last year, to the same date
    All,     // from the first journal day
};
struct DateRange
{
    model::CalendarDate from;
    model::CalendarDate to;
};
// From and To of a quick range ending today: the span of days before today (Year: the same date a
// year before; All: the first journal day, or the last 30 days when the journal has none). To is
// today, or the last journal day when that is later, and always after From.
DateRange quickRange(QuickRange range, model::CalendarDate today,
                     const std::vector<model::JournalDay>& days);

} // namespace velmora::analysis
