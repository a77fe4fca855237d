#pragma once

#include <plix/platform/appkit/NSResponder.h>
#include <plix/platform/appkit/border_type.h>
#include <plix/platform/appkit/drag_operation.h>
#include <plix/platform/appkit/view_geometry.h>
#include <plix/platform/base/Badge.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/region.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace plix {

class FocusLock;

/// Where something goes in front of or behind others.
enum NSWindowOrderingMode : int { NSWindowAbove = 1, NSWindowBelow = -1, NSWindowOut = 0 };

/// Whether a view with the keyboard is drawn with a ring around it.
enum NSFocusRingType : int { NSFocusRingTypeDefault = 0, NSFocusRingTypeNone = 1, NSFocusRingTypeExterior = 2 };

/// Names a rectangle that reports the pointer, or that has a tool tip.
using NSTrackingRectTag = long;
using NSToolTipTag = long;

/// A rectangle of a window that draws and takes events. The frame is in the superview's coordinates, the bounds in the view's own;
/// y grows upwards unless isFlipped() says otherwise. A superview holds its subviews; views and windows may go away in any
/// callback.
class PLIX_EXPORT NSView : public NSResponder {
    PLIX_CLASS(NSView, NSResponder);

public:
    NSView();
    ~NSView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // The tree. A view is in at most one superview: adding it elsewhere takes it out first.
    NSWindow* window() const { return m_window; }
    NSView* superview() const { return m_superview; }
    /// From back to front.
    std::vector<Ref<NSView>> const& subviews() const { return m_subviews; }
    virtual void addSubview(NSView&);
    /// Above or below a sibling; with null above or below all. Also reorders a view that is there already.
    virtual void addSubview(NSView&, NSWindowOrderingMode, NSView* relativeTo);
    /// Does nothing where the first is no subview of the receiver.
    virtual void replaceSubview(NSView& old, NSView& replacement);
    virtual void removeFromSuperview();
    /// Likewise, leaving what it covered to be redrawn by somebody else.
    virtual void removeFromSuperviewWithoutNeedingDisplay();
    /// Reorders the subviews, back to front, so that comesBefore holds; siblings that are equal keep their order.
    void sortSubviews(std::function<bool(NSView const&, NSView const&)> const& comesBefore);
    /// True for the view itself too.
    bool isDescendantOf(NSView const&) const;
    NSView* ancestorSharedWithView(NSView&);
    NSView* opaqueAncestor();
    /// The subview, at any depth, or the view itself that has this tag; views without one have -1.
    NSView* viewWithTag(long tag);
    virtual long tag() const { return -1; }
    virtual void viewWillMoveToSuperview(NSView* /*newSuperview*/) { }
    virtual void viewDidMoveToSuperview() { }
    virtual void viewWillMoveToWindow(NSWindow* /*newWindow*/) { }
    virtual void viewDidMoveToWindow() { }
    virtual void didAddSubview(NSView&) { }
    virtual void willRemoveSubview(NSView&) { }
    /// The nearest scroll view above the view, or null.
    NSScrollView* enclosingScrollView() const;

    // Frame and bounds.
    Rect frame() const { return m_frame; }
    virtual void setFrame(Rect);
    virtual void setFrameOrigin(Point);
    virtual void setFrameSize(Size);
    /// Degrees, counterclockwise as the superview's axes turn, about the frame's origin.
    virtual void setFrameRotation(float degrees);
    float frameRotation() const;
    Rect bounds() const { return m_bounds; }
    virtual void setBounds(Rect);
    virtual void setBoundsOrigin(Point);
    virtual void setBoundsSize(Size);
    void translateOriginToPoint(Point);
    void scaleUnitSquareToSize(Size);
    bool isRotatedFromBase() const;
    bool isRotatedOrScaledFromBase() const;
    virtual bool isFlipped() const { return false; }
    bool postsFrameChangedNotifications() const { return m_flags.postsFrameChanges; }
    void setPostsFrameChangedNotifications(bool);
    bool postsBoundsChangedNotifications() const { return m_flags.postsBoundsChanges; }
    void setPostsBoundsChangedNotifications(bool);

    // Autoresizing: NSViewWidthSizable and the other bits of view_geometry.h.
    unsigned autoresizingMask() const { return m_autoresizingMask; }
    void setAutoresizingMask(unsigned mask) { m_autoresizingMask = mask; }
    bool autoresizesSubviews() const { return m_flags.autoresizesSubviews; }
    void setAutoresizesSubviews(bool resizes) { m_flags.autoresizesSubviews = resizes; }
    virtual void resizeSubviewsWithOldSize(Size oldBoundsSize);
    virtual void resizeWithOldSuperviewSize(Size oldBoundsSize);
    /// Here: moves and resizes the view so that it encloses its subviews, which stay where they are. Nothing without subviews.
    virtual void sizeToFit();

    // Conversion. A null view means the window's base coordinates.
    Point convertPointToView(Point, NSView const*) const;
    Point convertPointFromView(Point, NSView const*) const;
    /// Sizes lose their sign.
    Size convertSizeToView(Size, NSView const*) const;
    Size convertSizeFromView(Size, NSView const*) const;
    Rect convertRectToView(Rect, NSView const*) const;
    Rect convertRectFromView(Rect, NSView const*) const;
    /// The rectangle with its edges on whole device pixels.
    Rect centerScanRect(Rect) const;

    // Hidden views draw nothing and take no events; nor do their subviews.
    bool isHidden() const { return m_flags.isHidden; }
    void setHidden(bool);
    bool isHiddenOrHasHiddenAncestor() const;
    virtual void viewDidHide() { }
    virtual void viewDidUnhide() { }

    // Appearance: of the view and its subviews, whatever that of the process is. Without one of its own at first: as the superview
    // has it, or the window. It is not archived.
    std::optional<Appearance> appearance() const;
    void setAppearance(std::optional<Appearance>);
    /// With which the view is drawn.
    Appearance effectiveAppearance() const;

    // Drawing.
    /// Draws the part of the view that lies in the rectangle, in the view's coordinates: origin and clip are set.
    virtual void drawRect(Rect) { }
    /// True where drawRect() covers every pixel of the bounds, so that nothing behind the view need be drawn.
    virtual bool isOpaque() const { return false; }
    bool needsDisplay() const;
    virtual void setNeedsDisplay(bool);
    virtual void setNeedsDisplayInRect(Rect);
    /// Draws now what is dirty in the view and its subviews.
    virtual void displayIfNeeded();
    /// Draws the view now, dirty or not.
    virtual void display();
    virtual void displayRect(Rect);
    void displayIfNeededInRect(Rect);
    /// While the view draws: what is drawn, as few rectangles, and whether any of it touches the rectangle.
    std::span<Rect const> getRectsBeingDrawn() const;
    bool needsToDrawRect(Rect) const;
    /// The part of the bounds that no ancestor clips away; empty for a view that is hidden or in no window.
    virtual Rect visibleRect() const;
    /// Whether the view has a visible window to draw in.
    bool canDraw() const;
    /// The view that draws now, or null. While an image is focused: a plain view that stands for it, flipped as the image is.
    static NSView* focusView();
    /// `FocusLock focus(view);` has what follows drawn into the view, outside the usual drawing: its coordinates, clipped to what
    /// is visible of it; nothing is drawn where canDraw() is false. It shows with the window's next frame, at once after
    /// NSWindow::flushWindow().
    void lockFocus(Badge<FocusLock> const&);
    void unlockFocus(Badge<FocusLock> const&);
    /// What the view and its subviews look like in a rectangle of its bounds, drawn afresh; pixels a point as given.
    Ref<NSBitmapImageRep> bitmapImageRepForCachingDisplayInRect(Rect, float scale = 1);
    /// Draws the view and its subviews into the current context, whose coordinates are to be the view's.
    void drawHierarchyInCurrentContext(Rect);
    /// Whether controls in the view are to look as in a window that takes the keyboard, or whose sheet does; also without a window.
    /// Asks upwards, so that a view may answer for those in it.
    virtual bool looksActive() const;
    NSFocusRingType focusRingType() const { return m_focusRingType; }
    void setFocusRingType(NSFocusRingType);
    /// The area in which a focus ring around the view is drawn, marked dirty.
    void setKeyboardFocusRingNeedsDisplayInRect(Rect);

    // Scrolling. These ask the nearest clip view; without one they answer false.
    virtual bool scrollRectToVisible(Rect);
    virtual void scrollPoint(Point);
    virtual bool autoscroll(NSEvent&);
    /// A chance to correct where scrolling goes.
    virtual Rect adjustScroll(Rect proposedVisibleRect) { return proposedVisibleRect; }
    virtual void reflectScrolledClipView(NSView& /*clipView*/) { }
    /// Overridden by clip views: scrolls so that the point of the document is at the origin of what is visible.
    virtual bool scrollDocumentToPoint(NSView& /*descendant*/, Point);
    virtual bool scrollDocumentRectToVisible(NSView& descendant, Rect);
    /// Moves the pixels that the last frame left in the visible part of the rectangle by a distance, as far as they stay inside it.
    /// What is dirty and what the move uncovers are the caller's to look after. Where there are no pixels to move (no frame yet, a
    /// turned view, fractions of a pixel, something above the view or dirty behind it) the rectangle is marked dirty instead.
    void scrollRect(Rect, Size by);

    // Events.
    /// The deepest visible view at a point, given in the superview's coordinates; null outside.
    virtual NSView* hitTest(Point);
    /// Whether a point lies in the rectangle, by the view's flippedness.
    bool mouseInRect(Point, Rect) const;
    /// Whether a click that brings the window forward also acts. It always does here, as everywhere on these desktops; kept for
    /// those who ask.
    virtual bool acceptsFirstMouse(NSEvent*) { return false; }
    virtual bool needsPanelToBecomeKey() const { return false; }
    virtual bool mouseDownCanMoveWindow() const { return !isOpaque(); }
    /// The context menu for an event, or null. Not kept alive by the answer.
    virtual NSMenu* menuForEvent(NSEvent&);
    /// What menuForEvent() answers here.
    virtual NSMenu* menu() const;
    virtual void setMenu(Ref<NSMenu> const&);

    // Key view loop.
    NSView* nextKeyView() const;
    void setNextKeyView(NSView*);
    NSView* previousKeyView() const;
    /// The next along the loop that takes the keyboard, or null.
    NSView* nextValidKeyView() const;
    NSView* previousValidKeyView() const;
    virtual bool canBecomeKeyView() const;

    // Tracking and cursor rectangles, tool tips. In the view's coordinates.
    /// Sends mouseEntered and mouseExited to the owner, which must outlive the rectangle or be a responder. Never 0.
    virtual NSTrackingRectTag addTrackingRect(Rect, NSObject* owner, void* userData, bool assumeInside);
    virtual void removeTrackingRect(NSTrackingRectTag);
    /// Only from within resetCursorRects().
    void addCursorRect(Rect, NSCursor&);
    void removeCursorRect(Rect, NSCursor&);
    void discardCursorRects();
    /// Overridden to add cursor rectangles; called anew whenever the view's geometry has changed.
    virtual void resetCursorRects() { }
    std::string const& toolTip() const;
    virtual void setToolTip(std::string);
    NSToolTipTag addToolTipRect(Rect, std::function<std::string()> text);
    void removeToolTip(NSToolTipTag);
    void removeAllToolTips();

    // Live resize.
    virtual bool inLiveResize() const;
    virtual void viewWillStartLiveResize() { }
    virtual void viewDidEndLiveResize() { }

    // Dragging source: the view drags something out of itself.
    /// Drags an image with what the pasteboard holds, until the button is released. `at` is where the image's origin is at the
    /// start, `initialOffset` how far the pointer has moved since the button was pressed. Within the application. Answers when
    /// done.
    virtual void dragImage(NSImage*, Point at, Size initialOffset, NSEvent&, NSPasteboard&, NSView& source, bool slideBack);
    virtual unsigned draggingSourceOperationMaskForLocal(bool isLocal);
    virtual void draggedImageBeganAt(NSImage*, Point) { }
    virtual void draggedImageMovedTo(NSImage*, Point) { }
    virtual void draggedImage(NSImage*, Point /*endedAt*/, unsigned /*operation*/) { }
    virtual bool ignoreModifierKeysWhileDragging() const { return false; }

    // Dragging destination: something is dragged over the view.
    void registerForDraggedTypes(std::vector<std::string> types);
    void unregisterDraggedTypes();
    std::vector<std::string> const& registeredDraggedTypes() const;
    virtual unsigned draggingEntered(NSDraggingInfo&) { return NSDragOperationNone; }
    /// Here: what draggingEntered() answered.
    virtual unsigned draggingUpdated(NSDraggingInfo&);
    virtual void draggingExited(NSDraggingInfo*) { }
    virtual bool prepareForDragOperation(NSDraggingInfo&) { return true; }
    virtual bool performDragOperation(NSDraggingInfo&) { return false; }
    virtual void concludeDragOperation(NSDraggingInfo*) { }
    virtual void draggingEnded(NSDraggingInfo&) { }

    // NSResponder:
    /// Shows the context menu, where there is one.
    void rightMouseDown(NSEvent&) override;
    bool performKeyEquivalent(NSEvent&) override;
    bool performMnemonic(std::string_view) override;

    /// For the platform's own machinery, declared in NSView_internal.h.
    struct Extras;
    struct Access;

protected:
    /// Those that an archive holds: not what the view makes itself.
    virtual std::vector<Ref<NSView>> archivedSubviews() const { return m_subviews; }
    /// For clip views behind a scrollRect() of the same distance: the origin of the bounds moves, and nothing is marked dirty. What
    /// was dirty is so still, at its place in the moved coordinates.
    void moveBoundsOriginWithPixels(Point);

private:
    friend struct Access;

    struct Flags {
        bool autoresizesSubviews : 1 { true };
        bool isHidden : 1 { false };
        bool postsFrameChanges : 1 { false };
        bool postsBoundsChanges : 1 { false };
        bool hasOwnBoundsSize : 1 { false };
        bool descendantNeedsDisplay : 1 { false };
        bool holdsFrameNotification : 1 { false };
        bool hasAppearance : 1 { false };
        bool isDark : 1 { false };
    };

    Extras& extras();
    Extras const* extrasOrNull() const { return m_extras.get(); }
    AffineTransform toSuperview() const;
    AffineTransform toBase() const;
    AffineTransform toView(NSView const*) const;
    Rect frameArea() const;
    void markDirty(Rect);
    void markDirtyInSuperview(Rect);
    void propagateDirtiness();
    void geometryChanged();
    void frameChanged();
    void boundsChanged();
    void boundsMoved();
    bool isUndisturbed(Rect) const;
    void insertSubview(NSView&, std::size_t place);
    void detach(bool marksSuperview);
    void willMoveToWindow(NSWindow*);
    void setWindow(NSWindow*);
    void didMoveToWindow();
    void tellHidden(bool isHidden);

    NSWindow* m_window { nullptr };
    NSView* m_superview { nullptr };
    std::vector<Ref<NSView>> m_subviews;
    Rect m_frame;
    Rect m_bounds;
    Region m_dirty;
    std::unique_ptr<Extras> m_extras;
    unsigned m_autoresizingMask { 0 };
    NSFocusRingType m_focusRingType { NSFocusRingTypeDefault };
    Flags m_flags;
};

/// Posted, with the view as object, where the view says so.
inline constexpr char const* NSViewFrameDidChangeNotification = "NSViewFrameDidChangeNotification";
inline constexpr char const* NSViewBoundsDidChangeNotification = "NSViewBoundsDidChangeNotification";

}
