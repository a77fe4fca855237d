#include <plix/platform/appkit/NSTabView.h>

#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/key_views.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSTabView)
{
    description.hookOutlet("delegate", &NSTabView::takeHooks)
        .action("selectFirstTabViewItem:", &NSTabView::selectFirstTabViewItem)
        .action("selectLastTabViewItem:", &NSTabView::selectLastTabViewItem)
        .action("selectNextTabViewItem:", &NSTabView::selectNextTabViewItem)
        .action("selectPreviousTabViewItem:", &NSTabView::selectPreviousTabViewItem)
        .action("takeSelectedTabViewItemFromSender:", &NSTabView::takeSelectedTabViewItemFromSender);
}

NSTabView::NSTabView() = default;
NSTabView::~NSTabView() = default;

bool NSTabView::init()
{
    return NSTabView::init(Rect {});
}

bool NSTabView::init(Rect frame)
{
    return Base::init(frame);
}

bool NSTabView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_type = static_cast<NSTabViewType>(std::clamp<int>(coder.decodeIntForKey("tabViewType"), 0, NSNoTabsNoBorder));
    m_controlSize = static_cast<NSControlSize>(std::clamp<int>(coder.decodeIntForKey("controlSize"), 0, NSMiniControlSize));
    m_font = coder.decodeForKey<NSFont>("font");
    m_allowsTruncatedLabels = coder.decodeBoolForKey("allowsTruncatedLabels");
    coder.read("drawsBackground", [&](ObjectValue const& value) { m_drawsBackground = value.boolValue(); });
    auto const items = coder.decodeObjectForKey("tabViewItems");
    for (auto const& value : items.array() ? *items.array() : ObjectValue::Array {}) {
        auto const item = value.as<NSTabViewItem>();
        if (!item || item->tabView())
            continue;
        m_items.push_back(item);
        item->setTabView(Badge<NSTabView> {}, this);
    }
    auto const selected = coder.decodeForKey<NSTabViewItem>("selectedTabViewItem");
    if (!m_items.empty())
        showItem(selected && holds(*selected) ? selected.get() : m_items.front().get());
    return true;
}

void NSTabView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_type, "tabViewType");
    coder.encodeInt(m_controlSize, "controlSize");
    coder.encodeObject(m_font, "font");
    coder.encodeBool(m_allowsTruncatedLabels, "allowsTruncatedLabels");
    coder.encodeBool(m_drawsBackground, "drawsBackground");
    ObjectValue::Array items;
    for (auto const& item : m_items)
        items.emplace_back(item);
    coder.encodeObject(std::move(items), "tabViewItems");
    coder.encodeObject(m_selected, "selectedTabViewItem");
}

std::vector<Ref<NSView>> NSTabView::archivedSubviews() const
{
    auto views = subviews();
    std::erase_if(views, [this](auto const& view) { return view == pane(); });
    return views;
}

// MARK: items

bool NSTabView::holds(NSTabViewItem const& item) const
{
    return indexOfTabViewItem(item) != NSNotFound;
}

NSTabViewItem* NSTabView::tabViewItemAtIndex(long index) const
{
    if (index < 0 || index >= numberOfTabViewItems())
        raiseRangeException("NSTabView", index, numberOfTabViewItems());
    return m_items[static_cast<std::size_t>(index)].get();
}

long NSTabView::indexOfTabViewItem(NSTabViewItem const& item) const
{
    auto const found = std::ranges::find(m_items, &item, &Ref<NSTabViewItem>::get);
    return found == m_items.end() ? NSNotFound : found - m_items.begin();
}

long NSTabView::indexOfTabViewItemWithIdentifier(ObjectValue const& identifier) const
{
    auto const found = std::ranges::find_if(m_items, [&](auto const& item) { return item->identifier() == identifier; });
    return found == m_items.end() ? NSNotFound : found - m_items.begin();
}

void NSTabView::addTabViewItem(NSTabViewItem& item)
{
    insertTabViewItem(item, numberOfTabViewItems());
}

void NSTabView::insertTabViewItem(NSTabViewItem& item, long index)
{
    if (index < 0 || index > numberOfTabViewItems())
        raiseRangeException("NSTabView insertTabViewItem", index, numberOfTabViewItems() + 1);
    if (item.tabView())
        return;
    Ref<NSTabView> const protector(this);
    Ref<NSTabViewItem> const added(item);
    m_items.insert(m_items.begin() + index, added);
    item.setTabView(Badge<NSTabView> {}, this);
    setState(item, NSBackgroundTab);
    tabsChanged();
    if (!m_selected)
        selectTabViewItem(added.get());
    m_hooks.tabViewDidChangeNumberOfTabViewItems(*this);
}

void NSTabView::removeTabViewItem(NSTabViewItem& item)
{
    long const index = indexOfTabViewItem(item);
    if (index == NSNotFound)
        return;
    Ref<NSTabView> const protector(this);
    Ref<NSTabViewItem> const removed(item);
    bool const wasSelected = removed == m_selected;
    bool const hadKeyboard = wasSelected && paneHasKeyboard();
    if (wasSelected)
        showItem(nullptr);
    m_items.erase(m_items.begin() + index);
    item.setTabView(Badge<NSTabView> {}, nullptr);
    item.setTabState(Badge<NSTabView> {}, NSBackgroundTab);
    tabsChanged();
    if (wasSelected && !m_items.empty())
        selectTabViewItem(m_items[static_cast<std::size_t>(std::min(index, numberOfTabViewItems() - 1))].get());
    if (hadKeyboard && !paneHasKeyboard())
        giveKeyboardToPane();
    m_hooks.tabViewDidChangeNumberOfTabViewItems(*this);
}

// MARK: selection

void NSTabView::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_hooks = source.hooks<NSTabViewDelegate>();
}

long NSTabView::selectedIndex() const
{
    return m_selected ? indexOfTabViewItem(*m_selected) : -1;
}

void NSTabView::selectTabViewItem(NSTabViewItem* item)
{
    if (!item || item == m_selected || !holds(*item))
        return;
    Ref<NSTabView> const protector(this);
    Ref<NSTabViewItem> const wanted(item);
    if (m_hooks.shouldSelectTabViewItem && !m_hooks.shouldSelectTabViewItem(*this, *wanted))
        return;
    bool const hadKeyboard = paneHasKeyboard();
    if (hadKeyboard && !window()->makeFirstResponder(nullptr))
        return;
    m_hooks.willSelectTabViewItem(*this, *wanted);
    // The hook may have selected another, or taken this one away.
    bool const isWanted = wanted != m_selected && holds(*wanted);
    if (isWanted)
        showItem(wanted.get());
    if (hadKeyboard)
        giveKeyboardToPane();
    if (isWanted)
        m_hooks.didSelectTabViewItem(*this, *wanted);
}

void NSTabView::selectTabViewItemAtIndex(long index)
{
    selectTabViewItem(tabViewItemAtIndex(index));
}

void NSTabView::selectTabViewItemWithIdentifier(ObjectValue const& identifier)
{
    selectTabViewItemAtIndex(indexOfTabViewItemWithIdentifier(identifier));
}

void NSTabView::selectFirstTabViewItem(NSObject*)
{
    if (!m_items.empty())
        selectTabViewItemAtIndex(0);
}

void NSTabView::selectLastTabViewItem(NSObject*)
{
    if (!m_items.empty())
        selectTabViewItemAtIndex(numberOfTabViewItems() - 1);
}

void NSTabView::selectNextTabViewItem(NSObject*)
{
    selectBeside(1, AtTheEnd::stays);
}

void NSTabView::selectPreviousTabViewItem(NSObject*)
{
    selectBeside(-1, AtTheEnd::stays);
}

void NSTabView::selectBeside(long step, AtTheEnd atTheEnd)
{
    long const count = numberOfTabViewItems();
    long next = m_selected ? selectedIndex() + step : step > 0 ? 0 : count - 1;
    if (count > 0 && atTheEnd == AtTheEnd::wrapsAround)
        next = (next + count) % count;
    if (next >= 0 && next < count)
        selectTabViewItemAtIndex(next);
}

void NSTabView::takeSelectedTabViewItemFromSender(NSObject* sender)
{
    long index = -1;
    if (auto const* button = dynamic_cast<NSPopUpButton*>(sender))
        index = button->indexOfSelectedItem();
    else if (auto const* box = dynamic_cast<NSComboBox*>(sender))
        index = box->indexOfSelectedItem();
    else if (auto const* segments = dynamic_cast<NSSegmentedControl*>(sender))
        index = segments->selectedSegment();
    if (index >= 0 && index < numberOfTabViewItems())
        selectTabViewItemAtIndex(index);
}

void NSTabView::setState(NSTabViewItem& item, NSTabState state)
{
    if (item.tabState() == state)
        return;
    item.setTabState(Badge<NSTabView> {}, state);
    marksTab(&item);
}

// MARK: panes

NSView* NSTabView::pane() const
{
    auto* const view = m_selected ? m_selected->view() : nullptr;
    return view && view->superview() == this ? view : nullptr;
}

void NSTabView::showItem(NSTabViewItem* item)
{
    Ref<NSTabViewItem> const shown(item);
    if (auto* const before = pane(); before && !(item && item->view() == before))
        before->removeFromSuperview();
    if (m_selected)
        setState(*m_selected, NSBackgroundTab);
    m_selected = shown;
    if (shown) {
        setState(*shown, NSSelectedTab);
        showPane();
    }
    // Which tabs are in the menu goes by what is selected.
    tabsChanged();
}

void NSTabView::showPane()
{
    Ref<NSView> const view(m_selected ? m_selected->view() : nullptr);
    if (!view || view->superview() == this || isDescendantOf(*view))
        return;
    view->setFrame(contentRect());
    addSubview(*view);
}

void NSTabView::paneChanged(Badge<NSTabViewItem>, NSTabViewItem& item, Ref<NSView> const& before)
{
    if (&item != m_selected)
        return;
    Ref<NSTabView> const protector(this);
    bool const wasShown = before && before->superview() == this;
    bool const hadKeyboard = wasShown && keyboardIsIn(*before);
    if (wasShown) {
        removePaneFromKeyViewLoop(*before);
        before->removeFromSuperview();
    }
    showPane();
    if (hadKeyboard)
        giveKeyboardToPane();
}

void NSTabView::placePane()
{
    if (auto* const shown = pane())
        shown->setFrame(contentRect());
}

void NSTabView::didAddSubview(NSView& view)
{
    Base::didAddSubview(view);
    if (&view != pane())
        return;
    placePane();
    // Where nobody has made a loop yet, the window will, with all that is there then.
    if (m_isInKeyViewLoop || nextKeyView() || previousKeyView())
        insertInKeyViewLoop(*this, view, m_selected->initialFirstResponder());
}

void NSTabView::willRemoveSubview(NSView& view)
{
    if (&view == pane())
        removePaneFromKeyViewLoop(view);
    Base::willRemoveSubview(view);
}

void NSTabView::removePaneFromKeyViewLoop(NSView& view)
{
    m_isInKeyViewLoop |= removeFromKeyViewLoop(*this, view);
}

void NSTabView::resizeSubviewsWithOldSize(Size oldSize)
{
    Ref<NSTabView> const protector(this);
    for (auto const& view : std::vector(subviews())) {
        if (view == pane())
            placePane();
        else if (view->superview() == this)
            view->resizeWithOldSuperviewSize(oldSize);
    }
}

bool NSTabView::keyboardIsIn(NSView const& view) const
{
    auto const* responder = window() ? dynamic_cast<NSView*>(window()->firstResponder()) : nullptr;
    return responder && responder->isDescendantOf(view);
}

bool NSTabView::paneHasKeyboard() const
{
    auto const* shown = pane();
    return shown && keyboardIsIn(*shown);
}

void NSTabView::giveKeyboardToPane()
{
    Ref<NSWindow> const ownWindow(window());
    if (!ownWindow)
        return;
    if (Ref<NSView> const shown { pane() }) {
        auto views = viewsInReadingOrder(*shown);
        views.insert(views.begin(), shown.get());
        if (auto* const first = m_selected->initialFirstResponder(); first && first->isDescendantOf(*shown))
            views.insert(views.begin(), first);
        auto const next = std::ranges::find_if(views, [](auto const* view) { return view->canBecomeKeyView(); });
        if (next != views.end()) {
            ownWindow->makeFirstResponder(*next);
            return;
        }
    }
    if (canBecomeKeyView())
        ownWindow->makeFirstResponder(this);
}

}
