#include <plix/tables/highlight_drawing.h>

#include <plix/drawing/bezier_path_additions.h>
#include <plix/drawing/geometry_helpers.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

namespace {

constexpr float dropLineWidth = 2.0F;

void setColor(ColorComponents const& color)
{
    NSColor::colorWithDeviceRed(color.red, color.green, color.blue, color.alpha)->set();
}

Ref<NSBezierPath> outline(RowHighlight const& highlight)
{
    return highlight.cornerRadius ? bezierPathWithRoundedRect(highlight.rect, *highlight.cornerRadius)
                                  : NSBezierPath::bezierPathWithRect(highlight.rect);
}

void drawInside(NSBezierPath const& path, Rect rect, NSImage const& image)
{
    GraphicsState const saved;
    path.addClip();
    image.drawInRect(rect, PLIXMakeRectWithSize(image.size()), NSCompositeSourceOver, 1.0F);
}

}

void drawRowHighlight(RowHighlight const& highlight, HighlightPaint const& paint)
{
    auto const path = outline(highlight);
    setColor(paint.edge);
    path->setLineWidth(1.0F);
    path->stroke();
    if (paint.gradient) {
        drawInside(*path, highlight.rect, *paint.gradient);
        return;
    }
    setColor(paint.fill);
    path->fill();
}

void drawRowImage(RowHighlight const& highlight, NSImage const& image)
{
    drawInside(*outline(highlight), highlight.rect, image);
}

void drawDropHighlight(Rect rect, HighlightPaint const& paint, DropTarget target)
{
    if (target == DropTarget::unselected) {
        setColor(dropWash(paint.fill));
        bezierPathWithRoundedRect(rect, dropHighlightCornerRadius)->fill();
    }
    setColor(target == DropTarget::unselected ? dropLine(paint.edge) : paint.edge);
    NSBezierPath::setDefaultLineWidth(dropLineWidth); // for the process and not put back, which is meant
    bezierPathWithRoundedRect(rect, dropHighlightCornerRadius)->stroke();
}

void drawDropFrame(Rect bounds, HighlightPaint const& paint)
{
    setColor(dropLine(paint.edge));
    NSFrameRectWithWidth(bounds, dropLineWidth);
}

void drawInsertionMarker(InsertionMarker const& marker, HighlightPaint const& paint)
{
    NSColor::whiteColor()->set();
    NSBezierPath::bezierPathWithOvalInRect(marker.ring)->fill();
    setColor(paint.edge);
    NSBezierPath::setDefaultLineWidth(dropLineWidth); // for the process and not put back, which is meant
    NSBezierPath::strokeLineFromPoint(marker.lineStart, marker.lineEnd);
    NSBezierPath::bezierPathWithOvalInRect(marker.ring)->stroke();
}

}
