#include <plix/platform/appkit/NSButton.h>

#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/key_equivalent.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSImage.h>

#include <cassert>

namespace plix {

PLIX_DESCRIBE(NSButton)
{
    description.action("performClick:", &NSButton::performClick);
}

static Class const* s_cellClass { nullptr };

NSButton::NSButton() = default;
NSButton::~NSButton() = default;

Class const* NSButton::cellClass()
{
    return s_cellClass ? s_cellClass : &NSButtonCell::staticClass();
}

void NSButton::setCellClass(Class const& cellClass)
{
    assert(cellClass.isSubclassOfClass(NSButtonCell::staticClass()));
    s_cellClass = &cellClass;
}

bool NSButton::init()
{
    return NSButton::init(Rect {});
}

bool NSButton::init(Rect frame)
{
    return Base::init(frame);
}

bool NSButton::init(NSCoder& coder)
{
    return Base::init(coder);
}

NSButtonCell* NSButton::buttonCell() const
{
    return dynamic_cast<NSButtonCell*>(cell());
}

// MARK: what the cell has

template <typename Value, typename Read> static Value ofCell(NSButtonCell* cell, Value whenNone, Read read)
{
    return cell ? read(*cell) : whenNone;
}

static std::string const s_nothing;

void NSButton::setButtonType(NSButtonType type)
{
    if (auto* cell = buttonCell())
        cell->setButtonType(type);
}

std::string const& NSButton::title() const
{
    auto const* cell = buttonCell();
    return cell ? cell->title() : s_nothing;
}

void NSButton::setTitle(std::string_view title)
{
    if (auto* cell = buttonCell())
        cell->setTitle(title);
}

std::string const& NSButton::alternateTitle() const
{
    auto const* cell = buttonCell();
    return cell ? cell->alternateTitle() : s_nothing;
}

void NSButton::setAlternateTitle(std::string_view title)
{
    if (auto* cell = buttonCell())
        cell->setAlternateTitle(title);
}

Ref<NSAttributedString> NSButton::attributedTitle() const
{
    auto const* cell = buttonCell();
    return cell ? cell->attributedTitle() : nullptr;
}

void NSButton::setAttributedTitle(Ref<NSAttributedString> const& title)
{
    if (auto* cell = buttonCell())
        cell->setAttributedTitle(title);
}

NSImage* NSButton::image() const
{
    auto const* cell = buttonCell();
    return cell ? cell->image() : nullptr;
}

void NSButton::setImage(Ref<NSImage> const& image)
{
    if (auto* cell = buttonCell())
        cell->setImage(image);
}

NSImage* NSButton::alternateImage() const
{
    auto const* cell = buttonCell();
    return cell ? cell->alternateImage() : nullptr;
}

void NSButton::setAlternateImage(Ref<NSImage> const& image)
{
    if (auto* cell = buttonCell())
        cell->setAlternateImage(image);
}

NSCellImagePosition NSButton::imagePosition() const
{
    return ofCell(buttonCell(), NSNoImage, [](auto& cell) { return cell.imagePosition(); });
}

void NSButton::setImagePosition(NSCellImagePosition position)
{
    if (auto* cell = buttonCell())
        cell->setImagePosition(position);
}

NSBezelStyle NSButton::bezelStyle() const
{
    return ofCell(buttonCell(), NSRoundedBezelStyle, [](auto& cell) { return cell.bezelStyle(); });
}

void NSButton::setBezelStyle(NSBezelStyle style)
{
    if (auto* cell = buttonCell())
        cell->setBezelStyle(style);
}

bool NSButton::isBordered() const
{
    return cell() && cell()->isBordered();
}

void NSButton::setBordered(bool isBordered)
{
    if (auto* cell = this->cell())
        cell->setBordered(isBordered);
}

bool NSButton::isTransparent() const
{
    return ofCell(buttonCell(), false, [](auto& cell) { return cell.isTransparent(); });
}

void NSButton::setTransparent(bool isTransparent)
{
    if (auto* cell = buttonCell())
        cell->setTransparent(isTransparent);
}

bool NSButton::showsBorderOnlyWhileMouseInside() const
{
    return ofCell(buttonCell(), false, [](auto& cell) { return cell.showsBorderOnlyWhileMouseInside(); });
}

void NSButton::setShowsBorderOnlyWhileMouseInside(bool shows)
{
    if (auto* cell = buttonCell())
        cell->setShowsBorderOnlyWhileMouseInside(shows);
}

int NSButton::state() const
{
    return cell() ? cell()->state() : 0;
}

void NSButton::setState(int state)
{
    if (auto* cell = this->cell())
        cell->setState(state);
}

bool NSButton::allowsMixedState() const
{
    return cell() && cell()->allowsMixedState();
}

void NSButton::setAllowsMixedState(bool allows)
{
    if (auto* cell = this->cell())
        cell->setAllowsMixedState(allows);
}

void NSButton::setNextState()
{
    if (auto* cell = this->cell())
        cell->setNextState();
}

std::string const& NSButton::keyEquivalent() const
{
    auto const* cell = buttonCell();
    return cell ? cell->keyEquivalent() : s_nothing;
}

void NSButton::setKeyEquivalent(std::string_view key)
{
    if (auto* cell = buttonCell())
        cell->setKeyEquivalent(key);
}

unsigned NSButton::keyEquivalentModifierMask() const
{
    return ofCell(buttonCell(), 0U, [](auto& cell) { return cell.keyEquivalentModifierMask(); });
}

void NSButton::setKeyEquivalentModifierMask(unsigned mask)
{
    if (auto* cell = buttonCell())
        cell->setKeyEquivalentModifierMask(mask);
}

void NSButton::setPeriodicDelay(float delay, float interval)
{
    if (auto* cell = buttonCell())
        cell->setPeriodicDelay(delay, interval);
}

void NSButton::getPeriodicDelay(float& delay, float& interval) const
{
    if (auto const* cell = this->cell())
        cell->getPeriodicDelay(delay, interval);
}

void NSButton::highlight(bool flag)
{
    if (auto* cell = this->cell())
        cell->highlight(flag, bounds(), *this);
}

// MARK: keys

bool NSButton::performKeyEquivalent(NSEvent& event)
{
    if (!isEnabled() || isHiddenOrHasHiddenAncestor() || !isKeyEquivalent(event, keyEquivalent(), keyEquivalentModifierMask()))
        return Base::performKeyEquivalent(event);
    performClick(this);
    return true;
}

void NSButton::keyDown(NSEvent& event)
{
    if (isEnabled() && event.characters() == " " && !event.hasShortcutModifier())
        performClick(this);
    else
        Base::keyDown(event);
}

// MARK: radio buttons

bool NSButton::sendAction(Selector action, NSObject* target)
{
    turnOtherRadioButtonsOff();
    return Base::sendAction(action, target);
}

void NSButton::turnOtherRadioButtonsOff()
{
    auto const* own = buttonCell();
    if (!own || own->face() != ButtonFace::radio || !superview())
        return;
    auto const siblings = superview()->subviews();
    for (auto const& sibling : siblings) {
        auto* other = dynamic_cast<NSButton*>(sibling.get());
        if (!other || other == this || other->action() != action() || other->target() != target())
            continue;
        if (auto* cell = other->buttonCell(); cell && cell->face() == ButtonFace::radio)
            cell->setState(NSOffState);
    }
}

// MARK: hovering

void NSButton::mouseEntered(NSEvent& event)
{
    if (auto* cell = buttonCell())
        cell->mouseEntered(event);
}

void NSButton::mouseExited(NSEvent& event)
{
    if (auto* cell = buttonCell())
        cell->mouseExited(event);
}

}
