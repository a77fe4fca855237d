#include <plix/platform/appkit/NSTextView_internal.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/view_timers.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/host/Display.h>
#include <plix/platform/host/Host.h>

#include <algorithm>

namespace plix {

namespace {

constexpr NSTimeInterval blinkInterval = 0.5;

}

// MARK: drawing

bool NSTextView::isOpaque() const
{
    return drawsBackground() && backgroundColor() && backgroundColor()->alphaComponent() == 1;
}

void NSTextView::drawRect(Rect dirty)
{
    auto const& theme = Theme::current();
    if (drawsBackground() && backgroundColor())
        theme.fill(dirty, *backgroundColor());
    drawSelection(dirty);
    layout().draw(textContainerOrigin(), frame().height);
    if (m_isCaretShown)
        theme.fill(caretRect(), *insertionPointColor());
}

void NSTextView::drawSelection(Rect dirty) const
{
    auto const selected = selectedRange();
    if (selected.length == 0 || !isSelectable())
        return;
    // Of a long selection only what is to be drawn, and a line more, which says that it goes on.
    float const top = dirty.y - m_inset.height;
    auto const first = layout().line(layout().lineAtY(top)).range;
    long const below = std::min(layout().lineAtY(top + dirty.height) + 1, layout().numberOfLines() - 1);
    auto const shown = NSIntersectionRange(selected, NSUnionRange(first, layout().line(below).range));
    auto const color = hasKeyboard() ? NSColor::selectedTextBackgroundColor() : NSColor::secondarySelectedControlColor();
    for (auto const& rect : layout().selectionRects(shown))
        Theme::current().fill(bodyRect(rect), *color);
}

void NSTextView::markRangeDirty(NSRange range)
{
    if (!window())
        return;
    auto const first = layout().line(layout().lineOfIndex(std::min(range.location, length()))).fragment;
    auto const last = layout().line(layout().lineOfIndex(std::min(range.end(), length()))).fragment;
    float const top = std::min(first.y, last.y);
    // Ink and caret may reach beyond their line.
    setNeedsDisplayInRect(
        NSInsetRect({ 0, top + m_inset.height, frame().width, std::max(first.maxY(), last.maxY()) - top }, 0, -2));
}

void NSTextView::markFromDirty(long index)
{
    auto const first = layout().line(layout().lineOfIndex(paragraphRange(index).location)).fragment;
    float const top = first.y + m_inset.height - 2;
    setNeedsDisplayInRect({ 0, top, frame().width, std::max(frame().height - top, 0.F) });
}

void NSTextView::resetCursorRects()
{
    if (isSelectable())
        addCursorRect(visibleRect(), NSCursor::IBeamCursor());
}

// MARK: the keyboard

bool NSTextView::hasKeyboard() const
{
    return m_isFirstResponder && window() && window()->isKeyWindow();
}

void NSTextView::keyboardChanged()
{
    if (selectedRange().length > 0)
        setNeedsDisplay(true);
    restartCaret();
    updateTextInput();
}

// An input method works while text with the keyboard can be edited, and its windows are placed at the caret.
void NSTextView::updateTextInput()
{
    bool const takes = hasKeyboard() && isEditable();
    if (!takes && !m_takesTextInput)
        return;
    m_takesTextInput = takes;
    auto& display = host().display();
    if (!takes) {
        display.stopTextInput();
        return;
    }
    auto const inBase = convertRectToView(caretRect(), nullptr);
    auto const origin = window()->convertBaseToScreen(inBase.origin());
    display.startTextInput({ origin.x, origin.y, inBase.width, inBase.height });
}

// MARK: the caret

void NSTextView::setCaretShown(bool isShown)
{
    if (m_isCaretShown == isShown)
        return;
    m_isCaretShown = isShown;
    if (window())
        setNeedsDisplayInRect(NSInsetRect(caretRect(), -1, 0));
}

/// Shows at once where the caret is now. The timer runs only while there is something that blinks.
void NSTextView::restartCaret()
{
    bool const blinks = hasKeyboard() && isEditable() && m_anchor == m_end;
    setCaretShown(blinks);
    if (!blinks) {
        if (m_blinkTimer)
            m_blinkTimer->invalidate();
        m_blinkTimer = nullptr;
        return;
    }
    if (m_blinkTimer) {
        m_blinkTimer->setFireDate(NSDate::dateWithTimeIntervalSinceNow(blinkInterval));
        return;
    }
    m_blinkTimer = NSTimer::scheduledTimerWithTimeInterval(
        blinkInterval,
        [view = Weak<NSTextView>(this)](NSTimer&) {
            if (auto* const blinking = view.get())
                blinking->blink();
        },
        true);
    noteViewTimer(*this, *m_blinkTimer);
}

void NSTextView::blink()
{
    if (isHiddenOrHasHiddenAncestor())
        return;
    setCaretShown(!m_isCaretShown);
}

}
