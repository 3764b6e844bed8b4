#include "fitness/logic/FitnessLog.h"

#include "fitness/logic/JournalDays.h"
#include "model/DateText.h"
#include "model/FoodDatabase.h"
#include "model/TextCodec.h"
#include "model/UserDatabase.h"

namespace velmora::fitness {

namespace {

constexpr model::TimeT SecondsPerDay = 86400;

template <typename Definition>
const Definition* byId(const std::vector<Definition>& list, std::int32_t id)
{
    for (const Definition& d : list)
        if (d.id == id)
            return &d;
    return nullptr;
}

std::string workoutText(const model::Routine& routine, const model::WorkoutEntry& workout,
                        bool metric)
{
    return model::formatText("%s @ %s", model::cp1252ToUtf8(routine.name).c_str(),
                             model::timeText(workout.time, metric).c_str());
}

std::string valueOf(const model::ExerciseRecord& set, std::int32_t field)
{
    for (const model::ExerciseValue& v : set.values)
        if (v.field == field)
            return model::cp1252ToUtf8(v.value);
    return {};
}

} // namespace

std::vector<std::int32_t> fitnessColumns(const model::User& user)
{
    std::vector<std::int32_t> columns;
    for (std::int32_t field : user.fitnessColumns) {
        if (field == -1)
            break;
        columns.push_back(field);
    }
    return columns;
}

int dateColumnWidth(const model::User& user)
{
    const int saved = user.fitnessColumnWidths[0];
    return saved > 0 ? saved : DateColumnDefaultWidth;
}

int fieldColumnWidth(const model::User& user, int slot, int headerTextWidth)
{
    const int saved = user.fitnessColumnWidths[static_cast<std::size_t>(slot) + 1];
    return saved > 0 ? saved : headerTextWidth + 15;
}

std::vector<std::size_t> fitnessLogDays(const model::UserJournal& journal, model::TimeT now)
{
    const int limit = journal.user.daysInLists;
    return daysWhere(journal.days, [&](const model::JournalDay& day) {
        if (day.workouts.empty())
            return false;
        const model::TimeT age = (now - day.date) / SecondsPerDay;
        return limit <= 0 || age <= limit;
    });
}

std::vector<FitnessRow> fitnessLogRows(const model::SharedData& shared,
                                       const model::UserJournal& journal, model::TimeT now)
{
    const bool metric = journal.user.isMetric();
    const auto columns = fitnessColumns(journal.user);
    std::vector<FitnessRow> rows;
    for (std::size_t d : fitnessLogDays(journal, now)) {
        const model::JournalDay& day = journal.days[d];
        double calories = 0;
        for (const model::WorkoutEntry& w : day.workouts)
            calories += w.calories;
        rows.push_back({{d, -1, -1},
                        model::formatText("%s - %.0lf Calories",
                                          listDateText(journal.user, day.date).c_str(), calories),
                        {}});
        for (std::size_t w = 0; w < day.workouts.size(); ++w) {
            const model::WorkoutEntry& workout = day.workouts[w];
            const model::Routine* routine = byId(shared.routines, workout.routine);
            if (!routine)
                break;
            rows.push_back(
                {{d, static_cast<int>(w), -1}, workoutText(*routine, workout, metric), {}});
            for (std::size_t s = 0; s < workout.exercises.size(); ++s) {
                const model::ExerciseRecord& set = workout.exercises[s];
                const model::Exercise* exercise = byId(shared.exercises, set.exercise);
                if (!exercise)
                    continue;
                FitnessRow row{{d, static_cast<int>(w), static_cast<int>(s)},
                               model::formatText("%s [set %d]",
                                                 model::cp1252ToUtf8(exercise->name).c_str(),
                                                 set.setNumber + 1),
                               {}};
                for (std::int32_t field : columns)
                    row.cells.push_back(valueOf(set, field));
                rows.push_back(std::move(row));
            }
        }
    }
    return rows;
}

std::string fitnessStatusText(const model::SharedData& shared, const model::UserJournal& journal,
                              const FitnessRowRef& ref)
{
    if (ref.kind() == FitnessRowKind::Day || ref.day >= journal.days.size())
        return {};
    const model::JournalDay& day = journal.days[ref.day];
    if (static_cast<std::size_t>(ref.workout) >= day.workouts.size())
        return {};
    const model::WorkoutEntry& workout = day.workouts[static_cast<std::size_t>(ref.workout)];
    const model::Routine* routine = byId(shared.routines, workout.routine);
    if (!routine)
        return {};
    const std::string text = workoutText(*routine, workout, journal.user.isMetric());
    if (ref.kind() == FitnessRowKind::Workout)
        return text;
    if (static_cast<std::size_t>(ref.set) >= workout.exercises.size())
        return {};
    const model::ExerciseRecord& set = workout.exercises[static_cast<std::size_t>(ref.set)];
    const model::Exercise* exercise = byId(shared.exercises, set.exercise);
    if (!exercise)
        return {};
    return model::formatText("%s : %s [set %d]", text.c_str(),
                             model::cp1252ToUtf8(exercise->name).c_str(), set.setNumber + 1);
}

bool workoutRowSelected(const FitnessRowRef* ref)
{
    return ref && ref->kind() != FitnessRowKind::Day;
}

} // namespace velmora::fitness
