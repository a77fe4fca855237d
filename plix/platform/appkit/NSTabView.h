#pragma once

#include <plix/platform/appkit/NSTabViewDelegate.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/tab_layout.h>
#include <plix/platform/base/HookSource.h>
#include <plix/platform/base/export.h>

#include <memory>
#include <vector>

namespace plix {

struct ButtonLook;

/// Panes of which one is shown at a time, with a tab for each to choose it by. With the keyboard on the tabs the arrow keys, Home
/// and End choose; from anywhere in the view Control-Tab and Control-Page Down go on to the next pane, with Shift or Page Up back.
/// Indexes outside raise NSRangeException.
class PLIX_EXPORT NSTabView : public NSView {
    PLIX_CLASS(NSTabView, NSView);

public:
    NSTabView();
    ~NSTabView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // Items. One that is added while none is selected is; where the selected one is removed, that after it is, or that before it.
    std::vector<Ref<NSTabViewItem>> const& tabViewItems() const { return m_items; }
    long numberOfTabViewItems() const { return static_cast<long>(m_items.size()); }
    NSTabViewItem* tabViewItemAtIndex(long index) const;
    /// NSNotFound where there is none.
    long indexOfTabViewItem(NSTabViewItem const&) const;
    long indexOfTabViewItemWithIdentifier(ObjectValue const&) const;
    virtual void addTabViewItem(NSTabViewItem&);
    /// An item that is in a tab view already is refused.
    virtual void insertTabViewItem(NSTabViewItem&, long index);
    /// Nothing for an item of another tab view.
    virtual void removeTabViewItem(NSTabViewItem&);

    // Selection.
    /// Null while there are no items, or the delegate has refused all that were added.
    NSTabViewItem* selectedTabViewItem() const { return m_selected.get(); }
    /// Shows the item's pane, after the delegate was asked. Nothing for null, an item of another tab view and the one that is
    /// selected, and where text that is being edited in the pane does not let go.
    virtual void selectTabViewItem(NSTabViewItem*);
    void selectTabViewItemAtIndex(long index);
    /// NSRangeException where there is none.
    void selectTabViewItemWithIdentifier(ObjectValue const&);
    void selectFirstTabViewItem(NSObject* sender);
    void selectLastTabViewItem(NSObject* sender);
    /// Nothing behind the last one, and before the first.
    void selectNextTabViewItem(NSObject* sender);
    void selectPreviousTabViewItem(NSObject* sender);
    /// That with the index that is selected in a pop-up button, combo box or segmented control.
    void takeSelectedTabViewItemFromSender(NSObject* sender);

    // Looks.
    NSTabViewType tabViewType() const { return m_type; }
    void setTabViewType(NSTabViewType);
    NSControlSize controlSize() const { return m_controlSize; }
    void setControlSize(NSControlSize);
    /// Of the labels. Null gives the system font in the control size's own.
    NSFont* font() const;
    void setFont(Ref<NSFont> const&);
    /// Whether labels are shortened before tabs move into the menu at the end. False at first.
    bool allowsTruncatedLabels() const { return m_allowsTruncatedLabels; }
    void setAllowsTruncatedLabels(bool);
    /// Whether panes are set off by a shade inside the border. True at first.
    bool drawsBackground() const { return m_drawsBackground; }
    void setDrawsBackground(bool);
    /// The pane's frame.
    virtual Rect contentRect() const;
    /// With room for all tabs, truncated where that is allowed, and an empty pane.
    Size minimumSize() const;
    /// Null beside the tabs, and for those in the menu.
    NSTabViewItem* tabViewItemAtPoint(Point) const;
    /// A tab's place; empty for an item that has none now.
    Rect rectForTabViewItem(NSTabViewItem const&) const;
    /// Of the button that shows the menu of those for which there is no room; empty while there is for all.
    Rect overflowRect() const;

    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSTabViewDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }

    // NSView:
    bool isFlipped() const override { return true; }
    bool acceptsFirstResponder() const override;
    bool becomeFirstResponder() override;
    bool resignFirstResponder() override;
    bool performKeyEquivalent(NSEvent&) override;
    void keyDown(NSEvent&) override;
    void mouseDown(NSEvent&) override;
    void mouseEntered(NSEvent&) override;
    void mouseExited(NSEvent&) override;
    void resetCursorRects() override;
    void viewWillMoveToWindow(NSWindow*) override;
    void resizeSubviewsWithOldSize(Size) override;
    void didAddSubview(NSView&) override;
    void willRemoveSubview(NSView&) override;
    void drawRect(Rect) override;

    // For items.
    void labelChanged(Badge<NSTabViewItem>);
    void paneChanged(Badge<NSTabViewItem>, NSTabViewItem&, Ref<NSView> const& before);
    Ref<NSColor> labelColor(Badge<NSTabViewItem>, NSTabViewItem const&) const;

protected:
    std::vector<Ref<NSView>> archivedSubviews() const override;
    /// Whether the first responder is the pane that is shown, or in it.
    bool paneHasKeyboard() const;
    /// To the item's initial first responder, else to the first view of the pane that takes it, else to the tabs.
    void giveKeyboardToPane();

private:
    /// Tracking rectangles, one a tab and one for the menu's button, which has no item.
    struct Hovering {
        struct Area {
            NSTrackingRectTag tag;
            Ref<NSTabViewItem> item;
        };
        std::vector<Area> areas;
        NSTrackingRectTag entered { 0 };

        /// Null outside.
        Area const* enteredArea() const;
    };

    bool holds(NSTabViewItem const&) const;
    long selectedIndex() const;
    enum class AtTheEnd { stays, wrapsAround };
    void selectBeside(long step, AtTheEnd);
    /// While it is in the view.
    NSView* pane() const;
    void showItem(NSTabViewItem*);
    void showPane();
    void placePane();
    void removePaneFromKeyViewLoop(NSView&);
    bool keyboardIsIn(NSView const&) const;
    bool answersForKeyboard() const;

    /// What the labels measure and where the tabs go. Kept while none of what it was reckoned for changes.
    struct Strip {
        std::vector<Size> labels;
        std::vector<TabLength> lengths;
        Size space;
        long selected { -1 };
        NSTabViewType type { NSTopTabsBezelBorder };
        NSControlSize controlSize { NSRegularControlSize };
        TabStripPlan plan;
    };

    TabViewLayout layout() const;
    void measureLabels(Strip&) const;
    /// Stays as it is in the hands of who asked, whatever is called meanwhile.
    std::shared_ptr<Strip const> strip() const;
    Rect inView(Rect inStrip) const;
    void layoutChanged();
    void tabsChanged();
    void marksStrip();
    /// Without item, the button for the menu.
    void marksTab(NSTabViewItem const*);
    void press(NSTabViewItem&);
    void showOverflowMenu(NSEvent*);
    void setState(NSTabViewItem&, NSTabState);
    /// Without item, of the button for the menu.
    ButtonLook lookOf(NSTabViewItem const*) const;
    ButtonLook lookInTrack(NSTabViewItem const*, Rect place, Rect track) const;
    void drawStrip();
    void drawTab(NSTabViewItem&, Rect tab, Size label, Rect track);
    void setEntered(NSTrackingRectTag);
    void endHovering();

    std::vector<Ref<NSTabViewItem>> m_items;
    Ref<NSTabViewItem> m_selected;
    HookSource m_delegate;
    NSTabViewDelegate m_hooks;
    Ref<NSFont> m_font;
    Hovering m_hovering;
    /// Null from tabsChanged() until it is asked for.
    mutable std::shared_ptr<Strip const> m_strip;
    NSTabViewType m_type { NSTopTabsBezelBorder };
    NSControlSize m_controlSize { NSRegularControlSize };
    bool m_allowsTruncatedLabels { false };
    bool m_drawsBackground { true };
    bool m_showsOverflowMenu { false };
    bool m_isInKeyViewLoop { false };
};

}
