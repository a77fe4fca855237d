#include "Canvas.h"
#include "Form.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
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

Ref<NSView> tiledPage(std::vector<Ref<NSView>> const& tiles, Ref<Transcript> const& transcript)
{
    constexpr float margin = 20;
    constexpr float gap = 12;
    constexpr float width = 560;
    auto page = make<Form>(Rect { 0, 0, width, 0 });
    page->setAutoresizesSubviews(false);
    float x = margin;
    float y = margin;
    float rowHeight = 0;
    for (auto const& tile : tiles) {
        auto const size = tile->frame().size();
        if (x > margin && x + size.width > width - margin) {
            x = margin;
            y += rowHeight + gap;
            rowHeight = 0;
        }
        tile->setFrameOrigin({ x, y });
        page->addSubview(*tile);
        x += size.width + gap;
        rowHeight = std::max(rowHeight, size.height);
    }
    y += rowHeight;
    if (transcript) {
        transcript->setFrameOrigin({ 0, y - 2 });
        page->addSubview(*transcript);
        y += transcript->frame().height - 2 - margin;
    }
    page->setFrameSize({ width, y + margin });
    return page;
}

}
