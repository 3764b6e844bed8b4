#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <vector>

#include "model/DateText.h"
#include "model/Nutrients.h"

namespace velmora::model {
class Store;
}

namespace velmora::analysis {

// The table's column headings: "Nutrient", "Avg", "Daily Goal", "Net".
extern const std::array<const char*, 4> AnalysisHeadings;
// "You have not yet set your nutritional goals, so a report is not possible."
extern const char* const GoalsNotSetText;
// The note under the table on the page ("* Weight change is estimated ...").
extern const char* const AnalysisPageNote;

// One row: a goal nutrient with its cells as the table shows them (UTF-8).
struct AnalysisRow
{
    model::NutrientId nutrient = 0;
    std::array<std::string, 4> cells; // name, average, goal, net
};

struct AnalysisTable
{
    enum class State
    {
        Rows,        // the rows below
        Empty,       // no day with a meal in the period, or a net energy of 0: no rows, no message
        GoalsNotSet, // GoalsNotSetText is shown; no rows
    };
    State state = State::Empty;
    int days = 0; // the days with a meal that the averages are taken over
    std::vector<AnalysisRow> rows;
};

// The nutritional analysis of the current user over the local dates `from` to `to`, both included,
// one row per goal nutrient in the goal list's order. Only days with at least one meal count, and
// each nutrient's average is its daily total summed over those days and divided by their number.
// Energy counts net: each counted day's energy less the calories of that day's workouts. "Net" is
// the average less the goal; for the energy shares "-"; for energy the weight change that the
// period's eating implies at 3500 kcal per pound against the goal (the plan's daily change added to
// what was eaten while the user wishes to change weight), "%.1lf lbs *" or, metric, "%.1lf kg. *".
// Numbers are "%.1lf". From later than To gives an empty table.
AnalysisTable buildAnalysis(const model::Store& store, model::CalendarDate from,
                            model::CalendarDate to);

// The table as text for a terminal: the heading line "Nutrient\tAvg\tDaily Goal\tNet", then one
// line per row with the cells as the page shows them, separated by one tab; every line ends with
// '\n'. An empty table writes the heading line alone; a table whose goals are not set writes
// nothing (the caller reports GoalsNotSetText).
void writeAnalysisText(std::ostream& out, const AnalysisTable& table);

// The same heading and cells as comma-separated values: each line ends with "\r\n", and a cell
// holding a comma, a double quote, a carriage return or a line feed is quoted, with its double
// quotes doubled.
void writeAnalysisCsv(std::ostream& out, const AnalysisTable& table);

} // namespace velmora::analysis
