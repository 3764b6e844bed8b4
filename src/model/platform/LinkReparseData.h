#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace velmora::model::platform {

// The text a Windows symbolic link holds, read from the link's reparse data (what
// FSCTL_GET_REPARSE_POINT gives, little-endian): an absolute path ("C:\data\velmora.db",
// "\\server\share\velmora.db") or a path relative to the link's folder, in UTF-16. The file
// system's own prefixes ("\??\", "\??\UNC\") are turned into the forms that Windows programs use.
// Nothing for the reparse data of anything but a symbolic link (a cloud file's placeholder or a
// deduplicated file is the file itself, not a link) and for data that is cut short or whose
// names lie outside it.
// Windows' layout of the data is read here without Windows' headers, so that it is tested on
// every platform.
std::optional<std::u16string> symbolicLinkTarget(std::span<const std::uint8_t> reparseData);

} // namespace velmora::model::platform
