#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "model/FileKinds.h"
#include "model/FileStamp.h"
#include "model/FileSystem.h"
#include "model/Result.h"

namespace velmora::model {

class Store;

// Why saves are refused: the data folder or one of its files cannot be written, or a file could
// not be read and is kept as it is.
struct WriteRefusal
{
    enum class Scope
    {
        Folder,      // nothing may be written
        CurrentUser, // only the current user's file; choosing another user may end it
    };
    Scope scope = Scope::Folder;
    FileErrorCode code = FileErrorCode::CannotWrite; // UnsafeName for a name that is no file name
    std::string reason; // for the user, a clause without the final full stop, e.g. "the data
                        // folder \"/media/x\" cannot be written (Read-only file system)"
};

// A version of a file that another program (a second Velmora, a file-sync tool) wrote since this
// program read or wrote the file; a save keeps it beside the file before writing its own.
struct KeptVersion
{
    std::filesystem::path file;   // the file that was saved
    std::filesystem::path keptAs; // "<file>.conflict-YYYYMMDD-HHMMSS"
};

// "Anna.db was changed by another program since Velmora read it; that version is kept as
// \"/data/Anna.db.conflict-20261122-170501\"", for a terminal.
std::string keptVersionText(const KeptVersion& kept);

// What the records in memory hold that the files on disk do not: what a close without saving
// would lose.
struct UnsavedChanges
{
    std::vector<std::string> shared; // the parts of "velmora.db" that differ, plural names:
                                     // "users", "custom foods", ..., "the current user"
    bool profile = false;            // the current user's settings and goals
    std::size_t days = 0;            // journal days added, changed or removed
    bool any() const { return !shared.empty() || profile || days > 0; }
};

// The store's files: where they are, reading them at start-up and on a change of user, saving
// them with backups, moving damaged ones aside and restoring backups. Saving never changes the
// records in memory: a save writes a normalised copy, and nothing is released after it.
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
        // The last backup, when it reads completely. So that a save of what was salvaged cannot
        // replace it, it is moved out of the way as "<file>.backup-YYYYMMDD-HHMMSS" and stays
        // there until restoreBackup() puts it back. Empty when there is none.
        std::filesystem::path backup;
        std::string kept; // what was salvaged, e.g. "9 of 10 days kept" (see keptText)
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

    // Every read and write of the data files goes through this file system (tests replace it).
    void setFileSystem(FileSystem& files) { m_files = &files; }
    FileSystem& fileSystem() const { return *m_files; }

    // The start-up sequence: "foods.db"; when it is missing or cannot be opened nothing else is
    // loaded (and nothing may be saved). Then "velmora.db" (or the example user when it is
    // missing) and its normalisation, then the current user's file and the normalisation again.
    // Files are read whole into fresh records. A damaged file is moved aside under a name that
    // says so, every record of it that was read completely is used, and its backup is moved out
    // of the way of saves; the damage is reported. A file that exists but cannot be opened, or a
    // damaged one that cannot be moved aside, is protected: saves refuse to write over it.
    LoadReport load();
    // Reads the current user's file (creating the example user when no name exists). A missing
    // file leaves an empty journal and keeps the profile record in memory as it is. Returns
    // whether the file was read completely; a damaged or unreadable file is reported through
    // error (and, when damaged, moved aside and salvaged as at start-up; see lastUserDamage()).
    bool loadCurrentUser(FileError* error = nullptr);
    // The damage found by the last loadCurrentUser(), if any.
    const std::optional<DamagedFile>& lastUserDamage() const { return m_lastUserDamage; }

    // Puts a damaged file's backup (DamagedFile::backup) in place of the file and reloads it: the
    // shared file with load()'s steps after "foods.db", the user's file with loadCurrentUser().
    // What stands in the file's place (a save of the salvaged records) is moved aside as
    // "<file>.salvaged-YYYYMMDD-HHMMSS" first, and the backup becomes "<file>.bak" again. Fails
    // without changing anything when the backup does not read completely or cannot be copied.
    Status restoreBackup(const DamagedFile& damaged);

    // Saves are refused for the rest of the session with this reason (another program holds the
    // folder, say); see writeRefusal().
    void setReadOnly(std::string reason) { m_readOnlyReason = std::move(reason); }
    // Why a save would be refused now, or nothing when both files may be written: the reason set
    // with setReadOnly(), a data folder or a file that cannot be written, a file that could not
    // be read (kept as it is), nothing loaded, or a current user whose name is no safe file name.
    std::optional<WriteRefusal> writeRefusal() const;

    // Writes a normalised copy of the shared records to "velmora.db" atomically, keeping the file
    // it replaces as "velmora.db.bak". A file whose content would not change is not written. A
    // file that someone else changed since this program read or wrote it is kept beside it first
    // (see takeKeptVersions()); when it cannot be kept or not even read, the save is refused.
    // Refuses (CannotWrite, or UnsafeName) while writeRefusal() gives a folder-wide reason.
    Status saveShared();
    // Writes the current user's file (its days normalised against the shared definitions, in a
    // copy) in the same way when at least one user name exists, keeping the replaced file as
    // "<name>.db.bak". Refuses while writeRefusal() gives any reason.
    Status saveCurrentUser();
    // The other versions that saves kept since the last call, oldest first; the list is emptied.
    std::vector<KeptVersion> takeKeptVersions();

    // True while a file that could not be read is protected from being written over.
    bool sharedProtected() const { return m_sharedDamaged; }
    bool userFileProtected() const { return m_userDamaged; }
    // True once the user data was loaded (or made afresh), so that saving cannot write empty
    // records over real files.
    bool loaded() const { return m_loaded; }
    // True when what a save would write differs from what was last read from or written to the
    // files (or the files are missing). Serialises both, which takes about a millisecond per ten
    // years of journal; changes nothing.
    bool hasUnsavedChanges() const;
    // What differs between the records and the files on disk, part by part and day by day (reads
    // both files; a file that cannot be read counts as empty).
    UnsavedChanges unsavedChanges() const;

private:
    friend class Store;
    // A copied store's folder works on the copy.
    void rebind(Store& store) { m_store = &store; }
    Store& records() const { return *m_store; }

    bool loadShared(LoadReport& report);
    // Reads a damaged file's salvage, moves the file aside, keeps its backup out of the way and
    // describes it.
    DamagedFile setAside(FileKind kind, const std::filesystem::path& path, const FileError& error,
                         const std::vector<ListKept>& lists);
    // The bytes a save writes.
    std::vector<std::uint8_t> sharedBytes() const;
    std::vector<std::uint8_t> userBytes() const;
    // Writes bytes to path unless they are what stamp says the file holds; keeps another
    // program's version first. Updates stamp.
    Status writeChecked(const std::filesystem::path& path, const std::vector<std::uint8_t>& bytes,
                        FileStamp& stamp);
    bool missing(const std::filesystem::path& path) const;

    Store* m_store;
    FileSystem* m_files = &realFileSystem();
    std::filesystem::path m_foodsPath;
    std::filesystem::path m_dataDir;
    std::string m_readOnlyReason;
    bool m_sharedDamaged = false;
    bool m_userDamaged = false;
    FileError m_sharedProblem; // why the shared file is protected
    FileError m_userProblem;   // why the current user's file is protected
    bool m_loaded = false;
    std::optional<DamagedFile> m_lastUserDamage;
    FileStamp m_sharedStamp; // what "velmora.db" held when last read or written
    FileStamp m_userStamp;   // the same for the current user's file
    std::filesystem::path m_userStampPath;
    std::vector<KeptVersion> m_kept;
};

} // namespace velmora::model
