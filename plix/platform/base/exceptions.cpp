#include <plix/platform/base/exceptions.h>

namespace plix {

void raiseRangeException(char const* operation, long index, long count)
{
    throw NSRangeException(
        std::string(operation) + ": index " + std::to_string(index) + " beyond bounds (" + std::to_string(count) + ")");
}

}
