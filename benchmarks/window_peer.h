#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace plix::bench {

/// Composes a window's pattern of that height from the background's premultiplied pixels, each time anew, and fills a window of
/// that height with it; with plain Cairo. The window's pixels are there already, for up to `mostHeight`.
std::function<void(int height)> cairoWindowRepaint(
    std::vector<std::uint32_t> const& background, int width, int windowWidth, int mostHeight);

}
