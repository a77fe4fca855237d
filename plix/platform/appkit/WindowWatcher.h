#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

class NSWindow;
class Region;
struct HostEvent;

/// Looks on while windows take input and draw: a tool for developers, inside the application that it looks at. While there is none
/// windows do no more than test a pointer.
class PLIX_EXPORT WindowWatcher {
public:
    virtual ~WindowWatcher() = default;

    /// What a person does in a window, before the application knows of it. True keeps it from the application.
    virtual bool takesHostEvent(NSWindow&, HostEvent const&) = 0;
    /// This part of a window's content is to be drawn: where the watcher draws something else than before, it adds that. In the
    /// content's coordinates, as all below.
    virtual void contentWillBeDrawn(NSWindow&, Region&) = 0;
    /// The views have been drawn; what the watcher draws now, into the current context, goes above them.
    virtual void contentWasDrawn(NSWindow&) = 0;
    /// What the last frame left in a rectangle, the watcher's drawing with it, is moved by a distance inside that rectangle.
    virtual void pixelsWillMove(NSWindow&, Rect, Size by) = 0;

    /// The one that looks on, or null. Not held.
    static WindowWatcher* current() { return s_current; }
    static void setCurrent(WindowWatcher* watcher) { s_current = watcher; }

    /// Asked about key presses while nobody looks on, so that a key may bring a watcher; answers true for a key that it takes.
    using KeyCatcher = bool (*)(NSWindow&, HostEvent const&);
    static KeyCatcher keyCatcher() { return s_keyCatcher; }
    static void setKeyCatcher(KeyCatcher catcher) { s_keyCatcher = catcher; }

private:
    static WindowWatcher* s_current;
    static KeyCatcher s_keyCatcher;
};

}
