// The per-user and installed data folders of Windows; the POSIX ones are in
// DataFoldersPosix.cpp. Declared in DataLocations.h.
#include "model/DataLocations.h"

#include <string>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <knownfolders.h>
#include <shlobj.h>

namespace velmora::model {

namespace fs = std::filesystem;

namespace {

// The organisation and program folders under the platform's data folders.
const fs::path AppFolder = fs::path("Orvane") / "Velmora";

// A folder named by an environment variable, read as wide characters: a user whose name is
// beyond ASCII has such folders (C:\Users\Zoë\AppData\Roaming), which the 8-bit environment
// could only give with '?' for some letters.
fs::path environmentFolder(const wchar_t* name)
{
    const DWORD size = ::GetEnvironmentVariableW(name, nullptr, 0);
    if (size <= 1)
        return {};
    std::wstring value(size, L'\0');
    const DWORD length = ::GetEnvironmentVariableW(name, value.data(), size);
    value.resize(length < size ? length : 0);
    return fs::path(value);
}

// The folder of the shell for an id, where the environment does not name it.
fs::path knownFolder(REFKNOWNFOLDERID id)
{
    wchar_t* path = nullptr;
    fs::path out;
    if (SUCCEEDED(::SHGetKnownFolderPath(id, KF_FLAG_DEFAULT, nullptr, &path)))
        out = fs::path(path);
    ::CoTaskMemFree(path);
    return out;
}

} // namespace

// %APPDATA%, the user's roaming application data (the folder that the program's toolkit gives),
// under which every Windows program keeps its users' settings and documents of its own.
fs::path defaultPerUserDataDir()
{
    fs::path base = environmentFolder(L"APPDATA");
    if (base.empty())
        base = knownFolder(FOLDERID_RoamingAppData);
    return base / AppFolder;
}

// Then %PROGRAMDATA%, shared by the computer's users (where an installer may put foods.db).
std::vector<fs::path> defaultInstalledDataDirs()
{
    fs::path shared = environmentFolder(L"PROGRAMDATA");
    if (shared.empty())
        shared = knownFolder(FOLDERID_ProgramData);
    return {defaultPerUserDataDir(), shared / AppFolder};
}

} // namespace velmora::model
