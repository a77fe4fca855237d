#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

class CFXMLTree;

// What attributes and elements of interface files say, without what is around them.

/// YES or NO; nothing for anything else.
std::optional<bool> nibFlag(std::string_view);
/// A whole decimal number; nothing where it is none, or not finite.
std::optional<double> nibNumber(std::string_view);
/// The same of 32 bits.
std::optional<long> nibInteger(std::string_view);
/// The text of an element `string`, which may be in base 64; nothing where that is damaged.
std::optional<std::string> nibString(CFXMLTree const&);
/// The font of an element `font`: one for a purpose, or of a name; the system font where that is not there. Null where a size is
/// damaged.
Ref<NSFont> nibFont(CFXMLTree const&);
/// The colour of an element `color`. Null where a component is damaged or the name is not known.
Ref<NSColor> nibColor(CFXMLTree const&);

}
