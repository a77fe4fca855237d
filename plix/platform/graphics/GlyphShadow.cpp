#include <plix/platform/graphics/GlyphShadow.h>

#include <plix/platform/graphics/glyph_blending.h>
#include <plix/platform/graphics/shadow_blur.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace plix {

namespace {

constexpr float farthestOffset = 1e5F;

int devicePixels(float points, double scale)
{
    return static_cast<int>(std::lround(static_cast<double>(std::clamp(points, -farthestOffset, farthestOffset)) * scale));
}

PixelRect outset(PixelRect rect, int by)
{
    return { rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by };
}

PixelRect united(PixelRect a, PixelRect b)
{
    if (a.width <= 0)
        return b;
    int const x = std::min(a.x, b.x);
    int const y = std::min(a.y, b.y);
    return { x, y, std::max(a.x + a.width, b.x + b.width) - x, std::max(a.y + a.height, b.y + b.height) - y };
}

/// Kept from one shadow to the next: drawing again makes nothing.
std::vector<std::uint8_t>& sharedCoverage()
{
    thread_local std::vector<std::uint8_t> coverage;
    return coverage;
}

}

GlyphShadow::GlyphShadow(ShadowValues const& values, double scale, PixelRect clip)
    : m_values(values)
    , m_clip(clip)
    , m_radius(static_cast<float>(static_cast<double>(values.radius) * scale))
    , m_reach(shadowBlurReach(m_radius))
    , m_dx(devicePixels(values.offset.width, scale))
    , m_dy(devicePixels(-values.offset.height, scale))
{
}

PixelRect GlyphShadow::inkOf(GlyphMask const& mask, int x, int y) const
{
    auto seen = outset(m_clip, m_reach);
    seen.x -= m_dx;
    seen.y -= m_dy;
    return intersection({ x + mask.left, y + mask.top, mask.width, mask.height }, seen);
}

void GlyphShadow::enclose(GlyphMask const& mask, int x, int y)
{
    auto const ink = mask.coverage ? inkOf(mask, x, y) : PixelRect {};
    if (ink.width > 0 && ink.height > 0)
        m_area = united(m_area, ink);
}

void GlyphShadow::prepare()
{
    if (m_isPrepared)
        return;
    m_isPrepared = true;
    m_area = outset(m_area, m_reach);
    sharedCoverage().assign(static_cast<std::size_t>(m_area.width) * static_cast<std::size_t>(m_area.height), 0);
}

void GlyphShadow::add(GlyphMask const& mask, int x, int y)
{
    prepare();
    auto const ink = mask.coverage ? inkOf(mask, x, y) : PixelRect {};
    for (int row = ink.y; row < ink.y + ink.height; ++row) {
        auto const* from = mask.coverage + static_cast<std::ptrdiff_t>(row - y - mask.top) * mask.stride + (ink.x - x - mask.left);
        auto* to = sharedCoverage().data() + static_cast<std::ptrdiff_t>(row - m_area.y) * m_area.width + (ink.x - m_area.x);
        for (int column = 0; column < ink.width; ++column) {
            unsigned const there = to[column];
            to[column] = static_cast<std::uint8_t>(there + (255 - there) * from[column] / 255);
        }
    }
}

void GlyphShadow::blend(PixelBuffer const& buffer)
{
    prepare();
    auto& coverage = sharedCoverage();
    blurShadowMask(coverage.data(), m_area.width, m_area.height, m_area.width, m_radius);
    auto const pixel = premultipliedPixel(m_values.color);
    auto const shown = intersection({ m_area.x + m_dx, m_area.y + m_dy, m_area.width, m_area.height }, m_clip);
    for (int row = shown.y; row < shown.y + shown.height; ++row) {
        auto* const line = reinterpret_cast<std::uint32_t*>(buffer.pixels + static_cast<std::ptrdiff_t>(row) * buffer.stride);
        auto const* from
            = coverage.data() + static_cast<std::ptrdiff_t>(row - m_dy - m_area.y) * m_area.width + (shown.x - m_dx - m_area.x);
        blendCoverage(line + shown.x, from, shown.width, pixel);
    }
}

}
