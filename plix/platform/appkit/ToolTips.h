#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

/// Shows the tool tip of what the pointer rests on, after a while, in a small window below the pointer; hides it when anything
/// happens.
class ToolTips {
public:
    /// The pointer is at this point of the window (base coordinates).
    static void mouseMoved(NSWindow&, Point);
    /// A press, a key, the wheel, or the pointer has left.
    static void hide();
    /// The window that shows a tip now, or null.
    static NSWindow* window();
};

}
