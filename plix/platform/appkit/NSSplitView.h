#pragma once

#include <plix/platform/appkit/NSSplitViewDelegate.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/split_layout.h>
#include <plix/platform/base/HookSource.h>

#include <vector>

namespace plix {

/// Shows its subviews as panes beside or below each other, with dividers between them that a person can drag. Panes fill the view,
/// in whole points; when it is resized each keeps its share.
class PLIX_EXPORT NSSplitView : public NSView {
    PLIX_CLASS(NSSplitView, NSView);

public:
    NSSplitView();
    ~NSSplitView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// Whether the dividers are vertical lines, and so the panes lie beside each other. False at first.
    bool isVertical() const { return m_isVertical; }
    virtual void setVertical(bool);
    /// Dividers without a face of their own, for textured windows.
    bool isPaneSplitter() const { return m_isPaneSplitter; }
    void setIsPaneSplitter(bool);
    /// Asked each time panes are laid out or dividers drawn. 9 points here, 6 for pane splitters.
    virtual float dividerThickness() const;

    /// Held weakly.
    template <typename T> void setDelegate(Ref<T> const& delegate) { takeHooks(HookSource::pack<NSSplitViewDelegate>(delegate)); }
    void setDelegate(std::nullptr_t) { takeHooks(HookSource {}); }
    virtual void takeHooks(HookSource const&);
    NSObject* delegate() const { return m_delegate.object(); }

    /// Lays the panes out anew: each keeps its share of the length.
    virtual void adjustSubviews();
    /// A collapsed pane is hidden and keeps its size for the time when it comes back.
    bool isSubviewCollapsed(NSView const&) const;
    long numberOfDividers() const;
    /// In the view's coordinates.
    Rect rectOfDivider(long index) const;
    float minPossiblePositionOfDividerAtIndex(long index) const;
    float maxPossiblePositionOfDividerAtIndex(long index) const;
    /// Moves a divider as a drag would. Nothing for an index that is none.
    void setPosition(float position, long dividerIndex);
    virtual void drawDividerInRect(Rect);

    // NSView:
    bool isFlipped() const override { return true; }
    bool mouseDownCanMoveWindow() const override { return m_isPaneSplitter; }
    void drawRect(Rect) override;
    NSView* hitTest(Point) override;
    void mouseDown(NSEvent&) override;
    void resetCursorRects() override;
    void resizeSubviewsWithOldSize(Size) override;
    void didAddSubview(NSView&) override;
    void willRemoveSubview(NSView&) override;

private:
    float lengthOf(Size) const;
    float positionOf(Point) const;
    std::vector<SplitPane> shownPanes() const;
    void takePanes(std::vector<SplitPane> const&, std::vector<Ref<NSView>> const& views);
    void layOut(std::vector<Ref<NSView>> const& views);
    void noteFramesThatHostChanged();
    void post(char const* name, Hook<void(NSNotification const&)> const&);
    long dividerAt(Point) const;
    SplitLimits limitsOf(long divider);
    void dragDivider(long divider, float grip);
    bool collapseAt(long divider);

    NSSplitViewDelegate m_hooks;
    HookSource m_delegate;
    /// By which the panes share the length: what they were at the last drag, and at their addition.
    std::vector<SplitPane> m_shares;
    /// What the frames were made then.
    std::vector<float> m_laidOut;
    bool m_isVertical { false };
    bool m_isPaneSplitter { false };
};

// Posted with the split view as object.
inline constexpr char const* NSSplitViewWillResizeSubviewsNotification = "NSSplitViewWillResizeSubviewsNotification";
inline constexpr char const* NSSplitViewDidResizeSubviewsNotification = "NSSplitViewDidResizeSubviewsNotification";

}
