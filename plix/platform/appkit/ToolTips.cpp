#include <plix/platform/appkit/ToolTips.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/NSView_internal.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr NSTimeInterval restBeforeTip = 1;
constexpr float fontSize = 11;
constexpr float widestText = 320;
constexpr Size textMargin { 6, 4 };
constexpr Point belowPointer { 4, -20 };

Attributes textAttributes()
{
    return { { NSFontAttributeName, ObjectValue(NSFont::systemFontOfSize(fontSize)) },
        { NSForegroundColorAttributeName, ObjectValue(NSColor::controlTextColor()) } };
}

class ToolTipView final : public NSView {
public:
    std::string text;

    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect) override
    {
        NSColor::controlBackgroundColor()->set();
        NSRectFill(bounds());
        NSColor::controlShadowColor()->set();
        NSFrameRect(bounds());
        drawInRect(text, NSInsetRect(bounds(), textMargin.width, textMargin.height), textAttributes());
    }
};

struct State {
    Weak<NSWindow> watched;
    Weak<NSView> view;
    Point location;
    Ref<NSTimer> timer;
    Ref<NSWindow> window;
};

State& state()
{
    static auto& s_state = *new State;
    return s_state;
}

/// What is to be said about a point, and the view that says it.
std::string textAt(NSWindow& window, Point base, NSView*& view)
{
    for (view = window.internals().viewAt(base); view; view = view->superview()) {
        if (auto const* const extras = NSView::Access::extrasOrNull(*view)) {
            Point const point = view->convertPointFromView(base, nullptr);
            for (auto const& entry : extras->toolTipRects) {
                if (view->mouseInRect(point, entry.rect))
                    return entry.text ? entry.text() : std::string();
            }
        }
        if (!view->toolTip().empty())
            return view->toolTip();
    }
    return {};
}

void show(std::string const& text, Point onScreen)
{
    Size const size = sizeForWidth(text, widestText, textAttributes());
    Rect frame { onScreen.x + belowPointer.x, 0, std::ceil(std::min(size.width, widestText)) + 2 * textMargin.width,
        std::ceil(size.height) + 2 * textMargin.height };
    frame.y = onScreen.y + belowPointer.y - frame.height;
    auto* const onThis = NSScreen::screenForRect({ onScreen.x, onScreen.y, 1, 1 });
    Rect const area = (onThis ? *onThis : NSScreen::mainScreen()).visibleFrame();
    frame.x = std::clamp(frame.x, area.x, std::max(area.x, area.maxX() - frame.width));
    // Above the pointer where there is no room below it.
    if (frame.y < area.y)
        frame.y = onScreen.y - belowPointer.y;
    auto const window = make<NSWindow>(frame, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    auto const content = make<ToolTipView>();
    content->text = text;
    window->setContentView(content);
    window->setLevel(NSPopUpMenuWindowLevel);
    window->setIgnoresMouseEvents(true);
    window->orderFront(nullptr);
    state().window = window;
}

void pointerRested(NSTimer&)
{
    auto& now = state();
    now.timer = nullptr;
    Ref<NSWindow> const window(now.watched.get());
    if (!window || !window->isVisible() || !NSApp || !NSApp->isActive())
        return;
    NSView* view = nullptr;
    auto const text = textAt(*window, now.location, view);
    now.view = view;
    if (!text.empty())
        show(text, window->convertBaseToScreen(now.location));
}

}

NSWindow* ToolTips::window()
{
    return state().window.get();
}

void ToolTips::hide()
{
    auto& now = state();
    if (auto const timer = std::exchange(now.timer, nullptr))
        timer->invalidate();
    if (auto const shown = std::exchange(now.window, nullptr))
        shown->close();
    now.view = nullptr;
}

void ToolTips::mouseMoved(NSWindow& window, Point base)
{
    auto& now = state();
    NSView* view = nullptr;
    bool const hasTip = !textAt(window, base, view).empty();
    if (now.window && now.view == view)
        return;
    hide();
    if (!hasTip)
        return;
    now.watched = window;
    now.location = base;
    now.timer = NSTimer::timerWithTimeInterval(restBeforeTip, pointerRested, false);
    NSRunLoop::currentRunLoop().addTimer(*now.timer, NSDefaultRunLoopMode);
    NSRunLoop::currentRunLoop().addTimer(*now.timer, NSModalPanelRunLoopMode);
}

}
