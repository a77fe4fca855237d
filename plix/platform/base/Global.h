#pragma once

#include <plix/platform/base/Ref.h>

namespace plix {

/// An exported global object: constant-initialised, retains what is assigned, never released at exit.
template <typename T> class Global {
public:
    constexpr Global() = default;
    Global(Global const&) = delete;
    Global& operator=(Global const&) = delete;
    Global& operator=(Ref<T> object)
    {
        T* old = std::exchange(m_object, object.leak());
        if (old)
            old->release();
        return *this;
    }

    // What it holds; null for nothing.
    T* get() const { return m_object; }
    Ref<T> ref() const { return m_object; }
    operator Ref<T>() const { return m_object; }
    T* operator->() const { return m_object; }
    T& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }

private:
    T* m_object { nullptr };
};

}
