// The console of Windows; see Console.h.
#include "platform/Console.h"

#include <cstdio>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>

#include "model/platform/WindowsText.h"

namespace velmora::cli {

namespace fs = std::filesystem;

std::vector<std::string> commandArguments(int argc, char** argv)
{
    // argv holds the arguments in the 8-bit code page of the system, where a name beyond it
    // has become '?'; the wide command line holds them as typed.
    int count = 0;
    wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    if (!wide)
        return std::vector<std::string>(argv + 1, argv + argc);
    std::vector<std::string> out;
    for (int i = 1; i < count; ++i)
        out.push_back(model::platform::utf8FromWide(wide[i]));
    ::LocalFree(wide);
    return out;
}

fs::path runningProgram(const char* argv0)
{
    std::wstring name(MAX_PATH, L'\0');
    for (;;) {
        const DWORD n = ::GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
        if (n == 0)
            break;
        if (n < name.size()) {
            name.resize(n);
            return fs::path(name);
        }
        name.resize(name.size() * 2);
    }
    std::error_code ec;
    return fs::absolute(argv0, ec);
}

void prepareConsole()
{
    // Texts are written as UTF-8 bytes with "\n": the same bytes as on other systems when the
    // output goes to a file, and shown right by a console that is told so.
    ::SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

} // namespace velmora::cli
