#include <plix/controls/TQSplitView.h>
#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/foundation/NSNotificationCenter.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <cmath>

namespace plix {
namespace {

class SplitDelegate : public NSObject {
public:
    float constrainMinCoordinate(NSSplitView&, float proposed, long) { return proposed + least; }
    float constrainMaxCoordinate(NSSplitView&, float proposed, long) { return proposed - least; }
    bool canCollapseSubview(NSSplitView&, NSView& view) { return &view == collapsible; }
    bool shouldCollapseSubview(NSSplitView&, NSView&, long divider)
    {
        doubleClicked = divider;
        return true;
    }
    void splitViewDidResizeSubviews(NSNotification const&)
    {
        ++resizes;
        if (onResize)
            onResize();
    }
    float least { 0 };
    NSView* collapsible { nullptr };
    long doubleClicked { -1 };
    int resizes { 0 };
    std::function<void()> onResize;
};

class SnappingDelegate : public NSObject {
public:
    float constrainSplitPosition(NSSplitView&, float proposed, long) { return std::round(proposed / 50) * 50; }
};

class OwnLayout : public NSObject {
public:
    void resizeSubviewsWithOldSize(NSSplitView& split, Size oldSize)
    {
        sizes.push_back(oldSize);
        split.subviews()[0]->setFrame({ 0, 0, 40, split.bounds().height });
    }
    std::vector<Size> sizes;
};

class SplitViewTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 409, 200 });
        split = make<NSSplitView>(Rect { 0, 0, 409, 200 });
        split->setVertical(true);
        split->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
        left = make<NSView>(Rect { 0, 0, 100, 200 });
        right = make<NSView>(Rect { 0, 0, 300, 200 });
        split->addSubview(*left);
        split->addSubview(*right);
        window->contentView()->addSubview(*split);
        delegate = make<SplitDelegate>();
        pump();
    }
    void dragDivider(float from, float to) { drag(*split, { from, 60 }, { to, 60 }); }

    Ref<NSWindow> window;
    Ref<NSSplitView> split;
    Ref<NSView> left;
    Ref<NSView> right;
    Ref<SplitDelegate> delegate;
};

TEST_F(SplitViewTest, PanesLieBesideEachOther)
{
    EXPECT_EQ(left->frame(), (Rect { 0, 0, 100, 200 }));
    EXPECT_EQ(right->frame(), (Rect { 109, 0, 300, 200 }));
    EXPECT_EQ(split->rectOfDivider(0), (Rect { 100, 0, 9, 200 }));
    EXPECT_EQ(split->rectOfDivider(1), Rect());
    EXPECT_EQ(split->numberOfDividers(), 1);
}

TEST_F(SplitViewTest, HorizontalDividersHavePanesBelowEachOther)
{
    split->setVertical(false);
    EXPECT_EQ(left->frame().width, 409);
    EXPECT_EQ(left->frame().y, 0);
    EXPECT_EQ(right->frame().y, left->frame().maxY() + 9);
    EXPECT_EQ(right->frame().maxY(), 200);
}

TEST_F(SplitViewTest, ResizingKeepsTheShares)
{
    split->setFrameSize({ 209, 100 });
    EXPECT_EQ(left->frame(), (Rect { 0, 0, 50, 100 }));
    EXPECT_EQ(right->frame(), (Rect { 59, 0, 150, 100 }));
    split->setFrameSize({ 9, 100 });
    EXPECT_EQ(left->frame().width, 0);
    split->setFrameSize({ 409, 200 });
    EXPECT_EQ(left->frame().width, 100);
    EXPECT_EQ(right->frame().width, 300);
}

TEST_F(SplitViewTest, ADividerIsDragged)
{
    dragDivider(104, 204);
    EXPECT_EQ(left->frame().width, 200);
    EXPECT_EQ(right->frame(), (Rect { 209, 0, 200, 200 }));
}

TEST_F(SplitViewTest, TheDividerStaysUnderThePointer)
{
    std::vector<float> widths;
    person().press(onScreen(*split, { 101, 60 }));
    for (float const x : { 131.F, 91.F, 161.F }) {
        person().dragTo(onScreen(*split, { x, 60 }));
        person().then([&] { widths.push_back(left->frame().width); });
    }
    person().release(onScreen(*split, { 161, 60 }));
    pump();
    EXPECT_EQ(widths, (std::vector<float> { 130, 90, 160 }));
}

TEST_F(SplitViewTest, DragsEndAtTheNeighboursFarEnds)
{
    dragDivider(104, 900);
    EXPECT_EQ(left->frame().width, 400);
    EXPECT_EQ(right->frame().width, 0);
    EXPECT_FALSE(split->isSubviewCollapsed(*right));
    dragDivider(404, -50);
    EXPECT_EQ(left->frame().width, 0);
}

TEST_F(SplitViewTest, OnlyTheNeighboursChange)
{
    auto const third = make<NSView>(Rect { 0, 0, 100, 200 });
    split->addSubview(*third);
    float const before = third->frame().width;
    auto const divider = split->rectOfDivider(0);
    dragDivider(divider.midX(), divider.midX() + 30);
    EXPECT_EQ(third->frame().width, before);
    EXPECT_EQ(third->frame().maxX(), 409);
}

TEST_F(SplitViewTest, TheDelegateLimitsADivider)
{
    delegate->least = 50;
    split->setDelegate(delegate);
    dragDivider(104, 0);
    EXPECT_EQ(left->frame().width, 50);
    dragDivider(54, 500);
    EXPECT_EQ(right->frame().width, 50);
    EXPECT_EQ(split->minPossiblePositionOfDividerAtIndex(0), 0);
    EXPECT_EQ(split->maxPossiblePositionOfDividerAtIndex(0), 400);
}

TEST_F(SplitViewTest, TheDelegateSaysWhereADividerMayStop)
{
    auto const snapping = make<SnappingDelegate>();
    split->setDelegate(snapping);
    dragDivider(104, 168);
    EXPECT_EQ(left->frame().width, 150);
}

TEST_F(SplitViewTest, APaneCollapsesAndComesBack)
{
    delegate->least = 60;
    delegate->collapsible = left.get();
    split->setDelegate(delegate);
    dragDivider(104, 20);
    EXPECT_TRUE(split->isSubviewCollapsed(*left));
    EXPECT_TRUE(left->isHidden());
    EXPECT_EQ(right->frame(), (Rect { 9, 0, 400, 200 }));
    dragDivider(4, 84);
    EXPECT_FALSE(split->isSubviewCollapsed(*left));
    EXPECT_EQ(left->frame().width, 80);
}

TEST_F(SplitViewTest, ACollapsedPaneStaysSoWhenTheViewIsResized)
{
    delegate->collapsible = left.get();
    split->setDelegate(delegate);
    split->setPosition(0, 0);
    ASSERT_TRUE(split->isSubviewCollapsed(*left));
    split->setFrameSize({ 209, 200 });
    EXPECT_TRUE(split->isSubviewCollapsed(*left));
    EXPECT_EQ(right->frame().width, 200);
}

TEST_F(SplitViewTest, ADoubleClickCollapsesWhereTheDelegateSaysSo)
{
    delegate->collapsible = left.get();
    split->setDelegate(delegate);
    click(*split, { 104, 60 }, { .count = 2 });
    EXPECT_EQ(delegate->doubleClicked, 0);
    EXPECT_TRUE(split->isSubviewCollapsed(*left));
    click(*split, { 4, 60 }, { .count = 2 });
    EXPECT_FALSE(split->isSubviewCollapsed(*left));
    EXPECT_EQ(left->frame().width, 100);
}

TEST_F(SplitViewTest, SetPositionMovesADivider)
{
    split->setPosition(150, 0);
    EXPECT_EQ(left->frame().width, 150);
    split->setPosition(50, 1);
    split->setPosition(50, -1);
    EXPECT_EQ(left->frame().width, 150);
    EXPECT_EQ(split->rectOfDivider(0).x, 150);
}

TEST_F(SplitViewTest, TellsAboutNewSizes)
{
    split->setDelegate(delegate);
    int notices = 0;
    auto const observer = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) { ++notices; }, NSSplitViewDidResizeSubviewsNotification, split.get());
    split->setPosition(150, 0);
    EXPECT_EQ(delegate->resizes, 1);
    EXPECT_EQ(notices, 1);
    split->setPosition(150, 0);
    EXPECT_EQ(delegate->resizes, 1);
    NSNotificationCenter::defaultCenter().removeObserver(*observer);
}

TEST_F(SplitViewTest, ADelegateMayLayOutItself)
{
    auto const own = make<OwnLayout>();
    split->setDelegate(own);
    split->setFrameSize({ 300, 200 });
    EXPECT_EQ(own->sizes, (std::vector<Size> { { 409, 200 } }));
    EXPECT_EQ(left->frame().width, 40);
    split->setDelegate(nullptr);
    split->adjustSubviews();
    EXPECT_EQ(split->rectOfDivider(0).x, left->frame().width);
    EXPECT_EQ(right->frame().maxX(), 300);
}

TEST_F(SplitViewTest, WhatThePersonDraggedIsTheNewShare)
{
    dragDivider(104, 204);
    split->setFrameSize({ 209, 200 });
    EXPECT_EQ(left->frame().width, 100);
    EXPECT_EQ(right->frame().width, 100);
}

TEST_F(SplitViewTest, RemovingAPaneGivesItsRoomToTheOthers)
{
    left->removeFromSuperview();
    EXPECT_EQ(right->frame(), (Rect { 0, 0, 409, 200 }));
    EXPECT_EQ(split->numberOfDividers(), 0);
    right->removeFromSuperview();
    EXPECT_EQ(split->numberOfDividers(), 0);
}

TEST_F(SplitViewTest, TheCursorTellsThatADividerCanBeDragged)
{
    moveMouse(*split, { 104, 60 });
    EXPECT_EQ(&NSCursor::currentCursor(), &NSCursor::resizeLeftRightCursor());
    moveMouse(*split, { 50, 60 });
    EXPECT_EQ(&NSCursor::currentCursor(), &NSCursor::arrowCursor());
    split->setVertical(false);
    pump();
    moveMouse(*split, { 50, split->rectOfDivider(0).midY() });
    EXPECT_EQ(&NSCursor::currentCursor(), &NSCursor::resizeUpDownCursor());
}

TEST_F(SplitViewTest, AThinDividerIsEasyToGrab)
{
    class Thin : public NSSplitView {
    public:
        using NSSplitView::init;
        float dividerThickness() const override { return 1; }
    };
    auto const thin = make<Thin>(Rect { 0, 0, 401, 200 });
    thin->setVertical(true);
    auto const first = make<NSView>(Rect { 0, 0, 100, 200 });
    auto const second = make<NSView>(Rect { 0, 0, 100, 200 });
    thin->addSubview(*first);
    thin->addSubview(*second);
    window->setContentView(thin.get());
    pump();
    float const before = first->frame().width;
    drag(*thin, { before + 2, 60 }, { before + 22, 60 });
    EXPECT_EQ(first->frame().width, before + 20);
}

TEST_F(SplitViewTest, SurvivesADelegateThatTakesPanesAway)
{
    split->setDelegate(delegate);
    delegate->onResize = [this] {
        delegate->onResize = nullptr;
        right->removeFromSuperview();
    };
    dragDivider(104, 204);
    EXPECT_EQ(split->subviews().size(), 1U);
    EXPECT_EQ(left->frame().width, 409);
}

TEST_F(SplitViewTest, SurvivesItsWindowsEndInADrag)
{
    person().press(onScreen(*split, { 104, 60 }));
    person().dragTo(onScreen(*split, { 120, 60 }));
    person().then([this] { window->close(); });
    person().release({ 10, 10 });
    pump();
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(left->frame().width, 116);
}

// MARK: TQSplitView

TEST_F(SplitViewTest, ThicknessIsTheHostsToSet)
{
    auto const thick = make<TQSplitView>(Rect { 0, 0, 207, 100 });
    EXPECT_EQ(thick->dividerThickness(), 7);
    EXPECT_EQ(make<TQSplitView>()->dividerThickness(), 7);
    thick->setVertical(true);
    auto const first = make<NSView>(Rect { 0, 0, 10, 10 });
    auto const second = make<NSView>(Rect { 0, 0, 10, 10 });
    thick->addSubview(*first);
    thick->addSubview(*second);
    EXPECT_EQ(thick->rectOfDivider(0), (Rect { 100, 0, 7, 100 }));
    thick->setDividerThickness(0);
    EXPECT_EQ(thick->dividerThickness(), 0);
    // Stored only: the panes stay until they are laid out again.
    EXPECT_EQ(second->frame().x, 107);
    thick->adjustSubviews();
    EXPECT_NEAR(second->frame().x, 103.5F, 0.5F);
    EXPECT_EQ(second->frame().maxX(), 207);
}

TEST_F(SplitViewTest, DividersAreDrawn)
{
    Pixels const pixels(window->snapshot());
    EXPECT_NE(pixels.at(100, 20), pixels.at(50, 20));
    EXPECT_NE(pixels.at(104, 100), pixels.at(104, 20));
    EXPECT_EQ(pixels.at(50, 20), pixels.at(300, 20));
}

}
}
