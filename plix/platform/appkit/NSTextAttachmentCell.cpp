#include <plix/platform/appkit/NSTextAttachmentCell.h>

#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

PLIX_DESCRIBE(NSTextAttachmentCell)
{
}

bool NSTextAttachmentCell::init()
{
    return NSTextAttachmentCell::init(Ref<NSImage>());
}

bool NSTextAttachmentCell::init(std::string_view text)
{
    return Base::init(text);
}

bool NSTextAttachmentCell::init(Ref<NSImage> const& image)
{
    if (!Base::init(image))
        return false;
    setType(NSImageCellType);
    return true;
}

bool NSTextAttachmentCell::init(NSCoder& coder)
{
    return Base::init(coder);
}

NSTextAttachment* NSTextAttachmentCell::attachment() const
{
    return dynamic_cast<NSTextAttachment*>(m_attachment.get());
}

void NSTextAttachmentCell::setAttachment(NSTextAttachment* attachment)
{
    m_attachment = attachment ? Weak<NSObject>(*attachment) : Weak<NSObject>();
}

void NSTextAttachmentCell::drawWithFrame(Rect frame, NSView& controlView)
{
    drawInteriorWithFrame(frame, controlView);
}

void NSTextAttachmentCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    Ref<NSImage> const shown(image());
    if (shown)
        Theme::drawImage(*shown, frame, isEnabled());
    else
        Base::drawInteriorWithFrame(frame, controlView);
}

}
