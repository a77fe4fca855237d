#include <plix/platform/graphics/NSTextContainer.h>

#include <plix/platform/graphics/NSLayoutManager.h>

namespace plix {

PLIX_DESCRIBE(NSTextContainer)
{
}

bool NSTextContainer::init(Size containerSize)
{
    m_size = containerSize;
    return true;
}

void NSTextContainer::setContainerSize(Size size)
{
    if (size == m_size)
        return;
    m_size = size;
    if (auto* manager = m_layoutManager.get())
        manager->textContainerChangedGeometry(*this);
}

void NSTextContainer::setLineFragmentPadding(float padding)
{
    if (padding == m_padding)
        return;
    m_padding = padding;
    if (auto* manager = m_layoutManager.get())
        manager->textContainerChangedGeometry(*this);
}

void NSTextContainer::setLayoutManager(NSLayoutManager* manager)
{
    m_layoutManager = manager;
}

}
