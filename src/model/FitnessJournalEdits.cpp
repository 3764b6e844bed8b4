#include "model/FitnessJournalEdits.h"

#include <map>

#include "model/Archive.h"
#include "model/JournalEdits.h"
#include "model/User.h"
#include "model/UserDatabase.h"

namespace velmora::model {

namespace {

// Two entries are the same when the file would hold the same bytes for them.
bool sameEntry(const HealthEntry& a, const HealthEntry& b)
{
    ArchiveWriter left;
    ArchiveWriter right;
    writeHealthEntry(left, a);
    writeHealthEntry(right, b);
    return left.bytes() == right.bytes();
}

// The day a value of date goes into: the day of that date, or, with none, a new day when the value
// is worth keeping; nullptr when nothing is to be stored.
JournalDay* dayToStoreInto(UserJournal& journal, const CalendarDate& date, bool valueIsEmpty)
{
    if (JournalDay* day = findDay(journal, date))
        return day;
    return valueIsEmpty ? nullptr : &dayForEditing(journal, date);
}

} // namespace

bool storeHealthEntry(UserJournal& journal, const CalendarDate& date, const HealthEntry& entry)
{
    JournalDay* day = dayToStoreInto(journal, date, entry.isEmpty());
    if (!day || sameEntry(day->health, entry))
        return false;
    day->health = entry;
    return true;
}

bool clearHealthEntry(UserJournal& journal, const CalendarDate& date)
{
    JournalDay* day = findDay(journal, date);
    if (!day)
        return false;
    day->health = HealthEntry{};
    return true;
}

bool storeNote(UserJournal& journal, const CalendarDate& date, int category,
               const std::string& text)
{
    if (category < 0 || category >= NoteCategoryCount)
        return false;
    JournalDay* day = dayToStoreInto(journal, date, text.empty());
    if (!day)
        return false;
    std::string& note = day->notes[static_cast<std::size_t>(category)];
    if (note == text)
        return false;
    note = text;
    return true;
}

void renumberSets(std::vector<ExerciseRecord>& sets)
{
    std::map<std::int32_t, std::int32_t> seen;
    for (ExerciseRecord& set : sets)
        set.setNumber = seen[set.exercise]++;
}

WorkoutPlace commitWorkout(UserJournal& journal, WorkoutEntry workout,
                           std::optional<WorkoutPlace> from)
{
    renumberSets(workout.exercises);
    if (from && from->day < journal.days.size()) {
        auto& workouts = journal.days[from->day].workouts;
        if (from->workout < workouts.size())
            workouts.erase(workouts.begin() + static_cast<std::ptrdiff_t>(from->workout));
    }
    JournalDay& day = dayForEditing(journal, CalendarDate::fromTime(workout.time));
    day.workouts.push_back(std::move(workout));
    return {static_cast<std::size_t>(&day - journal.days.data()), day.workouts.size() - 1};
}

bool deleteWorkout(UserJournal& journal, const WorkoutPlace& place)
{
    if (place.day >= journal.days.size())
        return false;
    auto& workouts = journal.days[place.day].workouts;
    if (place.workout >= workouts.size())
        return false;
    workouts.erase(workouts.begin() + static_cast<std::ptrdiff_t>(place.workout));
    return true;
}

void setFitnessColumns(User& user, const std::array<int, 10>& chosen)
{
    bool ended = false;
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        ended = ended || chosen[i] < 0;
        user.fitnessColumns[i] = ended ? -1 : chosen[i];
        if (ended)
            user.fitnessColumnWidths[i + 1] = 0;
    }
}

void setFitnessColumnWidth(User& user, int column, int width)
{
    if (column < 0 || column >= static_cast<int>(user.fitnessColumnWidths.size()) || width < 0)
        return;
    user.fitnessColumnWidths[static_cast<std::size_t>(column)] = width;
}

} // namespace velmora::model
