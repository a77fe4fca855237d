#include <plix/platform/appkit/NSButtonCell.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <cmath>

namespace plix {

PLIX_DESCRIBE(NSButtonCell)
{
}

NSButtonCell::NSButtonCell() = default;
NSButtonCell::~NSButtonCell() = default;

bool NSButtonCell::init()
{
    return NSButtonCell::init("Button");
}

bool NSButtonCell::init(std::string_view title)
{
    if (!Base::init(""))
        return false;
    m_title = validUTF8(title);
    setBordered(true);
    Base::setAlignment(NSCenterTextAlignment);
    setLineBreakMode(NSLineBreakByTruncatingTail);
    return true;
}

bool NSButtonCell::init(Ref<NSImage> const& image)
{
    if (!NSButtonCell::init(""))
        return false;
    m_image = image;
    m_imagePosition = NSImageOnly;
    return true;
}

bool NSButtonCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("title", [&](ObjectValue const& value) { m_title = value.description(); });
    coder.read("alternateTitle", [&](ObjectValue const& value) { m_alternateTitle = value.description(); });
    coder.read("attributedTitle", [&](ObjectValue const& value) { m_attributedTitle = value.as<NSAttributedString>(); });
    coder.read("image", [&](ObjectValue const& value) { m_image = value.as<NSImage>(); });
    coder.read("alternateImage", [&](ObjectValue const& value) { m_alternateImage = value.as<NSImage>(); });
    coder.read("backgroundColor", [&](ObjectValue const& value) { m_backgroundColor = value.as<NSColor>(); });
    coder.read("keyEquivalent", [&](ObjectValue const& value) { m_keyEquivalent = value.description(); });
    coder.read("keyEquivalentModifierMask",
        [&](ObjectValue const& value) { m_keyEquivalentModifierMask = static_cast<unsigned>(value.integerValue()); });
    coder.read("highlightsBy", [&](ObjectValue const& value) { m_highlightsBy = static_cast<unsigned>(value.integerValue()); });
    coder.read("showsStateBy", [&](ObjectValue const& value) { m_showsStateBy = static_cast<unsigned>(value.integerValue()); });
    coder.read("bezelStyle", [&](ObjectValue const& value) { m_bezelStyle = static_cast<NSBezelStyle>(value.intValue()); });
    coder.read(
        "imagePosition", [&](ObjectValue const& value) { m_imagePosition = static_cast<NSCellImagePosition>(value.intValue()); });
    coder.read("indicator", [&](ObjectValue const& value) { m_indicator = static_cast<ButtonFace>(value.intValue()); });
    coder.read("periodicDelay", [&](ObjectValue const& value) { m_periodicDelay = value.floatValue(); });
    coder.read("periodicInterval", [&](ObjectValue const& value) { m_periodicInterval = value.floatValue(); });
    coder.read("transparent", [&](ObjectValue const& value) { m_isTransparent = value.boolValue(); });
    coder.read("showsBorderOnlyWhileMouseInside",
        [&](ObjectValue const& value) { m_showsBorderOnlyWhileMouseInside = value.boolValue(); });
    coder.read("imageDimsWhenDisabled", [&](ObjectValue const& value) { m_imageDimsWhenDisabled = value.boolValue(); });
    return true;
}

void NSButtonCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_title, "title");
    coder.encodeObject(m_alternateTitle, "alternateTitle");
    coder.encodeObject(m_attributedTitle, "attributedTitle");
    coder.encodeObject(m_image, "image");
    coder.encodeObject(m_alternateImage, "alternateImage");
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeObject(m_keyEquivalent, "keyEquivalent");
    coder.encodeInt(m_keyEquivalentModifierMask, "keyEquivalentModifierMask");
    coder.encodeInt(m_highlightsBy, "highlightsBy");
    coder.encodeInt(m_showsStateBy, "showsStateBy");
    coder.encodeInt(m_bezelStyle, "bezelStyle");
    coder.encodeInt(m_imagePosition, "imagePosition");
    coder.encodeInt(static_cast<int>(m_indicator), "indicator");
    coder.encodeDouble(m_periodicDelay, "periodicDelay");
    coder.encodeDouble(m_periodicInterval, "periodicInterval");
    coder.encodeBool(m_isTransparent, "transparent");
    coder.encodeBool(m_showsBorderOnlyWhileMouseInside, "showsBorderOnlyWhileMouseInside");
    coder.encodeBool(m_imageDimsWhenDisabled, "imageDimsWhenDisabled");
}

void NSButtonCell::setButtonType(NSButtonType type)
{
    m_indicator = ButtonFace::plain;
    switch (type) {
    case NSMomentaryPushButton:
        m_highlightsBy = NSPushInCellMask | NSChangeGrayCellMask;
        m_showsStateBy = NSNoCellMask;
        break;
    case NSMomentaryPushInButton:
        m_highlightsBy = NSPushInCellMask | NSChangeGrayCellMask | NSChangeBackgroundCellMask;
        m_showsStateBy = NSNoCellMask;
        break;
    case NSPushOnPushOffButton:
        m_highlightsBy = NSPushInCellMask | NSChangeGrayCellMask;
        m_showsStateBy = NSChangeBackgroundCellMask | NSChangeGrayCellMask;
        break;
    case NSOnOffButton:
        m_highlightsBy = m_showsStateBy = NSChangeBackgroundCellMask | NSChangeGrayCellMask;
        break;
    case NSToggleButton:
        m_highlightsBy = NSPushInCellMask | NSContentsCellMask;
        m_showsStateBy = NSContentsCellMask;
        break;
    case NSMomentaryChangeButton:
        m_highlightsBy = NSContentsCellMask;
        m_showsStateBy = NSNoCellMask;
        break;
    case NSSwitchButton:
    case NSRadioButton:
        m_indicator = type == NSSwitchButton ? ButtonFace::checkBox : ButtonFace::radio;
        m_highlightsBy = m_showsStateBy = NSContentsCellMask;
        m_imagePosition = NSImageLeft;
        setBordered(false);
        setAlignment(NSLeftTextAlignment);
        break;
    }
    looksChanged();
}

ButtonFace NSButtonCell::face() const
{
    if (m_indicator != ButtonFace::plain)
        return m_indicator;
    return isBordered() || isBezeled() ? ButtonFace::bezel : ButtonFace::plain;
}

// MARK: title and image

void NSButtonCell::setTitle(std::string_view title)
{
    m_attributedTitle = nullptr;
    m_title = validUTF8(title);
    looksChanged();
}

void NSButtonCell::setAlternateTitle(std::string_view title)
{
    m_alternateTitle = validUTF8(title);
    looksChanged();
}

std::string const& NSButtonCell::shownTitle() const
{
    return shows(NSContentsCellMask) && !m_alternateTitle.empty() ? m_alternateTitle : m_title;
}

NSImage* NSButtonCell::shownImage() const
{
    return shows(NSContentsCellMask) && m_alternateImage ? m_alternateImage.get() : m_image.get();
}

Ref<NSAttributedString> NSButtonCell::attributedTitle() const
{
    if (m_attributedTitle && !(shows(NSContentsCellMask) && !m_alternateTitle.empty()))
        return m_attributedTitle;
    return make<NSAttributedString>(shownTitle(), textAttributesWithColor(titleColor()));
}

void NSButtonCell::setAttributedTitle(Ref<NSAttributedString> const& title)
{
    m_attributedTitle = title;
    if (title)
        m_title = title->string();
    looksChanged();
}

void NSButtonCell::setImage(Ref<NSImage> const& image)
{
    if (m_image == image)
        return;
    m_image = image;
    if (image && m_imagePosition == NSNoImage)
        m_imagePosition = m_title.empty() ? NSImageOnly : NSImageLeft;
    looksChanged();
}

void NSButtonCell::setAlternateImage(Ref<NSImage> const& image)
{
    if (m_alternateImage == image)
        return;
    m_alternateImage = image;
    looksChanged();
}

void NSButtonCell::setImagePosition(NSCellImagePosition position)
{
    if (m_imagePosition == position)
        return;
    m_imagePosition = position;
    looksChanged();
}

void NSButtonCell::setFont(Ref<NSFont> const& font)
{
    Base::setFont(font);
    looksChanged();
}

// MARK: value

ObjectValue const& NSButtonCell::objectValue() const
{
    m_stateValue = state();
    return m_stateValue;
}

void NSButtonCell::setObjectValue(ObjectValue value)
{
    setState(value.intValue());
}

std::string const& NSButtonCell::stringValue() const
{
    static std::string const s_states[] { "-1", "0", "1" };
    return s_states[std::clamp(state(), -1, 1) + 1];
}

void NSButtonCell::setStringValue(std::string_view text)
{
    setState(plix::intValue(text));
}

Ref<NSAttributedString> NSButtonCell::attributedStringValue() const
{
    return attributedTitle();
}

// A momentary button stays off, a radio button on until another is chosen.
void NSButtonCell::setNextState()
{
    if (m_indicator == ButtonFace::radio)
        setState(NSOnState);
    else if (m_showsStateBy != NSNoCellMask)
        Base::setNextState();
}

// MARK: looks

void NSButtonCell::setBezelStyle(NSBezelStyle style)
{
    if (m_bezelStyle == style)
        return;
    m_bezelStyle = style;
    looksChanged();
}

void NSButtonCell::setHighlightsBy(unsigned mask)
{
    m_highlightsBy = mask;
    looksChanged();
}

void NSButtonCell::setShowsStateBy(unsigned mask)
{
    m_showsStateBy = mask;
    looksChanged();
}

void NSButtonCell::setTransparent(bool isTransparent)
{
    if (m_isTransparent == isTransparent)
        return;
    m_isTransparent = isTransparent;
    looksChanged();
}

void NSButtonCell::setShowsBorderOnlyWhileMouseInside(bool shows)
{
    if (m_showsBorderOnlyWhileMouseInside == shows)
        return;
    m_showsBorderOnlyWhileMouseInside = shows;
    looksChanged();
}

void NSButtonCell::setImageDimsWhenDisabled(bool dims)
{
    if (m_imageDimsWhenDisabled == dims)
        return;
    m_imageDimsWhenDisabled = dims;
    looksChanged();
}

void NSButtonCell::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    looksChanged();
}

bool NSButtonCell::shows(unsigned mask) const
{
    return (isHighlighted() && (m_highlightsBy & mask)) || (state() != NSOffState && (m_showsStateBy & mask));
}

// MARK: keys

void NSButtonCell::setKeyEquivalent(std::string_view key)
{
    m_keyEquivalent = validUTF8(key);
    looksChanged();
}

void NSButtonCell::setKeyEquivalentModifierMask(unsigned mask)
{
    m_keyEquivalentModifierMask = mask;
}

bool NSButtonCell::isDefaultButton() const
{
    if (m_keyEquivalent == "\r" && m_keyEquivalentModifierMask == 0)
        return true;
    auto const* view = controlView();
    auto const* window = view ? view->window() : nullptr;
    auto const* button = window ? window->defaultButton() : nullptr;
    return button && (button == view || button == static_cast<NSObject const*>(this));
}

void NSButtonCell::setPeriodicDelay(float delay, float interval)
{
    m_periodicDelay = std::clamp(delay, 0.F, 60.F);
    m_periodicInterval = std::clamp(interval, 0.005F, 60.F);
}

void NSButtonCell::getPeriodicDelay(float& delay, float& interval) const
{
    delay = m_periodicDelay;
    interval = m_periodicInterval;
}

// MARK: hovering

void NSButtonCell::mouseEntered(NSEvent&)
{
    setHovered(true);
}

void NSButtonCell::mouseExited(NSEvent&)
{
    setHovered(false);
}

// MARK: geometry

ButtonContent NSButtonCell::content() const
{
    ButtonContent content;
    content.position = m_imagePosition;
    content.alignment = alignment();
    if (auto const* image = shownImage(); image && m_indicator == ButtonFace::plain)
        content.image = image->size();
    if (content.position == NSImageOnly)
        return content;
    auto const size = m_attributedTitle ? attributedTitle()->size() : sizeWithAttributes(shownTitle(), textAttributes());
    if (size.width > 0)
        content.title = { std::ceil(size.width), std::ceil(size.height) };
    return content;
}

CellInsets NSButtonCell::contentInsets() const
{
    return buttonInsets(face(), m_bezelStyle, controlSize());
}

Size NSButtonCell::cellSizeForBounds(Rect bounds) const
{
    auto const size = outsetSize(buttonContentSize(content()), contentInsets());
    float const least = face() == ButtonFace::checkBox || face() == ButtonFace::radio ? indicatorSide(controlSize()) + 2 : 0;
    return { std::min(size.width, std::max(bounds.width, 0.F)), std::max(size.height, least) };
}

Rect NSButtonCell::drawingRectForBounds(Rect bounds) const
{
    return insetRect(bounds, contentInsets());
}

ButtonContentPlan NSButtonCell::planInBounds(Rect bounds) const
{
    // A title that does not fit between the insets may use a part of them.
    auto area = drawingRectForBounds(bounds);
    if (face() == ButtonFace::bezel && area.height < buttonContentSize(content()).height)
        area = { area.x, bounds.y + 1, area.width, std::max(0.F, bounds.height - 2) };
    return buttonContentPlan(content(), area);
}

Rect NSButtonCell::titleRectForBounds(Rect bounds) const
{
    return planInBounds(bounds).title;
}

Rect NSButtonCell::imageRectForBounds(Rect bounds) const
{
    auto const isIndicator = face() == ButtonFace::checkBox || face() == ButtonFace::radio;
    return isIndicator ? indicatorRect(bounds, controlSize()) : planInBounds(bounds).image;
}

// MARK: drawing

ControlLook NSButtonCell::buttonLook(NSView& controlView) const
{
    auto look = lookInView(controlView);
    look.isPressed = isHighlighted() && (m_highlightsBy & (NSPushInCellMask | NSChangeGrayCellMask | NSChangeBackgroundCellMask));
    look.isHovered = isHovered();
    look.isFocused = drawsFocusRing(controlView);
    return look;
}

static ButtonLook wholeLook(ControlLook const& look, NSButtonCell const& cell, bool isOn, bool isDefault)
{
    return { .control = look, .style = cell.bezelStyle(), .isOn = isOn, .isDefault = isDefault };
}

Ref<NSColor> NSButtonCell::titleColor() const
{
    auto const& theme = Theme::current();
    ControlLook look;
    if (auto* view = controlView())
        look = buttonLook(*view);
    look.isEnabled = isEnabled();
    if (face() != ButtonFace::bezel)
        return isEnabled() ? NSColor::controlTextColor() : theme.color(ThemeRole::buttonDisabledText);
    bool const isOn = state() != NSOffState && (m_showsStateBy & (NSChangeGrayCellMask | NSChangeBackgroundCellMask));
    bool const hasBezel = !m_showsBorderOnlyWhileMouseInside || isHovered() || isHighlighted() || isOn;
    return hasBezel ? theme.buttonTextColor(wholeLook(look, *this, isOn, isDefaultButton())) : theme.color(ThemeRole::buttonText);
}

void NSButtonCell::drawBezelWithFrame(Rect frame, NSView& controlView)
{
    auto const look = buttonLook(controlView);
    auto const& theme = Theme::current();
    if (m_bezelStyle == NSDisclosureBezelStyle) {
        theme.drawDisclosureTriangle(frame, state() == NSOnState, look);
        if (look.isFocused)
            theme.drawFocusRing(frame, FieldShape::square);
        return;
    }
    bool const isOn = state() != NSOffState && (m_showsStateBy & (NSChangeGrayCellMask | NSChangeBackgroundCellMask));
    if (m_showsBorderOnlyWhileMouseInside && !isHovered() && !isHighlighted() && !isOn && !look.isFocused)
        return;
    theme.drawButtonBezel(frame, wholeLook(look, *this, isOn, isDefaultButton()));
    if (m_bezelStyle == NSRoundedDisclosureBezelStyle)
        theme.drawDisclosureTriangle(frame, state() == NSOnState, look);
}

void NSButtonCell::drawWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    if (m_isTransparent)
        return;
    if (face() == ButtonFace::bezel)
        drawBezelWithFrame(frame, controlView);
    else if (m_backgroundColor)
        Theme::current().fill(frame, *m_backgroundColor);
    drawInteriorWithFrame(frame, controlView);
    if (face() == ButtonFace::plain && drawsFocusRing(controlView))
        Theme::current().drawFocusRing(frame, FieldShape::square);
}

void NSButtonCell::drawInteriorWithFrame(Rect frame, NSView& controlView)
{
    setControlView(&controlView);
    if (m_isTransparent)
        return;
    auto const kind = face();
    if (kind == ButtonFace::checkBox || kind == ButtonFace::radio) {
        auto look = buttonLook(controlView);
        look.isPressed = isHighlighted();
        Theme::current().drawIndicator(
            indicatorRect(frame, controlSize()), kind, state(), wholeLook(look, *this, state() != NSOffState, false));
    }
    bool const isTriangle = m_bezelStyle == NSDisclosureBezelStyle || m_bezelStyle == NSRoundedDisclosureBezelStyle;
    if (kind == ButtonFace::bezel && isTriangle)
        return;
    auto const plan = planInBounds(frame);
    if (auto* image = shownImage(); image && !plan.image.isEmpty() && m_indicator == ButtonFace::plain)
        drawImage(*image, plan.image, controlView);
    if (!plan.title.isEmpty())
        drawTitle(*attributedTitle(), plan.title, controlView);
    else if (m_bezelStyle == NSHelpButtonBezelStyle && kind == ButtonFace::bezel)
        drawTitle(*make<NSAttributedString>("?", textAttributesWithColor(titleColor())),
            { frame.x, std::round(frame.midY() - 8), frame.width, 16 }, controlView);
}

void NSButtonCell::drawImage(NSImage& image, Rect frame, NSView&)
{
    Theme::drawImage(image, frame, isEnabled() || !m_imageDimsWhenDisabled);
}

Rect NSButtonCell::drawTitle(NSAttributedString const& title, Rect frame, NSView&)
{
    title.drawInRect(frame);
    return frame;
}

void NSButtonCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSButtonCell&>(fresh);
    other.m_title = m_title;
    other.m_alternateTitle = m_alternateTitle;
    other.m_attributedTitle = m_attributedTitle;
    other.m_image = m_image;
    other.m_alternateImage = m_alternateImage;
    other.m_backgroundColor = m_backgroundColor;
    other.m_keyEquivalent = m_keyEquivalent;
    other.m_keyEquivalentModifierMask = m_keyEquivalentModifierMask;
    other.m_highlightsBy = m_highlightsBy;
    other.m_showsStateBy = m_showsStateBy;
    other.m_bezelStyle = m_bezelStyle;
    other.m_imagePosition = m_imagePosition;
    other.m_indicator = m_indicator;
    other.m_periodicDelay = m_periodicDelay;
    other.m_periodicInterval = m_periodicInterval;
    other.m_isTransparent = m_isTransparent;
    other.m_showsBorderOnlyWhileMouseInside = m_showsBorderOnlyWhileMouseInside;
    other.m_imageDimsWhenDisabled = m_imageDimsWhenDisabled;
}

}
