#include <plix/platform/appkit/NSImageCell.h>

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSImageCell)
{
}

bool NSImageCell::init()
{
    return NSImageCell::init(Ref<NSImage>());
}

bool NSImageCell::init(Ref<NSImage> const& image)
{
    if (!Base::init(image))
        return false;
    setType(NSImageCellType);
    return true;
}

bool NSImageCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    setType(NSImageCellType);
    coder.read("imageAlignment", [&](ObjectValue const& value) { m_alignment = static_cast<NSImageAlignment>(value.intValue()); });
    coder.read("imageScaling", [&](ObjectValue const& value) { m_scaling = static_cast<NSImageScaling>(value.intValue()); });
    coder.read(
        "imageFrameStyle", [&](ObjectValue const& value) { m_frameStyle = static_cast<NSImageFrameStyle>(value.intValue()); });
    return true;
}

void NSImageCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_alignment, "imageAlignment");
    coder.encodeInt(m_scaling, "imageScaling");
    coder.encodeInt(m_frameStyle, "imageFrameStyle");
}

void NSImageCell::setObjectValue(ObjectValue value)
{
    Base::setObjectValue(value.as<NSImage>());
}

void NSImageCell::setImageAlignment(NSImageAlignment alignment)
{
    if (m_alignment == alignment)
        return;
    m_alignment = alignment;
    looksChanged();
}

void NSImageCell::setImageScaling(NSImageScaling scaling)
{
    if (m_scaling == scaling)
        return;
    m_scaling = scaling;
    looksChanged();
}

void NSImageCell::setImageFrameStyle(NSImageFrameStyle style)
{
    if (m_frameStyle == style)
        return;
    m_frameStyle = style;
    looksChanged();
}

CellInsets NSImageCell::frameInsets() const
{
    float const thickness = imageFrameThickness(m_frameStyle);
    return { thickness, thickness, thickness, thickness };
}

Size NSImageCell::cellSizeForBounds(Rect bounds) const
{
    auto const size = outsetSize(image() ? image()->size() : Size {}, frameInsets());
    return { std::min(size.width, std::max(0.F, bounds.width)), std::min(size.height, std::max(0.F, bounds.height)) };
}

Rect NSImageCell::imageRectForBounds(Rect bounds) const
{
    return alignedImageRect(drawingRectForBounds(bounds), image() ? image()->size() : Size {}, m_scaling, m_alignment);
}

void NSImageCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    Theme::current().drawImageFrame(frame, m_frameStyle, lookInView(controlView));
    drawInteriorWithFrame(frame, controlView);
    if (drawsFocusRing(controlView))
        Theme::current().drawFocusRing(frame, FieldShape::square);
}

void NSImageCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    Ref<NSImage> const shown(image());
    if (shown)
        Theme::drawImage(*shown, imageRectForBounds(frame), isEnabled());
}

void NSImageCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSImageCell&>(fresh);
    other.m_alignment = m_alignment;
    other.m_scaling = m_scaling;
    other.m_frameStyle = m_frameStyle;
}

}
