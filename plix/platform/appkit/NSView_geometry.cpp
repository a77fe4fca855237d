#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <cmath>
#include <vector>

namespace plix {

namespace {

Size withoutSign(Size size)
{
    return { std::abs(size.width), std::abs(size.height) };
}

/// The inverse; the identity where there is none, as for a view of no size.
AffineTransform inverseOf(AffineTransform const& transform)
{
    return transform.inverse().value_or(AffineTransform {});
}

Size apply(AffineTransform const& transform, Size size)
{
    auto const box = transform.boundsOf({ 0, 0, std::abs(size.width), std::abs(size.height) });
    return withoutSign(box.size());
}

}

// Frame.

Rect NSView::frameArea() const
{
    if (frameRotation() == 0)
        return m_frame;
    return toSuperview().boundsOf(m_bounds);
}

float NSView::frameRotation() const
{
    return m_extras ? m_extras->frameRotation : 0;
}

void NSView::geometryChanged()
{
    if (m_window)
        m_window->internals().viewGeometryChanged();
}

void NSView::frameChanged()
{
    geometryChanged();
    if (m_flags.postsFrameChanges && !m_flags.holdsFrameNotification)
        NSNotificationCenter::defaultCenter().postNotificationName(NSViewFrameDidChangeNotification, Ref<NSObject>(this));
}

void NSView::boundsChanged()
{
    markDirty(m_bounds);
    boundsMoved();
}

void NSView::boundsMoved()
{
    geometryChanged();
    if (m_flags.postsBoundsChanges)
        NSNotificationCenter::defaultCenter().postNotificationName(NSViewBoundsDidChangeNotification, Ref<NSObject>(this));
}

void NSView::setFrame(Rect frame)
{
    Ref<NSView> const protector(this);
    Rect const before = m_frame;
    bool const held = m_flags.holdsFrameNotification;
    m_flags.holdsFrameNotification = true;
    setFrameOrigin(frame.origin());
    setFrameSize(frame.size());
    m_flags.holdsFrameNotification = held;
    if (m_frame != before)
        frameChanged();
}

void NSView::setFrameOrigin(Point origin)
{
    if (origin == m_frame.origin())
        return;
    Ref<NSView> const protector(this);
    markDirtyInSuperview(frameArea());
    m_frame.x = origin.x;
    m_frame.y = origin.y;
    markDirtyInSuperview(frameArea());
    frameChanged();
}

void NSView::setFrameSize(Size size)
{
    if (size == m_frame.size())
        return;
    Ref<NSView> const protector(this);
    Size const oldBoundsSize = m_bounds.size();
    markDirtyInSuperview(frameArea());
    m_frame.width = size.width;
    m_frame.height = size.height;
    Size const scale = m_flags.hasOwnBoundsSize ? extras().boundsScale : Size { 1, 1 };
    m_bounds.width = size.width / scale.width;
    m_bounds.height = size.height / scale.height;
    markDirtyInSuperview(frameArea());
    m_dirty.intersectWith(m_bounds);
    markDirty(m_bounds);
    if (m_flags.autoresizesSubviews)
        resizeSubviewsWithOldSize(oldBoundsSize);
    frameChanged();
}

void NSView::setFrameRotation(float degrees)
{
    if (degrees == frameRotation())
        return;
    Ref<NSView> const protector(this);
    markDirtyInSuperview(frameArea());
    extras().frameRotation = degrees;
    markDirtyInSuperview(frameArea());
    frameChanged();
}

void NSView::setPostsFrameChangedNotifications(bool posts)
{
    m_flags.postsFrameChanges = posts;
}

// Bounds.

void NSView::setBounds(Rect bounds)
{
    Ref<NSView> const protector(this);
    setBoundsOrigin(bounds.origin());
    setBoundsSize(bounds.size());
}

void NSView::setBoundsOrigin(Point origin)
{
    if (origin == m_bounds.origin())
        return;
    Ref<NSView> const protector(this);
    m_bounds.x = origin.x;
    m_bounds.y = origin.y;
    m_dirty.clear();
    boundsChanged();
}

void NSView::setBoundsSize(Size size)
{
    if (size == m_bounds.size() || !(size.width > 0 && size.height > 0))
        return;
    Ref<NSView> const protector(this);
    m_bounds.width = size.width;
    m_bounds.height = size.height;
    m_flags.hasOwnBoundsSize = true;
    extras().boundsScale
        = { m_frame.width > 0 ? m_frame.width / size.width : 1, m_frame.height > 0 ? m_frame.height / size.height : 1 };
    m_dirty.clear();
    boundsChanged();
}

void NSView::translateOriginToPoint(Point point)
{
    setBoundsOrigin({ m_bounds.x - point.x, m_bounds.y - point.y });
}

void NSView::scaleUnitSquareToSize(Size unit)
{
    if (unit.width == 0 || unit.height == 0)
        return;
    setBoundsSize({ m_bounds.width / unit.width, m_bounds.height / unit.height });
}

bool NSView::isRotatedFromBase() const
{
    for (auto const* view = this; view; view = view->m_superview) {
        if (view->frameRotation() != 0)
            return true;
    }
    return false;
}

bool NSView::isRotatedOrScaledFromBase() const
{
    for (auto const* view = this; view; view = view->m_superview) {
        if (view->frameRotation() != 0 || view->m_flags.hasOwnBoundsSize)
            return true;
    }
    return false;
}

void NSView::setPostsBoundsChangedNotifications(bool posts)
{
    m_flags.postsBoundsChanges = posts;
}

// Autoresizing.

void NSView::resizeSubviewsWithOldSize(Size oldBoundsSize)
{
    Ref<NSView> const protector(this);
    for (auto const& subview : std::vector(m_subviews)) {
        if (subview->m_superview == this)
            subview->resizeWithOldSuperviewSize(oldBoundsSize);
    }
}

void NSView::resizeWithOldSuperviewSize(Size oldBoundsSize)
{
    if (m_superview)
        setFrame(resizedFrame(m_frame, oldBoundsSize, m_superview->m_bounds.size(), m_autoresizingMask));
}

void NSView::sizeToFit()
{
    if (m_subviews.empty())
        return;
    std::vector<Rect> frames;
    for (auto const& subview : m_subviews)
        frames.push_back(subview->frame());
    setFrame(frameEnclosing(frames.data(), static_cast<long>(frames.size()), m_frame, m_bounds.origin()));
}

// Conversion.

AffineTransform NSView::toSuperview() const
{
    return transformToSuperview({ m_frame, m_bounds, frameRotation(), isFlipped(), m_superview && m_superview->isFlipped() });
}

AffineTransform NSView::toBase() const
{
    AffineTransform transform = toSuperview();
    for (auto const* view = m_superview; view; view = view->m_superview)
        transform = concatenated(transform, view->toSuperview());
    if (!m_window)
        return transform;
    auto const content = m_window->internals().contentOffset();
    return concatenated(transform, AffineTransform::translation(content.x, content.y));
}

AffineTransform NSView::toView(NSView const* other) const
{
    if (other == this)
        return {};
    if (other && other == m_superview)
        return toSuperview();
    if (other && other->m_superview == this)
        return inverseOf(other->toSuperview());
    return other ? concatenated(toBase(), inverseOf(other->toBase())) : toBase();
}

Point NSView::convertPointToView(Point point, NSView const* view) const
{
    return toView(view).apply(point);
}

Point NSView::convertPointFromView(Point point, NSView const* view) const
{
    return view ? view->toView(this).apply(point) : inverseOf(toBase()).apply(point);
}

Size NSView::convertSizeToView(Size size, NSView const* view) const
{
    return apply(toView(view), size);
}

Size NSView::convertSizeFromView(Size size, NSView const* view) const
{
    return apply(view ? view->toView(this) : inverseOf(toBase()), size);
}

Rect NSView::convertRectToView(Rect rect, NSView const* view) const
{
    return toView(view).boundsOf(rect);
}

Rect NSView::convertRectFromView(Rect rect, NSView const* view) const
{
    return view ? view->toView(this).boundsOf(rect) : inverseOf(toBase()).boundsOf(rect);
}

Rect NSView::centerScanRect(Rect rect) const
{
    float const scale = m_window ? m_window->backingScaleFactor() : 1;
    auto const base = toBase();
    auto inBase = base.boundsOf(rect);
    auto const snapped = [scale](float value) { return std::round(value * scale) / scale; };
    float const minX = snapped(inBase.x);
    float const minY = snapped(inBase.y);
    inBase = { minX, minY, snapped(inBase.maxX()) - minX, snapped(inBase.maxY()) - minY };
    return inverseOf(base).boundsOf(inBase);
}

Rect NSView::visibleRect() const
{
    if (!m_window || isHiddenOrHasHiddenAncestor())
        return {};
    Rect visible = m_bounds;
    auto transform = AffineTransform {};
    for (auto const* view = this; view->m_superview; view = view->m_superview) {
        transform = concatenated(transform, view->toSuperview());
        visible = NSIntersectionRect(visible, inverseOf(transform).boundsOf(view->m_superview->m_bounds));
    }
    return visible;
}

}
