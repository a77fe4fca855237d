#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/Ref.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class NSObject;
class NSTimer;
class RunLoopDescriptor;

// Modes: as usual, while the mouse is followed, while a window is modal.
inline constexpr std::string_view NSDefaultRunLoopMode = "kCFRunLoopDefaultMode";
inline constexpr std::string_view NSEventTrackingRunLoopMode = "NSEventTrackingRunLoopMode";
inline constexpr std::string_view NSModalPanelRunLoopMode = "NSModalPanelRunLoopMode";
/// What is added for this runs in each of the common modes: the three above and those that addCommonMode() named.
inline constexpr std::string_view NSRunLoopCommonModes = "kCFRunLoopCommonModes";

/// The main thread's loop: timers, file descriptors, calls from other threads and the host's events in one wait, through the
/// installed EventSource. Runs in one mode at a time and may be run inside its own callbacks. Sleeps without a deadline when it has
/// none; nothing wakes it then but its sources.
class PLIX_EXPORT NSRunLoop {
public:
    /// What one turn did; where both happened, Sources.
    enum class Activity { None, Timers, Sources };

    /// The main thread's, and to be used there only.
    static NSRunLoop& currentRunLoop();

    /// Holds the timer until it is invalid. Does nothing to an invalid one.
    void addTimer(NSTimer&, std::string_view mode);
    /// Holds the source until it is removed or invalid.
    void addDescriptor(RunLoopDescriptor&, std::string_view mode);
    void removeDescriptor(RunLoopDescriptor&, std::string_view mode);
    /// Called before each wait of the loop in that mode, as long as the answered token lives, in order of registration.
    [[nodiscard]] Ref<NSObject> addObserverBeforeWaiting(std::function<void()>, std::string_view mode = NSRunLoopCommonModes);
    void addCommonMode(std::string_view mode);

    /// One turn: observers, wait, then all that is due. Waits until there was something, or until the date.
    Activity runOnce(std::string_view mode, NSDate beforeDate);
    /// Turns until a source or the host's events were handled (true) or the date has come (false). Timers fire meanwhile.
    bool runMode(std::string_view mode, NSDate beforeDate);
    /// Turns until the condition holds, which is tested before each, or the date has come. Answers whether it holds.
    bool runUntil(std::function<bool()> const& condition, std::string_view mode = NSDefaultRunLoopMode,
        NSDate beforeDate = NSDate::distantFuture());
    void runUntilDate(NSDate);

    /// The mode it runs in, of nested runs the innermost; nullopt while it does not run.
    std::optional<std::string> const& currentMode() const;
    /// When the next timer of the mode is due; nullopt where there is none.
    std::optional<NSDate> nextFireDate(std::string_view mode);

    /// Calls the function on the main thread, in the common modes, in order. May be called from any thread.
    static void performOnMainThread(std::function<void()>);
    /// Ends the current or the next wait. May be called from any thread.
    static void wakeUp();

    // Told by timers.
    void timerMoved(NSTimer&);
    void timerInvalidated(NSTimer&);

private:
    struct State;

    NSRunLoop();
    ~NSRunLoop();

    bool isCommon(std::string_view mode) const;
    std::optional<NSTimeInterval> nextTimer(std::string_view mode);
    void callObservers(std::string_view mode);
    bool fireDueTimers(std::string_view mode);
    /// Sleeps, and calls the descriptors that became ready. True where one did.
    bool waitAndCallDescriptors(std::string_view mode, std::optional<NSTimeInterval> deadline);
    Activity turn(std::string_view mode, std::optional<NSTimeInterval> deadline);

    std::unique_ptr<State> m_state;
};

}
