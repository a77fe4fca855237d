#pragma once

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSView.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace plix {

/// What few views have.
struct NSView::Extras {
    /// A subview that was taken out since the last frame. Put back where it was, it leaves no trace.
    struct Removal {
        std::uint64_t view;
        std::uint64_t below;
        std::uint64_t above;
        Rect frame;
        Rect area;
    };

    struct ToolTipRect {
        NSToolTipTag tag;
        Rect rect;
        std::function<std::string()> text;
    };

    std::vector<Removal> removals;
    Weak<NSView> nextKeyView;
    Weak<NSView> previousKeyView;
    float frameRotation { 0 };
    Size boundsScale { 1, 1 };
    std::string toolTip;
    std::vector<ToolTipRect> toolTipRects;
    std::vector<std::string> draggedTypes;
    Ref<NSMenu> menu;
    unsigned lastDragOperation { NSDragOperationNone };
};

/// The door for windows and drawing.
struct NSView::Access {
    static void moveToWindow(NSView& view, NSWindow* window);
    /// Of a window that goes away: nobody is told.
    static void forgetWindow(NSView& view) { view.setWindow(nullptr); }
    static AffineTransform toSuperview(NSView const& view) { return view.toSuperview(); }
    static AffineTransform toBase(NSView const& view) { return view.toBase(); }
    static Rect frameArea(NSView const& view) { return view.frameArea(); }
    static Region& dirty(NSView& view) { return view.m_dirty; }
    static bool descendantNeedsDisplay(NSView const& view) { return view.m_flags.descendantNeedsDisplay; }
    static void clearDescendantNeedsDisplay(NSView& view) { view.m_flags.descendantNeedsDisplay = false; }
    static Extras* extrasOrNull(NSView& view) { return view.m_extras.get(); }
    static Extras& extras(NSView& view) { return view.extras(); }
    static void markDirty(NSView& view, Rect rect) { view.markDirty(rect); }
};

}
