#pragma once

#include <plix/platform/appkit/NSCell.h>

namespace plix {

class NSTextAttachment;

/// Draws an attachment in a line of text: its image, as large as that is, standing on the baseline.
class PLIX_EXPORT NSTextAttachmentCell : public NSCell {
    PLIX_CLASS(NSTextAttachmentCell, NSCell);

public:
    /// An image cell without image.
    bool init();
    bool init(std::string_view text);
    bool init(Ref<NSImage> const&);
    bool init(NSCoder&);

    /// Held weakly.
    NSTextAttachment* attachment() const;
    void setAttachment(NSTextAttachment*);
    /// Where the lower left corner is, seen from the baseline; y grows upwards.
    virtual Point cellBaselineOffset() const { return {}; }

    // NSCell:
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;

private:
    Weak<NSObject> m_attachment;
};

}
