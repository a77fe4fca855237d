#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/inline_object.h>

namespace plix {

class NSAttributedString;
class NSTextAttachmentCell;

/// Stands in an attributed string under NSAttachmentAttributeName, on an NSAttachmentCharacter; its cell says how large it is and
/// draws it.
class PLIX_EXPORT NSTextAttachment : public NSObject, public InlineObject {
    PLIX_CLASS(NSTextAttachment, NSObject);

public:
    NSTextAttachment();
    ~NSTextAttachment() override;
    /// With a cell without image.
    bool init();
    bool init(NSCoder&);

    NSTextAttachmentCell* attachmentCell() const { return m_cell.get(); }
    /// Null makes the attachment take no room.
    void setAttachmentCell(Ref<NSTextAttachmentCell> const&);

    /// The one character of text that shows the attachment.
    static Ref<NSAttributedString> attributedStringWithAttachment(NSTextAttachment&);

    // NSObject, InlineObject:
    void encodeWithCoder(NSCoder&) const override;
    Size inlineSize() const override;
    Point inlineBaselineOffset() const override;
    void drawInline(Rect frame) override;

private:
    Ref<NSTextAttachmentCell> m_cell;
};

}
