#pragma once

#include <plix/platform/base/export.h>

#include <stdexcept>
#include <string>

namespace plix {

/// Raised by the platform's classes for an access outside their bounds.
class PLIX_EXPORT NSRangeException : public std::out_of_range {
public:
    using std::out_of_range::out_of_range;
};

/// Says which operation was asked for which index, of how many.
[[noreturn]] PLIX_EXPORT void raiseRangeException(char const* operation, long index, long count);

}
