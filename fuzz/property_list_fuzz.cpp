#include "fuzz.h"

#include <plix/platform/foundation/property_list.h>

using namespace plix;

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string error;
    auto const value = propertyListFromXML({ data, size }, error);
    FUZZ_CHECK(value.has_value() == error.empty());
    if (!value)
        return 0;
    // What lies between the depth of a document and that of a list can be read and not written.
    auto const written = xmlFromPropertyList(*value);
    if (!written)
        return 0;
    auto const again = propertyListFromXML({ reinterpret_cast<std::uint8_t const*>(written->data()), written->size() }, error);
    FUZZ_CHECK(again);
    FUZZ_CHECK(xmlFromPropertyList(*again) == written);
    return 0;
}
