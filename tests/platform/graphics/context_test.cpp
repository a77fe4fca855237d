#include <plix/platform/graphics/NSGraphicsContext.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/pixels.h>

#include <limits>
#include <vector>

namespace plix {
namespace {

struct Bitmap {
    std::vector<std::uint32_t> words;
    PixelBuffer buffer;

    Bitmap(int width, int height, float scale, bool hasAlpha)
        : words(static_cast<std::size_t>(width * height))
        , buffer { reinterpret_cast<std::uint8_t*>(words.data()), width * 4, width, height, scale, hasAlpha, true }
    {
    }
};

TEST(NSGraphicsContext, DrawsStraightIntoThePixelsItIsGiven)
{
    Bitmap bitmap(4, 3, 1, false);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    CurrentContext const current(context);
    NSColor::redColor()->set();
    NSRectFill({ 1, 0, 2, 1 });
    context->flushGraphics();
    EXPECT_EQ(bitmap.words[9] & 0xFFFFFFU, 0xFF0000U);
    EXPECT_EQ(bitmap.words[5] & 0xFFFFFFU, 0U);
}

TEST(NSGraphicsContext, RefusesWhatIsNoBitmap)
{
    Bitmap bitmap(4, 3, 1, true);
    EXPECT_EQ(make<NSGraphicsContext>(PixelBuffer {}), nullptr);
    auto buffer = bitmap.buffer;
    buffer.stride = 15;
    EXPECT_EQ(make<NSGraphicsContext>(buffer), nullptr);
    buffer = bitmap.buffer;
    buffer.scale = 0;
    EXPECT_EQ(make<NSGraphicsContext>(buffer), nullptr);
    buffer = bitmap.buffer;
    buffer.width = 5;
    EXPECT_EQ(make<NSGraphicsContext>(buffer), nullptr);
}

TEST(NSGraphicsContext, PutsTheWholeStateBack)
{
    Bitmap bitmap(8, 8, 1, true);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    CurrentContext const current(context);
    NSColor::blueColor()->set();
    auto const depth = context->stateDepth();
    {
        GraphicsState const saved(context);
        EXPECT_EQ(context->stateDepth(), depth + 1);
        NSColor::redColor()->set();
        context->translateBy(4, 0);
        context->clipToRect({ 0, 0, 1, 1 });
        context->setAlpha(0.5F);
        context->setCompositingOperation(NSCompositePlusLighter);
        context->setImageInterpolation(NSImageInterpolationHigh);
        context->setShouldAntialias(false);
        context->setShouldSmoothFonts(false);
        context->setFlipped(true);
        context->setPatternPhase({ 3, 3 });
    }
    EXPECT_EQ(context->stateDepth(), depth);
    EXPECT_EQ(context->currentTransform(), AffineTransform {});
    EXPECT_EQ(context->clipBounds(), (Rect { 0, 0, 8, 8 }));
    EXPECT_EQ(context->alpha(), 1);
    EXPECT_EQ(context->compositingOperation(), NSCompositeSourceOver);
    EXPECT_EQ(context->imageInterpolation(), NSImageInterpolationDefault);
    EXPECT_TRUE(context->shouldAntialias());
    EXPECT_TRUE(context->shouldSmoothFonts());
    EXPECT_FALSE(context->isFlipped());
    EXPECT_EQ(context->patternPhase(), Point {});
    NSRectFill({ 0, 0, 8, 8 });
    EXPECT_TRUE(areaNear(context->pixels(), { 0, 0, 8, 8 }, colors::blue));
}

#ifndef NDEBUG
TEST(NSGraphicsContextDeathTest, AssertsThatSavesAndRestoresNest)
{
    EXPECT_DEATH(
        {
            Bitmap bitmap(4, 4, 1, true);
            auto const context = make<NSGraphicsContext>(bitmap.buffer);
            auto outer = std::make_unique<GraphicsState>(context);
            auto inner = std::make_unique<GraphicsState>(context);
            outer.reset();
        },
        "stateDepth");
}
#endif

TEST(NSGraphicsContext, RestoresTheContextThatWasCurrent)
{
    Bitmap a(2, 2, 1, true);
    Bitmap b(2, 2, 1, true);
    auto const first = make<NSGraphicsContext>(a.buffer);
    auto const second = make<NSGraphicsContext>(b.buffer);
    {
        CurrentContext const outer(first);
        {
            CurrentContext const inner(second);
            EXPECT_EQ(NSGraphicsContext::currentContext(), second);
        }
        EXPECT_EQ(NSGraphicsContext::currentContext(), first);
    }
    EXPECT_EQ(NSGraphicsContext::currentContext(), nullptr);
}

TEST(NSGraphicsContext, MeasuresInPointsFromTheLowerLeftCorner)
{
    Bitmap bitmap(20, 10, 2, true);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    CurrentContext const current(context);
    EXPECT_EQ(context->clipBounds(), (Rect { 0, 0, 10, 5 }));
    NSColor::redColor()->set();
    NSRectFill({ 1, 0, 3, 2 });
    EXPECT_EQ(inkBounds(context->pixels(), colors::clear), (PixelRect { 2, 6, 6, 4 }));
}

TEST(NSGraphicsContext, ConcatenatesTransformsBeforeTheOnesThereAre)
{
    Bitmap bitmap(20, 20, 1, true);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    CurrentContext const current(context);
    context->translateBy(5, 3);
    context->scaleBy(2, 2);
    EXPECT_EQ(context->currentTransform().apply(Point { 1, 1 }), (Point { 7, 5 }));
    auto const undo = NSAffineTransform::transform();
    undo->translateXBy(5, 3);
    undo->scaleBy(2);
    undo->invert();
    undo->concat();
    auto const identity = context->currentTransform();
    EXPECT_NEAR(identity.tX, 0, 1e-9);
    EXPECT_NEAR(identity.m11, 1, 1e-9);
    context->setTransform(AffineTransform::translation(1, 1));
    EXPECT_EQ(context->currentTransform().apply(Point { 0, 0 }), (Point { 1, 1 }));
}

TEST(NSGraphicsContext, IgnoresTransformsWithoutInverse)
{
    Bitmap bitmap(4, 4, 1, true);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    CurrentContext const current(context);
    context->scaleBy(0, 1);
    context->setTransform(AffineTransform::scaling(0, 0));
    NSColor::redColor()->set();
    NSRectFill({ 0, 0, 4, 4 });
    EXPECT_TRUE(areaNear(context->pixels(), { 0, 0, 4, 4 }, colors::red));
}

TEST(NSGraphicsContext, ClipsToRectanglesListsAndPaths)
{
    auto const bitmap = renderBitmap({ 30, 10 }, 1, [] {
        NSColor::redColor()->set();
        {
            GraphicsState const saved;
            NSRectClip({ 2, 2, 4, 4 });
            NSRectClip({ 4, 0, 10, 10 });
            EXPECT_EQ(NSGraphicsContext::currentContext()->clipBounds(), (Rect { 4, 2, 2, 4 }));
            NSRectFill({ 0, 0, 30, 10 });
        }
        {
            GraphicsState const saved;
            Rect const list[] { { 10, 0, 2, 10 }, { 16, 0, 2, 10 }, { 18, 0, 0, 10 } };
            NSRectClipList(list);
            NSRectFill({ 0, 0, 30, 10 });
        }
        {
            GraphicsState const saved;
            NSBezierPath::bezierPathWithRect({ 22, 1, 3, 3 })->addClip();
            NSRectFill({ 0, 0, 30, 10 });
            NSBezierPath::bezierPathWithRect({ 28, 0, 2, 2 })->setClip();
            NSRectFill({ 0, 0, 30, 10 });
        }
        {
            GraphicsState const saved;
            NSRectClipList({});
            NSRectFill({ 0, 0, 30, 10 });
            EXPECT_TRUE(NSGraphicsContext::currentContext()->clipBounds().isEmpty());
        }
    });
    EXPECT_TRUE(areaNear(bitmap, { 4, 4, 2, 4 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 10, 0, 2, 10 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 16, 0, 2, 10 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 22, 6, 3, 3 }, colors::red));
    EXPECT_TRUE(areaNear(bitmap, { 28, 8, 2, 2 }, colors::red));
    EXPECT_EQ(countPixels(bitmap, colors::clear), 300 - 8 - 40 - 9 - 4);
}

TEST(NSGraphicsContext, MultipliesTheAlphaOfAllThatIsPainted)
{
    auto const image = make<NSImage>(Size { 4, 4 });
    {
        FocusLock const focus(image);
        NSColor::blackColor()->set();
        NSRectFill({ 0, 0, 4, 4 });
    }
    auto const bitmap = renderBitmap({ 12, 4 }, 1, [&] {
        NSGraphicsContext::currentContext()->setAlpha(0.5F);
        NSColor::blackColor()->set();
        NSRectFillUsingOperation({ 0, 0, 4, 4 }, NSCompositeSourceOver);
        NSBezierPath::fillRect({ 4, 0, 4, 4 });
        image->drawAtPoint({ 8, 0 }, {}, NSCompositeSourceOver, 0.5F);
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 8, 4 }, { 0, 0, 0, 0.5F }));
    EXPECT_TRUE(areaNear(bitmap, { 8, 0, 4, 4 }, { 0, 0, 0, 0.25F }));
}

TEST(NSGraphicsContext, SnapsRectanglesToItsPixels)
{
    Bitmap bitmap(40, 40, 2, true);
    auto const context = make<NSGraphicsContext>(bitmap.buffer);
    EXPECT_EQ(context->rectSnappedToPixels({ 1.2F, 1.3F, 4.1F, 0.1F }), (Rect { 1, 1, 4.5F, 0.5F }));
    EXPECT_EQ(context->rectSnappedToPixels({}), Rect {});
    context->concat(AffineTransform::rotation(0.3));
    EXPECT_EQ(context->rectSnappedToPixels({ 1.2F, 1.3F, 4.1F, 0.1F }), (Rect { 1.2F, 1.3F, 4.1F, 0.1F }));
}

TEST(NSGraphicsContext, SurvivesCoordinatesOfAnySize)
{
    float const huge = std::numeric_limits<float>::max();
    float const infinity = std::numeric_limits<float>::infinity();
    float const nothing = std::numeric_limits<float>::quiet_NaN();
    auto const bitmap = renderBitmap({ 10, 10 }, 2, [&] {
        NSColor::redColor()->set();
        for (float const value : { huge, -huge, infinity, -infinity, nothing, 1e9F, -1e9F }) {
            NSRectFill({ value, 0, 5, 5 });
            NSRectFill({ 0, 0, value, 5 });
            NSFrameRect({ value, value, value, value });
            NSBezierPath::strokeLineFromPoint({ value, 0 }, { 0, value });
            NSBezierPath::fillRect({ -5, value, 4, value });
            GraphicsState const saved;
            NSRectClip({ value, value, value, value });
        }
        NSColor::blueColor()->set();
        NSRectFill({ -1e9F, -1e9F, 2e9F, 2e9F });
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 20, 20 }, colors::blue));
}

}
}
