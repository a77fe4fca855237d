#include <plix/platform/appkit/NSMenuItem.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindowController.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>

namespace plix {

namespace {

NSWindow* windowOf(NSObject* target)
{
    if (auto const* view = dynamic_cast<NSView*>(target))
        return view->window();
    if (auto const* cell = dynamic_cast<NSCell*>(target))
        return cell->controlView() ? cell->controlView()->window() : nullptr;
    if (auto* controller = dynamic_cast<NSWindowController*>(target))
        return controller->isWindowLoaded() ? controller->window() : nullptr;
    return dynamic_cast<NSWindow*>(target);
}

// The main menu's keys come from whatever window is key: one that is modal must not reach those behind it through them. Other
// menus open in a window of their own, which is blocked itself.
bool isKeptFrom(NSObject* target, NSMenu const* menu)
{
    auto const* const window = windowOf(target);
    if (!window || !menu || !NSApp || !NSApp->internals().isBlocked(*window))
        return false;
    while (menu->supermenu())
        menu = menu->supermenu();
    return menu == NSApp->mainMenu();
}

}

PLIX_DESCRIBE(NSMenuItem)
{
}

NSMenuItem::NSMenuItem()
    : m_keyEquivalentModifierMask(NSCommandKeyMask)
{
}

NSMenuItem::~NSMenuItem()
{
    if (m_submenu)
        m_submenu->setSupermenu(nullptr);
}

bool NSMenuItem::init()
{
    return true;
}

bool NSMenuItem::init(std::string_view title, Selector action, std::string_view keyEquivalent)
{
    m_title = validUTF8(title);
    m_action = action;
    m_keyEquivalent = validUTF8(keyEquivalent);
    return true;
}

bool NSMenuItem::init(NSCoder& coder)
{
    if (!NSMenuItem::init())
        return false;
    coder.read("separator", [&](ObjectValue const& value) { m_isSeparator = value.boolValue(); });
    coder.read("title", [&](ObjectValue const& value) { m_title = value.description(); });
    coder.read("attributedTitle", [&](ObjectValue const& value) { setAttributedTitle(value.as<NSAttributedString>()); });
    coder.read("image", [&](ObjectValue const& value) { setImage(value.as<NSImage>()); });
    coder.read("toolTip", [&](ObjectValue const& value) { m_toolTip = value.description(); });
    coder.read("indentationLevel", [&](ObjectValue const& value) { setIndentationLevel(value.intValue()); });
    coder.read("state", [&](ObjectValue const& value) { m_state = value.intValue(); });
    coder.read("enabled", [&](ObjectValue const& value) { m_isEnabled = value.boolValue(); });
    coder.read("hidden", [&](ObjectValue const& value) { m_isHidden = value.boolValue(); });
    coder.read("tag", [&](ObjectValue const& value) { m_tag = value.intValue(); });
    coder.read("representedObject", [&](ObjectValue const& value) { m_representedObject = value; });
    coder.read("submenu", [&](ObjectValue const& value) { setSubmenu(value.as<NSMenu>()); });
    coder.read("keyEquivalent", [&](ObjectValue const& value) { m_keyEquivalent = value.description(); });
    coder.read("keyEquivalentModifierMask",
        [&](ObjectValue const& value) { m_keyEquivalentModifierMask = static_cast<unsigned>(value.integerValue()); });
    coder.read("action", [&](ObjectValue const& value) { m_action = Selector(value.description()); });
    return true;
}

void NSMenuItem::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_isSeparator, "separator");
    coder.encodeObject(m_title, "title");
    coder.encodeObject(Ref<NSAttributedString>(attributedTitle()), "attributedTitle");
    coder.encodeObject(Ref<NSImage>(image()), "image");
    coder.encodeObject(m_toolTip, "toolTip");
    coder.encodeInt(m_indentationLevel, "indentationLevel");
    coder.encodeInt(m_state, "state");
    coder.encodeBool(m_isEnabled, "enabled");
    coder.encodeBool(m_isHidden, "hidden");
    coder.encodeInt(m_tag, "tag");
    coder.encodeObject(m_representedObject, "representedObject");
    coder.encodeObject(m_submenu, "submenu");
    coder.encodeObject(m_keyEquivalent, "keyEquivalent");
    coder.encodeInt(m_keyEquivalentModifierMask, "keyEquivalentModifierMask");
    coder.encodeObject(m_action.name(), "action");
}

Ref<NSMenuItem> NSMenuItem::separatorItem()
{
    auto item = make<NSMenuItem>();
    item->m_isSeparator = true;
    item->m_isEnabled = false;
    return item;
}

void NSMenuItem::changed()
{
    if (m_menu)
        m_menu->itemChanged(*this);
}

void NSMenuItem::setTitle(std::string_view title)
{
    if (m_title == title && !m_attributedTitle)
        return;
    m_title = validUTF8(title);
    m_attributedTitle = nullptr;
    changed();
}

NSAttributedString* NSMenuItem::attributedTitle() const
{
    return m_attributedTitle.get();
}

void NSMenuItem::setAttributedTitle(Ref<NSAttributedString> const& title)
{
    m_attributedTitle = title;
    if (title)
        m_title = title->string();
    changed();
}

NSImage* NSMenuItem::image() const
{
    return m_image.get();
}

void NSMenuItem::setImage(Ref<NSImage> const& image)
{
    if (m_image == image)
        return;
    m_image = image;
    changed();
}

void NSMenuItem::setIndentationLevel(int level)
{
    m_indentationLevel = std::clamp(level, 0, 15);
    changed();
}

void NSMenuItem::setState(int state)
{
    int const wanted = state > 0 ? NSOnState : state < 0 ? NSMixedState : NSOffState;
    if (m_state == wanted)
        return;
    m_state = wanted;
    changed();
}

void NSMenuItem::setEnabled(bool isEnabled)
{
    if (m_isEnabled == isEnabled)
        return;
    m_isEnabled = isEnabled;
    changed();
}

void NSMenuItem::setHidden(bool isHidden)
{
    if (m_isHidden == isHidden)
        return;
    m_isHidden = isHidden;
    changed();
}

NSMenu* NSMenuItem::submenu() const
{
    return m_submenu.get();
}

// A menu that is above itself would never end.
void NSMenuItem::setSubmenu(Ref<NSMenu> const& submenu)
{
    if (m_submenu == submenu)
        return;
    for (auto const* above = m_menu; above; above = above->supermenu()) {
        if (above == submenu.get())
            return;
    }
    if (m_submenu)
        m_submenu->setSupermenu(nullptr);
    m_submenu = submenu;
    if (m_submenu)
        m_submenu->setSupermenu(m_menu);
    changed();
}

void NSMenuItem::setKeyEquivalent(std::string_view key)
{
    m_keyEquivalent = validUTF8(key);
    changed();
}

void NSMenuItem::setKeyEquivalentModifierMask(unsigned mask)
{
    m_keyEquivalentModifierMask = mask;
    changed();
}

void NSMenuItem::setTarget(Ref<NSObject> const& target)
{
    m_target = Weak<NSObject>(target);
    m_function = nullptr;
}

void NSMenuItem::setAction(Selector action)
{
    m_action = action;
    m_function = nullptr;
}

void NSMenuItem::setActionFunction(Ref<NSObject> const& target, ActionFunction function)
{
    m_target = Weak<NSObject>(target);
    m_action = {};
    m_function = std::move(function);
}

bool NSMenuItem::sendAction()
{
    Ref<NSMenuItem> const protector(this);
    Ref<NSObject> const target(m_target.get());
    if (isKeptFrom(target.get(), m_menu))
        return false;
    if (m_function) {
        if (m_target.wasSet() && !target)
            return false;
        auto const function = m_function; // the call may set another
        function(this);
        return true;
    }
    if (!m_action || (m_target.wasSet() && !target))
        return false;
    return NSApp && NSApp->sendAction(m_action, target.get(), this);
}

bool NSMenuItem::isValid()
{
    if (m_isSeparator)
        return false;
    if (m_submenu)
        return true;
    if ((m_target.wasSet() && !m_target) || isKeptFrom(m_target.get(), m_menu))
        return false;
    if (m_function) {
        auto* validation = dynamic_cast<NSMenuValidation*>(m_target.get());
        return !validation || validation->validateMenuItem(*this);
    }
    if (!m_action || !NSApp)
        return false;
    Ref<NSObject> const receiver(NSApp->targetForAction(m_action, m_target.get(), this));
    if (!receiver || !receiver->respondsToSelector(m_action))
        return false;
    auto* validation = dynamic_cast<NSMenuValidation*>(receiver.get());
    return !validation || validation->validateMenuItem(*this);
}

void NSMenuItem::copyStateTo(NSObject& fresh) const
{
    Base::copyStateTo(fresh);
    auto& other = static_cast<NSMenuItem&>(fresh);
    other.m_title = m_title;
    other.m_attributedTitle = m_attributedTitle;
    other.m_image = m_image;
    other.m_toolTip = m_toolTip;
    other.m_keyEquivalent = m_keyEquivalent;
    other.m_keyEquivalentModifierMask = m_keyEquivalentModifierMask;
    other.m_indentationLevel = m_indentationLevel;
    other.m_state = m_state;
    other.m_tag = m_tag;
    other.m_representedObject = m_representedObject;
    other.m_target = m_target;
    other.m_action = m_action;
    other.m_function = m_function;
    other.m_isEnabled = m_isEnabled;
    other.m_isSeparator = m_isSeparator;
    other.m_isHidden = m_isHidden;
    if (m_submenu)
        other.m_submenu = m_submenu->copy();
}

}
