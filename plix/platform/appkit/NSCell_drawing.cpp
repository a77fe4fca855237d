#include <plix/platform/appkit/NSCell.h>

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/string_drawing.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

// What stands for "no bounds" in AppKit.
constexpr Rect unboundedRect { 0, 0, 40000, 40000 };

bool isOneLine(std::string_view text)
{
    return text.find_first_of("\r\n") == std::string_view::npos && text.find("\u2029") == std::string_view::npos;
}

}

// MARK: geometry

float NSCell::lineHeight() const
{
    return m_font ? m_font->defaultLineHeightForFont() : NSFont::systemFontOfSize(0)->defaultLineHeightForFont();
}

CellInsets NSCell::frameInsets() const
{
    auto const style = isBezeled() ? CellFrameStyle::bezel : isBordered() ? CellFrameStyle::border : CellFrameStyle::none;
    return cellFrameInsets(style, controlSize());
}

// Of text no wider than this, with the distance to both ends.
Size NSCell::contentSize(float width) const
{
    if (type() == NSImageCellType)
        return image() ? image()->size() : Size {};
    if (type() != NSTextCellType)
        return {};
    float const room = std::max(0.F, width - 2 * cellTextPadding);
    Size text;
    if (auto const* attributed = attributedValue())
        text = wraps() ? sizeForWidth(*attributed, room) : attributed->size();
    else if (wraps())
        text = sizeForWidth(stringValue(), room, textAttributes());
    else
        text = sizeWithAttributes(stringValue(), textAttributes());
    return { std::ceil(text.width) + 2 * cellTextPadding, std::max(std::ceil(text.height), lineHeight()) };
}

Size NSCell::cellSize() const
{
    return cellSizeForBounds(unboundedRect);
}

Size NSCell::cellSizeForBounds(Rect bounds) const
{
    auto const insets = frameInsets();
    auto const size = outsetSize(contentSize(insetRect(bounds, insets).width), insets);
    return { std::min(size.width, std::max(bounds.width, 0.F)), size.height };
}

Rect NSCell::drawingRectForBounds(Rect bounds) const
{
    return insetRect(bounds, frameInsets());
}

Rect NSCell::titleRectForBounds(Rect bounds) const
{
    return type() == NSTextCellType ? drawingRectForBounds(bounds) : bounds;
}

Rect NSCell::imageRectForBounds(Rect bounds) const
{
    return type() == NSImageCellType ? drawingRectForBounds(bounds) : bounds;
}

void NSCell::calcDrawInfo(Rect)
{
}

// MARK: drawing

Ref<NSColor> NSCell::colorForText() const
{
    return isEnabled() ? NSColor::controlTextColor() : NSColor::disabledControlTextColor();
}

Attributes NSCell::textAttributesWithColor(Ref<NSColor> const& color) const
{
    auto style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style->setAlignment(alignment());
    style->setLineBreakMode(lineBreakMode());
    return {
        { NSFontAttributeName, m_font ? m_font : NSFont::systemFontOfSize(0) },
        { NSForegroundColorAttributeName, color },
        { NSParagraphStyleAttributeName, style },
    };
}

Attributes const& NSCell::textAttributes() const
{
    if (!m_attributes)
        m_attributes = std::make_shared<Attributes const>(textAttributesWithColor(colorForText()));
    return *m_attributes;
}

void NSCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    if (isBezeled())
        Theme::current().drawFieldBezel(frame, FieldShape::square, lookInView(controlView));
    else if (isBordered())
        Theme::current().drawBorder(NSLineBorder, frame);
    drawInteriorWithFrame(frame, controlView);
    if (drawsFocusRing(controlView))
        Theme::current().drawFocusRing(frame, FieldShape::square);
}

bool NSCell::drawsFocusRing(NSView& controlView) const
{
    return showsFirstResponder() && focusRingType() != NSFocusRingTypeNone && Theme::lookOfView(controlView).isWindowActive;
}

ControlLook NSCell::lookInView(NSView& controlView) const
{
    ControlLook look = Theme::lookOfView(controlView);
    look.isEnabled = isEnabled();
    look.isPressed = isHighlighted();
    look.isHovered = isHovered() && isEnabled();
    look.isFocused = showsFirstResponder();
    return look;
}

void NSCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    if (type() == NSTextCellType) {
        if (!isBeingEdited())
            drawText(titleRectForBounds(frame));
    } else if (auto* picture = image()) {
        Theme::drawImage(*picture, centredImageRect(imageRectForBounds(frame), picture->size()), isEnabled());
    }
}

void NSCell::drawText(Rect rect) const
{
    Rect const room = insetRect(rect, { cellTextPadding, 0, cellTextPadding, 0 });
    if (room.isEmpty())
        return;
    if (auto const* attributed = attributedValue())
        return attributed->drawInRect(room);
    auto const& text = stringValue();
    if (!m_font || wraps() || !isOneLine(text))
        return drawInRect(text, room, textAttributes());
    Ref<NSColor> const color = colorForText();
    drawTextLine(text, room, { *m_font, color.get(), alignment(), lineBreakMode() });
}

Ref<NSColor> NSCell::highlightColorWithFrame(Rect, NSView&) const
{
    return NSColor::selectedControlColor();
}

void NSCell::highlight(bool flag, Rect frame, NSView& controlView)
{
    if (isHighlighted() == flag)
        return;
    setHighlighted(flag);
    controlView.setNeedsDisplayInRect(frame);
}

}
