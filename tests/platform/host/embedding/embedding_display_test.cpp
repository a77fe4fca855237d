#include <tests/support/FakeToolkit.h>

#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/host/embedding/toolkit_keys.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keeps what it is told, with its name before it.
class Client final : public HostWindowClient {
public:
    Client(char const* name, std::vector<std::string>& log)
        : m_name(name)
        , m_log(log)
    {
    }
    HostEvent last;

    void hostWindowEvent(HostEvent const& event) override
    {
        last = event;
        constexpr char const* names[]
            = { "down", "up", "moved", "entered", "exited", "wheel", "key", "key up", "modifiers", "preedit" };
        note(names[static_cast<int>(event.type)]);
    }
    void hostWindowContentRectChanged(Rect rect) override { note("rect " + NSStringFromRect(rect)); }
    void hostWindowFocusChanged(bool hasFocus) override { note(hasFocus ? "focus" : "no focus"); }
    void hostWindowCloseRequested() override { note("close"); }
    void hostWindowNeedsRepaint(Rect) override { note("repaint"); }
    void hostWindowScaleChanged(float scale) override { note("scale " + std::to_string(static_cast<int>(scale))); }
    void hostWindowMiniaturizedChanged(bool isMiniaturized) override { note(isMiniaturized ? "mini" : "no mini"); }
    void hostWindowLiveResizeChanged(bool) override { note("live"); }

private:
    void note(std::string const& what) { m_log.push_back(std::string(m_name) + ' ' + what); }

    char const* m_name;
    std::vector<std::string>& m_log;
};

class Embedding : public testing::Test {
protected:
    std::unique_ptr<HostWindow> make(Client& client, HostWindowKind kind, Rect rect)
    {
        HostWindowAttributes attributes;
        attributes.kind = kind;
        attributes.contentRect = rect;
        auto window = display.makeWindow(attributes, client);
        window->show();
        return window;
    }
    /// What the clients were told since the last call.
    std::vector<std::string> told()
    {
        toolkit.embeddingEvents.deliverPending();
        return std::exchange(log, {});
    }
    EmbeddedWindow* embedded(std::unique_ptr<HostWindow> const& window) { return display.windowFor(window.get()); }

    FakeToolkit toolkit;
    FakeDisplay& display { toolkit.fakeDisplay };
    EmbeddingEvents& events { toolkit.embeddingEvents };
    FakeLoop& loop { toolkit.loop };
    std::vector<std::string> log;
    Client a { "a", log };
    Client b { "b", log };
    Client menu { "menu", log };
    std::unique_ptr<HostWindow> first { make(a, HostWindowKind::document, { 100, 100, 200, 100 }) };
};

TEST_F(Embedding, NothingIsToldBeforeItIsDelivered)
{
    display.pointerMoved(embedded(first), { 110, 110 }, 0);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_THAT(told(), ElementsAre("a entered", "a moved"));
    EXPECT_FALSE(events.deliverPending());
}

TEST_F(Embedding, ClicksAreCountedWhateverTheToolkitCounts)
{
    for (int count = 1; count <= 3; ++count) {
        display.buttonPressed(embedded(first), { 110, 110 }, 0, 0);
        told();
        EXPECT_EQ(a.last.clickCount, count);
        EXPECT_EQ(a.last.pressedButtons, 1U);
        display.buttonReleased(embedded(first), { 110, 110 }, 0, 0);
        told();
        EXPECT_EQ(a.last.clickCount, count);
        EXPECT_EQ(a.last.pressedButtons, 0U);
    }
    display.buttonPressed(embedded(first), { 150, 110 }, 0, HostModifierShift);
    told();
    EXPECT_EQ(a.last.clickCount, 1);
    EXPECT_EQ(a.last.modifiers, HostModifierShift);
    EXPECT_EQ(a.last.locationOnScreen, (Point { 150, 110 }));
}

TEST_F(Embedding, ADragStaysWithTheWindowThatWasPressed)
{
    auto const second = make(b, HostWindowKind::document, { 400, 100, 200, 100 });
    display.buttonPressed(embedded(first), { 110, 110 }, 0, 0);
    display.pointerMoved(embedded(second), { 410, 110 }, 0);
    display.buttonReleased(embedded(second), { 410, 110 }, 0, 0);
    display.pointerMoved(embedded(second), { 411, 110 }, 0);
    EXPECT_THAT(told(), ElementsAre("a down", "a moved", "a up", "b entered", "b moved"));
}

TEST_F(Embedding, AMenuThatOpensUnderThePressGetsWhatFollows)
{
    display.buttonPressed(embedded(first), { 110, 110 }, 0, 0);
    auto const popup = make(menu, HostWindowKind::popup, { 100, 50, 80, 100 });
    // The toolkit holds the pointer for the widget that was pressed.
    display.pointerMoved(embedded(first), { 120, 60 }, 0);
    display.buttonReleased(embedded(first), { 120, 60 }, 0, 0);
    EXPECT_THAT(told(), ElementsAre("a down", "menu entered", "menu moved", "menu up"));
}

TEST_F(Embedding, ThePopUpInFrontGetsThePointer)
{
    auto const popup = make(menu, HostWindowKind::popup, { 100, 50, 80, 100 });
    auto const submenu = make(b, HostWindowKind::popup, { 150, 50, 80, 100 });
    display.pointerMoved(embedded(first), { 160, 60 }, 0);
    EXPECT_THAT(told(), ElementsAre("b entered", "b moved"));
    submenu->hide();
    display.pointerMoved(embedded(first), { 160, 60 }, 0);
    display.wheelTurned(embedded(first), { 160, 60 }, { 0, 1.5F }, 0);
    EXPECT_THAT(told(), ElementsAre("b exited", "menu entered", "menu moved", "menu wheel"));
    EXPECT_EQ(menu.last.scrollY, 1.5F);
}

TEST_F(Embedding, LeavingAWidgetForAMenuMovesThePointerThere)
{
    display.pointerMoved(embedded(first), { 120, 110 }, 0);
    auto const popup = make(menu, HostWindowKind::popup, { 100, 50, 80, 100 });
    told();
    display.pointerLeft({ 120, 110 }, 0);
    EXPECT_THAT(told(), ElementsAre("a exited", "menu entered", "menu moved"));
    display.pointerLeft({ 500, 500 }, 0);
    EXPECT_THAT(told(), ElementsAre("menu exited"));
}

TEST_F(Embedding, ReleasesThatNobodyToldOfAreMadeUpFor)
{
    display.buttonPressed(embedded(first), { 110, 110 }, 1, 0);
    display.buttonPressed(embedded(first), { 110, 110 }, 0, 0);
    told();
    display.buttonsHeld(2);
    EXPECT_THAT(told(), ElementsAre("a up"));
    EXPECT_EQ(a.last.button, 0);
    EXPECT_EQ(display.pressedButtons(), 2U);
    // One that was not pressed here is not released here.
    display.buttonReleased(embedded(first), { 110, 110 }, 2, 0);
    EXPECT_THAT(told(), IsEmpty());
}

TEST_F(Embedding, APressElsewhereEndsAMenuAndNothingElse)
{
    EXPECT_FALSE(display.takesPressElsewhere({ 500, 500 }, 0, 0));
    auto const popup = make(menu, HostWindowKind::popup, { 100, 50, 80, 100 });
    // A tool tip.
    EXPECT_FALSE(display.takesPressElsewhere({ 500, 500 }, 0, 0));
    bool wasTaken = false;
    loop.events.emplace_back([&] { wasTaken = display.takesPressElsewhere({ 500, 500 }, 0, 0); });
    NSRunLoop::currentRunLoop().runOnce(NSEventTrackingRunLoopMode, NSDate::dateWithTimeIntervalSinceNow(5));
    EXPECT_TRUE(wasTaken);
    EXPECT_THAT(told(), ElementsAre("menu down", "menu up"));
    EXPECT_EQ(menu.last.locationOnScreen, (Point { 500, 500 }));
}

TEST_F(Embedding, TheFocusIsToldWindowByWindow)
{
    auto const second = make(b, HostWindowKind::document, { 400, 100, 200, 100 });
    display.focusChanged(*embedded(first), true);
    display.focusChanged(*embedded(first), true);
    EXPECT_THAT(told(), ElementsAre("a focus"));
    display.focusChanged(*embedded(second), true);
    EXPECT_THAT(told(), ElementsAre("a no focus", "b focus"));
    EXPECT_EQ(display.focusedWindow(), embedded(second));
    // The toolkit tells the loser late.
    display.focusChanged(*embedded(first), false);
    EXPECT_THAT(told(), IsEmpty());
    display.focusChanged(*embedded(second), false);
    EXPECT_THAT(told(), ElementsAre("b no focus"));
    EXPECT_EQ(display.focusedWindow(), nullptr);
}

TEST_F(Embedding, KeysTextAndPreeditGoToTheirWindow)
{
    display.keyPressed(*embedded(first), { .keysym = 'a', .character = U'a', .text = "a", .modifiers = HostModifierShift });
    EXPECT_EQ(display.modifiers(), HostModifierShift);
    display.keyReleased(*embedded(first), { .keysym = 'a', .character = U'a' });
    display.keyPressed(*embedded(first), { .keysym = 0xFFE1 });
    EXPECT_EQ(display.modifiers(), HostModifierShift);
    display.keyPressed(*embedded(first), { .keysym = 0xFFE1, .isRepeat = true });
    EXPECT_THAT(told(), ElementsAre("a key", "a key up", "a modifiers"));
    display.preeditChanged(*embedded(first), "né", 99);
    EXPECT_THAT(told(), ElementsAre("a preedit"));
    EXPECT_EQ(a.last.preeditCaret, 2);
    display.textEntered(*embedded(first), "");
    display.textEntered(*embedded(first), "é");
    EXPECT_THAT(told(), ElementsAre("a key"));
    EXPECT_EQ(a.last.characters, "é");
    EXPECT_EQ(a.last.keyCode, 0xFFFF);
    EXPECT_EQ(a.last.modifiers, 0U);
}

TEST_F(Embedding, ANewPlaceIsToldAtOnceAndHasItsPixels)
{
    auto* const window = embedded(first);
    window->placed({ 100, 100, 50, 40 }, 2);
    EXPECT_THAT(log, ElementsAre("a scale 2", "a rect {{100, 100}, {50, 40}}"));
    auto const pixels = window->lockPixels();
    EXPECT_EQ(pixels.width, 100);
    EXPECT_EQ(pixels.height, 80);
    EXPECT_FALSE(pixels.keepsContent);
    EXPECT_EQ(window->shownPixels().pixels, nullptr);
    window->present({});
    EXPECT_NE(window->shownPixels().pixels, nullptr);
    window->placed({ 0, 0, 50, 40 }, 2);
    EXPECT_TRUE(window->lockPixels().keepsContent);
    window->placed({ 0, 0, 51, 40 }, 2);
    EXPECT_EQ(window->shownPixels().pixels, nullptr);
}

TEST_F(Embedding, AWidgetStaysWhereTheToolkitHasIt)
{
    first->setContentRect({ 0, 0, 10, 10 });
    EXPECT_THAT(log, ElementsAre("a rect {{100, 100}, {200, 100}}"));
    auto const popup = make(menu, HostWindowKind::popup, { 100, 50, 80, 100 });
    popup->setContentRect({ 0, 0, 10, 10 });
    EXPECT_EQ(popup->contentRect(), (Rect { 0, 0, 10, 10 }));
}

TEST_F(Embedding, AWindowThatIsGoneIsToldNothing)
{
    auto second = make(b, HostWindowKind::popup, { 400, 100, 200, 100 });
    second->setParent(first.get());
    EXPECT_EQ(embedded(second)->parent(), embedded(first));
    display.pointerMoved(embedded(second), { 410, 110 }, 0);
    display.focusChanged(*embedded(first), true);
    first.reset();
    EXPECT_EQ(embedded(second)->parent(), nullptr);
    second.reset();
    EXPECT_THAT(told(), IsEmpty());
    EXPECT_EQ(display.focusedWindow(), nullptr);
    EXPECT_THAT(display.windows(), IsEmpty());
}

// The loop.

TEST_F(Embedding, ATurnFollowsWhateverMadeTheToolkitWake)
{
    EXPECT_TRUE(events.toolkitWillSleep());
    EXPECT_TRUE(events.toolkitWillSleep());
    events.noteTurn();
    EXPECT_FALSE(events.toolkitWillSleep());
    EXPECT_TRUE(events.toolkitWillSleep());
}

TEST_F(Embedding, ThePassOfAWaitEndsByItself)
{
    bool inside = true;
    loop.events.emplace_back([&] { inside = events.isPassing(); });
    auto const deadline = clock().uptime() + 100;
    events.wait({}, deadline);
    EXPECT_EQ(loop.passes, 1);
    EXPECT_FALSE(loop.wantedTurn);
    EXPECT_EQ(loop.deadline, deadline);
    EXPECT_TRUE(inside);
    EXPECT_FALSE(events.isPassing());
    // The toolkit has handled something, and that counts.
    EXPECT_TRUE(events.deliverPending());
    EXPECT_FALSE(events.deliverPending());
}

TEST_F(Embedding, ALoopOfTheToolkitsWithinAPassTakesTurns)
{
    bool wantsTurn = false;
    loop.events.emplace_back([&] {
        // A dialog of the toolkit's opens.
        ++loop.loops;
        wantsTurn = events.toolkitWillSleep();
        --loop.loops;
    });
    events.wait({}, clock().uptime() + 100);
    EXPECT_TRUE(wantsTurn);
}

TEST_F(Embedding, AWaitThatIsOverDoesNotPass)
{
    events.wait({}, clock().uptime());
    events.wake();
    events.wait({}, std::nullopt);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ASSERT_EQ(::write(ends[1], "x", 1), 1);
    pollfd ready { ends[0], POLLIN, 0 };
    events.wait({ &ready, 1 }, std::nullopt);
    EXPECT_NE(ready.revents & POLLIN, 0);
    EXPECT_EQ(loop.passes, 0);
    // The toolkit wakes for it from now on.
    EXPECT_EQ(events.watched().size(), 2U);
    EXPECT_EQ(events.watched().back().fd, ends[0]);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST_F(Embedding, TheToolkitSleepsUntilTheNextTimer)
{
    EXPECT_EQ(events.deadline(), std::nullopt);
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        50, [](NSTimer&) {}, false);
    ASSERT_TRUE(events.deadline());
    EXPECT_NEAR(*events.deadline(), clock().uptime() + 50, 1);
    timer->invalidate();
    EXPECT_EQ(events.deadline(), std::nullopt);
}

}
}
