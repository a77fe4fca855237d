#pragma once

#include <plix/platform/base/NSObject.h>

namespace plix {

/// A reference that does not keep its object alive and reads as null once it is gone.
template <typename T> class Weak {
public:
    constexpr Weak() = default;
    constexpr Weak(std::nullptr_t) { }
    Weak(T* object) { set(object); }
    Weak(T& object) { set(&object); }
    Weak(Ref<T> const& object) { set(object.get()); }
    template <typename U>
    requires std::convertible_to<U*, T*> Weak(Ref<U> const& object) { set(object.get()); }
    Weak(Weak const& other) { set(other.get()); }
    Weak(Weak&& other) noexcept
        : m_link(std::exchange(other.m_link, nullptr))
        , m_object(std::exchange(other.m_object, nullptr))
    {
    }
    ~Weak() { clear(); }

    Weak& operator=(Weak other) noexcept
    {
        std::swap(m_link, other.m_link);
        std::swap(m_object, other.m_object);
        return *this;
    }

    // The object as long as it lives, then null.
    T* get() const { return m_link && m_link->object ? m_object : nullptr; }
    Ref<T> ref() const { return get(); }
    T* operator->() const { return get(); }
    T& operator*() const { return *get(); }
    explicit operator bool() const { return get() != nullptr; }
    /// True when it once held an object, gone or not.
    bool wasSet() const { return m_link != nullptr; }

    friend bool operator==(Weak const& a, Weak const& b) { return a.get() == b.get(); }
    friend bool operator==(Weak const& a, T const* b) { return a.get() == b; }
    friend bool operator==(Weak const& a, std::nullptr_t) { return !a.get(); }

private:
    void set(T* object)
    {
        if (!object)
            return;
        m_link = &object->weakLink();
        ++m_link->references;
        m_object = object;
    }
    void clear()
    {
        if (m_link && --m_link->references == 0)
            delete m_link;
        m_link = nullptr;
    }

    detail::WeakLink* m_link { nullptr };
    T* m_object { nullptr };
};

}
