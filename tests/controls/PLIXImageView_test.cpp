#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXImageView.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

namespace plix {
namespace {

class PLIXImageViewTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 200, 100 });
        window->setBackgroundColor(NSColor::whiteColor());
        view = make<PLIXImageView>(Rect { 0, 0, 200, 100 });
        window->contentView()->addSubview(*view);
    }
    Pixels drawn()
    {
        view->setNeedsDisplay(true);
        pump();
        return window->snapshot();
    }

    Ref<NSWindow> window;
    Ref<PLIXImageView> view;
};

TEST_F(PLIXImageViewTest, BeginsWithoutDefaultImage)
{
    EXPECT_EQ(view->defaultImageString(), std::nullopt);
    EXPECT_EQ(view->defaultImageAttributedString(), nullptr);
    EXPECT_EQ(inkBounds(drawn(), colors::white).width, 0);
}

TEST_F(PLIXImageViewTest, AnEmptyViewDrawsAsAPlainOne)
{
    view->setDefaultImageString("Drop a picture here");
    EXPECT_EQ(inkBounds(drawn(), colors::white).width, 0);
}

TEST_F(PLIXImageViewTest, SmallImagesKeepTheirSizeInTheMiddle)
{
    view->setImage(imageOfColor({ 21, 11 }, colors::red));
    auto const ink = inkBounds(drawn(), colors::white);
    EXPECT_EQ(ink.x, 89);
    EXPECT_EQ(ink.width, 21);
    EXPECT_EQ(ink.height, 11);
    // 44 points from below, cut off.
    EXPECT_EQ(ink.y, 100 - 44 - 11);
}

TEST_F(PLIXImageViewTest, LargeImagesAreMadeSmallerInProportion)
{
    view->setImage(imageOfColor({ 400, 100 }, colors::red));
    auto const ink = inkBounds(drawn(), colors::white);
    EXPECT_EQ(ink.width, 200);
    EXPECT_EQ(ink.height, 50);
    EXPECT_EQ(ink.y, 25);
}

TEST_F(PLIXImageViewTest, ImagesStandUpright)
{
    auto const image = imageOfDistinctPixels(4, 4);
    view->setImage(image);
    auto const pixels = drawn();
    Pixels const source(image);
    for (int y = 0; y < 4; ++y) {
        for (int x = 0; x < 4; ++x)
            EXPECT_EQ(pixels.at(98 + x, 48 + y), source.at(x, y)) << x << ' ' << y;
    }
}

TEST_F(PLIXImageViewTest, OtherScalingsAreThoseOfThePlainView)
{
    view->setImage(imageOfColor({ 20, 10 }, colors::red));
    view->setImageScaling(NSScaleToFit);
    EXPECT_EQ(inkBounds(drawn(), colors::white).width, 200);
    view->setImageScaling(NSScaleNone);
    view->setImageAlignment(NSImageAlignTopLeft);
    auto const ink = inkBounds(drawn(), colors::white);
    EXPECT_EQ(ink.x, 0);
    EXPECT_EQ(ink.y, 0);
}

TEST_F(PLIXImageViewTest, ItsImageIsThereAfterDrawing)
{
    auto const image = imageOfColor({ 20, 10 }, colors::red);
    view->setImage(image);
    drawn();
    EXPECT_EQ(view->image(), image.get());
    EXPECT_FALSE(view->needsDisplay());
    view->setImage(nullptr);
    view->setDrawsDefaultImage(true);
    drawn();
    EXPECT_EQ(view->image(), nullptr);
    EXPECT_FALSE(view->needsDisplay());
}

// MARK: the default image

TEST_F(PLIXImageViewTest, TheHostsDefaultImageIsShownAsItIs)
{
    auto const image = imageOfColor({ 20, 10 }, colors::blue);
    view->setDefaultImage(image);
    view->setDrawsDefaultImage(true);
    EXPECT_EQ(view->defaultImage(), image);
    auto const pixels = drawn();
    EXPECT_EQ(pixels.colorAt(100, 50), colors::blue);
    EXPECT_EQ(countPixels(pixels, colors::blue), 200);
    view->setImage(imageOfColor({ 20, 10 }, colors::red));
    EXPECT_EQ(countPixels(drawn(), colors::blue), 0);
}

TEST_F(PLIXImageViewTest, WithoutCaptionThereIsTheBorderAlone)
{
    view->setDrawsDefaultImage(true);
    auto const pixels = drawn();
    EXPECT_FALSE(hasInk(pixels, { 20, 20, 160, 60 }, colors::white));
    EXPECT_TRUE(hasInk(pixels, { 0, 0, 200, 4 }, colors::white));
}

TEST_F(PLIXImageViewTest, TheBorderIsDashed)
{
    // r = 12: a stroke of 3 points around the bounds inset by 2.
    Pixels const border(view->defaultImageBorder());
    EXPECT_EQ(border.width(), 200);
    EXPECT_EQ(border.height(), 100);
    int changes = 0;
    for (int x = 1; x < 200; ++x)
        changes += (border.at(x, 2) >> 24U > 0) != (border.at(x - 1, 2) >> 24U > 0);
    EXPECT_GE(changes, 8);
    // The gap in the middle of the upper edge, and what is grey.
    EXPECT_EQ(border.at(100, 2) >> 24U, 0U);
    auto const grey = ColorComponents { 2 / 3.0F, 2 / 3.0F, 2 / 3.0F, 1 };
    EXPECT_GT(countPixels(border, grey), 100);
}

TEST_F(PLIXImageViewTest, TheCaptionStandsInTheMiddle)
{
    view->setDrawsDefaultImage(true);
    view->setDefaultImageString("Drop");
    auto const pixels = drawn();
    auto const word = PixelRect { 20, 20, 160, 60 };
    EXPECT_TRUE(hasInk(pixels, word, colors::white));
    int left = 200;
    int right = 0;
    for (int x = 20; x < 180; ++x) {
        if (hasInk(pixels, { x, 20, 1, 60 }, colors::white)) {
            left = std::min(left, x);
            right = x;
        }
    }
    EXPECT_NEAR(left + right, 200, 4);
    // Half white.
    float darkest = 1;
    for (int x = left; x <= right; ++x) {
        for (int y = 20; y < 80; ++y)
            darkest = std::min(darkest, pixels.colorAt(x, y).red);
    }
    EXPECT_NEAR(darkest, 0.5F, 0.02F);
}

TEST_F(PLIXImageViewTest, ACaptionWithALookOfItsOwnWins)
{
    view->setDrawsDefaultImage(true);
    view->setDefaultImageString("Drop");
    view->setDefaultImageAttributedString(make<NSAttributedString>("MMMMMM",
        Attributes {
            { NSFontAttributeName, NSFont::boldSystemFontOfSize(24) }, { NSForegroundColorAttributeName, NSColor::redColor() } }));
    EXPECT_GT(countPixels(drawn(), colors::red), 50);
    view->setDefaultImageAttributedString("a plain one");
    EXPECT_EQ(view->defaultImageAttributedString(), nullptr);
    EXPECT_EQ(countPixels(drawn(), colors::red), 0);
    EXPECT_EQ(view->defaultImageString(), "Drop");
    view->setDefaultImageString(std::nullopt);
    EXPECT_EQ(view->defaultImageString(), std::nullopt);
}

TEST_F(PLIXImageViewTest, ADefaultImageIsMadeAnewEachTime)
{
    EXPECT_NE(view->defaultImage(), view->defaultImage());
    EXPECT_NE(view->defaultImageBorder(), view->defaultImageBorder());
    EXPECT_EQ(view->defaultImage()->size(), (Size { 200, 100 }));
}

TEST_F(PLIXImageViewTest, TinyViewsDoNotHurt)
{
    view->setDrawsDefaultImage(true);
    view->setDefaultImageString("Drop a picture here");
    for (Size const size : { Size { 0, 0 }, Size { 1, 1 }, Size { 8, 3 }, Size { 15, 60 }, Size { 3, 200 } }) {
        view->setFrameSize(size);
        drawn();
        EXPECT_EQ(view->image(), nullptr);
    }
}

// MARK: focus

TEST_F(PLIXImageViewTest, WithoutRingTheKeyboardIsGivenBackAfterDrawing)
{
    class Watching : public PLIXImageView {
    public:
        using PLIXImageView::init;
        Ref<NSImage> defaultImage() override
        {
            hadKeyboard = window()->firstResponder() == this;
            return PLIXImageView::defaultImage();
        }
        bool hadKeyboard { true };
    };
    auto const watching = make<Watching>(Rect { 0, 0, 200, 100 });
    window->contentView()->addSubview(*watching);
    watching->setEditable(true);
    watching->setDrawsDefaultImage(true);
    window->makeFirstResponder(watching.get());
    pump();
    EXPECT_TRUE(watching->hadKeyboard);
    watching->setFocusRingType(NSFocusRingTypeNone);
    watching->setNeedsDisplay(true);
    pump();
    EXPECT_FALSE(watching->hadKeyboard);
    EXPECT_EQ(window->firstResponder(), watching.get());
}

TEST_F(PLIXImageViewTest, TheDefaultImageIsNotArchived)
{
    view->setDrawsDefaultImage(true);
    view->setDefaultImageString("Drop");
    view->setImage(imageOfColor({ 3, 3 }, colors::red));
    auto const data = NSArchiver::archivedDataWithRootObject(view);
    auto const again = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXImageView>();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->defaultImageString(), std::nullopt);
    ASSERT_NE(again->image(), nullptr);
    EXPECT_EQ(again->image()->size(), (Size { 3, 3 }));
}

}
}
