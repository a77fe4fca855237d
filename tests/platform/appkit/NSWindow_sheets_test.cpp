#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSWindowDelegate.h>
#include <plix/platform/base/clock.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::Gt;
using testing::SizeIs;

/// The lower half green, the upper half red.
class Halves final : public NSView {
    PLIX_CLASS(Halves, NSView);

public:
    using NSView::init;
    void drawRect(Rect) override
    {
        Rect const all = bounds();
        NSColor::redColor()->set();
        NSRectFill(all);
        NSColor::greenColor()->set();
        NSRectFill({ 0, 0, all.width, all.height / 2 });
        ++drawCount;
        if (onDraw)
            onDraw();
    }
    bool isOpaque() const override { return true; }

    int drawCount { 0 };
    std::function<void()> onDraw;
};
PLIX_DESCRIBE(Halves)
{
}

class WatchedWindow final : public NSWindow {
    PLIX_CLASS(WatchedWindow, NSWindow);

public:
    using NSWindow::init;
    void displayIfNeeded() override
    {
        NSWindow::displayIfNeeded();
        onDisplay();
    }
    std::function<void()> onDisplay;
};
PLIX_DESCRIBE(WatchedWindow)
{
}

class Positions final : public NSObject {
    PLIX_CLASS(Positions, NSObject);

public:
    Rect windowWillPositionSheet(NSWindow& window, NSWindow& sheet, Rect rect)
    {
        asked = &window;
        placed = &sheet;
        proposed = rect;
        return { 0, 280, 300, 0 };
    }
    NSWindow* asked { nullptr };
    NSWindow* placed { nullptr };
    Rect proposed;
};
PLIX_DESCRIBE(Positions)
{
}

class Sheets : public HeadlessTest {
protected:
    static constexpr Rect parentContent { 100, 300, 400, 300 };

    void SetUp() override
    {
        HeadlessTest::SetUp();
        parent = showWindow(parentContent);
        view = make<Halves>(Rect { 0, 0, 200, 100 });
        sheet = make<NSWindow>(Rect { 0, 0, 200, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
        sheet->setContentView(*view);
        pump();
    }

    /// Notes the host's rectangle each time the sheet draws.
    void recordFrames()
    {
        view->onDraw = [this] { frames.push_back(hostWindow(*sheet)->contentRect()); };
    }

    Ref<NSWindow> parent;
    Ref<NSWindow> sheet;
    Ref<Halves> view;
    std::vector<Rect> frames;
};

TEST_F(Sheets, SlideOutFromUnderTheTitle)
{
    recordFrames();
    auto const before = clock().uptime();
    app().beginSheet(*sheet, *parent);
    EXPECT_NEAR(clock().uptime() - before, 0.2, 0.02);
    EXPECT_THAT(frames, SizeIs(Gt(8U)));
    EXPECT_EQ(frames.front().height, 1);
    EXPECT_EQ(frames.back(), (Rect { 200, 500, 200, 100 }));
    for (std::size_t at = 1; at < frames.size(); ++at) {
        EXPECT_GE(frames[at].height, frames[at - 1].height);
        EXPECT_EQ(frames[at].maxY(), 600);
        EXPECT_EQ(frames[at].width, 200);
    }
    EXPECT_EQ(sheet->frame(), (Rect { 200, 500, 200, 100 }));
    EXPECT_TRUE(sheet->isKeyWindow());
}

TEST_F(Sheets, ShowTheirLowestPartWhileTheySlide)
{
    sheet = make<WatchedWindow>(Rect { 0, 0, 200, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
    sheet->setContentView(*view);
    int partly = 0;
    int nearlyWhole = 0;
    static_cast<WatchedWindow&>(*sheet).onDisplay = [&] {
        auto const height = static_cast<int>(hostWindow(*sheet)->contentRect().height);
        auto const shown = sheet->snapshot();
        EXPECT_EQ(shown->pixelsHigh(), height);
        if (height < 50) {
            ++partly;
            EXPECT_TRUE(areaNear(shown, { 1, 0, 198, height - 1 }, colors::green));
        } else {
            ++nearlyWhole;
            EXPECT_TRUE(areaNear(shown, { 1, height - 50, 198, 49 }, colors::green));
            EXPECT_TRUE(areaNear(shown, { 1, 0, 198, height - 50 }, colors::red));
        }
    };
    app().beginSheet(*sheet, *parent);
    EXPECT_GT(partly, 3);
    EXPECT_GT(nearlyWhole, 3);
}

TEST_F(Sheets, AreSetOffByALineAlongAllEdgesButTheUpper)
{
    app().beginSheet(*sheet, *parent);
    Pixels const shown(sheet->snapshot());
    EXPECT_TRUE(areaNear(shown, { 1, 0, 198, 50 }, colors::red));
    for (PixelRect const edge : { PixelRect { 0, 0, 1, 100 }, PixelRect { 199, 0, 1, 100 }, PixelRect { 0, 99, 200, 1 } }) {
        EXPECT_EQ(countPixels(shown, edge, colors::red), 0);
        EXPECT_EQ(countPixels(shown, edge, colors::green), 0);
    }
}

TEST_F(Sheets, SlideAwayWhenTheyAreOrderedOutAtTheEnd)
{
    app().beginSheet(*sheet, *parent);
    recordFrames();
    app().endSheet(*sheet);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(parent->isKeyWindow());
    sheet->orderOut(nullptr);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_THAT(frames, SizeIs(Gt(8U)));
    EXPECT_LT(frames.back().height, 10);
    EXPECT_EQ(frames.back().maxY(), 600);
    EXPECT_EQ(sheet->frame().width, 200);
}

TEST_F(Sheets, DoNotSlideWhereTheUserWantsNoAnimation)
{
    NSUserDefaults::standardUserDefaults().setObject(0.0, "NSWindowResizeTime");
    recordFrames();
    auto const before = clock().uptime();
    app().beginSheet(*sheet, *parent);
    app().endSheet(*sheet);
    sheet->orderOut(nullptr);
    NSUserDefaults::standardUserDefaults().removeObjectForKey("NSWindowResizeTime");
    EXPECT_EQ(clock().uptime(), before);
    for (auto const& frame : frames)
        EXPECT_EQ(frame.height, 100);
    EXPECT_FALSE(frames.empty());
}

TEST_F(Sheets, OfASizeThatMayNotShrinkSlideAllTheSame)
{
    sheet->setMinSize({ 200, 100 });
    recordFrames();
    app().beginSheet(*sheet, *parent);
    EXPECT_EQ(frames.front().height, 1);
    EXPECT_EQ(hostWindow(*sheet)->minimumSize(), (Size { 200, 100 }));
}

TEST_F(Sheets, FollowTheirWindowAlsoWhileTheySlide)
{
    view->onDraw = [this] {
        if (view->drawCount == 4)
            parent->setFrameOrigin({ 120, 330 });
    };
    app().beginSheet(*sheet, *parent);
    pump();
    EXPECT_EQ(sheet->frame().origin(), (Point { 220, 530 }));
    EXPECT_EQ(hostWindow(*sheet)->contentRect(), (Rect { 220, 530, 200, 100 }));
}

TEST_F(Sheets, StayWholeOnTheScreen)
{
    parent->setFrameOrigin({ 100, -250 });
    app().beginSheet(*sheet, *parent);
    EXPECT_EQ(sheet->frame().y, 0);
    parent->setFrameOrigin({ 100, 200 });
    EXPECT_EQ(sheet->frame().y, 400);
}

TEST_F(Sheets, HangFromWhereTheDelegateSays)
{
    auto const positions = make<Positions>();
    parent->setDelegate(positions);
    app().beginSheet(*sheet, *parent);
    EXPECT_EQ(positions->asked, parent.get());
    EXPECT_EQ(positions->placed, sheet.get());
    EXPECT_EQ(positions->proposed, (Rect { 0, 300, 400, 0 }));
    EXPECT_EQ(sheet->frame().origin(), (Point { 150, 480 }));
    parent->setFrameOrigin({ 110, 300 });
    EXPECT_EQ(sheet->frame().origin(), (Point { 160, 480 }));
}

TEST_F(Sheets, OfAWindowThatIsNotOnScreenComeWithIt)
{
    parent->orderOut(nullptr);
    app().beginSheet(*sheet, *parent);
    EXPECT_FALSE(sheet->isVisible());
    parent->makeKeyAndOrderFront(nullptr);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(hostWindow(*sheet)->contentRect().height, 100);
}

TEST_F(Sheets, OfWindowsThatCloseGoWithoutSliding)
{
    app().beginSheet(*sheet, *parent);
    recordFrames();
    auto const before = clock().uptime();
    parent->close();
    EXPECT_EQ(clock().uptime(), before);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(frames.empty());
}

TEST_F(Sheets, MayBeClosedWhileTheySlide)
{
    view->onDraw = [this] {
        if (view->drawCount == 4)
            sheet->close();
    };
    app().beginSheet(*sheet, *parent);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(parent->attachedSheet(), nullptr);
    EXPECT_TRUE(parent->isKeyWindow());
}

TEST_F(Sheets, MayLoseTheirWindowWhileTheySlide)
{
    view->onDraw = [this] {
        if (view->drawCount == 4)
            parent->close();
    };
    app().beginSheet(*sheet, *parent);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_FALSE(sheet->isSheet());
}

TEST_F(Sheets, OnASheetHangFromIt)
{
    app().beginSheet(*sheet, *parent);
    auto const second = make<NSWindow>(Rect { 0, 0, 100, 60 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
    app().beginSheet(*second, *parent);
    EXPECT_EQ(sheet->attachedSheet(), second.get());
    EXPECT_EQ(second->frame(), (Rect { 250, 540, 100, 60 }));
    app().endSheet(*second);
    second->orderOut(nullptr);
    EXPECT_TRUE(sheet->isKeyWindow());
}

TEST_F(Sheets, RefuseWhatWasClickedInTheirWindowMeanwhile)
{
    auto const below = make<Halves>(Rect { 0, 0, 50, 50 });
    parent->contentView()->addSubview(*below);
    person().click(centerOnScreen(*below));
    app().beginSheet(*sheet, *parent);
    EXPECT_EQ(display().beepCount(), 0);
    pump();
    EXPECT_EQ(display().beepCount(), 1);
    EXPECT_TRUE(sheet->isKeyWindow());
}

TEST_F(Sheets, APanelOverAModalOneStaysAboveThat)
{
    auto const first = make<NSWindow>(Rect { 0, 0, 200, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
    auto const second = make<NSWindow>(Rect { 0, 0, 100, 60 }, NSTitledWindowMask, NSBackingStoreBuffered, true);
    auto const outer = app().beginModalSessionForWindow(*first);
    auto const inner = app().beginModalSessionForWindow(*second);
    EXPECT_EQ(hostWindow(*first)->parent(), hostWindow(*parent));
    EXPECT_EQ(hostWindow(*second)->parent(), hostWindow(*first));
    app().endModalSession(*inner);
    app().endModalSession(*outer);
}

}
}
