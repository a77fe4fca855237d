#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/affine_transform.h>
#include <plix/platform/graphics/region.h>

#include <cstddef>
#include <span>
#include <vector>

namespace plix {

/// Draws a view and its subviews, back to front, where they lie in given rectangles. What is drawn is known meanwhile to
/// NSView::getRectsBeingDrawn() and NSView::focusView().
class ViewDrawing {
public:
    explicit ViewDrawing(NSGraphicsContext&);
    ~ViewDrawing();
    ViewDrawing(ViewDrawing const&) = delete;
    ViewDrawing& operator=(ViewDrawing const&) = delete;

    /// The rectangles are in the superview's coordinates, which the context's are, too.
    void drawTree(NSView&, std::span<Rect const> rectsInSuperview);
    /// The rectangles and the context's coordinates are the view's own.
    void drawContents(NSView&, std::span<Rect const> rects);

    /// Of the drawing that goes on in this view now; empty where none does.
    static std::span<Rect const> rectsBeingDrawn(NSView const&);

private:
    /// A run of m_rects, which is one vector so that drawing allocates nothing once it is warm.
    struct Run {
        std::size_t begin;
        std::size_t end;
    };

    std::span<Rect const> rects(Run run) const { return { m_rects.data() + run.begin, run.end - run.begin }; }
    void drawSubview(NSView&, Run rectsInSuperview);
    void drawInPlace(NSView&, Run);
    void drawItself(NSView&, Run);
    bool isCoveredBySubviews(NSView&, Run) const;

    NSGraphicsContext& m_context;
    ViewDrawing* m_outer { nullptr };
    NSView const* m_view { nullptr };
    Run m_viewRects { 0, 0 };
    std::vector<Rect>& m_rects;
    std::vector<Rect> m_ownRects;
};

/// Collects what is dirty in a view and its subviews, in the coordinates that the transform leads to from the view's superview, and
/// marks it clean.
void takeDirtyRegion(NSView&, AffineTransform const& fromSuperview, Rect clip, Region& into);
/// Marks clean what lies in the rectangles, which are in the same coordinates.
void clearDirtyRegion(NSView&, AffineTransform const& fromSuperview, std::span<Rect const>);

/// Which view draws into which context, innermost last.
class FocusStack {
public:
    static void push(NSView&, NSGraphicsContext&);
    static void pop();
    static NSView* top();
};

}
