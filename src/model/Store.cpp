#include "model/Store.h"

#include <cstring>
#include <unordered_set>
#include <utility>

#include "model/Defaults.h"
#include "model/SafeFile.h"
#include "model/UserNames.h"

namespace velmora::model {

namespace fs = std::filesystem;

void Store::setPaths(fs::path foodsPath, fs::path dataDir)
{
    m_foodsPath = std::move(foodsPath);
    m_dataDir = std::move(dataDir);
}

std::optional<fs::path> Store::userFilePath(std::size_t k) const
{
    if (k >= shared.userNames.size())
        return std::nullopt;
    const std::string& name = shared.userNames[k];
    if (checkUserName(name) != NameProblem::None)
        return std::nullopt;
    return m_dataDir / (name + ".db");
}

Store::LoadReport Store::load()
{
    LoadReport report;
    m_sharedDamaged = false;
    m_userDamaged = false;

    auto foodsRead = FoodDatabase::load(m_foodsPath);
    if (!foodsRead) {
        // Without a food database nothing else is loaded; a missing file is not an error.
        if (foodsRead.error().code != FileErrorCode::NotFound)
            report.errors.push_back(foodsRead.error());
        return report;
    }
    foods = foodsRead.take();
    report.foodsLoaded = true;

    auto bytes = readWholeFile(sharedPath());
    if (!bytes && bytes.error().code == FileErrorCode::NotFound) {
        shared = SharedData{};
        createExampleUser(shared);
        journal.user = newUserProfile(foods);
        applyExampleProfile(journal.user, shared);
        report.exampleCreated = true;
    } else {
        auto parsed = bytes ? SharedData::parse(bytes.value(), sharedPath().string())
                            : Result<SharedData>(bytes.error());
        if (!parsed) {
            report.errors.push_back(parsed.error());
            m_sharedDamaged = true;
            foods.catalogue().appendComputed();
            return report;
        }
        shared = parsed.take();
        report.sharedLoaded = true;
        normalise();
    }

    FileError error;
    report.userFileRead = loadCurrentUser(&error);
    if (!report.userFileRead && m_userDamaged)
        report.errors.push_back(error);
    foods.catalogue().appendComputed();
    return report;
}

bool Store::loadCurrentUser(FileError* error)
{
    m_userDamaged = false;
    if (shared.userNames.empty()) {
        createExampleUser(shared);
        journal.user = newUserProfile(foods);
        applyExampleProfile(journal.user, shared);
    }
    std::size_t index = shared.currentUser;
    if (index >= shared.userNames.size())
        index = 0;
    const auto path = userFilePath(index);
    if (!path) {
        journal.days.clear();
        m_userDamaged = true; // nothing may be written under a name that is not a safe file name
        if (error)
            *error = FileError{FileErrorCode::UnsafeName, shared.userNames[index], 0, {}};
        return false;
    }
    auto bytes = readWholeFile(*path);
    if (!bytes) {
        // A missing file is a new user: an empty journal, and the profile in memory stays as it
        // is (a new user starts from the previous user's settings).
        journal.days.clear();
        if (bytes.error().code != FileErrorCode::NotFound) {
            m_userDamaged = true;
            if (error)
                *error = bytes.error();
        }
        return false;
    }
    auto parsed = UserJournal::parse(bytes.value(), path->string());
    if (!parsed) {
        journal.days.clear();
        m_userDamaged = true;
        if (error)
            *error = parsed.error();
        return false;
    }
    shared.currentUser = static_cast<std::uint8_t>(index);
    journal = parsed.take();
    normalise();
    return true;
}

Status Store::saveShared(bool release)
{
    normalise();
    if (m_sharedDamaged)
        return FileError{FileErrorCode::CannotWrite, sharedPath().string(), 0,
                         "it was damaged when loaded and is kept as it is"};
    shared.version = CurrentFormatVersion;
    const auto bytes = shared.serialize();
    Status written = writeFileAtomically(sharedPath(), bytes);
    if (!written)
        return written;
    if (release) {
        shared.customFoods.clear();
        shared.fields.clear();
        shared.exercises.clear();
        shared.routines.clear();
        shared.variables.clear();
    }
    return Status::success();
}

Status Store::saveCurrentUser(bool release)
{
    if (shared.userNames.empty())
        return Status::success();
    const auto path = userFilePath(shared.currentUser);
    if (!path) {
        const std::string name = shared.currentUser < shared.userNames.size()
                                     ? shared.userNames[shared.currentUser]
                                     : std::string();
        return FileError{FileErrorCode::UnsafeName, name, 0, {}};
    }
    if (m_userDamaged)
        return FileError{FileErrorCode::CannotWrite, path->string(), 0,
                         "it was damaged when loaded and is kept as it is"};
    const auto bytes = journal.serialize();
    Status written = writeFileAtomically(*path, bytes);
    if (!written)
        return written;
    if (release)
        journal.days.clear();
    return Status::success();
}

namespace {

// Names compare as strcmp does: byte by byte as unsigned bytes, so "B..." sorts before "a...".
bool nameLess(const std::string& a, const std::string& b)
{
    return std::strcmp(a.c_str(), b.c_str()) < 0;
}

// The simple exchange sort: each later record whose name is lower than position i's is swapped
// into position i.
template <class T> void exchangeSortByName(std::vector<T>& list)
{
    for (std::size_t i = 0; i < list.size(); ++i)
        for (std::size_t j = i + 1; j < list.size(); ++j)
            if (nameLess(list[j].name, list[i].name))
                std::swap(list[i], list[j]);
}

template <class T, class Keep> void eraseUnless(std::vector<T>& list, Keep&& keep)
{
    std::erase_if(list, [&](const T& x) { return !keep(x); });
}

} // namespace

void Store::normalise()
{
    std::unordered_set<std::int32_t> fieldIds;
    for (const ExerciseField& f : shared.fields)
        fieldIds.insert(f.id);
    std::unordered_set<std::int32_t> exerciseIds;
    for (const Exercise& e : shared.exercises)
        exerciseIds.insert(e.id);
    std::unordered_set<std::int32_t> routineIds;
    for (const Routine& r : shared.routines)
        routineIds.insert(r.id);

    // 1. Exercises lose vanished fields; recorded exercises of vanished exercises go, and so do
    //    values of vanished fields.
    for (Exercise& e : shared.exercises)
        eraseUnless(e.fields, [&](std::int32_t id) { return fieldIds.contains(id); });
    for (JournalDay& day : journal.days) {
        for (WorkoutEntry& w : day.workouts) {
            eraseUnless(w.exercises,
                        [&](const ExerciseRecord& r) { return exerciseIds.contains(r.exercise); });
            for (ExerciseRecord& r : w.exercises)
                eraseUnless(r.values,
                            [&](const ExerciseValue& v) { return fieldIds.contains(v.field); });
        }
    }
    // 2. Routines lose vanished exercises, keeping the order of the rest.
    for (Routine& r : shared.routines)
        eraseUnless(r.exercises, [&](std::int32_t id) { return exerciseIds.contains(id); });
    // 3. Workouts of vanished routines go.
    for (JournalDay& day : journal.days)
        eraseUnless(day.workouts,
                    [&](const WorkoutEntry& w) { return routineIds.contains(w.routine); });
    // 4. Of custom foods sharing a number, the first stays.
    {
        std::unordered_set<std::int32_t> seen;
        eraseUnless(shared.customFoods,
                    [&](const FoodItem& f) { return seen.insert(f.number).second; });
    }
    // 5. Definition lists sorted by name.
    exchangeSortByName(shared.customFoods);
    exchangeSortByName(shared.fields);
    exchangeSortByName(shared.exercises);
    exchangeSortByName(shared.routines);
    exchangeSortByName(shared.variables);
}

const FoodItem* Store::findFood(std::int32_t number) const
{
    if (number >= FirstCustomFoodNumber) {
        for (const FoodItem& f : shared.customFoods)
            if (f.number == number)
                return &f;
        return nullptr;
    }
    return foods.findDatabaseFood(number);
}

FoodItem* Store::findCustomFood(std::int32_t number)
{
    for (FoodItem& f : shared.customFoods)
        if (f.number == number)
            return &f;
    return nullptr;
}

ExerciseField* Store::findField(std::int32_t id)
{
    for (ExerciseField& f : shared.fields)
        if (f.id == id)
            return &f;
    return nullptr;
}

Exercise* Store::findExercise(std::int32_t id)
{
    for (Exercise& e : shared.exercises)
        if (e.id == id)
            return &e;
    return nullptr;
}

Routine* Store::findRoutine(std::int32_t id)
{
    for (Routine& r : shared.routines)
        if (r.id == id)
            return &r;
    return nullptr;
}

UserVariable* Store::findVariable(std::int32_t id)
{
    for (UserVariable& v : shared.variables)
        if (v.id == id)
            return &v;
    return nullptr;
}

double Store::value(const FoodEntry& entry, NutrientId n) const
{
    const FoodItem* food = findFood(entry.food);
    return food ? entryValue(foods.catalogue(), *food, entry.amount, n) : 0.0;
}

std::vector<ResolvedEntry> Store::resolve(const Meal& meal) const
{
    std::vector<ResolvedEntry> out;
    out.reserve(meal.entries.size());
    for (const FoodEntry& e : meal.entries)
        if (const FoodItem* food = findFood(e.food))
            out.push_back(ResolvedEntry{food, e.amount});
    return out;
}

std::vector<ResolvedEntry> Store::resolve(const JournalDay& day) const
{
    std::vector<ResolvedEntry> out;
    for (const Meal& m : day.meals)
        for (const FoodEntry& e : m.entries)
            if (const FoodItem* food = findFood(e.food))
                out.push_back(ResolvedEntry{food, e.amount});
    return out;
}

double Store::value(const Meal& meal, NutrientId n) const
{
    const auto entries = resolve(meal);
    return groupValue(foods.catalogue(), entries, n);
}

double Store::value(const JournalDay& day, NutrientId n) const
{
    const auto entries = resolve(day);
    return groupValue(foods.catalogue(), entries, n);
}

std::string Store::servingText(const FoodEntry& entry) const
{
    const FoodItem* food = findFood(entry.food);
    return food ? model::servingText(*food, entry.amount) : std::string();
}

std::string Store::currentUserName() const
{
    return shared.currentUser < shared.userNames.size() ? shared.userNames[shared.currentUser]
                                                        : std::string();
}

} // namespace velmora::model
