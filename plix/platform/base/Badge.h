#pragma once

namespace plix {

/// An argument that only T can make: an operation that takes one is public for T alone.
template <typename T> class Badge {
    friend T;
    constexpr Badge() { }

public:
    Badge(Badge const&) = delete;
    Badge& operator=(Badge const&) = delete;
};

}
