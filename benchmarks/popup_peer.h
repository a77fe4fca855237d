#pragma once

#include <plix/platform/graphics/geometry.h>

#include <functional>
#include <string>

namespace plix::bench {

/// Composes an idle, a hovered and a pressed image of a pop-up button out of the slices and arrows of a folder, with another
/// library's means. The text is laid out once.
#ifdef PLIX_BENCH_QT
std::function<void()> qtComposePopUp(Size button, std::string const& text, std::string const& imageFolder);
#endif

}
