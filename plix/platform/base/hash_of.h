#pragma once

#include <cstddef>
#include <functional>

namespace plix {

/// One hash of several values, in which their order counts.
template <typename... Parts> std::size_t hashOf(Parts const&... parts)
{
    std::size_t hash = 0;
    ((hash = hash * 31 + std::hash<Parts> {}(parts)), ...);
    return hash;
}

}
