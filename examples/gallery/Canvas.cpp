#include "Canvas.h"
#include "page_parts.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <utility>

namespace gallery {

using namespace plix;

bool Canvas::init(Size size, Draw draw)
{
    m_draw = std::move(draw);
    return NSView::init(rectWith({}, size));
}

void Canvas::drawRect(Rect)
{
    NSColor::textBackgroundColor()->set();
    NSRectFill(bounds());
    {
        GraphicsState const saved;
        NSRectClip(bounds());
        m_draw(bounds());
    }
    NSColor::gridColor()->set();
    NSFrameRect(bounds());
}

Ref<NSView> drawing(std::string_view caption, Size size, Canvas::Draw draw)
{
    return captioned(caption, make<Canvas>(size, std::move(draw)));
}

}
