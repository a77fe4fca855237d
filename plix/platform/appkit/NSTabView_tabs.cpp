#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/tracking_wait.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <algorithm>
#include <utility>

namespace plix {

namespace {

/// A tab's ink goes this far beyond its rectangle, or less: to the line that it shares with the next one.
constexpr float tabInk = 4;

}

// MARK: looks

void NSTabView::setTabViewType(NSTabViewType type)
{
    if (m_type == type)
        return;
    m_type = type;
    layoutChanged();
}

void NSTabView::setControlSize(NSControlSize size)
{
    if (m_controlSize == size)
        return;
    m_controlSize = size;
    layoutChanged();
}

NSFont* NSTabView::font() const
{
    return m_font.get();
}

void NSTabView::setFont(Ref<NSFont> const& font)
{
    if (m_font == font)
        return;
    m_font = font;
    tabsChanged();
}

void NSTabView::setAllowsTruncatedLabels(bool allows)
{
    if (m_allowsTruncatedLabels == allows)
        return;
    m_allowsTruncatedLabels = allows;
    tabsChanged();
}

void NSTabView::setDrawsBackground(bool draws)
{
    if (m_drawsBackground == draws)
        return;
    m_drawsBackground = draws;
    setNeedsDisplay(true);
}

void NSTabView::layoutChanged()
{
    m_strip = nullptr;
    placePane();
    setNeedsDisplay(true);
    tabsChanged();
}

void NSTabView::tabsChanged()
{
    m_strip = nullptr;
    marksStrip();
    if (auto* ownWindow = window())
        ownWindow->invalidateCursorRectsForView(*this);
}

void NSTabView::marksStrip()
{
    setNeedsDisplayInRect(layout().strip);
}

void NSTabView::marksTab(NSTabViewItem const* item)
{
    Rect const rect = item ? rectForTabViewItem(*item) : overflowRect();
    if (!rect.isEmpty())
        setNeedsDisplayInRect(NSInsetRect(rect, -tabInk, -tabInk));
}

void NSTabView::labelChanged(Badge<NSTabViewItem>)
{
    tabsChanged();
}

// MARK: geometry

TabViewLayout NSTabView::layout() const
{
    return tabViewLayout(bounds(), m_type, m_controlSize);
}

Rect NSTabView::contentRect() const
{
    return layout().content;
}

void NSTabView::measureLabels(Strip& strip) const
{
    float const padding = 2 * tabPadding(m_controlSize);
    for (auto const& item : m_items) {
        auto const label = item->sizeOfLabel(false);
        float const full = label.width + padding;
        strip.labels.push_back(label);
        strip.lengths.push_back({ full, m_allowsTruncatedLabels ? std::min(full, item->sizeOfLabel(true).width + padding) : full });
    }
}

std::shared_ptr<NSTabView::Strip const> NSTabView::strip() const
{
    Size const space = hasTabs(m_type) ? tabStripSpace(layout(), m_type).size : Size {};
    long const selected = selectedIndex();
    bool const isMeasured = m_strip && m_strip->lengths.size() == m_items.size() && m_strip->controlSize == m_controlSize;
    if (isMeasured && m_strip->space == space && m_strip->selected == selected && m_strip->type == m_type)
        return m_strip;
    auto const made = std::make_shared<Strip>();
    if (isMeasured) {
        made->labels = m_strip->labels;
        made->lengths = m_strip->lengths;
    } else {
        measureLabels(*made);
    }
    made->space = space;
    made->selected = selected;
    made->type = m_type;
    made->controlSize = m_controlSize;
    if (hasTabs(m_type))
        made->plan = tabStripPlan(made->lengths, space, selected, m_type, m_controlSize);
    else
        made->plan.tabs.resize(m_items.size());
    m_strip = made;
    return made;
}

Rect NSTabView::inView(Rect inStrip) const
{
    return inStrip.isEmpty() ? Rect {} : tabStripSpace(layout(), m_type).toView.boundsOf(inStrip);
}

Size NSTabView::minimumSize() const
{
    auto size = tabViewChrome(m_type, m_controlSize);
    if (!hasTabs(m_type))
        return size;
    float length = 0;
    auto const measured = strip();
    for (auto const& each : measured->lengths)
        length += each.least;
    (m_type == NSLeftTabsBezelBorder || m_type == NSRightTabsBezelBorder ? size.height : size.width) += length;
    return size;
}

NSTabViewItem* NSTabView::tabViewItemAtPoint(Point point) const
{
    auto const shown = strip();
    auto const& tabs = shown->plan.tabs;
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (mouseInRect(point, inView(tabs[i])))
            return m_items[i].get();
    }
    return nullptr;
}

Rect NSTabView::rectForTabViewItem(NSTabViewItem const& item) const
{
    long const index = indexOfTabViewItem(item);
    return index == NSNotFound ? Rect {} : inView(strip()->plan.tabs[static_cast<std::size_t>(index)]);
}

Rect NSTabView::overflowRect() const
{
    return inView(strip()->plan.overflow);
}

// MARK: keys

bool NSTabView::acceptsFirstResponder() const
{
    return hasTabs(m_type) && !m_items.empty();
}

bool NSTabView::becomeFirstResponder()
{
    marksStrip();
    return Base::becomeFirstResponder();
}

bool NSTabView::resignFirstResponder()
{
    marksStrip();
    return Base::resignFirstResponder();
}

/// Where nobody in the window has the keyboard, too.
bool NSTabView::answersForKeyboard() const
{
    return window() && (keyboardIsIn(*this) || window()->firstResponder() == window());
}

bool NSTabView::performKeyEquivalent(NSEvent& event)
{
    Ref<NSTabView> const protector(this);
    if (Base::performKeyEquivalent(event))
        return true;
    unsigned const modifiers = event.modifierFlags() & (NSControlKeyMask | NSAlternateKeyMask | NSCommandKeyMask);
    if (event.type() != NSKeyDown || modifiers != NSControlKeyMask || numberOfTabViewItems() < 2 || !hasTabs(m_type)
        || !answersForKeyboard())
        return false;
    bool const isShifted = (event.modifierFlags() & NSShiftKeyMask) != 0;
    switch (event.characterIgnoringModifiers()) {
    case NSTabCharacter:
        selectBeside(isShifted ? -1 : 1, AtTheEnd::wrapsAround);
        return true;
    case NSBackTabCharacter:
    case NSPageUpFunctionKey:
        selectBeside(-1, AtTheEnd::wrapsAround);
        return true;
    case NSPageDownFunctionKey:
        selectBeside(1, AtTheEnd::wrapsAround);
        return true;
    default:
        return false;
    }
}

void NSTabView::keyDown(NSEvent& event)
{
    bool const isUpright = m_type == NSTopTabsBezelBorder || m_type == NSBottomTabsBezelBorder;
    bool const isPlain = !event.hasShortcutModifier() && !(event.modifierFlags() & NSAlternateKeyMask);
    char32_t const key = isPlain ? event.characterIgnoringModifiers() : U'\0';
    if (key == (isUpright ? NSLeftArrowFunctionKey : NSUpArrowFunctionKey))
        selectPreviousTabViewItem(this);
    else if (key == (isUpright ? NSRightArrowFunctionKey : NSDownArrowFunctionKey))
        selectNextTabViewItem(this);
    else if (key == NSHomeFunctionKey)
        selectFirstTabViewItem(this);
    else if (key == NSEndFunctionKey)
        selectLastTabViewItem(this);
    else
        Base::keyDown(event);
}

// MARK: mouse

void NSTabView::mouseDown(NSEvent& event)
{
    auto const point = convertPointFromView(event.locationInWindow(), nullptr);
    if (Ref<NSTabViewItem> const item { tabViewItemAtPoint(point) })
        press(*item);
    else if (mouseInRect(point, overflowRect()))
        showOverflowMenu(&event);
    else
        Base::mouseDown(event);
}

void NSTabView::press(NSTabViewItem& item)
{
    if (&item == m_selected)
        return;
    Ref<NSTabView> const protector(this);
    setState(item, NSPressedTab);
    while (Ref<NSWindow> const ownWindow = window()) {
        auto const event = ownWindow->nextEventMatchingMask(NSLeftMouseUpMask | NSLeftMouseDraggedMask);
        if (!event || !holds(item) || &item == m_selected)
            break;
        bool const isInside = tabViewItemAtPoint(convertPointFromView(event->locationInWindow(), nullptr)) == &item;
        if (event->type() == NSLeftMouseUp) {
            setState(item, NSBackgroundTab);
            if (isInside && !isAbandoned(*event))
                selectTabViewItem(&item);
            return;
        }
        setState(item, isInside ? NSPressedTab : NSBackgroundTab);
    }
    setState(item, &item == m_selected ? NSSelectedTab : NSBackgroundTab);
}

void NSTabView::showOverflowMenu(NSEvent* event)
{
    Ref<NSTabView> const protector(this);
    auto const menu = make<NSMenu>("");
    menu->setAutoenablesItems(false);
    auto const shown = strip();
    auto const& plan = shown->plan;
    for (std::size_t i = 0; i < plan.tabs.size(); ++i) {
        if (!plan.tabs[i].isEmpty())
            continue;
        auto const line = make<NSMenuItem>(m_items[i]->label());
        line->setRepresentedObject(m_items[i]);
        menu->addItem(*line);
    }
    m_showsOverflowMenu = true;
    marksTab(nullptr);
    auto const chosen = menu->popUpBelow(*this, inView(plan.overflow), event);
    m_showsOverflowMenu = false;
    marksTab(nullptr);
    if (chosen)
        selectTabViewItem(chosen->representedObject().as<NSTabViewItem>().get());
}

NSTabView::Hovering::Area const* NSTabView::Hovering::enteredArea() const
{
    auto const found = std::ranges::find(areas, entered, &Area::tag);
    return found == areas.end() ? nullptr : &*found;
}

// Called whenever the geometry changes.
void NSTabView::resetCursorRects()
{
    endHovering();
    auto const* ownWindow = window();
    if (!ownWindow || !hasTabs(m_type))
        return;
    Point const pointer = convertPointFromView(ownWindow->mouseLocationOutsideOfEventStream(), nullptr);
    auto const shown = strip();
    auto const& plan = shown->plan;
    auto const add = [&](Rect rect, Ref<NSTabViewItem> const& item) {
        if (rect.isEmpty())
            return;
        bool const isInside = mouseInRect(pointer, rect);
        auto const tag = addTrackingRect(rect, this, nullptr, isInside);
        m_hovering.areas.push_back({ tag, item });
        if (isInside)
            m_hovering.entered = tag;
    };
    for (std::size_t i = 0; i < plan.tabs.size(); ++i)
        add(inView(plan.tabs[i]), m_items[i]);
    add(inView(plan.overflow), nullptr);
}

void NSTabView::endHovering()
{
    for (auto const& area : std::exchange(m_hovering, {}).areas)
        removeTrackingRect(area.tag);
}

void NSTabView::viewWillMoveToWindow(NSWindow* newWindow)
{
    endHovering();
    Base::viewWillMoveToWindow(newWindow);
}

void NSTabView::mouseEntered(NSEvent& event)
{
    setEntered(event.trackingNumber());
}

void NSTabView::mouseExited(NSEvent& event)
{
    if (m_hovering.entered == event.trackingNumber())
        setEntered(0);
}

void NSTabView::setEntered(NSTrackingRectTag tag)
{
    auto const mark = [this] {
        if (auto const* area = m_hovering.enteredArea())
            marksTab(area->item.get());
    };
    mark();
    m_hovering.entered = tag;
    mark();
}

// MARK: drawing

ButtonLook NSTabView::lookOf(NSTabViewItem const* item) const
{
    ButtonLook look { .control = Theme::lookOfView(*this) };
    look.isOn = item && item == m_selected;
    look.control.isFocused &= look.isOn;
    look.control.isPressed = item ? item->tabState() == NSPressedTab : m_showsOverflowMenu;
    auto const* entered = m_hovering.enteredArea();
    look.control.isHovered = entered && entered->item == item;
    return look;
}

Ref<NSColor> NSTabView::labelColor(Badge<NSTabViewItem>, NSTabViewItem const& item) const
{
    return Theme::current().buttonTextColor(lookOf(&item));
}

void NSTabView::drawRect(Rect)
{
    auto const place = layout();
    Theme::current().drawTabPane(
        place.box, m_type == NSNoTabsLineBorder ? FieldShape::square : FieldShape::round, m_drawsBackground);
    if (hasTabs(m_type) && needsToDrawRect(place.strip))
        drawStrip();
}

void NSTabView::drawStrip()
{
    auto const context = NSGraphicsContext::currentContext();
    if (!context)
        return;
    GraphicsState const saved(context);
    context->concat(tabStripSpace(layout(), m_type).toView);
    // Labels are drawn by whoever overrides that, and may change the tabs.
    auto const shown = strip();
    auto const& plan = shown->plan;
    auto const items = m_items;
    auto const isTouched = [&](Rect tab) { return !tab.isEmpty() && needsToDrawRect(inView(NSInsetRect(tab, -tabInk, -tabInk))); };
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i] != m_selected && isTouched(plan.tabs[i]))
            drawTab(*items[i], plan.tabs[i], shown->labels[i], plan.track);
    }
    if (isTouched(plan.overflow))
        Theme::current().drawTabOverflow(plan.overflow, lookInTrack(nullptr, plan.overflow, plan.track));
    // Its edges are over those of its neighbours.
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (items[i] == m_selected && isTouched(plan.tabs[i]))
            drawTab(*items[i], plan.tabs[i], shown->labels[i], plan.track);
    }
}

ButtonLook NSTabView::lookInTrack(NSTabViewItem const* item, Rect place, Rect track) const
{
    auto look = lookOf(item);
    look.joinsLeft = place.x > track.x;
    look.joinsRight = place.maxX() < track.maxX();
    return look;
}

void NSTabView::drawTab(NSTabViewItem& item, Rect tab, Size size, Rect track)
{
    Theme::current().drawTab(tab, lookInTrack(&item, tab, track));
    auto const label = tabLabelRect(tab, size, m_controlSize);
    GraphicsState const clipped;
    NSBezierPath::bezierPathWithRect(NSInsetRect(tab, 1, 1))->addClip();
    item.drawLabel(label.width < size.width, label);
}

}
