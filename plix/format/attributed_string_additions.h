#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <string_view>

namespace plix {

class NSAttributedString;
class NSMutableAttributedString;

/// The attribute's value at the first character; nil for an empty string, and where that has no such attribute.
PLIX_EXPORT ObjectValue attribute(NSAttributedString const&, std::string_view name);

/// Sets the attribute on all characters, whatever it was; every run keeps its others.
PLIX_EXPORT void replaceAttribute(NSMutableAttributedString&, std::string_view name, ObjectValue const& value);

}
