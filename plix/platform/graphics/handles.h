#pragma once

#include <plix/platform/base/Handle.h>

#include <cairo.h>

// Private to plix/platform/graphics.

namespace plix {

template <> struct HandleDeleter<cairo_t> {
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
template <> struct HandleDeleter<cairo_surface_t> {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
template <> struct HandleDeleter<cairo_pattern_t> {
    void operator()(cairo_pattern_t* pattern) const { cairo_pattern_destroy(pattern); }
};
template <> struct HandleDeleter<cairo_path_t> {
    void operator()(cairo_path_t* path) const { cairo_path_destroy(path); }
};
template <> struct HandleDeleter<cairo_font_options_t> {
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};

}
