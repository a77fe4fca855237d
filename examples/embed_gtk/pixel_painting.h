#pragma once

#include <plix/platform/graphics/pixel_buffer.h>

#include <gtk/gtk.h>

namespace embed_gtk {

/// Paints a window's pixels one to one from the upper left corner; nothing where there are none.
inline void paintPixels(cairo_t* context, plix::PixelBuffer const& pixels)
{
    if (!pixels.pixels)
        return;
    auto* const image
        = cairo_image_surface_create_for_data(pixels.pixels, CAIRO_FORMAT_RGB24, pixels.width, pixels.height, pixels.stride);
    auto const scale = double { pixels.scale };
    cairo_surface_set_device_scale(image, scale, scale);
    cairo_set_source_surface(context, image, 0, 0);
    cairo_paint(context);
    // Who paints later gets a copy now.
    cairo_surface_destroy(image);
}

}
