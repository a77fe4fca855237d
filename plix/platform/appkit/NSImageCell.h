#pragma once

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/image_layout.h>

namespace plix {

/// Shows an image in a frame. The object value is the image.
class PLIX_EXPORT NSImageCell : public NSActionCell {
    PLIX_CLASS(NSImageCell, NSActionCell);

public:
    bool init();
    bool init(Ref<NSImage> const&);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // How the image is placed and framed.
    NSImageAlignment imageAlignment() const { return m_alignment; }
    void setImageAlignment(NSImageAlignment);
    NSImageScaling imageScaling() const { return m_scaling; }
    void setImageScaling(NSImageScaling);
    NSImageFrameStyle imageFrameStyle() const { return m_frameStyle; }
    void setImageFrameStyle(NSImageFrameStyle);

    // NSCell:
    void setObjectValue(ObjectValue) override;
    Size cellSizeForBounds(Rect bounds) const override;
    Rect imageRectForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;

protected:
    CellInsets frameInsets() const override;
    void copyStateTo(NSObject& fresh) const override;

private:
    NSImageAlignment m_alignment { NSImageAlignCenter };
    NSImageScaling m_scaling { NSScaleProportionally };
    NSImageFrameStyle m_frameStyle { NSImageFrameNone };
};

}
