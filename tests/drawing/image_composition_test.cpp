#include <plix/drawing/image_composition.h>

#include <plix/drawing/geometry_helpers.h>
#include <plix/drawing/image_plans.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <cmath>

namespace plix {
namespace {

struct BackingScale {
    explicit BackingScale(float scale) { NSImage::setDefaultBackingScale(scale); }
    ~BackingScale() { NSImage::setDefaultBackingScale(1); }
};

/// Where a place of the result comes from in the source, by the plan; nothing where no piece covers it or a piece is stretched.
bool unstretchedSource(Size source, Size target, int x, int y, int& fromX, int& fromY)
{
    for (auto const& piece : nineSlicePlan(source, target)) {
        auto const& to = piece.destination;
        float const up = target.height - static_cast<float>(y) - 0.5F;
        if (!NSPointInRect({ static_cast<float>(x) + 0.5F, up }, to) || to.size() != piece.source.size())
            continue;
        fromX = static_cast<int>(piece.source.x + static_cast<float>(x) - to.x);
        fromY = static_cast<int>(std::lround(source.height - (piece.source.y + up - to.y) - 0.5F));
        return true;
    }
    return false;
}

TEST(PLIXStretchedImageOverImage, TakesEveryUnstretchedPixelFromItsPlace)
{
    int checked = 0;
    for (auto const& source : { Size { 30, 30 }, Size { 31, 32 }, Size { 12, 9 } }) {
        for (auto const& target : { Size { 100, 40 }, Size { 31, 32 }, Size { 40, 60 } }) {
            auto const image = imageOfDistinctPixels(static_cast<int>(source.width), static_cast<int>(source.height));
            auto const stretched = PLIXStretchedImageOverImage(image, make<NSImage>(target));
            ASSERT_EQ(stretched->size(), target);
            auto const bitmap = stretched->bitmapAtScale(1);
            for (int y = 0; y < bitmap->pixelsHigh(); ++y) {
                for (int x = 0; x < bitmap->pixelsWide(); ++x) {
                    int fromX = 0;
                    int fromY = 0;
                    if (!unstretchedSource(source, target, x, y, fromX, fromY))
                        continue;
                    ++checked;
                    ASSERT_EQ(bitmap->pixelAtX(x, y), distinctPixel(fromX, fromY)) << x << ", " << y;
                }
            }
        }
    }
    EXPECT_GT(checked, 2500);
}

TEST(PLIXStretchedImageOverImage, StretchesEdgesAndCentreFromTheirOwnPixelsAlone)
{
    // Each ninth has a colour of its own; what shows elsewhere has bled.
    auto const image = make<NSImage>(Size { 30, 30 });
    auto const ninth = [](int column, int row) {
        return ColorComponents { static_cast<float>(column) / 2, static_cast<float>(row) / 2, 0.5F, 1 };
    };
    {
        FocusLock const focus(image);
        for (int column = 0; column < 3; ++column) {
            for (int row = 0; row < 3; ++row) {
                auto const color = ninth(column, row);
                NSColor::colorWithCalibratedRed(color.red, color.green, color.blue, 1)->set();
                NSRectFill({ static_cast<float>(column * 10), static_cast<float>(row * 10), 10, 10 });
            }
        }
    }
    auto const bitmap = PLIXStretchedImageOverImage(image, make<NSImage>(Size { 100, 40 }))->bitmapAtScale(1);
    int const columns[] { 0, 10, 90, 100 };
    int const rows[] { 40, 30, 10, 0 };
    for (int column = 0; column < 3; ++column) {
        for (int row = 0; row < 3; ++row) {
            PixelRect const area { columns[column], rows[row + 1], columns[column + 1] - columns[column],
                rows[row] - rows[row + 1] };
            EXPECT_TRUE(areaNear(bitmap, area, ninth(column, row)));
        }
    }
}

TEST(PLIXStretchedImageOverImage, ShrinksAnImageThatIsLargerFirst)
{
    auto const image = imageOfColor({ 200, 50 }, colors::red);
    auto const stretched = PLIXStretchedImageOverImage(image, make<NSImage>(Size { 100, 100 }));
    EXPECT_EQ(stretched->size(), (Size { 100, 100 }));
    // Shrunk to 100 x 25: thirds of 33 and 8, so the rightmost column of the target lies over the third third.
    EXPECT_TRUE(areaNear(stretched, { 0, 0, 100, 100 }, colors::red));
}

TEST(PLIXStretchedImageOverImage, DrawsNoPieceThatIsTurnedInsideOut)
{
    auto const image = imageOfColor({ 30, 9 }, colors::red);
    auto const target = make<NSImage>(Size { 15, 40 });
    auto const stretched = PLIXStretchedImageOverImage(image, target);
    EXPECT_EQ(stretched->size(), (Size { 15, 40 }));
    // Shrunk to 15 x 4, with corners of 5 x 1.
    EXPECT_TRUE(areaNear(stretched, { 0, 0, 15, 40 }, colors::red));
    auto const tiny = PLIXStretchedImageOverImage(imageOfColor({ 2, 2 }, colors::red), target);
    EXPECT_FALSE(hasInk(tiny, { 0, 0, 15, 40 }, colors::clear));
}

TEST(PLIXStretchedImageOverImage, IsNullWhereEitherImageIs)
{
    auto const image = imageOfColor({ 3, 3 }, colors::red);
    EXPECT_EQ(PLIXStretchedImageOverImage(nullptr, image), nullptr);
    EXPECT_EQ(PLIXStretchedImageOverImage(image, nullptr), nullptr);
    EXPECT_EQ(PLIXStretchImageOverImage(nullptr, image), nullptr);
    EXPECT_EQ(PLIXStretchImageOverImage(image, nullptr), nullptr);
}

TEST(PLIXStretchedImageOverImage, UsesOnlyTheSizeOfTheTarget)
{
    auto const image = imageOfColor({ 9, 9 }, { 1, 0, 0, 0.5F });
    auto const plain = PLIXStretchedImageOverImage(image, make<NSImage>(Size { 20, 20 }));
    auto const filled = PLIXStretchedImageOverImage(image, imageOfColor({ 20, 20 }, colors::blue));
    EXPECT_EQ(countDifferences(plain, filled, 0), 0);
    EXPECT_TRUE(areaNear(filled, { 0, 0, 20, 20 }, { 1, 0, 0, 0.5F }));
}

TEST(PLIXStretchedImageOverImage, IsMadeOfDoubledPixelsAtADoubledScale)
{
    BackingScale const scale(2);
    auto const image = make<NSImage>();
    auto const rep = bitmapOfDistinctPixels(18, 18);
    rep->setSize({ 9, 9 });
    image->addRepresentation(rep);
    auto const bitmap = PLIXStretchedImageOverImage(image, make<NSImage>(Size { 20, 20 }))->bitmapAtScale(2);
    EXPECT_EQ(bitmap->pixelsWide(), 40);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(bitmap->pixelAtX(i, i), distinctPixel(i, i));
        EXPECT_EQ(bitmap->pixelAtX(39 - i, 39 - i), distinctPixel(17 - i, 17 - i));
    }
}

TEST(PLIXStretchImageOverImage, DrawsTheStretchedImageOverTheTarget)
{
    auto const image = imageOfColor({ 9, 9 }, { 1, 0, 0, 0.5F });
    auto const target = imageOfColor({ 20, 12 }, colors::white);
    auto const result = PLIXStretchImageOverImage(image, target);
    EXPECT_EQ(result->size(), (Size { 20, 12 }));
    EXPECT_TRUE(areaNear(result, { 0, 0, 20, 12 }, { 1, 0.5F, 0.5F, 1 }));
    EXPECT_TRUE(areaNear(target, { 0, 0, 20, 12 }, colors::white));
}

TEST(BadgedImage, PlacesTheBadgeAtEachAlignment)
{
    auto const image = imageOfColor({ 30, 20 }, colors::white);
    auto const badge = imageOfColor({ 6, 4 }, colors::red);
    int const lefts[] { 0, 12, 24 };
    int const tops[] { 0, 8, 16 };
    for (int alignment = 0; alignment < 9; ++alignment) {
        auto const badged = badgedImage(image, badge, alignment);
        EXPECT_EQ(badged->size(), image->size());
        EXPECT_EQ(inkBounds(badged, colors::white), (PixelRect { lefts[alignment % 3], tops[alignment / 3], 6, 4 })) << alignment;
    }
    EXPECT_EQ(inkBounds(badgedImage(image, badge, 9), colors::white), (PixelRect { 0, 16, 6, 4 }));
    EXPECT_EQ(inkBounds(badgedImage(image, badge, -1), colors::white), (PixelRect { 0, 16, 6, 4 }));
}

TEST(BadgedImage, KeepsTheBadgesSizeAndCutsOffWhatLiesOutside)
{
    auto const image = imageOfColor({ 10, 10 }, colors::white);
    auto const badge = imageOfDistinctPixels(14, 4);
    auto const badged = badgedImage(image, badge, PLIXAlignBottomCenter);
    auto const bitmap = badged->bitmapAtScale(1);
    EXPECT_EQ(bitmap->pixelsWide(), 10);
    for (int x = 0; x < 10; ++x)
        EXPECT_EQ(bitmap->pixelAtX(x, 6), distinctPixel(x + 2, 0));
}

TEST(BadgedImage, TakesMissingImagesForEmptyOnes)
{
    auto const image = imageOfColor({ 10, 10 }, colors::red);
    EXPECT_EQ(badgedImage(nullptr, image, 0)->size(), Size {});
    EXPECT_TRUE(areaNear(badgedImage(image, nullptr, 0), { 0, 0, 10, 10 }, colors::red));
}

TEST(ReplaceColorsInImage, PaintsTheSilhouette)
{
    auto const image = make<NSImage>(Size { 10, 10 });
    {
        FocusLock const focus(image);
        NSColor::blackColor()->set();
        NSRectFill({ 2, 2, 4, 4 });
        NSColor::colorWithCalibratedWhite(0.3F, 0.5F)->set();
        NSRectFill({ 6, 2, 2, 4 });
    }
    auto const red = ReplaceColorsInImage(image, NSColor::redColor());
    EXPECT_EQ(red->size(), image->size());
    EXPECT_TRUE(areaNear(red, { 2, 4, 4, 4 }, colors::red));
    EXPECT_TRUE(areaNear(red, { 6, 4, 2, 4 }, { 1, 0, 0, 0.5F }));
    EXPECT_EQ(countPixels(red, colors::clear), 100 - 24);
    EXPECT_TRUE(areaNear(image, { 2, 4, 4, 4 }, colors::black));
}

TEST(ReplaceColorsInImage, LetsTheImageShowThroughATranslucentColor)
{
    auto const image = imageOfColor({ 4, 4 }, { 0, 0, 1, 0.6F });
    auto const result = ReplaceColorsInImage(image, NSColor::colorWithCalibratedRed(1, 0, 0, 0.25F));
    // R = S (1 - aD) + D aS, premultiplied: blue 0.6 * 0.75, red 0.25 * 0.6, alpha 0.6.
    EXPECT_TRUE(areaNear(result, { 0, 0, 4, 4 }, { 0.25F, 0, 0.75F, 0.6F }));
}

TEST(ReplaceColorsInImage, AgreesWithDestinationAtopDrawnStepByStep)
{
    auto const image = make<NSImage>(Size { 16, 16 });
    {
        FocusLock const focus(image);
        for (int i = 0; i < 16; ++i) {
            NSColor::colorWithCalibratedHue(static_cast<float>(i) / 16, 1, 1, static_cast<float>(i) / 15)->set();
            NSRectFill({ static_cast<float>(i), 0, 1, 16 });
        }
    }
    for (float const alpha : { 0.0F, 0.3F, 1.0F }) {
        auto const color = NSColor::colorWithCalibratedRed(0.2F, 0.7F, 0.9F, alpha);
        auto const stepwise = make<NSImage>(Size { 16, 16 });
        {
            FocusLock const focus(stepwise);
            color->set();
            NSRectFill({ 0, 0, 16, 16 });
            image->compositeToPoint({}, NSCompositeDestinationAtop);
        }
        EXPECT_EQ(countDifferences(ReplaceColorsInImage(image, color), stepwise, 1.0F / 255), 0) << alpha;
    }
}

TEST(ReplaceColorsInImage, TakesPatternsToo)
{
    auto const pattern = NSColor::colorWithPatternImage(imageOfColor({ 2, 2 }, colors::green));
    auto const result = ReplaceColorsInImage(imageOfColor({ 6, 6 }, { 0, 0, 0, 0.5F }), pattern);
    EXPECT_TRUE(areaNear(result, { 0, 0, 6, 6 }, { 0, 1, 0, 0.5F }));
}

TEST(ReplaceColorsInImage, IsNullWithoutImageOrColor)
{
    EXPECT_EQ(ReplaceColorsInImage(nullptr, NSColor::redColor()), nullptr);
    EXPECT_EQ(ReplaceColorsInImage(imageOfColor({ 2, 2 }, colors::red), nullptr), nullptr);
    EXPECT_EQ(ReplaceColorsInImage(make<NSImage>(Size {}), NSColor::redColor())->size(), Size {});
}

TEST(ImageByCompositingImages, FitsAndCentersEachOverTheFirst)
{
    auto const ground = imageOfColor({ 40, 20 }, colors::white);
    auto const tall = imageOfColor({ 5, 10 }, colors::red);
    auto const small = imageOfColor({ 2, 2 }, { 0, 0, 1, 0.5F });
    auto const composed = imageByCompositingImages(std::vector { ground, tall, small });
    EXPECT_EQ(composed->size(), (Size { 40, 20 }));
    EXPECT_TRUE(areaNear(composed, { 0, 0, 10, 20 }, colors::white));
    EXPECT_TRUE(areaNear(composed, { 10, 0, 5, 20 }, { 0.5F, 0.5F, 1, 1 }));
    EXPECT_TRUE(areaNear(composed, { 15, 0, 10, 20 }, { 0.5F, 0, 0.5F, 1 }));
    EXPECT_TRUE(areaNear(composed, { 30, 0, 10, 20 }, colors::white));
}

TEST(ImageByCompositingImages, OfASingleImageIsACopy)
{
    auto const image = imageOfDistinctPixels(7, 5);
    auto const composed = imageByCompositingImages(std::vector { image });
    EXPECT_NE(composed, image);
    EXPECT_EQ(countDifferences(composed, image, 0), 0);
}

TEST(ImageByCompositingImages, IsNullForWhatIsNoArrayOfImages)
{
    auto const image = imageOfColor({ 2, 2 }, colors::red);
    EXPECT_EQ(imageByCompositingImages(ObjectValue {}), nullptr);
    EXPECT_EQ(imageByCompositingImages(ObjectValue("images")), nullptr);
    EXPECT_EQ(imageByCompositingImages(ObjectValue(Ref<NSObject>(image))), nullptr);
    EXPECT_EQ(imageByCompositingImages(ObjectValue(ObjectValue::Array {})), nullptr);
    EXPECT_EQ(imageByCompositingImages(std::vector<Ref<NSImage>> {}), nullptr);
    EXPECT_TRUE(imageByCompositingImages(ObjectValue(ObjectValue::Array { ObjectValue(Ref<NSObject>(image)) })));
}

TEST(SharedResults, ShareThePixelsOfAnEarlierResultOfTheSameSources)
{
    auto const image = imageOfColor({ 9, 9 }, colors::red);
    auto const target = make<NSImage>(Size { 20, 20 });
    auto const first = PLIXStretchedImageOverImage(image, target);
    auto const second = PLIXStretchedImageOverImage(image, target);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->bitmapAtScale(1)->contentStamp(), second->bitmapAtScale(1)->contentStamp());
    EXPECT_EQ(first->bitmapAtScale(1)->pixels().pixels, second->bitmapAtScale(1)->pixels().pixels);
}

TEST(SharedResults, DrawingIntoOneShowsInNoOther)
{
    auto const image = imageOfColor({ 9, 9 }, colors::red);
    auto const first = ReplaceColorsInImage(image, NSColor::greenColor());
    auto const second = ReplaceColorsInImage(image, NSColor::greenColor());
    {
        FocusLock const focus(first);
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 9, 9 });
    }
    auto const third = ReplaceColorsInImage(image, NSColor::greenColor());
    EXPECT_TRUE(areaNear(first, { 0, 0, 9, 9 }, colors::blue));
    EXPECT_TRUE(areaNear(second, { 0, 0, 9, 9 }, colors::green));
    EXPECT_TRUE(areaNear(third, { 0, 0, 9, 9 }, colors::green));
}

TEST(SharedResults, AreMadeAnewWhenASourceWasDrawnInto)
{
    auto const image = imageOfColor({ 9, 9 }, colors::red);
    auto const target = make<NSImage>(Size { 20, 20 });
    auto const before = PLIXStretchedImageOverImage(image, target);
    {
        FocusLock const focus(image);
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 9, 9 });
    }
    auto const after = PLIXStretchedImageOverImage(image, target);
    EXPECT_TRUE(areaNear(before, { 0, 0, 20, 20 }, colors::red));
    EXPECT_TRUE(areaNear(after, { 0, 0, 20, 20 }, colors::blue));
}

TEST(SharedResults, TellEveryParameterApart)
{
    auto const image = imageOfColor({ 9, 9 }, colors::red);
    auto const badge = imageOfColor({ 3, 3 }, colors::blue);
    EXPECT_NE(countDifferences(badgedImage(image, badge, 0), badgedImage(image, badge, 8)), 0);
    EXPECT_NE(countDifferences(badgedImage(image, badge, 0), badgedImage(badge, image, 0)), 0);
    EXPECT_EQ(PLIXStretchedImageOverImage(image, make<NSImage>(Size { 20, 21 }))->size(), (Size { 20, 21 }));
    EXPECT_EQ(PLIXStretchedImageOverImage(image, make<NSImage>(Size { 21, 20 }))->size(), (Size { 21, 20 }));
    auto const forwards = imageByCompositingImages(std::vector { image, badge, imageOfColor({ 9, 9 }, colors::green) });
    EXPECT_TRUE(pixelNear(forwards, 4, 4, colors::green));
    auto const backwards = imageByCompositingImages(std::vector { image, imageOfColor({ 9, 9 }, colors::green), badge });
    EXPECT_TRUE(pixelNear(backwards, 4, 4, colors::blue));
    auto const single = ReplaceColorsInImage(image, NSColor::greenColor());
    BackingScale const scale(2);
    EXPECT_EQ(ReplaceColorsInImage(image, NSColor::greenColor())->representations().front()->pixelsWide(), 18);
    EXPECT_EQ(single->representations().front()->pixelsWide(), 9);
}

}
}
