#pragma once

#include <cstdint>

namespace plix {

enum class Appearance : std::uint8_t { light, dark };

/// The look of the whole process: named system colours and the theme follow it. Light at first.
Appearance currentAppearance();
void setCurrentAppearance(Appearance);
/// Changes whenever named system colours may answer other components: at a new appearance or highlight colour.
std::uint64_t systemColorsStamp();

}
