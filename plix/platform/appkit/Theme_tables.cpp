#include <plix/platform/appkit/Theme.h>

#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

namespace plix {

namespace {

constexpr float dropLineWidth = 2;
constexpr float dropRingSize = 6;
constexpr float dropCornerRadius = 3;

}

void Theme::drawHeaderCell(Rect rect, HeaderShade shade) const
{
    drawHeaderBackground(rect);
    if (shade != HeaderShade::plain)
        fill({ rect.x, rect.y, rect.width, rect.height - 1 },
            shade == HeaderShade::pressed ? ThemeRole::headerPressed : ThemeRole::headerChosen);
    drawHeaderDivider(rect);
}

void Theme::drawRowDropHighlight(Rect row) const
{
    GraphicsState const saved;
    NSColor::alternateSelectedControlColor()->set();
    auto const path = roundedRect(NSInsetRect(row, 1, 1), dropCornerRadius);
    path->setLineWidth(dropLineWidth);
    path->stroke();
}

void Theme::drawTableDropHighlight(Rect visible) const
{
    GraphicsState const saved;
    NSColor::alternateSelectedControlColor()->set();
    NSFrameRectWithWidth(visible, dropLineWidth);
}

void Theme::drawDropMarker(float x, float endX, float y) const
{
    GraphicsState const saved;
    NSColor::alternateSelectedControlColor()->set();
    Rect const ring { x + 1, y - dropRingSize / 2, dropRingSize, dropRingSize };
    auto const oval = NSBezierPath::bezierPathWithOvalInRect(ring);
    oval->setLineWidth(dropLineWidth);
    oval->stroke();
    NSRectFill({ ring.maxX(), y - dropLineWidth / 2, endX - ring.maxX(), dropLineWidth });
}

}
