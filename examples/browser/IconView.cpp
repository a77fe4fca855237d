#include "IconView.h"
#include "icons.h"

namespace browser {

PLIX_DESCRIBE(IconView)
{
}

void IconView::showEntry(FolderEntry const* entry)
{
    m_kind = entry ? std::optional(entry->kind) : std::nullopt;
    m_isLink = entry && entry->isLink;
    setNeedsDisplay(true);
}

void IconView::drawRect(plix::Rect)
{
    if (m_kind)
        drawIcon(*m_kind, m_isLink, bounds());
}

}
