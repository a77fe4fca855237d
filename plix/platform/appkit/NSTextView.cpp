#include <plix/platform/appkit/NSTextView.h>

#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSTextView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

PLIX_DESCRIBE(NSTextView::Layout)
{
}

PLIX_DESCRIBE(NSTextView)
{
    describeMovements(description);
    describeExtensions(description);
    describeEditing(description);
}

NSTextView::NSTextView() = default;

NSTextView::~NSTextView()
{
    if (m_blinkTimer)
        m_blinkTimer->invalidate();
}

bool NSTextView::init()
{
    return NSTextView::init(Rect {});
}

bool NSTextView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setBackgroundColor(NSColor::textBackgroundColor());
    m_typingAttributes = {
        { NSFontAttributeName, NSFont::systemFontOfSize(0) },
        { NSForegroundColorAttributeName, NSColor::textColor() },
        { NSParagraphStyleAttributeName, NSParagraphStyle::defaultParagraphStyle() },
    };
    m_minSize = frame.size();
    m_storage = make<NSTextStorage>();
    m_layoutManager = make<Layout>();
    m_layoutManager->view = this;
    m_container = make<NSTextContainer>(Size { frame.width, 1e7F });
    m_container->setWidthTracksTextView(true);
    m_layoutManager->addTextContainer(m_container);
    m_storage->addLayoutManager(m_layoutManager);
    layout().setTypingAttributes(m_typingAttributes);
    return true;
}

bool NSTextView::init(NSCoder& coder)
{
    if (!NSTextView::init(Rect {}) || !NSView::init(coder))
        return false;
    coder.read("textStorage", [&](ObjectValue const& value) {
        if (auto const text = value.as<NSAttributedString>())
            m_storage->setAttributedString(*text);
    });
    coder.read("minSize", [&](ObjectValue const& value) { setMinSize(NSSizeFromString(value.description())); });
    coder.read("maxSize", [&](ObjectValue const& value) { setMaxSize(NSSizeFromString(value.description())); });
    coder.read("insertionPointColor", [&](ObjectValue const& value) {
        if (auto const color = value.as<NSColor>())
            setInsertionPointColor(color);
    });
    coder.read("editable", [&](ObjectValue const& value) { setEditable(value.boolValue()); });
    coder.read("selectable", [&](ObjectValue const& value) { setSelectable(value.boolValue()); });
    coder.read("fieldEditor", [&](ObjectValue const& value) { setFieldEditor(value.boolValue()); });
    coder.read("allowsUndo", [&](ObjectValue const& value) { m_allowsUndo = value.boolValue(); });
    coder.read("drawsBackground", [&](ObjectValue const& value) { setDrawsBackground(value.boolValue()); });
    coder.read("backgroundColor", [&](ObjectValue const& value) {
        if (auto const color = value.as<NSColor>())
            setBackgroundColor(color);
    });
    coder.read(
        "textContainerInset", [&](ObjectValue const& value) { setTextContainerInset(NSSizeFromString(value.description())); });
    return true;
}

void NSTextView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(make<NSAttributedString>(*m_storage), "textStorage");
    coder.encodeBool(isEditable(), "editable");
    coder.encodeBool(isSelectable(), "selectable");
    coder.encodeBool(isFieldEditor(), "fieldEditor");
    coder.encodeBool(m_allowsUndo, "allowsUndo");
    coder.encodeBool(drawsBackground(), "drawsBackground");
    coder.encodeObject(Ref<NSColor>(backgroundColor()), "backgroundColor");
    coder.encodeObject(NSStringFromSize(m_inset), "textContainerInset");
}

NSLayoutManager* NSTextView::layoutManager() const
{
    return m_layoutManager.get();
}

TextLayout& NSTextView::layout() const
{
    return m_layoutManager->layout();
}

// MARK: text

std::string const& NSTextView::string() const
{
    return m_storage->string();
}

long NSTextView::length() const
{
    return m_storage->length();
}

void NSTextView::setString(std::string_view text)
{
    replaceCharactersInRange({ 0, length() }, text);
    moveSelection(length(), length());
}

void NSTextView::replaceCharactersInRange(NSRange range, std::string_view text)
{
    m_marked.reset();
    forgetUndo();
    m_storage->replaceCharactersInRange(range, *make<NSAttributedString>(text, m_typingAttributes));
}

void NSTextView::textEdited(NSRange range, long changeInLength)
{
    // The storage may have been edited by anybody.
    long const oldEnd = range.end() - changeInLength;
    auto const moved = [&](long index) {
        return index >= oldEnd ? index + changeInLength : std::min(index, std::max(range.location, range.end()));
    };
    m_anchor = moved(m_anchor);
    m_end = moved(m_end);
    m_goalX.reset();
    Size const before = m_usedSize;
    fitContainer();
    if (m_usedSize.height == before.height && m_usedSize.width == before.width) {
        auto const first = paragraphRange(range.location);
        markRangeDirty(NSUnionRange(first, paragraphRange(range.end())));
    } else {
        markFromDirty(range.location);
    }
}

// MARK: looks of the text

void NSTextView::setTypingAttributes(Attributes attributes)
{
    m_typingAttributes = std::move(attributes);
    layout().setTypingAttributes(m_typingAttributes);
    setNeedsDisplay(true);
}

void NSTextView::setAttribute(std::string_view name, ObjectValue const& value)
{
    auto attributes = m_typingAttributes;
    attributes[std::string(name)] = value;
    setTypingAttributes(std::move(attributes));
    m_storage->addAttribute(name, value, { 0, length() });
    fitContainer();
}

namespace {

template <typename T> T* attributeOf(Attributes const& attributes, std::string const& name)
{
    auto const found = attributes.find(name);
    return found == attributes.end() ? nullptr : dynamic_cast<T*>(found->second.object());
}

}

NSFont* NSTextView::font() const
{
    return attributeOf<NSFont>(m_typingAttributes, NSFontAttributeName);
}

void NSTextView::setFont(Ref<NSFont> const& font)
{
    setAttribute(NSFontAttributeName, font ? font : NSFont::systemFontOfSize(0));
}

NSColor* NSTextView::textColor() const
{
    return attributeOf<NSColor>(m_typingAttributes, NSForegroundColorAttributeName);
}

void NSTextView::setTextColor(Ref<NSColor> const& color)
{
    setAttribute(NSForegroundColorAttributeName, color ? color : NSColor::textColor());
}

NSTextAlignment NSTextView::alignment() const
{
    auto const* style = attributeOf<NSParagraphStyle>(m_typingAttributes, NSParagraphStyleAttributeName);
    return style ? style->alignment() : NSNaturalTextAlignment;
}

void NSTextView::setAlignment(NSTextAlignment alignment)
{
    auto const* style = attributeOf<NSParagraphStyle>(m_typingAttributes, NSParagraphStyleAttributeName);
    auto changed = (style ? style : NSParagraphStyle::defaultParagraphStyle().get())->mutableCopy();
    changed->setAlignment(alignment);
    setAttribute(NSParagraphStyleAttributeName, changed);
}

Ref<NSColor> NSTextView::insertionPointColor() const
{
    auto* const color = m_caretColor ? m_caretColor.get() : textColor();
    return color ? Ref<NSColor>(color) : NSColor::textColor();
}

void NSTextView::setInsertionPointColor(Ref<NSColor> const& color)
{
    if (m_caretColor == color)
        return;
    m_caretColor = color;
    markRangeDirty(selectedRange());
}

// MARK: kinds of text view

void NSTextView::setEditable(bool isEditable)
{
    Base::setEditable(isEditable);
    keyboardChanged();
}

void NSTextView::setSelectable(bool isSelectable)
{
    Base::setSelectable(isSelectable);
    keyboardChanged();
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

void NSTextView::setFieldEditor(bool isFieldEditor)
{
    Base::setFieldEditor(isFieldEditor);
    if (isFieldEditor)
        m_allowsUndo = true;
}

void NSTextView::setAllowsUndo(bool allows)
{
    m_allowsUndo = allows;
    if (!allows)
        forgetUndo();
}

void NSTextView::takeHooks(HookSource const& source)
{
    Base::takeHooks(source);
    m_hooks = source.hooks<NSTextViewDelegate>();
}

// MARK: size

void NSTextView::setTextContainerInset(Size inset)
{
    if (m_inset == inset)
        return;
    m_inset = inset;
    fitContainer();
    setNeedsDisplay(true);
}

void NSTextView::setHorizontallyResizable(bool isResizable)
{
    m_isHorizontallyResizable = isResizable;
    m_container->setWidthTracksTextView(!isResizable);
    fitContainer();
}

void NSTextView::setVerticallyResizable(bool isResizable)
{
    m_isVerticallyResizable = isResizable;
    fitContainer();
}

void NSTextView::setMinSize(Size size)
{
    m_minSize = size;
    fitContainer();
}

void NSTextView::setMaxSize(Size size)
{
    m_maxSize = size;
    fitContainer();
}

// A field's text that does not wrap is set between the edges while it fits, so that it can be aligned, and without limits else.
void NSTextView::fitContainer()
{
    float const height = m_container->containerSize().height;
    float const room = (m_isHorizontallyResizable ? m_minSize.width : frame().width) - 2 * m_inset.width;
    float const width = std::max(room, 0.F);
    bool const isLimited = !m_isHorizontallyResizable || (isFieldEditor() && layout().usedRect().width + 1 <= width);
    m_container->setContainerSize({ isLimited ? width : 1e7F, height });
    auto const usedRect = layout().usedRect();
    auto const lastLine = layout().line(layout().numberOfLines() - 1).fragment;
    float const usedWidth = isLimited ? width : usedRect.maxX() + 1;
    m_usedSize = { usedWidth + 2 * m_inset.width, std::max(usedRect.maxY(), lastLine.maxY()) + 2 * m_inset.height };
    sizeToFit();
}

void NSTextView::sizeToFit()
{
    Size size = frame().size();
    if (m_isHorizontallyResizable)
        size.width = std::clamp(std::ceil(m_usedSize.width), m_minSize.width, std::max(m_minSize.width, m_maxSize.width));
    if (m_isVerticallyResizable)
        size.height = std::clamp(std::ceil(m_usedSize.height), m_minSize.height, std::max(m_minSize.height, m_maxSize.height));
    if (size != frame().size())
        Base::setFrameSize(size);
}

void NSTextView::setFrameSize(Size size)
{
    bool const isNewWidth = size.width != frame().width;
    Base::setFrameSize(size);
    if (isNewWidth && m_container && m_container->widthTracksTextView()) {
        fitContainer();
        setNeedsDisplay(true);
    }
}

// MARK: windows and the keyboard

void NSTextView::viewWillMoveToWindow(NSWindow* newWindow)
{
    Base::viewWillMoveToWindow(newWindow);
    if (window()) {
        auto& center = NSNotificationCenter::defaultCenter();
        center.removeObserver(*this, NSWindowDidBecomeKeyNotification, window());
        center.removeObserver(*this, NSWindowDidResignKeyNotification, window());
    }
}

void NSTextView::viewDidMoveToWindow()
{
    Base::viewDidMoveToWindow();
    if (window()) {
        auto& center = NSNotificationCenter::defaultCenter();
        center.addObserver(*this, &NSTextView::keyboardChanged, NSWindowDidBecomeKeyNotification, window());
        center.addObserver(*this, &NSTextView::keyboardChanged, NSWindowDidResignKeyNotification, window());
    }
    keyboardChanged();
}

// The field that it stands in is in the loop.
bool NSTextView::canBecomeKeyView() const
{
    return !isFieldEditor() && Base::canBecomeKeyView();
}

bool NSTextView::becomeFirstResponder()
{
    if (!isSelectable())
        return false;
    m_isFirstResponder = true;
    m_isResigning = false;
    m_hasBegun = false;
    m_movement = NSOtherTextMovement;
    keyboardChanged();
    return true;
}

bool NSTextView::resignFirstResponder()
{
    if (m_isResigning)
        return true;
    Ref<NSTextView> const protector(this);
    unmarkText();
    if (isEditable() && m_hooks.textShouldEndEditing && !m_isAskedToEnd) {
        m_isAskedToEnd = true;
        bool const mayEnd = m_hooks.textShouldEndEditing(*this);
        m_isAskedToEnd = false;
        // Whoever was asked may have ended the edit by other means: taken the field out.
        if (!m_isFirstResponder)
            return true;
        if (!mayEnd)
            return false;
    }
    // The notification may already bring the editor into another field.
    m_isResigning = true;
    m_isFirstResponder = false;
    keyboardChanged();
    bool const hadBegun = std::exchange(m_hasBegun, false);
    if (isFieldEditor() || hadBegun)
        post(NSTextDidEndEditingNotification, m_hooks.textDidEndEditing, { { "NSTextMovement", static_cast<int>(m_movement) } });
    m_isResigning = false;
    return true;
}

void NSTextView::post(char const* name, Hook<void(NSNotification const&)> const& hook, ObjectValue::Dictionary userInfo)
{
    Ref<NSTextView> const protector(this);
    NSNotification const notification { name, this, std::move(userInfo) };
    hook(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

NSUndoManager* NSTextView::undoManager() const
{
    if (m_hooks.undoManagerForTextView)
        return m_hooks.undoManagerForTextView(const_cast<NSTextView&>(*this));
    return Base::undoManager();
}

}
