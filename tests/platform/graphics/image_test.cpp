#include <plix/platform/graphics/NSImage.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

struct BackingScale {
    explicit BackingScale(float scale) { NSImage::setDefaultBackingScale(scale); }
    ~BackingScale() { NSImage::setDefaultBackingScale(1); }
};

TEST(NSImage, IsDrawnIntoFromTheLowerLeftCorner)
{
    auto const image = make<NSImage>(Size { 4, 6 });
    EXPECT_FALSE(image->isValid());
    {
        FocusLock const focus(image);
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 1, 2 });
    }
    EXPECT_TRUE(image->isValid());
    EXPECT_EQ(image->representations().size(), 1U);
    EXPECT_EQ(inkBounds(image, colors::clear), (PixelRect { 0, 4, 1, 2 }));
}

TEST(NSImage, PutsTheContextBackThatWasCurrent)
{
    auto const image = make<NSImage>(Size { 4, 4 });
    auto const other = make<NSImage>(Size { 4, 4 });
    {
        FocusLock const outer(image);
        auto const context = NSGraphicsContext::currentContext();
        {
            FocusLock const inner(other);
            EXPECT_NE(NSGraphicsContext::currentContext(), context);
        }
        EXPECT_EQ(NSGraphicsContext::currentContext(), context);
    }
    EXPECT_EQ(NSGraphicsContext::currentContext(), nullptr);
}

TEST(NSImage, KeepsWhatWasDrawnBeforeWhenItIsDrawnIntoAgain)
{
    auto const image = imageOfColor({ 4, 4 }, colors::red);
    {
        FocusLock const focus(image);
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 2, 4 });
    }
    EXPECT_TRUE(areaNear(image, { 0, 0, 2, 4 }, colors::blue));
    EXPECT_TRUE(areaNear(image, { 2, 0, 2, 4 }, colors::red));
}

TEST(NSImage, WithoutSizeTakesDrawingAndKeepsNothing)
{
    auto const image = make<NSImage>(Size { 0, 5 });
    {
        FocusLock const focus(image);
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 100, 100 });
    }
    EXPECT_FALSE(image->isValid());
    EXPECT_EQ(image->bitmapAtScale(1), nullptr);
    auto const bitmap = renderBitmap({ 4, 4 }, 1, [&] { image->drawInRect({ 0, 0, 4, 4 }, {}, NSCompositeSourceOver, 1); });
    EXPECT_FALSE(hasInk(bitmap, { 0, 0, 4, 4 }, colors::clear));
}

TEST(NSImage, DrawsAtTheGreatestBackingScaleAround)
{
    BackingScale const scale(2);
    auto const image = imageOfColor({ 4.5F, 4 }, colors::red);
    auto const rep = as<NSBitmapImageRep>(image->representations().front());
    EXPECT_EQ(rep->pixelsWide(), 9);
    EXPECT_EQ(rep->pixelsHigh(), 8);
    EXPECT_EQ(rep->size(), (Size { 4.5F, 4 }));
}

TEST(NSImage, DrawnIntoWithinAContextTakesItsScale)
{
    Ref<NSImage> image;
    renderBitmap({ 4, 4 }, 3, [&] { image = imageOfColor({ 4, 4 }, colors::red); });
    EXPECT_EQ(image->representations().front()->pixelsWide(), 12);
}

TEST(NSImage, PlacesEveryPixelWhereItBelongs)
{
    auto const image = imageOfDistinctPixels(5, 4);
    auto const bitmap = renderBitmap({ 9, 9 }, 1, [&] { image->drawInRect({ 2, 3, 5, 4 }, {}, NSCompositeSourceOver, 1); });
    for (int y = 0; y < 9; ++y) {
        for (int x = 0; x < 9; ++x) {
            bool const isInside = x >= 2 && x < 7 && y >= 2 && y < 6;
            EXPECT_EQ(bitmap->pixelAtX(x, y), isInside ? distinctPixel(x - 2, y - 2) : 0U) << x << ", " << y;
        }
    }
}

TEST(NSImage, DrawsAPartWithoutItsNeighbours)
{
    auto const image = imageOfColor({ 9, 9 }, colors::red);
    {
        FocusLock const focus(image);
        NSColor::blueColor()->set();
        NSRectFill({ 3, 3, 3, 3 });
    }
    for (auto const interpolation :
        { NSImageInterpolationDefault, NSImageInterpolationNone, NSImageInterpolationLow, NSImageInterpolationHigh }) {
        for (float const scale : { 1.0F, 2.0F }) {
            auto const bitmap = renderBitmap({ 60, 40 }, scale, [&] {
                NSGraphicsContext::currentContext()->setImageInterpolation(interpolation);
                image->drawInRect({ 1, 1, 31, 17 }, { 3, 3, 3, 3 }, NSCompositeSourceOver, 1);
                image->drawInRect({ 40, 20, 2, 2 }, { 3, 3, 3, 3 }, NSCompositeSourceOver, 1);
            });
            int const blue = countPixels(bitmap, colors::blue);
            EXPECT_EQ(blue, static_cast<int>((31 * 17 + 4) * scale * scale)) << interpolation << " at " << scale;
            EXPECT_EQ(countPixels(bitmap, [](std::uint32_t pixel) { return (pixel >> 16U & 255U) > 0; }), 0);
        }
    }
}

TEST(NSImage, DrawsAPartThatReachesBeyondItInProportion)
{
    auto const image = imageOfColor({ 4, 4 }, colors::red);
    auto const bitmap = renderBitmap({ 20, 20 }, 1, [&] {
        image->drawInRect({ 0, 0, 16, 16 }, { -2, -2, 8, 8 }, NSCompositeSourceOver, 1);
    });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 4, 8, 8, 8 }));
}

TEST(NSImage, DrawsNothingIntoAnEmptyOrTurnedInsideOutRectangle)
{
    auto const image = imageOfColor({ 4, 4 }, colors::red);
    auto const bitmap = renderBitmap({ 20, 20 }, 1, [&] {
        image->drawInRect({ 5, 5, 0, 4 }, {}, NSCompositeSourceOver, 1);
        image->drawInRect({ 10, 5, -5, 4 }, {}, NSCompositeSourceOver, 1);
        image->drawInRect({ 5, 10, 4, -4 }, {}, NSCompositeCopy, 1);
        image->drawInRect({ 5, 5, 4, 4 }, { 100, 100, 4, 4 }, NSCompositeSourceOver, 1);
    });
    EXPECT_FALSE(hasInk(bitmap, { 0, 0, 20, 20 }, colors::clear));
}

TEST(NSImage, ChoosesTheRepresentationThatFitsThePixels)
{
    auto const image = make<NSImage>();
    image->addRepresentation(bitmapOfColor(4, 4, colors::red));
    auto const doubled = bitmapOfColor(8, 8, colors::blue);
    doubled->setSize({ 4, 4 });
    image->addRepresentation(doubled);
    EXPECT_EQ(image->size(), (Size { 4, 4 }));
    auto const draw = [&] { image->drawInRect({ 0, 0, 4, 4 }, {}, NSCompositeSourceOver, 1); };
    EXPECT_TRUE(areaNear(renderBitmap({ 4, 4 }, 1, draw), { 0, 0, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(renderBitmap({ 4, 4 }, 2, draw), { 0, 0, 8, 8 }, colors::blue));
    EXPECT_TRUE(areaNear(renderBitmap({ 4, 4 }, 3, draw), { 0, 0, 12, 12 }, colors::blue));
    image->removeRepresentation(*doubled);
    EXPECT_TRUE(areaNear(renderBitmap({ 4, 4 }, 2, draw), { 0, 0, 8, 8 }, colors::red));
}

TEST(NSImage, ScalesItsRepresentationsOnlyWhenAsked)
{
    auto const image = make<NSImage>();
    image->addRepresentation(bitmapOfColor(4, 4, colors::red));
    image->setSize({ 8, 8 });
    auto const draw = [&] { image->drawInRect({ 0, 0, 8, 8 }, {}, NSCompositeSourceOver, 1); };
    EXPECT_EQ(inkBounds(renderBitmap({ 8, 8 }, 1, draw), colors::clear), (PixelRect { 0, 4, 4, 4 }));
    image->setScalesWhenResized(true);
    EXPECT_TRUE(areaNear(renderBitmap({ 8, 8 }, 1, draw), { 0, 0, 8, 8 }, colors::red));
}

TEST(NSImage, CompositesToAPointUprightUnderEveryTransform)
{
    auto const image = imageOfDistinctPixels(3, 2);
    auto const expectAt = [&](NSBitmapImageRep const& bitmap, int left, int top) {
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 3; ++x)
                EXPECT_EQ(bitmap.pixelAtX(left + x, top + y), distinctPixel(x, y));
        }
    };
    auto const plain = renderBitmap({ 12, 12 }, 1, [&] { image->compositeToPoint({ 2, 3 }, NSCompositeSourceOver); });
    expectAt(*plain, 2, 7);
    auto const flipped = renderBitmap({ 12, 12 }, 1, [&] {
        NSGraphicsContext::currentContext()->concat(AffineTransform::mirror({ 0, 0, 12, 12 }));
        image->compositeToPoint({ 2, 9 }, NSCompositeSourceOver);
    });
    expectAt(*flipped, 2, 7);
    auto const scaled = renderBitmap({ 12, 12 }, 1, [&] {
        NSGraphicsContext::currentContext()->scaleBy(2, 2);
        image->compositeToPoint({ 1, 1.5F }, NSCompositeSourceOver);
    });
    expectAt(*scaled, 2, 7);
    EXPECT_EQ(countPixels(scaled, [](std::uint32_t pixel) { return pixel != 0; }), 6);
}

TEST(NSImage, CompositesAPartAndAFraction)
{
    auto const image = imageOfColor({ 6, 6 }, colors::red);
    auto const bitmap = renderBitmap({ 12, 12 }, 1, [&] {
        image->compositeToPoint({ 0, 0 }, { 1, 1, 3, 2 }, NSCompositeSourceOver, 0.5F);
        image->dissolveToPoint({ 6, 0 }, { 0, 0, 2, 2 }, 0.25F);
        image->dissolveToPoint({ 6, 6 }, 0.25F);
    });
    EXPECT_EQ(countPixels(bitmap, { 1, 0, 0, 0.5F }), 6);
    EXPECT_EQ(countPixels(bitmap, { 1, 0, 0, 0.25F }), 4 + 36);
}

// The rows of an image land in user space as they lie; a flipped image turns what is drawn into it, or its representations, so that
// they are upright in a flipped view.
TEST(NSImage, IsUprightInAViewThatIsFlippedAsItIs)
{
    for (bool const imageIsFlipped : { false, true }) {
        for (bool const viewIsFlipped : { false, true }) {
            auto const image = make<NSImage>();
            image->addRepresentation(bitmapOfDistinctPixels(3, 2));
            image->setFlipped(imageIsFlipped);
            auto const bitmap = renderBitmap({ 3, 2 }, 1, [&] {
                if (viewIsFlipped)
                    NSGraphicsContext::currentContext()->concat(AffineTransform::mirror({ 0, 0, 3, 2 }));
                image->drawInRect({ 0, 0, 3, 2 }, {}, NSCompositeSourceOver, 1);
            });
            bool const isUpright = imageIsFlipped == viewIsFlipped;
            EXPECT_EQ(bitmap->pixelAtX(0, 0), distinctPixel(0, isUpright ? 0 : 1)) << imageIsFlipped << viewIsFlipped;
            EXPECT_EQ(bitmap->pixelAtX(2, 1), distinctPixel(2, isUpright ? 1 : 0)) << imageIsFlipped << viewIsFlipped;
        }
    }
}

TEST(NSImage, DrawnIntoFlippedShowsTheSameInAFlippedView)
{
    auto const image = make<NSImage>(Size { 2, 8 });
    image->setFlipped(true);
    image->recache();
    {
        FocusLock const focus(image);
        EXPECT_TRUE(NSGraphicsContext::currentContext()->isFlipped());
        NSColor::redColor()->set();
        NSRectFill({ 0, 6, 2, 2 }); // the greatest y
    }
    auto const bitmap = renderBitmap({ 2, 8 }, 1, [&] {
        NSGraphicsContext::currentContext()->concat(AffineTransform::mirror({ 0, 0, 2, 8 }));
        image->drawInRect({ 0, 0, 2, 8 }, {}, NSCompositeSourceOver, 1);
    });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 0, 0, 2, 2 }));
    EXPECT_EQ(inkBounds(image, colors::clear), (PixelRect { 0, 6, 2, 2 }));
}

TEST(NSImage, CopiesAreIndependentOfEachOther)
{
    auto const image = imageOfColor({ 4, 4 }, colors::red);
    auto const copy = image->copy();
    EXPECT_EQ(copy->contentStamp(), image->contentStamp());
    {
        FocusLock const focus(copy);
        auto const third = copy->copy();
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 4, 4 });
        EXPECT_TRUE(areaNear(third, { 0, 0, 4, 4 }, colors::red));
    }
    EXPECT_TRUE(areaNear(image, { 0, 0, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(copy, { 0, 0, 4, 4 }, colors::blue));
    EXPECT_NE(copy->contentStamp(), image->contentStamp());
}

TEST(NSImage, DropsWhatWasDrawnOverItsRepresentationsWhenItRecaches)
{
    auto const image = make<NSImage>();
    image->addRepresentation(bitmapOfColor(4, 4, colors::red));
    {
        FocusLock const focus(image);
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 4, 4 });
    }
    EXPECT_TRUE(areaNear(image, { 0, 0, 4, 4 }, colors::blue));
    image->recache();
    EXPECT_TRUE(areaNear(image, { 0, 0, 4, 4 }, colors::red));
    auto const drawn = imageOfColor({ 4, 4 }, colors::green);
    drawn->recache();
    EXPECT_TRUE(areaNear(drawn, { 0, 0, 4, 4 }, colors::green));
}

TEST(NSImage, HasABackground)
{
    auto const image = imageOfColor({ 4, 4 }, { 1, 0, 0, 0.5F });
    image->setBackgroundColor(NSColor::whiteColor());
    EXPECT_TRUE(areaNear(renderBitmap({ 4, 4 }, 1, [&] { image->drawAtPoint({}, {}, NSCompositeSourceOver, 1); }), { 0, 0, 4, 4 },
        { 1, 0.5F, 0.5F, 1 }));
}

TEST(NSImage, RepeatsAsAPatternFromTheLowerLeftCorner)
{
    auto const image = imageOfDistinctPixels(3, 2);
    auto const bitmap = renderBitmap({ 8, 8 }, 1, [&] {
        auto const context = NSGraphicsContext::currentContext();
        NSColor::colorWithPatternImage(image)->set();
        GraphicsState const saved;
        context->translateBy(1, 1); // the pattern does not move with the transform
        NSRectFill({ -1, -1, 8, 4 });
        context->setPatternPhase({ 1, 0 });
        NSRectFill({ -1, 3, 8, 4 });
    });
    for (int x = 0; x < 8; ++x) {
        EXPECT_EQ(bitmap->pixelAtX(x, 7), distinctPixel(x % 3, 1));
        EXPECT_EQ(bitmap->pixelAtX(x, 6), distinctPixel(x % 3, 0));
        EXPECT_EQ(bitmap->pixelAtX(x, 0), distinctPixel((x + 2) % 3, 0));
    }
}

/// Draws with and without what rules the short way out, which is to look the same.
Ref<NSBitmapImageRep> tiledPicture(NSImage& tile, Point phase, Rect area, NSCompositingOperation operation)
{
    return renderBitmap({ 40, 12 }, 1, [&] {
        auto const context = NSGraphicsContext::currentContext();
        NSColor::colorWithPatternImage(Ref<NSImage>(&tile))->set();
        context->setPatternPhase(phase);
        NSRectClip({ 1, 1, 37, 10 });
        NSRectFillUsingOperation(area, operation);
    });
}

TEST(NSImage, TilesFromAnyPhaseIntoAnyPlace)
{
    for (auto const size : { Size { 1, 1 }, Size { 3, 2 }, Size { 7, 5 }, Size { 64, 31 } }) {
        auto const tile = imageOfDistinctPixels(static_cast<int>(size.width), static_cast<int>(size.height));
        for (auto const phase : { Point {}, Point { 1, 0 }, Point { -2, 3 }, Point { 100, -77 }, Point { 0.5F, 0 } }) {
            for (auto const area : { Rect { 0, 0, 40, 12 }, Rect { 5, 3, 1, 1 }, Rect { 5, 3, 4, 2 }, Rect { -20, -20, 90, 90 } }) {
                auto const direct = tiledPicture(*tile, phase, area, NSCompositeCopy);
                auto const composited = tiledPicture(*tile, phase, area, NSCompositeSourceOver);
                for (int i = 0; i < 40 * 12; ++i) {
                    ASSERT_EQ(direct->pixelAtX(i % 40, i / 40), composited->pixelAtX(i % 40, i / 40))
                        << size.width << " " << phase.x << " " << area.x << " " << i;
                }
            }
        }
    }
}

TEST(NSImage, KeepsItsNameAndIsFoundByIt)
{
    auto const image = imageOfColor({ 4, 4 }, colors::red);
    auto const other = imageOfColor({ 4, 4 }, colors::red);
    EXPECT_TRUE(image->setName("a name of its own"));
    EXPECT_FALSE(other->setName("a name of its own"));
    EXPECT_EQ(NSImage::imageNamed("a name of its own"), image);
    EXPECT_TRUE(image->setName(""));
    EXPECT_EQ(NSImage::imageNamed("a name of its own"), nullptr);
    EXPECT_TRUE(other->setName("a name of its own"));
    other->setName("");
}

TEST(NSImage, IsFoundInResourceFoldersWithItsDoubledPixels)
{
    TestFolder const folder;
    writePNG(bitmapOfColor(4, 4, colors::red), folder / "lamp.png");
    writePNG(bitmapOfColor(8, 8, colors::blue), folder / "lamp@2x.png");
    writePNG(bitmapOfColor(6, 6, colors::green), folder / "tree@2x.png");
    NSImage::addResourceFolder(folder.path());
    auto const image = NSImage::imageNamed("lamp");
    ASSERT_TRUE(image);
    EXPECT_EQ(NSImage::imageNamed("lamp"), image);
    EXPECT_EQ(image->size(), (Size { 4, 4 }));
    EXPECT_EQ(image->representations().size(), 2U);
    EXPECT_EQ(image->bestRepresentationForScale(2)->pixelsWide(), 8);
    EXPECT_EQ(image->bestRepresentationForScale(2)->size(), (Size { 4, 4 }));
    EXPECT_EQ(NSImage::imageNamed("tree.png")->size(), (Size { 3, 3 }));
    EXPECT_EQ(NSImage::imageNamed("no such image"), nullptr);
    EXPECT_EQ(NSImage::imageNamed(""), nullptr);
    NSImage::imageNamed("lamp")->setName("");
    NSImage::imageNamed("tree.png")->setName("");
}

}
}
