#include <plix/controls/PLIXPopUpButton.h>

#include <plix/format/menu_additions.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSCoder.h>

namespace plix {

namespace {

constexpr float gapAboveMenu = 4;

}

PLIX_DESCRIBE(PLIXPopUpButton)
{
    description.hookOutlet("delegate", &PLIXPopUpButton::takeHooks);
}

PLIXPopUpButton::PLIXPopUpButton() = default;
PLIXPopUpButton::~PLIXPopUpButton() = default;

bool PLIXPopUpButton::init()
{
    return PLIXPopUpButton::init(Rect {});
}

bool PLIXPopUpButton::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    initFields();
    return true;
}

bool PLIXPopUpButton::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    initFields();
    return true;
}

void PLIXPopUpButton::initFields()
{
    m_delegate = {};
    auto const menu = make<NSMenu>("Untitled");
    menu->setAutoenablesItems(false);
    setMenu(menu);
    m_selectionIndex = 0;
}

void PLIXPopUpButton::takeHooks(HookSource const& source)
{
    m_delegate = source.hooks<PLIXPopUpButtonDelegate>();
}

// MARK: mouse

void PLIXPopUpButton::mouseDown(NSEvent& event)
{
    if (!isEnabled())
        return;
    Ref<PLIXPopUpButton> const protector(this);
    Ref<NSEvent> const kept(event);
    Ref<NSMenu> const menu(this->menu());
    if (m_delegate.willDisplayMenu && menu)
        m_delegate.willDisplayMenu(*this, *menu);
    highlight(true);
    if (Ref<NSWindow> const ownWindow = window(); ownWindow && superview() && menu) {
        Point const below { frame().x, frame().y - gapAboveMenu };
        auto const place = superview()->convertPointToView(below, ownWindow->contentView());
        auto const opening = NSEvent::mouseEventWithType(event.type(), place, event.modifierFlags(), event.timestamp(),
            event.windowNumber(), event.context(), event.eventNumber() + 1, event.clickCount(), event.pressure());
        if (opening)
            NSMenu::popUpContextMenu(*menu, *opening, this);
    }
    mouseUp(event);
}

void PLIXPopUpButton::mouseUp(NSEvent&)
{
    highlight(false);
}

void PLIXPopUpButton::rightMouseDown(NSEvent&)
{
}

// The space bar and the arrows show the menu as a press does.
void PLIXPopUpButton::keyDown(NSEvent& event)
{
    auto const key = event.characterIgnoringModifiers();
    bool const opens = key == U' ' || key == NSDownArrowFunctionKey || key == NSUpArrowFunctionKey;
    auto const press = opens && window() ? NSEvent::mouseEventWithType(NSLeftMouseDown, convertPointToView({}, nullptr), 0,
                           event.timestamp(), event.windowNumber(), nullptr, 0, 1, 1)
                                         : nullptr;
    if (press)
        mouseDown(*press);
    else
        Base::keyDown(event);
}

// MARK: selection

void PLIXPopUpButton::selectItemAtIndex(long index)
{
    Ref<NSMenu> const menu(this->menu());
    // There is no lower bound; that is meant.
    if (!menu || index > menu->numberOfItems() - 1)
        return;
    Ref<PLIXPopUpButton> const protector(this);
    for (long i = 0; i < menu->numberOfItems(); ++i)
        menu->itemAtIndex(i)->setState(NSOffState);
    Ref<NSMenuItem> const item(menu->itemAtIndex(index));
    item->setState(NSOnState);
    setTitle(item->title());
    m_selectionIndex = index;
}

void PLIXPopUpButton::selectItemWithTag(long tag)
{
    auto const* menu = this->menu();
    selectItemAtIndex(menu ? menu->indexOfItemWithTag(tag) : -1);
}

NSMenuItem* PLIXPopUpButton::selectedItem() const
{
    auto const* menu = this->menu();
    return menu ? menu->itemAtIndex(m_selectionIndex) : nullptr;
}

// MARK: items

void PLIXPopUpButton::removeAllItems()
{
    Ref<NSMenu> const menu(this->menu());
    while (menu && menu->numberOfItems() > 0)
        menu->removeItemAtIndex(0);
}

void PLIXPopUpButton::addItem(NSMenuItem* item)
{
    if (auto* menu = this->menu(); menu && item)
        menu->addItem(*item);
}

Ref<NSMenuItem> PLIXPopUpButton::addItemWithTitle(std::optional<std::string_view> title)
{
    auto item = make<NSMenuItem>(title.value_or(""), Selector {}, "");
    addItem(item.get());
    return item;
}

NSMenuItem* PLIXPopUpButton::lastItem() const
{
    auto const* menu = this->menu();
    return menu ? plix::lastItem(*menu) : nullptr;
}

}
