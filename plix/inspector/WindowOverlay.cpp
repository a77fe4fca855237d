#include <plix/inspector/WindowOverlay.h>

#include <plix/inspector/view_facts.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <algorithm>

namespace plix {

namespace {

struct RoleColor {
    float red;
    float green;
    float blue;
    float lineAlpha;
    float fillAlpha;
};

constexpr RoleColor flashColor { 0.95F, 0.75F, 0.05F, 0, 0.35F };

RoleColor colorOf(OverlayRole role)
{
    switch (role) {
    case OverlayRole::frame:
        return { 0.1F, 0.65F, 0.45F, 0.55F, 0 };
    case OverlayRole::ancestor:
        return { 0.2F, 0.45F, 0.95F, 0.35F, 0 };
    case OverlayRole::selection:
        return { 0.2F, 0.45F, 0.95F, 0.9F, 0.22F };
    case OverlayRole::hover:
        return { 0.95F, 0.45F, 0.1F, 0.9F, 0.22F };
    }
    return {};
}

void fill(std::span<Rect const> rects, RoleColor color, float alpha)
{
    NSColor::colorWithCalibratedRed(color.red, color.green, color.blue, alpha)->set();
    NSRectFillListUsingOperation(rects, NSCompositeSourceOver);
}

Rect contentBounds(NSWindow const& window)
{
    return rectWith({}, window.internals().content.size());
}

}

WindowOverlay::WindowOverlay() = default;

WindowOverlay::~WindowOverlay()
{
    setWindow(nullptr);
    if (m_flashTimer)
        m_flashTimer->invalidate();
}

void WindowOverlay::setWindow(NSWindow* window)
{
    if (m_window.wasSet() && window == m_window.get())
        return;
    wipe();
    m_window = window;
    m_selected = nullptr;
    m_hovered = nullptr;
    m_shapes.clear();
    m_flashes.clear();
    m_stale.clear();
    if (m_flashTimer)
        m_flashTimer->invalidate();
    m_flashTimer = nullptr;
    refresh();
}

// What was drawn over the window has to go also when nobody looks on any more.
void WindowOverlay::wipe()
{
    Ref<NSWindow> const window(m_window.get());
    if (!window)
        return;
    auto drawn = overlayArea(m_shapes);
    drawn.add(m_flashes.area());
    drawn.add(m_stale);
    auto& content = *window->contentView();
    Point const offset = window->internals().contentOffset();
    for (auto const rect : drawn.rects())
        NSView::Access::markDirty(content, content.convertRectFromView(NSOffsetRect(rect, offset.x, offset.y), nullptr));
}

void WindowOverlay::refresh()
{
    if (auto* const window = m_window.get())
        window->setViewsNeedDisplay(true);
}

void WindowOverlay::setSelectedView(NSView* view)
{
    m_selected = view;
    refresh();
}

void WindowOverlay::setHoveredView(NSView* view)
{
    m_hovered = view;
    refresh();
}

void WindowOverlay::setShowsFrames(bool shows)
{
    m_showsFrames = shows;
    refresh();
}

void WindowOverlay::setShowsFlashes(bool shows)
{
    m_showsFlashes = shows;
    if (!shows) {
        m_stale.add(m_flashes.area());
        m_flashes.clear();
        refresh();
    }
}

std::vector<OverlayShape> WindowOverlay::wantedShapes() const
{
    std::vector<OverlayShape> shapes;
    auto* const window = m_window.get();
    if (!window)
        return shapes;
    Rect const all = contentBounds(*window);
    auto const isHere = [&](NSView const* view) { return view && view->window() == window; };
    if (m_showsFrames)
        addFrames(*window->contentView(), all, shapes);
    if (auto const* const selected = m_selected.get(); isHere(selected)) {
        for (auto const* above = selected->superview(); above; above = above->superview())
            shapes.push_back({ OverlayRole::ancestor, rectInContent(*above), all });
        shapes.push_back({ OverlayRole::selection, rectInContent(*selected), all });
    }
    if (auto const* const hovered = m_hovered.get(); isHere(hovered) && hovered != m_selected.get())
        shapes.push_back({ OverlayRole::hover, rectInContent(*hovered), all });
    return shapes;
}

void WindowOverlay::contentWillBeDrawn(Region& region)
{
    if (m_showsFlashes && !region.isEmpty()) {
        m_flashes.add(region, clock().uptime());
        waitForFlashes();
    }
    if (auto shapes = wantedShapes(); shapes != m_shapes) {
        region.add(overlayArea(m_shapes));
        m_shapes = std::move(shapes);
        region.add(overlayArea(m_shapes));
    }
    region.add(m_stale);
    m_stale.clear();
    if (auto* const window = m_window.get())
        region.intersectWith(contentBounds(*window));
}

void WindowOverlay::contentWasDrawn()
{
    if (!m_flashes.isEmpty())
        fill(m_flashes.area().rects(), flashColor, flashColor.fillAlpha);
    for (auto const& shape : m_shapes) {
        auto const color = colorOf(shape.role);
        if (isFilled(shape.role)) {
            Rect const seen = NSIntersectionRect(shape.rect, shape.clip);
            fill({ &seen, 1 }, color, color.fillAlpha);
        }
        fill(outlineEdges(shape.rect, shape.clip), color, color.lineAlpha);
    }
}

void WindowOverlay::pixelsWillMove(Rect rect, Size by)
{
    auto drawn = overlayArea(m_shapes);
    drawn.add(m_flashes.area());
    m_stale.add(staleAfterMove(drawn, rect, by));
    refresh();
}

// A timer that calls an object holds it, and this one does not own its time.
void WindowOverlay::waitForFlashes()
{
    if (m_flashTimer && m_flashTimer->isValid())
        return;
    m_flashTimer = NSTimer::timerWithTimeInterval(
        std::max(m_flashes.nextExpiry() - clock().uptime(), 0.0), [this](NSTimer&) { endFlashes(); }, false);
    NSRunLoop::currentRunLoop().addTimer(*m_flashTimer, NSRunLoopCommonModes);
}

void WindowOverlay::endFlashes()
{
    m_flashTimer = nullptr;
    m_stale.add(m_flashes.takeExpired(clock().uptime()));
    refresh();
    if (!m_flashes.isEmpty())
        waitForFlashes();
}

}
