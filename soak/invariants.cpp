#include "invariants.h"

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/view_timers.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>

namespace soak {

using namespace plix;

namespace {

bool isFinite(Rect rect)
{
    return std::isfinite(rect.x) && std::isfinite(rect.y) && std::isfinite(rect.width) && std::isfinite(rect.height);
}

std::string brokenTable(NSTableView& table)
{
    auto const rows = table.numberOfRows();
    auto const columns = table.numberOfColumns();
    auto const within = [](NSIndexSet const& indexes, long count) {
        return indexes.isEmpty() || (indexes.firstIndex() >= 0 && indexes.lastIndex() < count);
    };
    if (!within(table.selectedRowIndexes(), rows))
        return "a selected row is not in the table";
    if (!within(table.selectedColumnIndexes(), columns))
        return "a selected column is not in the table";
    if (table.selectedRow() < -1 || table.selectedRow() >= rows)
        return "the selected row is not in the table";
    if ((table.selectedRow() < 0) != table.selectedRowIndexes().isEmpty())
        return "the selected row is not among the selected ones";
    if (table.editedRow() >= rows || table.editedColumn() >= columns)
        return "the edited cell is not in the table";
    if ((table.editedRow() < 0) != (table.editedColumn() < 0))
        return "half a cell is edited";
    return {};
}

std::string brokenText(NSText& text)
{
    auto const range = text.selectedRange();
    auto const length = utf16Length(text.string());
    return range.location >= 0 && range.length >= 0 && range.end() <= length ? "" : "the selection is not in the text";
}

std::string brokenTabs(NSTabView& tabs)
{
    auto const* const selected = tabs.selectedTabViewItem();
    if (!selected)
        return {};
    return tabs.indexOfTabViewItem(*selected) < tabs.numberOfTabViewItems() ? "" : "the selected tab is not in the tab view";
}

std::string brokenChoice(long selected, long count)
{
    return selected >= -1 && selected < count ? "" : "what is selected is not among the items";
}

std::string brokenControl(NSView& view)
{
    if (auto* const table = dynamic_cast<NSTableView*>(&view))
        return brokenTable(*table);
    if (auto* const text = dynamic_cast<NSText*>(&view))
        return brokenText(*text);
    if (auto* const tabs = dynamic_cast<NSTabView*>(&view))
        return brokenTabs(*tabs);
    if (auto const* const popUp = dynamic_cast<NSPopUpButton*>(&view))
        return brokenChoice(popUp->indexOfSelectedItem(), popUp->numberOfItems());
    if (auto const* const combo = dynamic_cast<NSComboBox*>(&view))
        return brokenChoice(combo->indexOfSelectedItem(), combo->numberOfItems());
    if (auto const* const segments = dynamic_cast<NSSegmentedControl*>(&view))
        return brokenChoice(segments->selectedSegment(), segments->segmentCount());
    if (auto const* const scroller = dynamic_cast<NSScroller*>(&view)) {
        bool const isFine = scroller->floatValue() >= 0 && scroller->floatValue() <= 1 && scroller->knobProportion() >= 0
            && scroller->knobProportion() <= 1;
        return isFine ? "" : "the knob is not in the scroller";
    }
    return {};
}

std::string brokenTree(NSView& view)
{
    if (auto problem = brokenView(view); !problem.empty())
        return problem + " (" + view.description() + ')';
    for (auto const& subview : std::vector(view.subviews())) {
        if (subview->superview() != &view || subview->window() != view.window())
            return "a subview does not know where it is (" + subview->description() + ')';
        if (auto problem = brokenTree(*subview); !problem.empty())
            return problem;
    }
    return {};
}

std::string brokenWindow(NSWindow& window)
{
    auto const& internals = window.internals();
    if (auto problem = brokenFirstResponder(window); !problem.empty())
        return problem;
    if (!isFinite(window.frame()) || window.frame().width < 0 || window.frame().height < 0)
        return "a window's frame is no rectangle";
    if (internals.isDrawing)
        return "a window still draws";
    if (internals.sheet && internals.sheet->internals().sheetParent != &window)
        return "a sheet does not know its window";
    if (auto* const parent = internals.sheetParent.get(); parent && parent->internals().sheet != &window)
        return "a window does not know its sheet";
    auto const& order = NSApp->internals().order;
    bool const isListed = std::ranges::find(order, &window) != order.end();
    if ((isListed && !internals.isOrderedIn) || (window.isVisible() && !isListed))
        return "a window is listed as it is not";
    return {};
}

std::string brokenModality()
{
    auto const& internals = NSApp->internals();
    for (auto const& session : internals.sessions) {
        if (session->isEnded())
            return "a modal session has ended and is still there";
    }
    for (auto const* const window : NSWindow::Internals::all()) {
        auto const isSessions = [&](auto const& session) { return session->window() == window; };
        if (window->internals().modalParent && std::ranges::none_of(internals.sessions, isSessions))
            return "a window is modal without a session";
    }
    return {};
}

}

std::string brokenDrawing()
{
    if (NSGraphicsContext::currentContext())
        return "a graphics context is still current";
    return NSView::focusView() ? "a view is still focused" : "";
}

std::string brokenFirstResponder(NSWindow& window)
{
    auto* const responder = window.firstResponder();
    if (responder == &window)
        return {};
    auto const* const view = dynamic_cast<NSView*>(responder);
    if (!view)
        return responder->acceptsFirstResponder() ? "" : "the first responder takes no keys";
    auto const said = " (" + view->description() + ')';
    if (view->window() != &window)
        return "the first responder is not in its window" + said;
    if (view->isHiddenOrHasHiddenAncestor())
        return "the first responder is hidden" + said;
    return view->acceptsFirstResponder() ? "" : "the first responder does not accept it" + said;
}

std::string brokenWindows()
{
    auto const& all = NSWindow::Internals::all();
    if (all.size() > mostWindows)
        return "there are " + std::to_string(all.size()) + " windows";
    for (auto* const window : all) {
        if (auto problem = brokenWindow(*window); !problem.empty())
            return problem + " (" + window->description() + " “" + window->title() + "”)";
    }
    for (auto const* const chosen : { NSApp->keyWindow(), NSApp->mainWindow() }) {
        if (chosen && !chosen->isVisible())
            return "the window with the keyboard is not on screen (" + chosen->description() + " “" + chosen->title() + "”)";
    }
    return brokenModality();
}

std::string brokenView(NSView& view)
{
    if (!isFinite(view.frame()) || !isFinite(view.bounds()))
        return "a view's frame or bounds are no rectangle";
    return brokenControl(view);
}

std::string brokenViews()
{
    for (auto* const window : std::vector(NSWindow::Internals::all())) {
        if (auto* const content = window->contentView()) {
            if (content->window() != window)
                return "a content view does not know its window";
            if (auto problem = brokenTree(*content); !problem.empty())
                return problem;
        }
    }
    return {};
}

std::string ViewTimerWatch::brokenTimer()
{
    std::map<std::uint64_t, double> unseen;
    for (auto const& [view, timer] : viewTimers()) {
        if (view->canDraw())
            continue;
        auto const known = m_unseen.find(timer->serialNumber());
        auto const due = known == m_unseen.end() ? timer->fireDate().timeIntervalSinceReferenceDate : known->second;
        if (timer->fireDate().timeIntervalSinceReferenceDate > due)
            return "a timer goes on for a view that is not seen (" + view->description() + ')';
        unseen.emplace(timer->serialNumber(), due);
    }
    m_unseen = std::move(unseen);
    return {};
}

std::string runningTimer()
{
    for (auto const mode : { NSDefaultRunLoopMode, NSEventTrackingRunLoopMode, NSModalPanelRunLoopMode }) {
        if (NSRunLoop::currentRunLoop().nextFireDate(mode))
            return "a timer still runs in " + std::string(mode);
    }
    return {};
}

}
