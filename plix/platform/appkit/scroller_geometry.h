#pragma once

#include <plix/platform/graphics/geometry.h>

namespace plix {

/// The parts of a scroller that a press can hit.
enum NSScrollerPart : int {
    NSScrollerNoPart = 0,
    NSScrollerDecrementPage = 1,
    NSScrollerKnob = 2,
    NSScrollerIncrementPage = 3,
    NSScrollerDecrementLine = 4,
    NSScrollerIncrementLine = 5,
    NSScrollerKnobSlot = 6,
};

enum NSUsableScrollerParts : int { NSNoScrollerParts = 0, NSOnlyScrollerArrows = 1, NSAllScrollerParts = 2 };

enum NSScrollArrowPosition : int {
    NSScrollerArrowsMaxEnd = 0,
    NSScrollerArrowsMinEnd = 1,
    NSScrollerArrowsDefaultSetting = 0,
    NSScrollerArrowsNone = 2,
};

enum class ScrollerAxis { horizontal, vertical };

/// What the look decides about a scroller, in points.
struct ScrollerMetrics {
    float knobInset { 4 }; ///< across the slot, on each side of the knob
    float slotEndInset { 2 }; ///< along the slot, before and behind the knob's way
    float minimumKnobLength { 24 };
    float arrowLength { 15 };
};

/// What a scroller shows. The value runs from 0 (start: top or left) to 1; the proportion is how much of the whole is seen.
struct ScrollerState {
    float value { 0 };
    float knobProportion { 0 };
    NSScrollArrowPosition arrows { NSScrollerArrowsNone };
};

/// Where the parts of a scroller lie, in its bounds, whose y grows downwards. Parts that there is no room for are zero rectangles.
struct PLIX_EXPORT ScrollerPlan {
    NSUsableScrollerParts usableParts { NSNoScrollerParts };
    ScrollerAxis axis { ScrollerAxis::vertical };
    Rect knobSlot;
    Rect knob;
    Rect decrementPage;
    Rect incrementPage;
    Rect decrementLine;
    Rect incrementLine;

    Rect rectForPart(NSScrollerPart) const;
    /// Knob before pages, so that what is drawn on top is hit.
    NSScrollerPart partAtPoint(Point) const;
};

/// The longer side is the axis. A value or proportion outside 0..1, or not a number, is taken into that range first.
PLIX_EXPORT ScrollerPlan scrollerPlan(Rect bounds, ScrollerMetrics const&, ScrollerState const&);

/// The value that brings the knob's start to this distance from the slot's start, from 0 to 1; 0 where the knob cannot move.
PLIX_EXPORT float scrollerValueForKnobStart(ScrollerPlan const&, ScrollerMetrics const&, float start);
/// How far the knob's start is from the slot's start.
PLIX_EXPORT float knobStart(ScrollerPlan const&);

}
