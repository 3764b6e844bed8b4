#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/FoodDatabase.h"
#include "model/Nutrition.h"
#include "model/Result.h"
#include "model/UserDatabase.h"

namespace velmora::model {

// The process-wide data store: the food database and the user data together. Pages and dialogs
// read and edit its records directly; the application loads it at start-up and saves it at
// shut-down and whenever the logged-in user changes.
class Store
{
public:
    FoodDatabase foods;
    SharedData shared;   // "velmora.db"
    UserJournal journal; // the current user's file

    // Where the files are: foodsPath is "foods.db" (may lie beside the program while dataDir is a
    // per-user folder); dataDir holds "velmora.db" and the users' files.
    void setPaths(std::filesystem::path foodsPath, std::filesystem::path dataDir);
    const std::filesystem::path& dataDir() const { return m_dataDir; }
    const std::filesystem::path& foodsPath() const { return m_foodsPath; }
    std::filesystem::path sharedPath() const { return m_dataDir / "velmora.db"; }
    // The file of user k, or nothing when the name cannot safely name a file in the data folder.
    std::optional<std::filesystem::path> userFilePath(std::size_t k) const;

    // What the start-up load found.
    struct LoadReport
    {
        bool foodsLoaded = false;      // "foods.db" read completely
        bool sharedLoaded = false;     // "velmora.db" read completely
        bool exampleCreated = false;   // "velmora.db" missing: the example user was made
        bool userFileRead = false;     // the current user's file was read
        std::vector<FileError> errors; // damaged or unreadable files (missing files are not errors)
    };

    // The start-up sequence: "foods.db"; when it cannot be read nothing else is loaded. Then
    // "velmora.db" (or the example user when it is missing) and its normalisation, then the
    // current user's file and the normalisation again. Files are read whole into fresh records
    // and taken over only when complete. A damaged "velmora.db" is reported, nothing after it is
    // loaded, and it is protected: saveShared() then refuses to write over it. The same holds for
    // a damaged user file and saveCurrentUser().
    LoadReport load();
    // Reads the current user's file (creating the example user when no name exists). A missing
    // file leaves an empty journal and keeps the profile record in memory as it is. Returns
    // whether the file was read; a damaged file is reported through error.
    bool loadCurrentUser(FileError* error = nullptr);

    // Normalises, then writes "velmora.db" atomically; with release set the lists are emptied
    // after writing (shut-down).
    Status saveShared(bool release);
    // Writes the current user's file atomically when at least one user name exists; with
    // release set the days are freed afterwards.
    Status saveCurrentUser(bool release);

    // The clean-up pass: dangling identifiers removed, duplicate custom foods dropped, definition
    // lists sorted by name (exchange sort, byte-wise unsigned comparison).
    void normalise();

    // Lookups: linear, first match.
    const FoodItem* findFood(std::int32_t number) const; // custom foods from 70000, else the map
    FoodItem* findCustomFood(std::int32_t number);
    ExerciseField* findField(std::int32_t id);
    Exercise* findExercise(std::int32_t id);
    Routine* findRoutine(std::int32_t id);
    UserVariable* findVariable(std::int32_t id);

    // Nutrient values of eaten food (entries whose food does not exist count as nothing).
    double value(const FoodEntry& entry, NutrientId n) const;
    double value(const Meal& meal, NutrientId n) const;
    double value(const JournalDay& day, NutrientId n) const; // all entries of all meals
    std::vector<ResolvedEntry> resolve(const Meal& meal) const;
    std::vector<ResolvedEntry> resolve(const JournalDay& day) const;
    // The journal's serving text of an entry; empty when the food is unknown.
    std::string servingText(const FoodEntry& entry) const;

    // Current user's name, or an empty text when there is none.
    std::string currentUserName() const;

    // True while a file found damaged at load is protected from being written over.
    bool sharedProtected() const { return m_sharedDamaged; }
    bool userFileProtected() const { return m_userDamaged; }

private:
    std::filesystem::path m_foodsPath;
    std::filesystem::path m_dataDir;
    bool m_sharedDamaged = false;
    bool m_userDamaged = false;
};

} // namespace velmora::model
