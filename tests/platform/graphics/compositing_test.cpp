#include <plix/platform/graphics/compositing.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace plix {
namespace {

constexpr int operationCount = 14;
constexpr float alphas[] { 0, 0.2F, 0.5F, 0.8F, 1 };

/// Premultiplied red, green, blue, alpha.
using Pixel = std::array<double, 4>;

Pixel premultiplied(ColorComponents const& color)
{
    // As stored: in whole steps of 1/255.
    auto const byte = [](double value) { return std::round(value * 255) / 255; };
    return { byte(color.red * color.alpha), byte(color.green * color.alpha), byte(color.blue * color.alpha), byte(color.alpha) };
}

/// The formulas of the operations, written out once more.
Pixel composited(int operation, Pixel const& s, Pixel const& d)
{
    double const sa = s[3];
    double const da = d[3];
    struct Factors {
        double source;
        double destination;
    };
    Factors const factors[] {
        { 0, 0 },
        { 1, 0 },
        { 1, 1 - sa },
        { da, 0 },
        { 1 - da, 0 },
        { da, 1 - sa },
        { 1 - da, 1 },
        { 0, sa },
        { 0, 1 - sa },
        { 1 - da, sa },
        { 1 - da, 1 - sa },
        { 0, 0 }, // plus darker, below
        { 1, 1 - sa },
        { 1, 1 },
    };
    Pixel result {};
    for (std::size_t i = 0; i < 4; ++i)
        result[i] = std::min(factors[operation].source * s[i] + factors[operation].destination * d[i], 1.0);
    if (operation == NSCompositePlusDarker) {
        result[3] = std::min(sa + da, 1.0);
        for (std::size_t i = 0; i < 3; ++i)
            result[i] = std::max(0.0, result[3] - (sa - s[i]) - (da - d[i]));
    }
    return result;
}

testing::AssertionResult isNear(std::uint32_t pixel, Pixel const& expected, double tolerance = 1.01)
{
    unsigned const shifts[] { 16, 8, 0, 24 };
    for (std::size_t i = 0; i < 4; ++i) {
        double const found = pixel >> shifts[i] & 255U;
        if (std::abs(found - expected[i] * 255) > tolerance)
            return testing::AssertionFailure() << "channel " << i << " is " << found << ", expected " << expected[i] * 255;
    }
    return testing::AssertionSuccess();
}

std::vector<ColorComponents> colorsOfAllAlphas(float red, float green, float blue)
{
    std::vector<ColorComponents> all;
    for (float const alpha : alphas)
        all.push_back({ red, green, blue, alpha });
    return all;
}

Ref<NSColor> color(ColorComponents const& components)
{
    return NSColor::colorWithDeviceRed(components.red, components.green, components.blue, components.alpha);
}

/// Draws a shape with every operation and pair of colours, 3 x 3 points each in a field of 5 x 5, and compares inside and outside.
template <typename Draw> void expectFormulas(Draw draw, double tolerance = 1.01)
{
    for (int operation = 0; operation < operationCount; ++operation) {
        for (auto const& source : colorsOfAllAlphas(0.9F, 0.3F, 0)) {
            for (auto const& destination : colorsOfAllAlphas(0.1F, 0.6F, 1)) {
                auto const bitmap = renderBitmap({ 5, 5 }, 1, [&] {
                    color(destination)->set();
                    NSRectFill({ 0, 0, 5, 5 });
                    draw(static_cast<NSCompositingOperation>(operation), source);
                });
                auto const expected = composited(operation, premultiplied(source), premultiplied(destination));
                ASSERT_TRUE(isNear(bitmap->pixelAtX(2, 2), expected, tolerance))
                    << operation << ": " << source.alpha << " on " << destination.alpha;
                ASSERT_TRUE(isNear(bitmap->pixelAtX(1, 3), expected, tolerance)) << operation;
                ASSERT_TRUE(isNear(bitmap->pixelAtX(0, 0), premultiplied(destination))) << operation << " beyond the shape";
                ASSERT_TRUE(isNear(bitmap->pixelAtX(4, 2), premultiplied(destination))) << operation << " beyond the shape";
            }
        }
    }
}

TEST(NSCompositingOperation, HasThePlatformsNumbers)
{
    EXPECT_EQ(NSCompositeClear, 0);
    EXPECT_EQ(NSCompositeCopy, 1);
    EXPECT_EQ(NSCompositeSourceOver, 2);
    EXPECT_EQ(NSCompositeSourceIn, 3);
    EXPECT_EQ(NSCompositeDestinationAtop, 9);
    EXPECT_EQ(NSCompositePlusLighter, 13);
}

TEST(NSCompositingOperation, FollowsItsFormulaInFilledRectangles)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        color(source)->set();
        NSRectFillUsingOperation({ 1, 1, 3, 3 }, operation);
    });
}

TEST(NSCompositingOperation, FollowsItsFormulaInFilledPaths)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->setCompositingOperation(operation);
        color(source)->set();
        NSBezierPath::bezierPathWithRect({ 1, 1, 3, 3 })->fill();
    });
}

TEST(NSCompositingOperation, FollowsItsFormulaInStrokedPaths)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        GraphicsState const saved;
        NSGraphicsContext::currentContext()->setCompositingOperation(operation);
        color(source)->set();
        auto path = NSBezierPath::bezierPath();
        path->moveToPoint({ 1, 2.5F });
        path->lineToPoint({ 4, 2.5F });
        path->setLineWidth(3);
        path->stroke();
    });
}

TEST(NSCompositingOperation, FollowsItsFormulaInImages)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        auto const image = imageOfColor({ 3, 3 }, source);
        image->drawInRect({ 1, 1, 3, 3 }, {}, operation, 1);
    });
}

TEST(NSCompositingOperation, FollowsItsFormulaInScaledImages)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        auto const image = imageOfColor({ 7, 2 }, source);
        image->drawInRect({ 1, 1, 3, 3 }, { 1, 0, 5, 2 }, operation, 1);
    });
}

TEST(NSCompositingOperation, FollowsItsFormulaInCompositedImages)
{
    expectFormulas([](NSCompositingOperation operation, ColorComponents const& source) {
        imageOfColor({ 3, 3 }, source)->compositeToPoint({ 1, 1 }, operation);
    });
}

TEST(NSCompositingOperation, TakesAFractionAsPartOfTheSource)
{
    expectFormulas(
        [](NSCompositingOperation operation, ColorComponents const& source) {
            // Twice the alpha at half the fraction, where that can be stored.
            if (source.alpha > 0.5F) {
                imageOfColor({ 3, 3 }, source)->drawAtPoint({ 1, 1 }, {}, operation, 1);
                return;
            }
            imageOfColor({ 3, 3 }, { source.red, source.green, source.blue, source.alpha * 2 })
                ->drawAtPoint({ 1, 1 }, {}, operation, 0.5F);
        },
        1.51); // the stored source is rounded once more
}

TEST(NSCompositingOperation, IsBoundedByAClipOfAnyShape)
{
    for (int operation = 0; operation < operationCount; ++operation) {
        auto const image = imageOfColor({ 20, 20 }, { 1, 0, 0, 0.5F });
        auto const bitmap = renderBitmap(
            { 20, 20 }, 1,
            [&] {
                GraphicsState const saved;
                NSBezierPath::bezierPathWithOvalInRect({ 5, 5, 10, 10 })->addClip();
                image->drawInRect({ 0, 0, 20, 20 }, {}, static_cast<NSCompositingOperation>(operation), 1);
            },
            colors::blue);
        auto const expected = composited(operation, premultiplied({ 1, 0, 0, 0.5F }), premultiplied(colors::blue));
        EXPECT_TRUE(isNear(bitmap->pixelAtX(10, 10), expected)) << operation;
        EXPECT_TRUE(pixelNear(bitmap, 3, 3, colors::blue)) << operation;
        EXPECT_TRUE(pixelNear(bitmap, 6, 6, colors::blue, operation == NSCompositeDestinationOver ? pixelTolerance : 0.75F))
            << operation;
    }
}

TEST(NSCompositingOperation, CoversEdgePixelsInPart)
{
    for (int operation = 0; operation < operationCount; ++operation) {
        auto const bitmap = renderBitmap(
            { 6, 6 }, 1,
            [&] {
                GraphicsState const saved;
                NSGraphicsContext::currentContext()->setCompositingOperation(static_cast<NSCompositingOperation>(operation));
                NSColor::colorWithDeviceRed(1, 0, 0, 0.5F)->set();
                NSBezierPath::bezierPathWithRect({ 1, 1, 2.5F, 4 })->fill();
            },
            colors::blue);
        auto const before = premultiplied(colors::blue);
        auto const whole = composited(operation, premultiplied({ 1, 0, 0, 0.5F }), before);
        Pixel half {};
        for (std::size_t i = 0; i < 4; ++i)
            half[i] = (before[i] + whole[i]) / 2;
        EXPECT_TRUE(isNear(bitmap->pixelAtX(3, 3), half)) << operation;
    }
}

}
}
