#include "analysis/logic/GraphSeries.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "analysis/logic/DayRange.h"
#include "analysis/logic/NumberText.h"
#include "model/FoodDatabase.h"
#include "model/Journal.h"
#include "model/Store.h"
#include "model/TextCodec.h"
#include "model/User.h"

namespace velmora::analysis {

const char* const InvalidRangeText =
    "You must select a valid date range before you can graph data.";
const char* const NotEnoughDataText = "Not enough data exists to create this graph.";
const char* const NoDietPlanText = "You must define a diet plan in your goals to use this feature.";
const char* const DateAxisLabel = "Date";
const char* const DateAxisFormat = "%m/%d ";
const char* const WakeTimeFormatImperial = "%I:%M:%S%p";
const char* const WakeTimeFormatMetric = "%H:%M:%S ";
const char* const FieldTimeFormat = "%H:%M:%S ";
const char* const PlanLabel = "Plan";

const std::array<const char*, HealthItemCount> HealthItemNames = {"Weight",
                                                                  "Height",
                                                                  "Body Fat %",
                                                                  "BMI",
                                                                  "Sleep",
                                                                  "Wake Time",
                                                                  "Pulse",
                                                                  "Sys. Blood Pres.",
                                                                  "Dys. Blood Pres.",
                                                                  "V02 Max",
                                                                  "Temperature",
                                                                  "Neck",
                                                                  "Shoulders",
                                                                  "Chest",
                                                                  "Stomach",
                                                                  "Waist",
                                                                  "Hips",
                                                                  "Left Bicep",
                                                                  "Right Bicep",
                                                                  "Left Forearm",
                                                                  "Right Forearm",
                                                                  "Left Thigh",
                                                                  "Right Thigh",
                                                                  "Left Calf",
                                                                  "Right Calf"};

namespace {

constexpr int FieldKindTime = 2;

double secondsOfDay(model::TimeT t)
{
    const model::TimeT midnight = model::CalendarDate::fromTime(t).toTime();
    return static_cast<double>(t - midnight);
}

// The value of a health item in an entry; wake time as seconds since local midnight.
double healthValue(const model::HealthEntry& h, HealthItem item)
{
    using M = model::Measurement;
    switch (item) {
    case HealthItem::Weight:
        return h.weight;
    case HealthItem::Height:
        return h.height;
    case HealthItem::BodyFat:
        return h.bodyFat;
    case HealthItem::Bmi:
        return h.bmi;
    case HealthItem::Sleep:
        return h.sleep;
    case HealthItem::WakeTime:
        return secondsOfDay(h.wakeTime);
    case HealthItem::Pulse:
        return h.pulse;
    case HealthItem::Systolic:
        return h.systolic;
    case HealthItem::Diastolic:
        return h.diastolic;
    case HealthItem::Vo2Max:
        return h.vo2Max;
    case HealthItem::Temperature:
        return h.temperature;
    case HealthItem::Neck:
        return h.measurement(M::Neck);
    case HealthItem::Shoulders:
        return h.measurement(M::Shoulders);
    case HealthItem::Chest:
        return h.measurement(M::Chest);
    case HealthItem::Stomach:
        return h.measurement(M::Stomach);
    case HealthItem::Waist:
        return h.measurement(M::Waist);
    case HealthItem::Hips:
        return h.measurement(M::Hips);
    case HealthItem::LeftBicep:
        return h.measurement(M::LeftBicep);
    case HealthItem::RightBicep:
        return h.measurement(M::RightBicep);
    case HealthItem::LeftForearm:
        return h.measurement(M::LeftForearm);
    case HealthItem::RightForearm:
        return h.measurement(M::RightForearm);
    case HealthItem::LeftThigh:
        return h.measurement(M::LeftThigh);
    case HealthItem::RightThigh:
        return h.measurement(M::RightThigh);
    case HealthItem::LeftCalf:
        return h.measurement(M::LeftCalf);
    case HealthItem::RightCalf:
        return h.measurement(M::RightCalf);
    }
    return 0.0;
}

std::vector<std::size_t> healthDays(const std::vector<model::JournalDay>& days,
                                    model::CalendarDate from, model::CalendarDate to)
{
    return byDate(days, daysInRange(days, from, to, [](const model::JournalDay& d) {
                      return !d.health.isEmpty();
                  }));
}

std::optional<Series> unlessEmpty(Series s)
{
    if (s.points.empty())
        return std::nullopt;
    return s;
}

std::optional<double> fieldValue(const std::string& text, std::int32_t kind)
{
    return kind == FieldKindTime ? fieldTimeSeconds(text) : parseNumber(text);
}

} // namespace

std::optional<Series> baseCurve(model::CalendarDate from, model::CalendarDate to)
{
    const long first = from.dayNumber();
    const long last = to.dayNumber();
    if (last <= first)
        return std::nullopt;
    Series s;
    s.points.reserve(static_cast<std::size_t>(last - first));
    for (long n = first; n < last; ++n)
        s.points.push_back(SeriesPoint{dateOfDayNumber(n).toTime(), 0.0});
    return s;
}

std::optional<Series> nutrientCurve(const model::Store& store, model::CalendarDate from,
                                    model::CalendarDate to, model::NutrientId nutrient)
{
    const auto& days = store.journal.days;
    Series s;
    s.label = model::cp1252ToUtf8(store.foods.catalogue().nameOf(nutrient));
    const auto chosen = byDate(days, daysInRange(days, from, to, [](const model::JournalDay& d) {
                                   return !d.meals.empty();
                               }));
    s.points.reserve(chosen.size());
    for (std::size_t i : chosen)
        s.points.push_back(SeriesPoint{days[i].date, store.value(days[i], nutrient)});
    return unlessEmpty(std::move(s));
}

std::optional<Series> healthCurve(const std::vector<model::JournalDay>& days,
                                  model::CalendarDate from, model::CalendarDate to, HealthItem item,
                                  bool metric)
{
    Series s;
    s.label = HealthItemNames[static_cast<std::size_t>(item)];
    const bool wakeTime = item == HealthItem::WakeTime;
    if (wakeTime) {
        s.axis = AxisKind::Time;
        s.axisFormat = metric ? WakeTimeFormatMetric : WakeTimeFormatImperial;
    }
    for (std::size_t i : healthDays(days, from, to)) {
        const model::HealthEntry& h = days[i].health;
        if (wakeTime && h.wakeTime == 0)
            continue; // no wake time recorded that day
        s.points.push_back(SeriesPoint{days[i].date, healthValue(h, item)});
    }
    return unlessEmpty(std::move(s));
}

std::optional<Series> variableCurve(const std::vector<model::JournalDay>& days,
                                    model::CalendarDate from, model::CalendarDate to,
                                    const model::UserVariable& variable)
{
    Series s;
    s.label = model::cp1252ToUtf8(variable.name);
    for (std::size_t i : healthDays(days, from, to)) {
        double sum = 0.0;
        for (const model::VariableUse& use : days[i].health.variables)
            if (use.variable == variable.id)
                sum += static_cast<double>(use.number);
        s.points.push_back(SeriesPoint{days[i].date, sum});
    }
    return unlessEmpty(std::move(s));
}

std::optional<Series> fitnessCurve(const std::vector<model::JournalDay>& days,
                                   model::CalendarDate from, model::CalendarDate to,
                                   const model::Exercise& exercise,
                                   const model::ExerciseField& field)
{
    Series s;
    s.label = model::cp1252ToUtf8(exercise.name) + " - " + model::cp1252ToUtf8(field.name);
    if (field.kind == FieldKindTime) {
        s.axis = AxisKind::Time;
        s.axisFormat = FieldTimeFormat;
    }
    const auto holdsExercise = [&](const model::JournalDay& d) {
        for (const model::WorkoutEntry& w : d.workouts)
            for (const model::ExerciseRecord& r : w.exercises)
                if (r.exercise == exercise.id)
                    return true;
        return false;
    };
    for (std::size_t i : byDate(days, daysInRange(days, from, to, holdsExercise))) {
        std::optional<double> best;
        for (const model::WorkoutEntry& w : days[i].workouts)
            for (const model::ExerciseRecord& r : w.exercises) {
                if (r.exercise != exercise.id)
                    continue;
                for (const model::ExerciseValue& v : r.values) {
                    if (v.field != field.id)
                        continue;
                    const std::optional<double> value = fieldValue(v.value, field.kind);
                    if (value && (!best || *value > *best))
                        best = value;
                }
            }
        if (best)
            s.points.push_back(SeriesPoint{days[i].date, *best});
    }
    return unlessEmpty(std::move(s));
}

std::optional<double> fieldTimeSeconds(const std::string& text)
{
    int parts[3] = {0, 0, 0};
    int count = 0;
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p != end && *p == ' ')
        ++p;
    while (count < 3) {
        const auto [next, error] = std::from_chars(p, end, parts[count]);
        if (error != std::errc() || parts[count] < 0)
            return std::nullopt;
        ++count;
        p = next;
        if (p == end || *p != ':')
            break;
        ++p;
    }
    while (p != end && *p == ' ')
        ++p;
    if (p != end || count < 2 || parts[1] > 59 || parts[2] > 59)
        return std::nullopt;
    return parts[0] * 3600.0 + parts[1] * 60.0 + parts[2];
}

DietPlanGraph dietPlanGraph(const model::User& user, const std::vector<model::JournalDay>& days)
{
    DietPlanGraph g;
    g.from = model::CalendarDate::fromTime(user.planStart);
    g.to = model::CalendarDate::fromTime(user.planEnd);
    if (user.changeWeight == 0)
        return g;
    g.base = baseCurve(g.from, g.to);
    if (!g.base) {
        g.state = DietPlanGraph::State::InvalidRange;
        return g;
    }
    g.state = DietPlanGraph::State::Shown;
    g.weight = healthCurve(days, g.from, g.to, HealthItem::Weight, user.isMetric());
    g.plan.label = PlanLabel;
    g.plan.ownAxisShown = false;
    g.plan.points = {SeriesPoint{user.planStart, user.planStartWeight},
                     SeriesPoint{user.planEnd, user.planEndWeight}};
    return g;
}

std::optional<Series> trendCurve(const Series& curve)
{
    if (curve.points.empty() || curve.axis != AxisKind::Number)
        return std::nullopt;
    Series trend;
    trend.label = curve.label + " trend";
    trend.ownAxisShown = false;
    double smoothed = curve.points.front().value;
    long previous = dayNumberOf(curve.points.front().date);
    for (const SeriesPoint& p : curve.points) {
        const long day = dayNumberOf(p.date);
        const double gap = static_cast<double>(std::max(0L, day - previous));
        smoothed += (1.0 - std::pow(1.0 - TrendSmoothing, gap)) * (p.value - smoothed);
        previous = day;
        trend.points.push_back(SeriesPoint{p.date, smoothed});
    }
    return trend;
}

DateRange quickRange(QuickRange range, model::CalendarDate today,
                     const std::vector<model::JournalDay>& days)
{
    long first = today.dayNumber();
    long last = today.dayNumber();
    for (const model::JournalDay& d : days) {
        const long n = dayNumberOf(d.date);
        first = std::min(first, n);
        last = std::max(last, n);
    }
    const long end = last;
    long start = today.dayNumber();
    switch (range) {
    case QuickRange::Week:
        start -= 7;
        break;
    case QuickRange::Month:
        start -= 30;
        break;
    case QuickRange::Quarter:
        start -= 90;
        break;
    case QuickRange::Year: {
        model::CalendarDate before = today;
        before.year -= 1;
        if (before.month == 2 && before.day == 29)
            before.day = 28;
        start = before.dayNumber();
        break;
    }
    case QuickRange::All:
        start = days.empty() ? start - 30 : first;
        break;
    }
    if (start >= end)
        start = end - 1;
    return {dateOfDayNumber(start), dateOfDayNumber(end)};
}

} // namespace velmora::analysis
