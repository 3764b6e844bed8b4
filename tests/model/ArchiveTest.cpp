#include <gtest/gtest.h>

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
    {
        const std::vector<std::uint8_t> bytes{0x01, 0x02, 0x03};
        ArchiveReader r(bytes);
        EXPECT_EQ(r.u8(), 1);
        try {
            r.i32();
            FAIL() << "a 32-bit value read past the end";
        } catch (const ArchiveError& e) {
            EXPECT_EQ(e.code(), FileErrorCode::UnexpectedEnd);
            EXPECT_EQ(e.offset(), 1u);
        }
    }
    {
        // A 32-bit text length of 4 GB in a 10-byte buffer.
        const auto bytes =
            Bytes().u8(0).u8(0xFF).u16(0xFFFF).u32(0xFFFFFFF0u).raw({'a', 'b'}).bytes();
        ArchiveReader r(bytes);
        r.u8();
        try {
            r.text();
            FAIL() << "text length not checked";
        } catch (const ArchiveError& e) {
            EXPECT_EQ(e.code(), FileErrorCode::BadLength);
            EXPECT_EQ(e.offset(), 1u);
        }
    }
    {
        // Counts: negative, and larger than the remaining bytes could hold.
        const auto negative = Bytes().i32(-1).bytes();
        ArchiveReader r1(negative);
        EXPECT_THROW(r1.count(4), ArchiveError);
        ArchiveReader r2(negative);
        EXPECT_EQ(r2.count(4, true), 0u);

        const auto huge =
            Bytes().i32(3).i32(7).i32(8).bytes(); // 3 records of 4 bytes need 12, 8 remain
        ArchiveReader r3(huge);
        try {
            r3.count(4);
            FAIL() << "count not checked against the bytes left";
        } catch (const ArchiveError& e) {
            EXPECT_EQ(e.code(), FileErrorCode::BadCount);
            EXPECT_EQ(e.offset(), 0u);
        }
        const auto fits = Bytes().i32(2).i32(7).i32(8).bytes();
        ArchiveReader r4(fits);
        EXPECT_EQ(r4.count(4), 2u);
    }
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
    EXPECT_EQ(cp1252ToUtf8("\x80"), "\xE2\x82\xAC"); // euro sign
    EXPECT_EQ(cp1252ToUtf8("\xE9"), "\xC3\xA9");     // e acute
    EXPECT_EQ(cp1252ToUtf8("\x92"), "\xE2\x80\x99"); // right single quote
    EXPECT_EQ(utf8ToCp1252("\xE2\x80\x94"), "\x97"); // em dash
    EXPECT_EQ(utf8ToCp1252("Stra\xC3\x9F"
                           "e"),
              "Stra\xDF"
              "e");
    // Characters Windows-1252 cannot hold, and malformed sequences, become '?'.
    EXPECT_EQ(utf8ToCp1252("a\xE4\xB8\xAD"
                           "b"),
              "a?b"); // CJK character
    EXPECT_EQ(utf8ToCp1252("a\xF0\x9F\x98\x80"
                           "b"),
              "a?b");                       // emoji
    EXPECT_EQ(utf8ToCp1252("a\xC3"), "a?"); // truncated sequence
    EXPECT_EQ(utf8ToCp1252("a\x80"
                           "b"),
              "a?b");                         // stray continuation
    EXPECT_EQ(utf8ToCp1252("\xC0\xAF"), "?"); // overlong '/'
}
