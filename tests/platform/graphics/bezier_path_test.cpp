#include <plix/platform/graphics/NSBezierPath.h>

#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSAffineTransform.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/pixels.h>

namespace plix {
namespace {

TEST(NSBezierPath, FillsByItsWindingRule)
{
    auto const bitmap = renderBitmap({ 40, 20 }, 1, [] {
        NSColor::blackColor()->set();
        auto path = NSBezierPath::bezierPath();
        path->appendBezierPathWithRect({ 0, 0, 20, 20 });
        path->appendBezierPathWithRect({ 5, 5, 10, 10 });
        path->fill();
        auto const shift = NSAffineTransform::transform();
        shift->translateXBy(20, 0);
        path->transformUsingAffineTransform(*shift);
        path->setWindingRule(NSEvenOddWindingRule);
        path->fill();
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 20, 20 }, colors::black));
    EXPECT_TRUE(areaNear(bitmap, { 25, 5, 10, 10 }, colors::clear));
    EXPECT_TRUE(areaNear(bitmap, { 20, 0, 5, 20 }, colors::black));
}

TEST(NSBezierPath, StrokesAroundItsLine)
{
    auto const bitmap = renderBitmap({ 20, 20 }, 1, [] {
        NSColor::blackColor()->set();
        auto path = NSBezierPath::bezierPathWithRect({ 5, 5, 10, 10 });
        path->setLineWidth(2);
        path->stroke();
    });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 4, 4, 12, 12 }));
    EXPECT_TRUE(areaNear(bitmap, { 6, 6, 8, 8 }, colors::clear));
    EXPECT_EQ(countPixels(bitmap, colors::black), 144 - 64);
}

TEST(NSBezierPath, BlursAnOddLineOnWholeCoordinatesAndIsCrispBetweenThem)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 1, [] {
        NSColor::blackColor()->set();
        NSBezierPath::strokeLineFromPoint({ 0, 2 }, { 10, 2 });
        NSBezierPath::strokeLineFromPoint({ 0, 6.5F }, { 10, 6.5F });
    });
    EXPECT_TRUE(areaNear(bitmap, { 0, 7, 10, 2 }, { 0, 0, 0, 0.5F }));
    EXPECT_TRUE(areaNear(bitmap, { 0, 3, 10, 1 }, colors::black));
}

TEST(NSBezierPath, CapsAndJoinsAsItsStyleSays)
{
    struct Row {
        NSLineCapStyle cap;
        PixelRect ink;
    };
    Row const rows[] { { NSButtLineCapStyle, { 6, 8, 8, 4 } }, { NSSquareLineCapStyle, { 4, 8, 12, 4 } },
        { NSRoundLineCapStyle, { 4, 8, 12, 4 } } };
    for (auto const& row : rows) {
        auto const bitmap = renderBitmap({ 20, 20 }, 1, [&] {
            NSColor::blackColor()->set();
            auto path = NSBezierPath::bezierPath();
            path->moveToPoint({ 6, 10 });
            path->lineToPoint({ 14, 10 });
            path->setLineWidth(4);
            path->setLineCapStyle(row.cap);
            path->stroke();
        });
        EXPECT_EQ(inkBounds(bitmap, colors::clear), row.ink) << row.cap;
        EXPECT_EQ(countPixels(bitmap, { 4, 8, 1, 1 }, colors::black), row.cap == NSSquareLineCapStyle ? 1 : 0);
    }
}

TEST(NSBezierPath, JoinsAsItsStyleSays)
{
    auto const corner = [](NSLineJoinStyle join, float miterLimit) {
        auto const bitmap = renderBitmap({ 20, 20 }, 1, [&] {
            NSColor::blackColor()->set();
            auto path = NSBezierPath::bezierPath();
            path->moveToPoint({ 4, 14 });
            path->lineToPoint({ 14, 14 });
            path->lineToPoint({ 14, 4 });
            path->setLineWidth(4);
            path->setLineJoinStyle(join);
            path->setMiterLimit(miterLimit);
            path->stroke();
        });
        return bitmap->pixelAtX(15, 4) >> 24U;
    };
    EXPECT_EQ(corner(NSMiterLineJoinStyle, 10), 255U);
    EXPECT_EQ(corner(NSMiterLineJoinStyle, 1), corner(NSBevelLineJoinStyle, 10));
    EXPECT_LT(corner(NSBevelLineJoinStyle, 10), corner(NSRoundLineJoinStyle, 10));
    EXPECT_LT(corner(NSRoundLineJoinStyle, 10), 255U);
}

TEST(NSBezierPath, DashesFromItsPhase)
{
    auto const bitmap = renderBitmap({ 20, 6 }, 1, [] {
        NSColor::blackColor()->set();
        auto path = NSBezierPath::bezierPath();
        path->moveToPoint({ 0, 3 });
        path->lineToPoint({ 20, 3 });
        path->setLineWidth(2);
        float const dash[] { 4, 2 };
        path->setLineDash(dash, 1);
        path->stroke();
    });
    for (int x = 0; x < 20; ++x)
        EXPECT_TRUE(pixelNear(bitmap, x, 3, (x + 1) % 6 < 4 ? colors::black : colors::clear));
}

TEST(NSBezierPath, TakesAUselessDashForASolidLine)
{
    for (auto const& dash : { std::vector<float> { 0, 0 }, std::vector<float> { -1, 4 }, std::vector<float> {} }) {
        auto const bitmap = renderBitmap({ 20, 6 }, 1, [&] {
            NSColor::blackColor()->set();
            auto path = NSBezierPath::bezierPath();
            path->moveToPoint({ 0, 3 });
            path->lineToPoint({ 20, 3 });
            path->setLineWidth(2);
            path->setLineDash(dash, 0);
            path->stroke();
        });
        EXPECT_EQ(countPixels(bitmap, colors::black), 40);
    }
}

TEST(NSBezierPath, TakesTheDefaultsOfItsTime)
{
    auto const before = NSBezierPath::bezierPath();
    NSBezierPath::setDefaultLineWidth(3);
    NSBezierPath::setDefaultWindingRule(NSEvenOddWindingRule);
    auto const after = NSBezierPath::bezierPath();
    NSBezierPath::setDefaultLineWidth(1);
    NSBezierPath::setDefaultWindingRule(NSNonZeroWindingRule);
    EXPECT_EQ(before->lineWidth(), 1);
    EXPECT_EQ(after->lineWidth(), 3);
    EXPECT_EQ(after->windingRule(), NSEvenOddWindingRule);
    EXPECT_EQ(after->copy()->lineWidth(), 3);
}

TEST(NSBezierPath, AWidthOfZeroIsTheThinnestLine)
{
    auto const bitmap = renderBitmap({ 10, 10 }, 2, [] {
        NSColor::blackColor()->set();
        auto path = NSBezierPath::bezierPath();
        path->moveToPoint({ 0, 5.25F });
        path->lineToPoint({ 10, 5.25F });
        path->setLineWidth(0);
        path->stroke();
    });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 0, 9, 20, 1 }));
}

TEST(NSBezierPath, BuildsFromRelativeSteps)
{
    auto path = NSBezierPath::bezierPath();
    path->moveToPoint({ 10, 10 });
    path->relativeLineToPoint({ 5, 0 });
    path->relativeCurveToPoint({ 5, 5 }, { 1, 0 }, { 5, 2 });
    path->relativeMoveToPoint({ -1, -1 });
    std::array<Point, 3> points;
    EXPECT_EQ(path->elementAtIndex(2, points), NSCurveToBezierPathElement);
    EXPECT_EQ(points, (std::array<Point, 3> { Point { 16, 10 }, Point { 20, 12 }, Point { 20, 15 } }));
    EXPECT_EQ(path->currentPoint(), (Point { 19, 14 }));
    EXPECT_EQ(path->elementCount(), 4);
}

TEST(NSBezierPath, RaisesForAnElementThatIsNotThere)
{
    auto const path = NSBezierPath::bezierPathWithRect({ 0, 0, 1, 1 });
    EXPECT_THROW(path->elementAtIndex(5), NSRangeException);
    EXPECT_THROW(path->elementAtIndex(-1), NSRangeException);
    EXPECT_THROW(path->setAssociatedPoints({}, 9), NSRangeException);
}

TEST(NSBezierPath, ChangesThePointsOfAnElement)
{
    auto path = NSBezierPath::bezierPathWithRect({ 0, 0, 1, 1 });
    path->setAssociatedPoints({ Point { 9, 9 }, Point { 7, 7 }, Point {} }, 1);
    EXPECT_EQ(path->geometry().elements()[1].points, (std::array<Point, 3> { Point { 9, 9 } }));
}

TEST(NSBezierPath, TransformsAndFlattensIntoNewPaths)
{
    auto const oval = NSBezierPath::bezierPathWithOvalInRect({ 0, 0, 10, 10 });
    auto const grow = NSAffineTransform::transform();
    grow->scaleXBy(2, 3);
    EXPECT_NEAR(grow->transformBezierPath(*oval)->bounds().height, 30, 1e-3);
    EXPECT_NEAR(oval->bounds().height, 10, 1e-3);
    auto const flat = oval->bezierPathByFlatteningPath();
    for (long i = 0; i < flat->elementCount(); ++i)
        EXPECT_NE(flat->elementAtIndex(i), NSCurveToBezierPathElement);
    EXPECT_TRUE(oval->containsPoint({ 5, 9.9F }));
    EXPECT_FALSE(oval->containsPoint({ 1, 9 }));
}

TEST(NSBezierPath, StrokesOnlyTheShapeUnderEveryOperation)
{
    auto const bitmap = renderBitmap(
        { 20, 20 }, 1,
        [] {
            NSColor::clearColor()->set();
            GraphicsState const saved;
            NSGraphicsContext::currentContext()->setCompositingOperation(NSCompositeSourceIn);
            auto path = NSBezierPath::bezierPathWithRect({ 5, 5, 10, 10 });
            path->setLineWidth(2);
            path->stroke();
        },
        colors::blue);
    EXPECT_EQ(countPixels(bitmap, colors::clear), 144 - 64);
    EXPECT_EQ(countPixels(bitmap, colors::blue), 400 - 144 + 64);
}

}
}
