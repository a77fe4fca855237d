#include <plix/format/truncation.h>

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/string_drawing.h>

#include <gtest/gtest.h>

#include <limits>

namespace plix {
namespace {

Attributes systemFont(float size)
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(size) } };
}

// The longest start of the text, shorter than the whole, that fits with the dots.
std::string byDefinition(std::string const& text, Attributes const& attributes, float width)
{
    for (long length = utf16Length(text) - 1;; --length) {
        auto candidate = std::string(substringWithRange(text, { 0, length })) + "...";
        if (sizeWithAttributes(candidate, attributes).width <= width - 4)
            return candidate;
    }
}

TEST(TruncateStringWithAttributes, GivesTextThatFitsBack)
{
    auto const attributes = systemFont(13);
    auto const extent = sizeWithAttributes("Quarterly report", attributes).width;
    EXPECT_EQ(TruncateStringWithAttributes("Quarterly report", &attributes, extent + 4), "Quarterly report");
    EXPECT_EQ(TruncateStringWithAttributes("Quarterly report", &attributes, 10000), "Quarterly report");
    EXPECT_EQ(TruncateStringWithAttributes("", &attributes, 4), "");
    EXPECT_EQ(
        TruncateStringWithAttributes("Quarterly report", &attributes, std::numeric_limits<float>::quiet_NaN()), "Quarterly report");
}

TEST(TruncateStringWithAttributes, ShortensToTheWidthLessFourPoints)
{
    auto const attributes = systemFont(13);
    std::string const text = "Quarterly report of the \xC3\x9C"
                             "bersee branch \xF0\x9F\x8D\x8E, 2005";
    auto const whole = sizeWithAttributes(text, attributes).width;
    for (float width = 30; width < whole + 4; width += 3) {
        auto const shortened = TruncateStringWithAttributes(text, &attributes, width);
        ASSERT_EQ(shortened, byDefinition(text, attributes, width)) << width;
        ASSERT_LE(sizeWithAttributes(*shortened, attributes).width, width - 4) << width;
    }
    auto const justTooNarrow = TruncateStringWithAttributes(text, &attributes, whole + 3.5F);
    EXPECT_NE(justTooNarrow, text);
    EXPECT_TRUE(justTooNarrow->ends_with("..."));
}

TEST(TruncateStringWithAttributes, OfNilIsNil)
{
    auto const attributes = systemFont(13);
    EXPECT_EQ(TruncateStringWithAttributes(std::nullopt, &attributes, 100), std::nullopt);
    EXPECT_EQ(TruncateStringWithAttributes("text", nullptr, 100), std::nullopt);
}

TEST(TruncateStringWithAttributes, RaisesWhereNotEvenTheDotsFit)
{
    auto const attributes = systemFont(13);
    EXPECT_THROW(TruncateStringWithAttributes("text", &attributes, 5), NSRangeException);
    EXPECT_THROW(TruncateStringWithAttributes("", &attributes, 3), NSRangeException);
    EXPECT_THROW(TruncateStringWithAttributes("text", &attributes, -std::numeric_limits<float>::infinity()), NSRangeException);
}

Ref<NSCell> cellWith(std::string_view text)
{
    auto cell = make<NSCell>(text);
    cell->setFont(NSFont::systemFontOfSize(12));
    return cell;
}

TEST(TruncateStringInCell, LeavesTextThatFits)
{
    auto const cell = cellWith("Name");
    TruncateStringInCell(cell.get(), cell->attributedStringValue()->size().width + 4);
    EXPECT_EQ(cell->stringValue(), "Name");
}

TEST(TruncateStringInCell, ShortensTheCellsText)
{
    std::string const text = "A name that is much too long for its column \xF0\x9F\x8D\x8E!";
    auto const whole = cellWith(text)->attributedStringValue()->size().width;
    for (float width = 30; width < whole + 4; width += 7) {
        auto const cell = cellWith(text);
        TruncateStringInCell(cell.get(), width);
        std::string wanted;
        for (long length = utf16Length(text) - 1;; --length) {
            wanted = std::string(substringWithRange(text, { 0, length })) + "...";
            if (cellWith(wanted)->attributedStringValue()->size().width <= width - 4)
                break;
        }
        ASSERT_EQ(cell->stringValue(), wanted) << width;
    }
}

TEST(TruncateStringInCell, DoesNothingForNilAndRaisesWhereTheDotsDoNotFit)
{
    TruncateStringInCell(nullptr, 10);
    auto const cell = cellWith("Name");
    EXPECT_THROW(TruncateStringInCell(cell.get(), 5), NSRangeException);
}

}
}
