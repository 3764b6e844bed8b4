#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/DateText.h"

namespace velmora::model {
struct UserJournal;
}

namespace velmora::exchange {

enum class WeightUnit
{
    Pounds,
    Kilograms
};

enum class LengthUnit
{
    Inches,
    Centimetres
};

// The health values that weigh-in files carry.
enum class ImportedValue
{
    Weight,
    BodyFat,
    Bmi,
    Waist
};

// Choices for a file that does not say everything itself.
struct HealthImportOptions
{
    // Units of weight and waist columns whose header and cells name no unit; by default the
    // user's own units.
    std::optional<WeightUnit> weightUnit;
    std::optional<LengthUnit> lengthUnit;
    // Whether "03/04/2024" is the 3rd of April; by default as the user's dates are written (day
    // first in metric mode).
    std::optional<bool> dayFirst;
};

// One value that an import would write, in the user's units.
struct HealthChange
{
    model::CalendarDate date;
    ImportedValue value = ImportedValue::Weight;
    float oldValue = 0.0f; // 0 when the journal holds none
    float newValue = 0.0f;
    int line = 0; // the file's line it comes from
};

// A row that could not be read, and why. It is skipped as a whole.
struct RowProblem
{
    int line = 0;
    std::string message;
};

// What an import would change, worked out without touching the journal. Of several rows of the
// same date, the latest time wins (rows without a time count as earliest; ties: the later line).
struct HealthImportPlan
{
    std::vector<HealthChange> newValues;    // where the journal holds no value yet
    std::vector<HealthChange> replacements; // where the journal holds a different value
    std::size_t unchanged = 0;              // values the journal already holds
    std::size_t rowsRead = 0;               // data rows read whole
    std::vector<RowProblem> problems;       // rows skipped, in file order
    // The recognised columns, e.g. "Date", "Weight (kg), converted from kg to lb", for the
    // preview.
    std::vector<std::string> columns;

    bool hasChanges(bool replace) const
    {
        return !newValues.empty() || (replace && !replacements.empty());
    }
};

// Why a whole file cannot be imported.
struct HealthImportError
{
    enum class Code
    {
        Empty,         // no header row
        NoDateColumn,  // no column named like a date
        NoValueColumn, // none of weight, body fat, BMI, waist
        UnknownUnit    // a value column names a unit that is not known
    };
    Code code = Code::Empty;
    std::string detail; // the column concerned, where there is one

    std::string message() const;
};

// The plan of an import, or why there is none.
struct HealthImportOutcome
{
    std::optional<HealthImportPlan> plan;
    HealthImportError error;

    bool ok() const { return plan.has_value(); }
};

// Reads a weigh-in CSV (UTF-8 or Windows-1252; delimiter comma, semicolon or tab, found from the
// header; with a semicolon or tab delimiter "72,5" reads as 72.5) and plans its import into the
// journal's health entries. Columns are found by name, case-insensitively: a date (or date and
// time) column, an optional separate "Time" column, and any of weight, body fat (%), BMI and
// waist, with units in the header ("Weight (kg)", "weight_lb", "Waist [cm]") or in the cells
// ("72.5 kg"), otherwise from options. Values are converted to the user's units (2.2046 lb per kg,
// 2.54 cm per inch). A row with a date that cannot be read, a value that is not a number or out
// of range (negative, body fat above 100), or fewer fields than the header is reported and
// skipped; an empty value, or 0, means "no value". The journal is only read.
HealthImportOutcome planHealthImport(std::string_view csvText, const model::UserJournal& journal,
                                     const HealthImportOptions& options = {});

// Writes a plan's values into the journal's health entries: the new values always, the
// replacements only when replace is set. A date without a journal day gets a new day (stamped
// with local midnight). Returns how many values were written.
std::size_t applyHealthImport(model::UserJournal& journal, const HealthImportPlan& plan,
                              bool replace);

// "Weight", "Body fat", "BMI", "Waist".
const char* importedValueName(ImportedValue v);

} // namespace velmora::exchange
