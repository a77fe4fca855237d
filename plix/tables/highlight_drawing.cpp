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

Ref<NSColor> deviceColor(ColorComponents const& color)
{
    return NSColor::colorWithDeviceRed(color.red, color.green, color.blue, color.alpha);
}

void drawClipped(NSBezierPath const& path, Size size, NSImage const& image)
{
    GraphicsState const saved;
    path.addClip();
    image.drawInRect(PLIXMakeRectWithSize(size), PLIXMakeRectWithSize(image.size()), NSCompositeSourceOver, 1.0F);
}

}

HighlightPainter::HighlightPainter() = default;
HighlightPainter::~HighlightPainter() = default;

HighlightPaint const& HighlightPainter::paintFor(ColorComponents const& fill)
{
    if (!m_paint.fill || m_fill != fill) {
        m_fill = fill;
        m_paint = { deviceColor(fill), deviceColor(selectionEdge(fill)), nullptr };
    }
    return m_paint;
}

NSBezierPath& HighlightPainter::outlineAtOrigin(RowHighlight const& highlight)
{
    if (!m_outline || m_size != highlight.rect.size() || m_cornerRadius != highlight.cornerRadius) {
        m_size = highlight.rect.size();
        m_cornerRadius = highlight.cornerRadius;
        Rect const rect = PLIXMakeRectWithSize(m_size);
        m_outline = m_cornerRadius ? bezierPathWithRoundedRect(rect, *m_cornerRadius) : NSBezierPath::bezierPathWithRect(rect);
        m_outline->setLineWidth(1.0F);
    }
    return *m_outline;
}

void HighlightPainter::drawRow(RowHighlight const& highlight, HighlightPaint const& paint)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    GraphicsState const saved(context);
    context->translateBy(highlight.rect.x, highlight.rect.y);
    auto const& outline = outlineAtOrigin(highlight);
    paint.edge->set();
    outline.stroke();
    if (paint.gradient) {
        drawClipped(outline, highlight.rect.size(), *paint.gradient);
        return;
    }
    paint.fill->set();
    outline.fill();
}

void HighlightPainter::drawRowImage(RowHighlight const& highlight, NSImage const& image)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    GraphicsState const saved(context);
    context->translateBy(highlight.rect.x, highlight.rect.y);
    drawClipped(outlineAtOrigin(highlight), highlight.rect.size(), image);
}

void drawDropHighlight(Rect rect, HighlightPaint const& paint, DropTarget target)
{
    if (target == DropTarget::unselected) {
        deviceColor(dropWash(paint.fill->components()))->set();
        bezierPathWithRoundedRect(rect, dropHighlightCornerRadius)->fill();
    }
    (target == DropTarget::unselected ? deviceColor(dropLine(paint.edge->components())) : paint.edge)->set();
    NSBezierPath::setDefaultLineWidth(dropLineWidth); // for the process and not put back, which is meant
    bezierPathWithRoundedRect(rect, dropHighlightCornerRadius)->stroke();
}

void drawDropFrame(Rect bounds, HighlightPaint const& paint)
{
    deviceColor(dropLine(paint.edge->components()))->set();
    NSFrameRectWithWidth(bounds, dropLineWidth);
}

void drawInsertionMarker(InsertionMarker const& marker, HighlightPaint const& paint)
{
    NSColor::whiteColor()->set();
    NSBezierPath::bezierPathWithOvalInRect(marker.ring)->fill();
    paint.edge->set();
    NSBezierPath::setDefaultLineWidth(dropLineWidth); // for the process and not put back, which is meant
    NSBezierPath::strokeLineFromPoint(marker.lineStart, marker.lineEnd);
    NSBezierPath::bezierPathWithOvalInRect(marker.ring)->stroke();
}

}
