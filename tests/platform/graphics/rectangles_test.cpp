#include <plix/platform/graphics/NSGraphics.h>

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/pixels.h>

namespace plix {
namespace {

TEST(NSRectFill, ReplacesWhatIsThere)
{
    auto const bitmap = renderBitmap(
        { 4, 4 }, 1,
        [] {
            NSColor::colorWithCalibratedRed(1, 0, 0, 0.5F)->set();
            NSRectFill({ 0, 0, 2, 4 });
            NSRectFillUsingOperation({ 2, 0, 2, 4 }, NSCompositeSourceOver);
        },
        colors::white);
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 2, 4 }, { 1, 0, 0, 0.5F }));
    EXPECT_TRUE(areaNear(bitmap, { 2, 0, 2, 4 }, { 1, 0.5F, 0.5F, 1 }));
}

TEST(NSRectFill, IsCrispAtEveryScale)
{
    for (float const scale : { 1.0F, 1.5F, 2.0F, 3.0F }) {
        auto const bitmap = renderBitmap({ 20, 20 }, scale, [] {
            NSColor::blackColor()->set();
            NSRectFill({ 2.3F, 3.7F, 5.2F, 0.2F });
            NSRectFill({ 8.5F, 8.5F, 5, 5 });
        });
        EXPECT_GT(countPixels(bitmap, colors::black), 0);
        EXPECT_EQ(
            countPixels(bitmap, colors::black) + countPixels(bitmap, colors::clear), bitmap->pixelsWide() * bitmap->pixelsHigh())
            << scale;
    }
}

TEST(NSRectFill, LeavesNoGapBetweenNeighbours)
{
    auto const bitmap = renderBitmap({ 30, 4 }, 1, [] {
        NSColor::blackColor()->set();
        for (int i = 0; i < 10; ++i)
            NSRectFillUsingOperation({ static_cast<float>(i) * 2.7F, 0, 2.7F, 4 }, NSCompositeXOR);
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 27, 4 }, colors::black));
    EXPECT_TRUE(areaNear(bitmap, { 27, 0, 3, 4 }, colors::clear));
}

TEST(NSRectFill, DrawsNothingForAnEmptyRectangle)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [] {
        NSColor::blackColor()->set();
        NSRectFill({ 2, 2, 0, 5 });
        NSRectFill({ 2, 2, 5, 0 });
        NSRectFill({ 5, 5, -3, 3 });
    });
    EXPECT_FALSE(hasInk(bitmap, { 0, 0, 10, 10 }, colors::clear));
}

TEST(NSRectFill, TurnsWithItsTransform)
{
    auto const bitmap = renderBitmap({ 20, 20 }, 1, [] {
        NSColor::blackColor()->set();
        auto const context = NSGraphicsContext::currentContext();
        context->translateBy(10, 10);
        context->concat(AffineTransform::rotation(0.785398));
        NSRectFill({ -5, -5, 10, 10 });
    });
    EXPECT_TRUE(pixelNear(bitmap, 10, 4, colors::black));
    EXPECT_TRUE(pixelNear(bitmap, 5, 5, colors::clear));
}

TEST(NSRectFillList, FillsEachRectangle)
{
    auto const bitmap = renderBitmap({ 9, 3 }, 1, [] {
        Rect const rects[] { { 0, 0, 3, 3 }, { 3, 0, 3, 3 }, { 6, 0, 3, 3 } };
        Ref<NSColor> const list[] { NSColor::redColor(), NSColor::greenColor() };
        NSColor::blueColor()->set();
        NSRectFillList(rects);
        NSRectFillListWithColors(rects, list);
        NSRectFill({ 8, 0, 1, 1 });
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 3, 3 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 3, 0, 3, 3 }, colors::green));
    EXPECT_TRUE(areaNear(bitmap, { 6, 0, 3, 3 }, colors::blue));
}

TEST(NSFrameRect, DrawsInsideTheRectangle)
{
    auto const bitmap = renderBitmap({ 20, 10 }, 1, [] {
        NSColor::blackColor()->set();
        NSFrameRect({ 1, 1, 8, 8 });
        NSFrameRectWithWidth({ 10, 1, 9, 8 }, 3);
    });
    EXPECT_EQ(countPixels(bitmap, { 0, 0, 10, 10 }, colors::black), 28);
    EXPECT_TRUE(areaNear(bitmap, { 2, 2, 6, 6 }, colors::clear));
    EXPECT_TRUE(areaNear(bitmap, { 13, 4, 3, 2 }, colors::clear));
    EXPECT_EQ(countPixels(bitmap, { 10, 0, 10, 10 }, colors::black), 72 - 6);
}

TEST(NSFrameRect, CoversEachPixelOnceAlsoWithAlpha)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [] {
        NSColor::colorWithCalibratedWhite(0, 0.5F)->set();
        NSFrameRectWithWidthUsingOperation({ 0, 0, 10, 10 }, 2, NSCompositeSourceOver);
    });
    EXPECT_EQ(countPixels(bitmap, { 0, 0, 0, 0.5F }), 64);
}

TEST(NSFrameRect, WiderThanTheRectangleFillsIt)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [] {
        NSColor::colorWithCalibratedWhite(0, 0.5F)->set();
        NSFrameRectWithWidthUsingOperation({ 2, 2, 4, 4 }, 30, NSCompositeSourceOver);
    });
    EXPECT_EQ(countPixels(bitmap, { 0, 0, 0, 0.5F }), 16);
}

TEST(NSDrawTiledRects, CutsSidesOffInTurn)
{
    Rect inside;
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [&] {
        constexpr NSRectEdge sides[] { NSMinYEdge, NSMaxXEdge, NSMaxYEdge, NSMinXEdge, NSMinYEdge };
        constexpr float grays[] { 0, 1 / 3.0F, 2 / 3.0F, 1, 0.5F };
        inside = NSDrawTiledRects({ 1, 1, 8, 8 }, { 0, 0, 10, 10 }, sides, grays);
    });
    EXPECT_EQ(inside, (Rect { 2, 3, 6, 5 }));
    EXPECT_TRUE(areaNear(bitmap, { 1, 8, 8, 1 }, colors::black));
    EXPECT_TRUE(areaNear(bitmap, { 8, 1, 1, 7 }, { 1 / 3.0F, 1 / 3.0F, 1 / 3.0F, 1 }));
    EXPECT_TRUE(areaNear(bitmap, { 1, 1, 7, 1 }, { 2 / 3.0F, 2 / 3.0F, 2 / 3.0F, 1 }));
    EXPECT_TRUE(areaNear(bitmap, { 1, 2, 1, 6 }, colors::white));
    EXPECT_TRUE(areaNear(bitmap, { 2, 7, 6, 1 }, { 0.5F, 0.5F, 0.5F, 1 }));
    EXPECT_TRUE(areaNear(bitmap, { 2, 2, 6, 5 }, colors::clear));
}

TEST(NSDrawTiledRects, DrawsOnlyInTheClipRectangle)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [&] {
        constexpr NSRectEdge sides[] { NSMinYEdge, NSMaxYEdge };
        constexpr float grays[] { 0, 0 };
        NSDrawTiledRects({ 0, 0, 10, 10 }, { 0, 0, 5, 5 }, sides, grays);
    });
    EXPECT_EQ(countPixels(bitmap, colors::black), 5);
}

TEST(NSEraseRect, IsWhiteAndLeavesTheColorAlone)
{
    auto const bitmap = renderBitmap({ 4, 2 }, 1, [&] {
        NSColor::redColor()->set();
        NSEraseRect({ 0, 0, 2, 2 });
        NSRectFill({ 2, 0, 2, 2 });
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 2, 2 }, colors::white));
    EXPECT_TRUE(areaNear(bitmap, { 2, 0, 2, 2 }, colors::red));
}

TEST(NSReadPixel, AnswersTheColorAtAPoint)
{
    renderBitmap({ 4, 4 }, 2, [&] {
        NSColor::redColor()->set();
        NSRectFill({ 1, 1, 1, 1 });
        EXPECT_EQ(NSReadPixel({ 1, 1 })->components(), colors::red);
        EXPECT_EQ(NSReadPixel({ 1.9F, 1.9F })->components(), colors::red);
        EXPECT_EQ(NSReadPixel({ 2, 1 })->alphaComponent(), 0);
        EXPECT_EQ(NSReadPixel({ 1, 0.4F })->alphaComponent(), 0);
        EXPECT_EQ(NSReadPixel({ 1, 4 }), nullptr);
        EXPECT_EQ(NSReadPixel({ -1, 1 }), nullptr);
    });
}

}
}
