#include "model/UserDatabase.h"

#include <algorithm>

#include "model/DefinitionRecords.h"
#include "model/HealthRecord.h"

namespace velmora::model {

namespace {

// Smallest possible size of each record, for checking counts against the bytes left.
constexpr std::size_t MinCustomFoodSize = 4 + 4 + 1 + 4 + StoredNutrientCount * 4;
constexpr std::size_t MinHealthSize = 4 + 10 * 4 + 1 + MeasurementCount * 4 + 4;
constexpr std::size_t MinDaySize = 4 + MinHealthSize + 4 + 4 + NoteCategoryCount;
constexpr std::size_t MinMealSize = 4 + 1 + 4;
constexpr std::size_t EntrySize = 4 + 4;
constexpr std::size_t MinWorkoutSize = 4 + 4 + 4 + 1 + 4;
constexpr std::size_t MinRecordSize = 4 + 4 + 4 + 4;
constexpr std::size_t MinValueSize = 4 + 1;

void readMeal(ArchiveReader& in, Meal& meal)
{
    meal.time = in.time();
    meal.kind = in.u8();
    const std::size_t n = in.count(EntrySize);
    meal.entries.resize(n);
    for (FoodEntry& e : meal.entries) {
        e.food = in.i32();
        e.amount = in.f32();
    }
}

void readWorkout(ArchiveReader& in, WorkoutEntry& w)
{
    w.routine = in.i32();
    w.calories = in.i32();
    w.time = in.time();
    w.notes = in.text();
    const std::size_t records = in.count(MinRecordSize);
    w.exercises.resize(records);
    for (ExerciseRecord& r : w.exercises) {
        r.exercise = in.i32();
        r.setNumber = in.i32();
        r.time = in.time();
        const std::size_t values = in.count(MinValueSize);
        r.values.resize(values);
        for (ExerciseValue& v : r.values) {
            v.field = in.i32();
            v.value = in.text();
        }
    }
}

} // namespace

void readHealthEntry(ArchiveReader& in, HealthEntry& h)
{
    readHealthRecord(in, h, true, [](ArchiveReader& r) { return r.time(); });
}

void writeHealthEntry(ArchiveWriter& out, const HealthEntry& h)
{
    writeHealthRecord(out, h, [](ArchiveWriter& w, TimeT t) { w.time(t); });
}

void readJournalDay(ArchiveReader& in, JournalDay& day)
{
    day.date = in.time();
    readHealthEntry(in, day.health);
    const std::size_t meals = in.count(MinMealSize);
    day.meals.resize(meals);
    for (Meal& m : day.meals)
        readMeal(in, m);
    const std::size_t workouts = in.count(MinWorkoutSize);
    day.workouts.resize(workouts);
    for (WorkoutEntry& w : day.workouts)
        readWorkout(in, w);
    for (std::string& note : day.notes)
        note = in.text();
}

void writeJournalDay(ArchiveWriter& out, const JournalDay& day)
{
    out.time(day.date);
    writeHealthEntry(out, day.health);
    out.count(day.meals.size());
    for (const Meal& m : day.meals) {
        out.time(m.time);
        out.u8(m.kind);
        out.count(m.entries.size());
        for (const FoodEntry& e : m.entries) {
            out.i32(e.food);
            out.f32(e.amount);
        }
    }
    out.count(day.workouts.size());
    for (const WorkoutEntry& w : day.workouts) {
        out.i32(w.routine);
        out.i32(w.calories);
        out.time(w.time);
        out.text(w.notes);
        out.count(w.exercises.size());
        for (const ExerciseRecord& r : w.exercises) {
            out.i32(r.exercise);
            out.i32(r.setNumber);
            out.time(r.time);
            out.count(r.values.size());
            for (const ExerciseValue& v : r.values) {
                out.i32(v.field);
                out.text(v.value);
            }
        }
    }
    for (const std::string& note : day.notes)
        out.text(note);
}

namespace {

// The lists of each file in file order, as a salvage reports them.
std::vector<ListKept> listsNamed(std::initializer_list<const char*> names)
{
    std::vector<ListKept> out;
    for (const char* name : names)
        out.push_back(ListKept{name, 0, std::nullopt});
    return out;
}

std::vector<ListKept> sharedLists()
{
    return listsNamed(
        {"users", "custom foods", "exercise fields", "exercises", "routines", "variables"});
}

std::vector<ListKept> journalLists()
{
    return listsNamed({"days"});
}

// Reads a list of n records into out, one record at a time: every record read completely is in
// out when reading stops at damaged bytes, and report (when given) says how many of the file's.
template <class T, class ReadOne>
void readRecords(std::size_t n, std::vector<T>& out, ListKept* report, ReadOne&& readOne)
{
    out.clear();
    out.reserve(n);
    if (report)
        report->inFile = n;
    for (std::size_t i = 0; i < n; ++i) {
        T record;
        readOne(record);
        out.push_back(std::move(record));
        if (report)
            report->kept = out.size();
    }
}

ListKept* at(std::vector<ListKept>* lists, std::size_t i)
{
    return lists ? &(*lists)[i] : nullptr;
}

// Reads velmora.db into d. The header is taken over once complete; then every user name and
// every record of each list that is read completely is kept, so that a read that stops at
// damaged bytes leaves d holding whole records only. lists, when given, is sharedLists().
void readShared(ArchiveReader& in, SharedData& d, std::vector<ListKept>* lists = nullptr)
{
    {
        SharedData h;
        h.version = in.i32();
        h.oldFormatVersion = h.version < CurrentFormatVersion ? h.version : 0;
        h.header1 = in.text();
        h.header2 = in.text();
        for (auto& c : h.counters.values)
            c = in.i32();
        h.currentUser = in.u8();
        d.version = h.version;
        d.oldFormatVersion = h.oldFormatVersion;
        d.header1 = std::move(h.header1);
        d.header2 = std::move(h.header2);
        d.counters = h.counters;
        d.currentUser = h.currentUser;
    }
    readRecords(in.u8(), d.userNames, at(lists, 0), [&](std::string& name) { name = in.text(); });
    readRecords(in.count(MinCustomFoodSize), d.customFoods, at(lists, 1), [&](FoodItem& f) {
        f.number = in.i32();
        f.group = in.i32();
        f.name = in.text();
        f.servingWeight = in.f32();
        for (float& v : f.values)
            v = in.f32();
    });
    readRecords(in.count(MinDefinitionSize<ExerciseField>), d.fields, at(lists, 2),
                [&](ExerciseField& f) { readDefinition(in, f); });
    readRecords(in.count(MinDefinitionSize<Exercise>), d.exercises, at(lists, 3),
                [&](Exercise& e) { readDefinition(in, e); });
    readRecords(in.count(MinDefinitionSize<Routine>), d.routines, at(lists, 4),
                [&](Routine& r) { readDefinition(in, r); });
    readRecords(in.count(MinDefinitionSize<UserVariable>), d.variables, at(lists, 5),
                [&](UserVariable& v) { readDefinition(in, v); });
}

// Reads a user's file into j: the profile record, taken over once complete, then every day read
// completely. lists, when given, is journalLists().
void readUserJournal(ArchiveReader& in, UserJournal& j, int* partsRead = nullptr,
                     std::vector<ListKept>* lists = nullptr)
{
    User user;
    user.read(in);
    j.user = user;
    if (partsRead)
        *partsRead = 1;
    readRecords(in.count(MinDaySize), j.days, at(lists, 0),
                [&](JournalDay& d) { readJournalDay(in, d); });
    if (partsRead)
        *partsRead = 2;
}

} // namespace

Result<SharedData> SharedData::parse(std::span<const std::uint8_t> bytes,
                                     const std::string& fileName)
{
    return parseArchive<SharedData>(bytes, fileName, [](ArchiveReader& in) {
        SharedData d;
        readShared(in, d);
        return d;
    });
}

Salvaged<SharedData> SharedData::salvage(std::span<const std::uint8_t> bytes,
                                         const std::string& fileName)
{
    std::vector<ListKept> lists = sharedLists();
    auto out = salvageArchive<SharedData>(
        bytes, fileName, [&lists](ArchiveReader& in, SharedData& d) { readShared(in, d, &lists); });
    out.lists = std::move(lists);
    return out;
}

Salvaged<UserJournal> UserJournal::salvage(std::span<const std::uint8_t> bytes,
                                           const std::string& fileName)
{
    int parts = 0;
    std::vector<ListKept> lists = journalLists();
    auto out = salvageArchive<UserJournal>(bytes, fileName, [&](ArchiveReader& in, UserJournal& j) {
        readUserJournal(in, j, &parts, &lists);
    });
    out.partsRead = parts;
    out.lists = std::move(lists);
    return out;
}

std::vector<std::uint8_t> SharedData::serialize() const
{
    ArchiveWriter out;
    out.reserve(4096 + customFoods.size() * (MinCustomFoodSize + 32));
    out.i32(CurrentFormatVersion);
    out.text(header1);
    out.text(header2);
    for (std::int32_t c : counters.values)
        out.i32(c);
    out.u8(currentUser);
    // The count is one byte: never more than 255 names are written.
    const std::size_t names = std::min(userNames.size(), MaxUserNames);
    out.u8(static_cast<std::uint8_t>(names));
    for (std::size_t i = 0; i < names; ++i)
        out.text(userNames[i]);

    out.count(customFoods.size());
    for (const FoodItem& f : customFoods) {
        out.i32(f.number);
        out.i32(f.group);
        out.text(f.name);
        out.f32(f.servingWeight);
        for (float v : f.values)
            out.f32(v);
    }
    writeDefinitionList(out, fields);
    writeDefinitionList(out, exercises);
    writeDefinitionList(out, routines);
    writeDefinitionList(out, variables);
    return out.take();
}

Result<UserJournal> UserJournal::parse(std::span<const std::uint8_t> bytes,
                                       const std::string& fileName)
{
    return parseArchive<UserJournal>(bytes, fileName, [](ArchiveReader& in) {
        UserJournal j;
        readUserJournal(in, j);
        return j;
    });
}

std::vector<std::uint8_t> UserJournal::serialize() const
{
    ArchiveWriter out;
    out.reserve(1024 + days.size() * 1024);
    user.write(out);
    out.count(days.size());
    for (const JournalDay& d : days)
        writeJournalDay(out, d);
    return out.take();
}

JournalDay* UserJournal::findDay(TimeT date)
{
    for (JournalDay& d : days)
        if (d.date == date)
            return &d;
    return nullptr;
}

const JournalDay* UserJournal::findDay(TimeT date) const
{
    for (const JournalDay& d : days)
        if (d.date == date)
            return &d;
    return nullptr;
}

} // namespace velmora::model
