#include <plix/controls/PLIXChiseledTextField.h>

#include <plix/controls/window_activity.h>
#include <plix/format/attributed_string_additions.h>
#include <plix/format/color_additions.h>
#include <plix/platform/appkit/NSTextAttachment.h>
#include <plix/platform/appkit/NSTextAttachmentCell.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/system/identity.h>

namespace plix {

Global<NSColor> PLIXChiseledTextField_ActiveColor;
Global<NSColor> PLIXChiseledTextField_ShadowActiveColor;
Global<NSColor> PLIXChiseledTextField_InactiveColor;
Global<NSColor> PLIXChiseledTextField_ShadowInactiveColor;
Global<NSColor> PLIXChiseledTextField_DisabledColor;

namespace {

constexpr std::uint32_t lastVersionWithLightShadows = 0x104F;

constexpr Point shadowOffset { 0, 1 };

struct Grey {
    float laterLevel;
    float earlierLevel;
    float alpha;
};

Ref<NSColor> defaultColor(Global<NSColor>& global, Grey grey)
{
    if (!global) {
        float const level = PLIXSystemVersion() > lastVersionWithLightShadows ? grey.laterLevel : grey.earlierLevel;
        global = NSColor::colorWithCalibratedRed(level, level, level, grey.alpha);
    }
    return global.ref();
}

/// As large as the attachment's image, and empty; null where the attachment shows no image. New cell and attachment are as plain
/// as their classes make them.
Ref<NSTextAttachment> blankTwin(NSTextAttachment const& attachment)
{
    auto const* cell = attachment.attachmentCell();
    auto const* image = cell ? cell->image() : nullptr;
    if (!image)
        return nullptr;
    auto const blankCell = as<NSTextAttachmentCell>(cell->describedClass().makeObject());
    auto blank = as<NSTextAttachment>(attachment.describedClass().makeObject());
    if (!blankCell || !blank)
        return nullptr;
    blankCell->setImage(make<NSImage>(image->size()));
    blank->setAttachmentCell(blankCell);
    return blank;
}

void blankAttachments(NSMutableAttributedString& text)
{
    NSRange run;
    for (long index = 0; index < text.length(); index += run.length) {
        auto attributes = text.attributesAtIndex(index, run);
        auto const found = attributes.find(NSAttachmentAttributeName);
        if (found == attributes.end())
            continue;
        auto const attachment = found->second.as<NSTextAttachment>();
        if (auto const blank = attachment ? blankTwin(*attachment) : nullptr) {
            found->second = blank;
            text.setAttributes(attributes, run);
        }
    }
}

Ref<NSMutableAttributedString> coloredCopy(NSAttributedString const& text, NSColor* color)
{
    auto copy = text.mutableCopy();
    replaceAttribute(*copy, NSForegroundColorAttributeName, Ref<NSColor>(color));
    return copy;
}

ObjectValue textForColor(Ref<NSColor> const& color)
{
    return color ? ObjectValue(asCalibratedRGBString(*color)) : ObjectValue();
}

}

PLIX_DESCRIBE(PLIXChiseledTextField)
{
}

PLIXChiseledTextField::PLIXChiseledTextField() = default;

PLIXChiseledTextField::~PLIXChiseledTextField()
{
    NSNotificationCenter::defaultCenter().removeObserver(*this);
}

// MARK: set-up

bool PLIXChiseledTextField::init()
{
    if (!Base::init())
        return false;
    m_shadow = nullptr;
    initColors();
    initShape();
    return true;
}

bool PLIXChiseledTextField::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    initLabel();
    return true;
}

// The archived colours are not read: a label always has those of its class at first. That is meant.
bool PLIXChiseledTextField::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    initLabel();
    return true;
}

void PLIXChiseledTextField::initLabel()
{
    m_shadow = nullptr;
    initColors();
    setEnabled(true);
    initShape();
    initShadow();
    activate(nullptr);
}

void PLIXChiseledTextField::initShape()
{
    setSelectable(false);
    setEditable(false);
    setDrawsBackground(false);
    setBezeled(false);
    setBordered(false);
}

void PLIXChiseledTextField::initShadow()
{
    auto const shadow = make<NSTextField>(frame());
    shadow->setStringValue(stringValue());
    shadow->setSelectable(isSelectable());
    shadow->setEditable(isEditable());
    shadow->setDrawsBackground(drawsBackground());
    shadow->setBackgroundColor(backgroundColor());
    shadow->setTextColor(textColor());
    shadow->setBezeled(isBezeled());
    shadow->setBordered(isBordered());
    shadow->setEnabled(true);
    shadow->setFont(font());
    shadow->setAlignment(alignment());
    if (cell() && shadow->cell())
        shadow->cell()->setLineBreakMode(cell()->lineBreakMode());
    m_shadow = shadow;
}

// The disabled colour comes last, since the active one resets it.
void PLIXChiseledTextField::initColors()
{
    setActiveColor(ownActiveColor());
    setInactiveColor(ownInactiveColor());
    setShadowActiveColor(ownShadowActiveColor());
    setShadowInactiveColor(ownShadowInactiveColor());
    setDisabledColor(ownDisabledColor());
}

void PLIXChiseledTextField::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(textForColor(m_activeColor));
    coder.encodeObject(textForColor(m_inactiveColor));
    coder.encodeObject(textForColor(m_shadowActiveColor));
    coder.encodeObject(textForColor(m_shadowInactiveColor));
    coder.encodeObject(textForColor(m_disabledColor));
}

// MARK: colours

Ref<NSColor> PLIXChiseledTextField::classActiveColor()
{
    return defaultColor(PLIXChiseledTextField_ActiveColor, { 0.149F, 0.1F, 1 });
}

Ref<NSColor> PLIXChiseledTextField::classShadowActiveColor()
{
    return defaultColor(PLIXChiseledTextField_ShadowActiveColor, { 0.8078F, 0.96F, 0.9F });
}

Ref<NSColor> PLIXChiseledTextField::classInactiveColor()
{
    return defaultColor(PLIXChiseledTextField_InactiveColor, { 0.3F, 0.3F, 0.9F });
}

Ref<NSColor> PLIXChiseledTextField::classShadowInactiveColor()
{
    return defaultColor(PLIXChiseledTextField_ShadowInactiveColor, { 0.8078F, 0.96F, 0.7F });
}

Ref<NSColor> PLIXChiseledTextField::classDisabledColor()
{
    return defaultColor(PLIXChiseledTextField_DisabledColor, { 0.3F, 0.7F, 1 });
}

Ref<NSColor> PLIXChiseledTextField::ownActiveColor() const
{
    return classActiveColor();
}

Ref<NSColor> PLIXChiseledTextField::ownShadowActiveColor() const
{
    return classShadowActiveColor();
}

Ref<NSColor> PLIXChiseledTextField::ownInactiveColor() const
{
    return classInactiveColor();
}

Ref<NSColor> PLIXChiseledTextField::ownShadowInactiveColor() const
{
    return classShadowInactiveColor();
}

Ref<NSColor> PLIXChiseledTextField::ownDisabledColor() const
{
    return classDisabledColor();
}

// Plain stores: nothing is drawn anew until the look changes.

void PLIXChiseledTextField::setActiveColor(Ref<NSColor> const& color)
{
    m_activeColor = color ? color : ownActiveColor();
    setDisabledColor(ownDisabledColor());
}

void PLIXChiseledTextField::setShadowActiveColor(Ref<NSColor> const& color)
{
    m_shadowActiveColor = color ? color : ownShadowActiveColor();
}

void PLIXChiseledTextField::setInactiveColor(Ref<NSColor> const& color)
{
    m_inactiveColor = color ? color : ownInactiveColor();
}

void PLIXChiseledTextField::setShadowInactiveColor(Ref<NSColor> const& color)
{
    m_shadowInactiveColor = color ? color : ownShadowInactiveColor();
}

void PLIXChiseledTextField::setDisabledColor(Ref<NSColor> const& color)
{
    m_disabledColor = color ? color : ownDisabledColor();
}

// MARK: looks

// The shadow is in no view, so that a new colour of it alone has to be said here.
void PLIXChiseledTextField::wear(Ref<NSColor> const& color, Ref<NSColor> const& shadowColor)
{
    Base::setTextColor(color);
    if (!m_shadow || m_shadow->textColor() == shadowColor.get())
        return;
    m_shadow->setTextColor(shadowColor);
    setNeedsDisplay(true);
}

void PLIXChiseledTextField::activate(NSNotification const*)
{
    if (isEnabled())
        wear(m_activeColor, m_shadowActiveColor);
    m_isActive = true;
}

void PLIXChiseledTextField::deactivate(NSNotification const*)
{
    if (isEnabled())
        wear(m_inactiveColor, m_shadowInactiveColor);
    m_isActive = false;
}

// Enabled in a window without the keyboard it looks active all the same, until it is told otherwise. That is meant.
void PLIXChiseledTextField::setEnabled(bool flag)
{
    Base::setEnabled(flag);
    if (isEnabled())
        wear(m_activeColor, m_shadowActiveColor);
    else
        wear(m_disabledColor, m_shadowInactiveColor);
}

void PLIXChiseledTextField::viewDidMoveToWindow()
{
    followActivity(*this);
}

// The base is not asked; that is meant.
void PLIXChiseledTextField::awakeFromNib()
{
    viewDidMoveToWindow();
}

// MARK: mirrored setters

void PLIXChiseledTextField::setAlignment(NSTextAlignment alignment)
{
    if (m_shadow)
        m_shadow->setAlignment(alignment);
    Base::setAlignment(alignment);
}

void PLIXChiseledTextField::setFont(Ref<NSFont> const& font)
{
    if (m_shadow)
        m_shadow->setFont(font);
    Base::setFont(font);
}

void PLIXChiseledTextField::setNeedsDisplay(bool flag)
{
    if (m_shadow)
        m_shadow->setNeedsDisplay(flag);
    Base::setNeedsDisplay(flag);
}

void PLIXChiseledTextField::setStringValue(std::string_view text)
{
    if (m_shadow)
        m_shadow->setStringValue(text);
    Base::setStringValue(text);
}

void PLIXChiseledTextField::setAttributedStringValue(Ref<NSAttributedString> const& value)
{
    Ref<NSAttributedString> shadowText;
    Ref<NSAttributedString> ownText;
    if (value) {
        if (m_shadow) {
            auto const copy = coloredCopy(*value, m_shadow->textColor());
            blankAttachments(*copy);
            shadowText = copy;
        }
        ownText = coloredCopy(*value, textColor());
    }
    if (m_shadow)
        m_shadow->setAttributedStringValue(shadowText);
    Base::setAttributedStringValue(ownText);
}

void PLIXChiseledTextField::setFloatValue(float value)
{
    if (m_shadow)
        m_shadow->setFloatValue(value);
    Base::setFloatValue(value);
}

void PLIXChiseledTextField::setIntValue(int value)
{
    if (m_shadow)
        m_shadow->setIntValue(value);
    Base::setIntValue(value);
}

void PLIXChiseledTextField::setDoubleValue(double value)
{
    if (m_shadow)
        m_shadow->setDoubleValue(value);
    Base::setDoubleValue(value);
}

void PLIXChiseledTextField::setFormatter(Ref<NSFormatter> const& formatter)
{
    if (m_shadow)
        m_shadow->setFormatter(formatter);
    Base::setFormatter(formatter);
}

void PLIXChiseledTextField::setBoundsOrigin(Point origin)
{
    if (m_shadow)
        m_shadow->setBoundsOrigin(origin);
    Base::setBoundsOrigin(origin);
}

void PLIXChiseledTextField::setFrameSize(Size size)
{
    if (m_shadow)
        m_shadow->setFrameSize(size);
    Base::setFrameSize(size);
}

// The shadow is drawn relative to the label.
void PLIXChiseledTextField::setFrameOrigin(Point origin)
{
    Base::setFrameOrigin(origin);
}

// MARK: drawing

void PLIXChiseledTextField::drawRect(Rect rect)
{
    auto const context = NSGraphicsContext::currentContext();
    GraphicsState const saved(context);
    if (context)
        context->setShouldSmoothFonts(false);
    if (m_shadow && m_shadow->cell() && isEnabled()) {
        auto* const focused = NSView::focusView();
        m_shadow->cell()->drawWithFrame(rectWith(shadowOffset, m_shadow->frame().size()), focused ? *focused : *this);
    }
    Base::drawRect(rect);
}

void PLIXChiseledTextField::display()
{
    Base::display();
}

}
