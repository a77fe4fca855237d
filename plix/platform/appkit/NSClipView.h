#pragma once

#include <plix/platform/appkit/NSView.h>

namespace plix {

/// Shows a part of its document view: scrolling moves the origin of its bounds. As flipped as the document. What the document does
/// not cover is filled with the background colour.
class PLIX_EXPORT NSClipView : public NSView {
    PLIX_CLASS(NSClipView, NSView);

public:
    NSClipView();
    ~NSClipView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    NSView* documentView() const { return m_documentView.get(); }
    /// Takes the old one out; the new one starts at its origin (unflipped: at its top).
    virtual void setDocumentView(Ref<NSView> const&);
    /// The document view's frame, at least as large as what is visible.
    Rect documentRect() const;
    /// What is visible, in the document view's coordinates.
    Rect documentVisibleRect() const;

    // What is drawn where the document does not reach.
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    virtual void setBackgroundColor(Ref<NSColor> const&);
    bool drawsBackground() const { return m_drawsBackground; }
    virtual void setDrawsBackground(bool);
    /// Whether scrolling moves the pixels that stay in view and draws only what came into view. True at first.
    bool copiesOnScroll() const { return m_copiesOnScroll; }
    void setCopiesOnScroll(bool);
    /// The pointer's shape over the document; null leaves that to the document's views.
    NSCursor* documentCursor() const;
    void setDocumentCursor(Ref<NSCursor> const&);

    /// Where scrolling to a point really goes: within the document.
    virtual Point constrainScrollPoint(Point proposed) const;
    /// Moves the bounds' origin there, on whole device pixels, without constraining it. Tell the scroll view afterwards by
    /// reflectScrolledClipView().
    virtual void scrollToPoint(Point);
    /// Constrains, scrolls and has the scrollers follow. True where anything moved.
    bool scrollTo(Point proposed);

    // Told of the document view's frame and bounds.
    virtual void viewFrameChanged(NSNotification const&);
    virtual void viewBoundsChanged(NSNotification const&);

    // NSView:
    bool isFlipped() const override;
    bool isOpaque() const override;
    void drawRect(Rect) override;
    void setFrameSize(Size) override;
    void resetCursorRects() override;
    bool autoscroll(NSEvent&) override;
    bool scrollDocumentToPoint(NSView& descendant, Point) override;
    bool scrollDocumentRectToVisible(NSView& descendant, Rect) override;
    void willRemoveSubview(NSView&) override;
    bool mouseDownCanMoveWindow() const override { return false; }

protected:
    std::vector<Ref<NSView>> archivedSubviews() const override { return {}; }

private:
    void documentChanged();
    bool canCopyPixels() const;

    Weak<NSView> m_documentView;
    Ref<NSColor> m_backgroundColor;
    Ref<NSCursor> m_documentCursor;
    bool m_drawsBackground { true };
    bool m_copiesOnScroll { true };
};

}
