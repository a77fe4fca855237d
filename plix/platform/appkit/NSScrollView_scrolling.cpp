#include <plix/platform/appkit/NSScrollView.h>

#include <plix/platform/appkit/LongDocument.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/scroll_layout.h>

#include <utility>

namespace plix {

bool NSScrollView::canScroll(Axis axis) const
{
    Size const document = m_contentView->documentRect().size();
    Size const visible = m_contentView->bounds().size();
    return axis == Axis::vertical ? document.height > visible.height : document.width > visible.width;
}

bool NSScrollView::scrollBy(float dx, float dy)
{
    Point const origin = m_contentView->bounds().origin();
    return m_contentView->scrollTo({ origin.x + dx, origin.y + (m_contentView->isFlipped() ? dy : -dy) });
}

float NSScrollView::pageDistance(Axis axis) const
{
    Size const visible = m_contentView->bounds().size();
    return axis == Axis::vertical ? pageScrollDistance(visible.height, m_pageScroll.height)
                                  : pageScrollDistance(visible.width, m_pageScroll.width);
}

void NSScrollView::scrollWheel(NSEvent& event)
{
    float linesX = event.deltaX();
    float linesY = event.deltaY();
    if ((event.modifierFlags() & NSShiftKeyMask) && linesX == 0)
        std::swap(linesX, linesY);
    bool const takesX = linesX != 0 && canScroll(Axis::horizontal);
    bool const takesY = linesY != 0 && canScroll(Axis::vertical);
    if (!takesX && !takesY) {
        Base::scrollWheel(event);
        return;
    }
    Size const wanted { takesX ? m_wheelRemainder.width - linesX * m_lineScroll.width : 0,
        takesY ? m_wheelRemainder.height - linesY * m_lineScroll.height : 0 };
    Point const before = m_contentView->bounds().origin();
    Size const asked = m_contentView->isFlipped() ? wanted : Size { wanted.width, -wanted.height };
    Point const target = m_contentView->constrainScrollPoint({ before.x + asked.width, before.y + asked.height });
    m_contentView->scrollTo(target);
    // Steps finer than a pixel add up.
    Point const after = m_contentView->bounds().origin();
    float const restY = target.y - after.y;
    m_wheelRemainder = { target.x - after.x, m_contentView->isFlipped() ? restY : -restY };
}

void NSScrollView::scrollToScrollerValue(NSScroller const& scroller, Axis axis)
{
    auto const* event = window() ? window()->currentEvent() : nullptr;
    if (!m_scrollsDynamically && event && event->type() == NSLeftMouseDragged)
        return;
    Rect const document = m_contentView->documentRect();
    Rect const visible = m_contentView->bounds();
    float const value = scroller.floatValue();
    Point target = visible.origin();
    auto const direction = m_contentView->isFlipped() ? ScrollDirection::fromStart : ScrollDirection::fromEnd;
    if (auto* whole = axis == Axis::vertical ? dynamic_cast<LongDocument*>(documentView()) : nullptr) {
        whole->scrollDocumentTo(
            clipStartForScrollerValue(0, whole->documentLength(), visible.height, value, ScrollDirection::fromStart));
        return;
    }
    if (axis == Axis::vertical)
        target.y = static_cast<float>(clipStartForScrollerValue(document.y, document.height, visible.height, value, direction));
    else
        target.x = static_cast<float>(
            clipStartForScrollerValue(document.x, document.width, visible.width, value, ScrollDirection::fromStart));
    m_contentView->scrollTo(target);
}

void NSScrollView::scrollerMoved(NSObject* sender)
{
    auto* scroller = dynamic_cast<NSScroller*>(sender);
    if (!scroller || (scroller != m_verticalScroller.get() && scroller != m_horizontalScroller.get()))
        return;
    bool const isVertical = scroller == m_verticalScroller.get();
    auto move = [&](float distance) { isVertical ? scrollBy(0, distance) : scrollBy(distance, 0); };
    auto const axis = isVertical ? Axis::vertical : Axis::horizontal;
    float const line = isVertical ? m_lineScroll.height : m_lineScroll.width;
    switch (scroller->hitPart()) {
    case NSScrollerDecrementPage:
        return move(-pageDistance(axis));
    case NSScrollerIncrementPage:
        return move(pageDistance(axis));
    case NSScrollerDecrementLine:
        return move(-line);
    case NSScrollerIncrementLine:
        return move(line);
    case NSScrollerKnob:
    case NSScrollerKnobSlot:
        return scrollToScrollerValue(*scroller, axis);
    case NSScrollerNoPart:
        return;
    }
}

void NSScrollView::scrollLineUp(NSObject*)
{
    scrollBy(0, -m_lineScroll.height);
}

void NSScrollView::scrollLineDown(NSObject*)
{
    scrollBy(0, m_lineScroll.height);
}

void NSScrollView::scrollPageUp(NSObject*)
{
    scrollBy(0, -pageDistance(Axis::vertical));
}

void NSScrollView::scrollPageDown(NSObject*)
{
    scrollBy(0, pageDistance(Axis::vertical));
}

void NSScrollView::scrollToBeginningOfDocument(NSObject*)
{
    if (auto* whole = dynamic_cast<LongDocument*>(documentView()))
        whole->scrollDocumentTo(0);
    else
        scrollBy(0, -m_contentView->documentRect().height);
}

void NSScrollView::scrollToEndOfDocument(NSObject*)
{
    if (auto* whole = dynamic_cast<LongDocument*>(documentView()))
        whole->scrollDocumentTo(whole->documentLength());
    else
        scrollBy(0, m_contentView->documentRect().height);
}

void NSScrollView::keyDown(NSEvent& event)
{
    switch (event.characterIgnoringModifiers()) {
    case NSPageUpFunctionKey:
        return scrollPageUp(nullptr);
    case NSPageDownFunctionKey:
        return scrollPageDown(nullptr);
    case NSHomeFunctionKey:
        return scrollToBeginningOfDocument(nullptr);
    case NSEndFunctionKey:
        return scrollToEndOfDocument(nullptr);
    case NSUpArrowFunctionKey:
        return scrollLineUp(nullptr);
    case NSDownArrowFunctionKey:
        return scrollLineDown(nullptr);
    case NSLeftArrowFunctionKey:
        scrollBy(-m_lineScroll.width, 0);
        return;
    case NSRightArrowFunctionKey:
        scrollBy(m_lineScroll.width, 0);
        return;
    default:
        Base::keyDown(event);
    }
}

}
