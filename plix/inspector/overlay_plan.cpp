#include <plix/inspector/overlay_plan.h>

namespace plix {

namespace {

constexpr float lineWidth = 1;
/// A hair of time: dates are coarser than uptime.
constexpr double timeTolerance = 0.001;

}

std::vector<Rect> outlineEdges(Rect rect, Rect clip)
{
    std::vector<Rect> edges;
    auto const add = [&](Rect edge) {
        if (Rect const seen = NSIntersectionRect(NSIntersectionRect(edge, rect), clip); !seen.isEmpty())
            edges.push_back(seen);
    };
    float const inner = rect.height - 2 * lineWidth;
    add({ rect.x, rect.y, rect.width, lineWidth });
    add({ rect.x, rect.y + lineWidth, lineWidth, inner });
    // Of what is no wider than a line there are no other sides.
    if (rect.width > lineWidth)
        add({ rect.maxX() - lineWidth, rect.y + lineWidth, lineWidth, inner });
    if (rect.height > lineWidth)
        add({ rect.x, rect.maxY() - lineWidth, rect.width, lineWidth });
    return edges;
}

bool isFilled(OverlayRole role)
{
    return role == OverlayRole::selection || role == OverlayRole::hover;
}

Region overlayArea(std::span<OverlayShape const> shapes)
{
    Region area;
    for (auto const& shape : shapes) {
        if (isFilled(shape.role)) {
            area.add(NSIntersectionRect(shape.rect, shape.clip));
            continue;
        }
        for (auto const edge : outlineEdges(shape.rect, shape.clip))
            area.add(edge);
    }
    return area;
}

void DirtyFlashes::add(Region const& region, double now)
{
    if (!region.isEmpty())
        m_flashes.push_back({ region, now + duration() });
}

Region DirtyFlashes::takeExpired(double now)
{
    Region expired;
    std::erase_if(m_flashes, [&](Flash const& flash) {
        bool const isOver = flash.end <= now + timeTolerance;
        if (isOver)
            expired.add(flash.region);
        return isOver;
    });
    return expired;
}

Region DirtyFlashes::area() const
{
    Region area;
    for (auto const& flash : m_flashes)
        area.add(flash.region);
    return area;
}

Region staleAfterMove(Region const& drawn, Rect moved, Size by)
{
    Region stale;
    for (auto const rect : drawn.rects()) {
        Rect const inside = NSIntersectionRect(rect, moved);
        if (inside.isEmpty())
            continue;
        stale.add(inside);
        stale.add(NSIntersectionRect(NSOffsetRect(inside, by.width, by.height), moved));
    }
    return stale;
}

}
