#include <plix/platform/graphics/text_lines.h>
#include <plix/platform/graphics/text_placement.h>

#include <gtest/gtest.h>
#include <string>

namespace plix {
namespace {

constexpr LineMeasures line { 40, 13, 3, 0, false };

std::vector<LinePlace> placed(ParagraphLayout const& layout, LineArea const& area, std::vector<LineMeasures> const& lines)
{
    std::vector<LinePlace> places;
    placeLines(lines, layout, area, {}, places);
    return places;
}

TEST(TextPlacement, AlignsLinesBetweenTheMargins)
{
    struct Row {
        NSTextAlignment alignment;
        bool isRightToLeft;
        float left;
    };
    constexpr Row rows[] {
        { NSLeftTextAlignment, false, 5 },
        { NSLeftTextAlignment, true, 5 },
        { NSRightTextAlignment, false, 55 },
        { NSCenterTextAlignment, false, 30 },
        { NSNaturalTextAlignment, false, 5 },
        { NSNaturalTextAlignment, true, 55 },
        { NSJustifiedTextAlignment, false, 5 },
    };
    for (auto const& row : rows) {
        ParagraphLayout layout;
        layout.alignment = row.alignment;
        auto measures = line;
        measures.isRightToLeft = row.isRightToLeft;
        EXPECT_EQ(placed(layout, { 100, 5, false }, { measures })[0].left, row.left) << row.alignment << row.isRightToLeft;
    }
}

TEST(TextPlacement, IndentsStandBeforeTheLines)
{
    ParagraphLayout layout;
    layout.firstLineHeadIndent = 20;
    layout.headIndent = 10;
    layout.tailIndent = -5;
    auto const places = placed(layout, { 100, 0, false }, { line, line });
    EXPECT_EQ(places[0].left, 20);
    EXPECT_EQ(places[1].left, 10);
    EXPECT_EQ(lineWidthInArea(layout, { 100, 0, false }), 85);
    layout.tailIndent = 60;
    EXPECT_EQ(lineWidthInArea(layout, { 100, 2, false }), 50);
    layout.alignment = NSRightTextAlignment;
    EXPECT_EQ(placed(layout, { 100, 0, false }, { line })[0].left, 20);
    EXPECT_EQ(lineWidthInArea(layout, { 0, 8, false }), 50);
    layout.tailIndent = 0;
    EXPECT_EQ(lineWidthInArea(layout, { 0, 8, false }), 0);
}

TEST(TextPlacement, StacksLinesOnWholePoints)
{
    ParagraphLayout layout;
    layout.lineSpacing = 2;
    layout.paragraphSpacing = 4;
    layout.paragraphSpacingBefore = 6;
    std::vector<LinePlace> places;
    EXPECT_EQ(placeLines({ line, line }, layout, { 100, 0, false }, { 10, false, false }, places), 10 + 6 + 16 + 2 + 16 + 4);
    EXPECT_EQ(places[0].fragment, (Rect { 0, 16, 100, 16 }));
    EXPECT_EQ(places[0].baseline, 29);
    EXPECT_EQ(places[1].fragment.y, 34);
    EXPECT_EQ(placeLines({ line }, layout, { 100, 0, false }, {}, places), 16);
}

TEST(TextPlacement, LineHeightsGrowAndShrinkAboveTheBaseline)
{
    struct Row {
        float multiple;
        float minimum;
        float maximum;
        float height;
        float baseline;
    };
    constexpr Row rows[] { { 0, 0, 0, 16, 13 }, { 1.5F, 0, 0, 24, 21 }, { 0, 20, 0, 20, 17 }, { 0, 0, 12, 12, 9 },
        { 2, 0, 20, 20, 17 } };
    for (auto const& row : rows) {
        ParagraphLayout layout;
        layout.lineHeightMultiple = row.multiple;
        layout.minimumLineHeight = row.minimum;
        layout.maximumLineHeight = row.maximum;
        auto const place = placed(layout, { 100, 0, false }, { line })[0];
        EXPECT_EQ(place.fragment.height, row.height);
        EXPECT_EQ(place.baseline, row.baseline);
    }
}

TEST(TextPlacement, WithoutLimitsNothingMovesToAMargin)
{
    ParagraphLayout layout;
    layout.alignment = NSRightTextAlignment;
    layout.firstLineHeadIndent = 7;
    EXPECT_EQ(placed(layout, { 0, 0, true }, { line })[0].left, 7);
}

TEST(TextLines, ParagraphsEndAtTheirLineEnds)
{
    std::string const text = "a\nb\r\nc\rd\xE2\x80\xA9"
                             "e\xE2\x80\xA8"
                             "f";
    std::vector<std::string> contents;
    ParagraphBytes bytes;
    do {
        bytes = paragraphAt(text, bytes.end);
        contents.push_back(text.substr(bytes.start, bytes.contentEnd - bytes.start));
    } while (bytes.isClosed());
    EXPECT_EQ(contents,
        (std::vector<std::string> { "a", "b", "c", "d",
            "e\xE2\x80\xA8"
            "f" }));
}

TEST(TextLines, AFinalLineEndOpensAnEmptyParagraph)
{
    auto const first = paragraphAt("a\n", 0);
    EXPECT_TRUE(first.isClosed());
    auto const last = paragraphAt("a\n", first.end);
    EXPECT_EQ(last.start, last.end);
    EXPECT_FALSE(last.isClosed());
    EXPECT_FALSE(paragraphAt("", 0).isClosed());
}

}
}
