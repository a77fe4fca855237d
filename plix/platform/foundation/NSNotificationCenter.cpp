#include <plix/platform/foundation/NSNotificationCenter.h>

#include <plix/platform/base/Weak.h>

#include <algorithm>

namespace plix {

namespace {

class ObserverToken final : public NSObject { };

}

struct NSNotificationCenter::Registration {
    Weak<NSObject> observer;
    std::uint64_t observerNumber;
    Weak<NSObject const> filter;
    std::uint64_t filterNumber;
    std::uint64_t sequence;
    Callback callback;
    bool isRemoved { false };

    bool isGone() const { return isRemoved || !observer || (filterNumber && !filter); }
    bool takes(NSObject const* object) const { return !filterNumber || (object && object->serialNumber() == filterNumber); }
};

PLIX_DESCRIBE(NSNotificationCenter)
{
}

NSNotificationCenter::~NSNotificationCenter() = default;

NSNotificationCenter& NSNotificationCenter::defaultCenter()
{
    static auto* const s_center = make<NSNotificationCenter>().leak();
    return *s_center;
}

void NSNotificationCenter::enter(NSObject& observer, Callback callback, std::optional<std::string> name, NSObject const* object)
{
    auto& registrations = name ? m_byName[std::move(*name)] : m_forAllNames;
    registrations.push_back(std::make_shared<Registration>(Registration { Weak<NSObject>(observer), observer.serialNumber(),
        Weak<NSObject const>(object), object ? object->serialNumber() : 0, m_nextSequence++, std::move(callback) }));
    if (++m_enteredSinceSweep > m_liveAtLastSweep + 64)
        sweep();
}

Ref<NSObject> NSNotificationCenter::addObserver(Callback callback, std::optional<std::string> name, NSObject const* object)
{
    auto token = make<ObserverToken>();
    enter(*token, std::move(callback), std::move(name), object);
    return token;
}

void NSNotificationCenter::removeObserver(NSObject const& observer)
{
    removeObserver(observer, std::nullopt);
}

void NSNotificationCenter::removeObserver(NSObject const& observer, std::optional<std::string> const& name, NSObject const* object)
{
    // What a callback captured is let go last: its destruction may come back here.
    Registrations removed;
    auto const remove = [&](Registrations& registrations) {
        std::erase_if(registrations, [&](auto const& registration) {
            bool const isMeant = registration->observerNumber == observer.serialNumber()
                && (!object || registration->filterNumber == object->serialNumber());
            if (isMeant) {
                registration->isRemoved = true;
                removed.push_back(registration);
            }
            return isMeant;
        });
    };
    if (name) {
        if (auto const found = m_byName.find(*name); found != m_byName.end())
            remove(found->second);
        return;
    }
    for (auto& [key, registrations] : m_byName)
        remove(registrations);
    remove(m_forAllNames);
}

void NSNotificationCenter::sweep()
{
    Registrations removed;
    auto const isGone = [&](auto const& registration) {
        if (registration->isGone())
            removed.push_back(registration);
        return registration->isGone();
    };
    std::erase_if(m_forAllNames, isGone);
    m_enteredSinceSweep = 0;
    m_liveAtLastSweep = m_forAllNames.size();
    for (auto entry = m_byName.begin(); entry != m_byName.end();) {
        std::erase_if(entry->second, isGone);
        m_liveAtLastSweep += entry->second.size();
        entry = entry->second.empty() ? m_byName.erase(entry) : std::next(entry);
    }
}

NSNotificationCenter::Registrations NSNotificationCenter::matching(NSNotification const& notification)
{
    Registrations matching;
    auto const take = [&](Registrations const& registrations) {
        for (auto const& registration : registrations) {
            if (!registration->isGone() && registration->takes(notification.object.get()))
                matching.push_back(registration);
        }
    };
    if (auto const found = m_byName.find(notification.name); found != m_byName.end())
        take(found->second);
    auto const named = static_cast<std::ptrdiff_t>(matching.size());
    take(m_forAllNames);
    std::inplace_merge(matching.begin(), matching.begin() + named, matching.end(),
        [](auto const& a, auto const& b) { return a->sequence < b->sequence; });
    return matching;
}

void NSNotificationCenter::postNotification(NSNotification const& notification)
{
    for (auto const& registration : matching(notification)) {
        if (registration->isGone())
            continue;
        Ref<NSObject> const protector(registration->observer.get());
        registration->callback(notification);
    }
}

void NSNotificationCenter::postNotificationName(std::string name, Ref<NSObject> object, ObjectValue::Dictionary userInfo)
{
    postNotification({ std::move(name), std::move(object), std::move(userInfo) });
}

}
