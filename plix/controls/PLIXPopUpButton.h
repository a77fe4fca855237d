#pragma once

#include <plix/controls/PLIXPopUpButtonDelegate.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/base/HookSource.h>

#include <optional>
#include <string>
#include <string_view>

namespace plix {

class NSMenuItem;

/// A plain button that pops up a menu below itself when it is pressed, and is highlighted as long as that is open. Choosing an item
/// only sends the item's action: whoever wants the choice selected calls selectItemAtIndex() or selectItemWithTag(), which checks
/// the item and makes its title the button's.
class PLIX_EXPORT PLIXPopUpButton : public NSButton {
    PLIX_CLASS(PLIXPopUpButton, NSButton);

public:
    PLIXPopUpButton();
    ~PLIXPopUpButton() override;
    /// With an empty menu called "Untitled", which enables nothing by itself.
    bool init();
    bool init(Rect frame);
    /// With a new empty menu, whatever is archived.
    bool init(NSCoder&);

    /// Held weakly.
    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<PLIXPopUpButtonDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);

    /// Does nothing for an index beyond the last item. A negative one clears every check, then raises NSRangeException; title and
    /// selection stay as they were.
    virtual void selectItemAtIndex(long index);
    /// A tag that no item has counts as the index -1.
    void selectItemWithTag(long tag);
    /// The menu's item at selectedItemIndex(); raises NSRangeException where there is none.
    NSMenuItem* selectedItem() const;
    long selectedItemIndex() const { return m_selectionIndex; }

    /// Selection and title stay as they are.
    void removeAllItems();
    /// Ignores null.
    void addItem(NSMenuItem*);
    /// An item without action; nil gives the title "".
    Ref<NSMenuItem> addItemWithTitle(std::optional<std::string_view> title);
    /// Null for an empty menu.
    NSMenuItem* lastItem() const;

    // NSView:
    void mouseDown(NSEvent&) override;
    /// Removes the highlight only.
    void mouseUp(NSEvent&) override;
    /// Does nothing.
    void rightMouseDown(NSEvent&) override;
    void keyDown(NSEvent&) override;

private:
    void initFields();

    PLIXPopUpButtonDelegate m_delegate;
    long m_selectionIndex { 0 };
};

}
