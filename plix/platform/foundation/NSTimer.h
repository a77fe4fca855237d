#pragma once

#include <plix/platform/base/Badge.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

namespace plix {

class NSRunLoop;

/// Calls its target once or again and again while the run loop runs in a mode that it was added for. The target is held until the
/// timer has fired for the last time or is invalidated. Timers count by clock().uptime(); a fire date is turned into that when set.
///
/// A repeating timer keeps its phase: what was missed is made up for by one call, then the next time of the original rhythm
/// follows. It does not fire while it is firing. An interval of 0 or less repeats as 0.1 ms.
class PLIX_EXPORT NSTimer : public NSObject {
    PLIX_CLASS(NSTimer, NSObject);

public:
    /// What a timer calls when it fires.
    using Callback = std::function<void(NSTimer&)>;

    bool init(NSDate fireDate, NSTimeInterval interval, Callback, ObjectValue userInfo, bool repeats);

    /// A timer that is added to no run loop yet. The operation takes the timer or nothing.
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    static Ref<NSTimer> timerWithTimeInterval(
        NSTimeInterval interval, T& target, Operation operation, ObjectValue userInfo, bool repeats)
    {
        return timerWithTimeInterval(
            interval,
            [target = Ref<T>(target), operation](NSTimer& timer) {
                if constexpr (std::is_invocable_v<Operation, T&, NSTimer&>)
                    ((*target).*operation)(timer);
                else
                    ((*target).*operation)();
            },
            repeats, std::move(userInfo));
    }
    static Ref<NSTimer> timerWithTimeInterval(NSTimeInterval, Callback, bool repeats, ObjectValue userInfo = {});

    /// Likewise, added to the current run loop in the default mode, which holds it.
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    static Ref<NSTimer> scheduledTimerWithTimeInterval(
        NSTimeInterval interval, T& target, Operation operation, ObjectValue userInfo, bool repeats)
    {
        auto timer = timerWithTimeInterval(interval, target, operation, std::move(userInfo), repeats);
        schedule(*timer);
        return timer;
    }
    static Ref<NSTimer> scheduledTimerWithTimeInterval(NSTimeInterval, Callback, bool repeats, ObjectValue userInfo = {});

    /// When it fires next; of an invalid timer the last date it had.
    NSDate fireDate() const { return m_fireDate; }
    /// Moves the next firing, and with it the rhythm of a repeating timer. Does nothing to an invalid one.
    void setFireDate(NSDate);
    /// 0 for a timer that does not repeat.
    NSTimeInterval timeInterval() const { return m_repeats ? m_interval : 0; }
    ObjectValue const& userInfo() const { return m_userInfo; }

    /// Whether it may still fire.
    bool isValid() const { return m_isValid; }
    /// Stops it for good and lets the target go. May be called inside its own callback.
    void invalidate();
    /// Calls the target now. Leaves a repeating timer's rhythm alone; another one is invalid then.
    void fire();

    // For the run loop, which keeps timers on a heap and tells by the version whether an entry is still current.
    NSTimeInterval fireUptime(Badge<NSRunLoop>) const { return m_fireUptime; }
    std::uint32_t version() const { return m_version; }
    bool isFiring() const { return m_isFiring; }
    void fireFromRunLoop(Badge<NSRunLoop>);
    std::vector<std::string>& modes(Badge<NSRunLoop>) { return m_modes; }

private:
    static void schedule(NSTimer&);
    void call();
    enum class Rhythm { Kept, Advanced };
    void callAndGoOn(Rhythm);
    void moveToNextBeat();

    Callback m_callback;
    ObjectValue m_userInfo;
    NSDate m_fireDate;
    NSTimeInterval m_fireUptime { 0 };
    NSTimeInterval m_interval { 0 };
    std::uint32_t m_version { 0 };
    bool m_repeats { false };
    bool m_isValid { false };
    bool m_isFiring { false };
    std::vector<std::string> m_modes;
};

}
