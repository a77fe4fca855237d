#pragma once

#include <plix/platform/base/Badge.h>
#include <plix/platform/base/NSObject.h>

#include <concepts>

namespace plix {

/// Drawing goes into an image (or another object with lockFocus and unlockFocus) for the scope that this lives in; then the context
/// that was current is current again. Keeps the object. Locks nest.
class PLIX_EXPORT FocusLock {
public:
    template <typename T>
    requires std::derived_from<T, NSObject>
    explicit FocusLock(T& object)
        : m_object(object)
        , m_unlock([](NSObject& focused) { static_cast<T&>(focused).unlockFocus(Badge<FocusLock> {}); })
    {
        object.lockFocus(Badge<FocusLock> {});
    }
    template <typename T>
    explicit FocusLock(Ref<T> const& object)
        : FocusLock(*object)
    {
    }
    ~FocusLock() { m_unlock(*m_object); }
    FocusLock(FocusLock const&) = delete;
    FocusLock& operator=(FocusLock const&) = delete;

private:
    Ref<NSObject> m_object;
    void (*m_unlock)(NSObject&);
};

}
