#include <plix/platform/base/NSObject.h>

#include <plix/platform/base/Class.h>
#include <plix/platform/base/Selector.h>
#include <plix/platform/base/living_objects.h>
#include <plix/platform/base/main_thread.h>

#include <atomic>
#include <cassert>
#include <functional>
#include <thread>
#include <unordered_map>
#include <utility>
#include <vector>

namespace plix {

namespace {

std::atomic<std::thread::id> s_mainThread {};
std::size_t s_livingObjects = 0;

std::unordered_map<NSObject const*, std::vector<Ref<NSObject>>>& companions()
{
    static auto& s_companions = *new std::unordered_map<NSObject const*, std::vector<Ref<NSObject>>>;
    return s_companions;
}

}

std::size_t livingObjects()
{
    return s_livingObjects;
}

bool isMainThread()
{
    auto const current = std::this_thread::get_id();
    std::thread::id none {};
    if (s_mainThread.compare_exchange_strong(none, current))
        return true;
    return none == current;
}

NSObject::NSObject()
{
    static std::uint64_t s_nextSerialNumber = 1;
    assert(isMainThread());
    m_serialNumber = s_nextSerialNumber++;
    ++s_livingObjects;
}

NSObject::~NSObject()
{
    --s_livingObjects;
    m_isBeingDestroyed = true;
    if (m_hasCompanions) {
        auto const released = companions().extract(this); // out of the table first: their destructors may come back to it
    }
    if (!m_weakLink)
        return;
    m_weakLink->object = nullptr;
    if (--m_weakLink->references == 0)
        delete m_weakLink;
}

std::size_t NSObject::hash() const
{
    return std::hash<std::uint64_t> {}(m_serialNumber);
}

std::string NSObject::description() const
{
    return "<" + describedClass().name() + " #" + std::to_string(m_serialNumber) + ">";
}

Class const& NSObject::staticClass()
{
    static auto const& s_class = Class::describe<NSObject>("NSObject", nullptr, [](ClassDescription<NSObject>&) {});
    return s_class;
}

Class const& NSObject::describedClass() const
{
    return staticClass();
}

Class const& NSObject::isa() const
{
    auto const& described = describedClass();
    assert(described.type() == typeid(*this));
    return described;
}

bool NSObject::isKindOfClass(Class const& other) const
{
    return describedClass().isSubclassOfClass(other);
}

bool NSObject::isMemberOfClass(Class const& other) const
{
    return other.type() == typeid(*this);
}

Ref<NSObject> NSObject::copy() const
{
    auto fresh = isa().allocate();
    assert(fresh);
    copyStateTo(*fresh);
    return fresh;
}

bool NSObject::perform(Selector selector, NSObject* argument)
{
    auto const* action = describedClass().action(selector);
    if (!action)
        return false;
    Ref<NSObject> const protector(this);
    (*action)(*this, argument);
    return true;
}

bool NSObject::respondsToSelector(Selector selector) const
{
    return describedClass().action(selector) != nullptr;
}

void NSObject::keepAlive(Ref<NSObject> companion)
{
    if (!companion || companion == this)
        return;
    companions()[this].push_back(std::move(companion));
    m_hasCompanions = true;
}

void NSObject::retain() const
{
    assert(isMainThread());
    assert(m_isAdopted);
    assert(!m_isBeingDestroyed);
    ++m_references;
}

void NSObject::release() const
{
    assert(isMainThread());
    assert(m_references > 0);
    if (m_references > 1) {
        --m_references;
        return;
    }
    m_isBeingDestroyed = true;
    if (m_weakLink)
        m_weakLink->object = nullptr;
    delete this;
}

void NSObject::adopt() const
{
    assert(!m_isAdopted);
    m_isAdopted = true;
}

detail::WeakLink& NSObject::weakLink() const
{
    if (!m_weakLink)
        m_weakLink = new detail::WeakLink { m_isBeingDestroyed ? nullptr : const_cast<NSObject*>(this), 1 };
    return *m_weakLink;
}

bool isEqual(NSObject const* a, NSObject const* b)
{
    return a == b || (a && b && a->isEqual(b));
}

}
