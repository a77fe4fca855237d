#include <plix/controls/PLIXTabViewItem.h>

#include <plix/controls/tab_window_fit.h>
#include <plix/drawing/focused_image.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

PLIX_DESCRIBE(PLIXTabViewItem)
{
    description.outlet("customView", &PLIXTabViewItem::setCustomView);
}

PLIXTabViewItem::PLIXTabViewItem() = default;
PLIXTabViewItem::~PLIXTabViewItem() = default;

bool PLIXTabViewItem::init()
{
    if (!Base::init())
        return false;
    m_image = nullptr;
    m_customView = nullptr;
    m_resizable = false;
    return true;
}

bool PLIXTabViewItem::initWithCoder()
{
    if (!Base::initWithCoder())
        return false;
    m_image = nullptr;
    m_customView = nullptr;
    m_resizable = false;
    return true;
}

NSImage* PLIXTabViewItem::image() const
{
    return m_image.get();
}

void PLIXTabViewItem::setImage(Ref<NSImage> const& image)
{
    if (m_image == image)
        return;
    m_image = image;
    labelChanged();
}

void PLIXTabViewItem::setCustomView(Ref<NSView> const& view)
{
    m_customView = view;
}

Size PLIXTabViewItem::sizeOfLabel(bool computeMin) const
{
    auto const text = Base::sizeOfLabel(computeMin);
    return m_image ? tabLabelSize(text) : text;
}

void PLIXTabViewItem::drawLabel(bool shouldTruncateLabel, Rect rect)
{
    if (m_image) {
        auto const plan = tabLabelPlan(rect, m_image->size().height);
        drawImage(plan.image);
        rect = plan.text;
    }
    Base::drawLabel(shouldTruncateLabel, rect);
}

void PLIXTabViewItem::drawImage(Rect destination) const
{
    drawUpright(*m_image, destination);
}

}
