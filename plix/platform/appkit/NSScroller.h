#pragma once

#include <plix/platform/appkit/HoverArea.h>
#include <plix/platform/appkit/NSControl.h>
#include <plix/platform/appkit/scroller_geometry.h>

namespace plix {

/// The buttons at a scroller's end.
enum NSScrollerArrow : int { NSScrollerIncrementArrow = 0, NSScrollerDecrementArrow = 1 };

/// A bar with a knob that shows which part of something is seen, from 0 (top or left) to 1, and lets a person move it. Tells its
/// target by the action what was hit (hitPart()), and goes on telling while a page or an arrow is held. As long as its longer side
/// says: horizontal or vertical.
class PLIX_EXPORT NSScroller : public NSControl {
    PLIX_CLASS(NSScroller, NSControl);

public:
    NSScroller();
    ~NSScroller() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    static Class const* cellClass();
    Class const* ownCellClass() const override { return cellClass(); }

    // Widths in points.
    static float scrollerWidth() { return scrollerWidthForControlSize(NSRegularControlSize); }
    static float scrollerWidthForControlSize(NSControlSize);
    NSControlSize controlSize() const;
    void setControlSize(NSControlSize);
    NSScrollArrowPosition arrowsPosition() const { return m_state.arrows; }
    /// None at first.
    void setArrowsPosition(NSScrollArrowPosition);

    float floatValue() const override { return m_state.value; }
    double doubleValue() const override { return m_state.value; }
    /// Taken to 0..1, as is the proportion: how much of the whole is seen.
    void setFloatValue(float value) override { setFloatValue(value, m_state.knobProportion); }
    void setDoubleValue(double value) override { setFloatValue(static_cast<float>(value)); }
    virtual void setFloatValue(float value, float knobProportion);
    float knobProportion() const { return m_state.knobProportion; }

    /// What was hit by the press that is being tracked; NSScrollerNoPart otherwise. A knob that is dragged, or jumps to where the
    /// slot was hit, says NSScrollerKnob and NSScrollerKnobSlot.
    NSScrollerPart hitPart() const { return m_hitPart; }
    /// Which part lies at a point of the window.
    NSScrollerPart testPart(Point locationInWindow) const;
    /// In the scroller's bounds; the knob of a disabled scroller, and what there is no room for, is empty.
    Rect rectForPart(NSScrollerPart) const;
    NSUsableScrollerParts usableParts() const;

    // Drawing, overridable part by part.
    virtual void drawKnobSlot();
    virtual void drawKnob();
    virtual void drawArrow(NSScrollerArrow, bool isHighlighted);

    // Tracking, from the press until the release.
    virtual void trackKnob(NSEvent&);
    /// Arrows and pages: acts at once and, held, again and again as long as the pointer is on the part.
    virtual void trackScrollButtons(NSEvent&);

    // NSView:
    bool isOpaque() const override { return true; }
    void drawRect(Rect) override;
    void resetCursorRects() override;
    void mouseDown(NSEvent&) override;
    void mouseEntered(NSEvent&) override;
    void mouseExited(NSEvent&) override;
    bool acceptsFirstResponder() const override { return false; }
    bool acceptsFirstMouse(NSEvent*) override { return true; }
    void viewWillMoveToWindow(NSWindow*) override;

private:
    ScrollerPlan plan() const;
    Point locationIn(NSEvent const&) const;
    float positionAlong(Point) const;
    void moveKnobStartTo(float start);
    void endTracking();
    void setHovered(bool);
    ControlLook look(NSScrollerPart) const;

    ScrollerState m_state;
    NSScrollerPart m_hitPart { NSScrollerNoPart };
    HoverArea m_hoverArea;
    bool m_isHovered { false };
};

}
