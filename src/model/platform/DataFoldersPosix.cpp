// The per-user and installed data folders of Linux (the XDG base directories) and macOS; the
// Windows ones are in DataFoldersWindows.cpp. Declared in DataLocations.h.
#include "model/DataLocations.h"

#include <algorithm>
#include <cstdlib>
#include <string>

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

// The organisation and program folders under the platform's data folders.
const fs::path AppFolder = fs::path("Orvane") / "Velmora";

fs::path environmentPath(const char* name)
{
    const char* v = std::getenv(name);
    return v && *v ? fs::path(v) : fs::path();
}

} // namespace

fs::path defaultPerUserDataDir()
{
#if defined(__APPLE__)
    return environmentPath("HOME") / "Library" / "Application Support" / AppFolder;
#else
    const fs::path xdg = environmentPath("XDG_DATA_HOME");
    return (xdg.empty() ? environmentPath("HOME") / ".local" / "share" : xdg) / AppFolder;
#endif
}

std::vector<fs::path> defaultInstalledDataDirs()
{
    std::vector<fs::path> out{defaultPerUserDataDir()};
#if defined(__APPLE__)
    out.push_back(fs::path("/Library/Application Support") / AppFolder);
#else
    std::string dirs = std::getenv("XDG_DATA_DIRS") ? std::getenv("XDG_DATA_DIRS") : "";
    if (dirs.empty())
        dirs = "/usr/local/share:/usr/share";
    std::size_t start = 0;
    while (start <= dirs.size()) {
        const std::size_t end = std::min(dirs.find(':', start), dirs.size());
        if (end > start)
            out.push_back(fs::path(dirs.substr(start, end - start)) / AppFolder);
        start = end + 1;
    }
#endif
    return out;
}

} // namespace velmora::model
