#pragma once

#include <plix/platform/base/export.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace plix {

/// The name of an operation as a value, written as the platform writes it ("deleteBackward:"). Interned: two selectors
/// of one name compare equal at the cost of a pointer. A default-made one names nothing.
class PLIX_EXPORT Selector {
public:
    constexpr Selector() = default;
    explicit Selector(std::string_view name);

    /// As AppKit writes it: "copy:".
    std::string const& name() const;
    explicit operator bool() const { return m_name != nullptr; }

    friend bool operator==(Selector, Selector) = default;

private:
    /// @cond
    friend std::hash<Selector>;
    /// @endcond
    std::string const* m_name { nullptr };
};

}

/// @cond
template <> struct std::hash<plix::Selector> {
    std::size_t operator()(plix::Selector selector) const noexcept { return std::hash<std::string const*> {}(selector.m_name); }
};
/// @endcond
