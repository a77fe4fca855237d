#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <gmock/gmock.h>

#include <functional>
#include <utility>

namespace plix {
namespace {

using testing::ElementsAre;

class NSViewDisplay : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        root = make<CountingView>(Rect {});
        root->color = NSColor::whiteColor();
        window = showWindowWith(root, { 0, 0, 400, 300 });
        root->forget();
    }

    Ref<CountingView> addView(Rect frame, Ref<NSColor> const& color = NSColor::redColor())
    {
        auto view = make<CountingView>(frame);
        view->color = color;
        root->addSubview(*view);
        pump();
        view->forget();
        root->forget();
        return view;
    }

    float presentedArea()
    {
        float area = 0;
        for (auto const rect : hostWindow(*window)->lastPresented())
            area += static_cast<float>(rect.width * rect.height);
        return area;
    }

    Ref<CountingView> root;
    Ref<NSWindow> window;
};

TEST_F(NSViewDisplay, OnlyWhatIsDirtyIsDrawn)
{
    auto const view = addView({ 100, 100, 50, 50 });
    auto const other = addView({ 300, 100, 50, 50 });
    view->setNeedsDisplayInRect({ 10, 10, 5, 5 });
    EXPECT_TRUE(view->needsDisplay());
    pump();
    EXPECT_FALSE(view->needsDisplay());
    EXPECT_THAT(view->drawnRects, ElementsAre(Rect { 10, 10, 5, 5 }));
    EXPECT_THAT(root->drawnRects, ElementsAre(Rect { 110, 110, 5, 5 }));
    EXPECT_EQ(other->drawCount, 0);
    EXPECT_EQ(presentedArea(), 25);
}

TEST_F(NSViewDisplay, MovingASmallViewRepaintsAboutThatMuch)
{
    auto const view = addView({ 100, 100, 10, 10 });
    view->setFrameOrigin({ 300, 200 });
    pump();
    EXPECT_EQ(presentedArea(), 200);
    EXPECT_TRUE(areaNear(window->snapshot(), { 100, 190, 10, 10 }, colors::white));
    EXPECT_TRUE(areaNear(window->snapshot(), { 300, 90, 10, 10 }, colors::red));
    view->setFrameOrigin({ 303, 200 });
    pump();
    EXPECT_EQ(presentedArea(), 130);
}

TEST_F(NSViewDisplay, NothingIsDrawnAgainWhenNothingChanged)
{
    addView({ 100, 100, 10, 10 });
    auto const count = hostWindow(*window)->presentCount();
    pump();
    window->displayIfNeeded();
    EXPECT_EQ(hostWindow(*window)->presentCount(), count);
    EXPECT_EQ(root->drawCount, 0);
}

TEST_F(NSViewDisplay, WhatAnOpaqueSubviewCoversIsNotDrawnBehindIt)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->opaque = true;
    view->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(view->drawCount, 1);
    EXPECT_EQ(root->drawCount, 0);
    root->setNeedsDisplayInRect({ 90, 90, 20, 20 });
    pump();
    EXPECT_EQ(root->drawCount, 1);
}

TEST_F(NSViewDisplay, WhatAViewMarksInItselfWhileItDrawsIsCleanAfterwards)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->whenDrawn = [&](Rect) { view->setNeedsDisplay(true); };
    view->setNeedsDisplayInRect({ 0, 0, 5, 5 });
    pump();
    EXPECT_EQ(view->drawCount, 1);
    EXPECT_FALSE(view->needsDisplay());
    pump();
    EXPECT_EQ(view->drawCount, 1);
}

TEST_F(NSViewDisplay, WhatAViewMarksInAnotherWhileItDrawsIsDrawnNext)
{
    auto const first = addView({ 0, 0, 50, 50 });
    auto const second = addView({ 100, 0, 50, 50 });
    first->whenDrawn = [&](Rect) { second->setNeedsDisplay(true); };
    first->setNeedsDisplay(true);
    window->displayIfNeeded();
    EXPECT_EQ(second->drawCount, 0);
    EXPECT_TRUE(second->needsDisplay());
    pump();
    EXPECT_EQ(second->drawCount, 1);
}

TEST_F(NSViewDisplay, TakingASubviewOutAndPuttingItBackMarksNothing)
{
    auto const below = addView({ 0, 0, 50, 50 });
    auto const view = addView({ 100, 100, 50, 50 });
    auto const count = hostWindow(*window)->presentCount();
    view->removeFromSuperview();
    root->addSubview(*view, NSWindowAbove, nullptr);
    pump();
    EXPECT_EQ(hostWindow(*window)->presentCount(), count);
    EXPECT_EQ(view->drawCount, 0);
    below->removeFromSuperview();
    root->addSubview(*below, NSWindowBelow, view.get());
    pump();
    EXPECT_EQ(hostWindow(*window)->presentCount(), count);
}

TEST_F(NSViewDisplay, PuttingItBackElsewhereOrInAnotherOrderMarksIt)
{
    auto const below = addView({ 0, 0, 50, 50 });
    auto const view = addView({ 100, 100, 50, 50 });
    below->removeFromSuperview();
    root->addSubview(*below);
    pump();
    EXPECT_EQ(below->drawCount, 1);
    EXPECT_EQ(presentedArea(), 2500);
    view->removeFromSuperview();
    view->setFrameOrigin({ 200, 200 });
    root->addSubview(*view, NSWindowBelow, below.get());
    pump();
    EXPECT_EQ(view->drawCount, 1);
    EXPECT_EQ(presentedArea(), 5000);
}

TEST_F(NSViewDisplay, TakingASubviewOutUncoversWhatIsBehind)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->removeFromSuperview();
    pump();
    EXPECT_EQ(presentedArea(), 2500);
    EXPECT_TRUE(areaNear(window->snapshot(), window ? PixelRect { 100, 150, 50, 50 } : PixelRect {}, colors::white));
}

TEST_F(NSViewDisplay, RemovingWithoutNeedingDisplayLeavesThePixels)
{
    auto const view = addView({ 100, 100, 50, 50 });
    auto const count = hostWindow(*window)->presentCount();
    view->removeFromSuperviewWithoutNeedingDisplay();
    pump();
    EXPECT_EQ(hostWindow(*window)->presentCount(), count);
    EXPECT_TRUE(areaNear(window->snapshot(), { 100, 150, 50, 50 }, colors::red));
}

TEST_F(NSViewDisplay, HidingAndShowingRedrawsTheArea)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->setHidden(true);
    pump();
    EXPECT_EQ(view->drawCount, 0);
    EXPECT_TRUE(areaNear(window->snapshot(), { 100, 150, 50, 50 }, colors::white));
    view->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(view->drawCount, 0);
    view->setHidden(false);
    pump();
    EXPECT_TRUE(areaNear(window->snapshot(), { 100, 150, 50, 50 }, colors::red));
}

TEST_F(NSViewDisplay, DisplayDrawsAtOnceDirtyOrNot)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->display();
    EXPECT_EQ(view->drawCount, 1);
    view->displayRect({ 0, 0, 10, 10 });
    EXPECT_THAT(view->drawnRects, ElementsAre(Rect { 0, 0, 50, 50 }, Rect { 0, 0, 10, 10 }));
    view->displayIfNeeded();
    EXPECT_EQ(view->drawCount, 2);
}

TEST_F(NSViewDisplay, DisplayingAPartLeavesTheRestDirty)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->setNeedsDisplay(true);
    view->displayRect({ 0, 0, 50, 20 });
    EXPECT_TRUE(view->needsDisplay());
    pump();
    EXPECT_THAT(view->drawnRects, ElementsAre(Rect { 0, 0, 50, 20 }, Rect { 0, 20, 50, 30 }));
}

TEST_F(NSViewDisplay, DisplayIfNeededOfAViewLeavesOthersDirty)
{
    auto const first = addView({ 0, 0, 50, 50 });
    auto const second = addView({ 100, 0, 50, 50 });
    first->setNeedsDisplay(true);
    second->setNeedsDisplay(true);
    first->displayIfNeeded();
    EXPECT_EQ(first->drawCount, 1);
    EXPECT_EQ(second->drawCount, 0);
    pump();
    EXPECT_EQ(second->drawCount, 1);
    EXPECT_EQ(first->drawCount, 1);
}

TEST_F(NSViewDisplay, ViewsAreClippedToTheirBoundsAndAncestors)
{
    auto const outer = addView({ 100, 100, 50, 50 }, NSColor::greenColor());
    auto const inner = make<CountingView>(Rect { 25, 25, 100, 100 });
    inner->color = NSColor::blueColor();
    outer->addSubview(*inner);
    inner->whenDrawn = [](Rect) {
        NSColor::blueColor()->set();
        NSRectFill({ -1000, -1000, 3000, 3000 });
    };
    pump();
    auto const shown = window->snapshot();
    EXPECT_EQ(countPixels(shown, colors::blue), 25 * 25);
    EXPECT_EQ(countPixels(shown, colors::green), 50 * 50 - 25 * 25);
}

TEST_F(NSViewDisplay, FlippedScaledAndMovedBoundsDrawWhereConversionSays)
{
    auto const view = addView({ 100, 100, 100, 50 });
    view->flipped = true;
    view->color = nullptr;
    view->setBounds({ 10, 10, 50, 25 });
    view->whenDrawn = [](Rect) {
        NSColor::blueColor()->set();
        NSRectFill({ 10, 10, 5, 5 });
    };
    view->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(inkBounds(window->snapshot(), colors::white), (PixelRect { 100, 150, 10, 10 }));
}

TEST_F(NSViewDisplay, AViewKnowsWhatIsBeingDrawn)
{
    auto const view = addView({ 0, 0, 200, 200 });
    std::vector<Rect> rects;
    bool needsFirst = false;
    bool needsBetween = true;
    NSView* focused = nullptr;
    view->whenDrawn = [&](Rect) {
        auto const drawn = view->getRectsBeingDrawn();
        rects.assign(drawn.begin(), drawn.end());
        needsFirst = view->needsToDrawRect({ 0, 0, 5, 5 });
        needsBetween = view->needsToDrawRect({ 90, 90, 10, 10 });
        focused = NSView::focusView();
    };
    view->setNeedsDisplayInRect({ 0, 0, 10, 10 });
    view->setNeedsDisplayInRect({ 150, 150, 10, 10 });
    pump();
    EXPECT_THAT(view->drawnRects, ElementsAre(Rect { 0, 0, 160, 160 }));
    EXPECT_THAT(rects, ElementsAre(Rect { 0, 0, 10, 10 }, Rect { 150, 150, 10, 10 }));
    EXPECT_TRUE(needsFirst);
    EXPECT_FALSE(needsBetween);
    EXPECT_EQ(focused, view.get());
    EXPECT_TRUE(view->getRectsBeingDrawn().empty());
    EXPECT_EQ(NSView::focusView(), nullptr);
}

TEST_F(NSViewDisplay, StateThatAViewChangesIsPutBackForTheNext)
{
    auto const first = addView({ 0, 0, 50, 50 });
    auto const second = addView({ 100, 0, 50, 50 });
    std::size_t depthInFirst = 0;
    std::size_t depthInSecond = 0;
    NSCompositingOperation operation = NSCompositeClear;
    first->whenDrawn = [&](Rect) {
        auto const context = NSGraphicsContext::currentContext();
        depthInFirst = context->stateDepth();
        context->setCompositingOperation(NSCompositeXOR);
        context->translateBy(50, 50);
    };
    second->whenDrawn = [&](Rect) {
        auto const context = NSGraphicsContext::currentContext();
        depthInSecond = context->stateDepth();
        operation = context->compositingOperation();
    };
    root->setNeedsDisplay(true);
    pump();
    EXPECT_GT(depthInFirst, 0U);
    EXPECT_EQ(depthInSecond, depthInFirst);
    EXPECT_EQ(operation, NSCompositeSourceOver);
    EXPECT_EQ(NSGraphicsContext::currentContext(), nullptr);
}

TEST_F(NSViewDisplay, LockingFocusDrawsOutsideTheUsualDrawing)
{
    auto const view = addView({ 100, 100, 50, 50 });
    view->flipped = true;
    {
        FocusLock const focus(view);
        EXPECT_EQ(NSView::focusView(), view.get());
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 10, 500 });
    }
    EXPECT_EQ(NSView::focusView(), nullptr);
    pump();
    EXPECT_EQ(view->drawCount, 0);
    EXPECT_EQ(countPixels(window->snapshot(), colors::blue), 10 * 50);
}

TEST_F(NSViewDisplay, LockingFocusOnAViewThatIsNotOnScreenDrawsNowhere)
{
    auto const view = make<CountingView>(Rect { 0, 0, 10, 10 });
    FocusLock const focus(view);
    NSRectFill({ 0, 0, 10, 10 });
    EXPECT_EQ(NSView::focusView(), nullptr);
    EXPECT_FALSE(view->canDraw());
}

TEST_F(NSViewDisplay, ABitmapShowsTheViewAndItsSubviews)
{
    auto const view = make<CountingView>(Rect { 0, 0, 40, 20 });
    view->color = NSColor::greenColor();
    view->flipped = true;
    auto const inner = make<CountingView>(Rect { 0, 0, 10, 5 });
    inner->color = NSColor::blueColor();
    view->addSubview(*inner);
    auto const bitmap = view->bitmapImageRepForCachingDisplayInRect({ 0, 0, 40, 20 }, 2);
    ASSERT_TRUE(bitmap);
    EXPECT_EQ(Pixels(bitmap).width(), 80);
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 20, 10 }, colors::blue));
    EXPECT_TRUE(areaNear(bitmap, { 0, 10, 80, 30 }, colors::green));
    EXPECT_EQ(view->bitmapImageRepForCachingDisplayInRect({}), nullptr);
}

TEST_F(NSViewDisplay, LostPixelsAreDrawnAnew)
{
    addView({ 100, 100, 50, 50 });
    person().then([this] { hostWindow(*window)->losePixels(); });
    pump();
    EXPECT_EQ(root->drawCount, 1);
    EXPECT_EQ(presentedArea(), 400 * 300);
}

TEST_F(NSViewDisplay, ViewsMayChangeTheTreeWhileItIsDrawn)
{
    auto const first = addView({ 0, 0, 50, 50 });
    auto second = addView({ 100, 0, 50, 50 });
    Weak<CountingView> const weak(second);
    second = nullptr;
    first->whenDrawn = [&](Rect) {
        if (weak)
            weak->removeFromSuperview();
    };
    root->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(weak.get(), nullptr);
    EXPECT_TRUE(areaNear(window->snapshot(), { 100, 250, 50, 50 }, colors::white));
}

class RetinaDisplay : public RetinaTest { };

TEST_F(RetinaDisplay, PointsAreTwoPixelsAndDirtyAreasGrowToWholePixels)
{
    auto const root = make<CountingView>(Rect {});
    root->color = NSColor::redColor();
    auto const window = showWindowWith(root, { 0, 0, 100, 80 });
    EXPECT_EQ(window->backingScaleFactor(), 2);
    auto const shown = window->snapshot();
    EXPECT_TRUE(areaNear(shown, { 0, 0, 200, 160 }, colors::red));
    EXPECT_EQ(shown->size(), (Size { 100, 80 }));
    root->setNeedsDisplayInRect({ 10.2F, 10.2F, 0.1F, 0.1F });
    root->forget();
    pump();
    EXPECT_THAT(root->drawnRects, ElementsAre(Rect { 10, 10, 0.5F, 0.5F }));
    EXPECT_EQ(root->centerScanRect({ 10.2F, 10.3F, 5, 5 }), (Rect { 10, 10.5F, 5, 5 }));
}

/// Does something in the middle of its drawing, then draws on.
class Meddler : public NSView {
public:
    using NSView::init;
    void drawRect(Rect) override
    {
        if (auto const act = std::exchange(meddle, nullptr))
            act();
        NSColor::blueColor()->set();
        NSRectFill(bounds());
    }
    std::function<void()> meddle;
};

TEST_F(NSViewDisplay, AWindowMayBeResizedWhileItDraws)
{
    auto const meddler = make<Meddler>(Rect { 0, 0, 200, 150 });
    root->addSubview(*meddler);
    meddler->meddle = [this] { window->setContentSize({ 900, 700 }); };
    pump();
    EXPECT_EQ(hostWindow(*window)->contentRect().size(), (Size { 900, 700 }));
    EXPECT_EQ(window->contentView()->frame().size(), (Size { 900, 700 }));
    pump();
    auto const picture = window->snapshot();
    EXPECT_EQ(picture->pixelsWide(), 900);
    EXPECT_EQ(Pixels(picture).colorAt(100, 600), colors::blue);
}

TEST_F(NSViewDisplay, AWindowMayBeClosedWhileItDraws)
{
    auto const meddler = make<Meddler>(Rect { 0, 0, 200, 150 });
    window->setReleasedWhenClosed(false);
    root->addSubview(*meddler);
    meddler->meddle = [this] { window->close(); };
    pump();
    EXPECT_FALSE(window->isVisible());
    window->makeKeyAndOrderFront(nullptr);
    pump();
    EXPECT_EQ(Pixels(window->snapshot()).colorAt(100, 250), colors::blue);
}

}
}
