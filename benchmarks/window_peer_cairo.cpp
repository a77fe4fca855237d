#include "window_peer.h"

#include <cairo.h>

#include <algorithm>
#include <memory>

namespace plix::bench {

namespace {

/// The upper half of the background on top, two rows of its middle stretched below, and the lower half over that where the pattern
/// is as high as the background.
cairo_surface_t* composed(cairo_surface_t* background, int width, int backgroundHeight, int height)
{
    auto* const pattern = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
    auto* const cairo = cairo_create(pattern);
    cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
    int const half = backgroundHeight / 2;
    cairo_set_source_surface(cairo, background, 0, 0);
    cairo_rectangle(cairo, 0, 0, width, half);
    cairo_fill(cairo);
    if (height > half) {
        cairo_save(cairo);
        cairo_rectangle(cairo, 0, half, width, height - half);
        cairo_clip(cairo);
        cairo_translate(cairo, 0, half);
        cairo_scale(cairo, 1, (height - half) / 2.0);
        cairo_set_source_surface(cairo, background, 0, 2 - half);
        cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
        cairo_paint(cairo);
        cairo_restore(cairo);
    }
    if (height >= backgroundHeight) {
        cairo_set_source_surface(cairo, background, 0, height - backgroundHeight);
        cairo_rectangle(cairo, 0, height - half, width, half);
        cairo_fill(cairo);
    }
    cairo_destroy(cairo);
    return pattern;
}

}

std::function<void(int height)> cairoWindowRepaint(std::vector<std::uint32_t> const& background, int width, int windowWidth)
{
    int const backgroundHeight = static_cast<int>(background.size()) / width;
    auto const pixels = std::make_shared<std::vector<std::uint32_t>>(background);
    std::shared_ptr<cairo_surface_t> const image(
        cairo_image_surface_create_for_data(
            reinterpret_cast<unsigned char*>(pixels->data()), CAIRO_FORMAT_ARGB32, width, backgroundHeight, width * 4),
        cairo_surface_destroy);
    // The window's pixels are there, as a window system has them; only the pattern is made anew.
    auto const windowPixels = std::make_shared<std::vector<std::uint32_t>>();
    return [=](int height) {
        windowPixels->resize(
            std::max(windowPixels->size(), static_cast<std::size_t>(windowWidth) * static_cast<std::size_t>(height)));
        auto* const window = cairo_image_surface_create_for_data(
            reinterpret_cast<unsigned char*>(windowPixels->data()), CAIRO_FORMAT_ARGB32, windowWidth, height, windowWidth * 4);
        auto* const pattern = composed(image.get(), width, backgroundHeight, height);
        auto* const cairo = cairo_create(window);
        cairo_set_operator(cairo, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(cairo, pattern, 0, 0);
        cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_REPEAT);
        cairo_paint(cairo);
        cairo_destroy(cairo);
        cairo_surface_flush(window);
        cairo_surface_destroy(pattern);
        cairo_surface_destroy(window);
    };
}

}
