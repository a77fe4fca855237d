#pragma once

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSView.h>

#include <vector>

namespace plix {

struct HostEvent;

/// The tracking and cursor rectangles of one window, and where the pointer is among them.
class WindowTracking {
public:
    explicit WindowTracking(NSWindow& window)
        : m_window(window)
    {
    }

    NSTrackingRectTag add(NSView&, Rect, NSObject* owner, void* userData, bool assumeInside);
    void remove(NSTrackingRectTag);
    /// Who is told of a rectangle's events; null where it is gone.
    NSObject* owner(NSTrackingRectTag) const;

    void addCursorRect(NSView&, Rect, NSCursor&);
    void removeCursorRect(NSView&, Rect, NSCursor&);
    void discardCursorRects(NSView&);
    void discardAllCursorRects() { m_cursorRects.clear(); }
    void invalidateCursorRects() { m_areCursorRectsValid = false; }
    /// Asks all views for their cursor rectangles anew.
    void resetCursorRects();
    void disableCursorRects() { ++m_disabled; }
    void enableCursorRects();
    bool areCursorRectsEnabled() const { return m_disabled == 0; }

    /// The view leaves the window, with its subviews.
    void forgetView(NSView&);
    /// The pointer is at this point of the window (base coordinates) or, outside, no longer in it. Posts entered and exited events
    /// and sets the cursor, which stays as it is while a button is held.
    void mouseMovedTo(Point, bool isInside, unsigned modifierFlags, bool isButtonHeld);
    /// Sets the cursor for where the pointer is, after the rectangles have changed.
    void updateCursorIfNeeded();

private:
    struct TrackingRect {
        NSTrackingRectTag tag;
        Weak<NSView> view;
        Rect rect;
        Weak<NSObject> owner;
        void* userData;
        bool isInside;
    };
    struct CursorRect {
        Weak<NSView> view;
        Rect rect;
        Ref<NSCursor> cursor;
    };

    bool contains(NSView const&, Rect, Point) const;
    void resetCursorRects(NSView&);
    void setCursorAtMouse();

    NSWindow& m_window;
    std::vector<TrackingRect> m_trackingRects;
    std::vector<CursorRect> m_cursorRects;
    bool m_areCursorRectsValid { false };
    int m_disabled { 0 };
    Point m_mouse;
    bool m_isMouseInside { false };
};

}
