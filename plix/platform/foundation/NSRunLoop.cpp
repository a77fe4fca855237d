#include <plix/platform/foundation/NSRunLoop.h>

#include <plix/platform/base/NSLog.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/base/main_thread.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/foundation/event_source.h>
#include <plix/platform/foundation/main_thread_queue.h>
#include <plix/platform/foundation/timer_heap.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cmath>
#include <map>

#include <poll.h>

namespace plix {

namespace {

class ObserverToken final : public NSObject { };

struct WaitObserver {
    Weak<NSObject> token;
    std::shared_ptr<std::function<void()>> callback;
};

struct Mode {
    TimerHeap timers;
    std::vector<Ref<RunLoopDescriptor>> descriptors;
    std::vector<WaitObserver> observers;
};

timespec timespecFromSeconds(NSTimeInterval seconds)
{
    constexpr NSTimeInterval longest = 1e9;
    seconds = std::clamp(seconds, 0.0, longest);
    auto const whole = std::floor(seconds);
    return { static_cast<time_t>(whole), std::min(static_cast<long>(std::ceil((seconds - whole) * 1e9)), 999999999L) };
}

/// The wait without a host: the descriptors alone.
void pollUntil(std::span<pollfd> descriptors, std::optional<NSTimeInterval> deadline)
{
    auto const timeout = timespecFromSeconds(deadline ? *deadline - clock().uptime() : 0);
    ::ppoll(descriptors.data(), descriptors.size(), deadline ? &timeout : nullptr, nullptr);
}

NSTimeInterval uptimeAt(NSDate date)
{
    return clock().uptime() + date.timeIntervalSinceDate(clock().now());
}

std::optional<NSTimeInterval> earlier(std::optional<NSTimeInterval> a, std::optional<NSTimeInterval> b)
{
    return a && b ? std::min(*a, *b) : a ? a : b;
}

}

struct NSRunLoop::State {
    std::map<std::string, Mode, std::less<>> modes;
    std::vector<std::string> commonModes { std::string(NSDefaultRunLoopMode), std::string(NSEventTrackingRunLoopMode),
        std::string(NSModalPanelRunLoopMode) };
    std::optional<std::string> currentMode;
    std::uint64_t nextSequence { 1 };

    Mode& mode(std::string_view name)
    {
        auto const found = modes.find(name);
        return found != modes.end() ? found->second : modes[std::string(name)];
    }
};

NSRunLoop::NSRunLoop()
    : m_state(std::make_unique<State>())
{
}

NSRunLoop::~NSRunLoop() = default;

NSRunLoop& NSRunLoop::currentRunLoop()
{
    assert(isMainThread());
    static auto& s_runLoop = *new NSRunLoop;
    return s_runLoop;
}

bool NSRunLoop::isCommon(std::string_view mode) const
{
    return std::ranges::find(m_state->commonModes, mode) != m_state->commonModes.end();
}

void NSRunLoop::addCommonMode(std::string_view mode)
{
    if (!isCommon(mode))
        m_state->commonModes.emplace_back(mode);
}

std::optional<std::string> const& NSRunLoop::currentMode() const
{
    return m_state->currentMode;
}

void NSRunLoop::addTimer(NSTimer& timer, std::string_view mode)
{
    auto& modes = timer.modes({});
    if (!timer.isValid() || std::ranges::find(modes, mode) != modes.end())
        return;
    modes.emplace_back(mode);
    m_state->mode(mode).timers.push({ timer.fireUptime({}), m_state->nextSequence++, Ref<NSTimer>(timer), timer.version() });
}

void NSRunLoop::timerMoved(NSTimer& timer)
{
    for (auto const& mode : timer.modes({})) {
        auto& timers = m_state->mode(mode).timers;
        timers.noteEntryStale();
        timers.push({ timer.fireUptime({}), m_state->nextSequence++, Ref<NSTimer>(timer), timer.version() });
    }
}

void NSRunLoop::timerInvalidated(NSTimer& timer)
{
    Ref<NSTimer> const protector(timer);
    for (auto const& mode : timer.modes({}))
        m_state->mode(mode).timers.noteEntryStale();
}

void NSRunLoop::addDescriptor(RunLoopDescriptor& descriptor, std::string_view mode)
{
    auto& descriptors = m_state->mode(mode).descriptors;
    if (std::ranges::find(descriptors, &descriptor, &Ref<RunLoopDescriptor>::get) == descriptors.end())
        descriptors.emplace_back(descriptor);
}

void NSRunLoop::removeDescriptor(RunLoopDescriptor& descriptor, std::string_view mode)
{
    Ref<RunLoopDescriptor> const protector(descriptor);
    std::erase_if(m_state->mode(mode).descriptors, [&](auto const& held) { return held == &descriptor; });
}

Ref<NSObject> NSRunLoop::addObserverBeforeWaiting(std::function<void()> callback, std::string_view mode)
{
    Ref<NSObject> const token = make<ObserverToken>();
    m_state->mode(mode).observers.push_back({ token, std::make_shared<std::function<void()>>(std::move(callback)) });
    return token;
}

void NSRunLoop::callObservers(std::string_view mode)
{
    std::vector<WaitObserver> present;
    auto const take = [&](std::string_view name) {
        auto& observers = m_state->mode(name).observers;
        std::erase_if(observers, [](auto const& observer) { return !observer.token; });
        present.insert(present.end(), observers.begin(), observers.end());
    };
    take(mode);
    if (isCommon(mode))
        take(NSRunLoopCommonModes);
    for (auto const& observer : present) {
        Ref<NSObject> const protector(observer.token.get());
        if (protector)
            (*observer.callback)();
    }
}

std::optional<NSTimeInterval> NSRunLoop::nextTimer(std::string_view mode)
{
    auto const own = m_state->mode(mode).timers.nextUptime();
    return isCommon(mode) ? earlier(own, m_state->mode(NSRunLoopCommonModes).timers.nextUptime()) : own;
}

std::optional<NSDate> NSRunLoop::nextFireDate(std::string_view mode)
{
    auto const next = nextTimer(mode);
    return next ? std::optional(clock().now().addTimeInterval(*next - clock().uptime())) : std::nullopt;
}

bool NSRunLoop::fireDueTimers(std::string_view mode)
{
    // What is not reached because a callback threw goes back on the heap.
    struct Due {
        TimerHeap& timers;
        std::vector<TimerHeap::Entry> entries;
        std::size_t next { 0 };
        ~Due()
        {
            for (; next < entries.size(); ++next)
                timers.push(std::move(entries[next]));
        }
    } due { m_state->mode(mode).timers, {} };

    auto const now = clock().uptime();
    due.timers.popDue(now, due.entries);
    if (isCommon(mode))
        m_state->mode(NSRunLoopCommonModes).timers.popDue(now, due.entries);
    std::ranges::sort(due.entries, [](auto const& a, auto const& b) { return a.isBefore(b); });
    bool anyFired = false;
    while (due.next < due.entries.size()) {
        auto const entry = std::move(due.entries[due.next++]);
        // A firing one is put on the heap again when its callback returns.
        if (!entry.isCurrent() || entry.timer->isFiring())
            continue;
        entry.timer->fireFromRunLoop({});
        anyFired = true;
    }
    return anyFired;
}

bool NSRunLoop::waitAndCallDescriptors(std::string_view mode, std::optional<NSTimeInterval> deadline)
{
    auto& queue = MainThreadQueue::shared();
    std::vector<Ref<RunLoopDescriptor>> watched;
    auto const take = [&](std::string_view name) {
        auto& descriptors = m_state->mode(name).descriptors;
        std::erase_if(descriptors, [](auto const& descriptor) { return !descriptor->isValid(); });
        watched.insert(watched.end(), descriptors.begin(), descriptors.end());
    };
    take(mode);
    if (isCommon(mode))
        take(NSRunLoopCommonModes);

    std::vector<pollfd> polled { { queue.descriptor(), POLLIN, 0 } };
    for (auto const& descriptor : watched)
        polled.push_back({ descriptor->descriptor(), descriptor->events(), 0 });
    if (auto* source = eventSource())
        source->wait(polled, deadline);
    else
        pollUntil(polled, deadline);
    if (polled[0].revents)
        queue.clearWake();

    bool anyCalled = false;
    for (std::size_t i = 0; i < watched.size(); ++i) {
        auto const revents = polled[i + 1].revents;
        if (!revents || !watched[i]->isValid())
            continue;
        anyCalled = true;
        watched[i]->call(revents);
        if (revents & POLLNVAL) {
            NSLog("NSRunLoop: a file descriptor was closed before its source was invalidated");
            watched[i]->invalidate();
        }
    }
    return anyCalled;
}

NSRunLoop::Activity NSRunLoop::turn(std::string_view mode, std::optional<NSTimeInterval> deadline)
{
    callObservers(mode);
    auto& queue = MainThreadQueue::shared();
    bool const hasCalls = isCommon(mode) && !queue.isEmpty();
    bool anySource = waitAndCallDescriptors(mode, hasCalls ? clock().uptime() : earlier(deadline, nextTimer(mode)));
    if (auto* source = eventSource())
        anySource |= source->deliverPending();
    bool const anyTimer = fireDueTimers(mode);
    if (isCommon(mode))
        anySource |= queue.drain();
    return anySource ? Activity::Sources : anyTimer ? Activity::Timers : Activity::None;
}

NSRunLoop::Activity NSRunLoop::runOnce(std::string_view mode, NSDate beforeDate)
{
    struct InMode {
        std::optional<std::string>& current;
        std::optional<std::string> before;
        ~InMode() { current = std::move(before); }
    } const inMode { m_state->currentMode, std::exchange(m_state->currentMode, std::string(mode)) };
    std::string const name(mode);
    std::optional<NSTimeInterval> deadline;
    if (beforeDate < NSDate::distantFuture())
        deadline = uptimeAt(beforeDate);
    for (;;) {
        auto const activity = turn(name, deadline);
        if (activity != Activity::None || (deadline && clock().uptime() >= *deadline))
            return activity;
    }
}

bool NSRunLoop::runMode(std::string_view mode, NSDate beforeDate)
{
    for (;;) {
        auto const activity = runOnce(mode, beforeDate);
        if (activity == Activity::Sources)
            return true;
        if (activity == Activity::None || clock().now() >= beforeDate)
            return false;
    }
}

bool NSRunLoop::runUntil(std::function<bool()> const& condition, std::string_view mode, NSDate beforeDate)
{
    while (!condition()) {
        if (runOnce(mode, beforeDate) == Activity::None || clock().now() >= beforeDate)
            return condition();
    }
    return true;
}

void NSRunLoop::runUntilDate(NSDate date)
{
    while (runMode(NSDefaultRunLoopMode, date) && clock().now() < date) { }
}

void NSRunLoop::performOnMainThread(std::function<void()> call)
{
    MainThreadQueue::shared().add(std::move(call));
}

void NSRunLoop::wakeUp()
{
    MainThreadQueue::shared().wake();
}

}
