#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Hook.h>

namespace plix {

/// Whether the application may end; later is said by replyToApplicationShouldTerminate().
enum NSApplicationTerminateReply : int { NSTerminateCancel = 0, NSTerminateNow = 1, NSTerminateLater = 2 };

/// What the application asks and tells its delegate.
struct NSApplicationDelegate {
    // Questions; without an answer it ends when asked to, goes on without windows, and shows none of itself.
    Hook<NSApplicationTerminateReply(NSApplication&)> applicationShouldTerminate;
    Hook<bool(NSApplication&)> applicationShouldTerminateAfterLastWindowClosed;
    Hook<bool(NSApplication&, bool hasVisibleWindows)> applicationShouldHandleReopen;

    // Told with the notification of the like name.
    Hook<void(NSNotification const&)> applicationWillFinishLaunching;
    Hook<void(NSNotification const&)> applicationDidFinishLaunching;
    Hook<void(NSNotification const&)> applicationWillBecomeActive;
    Hook<void(NSNotification const&)> applicationDidBecomeActive;
    Hook<void(NSNotification const&)> applicationWillResignActive;
    Hook<void(NSNotification const&)> applicationDidResignActive;
    Hook<void(NSNotification const&)> applicationWillHide;
    Hook<void(NSNotification const&)> applicationDidHide;
    Hook<void(NSNotification const&)> applicationWillUnhide;
    Hook<void(NSNotification const&)> applicationDidUnhide;
    Hook<void(NSNotification const&)> applicationWillUpdate;
    Hook<void(NSNotification const&)> applicationDidUpdate;
    Hook<void(NSNotification const&)> applicationWillTerminate;
    Hook<void(NSNotification const&)> applicationDidChangeScreenParameters;

    template <typename Host> void fillFrom(Host& host)
    {
        PLIX_FILL_HOOK(applicationShouldTerminate);
        PLIX_FILL_HOOK(applicationShouldTerminateAfterLastWindowClosed);
        PLIX_FILL_HOOK(applicationShouldHandleReopen);
        PLIX_FILL_HOOK(applicationWillFinishLaunching);
        PLIX_FILL_HOOK(applicationDidFinishLaunching);
        PLIX_FILL_HOOK(applicationWillBecomeActive);
        PLIX_FILL_HOOK(applicationDidBecomeActive);
        PLIX_FILL_HOOK(applicationWillResignActive);
        PLIX_FILL_HOOK(applicationDidResignActive);
        PLIX_FILL_HOOK(applicationWillHide);
        PLIX_FILL_HOOK(applicationDidHide);
        PLIX_FILL_HOOK(applicationWillUnhide);
        PLIX_FILL_HOOK(applicationDidUnhide);
        PLIX_FILL_HOOK(applicationWillUpdate);
        PLIX_FILL_HOOK(applicationDidUpdate);
        PLIX_FILL_HOOK(applicationWillTerminate);
        PLIX_FILL_HOOK(applicationDidChangeScreenParameters);
    }
};

}
