#include <plix/platform/host/embedding/EmbeddedWindow.h>

#include <plix/platform/host/embedding/EmbeddingDisplay.h>

#include <utility>

namespace plix {

EmbeddedWindow::EmbeddedWindow(EmbeddingDisplay& display, HostWindowAttributes const& attributes, float scale)
    : m_display(display)
    , m_attributes(attributes)
    , m_contentRect(attributes.contentRect)
    , m_scale(scale)
{
    m_number = display.add(*this);
    m_pixels.fit(m_contentRect.size(), m_scale);
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
    return m_pixels.keepsContent() ? lockPixels() : PixelBuffer {};
}

void EmbeddedWindow::placed(Rect contentRect, float scale)
{
    bool const isElsewhere = std::exchange(m_contentRect, contentRect) != contentRect;
    bool const isFiner = std::exchange(m_scale, scale) != scale;
    m_pixels.fit(m_contentRect.size(), m_scale);
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
    m_pixels.lose();
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
    return m_pixels.lock();
}

void EmbeddedWindow::present(std::span<PixelRect const> rects)
{
    m_pixels.keep();
    pixelsChanged(rects);
}

}
