#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/foundation/NSNotificationCenter.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;

class NSViewTest : public HeadlessTest { };

class TaggedView : public NSView {
public:
    explicit TaggedView(long tag)
        : m_tag(tag)
    {
    }
    long tag() const override { return m_tag; }

private:
    long m_tag;
};

Ref<TaggedView> taggedView(long tag)
{
    auto view = Ref<TaggedView>::adopt(new TaggedView(tag));
    view->adopt();
    static_cast<NSView&>(*view).init();
    return view;
}

Ref<CountingView> flippedView(Rect frame)
{
    auto view = make<CountingView>(frame);
    view->flipped = true;
    return view;
}

// The tree.

TEST_F(NSViewTest, AViewIsInOneSuperviewAtATime)
{
    auto const first = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const second = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const child = make<NSView>(Rect { 0, 0, 10, 10 });
    first->addSubview(*child);
    second->addSubview(*child);
    EXPECT_TRUE(first->subviews().empty());
    EXPECT_THAT(second->subviews(), ElementsAre(child));
    EXPECT_EQ(child->superview(), second.get());
    EXPECT_EQ(child->nextResponder(), second.get());
    child->removeFromSuperview();
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->nextResponder(), nullptr);
}

TEST_F(NSViewTest, SubviewsAreOrderedAboveAndBelowSiblings)
{
    auto const parent = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const a = make<NSView>();
    auto const b = make<NSView>();
    auto const c = make<NSView>();
    parent->addSubview(*a);
    parent->addSubview(*b);
    parent->addSubview(*c, NSWindowBelow, b.get());
    EXPECT_THAT(parent->subviews(), ElementsAre(a, c, b));
    parent->addSubview(*a, NSWindowAbove, nullptr);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b, a));
    parent->addSubview(*b, NSWindowBelow, nullptr);
    EXPECT_THAT(parent->subviews(), ElementsAre(b, c, a));
    parent->addSubview(*b, NSWindowAbove, c.get());
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b, a));
    auto const stranger = make<NSView>();
    auto const d = make<NSView>();
    parent->addSubview(*d, NSWindowBelow, stranger.get());
    EXPECT_THAT(parent->subviews(), ElementsAre(d, c, b, a));
}

TEST_F(NSViewTest, ReplacingKeepsThePlace)
{
    auto const parent = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const a = make<NSView>();
    auto const b = make<NSView>();
    auto const c = make<NSView>();
    parent->addSubview(*a);
    parent->addSubview(*b);
    parent->replaceSubview(*a, *c);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b));
    parent->replaceSubview(*a, *a);
    EXPECT_THAT(parent->subviews(), ElementsAre(c, b));
}

TEST_F(NSViewTest, SortingKeepsTheOrderOfEqualSiblings)
{
    auto const parent = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const a = make<NSView>(Rect { 20, 0, 1, 1 });
    auto const b = make<NSView>(Rect { 10, 0, 1, 1 });
    auto const c = make<NSView>(Rect { 10, 0, 2, 2 });
    for (auto const& view : { a, b, c })
        parent->addSubview(*view);
    parent->sortSubviews([](NSView const& one, NSView const& other) { return one.frame().x < other.frame().x; });
    EXPECT_THAT(parent->subviews(), ElementsAre(b, c, a));
}

TEST_F(NSViewTest, MovingToAWindowIsToldInOrder)
{
    auto const window = showWindow();
    auto const view = make<CountingView>(Rect { 0, 0, 10, 10 });
    auto const inner = make<CountingView>(Rect { 0, 0, 5, 5 });
    view->addSubview(*inner);
    view->forget();
    inner->forget();
    window->contentView()->addSubview(*view);
    EXPECT_THAT(view->log, ElementsAre("willMoveToWindow", "willMoveToSuperview", "didMoveToWindow", "didMoveToSuperview"));
    EXPECT_THAT(inner->log, ElementsAre("willMoveToWindow", "didMoveToWindow"));
    EXPECT_EQ(inner->window(), window.get());
    view->forget();
    view->removeFromSuperview();
    EXPECT_THAT(view->log, ElementsAre("willLeaveWindow", "willLeaveSuperview", "didLeaveWindow", "didLeaveSuperview"));
    EXPECT_EQ(inner->window(), nullptr);
}

TEST_F(NSViewTest, AViewThatOutlivesItsSuperviewIsOnItsOwn)
{
    auto const child = make<NSView>();
    {
        auto const window = showWindow();
        auto const parent = make<NSView>();
        parent->addSubview(*child);
        window->contentView()->addSubview(*parent);
        window->contentView()->subviews()[0]->removeFromSuperview();
    }
    EXPECT_EQ(child->superview(), nullptr);
    EXPECT_EQ(child->window(), nullptr);
    EXPECT_EQ(child->nextResponder(), nullptr);
}

TEST_F(NSViewTest, AncestorsAndTagsAreFound)
{
    auto const root = make<NSView>();
    auto const left = make<NSView>();
    auto const right = make<NSView>();
    auto const leaf = taggedView(7);
    root->addSubview(*left);
    root->addSubview(*right);
    left->addSubview(*leaf);
    EXPECT_TRUE(leaf->isDescendantOf(*root));
    EXPECT_TRUE(leaf->isDescendantOf(*leaf));
    EXPECT_FALSE(leaf->isDescendantOf(*right));
    EXPECT_EQ(leaf->ancestorSharedWithView(*right), root.get());
    EXPECT_EQ(leaf->ancestorSharedWithView(*left), left.get());
    EXPECT_EQ(leaf->ancestorSharedWithView(*make<NSView>()), nullptr);
    EXPECT_EQ(root->viewWithTag(7), leaf.get());
    EXPECT_EQ(root->viewWithTag(8), nullptr);
    EXPECT_EQ(root->viewWithTag(-1), root.get());
}

// Frame, bounds, conversion.

TEST_F(NSViewTest, ConvertsBetweenFlippedAndUnflippedViews)
{
    auto const window = showWindow({ 100, 200, 400, 300 });
    auto const flipped = flippedView({ 50, 60, 200, 100 });
    auto const inner = make<NSView>(Rect { 10, 20, 40, 30 });
    window->contentView()->addSubview(*flipped);
    flipped->addSubview(*inner);
    EXPECT_EQ(flipped->convertPointToView({ 0, 0 }, nullptr), (Point { 50, 160 }));
    EXPECT_EQ(inner->convertPointToView({ 0, 0 }, flipped.get()), (Point { 10, 50 }));
    EXPECT_EQ(inner->convertPointToView({ 0, 0 }, nullptr), (Point { 60, 110 }));
    EXPECT_EQ(inner->convertPointFromView({ 60, 110 }, nullptr), (Point { 0, 0 }));
    EXPECT_EQ(inner->convertPointFromView({ 10, 20 }, flipped.get()), (Point { 0, 30 }));
    EXPECT_EQ(inner->convertRectToView({ 0, 0, 40, 10 }, flipped.get()), (Rect { 10, 40, 40, 10 }));
    EXPECT_EQ(flipped->convertRectFromView({ 0, 0, 40, 10 }, inner.get()), (Rect { 10, 40, 40, 10 }));
    EXPECT_EQ(inner->convertSizeToView({ 3, -4 }, flipped.get()), (Size { 3, 4 }));
    EXPECT_EQ(inner->convertRectToView({ 1, 2, 3, 4 }, inner.get()), (Rect { 1, 2, 3, 4 }));
}

TEST_F(NSViewTest, ConvertsBetweenSiblingsWithoutAWindow)
{
    auto const root = flippedView({ 0, 0, 100, 100 });
    auto const a = make<NSView>(Rect { 10, 10, 20, 20 });
    auto const b = flippedView({ 50, 50, 20, 20 });
    root->addSubview(*a);
    root->addSubview(*b);
    EXPECT_EQ(a->convertPointToView({ 5, 5 }, b.get()), (Point { -35, -25 }));
}

TEST_F(NSViewTest, BoundsOriginAndSizeMoveAndScaleTheContent)
{
    auto const root = make<NSView>(Rect { 0, 0, 400, 400 });
    auto const view = make<NSView>(Rect { 100, 100, 200, 100 });
    root->addSubview(*view);
    view->setBoundsOrigin({ 30, 40 });
    EXPECT_EQ(view->convertPointToView({ 30, 40 }, root.get()), (Point { 100, 100 }));
    view->setBoundsSize({ 100, 50 });
    EXPECT_EQ(view->convertPointToView({ 40, 50 }, root.get()), (Point { 120, 120 }));
    EXPECT_EQ(view->convertSizeToView({ 10, 10 }, root.get()), (Size { 20, 20 }));
    view->setFrameSize({ 400, 200 });
    EXPECT_EQ(view->bounds(), (Rect { 30, 40, 200, 100 }));
    EXPECT_TRUE(view->isRotatedOrScaledFromBase());
    EXPECT_FALSE(view->isRotatedFromBase());
    view->setBoundsSize({ 0, 0 });
    EXPECT_EQ(view->bounds().size(), (Size { 200, 100 }));
}

TEST_F(NSViewTest, ScalingAndTranslatingAreRelative)
{
    auto const view = make<NSView>(Rect { 0, 0, 200, 100 });
    view->translateOriginToPoint({ 10, 20 });
    EXPECT_EQ(view->bounds(), (Rect { -10, -20, 200, 100 }));
    view->scaleUnitSquareToSize({ 2, 4 });
    EXPECT_EQ(view->bounds().size(), (Size { 100, 25 }));
    view->scaleUnitSquareToSize({ 0, 1 });
    EXPECT_EQ(view->bounds().size(), (Size { 100, 25 }));
}

TEST_F(NSViewTest, ARotatedFrameTurnsAboutItsOrigin)
{
    auto const root = make<NSView>(Rect { 0, 0, 400, 400 });
    auto const view = make<NSView>(Rect { 100, 100, 40, 20 });
    root->addSubview(*view);
    view->setFrameRotation(90);
    auto const corner = view->convertPointToView({ 40, 0 }, root.get());
    EXPECT_NEAR(corner.x, 100, 1e-3);
    EXPECT_NEAR(corner.y, 140, 1e-3);
    EXPECT_TRUE(view->isRotatedFromBase());
    EXPECT_EQ(root->hitTest({ 90, 130 }), view.get());
    EXPECT_EQ(root->hitTest({ 130, 110 }), root.get());
}

TEST_F(NSViewTest, SubviewsFollowTheirMasksThroughLevels)
{
    auto const root = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const middle = make<NSView>(Rect { 10, 10, 80, 80 });
    auto const leaf = make<NSView>(Rect { 0, 70, 80, 10 });
    middle->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
    leaf->setAutoresizingMask(NSViewWidthSizable | NSViewMinYMargin);
    root->addSubview(*middle);
    middle->addSubview(*leaf);
    root->setFrameSize({ 150, 130 });
    EXPECT_EQ(middle->frame(), (Rect { 10, 10, 130, 110 }));
    EXPECT_EQ(leaf->frame(), (Rect { 0, 100, 130, 10 }));
    root->setAutoresizesSubviews(false);
    root->setFrameSize({ 300, 300 });
    EXPECT_EQ(middle->frame(), (Rect { 10, 10, 130, 110 }));
}

TEST_F(NSViewTest, FrameAndBoundsChangesArePostedOnceWhereWanted)
{
    auto const view = make<NSView>(Rect { 0, 0, 10, 10 });
    std::vector<std::string> posted;
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const& notification) { posted.push_back(notification.name); }, std::nullopt, view.get());
    view->setFrame({ 1, 1, 20, 20 });
    EXPECT_TRUE(posted.empty());
    view->setPostsFrameChangedNotifications(true);
    view->setPostsBoundsChangedNotifications(true);
    view->setFrame({ 5, 5, 30, 30 });
    view->setFrame({ 5, 5, 30, 30 });
    view->setFrameOrigin({ 6, 6 });
    view->setBoundsOrigin({ 1, 0 });
    EXPECT_THAT(
        posted, ElementsAre(NSViewFrameDidChangeNotification, NSViewFrameDidChangeNotification, NSViewBoundsDidChangeNotification));
}

TEST_F(NSViewTest, SizeToFitEnclosesTheSubviewsWithoutMovingThem)
{
    auto const view = make<NSView>(Rect { 100, 100, 5, 5 });
    view->sizeToFit();
    EXPECT_EQ(view->frame(), (Rect { 100, 100, 5, 5 }));
    auto const a = make<NSView>(Rect { 10, 10, 20, 20 });
    auto const b = make<NSView>(Rect { 40, 5, 10, 10 });
    view->addSubview(*a);
    view->addSubview(*b);
    view->sizeToFit();
    EXPECT_EQ(view->frame(), (Rect { 110, 105, 40, 25 }));
    EXPECT_EQ(a->frame(), (Rect { 10, 10, 20, 20 }));
}

// Hit tests.

TEST_F(NSViewTest, HitTestFindsTheTopmostVisibleView)
{
    auto const root = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const lower = make<NSView>(Rect { 0, 0, 50, 50 });
    auto const upper = make<NSView>(Rect { 25, 25, 50, 50 });
    auto const inner = make<NSView>(Rect { 0, 0, 10, 10 });
    root->addSubview(*lower);
    root->addSubview(*upper);
    upper->addSubview(*inner);
    EXPECT_EQ(root->hitTest({ 10, 10 }), lower.get());
    EXPECT_EQ(root->hitTest({ 30, 30 }), inner.get());
    EXPECT_EQ(root->hitTest({ 40, 40 }), upper.get());
    EXPECT_EQ(root->hitTest({ 90, 10 }), root.get());
    EXPECT_EQ(root->hitTest({ 100, 10 }), nullptr);
    upper->setHidden(true);
    EXPECT_EQ(root->hitTest({ 30, 30 }), lower.get());
}

TEST_F(NSViewTest, TheFirstEdgeOnScreenIsInsideAndTheLastIsNot)
{
    auto const root = make<NSView>(Rect { 0, 0, 100, 100 });
    auto const view = make<NSView>(Rect { 10, 10, 10, 10 });
    auto const flipped = flippedView({ 50, 10, 10, 10 });
    root->addSubview(*view);
    root->addSubview(*flipped);
    EXPECT_EQ(root->hitTest({ 10, 20 }), view.get());
    EXPECT_EQ(root->hitTest({ 10, 10 }), root.get());
    EXPECT_EQ(root->hitTest({ 20, 15 }), root.get());
    EXPECT_EQ(root->hitTest({ 50, 20 }), flipped.get());
    EXPECT_EQ(root->hitTest({ 50, 10 }), root.get());
}

// Hidden views.

TEST_F(NSViewTest, HidingIsToldToAllThatDisappears)
{
    auto const window = showWindow();
    auto const view = make<CountingView>(Rect { 0, 0, 10, 10 });
    auto const inner = make<CountingView>(Rect { 0, 0, 5, 5 });
    auto const hiddenInner = make<CountingView>(Rect { 0, 0, 5, 5 });
    view->addSubview(*inner);
    view->addSubview(*hiddenInner);
    hiddenInner->setHidden(true);
    window->contentView()->addSubview(*view);
    for (auto const& each : { view, inner, hiddenInner })
        each->forget();
    view->setHidden(true);
    view->setHidden(true);
    EXPECT_THAT(view->log, ElementsAre("didHide"));
    EXPECT_THAT(inner->log, ElementsAre("didHide"));
    EXPECT_TRUE(hiddenInner->log.empty());
    EXPECT_TRUE(inner->isHiddenOrHasHiddenAncestor());
    EXPECT_FALSE(inner->isHidden());
    EXPECT_EQ(inner->visibleRect(), Rect {});
    view->setHidden(false);
    EXPECT_THAT(inner->log, ElementsAre("didHide", "didUnhide"));
}

TEST_F(NSViewTest, VisibleRectIsWhatNoAncestorCutsOff)
{
    auto const window = showWindow({ 0, 0, 100, 100 });
    auto const outer = flippedView({ 50, 50, 100, 100 });
    auto const inner = make<NSView>(Rect { 10, 10, 200, 200 });
    window->contentView()->addSubview(*outer);
    outer->addSubview(*inner);
    EXPECT_EQ(outer->visibleRect(), (Rect { 0, 50, 50, 50 }));
    EXPECT_EQ(inner->visibleRect(), (Rect { 0, 110, 40, 50 }));
    EXPECT_EQ(make<NSView>(Rect { 0, 0, 10, 10 })->visibleRect(), Rect {});
}

// Key view loop links.

TEST_F(NSViewTest, KeyViewLinksStayConsistent)
{
    auto const a = make<NSView>();
    auto b = make<NSView>();
    auto const c = make<NSView>();
    a->setNextKeyView(b.get());
    b->setNextKeyView(c.get());
    EXPECT_EQ(c->previousKeyView(), b.get());
    b = nullptr;
    EXPECT_EQ(a->nextKeyView(), c.get());
    EXPECT_EQ(c->previousKeyView(), a.get());
    auto const d = make<NSView>();
    d->setNextKeyView(c.get());
    EXPECT_EQ(a->nextKeyView(), nullptr);
    EXPECT_EQ(c->previousKeyView(), d.get());
    d->setNextKeyView(d.get());
    EXPECT_EQ(d->nextKeyView(), nullptr);
    EXPECT_EQ(c->previousKeyView(), nullptr);
}

TEST_F(NSViewTest, SearchingALoopThatLeadsElsewhereEnds)
{
    auto const start = make<NSView>();
    auto const a = make<NSView>();
    auto const b = make<NSView>();
    a->setNextKeyView(b.get());
    b->setNextKeyView(a.get());
    start->setNextKeyView(nullptr);
    EXPECT_EQ(a->nextValidKeyView(), nullptr);
    EXPECT_EQ(a->previousValidKeyView(), nullptr);
    EXPECT_EQ(start->nextValidKeyView(), nullptr);
}

}
}
