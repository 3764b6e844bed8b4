// The target of a Windows symbolic link read from its reparse data, on every platform.

#include <gtest/gtest.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/platform/LinkReparseData.h"

using velmora::model::platform::symbolicLinkTarget;

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t SymlinkTag = 0xA000000C;

void put(Bytes& out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

// Reparse data of a link as Windows lays it out: the print name first, then the substitute name.
Bytes linkData(const std::u16string& substitute, const std::u16string& print, std::uint32_t flags,
               std::uint32_t tag = SymlinkTag)
{
    const auto printBytes = static_cast<std::uint32_t>(print.size() * 2);
    const auto substituteBytes = static_cast<std::uint32_t>(substitute.size() * 2);
    Bytes out;
    put(out, tag, 4);
    put(out, 12 + printBytes + substituteBytes, 2);
    put(out, 0, 2);
    put(out, printBytes, 2); // the substitute name's offset, after the print name
    put(out, substituteBytes, 2);
    put(out, 0, 2);
    put(out, printBytes, 2);
    put(out, flags, 4);
    for (char16_t c : print + substitute)
        put(out, c, 2);
    return out;
}

} // namespace

TEST(LinkReparseData, TheTargetIsTheNameThatTheSystemFollows)
{
    const struct
    {
        const char* what;
        Bytes data;
        std::optional<std::u16string> target;
    } cases[] = {
        {"absolute",
         linkData(u"\\??\\C:\\Users\\Zo\u00EB\\velmora.db", u"C:\\Users\\Zo\u00EB\\velmora.db", 0),
         u"C:\\Users\\Zo\u00EB\\velmora.db"},
        {"relative", linkData(u"..\\elsewhere\\velmora.db", u"..\\elsewhere\\velmora.db", 1),
         u"..\\elsewhere\\velmora.db"},
        {"network share",
         linkData(u"\\??\\UNC\\server\\share\\a.db", u"\\\\server\\share\\a.db", 0),
         u"\\\\server\\share\\a.db"},
        {"volume without a letter", linkData(u"\\??\\Volume{5c1d}\\a.db", u"", 0),
         u"\\\\?\\Volume{5c1d}\\a.db"},
        {"no print name", linkData(u"\\??\\D:\\a.db", u"", 0), u"D:\\a.db"},
        {"a print name that differs", linkData(u"\\??\\D:\\real.db", u"D:\\shown.db", 0),
         u"D:\\real.db"},
        {"no substitute name", linkData(u"", u"D:\\shown.db", 0), u"D:\\shown.db"},
        {"no name at all", linkData(u"", u"", 0), std::nullopt},
        // Reparse points that are the file itself: a junction's data, a cloud file's placeholder.
        {"junction", linkData(u"\\??\\C:\\a", u"C:\\a", 0, 0xA0000003), std::nullopt},
        {"cloud file", linkData(u"\\??\\C:\\a", u"C:\\a", 0, 0x9000001A), std::nullopt},
        {"header only", Bytes{0x0C, 0x00, 0x00, 0xA0, 0x00, 0x00, 0x00, 0x00}, std::nullopt},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(symbolicLinkTarget(c.data), c.target);
    }
}

TEST(LinkReparseData, DataCutShortOrPointingOutsideItselfNamesNothing)
{
    // A link to "C:\a" by hand: tag, 20 bytes of data, the print name "C:\a" (8 bytes at 0) and
    // the substitute name "\??\C:\a" (16 bytes at 8), absolute.
    const Bytes whole = {0x0C, 0x00, 0x00, 0xA0, 0x24, 0x00, 0x00, 0x00, 0x08, 0x00, 0x10,
                         0x00, 0x00, 0x00, 0x08, 0x00, 0x00, 0x00, 0x00, 0x00, 'C',  0,
                         ':',  0,    '\\', 0,    'a',  0,    '\\', 0,    '?',  0,    '?',
                         0,    '\\', 0,    'C',  0,    ':',  0,    '\\', 0,    'a',  0};
    ASSERT_EQ(symbolicLinkTarget(whole), u"C:\\a");
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_EQ(symbolicLinkTarget(std::span(whole).first(size)), std::nullopt) << size;
    Bytes outside = whole;
    outside[8] = 0x40;                                // the substitute name's offset past the end
    EXPECT_EQ(symbolicLinkTarget(outside), u"C:\\a"); // the print name stands in
    outside[12] = 0x40;
    EXPECT_EQ(symbolicLinkTarget(outside), std::nullopt);
    Bytes odd = whole;
    odd[10] = 0x0F; // an odd length is no UTF-16 text
    EXPECT_EQ(symbolicLinkTarget(odd), u"C:\\a");
}
