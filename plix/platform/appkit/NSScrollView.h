#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/graphics/control_size.h>

namespace plix {

class NSClipView;
class NSScroller;
struct ScrollViewLayout;

/// Lets a person move a large document view about in a small place: by the wheel, scrollers and keys. Holds a clip view with the
/// document, up to two scrollers, and what the document brings along as a header (see ScrollHeader).
class PLIX_EXPORT NSScrollView : public NSView {
    PLIX_CLASS(NSScrollView, NSView);

public:
    NSScrollView();
    ~NSScrollView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // A scroll view's size for that of its content, and back.
    static Size frameSizeForContentSize(Size, bool hasHorizontalScroller, bool hasVerticalScroller, NSBorderType);
    static Size contentSizeForFrameSize(Size, bool hasHorizontalScroller, bool hasVerticalScroller, NSBorderType);

    NSClipView* contentView() const { return m_contentView.get(); }
    /// Takes the document over where the new clip view has none of its own.
    virtual void setContentView(Ref<NSClipView> const&);
    Size contentSize() const;
    NSView* documentView() const;
    virtual void setDocumentView(Ref<NSView> const&);
    Rect documentVisibleRect() const;
    NSCursor* documentCursor() const;
    void setDocumentCursor(Ref<NSCursor> const&);

    // Of the clip view:
    NSColor* backgroundColor() const;
    virtual void setBackgroundColor(Ref<NSColor> const&);
    bool drawsBackground() const;
    virtual void setDrawsBackground(bool);

    // The line around it.
    NSBorderType borderType() const { return m_borderType; }
    virtual void setBorderType(NSBorderType);

    // Scrollers. None at first; one that autohides is out of the way while everything fits.
    bool hasVerticalScroller() const { return m_hasVerticalScroller; }
    virtual void setHasVerticalScroller(bool);
    bool hasHorizontalScroller() const { return m_hasHorizontalScroller; }
    virtual void setHasHorizontalScroller(bool);
    NSScroller* verticalScroller() const { return m_verticalScroller.get(); }
    virtual void setVerticalScroller(Ref<NSScroller> const&);
    NSScroller* horizontalScroller() const { return m_horizontalScroller.get(); }
    virtual void setHorizontalScroller(Ref<NSScroller> const&);
    bool autohidesScrollers() const { return m_autohidesScrollers; }
    void setAutohidesScrollers(bool);
    /// Whether the document follows while the knob is dragged; else it moves when the knob is released. True at first.
    bool scrollsDynamically() const { return m_scrollsDynamically; }
    void setScrollsDynamically(bool);
    void setControlSize(NSControlSize);

    // How far a line goes (10 points at first) and how much of a page stays in view (10 points).
    float horizontalLineScroll() const { return m_lineScroll.width; }
    void setHorizontalLineScroll(float);
    float verticalLineScroll() const { return m_lineScroll.height; }
    void setVerticalLineScroll(float);
    float lineScroll() const { return verticalLineScroll(); }
    void setLineScroll(float);
    float horizontalPageScroll() const { return m_pageScroll.width; }
    void setHorizontalPageScroll(float);
    float verticalPageScroll() const { return m_pageScroll.height; }
    void setVerticalPageScroll(float);
    float pageScroll() const { return verticalPageScroll(); }
    void setPageScroll(float);

    /// Places the clip view, the scrollers and the header. Called when anything about them or the size changes.
    virtual void tile();
    /// Has scrollers and header follow the clip view.
    void reflectScrolledClipView(NSView& clipView) override;

    // Actions, for keys and menus.
    void scrollLineUp(NSObject* sender);
    void scrollLineDown(NSObject* sender);
    void scrollPageUp(NSObject* sender);
    void scrollPageDown(NSObject* sender);
    void scrollToBeginningOfDocument(NSObject* sender);
    void scrollToEndOfDocument(NSObject* sender);

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override;
    void drawRect(Rect) override;
    void resizeSubviewsWithOldSize(Size) override;
    void scrollWheel(NSEvent&) override;
    void keyDown(NSEvent&) override;
    bool mouseDownCanMoveWindow() const override { return false; }

protected:
    std::vector<Ref<NSView>> archivedSubviews() const override { return {}; }

private:
    enum class Axis { horizontal, vertical };

    ScrollViewLayout layout() const;
    void placeScroller(NSScroller*, bool isShown, Rect);
    void placeHeader(ScrollViewLayout const&);
    void followClipView();
    void reflect(NSScroller*, Axis);
    void scrollerMoved(NSObject* sender);
    void scrollToScrollerValue(NSScroller const&, Axis);
    void setScroller(Ref<NSScroller>& slot, Ref<NSScroller> const&);
    void takeScroller(NSCoder&, std::string_view key, bool isWanted, Ref<NSScroller>& slot);
    Ref<NSScroller> makeScroller(Axis);
    bool canScroll(Axis) const;
    /// In points, towards the end of the document for positive values; y by what is down on the screen.
    bool scrollBy(float dx, float dy);
    float pageDistance(Axis) const;

    Ref<NSClipView> m_contentView;
    Ref<NSScroller> m_verticalScroller;
    Ref<NSScroller> m_horizontalScroller;
    Ref<NSClipView> m_headerClipView;
    Weak<NSView> m_cornerView;
    Size m_lineScroll { 10, 10 };
    Size m_pageScroll { 10, 10 };
    /// What the wheel asked for beyond whole pixels.
    Size m_wheelRemainder;
    NSControlSize m_controlSize { NSRegularControlSize };
    NSBorderType m_borderType { NSNoBorder };
    bool m_hasVerticalScroller { false };
    bool m_hasHorizontalScroller { false };
    bool m_autohidesScrollers { false };
    bool m_scrollsDynamically { true };
    bool m_isTiling { false };
    bool m_isTiledWithVertical { false };
    bool m_isTiledWithHorizontal { false };
};

}
