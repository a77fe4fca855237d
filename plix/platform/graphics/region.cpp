#include <plix/platform/graphics/region.h>

#include <algorithm>

namespace plix {

namespace {

/// Two rectangles are joined where that covers at most this much more than both apart: drawing another rectangle costs too.
constexpr float joiningFactor = 1.25F;
constexpr float joiningArea = 64;

float areaOf(Rect rect)
{
    return rect.width * rect.height;
}

bool isWorthJoining(Rect a, Rect b)
{
    return areaOf(NSUnionRect(a, b)) <= (areaOf(a) + areaOf(b)) * joiningFactor + joiningArea;
}

Rect fromEdges(float minX, float minY, float maxX, float maxY)
{
    return { minX, minY, maxX - minX, maxY - minY };
}

/// What of `rect` lies outside `hole`, where the two intersect: at most four pieces.
void appendWithoutHole(Rect rect, Rect hole, std::vector<Rect>& pieces)
{
    auto const append = [&](Rect piece) {
        if (!piece.isEmpty())
            pieces.push_back(piece);
    };
    float const lower = std::max(rect.y, hole.y);
    float const upper = std::min(rect.maxY(), hole.maxY());
    append(fromEdges(rect.x, rect.y, rect.maxX(), lower));
    append(fromEdges(rect.x, upper, rect.maxX(), rect.maxY()));
    append(fromEdges(rect.x, lower, hole.x, upper));
    append(fromEdges(hole.maxX(), lower, rect.maxX(), upper));
}

}

Rect Region::boundingRect() const
{
    Rect bounding;
    for (auto const rect : m_rects)
        bounding = NSUnionRect(bounding, rect);
    return bounding;
}

float Region::area() const
{
    float area = 0;
    for (auto const rect : m_rects)
        area += areaOf(rect);
    return area;
}

bool Region::intersects(Rect rect) const
{
    return std::ranges::any_of(m_rects, [&](Rect own) { return NSIntersectsRect(own, rect); });
}

bool Region::contains(Rect rect) const
{
    Region rest;
    rest.m_rects.push_back(rect);
    rest.subtract(*this);
    return rest.isEmpty();
}

void Region::add(Rect rect)
{
    if (rect.isEmpty())
        return;
    if (std::ranges::any_of(m_rects, [&](Rect own) { return NSContainsRect(own, rect); }))
        return;
    auto joined = std::ranges::find_if(m_rects, [&](Rect own) { return isWorthJoining(own, rect); });
    while (joined != m_rects.end()) {
        rect = NSUnionRect(*joined, rect);
        m_rects.erase(joined);
        joined = std::ranges::find_if(m_rects, [&](Rect own) { return isWorthJoining(own, rect); });
    }
    std::erase_if(m_rects, [&](Rect own) { return NSContainsRect(rect, own); });
    if (!intersects(rect)) {
        m_rects.push_back(rect);
    } else {
        Region added;
        added.m_rects.push_back(rect);
        added.subtract(*this);
        m_rects.insert(m_rects.end(), added.m_rects.begin(), added.m_rects.end());
    }
    limitCount();
}

void Region::limitCount()
{
    while (m_rects.size() > maximumCount()) {
        std::size_t first = 0;
        std::size_t second = 1;
        float leastWaste = -1;
        for (std::size_t i = 0; i < m_rects.size(); ++i) {
            for (std::size_t j = i + 1; j < m_rects.size(); ++j) {
                float const waste = areaOf(NSUnionRect(m_rects[i], m_rects[j])) - areaOf(m_rects[i]) - areaOf(m_rects[j]);
                if (leastWaste >= 0 && waste >= leastWaste)
                    continue;
                leastWaste = waste;
                first = i;
                second = j;
            }
        }
        Rect joined = NSUnionRect(m_rects[first], m_rects[second]);
        // The joined one may reach over others: it takes these in too.
        for (auto own = m_rects.begin(); own != m_rects.end();) {
            if (!NSIntersectsRect(*own, joined)) {
                ++own;
                continue;
            }
            joined = NSUnionRect(joined, *own);
            m_rects.erase(own);
            own = m_rects.begin();
        }
        m_rects.push_back(joined);
    }
}

void Region::add(Region const& other)
{
    for (auto const rect : std::vector(other.m_rects))
        add(rect);
}

void Region::subtract(Rect hole)
{
    if (hole.isEmpty() || !intersects(hole))
        return;
    std::vector<Rect> rest;
    for (auto const rect : m_rects) {
        if (NSIntersectsRect(rect, hole))
            appendWithoutHole(rect, hole, rest);
        else
            rest.push_back(rect);
    }
    m_rects = std::move(rest);
}

void Region::subtract(Region const& other)
{
    for (auto const rect : std::vector(other.m_rects))
        subtract(rect);
}

void Region::intersectWith(Rect clip)
{
    for (auto& rect : m_rects)
        rect = NSIntersectionRect(rect, clip);
    std::erase_if(m_rects, [](Rect rect) { return rect.isEmpty(); });
}

}
