#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/ToolTips.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Tracking : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
        view = make<CountingView>(Rect { 100, 100, 100, 100 });
        window->contentView()->addSubview(*view);
        view->forget();
    }

    Ref<NSWindow> window;
    Ref<CountingView> view;
};

// Tracking rectangles.

TEST_F(Tracking, EnteringAndLeavingIsToldToTheOwner)
{
    int data = 0;
    auto const tag = view->addTrackingRect({ 0, 0, 50, 50 }, view.get(), &data, false);
    EXPECT_NE(tag, 0);
    moveMouse(*view, { 10, 10 });
    EXPECT_THAT(view->log, ElementsAre("mouseEntered"));
    EXPECT_EQ(view->lastEvent->trackingNumber(), tag);
    EXPECT_EQ(view->lastEvent->userData(), &data);
    moveMouse(*view, { 20, 20 });
    EXPECT_EQ(view->log.size(), 1U);
    moveMouse(*view, { 60, 60 });
    EXPECT_THAT(view->log, ElementsAre("mouseEntered", "mouseExited"));
    view->removeTrackingRect(tag);
    moveMouse(*view, { 10, 10 });
    EXPECT_EQ(view->log.size(), 2U);
}

TEST_F(Tracking, LeavingIsToldAlsoWhereTheWindowHasLeftTheScreen)
{
    view->addTrackingRect(view->bounds(), view.get(), nullptr, false);
    for (bool const isMiniaturized : { true, false }) {
        view->forget();
        moveMouse(*view, { 10, 10 });
        ASSERT_THAT(view->log, ElementsAre("mouseEntered"));
        isMiniaturized ? window->miniaturize(nullptr) : window->orderOut(nullptr);
        person().moveMouse({ 1, 1 });
        pump();
        EXPECT_THAT(view->log, ElementsAre("mouseEntered", "mouseExited"));
        isMiniaturized ? window->deminiaturize(nullptr) : window->orderFront(nullptr);
        pump();
    }
}

TEST_F(Tracking, AssumingInsideTellsTheLeavingAlone)
{
    view->addTrackingRect(view->bounds(), view.get(), nullptr, true);
    moveMouse(*window->contentView(), { 10, 10 });
    EXPECT_THAT(view->log, ElementsAre("mouseExited"));
}

TEST_F(Tracking, LeavingTheWindowLeavesItsRectangles)
{
    view->addTrackingRect(view->bounds(), view.get(), nullptr, false);
    moveMouse(*view, { 10, 10 });
    person().moveMouse({ 1300, 800 });
    pump();
    EXPECT_THAT(view->log, ElementsAre("mouseEntered", "mouseExited"));
}

TEST_F(Tracking, RectanglesMoveWithTheirViewAndAreCutOffWithIt)
{
    view->addTrackingRect(view->bounds(), view.get(), nullptr, false);
    view->setFrameOrigin({ 350, 100 });
    moveMouse(*window->contentView(), { 150, 150 });
    EXPECT_THAT(view->log, IsEmpty());
    moveMouse(*window->contentView(), { 390, 150 });
    EXPECT_THAT(view->log, ElementsAre("mouseEntered"));
    view->setHidden(true);
    moveMouse(*window->contentView(), { 391, 150 });
    EXPECT_THAT(view->log, ElementsAre("mouseEntered", "didHide", "mouseExited"));
}

TEST_F(Tracking, LeavingOneIsToldBeforeEnteringTheNext)
{
    std::vector<std::string> order;
    auto const left = make<CountingView>(Rect { 0, 0, 50, 50 });
    auto const right = make<CountingView>(Rect { 50, 0, 50, 50 });
    for (auto const& each : { right, left }) {
        window->contentView()->addSubview(*each);
        each->addTrackingRect(each->bounds(), each.get(), nullptr, false);
        each->forget();
        each->whenEvent = [&, side = each == left ? "left" : "right"](NSEvent& event) {
            order.push_back(side + std::string(event.type() == NSMouseEntered ? " in" : " out"));
        };
    }
    moveMouse(*left, { 10, 10 });
    moveMouse(*right, { 10, 10 });
    moveMouse(*left, { 10, 10 });
    EXPECT_THAT(order, ElementsAre("left in", "left out", "right in", "right out", "left in"));
}

TEST_F(Tracking, AnOwnerOrViewThatIsGoneIsNotTold)
{
    auto owner = make<CountingView>(Rect {});
    view->addTrackingRect(view->bounds(), owner.get(), nullptr, false);
    owner = nullptr;
    moveMouse(*view, { 10, 10 });
    view->removeFromSuperview();
    view->forget();
    moveMouse(*window->contentView(), { 5, 5 });
    EXPECT_THAT(view->log, IsEmpty());
    EXPECT_EQ(view->addTrackingRect(view->bounds(), view.get(), nullptr, false), 0);
}

// Cursors.

class IBeamView final : public NSView {
public:
    int resets { 0 };
    void resetCursorRects() override
    {
        ++resets;
        addCursorRect({ 0, 0, 20, 20 }, NSCursor::IBeamCursor());
    }
};

TEST_F(Tracking, CursorRectanglesChangeTheCursor)
{
    auto const field = make<IBeamView>(Rect { 0, 0, 100, 100 });
    view->addSubview(*field);
    moveMouse(*field, { 5, 5 });
    EXPECT_EQ(&NSCursor::currentCursor(), &NSCursor::IBeamCursor());
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
    moveMouse(*field, { 50, 50 });
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
    auto const resets = field->resets;
    moveMouse(*field, { 5, 5 });
    EXPECT_EQ(field->resets, resets);
}

TEST_F(Tracking, CursorRectanglesAreAskedAnewWhenTheGeometryChanges)
{
    auto const field = make<IBeamView>(Rect { 0, 0, 100, 100 });
    view->addSubview(*field);
    moveMouse(*view, { 5, 5 });
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
    field->setFrameOrigin({ 50, 50 });
    pump();
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
    moveMouse(*view, { 55, 55 });
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
}

TEST_F(Tracking, TheCursorStaysWhileAButtonIsHeld)
{
    auto const field = make<IBeamView>(Rect { 0, 0, 100, 100 });
    view->addSubview(*field);
    person().press(onScreen(*field, { 5, 5 }));
    pump();
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
    person().dragTo(onScreen(*field, { 60, 60 }));
    pump();
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
    person().release(onScreen(*field, { 60, 60 }));
    pump();
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
}

TEST_F(Tracking, DisabledCursorRectanglesChangeNothing)
{
    auto const field = make<IBeamView>(Rect { 0, 0, 100, 100 });
    view->addSubview(*field);
    window->disableCursorRects();
    moveMouse(*field, { 5, 5 });
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
    window->enableCursorRects();
    moveMouse(*field, { 6, 6 });
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
}

TEST_F(Tracking, CursorsArePushedPoppedAndHidden)
{
    NSCursor::IBeamCursor().push();
    NSCursor::pointingHandCursor().push();
    EXPECT_EQ(display().cursorShape(), CursorShape::pointingHand);
    NSCursor::pop();
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
    NSCursor::pop();
    NSCursor::pop();
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
    NSCursor::hide();
    NSCursor::hide();
    NSCursor::crosshairCursor().set();
    NSCursor::unhide();
    EXPECT_EQ(display().cursorShape(), CursorShape::hidden);
    NSCursor::unhide();
    EXPECT_EQ(display().cursorShape(), CursorShape::crosshair);
}

TEST_F(Tracking, AHiddenCursorComesBackWithTheNextMovement)
{
    NSCursor::setHiddenUntilMouseMoves(true);
    EXPECT_EQ(display().cursorShape(), CursorShape::hidden);
    moveMouse(*view, { 50, 50 });
    EXPECT_EQ(display().cursorShape(), CursorShape::arrow);
}

TEST_F(Tracking, ACursorOfOnesOwnShowsItsImage)
{
    auto const image = make<NSImage>(Size { 4, 3 });
    {
        FocusLock const focus(image);
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 4, 3 });
    }
    auto const cursor = make<NSCursor>(image, Point { 1, 2 });
    cursor->set();
    ASSERT_TRUE(display().cursorPixels());
    EXPECT_EQ(display().cursorPixels()->width, 4);
    EXPECT_EQ(display().cursorPixels()->height, 3);
    EXPECT_EQ(display().cursorPixels()->hotSpotY, 2);
    EXPECT_THAT(display().cursorPixels()->pixels, testing::Each(0xFFFF0000U));
    EXPECT_EQ(&NSCursor::currentCursor(), cursor.get());
}

// Tool tips.

TEST_F(Tracking, ATipShowsWhenThePointerRests)
{
    view->setToolTip("What this does");
    moveMouse(*view, { 50, 50 });
    EXPECT_EQ(ToolTips::window(), nullptr);
    pass(1.5);
    auto* const tip = ToolTips::window();
    ASSERT_TRUE(tip);
    EXPECT_TRUE(tip->isVisible());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_LT(tip->frame().maxY(), onScreen(*view, { 50, 50 }).y);
    EXPECT_GT(tip->frame().width, 40);
    moveMouse(*view, { 55, 50 });
    EXPECT_TRUE(ToolTips::window());
    moveMouse(*window->contentView(), { 5, 5 });
    EXPECT_EQ(ToolTips::window(), nullptr);
}

TEST_F(Tracking, APressOrAKeyTakesTheTipAway)
{
    view->setToolTip("What this does");
    moveMouse(*view, { 50, 50 });
    pass(1.5);
    ASSERT_TRUE(ToolTips::window());
    key(U'a');
    EXPECT_EQ(ToolTips::window(), nullptr);
    moveMouse(*view, { 51, 50 });
    clickCenter(*view);
    pass(2);
    EXPECT_EQ(ToolTips::window(), nullptr);
}

TEST_F(Tracking, TipsMayBelongToRectangles)
{
    auto const tag = view->addToolTipRect({ 0, 0, 20, 20 }, [] { return std::string("A corner"); });
    moveMouse(*view, { 50, 50 });
    pass(1.5);
    EXPECT_EQ(ToolTips::window(), nullptr);
    moveMouse(*view, { 10, 10 });
    pass(1.5);
    EXPECT_TRUE(ToolTips::window());
    view->removeToolTip(tag);
    moveMouse(*view, { 50, 50 });
    moveMouse(*view, { 10, 10 });
    pass(1.5);
    EXPECT_EQ(ToolTips::window(), nullptr);
}

TEST_F(Tracking, TipsGoWithTheirWindow)
{
    view->setToolTip("What this does");
    moveMouse(*view, { 50, 50 });
    pass(1.5);
    ASSERT_TRUE(ToolTips::window());
    window->close();
    EXPECT_EQ(ToolTips::window(), nullptr);
}

}
}
