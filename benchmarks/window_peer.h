#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace plix::bench {

/// Composes a window's pattern of that height from the background's premultiplied pixels, each time anew, and fills the window's
/// pixels with it, with plain Cairo.
std::function<void(int height)> cairoWindowRepaint(std::vector<std::uint32_t> const& background, int width, int windowWidth);

}
