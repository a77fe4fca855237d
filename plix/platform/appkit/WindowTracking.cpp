#include <plix/platform/appkit/WindowTracking.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/base/clock.h>

#include <algorithm>

namespace plix {

NSTrackingRectTag WindowTracking::add(NSView& view, Rect rect, NSObject* owner, void* userData, bool assumeInside)
{
    static NSTrackingRectTag s_nextTag = 1;
    m_trackingRects.push_back({ s_nextTag, view, rect, owner, userData, assumeInside });
    return s_nextTag++;
}

void WindowTracking::remove(NSTrackingRectTag tag)
{
    std::erase_if(m_trackingRects, [tag](auto const& entry) { return entry.tag == tag; });
}

NSObject* WindowTracking::owner(NSTrackingRectTag tag) const
{
    auto const found = std::ranges::find(m_trackingRects, tag, &TrackingRect::tag);
    return found == m_trackingRects.end() ? nullptr : found->owner.get();
}

void WindowTracking::addCursorRect(NSView& view, Rect rect, NSCursor& cursor)
{
    if (!rect.isEmpty())
        m_cursorRects.push_back({ view, rect, Ref<NSCursor>(cursor) });
}

void WindowTracking::removeCursorRect(NSView& view, Rect rect, NSCursor& cursor)
{
    std::erase_if(
        m_cursorRects, [&](auto const& entry) { return entry.view == &view && entry.rect == rect && entry.cursor == &cursor; });
}

void WindowTracking::discardCursorRects(NSView& view)
{
    std::erase_if(m_cursorRects, [&](auto const& entry) { return entry.view == &view || !entry.view; });
}

void WindowTracking::enableCursorRects()
{
    if (m_disabled > 0 && --m_disabled == 0)
        invalidateCursorRects();
}

void WindowTracking::forgetView(NSView& view)
{
    auto const belongs = [&](auto const& entry) { return !entry.view || entry.view->isDescendantOf(view); };
    std::erase_if(m_trackingRects, belongs);
    std::erase_if(m_cursorRects, belongs);
    invalidateCursorRects();
}

bool WindowTracking::contains(NSView const& view, Rect rect, Point base) const
{
    return view.mouseInRect(view.convertPointFromView(base, nullptr), NSIntersectionRect(rect, view.visibleRect()));
}

void WindowTracking::mouseMovedTo(Point base, bool isInside, unsigned modifierFlags, bool isButtonHeld)
{
    m_mouse = base;
    m_isMouseInside = isInside;
    std::erase_if(m_trackingRects, [](auto const& entry) { return !entry.view; });
    std::vector<Ref<NSEvent>> events;
    // Those that are left are told before those that are entered.
    for (auto& entry : m_trackingRects) {
        bool const wasInside = std::exchange(entry.isInside, isInside && contains(*entry.view, entry.rect, base));
        if (wasInside == entry.isInside)
            continue;
        auto event = NSEvent::enterExitEventWithType(entry.isInside ? NSMouseEntered : NSMouseExited, base, modifierFlags,
            clock().uptime(), m_window.windowNumber(), nullptr, 0, entry.tag, entry.userData);
        events.insert(entry.isInside ? events.end() : events.begin(), std::move(event));
    }
    for (auto const& event : events)
        NSApp->postEvent(*event, false);
    if (!isButtonHeld)
        setCursorAtMouse();
}

void WindowTracking::resetCursorRects(NSView& view)
{
    if (view.isHidden())
        return;
    Ref<NSView> const protector(view);
    discardCursorRects(view);
    view.resetCursorRects();
    for (auto const& subview : std::vector(view.subviews()))
        resetCursorRects(*subview);
}

void WindowTracking::resetCursorRects()
{
    m_areCursorRectsValid = true;
    m_cursorRects.clear();
    if (auto* const content = m_window.contentView())
        resetCursorRects(*content);
}

void WindowTracking::updateCursorIfNeeded()
{
    if (!m_areCursorRectsValid && m_isMouseInside && NSEvent::pressedMouseButtons() == 0)
        setCursorAtMouse();
}

void WindowTracking::setCursorAtMouse()
{
    if (!m_isMouseInside || !areCursorRectsEnabled())
        return;
    if (!m_areCursorRectsValid)
        resetCursorRects();
    // The last added lies on top, being the deepest view's.
    auto const isUnderMouse = [this](CursorRect const& entry) { return entry.view && contains(*entry.view, entry.rect, m_mouse); };
    auto const found = std::find_if(m_cursorRects.rbegin(), m_cursorRects.rend(), isUnderMouse);
    Ref<NSCursor> const cursor = found == m_cursorRects.rend() ? Ref<NSCursor>(NSCursor::arrowCursor()) : found->cursor;
    cursor->set();
}

}
