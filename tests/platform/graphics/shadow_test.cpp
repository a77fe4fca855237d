#include <plix/platform/graphics/NSShadow.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/string_drawing.h>

#include <tests/support/pixels.h>

namespace plix {
namespace {

Ref<NSShadow> shadowWith(Size offset, float radius, Ref<NSColor> const& color)
{
    auto shadow = make<NSShadow>();
    shadow->setShadowOffset(offset);
    shadow->setShadowBlurRadius(radius);
    shadow->setShadowColor(color);
    return shadow;
}

TEST(NSShadow, IsAThirdBlackAtFirst)
{
    auto const shadow = make<NSShadow>();
    EXPECT_EQ(shadow->shadowOffset(), Size {});
    EXPECT_EQ(shadow->shadowBlurRadius(), 0);
    EXPECT_TRUE(shadow->shadowColor()->isEqual(NSColor::colorWithCalibratedWhite(0, 1 / 3.0F).get()));
    shadow->setShadowBlurRadius(-1);
    EXPECT_EQ(shadow->shadowBlurRadius(), 0);
}

TEST(NSShadow, ComparesAndCopiesItsValues)
{
    auto const shadow = shadowWith({ 1, -2 }, 3, NSColor::redColor());
    auto const copy = shadow->copy();
    EXPECT_TRUE(copy->isEqual(shadow.get()));
    EXPECT_EQ(copy->hash(), shadow->hash());
    copy->setShadowBlurRadius(4);
    EXPECT_FALSE(copy->isEqual(shadow.get()));
    EXPECT_FALSE(shadow->isEqual(nullptr));
}

TEST(NSShadow, FallsBelowTheShapeUpwardsOnTheScreen)
{
    for (bool const isFlipped : { false, true }) {
        auto const bitmap = renderBitmap({ 20, 20 }, 2, [&] {
            auto const context = NSGraphicsContext::currentContext();
            if (isFlipped)
                context->concat(AffineTransform::mirror({ 0, 0, 20, 20 }));
            shadowWith({ 3, 2 }, 0, NSColor::blueColor())->set();
            NSColor::redColor()->set();
            NSBezierPath::fillRect({ 5, 5, 10, 10 });
        });
        EXPECT_TRUE(areaNear(bitmap, { 10, 10, 20, 20 }, colors::red));
        EXPECT_TRUE(areaNear(bitmap, { 30, 6, 6, 20 }, colors::blue)) << isFlipped;
        EXPECT_TRUE(areaNear(bitmap, { 16, 6, 14, 4 }, colors::blue)) << isFlipped;
        EXPECT_EQ(countPixels(bitmap, colors::blue), 20 * 20 - 14 * 16);
    }
}

TEST(NSShadow, BlursOutToBothSidesOfTheEdge)
{
    auto const bitmap = renderBitmap({ 40, 40 }, 1, [&] {
        shadowWith({ 0, -20 }, 4, NSColor::blackColor())->set();
        NSColor::redColor()->set();
        NSRectFill({ 10, 25, 20, 10 });
    });
    auto const alphaAt = [&](int x, int y) { return static_cast<int>(bitmap->pixelAtX(x, y) >> 24U); };
    EXPECT_NEAR(alphaAt(20, 30), 252, 5);
    EXPECT_NEAR(alphaAt(10, 30), 153, 6);
    EXPECT_NEAR(alphaAt(9, 30), 102, 6);
    EXPECT_GT(alphaAt(7, 30), 10);
    EXPECT_EQ(alphaAt(1, 30), 0);
}

TEST(NSShadow, KeepsTheValuesOfTheMomentItWasSet)
{
    auto const bitmap = renderBitmap({ 20, 10 }, 1, [&] {
        auto const shadow = shadowWith({ 5, 0 }, 0, NSColor::blueColor());
        shadow->set();
        shadow->setShadowColor(NSColor::greenColor());
        NSColor::redColor()->set();
        NSRectFill({ 2, 2, 5, 5 });
    });
    EXPECT_EQ(countPixels(bitmap, colors::blue), 25);
}

TEST(NSShadow, GoesWithTheState)
{
    auto const bitmap = renderBitmap({ 20, 10 }, 1, [&] {
        NSColor::redColor()->set();
        {
            GraphicsState const saved;
            shadowWith({ 5, 0 }, 0, NSColor::blueColor())->set();
        }
        NSRectFill({ 2, 2, 5, 5 });
        shadowWith({ 5, 0 }, 0, nullptr)->set();
        NSRectFill({ 2, 2, 5, 5 });
    });
    EXPECT_EQ(countPixels(bitmap, colors::clear), 200 - 25);
}

TEST(NSShadow, IsDrawnForImagesAndStrokesAndFollowsTheirAlpha)
{
    auto const image = make<NSImage>(Size { 4, 4 });
    {
        FocusLock const focus(image);
        NSColor::colorWithCalibratedRed(1, 0, 0, 0.5F)->set();
        NSRectFill({ 0, 0, 4, 4 });
    }
    auto const bitmap = renderBitmap({ 30, 20 }, 1, [&] {
        shadowWith({ 10, 0 }, 0, NSColor::blackColor())->set();
        image->drawAtPoint({ 2, 12 }, {}, NSCompositeSourceOver, 1);
        NSColor::redColor()->set();
        NSBezierPath::strokeLineFromPoint({ 2, 5.5F }, { 8, 5.5F });
    });
    EXPECT_TRUE(areaNear(bitmap, { 12, 4, 4, 4 }, { 0, 0, 0, 0.5F }));
    EXPECT_TRUE(areaNear(bitmap, { 12, 14, 6, 1 }, colors::black));
}

TEST(NSShadow, ReachesIntoTheClipFromShapesOutsideIt)
{
    auto const bitmap = renderBitmap({ 20, 10 }, 1, [&] {
        NSRectClip({ 10, 0, 10, 10 });
        shadowWith({ 8, 0 }, 0, NSColor::blueColor())->set();
        NSColor::redColor()->set();
        NSRectFill({ 2, 2, 6, 6 });
    });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 10, 2, 6, 6 }));
}

/// A text with a shadow, drawn where the clip is a rectangle, or else one that is none and hides nothing either.
Ref<NSBitmapImageRep> shadowedText(NSShadow& shadow, float scale, bool isClippedByPath, Rect clip, ColorComponents text)
{
    return renderBitmap({ 120, 30 }, scale,
        [&] {
            GraphicsState const saved;
            if (isClippedByPath) {
                auto const beyond = NSBezierPath::bezierPath();
                beyond->appendBezierPathWithOvalInRect({ -2000, -2000, 4000, 4000 });
                beyond->addClip();
            }
            NSGraphicsContext::currentContext()->clipToRect(clip);
            Attributes const attributes { { NSFontAttributeName, NSFont::boldSystemFontOfSize(13) },
                { NSForegroundColorAttributeName, NSColor::colorWithDeviceRed(text.red, text.green, text.blue, text.alpha) },
                { NSShadowAttributeName, Ref<NSShadow>(&shadow) } };
            drawAtPoint("Affixes, To way", { 10.3F, 5.6F }, attributes);
        },
        { 0.3F, 0.5F, 0.9F, 1 });
}

TEST(NSShadow, OfTextIsTheSameHoweverItIsDrawn)
{
    struct Row {
        Size offset;
        float radius;
        Rect clip;
        ColorComponents text;
    };
    for (auto const& row : {
             Row { { 0, -1 }, 1, { 0, 0, 120, 30 }, colors::white },
             Row { { 3, 4 }, 0, { 0, 0, 120, 30 }, colors::white },
             Row { { -2, 2 }, 6, { 0, 0, 120, 30 }, colors::black },
             Row { { 0, -1 }, 2, { 40, 8, 11, 9 }, colors::white },
             Row { { 60, 0 }, 1, { 100, 0, 20, 30 }, colors::white },
             Row { { 0, -1 }, 1, { 0, 0, 120, 30 }, { 1, 1, 1, 0.5F } },
         }) {
        auto const shadow = shadowWith(row.offset, row.radius, NSColor::colorWithCalibratedRed(0.1F, 0, 0.2F, 0.8F));
        for (float const scale : { 1.0F, 2.0F }) {
            auto const blended = shadowedText(*shadow, scale, false, row.clip, row.text);
            auto const byPath = shadowedText(*shadow, scale, true, row.clip, row.text);
            EXPECT_EQ(countDifferences(blended, byPath, 3.0F / 255), 0) << row.offset.width << " " << row.radius << " " << scale;
            EXPECT_TRUE(hasInk(blended, { 0, 0, blended->pixels().width, blended->pixels().height }, { 0.3F, 0.5F, 0.9F, 1 }));
        }
    }
}

}
}
