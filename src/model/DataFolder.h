#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <vector>

#include "model/FileKinds.h"
#include "model/Result.h"

namespace velmora::model {

class Store;

// Whether a save frees the records after writing them (shut-down).
enum class Release
{
    No,
    Yes
};

// The store's files: where they are, reading them at start-up and on a change of user, saving
// them with backups, moving damaged ones aside and restoring backups. Saving never changes the
// records in memory (except freeing them with Release::Yes): a save writes a normalised copy.
class DataFolder
{
public:
    explicit DataFolder(Store& store) : m_store(&store) {}

    // A file found damaged while loading.
    struct DamagedFile
    {
        using Kind = FileKind;
        Kind kind = Kind::Shared;
        FileError error; // where and why reading stopped
        std::filesystem::path
            movedTo; // where the damaged file now lies; empty if it could not be moved
        std::filesystem::path backup; // "<file>.bak" when it reads completely, else empty
    };

    // What the start-up load found.
    struct LoadReport
    {
        bool foodsLoaded = false;      // "foods.db" read (completely, or salvaged when damaged)
        bool foodsMissing = false;     // "foods.db" does not exist: nothing was loaded
        bool sharedLoaded = false;     // "velmora.db" read completely
        bool exampleCreated = false;   // "velmora.db" missing: the example user was made
        bool userFileRead = false;     // the current user's file was read completely
        std::vector<FileError> errors; // damaged or unreadable files (missing files are not errors)
        std::vector<DamagedFile> damaged; // the damaged ones among them, moved aside
    };

    // Where the files are: foodsPath is "foods.db" (may lie beside the program while dataDir is a
    // per-user folder); dataDir holds "velmora.db" and the users' files.
    void setPaths(std::filesystem::path foodsPath, std::filesystem::path dataDir);
    const std::filesystem::path& dataDir() const { return m_dataDir; }
    const std::filesystem::path& foodsPath() const { return m_foodsPath; }
    std::filesystem::path sharedPath() const { return m_dataDir / "velmora.db"; }
    // The file of user k, or nothing when the name cannot safely name a file in the data folder.
    std::optional<std::filesystem::path> userFilePath(std::size_t k) const;

    // The start-up sequence: "foods.db"; when it is missing or cannot be opened nothing else is
    // loaded (and nothing may be saved). Then "velmora.db" (or the example user when it is
    // missing) and its normalisation, then the current user's file and the normalisation again.
    // Files are read whole into fresh records. A damaged file is moved aside under a name that
    // says so, and the parts of it that were read completely are used (a list that was only
    // partly read is dropped whole); the damage is reported. A file that exists but cannot be
    // opened, or a damaged one that cannot be moved aside, is protected: saves refuse to write
    // over it.
    LoadReport load();
    // Reads the current user's file (creating the example user when no name exists). A missing
    // file leaves an empty journal and keeps the profile record in memory as it is. Returns
    // whether the file was read completely; a damaged or unreadable file is reported through
    // error (and, when damaged, moved aside and salvaged as at start-up; see lastUserDamage()).
    bool loadCurrentUser(FileError* error = nullptr);
    // The damage found by the last loadCurrentUser(), if any.
    const std::optional<DamagedFile>& lastUserDamage() const { return m_lastUserDamage; }

    // Puts the backup of "velmora.db" (or of the current user's file) in place of the file and
    // reloads it: the shared file with load()'s steps after "foods.db", the user's file with
    // loadCurrentUser(). The backup must read completely; the file it replaces, if any, is moved
    // aside first. Fails without changing anything when there is no usable backup.
    Status restoreSharedBackup();
    Status restoreUserBackup();

    // Writes a normalised copy of the shared records to "velmora.db" atomically, keeping the file
    // it replaces as "velmora.db.bak"; with Release::Yes the lists are emptied after writing
    // (shut-down), after the live records are normalised. Refuses (CannotWrite) while nothing was
    // loaded or the file is protected.
    Status saveShared(Release release);
    // Writes the current user's file (its days normalised against the shared definitions, in a
    // copy) atomically when at least one user name exists, keeping the replaced file as
    // "<name>.db.bak"; with Release::Yes the days are freed afterwards. Refuses while nothing was
    // loaded or the file is protected.
    Status saveCurrentUser(Release release);

    // True while a file that could not be read is protected from being written over.
    bool sharedProtected() const { return m_sharedDamaged; }
    bool userFileProtected() const { return m_userDamaged; }
    // True once the user data was loaded (or made afresh), so that saving cannot write empty
    // records over real files.
    bool loaded() const { return m_loaded; }
    // True when what a save would write differs from what was last read from or written to the
    // files (or the files are missing). Serialises both, which takes about a millisecond per ten
    // years of journal; changes nothing. Saves skip a file whose content has not changed, so the
    // backup keeps the last different version.
    bool hasUnsavedChanges() const;

private:
    friend class Store;
    // A copied store's folder works on the copy.
    void rebind(Store& store) { m_store = &store; }
    Store& records() const { return *m_store; }

    bool loadShared(LoadReport& report);
    // Reads a damaged file's salvage, moves the file aside and describes it.
    DamagedFile setAside(FileKind kind, const std::filesystem::path& path, const FileError& error);
    // The bytes a save writes.
    std::vector<std::uint8_t> sharedBytes() const;
    std::vector<std::uint8_t> userBytes() const;

    Store* m_store;
    std::filesystem::path m_foodsPath;
    std::filesystem::path m_dataDir;
    bool m_sharedDamaged = false;
    bool m_userDamaged = false;
    bool m_loaded = false;
    bool m_definitionsReleased = false; // saveShared(Release::Yes) emptied the definition lists
    std::optional<DamagedFile> m_lastUserDamage;
    std::size_t m_sharedHash = 0; // hash of the bytes last read from or written to "velmora.db"
    std::size_t m_userHash = 0;   // the same for the current user's file
    std::filesystem::path m_userHashPath;
};

} // namespace velmora::model
