#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/NSImage.h>

#include <array>
#include <vector>

namespace gallery {

/// The images that the page of pictures shows, made once at the backing scale of the moment.
struct PictureSamples {
    plix::Ref<plix::NSImage> button; ///< 30 x 30, round corners
    std::vector<plix::Ref<plix::NSImage>> stretched;
    plix::Ref<plix::NSImage> folder; ///< 40 x 40
    plix::Ref<plix::NSImage> badge; ///< 14 x 14
    std::vector<plix::Ref<plix::NSImage>> badged; ///< by alignment
    std::vector<plix::Ref<plix::NSImage>> recolored;
    std::vector<plix::Ref<plix::NSImage>> parts;
    plix::Ref<plix::NSImage> composed;
    std::vector<plix::Ref<plix::NSImage>> operations; ///< by number
    plix::Ref<plix::NSImage> icon; ///< 12 x 12 of single pixels
    plix::Ref<plix::NSImage> lines; ///< 144 x 144, fine circles
    plix::Ref<plix::NSImage> tile; ///< 12 x 12, a pattern

    static PictureSamples make();
    /// In no particular order.
    std::vector<plix::NSImage const*> all() const;
};

/// 1 x 1 at `size`: light and dark squares, to see what is transparent.
void drawCheckerboard(plix::Rect);

}
