#include <plix/platform/appkit/NSSplitView.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <algorithm>

namespace plix {

namespace {

constexpr float usualThickness = 9;
constexpr float paneSplitterThickness = 6;
/// A thin divider is as easy to grab as one of this thickness.
constexpr float leastGrab = 5;

}

PLIX_DESCRIBE(NSSplitView)
{
    description.hookOutlet("delegate", &NSSplitView::takeHooks);
}

NSSplitView::NSSplitView() = default;
NSSplitView::~NSSplitView() = default;

bool NSSplitView::init()
{
    return NSSplitView::init(Rect {});
}

bool NSSplitView::init(Rect frame)
{
    return Base::init(frame);
}

bool NSSplitView::init(NSCoder& coder)
{
    // Before the panes, which are laid out as they come.
    m_isVertical = coder.decodeBoolForKey("vertical");
    m_isPaneSplitter = coder.decodeBoolForKey("paneSplitter");
    return Base::init(coder);
}

void NSSplitView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(m_isVertical, "vertical");
    coder.encodeBool(m_isPaneSplitter, "paneSplitter");
}

void NSSplitView::setVertical(bool isVertical)
{
    if (m_isVertical == isVertical)
        return;
    noteFramesThatHostChanged();
    m_isVertical = isVertical;
    layOut(subviews());
}

void NSSplitView::setIsPaneSplitter(bool isPaneSplitter)
{
    if (m_isPaneSplitter == isPaneSplitter)
        return;
    m_isPaneSplitter = isPaneSplitter;
    adjustSubviews();
}

float NSSplitView::dividerThickness() const
{
    return m_isPaneSplitter ? paneSplitterThickness : usualThickness;
}

void NSSplitView::takeHooks(HookSource const& source)
{
    m_delegate = source;
    m_hooks = source.hooks<NSSplitViewDelegate>();
}

void NSSplitView::post(char const* name, Hook<void(NSNotification const&)> const& hook)
{
    NSNotification const notification { name, Ref<NSObject>(this), {} };
    hook(notification);
    NSNotificationCenter::defaultCenter().postNotification(notification);
}

// MARK: panes

float NSSplitView::lengthOf(Size size) const
{
    return m_isVertical ? size.width : size.height;
}

float NSSplitView::positionOf(Point point) const
{
    return m_isVertical ? point.x : point.y;
}

std::vector<SplitPane> NSSplitView::shownPanes() const
{
    std::vector<SplitPane> panes;
    for (auto const& view : subviews())
        panes.push_back({ lengthOf(view->frame().size()), view->isHidden() });
    return panes;
}

// A host that sets frames, hides panes or reorders them gives new shares.
void NSSplitView::noteFramesThatHostChanged()
{
    auto const panes = shownPanes();
    bool isKnown = m_shares.size() == panes.size();
    for (std::size_t i = 0; isKnown && i < panes.size(); ++i)
        isKnown = m_laidOut[i] == panes[i].length && m_shares[i].isCollapsed == panes[i].isCollapsed;
    if (!isKnown)
        m_shares = panes;
}

void NSSplitView::takePanes(std::vector<SplitPane> const& panes, std::vector<Ref<NSView>> const& views)
{
    Ref<NSSplitView> const protector(this);
    post(NSSplitViewWillResizeSubviewsNotification, m_hooks.splitViewWillResizeSubviews);
    auto const area = bounds();
    auto const starts = splitPaneStarts(panes, dividerThickness());
    m_laidOut.clear();
    for (auto const& pane : panes)
        m_laidOut.push_back(pane.length);
    auto const laidOut = views;
    for (std::size_t i = 0; i < laidOut.size(); ++i) {
        auto const& view = laidOut[i];
        view->setHidden(panes[i].isCollapsed);
        view->setFrame(m_isVertical ? Rect { area.x + starts[i], area.y, panes[i].length, area.height }
                                    : Rect { area.x, area.y + starts[i], area.width, panes[i].length });
    }
    setNeedsDisplay(true);
    if (window())
        window()->invalidateCursorRectsForView(*this);
    post(NSSplitViewDidResizeSubviewsNotification, m_hooks.splitViewDidResizeSubviews);
}

void NSSplitView::layOut(std::vector<Ref<NSView>> const& views)
{
    takePanes(splitPanesFilling(m_shares, lengthOf(bounds().size()), dividerThickness()), views);
}

void NSSplitView::adjustSubviews()
{
    noteFramesThatHostChanged();
    layOut(subviews());
}

void NSSplitView::resizeSubviewsWithOldSize(Size oldSize)
{
    if (m_hooks.resizeSubviewsWithOldSize)
        m_hooks.resizeSubviewsWithOldSize(*this, oldSize);
    else
        adjustSubviews();
}

void NSSplitView::didAddSubview(NSView& view)
{
    auto const place = std::ranges::find(subviews(), &view, &Ref<NSView>::get) - subviews().begin();
    auto const known = static_cast<std::ptrdiff_t>(m_shares.size());
    m_shares.insert(m_shares.begin() + std::min(place, known), { lengthOf(view.frame().size()), view.isHidden() });
    if (m_shares.size() != subviews().size())
        m_shares = shownPanes();
    layOut(subviews());
}

void NSSplitView::willRemoveSubview(NSView& view)
{
    auto views = subviews();
    auto const place = std::ranges::find(views, &view, &Ref<NSView>::get) - views.begin();
    noteFramesThatHostChanged();
    m_shares.erase(m_shares.begin() + place);
    views.erase(views.begin() + place);
    layOut(views);
}

bool NSSplitView::isSubviewCollapsed(NSView const& view) const
{
    return view.superview() == this && view.isHidden();
}

// MARK: dividers

long NSSplitView::numberOfDividers() const
{
    return std::max(0L, static_cast<long>(subviews().size()) - 1);
}

Rect NSSplitView::rectOfDivider(long index) const
{
    if (index < 0 || index >= numberOfDividers())
        return {};
    auto const panes = shownPanes();
    float const thickness = dividerThickness();
    auto const place = static_cast<std::size_t>(index);
    float const start = splitPaneStarts(panes, thickness)[place] + panes[place].shownLength();
    auto const area = bounds();
    return m_isVertical ? Rect { area.x + start, area.y, thickness, area.height }
                        : Rect { area.x, area.y + start, area.width, thickness };
}

float NSSplitView::minPossiblePositionOfDividerAtIndex(long index) const
{
    if (index < 0 || index >= numberOfDividers())
        return 0;
    return splitRange(shownPanes(), static_cast<std::size_t>(index), dividerThickness()).lowest;
}

float NSSplitView::maxPossiblePositionOfDividerAtIndex(long index) const
{
    if (index < 0 || index >= numberOfDividers())
        return 0;
    return splitRange(shownPanes(), static_cast<std::size_t>(index), dividerThickness()).highest;
}

SplitLimits NSSplitView::limitsOf(long divider)
{
    Ref<NSView> const before = subviews()[static_cast<std::size_t>(divider)];
    Ref<NSView> const behind = subviews()[static_cast<std::size_t>(divider) + 1];
    SplitLimits limits;
    limits.allowed = splitRange(shownPanes(), static_cast<std::size_t>(divider), dividerThickness());
    if (m_hooks.constrainMinCoordinate)
        limits.allowed.lowest = m_hooks.constrainMinCoordinate(*this, limits.allowed.lowest, divider);
    if (m_hooks.constrainMaxCoordinate)
        limits.allowed.highest = m_hooks.constrainMaxCoordinate(*this, limits.allowed.highest, divider);
    if (m_hooks.canCollapseSubview) {
        limits.canCollapseBefore = m_hooks.canCollapseSubview(*this, *before);
        limits.canCollapseBehind = m_hooks.canCollapseSubview(*this, *behind);
    }
    return limits;
}

void NSSplitView::setPosition(float position, long divider)
{
    if (divider < 0 || divider >= numberOfDividers())
        return;
    Ref<NSSplitView> const protector(this);
    auto const limits = limitsOf(divider);
    // The delegate may have changed the panes.
    if (divider >= numberOfDividers())
        return;
    auto const panes = splitPanesDragged(shownPanes(), static_cast<std::size_t>(divider), position, dividerThickness(), limits);
    if (panes == shownPanes())
        return;
    m_shares = panes;
    takePanes(panes, subviews());
}

long NSSplitView::dividerAt(Point point) const
{
    for (long i = 0; i < numberOfDividers(); ++i) {
        float const more = std::max(0.F, (leastGrab - dividerThickness()) / 2);
        auto const rect = rectOfDivider(i);
        if (mouseInRect(point, m_isVertical ? NSInsetRect(rect, -more, 0) : NSInsetRect(rect, 0, -more)))
            return i;
    }
    return -1;
}

// MARK: mouse

NSView* NSSplitView::hitTest(Point point)
{
    auto* hit = Base::hitTest(point);
    // Also where a thin divider's grab reaches over a pane.
    return hit && dividerAt(convertPointFromView(point, superview())) >= 0 ? this : hit;
}

void NSSplitView::mouseDown(NSEvent& event)
{
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    long const divider = dividerAt(point);
    if (divider < 0) {
        Base::mouseDown(event);
        return;
    }
    if (event.clickCount() == 2 && collapseAt(divider))
        return;
    dragDivider(divider, positionOf(point) - positionOf(rectOfDivider(divider).origin()));
}

void NSSplitView::dragDivider(long divider, float grip)
{
    Ref<NSSplitView> const protector(this);
    while (Ref<NSWindow> const ownWindow = window()) {
        auto const event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask);
        if (!event || divider >= numberOfDividers())
            return;
        if (event->type() == NSLeftMouseUp)
            return;
        float position
            = positionOf(convertPointFromView(event->locationInWindow(), nullptr)) - grip - positionOf(bounds().origin());
        if (m_hooks.constrainSplitPosition)
            position = m_hooks.constrainSplitPosition(*this, position, divider);
        setPosition(position, divider);
    }
}

// A double click: one of the panes at the divider's sides collapses, or comes back.
bool NSSplitView::collapseAt(long divider)
{
    if (!m_hooks.shouldCollapseSubview || !m_hooks.canCollapseSubview)
        return false;
    Ref<NSSplitView> const protector(this);
    for (long i : { divider, divider + 1 }) {
        Ref<NSView> const pane = subviews()[static_cast<std::size_t>(i)];
        bool const mayCollapse = m_hooks.canCollapseSubview(*this, *pane) && m_hooks.shouldCollapseSubview(*this, *pane, divider);
        if (!mayCollapse || pane->superview() != this || divider >= numberOfDividers())
            continue;
        auto panes = shownPanes();
        auto& toggled = panes[static_cast<std::size_t>(i)];
        auto& other = panes[static_cast<std::size_t>(i == divider ? divider + 1 : divider)];
        float const room = toggled.shownLength() + other.shownLength();
        toggled.isCollapsed = !toggled.isCollapsed;
        toggled.length = std::min(toggled.length, room);
        other.isCollapsed = false;
        other.length = room - toggled.shownLength();
        m_shares = panes;
        takePanes(panes, subviews());
        return true;
    }
    return false;
}

void NSSplitView::resetCursorRects()
{
    auto& cursor = m_isVertical ? NSCursor::resizeLeftRightCursor() : NSCursor::resizeUpDownCursor();
    float const more = std::max(0.F, (leastGrab - dividerThickness()) / 2);
    for (long i = 0; i < numberOfDividers(); ++i) {
        auto const rect = rectOfDivider(i);
        addCursorRect(m_isVertical ? NSInsetRect(rect, -more, 0) : NSInsetRect(rect, 0, -more), cursor);
    }
}

// MARK: drawing

void NSSplitView::drawRect(Rect)
{
    for (long i = 0; i < numberOfDividers(); ++i) {
        auto const rect = rectOfDivider(i);
        if (needsToDrawRect(rect))
            drawDividerInRect(rect);
    }
}

void NSSplitView::drawDividerInRect(Rect rect)
{
    Theme::current().drawSplitDivider(rect, m_isVertical, m_isPaneSplitter);
}

}
