#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/platform/host/headless/HeadlessWindow.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <thread>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keeps what it is told.
class Client final : public HostWindowClient {
public:
    std::vector<std::string> log;
    std::vector<HostEvent> events;
    void hostWindowEvent(HostEvent const& event) override { events.push_back(event); }
    void hostWindowContentRectChanged(Rect rect) override { log.push_back("rect " + NSStringFromRect(rect)); }
    void hostWindowFocusChanged(bool hasFocus) override { log.emplace_back(hasFocus ? "focus" : "no focus"); }
    void hostWindowCloseRequested() override { log.emplace_back("close"); }
    void hostWindowNeedsRepaint(Rect) override { log.emplace_back("repaint"); }
    void hostWindowScaleChanged(float scale) override { log.push_back("scale " + std::to_string(static_cast<int>(scale))); }
    void hostWindowMiniaturizedChanged(bool miniaturized) override { log.emplace_back(miniaturized ? "mini" : "no mini"); }
    void hostWindowLiveResizeChanged(bool resizes) override { log.emplace_back(resizes ? "live" : "no live"); }
};

class HeadlessHostTest : public testing::Test {
protected:
    HeadlessHostTest()
    {
        auto made = std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable);
        machine = made.get();
        m_before = installHost(std::move(made));
    }
    ~HeadlessHostTest() override
    {
        first.reset();
        second.reset();
        installHost(std::move(m_before));
    }
    std::unique_ptr<HostWindow> window(Rect rect, Client& client, HostWindowKind kind = HostWindowKind::document)
    {
        HostWindowAttributes attributes;
        attributes.contentRect = rect;
        attributes.kind = kind;
        auto made = machine->display().makeWindow(attributes, client);
        made->show();
        return made;
    }
    void deliverAll()
    {
        while (machine->events().deliverPending()) { }
    }
    std::vector<HostEvent::Type> types(Client const& client)
    {
        std::vector<HostEvent::Type> found;
        for (auto const& event : client.events)
            found.push_back(event.type);
        return found;
    }

    HeadlessHost* machine { nullptr };
    Client firstClient;
    Client secondClient;
    std::unique_ptr<HostWindow> first;
    std::unique_ptr<HostWindow> second;

private:
    std::unique_ptr<Host> m_before;
};

// Time.

TEST_F(HeadlessHostTest, WaitingMovesTheClockToTheDeadline)
{
    auto const start = clock().uptime();
    auto const now = clock().now();
    NSRunLoop::currentRunLoop().runUntilDate(now.addTimeInterval(90));
    EXPECT_NEAR(clock().uptime() - start, 90, 1e-6);
    EXPECT_NEAR(clock().now().timeIntervalSinceDate(now), 90, 1e-6);
    machine->headlessClock().advance(5);
    machine->headlessClock().advance(-5);
    EXPECT_NEAR(clock().uptime() - start, 95, 1e-6);
}

TEST_F(HeadlessHostTest, TheWallClockMayBeSetWithoutTheUptime)
{
    auto const uptime = clock().uptime();
    machine->headlessClock().setNow({ 12345 });
    EXPECT_NEAR(clock().now().timeIntervalSinceReferenceDate, 12345, 1e-6);
    EXPECT_EQ(clock().uptime(), uptime);
}

TEST_F(HeadlessHostTest, AnotherThreadEndsAWaitWithoutDeadline)
{
    bool called = false;
    std::thread other([&] { NSRunLoop::performOnMainThread([&] { called = true; }); });
    NSRunLoop::currentRunLoop().runUntil([&] { return called; });
    other.join();
    EXPECT_TRUE(called);
}

TEST_F(HeadlessHostTest, DeliveriesComeOneByOneAndLaterOnesAtTheirTime)
{
    std::vector<int> order;
    auto& events = machine->headlessEvents();
    events.postAfter(2, [&] { order.push_back(3); });
    events.whenIdle([&] { order.push_back(9); });
    events.post([&] { order.push_back(1); });
    events.post([&] { order.push_back(2); });
    EXPECT_TRUE(events.deliverPending());
    EXPECT_THAT(order, ElementsAre(1));
    auto const start = clock().uptime();
    NSRunLoop::currentRunLoop().runUntil([&] { return order.size() == 4; });
    EXPECT_THAT(order, ElementsAre(1, 2, 9, 3));
    EXPECT_NEAR(clock().uptime() - start, 2, 1e-6);
    events.post([] {});
    events.discardPending();
    EXPECT_FALSE(events.deliverPending());
}

TEST(HeadlessHost, WithTheMachinesClockItReallyWaits)
{
    auto before = installHost(std::make_unique<HeadlessHost>());
    auto const start = clock().uptime();
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(0.02));
    EXPECT_GE(clock().uptime() - start, 0.019);
    EXPECT_EQ(host().name(), "headless");
    installHost(std::move(before));
}

TEST(HeadlessHost, TheEnvironmentChoosesIt)
{
    ::setenv("PLIX_HOST", "headless", 1);
    auto before = installHost(nullptr);
    EXPECT_EQ(host().name(), "headless");
    installHost(std::move(before));
    ::unsetenv("PLIX_HOST");
}

// The window manager's habits.

TEST_F(HeadlessHostTest, AClickFocusesRaisesAndArrives)
{
    first = window({ 0, 0, 100, 100 }, firstClient);
    second = window({ 50, 50, 100, 100 }, secondClient);
    machine->script().click({ 120, 120 });
    machine->script().click({ 20, 20 });
    deliverAll();
    EXPECT_THAT(types(secondClient),
        ElementsAre(HostEvent::Type::mouseEntered, HostEvent::Type::mouseMoved, HostEvent::Type::mouseDown,
            HostEvent::Type::mouseUp, HostEvent::Type::mouseExited));
    EXPECT_THAT(firstClient.log, ElementsAre("focus"));
    EXPECT_THAT(secondClient.log, ElementsAre("focus", "no focus"));
    EXPECT_EQ(machine->headlessDisplay().windowAt({ 75, 75 }), first.get());
    EXPECT_EQ(machine->display().mouseLocation(), (Point { 20, 20 }));
    EXPECT_EQ(machine->display().pressedButtons(), 0U);
}

TEST_F(HeadlessHostTest, AHeldButtonKeepsTheMouseInItsWindow)
{
    first = window({ 0, 0, 100, 100 }, firstClient);
    second = window({ 200, 0, 100, 100 }, secondClient);
    machine->script().drag({ 50, 50 }, { 250, 50 }, {}, 1);
    deliverAll();
    EXPECT_THAT(secondClient.events, IsEmpty());
    auto const& last = firstClient.events.back();
    EXPECT_EQ(last.type, HostEvent::Type::mouseUp);
    EXPECT_EQ(last.locationOnScreen, (Point { 250, 50 }));
    EXPECT_EQ(firstClient.events[firstClient.events.size() - 2].pressedButtons, 1U);
}

TEST_F(HeadlessHostTest, PopupsStayAboveAndNeverTakeTheKeyboard)
{
    second = window({ 0, 0, 50, 50 }, secondClient, HostWindowKind::popup);
    first = window({ 0, 0, 100, 100 }, firstClient);
    first->focus();
    second->focus();
    EXPECT_EQ(machine->headlessDisplay().windowAt({ 10, 10 }), second.get());
    EXPECT_EQ(machine->headlessDisplay().focusedWindow(), first.get());
    EXPECT_EQ(second->frameExtents().top, 0);
    EXPECT_EQ(first->frameExtents().top, 22);
}

TEST_F(HeadlessHostTest, KeysGoToTheFocusedWindow)
{
    first = window({ 0, 0, 100, 100 }, firstClient);
    machine->script().type("x");
    deliverAll();
    EXPECT_THAT(firstClient.events, IsEmpty());
    first->focus();
    machine->script().type("h\u00E9");
    machine->script().key(0xF700);
    deliverAll();
    ASSERT_EQ(firstClient.events.size(), 6U);
    EXPECT_EQ(firstClient.events[2].characters, "\u00E9");
    EXPECT_EQ(firstClient.events[3].type, HostEvent::Type::keyUp);
    EXPECT_EQ(firstClient.events[4].modifiers, static_cast<std::uint32_t>(HostModifierFunction));
}

TEST_F(HeadlessHostTest, HidingPassesTheFocusOn)
{
    first = window({ 0, 0, 100, 100 }, firstClient);
    second = window({ 0, 0, 100, 100 }, secondClient);
    second->focus();
    second->hide();
    EXPECT_THAT(firstClient.log, ElementsAre("focus"));
    first.reset();
    EXPECT_EQ(machine->headlessDisplay().focusedWindow(), nullptr);
}

TEST_F(HeadlessHostTest, APersonsResizeKeepsToTheLimits)
{
    first = window({ 0, 0, 100, 100 }, firstClient);
    first->setSizeLimits({ 80, 80 }, { 200, 0 });
    auto* const resized = static_cast<HeadlessWindow*>(first.get());
    machine->script().resizeWindow([=] { return resized; }, { { 0, 0, 10, 10 }, { 0, 0, 500, 500 } });
    deliverAll();
    EXPECT_THAT(firstClient.log, ElementsAre("live", "rect {{0, 0}, {80, 80}}", "rect {{0, 0}, {200, 500}}", "no live"));
}

TEST_F(HeadlessHostTest, PixelsFollowSizeAndScale)
{
    first = window({ 0, 0, 100, 50 }, firstClient);
    auto const pixels = first->lockPixels();
    EXPECT_EQ(pixels.width, 100);
    EXPECT_FALSE(pixels.keepsContent);
    first->present({});
    EXPECT_TRUE(first->lockPixels().keepsContent);
    machine->headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(2) });
    EXPECT_THAT(firstClient.log, ElementsAre("scale 2"));
    EXPECT_EQ(first->lockPixels().width, 200);
    EXPECT_FALSE(first->lockPixels().keepsContent);
    first->setContentRect({ 0, 0, 0, 0 });
    EXPECT_EQ(first->lockPixels().width, 1);
}

TEST_F(HeadlessHostTest, ZoomingFillsTheUsableScreenAndGoesBack)
{
    first = window({ 10, 10, 100, 100 }, firstClient);
    first->zoom();
    EXPECT_TRUE(first->isZoomed());
    EXPECT_EQ(first->contentRect(), (Rect { 0, 0, 1440, 850 }));
    first->zoom();
    EXPECT_EQ(first->contentRect(), (Rect { 10, 10, 100, 100 }));
    EXPECT_FALSE(first->isZoomed());
}

TEST_F(HeadlessHostTest, TheClipboardCountsItsChanges)
{
    EXPECT_FALSE(machine->clipboard().hasText());
    machine->clipboard().setText("one");
    machine->clipboard().setText("two");
    EXPECT_EQ(machine->clipboard().text(), "two");
    EXPECT_EQ(machine->clipboard().changeCount(), 2);
}

TEST_F(HeadlessHostTest, AWindowThatIsClosedInItsOwnEventIsSafe)
{
    class Closing final : public HostWindowClient {
    public:
        std::unique_ptr<HostWindow>* window { nullptr };
        void hostWindowEvent(HostEvent const&) override { window->reset(); }
        void hostWindowContentRectChanged(Rect) override { window->reset(); }
        void hostWindowFocusChanged(bool) override { }
        void hostWindowCloseRequested() override { }
        void hostWindowNeedsRepaint(Rect) override { }
        void hostWindowScaleChanged(float) override { }
        void hostWindowMiniaturizedChanged(bool) override { }
        void hostWindowLiveResizeChanged(bool) override { }
    } client;
    client.window = &first;
    HostWindowAttributes attributes;
    attributes.contentRect = { 0, 0, 100, 100 };
    first = machine->display().makeWindow(attributes, client);
    first->show();
    machine->script().drag({ 50, 50 }, { 60, 60 });
    deliverAll();
    EXPECT_EQ(first, nullptr);
    first = machine->display().makeWindow(attributes, client);
    first->setContentRect({ 0, 0, 50, 50 });
    EXPECT_EQ(first, nullptr);
}

}
}
