#include <plix/drawing/text_height.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSFont.h>

#include <cmath>
#include <gtest/gtest.h>

namespace plix {
namespace {

float heightOf(std::string_view text, float width, float fontSize = 13)
{
    auto const string = make<NSAttributedString>(text, Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(fontSize) } });
    return PLIXAttributedStringHeightForWidth(*string, width);
}

TEST(PLIXAttributedStringHeightForWidth, OfAnEmptyStringIsZero)
{
    EXPECT_EQ(heightOf("", 100), 0);
    EXPECT_EQ(heightOf("text", 100), 16);
    EXPECT_EQ(heightOf("", 100), 0);
}

TEST(PLIXAttributedStringHeightForWidth, CountsTheLinesThatWrap)
{
    // Each word is 32 points wide, a blank 4.
    EXPECT_EQ(heightOf("Hello Hello Hello", 200), 16);
    EXPECT_EQ(heightOf("Hello Hello Hello", 104), 16);
    EXPECT_EQ(heightOf("Hello Hello Hello", 103), 32);
    EXPECT_EQ(heightOf("Hello Hello Hello", 68), 32);
    EXPECT_EQ(heightOf("Hello Hello Hello", 67), 48);
    EXPECT_EQ(heightOf("Hello\nHello\nHello", 200), 48);
    EXPECT_EQ(heightOf("Hello", 200, 11), 14);
}

TEST(PLIXAttributedStringHeightForWidth, BreaksWordsThatAreTooLong)
{
    EXPECT_EQ(heightOf("HelloHello", 40), 32);
    EXPECT_GT(heightOf("Hello", 1), 16 * 4);
}

TEST(PLIXAttributedStringHeightForWidth, HasNoPaddingAtTheEnds)
{
    EXPECT_EQ(heightOf("Hello", 32), 16);
    EXPECT_EQ(heightOf("Hello", 31), 32);
}

TEST(PLIXAttributedStringHeightForWidth, MeasuresAtMostWhatFits)
{
    std::string text;
    for (int i = 0; i < 800; ++i)
        text += "x\n";
    EXPECT_EQ(heightOf(text + "x", 100), 10000);
    EXPECT_EQ(heightOf(text + "x", 100, 11), 9996);
    EXPECT_EQ(heightOf("x", 100), 16);
}

TEST(PLIXAttributedStringHeightForWidth, TakesAnyWidth)
{
    for (float const width : { 0.0F, -5.0F, NAN, -INFINITY })
        EXPECT_EQ(heightOf("abc", width), 48) << width;
    EXPECT_EQ(heightOf("abc", INFINITY), 16);
    EXPECT_EQ(heightOf(std::string_view("\0\xFF\xED\xA0\x80", 5), 1000), 16);
}

TEST(PLIXAttributedStringHeightForWidth, UsesTheHighestFontOfEachLine)
{
    auto const string = make<NSAttributedString>("big", Attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(26) } });
    EXPECT_EQ(PLIXAttributedStringHeightForWidth(*string, 500), NSFont::boldSystemFontOfSize(26)->defaultLineHeightForFont());
}

}
}
