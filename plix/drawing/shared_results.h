#pragma once

#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/color_components.h>
#include <plix/platform/graphics/geometry.h>

#include <array>
#include <cstdint>

// Private to plix/drawing: earlier results of image functions, found again by what their sources looked like.

namespace plix {

enum class SharedOperation : std::uint8_t { stretch, stretchOver, badge, recolor, compose };

/// What a result depends on. Further stamps than two are folded into the second.
struct SharedKey {
    SharedOperation operation;
    std::array<std::uint64_t, 2> stamps {};
    Size parameters;
    ColorComponents color {};
    float scale { 0 }; ///< filled in by sharedResult

    void addStamp(std::uint64_t stamp);
    friend bool operator==(SharedKey const&, SharedKey const&) = default;
};

/// A new image with the pixels of an earlier result under this key, or what `makeImage` gives, kept for the next time.
Ref<NSImage> sharedResult(SharedKey key, FunctionRef<Ref<NSImage>()> makeImage);

}
