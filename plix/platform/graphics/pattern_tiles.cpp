#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/context_internals.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace plix {

namespace {

int remainder(long value, int divisor)
{
    auto const rest = static_cast<int>(value % divisor);
    return rest < 0 ? rest + divisor : rest;
}

/// The row's pixels over and over, beginning at one of them; what is written already serves as the source of longer copies.
void tileRow(std::uint32_t* target, int count, std::uint32_t const* row, int width, int start)
{
    if (std::equal(row + 1, row + width, row)) {
        std::fill_n(target, count, *row);
        return;
    }
    int const first = std::min(width - start, count);
    std::copy_n(row + start, first, target);
    int const second = std::min(start, count - first);
    std::copy_n(row, second, target + first);
    for (int done = first + second; done < count;) {
        int const next = std::min(done, count - done);
        std::memcpy(target + done, target, static_cast<std::size_t>(next) * sizeof *target);
        done += next;
    }
}

}

bool fillWithTiles(ContextInternals& internals, PixelRect area, NSImage const& pattern)
{
    auto const bitmap = pattern.bitmapAtScale(internals.pixels.scale);
    if (!bitmap)
        return false;
    float const scale = internals.pixels.scale;
    auto const phase = internals.state().patternPhase;
    double const phaseX = static_cast<double>(phase.x) * scale;
    double const phaseY = static_cast<double>(phase.y) * scale;
    if (bitmap->pixelsPerPoint() != Size { scale, scale } || phaseX != std::floor(phaseX) || phaseY != std::floor(phaseY))
        return false;
    auto const source = std::as_const(*bitmap).pixels();
    cairo_surface_flush(internals.surface.get());
    int const start = remainder(area.x - std::lround(phaseX), source.width);
    for (int y = area.y; y < area.y + area.height; ++y) {
        int const row = remainder(y + source.height - internals.pixels.height + std::lround(phaseY), source.height);
        auto* const target = internals.pixels.pixels + static_cast<std::ptrdiff_t>(y) * internals.pixels.stride;
        auto const* const tile = source.pixels + static_cast<std::ptrdiff_t>(row) * source.stride;
        tileRow(reinterpret_cast<std::uint32_t*>(target) + area.x, area.width, reinterpret_cast<std::uint32_t const*>(tile),
            source.width, start);
    }
    cairo_surface_mark_dirty(internals.surface.get());
    return true;
}

}
