#pragma once

#include <plix/platform/appkit/NSApplicationDelegate.h>
#include <plix/platform/appkit/NSResponder.h>
#include <plix/platform/base/Global.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/NSDate.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// What runModalForWindow() and runModalSession() answer where nobody gave another code.
enum NSModalResponse : long { NSRunStoppedResponse = -1000, NSRunAbortedResponse = -1001, NSRunContinuesResponse = -1002 };

/// How long a request lasts: until the application is activated, or for a moment.
enum NSRequestUserAttentionType : int { NSCriticalRequest = 0, NSInformationalRequest = 10 };

/// The one object that takes events from the host and hands them to windows. init() makes it NSApp.
class PLIX_EXPORT NSApplication : public NSResponder {
    PLIX_CLASS(NSApplication, NSResponder);

public:
    struct Internals;

    NSApplication();
    ~NSApplication() override;
    /// NSApp, made as a plain NSApplication where there is none yet.
    static NSApplication& sharedApplication();
    bool init();

    // Running.
    /// Once, before the first event: tells that the application launches. Called by run().
    virtual void finishLaunching();
    /// Handles events until stop() or terminate().
    virtual void run();
    bool isRunning() const;
    /// Ends the innermost run() or modal loop after the current event.
    virtual void stop(NSObject* sender);
    /// Asks the delegate, posts NSApplicationWillTerminateNotification, and ends run() and every modal loop; setExitHandler() says
    /// what happens then. Does nothing where the delegate says no.
    virtual void terminate(NSObject* sender);
    /// The delegate's answer after it said NSTerminateLater.
    void replyToApplicationShouldTerminate(bool);
    /// True from when terminate() was agreed to.
    bool isTerminating() const;
    /// Called at the end of terminate() when no run() is left to return to; exits the process unless something else is set.
    void setExitHandler(std::function<void()>);

    // Events.
    virtual void sendEvent(NSEvent&);
    void postEvent(NSEvent&, bool atStart);
    NSEvent* currentEvent() const;
    /// The next event of the mask, waiting until the date (distantPast: not at all); null where none came. The run loop runs in the
    /// mode meanwhile. Without `dequeue` the event stays.
    virtual Ref<NSEvent> nextEventMatchingMask(unsigned mask, NSDate until, std::string_view mode, bool dequeue);
    /// Drops events of the mask, up to the given one where it is not null.
    void discardEventsMatchingMask(unsigned mask, NSEvent* lastEvent);

    // Actions.
    /// Performs the action at the target, or with null along the responder chain. False where nobody took it.
    virtual bool sendAction(Selector, NSObject* target, NSObject* sender);
    /// Who would take the action from the chain: the key window's responders, its delegate, the main window's, the application and
    /// its delegate.
    NSObject* targetForAction(Selector) const;
    NSObject* targetForAction(Selector, NSObject* target, NSObject* sender) const;

    // Windows.
    NSWindow* keyWindow() const;
    NSWindow* mainWindow() const;
    NSWindow* windowWithWindowNumber(long) const;
    std::vector<Ref<NSWindow>> windows() const;
    /// Those on screen, front to back.
    std::vector<Ref<NSWindow>> orderedWindows() const;
    /// Sends update to each visible window. Happens after each event by itself.
    void updateWindows();
    void setWindowsNeedUpdate(bool);
    NSWindow* makeWindowsPerform(Selector, bool inOrder);

    // Activation and hiding.
    bool isActive() const;
    void activateIgnoringOtherApps(bool);
    void deactivate();
    bool isHidden() const;
    void hide(NSObject* sender);
    void unhide(NSObject* sender);
    void unhideWithoutActivation();
    void hideOtherApplications(NSObject* sender);

    // Modal windows. While one is modal, the input of all windows is dropped but of its own, of sheets on it, and of windows that
    // say worksWhenModal().
    /// Shows the window, runs a loop until it is stopped, and answers the code.
    virtual long runModalForWindow(NSWindow&);
    Ref<NSModalSession> beginModalSessionForWindow(NSWindow&);
    /// Handles the events that wait; where none does, waits for an event, timer or source first. NSRunContinuesResponse until the
    /// session is stopped.
    long runModalSession(NSModalSession&);
    void endModalSession(NSModalSession&);
    void stopModal();
    void stopModalWithCode(long code);
    void abortModal();
    NSWindow* modalWindow() const;

    /// Attaches a window to another one, whose input it takes until endSheet(), and answers when it has slid out from under that
    /// window's title. On a window that has a sheet already it hangs from that one. The handler, where there is one, is called by
    /// endSheet() with the code; the sheet slides away when it is ordered out after that.
    using SheetEnded = std::function<void(NSWindow& sheet, long returnCode)>;
    virtual void beginSheet(NSWindow& sheet, NSWindow& modalForWindow, SheetEnded = {});
    void endSheet(NSWindow& sheet) { endSheet(sheet, NSRunStoppedResponse); }
    virtual void endSheet(NSWindow& sheet, long returnCode);

    /// Asks for the user's attention while the application is not active; answers a number, 0 where it is active.
    virtual long requestUserAttention(NSRequestUserAttentionType);
    virtual void cancelUserAttentionRequest(long request);

    // The icon of windows and alerts.
    NSImage* applicationIconImage() const;
    void setApplicationIconImage(Ref<NSImage> const&);
    /// Looked through for keys behind the key window's views; what is in a window that is blocked does not act. Nothing shows it.
    NSMenu* mainMenu() const;
    void setMainMenu(Ref<NSMenu> const&);

    // Delegate.
    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSApplicationDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const;

    // NSResponder:
    bool tryToPerform(Selector, NSObject* argument) override;

    /// For the platform's own machinery, declared in NSApplication_internal.h.
    Internals& internals() const { return *m; }

private:
    std::unique_ptr<Internals> m;
};

/// The application object; null before it is made.
PLIX_EXPORT extern Global<NSApplication> NSApp;

/// Makes the application object and runs it; answers the process's exit status.
PLIX_EXPORT int NSApplicationMain(int argc, char const* const* argv);
/// The system's alert sound.
PLIX_EXPORT void NSBeep();

// Posted with the application as object; a delegate with the hook of the like name is told first.
inline constexpr char const* NSApplicationWillFinishLaunchingNotification = "NSApplicationWillFinishLaunchingNotification";
inline constexpr char const* NSApplicationDidFinishLaunchingNotification = "NSApplicationDidFinishLaunchingNotification";
inline constexpr char const* NSApplicationWillBecomeActiveNotification = "NSApplicationWillBecomeActiveNotification";
inline constexpr char const* NSApplicationDidBecomeActiveNotification = "NSApplicationDidBecomeActiveNotification";
inline constexpr char const* NSApplicationWillResignActiveNotification = "NSApplicationWillResignActiveNotification";
inline constexpr char const* NSApplicationDidResignActiveNotification = "NSApplicationDidResignActiveNotification";
inline constexpr char const* NSApplicationWillHideNotification = "NSApplicationWillHideNotification";
inline constexpr char const* NSApplicationDidHideNotification = "NSApplicationDidHideNotification";
inline constexpr char const* NSApplicationWillUnhideNotification = "NSApplicationWillUnhideNotification";
inline constexpr char const* NSApplicationDidUnhideNotification = "NSApplicationDidUnhideNotification";
inline constexpr char const* NSApplicationWillUpdateNotification = "NSApplicationWillUpdateNotification";
inline constexpr char const* NSApplicationDidUpdateNotification = "NSApplicationDidUpdateNotification";
inline constexpr char const* NSApplicationWillTerminateNotification = "NSApplicationWillTerminateNotification";
inline constexpr char const* NSApplicationDidChangeScreenParametersNotification
    = "NSApplicationDidChangeScreenParametersNotification";

}
