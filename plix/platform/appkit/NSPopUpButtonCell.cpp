#include <plix/platform/appkit/NSPopUpButtonCell.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

constexpr float arrowRoom = 16;

}

PLIX_DESCRIBE(NSPopUpButtonCell)
{
}

NSPopUpButtonCell::NSPopUpButtonCell() = default;
NSPopUpButtonCell::~NSPopUpButtonCell() = default;

bool NSPopUpButtonCell::init()
{
    return NSPopUpButtonCell::init("", false);
}

bool NSPopUpButtonCell::init(std::string_view title, bool pullsDown)
{
    if (!Base::init(std::string_view {}))
        return false;
    m_pullsDown = pullsDown;
    setAlignment(NSLeftTextAlignment);
    NSPopUpButtonCell::setMenu(make<NSMenu>());
    if (!title.empty())
        NSPopUpButtonCell::addItemWithTitle(title);
    return true;
}

bool NSPopUpButtonCell::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    NSPopUpButtonCell::setMenu(make<NSMenu>());
    coder.read("menu", [&](ObjectValue const& value) {
        if (auto const items = value.as<NSMenu>())
            NSPopUpButtonCell::setMenu(items);
    });
    coder.read("pullsDown", [&](ObjectValue const& value) { m_pullsDown = value.boolValue(); });
    coder.read(
        "arrowPosition", [&](ObjectValue const& value) { m_arrowPosition = static_cast<NSPopUpArrowPosition>(value.intValue()); });
    coder.read("preferredEdge", [&](ObjectValue const& value) { m_preferredEdge = static_cast<NSRectEdge>(value.intValue()); });
    coder.read("altersStateOfSelectedItem", [&](ObjectValue const& value) { m_altersState = value.boolValue(); });
    coder.read("selectedItem", [&](ObjectValue const& value) { selectItem(itemAtIndex(value.intValue())); });
    return true;
}

void NSPopUpButtonCell::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_menu, "menu");
    coder.encodeBool(m_pullsDown, "pullsDown");
    coder.encodeInt(m_arrowPosition, "arrowPosition");
    coder.encodeInt(m_preferredEdge, "preferredEdge");
    coder.encodeBool(m_altersState, "altersStateOfSelectedItem");
    coder.encodeInt(indexOfSelectedItem(), "selectedItem");
}

NSMenu* NSPopUpButtonCell::menu() const
{
    return m_menu.get();
}

void NSPopUpButtonCell::setMenu(Ref<NSMenu> const& menu)
{
    if (m_menu == menu)
        return;
    if (m_menu)
        NSNotificationCenter::defaultCenter().removeObserver(*this, {}, m_menu.get());
    m_menu = menu;
    m_selectedItem = Weak<NSMenuItem>();
    m_isEmpty = true;
    watchMenu();
    itemsChanged();
}

void NSPopUpButtonCell::watchMenu()
{
    if (!m_menu)
        return;
    m_menu->setItemsNeedActions(false);
    auto& center = NSNotificationCenter::defaultCenter();
    for (auto const* name : { NSMenuDidAddItemNotification, NSMenuDidRemoveItemNotification, NSMenuDidChangeItemNotification })
        center.addObserver(*this, &NSPopUpButtonCell::itemsChanged, name, m_menu.get());
}

// Something is selected as soon as there is something, and again when the selected item is gone; whoever selects nothing keeps
// that.
void NSPopUpButtonCell::itemsChanged()
{
    bool const wasEmpty = std::exchange(m_isEmpty, numberOfItems() == 0);
    bool const isGone = m_selectedItem.wasSet() && !selectedItem();
    if (isGone)
        m_selectedItem = Weak<NSMenuItem>();
    if (!m_pullsDown && (wasEmpty || isGone)) {
        auto const& items = itemArray();
        auto const first = std::ranges::find_if(items, [](auto const& item) { return !item->isSeparatorItem(); });
        if (first != items.end()) {
            selectItem(first->get());
            return;
        }
    }
    showTitle();
}

void NSPopUpButtonCell::showTitle()
{
    auto const* item = m_pullsDown ? itemAtIndex(0) : selectedItem();
    Base::setTitle(item ? item->title() : "");
    Base::setImage(item ? Ref<NSImage>(item->image()) : nullptr);
    setImagePosition(item && item->image() ? NSImageLeft : NSNoImage);
}

void NSPopUpButtonCell::setPullsDown(bool pullsDown)
{
    if (m_pullsDown == pullsDown)
        return;
    m_pullsDown = pullsDown;
    if (auto* item = m_selectedItem.get(); item && m_altersState && pullsDown)
        item->setState(NSOffState);
    itemsChanged();
}

bool NSPopUpButtonCell::autoenablesItems() const
{
    return m_menu && m_menu->autoenablesItems();
}

void NSPopUpButtonCell::setAutoenablesItems(bool enables)
{
    if (m_menu)
        m_menu->setAutoenablesItems(enables);
}

void NSPopUpButtonCell::setArrowPosition(NSPopUpArrowPosition position)
{
    if (m_arrowPosition == position)
        return;
    m_arrowPosition = position;
    looksChanged();
}

void NSPopUpButtonCell::setAltersStateOfSelectedItem(bool alters)
{
    if (m_altersState == alters)
        return;
    m_altersState = alters;
    if (auto* item = m_selectedItem.get())
        item->setState(alters && !m_pullsDown ? NSOnState : NSOffState);
}

// MARK: items

void NSPopUpButtonCell::addItemWithTitle(std::string_view title)
{
    insertItemWithTitle(title, numberOfItems());
}

void NSPopUpButtonCell::addItemsWithTitles(std::vector<std::string> const& titles)
{
    for (auto const& title : titles)
        addItemWithTitle(title);
}

void NSPopUpButtonCell::insertItemWithTitle(std::string_view title, long index)
{
    if (!m_menu)
        return;
    if (long const old = indexOfItemWithTitle(title); old >= 0) {
        m_menu->removeItemAtIndex(old);
        index = std::min(index, numberOfItems());
    }
    m_menu->insertItemWithTitle(title, {}, "", index);
}

void NSPopUpButtonCell::removeItemWithTitle(std::string_view title)
{
    if (long const index = indexOfItemWithTitle(title); index >= 0)
        m_menu->removeItemAtIndex(index);
}

void NSPopUpButtonCell::removeItemAtIndex(long index)
{
    if (m_menu)
        m_menu->removeItemAtIndex(index);
}

void NSPopUpButtonCell::removeAllItems()
{
    while (m_menu && m_menu->numberOfItems() > 0)
        m_menu->removeItemAtIndex(m_menu->numberOfItems() - 1);
}

std::vector<Ref<NSMenuItem>> const& NSPopUpButtonCell::itemArray() const
{
    static std::vector<Ref<NSMenuItem>> const s_none;
    return m_menu ? m_menu->itemArray() : s_none;
}

long NSPopUpButtonCell::numberOfItems() const
{
    return m_menu ? m_menu->numberOfItems() : 0;
}

long NSPopUpButtonCell::indexOfItem(NSMenuItem const* item) const
{
    return m_menu && item ? m_menu->indexOfItem(*item) : -1;
}

long NSPopUpButtonCell::indexOfItemWithTitle(std::string_view title) const
{
    return m_menu ? m_menu->indexOfItemWithTitle(title) : -1;
}

long NSPopUpButtonCell::indexOfItemWithTag(long tag) const
{
    return m_menu ? m_menu->indexOfItemWithTag(tag) : -1;
}

long NSPopUpButtonCell::indexOfItemWithRepresentedObject(ObjectValue const& object) const
{
    return m_menu ? m_menu->indexOfItemWithRepresentedObject(object) : -1;
}

long NSPopUpButtonCell::indexOfItemWithTarget(NSObject const* target, Selector action) const
{
    return m_menu ? m_menu->indexOfItemWithTarget(target, action) : -1;
}

NSMenuItem* NSPopUpButtonCell::itemAtIndex(long index) const
{
    return index < 0 || index >= numberOfItems() ? nullptr : m_menu->itemAtIndex(index);
}

NSMenuItem* NSPopUpButtonCell::itemWithTitle(std::string_view title) const
{
    return itemAtIndex(indexOfItemWithTitle(title));
}

NSMenuItem* NSPopUpButtonCell::lastItem() const
{
    return itemAtIndex(numberOfItems() - 1);
}

std::vector<std::string> NSPopUpButtonCell::itemTitles() const
{
    std::vector<std::string> titles;
    for (auto const& item : itemArray())
        titles.push_back(item->title());
    return titles;
}

std::string NSPopUpButtonCell::itemTitleAtIndex(long index) const
{
    auto const* item = itemAtIndex(index);
    return item ? item->title() : "";
}

// MARK: selection

NSMenuItem* NSPopUpButtonCell::selectedItem() const
{
    auto* item = m_selectedItem.get();
    return item && item->menu() == m_menu.get() ? item : nullptr;
}

long NSPopUpButtonCell::indexOfSelectedItem() const
{
    return indexOfItem(selectedItem());
}

std::string NSPopUpButtonCell::titleOfSelectedItem() const
{
    auto const* item = selectedItem();
    return item ? item->title() : "";
}

void NSPopUpButtonCell::selectItem(NSMenuItem* item)
{
    if (item && item->menu() != m_menu.get())
        return;
    Ref<NSMenuItem> const before(m_selectedItem.get());
    m_selectedItem = item ? Weak<NSMenuItem>(*item) : Weak<NSMenuItem>();
    bool const marks = m_altersState && !m_pullsDown;
    if (before && before.get() != item && marks)
        before->setState(NSOffState);
    if (item && marks)
        item->setState(NSOnState);
    showTitle();
}

void NSPopUpButtonCell::selectItemAtIndex(long index)
{
    if (index >= numberOfItems())
        raiseRangeException("NSPopUpButtonCell selectItemAtIndex", index, numberOfItems());
    selectItem(itemAtIndex(index));
}

void NSPopUpButtonCell::selectItemWithTitle(std::string_view title)
{
    selectItem(itemWithTitle(title));
}

void NSPopUpButtonCell::setTitle(std::string_view title)
{
    if (!m_menu)
        return;
    if (m_pullsDown) {
        if (auto* first = itemAtIndex(0))
            first->setTitle(title);
        else
            addItemWithTitle(title);
        return;
    }
    if (indexOfItemWithTitle(title) < 0)
        addItemWithTitle(title);
    selectItemWithTitle(title);
}

void NSPopUpButtonCell::synchronizeTitleAndSelectedItem()
{
    showTitle();
}

ObjectValue const& NSPopUpButtonCell::objectValue() const
{
    m_indexValue = indexOfSelectedItem();
    return m_indexValue;
}

void NSPopUpButtonCell::setObjectValue(ObjectValue value)
{
    long const index = value.isNil() ? -1 : value.intValue();
    selectItem(itemAtIndex(index));
}

// MARK: showing the menu

void NSPopUpButtonCell::attachPopUpWithFrame(Rect frame, NSView& controlView, NSEvent* event)
{
    Ref<NSMenu> const menu = m_menu;
    if (!menu || menu->numberOfItems() == 0)
        return;
    Ref<NSPopUpButtonCell> const protector(this);
    Ref<NSView> const view(controlView);
    Ref<NSMenuItem> const title = m_pullsDown ? itemAtIndex(0) : nullptr;
    // The item that is the title of a pull-down button is not offered.
    if (title)
        title->setHidden(true);
    auto const chosen
        = m_pullsDown ? menu->popUpBelow(*view, frame, event) : menu->popUpCovering(*view, frame, selectedItem(), event);
    if (title)
        title->setHidden(false);
    if (chosen)
        choose(*chosen);
}

void NSPopUpButtonCell::choose(NSMenuItem& chosen)
{
    Ref<NSMenuItem> const item(chosen);
    if (item->menu() == m_menu.get())
        selectItem(item.get());
    if (item->hasAction())
        item->sendAction();
    else
        sendAction();
}

void NSPopUpButtonCell::dismissPopUp()
{
    if (m_menu)
        m_menu->cancelTracking();
}

bool NSPopUpButtonCell::trackMouse(NSEvent& event, Rect frame, NSView& controlView, bool)
{
    setControlView(&controlView);
    if (!isEnabled())
        return true;
    attachPopUpWithFrame(frame, controlView, &event);
    return true;
}

void NSPopUpButtonCell::performClick(NSObject*)
{
    auto* view = controlView();
    if (!isEnabled() || !view)
        return;
    Ref<NSPopUpButtonCell> const protector(this);
    Ref<NSView> const kept(view);
    highlight(true, kept->bounds(), *kept);
    attachPopUpWithFrame(kept->bounds(), *kept, nullptr);
    highlight(false, kept->bounds(), *kept);
}

// MARK: drawing

CellInsets NSPopUpButtonCell::contentInsets() const
{
    auto insets = Base::contentInsets();
    insets.left = std::min(insets.left, 10.F);
    if (m_arrowPosition != NSPopUpNoArrow)
        insets.right = arrowRoom + 6;
    return insets;
}

// As wide as its widest item.
Size NSPopUpButtonCell::cellSizeForBounds(Rect bounds) const
{
    auto size = Base::cellSizeForBounds(bounds);
    auto const insets = contentInsets();
    auto const textFont = font() ? Ref<NSFont>(font()) : NSFont::systemFontOfSize(0);
    for (auto const& item : itemArray()) {
        float const image = item->image() ? item->image()->size().width + 4 : 0;
        size.width
            = std::max(size.width, std::ceil(widthOfTextLine(item->title(), *textFont)) + image + insets.left + insets.right);
        if (m_pullsDown)
            break;
    }
    return { std::min(size.width, std::max(0.F, bounds.width)), size.height };
}

void NSPopUpButtonCell::drawBezelWithFrame(Rect frame, NSView& controlView)
{
    Base::drawBezelWithFrame(frame, controlView);
    if (m_arrowPosition == NSPopUpNoArrow)
        return;
    ButtonLook const look { .control = buttonLook(controlView), .style = bezelStyle() };
    auto const& theme = Theme::current();
    theme.drawPopUpArrows({ frame.maxX() - arrowRoom - 4, frame.y, arrowRoom, frame.height },
        m_pullsDown || m_arrowPosition == NSPopUpArrowAtBottom, theme.buttonTextColor(look));
}

void NSPopUpButtonCell::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSPopUpButtonCell&>(fresh);
    other.m_arrowPosition = m_arrowPosition;
    other.m_preferredEdge = m_preferredEdge;
    other.m_pullsDown = m_pullsDown;
    other.m_altersState = m_altersState;
    if (!m_menu)
        return;
    other.m_menu = m_menu->copy();
    other.m_selectedItem = Weak<NSMenuItem>(other.itemAtIndex(indexOfSelectedItem()));
    other.watchMenu();
}

}
