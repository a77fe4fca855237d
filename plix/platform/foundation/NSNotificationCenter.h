#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/foundation/NSNotification.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace plix {

/// Tells observers of notifications, at once and in the order of their registration. Observers are held weakly. While one is
/// posted, observers may come and go: one that was added meanwhile is not told of it, one that was removed or destroyed is not
/// either.
///
/// A registration is for one name or, without one, for all; and for what is about one object or, with nil, about anything.
/// One for an object goes with that object.
class PLIX_EXPORT NSNotificationCenter : public NSObject {
    PLIX_CLASS(NSNotificationCenter, NSObject);

public:
    /// What an observer is called by.
    using Callback = std::function<void(NSNotification const&)>;

    /// The application's, where all of the library's notifications are posted.
    static NSNotificationCenter& defaultCenter();

    /// The operation takes the notification or nothing.
    template <typename T, typename Operation>
    requires std::is_member_function_pointer_v<Operation>
    void addObserver(T& observer, Operation operation, std::optional<std::string> name = {}, NSObject const* object = nullptr)
    {
        enter(
            observer,
            [&observer, operation](NSNotification const& notification) {
                if constexpr (std::is_invocable_v<Operation, T&, NSNotification const&>)
                    (observer.*operation)(notification);
                else
                    (observer.*operation)();
            },
            std::move(name), object);
    }
    /// A function that is called as long as the observer lives.
    template <typename T, typename Function>
    requires std::is_invocable_v<Function&, NSNotification const&>
    void addObserver(T& observer, Function function, std::optional<std::string> name = {}, NSObject const* object = nullptr)
    {
        enter(observer, std::move(function), std::move(name), object);
    }
    /// A function that is called as long as the answered token lives. The token may also be given to removeObserver().
    [[nodiscard]] Ref<NSObject> addObserver(Callback, std::optional<std::string> name = {}, NSObject const* object = nullptr);

    void removeObserver(NSObject const& observer);
    /// Only the registrations with this name (without one, any) and this object (nil, any).
    void removeObserver(NSObject const& observer, std::optional<std::string> const& name, NSObject const* object = nullptr);

    // Telling those who observe; comes back when all were told.
    void postNotification(NSNotification const&);
    void postNotificationName(std::string name, Ref<NSObject> object = nullptr, ObjectValue::Dictionary userInfo = {});

    ~NSNotificationCenter() override;

private:
    struct Registration;
    using Registrations = std::vector<std::shared_ptr<Registration>>;

    void enter(NSObject& observer, Callback, std::optional<std::string> name, NSObject const* object);
    Registrations matching(NSNotification const&);
    void sweep();

    std::unordered_map<std::string, Registrations> m_byName;
    Registrations m_forAllNames;
    std::size_t m_liveAtLastSweep { 0 };
    std::size_t m_enteredSinceSweep { 0 };
    std::uint64_t m_nextSequence { 1 };
};

}
