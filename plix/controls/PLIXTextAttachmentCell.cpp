#include <plix/controls/PLIXTextAttachmentCell.h>

namespace plix {

PLIX_DESCRIBE(PLIXTextAttachmentCell)
{
}

// Whatever the base answers, the cell is there.

bool PLIXTextAttachmentCell::init()
{
    Base::init();
    return true;
}

bool PLIXTextAttachmentCell::init(std::string_view text)
{
    Base::init(text);
    return true;
}

bool PLIXTextAttachmentCell::init(Ref<NSImage> const& image)
{
    Base::init(image);
    return true;
}

bool PLIXTextAttachmentCell::init(NSCoder& coder)
{
    Base::init(coder);
    return true;
}

void PLIXTextAttachmentCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<PLIXTextAttachmentCell&>(fresh);
    other.m_cellBaselineOffset = m_cellBaselineOffset;
    other.m_centersCellBaselineOffset = m_centersCellBaselineOffset;
}

}
