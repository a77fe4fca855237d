#pragma once

#include <plix/platform/graphics/color_components.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

/// "1.00000,0.50000,0.00000,1.00000": red, green, blue and alpha.
std::string textForColorComponents(ColorComponents const&);
/// The first four of the numbers between commas, brought to 0..1; opaque black of no text or fewer. What is no number counts as 0.
ColorComponents colorComponentsForText(std::optional<std::string_view> text);

}
