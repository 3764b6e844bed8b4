#include "model/platform/LinkReparseData.h"

namespace velmora::model::platform {

namespace {

constexpr std::uint32_t SymbolicLinkTag = 0xA000000C; // IO_REPARSE_TAG_SYMLINK
constexpr std::uint32_t RelativeFlag = 1;             // SYMLINK_FLAG_RELATIVE
// Tag (4 bytes), length of the data after the header (2), reserved (2).
constexpr std::size_t HeaderSize = 8;
// Then the substitute name's offset and length, the print name's offset and length (2 bytes
// each), the flags (4), and the names, whose offsets count from here.
constexpr std::size_t NamesStart = HeaderSize + 12;

std::uint32_t littleEndian(std::span<const std::uint8_t> d, std::size_t at, std::size_t bytes)
{
    std::uint32_t v = 0;
    for (std::size_t i = 0; i < bytes; ++i)
        v |= static_cast<std::uint32_t>(d[at + i]) << (8 * i);
    return v;
}

std::optional<std::u16string> nameAt(std::span<const std::uint8_t> d, std::size_t end,
                                     std::size_t offset, std::size_t length)
{
    if (length % 2 != 0 || NamesStart + offset + length > end)
        return std::nullopt;
    std::u16string name;
    for (std::size_t at = NamesStart + offset; at < NamesStart + offset + length; at += 2)
        name.push_back(static_cast<char16_t>(littleEndian(d, at, 2)));
    return name;
}

// "\??\C:\x" is "C:\x", "\??\UNC\server\share" is "\\server\share", and any other name of the
// object manager ("\??\Volume{...}\x") keeps the prefix that Windows programs write for it.
std::u16string programForm(std::u16string name)
{
    const std::u16string nt = u"\\??\\";
    if (!name.starts_with(nt))
        return name;
    std::u16string rest = name.substr(nt.size());
    if (rest.starts_with(u"UNC\\"))
        return u"\\\\" + rest.substr(4);
    if (rest.size() >= 2 && rest[1] == u':')
        return rest;
    return u"\\\\?\\" + rest;
}

} // namespace

std::optional<std::u16string> symbolicLinkTarget(std::span<const std::uint8_t> d)
{
    if (d.size() < NamesStart || littleEndian(d, 0, 4) != SymbolicLinkTag)
        return std::nullopt;
    const std::size_t end = HeaderSize + littleEndian(d, 4, 2);
    if (end > d.size() || end < NamesStart)
        return std::nullopt;
    const std::uint32_t flags = littleEndian(d, 16, 4);
    // The substitute name is the one the system follows; the print name is for showing and may
    // be left empty by whoever made the link.
    auto name = nameAt(d, end, littleEndian(d, 8, 2), littleEndian(d, 10, 2));
    if (!name || name->empty())
        name = nameAt(d, end, littleEndian(d, 12, 2), littleEndian(d, 14, 2));
    if (!name || name->empty())
        return std::nullopt;
    return (flags & RelativeFlag) ? *name : programForm(*name);
}

} // namespace velmora::model::platform
