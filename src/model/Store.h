#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/DataFolder.h"
#include "model/EatenNutrients.h"
#include "model/FoodDatabase.h"
#include "model/Nutrition.h"
#include "model/Result.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// The process-wide data store: the food database, the shared definitions and the current user's
// journal, with their lookups. Its files are handled by its DataFolder (reachable as files(), and
// through the forwarding members below); the clean-up pass is in Normalisation.h; nutrient values
// of eaten food are free functions in EatenNutrients.h.
class Store
{
public:
    Store() : m_files(*this) {}
    // Copies and moves carry the data folder's state along, working on the new store.
    Store(const Store& other);
    Store(Store&& other) noexcept;
    Store& operator=(const Store& other);
    Store& operator=(Store&& other) noexcept;

    FoodDatabase foods;
    SharedData shared;   // "velmora.db"
    UserJournal journal; // the current user's file

    using DamagedFile = DataFolder::DamagedFile;
    using LoadReport = DataFolder::LoadReport;

    DataFolder& files() { return m_files; }
    const DataFolder& files() const { return m_files; }

    // The normalisation of Normalisation.h on the live records. The program applies it at its
    // own moments (loading, a change of user, the refresh of all pages); saving never does.
    void normalise();

    // Lookups: linear, first match.
    const FoodItem* findFood(std::int32_t number) const; // custom foods from 70000, else the map
    FoodItem* findCustomFood(std::int32_t number);
    ExerciseField* findField(std::int32_t id);
    Exercise* findExercise(std::int32_t id);
    Routine* findRoutine(std::int32_t id);
    UserVariable* findVariable(std::int32_t id);

    // Current user's name, or an empty text when there is none.
    std::string currentUserName() const;

    // Nutrient values of eaten food; see EatenNutrients.h.
    double value(const FoodEntry& entry, NutrientId n) const { return eatenValue(*this, entry, n); }
    double value(const Meal& meal, NutrientId n) const { return eatenValue(*this, meal, n); }
    double value(const JournalDay& day, NutrientId n) const { return eatenValue(*this, day, n); }
    std::vector<ResolvedEntry> resolve(const Meal& meal) const
    {
        return resolveEntries(*this, meal);
    }
    std::vector<ResolvedEntry> resolve(const JournalDay& day) const
    {
        return resolveEntries(*this, day);
    }
    std::string servingText(const FoodEntry& entry) const { return entryServingText(*this, entry); }

    // The data folder's operations; see DataFolder.
    void setPaths(std::filesystem::path foodsPath, std::filesystem::path dataDir)
    {
        m_files.setPaths(std::move(foodsPath), std::move(dataDir));
    }
    const std::filesystem::path& dataDir() const { return m_files.dataDir(); }
    const std::filesystem::path& foodsPath() const { return m_files.foodsPath(); }
    std::filesystem::path sharedPath() const { return m_files.sharedPath(); }
    std::optional<std::filesystem::path> userFilePath(std::size_t k) const
    {
        return m_files.userFilePath(k);
    }
    LoadReport load() { return m_files.load(); }
    bool loadCurrentUser(FileError* error = nullptr) { return m_files.loadCurrentUser(error); }
    const std::optional<DamagedFile>& lastUserDamage() const { return m_files.lastUserDamage(); }
    Status restoreBackup(const DamagedFile& damaged) { return m_files.restoreBackup(damaged); }
    Status saveShared() { return m_files.saveShared(); }
    Status saveCurrentUser() { return m_files.saveCurrentUser(); }
    std::optional<WriteRefusal> writeRefusal() const { return m_files.writeRefusal(); }
    bool sharedProtected() const { return m_files.sharedProtected(); }
    bool userFileProtected() const { return m_files.userFileProtected(); }
    bool loaded() const { return m_files.loaded(); }
    bool hasUnsavedChanges() const { return m_files.hasUnsavedChanges(); }

private:
    DataFolder m_files;
};

} // namespace velmora::model
