#include <plix/platform/appkit/NSTextField.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>

#include <cassert>

namespace plix {

PLIX_DESCRIBE(NSTextField)
{
    description.fillsHooks<NSTextViewDelegate>()
        .hookOutlet("delegate", &NSTextField::takeHooks)
        .action("selectText:", &NSTextField::selectText)
        .action("cancelOperation:", &NSTextField::cancelOperation);
}

static Class const* s_cellClass { nullptr };

Class const* NSTextField::cellClass()
{
    return s_cellClass ? s_cellClass : &NSTextFieldCell::staticClass();
}

void NSTextField::setCellClass(Class const& cellClass)
{
    assert(cellClass.isSubclassOfClass(NSTextFieldCell::staticClass()));
    s_cellClass = &cellClass;
}

bool NSTextField::init()
{
    return NSTextField::init(Rect {});
}

bool NSTextField::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setBezeled(true);
    setDrawsBackground(true);
    setEditable(true);
    return true;
}

bool NSTextField::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    if (!coder.containsValueForKey("cell")) {
        setBezeled(true);
        setDrawsBackground(true);
        setEditable(true);
    }
    return true;
}

Ref<NSTextField> NSTextField::labelWithString(std::string_view text)
{
    auto label = make<NSTextField>(Rect {});
    label->setEditable(false);
    label->setSelectable(false);
    label->setBezeled(false);
    label->setDrawsBackground(false);
    label->cell()->setLineBreakMode(NSLineBreakByTruncatingTail);
    label->setStringValue(text);
    label->sizeToFit();
    return label;
}

NSTextFieldCell* NSTextField::fieldCell() const
{
    return dynamic_cast<NSTextFieldCell*>(cell());
}

NSColor* NSTextField::textColor() const
{
    auto const* cell = fieldCell();
    return cell ? cell->textColor() : nullptr;
}

void NSTextField::setTextColor(Ref<NSColor> const& color)
{
    if (auto* cell = fieldCell())
        cell->setTextColor(color);
}

NSColor* NSTextField::backgroundColor() const
{
    auto const* cell = fieldCell();
    return cell ? cell->backgroundColor() : nullptr;
}

void NSTextField::setBackgroundColor(Ref<NSColor> const& color)
{
    if (auto* cell = fieldCell())
        cell->setBackgroundColor(color);
}

bool NSTextField::drawsBackground() const
{
    auto const* cell = fieldCell();
    return cell && cell->drawsBackground();
}

void NSTextField::setDrawsBackground(bool draws)
{
    if (auto* cell = fieldCell())
        cell->setDrawsBackground(draws);
}

bool NSTextField::isBordered() const
{
    return cell() && cell()->isBordered();
}

void NSTextField::setBordered(bool isBordered)
{
    if (cell())
        cell()->setBordered(isBordered);
}

bool NSTextField::isBezeled() const
{
    return cell() && cell()->isBezeled();
}

void NSTextField::setBezeled(bool isBezeled)
{
    if (cell())
        cell()->setBezeled(isBezeled);
}

NSTextFieldBezelStyle NSTextField::bezelStyle() const
{
    auto const* cell = fieldCell();
    return cell ? cell->bezelStyle() : NSTextFieldSquareBezel;
}

void NSTextField::setBezelStyle(NSTextFieldBezelStyle style)
{
    if (auto* cell = fieldCell())
        cell->setBezelStyle(style);
}

bool NSTextField::isEditable() const
{
    return cell() && cell()->isEditable();
}

void NSTextField::setEditable(bool isEditable)
{
    if (cell())
        cell()->setEditable(isEditable);
}

bool NSTextField::isSelectable() const
{
    return cell() && cell()->isSelectable();
}

void NSTextField::setSelectable(bool isSelectable)
{
    if (cell())
        cell()->setSelectable(isSelectable);
}

bool NSTextField::acceptsFirstResponder() const
{
    return isSelectable() && Base::acceptsFirstResponder();
}

// A label has nothing to press: whoever is behind it does. A press that made the field first responder has begun the edit already.
void NSTextField::mouseDown(NSEvent& event)
{
    Ref<NSTextField> const protector(this);
    if (!isSelectable() || !isEnabled()) {
        NSView::mouseDown(event);
        return;
    }
    if (Ref<NSText> const editor = currentEditor()) {
        editor->mouseDown(event);
        return;
    }
    Ref<NSWindow> const ownWindow(window());
    auto* const editor = ownWindow ? dynamic_cast<NSText*>(ownWindow->fieldEditor(true, this)) : nullptr;
    if (editor)
        cell()->editWithFrame(bounds(), *this, *editor, this, event);
}

bool NSTextField::mouseDownCanMoveWindow() const
{
    return !isSelectable();
}

}
