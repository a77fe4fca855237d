#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

TEST(NSBitmapImageRep, RefusesSizesThatAreNone)
{
    EXPECT_EQ(make<NSBitmapImageRep>(0, 5), nullptr);
    EXPECT_EQ(make<NSBitmapImageRep>(5, -1), nullptr);
    EXPECT_EQ(make<NSBitmapImageRep>(32000, 32000), nullptr);
    EXPECT_EQ(make<NSBitmapImageRep>(2147483647, 2147483647), nullptr);
}

TEST(NSBitmapImageRep, ReadsAndWritesSinglePixels)
{
    auto const rep = make<NSBitmapImageRep>(4, 4);
    rep->setColor(*NSColor::colorWithCalibratedRed(1, 0.5F, 0, 0.5F), 1, 2);
    rep->setColor(*NSColor::redColor(), 4, 0);
    EXPECT_EQ(rep->pixelAtX(1, 2), 0x80804000U);
    auto const color = rep->colorAtX(1, 2);
    EXPECT_NEAR(color->redComponent(), 1, 0.01);
    EXPECT_NEAR(color->greenComponent(), 0.5, 0.01);
    EXPECT_NEAR(color->alphaComponent(), 0.5, 0.01);
    EXPECT_EQ(rep->colorAtX(4, 0), nullptr);
    EXPECT_EQ(rep->colorAtX(0, -1), nullptr);
}

TEST(NSBitmapImageRep, SharesPixelsOnlyUntilTheyAreWritten)
{
    auto const rep = bitmapOfColor(4, 4, colors::red);
    auto const copy = rep->copy();
    EXPECT_EQ(copy->contentStamp(), rep->contentStamp());
    EXPECT_EQ(copy->pixels().pixels, rep->pixels().pixels);
    copy->setColor(*NSColor::blueColor(), 0, 0);
    EXPECT_NE(copy->contentStamp(), rep->contentStamp());
    EXPECT_TRUE(pixelNear(rep, 0, 0, colors::red));
    EXPECT_TRUE(pixelNear(copy, 0, 0, colors::blue));
}

TEST(NSBitmapImageRep, CapturesARectangleOfWhatIsFocused)
{
    Ref<NSBitmapImageRep> capture;
    renderBitmap({ 20, 20 }, 2, [&] {
        NSColor::redColor()->set();
        NSRectFill({ 5, 5, 5, 5 });
        NSGraphicsContext::currentContext()->translateBy(5, 5);
        capture = make<NSBitmapImageRep>(Rect { -1, -2, 4, 6 });
    });
    EXPECT_EQ(capture->size(), (Size { 4, 6 }));
    EXPECT_EQ(capture->pixelsWide(), 8);
    EXPECT_EQ(capture->pixelsHigh(), 12);
    EXPECT_EQ(inkBounds(capture, colors::clear), (PixelRect { 2, 0, 6, 8 }));
}

TEST(NSBitmapImageRep, CapturesClearPixelsBeyondTheEdge)
{
    Ref<NSBitmapImageRep> capture;
    renderBitmap(
        { 4, 4 }, 1,
        [&] {
            capture = make<NSBitmapImageRep>(Rect { 2, 2, 6, 6 });
        },
        colors::red);
    EXPECT_EQ(inkBounds(capture, colors::clear), (PixelRect { 0, 4, 2, 2 }));
    EXPECT_EQ(make<NSBitmapImageRep>(Rect { 0, 0, 4, 4 }), nullptr);
}

TEST(NSBitmapImageRep, SurvivesTheWayThroughAFile)
{
    auto const rep = make<NSBitmapImageRep>(16, 16);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            auto const part = [](int value) { return static_cast<float>(value) / 15; };
            rep->setColor(*NSColor::colorWithDeviceRed(part(x), part(y), 0.5F, part((x + y) % 16)), x, y);
        }
    }
    auto const data = rep->representationUsingType(NSPNGFileType);
    auto const back = NSBitmapImageRep::imageRepWithData(*data);
    ASSERT_TRUE(back);
    EXPECT_TRUE(back->hasAlpha());
    EXPECT_EQ(countDifferences(rep, back, 1.0F / 255), 0);
    TestFolder const folder;
    writePNG(rep, folder / "picture.png");
    EXPECT_EQ(countDifferences(rep, NSBitmapImageRep::imageRepWithContentsOfFile(folder / "picture.png"), 1.0F / 255), 0);
}

TEST(NSBitmapImageRep, FillsANewSizeWithAllItsPixels)
{
    auto const rep = bitmapOfDistinctPixels(8, 4);
    rep->setSize({ 4, 2 });
    EXPECT_EQ(rep->pixelsPerPoint(), (Size { 2, 2 }));
    auto const bitmap = renderBitmap({ 4, 2 }, 2, [&] { rep->draw(); });
    EXPECT_EQ(countDifferences(bitmap, rep, 0), 0);
}

TEST(NSBitmapImageRep, IsRefusedFromFoldersAndFilesThatAreNoPictures)
{
    TestFolder const folder;
    folder.write("text.png", "no picture");
    folder.write("empty.png");
    EXPECT_EQ(NSBitmapImageRep::imageRepWithContentsOfFile(folder.path()), nullptr);
    EXPECT_EQ(NSBitmapImageRep::imageRepWithContentsOfFile(folder / "text.png"), nullptr);
    EXPECT_EQ(NSBitmapImageRep::imageRepWithContentsOfFile(folder / "empty.png"), nullptr);
    EXPECT_EQ(NSBitmapImageRep::imageRepWithContentsOfFile(folder / "missing.png"), nullptr);
    EXPECT_EQ(NSBitmapImageRep::imageRepWithContentsOfFile("/dev/zero"), nullptr);
}

}
}
