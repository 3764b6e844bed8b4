#pragma once

// Text crossing between the program (UTF-8) and Windows' wide-character API (UTF-16). Built on
// Windows only.

#include <string>
#include <string_view>

namespace velmora::model::platform {

std::wstring wideFromUtf8(std::string_view utf8);
std::string utf8FromWide(std::wstring_view wide);

// The system's sentence for an error code of GetLastError(), in UTF-8 and without the line
// break that Windows ends it with.
std::string systemErrorText(unsigned long code);
// The same for the error of the last failed call.
std::string lastErrorText();

} // namespace velmora::model::platform
