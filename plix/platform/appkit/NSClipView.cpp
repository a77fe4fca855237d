#include <plix/platform/appkit/NSClipView.h>

#include <plix/platform/appkit/LongDocument.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/scroll_layout.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSColor.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSClipView)
{
}

NSClipView::NSClipView() = default;
NSClipView::~NSClipView() = default;

bool NSClipView::init()
{
    return NSClipView::init(Rect {});
}

bool NSClipView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    m_backgroundColor = NSColor::controlBackgroundColor();
    return true;
}

bool NSClipView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_backgroundColor = NSColor::controlBackgroundColor();
    coder.read("backgroundColor", [&](ObjectValue const& value) { m_backgroundColor = value.as<NSColor>(); });
    coder.read("drawsBackground", [&](ObjectValue const& value) { m_drawsBackground = value.boolValue(); });
    coder.read("copiesOnScroll", [&](ObjectValue const& value) { m_copiesOnScroll = value.boolValue(); });
    coder.read("documentView", [&](ObjectValue const& value) { setDocumentView(value.as<NSView>()); });
    return true;
}

void NSClipView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_backgroundColor, "backgroundColor");
    coder.encodeBool(m_drawsBackground, "drawsBackground");
    coder.encodeBool(m_copiesOnScroll, "copiesOnScroll");
    coder.encodeObject(Ref<NSView>(m_documentView.get()), "documentView");
}

// MARK: the document

void NSClipView::setDocumentView(Ref<NSView> const& document)
{
    if (m_documentView == document.get())
        return;
    if (Ref<NSView> const old = m_documentView.get())
        old->removeFromSuperview();
    m_documentView = document;
    if (document) {
        addSubview(*document);
        document->setPostsFrameChangedNotifications(true);
        document->setPostsBoundsChangedNotifications(true);
        auto& center = NSNotificationCenter::defaultCenter();
        center.addObserver(*this, &NSClipView::viewFrameChanged, NSViewFrameDidChangeNotification, document.get());
        center.addObserver(*this, &NSClipView::viewBoundsChanged, NSViewBoundsDidChangeNotification, document.get());
        Rect const frame = document->frame();
        Point const top { frame.x, isFlipped() ? frame.y : frame.maxY() - bounds().height };
        setBoundsOrigin(constrainScrollPoint(top));
    } else {
        setBoundsOrigin({});
    }
    setNeedsDisplay(true);
    documentChanged();
}

void NSClipView::willRemoveSubview(NSView& view)
{
    Base::willRemoveSubview(view);
    if (m_documentView != &view)
        return;
    NSNotificationCenter::defaultCenter().removeObserver(*this, {}, &view);
    m_documentView = nullptr;
    setNeedsDisplay(true);
    documentChanged();
}

bool NSClipView::isFlipped() const
{
    return m_documentView && m_documentView->isFlipped();
}

Rect NSClipView::documentRect() const
{
    Rect const visible = bounds();
    Rect rect = m_documentView ? m_documentView->frame() : Rect {};
    rect.width = std::max(rect.width, visible.width);
    rect.height = std::max(rect.height, visible.height);
    return rect;
}

Rect NSClipView::documentVisibleRect() const
{
    return m_documentView ? m_documentView->convertRectFromView(bounds(), this) : bounds();
}

void NSClipView::viewFrameChanged(NSNotification const&)
{
    documentChanged();
}

void NSClipView::viewBoundsChanged(NSNotification const&)
{
    documentChanged();
}

// A document that shrank may leave the clip outside it.
void NSClipView::documentChanged()
{
    Point const origin = constrainScrollPoint(bounds().origin());
    if (origin != bounds().origin())
        scrollToPoint(origin);
    if (auto* above = superview())
        above->reflectScrolledClipView(*this);
}

void NSClipView::setFrameSize(Size size)
{
    float const grown = size.height - frame().height;
    Base::setFrameSize(size);
    // The top stays where it is, which in an unflipped document is not the origin.
    Point origin = bounds().origin();
    if (!isFlipped() && m_documentView)
        origin.y -= grown;
    origin = constrainScrollPoint(origin);
    if (origin != bounds().origin())
        setBoundsOrigin(origin);
}

// MARK: looks

void NSClipView::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    setNeedsDisplay(true);
}

void NSClipView::setDrawsBackground(bool draws)
{
    if (m_drawsBackground == draws)
        return;
    m_drawsBackground = draws;
    setNeedsDisplay(true);
}

void NSClipView::setCopiesOnScroll(bool copies)
{
    m_copiesOnScroll = copies;
}

bool NSClipView::isOpaque() const
{
    return m_drawsBackground && m_backgroundColor && m_backgroundColor->alphaComponent() == 1;
}

void NSClipView::drawRect(Rect dirty)
{
    bool const isCovered = m_documentView && m_documentView->isOpaque() && NSContainsRect(m_documentView->frame(), dirty);
    if (m_drawsBackground && m_backgroundColor && !isCovered)
        Theme::current().fill(dirty, *m_backgroundColor);
}

NSCursor* NSClipView::documentCursor() const
{
    return m_documentCursor.get();
}

void NSClipView::setDocumentCursor(Ref<NSCursor> const& cursor)
{
    if (m_documentCursor == cursor)
        return;
    m_documentCursor = cursor;
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

void NSClipView::resetCursorRects()
{
    if (m_documentCursor)
        addCursorRect(bounds(), *m_documentCursor);
}

// MARK: scrolling

Point NSClipView::constrainScrollPoint(Point proposed) const
{
    return m_documentView ? constrainedScrollPoint(proposed, m_documentView->frame(), bounds().size()) : Point {};
}

bool NSClipView::canCopyPixels() const
{
    // What shines through from behind does not move along.
    bool const isWhole = isOpaque() || (m_documentView && m_documentView->isOpaque());
    return m_copiesOnScroll && isWhole;
}

void NSClipView::scrollToPoint(Point point)
{
    auto const* ownWindow = window();
    Point const target = pixelAlignedPoint(point, ownWindow ? ownWindow->backingScaleFactor() : 1);
    Rect const before = bounds();
    if (target == before.origin())
        return;
    if (!canCopyPixels()) {
        setBoundsOrigin(target);
        setNeedsDisplay(true);
        return;
    }
    scrollRect(before, { before.x - target.x, before.y - target.y });
    moveBoundsOriginWithPixels(target);
    for (Rect const strip : exposedStrips(before, bounds()))
        setNeedsDisplayInRect(strip);
}

bool NSClipView::scrollTo(Point proposed)
{
    Point const before = bounds().origin();
    scrollToPoint(constrainScrollPoint(proposed));
    if (bounds().origin() == before)
        return false;
    if (auto* whole = dynamic_cast<LongDocument*>(m_documentView.get()))
        whole->documentScrolled();
    if (auto* above = superview())
        above->reflectScrolledClipView(*this);
    return true;
}

bool NSClipView::autoscroll(NSEvent& event)
{
    Point const point = convertPointFromView(event.locationInWindow(), nullptr);
    Size const distance = autoscrollDistance(point, bounds());
    return scrollTo({ bounds().x + distance.width, bounds().y + distance.height });
}

bool NSClipView::scrollDocumentToPoint(NSView& descendant, Point point)
{
    return scrollTo(convertPointFromView(point, &descendant));
}

bool NSClipView::scrollDocumentRectToVisible(NSView& descendant, Rect rect)
{
    Point const wanted = scrollPointShowing(convertRectFromView(rect, &descendant), bounds());
    bool const hasMoved = wanted != bounds().origin() && scrollTo(wanted);
    // A clip view around this one may hide the place still.
    auto* above = superview();
    bool const hasMovedAbove = above && above->scrollRectToVisible(above->convertRectFromView(rect, &descendant));
    return hasMoved || hasMovedAbove;
}

}
