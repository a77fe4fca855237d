#include "PageStage.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <algorithm>
#include <cmath>

namespace gallery {

using namespace plix;

void PageStage::setPage(Ref<NSView> const& page)
{
    if (m_frame)
        m_frame->removeFromSuperview();
    if (m_page)
        m_page->removeFromSuperview();
    m_frame = nullptr;
    m_page = page;
    if (m_page) {
        m_frame = make<NSView>(rectWith({}, m_page->frame().size()));
        m_page->setFrameOrigin({});
        m_frame->addSubview(*m_page);
        addSubview(*m_frame);
    }
    layOut();
    scrollPoint({});
    setNeedsDisplay(true);
}

void PageStage::setZoom(float zoom)
{
    m_zoom = zoom;
    layOut();
    setNeedsDisplay(true);
}

void PageStage::setLooksActive(bool looksActive)
{
    m_looksActive = looksActive;
    setNeedsDisplay(true);
}

void PageStage::layOut()
{
    auto const visible = superview() ? superview()->bounds().size() : bounds().size();
    Size const own = m_page ? m_page->frame().size() : Size {};
    Size const shown { own.width * m_zoom, own.height * m_zoom };
    setFrameSize({ std::max(visible.width, shown.width), std::max(visible.height, shown.height) });
    if (!m_frame)
        return;
    m_frame->setAutoresizesSubviews(false);
    m_frame->setFrame({ std::floor((bounds().width - shown.width) / 2), 0, shown.width, shown.height });
    m_frame->setBoundsSize(own);
}

void PageStage::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

}
