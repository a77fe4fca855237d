#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <algorithm>

namespace plix {

// Scrolling.

bool NSView::scrollRectToVisible(Rect rect)
{
    return m_superview && m_superview->scrollDocumentRectToVisible(*this, rect);
}

void NSView::scrollPoint(Point point)
{
    if (m_superview)
        m_superview->scrollDocumentToPoint(*this, point);
}

bool NSView::autoscroll(NSEvent& event)
{
    return m_superview && m_superview->autoscroll(event);
}

bool NSView::scrollDocumentToPoint(NSView& descendant, Point point)
{
    return m_superview && m_superview->scrollDocumentToPoint(descendant, point);
}

bool NSView::scrollDocumentRectToVisible(NSView& descendant, Rect rect)
{
    return m_superview && m_superview->scrollDocumentRectToVisible(descendant, rect);
}

// Events.

bool NSView::mouseInRect(Point point, Rect rect) const
{
    return NSMouseInRect(point, rect, isFlipped());
}

NSView* NSView::hitTest(Point pointInSuperview)
{
    if (m_flags.isHidden)
        return nullptr;
    auto const inverse = toSuperview().inverse();
    if (!inverse)
        return nullptr;
    Point const point = inverse->apply(pointInSuperview);
    if (!mouseInRect(point, m_bounds))
        return nullptr;
    for (auto i = m_subviews.size(); i-- > 0;) {
        if (auto* const hit = m_subviews[i]->hitTest(point))
            return hit;
    }
    return this;
}

NSMenu* NSView::menu() const
{
    auto const* extras = extrasOrNull();
    return extras ? extras->menu.get() : nullptr;
}

void NSView::setMenu(Ref<NSMenu> const& menu)
{
    extras().menu = menu;
}

NSMenu* NSView::menuForEvent(NSEvent&)
{
    return menu();
}

void NSView::rightMouseDown(NSEvent& event)
{
    Ref<NSView> const protector(this);
    if (Ref<NSMenu> const shown = menuForEvent(event))
        NSMenu::popUpContextMenu(*shown, event, this);
    else
        Base::rightMouseDown(event);
}

bool NSView::performKeyEquivalent(NSEvent& event)
{
    Ref<NSView> const protector(this);
    for (auto const& subview : std::vector(m_subviews)) {
        if (subview->m_superview == this && !subview->isHidden() && subview->performKeyEquivalent(event))
            return true;
    }
    return false;
}

bool NSView::performMnemonic(std::string_view mnemonic)
{
    Ref<NSView> const protector(this);
    for (auto const& subview : std::vector(m_subviews)) {
        if (subview->m_superview == this && !subview->isHidden() && subview->performMnemonic(mnemonic))
            return true;
    }
    return false;
}

bool NSView::inLiveResize() const
{
    return m_window && m_window->inLiveResize();
}

// Key view loop.

NSView* NSView::nextKeyView() const
{
    return m_extras ? m_extras->nextKeyView.get() : nullptr;
}

NSView* NSView::previousKeyView() const
{
    return m_extras ? m_extras->previousKeyView.get() : nullptr;
}

void NSView::setNextKeyView(NSView* next)
{
    if (next == this)
        next = nullptr;
    if (auto* const before = nextKeyView(); before && before != next)
        before->extras().previousKeyView = nullptr;
    extras().nextKeyView = next;
    if (!next)
        return;
    if (auto* const other = next->previousKeyView(); other && other != this)
        other->extras().nextKeyView = nullptr;
    next->extras().previousKeyView = this;
}

NSView* NSView::nextValidKeyView() const
{
    // A loop that does not lead back here is left after one round through it.
    auto const* slow = this;
    bool moves = false;
    for (auto* view = nextKeyView(); view && view != this; view = view->nextKeyView()) {
        if (view->canBecomeKeyView())
            return view;
        slow = std::exchange(moves, !moves) ? slow->nextKeyView() : slow;
        if (slow == view)
            return nullptr;
    }
    return nullptr;
}

NSView* NSView::previousValidKeyView() const
{
    auto const* slow = this;
    bool moves = false;
    for (auto* view = previousKeyView(); view && view != this; view = view->previousKeyView()) {
        if (view->canBecomeKeyView())
            return view;
        slow = std::exchange(moves, !moves) ? slow->previousKeyView() : slow;
        if (slow == view)
            return nullptr;
    }
    return nullptr;
}

bool NSView::canBecomeKeyView() const
{
    return acceptsFirstResponder() && m_window && !isHiddenOrHasHiddenAncestor();
}

// Tracking rectangles, cursor rectangles, tool tips.

NSTrackingRectTag NSView::addTrackingRect(Rect rect, NSObject* owner, void* userData, bool assumeInside)
{
    return m_window ? m_window->internals().tracking.add(*this, rect, owner, userData, assumeInside) : 0;
}

void NSView::removeTrackingRect(NSTrackingRectTag tag)
{
    if (m_window)
        m_window->internals().tracking.remove(tag);
}

void NSView::addCursorRect(Rect rect, NSCursor& cursor)
{
    if (m_window)
        m_window->internals().tracking.addCursorRect(*this, NSIntersectionRect(rect, visibleRect()), cursor);
}

void NSView::removeCursorRect(Rect rect, NSCursor& cursor)
{
    if (m_window)
        m_window->internals().tracking.removeCursorRect(*this, rect, cursor);
}

void NSView::discardCursorRects()
{
    if (m_window)
        m_window->internals().tracking.discardCursorRects(*this);
}

std::string const& NSView::toolTip() const
{
    static std::string const s_none;
    return m_extras ? m_extras->toolTip : s_none;
}

void NSView::setToolTip(std::string text)
{
    if (text == toolTip())
        return;
    extras().toolTip = std::move(text);
}

NSToolTipTag NSView::addToolTipRect(Rect rect, std::function<std::string()> text)
{
    static NSToolTipTag s_nextTag = 1;
    extras().toolTipRects.push_back({ s_nextTag, rect, std::move(text) });
    return s_nextTag++;
}

void NSView::removeToolTip(NSToolTipTag tag)
{
    if (m_extras)
        std::erase_if(m_extras->toolTipRects, [tag](auto const& entry) { return entry.tag == tag; });
}

void NSView::removeAllToolTips()
{
    if (!m_extras)
        return;
    m_extras->toolTip.clear();
    m_extras->toolTipRects.clear();
}

}
