#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velmora::model {

// The files store texts as Windows-1252 bytes; the GUI works in UTF-8. These two functions are the
// one conversion between them. All 256 bytes convert to UTF-8 (the five bytes that Windows-1252
// leaves undefined map to the C1 control characters of the same value, so every byte survives a
// round trip). Characters that Windows-1252 cannot hold, and malformed UTF-8, become '?'.
std::string cp1252ToUtf8(std::string_view cp1252);
std::string utf8ToCp1252(std::string_view utf8);

// A path from UTF-8 text (a command-line argument, a name typed). The constructor of
// std::filesystem::path from 8-bit text takes it in the system's 8-bit encoding, which on
// Windows is no UTF-8, while path::string() gives UTF-8 there: this is the way back.
std::filesystem::path pathFromUtf8(std::string_view utf8);

} // namespace velmora::model
