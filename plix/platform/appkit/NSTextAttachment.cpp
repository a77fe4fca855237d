#include <plix/platform/appkit/NSTextAttachment.h>

#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/attribute_names.h>

namespace plix {

PLIX_DESCRIBE(NSTextAttachment)
{
}

NSTextAttachment::NSTextAttachment() = default;

NSTextAttachment::~NSTextAttachment()
{
    setAttachmentCell(nullptr);
}

bool NSTextAttachment::init()
{
    setAttachmentCell(make<NSTextAttachmentCell>());
    return true;
}

bool NSTextAttachment::init(NSCoder& coder)
{
    setAttachmentCell(coder.decodeForKey<NSTextAttachmentCell>("NSCell"));
    return true;
}

void NSTextAttachment::encodeWithCoder(NSCoder& coder) const
{
    NSObject::encodeWithCoder(coder);
    coder.encodeObject(m_cell, "NSCell");
}

void NSTextAttachment::setAttachmentCell(Ref<NSTextAttachmentCell> const& cell)
{
    if (m_cell == cell)
        return;
    if (m_cell && m_cell->attachment() == this)
        m_cell->setAttachment(nullptr);
    m_cell = cell;
    if (m_cell)
        m_cell->setAttachment(this);
}

Ref<NSAttributedString> NSTextAttachment::attributedStringWithAttachment(NSTextAttachment& attachment)
{
    std::string character;
    appendUTF8(character, NSAttachmentCharacter);
    return make<NSAttributedString>(character, Attributes { { NSAttachmentAttributeName, Ref<NSTextAttachment>(attachment) } });
}

Size NSTextAttachment::inlineSize() const
{
    return m_cell ? m_cell->cellSize() : Size {};
}

Point NSTextAttachment::inlineBaselineOffset() const
{
    return m_cell ? m_cell->cellBaselineOffset() : Point {};
}

void NSTextAttachment::drawInline(Rect frame)
{
    Ref<NSTextAttachmentCell> const cell = m_cell;
    Ref<NSView> const view(NSView::focusView());
    // Without a view the text is drawn into a picture that nothing has the focus of.
    if (cell)
        cell->drawWithFrame(frame, view ? *view : *make<NSView>());
}

}
