#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/Forward.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// A calibrated colour of four numbers between commas, red, green, blue and alpha; opaque black of nil or fewer numbers. What is no
/// number counts as 0.
PLIX_EXPORT Ref<NSColor> colorFromCalibratedRGBString(std::optional<std::string_view> text);
/// "1.00000,0.00000,0.00000,1.00000"; zeros for a colour that has no components, such as a pattern.
PLIX_EXPORT std::string asCalibratedRGBString(NSColor const&);

}
