#include <plix/platform/appkit/NSCell.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>

#include <stdexcept>
#include <utility>

namespace plix {

PLIX_DESCRIBE(NSCell)
{
    description.outlet("formatter", &NSCell::setFormatter);
}

NSCell::NSCell()
    : m_actionMask(NSLeftMouseUpMask)
{
}

NSCell::~NSCell() = default;

bool NSCell::init()
{
    return NSCell::init(std::string_view {});
}

bool NSCell::init(std::string_view text)
{
    m_type = NSTextCellType;
    m_font = NSFont::systemFontOfSize(0);
    m_value = validUTF8(text);
    return true;
}

bool NSCell::init(Ref<NSImage> const& image)
{
    m_type = image ? NSImageCellType : NSNullCellType;
    m_value = image;
    return true;
}

bool NSCell::init(NSCoder& coder)
{
    if (!NSCell::init())
        return false;
    coder.read("type", [&](ObjectValue const& value) { m_type = static_cast<NSCellType>(value.intValue()); });
    coder.read("contents", [&](ObjectValue const& value) { m_value = value; });
    coder.read("hasValidObjectValue", [&](ObjectValue const& value) { m_hasValidObject = value.boolValue(); });
    if (!m_hasValidObject) {
        m_text = coder.decodeStringForKey("text");
        m_textIsCurrent = true;
    }
    coder.read("formatter", [&](ObjectValue const& value) { m_formatter = value.as<NSFormatter>(); });
    coder.read("font", [&](ObjectValue const& value) { m_font = value.as<NSFont>(); });
    coder.read("representedObject", [&](ObjectValue const& value) { m_representedObject = value; });
    coder.read("state", [&](ObjectValue const& value) { m_state = value.intValue(); });
    coder.read("alignment", [&](ObjectValue const& value) { m_alignment = static_cast<NSTextAlignment>(value.intValue()); });
    coder.read(
        "lineBreakMode", [&](ObjectValue const& value) { m_lineBreakMode = static_cast<NSLineBreakMode>(value.intValue()); });
    coder.read("controlSize", [&](ObjectValue const& value) { m_controlSize = static_cast<NSControlSize>(value.intValue()); });
    coder.read(
        "focusRingType", [&](ObjectValue const& value) { m_focusRingType = static_cast<NSFocusRingType>(value.intValue()); });
    coder.read("sendActionOn", [&](ObjectValue const& value) { m_actionMask = static_cast<unsigned>(value.integerValue()); });
    coder.read("enabled", [&](ObjectValue const& value) { m_flags.enabled = value.boolValue(); });
    coder.read("highlighted", [&](ObjectValue const& value) { m_flags.highlighted = value.boolValue(); });
    coder.read("allowsMixedState", [&](ObjectValue const& value) { m_flags.allowsMixedState = value.boolValue(); });
    coder.read("editable", [&](ObjectValue const& value) { m_flags.editable = value.boolValue(); });
    coder.read("selectable", [&](ObjectValue const& value) { m_flags.selectable = value.boolValue(); });
    coder.read(
        "allowsEditingTextAttributes", [&](ObjectValue const& value) { m_flags.allowsEditingTextAttributes = value.boolValue(); });
    coder.read("sendsActionOnEndEditing", [&](ObjectValue const& value) { m_flags.sendsActionOnEndEditing = value.boolValue(); });
    coder.read("refusesFirstResponder", [&](ObjectValue const& value) { m_flags.refusesFirstResponder = value.boolValue(); });
    coder.read("scrollable", [&](ObjectValue const& value) { m_flags.scrollable = value.boolValue(); });
    coder.read("bordered", [&](ObjectValue const& value) { m_flags.bordered = value.boolValue(); });
    coder.read("bezeled", [&](ObjectValue const& value) { m_flags.bezeled = value.boolValue(); });
    return true;
}

void NSCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_type, "type");
    coder.encodeObject(m_value, "contents");
    coder.encodeBool(m_hasValidObject, "hasValidObjectValue");
    if (!m_hasValidObject)
        coder.encodeObject(stringValue(), "text");
    coder.encodeObject(m_formatter, "formatter");
    coder.encodeObject(m_font, "font");
    coder.encodeObject(m_representedObject, "representedObject");
    coder.encodeInt(m_state, "state");
    coder.encodeInt(m_alignment, "alignment");
    coder.encodeInt(m_lineBreakMode, "lineBreakMode");
    coder.encodeInt(m_controlSize, "controlSize");
    coder.encodeInt(static_cast<int>(m_focusRingType), "focusRingType");
    coder.encodeInt(m_actionMask, "sendActionOn");
    coder.encodeBool(m_flags.enabled, "enabled");
    coder.encodeBool(m_flags.highlighted, "highlighted");
    coder.encodeBool(m_flags.allowsMixedState, "allowsMixedState");
    coder.encodeBool(m_flags.editable, "editable");
    coder.encodeBool(m_flags.selectable, "selectable");
    coder.encodeBool(m_flags.allowsEditingTextAttributes, "allowsEditingTextAttributes");
    coder.encodeBool(m_flags.sendsActionOnEndEditing, "sendsActionOnEndEditing");
    coder.encodeBool(m_flags.refusesFirstResponder, "refusesFirstResponder");
    coder.encodeBool(m_flags.scrollable, "scrollable");
    coder.encodeBool(m_flags.bordered, "bordered");
    coder.encodeBool(m_flags.bezeled, "bezeled");
}

void NSCell::setType(NSCellType type)
{
    if (m_type == type)
        return;
    m_type = type;
    if (type == NSTextCellType && !m_font)
        m_font = NSFont::systemFontOfSize(0);
    takeValue(type == NSTextCellType ? ObjectValue("") : ObjectValue(), true);
}

NSView* NSCell::controlView() const
{
    return m_controlView.get();
}

void NSCell::setControlView(NSView* view)
{
    if (m_controlView != view)
        m_controlView = Weak<NSView>(view);
}

// MARK: value

ObjectValue const& NSCell::objectValue() const
{
    static ObjectValue const s_nil;
    return m_hasValidObject ? m_value : s_nil;
}

void NSCell::takeValue(ObjectValue value, bool isValid)
{
    m_value = std::move(value);
    m_hasValidObject = isValid;
    m_textIsCurrent = false;
    looksChanged();
    didSetValue();
}

void NSCell::setObjectValue(ObjectValue value)
{
    // Text from outside may be no UTF-8; everything behind this door is.
    if (auto const* text = value.string(); text && !isValidUTF8(*text))
        value = validUTF8(*text);
    takeValue(std::move(value), true);
}

std::string const& NSCell::stringValue() const
{
    if (!m_formatter || !m_hasValidObject) {
        if (auto const* text = m_value.string())
            return *text;
    }
    if (m_textIsCurrent)
        return m_text;
    std::optional<std::string> shown;
    if (m_formatter && m_hasValidObject)
        shown = m_formatter->stringForObjectValue(m_value);
    auto const* attributed = attributedValue();
    m_text = shown ? validUTF8(*shown) : attributed ? attributed->string() : m_value.as<NSImage>() ? "" : m_value.description();
    m_textIsCurrent = true;
    return m_text;
}

void NSCell::setStringValue(std::string_view text)
{
    if (!m_formatter) {
        if (auto const* old = m_value.string(); old && m_hasValidObject && *old == text)
            return;
        setObjectValue(text);
        return;
    }
    ObjectValue object;
    std::string error;
    if (m_formatter->getObjectValue(object, text, error))
        setObjectValue(std::move(object));
    else
        takeValue(validUTF8(text), false);
}

NSAttributedString* NSCell::attributedValue() const
{
    return dynamic_cast<NSAttributedString*>(m_value.object());
}

Ref<NSAttributedString> NSCell::attributedStringValue() const
{
    if (auto* attributed = attributedValue())
        return attributed;
    return make<NSAttributedString>(stringValue(), textAttributes());
}

void NSCell::setAttributedStringValue(Ref<NSAttributedString> const& text)
{
    if (!m_formatter || !text) {
        setObjectValue(text ? ObjectValue(text) : ObjectValue(""));
        return;
    }
    setStringValue(text->string());
}

// A text that is no object is read as the number that it begins with.
int NSCell::intValue() const
{
    return m_value.isNumber() ? m_value.intValue() : plix::intValue(stringValue());
}

void NSCell::setIntValue(int value)
{
    setObjectValue(value);
}

float NSCell::floatValue() const
{
    return static_cast<float>(NSCell::doubleValue());
}

void NSCell::setFloatValue(float value)
{
    setObjectValue(value);
}

double NSCell::doubleValue() const
{
    return m_value.isNumber() ? m_value.doubleValue() : plix::doubleValue(stringValue());
}

void NSCell::setDoubleValue(double value)
{
    setObjectValue(value);
}

NSFormatter* NSCell::formatter() const
{
    return m_formatter.get();
}

void NSCell::setFormatter(Ref<NSFormatter> const& formatter)
{
    if (m_formatter == formatter)
        return;
    auto const text = stringValue();
    m_formatter = formatter;
    m_textIsCurrent = false;
    bool const isShown = !formatter || (m_hasValidObject && formatter->stringForObjectValue(m_value));
    if (isShown)
        looksChanged();
    else
        setStringValue(text);
}

bool NSCell::isEntryAcceptable(std::string_view text) const
{
    ObjectValue object;
    std::string error;
    return !m_formatter || m_formatter->getObjectValue(object, text, error);
}

NSImage* NSCell::image() const
{
    return dynamic_cast<NSImage*>(m_value.object());
}

void NSCell::setImage(Ref<NSImage> const& image)
{
    if (m_type == NSImageCellType && NSCell::image() == image.get())
        return;
    setType(NSImageCellType);
    setObjectValue(image);
}

ObjectValue const& NSCell::representedObject() const
{
    return m_representedObject;
}

void NSCell::setRepresentedObject(ObjectValue object)
{
    m_representedObject = std::move(object);
}

int NSCell::compare(NSCell const& other) const
{
    if (type() != NSTextCellType || other.type() != NSTextCellType)
        throw std::invalid_argument("compare: cells of another type than text have no order");
    int const order = stringValue().compare(other.stringValue());
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

// MARK: state

void NSCell::setEnabled(bool isEnabled)
{
    if (m_flags.enabled == isEnabled)
        return;
    m_flags.enabled = isEnabled;
    textLookChanged();
}

void NSCell::setHighlighted(bool isHighlighted)
{
    if (m_flags.highlighted == isHighlighted)
        return;
    m_flags.highlighted = isHighlighted;
    m_attributes = nullptr;
}

void NSCell::setState(int state)
{
    int wanted = state > 0 ? NSOnState : state < 0 ? NSMixedState : NSOffState;
    if (wanted == NSMixedState && !allowsMixedState())
        wanted = NSOnState;
    if (m_state == wanted)
        return;
    m_state = wanted;
    looksChanged();
}

void NSCell::setAllowsMixedState(bool allows)
{
    m_flags.allowsMixedState = allows;
    if (!allows && m_state == NSMixedState)
        setState(NSOnState);
}

int NSCell::nextState() const
{
    if (state() == NSOnState)
        return NSOffState;
    return state() == NSOffState && allowsMixedState() ? NSMixedState : NSOnState;
}

void NSCell::setNextState()
{
    setState(nextState());
}

void NSCell::setEditable(bool isEditable)
{
    m_flags.editable = isEditable;
}

void NSCell::setSelectable(bool isSelectable)
{
    m_flags.selectable = isSelectable;
    if (!isSelectable)
        m_flags.editable = false;
}

void NSCell::setAllowsEditingTextAttributes(bool allows)
{
    m_flags.allowsEditingTextAttributes = allows;
}

void NSCell::setSendsActionOnEndEditing(bool sends)
{
    m_flags.sendsActionOnEndEditing = sends;
}

void NSCell::setRefusesFirstResponder(bool refuses)
{
    m_flags.refusesFirstResponder = refuses;
}

void NSCell::setHovered(bool isHovered)
{
    if (m_flags.hovered == isHovered)
        return;
    m_flags.hovered = isHovered;
    looksChanged();
}

void NSCell::setShowsFirstResponder(bool shows)
{
    if (m_flags.showsFirstResponder == shows)
        return;
    m_flags.showsFirstResponder = shows;
    looksChanged();
}

void NSCell::setFocusRingType(NSFocusRingType type)
{
    if (m_focusRingType == type)
        return;
    m_focusRingType = type;
    looksChanged();
}

// MARK: looks

NSFont* NSCell::font() const
{
    return m_font.get();
}

void NSCell::setFont(Ref<NSFont> const& font)
{
    if (m_font == font)
        return;
    m_font = font;
    textLookChanged();
}

void NSCell::setAlignment(NSTextAlignment alignment)
{
    if (m_alignment == alignment)
        return;
    m_alignment = alignment;
    textLookChanged();
}

void NSCell::setLineBreakMode(NSLineBreakMode mode)
{
    if (m_lineBreakMode == mode)
        return;
    m_lineBreakMode = mode;
    if (wraps())
        m_flags.scrollable = false;
    textLookChanged();
}

bool NSCell::wraps() const
{
    return m_lineBreakMode == NSLineBreakByWordWrapping || m_lineBreakMode == NSLineBreakByCharWrapping;
}

void NSCell::setWraps(bool wraps)
{
    if (NSCell::wraps() != wraps)
        setLineBreakMode(wraps ? NSLineBreakByWordWrapping : NSLineBreakByClipping);
}

void NSCell::setScrollable(bool isScrollable)
{
    if (isScrollable)
        setWraps(false);
    m_flags.scrollable = isScrollable;
}

void NSCell::setBordered(bool isBordered)
{
    if (m_flags.bordered == isBordered)
        return;
    m_flags.bordered = isBordered;
    if (isBordered)
        m_flags.bezeled = false;
    looksChanged();
}

void NSCell::setBezeled(bool isBezeled)
{
    if (m_flags.bezeled == isBezeled)
        return;
    m_flags.bezeled = isBezeled;
    if (isBezeled)
        m_flags.bordered = false;
    looksChanged();
}

void NSCell::setControlSize(NSControlSize size)
{
    if (m_controlSize == size)
        return;
    m_controlSize = size;
    looksChanged();
}

void NSCell::textLookChanged()
{
    m_attributes = nullptr;
    looksChanged();
}

// MARK: a plain cell has neither target nor action

void NSCell::setTag(long)
{
    throw std::logic_error("setTag: a plain cell has no tag");
}

void NSCell::setTarget(Ref<NSObject> const&)
{
    throw std::logic_error("setTarget: a plain cell has no target");
}

void NSCell::setAction(Selector)
{
    throw std::logic_error("setAction: a plain cell has no action");
}

void NSCell::setActionFunction(Ref<NSObject> const&, ActionFunction)
{
    throw std::logic_error("setActionFunction: a plain cell has no action");
}

bool NSCell::isContinuous() const
{
    return (m_actionMask & NSPeriodicMask) != 0;
}

void NSCell::setContinuous(bool isContinuous)
{
    m_actionMask = isContinuous ? m_actionMask | NSPeriodicMask : m_actionMask & ~unsigned { NSPeriodicMask };
}

unsigned NSCell::sendActionOn(unsigned mask)
{
    return std::exchange(m_actionMask, mask);
}

void NSCell::sendAction()
{
}

void NSCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSCell&>(fresh);
    other.m_value = m_value;
    other.m_formatter = m_formatter;
    other.m_font = m_font;
    other.m_representedObject = m_representedObject;
    other.m_controlView = m_controlView;
    other.m_type = m_type;
    other.m_state = m_state;
    other.m_actionMask = m_actionMask;
    other.m_alignment = m_alignment;
    other.m_lineBreakMode = m_lineBreakMode;
    other.m_controlSize = m_controlSize;
    other.m_focusRingType = m_focusRingType;
    other.m_flags = m_flags;
    other.m_flags.beingEdited = false;
    other.m_hasValidObject = m_hasValidObject;
}

}
