#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSTimer.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NSApplicationTest : public HeadlessTest {
protected:
    std::vector<std::string>& watch()
    {
        m_token = NSNotificationCenter::defaultCenter().addObserver([this](NSNotification const& notification) {
            if (notification.name.starts_with("NSApplication") && notification.name.find("Update") == std::string::npos)
                m_posted.push_back(notification.name);
        });
        return m_posted;
    }
    static Ref<NSEvent> event(short subtype, NSEventType type = NSApplicationDefined)
    {
        return NSEvent::otherEventWithType(type, {}, 0, 0, 0, nullptr, subtype, 0, 0);
    }
    Ref<NSWindow> makeWindow() { return make<NSWindow>(Rect { 600, 300, 200, 100 }, usualStyle, NSBackingStoreBuffered, true); }
    Ref<CountingView> viewIn(NSWindow& window)
    {
        auto view = make<CountingView>(Rect { 0, 0, 50, 50 });
        window.contentView()->addSubview(*view);
        view->forget();
        return view;
    }

private:
    Ref<NSObject> m_token;
    std::vector<std::string> m_posted;
};

// The queue.

TEST_F(NSApplicationTest, EventsComeOutInOrderByMask)
{
    app().postEvent(*event(1), false);
    app().postEvent(*event(2, NSSystemDefined), false);
    app().postEvent(*event(3), false);
    app().postEvent(*event(0), true);
    auto const next = [&](unsigned mask, bool dequeue) {
        auto const found = app().nextEventMatchingMask(mask, NSDate::distantPast(), NSDefaultRunLoopMode, dequeue);
        return found ? found->subtype() : -1;
    };
    EXPECT_EQ(next(NSSystemDefinedMask, false), 2);
    EXPECT_EQ(next(NSSystemDefinedMask, true), 2);
    EXPECT_EQ(next(NSSystemDefinedMask, true), -1);
    EXPECT_EQ(next(NSAnyEventMask, true), 0);
    EXPECT_EQ(app().currentEvent()->subtype(), 0);
    EXPECT_EQ(next(NSAnyEventMask, true), 1);
    EXPECT_EQ(next(NSAnyEventMask, true), 3);
    EXPECT_EQ(next(NSAnyEventMask, true), -1);
}

TEST_F(NSApplicationTest, WaitingForAnEventEndsAtItsDate)
{
    auto const start = clock().uptime();
    EXPECT_EQ(app().nextEventMatchingMask(NSAnyEventMask, NSDate::dateWithTimeIntervalSinceNow(2.5), NSDefaultRunLoopMode, true),
        nullptr);
    EXPECT_NEAR(clock().uptime() - start, 2.5, 1e-6);
}

TEST_F(NSApplicationTest, TimersFireWhileAnEventIsWaitedFor)
{
    int fired = 0;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        0.5,
        [&](NSTimer&) {
            if (++fired == 3)
                app().postEvent(*event(7), false);
        },
        true);
    auto const found = app().nextEventMatchingMask(NSApplicationDefinedMask, NSDate::distantFuture(), NSDefaultRunLoopMode, true);
    timer->invalidate();
    EXPECT_EQ(found->subtype(), 7);
    EXPECT_EQ(fired, 3);
}

TEST_F(NSApplicationTest, DiscardingStopsAtTheGivenEvent)
{
    auto const last = event(2);
    app().postEvent(*event(1), false);
    app().postEvent(*event(9, NSSystemDefined), false);
    app().postEvent(*last, false);
    app().postEvent(*event(3), false);
    app().discardEventsMatchingMask(NSApplicationDefinedMask, last.get());
    std::vector<short> left;
    while (auto const found = app().nextEventMatchingMask(NSAnyEventMask, NSDate::distantPast(), NSDefaultRunLoopMode, true))
        left.push_back(found->subtype());
    EXPECT_THAT(left, ElementsAre(9, 3));
}

TEST_F(NSApplicationTest, PeriodicEventsComeUntilTheyAreStopped)
{
    NSEvent::startPeriodicEventsAfterDelay(1, 0.25);
    auto const start = clock().uptime();
    std::vector<double> times;
    for (int i = 0; i < 3; ++i) {
        auto const found = app().nextEventMatchingMask(NSPeriodicMask, NSDate::distantFuture(), NSEventTrackingRunLoopMode, true);
        times.push_back(found->timestamp() - start);
    }
    NSEvent::stopPeriodicEvents();
    EXPECT_THAT(times, ElementsAre(testing::DoubleNear(1, 1e-6), testing::DoubleNear(1.25, 1e-6), testing::DoubleNear(1.5, 1e-6)));
    EXPECT_EQ(
        app().nextEventMatchingMask(NSPeriodicMask, NSDate::dateWithTimeIntervalSinceNow(5), NSEventTrackingRunLoopMode, true),
        nullptr);
}

// Running and terminating.

TEST_F(NSApplicationTest, RunLaunchesOnceAndEndsWhenStopped)
{
    auto& posted = watch();
    bool wasRunning = false;
    person().then([&] {
        wasRunning = app().isRunning();
        app().stop(nullptr);
    });
    app().run();
    EXPECT_TRUE(wasRunning);
    EXPECT_FALSE(app().isRunning());
    person().then([&] { app().stop(nullptr); });
    app().run();
    EXPECT_THAT(posted, ElementsAre(NSApplicationWillFinishLaunchingNotification, NSApplicationDidFinishLaunchingNotification));
}

class TerminationHost : public NSObject {
public:
    NSApplicationTerminateReply reply { NSTerminateNow };
    int asked { 0 };
    bool lastWindowEnds { false };
    NSApplicationTerminateReply applicationShouldTerminate(NSApplication&)
    {
        ++asked;
        return reply;
    }
    bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return lastWindowEnds; }
};

TEST_F(NSApplicationTest, TerminatingAsksTellsAndReturnsFromRun)
{
    auto& posted = watch();
    auto const host = make<TerminationHost>();
    app().setDelegate(host);
    bool exited = false;
    app().setExitHandler([&] { exited = true; });
    host->reply = NSTerminateCancel;
    app().terminate(nullptr);
    EXPECT_FALSE(app().isTerminating());
    host->reply = NSTerminateNow;
    person().then([&] { app().terminate(nullptr); });
    app().run();
    EXPECT_TRUE(app().isTerminating());
    EXPECT_FALSE(exited);
    EXPECT_EQ(host->asked, 2);
    EXPECT_EQ(posted.back(), NSApplicationWillTerminateNotification);
    app().terminate(nullptr);
    EXPECT_EQ(host->asked, 2);
}

TEST_F(NSApplicationTest, TerminatingOutsideOfRunCallsTheExitHandler)
{
    int exits = 0;
    app().setExitHandler([&] { ++exits; });
    app().terminate(nullptr);
    EXPECT_EQ(exits, 1);
}

TEST_F(NSApplicationTest, ALaterReplyDecides)
{
    auto const host = make<TerminationHost>();
    app().setDelegate(host);
    int exits = 0;
    app().setExitHandler([&] { ++exits; });
    host->reply = NSTerminateLater;
    app().terminate(nullptr);
    app().terminate(nullptr);
    EXPECT_EQ(host->asked, 1);
    app().replyToApplicationShouldTerminate(false);
    EXPECT_EQ(exits, 0);
    app().terminate(nullptr);
    app().replyToApplicationShouldTerminate(true);
    EXPECT_EQ(exits, 1);
    app().replyToApplicationShouldTerminate(true);
    EXPECT_EQ(exits, 1);
}

TEST_F(NSApplicationTest, TheLastWindowsClosingMayTerminate)
{
    auto const host = make<TerminationHost>();
    host->lastWindowEnds = true;
    app().setDelegate(host);
    int exits = 0;
    app().setExitHandler([&] { ++exits; });
    auto const first = showWindow();
    auto const second = showWindow();
    first->close();
    EXPECT_EQ(exits, 0);
    second->close();
    EXPECT_EQ(exits, 1);
}

TEST_F(NSApplicationTest, TheSessionsEndTerminates)
{
    int exits = 0;
    app().setExitHandler([&] { ++exits; });
    person().quit();
    pump();
    EXPECT_EQ(exits, 1);
}

// Key, main, active, hidden.

TEST_F(NSApplicationTest, KeyAndMainFollowTheKeyboard)
{
    auto const first = showWindow();
    auto const second = showWindow();
    EXPECT_TRUE(app().isActive());
    EXPECT_TRUE(second->isKeyWindow());
    EXPECT_TRUE(second->isMainWindow());
    auto const panel = make<NSPanel>(usualContent, NSTitledWindowMask, NSBackingStoreBuffered, true);
    panel->makeKeyAndOrderFront(nullptr);
    EXPECT_TRUE(panel->isKeyWindow());
    EXPECT_TRUE(second->isMainWindow());
    person().focusWindow([&] { return hostWindow(*first); });
    pump();
    EXPECT_TRUE(first->isKeyWindow());
    EXPECT_TRUE(first->isMainWindow());
    EXPECT_FALSE(second->isMainWindow());
}

TEST_F(NSApplicationTest, AWindowWithoutFrameDoesNotBecomeKey)
{
    auto const window = showWindow();
    auto const borderless = make<NSWindow>(usualContent, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    borderless->makeKeyAndOrderFront(nullptr);
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_FALSE(borderless->canBecomeKeyWindow());
}

TEST_F(NSApplicationTest, TheKeyWindowsLeavingMakesTheNextOneKey)
{
    auto const first = showWindow();
    auto const second = showWindow();
    second->orderOut(nullptr);
    EXPECT_TRUE(first->isKeyWindow());
    EXPECT_TRUE(first->isMainWindow());
    EXPECT_TRUE(hostWindow(*first)->hasFocus());
    first->close();
    EXPECT_EQ(app().keyWindow(), nullptr);
    EXPECT_EQ(app().mainWindow(), nullptr);
}

TEST_F(NSApplicationTest, LosingTheKeyboardDeactivatesAndGettingItBackActivates)
{
    auto const first = showWindow();
    auto const second = showWindow();
    auto& posted = watch();
    person().focusNothing();
    pump();
    EXPECT_FALSE(app().isActive());
    EXPECT_EQ(app().keyWindow(), nullptr);
    EXPECT_EQ(app().mainWindow(), second.get());
    person().focusWindow([&] { return hostWindow(*second); });
    pump();
    EXPECT_TRUE(app().isActive());
    EXPECT_TRUE(second->isKeyWindow());
    EXPECT_THAT(posted,
        ElementsAre(NSApplicationWillResignActiveNotification, NSApplicationDidResignActiveNotification,
            NSApplicationWillBecomeActiveNotification, NSApplicationDidBecomeActiveNotification));
    posted.clear();
    person().focusWindow([&] { return hostWindow(*first); });
    pump();
    EXPECT_THAT(posted, IsEmpty());
}

TEST_F(NSApplicationTest, PanelsHideWhileTheApplicationIsNotActive)
{
    auto const window = showWindow();
    auto const panel = make<NSPanel>(usualContent, NSTitledWindowMask, NSBackingStoreBuffered, true);
    panel->orderFront(nullptr);
    person().focusNothing();
    pump();
    EXPECT_FALSE(panel->isVisible());
    EXPECT_TRUE(window->isVisible());
    person().focusWindow([&] { return hostWindow(*window); });
    pump();
    EXPECT_TRUE(panel->isVisible());
}

TEST_F(NSApplicationTest, HidingTakesTheWindowsAwayAndUnhidingBringsThemBack)
{
    auto const first = showWindow();
    auto const second = showWindow();
    auto const closed = showWindow();
    closed->orderOut(nullptr);
    auto const pinned = makeWindow();
    pinned->setCanHide(false);
    pinned->orderFront(nullptr);
    app().hide(nullptr);
    pump();
    EXPECT_TRUE(app().isHidden());
    EXPECT_FALSE(first->isVisible());
    EXPECT_TRUE(pinned->isVisible());
    auto const shownMeanwhile = makeWindow();
    shownMeanwhile->orderFront(nullptr);
    EXPECT_FALSE(shownMeanwhile->isVisible());
    app().unhide(nullptr);
    pump();
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(shownMeanwhile->isVisible());
    EXPECT_FALSE(closed->isVisible());
    EXPECT_TRUE(app().isActive());
}

// Modal windows.

TEST_F(NSApplicationTest, AModalLoopKeepsOtherWindowsInputOut)
{
    auto const other = showWindow({ 100, 100, 300, 300 });
    auto const otherView = viewIn(*other);
    otherView->takesKeyboard = true;
    auto const dialog = makeWindow();
    auto const button = viewIn(*dialog);
    button->whenEvent = [&](NSEvent& event) {
        if (event.type() == NSLeftMouseUp)
            app().stopModalWithCode(42);
    };
    person().click(onScreen(*otherView, { 5, 5 }));
    person().scroll(onScreen(*otherView, { 5, 5 }), 0, 1);
    person().key(U'x');
    person().moveMouse(onScreen(*otherView, { 15, 15 }));
    person().closeWindow([&] { return hostWindow(*other); });
    machine().headlessEvents().whenIdle([&] {
        EXPECT_EQ(app().modalWindow(), dialog.get());
        EXPECT_TRUE(dialog->isKeyWindow());
        EXPECT_TRUE(hostWindow(*dialog)->hasFocus());
        person().click(onScreen(*button, { 5, 5 }));
    });
    auto const result = app().runModalForWindow(*dialog);
    EXPECT_EQ(result, 42);
    EXPECT_THAT(otherView->log, IsEmpty());
    EXPECT_TRUE(other->isVisible());
    EXPECT_GE(display().beepCount(), 2);
    EXPECT_THAT(button->log, ElementsAre("mouseDown", "mouseUp"));
    EXPECT_EQ(app().modalWindow(), nullptr);
    dialog->orderOut(nullptr);
    clickCenter(*otherView);
    EXPECT_THAT(otherView->log, testing::Contains("mouseDown"));
}

TEST_F(NSApplicationTest, WindowsThatWorkWhenModalAndPopupsTakeEvents)
{
    auto const panel = make<NSPanel>(Rect { 100, 100, 100, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
    panel->setWorksWhenModal(true);
    panel->orderFront(nullptr);
    auto const inPanel = viewIn(*panel);
    auto const popup = make<NSWindow>(Rect { 300, 100, 100, 100 }, NSBorderlessWindowMask, NSBackingStoreBuffered, true);
    popup->setLevel(NSPopUpMenuWindowLevel);
    popup->orderFront(nullptr);
    auto const inPopup = viewIn(*popup);
    auto const dialog = makeWindow();
    person().click(onScreen(*inPanel, { 5, 5 }));
    person().click(onScreen(*inPopup, { 5, 5 }));
    machine().headlessEvents().whenIdle([&] { app().stopModal(); });
    EXPECT_EQ(app().runModalForWindow(*dialog), NSRunStoppedResponse);
    EXPECT_THAT(inPanel->log, ElementsAre("mouseDown", "mouseUp"));
    EXPECT_THAT(inPopup->log, ElementsAre("mouseDown", "mouseUp"));
}

TEST_F(NSApplicationTest, ModalLoopsNest)
{
    auto const outer = makeWindow();
    auto const inner = makeWindow();
    auto const outerView = viewIn(*outer);
    std::vector<long> results;
    machine().headlessEvents().whenIdle([&] {
        person().click(onScreen(*outerView, { 5, 5 }));
        machine().headlessEvents().whenIdle([&] { app().stopModalWithCode(1); });
        results.push_back(app().runModalForWindow(*inner));
        inner->orderOut(nullptr);
        EXPECT_THAT(outerView->log, IsEmpty());
        EXPECT_TRUE(outer->isKeyWindow());
        app().stopModalWithCode(2);
    });
    results.push_back(app().runModalForWindow(*outer));
    EXPECT_THAT(results, ElementsAre(1, 2));
}

TEST_F(NSApplicationTest, ASessionAnswersThatItContinuesUntilItIsStopped)
{
    auto const dialog = makeWindow();
    auto const session = app().beginModalSessionForWindow(*dialog);
    EXPECT_TRUE(dialog->isVisible());
    auto const start = clock().uptime();
    int fired = 0;
    auto const timer = NSTimer::timerWithTimeInterval(
        3, [&](NSTimer&) { ++fired; }, false);
    NSRunLoop::currentRunLoop().addTimer(*timer, NSModalPanelRunLoopMode);
    EXPECT_EQ(app().runModalSession(*session), NSRunContinuesResponse);
    EXPECT_EQ(fired, 1);
    EXPECT_NEAR(clock().uptime() - start, 3, 1e-6);
    person().then([] {});
    EXPECT_EQ(app().runModalSession(*session), NSRunContinuesResponse);
    app().postEvent(*event(1), false);
    EXPECT_EQ(app().runModalSession(*session), NSRunContinuesResponse);
    app().stopModalWithCode(5);
    EXPECT_EQ(app().runModalSession(*session), 5);
    EXPECT_EQ(app().runModalSession(*session), 5);
    app().endModalSession(*session);
    EXPECT_EQ(app().modalWindow(), nullptr);
    EXPECT_TRUE(session->isEnded());
}

TEST_F(NSApplicationTest, ATimerMayStopOrAbortAModalLoop)
{
    auto const dialog = makeWindow();
    auto const abortSoon = NSTimer::timerWithTimeInterval(
        1, [&](NSTimer&) { app().abortModal(); }, false);
    NSRunLoop::currentRunLoop().addTimer(*abortSoon, NSModalPanelRunLoopMode);
    EXPECT_EQ(app().runModalForWindow(*dialog), NSRunAbortedResponse);
}

TEST_F(NSApplicationTest, ClosingTheModalWindowAbortsItsLoop)
{
    auto const dialog = makeWindow();
    machine().headlessEvents().whenIdle([&] { person().closeWindow([&] { return hostWindow(*dialog); }); });
    EXPECT_EQ(app().runModalForWindow(*dialog), NSRunAbortedResponse);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(NSApplicationTest, TerminatingEndsEveryModalLoop)
{
    int exits = 0;
    app().setExitHandler([&] { ++exits; });
    auto const outer = makeWindow();
    auto const inner = makeWindow();
    std::vector<long> results;
    machine().headlessEvents().whenIdle([&] {
        machine().headlessEvents().whenIdle([&] { app().terminate(nullptr); });
        results.push_back(app().runModalForWindow(*inner));
    });
    results.push_back(app().runModalForWindow(*outer));
    EXPECT_THAT(results, ElementsAre(NSRunAbortedResponse, NSRunAbortedResponse));
    EXPECT_EQ(exits, 1);
}

TEST_F(NSApplicationTest, EventsAfterTheStopWaitForWhoeverComesNext)
{
    auto const dialog = makeWindow();
    auto const button = viewIn(*dialog);
    button->whenEvent = [&](NSEvent&) { app().stopModal(); };
    auto const session = app().beginModalSessionForWindow(*dialog);
    button->forget();
    for (auto const type : { NSLeftMouseDown, NSLeftMouseUp })
        app().postEvent(*mouseEvent(type, *button, { 5, 5 }), false);
    EXPECT_EQ(app().runModalSession(*session), NSRunStoppedResponse);
    app().endModalSession(*session);
    EXPECT_THAT(button->log, ElementsAre("mouseDown"));
    pump();
    EXPECT_THAT(button->log, ElementsAre("mouseDown", "mouseUp"));
}

TEST_F(NSApplicationTest, TheKeyboardGoesBackToTheModalWindow)
{
    auto const other = showWindow();
    auto const dialog = makeWindow();
    auto const session = app().beginModalSessionForWindow(*dialog);
    person().focusWindow([&] { return hostWindow(*other); });
    pump();
    EXPECT_TRUE(dialog->isKeyWindow());
    EXPECT_TRUE(hostWindow(*dialog)->hasFocus());
    app().endModalSession(*session);
}

TEST_F(NSApplicationTest, AnExceptionEndsTheModalSessionToo)
{
    auto const dialog = makeWindow();
    machine().headlessEvents().whenIdle([] { throw std::runtime_error("stop"); });
    EXPECT_THROW(app().runModalForWindow(*dialog), std::runtime_error);
    EXPECT_EQ(app().modalWindow(), nullptr);
}

// Sheets.

TEST_F(NSApplicationTest, ASheetHangsFromItsWindowAndTakesItsInput)
{
    auto const window = showWindow({ 100, 100, 400, 300 });
    auto const view = viewIn(*window);
    auto const other = showWindow({ 700, 100, 300, 300 });
    auto const otherView = viewIn(*other);
    auto const sheet = makeWindow();
    auto const inSheet = viewIn(*sheet);
    std::vector<std::string> posted;
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const& notification) {
            if (notification.name.find("Sheet") != std::string::npos)
                posted.push_back(notification.name);
        },
        std::nullopt, window.get());
    long code = 0;
    app().beginSheet(*sheet, *window, [&](NSWindow& ended, long returnCode) {
        EXPECT_EQ(&ended, sheet.get());
        code = returnCode;
    });
    pump();
    EXPECT_EQ(window->attachedSheet(), sheet.get());
    EXPECT_TRUE(sheet->isSheet());
    EXPECT_TRUE(sheet->isKeyWindow());
    EXPECT_EQ(sheet->frame(), (Rect { 200, 300, 200, 100 }));
    EXPECT_FALSE(window->canBecomeKeyWindow() && window->isKeyWindow());
    clickCenter(*view);
    person().closeWindow([&] { return hostWindow(*window); });
    pump();
    EXPECT_THAT(view->log, IsEmpty());
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(display().beepCount(), 2);
    EXPECT_TRUE(sheet->isKeyWindow());
    clickCenter(*otherView);
    EXPECT_THAT(otherView->log, ElementsAre("mouseDown", "mouseUp"));
    clickCenter(*inSheet);
    EXPECT_THAT(inSheet->log, ElementsAre("mouseDown", "mouseUp"));
    window->setFrameOrigin({ 150, 50 });
    EXPECT_EQ(sheet->frame().origin(), (Point { 250, 250 }));
    app().endSheet(*sheet, 3);
    sheet->orderOut(nullptr);
    pump();
    EXPECT_EQ(code, 3);
    EXPECT_EQ(window->attachedSheet(), nullptr);
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_EQ(sheet->frame().height, 100 + 22);
    EXPECT_THAT(posted, ElementsAre(NSWindowWillBeginSheetNotification, NSWindowDidEndSheetNotification));
    clickCenter(*view);
    EXPECT_THAT(view->log, ElementsAre("mouseDown", "mouseUp"));
}

TEST_F(NSApplicationTest, ASheetMayBeRunModally)
{
    auto const window = showWindow();
    auto const sheet = makeWindow();
    app().beginSheet(*sheet, *window);
    auto const session = app().beginModalSessionForWindow(*sheet);
    machine().headlessEvents().whenIdle([&] { app().stopModalWithCode(9); });
    long result = NSRunContinuesResponse;
    int rounds = 0;
    while (result == NSRunContinuesResponse && rounds++ < 100)
        result = app().runModalSession(*session);
    app().endSheet(*sheet);
    app().endModalSession(*session);
    sheet->orderOut(nullptr);
    EXPECT_EQ(result, 9);
    EXPECT_TRUE(window->isKeyWindow());
}

TEST_F(NSApplicationTest, ClosingASheetOrItsWindowDetachesIt)
{
    auto const window = showWindow();
    auto const sheet = makeWindow();
    app().beginSheet(*sheet, *window);
    sheet->close();
    EXPECT_EQ(window->attachedSheet(), nullptr);
    app().beginSheet(*sheet, *window);
    EXPECT_TRUE(sheet->isVisible());
    window->close();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_FALSE(sheet->isSheet());
}

// Actions.

class ActionView final : public NSView {
    PLIX_CLASS(ActionView, NSView);

public:
    using NSView::init;
    int count { 0 };
    NSObject* sender { nullptr };
    void act(NSObject* from)
    {
        ++count;
        sender = from;
    }
    bool acceptsFirstResponder() const override { return true; }
};
PLIX_DESCRIBE(ActionView)
{
    description.action("act:", &ActionView::act);
}

TEST_F(NSApplicationTest, ActionsGoToTheirTargetOrAlongTheChain)
{
    auto const window = showWindow();
    auto const view = make<ActionView>(Rect { 0, 0, 10, 10 });
    auto const sender = make<NSView>();
    EXPECT_TRUE(app().sendAction(Selector("act:"), view.get(), sender.get()));
    EXPECT_EQ(view->sender, sender.get());
    EXPECT_FALSE(app().sendAction(Selector("act:"), nullptr, sender.get()));
    EXPECT_FALSE(app().sendAction(Selector("fly:"), view.get(), sender.get()));
    EXPECT_FALSE(app().sendAction(Selector(), view.get(), sender.get()));
    window->contentView()->addSubview(*view);
    window->makeFirstResponder(view.get());
    EXPECT_TRUE(app().sendAction(Selector("act:"), nullptr, sender.get()));
    EXPECT_EQ(view->count, 2);
    auto const panel = make<NSPanel>(usualContent, NSTitledWindowMask, NSBackingStoreBuffered, true);
    panel->makeKeyAndOrderFront(nullptr);
    EXPECT_EQ(app().targetForAction(Selector("act:")), view.get());
    EXPECT_EQ(app().targetForAction(Selector("terminate:")), &app());
    EXPECT_EQ(app().targetForAction(Selector("performClose:")), panel.get());
}

// Attention.

TEST_F(NSApplicationTest, AttentionIsAskedForOnlyWhileNotActive)
{
    auto const window = showWindow();
    EXPECT_EQ(app().requestUserAttention(NSCriticalRequest), 0);
    person().focusNothing();
    pump();
    auto const first = app().requestUserAttention(NSCriticalRequest);
    auto const second = app().requestUserAttention(NSInformationalRequest);
    EXPECT_NE(first, 0);
    EXPECT_NE(first, second);
    EXPECT_TRUE(hostWindow(*window)->wantsAttention());
    app().cancelUserAttentionRequest(first);
    EXPECT_TRUE(hostWindow(*window)->wantsAttention());
    app().cancelUserAttentionRequest(second);
    EXPECT_FALSE(hostWindow(*window)->wantsAttention());
    app().cancelUserAttentionRequest(second);
    auto const third = app().requestUserAttention(NSInformationalRequest);
    app().activateIgnoringOtherApps(true);
    EXPECT_FALSE(hostWindow(*window)->wantsAttention());
    EXPECT_TRUE(window->isKeyWindow());
    app().cancelUserAttentionRequest(third);
}

TEST_F(NSApplicationTest, WindowsAreUpdatedAfterEachEventOfRun)
{
    class Updating final : public NSWindow {
    public:
        using NSWindow::init;
        int updates { 0 };
        void update() override { ++updates; }
    };
    auto const window = make<Updating>(usualContent, usualStyle, NSBackingStoreBuffered, true);
    window->orderFront(nullptr);
    app().postEvent(*event(1), false);
    app().postEvent(*event(2), false);
    machine().headlessEvents().whenIdle([&] { app().stop(nullptr); });
    app().run();
    EXPECT_EQ(window->updates, 2);
}

TEST_F(NSApplicationTest, AnIdleLoopWakesForNothing)
{
    showWindow();
    auto const before = machine().headlessEvents().waitCount();
    EXPECT_EQ(app().nextEventMatchingMask(NSAnyEventMask, NSDate::dateWithTimeIntervalSinceNow(3600), NSDefaultRunLoopMode, true),
        nullptr);
    EXPECT_LE(machine().headlessEvents().waitCount() - before, 2);
}

}
}
