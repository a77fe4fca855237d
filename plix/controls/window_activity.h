#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/system/identity.h>

#include <span>
#include <typeinfo>

namespace plix {

/// What a view with an engraved look is told of its activity by.
enum class ActivitySource { none, window, application };

/// A window that is exactly an NSWindow or an NSPanel tells of its own key state; any other, and none, leaves that to the
/// application. Systems up to 10.1 tell nothing.
inline ActivitySource activitySourceFor(NSWindow const* window)
{
    constexpr std::uint32_t lastVersionWithoutActivity = 0x101F;
    if (PLIXSystemVersion() <= lastVersionWithoutActivity)
        return ActivitySource::none;
    bool const isPlain = window && (typeid(*window) == typeid(NSWindow) || typeid(*window) == typeid(NSPanel));
    return isPlain ? ActivitySource::window : ActivitySource::application;
}

/// A notification and what it makes a view.
struct ActivityNotification {
    char const* name;
    bool isActive;
};

/// In the order in which a view registers for them.
inline std::span<ActivityNotification const> activityNotifications(ActivitySource source)
{
    static constexpr ActivityNotification ofWindow[] {
        { NSWindowDidResignKeyNotification, false },
        { NSWindowWillBeginSheetNotification, false },
        { NSWindowDidBecomeKeyNotification, true },
    };
    static constexpr ActivityNotification ofApplication[] {
        { NSApplicationDidBecomeActiveNotification, true },
        { NSApplicationDidResignActiveNotification, false },
    };
    switch (source) {
    case ActivitySource::none:
        return {};
    case ActivitySource::window:
        return ofWindow;
    case ActivitySource::application:
        return ofApplication;
    }
    return {};
}

/// Has the view's activate() and deactivate() called from now on. From viewDidMoveToWindow(): what it registered for an earlier
/// window stays until the view goes. That is meant, and so is a view in no window following the application.
template <typename T> ActivitySource followActivity(T& view)
{
    auto const source = activitySourceFor(view.window());
    // Nothing is done with the answer; that is meant.
    if (source == ActivitySource::application && view.window())
        static_cast<void>(view.window()->parentWindow());
    NSObject const* teller = source == ActivitySource::window ? static_cast<NSObject*>(view.window()) : NSApp.get();
    auto& center = NSNotificationCenter::defaultCenter();
    for (auto const& [name, isActive] : activityNotifications(source)) {
        if (isActive)
            center.addObserver(
                view, [&view](NSNotification const& told) { view.activate(&told); }, name, teller);
        else
            center.addObserver(
                view, [&view](NSNotification const& told) { view.deactivate(&told); }, name, teller);
    }
    return source;
}

}
