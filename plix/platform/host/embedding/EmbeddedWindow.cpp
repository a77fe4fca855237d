#include <plix/platform/host/embedding/EmbeddedWindow.h>

#include <plix/platform/host/embedding/EmbeddingDisplay.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

constexpr int s_largestSide = 16384;

int pixelsFor(float points, float scale)
{
    return std::clamp(static_cast<int>(std::lround(points * scale)), 1, s_largestSide);
}

}

EmbeddedWindow::EmbeddedWindow(EmbeddingDisplay& display, HostWindowAttributes const& attributes, float scale)
    : m_display(display)
    , m_attributes(attributes)
    , m_contentRect(attributes.contentRect)
    , m_scale(scale)
{
    m_number = display.add(*this);
    allocatePixels();
}

EmbeddedWindow::~EmbeddedWindow()
{
    m_display.remove(*this);
}

EmbeddedWindow* EmbeddedWindow::parent() const
{
    return m_display.windowFor(m_attributes.parent);
}

PixelBuffer EmbeddedWindow::shownPixels()
{
    return m_keepsContent ? lockPixels() : PixelBuffer {};
}

void EmbeddedWindow::placed(Rect contentRect, float scale)
{
    bool const isElsewhere = std::exchange(m_contentRect, contentRect) != contentRect;
    bool const isFiner = std::exchange(m_scale, scale) != scale;
    allocatePixels();
    // The client may destroy the window in each of these calls.
    auto& display = m_display;
    auto const number = m_number;
    if (isFiner && m_client)
        m_client->hostWindowScaleChanged(scale);
    if (isElsewhere && display.windowWithNumber(number) && m_client)
        m_client->hostWindowContentRectChanged(contentRect);
}

void EmbeddedWindow::setMiniaturized(bool isMiniaturized)
{
    if (std::exchange(m_isMiniaturized, isMiniaturized) != isMiniaturized)
        m_display.push({ Delivery::Kind::miniaturizedChanged, m_number });
}

void EmbeddedWindow::framed(FrameExtents extents)
{
    if (std::exchange(m_extents, extents) != extents)
        m_display.push({ Delivery::Kind::contentRectChanged, m_number });
}

void EmbeddedWindow::setContentRect(Rect rect)
{
    if (rect != m_contentRect)
        wantsPlace(rect);
}

void EmbeddedWindow::wantsPlace(Rect)
{
    if (m_client)
        m_client->hostWindowContentRectChanged(m_contentRect);
}

void EmbeddedWindow::show()
{
    m_order = m_display.nextOrder();
    if (std::exchange(m_isVisible, true))
        return raise();
    m_keepsContent = false;
    visibilityChanged();
}

void EmbeddedWindow::hide()
{
    if (std::exchange(m_isVisible, false))
        visibilityChanged();
}

void EmbeddedWindow::raise()
{
    m_order = m_display.nextOrder();
}

PixelBuffer EmbeddedWindow::lockPixels()
{
    PixelBuffer buffer;
    buffer.pixels = reinterpret_cast<std::uint8_t*>(m_pixels.data());
    buffer.stride = m_width * static_cast<int>(sizeof(std::uint32_t));
    buffer.width = m_width;
    buffer.height = m_height;
    buffer.scale = m_scale;
    buffer.keepsContent = m_keepsContent;
    return buffer;
}

void EmbeddedWindow::present(std::span<PixelRect const> rects)
{
    m_keepsContent = true;
    pixelsChanged(rects);
}

void EmbeddedWindow::allocatePixels()
{
    int const width = pixelsFor(m_contentRect.width, m_scale);
    int const height = pixelsFor(m_contentRect.height, m_scale);
    if (width == m_width && height == m_height)
        return;
    m_width = width;
    m_height = height;
    m_pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    m_keepsContent = false;
}

}
