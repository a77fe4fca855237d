#include <tests/support/ChiseledPopUpTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSBundle.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>

#include <cmath>
#include <cstdlib>

namespace plix {
namespace {

constexpr ColorComponents yellow { 1, 1, 0, 1 };
constexpr ColorComponents cyan { 0, 1, 1, 1 };
constexpr ColorComponents magenta { 1, 0, 1, 1 };
constexpr ColorComponents orange { 1, 0.5F, 0, 1 };
constexpr ColorComponents purple { 0.5F, 0, 1, 1 };

struct Resource {
    char const* name;
    int width;
    int height;
    ColorComponents color;
};

constexpr Resource plainResources[] {
    { "LeftCap_MouseDown", 8, 20, colors::red },
    { "Middle_MouseDown", 3, 20, colors::green },
    { "RightCap_MouseDown", 9, 20, colors::blue },
    { "LeftCap_MouseOver", 10, 20, yellow },
    { "Middle_MouseOver", 4, 20, cyan },
    { "RightCap_MouseOver", 11, 20, magenta },
    { "DownArrow_Black", 7, 6, orange },
    { "DownArrow_White", 5, 4, purple },
};

/// The library's resources are plain slices, all of another width and colour, as long as this lives; without those that are left
/// out.
class PlainResources {
public:
    explicit PlainResources(std::string_view without = {})
    {
        for (auto const& resource : plainResources) {
            if (!without.empty() && std::string_view(resource.name).find(without) != std::string_view::npos)
                continue;
            auto const png = bitmapOfColor(resource.width, resource.height, resource.color)->representationUsingType(NSPNGFileType);
            auto const bytes = png->bytes();
            m_folder.write(std::string("images/chiseledPopUp_") + resource.name + ".png",
                { reinterpret_cast<char const*>(bytes.data()), bytes.size() });
        }
        NSBundle::registerBundle("plix", *NSBundle::bundleWithPath(m_folder.path()));
    }
    ~PlainResources() { NSBundle::registerBundle("plix", NSBundle::libraryBundle()); }
    PlainResources(PlainResources const&) = delete;
    PlainResources& operator=(PlainResources const&) = delete;

private:
    TestFolder m_folder;
};

template <typename Machine> class ImagesOn : public Machine {
protected:
    SystemVersion system { 0x1049 };
};
using ChiseledPopUpImages = ImagesOn<HeadlessTest>;
using ChiseledPopUpRetinaImages = ImagesOn<RetinaTest>;

Ref<NSBitmapImageRep> pixelsOf(Ref<NSImage> const& image, float scale = 1)
{
    return image->bitmapAtScale(scale);
}

TEST_F(ChiseledPopUpImages, HighlightColorsAreMadeAnew)
{
    EXPECT_EQ(PLIXChiseledTextPopUpButton::highlightColor()->components(), colors::white);
    EXPECT_EQ(PLIXChiseledTextPopUpButton::shadow_HighlightColor()->components(), (ColorComponents { 0.1F, 0.1F, 0.1F, 1 }));
    EXPECT_EQ(PLIXChiseledTextPopUpButton::highlightColor()->colorSpaceName(), NSCalibratedRGBColorSpace);
    EXPECT_NE(PLIXChiseledTextPopUpButton::highlightColor(), PLIXChiseledTextPopUpButton::highlightColor());
    EXPECT_NE(PLIXChiseledTextPopUpButton::shadow_HighlightColor(), PLIXChiseledTextPopUpButton::shadow_HighlightColor());
}

TEST_F(ChiseledPopUpImages, EachIsComposedAnew)
{
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 120, 20 });
    EXPECT_NE(button->ConstructIdleImage(), button->ConstructIdleImage());
    EXPECT_NE(button->ConstructMouseOverImage(), button->ConstructMouseOverImage());
    EXPECT_NE(button->ConstructMouseDownImage(), button->ConstructMouseDownImage());
}

TEST_F(ChiseledPopUpImages, TheHoverImageHasItsThreeSlices)
{
    PlainResources const resources;
    auto const over = pixelsOf(make<PLIXChiseledTextPopUpButton>(Rect { 30, 40, 130, 22 })->ConstructMouseOverImage());
    EXPECT_TRUE(areaNear(over, { 0, 0, 10, 22 }, yellow));
    EXPECT_TRUE(areaNear(over, { 10, 0, 94, 22 }, cyan));
    EXPECT_TRUE(areaNear(over, { 109, 0, 10, 22 }, cyan));
    EXPECT_TRUE(areaNear(over, { 119, 0, 11, 22 }, magenta));
}

TEST_F(ChiseledPopUpImages, ThePressedMiddleIsDrawnLastAndBeginsAtItsOwnWidth)
{
    PlainResources const resources;
    auto const down = pixelsOf(make<PLIXChiseledTextPopUpButton>(Rect { 30, 40, 130, 22 })->ConstructMouseDownImage());
    EXPECT_TRUE(areaNear(down, { 0, 0, 3, 22 }, colors::red));
    EXPECT_TRUE(areaNear(down, { 3, 0, 101, 22 }, colors::green)); // as wide as the hover caps leave: 130 - 21, up to the arrow
    EXPECT_TRUE(areaNear(down, { 109, 0, 3, 22 }, colors::green));
    EXPECT_TRUE(areaNear(down, { 112, 0, 9, 22 }, colors::clear));
    EXPECT_TRUE(areaNear(down, { 121, 0, 9, 22 }, colors::blue));
}

TEST_F(ChiseledPopUpImages, TheIdleImageHasNoBackground)
{
    PlainResources const resources;
    auto const idle = pixelsOf(make<PLIXChiseledTextPopUpButton>(Rect { 30, 40, 130, 22 })->ConstructIdleImage());
    auto const ink = inkBounds(idle, colors::clear);
    EXPECT_EQ(countPixels(idle, orange), 7 * 6);
    EXPECT_EQ(ink.width * ink.height, 7 * 6);
}

// The title's field of a new button is 100 x 20 points: it lies at LD - 4 = 4, and the arrow behind it.
TEST_F(ChiseledPopUpImages, TheArrowStandsBehindTheTitle)
{
    PlainResources const resources;
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 30, 40, 130, 22 });
    EXPECT_TRUE(areaNear(pixelsOf(button->ConstructIdleImage()), { 104, 22 - 7 - 6, 7, 6 }, orange));
    EXPECT_TRUE(areaNear(pixelsOf(button->ConstructMouseOverImage()), { 104, 22 - 8 - 4, 5, 4 }, purple));
    EXPECT_TRUE(areaNear(pixelsOf(button->ConstructMouseDownImage()), { 104, 22 - 8 - 4, 5, 4 }, purple));
    // Its height counts from the image's bottom edge, wherever the title is.
    button->setFrameSize({ 130, 42 });
    EXPECT_TRUE(areaNear(pixelsOf(button->ConstructIdleImage()), { 104, 42 - 7 - 6, 7, 6 }, orange));
}

TEST_F(ChiseledPopUpImages, ANewTitleIsSizedByThePressedCapsAndTheWhiteArrow)
{
    PlainResources const resources;
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
    button->setTitle("Title");
    EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle("Title").width + 8 + 9) + 5 - 4);
}

TEST_F(ChiseledPopUpImages, TheIdleImageIsAsLargeAsTheFrameAndTheOthersAsTheBounds)
{
    PlainResources const resources;
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 30, 40, 130, 22 });
    button->setBounds({ 5, 0, 65, 11 });
    EXPECT_EQ(button->ConstructIdleImage()->size(), (Size { 130, 22 }));
    EXPECT_EQ(button->ConstructMouseOverImage()->size(), (Size { 65, 11 }));
    auto const down = pixelsOf(button->ConstructMouseDownImage());
    EXPECT_EQ(down->size(), (Size { 65, 11 }));
    // The right cap is counted from the bounds' origin, past which it is cut off.
    EXPECT_TRUE(areaNear(down, { 5 + 65 - 9, 0, 4, 11 }, colors::blue));
    EXPECT_EQ(countPixels(down, colors::blue), 4 * 11);
}

TEST_F(ChiseledPopUpImages, AMissingSliceIsZeroWideAndDrawsNothing)
{
    struct Row {
        char const* without;
        int left;
        int middleStart;
        int middleEnd;
        int right;
    };
    // Of the hover image, 130 wide: what its left cap covers, its middle and its right cap.
    for (auto const& row : {
             Row { "LeftCap_MouseOver", 0, 0, 119, 11 },
             Row { "RightCap_MouseOver", 10, 10, 130, 0 },
             Row { "Middle_MouseOver", 10, 0, 0, 11 },
             Row { "MouseOver", 0, 0, 0, 0 },
             Row { "MouseDown", 10, 10, 119, 11 },
         }) {
        PlainResources const resources(row.without);
        auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
        auto const over = pixelsOf(button->ConstructMouseOverImage());
        EXPECT_EQ(countPixels(over, yellow), row.left * 22) << row.without;
        EXPECT_EQ(countPixels(over, magenta), row.right * 22) << row.without;
        EXPECT_EQ(countPixels(over, purple), 5 * 4) << row.without;
        if (row.middleEnd > 0) {
            EXPECT_TRUE(pixelNear(over, row.middleStart, 0, cyan)) << row.without;
            EXPECT_TRUE(pixelNear(over, row.middleEnd - 1, 0, cyan)) << row.without;
        }
        EXPECT_EQ(countPixels(over, cyan) > 0, row.middleEnd > 0) << row.without;
    }
}

TEST_F(ChiseledPopUpImages, WithoutAnyResourceTheTitleIsThere)
{
    PlainResources const resources("_");
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
    button->setTitle("Title");
    EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle("Title").width) - 4);
    for (auto const& image : { button->ConstructIdleImage(), button->ConstructMouseOverImage(), button->ConstructMouseDownImage() })
        EXPECT_TRUE(hasInk(image, Pixels(image).all(), colors::clear));
}

TEST_F(ChiseledPopUpImages, ButtonsWithoutSizeComposeToo)
{
    for (auto const frame : { Rect {}, Rect { 0, 0, 0, 20 }, Rect { 0, 0, 4, 2 }, Rect { 0, 0, -20, -20 } }) {
        auto const button = make<PLIXChiseledTextPopUpButton>(frame);
        EXPECT_TRUE(button->image() && button->alternateImage());
        button->setTitle("Grown");
        EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle("Grown").width + 20) + 4);
        EXPECT_EQ(button->image()->size().width, button->frame().width);
    }
}

// MARK: title

struct TitleColors {
    Ref<NSColor> title;
    Ref<NSColor> shadow;
};

/// The title and the arrow as they are to be composed, by hand.
Ref<NSImage> composedByHand(PLIXChiseledTextPopUpButton const& button, TitleColors const& colors, std::string_view arrow)
{
    auto const field = make<PLIXChiseledTextField>(Rect { 0, 0, 100, 20 });
    field->setFont(NSFont::boldSystemFontOfSize(11));
    field->setAlignment(NSCenterTextAlignment);
    field->setStringValue(button.title());
    field->sizeToFit();
    field->setTextColor(colors.title);
    field->shadow()->setTextColor(colors.shadow);
    auto const size = field->frame().size();
    Rect const place { 10 - 4, (button.frame().height - size.height) / 2 + 1, size.width, size.height };
    auto image = make<NSImage>(button.frame().size());
    FocusLock const focus(image);
    field->shadow()->cell()->drawWithFrame(NSOffsetRect(place, 0, -1), *NSView::focusView());
    field->cell()->drawWithFrame(place, *NSView::focusView());
    auto const drawn = make<NSImage>(std::string_view(*NSBundle::libraryBundle().pathForResource(arrow, "png", "images")));
    drawn->compositeToPoint({ place.maxX(), (size.height - drawn->size().height) / 2 }, NSCompositeSourceOver);
    return image;
}

void expectTitleOverShadow(float scale)
{
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 23 });
    button->setTitle("Engraved");
    auto const sample = make<PLIXChiseledTextField>(Rect {});
    auto const expected = [&](TitleColors const& colors, std::string_view arrow) {
        return pixelsOf(composedByHand(*button, colors, arrow), scale);
    };
    EXPECT_EQ(countDifferences(pixelsOf(button->ConstructIdleImage(), scale),
                  expected({ sample->activeColor(), sample->shadowActiveColor() }, "chiseledPopUp_DownArrow_Black")),
        0);
    button->deactivate(nullptr);
    EXPECT_EQ(countDifferences(pixelsOf(button->ConstructIdleImage(), scale),
                  expected({ sample->inactiveColor(), sample->shadowInactiveColor() }, "chiseledPopUp_DownArrow_Black")),
        0);
    // Behind the title of the others lies nothing here.
    PlainResources const resources("e_Mouse");
    button->InitBackgroundImages();
    EXPECT_GT(countPixels(pixelsOf(button->ConstructMouseOverImage(), scale), colors::white), 20);
}

TEST_F(ChiseledPopUpImages, TheTitleLiesOverItsShadowInTheColorsOfItsActivity)
{
    expectTitleOverShadow(1);
}

TEST_F(ChiseledPopUpRetinaImages, TheTitleLiesOverItsShadowInTheColorsOfItsActivity)
{
    expectTitleOverShadow(2);
}

/// The last row, counted from the top, in which enough is of a colour; -1 without one.
int lastRowOf(Pixels const& pixels, ColorComponents color)
{
    for (int y = pixels.height() - 1; y >= 0; --y) {
        if (countPixels(pixels, { 0, y, pixels.width(), 1 }, color, 0.1F) > 0)
            return y;
    }
    return -1;
}

void expectShadowOnePointBelow(int scale)
{
    PlainResources const none("_");
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
    button->setTitle("HHH");
    for (auto const& image : { button->ConstructMouseOverImage(), button->ConstructMouseDownImage() }) {
        Pixels const pixels(pixelsOf(image, static_cast<float>(scale)));
        ASSERT_EQ(pixels.width(), scale * static_cast<int>(button->frame().width));
        int const title = lastRowOf(pixels, colors::white);
        EXPECT_GT(title, 0);
        EXPECT_EQ(lastRowOf(pixels, { 0.1F, 0.1F, 0.1F, 1 }), title + scale);
    }
}

TEST_F(ChiseledPopUpImages, TheShadowLiesOnePointBelowTheTitle)
{
    expectShadowOnePointBelow(1);
}

TEST_F(ChiseledPopUpRetinaImages, TheShadowLiesOnePointBelowTheTitle)
{
    expectShadowOnePointBelow(2);
}

TEST_F(ChiseledPopUpImages, TextIsSmoothedInGreyOnly)
{
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
    button->setTitle("Smoothed");
    auto const isColored = [](std::uint32_t pixel) {
        int const red = static_cast<int>(pixel >> 16U & 0xFFU);
        int const green = static_cast<int>(pixel >> 8U & 0xFFU);
        int const blue = static_cast<int>(pixel & 0xFFU);
        return std::abs(red - green) > 2 || std::abs(green - blue) > 2;
    };
    for (auto const& image :
        { button->ConstructIdleImage(), button->ConstructMouseOverImage(), button->ConstructMouseDownImage() }) {
        EXPECT_EQ(countPixels(image, isColored), 0);
        EXPECT_TRUE(hasInk(image, Pixels(image).all(), colors::clear));
    }
}

TEST_F(ChiseledPopUpImages, AFontShowsInTheIdleImageWithTheNextActivity)
{
    auto const button = make<PLIXChiseledTextPopUpButton>(Rect { 0, 0, 130, 22 });
    button->setTitle("Font");
    Ref<NSImage> const before(button->image());
    button->setFont(NSFont::boldSystemFontOfSize(9));
    EXPECT_EQ(button->image(), before.get());
    button->activate(nullptr);
    EXPECT_GT(countDifferences(before, Ref<NSImage>(button->image())), 0);
}

}
}
