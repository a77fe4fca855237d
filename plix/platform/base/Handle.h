#pragma once

#include <memory>

namespace plix {

/// How a C library's object is given back. Each room specialises it for the types of its libraries, in one file.
template <typename T> struct HandleDeleter {
    void operator()(T*) const = delete;
};

/// Owns one object of a C library.
template <typename T> using Handle = std::unique_ptr<T, HandleDeleter<T>>;

}
