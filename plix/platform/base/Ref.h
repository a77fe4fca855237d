#pragma once

#include <concepts>
#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

namespace plix {

/// Holds one reference to an object; null where the platform says nil.
/// Making one from a plain pointer takes a further reference.
template <typename T> class Ref {
public:
    constexpr Ref() = default;
    constexpr Ref(std::nullptr_t) { }
    Ref(T* object)
        : m_object(object)
    {
        if (m_object)
            m_object->retain();
    }
    Ref(T& object)
        : Ref(&object)
    {
    }
    Ref(Ref const& other)
        : Ref(other.m_object)
    {
    }
    Ref(Ref&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr))
    {
    }
    template <typename U>
    requires std::convertible_to<U*, T*> Ref(Ref<U> const& other)
        : Ref(other.get())
    {
    }
    template <typename U>
    requires std::convertible_to<U*, T*> Ref(Ref<U>&& other)
    noexcept
        : m_object(other.leak())
    {
    }
    ~Ref()
    {
        if (m_object)
            m_object->release();
    }

    Ref& operator=(Ref other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }

    /// Takes over the reference that the caller owns.
    static Ref adopt(T* object)
    {
        Ref ref;
        ref.m_object = object;
        return ref;
    }
    /// Gives the reference up to the caller, who releases it.
    [[nodiscard]] T* leak() { return std::exchange(m_object, nullptr); }

    // What it holds; null for nothing.
    T* get() const { return m_object; }
    T& operator*() const { return *m_object; }
    T* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    T* m_object { nullptr };
};

template <typename T, typename U> bool operator==(Ref<T> const& a, Ref<U> const& b)
{
    return a.get() == b.get();
}
template <typename T, typename U> bool operator==(Ref<T> const& a, U* b)
{
    return a.get() == b;
}
template <typename T> bool operator==(Ref<T> const& a, std::nullptr_t)
{
    return !a;
}

/// The same object as another class of its family, or null where it is none.
template <typename To, typename From> Ref<To> as(Ref<From> const& object)
{
    return Ref<To>(dynamic_cast<To*>(object.get()));
}

}

/// @cond
template <typename T> struct std::hash<plix::Ref<T>> {
    std::size_t operator()(plix::Ref<T> const& ref) const { return std::hash<T*> {}(ref.get()); }
};
/// @endcond
