#include <plix/platform/host/headless/HeadlessWindow.h>

#include <plix/platform/host/headless/HeadlessDisplay.h>

#include <algorithm>
#include <utility>

namespace plix {

HeadlessWindow::HeadlessWindow(HeadlessDisplay& display, HostWindowAttributes const& attributes, HostWindowClient& client)
    : m_display(display)
    , m_attributes(attributes)
    , m_client(&client)
    , m_contentRect(attributes.contentRect)
{
    m_display.windowMade(*this);
    m_scale = m_display.scaleAt(m_contentRect);
    m_pixels.fit(m_contentRect.size(), m_scale);
}

HeadlessWindow::~HeadlessWindow()
{
    m_display.windowGone(*this);
}

HostWindow::FrameExtents HeadlessWindow::frameExtents() const
{
    return m_display.frameExtents(m_attributes);
}

Rect HeadlessWindow::frame() const
{
    auto const extents = frameExtents();
    return { m_contentRect.x - extents.left, m_contentRect.y - extents.bottom, m_contentRect.width + extents.left + extents.right,
        m_contentRect.height + extents.bottom + extents.top };
}

bool HeadlessWindow::hasFocus() const
{
    return m_display.focusedWindow() == this;
}

void HeadlessWindow::setContentRect(Rect rect)
{
    if (rect == m_contentRect)
        return;
    m_isZoomed = false;
    m_contentRect = rect;
    auto const scale = std::exchange(m_scale, m_display.scaleAt(rect));
    m_pixels.fit(m_contentRect.size(), m_scale);
    // The client may destroy the window in each of these calls.
    auto& client = *m_client;
    auto& display = m_display;
    client.hostWindowContentRectChanged(rect);
    if (display.owns(this) && scale != m_scale)
        client.hostWindowScaleChanged(m_scale);
}

void HeadlessWindow::setSizeLimits(Size minimum, Size maximum)
{
    m_minimumSize = minimum;
    m_maximumSize = maximum;
}

void HeadlessWindow::resizeByPerson(Rect rect)
{
    rect.width = std::max(rect.width, m_minimumSize.width);
    rect.height = std::max(rect.height, m_minimumSize.height);
    if (m_maximumSize.width > 0)
        rect.width = std::min(rect.width, m_maximumSize.width);
    if (m_maximumSize.height > 0)
        rect.height = std::min(rect.height, m_maximumSize.height);
    setContentRect(rect);
}

void HeadlessWindow::show()
{
    if (m_isVisible)
        return;
    m_isVisible = true;
    m_pixels.lose();
    m_display.raise(*this);
}

void HeadlessWindow::hide()
{
    if (!m_isVisible)
        return;
    m_isVisible = false;
    m_display.windowHidden(*this);
}

void HeadlessWindow::raise()
{
    m_display.raise(*this);
}

void HeadlessWindow::lower()
{
    m_display.lower(*this);
}

void HeadlessWindow::focus()
{
    if (isVisible())
        m_display.focus(this);
}

void HeadlessWindow::setMiniaturized(bool isMiniaturized)
{
    if (m_isMiniaturized == isMiniaturized)
        return;
    m_isMiniaturized = isMiniaturized;
    if (isMiniaturized)
        m_display.windowHidden(*this);
    m_client->hostWindowMiniaturizedChanged(isMiniaturized);
}

void HeadlessWindow::zoom()
{
    bool const zooms = !m_isZoomed;
    auto const extents = frameExtents();
    if (zooms) {
        m_unzoomedRect = m_contentRect;
        auto const area = m_display.screenAt(m_contentRect).visibleFrame;
        setContentRect({ area.x + extents.left, area.y + extents.bottom, area.width - extents.left - extents.right,
            area.height - extents.bottom - extents.top });
    } else {
        setContentRect(m_unzoomedRect);
    }
    m_isZoomed = zooms;
}

PixelBuffer HeadlessWindow::lockPixels()
{
    return m_pixels.lock();
}

void HeadlessWindow::present(std::span<PixelRect const> rects)
{
    m_pixels.keep();
    m_lastPresented.assign(rects.begin(), rects.end());
    ++m_presentCount;
}

void HeadlessWindow::losePixels()
{
    m_pixels.lose();
    m_client->hostWindowNeedsRepaint({ 0, 0, m_contentRect.width, m_contentRect.height });
}

void HeadlessWindow::screensChanged()
{
    updateScale();
}

void HeadlessWindow::updateScale()
{
    auto const scale = m_display.scaleAt(m_contentRect);
    if (scale == m_scale)
        return;
    m_scale = scale;
    m_pixels.fit(m_contentRect.size(), m_scale);
    m_client->hostWindowScaleChanged(scale);
}

}
