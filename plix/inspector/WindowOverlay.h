#pragma once

#include <plix/inspector/overlay_plan.h>
#include <plix/platform/base/Weak.h>

#include <vector>

namespace plix {

class NSTimer;
class NSView;
class NSWindow;

/// What is drawn above the content of one window. The views below are not touched and not marked dirty; windows and views may go
/// away at any time.
class WindowOverlay {
public:
    WindowOverlay();
    ~WindowOverlay();
    WindowOverlay(WindowOverlay const&) = delete;
    WindowOverlay& operator=(WindowOverlay const&) = delete;

    NSWindow* window() const { return m_window.get(); }
    /// The window before is drawn without an overlay again. Null for none.
    void setWindow(NSWindow*);

    // What is shown. The selected view is tinted, with its ancestors outlined.
    void setSelectedView(NSView*);
    NSView* selectedView() const { return m_selected.get(); }
    void setHoveredView(NSView*);
    NSView* hoveredView() const { return m_hovered.get(); }
    void setShowsFrames(bool);
    void setShowsFlashes(bool);

    // Told of the window.
    void contentWillBeDrawn(Region&);
    void contentWasDrawn();
    void pixelsWillMove(Rect, Size by);
    /// What is shown may have moved: the window looks at its next frame whether it has.
    void refresh();

private:
    std::vector<OverlayShape> wantedShapes() const;
    void wipe();
    void endFlashes();
    void waitForFlashes();

    Weak<NSWindow> m_window;
    Weak<NSView> m_selected;
    Weak<NSView> m_hovered;
    bool m_showsFrames { false };
    bool m_showsFlashes { false };
    std::vector<OverlayShape> m_shapes;
    DirtyFlashes m_flashes;
    Region m_stale;
    Ref<NSTimer> m_flashTimer;
};

}
