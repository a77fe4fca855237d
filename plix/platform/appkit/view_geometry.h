#pragma once

#include <plix/platform/graphics/affine_transform.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Which of a view's margins and sides give way when its superview is resized.
enum NSAutoresizingMask : unsigned {
    NSViewNotSizable = 0,
    NSViewMinXMargin = 1,
    NSViewWidthSizable = 2,
    NSViewMaxXMargin = 4,
    NSViewMinYMargin = 8,
    NSViewHeightSizable = 16,
    NSViewMaxYMargin = 32,
};

/// One axis of a frame.
struct Span {
    float start { 0 };
    float length { 0 };
    friend constexpr bool operator==(Span, Span) = default;
};

/// Which parts along an axis give way.
struct SpanFlexibility {
    bool minMargin { false };
    bool length { false };
    bool maxMargin { false };
};

/// Where a subview lies on one axis after its superview's bounds grew from the old length to the new one. The change is shared
/// evenly among the parts that give way; where none does, the far margin takes it all. The length never becomes negative: what it
/// cannot give the margins give.
PLIX_EXPORT Span resizedSpan(Span, float oldSuperLength, float newSuperLength, SpanFlexibility);

/// Both axes, by an autoresizing mask; in an unflipped superview the minimum y margin is the lower one, in a flipped one the upper
/// one.
PLIX_EXPORT Rect resizedFrame(Rect frame, Size oldSuperSize, Size newSuperSize, unsigned autoresizingMask);

/// The frame that encloses the subviews' frames, which are in the bounds' coordinates, for a view with this frame and bounds
/// origin: of their union's size, moved by how far the union's origin is from that of the bounds. Empty frames count too.
/// `count` must be at least 1.
PLIX_EXPORT Rect frameEnclosing(Rect const* subviewFrames, long count, Rect frame, Point boundsOrigin);

struct ViewPlacement {
    Rect frame;
    Rect bounds;
    float rotation { 0 }; ///< degrees
    bool isFlipped { false };
    bool isSuperviewFlipped { false };
};

/// From a view's bounds coordinates to its superview's.
PLIX_EXPORT AffineTransform transformToSuperview(ViewPlacement const&);

}
