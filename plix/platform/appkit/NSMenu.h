#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/appkit/NSMenuDelegate.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/Selector.h>
#include <plix/platform/graphics/geometry.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A list of items, shown in a window of its own while a person chooses one. Indexes outside raise NSRangeException.
class PLIX_EXPORT NSMenu : public NSObject {
    PLIX_CLASS(NSMenu, NSObject);

public:
    NSMenu();
    ~NSMenu() override;
    bool init();
    bool init(std::string_view title);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // What a submenu's item and a pop-up button show in its place.
    std::string const& title() const { return m_title; }
    void setTitle(std::string_view);
    /// The menu that this is a submenu of, or null.
    NSMenu* supermenu() const { return m_supermenu; }
    /// For items.
    void setSupermenu(NSMenu* menu) { m_supermenu = menu; }

    // Items.
    std::vector<Ref<NSMenuItem>> const& itemArray() const { return m_items; }
    long numberOfItems() const { return static_cast<long>(m_items.size()); }
    NSMenuItem* itemAtIndex(long index) const;
    /// The first one; null where there is none.
    NSMenuItem* itemWithTitle(std::string_view) const;
    NSMenuItem* itemWithTag(long tag) const;
    // NSMenu's own -1 where there is none:
    long indexOfItem(NSMenuItem const&) const;
    long indexOfItemWithTitle(std::string_view) const;
    long indexOfItemWithTag(long tag) const;
    long indexOfItemWithRepresentedObject(ObjectValue const&) const;
    long indexOfItemWithSubmenu(NSMenu const*) const;
    long indexOfItemWithTarget(NSObject const* target, Selector action) const;
    /// An item that is in another menu, or here already, is refused.
    virtual void insertItem(NSMenuItem&, long index);
    void addItem(NSMenuItem&);
    Ref<NSMenuItem> insertItemWithTitle(std::string_view title, Selector action, std::string_view keyEquivalent, long index);
    Ref<NSMenuItem> addItemWithTitle(std::string_view title, Selector action, std::string_view keyEquivalent);
    virtual void removeItemAtIndex(long index);
    void removeItem(NSMenuItem&);
    void setSubmenu(Ref<NSMenu> const&, NSMenuItem&);
    /// Told by an item that looks different now.
    virtual void itemChanged(NSMenuItem&);

    // Enabling.
    /// Whether update() enables each item that somebody would take, and disables the others. True at first.
    bool autoenablesItems() const { return m_autoenablesItems; }
    void setAutoenablesItems(bool enables) { m_autoenablesItems = enables; }
    /// Whether items without an action are disabled then. True at first; not so in pop-up buttons, which act themselves.
    bool itemsNeedActions() const { return m_itemsNeedActions; }
    void setItemsNeedActions(bool need) { m_itemsNeedActions = need; }
    void update();

    // Choosing.
    /// Presses the item whose key equivalent the event is, here or in a submenu. False where there is none that is enabled.
    bool performKeyEquivalent(NSEvent&);
    virtual void performActionForItemAtIndex(long index);
    /// Shows the menu where the event is and follows mouse and keyboard until an item is chosen, whose action is then sent, or the
    /// menu is dismissed: by a click elsewhere, Escape, or the application losing the keyboard.
    static void popUpContextMenu(NSMenu&, NSEvent&, NSView* forView);
    static void popUpContextMenu(NSMenu&, NSEvent&, NSView* forView, NSFont*);
    /// The same with an item over a rectangle of the view, no narrower than that. Answers the chosen item, whose action is left to
    /// the caller; null where none was.
    Ref<NSMenuItem> popUpCovering(NSView&, Rect, NSMenuItem* item, NSEvent*);
    /// The same below a rectangle of the view.
    Ref<NSMenuItem> popUpBelow(NSView&, Rect, NSEvent*);
    /// Closes the menu, and those above it, without a choice.
    void cancelTracking();
    bool isTracking() const;
    NSMenuItem* highlightedItem() const;
    /// What the menu takes on the screen.
    Size size();
    NSFont* font() const;
    void setFont(Ref<NSFont> const&);

    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSMenuDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }
    NSMenuDelegate const& delegateHooks() const { return m_delegateHooks; }

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    void tell(char const* notification, long index);

    std::string m_title;
    NSMenu* m_supermenu { nullptr };
    std::vector<Ref<NSMenuItem>> m_items;
    Ref<NSFont> m_font;
    HookSource m_delegate;
    NSMenuDelegate m_delegateHooks;
    bool m_autoenablesItems { true };
    bool m_itemsNeedActions { true };
};

// Posted with the menu as object, and the item's place as "NSMenuItemIndex" in the user info.
inline constexpr char const* NSMenuDidAddItemNotification = "NSMenuDidAddItemNotification";
inline constexpr char const* NSMenuDidRemoveItemNotification = "NSMenuDidRemoveItemNotification";
inline constexpr char const* NSMenuDidChangeItemNotification = "NSMenuDidChangeItemNotification";

}
