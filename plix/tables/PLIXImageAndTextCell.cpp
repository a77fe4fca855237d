#include <plix/tables/PLIXImageAndTextCell.h>

#include <plix/drawing/focused_image.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/tables/image_cell_plan.h>

namespace plix {

PLIX_DESCRIBE(PLIXImageAndTextCell)
{
}

PLIXImageAndTextCell::PLIXImageAndTextCell() = default;
PLIXImageAndTextCell::~PLIXImageAndTextCell() = default;

bool PLIXImageAndTextCell::init()
{
    return PLIXImageAndTextCell::init(std::string_view {});
}

bool PLIXImageAndTextCell::init(std::string_view text)
{
    if (!Base::init(text))
        return false;
    m_image = nullptr;
    setImageScaling(0);
    sizeBoxByFont();
    return true;
}

bool PLIXImageAndTextCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    sizeBoxByFont();
    coder.read("image", [&](ObjectValue const& value) { m_image = value.as<NSImage>(); });
    coder.read("imageScaling", [&](ObjectValue const& value) { m_imageScaling = value.intValue(); });
    coder.read("imageSize", [&](ObjectValue const& value) { setImageSize(NSSizeFromString(value.description())); });
    return true;
}

void PLIXImageAndTextCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_image, "image");
    coder.encodeInt(m_imageScaling, "imageScaling");
    coder.encodeObject(NSStringFromSize(m_imageSize), "imageSize");
}

void PLIXImageAndTextCell::sizeBoxByFont()
{
    float const side = cellSize().height - 4.0F;
    setImageSize({ side, side });
}

void PLIXImageAndTextCell::setImage(Ref<NSImage> const& image)
{
    m_image = image;
}

float PLIXImageAndTextCell::imageWidth() const
{
    return m_image ? m_image->size().width : 0.0F;
}

Rect PLIXImageAndTextCell::imageFrameForCellFrame(Rect cellFrame) const
{
    return m_image ? imageBoxInCell(cellFrame, m_imageSize) : Rect {};
}

Size PLIXImageAndTextCell::cellSize() const
{
    return cellSizeWithImage(Base::cellSize(), imageWidth());
}

void PLIXImageAndTextCell::editWithFrame(Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, NSEvent& event)
{
    Base::editWithFrame(editorBesideImage(frame, imageWidth()), controlView, editor, delegate, event);
}

void PLIXImageAndTextCell::selectWithFrame(
    Rect frame, NSView& controlView, NSText& editor, NSObject* delegate, long start, long length)
{
    Base::selectWithFrame(editorBesideImage(frame, imageWidth()), controlView, editor, delegate, start, length);
}

void PLIXImageAndTextCell::drawWithFrame(Rect frame, NSView& controlView)
{
    if (!m_image) {
        Base::drawWithFrame(frame, controlView);
        return;
    }
    Rect const box = imageFrameForCellFrame(frame);
    if (drawsBackground() && backgroundColor()) {
        backgroundColor()->set();
        NSRectFill(box);
    }
    drawImage(box);
    Base::drawWithFrame(textBesideImageBox(frame, box.size()), controlView);
}

// In a flipped view the picture is mirrored about its own middle, so that it stands upright.
void PLIXImageAndTextCell::drawImage(Rect box) const
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    auto const [source, destination] = cellImagePlacement(m_image->size(), box, m_imageScaling);
    GraphicsState const saved(context);
    context->setImageInterpolation(NSImageInterpolationHigh);
    drawFocusedImage(*m_image, destination, source, isFocusFlipped() ? ImageTurn::mirrored : ImageTurn::none);
}

void PLIXImageAndTextCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<PLIXImageAndTextCell&>(fresh);
    other.m_image = m_image;
    other.m_imageScaling = m_imageScaling;
    other.setImageSize(m_imageSize);
}

}
