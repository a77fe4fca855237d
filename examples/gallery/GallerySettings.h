#pragma once

#include <plix/platform/graphics/appearance.h>

#include <cstdint>
#include <optional>

namespace gallery {

/// What the switches of the window are set to.
struct GallerySettings {
    /// PLIXHighlightStyle of all tables; nothing leaves each its own.
    std::optional<std::uint32_t> highlightStyle;
    std::uint32_t systemVersion { 0x1049 };
    plix::Appearance appearance { plix::Appearance::light };
    int scale { 1 };
    bool looksActive { true };
    bool isEnabled { true };

    friend bool operator==(GallerySettings const&, GallerySettings const&) = default;

    /// From the user's defaults; what is none of a switch's values is the usual one, or what the process was started with.
    static GallerySettings load();
    void save() const;
};

}
