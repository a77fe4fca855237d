#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/WindowWatcher.h>
#include <plix/platform/appkit/pixel_moves.h>
#include <plix/platform/appkit/view_drawing.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace plix {

namespace {

constexpr float texturedShade = 0.08F;
/// Edges that rounding puts this close to a pixel's edge lie on it.
constexpr float pixelTolerance = 0.01F;

PixelRect pixelsTouchedBy(Rect rect, PixelBuffer const& pixels)
{
    float const scale = pixels.scale;
    int const left = std::clamp(static_cast<int>(std::floor(rect.x * scale + pixelTolerance)), 0, pixels.width);
    int const right = std::clamp(static_cast<int>(std::ceil(rect.maxX() * scale - pixelTolerance)), 0, pixels.width);
    float const height = static_cast<float>(pixels.height);
    int const top = std::clamp(static_cast<int>(std::floor(height - rect.maxY() * scale + pixelTolerance)), 0, pixels.height);
    int const bottom = std::clamp(static_cast<int>(std::ceil(height - rect.y * scale - pixelTolerance)), 0, pixels.height);
    return { left, top, std::max(right - left, 0), std::max(bottom - top, 0) };
}

Rect pointsOf(PixelRect rect, PixelBuffer const& pixels)
{
    float const scale = pixels.scale;
    return { static_cast<float>(rect.x) / scale, static_cast<float>(pixels.height - rect.y - rect.height) / scale,
        static_cast<float>(rect.width) / scale, static_cast<float>(rect.height) / scale };
}

}

bool NSWindow::Internals::canDraw() const
{
    return host && isOrderedIn && !isMiniaturized;
}

Ref<NSGraphicsContext> NSWindow::Internals::contextForDrawing()
{
    if (!canDraw())
        return nullptr;
    auto const pixels = host->lockPixels();
    if (!pixels.pixels || pixels.width <= 0 || pixels.height <= 0)
        return nullptr;
    if (!pixels.keepsContent && !isDrawing)
        contentView->setNeedsDisplay(true);
    bool const isSame = context && pixels.pixels == contextPixels.pixels && pixels.width == contextPixels.width
        && pixels.height == contextPixels.height && pixels.stride == contextPixels.stride && pixels.scale == contextPixels.scale;
    contextPixels = pixels;
    if (!isSame)
        context = make<NSGraphicsContext>(pixels);
    return context;
}

bool NSWindow::Internals::canMovePixels()
{
    return !isDrawing && contextForDrawing() && contextPixels.keepsContent;
}

bool NSWindow::Internals::movePixels(Rect rect, Size by)
{
    auto const pixels = pixelsTouchedBy(rect, contextPixels);
    float const x = by.width * contextPixels.scale;
    float const y = -by.height * contextPixels.scale;
    Rect const whole = pointsOf(pixels, contextPixels);
    Rect const rest { rect.x - whole.x, rect.y - whole.y, rect.width - whole.width, rect.height - whole.height };
    for (float const fraction : { x - std::round(x), y - std::round(y), rest.x, rest.y, rest.width, rest.height }) {
        if (std::abs(fraction) > pixelTolerance)
            return false;
    }
    if (auto* const watcher = WindowWatcher::current())
        watcher->pixelsWillMove(self, rect, by);
    context->flushGraphics();
    plix::movePixels(contextPixels, pixels, static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y)));
    context->pixelsChanged();
    notePresent(rect);
    return true;
}

void NSWindow::Internals::notePresent(Rect rect)
{
    toPresent.add(rect);
}

void NSWindow::Internals::presentNow()
{
    if (toPresent.isEmpty() || flushDisabled > 0 || !host)
        return;
    if (context)
        context->flushGraphics();
    presented.clear();
    for (auto const rect : toPresent.rects()) {
        auto const pixels = pixelsTouchedBy(rect, contextPixels);
        if (pixels.width > 0 && pixels.height > 0)
            presented.push_back(pixels);
    }
    toPresent.clear();
    if (!presented.empty())
        host->present(presented);
}

void NSWindow::Internals::drawBackground(NSGraphicsContext& target, std::span<Rect const> rects)
{
    auto const standard = NSColor::windowBackgroundColor();
    auto const color = background                    ? background
        : styleMask & NSTexturedBackgroundWindowMask ? standard->shadowWithLevel(texturedShade)
                                                     : standard;
    GraphicsState const saved(target);
    color->set();
    for (auto const rect : rects)
        NSRectFillUsingOperation(rect, NSCompositeCopy);
}

void NSWindow::Internals::drawRegion(Region const& region)
{
    auto const target = contextForDrawing();
    if (!target)
        return;
    Ref<NSWindow> const protector(self);
    // Whole pixels, so that what is drawn again looks the same as what is not.
    Region whole;
    if (!contextPixels.keepsContent) {
        whole.add({ 0, 0, content.width, content.height });
        clearDirtyRegion(*contentView, {}, whole.rects());
    } else {
        for (auto const rect : region.rects())
            whole.add(pointsOf(pixelsTouchedBy(rect, contextPixels), contextPixels));
    }
    if (whole.isEmpty())
        return;
    isDrawing = true;
    {
        AppearanceScope const scope(self.effectiveAppearance());
        CurrentContext const current(target);
        target->resetClip();
        target->setTransform({});
        target->clipToRects(whole.rects());
        if (!contentView->isOpaque() || contentView->isHidden())
            drawBackground(*target, whole.rects());
        if (!contentView->isHidden())
            ViewDrawing(*target).drawTree(*contentView, whole.rects());
        if (isHostOfSheet) {
            target->setTransform({});
            Theme::current().drawSheetEdge({ 0, 0, content.width, content.height });
        }
        if (auto* const watcher = WindowWatcher::current()) {
            target->setTransform({});
            watcher->contentWasDrawn(self);
        }
    }
    isDrawing = false;
    hostsInUse.clear();
    toPresent.add(whole);
    presentNow();
    placeHost();
}

void NSWindow::Internals::displayDirty(NSView& root)
{
    if (!canDraw() || isDrawing)
        return;
    bool const isWhole = &root == contentView;
    if (isWhole)
        needsDisplay = false;
    // Pixels that were lost are noticed before the dirty region is taken.
    contextForDrawing();
    auto const toSuperview = root.superview() ? NSView::Access::toBase(*root.superview()) : AffineTransform {};
    auto const fromSuperview = root.superview()
        ? concatenated(toSuperview, AffineTransform::translation(-contentOffset().x, -contentOffset().y))
        : AffineTransform {};
    Region dirty;
    takeDirtyRegion(root, fromSuperview, { 0, 0, content.width, content.height }, dirty);
    if (auto* const watcher = WindowWatcher::current())
        watcher->contentWillBeDrawn(self, dirty);
    if (!dirty.isEmpty())
        drawRegion(dirty);
    else
        presentNow();
}

bool NSWindow::Internals::displayNow(NSView& view, Rect rect)
{
    if (!canDraw() || isDrawing)
        return false;
    Point const offset = contentOffset();
    Rect const inBase = NSView::Access::toBase(view).boundsOf(rect);
    Region region;
    region.add(NSIntersectionRect(NSOffsetRect(inBase, -offset.x, -offset.y), { 0, 0, content.width, content.height }));
    clearDirtyRegion(*contentView, {}, region.rects());
    if (auto* const watcher = WindowWatcher::current())
        watcher->contentWillBeDrawn(self, region);
    if (!region.isEmpty())
        drawRegion(region);
    return true;
}

void NSWindow::display()
{
    Ref<NSWindow> const protector(this);
    m->contentView->display();
}

void NSWindow::displayIfNeeded()
{
    Ref<NSWindow> const protector(this);
    m->displayDirty(*m->contentView);
}

bool NSWindow::viewsNeedDisplay() const
{
    return m->needsDisplay;
}

void NSWindow::setViewsNeedDisplay(bool needsDisplay)
{
    m->needsDisplay = needsDisplay;
}

bool NSWindow::isAutodisplay() const
{
    return m->autodisplays;
}

void NSWindow::setAutodisplay(bool autodisplays)
{
    m->autodisplays = autodisplays;
}

void NSWindow::flushWindow()
{
    m->presentNow();
}

void NSWindow::disableFlushWindow()
{
    ++m->flushDisabled;
}

void NSWindow::enableFlushWindow()
{
    if (m->flushDisabled > 0)
        --m->flushDisabled;
}

void NSWindow::update()
{
    m->post(NSWindowDidUpdateNotification, &NSWindowDelegate::windowDidUpdate);
}

Ref<NSBitmapImageRep> NSWindow::snapshot() const
{
    if (!m->host)
        return nullptr;
    auto const shown = m->host->lockPixels();
    if (!shown.pixels)
        return nullptr;
    if (m->context)
        m->context->flushGraphics();
    auto rep = make<NSBitmapImageRep>(shown.width, shown.height);
    if (!rep)
        return nullptr;
    auto const copied = rep->mutablePixels();
    for (int row = 0; row < shown.height; ++row) {
        auto* const to = copied.pixels + std::ptrdiff_t { row } * copied.stride;
        std::memcpy(to, shown.pixels + std::ptrdiff_t { row } * shown.stride, static_cast<std::size_t>(shown.width) * 4);
        // Without alpha the highest byte means nothing.
        for (int column = 0; !shown.hasAlpha && column < shown.width; ++column)
            to[column * 4 + 3] = 0xFF;
    }
    rep->setSize({ static_cast<float>(shown.width) / shown.scale, static_cast<float>(shown.height) / shown.scale });
    return rep;
}

}
