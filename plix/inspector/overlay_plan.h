#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/region.h>

#include <span>
#include <vector>

namespace plix {

/// Why a rectangle is drawn over a window.
enum class OverlayRole { frame, ancestor, selection, hover };

/// A rectangle to be drawn over a window, in the coordinates of its content.
struct OverlayShape {
    OverlayRole role { OverlayRole::frame };
    Rect rect;
    /// What of it is to be seen.
    Rect clip;

    friend bool operator==(OverlayShape const&, OverlayShape const&) = default;
};

/// The lines of a rectangle's outline, a point wide and inside it, as far as they are in the clip.
std::vector<Rect> outlineEdges(Rect, Rect clip);
/// Whether the inside of the rectangle is tinted too.
bool isFilled(OverlayRole);
/// All that is covered by drawing these.
Region overlayArea(std::span<OverlayShape const>);

/// Areas that were drawn and are tinted for a while.
class DirtyFlashes {
public:
    /// How many seconds they are.
    static constexpr double duration() { return 1.0 / 3; }

    /// The area was drawn at this time.
    void add(Region const&, double now);
    /// Forgets what has been tinted long enough, and answers where that was.
    Region takeExpired(double now);
    bool isEmpty() const { return m_flashes.empty(); }
    /// When the first of them is over; only where there is one.
    double nextExpiry() const { return m_flashes.front().end; }
    /// All that is tinted now.
    Region area() const;
    void clear() { m_flashes.clear(); }

private:
    struct Flash {
        Region region;
        double end;
    };

    std::vector<Flash> m_flashes;
};

/// What the tinted pixels of an area become stale by, where those of a rectangle are moved by a distance inside it: where they go,
/// and where they were.
Region staleAfterMove(Region const& drawn, Rect moved, Size by);

}
