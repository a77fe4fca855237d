#include <plix/platform/appkit/ComboList.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/text_line.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float textInset = 6;
constexpr float border = 1;

/// Draws the items that are in sight.
class ItemsView final : public NSView {
public:
    bool init(ComboList::Items const& items, float width)
    {
        m_items = &items;
        m_lit = items.selected;
        return NSView::init(Rect { 0, 0, width, static_cast<float>(items.shape.itemCount) * items.shape.itemHeight });
    }
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return true; }
    void drawRect(Rect dirty) override
    {
        auto const& theme = Theme::current();
        theme.fill(dirty, ThemeRole::menuBackground);
        Ref<NSFont> const font = m_items->font ? Ref<NSFont>(m_items->font) : NSFont::systemFontOfSize(0);
        float const height = m_items->shape.itemHeight;
        long const first = std::max(0L, static_cast<long>(dirty.y / height));
        long const last = std::min(m_items->shape.itemCount, static_cast<long>(std::ceil(dirty.maxY() / height)));
        for (long i = first; i < last; ++i) {
            auto const rect = rectOfItem(i);
            bool const isLit = i == m_lit;
            if (isLit)
                theme.fill(rect, *NSColor::selectedMenuItemColor());
            auto const& color = theme.color(isLit ? ThemeRole::menuHighlightText : ThemeRole::menuText);
            float const lineHeight = font->defaultLineHeightForFont();
            Rect const line { rect.x + textInset, rect.y + std::floor((height - lineHeight) / 2), rect.width - 2 * textInset,
                lineHeight };
            drawTextLine(m_items->text(i), line, { *font, color.get(), NSNaturalTextAlignment, NSLineBreakByTruncatingTail });
        }
    }

    Rect rectOfItem(long index) const
    {
        float const height = m_items->shape.itemHeight;
        return { 0, static_cast<float>(index) * height, bounds().width, height };
    }
    long itemAt(Point point) const
    {
        if (!NSPointInRect(point, bounds()))
            return -1;
        return std::min(static_cast<long>(point.y / m_items->shape.itemHeight), m_items->shape.itemCount - 1);
    }
    long lit() const { return m_lit; }
    void light(long index, bool scrolls)
    {
        if (scrolls && index >= 0)
            scrollRectToVisible(rectOfItem(index));
        if (m_lit == index)
            return;
        if (m_lit >= 0)
            setNeedsDisplayInRect(rectOfItem(m_lit));
        m_lit = index;
        if (index < 0)
            return;
        setNeedsDisplayInRect(rectOfItem(index));
        if (m_items->lit)
            m_items->lit(index);
    }

private:
    ComboList::Items const* m_items { nullptr };
    long m_lit { -1 };
};

class FrameView final : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    void drawRect(Rect) override { Theme::current().drawMenuBackground(bounds()); }
};

class OpenList;
OpenList* s_open { nullptr };

class OpenList {
public:
    OpenList(NSView& field, Rect frame, ComboList::Items const& items);
    ~OpenList();
    OpenList(OpenList const&) = delete;
    OpenList& operator=(OpenList const&) = delete;

    long run(NSEvent* opening);
    void end();
    NSView* field() const { return m_field.get(); }
    NSWindow* window() const { return m_window.get(); }
    Rect rectOfItem(long index) const
    {
        auto const inBase = m_view->convertRectToView(m_view->rectOfItem(index), nullptr);
        return rectWith(m_window->convertBaseToScreen(inBase.origin()), inBase.size());
    }

private:
    void handle(NSEvent&);
    bool handleMouse(NSEvent&, Point onScreen);
    bool handleKey(NSEvent&);
    long itemUnder(Point onScreen) const;

    Weak<NSView> m_field;
    ComboList::Items const& m_items;
    Ref<NSWindow> m_window;
    Ref<NSScrollView> m_scroll;
    Ref<ItemsView> m_view;
    Ref<NSObject> m_activation;
    OpenList* m_outer;
    long m_chosen { -1 };
    bool m_isEnded { false };
    /// From a press on the list, or from one on the button that went on into it.
    bool m_isPressed { false };
};

OpenList::OpenList(NSView& field, Rect frame, ComboList::Items const& items)
    : m_field(field)
    , m_items(items)
    , m_outer(std::exchange(s_open, this))
{
    auto const inBase = field.convertRectToView(frame, nullptr);
    Rect const onScreen = rectWith(field.window()->convertBaseToScreen(inBase.origin()), inBase.size());
    auto const* screen = NSScreen::screenForRect(onScreen);
    auto const place = comboListFrame(onScreen, items.shape, (screen ? *screen : NSScreen::mainScreen()).visibleFrame());
    m_window = make<NSWindow>(place, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    m_window->setLevel(NSPopUpMenuWindowLevel);
    m_window->setHasShadow(true);
    m_window->setAcceptsMouseMovedEvents(true);
    auto const around = make<FrameView>(Rect { 0, 0, place.width, place.height });
    m_scroll = make<NSScrollView>(NSInsetRect(around->bounds(), border, border));
    m_scroll->setLineScroll(items.shape.itemHeight);
    bool const overflows = static_cast<float>(items.shape.itemCount) * items.shape.itemHeight > m_scroll->bounds().height;
    m_scroll->setHasVerticalScroller(items.hasScroller && overflows);
    m_view = make<ItemsView>(items, m_scroll->contentSize().width);
    m_scroll->setDocumentView(m_view);
    around->addSubview(*m_scroll);
    m_window->setContentView(around.get());
    m_view->scrollPoint({ 0, static_cast<float>(items.firstShown) * items.shape.itemHeight });
    if (items.selected >= 0)
        m_view->scrollRectToVisible(m_view->rectOfItem(items.selected));
    m_activation = NSNotificationCenter::defaultCenter().addObserver(
        [this](NSNotification const&) { end(); }, NSApplicationDidResignActiveNotification);
    m_window->orderFront(nullptr);
}

OpenList::~OpenList()
{
    NSNotificationCenter::defaultCenter().removeObserver(*m_activation);
    m_window->close();
    s_open = m_outer;
}

void OpenList::end()
{
    m_isEnded = true;
    if (NSApp)
        NSApp->postEvent(*NSEvent::otherEventWithType(NSApplicationDefined, {}, 0, clock().uptime(), 0, nullptr, 0, 0, 0), false);
}

long OpenList::run(NSEvent* opening)
{
    m_isPressed = false;
    bool isHeld = opening && NSEvent::pressedMouseButtons() != 0;
    while (!m_isEnded && m_chosen < 0) {
        auto const event = NSApp->nextEventMatchingMask(NSAnyEventMask, NSDate::distantFuture(), NSEventTrackingRunLoopMode, true);
        auto const* field = m_field.get();
        if (!event || !field || !field->window() || !field->window()->isVisible())
            break;
        // A press on the button that goes on into the list chooses where it is released.
        if (isHeld && event->type() == NSLeftMouseDragged) {
            Point const point = event->window() ? event->window()->convertBaseToScreen(event->locationInWindow()) : Point {};
            long const item = itemUnder(point);
            if (item >= 0) {
                m_isPressed = true;
                m_view->light(item, false);
            }
            continue;
        }
        if (isHeld && event->type() == NSLeftMouseUp) {
            isHeld = false;
            if (!m_isPressed)
                continue;
        }
        handle(*event);
    }
    return m_chosen;
}

long OpenList::itemUnder(Point onScreen) const
{
    Point const inBase = m_window->convertScreenToBase(onScreen);
    Point const inClip = m_scroll->contentView()->convertPointFromView(inBase, nullptr);
    if (!NSPointInRect(inClip, m_scroll->contentView()->bounds()))
        return -1;
    return m_view->itemAt(m_view->convertPointFromView(inBase, nullptr));
}

void OpenList::handle(NSEvent& event)
{
    if (event.type() == NSKeyDown) {
        if (!handleKey(event)) {
            NSApp->sendEvent(event);
            if (m_items.itemOfField && !m_isEnded)
                m_view->light(m_items.itemOfField(), true);
        }
        return;
    }
    if (event.isMouseEvent() || event.type() == NSScrollWheel) {
        Ref<NSWindow> const window(event.window());
        Point const onScreen = window ? window->convertBaseToScreen(event.locationInWindow()) : event.locationInWindow();
        if (!handleMouse(event, onScreen))
            return;
    }
    if (event.type() != NSApplicationDefined)
        NSApp->sendEvent(event);
}

// Whether the event goes on to its window.
bool OpenList::handleMouse(NSEvent& event, Point onScreen)
{
    bool const isInside = NSPointInRect(onScreen, m_window->frame());
    long const item = itemUnder(onScreen);
    switch (event.type()) {
    case NSMouseMoved:
        if (item >= 0)
            m_view->light(item, false);
        return false;
    case NSLeftMouseDown:
        if (!isInside) {
            m_isEnded = true;
            return false;
        }
        m_isPressed = item >= 0;
        if (m_isPressed)
            m_view->light(item, false);
        return !m_isPressed;
    case NSLeftMouseDragged:
        if (!m_isPressed)
            return true;
        if (item >= 0)
            m_view->light(item, false);
        return false;
    case NSLeftMouseUp:
        if (!std::exchange(m_isPressed, false))
            return true;
        if (item >= 0)
            m_chosen = item;
        else if (!isInside)
            m_isEnded = true;
        return false;
    case NSRightMouseDown:
    case NSOtherMouseDown:
        m_isEnded = !isInside;
        return false;
    case NSScrollWheel:
        return isInside;
    default:
        return false;
    }
}

// Whether the list took the key; what it leaves goes to the field.
bool OpenList::handleKey(NSEvent& event)
{
    if (event.hasShortcutModifier())
        return false;
    long const count = m_items.shape.itemCount;
    long const page = std::max(1L, static_cast<long>(m_scroll->contentSize().height / m_items.shape.itemHeight) - 1);
    auto const step = [&](long by) { m_view->light(comboItemAfterStep(m_view->lit(), by, count), true); };
    switch (event.characterIgnoringModifiers()) {
    case NSUpArrowFunctionKey:
        step(-1);
        return true;
    case NSDownArrowFunctionKey:
        step(1);
        return true;
    case NSPageUpFunctionKey:
        step(-page);
        return true;
    case NSPageDownFunctionKey:
        step(page);
        return true;
    case NSCarriageReturnCharacter:
    case NSEnterCharacter:
    case NSNewlineCharacter:
        if (m_view->lit() >= 0)
            m_chosen = m_view->lit();
        m_isEnded = true;
        return true;
    case NSEscapeCharacter:
        m_isEnded = true;
        return true;
    case NSTabCharacter:
    case NSBackTabCharacter:
        m_isEnded = true;
        return false;
    default:
        return false;
    }
}

}

long ComboList::run(NSView& field, Rect frame, Items const& items, NSEvent* opening)
{
    if (!NSApp || !field.window() || items.shape.itemCount <= 0)
        return -1;
    if (s_open)
        s_open->end();
    Ref<NSView> const kept(field);
    OpenList list(field, frame, items);
    return list.run(opening);
}

bool ComboList::isOpenFor(NSView const& field)
{
    return s_open && s_open->field() == &field;
}

void ComboList::dismiss()
{
    if (s_open)
        s_open->end();
}

void ComboList::viewsLeftWindow()
{
    auto const* const field = s_open ? s_open->field() : nullptr;
    if (s_open && (!field || !field->window() || !field->window()->isVisible()))
        s_open->end();
}

NSWindow* ComboList::window()
{
    return s_open ? s_open->window() : nullptr;
}

Rect ComboList::rectOfItem(long index)
{
    return s_open ? s_open->rectOfItem(index) : Rect {};
}

}
