#pragma once

#include <plix/platform/appkit/NSTextFieldCell.h>

#include <cstdint>

namespace plix {

/// Text with an image before it, as a name with its icon in a row of a table. The image is scaled into a box of a set size, in the
/// middle of the cell's height; text and editor stand to the right of it. Without image a plain text cell, but for cellSize().
class PLIX_EXPORT PLIXImageAndTextCell : public NSTextFieldCell {
    PLIX_CLASS(PLIXImageAndTextCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    PLIXImageAndTextCell();
    ~PLIXImageAndTextCell() override;

    bool init();
    /// Without image; the box is a square, four points less than the cell is high in its font.
    bool init(std::string_view text);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// Copies share it. Null for none. A plain store without redisplay.
    NSImage* image() const override { return m_image.get(); }
    void setImage(Ref<NSImage> const&) override;
    /// A number of NSImageScaling: 1 fits the image to the box, 2 shows the middle of it at its own scale, anything else scales it
    /// in proportion. 0 at first. A plain store without redisplay.
    std::int32_t imageScaling() const { return m_imageScaling; }
    void setImageScaling(std::int32_t scaling) { m_imageScaling = scaling; }
    /// The box that the image is drawn in. A plain store without redisplay.
    Size imageSize() const { return m_imageSize; }
    virtual void setImageSize(Size size) { m_imageSize = size; }
    /// The box's place in a cell; the zero rectangle without image.
    virtual Rect imageFrameForCellFrame(Rect cellFrame) const;

    // NSCell:
    /// Wider by the image's own width, not the box's, and four points.
    Size cellSize() const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
    void editWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, NSEvent&) override;
    void selectWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, long start, long length) override;

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    void sizeBoxByFont();
    float imageWidth() const;
    void drawImage(Rect box) const;

    Ref<NSImage> m_image;
    std::int32_t m_imageScaling { 0 };
    Size m_imageSize;
};

}
