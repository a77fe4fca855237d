#include <plix/format/attributed_string_additions.h>

#include <plix/platform/graphics/NSMutableAttributedString.h>

namespace plix {

ObjectValue attribute(NSAttributedString const& string, std::string_view name)
{
    return string.length() > 0 ? string.attribute(name, 0) : ObjectValue();
}

void replaceAttribute(NSMutableAttributedString& string, std::string_view name, ObjectValue const& value)
{
    string.addAttribute(name, value, { 0, string.length() });
}

}
