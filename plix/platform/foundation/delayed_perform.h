#pragma once

#include <plix/platform/base/NSDate.h>
#include <plix/platform/base/NSObject.h>
#include <plix/platform/base/Selector.h>
#include <plix/platform/foundation/NSRunLoop.h>

#include <array>
#include <cstring>
#include <optional>
#include <type_traits>
#include <typeindex>

namespace plix {

/// The modes in which a call may be made.
using RunLoopModes = std::vector<std::string_view>;

namespace detail {

/// What a delayed perform calls, for finding it again: a member function or a selector.
struct PerformKey {
    std::type_index type { typeid(void) };
    std::array<std::byte, 2 * sizeof(void*)> bytes {};
    NSObject* argument { nullptr };

    template <typename Operation> static PerformKey of(Operation operation)
    {
        static_assert(sizeof operation <= sizeof bytes && std::is_trivially_copyable_v<Operation>);
        PerformKey key { typeid(Operation), {}, nullptr };
        std::memcpy(key.bytes.data(), &operation, sizeof operation);
        return key;
    }
    friend bool operator==(PerformKey const&, PerformKey const&) = default;
};

PLIX_EXPORT void performAfterDelay(
    NSObject& target, PerformKey const&, std::function<void()> call, NSTimeInterval delay, RunLoopModes const&);
PLIX_EXPORT void cancelPerforms(NSObject const& target, std::optional<PerformKey> const&);

}

/// Calls the operation once after the delay (in seconds, by the run loop's clock), in one of the modes. The target is held until
/// then. A delay of 0 is the run loop's next turn.
template <typename T, typename Result, typename C>
void performAfterDelay(
    T& target, Result (C::*operation)(), NSTimeInterval delay, RunLoopModes const& modes = { NSDefaultRunLoopMode })
{
    detail::performAfterDelay(
        target, detail::PerformKey::of(operation), [&target, operation] { (target.*operation)(); }, delay, modes);
}
/// Likewise by NSObject::perform(); holds the argument too.
PLIX_EXPORT void performSelector(NSObject& target, Selector, Ref<NSObject> const& argument, NSTimeInterval delay,
    RunLoopModes const& modes = { NSDefaultRunLoopMode });

/// Calls off all that is waiting for this target.
PLIX_EXPORT void cancelPreviousPerformRequests(NSObject const& target);
/// Only the calls of this operation.
template <typename T, typename Result, typename C> void cancelPreviousPerformRequests(T const& target, Result (C::*operation)())
{
    detail::cancelPerforms(target, detail::PerformKey::of(operation));
}
/// Only those with this selector and this same argument.
PLIX_EXPORT void cancelPreviousPerformRequests(NSObject const& target, Selector, NSObject* argument);

}
