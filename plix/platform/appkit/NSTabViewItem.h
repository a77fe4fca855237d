#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Badge.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/geometry.h>

#include <string>
#include <string_view>

namespace plix {

class NSTabView;

/// How a tab looks.
enum NSTabState : int { NSSelectedTab = 0, NSBackgroundTab = 1, NSPressedTab = 2 };

/// A tab and the pane that it stands for.
class PLIX_EXPORT NSTabViewItem : public NSObject {
    PLIX_CLASS(NSTabViewItem, NSObject);

public:
    NSTabViewItem();
    ~NSTabViewItem() override;
    bool init();
    bool init(ObjectValue identifier);
    /// Ends with initWithCoder(), and answers what that does.
    bool init(NSCoder&);
    /// A chance for subclasses to set up what was read.
    virtual bool initWithCoder() { return true; }
    void encodeWithCoder(NSCoder&) const override;

    // What the application knows it by, and what its tab shows.
    ObjectValue const& identifier() const { return m_identifier; }
    void setIdentifier(ObjectValue);
    std::string const& label() const { return m_label; }
    virtual void setLabel(std::string_view);
    /// Kept for those who ask; tabs are drawn in the colours of the theme.
    NSColor* color() const;
    void setColor(Ref<NSColor> const&);

    /// The pane. That of the selected item is shown at once. Null for an empty one.
    NSView* view() const { return m_view.get(); }
    virtual void setView(Ref<NSView> const&);
    /// The view of the pane that gets the keyboard when the tab is selected, unless the tabs themselves have it. Null: the first
    /// that takes it.
    NSView* initialFirstResponder() const { return m_initialFirstResponder.get(); }
    void setInitialFirstResponder(NSView*);

    /// As it is drawn now.
    NSTabState tabState() const { return m_tabState; }
    /// Null while the item is in no tab view.
    NSTabView* tabView() const;

    /// Draws the label into the current context, in the coordinates of the tabs (x along the label, y downwards): from the
    /// rectangle's left edge, cut off at its right one, with an ellipsis where that is wanted. The rectangle has the size that
    /// sizeOfLabel() answered, where the tabs have room for that.
    virtual void drawLabel(bool shouldTruncateLabel, Rect inRect);
    /// In whole points; with computeMin that of a truncated label, which is still to be recognised.
    virtual Size sizeOfLabel(bool computeMin) const;

    // For the tab view.
    void setTabState(Badge<NSTabView>, NSTabState state) { m_tabState = state; }
    void setTabView(Badge<NSTabView>, NSTabView*);

protected:
    /// To be called when the label looks different or has another size.
    void labelChanged();

private:
    Ref<NSFont> font() const;

    ObjectValue m_identifier;
    std::string m_label;
    Ref<NSColor> m_color;
    Ref<NSView> m_view;
    Weak<NSView> m_initialFirstResponder;
    Weak<NSTabView> m_tabView;
    NSTabState m_tabState { NSBackgroundTab };
};

}
