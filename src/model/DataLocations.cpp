#include "model/DataLocations.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>

#include "model/FileSystem.h"

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

fs::path clean(const fs::path& p)
{
    std::error_code ec;
    fs::path out = fs::absolute(p, ec);
    if (ec)
        out = p;
    out = out.lexically_normal();
    // "dir/" and "dir" are the same folder.
    if (!out.has_filename() && out.has_parent_path() && out != out.root_path())
        out = out.parent_path();
    return out;
}

bool folderWritable(const fs::path& dir, FileSystem& files)
{
    std::error_code ec;
    fs::create_directories(dir, ec);
    if (!fs::is_directory(dir, ec) || !files.canWrite(dir))
        return false;
    const auto stamp = std::chrono::steady_clock::now().time_since_epoch().count();
    const fs::path probe = dir / (".velmora-" + std::to_string(stamp));
    bool ok = false;
    {
        std::ofstream out(probe, std::ios::binary);
        ok = out.good();
    }
    fs::remove(probe, ec);
    return ok;
}

bool isFile(const fs::path& p)
{
    std::error_code ec;
    return fs::is_regular_file(p, ec);
}

// A folder with users in it: "velmora.db" or its backup.
bool holdsUserData(const fs::path& dir)
{
    std::error_code ec;
    return fs::exists(dir / "velmora.db", ec) || fs::exists(dir / "velmora.db.bak", ec);
}

} // namespace

fs::path DataLocations::foodsToLoad() const
{
    if (!foodsPath.empty())
        return foodsPath;
    if (!named.empty())
        return named;
    return dataDir / "foods.db";
}

fs::path installedShareDir(const fs::path& programDir)
{
    return clean(programDir / ".." / "share" / "velmora");
}

DataLocations findDataLocations(const DataSearch& search, FileSystem& files)
{
    DataLocations out;
    // The program's folder holds the data only in a portable or build layout (foods.db or
    // velmora.db beside the program); an installed program keeps every user's journals in their
    // own per-user folder, even where its folder could be written (as root).
    const bool portable = isFile(search.programDir / "foods.db") ||
                          isFile(search.programDir / "velmora.db");
    const fs::path chosen = !search.dataDirOption.empty() ? search.dataDirOption
                            : portable                    ? search.programDir
                                                          : search.perUserDir;
    out.dataDir = clean(chosen);
    // A folder named with --data-dir is the one used, and so is a program's folder that holds
    // user data: when it cannot be written the program opens it read-only and says so, rather
    // than showing another folder's users in its place.
    const bool named = !search.dataDirOption.empty();
    if (!folderWritable(out.dataDir, files) && !named && !holdsUserData(out.dataDir)) {
        std::error_code ec;
        fs::create_directories(search.perUserDir, ec);
        out.dataDir = clean(search.perUserDir);
    }

    if (!search.foodsOption.empty()) {
        const fs::path chosen = clean(search.foodsOption);
        out.searched.push_back(chosen);
        out.named = chosen;
        if (isFile(chosen))
            out.foodsPath = chosen;
        return out;
    }
    // The data folder's own copy first (a folder chosen with --data-dir may bring one), then the
    // one shipped beside the program, then the installed share folder ("../share/velmora" from the
    // program), then the platform's installed data folders.
    std::vector<fs::path> candidates{out.dataDir / "foods.db", search.programDir / "foods.db",
                                     installedShareDir(search.programDir) / "foods.db"};
    for (const fs::path& dir : search.installedDirs)
        candidates.push_back(dir / "foods.db");
    for (const fs::path& candidate : candidates) {
        const fs::path c = clean(candidate);
        if (std::find(out.searched.begin(), out.searched.end(), c) != out.searched.end())
            continue;
        out.searched.push_back(c);
        if (out.foodsPath.empty() && isFile(c))
            out.foodsPath = c;
    }
    return out;
}

} // namespace velmora::model
