#pragma once

#include <plix/platform/base/export.h>

#include <cstdint>
#include <optional>

namespace plix {

/// Dark text on a light ground, or light text on a dark one.
enum class Appearance : std::uint8_t { light, dark };

/// What named system colours and the theme follow: the look of the process, or while a view or window with one of its own is drawn,
/// that one.
PLIX_EXPORT Appearance currentAppearance();
/// The look of the whole process, light at first. Windows that are shown are drawn anew by whoever sets it.
PLIX_EXPORT Appearance processAppearance();
PLIX_EXPORT void setCurrentAppearance(Appearance);
/// Changes whenever named system colours may answer other components: at a new appearance or highlight colour.
PLIX_EXPORT std::uint64_t systemColorsStamp();

/// Another current appearance, whatever that of the process is, as long as this lives. Ends in the order opposite to the beginning.
class PLIX_EXPORT AppearanceScope {
public:
    explicit AppearanceScope(Appearance);
    ~AppearanceScope();
    AppearanceScope(AppearanceScope const&) = delete;
    AppearanceScope& operator=(AppearanceScope const&) = delete;

private:
    std::optional<Appearance> m_outer;
};

}
