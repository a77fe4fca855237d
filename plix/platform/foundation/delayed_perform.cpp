#include <plix/platform/foundation/delayed_perform.h>

#include <plix/platform/foundation/NSTimer.h>

#include <algorithm>

namespace plix {

namespace {

struct Request {
    std::uint64_t targetNumber;
    detail::PerformKey key;
    Ref<NSTimer> timer;
};

std::vector<Request>& requests()
{
    static auto& s_requests = *new std::vector<Request>;
    return s_requests;
}

detail::PerformKey keyOf(Selector selector, NSObject* argument)
{
    auto key = detail::PerformKey::of(selector);
    key.argument = argument;
    return key;
}

}

void detail::performAfterDelay(
    NSObject& target, PerformKey const& key, std::function<void()> call, NSTimeInterval delay, RunLoopModes const& modes)
{
    auto timer = make<NSTimer>(
        NSDate::dateWithTimeIntervalSinceNow(std::max(delay, 0.0)), 0,
        [held = Ref<NSObject>(target), call = std::move(call)](NSTimer& fired) {
            std::erase_if(requests(), [&](Request const& request) { return request.timer == &fired; });
            call();
        },
        ObjectValue {}, false);
    for (auto const mode : modes)
        NSRunLoop::currentRunLoop().addTimer(*timer, mode);
    requests().push_back({ target.serialNumber(), key, std::move(timer) });
}

void detail::cancelPerforms(NSObject const& target, std::optional<PerformKey> const& key)
{
    // Letting the targets go comes last: it may come back here.
    std::vector<Ref<NSTimer>> cancelled;
    std::erase_if(requests(), [&](Request const& request) {
        bool const isMeant = request.targetNumber == target.serialNumber() && (!key || request.key == *key);
        if (isMeant)
            cancelled.push_back(request.timer);
        return isMeant;
    });
    for (auto const& timer : cancelled)
        timer->invalidate();
}

void performSelector(
    NSObject& target, Selector selector, Ref<NSObject> const& argument, NSTimeInterval delay, RunLoopModes const& modes)
{
    detail::performAfterDelay(
        target, keyOf(selector, argument.get()), [&target, selector, argument] { target.perform(selector, argument.get()); }, delay,
        modes);
}

void cancelPreviousPerformRequests(NSObject const& target)
{
    detail::cancelPerforms(target, std::nullopt);
}

void cancelPreviousPerformRequests(NSObject const& target, Selector selector, NSObject* argument)
{
    detail::cancelPerforms(target, keyOf(selector, argument));
}

}
