#include <plix/platform/appkit/NSMenu.h>

#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/key_equivalent.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSMenu)
{
    description.hookOutlet("delegate", &NSMenu::takeHooks);
}

NSMenu::NSMenu() = default;

NSMenu::~NSMenu()
{
    for (auto const& item : m_items) {
        item->setMenu(nullptr);
        if (auto* submenu = item->submenu())
            submenu->setSupermenu(nullptr);
    }
}

bool NSMenu::init()
{
    return NSMenu::init("");
}

bool NSMenu::init(std::string_view title)
{
    m_title = validUTF8(title);
    return true;
}

bool NSMenu::init(NSCoder& coder)
{
    if (!NSMenu::init())
        return false;
    coder.read("title", [&](ObjectValue const& value) { m_title = value.description(); });
    coder.read("autoenablesItems", [&](ObjectValue const& value) { m_autoenablesItems = value.boolValue(); });
    coder.read("font", [&](ObjectValue const& value) { setFont(value.as<NSFont>()); });
    auto const items = coder.decodeObjectForKey("items");
    for (auto const& value : items.array() ? *items.array() : ObjectValue::Array {}) {
        if (auto const item = value.as<NSMenuItem>())
            NSMenu::insertItem(*item, numberOfItems());
    }
    return true;
}

void NSMenu::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_title, "title");
    coder.encodeBool(m_autoenablesItems, "autoenablesItems");
    coder.encodeObject(Ref<NSFont>(font()), "font");
    ObjectValue::Array items;
    for (auto const& item : m_items)
        items.emplace_back(item);
    coder.encodeObject(std::move(items), "items");
}

void NSMenu::setTitle(std::string_view title)
{
    m_title = validUTF8(title);
}

void NSMenu::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_delegateHooks = source.hooks<NSMenuDelegate>();
}

// MARK: items

NSMenuItem* NSMenu::itemAtIndex(long index) const
{
    if (index < 0 || index >= numberOfItems())
        raiseRangeException("NSMenu itemAtIndex", index, numberOfItems());
    return m_items[static_cast<std::size_t>(index)].get();
}

template <typename Matches> static long indexOf(std::vector<Ref<NSMenuItem>> const& items, Matches matches)
{
    auto const place = std::ranges::find_if(items, [&](auto const& item) { return matches(*item); });
    return place == items.end() ? -1 : place - items.begin();
}

long NSMenu::indexOfItem(NSMenuItem const& item) const
{
    return indexOf(m_items, [&](auto const& each) { return &each == &item; });
}

long NSMenu::indexOfItemWithTitle(std::string_view title) const
{
    return indexOf(m_items, [&](auto const& item) { return item.title() == title; });
}

long NSMenu::indexOfItemWithTag(long tag) const
{
    return indexOf(m_items, [&](auto const& item) { return item.tag() == tag; });
}

long NSMenu::indexOfItemWithRepresentedObject(ObjectValue const& object) const
{
    return indexOf(m_items, [&](auto const& item) { return item.representedObject() == object; });
}

long NSMenu::indexOfItemWithSubmenu(NSMenu const* submenu) const
{
    return indexOf(m_items, [&](auto const& item) { return item.submenu() == submenu; });
}

long NSMenu::indexOfItemWithTarget(NSObject const* target, Selector action) const
{
    return indexOf(m_items, [&](auto const& item) { return item.target() == target && (!action || item.action() == action); });
}

NSMenuItem* NSMenu::itemWithTitle(std::string_view title) const
{
    long const index = indexOfItemWithTitle(title);
    return index < 0 ? nullptr : itemAtIndex(index);
}

NSMenuItem* NSMenu::itemWithTag(long tag) const
{
    long const index = indexOfItemWithTag(tag);
    return index < 0 ? nullptr : itemAtIndex(index);
}

void NSMenu::insertItem(NSMenuItem& item, long index)
{
    if (index < 0 || index > numberOfItems())
        raiseRangeException("NSMenu insertItem", index, numberOfItems());
    if (item.menu())
        return;
    m_items.insert(m_items.begin() + index, Ref<NSMenuItem>(item));
    item.setMenu(this);
    if (auto* submenu = item.submenu())
        submenu->setSupermenu(this);
    tell(NSMenuDidAddItemNotification, index);
}

void NSMenu::tell(char const* notification, long index)
{
    Ref<NSMenu> const protector(this);
    MenuTracker::menuChanged(*this);
    NSNotificationCenter::defaultCenter().postNotificationName(notification, protector, { { "NSMenuItemIndex", index } });
}

void NSMenu::addItem(NSMenuItem& item)
{
    insertItem(item, numberOfItems());
}

Ref<NSMenuItem> NSMenu::insertItemWithTitle(std::string_view title, Selector action, std::string_view keyEquivalent, long index)
{
    auto item = make<NSMenuItem>(title, action, keyEquivalent);
    insertItem(*item, index);
    return item;
}

Ref<NSMenuItem> NSMenu::addItemWithTitle(std::string_view title, Selector action, std::string_view keyEquivalent)
{
    return insertItemWithTitle(title, action, keyEquivalent, numberOfItems());
}

void NSMenu::removeItemAtIndex(long index)
{
    Ref<NSMenuItem> const item(itemAtIndex(index));
    m_items.erase(m_items.begin() + index);
    item->setMenu(nullptr);
    if (auto* submenu = item->submenu())
        submenu->setSupermenu(nullptr);
    tell(NSMenuDidRemoveItemNotification, index);
}

void NSMenu::removeItem(NSMenuItem& item)
{
    long const index = indexOfItem(item);
    if (index >= 0)
        removeItemAtIndex(index);
}

void NSMenu::setSubmenu(Ref<NSMenu> const& submenu, NSMenuItem& item)
{
    item.setSubmenu(submenu);
}

void NSMenu::itemChanged(NSMenuItem& item)
{
    tell(NSMenuDidChangeItemNotification, indexOfItem(item));
}

// MARK: enabling and choosing

void NSMenu::update()
{
    Ref<NSMenu> const protector(this);
    if (m_delegateHooks.menuNeedsUpdate)
        m_delegateHooks.menuNeedsUpdate(*this);
    if (!m_autoenablesItems)
        return;
    auto const items = m_items;
    for (auto const& item : items) {
        bool const isValid
            = item->hasAction() || item->hasSubmenu() || m_itemsNeedActions ? item->isValid() : !item->isSeparatorItem();
        if (item->menu() == this)
            item->setEnabled(isValid);
    }
}

bool NSMenu::performKeyEquivalent(NSEvent& event)
{
    Ref<NSMenu> const protector(this);
    update();
    auto const items = m_items;
    for (auto const& item : items) {
        if (Ref<NSMenu> const submenu(item->submenu()); submenu && submenu->performKeyEquivalent(event))
            return true;
        if (item->menu() != this || !item->isEnabled() || item->isSeparatorItem() || item->hasSubmenu())
            continue;
        if (isKeyEquivalent(event, item->keyEquivalent(), item->keyEquivalentModifierMask())) {
            performActionForItemAtIndex(indexOfItem(*item));
            return true;
        }
    }
    return false;
}

void NSMenu::performActionForItemAtIndex(long index)
{
    Ref<NSMenu> const protector(this);
    Ref<NSMenuItem> const item(itemAtIndex(index));
    if (item->isEnabled() && !item->isSeparatorItem())
        item->sendAction();
}

// MARK: showing

void NSMenu::popUpContextMenu(NSMenu& menu, NSEvent& event, NSView* forView)
{
    popUpContextMenu(menu, event, forView, nullptr);
}

void NSMenu::popUpContextMenu(NSMenu& menu, NSEvent& event, NSView* forView, NSFont* font)
{
    MenuTracker::trackAtEvent(menu, event, forView, font);
}

Ref<NSMenuItem> NSMenu::popUpCovering(NSView& view, Rect rect, NSMenuItem* item, NSEvent* event)
{
    return MenuTracker::trackCovering(*this, view, rect, item, event);
}

Ref<NSMenuItem> NSMenu::popUpBelow(NSView& view, Rect rect, NSEvent* event)
{
    return MenuTracker::trackBelow(*this, view, rect, event);
}

void NSMenu::cancelTracking()
{
    MenuTracker::cancel(*this);
}

bool NSMenu::isTracking() const
{
    return MenuTracker::isOpen(*this);
}

NSMenuItem* NSMenu::highlightedItem() const
{
    return MenuTracker::highlightedItem(*this);
}

Size NSMenu::size()
{
    return MenuView::layoutOfMenu(*this, 0).size;
}

NSFont* NSMenu::font() const
{
    return m_font.get();
}

void NSMenu::setFont(Ref<NSFont> const& font)
{
    m_font = font;
    MenuTracker::menuChanged(*this);
}

void NSMenu::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSMenu&>(fresh);
    other.m_title = m_title;
    other.m_font = m_font;
    other.m_delegate = m_delegate;
    other.m_delegateHooks = m_delegateHooks;
    other.m_autoenablesItems = m_autoenablesItems;
    other.m_itemsNeedActions = m_itemsNeedActions;
    for (auto const& item : m_items) {
        auto const copied = item->copy();
        other.m_items.push_back(copied);
        copied->setMenu(&other);
        if (auto* submenu = copied->submenu())
            submenu->setSupermenu(&other);
    }
}

}
