#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Shows menus and follows mouse and keyboard until one item is chosen or all are dismissed. One menu with its submenus is open at
/// a time; opening another dismisses it.
class MenuTracker {
public:
    static void trackAtEvent(NSMenu&, NSEvent&, NSView* forView, NSFont*);
    /// Rectangles are the view's. These answer the chosen item, and leave its action to the caller.
    static Ref<NSMenuItem> trackCovering(NSMenu&, NSView&, Rect, NSMenuItem*, NSEvent*);
    static Ref<NSMenuItem> trackBelow(NSMenu&, NSView&, Rect, NSEvent*);

    static void cancel(NSMenu&);
    static bool isOpen(NSMenu const&);
    static NSMenuItem* highlightedItem(NSMenu const&);
    /// Dismisses the menus of a view that has no window any more.
    static void viewsLeftWindow();
    /// Items of an open menu have changed.
    static void menuChanged(NSMenu&);
    /// The window that shows a menu now, or null.
    static NSWindow* windowOfMenu(NSMenu const&);
};

}
