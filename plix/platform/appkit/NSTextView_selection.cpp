#include <plix/platform/appkit/NSTextView_internal.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/text_boundaries.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/graphics/caret_stops.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

// How often a drag that is held outside the view goes on scrolling, in seconds.
constexpr NSTimeInterval autoscrollInterval = 0.05;

NSRange between(long a, long b)
{
    return { std::min(a, b), std::max(a, b) - std::min(a, b) };
}

/// Positions of a text, in bytes where its boundaries are looked for.
class Positions {
public:
    explicit Positions(NSAttributedString const& string)
        : text(string.string())
        , m_positions(string.positions())
    {
    }
    std::size_t byte(long unit) const { return m_positions.byteOfUnit(text, unit); }
    long unit(std::size_t byte) const { return m_positions.unitOfByte(text, byte); }
    NSRange range(TextExtent extent) const { return between(unit(extent.first), unit(extent.end)); }

    std::string const& text;

private:
    Utf16Index& m_positions;
};

bool isVertical(TextMovement movement)
{
    return movement == TextMovement::up || movement == TextMovement::down || movement == TextMovement::pageUp
        || movement == TextMovement::pageDown;
}

}

void describeMovements(ClassDescription<NSTextView>& description)
{
    description.action("moveLeft:", &NSTextView::moveLeft)
        .action("moveRight:", &NSTextView::moveRight)
        .action("moveBackward:", &NSTextView::moveBackward)
        .action("moveForward:", &NSTextView::moveForward)
        .action("moveUp:", &NSTextView::moveUp)
        .action("moveDown:", &NSTextView::moveDown)
        .action("moveWordLeft:", &NSTextView::moveWordLeft)
        .action("moveWordRight:", &NSTextView::moveWordRight)
        .action("moveWordBackward:", &NSTextView::moveWordBackward)
        .action("moveWordForward:", &NSTextView::moveWordForward)
        .action("moveToBeginningOfLine:", &NSTextView::moveToBeginningOfLine)
        .action("moveToEndOfLine:", &NSTextView::moveToEndOfLine)
        .action("moveToBeginningOfParagraph:", &NSTextView::moveToBeginningOfParagraph)
        .action("moveToEndOfParagraph:", &NSTextView::moveToEndOfParagraph)
        .action("moveToBeginningOfDocument:", &NSTextView::moveToBeginningOfDocument)
        .action("moveToEndOfDocument:", &NSTextView::moveToEndOfDocument)
        .action("pageUp:", &NSTextView::pageUp)
        .action("pageDown:", &NSTextView::pageDown)
        .action("scrollPageUp:", &NSTextView::scrollPageUp)
        .action("scrollPageDown:", &NSTextView::scrollPageDown);
}

void describeExtensions(ClassDescription<NSTextView>& description)
{
    description.action("moveLeftAndModifySelection:", &NSTextView::moveLeftAndModifySelection)
        .action("moveRightAndModifySelection:", &NSTextView::moveRightAndModifySelection)
        .action("moveBackwardAndModifySelection:", &NSTextView::moveBackwardAndModifySelection)
        .action("moveForwardAndModifySelection:", &NSTextView::moveForwardAndModifySelection)
        .action("moveUpAndModifySelection:", &NSTextView::moveUpAndModifySelection)
        .action("moveDownAndModifySelection:", &NSTextView::moveDownAndModifySelection)
        .action("moveWordLeftAndModifySelection:", &NSTextView::moveWordLeftAndModifySelection)
        .action("moveWordRightAndModifySelection:", &NSTextView::moveWordRightAndModifySelection)
        .action("moveWordBackwardAndModifySelection:", &NSTextView::moveWordBackwardAndModifySelection)
        .action("moveWordForwardAndModifySelection:", &NSTextView::moveWordForwardAndModifySelection)
        .action("moveToBeginningOfLineAndModifySelection:", &NSTextView::moveToBeginningOfLineAndModifySelection)
        .action("moveToEndOfLineAndModifySelection:", &NSTextView::moveToEndOfLineAndModifySelection)
        .action("moveToBeginningOfDocumentAndModifySelection:", &NSTextView::moveToBeginningOfDocumentAndModifySelection)
        .action("moveToEndOfDocumentAndModifySelection:", &NSTextView::moveToEndOfDocumentAndModifySelection)
        .action("pageUpAndModifySelection:", &NSTextView::pageUpAndModifySelection)
        .action("pageDownAndModifySelection:", &NSTextView::pageDownAndModifySelection)
        .action("selectWord:", &NSTextView::selectWord)
        .action("selectLine:", &NSTextView::selectLine)
        .action("selectParagraph:", &NSTextView::selectParagraph);
}

// MARK: the selection

NSRange NSTextView::selectedRange() const
{
    return between(m_anchor, m_end);
}

void NSTextView::setSelectedRange(NSRange range)
{
    long const first = roundedIndex(range.location);
    moveSelection(first, roundedIndex(std::clamp(range.location, 0L, length()) + std::clamp(range.length, 0L, length())));
    m_granularity = NSSelectByCharacter;
}

long NSTextView::roundedIndex(long index) const
{
    Positions const at(*m_storage);
    return at.unit(at.byte(std::clamp(index, 0L, length())));
}

void NSTextView::moveSelection(long anchor, long end, bool keepsGoal)
{
    Ref<NSTextView> const protector(this);
    auto const wanted = between(anchor, end);
    if (m_hooks.willChangeSelectionFromCharacterRange) {
        auto const answer = m_hooks.willChangeSelectionFromCharacterRange(*this, selectedRange(), wanted);
        if (answer != wanted) {
            anchor = roundedIndex(answer.location);
            end = roundedIndex(answer.end());
        }
    }
    m_anchor = std::min(anchor, length());
    m_end = std::min(end, length());
    if (!keepsGoal)
        m_goalX.reset();
    // An edit has moved the selection along, but nobody was told.
    auto const after = selectedRange();
    auto const before = std::exchange(m_toldSelection, after);
    if (after != before)
        m_coalescing = nullptr;
    restartCaret();
    if (after == before)
        return;
    markRangeDirty(before);
    markRangeDirty(after);
    updateTextInput();
    auto const name = std::to_string(before.location) + "," + std::to_string(before.length);
    post(NSTextViewDidChangeSelectionNotification, m_hooks.textViewDidChangeSelection, { { "NSOldSelectedCharacterRange", name } });
}

void NSTextView::selectAll(NSObject*)
{
    setSelectedRange({ 0, length() });
}

void NSTextView::selectLine(NSObject*)
{
    auto const first = lineRange(selectedRange().location);
    setSelectedRange(NSUnionRange(first, lineRange(std::max(selectedRange().end() - 1, selectedRange().location))));
}

void NSTextView::selectAround(NSSelectionGranularity granularity)
{
    setSelectedRange(selectionRangeForProposedRange(selectedRange(), granularity));
}

NSRange NSTextView::selectionRangeForProposedRange(NSRange proposed, NSSelectionGranularity granularity) const
{
    Positions const at(*m_storage);
    if (granularity == NSSelectByParagraph)
        return NSUnionRange(paragraphRange(proposed.location), paragraphRange(std::max(proposed.end() - 1, proposed.location)));
    if (granularity == NSSelectByCharacter)
        return proposed;
    auto const first = at.range(wordAround(at.text, at.byte(proposed.location)));
    if (proposed.length == 0)
        return first;
    auto const last = at.range(wordAround(at.text, at.byte(proposed.end() - 1)));
    return NSUnionRange(first, last);
}

NSRange NSTextView::lineRange(long index) const
{
    return layout().line(layout().lineOfIndex(index)).range;
}

NSRange NSTextView::paragraphRange(long index) const
{
    Positions const at(*m_storage);
    return at.range(paragraphAround(at.text, at.byte(index)));
}

// MARK: where commands go

void NSTextView::move(TextMovement movement)
{
    if (!isSelectable())
        return;
    auto const selected = selectedRange();
    bool const isAside = movement == TextMovement::left || movement == TextMovement::right || movement == TextMovement::backward
        || movement == TextMovement::forward;
    long to = 0;
    if (isAside && selected.length > 0) {
        bool const isForwards = movement == TextMovement::forward
            || (movement != TextMovement::backward && (movement == TextMovement::right) != readsRightToLeftAt(selected.location));
        to = isForwards ? selected.end() : selected.location;
    } else {
        bool const goesBack = movement == TextMovement::up || movement == TextMovement::pageUp
            || movement == TextMovement::lineStart || movement == TextMovement::paragraphStart;
        bool const goesOn = movement == TextMovement::down || movement == TextMovement::pageDown
            || movement == TextMovement::lineEnd || movement == TextMovement::paragraphEnd;
        to = target(movement, goesBack ? selected.location : goesOn ? selected.end() : m_end);
    }
    m_granularity = NSSelectByCharacter;
    moveSelection(to, to, isVertical(movement));
    scrollRangeToVisible(selectedRange());
}

void NSTextView::extend(TextMovement movement)
{
    if (!isSelectable())
        return;
    long const to = target(movement, m_end);
    moveSelection(m_anchor, to, isVertical(movement));
    scrollRangeToVisible({ m_end, 0 });
}

long NSTextView::target(TextMovement movement, long from)
{
    Positions const at(*m_storage);
    switch (movement) {
    case TextMovement::left:
        return layout().indexMovedVisually(from, -1);
    case TextMovement::right:
        return layout().indexMovedVisually(from, 1);
    case TextMovement::backward:
        return at.unit(previousCaretStop(at.text, at.byte(from)));
    case TextMovement::forward:
        return at.unit(nextCaretStop(at.text, at.byte(from)));
    case TextMovement::wordBackward:
        return wordTarget(from, -1);
    case TextMovement::wordForward:
        return wordTarget(from, 1);
    case TextMovement::wordLeft:
        return wordTarget(from, readsRightToLeftAt(from) ? 1 : -1);
    case TextMovement::wordRight:
        return wordTarget(from, readsRightToLeftAt(from) ? -1 : 1);
    case TextMovement::up:
        return targetVertically(from, -1);
    case TextMovement::down:
        return targetVertically(from, 1);
    case TextMovement::pageUp:
        return targetVertically(from, -visibleRect().height);
    case TextMovement::pageDown:
        return targetVertically(from, visibleRect().height);
    case TextMovement::lineStart:
    case TextMovement::lineEnd:
    case TextMovement::paragraphStart:
    case TextMovement::paragraphEnd:
        return targetInLine(movement, from);
    case TextMovement::documentStart:
        return 0;
    case TextMovement::documentEnd:
        return length();
    }
    return from;
}

long NSTextView::wordTarget(long from, int direction) const
{
    Positions const at(*m_storage);
    return at.unit(direction > 0 ? nextWordEnd(at.text, at.byte(from)) : previousWordStart(at.text, at.byte(from)));
}

bool NSTextView::readsRightToLeftAt(long index) const
{
    long const toRight = layout().indexMovedVisually(index, 1);
    if (toRight != index)
        return toRight < index;
    return layout().indexMovedVisually(index, -1) > index;
}

// The line end of a line that is wrapped stays behind the caret.
long NSTextView::targetInLine(TextMovement movement, long from) const
{
    Positions const at(*m_storage);
    bool const isLine = movement == TextMovement::lineStart || movement == TextMovement::lineEnd;
    auto const range = isLine ? lineRange(from) : paragraphRange(from);
    if (movement == TextMovement::lineStart || movement == TextMovement::paragraphStart)
        return range.location;
    bool const isLast = range.end() == length();
    auto const endByte = at.byte(range.end());
    bool const endsParagraph = range.length > 0 && paragraphAround(at.text, at.byte(range.end())).first == endByte;
    if (isLast && !endsParagraph)
        return range.end();
    return range.length > 0 ? std::max(range.location, at.unit(previousCaretStop(at.text, endByte))) : range.location;
}

// Pages and lines up and down keep to the column that the first of them started in. One unit of distance is a line, more are
// points.
long NSTextView::targetVertically(long from, float distance)
{
    auto const caret = layout().caretRect(from);
    if (!m_goalX)
        m_goalX = caret.x;
    long const line = layout().lineOfIndex(from);
    long const last = layout().numberOfLines() - 1;
    bool const isOneLine = distance == 1 || distance == -1;
    long const wanted = isOneLine ? line + static_cast<long>(distance) : layout().lineAtY(caret.midY() + distance);
    if (wanted < 0 || (!isOneLine && line == 0 && distance < 0))
        return 0;
    if (wanted > last || (!isOneLine && line == last && distance > 0))
        return length();
    auto const fragment = layout().line(wanted).fragment;
    return layout().positionAt({ *m_goalX, fragment.midY() }).insertionIndex;
}

void NSTextView::scrollPages(int pages)
{
    auto const visible = visibleRect();
    if (auto* scrollView = enclosingScrollView()) {
        float const page = std::max(visible.height - scrollView->verticalPageScroll(), 1.F);
        scrollPoint({ visible.x, visible.y + static_cast<float>(pages) * page });
    }
}

// MARK: places

Rect NSTextView::bodyRect(Rect rect) const
{
    return NSOffsetRect(rect, textContainerOrigin().x, textContainerOrigin().y);
}

long NSTextView::characterIndexForInsertionAtPoint(Point point) const
{
    return layout().positionAt({ point.x - m_inset.width, point.y - m_inset.height }).insertionIndex;
}

Rect NSTextView::caretRect() const
{
    return bodyRect(layout().caretRect(m_end));
}

Rect NSTextView::firstRectForCharacterRange(NSRange range) const
{
    auto const rects = layout().rectsOfRange(range);
    return bodyRect(rects.empty() ? layout().caretRect(range.location) : rects.front());
}

void NSTextView::scrollRangeToVisible(NSRange range)
{
    auto const shown = visibleRect();
    // Of a range that is too long for the view the end that moves.
    auto rect = bodyRect(layout().caretRect(roundedIndex(range.location)));
    if (range.length > 0) {
        auto const end = bodyRect(layout().caretRect(roundedIndex(range.end())));
        auto const both = NSUnionRect(rect, end);
        rect = both.width <= shown.width && both.height <= shown.height ? both : m_end == range.location ? rect : end;
    }
    // A line that is higher than its field stays where it is.
    if (rect.height > shown.height && !shown.isEmpty()) {
        rect.y = shown.y;
        rect.height = shown.height;
    }
    scrollRectToVisible(NSIntersectionRect(NSInsetRect(rect, -m_container->lineFragmentPadding(), 0), bounds()));
}

// MARK: the mouse

void NSTextView::mouseDown(NSEvent& press)
{
    if (!isSelectable() || !window()) {
        Base::mouseDown(press);
        return;
    }
    Ref<NSTextView> const protector(this);
    unmarkText();
    Point const point = convertPointFromView(press.locationInWindow(), nullptr);
    auto const position = layout().positionAt({ point.x - m_inset.width, point.y - m_inset.height });
    m_granularity = press.clickCount() >= 3 ? NSSelectByParagraph : press.clickCount() == 2 ? NSSelectByWord : NSSelectByCharacter;
    long const index = m_granularity == NSSelectByCharacter ? position.insertionIndex : position.index;
    NSRange anchor = selectionRangeForProposedRange({ index, 0 }, m_granularity);
    if (press.modifierFlags() & NSShiftKeyMask)
        anchor = { m_anchor, 0 };
    selectFromTo(anchor, index);
    followMouse(press, anchor);
}

void NSTextView::selectFromTo(NSRange anchor, long index)
{
    auto const here = selectionRangeForProposedRange({ index, 0 }, m_granularity);
    if (here.location < anchor.location)
        moveSelection(anchor.end(), here.location);
    else
        moveSelection(anchor.location, std::max(here.end(), anchor.end()));
}

void NSTextView::followMouse(NSEvent& press, NSRange anchor)
{
    Ref<NSEvent> last(press);
    for (;;) {
        Ref<NSWindow> const ownWindow = window();
        if (!ownWindow)
            return;
        Point const point = convertPointFromView(last->locationInWindow(), nullptr);
        bool const isOutside = !NSPointInRect(point, visibleRect());
        auto const until = isOutside ? NSDate::dateWithTimeIntervalSinceNow(autoscrollInterval) : NSDate::distantFuture();
        auto const next
            = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask, until, NSEventTrackingRunLoopMode, true);
        if (isCutShort(next, until) || (next && next->type() == NSLeftMouseUp))
            return;
        if (next)
            last = next;
        autoscroll(*last);
        Point const at = convertPointFromView(last->locationInWindow(), nullptr);
        auto const position = layout().positionAt({ at.x - m_inset.width, at.y - m_inset.height });
        // Where an edit meanwhile took the anchor away, what is left of it.
        anchor = { std::min(anchor.location, length()), std::min(anchor.length, length() - std::min(anchor.location, length())) };
        selectFromTo(anchor, m_granularity == NSSelectByCharacter ? position.insertionIndex : position.index);
    }
}

}
