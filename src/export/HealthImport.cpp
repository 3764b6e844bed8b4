#include "export/HealthImport.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <tuple>

#include "export/CsvReader.h"
#include "export/FieldText.h"
#include "export/ImportDate.h"
#include "model/FoodDatabase.h"
#include "model/UserDatabase.h"

namespace velmora::exchange {

namespace {

// The program's own conversion constants.
constexpr double PoundsPerKilogram = 2.2046;
constexpr double CentimetresPerInch = 2.54;

// The units a cell or header may state, per kind of value.
enum class Unit
{
    None,
    Kilograms,
    Pounds,
    Centimetres,
    Inches,
    Millimetres,
    Percent,
    Other
};

Unit unitOf(std::string_view word)
{
    static const std::pair<const char*, Unit> Words[] = {
        {"kg", Unit::Kilograms},
        {"kgs", Unit::Kilograms},
        {"kilogram", Unit::Kilograms},
        {"kilograms", Unit::Kilograms},
        {"lb", Unit::Pounds},
        {"lbs", Unit::Pounds},
        {"pound", Unit::Pounds},
        {"pounds", Unit::Pounds},
        {"cm", Unit::Centimetres},
        {"centimetre", Unit::Centimetres},
        {"centimetres", Unit::Centimetres},
        {"centimeter", Unit::Centimetres},
        {"centimeters", Unit::Centimetres},
        {"in", Unit::Inches},
        {"inch", Unit::Inches},
        {"inches", Unit::Inches},
        {"mm", Unit::Millimetres},
        {"%", Unit::Percent},
        {"percent", Unit::Percent},
        {"pct", Unit::Percent},
    };
    if (word.empty())
        return Unit::None;
    for (const auto& [w, u] : Words)
        if (word == w)
            return u;
    return Unit::Other;
}

std::string lowered(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (char c : text)
        out += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

// A header split into its name and stated unit, both lower case: "Weight (kg)", "weight_kg",
// "Body Fat %", "Waist [cm]".
struct HeaderName
{
    std::string name;
    std::string unit;
};

HeaderName splitHeader(std::string_view raw)
{
    std::string text = lowered(trimmed(raw));
    std::replace(text.begin(), text.end(), '_', ' ');
    HeaderName h;
    const std::size_t open = text.find_first_of("([");
    if (open != std::string::npos) {
        const std::size_t close = text.find_first_of(")]", open);
        h.unit = std::string(trimmed(std::string_view(text).substr(
            open + 1, close == std::string::npos ? std::string::npos : close - open - 1)));
        text.erase(open);
    } else if (!text.empty() && text.back() == '%') {
        h.unit = "%";
        text.pop_back();
    } else {
        const std::size_t space = text.find_last_of(' ');
        if (space != std::string::npos) {
            const std::string last = text.substr(space + 1);
            const Unit u = unitOf(last);
            if (u != Unit::None && u != Unit::Other) {
                h.unit = last;
                text.erase(space);
            }
        }
    }
    // Collapse the blanks that are left.
    std::string name;
    for (char c : trimmed(text)) {
        if (c == ' ' && !name.empty() && name.back() == ' ')
            continue;
        name += c;
    }
    while (!name.empty() && name.back() == ' ')
        name.pop_back();
    h.name = std::move(name);
    return h;
}

bool nameIn(const std::string& name, std::initializer_list<const char*> names)
{
    for (const char* n : names)
        if (name == n)
            return true;
    return false;
}

std::optional<ImportedValue> valueOfHeader(const HeaderName& h)
{
    if (nameIn(h.name, {"weight", "body weight", "bodyweight", "weight measurement"}))
        return ImportedValue::Weight;
    if (nameIn(h.name,
               {"body fat", "bodyfat", "fat", "fat ratio", "body fat ratio", "body fat percentage",
                "fat percentage", "body fat percent", "fat percent", "body fat rate", "fat rate"}))
        return ImportedValue::BodyFat;
    if (nameIn(h.name, {"bmi", "body mass index"}))
        return ImportedValue::Bmi;
    if (nameIn(h.name, {"waist", "waist circumference", "waist size"}))
        return ImportedValue::Waist;
    return std::nullopt;
}

bool unitFits(ImportedValue v, Unit u)
{
    switch (v) {
    case ImportedValue::Weight:
        return u == Unit::None || u == Unit::Kilograms || u == Unit::Pounds;
    case ImportedValue::Waist:
        return u == Unit::None || u == Unit::Centimetres || u == Unit::Inches ||
               u == Unit::Millimetres;
    case ImportedValue::BodyFat:
        return u == Unit::None || u == Unit::Percent;
    case ImportedValue::Bmi:
        return true; // "kg/m2" and the like carry nothing to convert
    }
    return false;
}

const char* unitText(Unit u)
{
    switch (u) {
    case Unit::Kilograms:
        return "kg";
    case Unit::Pounds:
        return "lb";
    case Unit::Centimetres:
        return "cm";
    case Unit::Inches:
        return "in";
    case Unit::Millimetres:
        return "mm";
    case Unit::Percent:
        return "%";
    default:
        return "";
    }
}

struct ValueColumn
{
    std::size_t index = 0;
    ImportedValue value = ImportedValue::Weight;
    Unit unit = Unit::None; // as the header states it
};

// The factor from a unit into the user's unit of the value; 1 when nothing converts.
double factorInto(ImportedValue v, Unit u, bool metric)
{
    if (v == ImportedValue::Weight) {
        if (u == Unit::Kilograms && !metric)
            return PoundsPerKilogram;
        if (u == Unit::Pounds && metric)
            return 1.0 / PoundsPerKilogram;
    } else if (v == ImportedValue::Waist) {
        const double cm = u == Unit::Inches        ? CentimetresPerInch
                          : u == Unit::Millimetres ? 0.1
                                                   : 1.0;
        if (u == Unit::None || (u == Unit::Inches && !metric))
            return 1.0;
        return metric ? cm : cm / CentimetresPerInch;
    }
    return 1.0;
}

std::string quotedCell(std::string_view cell)
{
    std::string text(trimmed(cell));
    if (text.size() > 40)
        text = text.substr(0, 40) + "...";
    return "\"" + text + "\"";
}

std::string lowerName(ImportedValue v)
{
    return v == ImportedValue::Bmi ? "BMI" : lowered(importedValueName(v));
}

// The value of one cell in the user's unit; nothing for an empty cell; an error text otherwise.
struct CellValue
{
    std::optional<float> value;
    std::string error;
};

CellValue readCell(std::string_view cell, const ValueColumn& column, Unit defaultUnit, bool metric,
                   bool decimalComma)
{
    CellValue out;
    std::string_view text = trimmed(cell);
    if (text.empty())
        return out;
    // A unit may follow the number in the cell: "72.5 kg", "18%".
    std::size_t end = 0;
    while (end < text.size() &&
           (std::isdigit(static_cast<unsigned char>(text[end])) || text[end] == '.' ||
            text[end] == ',' || text[end] == '-' || text[end] == '+'))
        ++end;
    Unit unit = column.unit != Unit::None ? column.unit : defaultUnit;
    const std::string rest = lowered(trimmed(text.substr(end)));
    if (!rest.empty()) {
        const Unit stated = unitOf(rest);
        if (stated == Unit::Other || !unitFits(column.value, stated)) {
            out.error =
                "the " + lowerName(column.value) + " " + quotedCell(cell) + " is not a number";
            return out;
        }
        unit = stated;
        text = text.substr(0, end);
    }
    const double factor = factorInto(column.value, unit, metric);
    std::optional<float> value;
    if (factor == 1.0) {
        value = parseFloat(text, decimalComma);
    } else if (const auto d = parseNumber(text, decimalComma)) {
        value = static_cast<float>(*d * factor);
    }
    if (!value) {
        out.error = "the " + lowerName(column.value) + " " + quotedCell(cell) + " is not a number";
        return out;
    }
    if (*value < 0.0f || (column.value == ImportedValue::BodyFat && *value > 100.0f)) {
        out.error = "the " + lowerName(column.value) + " " + quotedCell(cell) + " is out of range";
        return out;
    }
    if (*value != 0.0f)
        out.value = value;
    return out;
}

// The columns of a weigh-in file, found by name.
constexpr std::size_t NoColumn = static_cast<std::size_t>(-1);
struct Columns
{
    std::size_t date = NoColumn;
    std::size_t time = NoColumn; // a separate time of day, if any
    std::vector<ValueColumn> values;
};

std::optional<Columns> findColumns(const std::vector<std::string>& header, HealthImportError& error)
{
    Columns c;
    int datePreference = 0; // 3 "date", 2 a name with "date" in it, 1 "timestamp" and the like
    for (std::size_t i = 0; i < header.size(); ++i) {
        const HeaderName h = splitHeader(header[i]);
        int preference = 0;
        if (h.name == "date")
            preference = 3;
        else if (h.name.find("date") != std::string::npos)
            preference = 2;
        else if (nameIn(h.name, {"timestamp", "datetime", "time", "day", "measured at"}))
            preference = 1;
        if (preference > datePreference) {
            datePreference = preference;
            c.date = i;
        }
        if (h.name == "time" && c.time == NoColumn)
            c.time = i;
        const auto value = valueOfHeader(h);
        if (!value)
            continue;
        const Unit unit = unitOf(h.unit);
        if (!unitFits(*value, unit)) {
            // "Fat (kg)" is a fat mass, not a share: not our column. Other units are unknown.
            if (*value == ImportedValue::BodyFat)
                continue;
            error.code = HealthImportError::Code::UnknownUnit;
            error.detail = header[i];
            return std::nullopt;
        }
        const bool taken = std::any_of(c.values.begin(), c.values.end(),
                                       [&](const ValueColumn& v) { return v.value == *value; });
        if (!taken)
            c.values.push_back({i, *value, unit});
    }
    if (c.date == NoColumn) {
        error.code = HealthImportError::Code::NoDateColumn;
        return std::nullopt;
    }
    if (c.time == c.date)
        c.time = NoColumn;
    if (c.values.empty()) {
        error.code = HealthImportError::Code::NoValueColumn;
        return std::nullopt;
    }
    return c;
}

float currentValue(const model::HealthEntry& h, ImportedValue v)
{
    switch (v) {
    case ImportedValue::Weight:
        return h.weight;
    case ImportedValue::BodyFat:
        return h.bodyFat;
    case ImportedValue::Bmi:
        return h.bmi;
    case ImportedValue::Waist:
        break;
    }
    return h.measurement(model::Measurement::Waist);
}

void setValue(model::HealthEntry& h, ImportedValue v, float value)
{
    switch (v) {
    case ImportedValue::Weight:
        h.weight = value;
        return;
    case ImportedValue::BodyFat:
        h.bodyFat = value;
        return;
    case ImportedValue::Bmi:
        h.bmi = value;
        return;
    case ImportedValue::Waist:
        h.measurements[static_cast<std::size_t>(model::Measurement::Waist)] = value;
        return;
    }
}

// The first journal day of each calendar date, as the health page finds a day.
std::map<model::CalendarDate, std::size_t> daysByDate(const model::UserJournal& journal)
{
    std::map<model::CalendarDate, std::size_t> days;
    for (std::size_t i = 0; i < journal.days.size(); ++i)
        days.try_emplace(model::CalendarDate::fromTime(journal.days[i].date), i);
    return days;
}

} // namespace

const char* importedValueName(ImportedValue v)
{
    switch (v) {
    case ImportedValue::Weight:
        return "Weight";
    case ImportedValue::BodyFat:
        return "Body fat";
    case ImportedValue::Bmi:
        return "BMI";
    case ImportedValue::Waist:
        return "Waist";
    }
    return "";
}

std::string HealthImportError::message() const
{
    switch (code) {
    case Code::Empty:
        return "The file holds no header row.";
    case Code::NoDateColumn:
        return "The file has no date column.";
    case Code::NoValueColumn:
        return "The file has no column of weight, body fat, BMI or waist.";
    case Code::UnknownUnit:
        return "The unit of the column \"" + detail + "\" is not known.";
    }
    return {};
}

HealthImportOutcome planHealthImport(std::string_view csvText, const model::UserJournal& journal,
                                     const HealthImportOptions& options)
{
    HealthImportOutcome outcome;
    const bool metric = journal.user.isMetric();
    const bool dayFirst = options.dayFirst.value_or(metric);
    const char delimiter = detectDelimiter(csvText);
    const bool decimalComma = delimiter != ',';
    const CsvTable table = readCsv(csvText, delimiter);
    if (table.records.empty()) {
        outcome.error.code = HealthImportError::Code::Empty;
        return outcome;
    }

    const std::vector<std::string>& header = table.records.front().fields;
    const std::optional<Columns> found = findColumns(header, outcome.error);
    if (!found)
        return outcome;
    const std::size_t dateColumn = found->date, timeColumn = found->time;
    const std::vector<ValueColumn>& values = found->values;
    HealthImportPlan plan;
    plan.columns.push_back(std::string(trimmed(header[dateColumn])));
    if (timeColumn != NoColumn)
        plan.columns.push_back(std::string(trimmed(header[timeColumn])));
    const Unit userWeight = metric ? Unit::Kilograms : Unit::Pounds;
    const Unit userLength = metric ? Unit::Centimetres : Unit::Inches;
    const auto defaultUnit = [&](ImportedValue v) {
        if (v == ImportedValue::Weight)
            return options.weightUnit
                       ? (*options.weightUnit == WeightUnit::Kilograms ? Unit::Kilograms
                                                                       : Unit::Pounds)
                       : userWeight;
        if (v == ImportedValue::Waist)
            return options.lengthUnit
                       ? (*options.lengthUnit == LengthUnit::Centimetres ? Unit::Centimetres
                                                                         : Unit::Inches)
                       : userLength;
        return Unit::None;
    };
    for (const ValueColumn& c : values) {
        std::string text(trimmed(header[c.index]));
        const Unit from = c.unit != Unit::None ? c.unit : defaultUnit(c.value);
        const Unit to = c.value == ImportedValue::Weight  ? userWeight
                        : c.value == ImportedValue::Waist ? userLength
                                                          : from;
        if (from != to)
            text += model::formatText(", converted from %s to %s", unitText(from), unitText(to));
        plan.columns.push_back(std::move(text));
    }

    // The rows: the latest reading of each date and value.
    struct Reading
    {
        float value;
        int second;
        int line;
    };
    std::map<std::pair<model::CalendarDate, int>, Reading> readings;
    for (std::size_t r = 1; r < table.records.size(); ++r) {
        const CsvRecord& row = table.records[r];
        if (row.fields.size() < header.size()) {
            plan.problems.push_back(
                {row.line, model::formatText("the row has %d fields, the header has %d",
                                             static_cast<int>(row.fields.size()),
                                             static_cast<int>(header.size()))});
            continue;
        }
        const auto date = parseImportedDate(row.fields[dateColumn], dayFirst);
        if (!date) {
            plan.problems.push_back(
                {row.line, "the date " + quotedCell(row.fields[dateColumn]) + " cannot be read"});
            continue;
        }
        int second = date->secondOfDay;
        if (timeColumn != NoColumn && second < 0) {
            // A separate time column orders several weigh-ins of a day; it is not required.
            if (const auto t = parseImportedDate("2000-01-01 " + row.fields[timeColumn], dayFirst))
                second = t->secondOfDay;
        }
        std::vector<std::pair<ImportedValue, float>> cells;
        std::string error;
        for (const ValueColumn& c : values) {
            const CellValue cell =
                readCell(row.fields[c.index], c, defaultUnit(c.value), metric, decimalComma);
            if (!cell.error.empty()) {
                error = cell.error;
                break;
            }
            if (cell.value)
                cells.emplace_back(c.value, *cell.value);
        }
        if (!error.empty()) {
            plan.problems.push_back({row.line, error});
            continue;
        }
        ++plan.rowsRead;
        for (const auto& [value, v] : cells) {
            const auto key = std::make_pair(date->date, static_cast<int>(value));
            const auto it = readings.find(key);
            const Reading reading{v, second, row.line};
            if (it == readings.end())
                readings.emplace(key, reading);
            else if (std::tie(second, row.line) >= std::tie(it->second.second, it->second.line))
                it->second = reading;
        }
    }
    if (table.unterminatedQuoteLine > 0)
        plan.problems.push_back({table.unterminatedQuoteLine,
                                 "a quoted field is not closed; the rest of the file is not read"});

    // Compared with the journal.
    const auto days = daysByDate(journal);
    for (const auto& [key, reading] : readings) {
        HealthChange change;
        change.date = key.first;
        change.value = static_cast<ImportedValue>(key.second);
        change.newValue = reading.value;
        change.line = reading.line;
        const auto day = days.find(change.date);
        if (day != days.end())
            change.oldValue = currentValue(journal.days[day->second].health, change.value);
        if (change.oldValue == change.newValue)
            ++plan.unchanged;
        else if (change.oldValue == 0.0f)
            plan.newValues.push_back(change);
        else
            plan.replacements.push_back(change);
    }
    outcome.plan = std::move(plan);
    return outcome;
}

std::size_t applyHealthImport(model::UserJournal& journal, const HealthImportPlan& plan,
                              bool replace)
{
    auto days = daysByDate(journal);
    std::size_t written = 0;
    const auto write = [&](const HealthChange& c) {
        auto it = days.find(c.date);
        if (it == days.end()) {
            model::JournalDay day;
            day.date = c.date.toTime();
            journal.days.push_back(std::move(day));
            it = days.emplace(c.date, journal.days.size() - 1).first;
        }
        setValue(journal.days[it->second].health, c.value, c.newValue);
        ++written;
    };
    for (const HealthChange& c : plan.newValues)
        write(c);
    if (replace)
        for (const HealthChange& c : plan.replacements)
            write(c);
    return written;
}

} // namespace velmora::exchange
