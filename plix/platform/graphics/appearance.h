#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>

namespace plix {

/// Dark text on a light ground, or light text on a dark one.
enum class Appearance : std::uint8_t { light, dark };

/// The look of the whole process: named system colours and the theme follow it. Light at first.
PLIX_EXPORT Appearance currentAppearance();
PLIX_EXPORT void setCurrentAppearance(Appearance);
/// Changes whenever named system colours may answer other components: at a new appearance or highlight colour.
PLIX_EXPORT std::uint64_t systemColorsStamp();

}
