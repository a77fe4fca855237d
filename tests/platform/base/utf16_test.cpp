#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(Utf16, CountsUnitsOfEveryWidth)
{
    struct Row {
        std::string_view text;
        long units;
    };
    for (auto const& [text, units] : {
             Row { "", 0 }, Row { "abc", 3 }, Row { "\xC3\xA9", 1 }, // e with acute accent
             Row { "\xE2\x82\xAC", 1 }, // euro sign
             Row { "\xF0\x9F\x98\x80", 2 }, // a face, beyond the basic plane
             Row { "\xFF", 1 }, Row { "\xC0\x80", 2 }, // an overlong zero is two ill-formed bytes
             Row { "\xED\xA0\x80", 3 }, // a surrogate in UTF-8 is ill-formed
             Row { "\xF4\x90\x80\x80", 4 }, // beyond U+10FFFF
             Row { "a\xE2\x82", 3 }, // cut off
         })
        EXPECT_EQ(utf16Length(text), units) << text;
}

TEST(Utf16, OffsetsGoBothWaysAndClampAtTheEnds)
{
    std::string_view const text = "a\xC3\xA9\xF0\x9F\x98\x80z";
    EXPECT_EQ(byteOffsetOfUnit(text, -1), 0U);
    EXPECT_EQ(byteOffsetOfUnit(text, 1), 1U);
    EXPECT_EQ(byteOffsetOfUnit(text, 2), 3U);
    EXPECT_EQ(byteOffsetOfUnit(text, 3), 3U); // inside the pair
    EXPECT_EQ(byteOffsetOfUnit(text, 4), 7U);
    EXPECT_EQ(byteOffsetOfUnit(text, 99), 8U);
    EXPECT_EQ(unitAtByteOffset(text, 0), 0);
    EXPECT_EQ(unitAtByteOffset(text, 2), 1); // inside the accented letter
    EXPECT_EQ(unitAtByteOffset(text, 7), 4);
    EXPECT_EQ(unitAtByteOffset(text, 99), 5);
}

TEST(Utf16, SubstringsOutsideTheTextRaise)
{
    EXPECT_EQ(substringWithRange("h\xC3\xA9llo", { 1, 2 }), "\xC3\xA9l");
    EXPECT_EQ(substringWithRange("abc", { 3, 0 }), "");
    EXPECT_THROW(substringWithRange("abc", { 2, 2 }), NSRangeException);
    EXPECT_THROW(substringWithRange("abc", { -1, 1 }), NSRangeException);
    EXPECT_THROW(substringWithRange("abc", { 0, -1 }), NSRangeException);
}

TEST(Utf16, EveryCharacterSurvivesTheRoundTrip)
{
    for (char32_t character = 0; character <= 0x10FFFF; ++character) {
        if (character >= 0xD800 && character < 0xE000)
            continue;
        std::string text;
        appendUTF8(text, character);
        ASSERT_TRUE(isValidUTF8(text)) << static_cast<std::uint32_t>(character);
        ASSERT_EQ(utf8FromUTF16(utf16FromUTF8(text)), text) << static_cast<std::uint32_t>(character);
    }
}

TEST(Utf16, LoneSurrogatesAndBadBytesBecomeReplacementCharacters)
{
    EXPECT_EQ(utf8FromUTF16(std::u16string { 0xD800, u'a', 0xDC00 }),
        "\xEF\xBF\xBD"
        "a"
        "\xEF\xBF\xBD");
    EXPECT_EQ(validUTF8("a\xFF"
                        "b"),
        "a\xEF\xBF\xBD"
        "b");
    EXPECT_FALSE(isValidUTF8("\x80"));
    EXPECT_TRUE(isValidUTF8("\xEF\xBF\xBD"));
}

}
}
