#pragma once

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/platform/host/headless/HeadlessWindow.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace plix {

/// A test with a headless machine and an application of its own. Time stands still unless the test, or a wait with a deadline,
/// moves it. What a person does is entered through the host and takes the way that real input takes: host event, the application's
/// queue, sendEvent().
class HeadlessTest : public testing::Test {
protected:
    /// At one device pixel a point.
    HeadlessTest();
    explicit HeadlessTest(float backingScale);
    ~HeadlessTest() override;

    /// Makes the application; overridden for another class. Not active until a window gets the keyboard.
    virtual void makeApplication() { NSApplication::sharedApplication(); }
    void SetUp() override { makeApplication(); }

    NSApplication& app() { return *NSApp; }
    HeadlessHost& machine() { return *m_host; }
    HeadlessDisplay& display() { return m_host->headlessDisplay(); }
    HeadlessScript& person() { return m_host->script(); }

    /// Handles all that was entered and what follows from it, and draws; time stands still.
    void pump();
    /// Lets time pass, with its timers.
    void pass(NSTimeInterval seconds);

    static constexpr unsigned usualStyle
        = NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask;
    static constexpr Rect usualContent { 100, 200, 400, 300 };
    /// On screen, key and drawn.
    Ref<NSWindow> showWindow(Rect contentRect = usualContent, unsigned styleMask = usualStyle);
    Ref<NSWindow> showWindowWith(Ref<NSView> const& contentView, Rect contentRect = usualContent);

    static Point onScreen(NSView const&, Point);
    static Point centerOnScreen(NSView const& view) { return onScreen(view, { view.bounds().midX(), view.bounds().midY() }); }
    HeadlessWindow* hostWindow(NSWindow const&);

    // What a person does in a view, handled at once. Points are the view's.
    void click(NSView const&, Point, ScriptedClick = {});
    void clickCenter(NSView const& view, ScriptedClick how = {})
    {
        click(view, Point { view.bounds().midX(), view.bounds().midY() }, how);
    }
    void drag(NSView const&, Point from, Point to, ScriptedClick = {});
    void moveMouse(NSView const&, Point);
    void scroll(NSView const&, float deltaX, float deltaY);
    void key(char32_t, unsigned modifiers = 0);
    void type(std::string_view text);

    // Events for views that are asked directly.
    static Ref<NSEvent> keyDown(std::string characters, unsigned modifiers = 0);
    static Ref<NSEvent> mouseEvent(NSEventType, NSView const&, Point, unsigned modifiers = 0, long clickCount = 1);

private:
    HeadlessHost* m_host { nullptr };
    std::unique_ptr<Host> m_previousHost;
};

/// The same with two device pixels a point.
class RetinaTest : public HeadlessTest {
protected:
    RetinaTest()
        : HeadlessTest(2)
    {
    }
};

}
