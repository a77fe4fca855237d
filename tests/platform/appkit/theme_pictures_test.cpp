#include <plix/platform/appkit/theme_pictures.h>

#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/button_layout.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/pixels.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class ThemePictures : public testing::Test {
protected:
    void TearDown() override { setCurrentAppearance(Appearance::light); }

    // Red above, blue below. Each test has a state of its own, so that it begins without a picture.
    bool draw(Rect rect, int state)
    {
        return drawThemePicture(rect, { .state = state }, [&](Rect place) {
            ++drawings;
            NSColor::redColor()->set();
            NSRectFill({ place.x, place.y, place.width, place.height / 2 });
            NSColor::blueColor()->set();
            NSRectFill({ place.x, place.y + place.height / 2, place.width, place.height / 2 });
        });
    }
    template <typename Draw> static Ref<NSBitmapImageRep> flipped(float scale, Draw draw)
    {
        return renderBitmap({ 20, 20 }, scale, [&] {
            auto const context = NSGraphicsContext::currentContext();
            context->concat(AffineTransform::mirror({ 0, 0, 20, 20 }));
            context->setFlipped(true);
            draw();
        });
    }

    int drawings { 0 };
};

TEST_F(ThemePictures, AreDrawnOnceAndUprightEachTime)
{
    auto const bitmap = flipped(1, [&] {
        EXPECT_TRUE(draw({ 2, 2, 4, 8 }, 1001));
        EXPECT_TRUE(draw({ 10, 8, 4, 8 }, 1001));
    });
    EXPECT_EQ(drawings, 1);
    EXPECT_TRUE(areaNear(bitmap, { 2, 2, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 2, 6, 4, 4 }, colors::blue));
    EXPECT_TRUE(areaNear(bitmap, { 10, 8, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 10, 12, 4, 4 }, colors::blue));
    EXPECT_TRUE(areaNear(bitmap, { 6, 0, 4, 20 }, colors::clear));
}

TEST_F(ThemePictures, BeginAtTheSmallestYAlsoWhereItGrowsUpwards)
{
    auto const bitmap = renderBitmap({ 20, 20 }, 1, [&] { EXPECT_TRUE(draw({ 2, 2, 4, 8 }, 1002)); });
    EXPECT_TRUE(areaNear(bitmap, { 2, 14, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 2, 10, 4, 4 }, colors::blue));
}

TEST_F(ThemePictures, EachScaleSizeAndAppearanceHasItsOwn)
{
    flipped(1, [&] { draw({ 2, 2, 4, 8 }, 1003); });
    auto const fine = flipped(2, [&] { draw({ 2, 2, 4, 8 }, 1003); });
    EXPECT_EQ(drawings, 2);
    EXPECT_TRUE(areaNear(fine, { 4, 4, 8, 8 }, colors::red));
    flipped(1, [&] { draw({ 2, 2, 6, 8 }, 1003); });
    EXPECT_EQ(drawings, 3);
    setCurrentAppearance(Appearance::dark);
    flipped(1, [&] { draw({ 2, 2, 4, 8 }, 1003); });
    EXPECT_EQ(drawings, 4);
}

TEST_F(ThemePictures, AreNotUsedWhereTheyWouldBlur)
{
    auto const bitmap = flipped(1, [&] {
        EXPECT_FALSE(draw({ 2.5F, 2, 4, 8 }, 1004));
        EXPECT_FALSE(draw({ 2, 2, 4, 8.25F }, 1004));
        EXPECT_FALSE(draw({ 2, 2, 0, 8 }, 1004));
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->scaleBy(1.5, 1.5);
        EXPECT_FALSE(draw({ 2, 2, 4, 8 }, 1004));
    });
    EXPECT_EQ(drawings, 0);
    EXPECT_EQ(countPixels(bitmap, colors::clear), 400);
    EXPECT_FALSE(draw({ 2, 2, 4, 8 }, 1004));
}

// Off the pixels the face is drawn itself, at a place that is on them from its picture.
TEST_F(ThemePictures, ShowAFaceAsItIsDrawnWithoutThem)
{
    auto const& theme = Theme::current();
    for (bool isOn : { false, true }) {
        ButtonLook const look { .control = {}, .style = NSTexturedSquareBezelStyle, .isOn = isOn };
        auto const show = [&] { theme.drawIndicator({ 3, 3, 14, 14 }, ButtonFace::checkBox, isOn ? NSOnState : NSOffState, look); };
        auto const direct = flipped(1, [&] {
            // Too little to see, enough to be off the pixels.
            NSGraphicsContext::currentContext()->translateBy(0.0005, 0);
            show();
        });
        auto const first = flipped(1, show);
        auto const again = flipped(1, show);
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 20; ++x) {
                EXPECT_EQ(Pixels(first).at(x, y), Pixels(again).at(x, y)) << x << ' ' << y;
                EXPECT_TRUE(pixelNear(again, x, y, Pixels(direct).colorAt(x, y), 6.F / 255)) << x << ' ' << y;
            }
        }
    }
}

}
}
