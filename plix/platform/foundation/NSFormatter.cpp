#include <plix/platform/foundation/NSFormatter.h>

namespace plix {

PLIX_DESCRIBE(NSFormatter)
{
}

std::optional<std::string> NSFormatter::stringForObjectValue(ObjectValue const&) const
{
    return {};
}

std::optional<std::string> NSFormatter::editingStringForObjectValue(ObjectValue const& value) const
{
    return stringForObjectValue(value);
}

bool NSFormatter::getObjectValue(ObjectValue&, std::optional<std::string_view>, std::string&) const
{
    return false;
}

bool NSFormatter::isPartialStringValid(std::string_view, std::string&, std::string&) const
{
    return true;
}

}
