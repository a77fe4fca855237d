#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSImage.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NSWindowTest : public HeadlessTest {
protected:
    /// The names of what is posted about the window from here on.
    std::vector<std::string>& watch(NSWindow& window)
    {
        m_token = NSNotificationCenter::defaultCenter().addObserver(
            [this](NSNotification const& notification) { m_posted.push_back(notification.name); }, std::nullopt, &window);
        return m_posted;
    }

private:
    Ref<NSObject> m_token;
    std::vector<std::string> m_posted;
};

constexpr float titleBar = 22;

// Frame and content.

TEST_F(NSWindowTest, FramesSurroundTheContent)
{
    EXPECT_EQ(NSWindow::frameRectForContentRect({ 10, 20, 100, 50 }, NSTitledWindowMask), (Rect { 10, 20, 100, 50 + titleBar }));
    EXPECT_EQ(NSWindow::contentRectForFrameRect({ 10, 20, 100, 72 }, NSTitledWindowMask), (Rect { 10, 20, 100, 50 }));
    EXPECT_EQ(NSWindow::frameRectForContentRect({ 10, 20, 100, 50 }, NSBorderlessWindowMask), (Rect { 10, 20, 100, 50 }));
    auto const window = make<NSWindow>(Rect { 10, 20, 100, 50 }, usualStyle, NSBackingStoreBuffered, false);
    EXPECT_EQ(window->frame(), (Rect { 10, 20, 100, 50 + titleBar }));
    EXPECT_EQ(window->contentView()->frame(), (Rect { 0, 0, 100, 50 }));
    EXPECT_EQ(window->frameRectForContentRect({ 0, 0, 10, 10 }).height, 10 + titleBar);
    EXPECT_GT(NSWindow::minFrameWidthWithTitle("A long title", usualStyle), NSWindow::minFrameWidthWithTitle("", usualStyle));
}

TEST_F(NSWindowTest, SettingTheFrameResizesTheContentAndIsPosted)
{
    auto const window = showWindow();
    auto const view = make<NSView>(Rect { 0, 0, 400, 300 });
    view->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    window->contentView()->addSubview(*view);
    auto& posted = watch(*window);
    window->setFrame({ 50, 60, 200, 122 }, true);
    EXPECT_EQ(view->frame(), (Rect { 0, 0, 200, 100 }));
    EXPECT_EQ(hostWindow(*window)->contentRect(), (Rect { 50, 60, 200, 100 }));
    EXPECT_THAT(posted, ElementsAre(NSWindowDidMoveNotification, NSWindowDidResizeNotification));
    EXPECT_EQ(hostWindow(*window)->pixelWidth(), 200);
    posted.clear();
    window->setFrame({ 50, 60, 200, 122 }, true);
    EXPECT_THAT(posted, IsEmpty());
    window->setFrameOrigin({ 0, 0 });
    EXPECT_THAT(posted, ElementsAre(NSWindowDidMoveNotification));
}

TEST_F(NSWindowTest, LimitsHoldForTheFrame)
{
    auto const window = showWindow();
    window->setMinSize({ 100, 100 });
    window->setMaxSize({ 500, 400 });
    window->setFrame({ 0, 0, 10, 10 }, false);
    EXPECT_EQ(window->frame().size(), (Size { 100, 100 }));
    window->setFrame({ 0, 0, 1000, 1000 }, false);
    EXPECT_EQ(window->frame().size(), (Size { 500, 400 }));
    EXPECT_EQ(hostWindow(*window)->minimumSize(), (Size { 100, 100 - titleBar }));
    EXPECT_EQ(hostWindow(*window)->maximumSize(), (Size { 500, 400 - titleBar }));
    window->setContentMinSize({ 50, 50 });
    EXPECT_EQ(window->minSize(), (Size { 50, 50 + titleBar }));
    EXPECT_EQ(window->contentMinSize(), (Size { 50, 50 }));
}

TEST_F(NSWindowTest, AnAnimatedFrameChangeReturnsWhenItIsDone)
{
    class Watcher final : public NSWindow {
    public:
        using NSWindow::init;
        using NSWindow::setFrame;
        std::vector<Rect> steps;
        int plainCalls { 0 };
        void setFrame(Rect frame, bool display) override
        {
            ++plainCalls;
            NSWindow::setFrame(frame, display);
        }
        void displayIfNeeded() override
        {
            steps.push_back(frame());
            NSWindow::displayIfNeeded();
        }
    };
    auto const window = make<Watcher>(Rect { 0, 0, 300, 100 }, usualStyle, NSBackingStoreBuffered, false);
    window->makeKeyAndOrderFront(nullptr);
    pump();
    window->steps.clear();
    window->plainCalls = 0;
    Rect const target { 0, 0, 600, 122 };
    EXPECT_NEAR(window->animationResizeTime(target), 0.4, 1e-6);
    auto const start = clock().uptime();
    window->setFrame(target, true, true);
    EXPECT_NEAR(clock().uptime() - start, 0.4, 1e-3);
    EXPECT_EQ(window->frame(), target);
    ASSERT_GT(window->steps.size(), 10U);
    EXPECT_TRUE(std::ranges::is_sorted(window->steps, {}, &Rect::width));
    EXPECT_EQ(window->steps.back(), target);
    EXPECT_LT(window->steps.front().width, 350);
    EXPECT_EQ(window->plainCalls, 0);
}

TEST_F(NSWindowTest, WithoutAnimationOrOffScreenItHappensAtOnce)
{
    auto const window = showWindow();
    auto const start = clock().uptime();
    window->setFrame({ 0, 0, 700, 500 }, true, false);
    EXPECT_EQ(window->frame(), (Rect { 0, 0, 700, 500 }));
    window->orderOut(nullptr);
    window->setFrame({ 0, 0, 100, 100 }, true, true);
    EXPECT_EQ(window->frame(), (Rect { 0, 0, 100, 100 }));
    EXPECT_EQ(clock().uptime(), start);
}

TEST_F(NSWindowTest, ClosingDuringAnAnimationEndsIt)
{
    auto const window = showWindow();
    machine().headlessEvents().postAfter(0.1, [&] { window->close(); });
    window->setFrame({ 0, 0, 1000, 800 }, true, true);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->frame(), (Rect { 0, 0, 1000, 800 }));
}

TEST_F(NSWindowTest, WindowsComeBackOnScreenWhenOrderedIn)
{
    struct Row {
        Rect content;
        Rect frame;
    };
    // The screen is 1440 wide; 872 of its height can be used.
    Row const rows[] = {
        { { 100, 100, 200, 100 }, { 100, 100, 200, 122 } },
        { { 100, 800, 200, 100 }, { 100, 750, 200, 122 } },
        { { 100, -300, 200, 1200 }, { 100, 0, 200, 872 } },
        { { -5000, 100, 200, 100 }, { 0, 100, 200, 122 } },
        { { 5000, -5000, 200, 100 }, { 1240, 0, 200, 122 } },
        { { -100, 100, 200, 100 }, { -100, 100, 200, 122 } },
    };
    for (auto const& row : rows) {
        auto const window = make<NSWindow>(row.content, usualStyle, NSBackingStoreBuffered, false);
        window->orderFront(nullptr);
        EXPECT_EQ(window->frame(), row.frame) << row.content.x;
        window->close();
    }
    auto const borderless = make<NSWindow>(Rect { 0, 2000, 10, 10 }, NSBorderlessWindowMask, NSBackingStoreBuffered, false);
    borderless->orderFront(nullptr);
    EXPECT_EQ(borderless->frame(), (Rect { 0, 2000, 10, 10 }));
}

TEST_F(NSWindowTest, WindowsComeBackWhenTheirScreenGoes)
{
    display().setScreens(
        { { { 0, 0, 1440, 900 }, { 0, 0, 1440, 872 }, 1 }, { { 1440, 0, 1000, 800 }, { 1440, 0, 1000, 800 }, 2 } });
    auto const window = showWindow({ 1500, 100, 200, 100 });
    EXPECT_EQ(window->backingScaleFactor(), 2);
    EXPECT_EQ(window->screen(), NSScreen::screens()[1].get());
    EXPECT_EQ(NSImage::defaultBackingScale(), 2);
    display().setScreens({ HeadlessDisplay::defaultScreen() });
    EXPECT_EQ(window->frame(), (Rect { 1240, 100, 200, 122 }));
    EXPECT_EQ(window->backingScaleFactor(), 1);
    EXPECT_EQ(NSImage::defaultBackingScale(), 1);
}

TEST_F(NSWindowTest, AnotherScreenIsToldOnce)
{
    display().setScreens(
        { { { 0, 0, 1440, 900 }, { 0, 0, 1440, 872 }, 1 }, { { 1440, 0, 1000, 800 }, { 1440, 0, 1000, 800 }, 1 } });
    auto const window = showWindow({ 100, 100, 200, 100 });
    auto& posted = watch(*window);
    window->setFrameOrigin({ 200, 100 });
    window->setFrameOrigin({ 1500, 100 });
    window->setFrameOrigin({ 1600, 100 });
    EXPECT_EQ(std::ranges::count(posted, NSWindowDidChangeScreenNotification), 1);
}

TEST_F(NSWindowTest, APersonsResizeFollowsTheAspectRatio)
{
    auto const window = showWindow({ 100, 100, 400, 178 });
    window->setAspectRatio({ 2, 1 });
    person().resizeWindow([&] { return hostWindow(*window); }, { { 100, 100, 300, 178 } });
    pump();
    EXPECT_EQ(window->frame(), (Rect { 100, 150, 300, 150 }));
}

TEST_F(NSWindowTest, ChangesAreTakenBackThroughTheWindowsUndoManager)
{
    auto const window = showWindow();
    auto* const manager = window->undoManager();
    ASSERT_TRUE(manager);
    EXPECT_EQ(window->contentView()->undoManager(), manager);
    window->undo(nullptr);
    EXPECT_EQ(display().beepCount(), 1);
    window->setTitle("Before");
    window->setTitle("After");
    manager->registerUndoWithTarget<NSWindow>(*window, [](NSWindow& changed) { changed.setTitle("Before"); });
    pump();
    EXPECT_TRUE(app().sendAction(Selector("undo:"), nullptr, nullptr));
    EXPECT_EQ(window->title(), "Before");
}

TEST_F(NSWindowTest, CascadingMovesDownAndRight)
{
    auto const first = make<NSWindow>(Rect { 100, 400, 200, 100 }, usualStyle, NSBackingStoreBuffered, false);
    auto const second = make<NSWindow>(Rect { 0, 0, 200, 100 }, usualStyle, NSBackingStoreBuffered, false);
    auto const next = first->cascadeTopLeftFromPoint({});
    EXPECT_EQ(first->frame().origin(), (Point { 100, 400 }));
    second->cascadeTopLeftFromPoint(next);
    EXPECT_EQ(second->frame().origin(), (Point { 122, 378 }));
    auto const start = second->cascadeTopLeftFromPoint({ 1400, 300 });
    EXPECT_EQ(second->frame().x, 0);
    EXPECT_EQ(second->frame().maxY(), 872);
    EXPECT_EQ(start, (Point { 22, 850 }));
}

TEST_F(NSWindowTest, CenteredIsSomewhatAboveTheMiddle)
{
    auto const window = make<NSWindow>(Rect { 0, 0, 440, 250 }, usualStyle, NSBackingStoreBuffered, false);
    window->center();
    EXPECT_EQ(window->frame(), (Rect { 500, 400, 440, 272 }));
}

TEST_F(NSWindowTest, SavedFramesComeBack)
{
    auto const window = make<NSWindow>(Rect { 10, 20, 300, 200 }, usualStyle, NSBackingStoreBuffered, false);
    auto const saved = window->stringWithSavedFrame();
    EXPECT_EQ(saved, "10 20 300 222 0 0 1440 872 ");
    window->setFrame({ 100, 100, 50, 50 }, false);
    window->setFrameFromString(saved);
    EXPECT_EQ(window->frame(), (Rect { 10, 20, 300, 222 }));
    for (auto const* broken : { "", "1 2 3", "abc", "1 2 0 5", "99999999999999999999 1 1 1", "1 2 -5 5" })
        window->setFrameFromString(broken);
    EXPECT_EQ(window->frame(), (Rect { 10, 20, 300, 222 }));
    window->setFrameFromString("9000 9000 300 222");
    EXPECT_EQ(window->frame(), (Rect { 1140, 650, 300, 222 }));
    auto const fixed = make<NSWindow>(Rect { 0, 0, 300, 200 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    fixed->setFrameFromString("50 60 100 100");
    EXPECT_EQ(fixed->frame(), (Rect { 50, -62, 300, 222 }));
}

TEST_F(NSWindowTest, FramesAreSavedUnderAName)
{
    TestFolder const folder;
    TestSurroundings surroundings;
    surroundings.config = folder.path();
    auto const window = make<NSWindow>(Rect { 10, 20, 300, 200 }, usualStyle, NSBackingStoreBuffered, false);
    EXPECT_FALSE(window->setFrameUsingName("never saved"));
    EXPECT_TRUE(window->setFrameAutosaveName("main"));
    window->setFrame({ 40, 50, 300, 222 }, false);
    auto const other = make<NSWindow>(Rect { 0, 0, 10, 10 }, usualStyle, NSBackingStoreBuffered, false);
    EXPECT_FALSE(other->setFrameAutosaveName("main"));
    EXPECT_TRUE(other->setFrameUsingName("main"));
    EXPECT_EQ(other->frame(), (Rect { 40, 50, 300, 222 }));
}

TEST_F(NSWindowTest, BaseCoordinatesBeginAtTheFrame)
{
    auto const window = showWindow({ 100, 200, 400, 300 });
    EXPECT_EQ(window->convertBaseToScreen({ 5, 6 }), (Point { 105, 206 }));
    EXPECT_EQ(window->convertScreenToBase({ 105, 206 }), (Point { 5, 6 }));
}

// Ordering and life.

TEST_F(NSWindowTest, AWindowIsDisplayedOnceWhenItFirstComesOnScreen)
{
    class Counter final : public NSWindow {
    public:
        using NSWindow::init;
        int displays { 0 };
        void display() override
        {
            ++displays;
            NSWindow::display();
        }
    };
    auto const window = make<Counter>(usualContent, usualStyle, NSBackingStoreBuffered, false);
    auto const view = make<CountingView>();
    window->setContentView(view);
    EXPECT_FALSE(window->isVisible());
    window->orderFront(nullptr);
    EXPECT_EQ(window->displays, 1);
    EXPECT_EQ(view->drawCount, 1);
    pump();
    window->orderOut(nullptr);
    window->orderFront(nullptr);
    pump();
    EXPECT_EQ(window->displays, 1);
}

TEST_F(NSWindowTest, OrderingKeepsTheApplicationsListFrontToBack)
{
    auto const a = showWindow();
    auto const b = showWindow();
    auto const c = showWindow();
    EXPECT_THAT(app().orderedWindows(), ElementsAre(c, b, a));
    a->orderFront(nullptr);
    EXPECT_THAT(app().orderedWindows(), ElementsAre(a, c, b));
    a->orderBack(nullptr);
    EXPECT_THAT(app().orderedWindows(), ElementsAre(c, b, a));
    a->orderWindow(NSWindowAbove, b->windowNumber());
    EXPECT_THAT(app().orderedWindows(), ElementsAre(c, a, b));
    c->orderOut(nullptr);
    EXPECT_THAT(app().orderedWindows(), ElementsAre(a, b));
    EXPECT_EQ(app().windows().size(), 3U);
    c->setLevel(NSFloatingWindowLevel);
    c->orderFront(nullptr);
    a->orderFront(nullptr);
    EXPECT_THAT(app().orderedWindows(), ElementsAre(c, a, b));
    EXPECT_EQ(NSWindow::windowWithNumber(b->windowNumber()), b.get());
    EXPECT_EQ(NSWindow::windowWithNumber(0), nullptr);
}

TEST_F(NSWindowTest, AWindowLivesWhileItIsOnScreen)
{
    auto window = showWindow();
    Weak<NSWindow> const weak(window);
    window = nullptr;
    ASSERT_TRUE(weak);
    weak->close();
    EXPECT_FALSE(weak);
}

TEST_F(NSWindowTest, ClosingTellsAndAsksTheDelegate)
{
    class Host : public NSObject {
    public:
        bool lets { false };
        int asked { 0 };
        int closed { 0 };
        bool windowShouldClose(NSObject&)
        {
            ++asked;
            return lets;
        }
        void windowWillClose(NSNotification const&) { ++closed; }
    };
    auto const window = showWindow();
    auto const host = make<Host>();
    window->setDelegate(host);
    EXPECT_EQ(window->delegate(), host.get());
    person().closeWindow([&] { return hostWindow(*window); });
    pump();
    EXPECT_TRUE(window->isVisible());
    host->lets = true;
    person().closeWindow([&] { return hostWindow(*window); });
    pump();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(host->asked, 2);
    EXPECT_EQ(host->closed, 1);
    EXPECT_EQ(hostWindow(*window), nullptr);
    window->makeKeyAndOrderFront(nullptr);
    EXPECT_TRUE(window->isVisible());
}

TEST_F(NSWindowTest, AWindowWithoutACloseBoxBeepsInstead)
{
    auto const window = showWindow(usualContent, NSTitledWindowMask);
    window->performClose(nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(display().beepCount(), 1);
    window->performMiniaturize(nullptr);
    EXPECT_FALSE(window->isMiniaturized());
    window->performZoom(nullptr);
    EXPECT_EQ(display().beepCount(), 3);
}

TEST_F(NSWindowTest, MiniaturizingGivesTheKeyboardToTheNextWindow)
{
    auto const other = showWindow();
    auto const window = showWindow();
    auto& posted = watch(*window);
    window->miniaturize(nullptr);
    pump();
    EXPECT_TRUE(window->isMiniaturized());
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(other->isKeyWindow());
    window->deminiaturize(nullptr);
    pump();
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_THAT(posted,
        testing::IsSupersetOf(
            { NSWindowWillMiniaturizeNotification, NSWindowDidMiniaturizeNotification, NSWindowDidDeminiaturizeNotification }));
}

TEST_F(NSWindowTest, ZoomingGoesToTheStandardFrameAndBack)
{
    class Host : public NSObject {
    public:
        Rect windowWillUseStandardFrame(NSWindow&, Rect standard) { return { standard.x, standard.y, 800, standard.height }; }
    };
    auto const window = showWindow({ 100, 100, 300, 200 });
    auto const host = make<Host>();
    window->setDelegate(host);
    window->zoom(nullptr);
    EXPECT_EQ(window->frame(), (Rect { 0, 0, 800, 872 }));
    EXPECT_TRUE(window->isZoomed());
    window->zoom(nullptr);
    EXPECT_EQ(window->frame(), (Rect { 100, 100, 300, 222 }));
    EXPECT_FALSE(window->isZoomed());
}

TEST_F(NSWindowTest, ChildrenMoveAndLeaveWithTheirParent)
{
    auto const parent = showWindow({ 100, 100, 200, 200 });
    auto const child = make<NSWindow>(Rect { 320, 100, 50, 50 }, NSBorderlessWindowMask, NSBackingStoreBuffered, false);
    parent->addChildWindow(*child, NSWindowAbove);
    EXPECT_TRUE(child->isVisible());
    EXPECT_EQ(child->parentWindow(), parent.get());
    parent->setFrameOrigin({ 110, 130 });
    EXPECT_EQ(child->frame().origin(), (Point { 330, 130 }));
    parent->orderOut(nullptr);
    EXPECT_FALSE(child->isVisible());
}

// The person's resizing.

TEST_F(NSWindowTest, ALiveResizeTellsViewsAndDrawsEachStep)
{
    class Host : public NSObject {
    public:
        std::vector<Size> asked;
        Size windowWillResize(NSWindow&, Size proposed)
        {
            asked.push_back(proposed);
            return { std::max(proposed.width, 350.0F), proposed.height };
        }
    };
    auto const view = make<CountingView>(Rect {});
    auto const window = showWindowWith(view, { 100, 100, 400, 300 });
    auto const host = make<Host>();
    window->setDelegate(host);
    view->forget();
    std::vector<bool> wasLive;
    view->whenDrawn = [&](Rect) { wasLive.push_back(view->inLiveResize()); };
    person().resizeWindow([&] { return hostWindow(*window); }, { { 100, 90, 390, 310 }, { 100, 50, 200, 350 } });
    pump();
    EXPECT_EQ(window->frame(), (Rect { 100, 50, 350, 372 }));
    EXPECT_EQ(hostWindow(*window)->contentRect(), (Rect { 100, 50, 350, 350 }));
    EXPECT_THAT(host->asked, ElementsAre(Size { 390, 332 }, Size { 200, 372 }));
    EXPECT_EQ(view->log.front(), "willStartLiveResize");
    EXPECT_EQ(view->log.back(), "didEndLiveResize");
    EXPECT_THAT(wasLive, ElementsAre(true, true));
    EXPECT_FALSE(window->inLiveResize());
}

TEST_F(NSWindowTest, AWindowMayBeMovedByItsBackground)
{
    auto const window = showWindow({ 100, 100, 200, 200 });
    window->setMovableByWindowBackground(true);
    drag(*window->contentView(), { 50, 50 }, { 80, 90 });
    EXPECT_EQ(window->frame().origin(), (Point { 130, 140 }));
    auto const opaque = make<CountingView>(Rect { 0, 0, 50, 50 });
    opaque->opaque = true;
    window->contentView()->addSubview(*opaque);
    drag(*opaque, { 5, 5 }, { 25, 25 });
    EXPECT_EQ(window->frame().origin(), (Point { 130, 140 }));
}

// Looks.

TEST_F(NSWindowTest, TheBackgroundShowsBehindTheContent)
{
    auto const window = showWindow({ 0, 0, 20, 10 });
    EXPECT_TRUE(areaNear(window->snapshot(), { 0, 0, 20, 10 }, NSColor::windowBackgroundColor()->components()));
    window->setBackgroundColor(NSColor::blueColor());
    pump();
    EXPECT_TRUE(areaNear(window->snapshot(), { 0, 0, 20, 10 }, colors::blue));
    window->setBackgroundColor(nullptr);
    pump();
    EXPECT_TRUE(areaNear(window->snapshot(), { 0, 0, 20, 10 }, NSColor::windowBackgroundColor()->components()));
}

TEST_F(NSWindowTest, TitleAndAlphaReachTheHost)
{
    auto const window = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
    window->setTitle("One");
    window->setAlphaValue(0.5F);
    window->orderFront(nullptr);
    EXPECT_EQ(hostWindow(*window)->title(), "One");
    EXPECT_EQ(hostWindow(*window)->alpha(), 0.5F);
    window->setTitle("Two");
    window->setAlphaValue(7);
    EXPECT_EQ(hostWindow(*window)->title(), "Two");
    EXPECT_EQ(window->alphaValue(), 1);
}

TEST_F(NSWindowTest, ANewContentViewTakesTheOldOnesPlace)
{
    auto const window = showWindow({ 0, 0, 100, 100 });
    auto const old = Ref<NSView>(window->contentView());
    auto const view = make<CountingView>(Rect { 5, 5, 5, 5 });
    window->setContentView(view);
    EXPECT_EQ(view->frame(), (Rect { 0, 0, 100, 100 }));
    EXPECT_EQ(view->nextResponder(), window.get());
    EXPECT_EQ(old->window(), nullptr);
    window->setContentView(nullptr);
    EXPECT_NE(window->contentView(), nullptr);
    EXPECT_EQ(view->window(), nullptr);
}

TEST_F(NSWindowTest, AContentViewMayOutliveItsWindow)
{
    auto const view = make<CountingView>(Rect {});
    {
        auto const window = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
        window->setContentView(view);
    }
    EXPECT_EQ(view->window(), nullptr);
    EXPECT_EQ(view->nextResponder(), nullptr);
}

}
}
