#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>

namespace plix {

HeadlessTest::HeadlessTest()
    : HeadlessTest(1)
{
}

HeadlessTest::HeadlessTest(float backingScale)
{
    auto headless = std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable);
    m_host = headless.get();
    headless->headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(backingScale) });
    m_previousHost = installHost(std::move(headless));
    NSCursor::setHiddenUntilMouseMoves(false);
    NSCursor::arrowCursor().set();
    NSPasteboard::generalPasteboard().declareTypes({});
}

HeadlessTest::~HeadlessTest()
{
    m_host->headlessEvents().discardPending();
    if (NSApp) {
        for (auto const& window : NSApp->windows())
            window->close();
        NSApp->discardEventsMatchingMask(NSAnyEventMask, nullptr);
    }
    NSApp = nullptr;
    installHost(std::move(m_previousHost));
}

void HeadlessTest::pump()
{
    auto const handleEvents = [this] {
        while (auto const event = app().nextEventMatchingMask(NSAnyEventMask, NSDate::distantPast(), NSDefaultRunLoopMode, true))
            app().sendEvent(*event);
    };
    do
        handleEvents();
    while (machine().headlessEvents().hasPending());
    // What the last delivery changed is drawn when the loop waits again.
    handleEvents();
}

void HeadlessTest::pass(NSTimeInterval seconds)
{
    auto const end = NSDate::dateWithTimeIntervalSinceNow(seconds);
    while (auto const event = app().nextEventMatchingMask(NSAnyEventMask, end, NSDefaultRunLoopMode, true))
        app().sendEvent(*event);
    pump();
}

Ref<NSWindow> HeadlessTest::showWindow(Rect contentRect, unsigned styleMask)
{
    auto window = make<NSWindow>(contentRect, styleMask, NSBackingStoreBuffered, false);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    return window;
}

Ref<NSWindow> HeadlessTest::showWindowWith(Ref<NSView> const& contentView, Rect contentRect)
{
    auto window = make<NSWindow>(contentRect, usualStyle, NSBackingStoreBuffered, false);
    window->setContentView(contentView);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    return window;
}

Point HeadlessTest::onScreen(NSView const& view, Point point)
{
    return view.window()->convertBaseToScreen(view.convertPointToView(point, nullptr));
}

HeadlessWindow* HeadlessTest::hostWindow(NSWindow const& window)
{
    return static_cast<HeadlessWindow*>(window.hostWindow());
}

void HeadlessTest::click(NSView const& view, Point point, ScriptedClick how)
{
    person().click(onScreen(view, point), how);
    pump();
}

void HeadlessTest::drag(NSView const& view, Point from, Point to, ScriptedClick how)
{
    person().drag(onScreen(view, from), onScreen(view, to), how);
    pump();
}

void HeadlessTest::moveMouse(NSView const& view, Point point)
{
    person().moveMouse(onScreen(view, point));
    pump();
}

void HeadlessTest::scroll(NSView const& view, float deltaX, float deltaY)
{
    person().scroll(centerOnScreen(view), deltaX, deltaY);
    pump();
}

void HeadlessTest::key(char32_t character, unsigned modifiers)
{
    person().key(character, modifiers);
    pump();
}

void HeadlessTest::type(std::string_view text)
{
    person().type(text);
    pump();
}

Ref<NSEvent> HeadlessTest::keyDown(std::string characters, unsigned modifiers)
{
    auto const* const window = NSApp->keyWindow();
    return NSEvent::keyEventWithType(
        NSKeyDown, {}, modifiers, clock().uptime(), window ? window->windowNumber() : 0, nullptr, characters, characters, false, 0);
}

Ref<NSEvent> HeadlessTest::mouseEvent(NSEventType type, NSView const& view, Point point, unsigned modifiers, long clickCount)
{
    return NSEvent::mouseEventWithType(type, view.convertPointToView(point, nullptr), modifiers, clock().uptime(),
        view.window() ? view.window()->windowNumber() : 0, nullptr, 0, clickCount, 1);
}

}
