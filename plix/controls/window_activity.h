#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/system/identity.h>

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

/// Has the view's activate() and deactivate() called from now on. From viewDidMoveToWindow(): what it registered for an earlier
/// window stays until the view goes. That is meant, and so is a view in no window following the application.
template <typename T> ActivitySource followActivity(T& view)
{
    auto& center = NSNotificationCenter::defaultCenter();
    auto const activate = [&view](NSNotification const& notification) { view.activate(&notification); };
    auto const deactivate = [&view](NSNotification const& notification) { view.deactivate(&notification); };
    auto const source = activitySourceFor(view.window());
    if (source == ActivitySource::window) {
        center.addObserver(view, deactivate, NSWindowDidResignKeyNotification, view.window());
        center.addObserver(view, deactivate, NSWindowWillBeginSheetNotification, view.window());
        center.addObserver(view, activate, NSWindowDidBecomeKeyNotification, view.window());
    } else if (source == ActivitySource::application) {
        // Nothing is done with the answer; that is meant.
        if (view.window())
            static_cast<void>(view.window()->parentWindow());
        center.addObserver(view, activate, NSApplicationDidBecomeActiveNotification, NSApp.get());
        center.addObserver(view, deactivate, NSApplicationDidResignActiveNotification, NSApp.get());
    }
    return source;
}

}
