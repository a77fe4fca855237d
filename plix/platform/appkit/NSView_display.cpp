#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/view_drawing.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float focusRingWidth = 4;

/// What a locked focus puts back, innermost last.
struct LockedFocus {
    std::unique_ptr<CurrentContext> current;
    bool isOnStack;
    std::unique_ptr<AppearanceScope> appearance;
};

std::vector<LockedFocus>& lockedFocuses()
{
    static auto& s_locked = *new std::vector<LockedFocus>;
    return s_locked;
}

}

bool NSView::needsDisplay() const
{
    return !m_dirty.isEmpty() || (m_extras && !m_extras->removals.empty());
}

void NSView::setNeedsDisplay(bool needsDisplay)
{
    if (needsDisplay) {
        markDirty(m_bounds);
        return;
    }
    m_dirty.clear();
    if (m_extras)
        m_extras->removals.clear();
}

void NSView::setNeedsDisplayInRect(Rect rect)
{
    markDirty(rect);
}

void NSView::markDirty(Rect rect)
{
    rect = NSIntersectionRect(rect, m_bounds);
    if (rect.isEmpty())
        return;
    m_dirty.add(rect);
    propagateDirtiness();
}

void NSView::markDirtyInSuperview(Rect rect)
{
    if (m_superview && !m_flags.isHidden)
        m_superview->markDirty(rect);
}

void NSView::propagateDirtiness()
{
    for (auto* view = m_superview; view && !view->m_flags.descendantNeedsDisplay; view = view->m_superview)
        view->m_flags.descendantNeedsDisplay = true;
    if (m_window)
        m_window->internals().needsDisplay = true;
}

bool NSView::canDraw() const
{
    return m_window && m_window->internals().canDraw() && !isHiddenOrHasHiddenAncestor();
}

void NSView::displayIfNeeded()
{
    if (m_window)
        m_window->internals().displayDirty(*this);
}

void NSView::display()
{
    displayRect(m_bounds);
}

void NSView::displayRect(Rect rect)
{
    Ref<NSView> const protector(this);
    if (!m_window || !m_window->internals().displayNow(*this, NSIntersectionRect(rect, visibleRect())))
        markDirty(rect);
}

void NSView::displayIfNeededInRect(Rect rect)
{
    if (m_dirty.intersects(rect) || m_flags.descendantNeedsDisplay)
        displayRect(rect);
}

std::span<Rect const> NSView::getRectsBeingDrawn() const
{
    return ViewDrawing::rectsBeingDrawn(*this);
}

bool NSView::needsToDrawRect(Rect rect) const
{
    return std::ranges::any_of(getRectsBeingDrawn(), [&](Rect drawn) { return NSIntersectsRect(drawn, rect); });
}

NSView* NSView::focusView()
{
    return FocusStack::top();
}

void NSView::lockFocus(Badge<FocusLock> const&)
{
    LockedFocus locked { nullptr, false, std::make_unique<AppearanceScope>(effectiveAppearance()) };
    if (auto const context = canDraw() ? m_window->internals().contextForDrawing() : nullptr) {
        locked.current = std::make_unique<CurrentContext>(context);
        locked.isOnStack = true;
        auto& internals = m_window->internals();
        context->resetClip();
        auto const transform
            = concatenated(toBase(), AffineTransform::translation(-internals.contentOffset().x, -internals.contentOffset().y));
        context->setTransform(transform);
        context->setFlipped(isFlipped());
        context->clipToRect(visibleRect());
        FocusStack::push(*this, *context);
        internals.notePresent(transform.boundsOf(visibleRect()));
    } else {
        // Drawing goes nowhere.
        locked.current = std::make_unique<CurrentContext>(nullptr);
    }
    lockedFocuses().push_back(std::move(locked));
}

void NSView::unlockFocus(Badge<FocusLock> const&)
{
    auto& locked = lockedFocuses();
    if (locked.back().isOnStack)
        FocusStack::pop();
    locked.pop_back();
}

Ref<NSBitmapImageRep> NSView::bitmapImageRepForCachingDisplayInRect(Rect rect, float scale)
{
    if (rect.isEmpty() || !(scale > 0))
        return nullptr;
    auto rep
        = make<NSBitmapImageRep>(static_cast<int>(std::ceil(rect.width * scale)), static_cast<int>(std::ceil(rect.height * scale)));
    if (!rep)
        return nullptr;
    auto const context = NSGraphicsContext::graphicsContextWithBitmapImageRep(rep);
    CurrentContext const current(context);
    context->scaleBy(scale, scale);
    if (isFlipped())
        context->concat(AffineTransform::mirror({ 0, 0, rect.width, rect.height }));
    context->translateBy(-rect.x, -rect.y);
    drawHierarchyInCurrentContext(rect);
    rep->setSize(rect.size());
    return rep;
}

void NSView::drawHierarchyInCurrentContext(Rect rect)
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    Rect const clipped = NSIntersectionRect(rect, m_bounds);
    AppearanceScope const appearance(effectiveAppearance());
    if (!clipped.isEmpty())
        ViewDrawing(*context).drawContents(*this, { &clipped, 1 });
}

void NSView::setFocusRingType(NSFocusRingType type)
{
    if (m_focusRingType == type)
        return;
    m_focusRingType = type;
    setKeyboardFocusRingNeedsDisplayInRect(m_bounds);
}

void NSView::setKeyboardFocusRingNeedsDisplayInRect(Rect rect)
{
    markDirty(rect);
    if (m_superview)
        m_superview->markDirty(NSInsetRect(convertRectToView(rect, m_superview), -focusRingWidth, -focusRingWidth));
}

bool NSView::looksActive() const
{
    if (m_superview)
        return m_superview->looksActive();
    if (!m_window)
        return true;
    auto const* sheet = m_window->attachedSheet();
    return m_window->isKeyWindow() || (sheet && sheet->isKeyWindow());
}

}
