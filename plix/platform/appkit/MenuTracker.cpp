#include <plix/platform/appkit/MenuTracker.h>

#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/TypeAhead.h>
#include <plix/platform/base/case_folding.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>

namespace plix {

namespace {

/// A press that lasts no longer, in seconds, and stays as near, in points, leaves the menu open for a second click.
constexpr double clickDuration = 0.3;
constexpr float clickDistance = 4;
/// How long the pointer rests on an item before its submenu opens, or another one closes.
constexpr double submenuDelay = 0.2;
constexpr double scrollPeriod = 0.04;
constexpr float scrollStep = 10;
constexpr float wheelStep = 20;

/// A place in no window.
constexpr Point outside { -1e6F, -1e6F };

struct OpenMenu {
    Ref<NSMenu> menu;
    Ref<NSWindow> window;
    Ref<MenuView> view;
};

struct Choice {
    Ref<NSMenu> menu;
    Ref<NSMenuItem> item;
};

class Tracking;
Tracking* s_tracking { nullptr };

class Tracking {
public:
    Tracking(NSView* forView, NSFont* font)
        : m_view(forView)
        , m_hasView(forView != nullptr)
        , m_font(font)
        , m_outer(std::exchange(s_tracking, this))
    {
        m_activation = NSNotificationCenter::defaultCenter().addObserver(
            [this](NSNotification const&) { end(); }, NSApplicationDidResignActiveNotification);
    }
    ~Tracking()
    {
        NSNotificationCenter::defaultCenter().removeObserver(*m_activation);
        closeFrom(0);
        s_tracking = m_outer;
    }
    Tracking(Tracking const&) = delete;
    Tracking& operator=(Tracking const&) = delete;

    void open(NSMenu&, Rect frame, float minimumWidth, float scrolled);
    Choice run(NSEvent* opening, long highlighted);

    void end();
    void cancelFrom(NSMenu const&);
    void menuChanged(NSMenu&);
    /// Its view is gone, or on no screen.
    bool isOrphan() const;
    OpenMenu const* openMenu(NSMenu const& menu) const
    {
        auto const place = std::ranges::find_if(m_menus, [&](auto const& open) { return open.menu.get() == &menu; });
        return place == m_menus.end() ? nullptr : &*place;
    }

private:
    struct Pending {
        std::size_t level;
        long index;
        double due;
    };

    void closeFrom(std::size_t level);
    void openSubmenu(std::size_t level, long index, bool highlightsFirst);
    void highlight(std::size_t level, long index, MenuView::Reveal);
    void handle(NSEvent&);
    void handleMouse(NSEvent&, Point onScreen);
    void moved(Point onScreen);
    void released(NSEvent&, Point onScreen);
    void pressed(NSEvent&, Point onScreen);
    void handleKey(NSEvent&);
    void moveHighlight(long from, long step);
    void jump(long index, long step);
    void choose(std::size_t level, long index);
    void typed(std::string_view);
    void timePassed();
    void resumeScrolling(Point onScreen);
    std::optional<std::size_t> levelAt(Point onScreen) const;
    Point pointIn(std::size_t level, Point onScreen) const;
    NSDate nextDeadline() const;

    Weak<NSView> m_view;
    bool m_hasView;
    Ref<NSFont> m_font;
    Tracking* m_outer;
    Ref<NSObject> m_activation;
    std::vector<OpenMenu> m_menus;
    Choice m_choice;
    std::optional<Pending> m_pending;
    std::optional<double> m_nextScroll;
    Point m_pointer;
    Point m_pressPoint;
    double m_pressTime { 0 };
    bool m_isHeld { false };
    bool m_hasMoved { false };
    bool m_isEnded { false };
    TypeAhead m_typeAhead;
};

Rect screenAround(Rect place)
{
    auto const* screen = NSScreen::screenForRect(place);
    return (screen ? *screen : NSScreen::mainScreen()).visibleFrame();
}

Ref<NSWindow> makeMenuWindow(Rect frame, MenuView& view)
{
    auto window = make<NSWindow>(frame, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    window->setLevel(NSPopUpMenuWindowLevel);
    window->setHasShadow(true);
    window->setAcceptsMouseMovedEvents(true);
    window->setContentView(&view);
    // Tells when the pointer leaves, whatever the view's size is then.
    view.addTrackingRect({ 0, 0, 1e5F, 1e5F }, &view, nullptr, false);
    return window;
}

// MARK: opening and closing

void Tracking::open(NSMenu& menu, Rect frame, float minimumWidth, float scrolled)
{
    auto const view = make<MenuView>(Ref<NSMenu>(menu), m_font, minimumWidth);
    auto const window = makeMenuWindow(frame, *view);
    view->scrollTo(scrolled);
    m_menus.push_back({ Ref<NSMenu>(menu), window, view });
    window->orderFront(nullptr);
}

void Tracking::closeFrom(std::size_t level)
{
    while (m_menus.size() > level) {
        auto const closed = m_menus.back();
        m_menus.pop_back();
        closed.window->close();
        if (closed.menu->delegateHooks().menuDidClose)
            closed.menu->delegateHooks().menuDidClose(*closed.menu);
    }
    if (m_pending && m_pending->level >= level)
        m_pending.reset();
}

void Tracking::openSubmenu(std::size_t level, long index, bool highlightsFirst)
{
    m_pending.reset();
    auto const parent = m_menus[level];
    Ref<NSMenu> const submenu(parent.menu->itemAtIndex(index)->submenu());
    if (!submenu)
        return;
    if (level + 1 < m_menus.size() && m_menus[level + 1].menu == submenu) {
        if (highlightsFirst)
            jump(-1, 1);
        return;
    }
    closeFrom(level + 1);
    submenu->update();
    if (submenu->delegateHooks().menuWillOpen)
        submenu->delegateHooks().menuWillOpen(*submenu);
    // The hooks may have ended it all, or changed what is above.
    if (m_isEnded || level >= m_menus.size() || m_menus[level].menu != parent.menu || index >= parent.menu->numberOfItems()
        || submenu->numberOfItems() == 0)
        return;
    auto const frame = parent.window->frame();
    auto const item = parent.view->rectOfItem(index);
    Rect const itemOnScreen { frame.x, frame.maxY() - item.maxY(), item.width, item.height };
    open(*submenu, submenuFrame(frame, itemOnScreen, MenuView::layoutOfMenu(*submenu, 0).size, screenAround(frame)), 0, 0);
    if (highlightsFirst)
        jump(-1, 1);
}

void Tracking::end()
{
    m_isEnded = true;
    // Whoever waits for an event looks up.
    if (NSApp)
        NSApp->postEvent(*NSEvent::otherEventWithType(NSApplicationDefined, {}, 0, clock().uptime(), 0, nullptr, 0, 0, 0), false);
}

void Tracking::cancelFrom(NSMenu const& menu)
{
    if (openMenu(menu))
        end();
}

void Tracking::menuChanged(NSMenu& menu)
{
    auto const* open = openMenu(menu);
    if (!open)
        return;
    open->view->layOut();
    auto const frame = open->window->frame();
    auto const size = open->view->layout().size;
    if (size == frame.size())
        return;
    auto const screen = screenAround(frame);
    float const height = std::min(size.height, std::max(frame.maxY() - screen.y, menuScrollArrowHeight * 3));
    open->window->setFrame({ frame.x, frame.maxY() - height, size.width, height }, false);
}

// MARK: the loop

NSDate Tracking::nextDeadline() const
{
    std::optional<double> due = m_nextScroll;
    if (m_pending && (!due || m_pending->due < *due))
        due = m_pending->due;
    return due ? NSDate::dateWithTimeIntervalSinceNow(std::max(0.0005, *due - clock().uptime())) : NSDate::distantFuture();
}

bool Tracking::isOrphan() const
{
    auto const* view = m_view.get();
    return m_hasView && (!view || !view->window() || !view->window()->isVisible());
}

Choice Tracking::run(NSEvent* opening, long highlighted)
{
    m_isHeld = opening && opening->isMouseEvent() && NSEvent::pressedMouseButtons() != 0;
    m_pressTime = clock().uptime();
    m_pressPoint = m_pointer = NSEvent::mouseLocation();
    if (highlighted >= 0)
        highlight(0, highlighted, MenuView::Reveal::no);
    while (!m_isEnded && !m_choice.item) {
        auto const deadline = nextDeadline();
        auto const event = NSApp->nextEventMatchingMask(NSAnyEventMask, deadline, NSEventTrackingRunLoopMode, true);
        if (m_menus.empty() || isOrphan())
            break;
        if (event)
            handle(*event);
        else if (NSDate::date() < deadline && !m_pending && !m_nextScroll)
            break; // the application stops
        timePassed();
    }
    return std::move(m_choice);
}

void Tracking::timePassed()
{
    double const now = clock().uptime();
    if (m_nextScroll && now >= *m_nextScroll)
        resumeScrolling(m_pointer);
    if (!m_pending || now < m_pending->due)
        return;
    auto const pending = *m_pending;
    m_pending.reset();
    if (pending.level >= m_menus.size() || m_menus[pending.level].view->highlightedIndex() != pending.index)
        return;
    if (m_menus[pending.level].menu->itemAtIndex(pending.index)->hasSubmenu())
        openSubmenu(pending.level, pending.index, false);
    else
        closeFrom(pending.level + 1);
}

void Tracking::handle(NSEvent& event)
{
    switch (event.type()) {
    case NSKeyDown:
        handleKey(event);
        return;
    case NSKeyUp:
    case NSFlagsChanged:
    case NSMouseEntered:
    case NSCursorUpdate:
        return;
    case NSMouseExited:
        if (!m_isHeld)
            moved(outside);
        return;
    case NSAppKitDefined:
    case NSSystemDefined:
        if (event.subtype() != NSEvent::preeditSubtype)
            NSApp->sendEvent(event);
        return;
    case NSApplicationDefined:
        return;
    default:
        break;
    }
    if (!event.isMouseEvent() && event.type() != NSScrollWheel)
        return;
    Ref<NSWindow> const window(event.window());
    handleMouse(event, window ? window->convertBaseToScreen(event.locationInWindow()) : event.locationInWindow());
}

// MARK: mouse

Point Tracking::pointIn(std::size_t level, Point onScreen) const
{
    auto const& open = m_menus[level];
    return open.view->convertPointFromView(open.window->convertScreenToBase(onScreen), nullptr);
}

std::optional<std::size_t> Tracking::levelAt(Point onScreen) const
{
    for (std::size_t level = m_menus.size(); level-- > 0;) {
        if (NSPointInRect(onScreen, m_menus[level].window->frame()))
            return level;
    }
    return std::nullopt;
}

void Tracking::handleMouse(NSEvent& event, Point onScreen)
{
    m_pointer = onScreen;
    switch (event.type()) {
    case NSMouseMoved:
    case NSLeftMouseDragged:
    case NSRightMouseDragged:
    case NSOtherMouseDragged:
        if (std::hypot(onScreen.x - m_pressPoint.x, onScreen.y - m_pressPoint.y) > clickDistance)
            m_hasMoved = true;
        moved(onScreen);
        return;
    case NSLeftMouseUp:
    case NSRightMouseUp:
    case NSOtherMouseUp:
        released(event, onScreen);
        return;
    case NSLeftMouseDown:
    case NSRightMouseDown:
    case NSOtherMouseDown:
        pressed(event, onScreen);
        return;
    case NSScrollWheel:
        if (auto const level = levelAt(onScreen)) {
            auto& view = *m_menus[*level].view;
            view.scrollTo(view.scrolled() - event.deltaY() * wheelStep);
            moved(onScreen);
        }
        return;
    default:
        return;
    }
}

void Tracking::highlight(std::size_t level, long index, MenuView::Reveal reveal)
{
    auto const open = m_menus[level];
    long const before = open.view->highlightedIndex();
    open.view->highlight(index, reveal);
    long const now = open.view->highlightedIndex();
    if (now == before || !open.menu->delegateHooks().willHighlightItem)
        return;
    open.menu->delegateHooks().willHighlightItem(*open.menu, now < 0 ? nullptr : open.menu->itemAtIndex(now));
}

void Tracking::moved(Point onScreen)
{
    auto const level = levelAt(onScreen);
    m_nextScroll.reset();
    if (!level) {
        // The way that leads to where the pointer was stays lit.
        m_pending.reset();
        if (!m_menus.empty())
            highlight(m_menus.size() - 1, -1, MenuView::Reveal::no);
        return;
    }
    m_typeAhead.clear();
    auto const open = m_menus[*level];
    if (open.view->arrowAtPoint(pointIn(*level, onScreen)) != 0) {
        resumeScrolling(onScreen);
        return;
    }
    long const index = open.view->indexAtPoint(pointIn(*level, onScreen));
    bool const hasOpenSubmenu = *level + 1 < m_menus.size();
    bool const leadsToOpenSubmenu
        = hasOpenSubmenu && index >= 0 && open.menu->itemAtIndex(index)->submenu() == m_menus[*level + 1].menu.get();
    highlight(*level, index, MenuView::Reveal::no);
    if (m_isEnded || *level >= m_menus.size())
        return;
    if (leadsToOpenSubmenu) {
        m_pending.reset();
        if (*level + 2 < m_menus.size())
            closeFrom(*level + 2);
        highlight(*level + 1, -1, MenuView::Reveal::no);
        return;
    }
    bool const leadsOn = index >= 0 && open.menu->itemAtIndex(index)->hasSubmenu();
    if (index >= 0 && (leadsOn || hasOpenSubmenu)) {
        if (!m_pending || m_pending->level != *level || m_pending->index != index)
            m_pending = Pending { *level, index, clock().uptime() + submenuDelay };
    } else {
        m_pending.reset();
    }
}

void Tracking::resumeScrolling(Point onScreen)
{
    m_nextScroll.reset();
    auto const level = levelAt(onScreen);
    if (!level)
        return;
    auto& view = *m_menus[*level].view;
    int const direction = view.arrowAtPoint(pointIn(*level, onScreen));
    if (direction == 0)
        return;
    closeFrom(*level + 1);
    highlight(*level, -1, MenuView::Reveal::no);
    view.scrollTo(view.scrolled() + static_cast<float>(direction) * scrollStep);
    if (view.arrowAtPoint(pointIn(*level, onScreen)) != 0)
        m_nextScroll = clock().uptime() + scrollPeriod;
}

void Tracking::pressed(NSEvent&, Point onScreen)
{
    auto const level = levelAt(onScreen);
    if (!level) {
        m_isEnded = true;
        return;
    }
    m_isHeld = true;
    m_hasMoved = true;
    moved(onScreen);
    if (m_pending && m_pending->level < m_menus.size())
        openSubmenu(m_pending->level, m_pending->index, false);
}

void Tracking::released(NSEvent&, Point onScreen)
{
    bool const wasHeld = std::exchange(m_isHeld, false);
    bool const isClick = !m_hasMoved && clock().uptime() - m_pressTime <= clickDuration;
    if (!wasHeld || isClick)
        return;
    auto const level = levelAt(onScreen);
    if (!level) {
        m_isEnded = true;
        return;
    }
    long const index = m_menus[*level].view->indexAtPoint(pointIn(*level, onScreen));
    if (index >= 0)
        choose(*level, index);
}

void Tracking::choose(std::size_t level, long index)
{
    Ref<NSMenuItem> const item(m_menus[level].menu->itemAtIndex(index));
    if (item->hasSubmenu())
        openSubmenu(level, index, false);
    else
        m_choice = { m_menus[level].menu, item };
}

// MARK: keys

// Steps over what cannot be chosen, around the ends.
void Tracking::moveHighlight(long from, long step)
{
    if (m_menus.empty())
        return;
    auto const level = m_menus.size() - 1;
    auto const open = m_menus[level];
    long const count = open.menu->numberOfItems();
    if (from < 0)
        from = step > 0 ? -1 : count;
    for (long i = 1; i <= count; ++i) {
        long const index = ((from + step * i) % count + count) % count;
        if (open.view->canHighlight(index)) {
            highlight(level, index, MenuView::Reveal::yes);
            return;
        }
    }
}

void Tracking::jump(long index, long step)
{
    if (m_menus.empty())
        return;
    auto const& open = m_menus.back();
    long const count = open.menu->numberOfItems();
    index = std::clamp(index, -1L, count);
    // Not around the ends.
    for (long next = index + step; next >= 0 && next < count; next += step) {
        if (open.view->canHighlight(next)) {
            highlight(m_menus.size() - 1, next, MenuView::Reveal::yes);
            return;
        }
    }
}

void Tracking::typed(std::string_view text)
{
    m_typeAhead.add(text, clock().uptime());
    auto const open = m_menus.back();
    long const found = m_typeAhead.find(open.menu->numberOfItems(), open.view->highlightedIndex(), [&](long index) {
        return open.view->canHighlight(index)
            && foldedPrefixLength(open.menu->itemAtIndex(index)->title(), m_typeAhead.typed()) != std::string_view::npos;
    });
    if (found >= 0)
        highlight(m_menus.size() - 1, found, MenuView::Reveal::yes);
}

void Tracking::handleKey(NSEvent& event)
{
    m_pending.reset();
    m_hasMoved = true;
    auto const level = m_menus.size() - 1;
    auto const open = m_menus[level];
    long const current = open.view->highlightedIndex();
    long const page = std::max(1L, static_cast<long>(open.view->bounds().height / 20) - 1);
    switch (event.characterIgnoringModifiers()) {
    case NSUpArrowFunctionKey:
        return moveHighlight(current, -1);
    case NSDownArrowFunctionKey:
        return moveHighlight(current, 1);
    case NSHomeFunctionKey:
        return jump(-1, 1);
    case NSEndFunctionKey:
        return jump(open.menu->numberOfItems(), -1);
    case NSPageDownFunctionKey:
        return current + page + 1 < open.menu->numberOfItems() ? jump(current + page - 1, 1) : jump(open.menu->numberOfItems(), -1);
    case NSPageUpFunctionKey:
        return current - page > 0 ? jump(current - page + 1, -1) : jump(-1, 1);
    case NSRightArrowFunctionKey:
        if (current >= 0 && open.menu->itemAtIndex(current)->hasSubmenu())
            openSubmenu(level, current, true);
        return;
    case NSLeftArrowFunctionKey:
        if (level > 0)
            closeFrom(level);
        return;
    case NSEscapeCharacter:
        if (level > 0)
            closeFrom(level);
        else
            m_isEnded = true;
        return;
    case NSTabCharacter:
    case NSBackTabCharacter:
        m_isEnded = true;
        return;
    case U' ':
        if (!m_typeAhead.isEmpty())
            return typed(" ");
        [[fallthrough]];
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
    case NSNewlineCharacter:
        if (current < 0)
            return;
        if (open.menu->itemAtIndex(current)->hasSubmenu())
            openSubmenu(level, current, true);
        else
            choose(level, current);
        return;
    default:
        break;
    }
    auto const character = event.character();
    bool const isText = character > 0x20 && character != NSDeleteCharacter && !(character >= 0xF700 && character <= 0xF8FF);
    if (isText && !event.hasShortcutModifier())
        typed(event.characters());
}

// MARK: all of it

Rect onScreen(NSView& view, Rect rect)
{
    auto const* window = view.window();
    auto const inBase = view.convertRectToView(rect, nullptr);
    return rectWith(window ? window->convertBaseToScreen(inBase.origin()) : inBase.origin(), inBase.size());
}

struct Opening {
    Rect frame;
    float minimumWidth { 0 };
    float scrolled { 0 };
    long highlighted { -1 };
};

template <typename Place> Choice track(NSMenu& menu, NSView* view, NSFont* font, NSEvent* event, Place place)
{
    if (!NSApp)
        return {};
    if (s_tracking)
        s_tracking->end();
    Ref<NSMenu> const protector(menu);
    Ref<NSView> const keptView(view);
    Ref<NSEvent> const keptEvent(event);
    menu.update();
    if (menu.delegateHooks().menuWillOpen)
        menu.delegateHooks().menuWillOpen(menu);
    if (menu.numberOfItems() == 0)
        return {};
    Choice choice;
    {
        Tracking tracking(view, font);
        Opening const opening = place();
        tracking.open(menu, opening.frame, opening.minimumWidth, opening.scrolled);
        choice = tracking.run(event, opening.highlighted);
    }
    // A hook may have taken the item away meanwhile.
    return choice.item && choice.item->menu() == choice.menu.get() ? choice : Choice {};
}

}

void MenuTracker::trackAtEvent(NSMenu& menu, NSEvent& event, NSView* forView, NSFont* font)
{
    auto const* window = event.window();
    Point const point = window ? window->convertBaseToScreen(event.locationInWindow()) : event.locationInWindow();
    auto const choice = track(menu, forView, font, &event, [&] {
        auto const view = make<MenuView>(Ref<NSMenu>(menu), Ref<NSFont>(font), 0.F);
        return Opening { .frame = menuFrameAtPoint(point, view->layout().size, screenAround({ point.x, point.y, 1, 1 })) };
    });
    if (choice.item)
        choice.menu->performActionForItemAtIndex(choice.menu->indexOfItem(*choice.item));
}

Ref<NSMenuItem> MenuTracker::trackCovering(NSMenu& menu, NSView& view, Rect rect, NSMenuItem* item, NSEvent* event)
{
    auto choice = track(menu, &view, nullptr, event, [&] {
        auto const place = onScreen(view, rect);
        auto const layout = MenuView::layoutOfMenu(menu, rect.width);
        long const index = item ? std::max(0L, menu.indexOfItem(*item)) : 0;
        auto const itemRect = layout.itemRect(index);
        auto const covering = menuFrameCovering(place, itemRect.y, itemRect.height, layout.size, screenAround(place));
        return Opening { covering.frame, rect.width, covering.scrolled, item ? index : -1 };
    });
    return std::move(choice.item);
}

Ref<NSMenuItem> MenuTracker::trackBelow(NSMenu& menu, NSView& view, Rect rect, NSEvent* event)
{
    auto choice = track(menu, &view, nullptr, event, [&] {
        auto const place = onScreen(view, rect);
        auto const size = MenuView::layoutOfMenu(menu, rect.width).size;
        auto const screen = screenAround(place);
        // Above the rectangle where there is no room below it.
        bool const fitsBelow = place.y - size.height >= screen.y || place.maxY() + size.height > screen.maxY();
        Point const corner { place.x, fitsBelow ? place.y : place.maxY() + size.height };
        return Opening { .frame = menuFrameAtPoint(corner, size, screen), .minimumWidth = rect.width };
    });
    return std::move(choice.item);
}

void MenuTracker::cancel(NSMenu& menu)
{
    if (s_tracking)
        s_tracking->cancelFrom(menu);
}

void MenuTracker::viewsLeftWindow()
{
    if (s_tracking && s_tracking->isOrphan())
        s_tracking->end();
}

bool MenuTracker::isOpen(NSMenu const& menu)
{
    return s_tracking && s_tracking->openMenu(menu);
}

NSMenuItem* MenuTracker::highlightedItem(NSMenu const& menu)
{
    auto const* open = s_tracking ? s_tracking->openMenu(menu) : nullptr;
    long const index = open ? open->view->highlightedIndex() : -1;
    return index < 0 || index >= menu.numberOfItems() ? nullptr : menu.itemAtIndex(index);
}

void MenuTracker::menuChanged(NSMenu& menu)
{
    if (s_tracking)
        s_tracking->menuChanged(menu);
}

NSWindow* MenuTracker::windowOfMenu(NSMenu const& menu)
{
    auto const* open = s_tracking ? s_tracking->openMenu(menu) : nullptr;
    return open ? open->window.get() : nullptr;
}

}
