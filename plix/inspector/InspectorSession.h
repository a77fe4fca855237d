#pragma once

#include <plix/inspector/WindowOverlay.h>
#include <plix/inspector/event_log.h>
#include <plix/platform/appkit/WindowWatcher.h>
#include <plix/platform/base/Class.h>

#include <optional>
#include <vector>

namespace plix {

class InspectorPanel;
class NSTimer;
class NSView;
struct NSNotification;

/// The inspector while it is open: follows the key window, shows what is known of it, and writes down what a person does.
class InspectorSession : public NSObject, private WindowWatcher {
    PLIX_CLASS(InspectorSession, NSObject);

public:
    InspectorSession();
    ~InspectorSession() override;
    bool init();

    /// The one that is open, or null.
    static InspectorSession* current();
    /// Who opens it; the release of a key that does is not the application's business either.
    enum class OpenedBy { keys, program };
    static void open(OpenedBy);
    static void close();
    /// Control-Shift-I.
    static bool isOpeningKey(HostEvent const&);

    InspectorPanel& panel() const { return *m_panel; }
    /// The window that is looked at; null for none.
    NSWindow* window() const { return m_overlay.window(); }
    NSView* selectedView() const { return m_overlay.selectedView(); }
    /// The view that would be picked now.
    NSView* hoveredView() const { return m_overlay.hoveredView(); }
    EventLog const& log() const { return m_log; }
    /// Null for none. One of another window has that one looked at.
    void selectView(NSView*);
    bool isPicking() const { return m_isPicking; }
    /// While picking the mouse is kept from the application: what it points at is shown, and a click selects that.
    void setPicking(bool);
    /// Puts the events on the general pasteboard, as the source of a test.
    void copyAsTest();
    void clearEvents();
    /// Shows what there is now. Happens a moment after each event and frame by itself.
    void refresh();

private:
    void begin(OpenedBy);
    void end();
    void inspect(NSWindow*);
    void refreshSoon();
    void windowBecameKey(NSNotification const&);
    void windowWillClose(NSNotification const&);
    bool takesPanelEvent(HostEvent const&);
    bool takesPick(NSWindow&, HostEvent const&);
    bool takesReleaseOfOpeningKey(HostEvent const&);
    bool isReleaseOfOpeningModifiers(HostEvent const&);
    void record(NSWindow&, HostEvent const&);

    // WindowWatcher:
    bool takesHostEvent(NSWindow&, HostEvent const&) override;
    void contentWillBeDrawn(NSWindow&, Region&) override;
    void contentWasDrawn(NSWindow&) override;
    void pixelsWillMove(NSWindow&, Rect, Size by) override;

    Ref<InspectorPanel> m_panel;
    WindowOverlay m_overlay;
    EventLog m_log;
    Ref<NSTimer> m_refreshTimer;
    std::vector<Ref<NSObject>> m_observers;
    bool m_isPicking { false };
    bool m_isCopied { false };
    bool m_keepsRelease { false };
    bool m_keepsKeyRelease { false };
    bool m_awaitsModifierRelease { false };
};

}
