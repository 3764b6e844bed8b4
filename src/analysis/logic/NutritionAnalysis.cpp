#include "analysis/logic/NutritionAnalysis.h"

#include <ostream>

#include "analysis/logic/DayRange.h"
#include "model/FoodDatabase.h"
#include "model/Nutrition.h"
#include "model/Store.h"
#include "model/TextCodec.h"

namespace velmora::analysis {

const std::array<const char*, 4> AnalysisHeadings = {"Nutrient", "Avg", "Daily Goal", "Net"};
const char* const GoalsNotSetText =
    "You have not yet set your nutritional goals, so a report is not possible.";
const char* const AnalysisPageNote =
    "* Weight change is estimated based on 3500 kcal per lb. or 0.45 kg";

namespace {

constexpr double PoundsPerKcal = 1.0 / 3500.0;
constexpr double KilogramsPerPound = 0.4535970244035199; // 1 / 2.2046

bool isEnergyShare(model::NutrientId n)
{
    return n >= model::nutrient::PercentFat && n <= model::nutrient::PercentProtein;
}

// Sums of the goal nutrients' daily totals over the chosen days. Stored nutrients come from one
// pass over each day's entries; computed ones (energy shares, points, protein score ...) take the
// group rule per nutrient.
struct GoalSums
{
    std::vector<double> sums;
    double netEnergy = 0.0;
};

GoalSums sumGoals(const model::Store& store, const std::vector<std::size_t>& chosen,
                  const std::vector<model::NutrientId>& goals)
{
    const model::NutrientCatalogue& catalogue = store.foods.catalogue();
    // Where each goal's value lies in a food, or -1 for the group rule.
    std::vector<int> slot(goals.size(), -1);
    for (std::size_t g = 0; g < goals.size(); ++g) {
        const int i = model::nutrient::isComputed(goals[g]) ? -1 : catalogue.indexOf(goals[g]);
        slot[g] = i < model::StoredNutrientCount ? i : -1;
    }
    const int energySlot = catalogue.indexOf(model::nutrient::Energy);

    GoalSums out;
    out.sums.assign(goals.size(), 0.0);
    std::vector<model::ResolvedEntry> entries;
    for (std::size_t d : chosen) {
        const model::JournalDay& day = store.journal.days[d];
        entries.clear();
        for (const model::Meal& m : day.meals)
            for (const model::FoodEntry& e : m.entries)
                if (const model::FoodItem* f = store.findFood(e.food))
                    entries.push_back(model::ResolvedEntry{f, e.amount});
        const auto totals = model::groupStoredTotals(entries);

        double burned = 0.0;
        for (const model::WorkoutEntry& w : day.workouts)
            burned += w.calories;
        const double energy = energySlot >= 0 && energySlot < model::StoredNutrientCount
                                  ? totals[static_cast<std::size_t>(energySlot)]
                                  : model::groupValue(catalogue, entries, model::nutrient::Energy);
        out.netEnergy += energy - burned;

        for (std::size_t g = 0; g < goals.size(); ++g) {
            if (goals[g] == model::nutrient::Energy)
                out.sums[g] += energy - burned;
            else if (slot[g] < 0)
                out.sums[g] += model::groupValue(catalogue, entries, goals[g]);
            else
                out.sums[g] += totals[static_cast<std::size_t>(slot[g])];
        }
    }
    return out;
}

std::string number(double v)
{
    return model::formatText("%.1lf", v);
}

void writeCsvCell(std::ostream& out, const std::string& cell)
{
    if (cell.find_first_of(",\"\r\n") == std::string::npos) {
        out << cell;
        return;
    }
    out << '"';
    for (char c : cell) {
        if (c == '"')
            out << '"';
        out << c;
    }
    out << '"';
}

} // namespace

AnalysisTable buildAnalysis(const model::Store& store, model::CalendarDate from,
                            model::CalendarDate to)
{
    AnalysisTable table;
    const auto& days = store.journal.days;
    const auto chosen =
        daysInRange(days, from, to, [](const model::JournalDay& d) { return !d.meals.empty(); });
    if (chosen.empty())
        return table;
    const model::User& user = store.journal.user;
    if (!user.goalsSet()) {
        table.state = AnalysisTable::State::GoalsNotSet;
        return table;
    }
    const GoalSums sums = sumGoals(store, chosen, user.goalNutrients);
    // Net energy of exactly 0 means nothing worth reporting was eaten.
    if (sums.netEnergy == 0.0)
        return table;

    const double n = static_cast<double>(chosen.size());
    table.state = AnalysisTable::State::Rows;
    table.days = static_cast<int>(chosen.size());
    table.rows.reserve(user.goalNutrients.size());
    for (std::size_t g = 0; g < user.goalNutrients.size(); ++g) {
        const model::NutrientId id = user.goalNutrients[g];
        const double sum = sums.sums[g];
        const double goal = user.goalValues[g];
        AnalysisRow row;
        row.nutrient = id;
        row.cells[0] = model::cp1252ToUtf8(store.foods.catalogue().nameOf(id));
        row.cells[1] = number(sum / n);
        row.cells[2] = number(goal);
        if (isEnergyShare(id)) {
            row.cells[3].push_back('-'); // an energy share has no difference to show
        } else if (id == model::nutrient::Energy) {
            const double eaten =
                sum + (user.changeWeight != 0 ? n * static_cast<double>(user.dailyChange) : 0.0);
            const double pounds = (eaten - n * goal) * PoundsPerKcal;
            row.cells[3] = user.isMetric()
                               ? model::formatText("%.1lf kg. *", pounds * KilogramsPerPound)
                               : model::formatText("%.1lf lbs *", pounds);
        } else {
            row.cells[3] = number(sum / n - goal);
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

void writeAnalysisText(std::ostream& out, const AnalysisTable& table)
{
    if (table.state == AnalysisTable::State::GoalsNotSet)
        return;
    out << AnalysisHeadings[0] << '\t' << AnalysisHeadings[1] << '\t' << AnalysisHeadings[2] << '\t'
        << AnalysisHeadings[3] << '\n';
    for (const AnalysisRow& row : table.rows)
        out << row.cells[0] << '\t' << row.cells[1] << '\t' << row.cells[2] << '\t' << row.cells[3]
            << '\n';
}

void writeAnalysisCsv(std::ostream& out, const AnalysisTable& table)
{
    if (table.state == AnalysisTable::State::GoalsNotSet)
        return;
    const auto line = [&](const auto& cells) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (i > 0)
                out << ',';
            writeCsvCell(out, cells[i]);
        }
        out << "\r\n";
    };
    line(std::array<std::string, 4>{AnalysisHeadings[0], AnalysisHeadings[1], AnalysisHeadings[2],
                                    AnalysisHeadings[3]});
    for (const AnalysisRow& row : table.rows)
        line(row.cells);
}

} // namespace velmora::analysis
