#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

namespace plix {

class Class;
class NSCoder;
class NSObject;
class Selector;

namespace detail {

/// What weak references hold on to: outlives the object while any is left.
struct WeakLink {
    NSObject* object;
    std::uint32_t references;
};

}

/// The root of everything that has identity. Reference counted, main thread only; made by make<T>(), held by Ref<T>.
/// Debug builds assert the thread, that an object is adopted before it is referenced, and that no reference is taken
/// while it is destroyed.
class PLIX_EXPORT NSObject {
public:
    NSObject(NSObject const&) = delete;
    NSObject& operator=(NSObject const&) = delete;
    virtual ~NSObject();

    bool init() { return true; }

    /// Identity unless a class of values says otherwise; nil is equal to nothing.
    virtual bool isEqual(NSObject const* other) const { return this == other; }
    virtual std::size_t hash() const;
    virtual std::string description() const;

    static Class const& staticClass();
    /// The descriptor of the nearest described class. isa() is the same, for an object whose own class is described.
    virtual Class const& describedClass() const;
    /// The descriptor of exactly this object's class; asserts in debug builds that the class has one of its own.
    Class const& isa() const;
    bool isKindOfClass(Class const&) const;
    bool isMemberOfClass(Class const&) const;

    /// A new object of the receiver's class with the receiver's state, made without init.
    Ref<NSObject> copy() const;

    /// Calls the action that the receiver's class describes under this name; false where it has none.
    virtual bool perform(Selector, NSObject* argument);
    virtual bool respondsToSelector(Selector) const;

    /// Writes what the class's init(NSCoder&) reads. Overrides call their base first.
    virtual void encodeWithCoder(NSCoder&) const { }

    /// Told to every object of an interface file when all its connections are made.
    virtual void awakeFromNib() { }

    /// Holds a companion as long as the receiver lives. Nothing for null or the receiver itself.
    void keepAlive(Ref<NSObject> companion);

    /// Never used again for another object, unlike the address.
    std::uint64_t serialNumber() const { return m_serialNumber; }

    // Called by Ref; nobody else needs them.
    void retain() const;
    void release() const;
    std::uint32_t retainCount() const { return m_references; }

    /// Called once by what makes objects, before anything else may hold the object.
    void adopt() const;
    detail::WeakLink& weakLink() const;

protected:
    NSObject();

    /// Gives a fresh object of the same class the receiver's state. Overrides call their base first.
    virtual void copyStateTo(NSObject& /*fresh*/) const { }

private:
    std::uint64_t m_serialNumber;
    mutable detail::WeakLink* m_weakLink { nullptr };
    mutable std::uint32_t m_references { 1 };
    mutable bool m_isAdopted { false };
    mutable bool m_isBeingDestroyed { false };
    bool m_hasCompanions { false };
};

/// Makes an object and runs T::init(arguments...). Null where init answers false. Where T itself has a static
/// instead(arguments...) that gives a Ref<T>, that is called and its object answered.
template <typename T, typename... Arguments> Ref<T> make(Arguments&&... arguments)
{
    if constexpr (requires {
                      {
                          T::instead(std::forward<Arguments>(arguments)...)
                          } -> std::same_as<Ref<T>>;
                  }) {
        return T::instead(std::forward<Arguments>(arguments)...);
    } else {
        auto object = Ref<T>::adopt(new T);
        object->adopt();
        if (!object->init(std::forward<Arguments>(arguments)...))
            return nullptr;
        return object;
    }
}

/// copy() with the static type kept.
template <typename T> Ref<T> copyOf(T const& object)
{
    return Ref<T>::adopt(static_cast<T*>(object.copy().leak()));
}

/// Where two objects may be nil: both nil, the same object, or equal by isEqual().
PLIX_EXPORT bool isEqual(NSObject const* a, NSObject const* b);

}
