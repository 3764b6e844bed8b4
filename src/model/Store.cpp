#include "model/Store.h"

#include <cstring>
#include <functional>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "model/Defaults.h"
#include "model/SafeFile.h"
#include "model/TextCodec.h"
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
    // The stored name is Windows-1252; the file name is the same text in the platform's own
    // encoding (through UTF-8), so that "Zoë" names a valid file everywhere.
    const std::string utf8 = cp1252ToUtf8(name) + ".db";
    return m_dataDir / fs::path(std::u8string(utf8.begin(), utf8.end()));
}

namespace {

std::size_t hashOf(const std::vector<std::uint8_t>& bytes)
{
    return std::hash<std::string_view>{}(
        std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

// A backup beside path that reads completely with parse, or an empty path.
template <class Parse> fs::path usableBackup(const fs::path& path, Parse&& parse)
{
    const fs::path backup = backupPathFor(path);
    auto bytes = readWholeFile(backup);
    if (!bytes || !parse(bytes.value(), backup.string()))
        return {};
    return backup;
}

} // namespace

Store::DamagedFile Store::setAside(DamagedFile::Kind kind, const fs::path& path,
                                   const FileError& error)
{
    DamagedFile damaged;
    damaged.kind = kind;
    damaged.error = error;
    switch (kind) {
    case DamagedFile::Kind::Foods:
        damaged.backup = usableBackup(
            path, [](auto& b, const auto& n) { return FoodDatabase::parse(b, n).ok(); });
        break;
    case DamagedFile::Kind::Shared:
        damaged.backup =
            usableBackup(path, [](auto& b, const auto& n) { return SharedData::parse(b, n).ok(); });
        break;
    case DamagedFile::Kind::User:
        damaged.backup = usableBackup(
            path, [](auto& b, const auto& n) { return UserJournal::parse(b, n).ok(); });
        break;
    }
    auto moved = moveAside(path);
    if (moved)
        damaged.movedTo = moved.value();
    return damaged;
}

Store::LoadReport Store::load()
{
    LoadReport report;
    m_sharedDamaged = false;
    m_userDamaged = false;
    m_loaded = false;
    m_lastUserDamage.reset();
    m_sharedHash = 0;
    m_userHash = 0;

    auto foodBytes = readWholeFile(m_foodsPath);
    if (!foodBytes) {
        // Without a food database nothing else is loaded, and so nothing may be saved either.
        if (foodBytes.error().code == FileErrorCode::NotFound)
            report.foodsMissing = true;
        else
            report.errors.push_back(foodBytes.error());
        return report;
    }
    auto foodsRead = FoodDatabase::parse(foodBytes.value(), m_foodsPath.string());
    if (foodsRead) {
        foods = foodsRead.take();
    } else {
        // The collections read completely are used; the journals only refer to foods by number,
        // so nothing of the user's data is lost by a partial food database.
        auto salvaged = FoodDatabase::salvage(foodBytes.value(), m_foodsPath.string());
        foods = std::move(salvaged.value);
        report.errors.push_back(foodsRead.error());
        report.damaged.push_back(
            setAside(DamagedFile::Kind::Foods, m_foodsPath, foodsRead.error()));
    }
    report.foodsLoaded = true;
    foodBytes = std::vector<std::uint8_t>{};

    if (loadShared(report)) {
        FileError error;
        report.userFileRead = loadCurrentUser(&error);
        if (!report.userFileRead && !error.file.empty()) {
            report.errors.push_back(error);
            if (m_lastUserDamage)
                report.damaged.push_back(*m_lastUserDamage);
        }
        m_loaded = true;
    }
    foods.catalogue().appendComputed();
    return report;
}

bool Store::loadShared(LoadReport& report)
{
    auto bytes = readWholeFile(sharedPath());
    if (!bytes && bytes.error().code == FileErrorCode::NotFound) {
        shared = SharedData{};
        createExampleUser(shared);
        journal.user = newUserProfile(foods);
        applyExampleProfile(journal.user, shared);
        report.exampleCreated = true;
        return true;
    }
    if (!bytes) {
        // It exists but cannot be read: keep away from it entirely.
        report.errors.push_back(bytes.error());
        m_sharedDamaged = true;
        return false;
    }
    auto parsed = SharedData::parse(bytes.value(), sharedPath().string());
    if (parsed) {
        shared = parsed.take();
        report.sharedLoaded = true;
        m_sharedHash = hashOf(bytes.value());
    } else {
        auto salvaged = SharedData::salvage(bytes.value(), sharedPath().string());
        const DamagedFile damaged =
            setAside(DamagedFile::Kind::Shared, sharedPath(), parsed.error());
        report.errors.push_back(parsed.error());
        report.damaged.push_back(damaged);
        if (damaged.movedTo.empty()) {
            // Still in its place: it must not be written over, and nothing depends on it.
            m_sharedDamaged = true;
            return false;
        }
        shared = std::move(salvaged.value);
        if (shared.userNames.empty()) {
            createExampleUser(shared);
            journal.user = newUserProfile(foods);
            applyExampleProfile(journal.user, shared);
        }
    }
    normalise();
    return true;
}

bool Store::loadCurrentUser(FileError* error)
{
    m_userDamaged = false;
    m_lastUserDamage.reset();
    if (shared.userNames.empty()) {
        createExampleUser(shared);
        journal.user = newUserProfile(foods);
        applyExampleProfile(journal.user, shared);
    }
    std::size_t index = shared.currentUser;
    if (index >= shared.userNames.size())
        index = 0;
    shared.currentUser = static_cast<std::uint8_t>(index);
    const auto path = userFilePath(index);
    if (!path) {
        journal.days.clear();
        m_userDamaged = true; // nothing may be written under a name that is not a safe file name
        if (error)
            *error = FileError{FileErrorCode::UnsafeName, shared.userNames[index], 0,
                               nameProblemText(checkUserName(shared.userNames[index]))};
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
        auto salvaged = UserJournal::salvage(bytes.value(), path->string());
        m_lastUserDamage = setAside(DamagedFile::Kind::User, *path, parsed.error());
        if (error)
            *error = parsed.error();
        journal.days.clear();
        if (m_lastUserDamage->movedTo.empty()) {
            m_userDamaged = true;
            return false;
        }
        // What was read completely is used: the profile record when it was whole (else the one
        // in memory stays, as for a new user) and the day list when it was whole.
        if (salvaged.partsRead >= 1)
            journal.user = salvaged.value.user;
        journal.days = std::move(salvaged.value.days);
        normalise();
        return false;
    }
    journal = parsed.take();
    m_userHash = hashOf(bytes.value());
    m_userHashPath = *path;
    normalise();
    return true;
}

Status Store::restoreSharedBackup()
{
    const fs::path backup = backupPathFor(sharedPath());
    auto bytes = readWholeFile(backup);
    if (!bytes)
        return bytes.error();
    if (auto parsed = SharedData::parse(bytes.value(), backup.string()); !parsed)
        return parsed.error();
    std::error_code ec;
    if (fs::exists(sharedPath(), ec)) {
        auto moved = moveAside(sharedPath());
        if (!moved)
            return moved.error();
    }
    if (Status s = writeFileAtomically(sharedPath(), bytes.value()); !s)
        return s;
    LoadReport report;
    m_sharedDamaged = false;
    if (!loadShared(report))
        return report.errors.empty()
                   ? FileError{FileErrorCode::CannotOpen, sharedPath().string(), 0, {}}
                   : report.errors.front();
    FileError error;
    loadCurrentUser(&error);
    m_loaded = true;
    return Status::success();
}

Status Store::restoreUserBackup()
{
    const auto path = userFilePath(shared.currentUser);
    if (!path)
        return FileError{FileErrorCode::UnsafeName, currentUserName(), 0, {}};
    const fs::path backup = backupPathFor(*path);
    auto bytes = readWholeFile(backup);
    if (!bytes)
        return bytes.error();
    if (auto parsed = UserJournal::parse(bytes.value(), backup.string()); !parsed)
        return parsed.error();
    std::error_code ec;
    if (fs::exists(*path, ec)) {
        auto moved = moveAside(*path);
        if (!moved)
            return moved.error();
    }
    if (Status s = writeFileAtomically(*path, bytes.value()); !s)
        return s;
    FileError error;
    if (!loadCurrentUser(&error))
        return error;
    return Status::success();
}

bool Store::hasUnsavedChanges()
{
    if (!m_loaded)
        return false;
    normalise();
    std::error_code ec;
    if (hashOf(shared.serialize()) != m_sharedHash || !fs::exists(sharedPath(), ec))
        return true;
    const auto path = userFilePath(shared.currentUser);
    if (!path || m_userDamaged)
        return false;
    return hashOf(journal.serialize()) != m_userHash || m_userHashPath != *path ||
           !fs::exists(*path, ec);
}

Status Store::saveShared(bool release)
{
    if (!m_loaded)
        return FileError{FileErrorCode::CannotWrite, sharedPath().string(), 0,
                         "the user data was never loaded, so saving would replace it with nothing"};
    normalise();
    if (m_sharedDamaged)
        return FileError{FileErrorCode::CannotWrite, sharedPath().string(), 0,
                         "it could not be read when loaded and is kept as it is"};
    shared.version = CurrentFormatVersion;
    const auto bytes = shared.serialize();
    const std::size_t hash = hashOf(bytes);
    std::error_code ec;
    if (hash != m_sharedHash || !fs::exists(sharedPath(), ec)) {
        Status written = writeFileAtomically(sharedPath(), bytes, KeepBackup::Yes);
        if (!written)
            return written;
        m_sharedHash = hash;
    }
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
    if (!m_loaded)
        return FileError{FileErrorCode::CannotWrite, path->string(), 0,
                         "the user data was never loaded, so saving would replace it with nothing"};
    if (m_userDamaged)
        return FileError{FileErrorCode::CannotWrite, path->string(), 0,
                         "it could not be read when loaded and is kept as it is"};
    const auto bytes = journal.serialize();
    const std::size_t hash = hashOf(bytes);
    std::error_code ec;
    if (hash != m_userHash || m_userHashPath != *path || !fs::exists(*path, ec)) {
        Status written = writeFileAtomically(*path, bytes, KeepBackup::Yes);
        if (!written)
            return written;
        m_userHash = hash;
        m_userHashPath = *path;
    }
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
