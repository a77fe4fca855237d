#pragma once

#include <stdexcept>
#include <string>

namespace plix {

/// Raised by the platform's classes for an access outside their bounds.
class NSRangeException : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

[[noreturn]] void raiseRangeException(char const* operation, long index, long count);

}
