#include <plix/platform/appkit/NSView.h>

#include <plix/platform/appkit/ComboList.h>
#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/foundation/NSCoder.h>

#include <algorithm>
#include <cassert>

namespace plix {

PLIX_DESCRIBE(NSView)
{
    description.outlet<NSView>("nextKeyView", [](NSView& view, Ref<NSView> const& next) { view.setNextKeyView(next.get()); })
        .outlet("menu", &NSView::setMenu)
        .property("hidden", &NSView::setHidden)
        .property("toolTip", &NSView::setToolTip);
}

NSView::NSView() = default;

NSView::~NSView()
{
    if (m_extras) {
        // The loop closes over the gap.
        if (auto* const previous = m_extras->previousKeyView.get())
            previous->setNextKeyView(m_extras->nextKeyView.get());
        else if (auto* const next = m_extras->nextKeyView.get())
            next->extras().previousKeyView = nullptr;
    }
    for (auto const& subview : m_subviews) {
        subview->m_superview = nullptr;
        if (subview->nextResponder() == this)
            subview->setNextResponder(nullptr);
        if (subview->m_window)
            subview->setWindow(nullptr);
    }
}

bool NSView::init()
{
    return NSView::init(Rect {});
}

bool NSView::init(Rect frame)
{
    if (!NSResponder::init())
        return false;
    m_frame = frame;
    m_bounds = { 0, 0, frame.width, frame.height };
    m_dirty.add(m_bounds);
    return true;
}

bool NSView::init(NSCoder& coder)
{
    if (!NSView::init(Rect {}))
        return false;
    coder.read("hidden", [&](ObjectValue const& value) { setHidden(value.boolValue()); });
    coder.read("autoresizingMask", [&](ObjectValue const& value) { m_autoresizingMask = static_cast<unsigned>(value.intValue()); });
    coder.read("autoresizesSubviews", [&](ObjectValue const& value) { setAutoresizesSubviews(value.boolValue()); });
    coder.read(
        "focusRingType", [&](ObjectValue const& value) { m_focusRingType = static_cast<NSFocusRingType>(value.intValue()); });
    coder.read("toolTip", [&](ObjectValue const& value) { setToolTip(value.description()); });
    coder.read("frame", [&](ObjectValue const& value) { setFrame(NSRectFromString(value.description())); });
    coder.read("bounds", [&](ObjectValue const& value) { setBounds(NSRectFromString(value.description())); });
    auto const subviews = coder.decodeObjectForKey("subviews");
    for (auto const& value : subviews.array() ? *subviews.array() : ObjectValue::Array {}) {
        if (auto const view = value.as<NSView>(); view && !isDescendantOf(*view))
            NSView::addSubview(*view);
    }
    coder.read("menu", [&](ObjectValue const& value) {
        if (auto const shown = value.as<NSMenu>())
            NSView::setMenu(shown);
    });
    return true;
}

void NSView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeBool(isHidden(), "hidden");
    coder.encodeInt(m_autoresizingMask, "autoresizingMask");
    coder.encodeBool(autoresizesSubviews(), "autoresizesSubviews");
    coder.encodeInt(m_focusRingType, "focusRingType");
    coder.encodeObject(toolTip(), "toolTip");
    coder.encodeObject(NSStringFromRect(m_frame), "frame");
    if (m_flags.hasOwnBoundsSize || m_bounds.origin() != Point {})
        coder.encodeObject(NSStringFromRect(m_bounds), "bounds");
    ObjectValue::Array subviews;
    for (auto const& view : archivedSubviews())
        subviews.emplace_back(view);
    coder.encodeObject(std::move(subviews), "subviews");
    coder.encodeObject(Ref<NSMenu>(NSView::menu()), "menu");
}

NSView::Extras& NSView::extras()
{
    if (!m_extras)
        m_extras = std::make_unique<Extras>();
    return *m_extras;
}

// The tree.

void NSView::willMoveToWindow(NSWindow* window)
{
    Ref<NSView> const protector(this);
    viewWillMoveToWindow(window);
    for (auto const& subview : std::vector(m_subviews))
        subview->willMoveToWindow(window);
    if (m_window)
        m_window->internals().viewWillLeave(*this);
}

void NSView::setWindow(NSWindow* window)
{
    m_window = window;
    for (auto const& subview : m_subviews)
        subview->setWindow(window);
}

void NSView::didMoveToWindow()
{
    Ref<NSView> const protector(this);
    viewDidMoveToWindow();
    for (auto const& subview : std::vector(m_subviews))
        subview->didMoveToWindow();
}

void NSView::Access::moveToWindow(NSView& view, NSWindow* window)
{
    Ref<NSView> const protector(view);
    if (view.m_window == window)
        return;
    view.willMoveToWindow(window);
    view.setWindow(window);
    view.markDirty(view.m_bounds);
    if (window)
        window->internals().viewGeometryChanged();
    view.didMoveToWindow();
}

void NSView::addSubview(NSView& view)
{
    addSubview(view, NSWindowAbove, nullptr);
}

void NSView::addSubview(NSView& view, NSWindowOrderingMode mode, NSView* relativeTo)
{
    assert(!isDescendantOf(view));
    if (isDescendantOf(view))
        return;
    Ref<NSView> const protector(this);
    Ref<NSView> const added(view);
    if (view.m_superview)
        view.detach(true);
    auto const sibling = std::ranges::find(m_subviews, relativeTo, &Ref<NSView>::get);
    bool const hasSibling = relativeTo && sibling != m_subviews.end();
    auto place = hasSibling     ? sibling - m_subviews.begin() + (mode == NSWindowBelow ? 0 : 1)
        : mode == NSWindowBelow ? 0
                                : static_cast<std::ptrdiff_t>(m_subviews.size());
    insertSubview(view, static_cast<std::size_t>(place));
}

void NSView::insertSubview(NSView& view, std::size_t place)
{
    auto* const window = m_window;
    bool const changesWindow = view.m_window != window;
    if (changesWindow)
        view.willMoveToWindow(window);
    view.viewWillMoveToSuperview(this);
    place = std::min(place, m_subviews.size());
    m_subviews.insert(m_subviews.begin() + static_cast<std::ptrdiff_t>(place), Ref<NSView>(view));
    view.m_superview = this;
    view.setNextResponder(this);
    if (changesWindow)
        view.setWindow(window);

    auto const serialAt = [&](std::size_t index) { return index < m_subviews.size() ? m_subviews[index]->serialNumber() : 0; };
    bool isBack = false;
    if (m_extras) {
        isBack = std::erase_if(m_extras->removals, [&](Extras::Removal const& removal) {
            return removal.view == view.serialNumber() && removal.frame == view.m_frame
                && removal.below == (place > 0 ? serialAt(place - 1) : 0) && removal.above == serialAt(place + 1);
        }) > 0;
    }
    if (!isBack)
        view.m_dirty.add(view.m_bounds);
    if (!view.m_dirty.isEmpty() || view.m_flags.descendantNeedsDisplay)
        view.propagateDirtiness();
    if (m_window)
        m_window->internals().viewGeometryChanged();
    if (changesWindow)
        view.didMoveToWindow();
    view.viewDidMoveToSuperview();
    didAddSubview(view);
}

void NSView::detach(bool marksSuperview)
{
    Ref<NSView> const protector(this);
    Ref<NSView> const superview(m_superview);
    if (!superview)
        return;
    superview->willRemoveSubview(*this);
    if (m_superview != superview)
        return;
    if (m_window)
        willMoveToWindow(nullptr);
    viewWillMoveToSuperview(nullptr);
    auto& siblings = superview->m_subviews;
    auto const place = std::ranges::find(siblings, this, &Ref<NSView>::get);
    if (m_superview != superview || place == siblings.end())
        return;
    if (marksSuperview && !m_flags.isHidden && superview->m_window) {
        auto const below = place == siblings.begin() ? 0 : (*(place - 1))->serialNumber();
        auto const above = place + 1 == siblings.end() ? 0 : (*(place + 1))->serialNumber();
        superview->extras().removals.push_back({ serialNumber(), below, above, m_frame, frameArea() });
        superview->propagateDirtiness();
    }
    siblings.erase(place);
    m_superview = nullptr;
    setNextResponder(nullptr);
    bool const leavesWindow = m_window != nullptr;
    if (leavesWindow) {
        m_window->internals().viewGeometryChanged();
        setWindow(nullptr);
        MenuTracker::viewsLeftWindow();
        ComboList::viewsLeftWindow();
        didMoveToWindow();
    }
    viewDidMoveToSuperview();
}

void NSView::removeFromSuperview()
{
    detach(true);
}

void NSView::removeFromSuperviewWithoutNeedingDisplay()
{
    detach(false);
}

void NSView::replaceSubview(NSView& old, NSView& replacement)
{
    auto const place = std::ranges::find(m_subviews, &old, &Ref<NSView>::get);
    if (place == m_subviews.end() || &old == &replacement)
        return;
    Ref<NSView> const added(replacement);
    Ref<NSView> const removed(old);
    if (replacement.m_superview)
        replacement.detach(true);
    auto const index = std::ranges::find(m_subviews, &old, &Ref<NSView>::get) - m_subviews.begin();
    old.detach(true);
    insertSubview(replacement, static_cast<std::size_t>(index));
}

void NSView::sortSubviews(std::function<bool(NSView const&, NSView const&)> const& comesBefore)
{
    auto sorted = m_subviews;
    std::ranges::stable_sort(sorted, [&](auto const& a, auto const& b) { return comesBefore(*a, *b); });
    if (sorted == m_subviews)
        return;
    m_subviews = std::move(sorted);
    markDirty(m_bounds);
}

bool NSView::isDescendantOf(NSView const& other) const
{
    for (auto const* view = this; view; view = view->m_superview) {
        if (view == &other)
            return true;
    }
    return false;
}

NSView* NSView::ancestorSharedWithView(NSView& other)
{
    for (auto* view = this; view; view = view->m_superview) {
        if (other.isDescendantOf(*view))
            return view;
    }
    return nullptr;
}

NSView* NSView::opaqueAncestor()
{
    auto* view = this;
    while (!view->isOpaque() && view->m_superview)
        view = view->m_superview;
    return view;
}

NSView* NSView::viewWithTag(long wanted)
{
    if (tag() == wanted)
        return this;
    for (auto const& subview : m_subviews) {
        if (auto* const found = subview->viewWithTag(wanted))
            return found;
    }
    return nullptr;
}

NSScrollView* NSView::enclosingScrollView() const
{
    for (auto* view = m_superview; view; view = view->m_superview) {
        if (auto* const scrollView = dynamic_cast<NSScrollView*>(view))
            return scrollView;
    }
    return nullptr;
}

// Hidden.

std::optional<Appearance> NSView::appearance() const
{
    if (!m_flags.hasAppearance)
        return std::nullopt;
    return m_flags.isDark ? Appearance::dark : Appearance::light;
}

void NSView::setAppearance(std::optional<Appearance> appearance)
{
    if (appearance == this->appearance())
        return;
    m_flags.hasAppearance = appearance.has_value();
    m_flags.isDark = appearance == Appearance::dark;
    setNeedsDisplay(true);
}

Appearance NSView::effectiveAppearance() const
{
    if (m_flags.hasAppearance)
        return m_flags.isDark ? Appearance::dark : Appearance::light;
    if (m_superview)
        return m_superview->effectiveAppearance();
    return m_window ? m_window->effectiveAppearance() : currentAppearance();
}

void NSView::setHidden(bool hidden)
{
    if (m_flags.isHidden == hidden)
        return;
    Ref<NSView> const protector(this);
    m_flags.isHidden = hidden;
    if (m_superview)
        m_superview->markDirty(frameArea());
    if (!hidden)
        markDirty(m_bounds);
    geometryChanged();
    bool const showsInTree = !m_superview || !m_superview->isHiddenOrHasHiddenAncestor();
    if (showsInTree)
        tellHidden(hidden);
    if (hidden && m_window)
        m_window->internals().viewWasHidden(*this);
}

void NSView::tellHidden(bool hidden)
{
    Ref<NSView> const protector(this);
    if (hidden)
        viewDidHide();
    else
        viewDidUnhide();
    for (auto const& subview : std::vector(m_subviews)) {
        if (!subview->m_flags.isHidden)
            subview->tellHidden(hidden);
    }
}

bool NSView::isHiddenOrHasHiddenAncestor() const
{
    for (auto const* view = this; view; view = view->m_superview) {
        if (view->m_flags.isHidden)
            return true;
    }
    return false;
}

}
