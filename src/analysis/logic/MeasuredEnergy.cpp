#include "analysis/logic/MeasuredEnergy.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "analysis/logic/DayRange.h"
#include "model/Store.h"
#include "model/FoodDatabase.h"

namespace velmora::analysis {

namespace {

// The smoothed weight's change per day from the weigh-in `from` to the last one, with the delay
// of an average that starts at the first weigh-in taken out. Weigh-ins are sorted by day and
// distinct; those before `from` only settle the average.
double smoothedDailyChange(const std::vector<WeighIn>& weighIns, std::size_t from)
{
    const long start = weighIns.front().day;
    double smoothed = weighIns.front().weight;
    double atFrom = smoothed;
    std::size_t next = 1;
    for (long day = start + 1; day <= weighIns.back().day; ++day) {
        while (weighIns[next].day < day)
            ++next;
        const WeighIn& before = weighIns[next - 1];
        const WeighIn& after = weighIns[next];
        const double share =
            static_cast<double>(day - before.day) / static_cast<double>(after.day - before.day);
        const double weight = before.weight + (after.weight - before.weight) * share;
        smoothed += WeightSmoothing * (weight - smoothed);
        if (day == weighIns[from].day)
            atFrom = smoothed;
    }
    // Against w(t) = a + r t the average trails by lag x (1 - q^t) x r, t the days since it
    // started, lag = (1 - s) / s and q = 1 - s: from `from` to the end it follows
    // (end - from) - lag x (q^(from - start) - q^(end - start)) days of the change.
    const double lag = (1.0 - WeightSmoothing) / WeightSmoothing;
    const double q = 1.0 - WeightSmoothing;
    const auto since = [&](long day) { return static_cast<double>(day - start); };
    const double followed =
        since(weighIns.back().day) - since(weighIns[from].day) -
        lag * (std::pow(q, since(weighIns[from].day)) - std::pow(q, since(weighIns.back().day)));
    return (smoothed - atFrom) / followed;
}

} // namespace

MeasuredEnergy measureEnergy(const std::vector<DayIntake>& intake,
                             const std::vector<WeighIn>& weighIns, bool metric, long firstDay)
{
    MeasuredEnergy m;
    std::map<long, double> eaten;
    for (const DayIntake& d : intake)
        if (d.day >= firstDay)
            eaten[d.day] += d.netKcal;
    std::map<long, double> weights;
    for (const WeighIn& w : weighIns)
        weights[w.day] = w.weight;
    const auto measured = weights.lower_bound(firstDay);
    m.loggedDays = static_cast<int>(eaten.size());
    m.weighIns = static_cast<int>(std::distance(measured, weights.end()));
    if (m.weighIns > 0)
        m.spanDays = static_cast<int>(weights.rbegin()->first - measured->first);
    if (m.loggedDays < MinimumLoggedDays) {
        m.status = MeasuredEnergyStatus::TooFewLoggedDays;
        return m;
    }
    if (m.spanDays < MinimumWeighInSpanDays) {
        m.status = MeasuredEnergyStatus::TooFewWeighIns;
        return m;
    }
    double total = 0.0;
    for (const auto& [day, kcal] : eaten)
        total += kcal;
    m.averageIntake = total / static_cast<double>(m.loggedDays);

    std::vector<WeighIn> sorted;
    for (const auto& [day, weight] : weights)
        sorted.push_back({day, weight});
    const auto from = static_cast<std::size_t>(std::distance(weights.begin(), measured));
    m.dailyWeightChange = smoothedDailyChange(sorted, from);
    m.maintenance =
        m.averageIntake - m.dailyWeightChange * (metric ? KcalPerKilogram : KcalPerPound);
    m.status = MeasuredEnergyStatus::Measured;
    return m;
}

MeasuredEnergy measuredEnergyNeed(const model::Store& store, const model::CalendarDate& today)
{
    const long firstDay = today.dayNumber() - MeasuredWindowDays + 1;
    // Weigh-ins of as many days again before the window settle the smoothed weight.
    const model::CalendarDate settle = dateOfDayNumber(firstDay - MeasuredWindowDays);
    std::vector<DayIntake> intake;
    std::vector<WeighIn> weighIns;
    const auto positions = daysInRange(store.journal.days, settle, today,
                                       [](const model::JournalDay&) { return true; });
    for (std::size_t i : positions) {
        const model::JournalDay& day = store.journal.days[i];
        const long number = dayNumberOf(day.date);
        const bool logged = std::any_of(day.meals.begin(), day.meals.end(),
                                        [](const model::Meal& m) { return !m.entries.empty(); });
        if (logged) {
            double burned = 0.0;
            for (const model::WorkoutEntry& w : day.workouts)
                burned += w.calories;
            intake.push_back({number, store.value(day, model::nutrient::Energy) - burned});
        }
        if (day.health.weight > 0.0f)
            weighIns.push_back({number, day.health.weight});
    }
    return measureEnergy(intake, weighIns, store.journal.user.isMetric(), firstDay);
}

std::string measuredEnergyBasis(const MeasuredEnergy& m)
{
    const int windowWeeks = MeasuredWindowDays / 7;
    switch (m.status) {
    case MeasuredEnergyStatus::TooFewLoggedDays:
        return model::formatText("Too few days with meals: %d in the last %d weeks, at least %d "
                                 "are needed.",
                                 m.loggedDays, windowWeeks, MinimumLoggedDays);
    case MeasuredEnergyStatus::TooFewWeighIns:
        return model::formatText(
            "Too few weigh-ins: at least two, %d days apart, are needed in the "
            "last %d weeks (%d found%s).",
            MinimumWeighInSpanDays, windowWeeks, m.weighIns,
            m.weighIns > 1 ? model::formatText(", %d days apart", m.spanDays).c_str() : "");
    case MeasuredEnergyStatus::Measured:
        break;
    }
    const std::string span = m.spanDays >= 14 ? model::formatText("%d weeks", (m.spanDays + 3) / 7)
                                              : model::formatText("%d days", m.spanDays);
    return model::formatText("from %d logged days and %d weigh-ins over %s", m.loggedDays,
                             m.weighIns, span.c_str());
}

std::string planAgainstMeasuredText(double maintenance, int dailyChange)
{
    return model::formatText("Against the %.0f kcal a day measured from your journal, this means "
                             "eating about %.0f kcal a day.",
                             maintenance, std::max(0.0, maintenance + dailyChange));
}

} // namespace velmora::analysis
