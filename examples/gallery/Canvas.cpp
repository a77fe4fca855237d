#include "Canvas.h"
#include "Form.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>
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
    Theme::current().drawBorder(NSLineBorder, bounds());
}

Ref<NSView> drawing(std::string_view caption, Size size, Canvas::Draw draw)
{
    return captioned(caption, make<Canvas>(size, std::move(draw)));
}

/// By how much more the columns go to the right, so that a full row of them ends at the right margin.
static std::vector<float> spareWidths(std::vector<Ref<NSView>> const& tiles, float width, float gap)
{
    float used = -gap;
    std::size_t count = 0;
    while (count < tiles.size() && used + gap + tiles[count]->frame().width <= width)
        used += gap + tiles[count++]->frame().width;
    // What is left over of a row that is not full stays there.
    if (count < 2 || width - used >= gap)
        return {};
    std::vector<float> spare;
    for (std::size_t i = 0; i < count; ++i)
        spare.push_back(std::round((width - used) * static_cast<float>(i) / static_cast<float>(count - 1)));
    return spare;
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
    auto const spare = spareWidths(tiles, width - 2 * margin, gap);
    std::size_t column = 0;
    for (auto const& tile : tiles) {
        auto const size = tile->frame().size();
        if (x > margin && x + size.width > width - margin) {
            x = margin;
            y += rowHeight + gap;
            rowHeight = 0;
            column = 0;
        }
        tile->setFrameOrigin({ x + (column < spare.size() ? spare[column] : 0), y });
        ++column;
        page->addSubview(*tile);
        x += size.width + gap;
        rowHeight = std::max(rowHeight, size.height);
    }
    y += rowHeight;
    if (transcript) {
        transcript->setFrameOrigin({ 0, y });
        page->addSubview(*transcript);
        y += transcript->frame().height - margin;
    }
    page->setFrameSize({ width, y + margin });
    return page;
}

}
