#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <algorithm>

namespace plix {

// Whether a rectangle of the bounds shows this view and its subviews alone, and no ancestor is to be drawn there anew.
bool NSView::isUndisturbed(Rect rect) const
{
    for (auto const* view = this; view->m_superview; view = view->m_superview) {
        auto const& above = *view->m_superview;
        rect = view->convertRectToView(rect, &above);
        auto const place = std::ranges::find(above.m_subviews, view, &Ref<NSView>::get);
        bool const isCovered = std::any_of(place + 1, above.m_subviews.end(),
            [&](Ref<NSView> const& sibling) { return !sibling->isHidden() && NSIntersectsRect(sibling->frameArea(), rect); });
        auto const* extras = above.extrasOrNull();
        bool const lostSubview = extras && std::ranges::any_of(extras->removals, [&](Extras::Removal const& removal) {
            return NSIntersectsRect(removal.area, rect);
        });
        if (isCovered || lostSubview || above.m_dirty.intersects(rect))
            return false;
    }
    return true;
}

void NSView::scrollRect(Rect rect, Size by)
{
    rect = NSIntersectionRect(rect, visibleRect());
    if (rect.isEmpty() || by == Size {})
        return;
    bool isMoved = false;
    if (m_window && !isRotatedFromBase()) {
        auto& internals = m_window->internals();
        Point const offset = internals.contentOffset();
        Rect const inBase = convertRectToView(rect, nullptr);
        Rect const movedInBase = convertRectToView(NSOffsetRect(rect, by.width, by.height), nullptr);
        Size const distance { movedInBase.x - inBase.x, movedInBase.y - inBase.y };
        isMoved = internals.canMovePixels() && isUndisturbed(rect)
            && internals.movePixels(NSOffsetRect(inBase, -offset.x, -offset.y), distance);
    }
    if (!isMoved)
        markDirty(rect);
}

void NSView::moveBoundsOriginWithPixels(Point origin)
{
    if (origin == m_bounds.origin())
        return;
    Ref<NSView> const protector(this);
    m_bounds.x = origin.x;
    m_bounds.y = origin.y;
    boundsMoved();
}

}
