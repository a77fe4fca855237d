#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>

namespace plix {

class NSView;
class NSWindow;

}

namespace soak {

// What must hold between two events whatever has happened. Each answers what is wrong, or "".

/// Of drawing: nothing is left current, focused or saved.
std::string brokenDrawing();
/// Of all windows and of who has the keyboard: which first responders are, which window is key, what is modal.
std::string brokenWindows();
/// Of all views in the windows: the tree, and what tables, texts and choices say of themselves.
std::string brokenViews();
/// Of one view alone, and of one window's first responder.
std::string brokenView(plix::NSView&);
std::string brokenFirstResponder(plix::NSWindow&);
/// Looks for timers of views that cannot be seen. Such a timer may fire once more, to find that out.
class ViewTimerWatch {
public:
    /// What is wrong, or "".
    std::string brokenTimer();

private:
    /// When those would fire whose views were not seen the last time, by serial number.
    std::map<std::uint64_t, double> m_unseen;
};
/// Whether a timer is left that could fire in any of the usual modes.
std::string runningTimer();

/// More windows than these at a time are too many.
inline constexpr std::size_t mostWindows = 60;

}
