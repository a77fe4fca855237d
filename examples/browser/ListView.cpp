#include "ListView.h"
#include "ListHeaderView.h"
#include "icons.h"

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/collation.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <cmath>

namespace browser {

using namespace plix;

PLIX_DESCRIBE(ListView)
{
}

ListView::ListView() = default;
ListView::~ListView() = default;

bool ListView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    setAutoresizingMask(NSViewWidthSizable);
    m_nameCell = make<NSTextFieldCell>("");
    m_nameCell->setLineBreakMode(NSLineBreakByTruncatingMiddle);
    m_sizeCell = make<NSTextFieldCell>("");
    m_sizeCell->setLineBreakMode(NSLineBreakByTruncatingTail);
    m_sizeCell->setAlignment(NSRightTextAlignment);
    m_header = make<ListHeaderView>(ListHeaderView::Titles::shown);
    m_corner = make<ListHeaderView>(ListHeaderView::Titles::none);
    return true;
}

NSView* ListView::headerView() const
{
    return m_header.get();
}

NSView* ListView::cornerView() const
{
    return m_corner.get();
}

// The headings stand above their columns at every width.
void ListView::setFrameSize(Size size)
{
    Base::setFrameSize(size);
    // The scroll view may have answered with another width.
    m_header->setFrameSize({ frame().width, m_header->frame().height });
}

// MARK: content

void ListView::setEntries(std::vector<FolderEntry> const* entries)
{
    m_entries = entries;
    m_selection.reset();
    m_typeSelect = {};
    fitHeight();
    setNeedsDisplay(true);
    scrollPoint({ 0, 0 });
}

void ListView::setMessage(std::string message)
{
    if (m_message == message)
        return;
    m_message = std::move(message);
    setNeedsDisplay(true);
}

ListPlan ListView::plan() const
{
    ListPlan plan;
    plan.rowCount = m_entries ? static_cast<long>(m_entries->size()) : 0;
    plan.width = bounds().width;
    return plan;
}

// At least as high as what is seen, so that a click below the rows comes here too.
void ListView::fitHeight()
{
    auto const* clip = superview();
    setFrameSize({ frame().width, std::max(plan().height(), clip ? clip->bounds().height : 0) });
}

void ListView::resizeWithOldSuperviewSize(Size oldSize)
{
    Base::resizeWithOldSuperviewSize(oldSize);
    fitHeight();
}

// MARK: drawing

void ListView::drawRect(Rect dirty)
{
    auto const& theme = Theme::current();
    theme.fill(dirty, *NSColor::controlBackgroundColor());
    if (!m_message.empty()) {
        drawMessage();
        return;
    }
    auto const plan = this->plan();
    // The stripes go on below the last row.
    auto const firstStripe = static_cast<long>(std::floor(dirty.y / plan.rowHeight));
    for (long row = firstStripe; static_cast<float>(row) * plan.rowHeight < dirty.maxY(); ++row) {
        if (row % 2 != 0)
            theme.fill(NSIntersectionRect(plan.rowRect(row), dirty), *NSColor::controlAlternatingRowBackgroundColors()[1]);
    }
    auto const rows = plan.rowsIn(dirty);
    for (long row = rows.first; row < rows.first + rows.count; ++row)
        drawRow(row, plan.rowRect(row));
}

void ListView::drawRow(long row, Rect rect)
{
    auto const& theme = Theme::current();
    auto const& entry = (*m_entries)[static_cast<std::size_t>(row)];
    auto const look = Theme::lookOfView(*this);
    bool const isSelected = m_selection == row;
    if (isSelected)
        theme.fill(rect, *theme.selectionColor(look));
    auto const selectedText = theme.selectionTextColor(look);
    auto const columns = columnPlan(rect, listIconSize);
    bool const isOnAccent = isSelected && look.isFocused && look.isWindowActive;
    auto const tone = isOnAccent ? IconTone::onSelection : entry.isHidden() ? IconTone::dimmed : IconTone::normal;
    drawIcon(entry.kind, entry.isLink, columns.icon, tone);

    auto draw = [&](NSTextFieldCell& cell, Rect column, std::string_view text, Ref<NSColor> const& color) {
        cell.setTextColor(isSelected ? selectedText : color);
        cell.setStringValue(text);
        float const height = listTextHeight;
        cell.drawWithFrame({ column.x, column.y + std::floor((column.height - height) / 2), column.width, height }, *this);
    };
    auto const& secondary = theme.color(ThemeRole::secondaryText);
    draw(*m_nameCell, columns.name, entry.shownName, entry.isHidden() ? secondary : NSColor::controlTextColor());
    draw(*m_sizeCell, columns.size, sizeText(entry), secondary);
}

void ListView::drawMessage()
{
    auto cell = make<NSTextFieldCell>(m_message);
    cell->setAlignment(NSCenterTextAlignment);
    cell->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    Rect const seen = NSInsetRect(visibleRect(), 24, 0);
    float const height = cell->cellSizeForBounds(seen).height;
    cell->drawWithFrame({ seen.x, std::floor(seen.y + (seen.height - height) * 0.4F), seen.width, height }, *this);
}

bool ListView::becomeFirstResponder()
{
    markRow(m_selection);
    return Base::becomeFirstResponder();
}

bool ListView::resignFirstResponder()
{
    markRow(m_selection);
    return Base::resignFirstResponder();
}

// MARK: selection

void ListView::markRow(std::optional<long> row)
{
    if (row)
        setNeedsDisplayInRect(plan().rowRect(*row));
}

void ListView::changeSelection(std::optional<long> row)
{
    if (row && (*row < 0 || *row >= plan().rowCount))
        row.reset();
    if (m_selection == row)
        return;
    markRow(m_selection);
    m_selection = row;
    markRow(row);
    if (m_actions.select)
        m_actions.select();
}

void ListView::selectRow(std::optional<long> row)
{
    changeSelection(row);
    if (m_selection)
        scrollRectToVisible(plan().rowRect(*m_selection));
}

void ListView::moveSelection(ListMove move)
{
    selectRow(movedSelection(m_selection, move, plan(), visibleRect().height));
}

void ListView::open(std::optional<long> row)
{
    if (row && m_actions.open)
        m_actions.open(*row);
}

void ListView::typeSelect(std::string_view letters, double time)
{
    auto const wanted = utf16FromUTF8(m_typeSelect.type(letters, time));
    if (!m_entries)
        return;
    auto const found = std::ranges::find_if(*m_entries, [&](FolderEntry const& entry) {
        auto const start = std::u16string_view(entry.sortName).substr(0, wanted.size());
        return collateFileNames(start, wanted) == NSOrderedSame;
    });
    if (found != m_entries->end())
        selectRow(found - m_entries->begin());
}

// MARK: events

void ListView::mouseDown(NSEvent& event)
{
    Ref<ListView> const protector(this);
    if (auto* ownWindow = window())
        ownWindow->makeFirstResponder(this);
    auto const row = plan().rowAt(convertPointFromView(event.locationInWindow(), nullptr).y);
    if (event.clickCount() == 2) {
        open(row);
        return;
    }
    changeSelection(row);
    trackSelection(event);
}

// The selection follows the pointer, and the list the selection; also while the pointer rests beyond the list's edge.
void ListView::trackSelection(NSEvent& press)
{
    constexpr NSTimeInterval scrollInterval = 0.05;
    Ref<NSEvent> event(press);
    while (event->type() != NSLeftMouseUp && window()) {
        bool isOutside = false;
        if (event->type() == NSLeftMouseDragged) {
            autoscroll(*event);
            auto const plan = this->plan();
            Point const point = convertPointFromView(event->locationInWindow(), nullptr);
            isOutside = !NSPointInRect(point, visibleRect());
            if (plan.rowCount > 0)
                selectRow(plan.rowAt(std::clamp(point.y, 0.F, plan.height() - 1)));
        }
        Ref<NSWindow> const ownWindow = window();
        if (!ownWindow)
            return;
        auto const until = isOutside ? NSDate::dateWithTimeIntervalSinceNow(scrollInterval) : NSDate::distantFuture();
        auto const next
            = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask, until, NSEventTrackingRunLoopMode, true);
        if (next)
            event = next;
        else if (!isOutside)
            return;
    }
}

bool ListView::handleCommandKey(NSEvent& event)
{
    switch (event.characterIgnoringModifiers()) {
    case NSUpArrowFunctionKey:
        if (event.modifierFlags() & NSAlternateKeyMask)
            m_actions.leave ? m_actions.leave() : void();
        else
            moveSelection(ListMove::up);
        return true;
    case NSDownArrowFunctionKey:
        if (event.modifierFlags() & NSAlternateKeyMask)
            open(m_selection);
        else
            moveSelection(ListMove::down);
        return true;
    case NSPageUpFunctionKey:
        moveSelection(ListMove::pageUp);
        return true;
    case NSPageDownFunctionKey:
        moveSelection(ListMove::pageDown);
        return true;
    case NSHomeFunctionKey:
        moveSelection(ListMove::first);
        return true;
    case NSEndFunctionKey:
        moveSelection(ListMove::last);
        return true;
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
    case NSRightArrowFunctionKey:
        open(m_selection);
        return true;
    case NSDeleteCharacter:
    case NSBackspaceCharacter:
    case NSLeftArrowFunctionKey:
        if (m_actions.leave)
            m_actions.leave();
        return true;
    default:
        return false;
    }
}

void ListView::keyDown(NSEvent& event)
{
    Ref<ListView> const protector(this);
    if (handleCommandKey(event))
        return;
    char32_t const typed = event.character();
    bool const isFunctionKey = typed >= 0xF700 && typed <= 0xF8FF;
    bool const isWord = typed > ' ' || (typed == ' ' && m_typeSelect.isTyping(event.timestamp()));
    if (isWord && !isFunctionKey && !event.hasShortcutModifier())
        typeSelect(event.characters(), event.timestamp());
    else
        Base::keyDown(event);
}

}
