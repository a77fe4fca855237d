#pragma once

#include <plix/platform/graphics/color_components.h>

#include <optional>
#include <string_view>

// Private to plix/platform/graphics: the table behind NSColor's system colours.

namespace plix {

inline constexpr int systemColorCount = 32;

std::optional<int> systemColorNamed(std::string_view name);
std::string_view systemColorName(int index);
/// Under the current appearance and highlight colour.
ColorComponents systemColorComponents(int index);
/// Nothing: the default.
void setUserHighlightColor(std::optional<ColorComponents>);

}
