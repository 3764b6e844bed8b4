#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "model/Archive.h"
#include "model/TextCodec.h"
#include "support/Bytes.h"

using namespace velmora::model;
using velmora::test::Bytes;

namespace {
std::vector<std::uint8_t> textBytes(const std::string& s)
{
    ArchiveWriter w;
    w.text(s);
    return w.take();
}
} // namespace

TEST(Archive, IntegersAndFloatsAreLittleEndian)
{
    ArchiveWriter w;
    w.i32(-2);
    w.u16(0x1234);
    w.f32(1.0f);
    w.time(0xA1B2C3D4u);
    const std::vector<std::uint8_t> expected{0xFE, 0xFF, 0xFF, 0xFF, 0x34, 0x12, 0x00,
                                             0x00, 0x80, 0x3F, 0xD4, 0xC3, 0xB2, 0xA1};
    EXPECT_EQ(w.bytes(), expected);

    ArchiveReader r(expected);
    EXPECT_EQ(r.i32(), -2);
    EXPECT_EQ(r.u16(), 0x1234);
    EXPECT_EQ(r.f32(), 1.0f);
    EXPECT_EQ(r.time(), TimeT{0xA1B2C3D4u}); // read as unsigned: never negative
    EXPECT_TRUE(r.atEnd());
}

TEST(Archive, WriterPicksTheShortestTextPrefix)
{
    struct Case
    {
        std::size_t length;
        std::vector<std::uint8_t> prefix;
    };
    const std::vector<Case> cases{
        {0, {0x00}},
        {254, {0xFE}},
        {255, {0xFF, 0xFF, 0x00}},
        {0xFFFD, {0xFF, 0xFD, 0xFF}},
        {0xFFFE, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
        {70000, {0xFF, 0xFF, 0xFF, 0x70, 0x11, 0x01, 0x00}},
    };
    for (const auto& c : cases) {
        const std::string s(c.length, 'x');
        const auto bytes = textBytes(s);
        ASSERT_EQ(bytes.size(), c.prefix.size() + c.length) << c.length;
        EXPECT_EQ(std::vector<std::uint8_t>(bytes.begin(),
                                            bytes.begin() + static_cast<long>(c.prefix.size())),
                  c.prefix)
            << c.length;
        ArchiveReader r(bytes);
        EXPECT_EQ(r.text(), s);
        EXPECT_TRUE(r.atEnd());
    }
}

TEST(Archive, ReaderAcceptsLongPrefixesForShortTexts)
{
    // "abc" in all three prefix forms, then a one-byte marker.
    const std::vector<std::uint8_t> bytes{0x03, 'a',  'b',  'c',             // 1-byte form
                                          0xFF, 0x03, 0x00, 'a',  'b',  'c', // 16-bit form
                                          0xFF, 0xFF, 0xFF, 0x03, 0x00, 0x00,
                                          0x00, 'a',  'b',  'c', // 32-bit form
                                          0x2A};
    ArchiveReader r(bytes);
    EXPECT_EQ(r.text(), "abc");
    EXPECT_EQ(r.text(), "abc");
    EXPECT_EQ(r.text(), "abc");
    EXPECT_EQ(r.u8(), 0x2A);
}

TEST(Archive, TextsKeepTheirBytes)
{
    const std::string s("caf\xE9 \x80 \x00 end", 11);
    const auto bytes = textBytes(s);
    EXPECT_EQ(bytes[0], 11);
    ArchiveReader r(bytes);
    EXPECT_EQ(r.text(), s);
}

TEST(Archive, DamageGivesErrorsWithOffsets)
{
    struct Case
    {
        const char* what;
        std::vector<std::uint8_t> bytes;
        std::function<void(ArchiveReader&)> read;
        FileErrorCode code;
        std::size_t offset;
    };
    const Case cases[] = {
        {"a 32-bit value past the end",
         {0x01, 0x02, 0x03},
         [](ArchiveReader& r) { (void)r.u8(), (void)r.i32(); },
         FileErrorCode::UnexpectedEnd,
         1},
        {"a 32-bit text length of 4 GB in a 10-byte buffer",
         Bytes().u8(0).u8(0xFF).u16(0xFFFF).u32(0xFFFFFFF0u).raw({'a', 'b'}),
         [](ArchiveReader& r) { (void)r.u8(), (void)r.text(); }, FileErrorCode::BadLength, 1},
        {"a negative count", Bytes().i32(-1), [](ArchiveReader& r) { (void)r.count(4); },
         FileErrorCode::BadCount, 0},
        {"3 records of 4 bytes in the 8 bytes left", Bytes().i32(3).i32(7).i32(8),
         [](ArchiveReader& r) { (void)r.count(4); }, FileErrorCode::BadCount, 0},
    };
    for (const Case& c : cases) {
        ArchiveReader r(c.bytes);
        try {
            c.read(r);
            ADD_FAILURE() << c.what << " read without error";
        } catch (const ArchiveError& e) {
            EXPECT_EQ(e.code(), c.code) << c.what;
            EXPECT_EQ(e.offset(), c.offset) << c.what;
        }
    }
    // A negative count may stand for none; a count that fits is read.
    const auto negative = Bytes().i32(-1).bytes();
    EXPECT_EQ(ArchiveReader(negative).count(4, true), 0u);
    const auto fits = Bytes().i32(2).i32(7).i32(8).bytes();
    EXPECT_EQ(ArchiveReader(fits).count(4), 2u);
}

TEST(TextCodec, EveryByteSurvivesTheRoundTrip)
{
    std::string all;
    for (int b = 0; b < 256; ++b)
        all.push_back(static_cast<char>(b));
    const std::string utf8 = cp1252ToUtf8(all);
    EXPECT_EQ(utf8ToCp1252(utf8), all);
}

TEST(TextCodec, KnownCharacters)
{
    const std::pair<const char*, const char*> both[] = {
        {"\x80", "\xE2\x82\xAC"}, // euro sign
        {"\xE9", "\xC3\xA9"},     // e acute
        {"\x92", "\xE2\x80\x99"}, // right single quote
        {"\x97", "\xE2\x80\x94"}, // em dash
        {"Stra\xDF"
         "e",
         "Stra\xC3\x9F"
         "e"},
    };
    for (const auto& [cp1252, utf8] : both) {
        EXPECT_EQ(cp1252ToUtf8(cp1252), utf8);
        EXPECT_EQ(utf8ToCp1252(utf8), cp1252);
    }
    // Characters Windows-1252 cannot hold, and malformed sequences, become '?'.
    const std::pair<const char*, const char*> lost[] = {
        {"a\xE4\xB8\xAD"
         "b",
         "a?b"}, // CJK character
        {"a\xF0\x9F\x98\x80"
         "b",
         "a?b"},         // emoji
        {"a\xC3", "a?"}, // truncated sequence
        {"a\x80"
         "b",
         "a?b"},           // stray continuation
        {"\xC0\xAF", "?"}, // overlong '/'
    };
    for (const auto& [utf8, cp1252] : lost)
        EXPECT_EQ(utf8ToCp1252(utf8), cp1252) << cp1252;
}
