#include <plix/platform/appkit/NSControl.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/field_editing.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAttributedString.h>

#include <utility>

namespace plix {

PLIX_DESCRIBE(NSControl)
{
    description.action("takeStringValueFrom:", &NSControl::takeStringValueFrom)
        .action("takeObjectValueFrom:", &NSControl::takeObjectValueFrom)
        .action("takeIntValueFrom:", &NSControl::takeIntValueFrom)
        .action("takeFloatValueFrom:", &NSControl::takeFloatValueFrom)
        .action("takeDoubleValueFrom:", &NSControl::takeDoubleValueFrom)
        .action("performClick:", &NSControl::performClick)
        .outlet("target", static_cast<void (NSControl::*)(Ref<NSObject> const&)>(&NSControl::setTarget));
}

NSControl::NSControl() = default;
NSControl::~NSControl() = default;

bool NSControl::init()
{
    return NSControl::init(Rect {});
}

bool NSControl::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    if (auto const* cellClass = ownCellClass())
        NSControl::setCell(as<NSCell>(cellClass->makeObject()));
    return true;
}

bool NSControl::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    coder.read("cell", [&](ObjectValue const& value) { NSControl::setCell(value.as<NSCell>()); });
    coder.read("tag", [&](ObjectValue const& value) { NSControl::setTag(value.intValue()); });
    coder.read("ignoresMultiClick", [&](ObjectValue const& value) { m_ignoresMultiClick = value.boolValue(); });
    if (!m_cell && ownCellClass())
        NSControl::setCell(as<NSCell>(ownCellClass()->makeObject()));
    return true;
}

void NSControl::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_cell, "cell");
    coder.encodeBool(m_ignoresMultiClick, "ignoresMultiClick");
}

void NSControl::setCell(Ref<NSCell> const& cell)
{
    if (m_cell == cell)
        return;
    abortEditing();
    m_cell = cell;
    if (m_cell)
        m_cell->setControlView(this);
    setNeedsDisplay(true);
}

long NSControl::selectedTag() const
{
    auto const* cell = selectedCell();
    return cell ? cell->tag() : -1;
}

// MARK: value

namespace {

// What a control without a cell reads as.
template <typename Result, typename Read> Result read(NSCell const* cell, Result absent, Read get)
{
    return cell ? get(*cell) : absent;
}

}

/// The selected cell, an edit in progress taken in.
NSCell const* NSControl::upToDateCell() const
{
    if (m_editor && !m_isTakingValue)
        const_cast<NSControl*>(this)->validateEditing();
    return selectedCell();
}

ObjectValue const& NSControl::objectValue() const
{
    static ObjectValue const s_nil;
    auto const* cell = upToDateCell();
    return cell ? cell->objectValue() : s_nil;
}

void NSControl::setObjectValue(ObjectValue value)
{
    if (auto* cell = selectedCell())
        cell->setObjectValue(std::move(value));
}

std::string const& NSControl::stringValue() const
{
    static std::string const s_empty;
    auto const* cell = upToDateCell();
    return cell ? cell->stringValue() : s_empty;
}

void NSControl::setStringValue(std::string_view text)
{
    if (auto* cell = selectedCell())
        cell->setStringValue(text);
}

Ref<NSAttributedString> NSControl::attributedStringValue() const
{
    auto const* cell = upToDateCell();
    return cell ? cell->attributedStringValue() : make<NSAttributedString>();
}

void NSControl::setAttributedStringValue(Ref<NSAttributedString> const& text)
{
    if (auto* cell = selectedCell())
        cell->setAttributedStringValue(text);
}

int NSControl::intValue() const
{
    return read(upToDateCell(), 0, [](auto& cell) { return cell.intValue(); });
}

void NSControl::setIntValue(int value)
{
    if (auto* cell = selectedCell())
        cell->setIntValue(value);
}

float NSControl::floatValue() const
{
    return read(upToDateCell(), 0.F, [](auto& cell) { return cell.floatValue(); });
}

void NSControl::setFloatValue(float value)
{
    if (auto* cell = selectedCell())
        cell->setFloatValue(value);
}

double NSControl::doubleValue() const
{
    return read(upToDateCell(), 0.0, [](auto& cell) { return cell.doubleValue(); });
}

void NSControl::setDoubleValue(double value)
{
    if (auto* cell = selectedCell())
        cell->setDoubleValue(value);
}

void NSControl::takeStringValueFrom(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->takeStringValueFrom(sender);
}

void NSControl::takeObjectValueFrom(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->takeObjectValueFrom(sender);
}

void NSControl::takeIntValueFrom(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->takeIntValueFrom(sender);
}

void NSControl::takeFloatValueFrom(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->takeFloatValueFrom(sender);
}

void NSControl::takeDoubleValueFrom(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->takeDoubleValueFrom(sender);
}

NSFormatter* NSControl::formatter() const
{
    auto const* cell = selectedCell();
    return cell ? cell->formatter() : nullptr;
}

void NSControl::setFormatter(Ref<NSFormatter> const& formatter)
{
    if (auto* cell = selectedCell())
        cell->setFormatter(formatter);
}

// MARK: looks and state

bool NSControl::isEnabled() const
{
    return read(selectedCell(), false, [](auto& cell) { return cell.isEnabled(); });
}

void NSControl::setEnabled(bool isEnabled)
{
    auto* cell = selectedCell();
    if (!cell || cell->isEnabled() == isEnabled)
        return;
    if (!isEnabled) {
        abortEditing();
        if (auto* ownWindow = window(); ownWindow && ownWindow->firstResponder() == this)
            ownWindow->makeFirstResponder(nullptr);
    }
    cell->setEnabled(isEnabled);
    setNeedsDisplay(true);
}

NSFont* NSControl::font() const
{
    auto const* cell = selectedCell();
    return cell ? cell->font() : nullptr;
}

void NSControl::setFont(Ref<NSFont> const& font)
{
    if (auto* cell = selectedCell())
        cell->setFont(font);
}

NSTextAlignment NSControl::alignment() const
{
    return read(selectedCell(), NSNaturalTextAlignment, [](auto& cell) { return cell.alignment(); });
}

void NSControl::setAlignment(NSTextAlignment alignment)
{
    if (auto* cell = selectedCell())
        cell->setAlignment(alignment);
}

long NSControl::tag() const
{
    return read(cell(), -1L, [](auto& cell) { return cell.tag(); });
}

void NSControl::setTag(long tag)
{
    if (auto* cell = this->cell())
        cell->setTag(tag);
}

bool NSControl::refusesFirstResponder() const
{
    return read(cell(), true, [](auto& cell) { return cell.refusesFirstResponder(); });
}

void NSControl::setRefusesFirstResponder(bool refuses)
{
    if (auto* cell = this->cell())
        cell->setRefusesFirstResponder(refuses);
}

void NSControl::setIgnoresMultiClick(bool ignores)
{
    m_ignoresMultiClick = ignores;
}

bool NSControl::isContinuous() const
{
    return read(cell(), false, [](auto& cell) { return cell.isContinuous(); });
}

void NSControl::setContinuous(bool isContinuous)
{
    if (auto* cell = this->cell())
        cell->setContinuous(isContinuous);
}

unsigned NSControl::sendActionOn(unsigned mask)
{
    auto* cell = this->cell();
    return cell ? cell->sendActionOn(mask) : 0;
}

// MARK: target and action

NSObject* NSControl::target() const
{
    auto const* cell = this->cell();
    return cell ? cell->target() : nullptr;
}

void NSControl::setTarget(Ref<NSObject> const& target)
{
    if (auto* cell = this->cell())
        cell->setTarget(target);
}

Selector NSControl::action() const
{
    auto const* cell = this->cell();
    return cell ? cell->action() : Selector {};
}

void NSControl::setAction(Selector action)
{
    if (auto* cell = this->cell())
        cell->setAction(action);
}

void NSControl::setActionFunction(NSCell::ActionFunction function)
{
    if (auto* cell = this->cell())
        cell->setActionFunction(nullptr, std::move(function));
}

bool NSControl::sendAction(Selector action, NSObject* target)
{
    return action && NSApplication::sharedApplication().sendAction(action, target, this);
}

void NSControl::performClick(NSObject* sender)
{
    if (auto* cell = selectedCell())
        cell->performClick(sender);
}

// MARK: size and drawing

void NSControl::sizeToFit()
{
    if (auto* cell = this->cell())
        setFrameSize(cell->cellSize());
}

void NSControl::calcSize()
{
    if (auto* cell = this->cell())
        cell->calcDrawInfo(bounds());
}

bool NSControl::isOpaque() const
{
    return read(cell(), false, [](auto& cell) { return cell.isOpaque(); });
}

void NSControl::drawRect(Rect)
{
    if (auto* cell = this->cell())
        cell->drawWithFrame(bounds(), *this);
}

void NSControl::drawCell(NSCell& cell)
{
    if (&cell != m_cell.get())
        return;
    FocusLock const focus(*this);
    cell.drawWithFrame(bounds(), *this);
}

void NSControl::drawCellInside(NSCell& cell)
{
    if (&cell != m_cell.get())
        return;
    FocusLock const focus(*this);
    cell.drawInteriorWithFrame(bounds(), *this);
}

void NSControl::updateCell(NSCell& cell)
{
    if (&cell == m_cell.get())
        setNeedsDisplay(true);
}

void NSControl::updateCellInside(NSCell& cell)
{
    updateCell(cell);
}

void NSControl::selectCell(NSCell& cell)
{
    if (&cell == m_cell.get())
        cell.setState(NSOnState);
}

void NSControl::resetCursorRects()
{
    auto* cell = this->cell();
    if (!cell)
        return;
    cell->resetCursorRect(bounds(), *this);
    if (cell->reactsToPointer())
        cell->setHovered(m_hoverArea.follow(*this));
}

void NSControl::mouseEntered(NSEvent& event)
{
    if (auto* cell = this->cell(); cell && cell->reactsToPointer())
        cell->setHovered(true);
    else
        Base::mouseEntered(event);
}

void NSControl::mouseExited(NSEvent& event)
{
    if (auto* cell = this->cell(); cell && cell->reactsToPointer())
        cell->setHovered(false);
    else
        Base::mouseExited(event);
}

void NSControl::viewWillMoveToWindow(NSWindow* newWindow)
{
    m_hoverArea.end(*this);
    if (auto* cell = this->cell(); cell && cell->reactsToPointer())
        cell->setHovered(false);
    Base::viewWillMoveToWindow(newWindow);
}

NSMenu* NSControl::menuForEvent(NSEvent& event)
{
    auto* cell = this->cell();
    auto* menu = cell ? cell->menuForEvent(event, bounds(), *this) : nullptr;
    return menu ? menu : Base::menuForEvent(event);
}

// MARK: editing

bool NSControl::abortEditing()
{
    Ref<NSControl> const protector(this);
    Ref<NSText> const editor(currentEditor());
    Ref<NSCell> const edited(selectedCell());
    if (!editor || !edited)
        return false;
    edited->endEditing(*editor);
    return true;
}

void NSControl::validateEditing()
{
    Ref<NSText> const editor(currentEditor());
    Ref<NSCell> const edited(selectedCell());
    if (!editor || !edited || !edited->isBeingEdited() || m_isTakingValue)
        return;
    m_isTakingValue = true;
    takeEditedText(*edited, *editor);
    m_isTakingValue = false;
}

void NSControl::editedCellChanged(Badge<NSActionCell>, NSCell& cell)
{
    Ref<NSText> const editor(currentEditor());
    if (!editor || m_isTakingValue || &cell != selectedCell())
        return;
    auto const text = cell.editingStringValue();
    if (editor->string() != text)
        editor->setString(text);
}

// MARK: events

bool NSControl::acceptsFirstResponder() const
{
    return read(selectedCell(), false, [](auto& cell) { return cell.acceptsFirstResponder(); });
}

bool NSControl::becomeFirstResponder()
{
    if (auto* cell = selectedCell())
        cell->setShowsFirstResponder(true);
    setNeedsDisplay(true);
    return true;
}

bool NSControl::resignFirstResponder()
{
    if (auto* cell = selectedCell())
        cell->setShowsFirstResponder(false);
    setNeedsDisplay(true);
    return true;
}

void NSControl::mouseDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    if (m_ignoresMultiClick && event.clickCount() > 1)
        Base::mouseDown(event);
    else
        trackMouse(event);
}

// The cell follows the mouse while it is inside, and again when it comes back.
void NSControl::trackMouse(NSEvent& press)
{
    Ref<NSControl> const protector(this);
    Ref<NSEvent> event(press);
    while (event && event->type() != NSLeftMouseUp) {
        Ref<NSCell> const tracked = m_cell;
        if (!tracked || !window())
            return;
        if (mouseInRect(convertPointFromView(event->locationInWindow(), nullptr), bounds())) {
            tracked->highlight(true, bounds(), *this);
            bool const isDone = tracked->trackMouse(*event, bounds(), *this, tracked->ownPrefersTrackingUntilMouseUp());
            tracked->highlight(false, bounds(), *this);
            if (isDone)
                return;
            if (auto const* ownWindow = window();
                !ownWindow || (ownWindow->currentEvent() && ownWindow->currentEvent()->type() == NSLeftMouseUp))
                return;
        }
        Ref<NSWindow> const ownWindow = window();
        event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask);
    }
}

}
