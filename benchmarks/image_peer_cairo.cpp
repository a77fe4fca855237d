#include "image_peers.h"

#include <cairo.h>

#include <cstring>
#include <memory>

namespace plix::bench {

namespace {

using Surface = std::shared_ptr<cairo_surface_t>;

Surface newSurface(int width, int height)
{
    return { cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), cairo_surface_destroy };
}

Surface surfaceOf(PeerPixels const& picture)
{
    auto surface = newSurface(picture.width, picture.height);
    std::memcpy(cairo_image_surface_get_data(surface.get()), picture.pixels.data(), picture.pixels.size() * 4);
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

struct Context {
    cairo_t* cairo;
    explicit Context(Surface const& surface)
        : cairo(cairo_create(surface.get()))
    {
    }
    ~Context() { cairo_destroy(cairo); }
    Context(Context const&) = delete;
    Context& operator=(Context const&) = delete;
};

void drawPart(cairo_t* cairo, cairo_surface_t* source, double const (&from)[4], double const (&to)[4])
{
    auto* part = cairo_surface_create_for_rectangle(source, from[0], from[1], from[2], from[3]);
    auto* pattern = cairo_pattern_create_for_surface(part);
    cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
    cairo_pattern_set_filter(pattern, CAIRO_FILTER_BILINEAR);
    cairo_save(cairo);
    cairo_translate(cairo, to[0], to[1]);
    cairo_scale(cairo, to[2] / from[2], to[3] / from[3]);
    cairo_set_source(cairo, pattern);
    cairo_rectangle(cairo, 0, 0, from[2], from[3]);
    cairo_fill(cairo);
    cairo_restore(cairo);
    cairo_pattern_destroy(pattern);
    cairo_surface_destroy(part);
}

std::function<void()> recolor(PeerPixels const& picture)
{
    auto const source = surfaceOf(picture);
    return [source, width = picture.width, height = picture.height] {
        auto const result = newSurface(width, height);
        Context const context(result);
        cairo_set_source_rgb(context.cairo, 0.9, 0.2, 0.1);
        cairo_mask_surface(context.cairo, source.get(), 0, 0);
    };
}

std::function<void()> nineSlice(PeerPixels const& picture, int width, int height)
{
    auto const source = surfaceOf(picture);
    double const w = picture.width / 3;
    double const h = picture.height / 3;
    return [source, w, h, width, height] {
        auto const result = newSurface(width, height);
        Context const context(result);
        double const columns[] { 0, w, width - w, static_cast<double>(width) };
        double const rows[] { 0, h, height - h, static_cast<double>(height) };
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column)
                drawPart(context.cairo, source.get(), { column * w, row * h, w, h },
                    { columns[column], rows[row], columns[column + 1] - columns[column], rows[row + 1] - rows[row] });
        }
    };
}

std::function<void()> compose(std::vector<PeerPixels> const& pictures)
{
    std::vector<Surface> sources;
    for (auto const& picture : pictures)
        sources.push_back(surfaceOf(picture));
    return [sources, width = pictures[0].width, height = pictures[0].height] {
        auto const result = newSurface(width, height);
        Context const context(result);
        for (auto const& source : sources) {
            cairo_set_source_surface(context.cairo, source.get(), 0, 0);
            cairo_paint(context.cairo);
        }
    };
}

std::function<void()> part(PeerPixels const& picture)
{
    auto const source = surfaceOf(picture);
    auto const target = newSurface(256, 256);
    double const x = picture.width / 2 - 32;
    double const y = picture.height / 2 - 32;
    return [source, target, x, y] {
        Context const context(target);
        drawPart(context.cairo, source.get(), { x, y, 64, 64 }, { 8, 8, 160, 96 });
    };
}

std::function<void()> axial(int width, int height)
{
    auto const target = newSurface(width, height);
    return [target, width, height] {
        Context const context(target);
        auto* gradient = cairo_pattern_create_linear(0, 0, 0, height);
        cairo_pattern_add_color_stop_rgb(gradient, 0, 0.4, 0.6, 0.9);
        cairo_pattern_add_color_stop_rgb(gradient, 1, 0.1, 0.3, 0.7);
        cairo_set_source(context.cairo, gradient);
        cairo_rectangle(context.cairo, 0, 0, width, height);
        cairo_fill(context.cairo);
        cairo_pattern_destroy(gradient);
    };
}

}

ImagePeer cairoPeer()
{
    return { "Cairo", recolor, nineSlice, compose, part, axial };
}

}
