#pragma once

#include <plix/controls/PLIXTabViewDelegate.h>
#include <plix/controls/tab_window_fit.h>
#include <plix/platform/appkit/NSTabView.h>

namespace plix {

/// A tab view that makes its window fit the pane whenever a tab is selected, animated: as high as the pane's subviews want it, or,
/// for an item with a custom view, as large as that view. It is to be in a superview that grows with the window.
class PLIX_EXPORT PLIXTabView : public NSTabView {
    PLIX_CLASS(PLIXTabView, NSTabView);

public:
    /// These make the view sizable in both directions, whatever its mask was.
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    /// 1 at first. Kept for those who ask.
    unsigned long contentResizeMode() const { return m_contentResizeMode; }
    void setContentResizeMode(unsigned long mode) { m_contentResizeMode = mode; }
    /// Bits of PLIXWindowResizeMode: which edges of the window move for a custom view; 0 for none. 17 at first: the top edge stays,
    /// the width grows both ways.
    unsigned long windowResizeMode() const { return m_windowResizeMode; }
    void setWindowResizeMode(unsigned long mode) { m_windowResizeMode = mode; }

    /// An item's custom view comes into its place when the window has its new size. It gets the keyboard by the item's initial
    /// first responder where that is in it, else the item has none any more.
    void selectTabViewItem(NSTabViewItem*) override;
    /// By the selected item's custom view, else by the extent of its view's subviews: these move so that the lowest one stands 20
    /// points above the pane's bottom, and the window's height follows, its top edge kept. A view without subviews leaves the
    /// window alone, and the receiver sizable in both directions.
    virtual void resizeToFitContent();
    /// In both directions, with the subviews 20 and 18 points from the pane's corner; the window's top edge stays, its width grows
    /// both ways.
    virtual void resizeToFitContentXY();
    /// Nothing without custom view.
    virtual void resizeToFitTabViewCustomView();

    template <typename T> void setDelegate(Ref<T> const& delegate)
    {
        takeHooks(HookSource::pack<NSTabViewDelegate, PLIXTabViewDelegate>(delegate));
    }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    // NSTabView:
    void takeHooks(HookSource const&) override;

private:
    void initModes();
    void selectWithPaneOfOwnHeight(NSTabViewItem*);

    PLIXTabViewDelegate m_hooks;
    unsigned long m_contentResizeMode { 1 };
    unsigned long m_windowResizeMode { 17 };
};

}
