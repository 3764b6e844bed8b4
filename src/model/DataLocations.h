#pragma once

#include <filesystem>
#include <vector>

#include "model/FileSystem.h"

namespace velmora::model {

// Where the program and velmora-cli look for their data.
struct DataSearch
{
    std::filesystem::path dataDirOption; // --data-dir DIR; empty: the program's folder
    std::filesystem::path foodsOption;   // --foods FILE; empty: look in the usual places
    std::filesystem::path programDir;    // the folder that holds the running program
    std::filesystem::path perUserDir;    // used when the program's folder cannot be written
    std::vector<std::filesystem::path> installedDirs; // installed data folders, in order
};

struct DataLocations
{
    std::filesystem::path dataDir;               // holds "velmora.db" and the users' files
    std::filesystem::path foodsPath;             // "foods.db" found, or empty
    std::vector<std::filesystem::path> searched; // where "foods.db" was looked for, in order
    std::filesystem::path named;                 // the file given with --foods, if any

    // The food database the store reads: the one found, else the named one (so that loading
    // reports it missing), else "foods.db" in the data folder.
    std::filesystem::path foodsToLoad() const;
};

// The folder an installed program keeps its read-only files in: "PREFIX/share/velmora" for a
// program in "PREFIX/bin".
std::filesystem::path installedShareDir(const std::filesystem::path& programDir);

// The data folder: the given one, else the program's folder when it holds "foods.db" or
// "velmora.db" (a portable or build layout), else the per-user folder. A given folder is created
// if needed and always used; the program's folder is replaced by the per-user folder only when it
// cannot be written (asked of files, then probed with a temporary file) and holds no user data
// ("velmora.db" or its backup). A folder used that cannot be written is opened read-only.
// "foods.db" is looked for in the data folder, then beside the program, then in the installed share
// folder, then in the installed folders, each place once; a file named with --foods is the only
// place looked at. Paths are absolute and lexically normal. Never fails: a missing "foods.db"
// leaves foodsPath empty.
DataLocations findDataLocations(const DataSearch& search, FileSystem& files = realFileSystem());

// The per-user data folder and the installed data folders of this platform, for programs that
// have no toolkit to ask (the console tool): the same folders the program's toolkit gives.
std::filesystem::path defaultPerUserDataDir();
std::vector<std::filesystem::path> defaultInstalledDataDirs();

} // namespace velmora::model
