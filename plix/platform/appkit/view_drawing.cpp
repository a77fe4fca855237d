#include <plix/platform/appkit/view_drawing.h>

#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

ViewDrawing* s_innermost = nullptr;

/// So that a drawn area, turned into a view's coordinates and back, leaves no sliver.
constexpr float tolerance = 0.01F;

struct Focus {
    Ref<NSView> view;
    Ref<NSGraphicsContext> context;
};

std::vector<Focus>& focusStack()
{
    static auto& s_stack = *new std::vector<Focus>;
    return s_stack;
}

std::vector<Rect>& sharedRects()
{
    static auto& s_rects = *new std::vector<Rect>;
    return s_rects;
}

/// Stands for an image that is drawn into.
class ImageCanvasView final : public NSView {
public:
    explicit ImageCanvasView(bool isFlipped)
        : m_isFlipped(isFlipped)
    {
    }
    bool isFlipped() const override { return m_isFlipped; }

private:
    bool m_isFlipped;
};

NSView* canvasView(bool isFlipped)
{
    auto const made = [](bool flipped) {
        auto view = Ref<ImageCanvasView>::adopt(new ImageCanvasView(flipped));
        view->adopt();
        static_cast<void>(static_cast<NSView&>(*view).init());
        return view.leak();
    };
    static auto* const s_plain = made(false);
    static auto* const s_flipped = made(true);
    return isFlipped ? s_flipped : s_plain;
}

Rect toSubview(NSView& view, Rect rectInSuperview)
{
    return NSView::Access::toSuperview(view).inverse().value_or(AffineTransform {}).boundsOf(rectInSuperview);
}

}

void FocusStack::push(NSView& view, NSGraphicsContext& context)
{
    focusStack().push_back({ Ref<NSView>(view), Ref<NSGraphicsContext>(context) });
}

void FocusStack::pop()
{
    focusStack().pop_back();
}

NSView* FocusStack::top()
{
    auto const current = NSGraphicsContext::currentContext();
    if (!current)
        return nullptr;
    auto const& stack = focusStack();
    if (!stack.empty() && stack.back().context == current)
        return stack.back().view.get();
    return canvasView(current->isFlipped());
}

ViewDrawing::ViewDrawing(NSGraphicsContext& context)
    : m_context(context)
    , m_outer(std::exchange(s_innermost, this))
    , m_rects(m_outer ? m_ownRects : sharedRects())
{
    m_rects.clear();
}

ViewDrawing::~ViewDrawing()
{
    s_innermost = m_outer;
}

std::span<Rect const> ViewDrawing::rectsBeingDrawn(NSView const& view)
{
    for (auto const* drawing = s_innermost; drawing; drawing = drawing->m_outer) {
        if (drawing->m_view == &view)
            return drawing->rects(drawing->m_viewRects);
    }
    return {};
}

void ViewDrawing::drawTree(NSView& view, std::span<Rect const> rectsInSuperview)
{
    auto const begin = m_rects.size();
    m_rects.insert(m_rects.end(), rectsInSuperview.begin(), rectsInSuperview.end());
    drawSubview(view, { begin, m_rects.size() });
    m_rects.resize(begin);
}

void ViewDrawing::drawContents(NSView& view, std::span<Rect const> given)
{
    auto const begin = m_rects.size();
    m_rects.insert(m_rects.end(), given.begin(), given.end());
    GraphicsState const saved(m_context);
    m_context.setFlipped(view.isFlipped());
    drawInPlace(view, { begin, m_rects.size() });
    m_rects.resize(begin);
}

void ViewDrawing::drawSubview(NSView& view, Run inSuperview)
{
    Rect const area = NSView::Access::frameArea(view);
    auto const begin = m_rects.size();
    for (auto i = inSuperview.begin; i < inSuperview.end; ++i) {
        Rect const common = NSIntersectionRect(m_rects[i], area);
        if (common.isEmpty())
            continue;
        if (Rect const own = NSIntersectionRect(toSubview(view, common), view.bounds()); !own.isEmpty())
            m_rects.push_back(own);
    }
    Run const own { begin, m_rects.size() };
    if (own.begin != own.end) {
        GraphicsState const saved(m_context);
        m_context.concat(NSView::Access::toSuperview(view));
        m_context.setFlipped(view.isFlipped());
        drawInPlace(view, own);
    }
    m_rects.resize(begin);
}

void ViewDrawing::drawInPlace(NSView& view, Run run)
{
    Ref<NSView> const protector(view);
    std::optional<AppearanceScope> appearance;
    if (auto const own = view.appearance())
        appearance.emplace(*own);
    m_context.clipToRects(rects(run));
    if (!isCoveredBySubviews(view, run))
        drawItself(view, run);
    for (std::size_t i = 0; i < view.subviews().size(); ++i) {
        Ref<NSView> const subview = view.subviews()[i];
        if (!subview->isHidden())
            drawSubview(*subview, run);
    }
}

void ViewDrawing::drawItself(NSView& view, Run run)
{
    GraphicsState const saved(m_context);
    auto const* const outerView = std::exchange(m_view, &view);
    auto const outerRects = std::exchange(m_viewRects, run);
    FocusStack::push(view, m_context);
    auto& dirty = NSView::Access::dirty(view);
    Region const before = dirty;
    Rect bounding;
    for (auto const rect : rects(run))
        bounding = NSUnionRect(bounding, rect);
    view.drawRect(bounding);
    // What the view marked in itself while it drew has been drawn.
    dirty = before;
    FocusStack::pop();
    m_view = outerView;
    m_viewRects = outerRects;
}

bool ViewDrawing::isCoveredBySubviews(NSView& view, Run run) const
{
    auto const& subviews = view.subviews();
    return !subviews.empty() && std::ranges::all_of(rects(run), [&](Rect rect) {
        return std::ranges::any_of(subviews, [&](auto const& subview) {
            return NSContainsRect(subview->frame(), rect) && !subview->isHidden() && subview->frameRotation() == 0
                && subview->isOpaque();
        });
    });
}

void takeDirtyRegion(NSView& view, AffineTransform const& fromSuperview, Rect clip, Region& into)
{
    using Access = NSView::Access;
    auto& dirty = Access::dirty(view);
    auto* const extras = Access::extrasOrNull(view);
    bool const hasRemovals = extras && !extras->removals.empty();
    if (view.isHidden() || (dirty.isEmpty() && !hasRemovals && !Access::descendantNeedsDisplay(view)))
        return;
    auto const transform = concatenated(Access::toSuperview(view), fromSuperview);
    clip = NSIntersectionRect(clip, transform.boundsOf(view.bounds()));
    if (hasRemovals) {
        for (auto const& removal : std::exchange(extras->removals, {}))
            dirty.add(NSIntersectionRect(removal.area, view.bounds()));
    }
    for (auto const rect : dirty.rects())
        into.add(NSIntersectionRect(transform.boundsOf(rect), clip));
    dirty.clear();
    if (!Access::descendantNeedsDisplay(view))
        return;
    Access::clearDescendantNeedsDisplay(view);
    for (auto const& subview : view.subviews())
        takeDirtyRegion(*subview, transform, clip, into);
}

void clearDirtyRegion(NSView& view, AffineTransform const& fromSuperview, std::span<Rect const> drawn)
{
    using Access = NSView::Access;
    auto& dirty = Access::dirty(view);
    auto* const extras = Access::extrasOrNull(view);
    bool const hasRemovals = extras && !extras->removals.empty();
    if (dirty.isEmpty() && !hasRemovals && !Access::descendantNeedsDisplay(view))
        return;
    auto const transform = concatenated(Access::toSuperview(view), fromSuperview);
    if (hasRemovals) {
        for (auto const& removal : std::exchange(extras->removals, {}))
            dirty.add(NSIntersectionRect(removal.area, view.bounds()));
    }
    if (!dirty.isEmpty()) {
        auto const back = transform.inverse().value_or(AffineTransform {});
        for (auto const rect : drawn)
            dirty.subtract(NSInsetRect(back.boundsOf(rect), -tolerance, -tolerance));
    }
    for (auto const& subview : view.subviews())
        clearDirtyRegion(*subview, transform, drawn);
}

}
