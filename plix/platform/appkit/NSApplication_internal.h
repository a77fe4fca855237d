#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/Display.h>

#include <deque>
#include <functional>
#include <vector>

namespace plix {

struct NSApplication::Internals final : DisplayClient {
    explicit Internals(NSApplication&);
    ~Internals() override;

    NSApplication& self;
    std::deque<Ref<NSEvent>> queue;
    Ref<NSEvent> currentEvent;
    Weak<NSWindow> keyWindow;
    Weak<NSWindow> mainWindow;
    /// Becomes key again when the application becomes active.
    Weak<NSWindow> lastKeyWindow;
    /// Takes the mouse while a button is held.
    Weak<NSWindow> mouseWindow;
    /// Visible windows, front to back.
    std::vector<NSWindow*> order;
    std::vector<Ref<NSModalSession>> sessions;
    std::vector<long> attentionRequests;
    Weak<NSWindow> attentionWindow;
    long nextAttentionRequest { 1 };
    HookSource delegateSource;
    NSApplicationDelegate hooks;
    Ref<NSImage> icon;
    Ref<NSMenu> mainMenu;
    std::function<void()> exitHandler;
    Ref<NSObject> waitObserver;
    int runDepth { 0 };
    bool hasLaunched { false };
    bool isActive { false };
    bool isHidden { false };
    bool stopsRunning { false };
    bool isTerminating { false };
    bool awaitsTerminateReply { false };
    bool windowsNeedUpdate { false };
    bool mayHaveLostFocus { false };
    Point lastMouseLocation;
    long nextEventNumber { 1 };

    void post(char const* name, Hook<void(NSNotification const&)> NSApplicationDelegate::*hook);
    void enqueue(Ref<NSEvent>);
    /// Out of the queue; it is the current event then.
    Ref<NSEvent> take(std::deque<Ref<NSEvent>>::iterator);
    /// Before the run loop waits: draws, updates cursors, notices that another application is active.
    void beforeWaiting();
    void displayWindows();

    void setKeyWindow(NSWindow*);
    void setMainWindow(NSWindow*);
    void setActive(bool);
    void focusGained(NSWindow&);
    void focusLost();
    void windowOrderedIn(NSWindow&, NSWindowOrderingMode, NSWindow* relativeTo);
    void windowOrderedOut(NSWindow&);
    void windowClosed(NSWindow&);
    /// Who becomes key when the key window goes.
    NSWindow* nextKeyWindow(NSWindow const* except) const;

    NSModalSession* innermostSession() const { return sessions.empty() ? nullptr : sessions.back().get(); }
    /// Whether a modal window or a sheet keeps input from the window.
    bool isBlocked(NSWindow const&) const;
    void beepForBlocked(NSWindow&);
    void sendKeyDown(NSEvent&);
    void cancelAttention();
    void finishTerminating();

    // DisplayClient:
    void displayScreensChanged() override;
    void displayWantsQuit() override;
};

}
