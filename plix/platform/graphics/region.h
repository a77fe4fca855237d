#pragma once

#include <plix/platform/graphics/geometry.h>

#include <span>
#include <vector>

namespace plix {

/// An area made of a few rectangles that do not overlap; what is to be drawn. Rectangles that would cost more apart than together
/// are joined, and there are never more than maximumCount(), so that a region may cover somewhat more than what was added, never
/// less.
class PLIX_EXPORT Region {
public:
    static constexpr std::size_t maximumCount() { return 16; }

    bool isEmpty() const { return m_rects.empty(); }
    std::span<Rect const> rects() const { return m_rects; }
    /// The smallest rectangle that holds it all; the zero rectangle for an empty region.
    Rect boundingRect() const;
    float area() const;
    bool intersects(Rect) const;
    bool contains(Rect) const;

    void clear() { m_rects.clear(); }
    /// An empty rectangle adds nothing.
    void add(Rect);
    void add(Region const&);
    void subtract(Rect);
    void subtract(Region const&);
    void intersectWith(Rect);

    friend bool operator==(Region const&, Region const&) = default;

private:
    void limitCount();

    std::vector<Rect> m_rects;
};

}
