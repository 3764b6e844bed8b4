#include "model/platform/WindowsText.h"

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace velmora::model::platform {

std::wstring wideFromUtf8(std::string_view utf8)
{
    if (utf8.empty())
        return {};
    const int n =
        ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(n), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), n);
    return wide;
}

std::string utf8FromWide(std::wstring_view wide)
{
    if (wide.empty())
        return {};
    const int n = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                        nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(n), '\0');
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), n,
                          nullptr, nullptr);
    return utf8;
}

std::string systemErrorText(unsigned long code)
{
    wchar_t* buffer = nullptr;
    const DWORD n = ::FormatMessageW(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, code, 0, reinterpret_cast<wchar_t*>(&buffer), 0, nullptr);
    std::wstring text(buffer ? std::wstring_view(buffer, n) : std::wstring_view());
    if (buffer)
        ::LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' '))
        text.pop_back();
    if (text.empty())
        return "system error " + std::to_string(code);
    return utf8FromWide(text);
}

std::string lastErrorText()
{
    return systemErrorText(::GetLastError());
}

} // namespace velmora::model::platform
