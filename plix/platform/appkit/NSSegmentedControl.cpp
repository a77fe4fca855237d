#include <plix/platform/appkit/NSSegmentedControl.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSImage.h>

namespace plix {

PLIX_DESCRIBE(NSSegmentedControl)
{
}

bool NSSegmentedControl::init()
{
    return NSSegmentedControl::init(Rect {});
}

bool NSSegmentedControl::init(Rect frame)
{
    return Base::init(frame);
}

bool NSSegmentedControl::init(NSCoder& coder)
{
    return Base::init(coder);
}

Class const* NSSegmentedControl::cellClass()
{
    return &NSSegmentedCell::staticClass();
}

NSSegmentedCell* NSSegmentedControl::segmentedCell() const
{
    return dynamic_cast<NSSegmentedCell*>(cell());
}

NSSegmentedCell& NSSegmentedControl::cellOrRaise(long index) const
{
    auto* cell = segmentedCell();
    if (!cell)
        raiseRangeException("NSSegmentedControl", index, 0);
    return *cell;
}

long NSSegmentedControl::segmentCount() const
{
    auto const* cell = segmentedCell();
    return cell ? cell->segmentCount() : 0;
}

void NSSegmentedControl::setSegmentCount(long count)
{
    if (auto* cell = segmentedCell())
        cell->setSegmentCount(count);
}

long NSSegmentedControl::selectedSegment() const
{
    auto const* cell = segmentedCell();
    return cell ? cell->selectedSegment() : -1;
}

void NSSegmentedControl::setSelectedSegment(long index)
{
    if (auto* cell = segmentedCell())
        cell->setSelectedSegment(index);
}

float NSSegmentedControl::widthForSegment(long index) const
{
    return cellOrRaise(index).widthForSegment(index);
}

void NSSegmentedControl::setWidth(float width, long index)
{
    cellOrRaise(index).setWidth(width, index);
}

NSImage* NSSegmentedControl::imageForSegment(long index) const
{
    return cellOrRaise(index).imageForSegment(index);
}

void NSSegmentedControl::setImage(Ref<NSImage> const& image, long index)
{
    cellOrRaise(index).setImage(image, index);
}

std::string NSSegmentedControl::labelForSegment(long index) const
{
    return cellOrRaise(index).labelForSegment(index);
}

void NSSegmentedControl::setLabel(std::string_view label, long index)
{
    cellOrRaise(index).setLabel(label, index);
}

bool NSSegmentedControl::isSelectedForSegment(long index) const
{
    return cellOrRaise(index).isSelectedForSegment(index);
}

void NSSegmentedControl::setSelected(bool isSelected, long index)
{
    cellOrRaise(index).setSelected(isSelected, index);
}

bool NSSegmentedControl::isEnabledForSegment(long index) const
{
    return cellOrRaise(index).isEnabledForSegment(index);
}

void NSSegmentedControl::setEnabled(bool isEnabled, long index)
{
    cellOrRaise(index).setEnabled(isEnabled, index);
}

NSMenu* NSSegmentedControl::menuForSegment(long index) const
{
    return cellOrRaise(index).menuForSegment(index);
}

void NSSegmentedControl::setMenu(Ref<NSMenu> const& menu, long index)
{
    cellOrRaise(index).setMenu(menu, index);
}

long NSSegmentedControl::selectedTag() const
{
    auto const* cell = segmentedCell();
    return cell && cell->selectedSegment() >= 0 ? cell->tagForSegment(cell->selectedSegment()) : -1;
}

void NSSegmentedControl::keyDown(NSEvent& event)
{
    Ref<NSSegmentedCell> const cell(segmentedCell());
    if (!cell || !isEnabled() || event.hasShortcutModifier()) {
        Base::keyDown(event);
        return;
    }
    switch (event.characterIgnoringModifiers()) {
    case NSLeftArrowFunctionKey:
        cell->makePreviousSegmentKey();
        return;
    case NSRightArrowFunctionKey:
        cell->makeNextSegmentKey();
        return;
    case U' ':
        cell->pressKeySegment();
        return;
    default:
        Base::keyDown(event);
    }
}

// Called whenever the geometry changes: the tips go with the segments.
void NSSegmentedControl::resetCursorRects()
{
    Base::resetCursorRects();
    auto const* cell = segmentedCell();
    if (!cell)
        return;
    bool hasTips = false;
    for (long i = 0; i < cell->segmentCount(); ++i)
        hasTips |= !cell->toolTipForSegment(i).empty();
    if (!hasTips)
        return;
    removeAllToolTips();
    for (long i = 0; i < cell->segmentCount(); ++i) {
        if (auto const& tip = cell->toolTipForSegment(i); !tip.empty())
            addToolTipRect(cell->rectForSegment(i, bounds()), [tip] { return tip; });
    }
}

}
