#include <plix/platform/appkit/button_layout.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr Rect area { 10, 20, 100, 30 };

TEST(ButtonLayout, PlacesTitleAndImage)
{
    constexpr Size title { 40, 16 };
    constexpr Size image { 20, 20 };
    struct Row {
        NSCellImagePosition position;
        NSTextAlignment alignment;
        ButtonContentPlan expected;
    };
    constexpr Row rows[] {
        { NSNoImage, NSCenterTextAlignment, { { 40, 27, 40, 16 }, { 60, 35, 0, 0 } } },
        { NSImageOnly, NSCenterTextAlignment, { { 60, 35, 0, 0 }, { 50, 25, 20, 20 } } },
        { NSImageLeft, NSCenterTextAlignment, { { 52, 27, 40, 16 }, { 28, 25, 20, 20 } } },
        { NSImageRight, NSCenterTextAlignment, { { 28, 27, 40, 16 }, { 72, 25, 20, 20 } } },
        { NSImageLeft, NSLeftTextAlignment, { { 34, 27, 40, 16 }, { 10, 25, 20, 20 } } },
        { NSImageLeft, NSRightTextAlignment, { { 70, 27, 40, 16 }, { 46, 25, 20, 20 } } },
        { NSImageOverlaps, NSCenterTextAlignment, { { 40, 27, 40, 16 }, { 50, 25, 20, 20 } } },
        { NSNoImage, NSLeftTextAlignment, { { 10, 27, 40, 16 }, { 10, 35, 0, 0 } } },
        { NSNoImage, NSRightTextAlignment, { { 70, 27, 40, 16 }, { 110, 35, 0, 0 } } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(buttonContentPlan({ title, image, row.position, row.alignment }, area), row.expected) << "row " << &row - rows;
}

TEST(ButtonLayout, StacksTitleAndImage)
{
    constexpr Rect tall { 0, 0, 60, 50 };
    ButtonContent const above { { 40, 16 }, { 20, 20 }, NSImageAbove, NSCenterTextAlignment };
    EXPECT_EQ(buttonContentPlan(above, tall), (ButtonContentPlan { { 10, 29, 40, 16 }, { 20, 5, 20, 20 } }));
    ButtonContent const below { { 40, 16 }, { 20, 20 }, NSImageBelow, NSCenterTextAlignment };
    EXPECT_EQ(buttonContentPlan(below, tall), (ButtonContentPlan { { 10, 5, 40, 16 }, { 20, 25, 20, 20 } }));
}

TEST(ButtonLayout, CutsTitlesAndScalesImagesThatAreTooLarge)
{
    ButtonContent const beside { { 200, 16 }, { 60, 60 }, NSImageLeft, NSCenterTextAlignment };
    EXPECT_EQ(buttonContentPlan(beside, area), (ButtonContentPlan { { 44, 27, 66, 16 }, { 10, 20, 30, 30 } }));
    ButtonContent const alone { {}, { 200, 10 }, NSImageOnly, NSCenterTextAlignment };
    EXPECT_EQ(buttonContentPlan(alone, area).image, (Rect { 10, 33, 100, 5 }));
    auto const nothing = buttonContentPlan(beside, { 5, 5, 0, 0 });
    EXPECT_TRUE(nothing.title.isEmpty());
    EXPECT_TRUE(nothing.image.isEmpty());
}

TEST(ButtonLayout, SumsUpWhatTitleAndImageTake)
{
    ButtonContent content { { 40, 16 }, { 20, 24 }, NSImageLeft, NSCenterTextAlignment };
    EXPECT_EQ(buttonContentSize(content), (Size { 64, 24 }));
    content.position = NSImageAbove;
    EXPECT_EQ(buttonContentSize(content), (Size { 40, 44 }));
    content.position = NSImageOverlaps;
    EXPECT_EQ(buttonContentSize(content), (Size { 40, 24 }));
    content.position = NSNoImage;
    EXPECT_EQ(buttonContentSize(content), (Size { 40, 16 }));
    content.position = NSImageOnly;
    EXPECT_EQ(buttonContentSize(content), (Size { 20, 24 }));
    EXPECT_EQ(buttonContentSize({ {}, { 20, 24 }, NSImageLeft, NSCenterTextAlignment }), (Size { 20, 24 }))
        << "no gap before nothing";
}

TEST(ButtonLayout, IndicatorsStandOnTheMiddleOfTheLine)
{
    EXPECT_EQ(indicatorRect({ 10, 10, 100, 18 }, NSRegularControlSize), (Rect { 11, 12, 14, 14 }));
    EXPECT_EQ(indicatorRect({ 10, 10, 100, 18 }, NSSmallControlSize), (Rect { 11, 13, 12, 12 }));
    EXPECT_EQ(indicatorRect({ 10, 10, 100, 18 }, NSMiniControlSize), (Rect { 11, 14, 10, 10 }));
}

TEST(ButtonLayout, SmallerButtonsHaveSmallerInsets)
{
    for (auto const style : { NSRoundedBezelStyle, NSRoundRectBezelStyle, NSTexturedRoundedBezelStyle }) {
        auto const regular = buttonInsets(ButtonFace::bezel, style, NSRegularControlSize);
        auto const small = buttonInsets(ButtonFace::bezel, style, NSSmallControlSize);
        auto const mini = buttonInsets(ButtonFace::bezel, style, NSMiniControlSize);
        EXPECT_GT(regular.left, small.left) << style;
        EXPECT_GT(small.left, mini.left) << style;
        EXPECT_EQ(regular.left, regular.right) << style;
    }
    EXPECT_EQ(buttonInsets(ButtonFace::plain, NSRoundedBezelStyle, NSRegularControlSize), CellInsets {});
    EXPECT_EQ(buttonInsets(ButtonFace::checkBox, NSRoundedBezelStyle, NSRegularControlSize).left, 20);
}

}
}
