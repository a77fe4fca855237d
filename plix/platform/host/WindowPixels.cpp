#include <plix/platform/host/WindowPixels.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr int s_largestSide = 16384;

int pixelsFor(float points, float scale)
{
    return std::clamp(static_cast<int>(std::lround(points * scale)), 1, s_largestSide);
}

}

void WindowPixels::fit(Size content, float scale)
{
    m_scale = scale;
    int const width = pixelsFor(content.width, scale);
    int const height = pixelsFor(content.height, scale);
    if (width == m_width && height == m_height)
        return;
    m_width = width;
    m_height = height;
    m_values.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
    lose();
}

PixelBuffer WindowPixels::lock()
{
    PixelBuffer buffer;
    buffer.pixels = reinterpret_cast<std::uint8_t*>(m_values.data());
    buffer.stride = m_width * static_cast<int>(sizeof(std::uint32_t));
    buffer.width = m_width;
    buffer.height = m_height;
    buffer.scale = m_scale;
    buffer.keepsContent = m_keepsContent;
    return buffer;
}

}
