#include <plix/platform/appkit/NSTextFieldCell.h>

#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSText.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/cell_layout.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/string_drawing.h>

namespace plix {

namespace {

constexpr float roundFieldTextInset = 5;

}

PLIX_DESCRIBE(NSTextFieldCell)
{
}

NSTextFieldCell::NSTextFieldCell() = default;
NSTextFieldCell::~NSTextFieldCell() = default;

bool NSTextFieldCell::init()
{
    return NSTextFieldCell::init(std::string_view {});
}

bool NSTextFieldCell::init(std::string_view text)
{
    if (!Base::init(text))
        return false;
    m_textColor = NSColor::controlTextColor();
    m_backgroundColor = NSColor::textBackgroundColor();
    return true;
}

bool NSTextFieldCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_textColor = NSColor::controlTextColor();
    m_backgroundColor = NSColor::textBackgroundColor();
    coder.read("textColor", [&](ObjectValue const& value) { m_textColor = value.as<NSColor>(); });
    coder.read("backgroundColor", [&](ObjectValue const& value) { m_backgroundColor = value.as<NSColor>(); });
    coder.read("placeholderString", [&](ObjectValue const& value) { m_placeholder = value.description(); });
    coder.read(
        "bezelStyle", [&](ObjectValue const& value) { m_bezelStyle = static_cast<NSTextFieldBezelStyle>(value.intValue()); });
    coder.read("drawsBackground", [&](ObjectValue const& value) { m_drawsBackground = value.boolValue(); });
    return true;
}

void NSTextFieldCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_textColor, "textColor");
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeObject(m_placeholder, "placeholderString");
    coder.encodeInt(m_bezelStyle, "bezelStyle");
    coder.encodeBool(m_drawsBackground, "drawsBackground");
}

void NSTextFieldCell::setTextColor(Ref<NSColor> const& color)
{
    if (m_textColor == color)
        return;
    m_textColor = color;
    textLookChanged();
}

void NSTextFieldCell::setDrawsBackground(bool draws)
{
    if (m_drawsBackground == draws)
        return;
    m_drawsBackground = draws;
    looksChanged();
}

void NSTextFieldCell::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    looksChanged();
}

void NSTextFieldCell::setBezelStyle(NSTextFieldBezelStyle style)
{
    if (m_bezelStyle == style)
        return;
    m_bezelStyle = style;
    looksChanged();
}

void NSTextFieldCell::setPlaceholderString(std::string text)
{
    if (m_placeholder == text)
        return;
    m_placeholder = validUTF8(text);
    looksChanged();
}

bool NSTextFieldCell::isOpaque() const
{
    return m_drawsBackground && m_backgroundColor && m_backgroundColor->alphaComponent() == 1 && shape() == FieldShape::square;
}

FieldShape NSTextFieldCell::shape() const
{
    return isBezeled() && m_bezelStyle == NSTextFieldRoundedBezel ? FieldShape::round : FieldShape::square;
}

// The round ends keep the text away from them.
CellInsets NSTextFieldCell::frameInsets() const
{
    auto insets = Base::frameInsets();
    if (shape() == FieldShape::round) {
        insets.left += roundFieldTextInset;
        insets.right += roundFieldTextInset;
    }
    return insets;
}

void NSTextFieldCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    auto const& theme = Theme::current();
    auto const look = lookInView(controlView);
    Ref<NSColor> const background = m_drawsBackground ? m_backgroundColor : nullptr;
    if (isBezeled())
        theme.drawFieldBezel(frame, shape(), look, background.get());
    else if (background)
        theme.fill(frame, isBordered() && !isEnabled() ? *theme.color(ThemeRole::fieldDisabled) : *background);
    if (isBordered())
        theme.drawBorder(NSLineBorder, frame);
    drawInteriorWithFrame(frame, controlView);
    if (drawsFocusRing(controlView))
        theme.drawFocusRing(frame, shape());
}

NSText& NSTextFieldCell::setUpFieldEditorAttributes(NSText& editor)
{
    Base::setUpFieldEditorAttributes(editor);
    if (m_drawsBackground && m_backgroundColor) {
        editor.setDrawsBackground(true);
        editor.setBackgroundColor(m_backgroundColor);
    }
    return editor;
}

Ref<NSColor> NSTextFieldCell::colorForText() const
{
    bool const isNamed = m_textColor && m_textColor->colorSpaceName() == NSNamedColorSpace;
    // On a row's selection.
    if (isHighlighted() && isEnabled() && (isNamed || !m_textColor)) {
        if (auto const* table = dynamic_cast<NSTableView const*>(controlView()))
            return Theme::current().selectionTextColor(table->selectionLook());
    }
    if (!m_textColor || (isNamed && !isEnabled()))
        return Base::colorForText();
    return m_textColor;
}

void NSTextFieldCell::drawText(Rect rect) const
{
    if (m_placeholder.empty() || !stringValue().empty()) {
        Base::drawText(rect);
        return;
    }
    drawInRect(m_placeholder, insetRect(rect, { cellTextPadding, 0, cellTextPadding, 0 }),
        textAttributesWithColor(isEnabled() ? Theme::current().color(ThemeRole::placeholderText) : Base::colorForText()));
}

void NSTextFieldCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSTextFieldCell&>(fresh);
    other.m_textColor = m_textColor;
    other.m_backgroundColor = m_backgroundColor;
    other.m_placeholder = m_placeholder;
    other.m_bezelStyle = m_bezelStyle;
    other.m_drawsBackground = m_drawsBackground;
}

}
