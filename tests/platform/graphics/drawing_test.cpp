#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSShadow.h>

#include <tests/support/pixels.h>

namespace plix {
namespace {

void drawScene()
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill({ 0, 0, 200, 120 });
    NSColor::blackColor()->set();
    NSFrameRect({ 4, 4, 192, 112 });
    {
        GraphicsState const saved;
        auto shadow = make<NSShadow>();
        shadow->setShadowOffset({ 0, -2 });
        shadow->setShadowBlurRadius(5);
        shadow->set();
        NSColor::alternateSelectedControlColor()->set();
        auto path = NSBezierPath::bezierPathWithOvalInRect({ 20, 30, 60, 60 });
        path->fill();
    }
    auto star = NSBezierPath::bezierPath();
    star->appendBezierPathWithArcWithCenter({ 140, 60 }, 30, 0, 270);
    star->closePath();
    star->setLineWidth(3);
    float const dash[] { 6, 4 };
    star->setLineDash(dash, 0);
    NSColor::redColor()->set();
    star->stroke();
    auto image = make<NSImage>(Size { 16, 16 });
    {
        FocusLock const focus(image);
        NSColor::orangeColor()->set();
        NSRectFill({ 0, 0, 8, 8 });
        NSColor::purpleColor()->set();
        NSBezierPath::fillRect({ 8, 8, 8, 8 });
    }
    image->drawInRect({ 100, 80, 32, 32 }, {}, NSCompositeSourceOver, 1);
    image->compositeToPoint({ 160, 90 }, NSCompositeSourceOver, 0.5F);
    NSColor::colorWithPatternImage(image)->set();
    NSBezierPath::bezierPathWithOvalInRect({ 86, 20, 40, 40 })->fill();
}

TEST(NSGraphicsContext, DrawsASceneAsTheReferenceShows)
{
    EXPECT_TRUE(matchesReference(renderBitmap({ 200, 120 }, 1, drawScene), "graphics/scene"));
    EXPECT_TRUE(matchesReference(renderBitmap({ 200, 120 }, 2, drawScene), "graphics/scene@2x"));
}

}
}
