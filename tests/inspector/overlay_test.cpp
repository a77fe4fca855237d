#include <tests/inspector/InspectorTest.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScrollView.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::IsEmpty;

TEST_F(InspectorTest, TintsTheSelectedViewAndOutlinesThoseAroundIt)
{
    open();
    session().selectView(left.get());
    pump();
    EXPECT_TRUE(isTinted({ 70, 70 }));
    EXPECT_TRUE(isTinted({ 20, 70 }));
    EXPECT_LT(colorAt({ 20, 70 }).red, colorAt({ 70, 70 }).red);
    EXPECT_TRUE(isTinted({ 0, 150 }));
    EXPECT_FALSE(isTinted({ 250, 70 }));
    EXPECT_FALSE(isTinted({ 200, 70 }));
    session().selectView(nullptr);
    pump();
    EXPECT_FALSE(isTinted({ 70, 70 }));
    EXPECT_FALSE(isTinted({ 0, 150 }));
}

TEST_F(InspectorTest, ShowsTheFramesOfAllViewsThatAreSeen)
{
    right->setHidden(true);
    open();
    press(panel().framesSwitch());
    EXPECT_TRUE(isTinted({ 20, 70 }));
    EXPECT_FALSE(isTinted({ 70, 70 }));
    EXPECT_FALSE(isTinted({ 200, 70 }));
    press(panel().framesSwitch());
    EXPECT_FALSE(isTinted({ 20, 70 }));
}

TEST_F(InspectorTest, MovesTheFrameWithItsView)
{
    open();
    session().selectView(left.get());
    pump();
    left->setFrameOrigin({ 20, 180 });
    pump();
    EXPECT_FALSE(isTinted({ 70, 70 }));
    EXPECT_TRUE(isTinted({ 70, 220 }));
}

TEST_F(InspectorTest, TintsWhatIsDrawnForAThirdOfASecond)
{
    open();
    press(panel().flashesSwitch());
    pass(1);
    EXPECT_FALSE(isTinted({ 250, 70 }));
    right->setNeedsDisplay(true);
    pump();
    EXPECT_TRUE(isTinted({ 250, 70 }));
    EXPECT_FALSE(isTinted({ 150, 70 }));
    EXPECT_FALSE(isTinted({ 70, 70 }));
    pass(0.3);
    EXPECT_TRUE(isTinted({ 250, 70 }));
    pass(0.05);
    EXPECT_FALSE(isTinted({ 250, 70 }));
}

TEST_F(InspectorTest, DoesNotTakeItsOwnDrawingForTheApplications)
{
    open();
    press(panel().flashesSwitch());
    pass(1);
    session().selectView(left.get());
    pump();
    session().selectView(nullptr);
    pump();
    EXPECT_FALSE(isTinted({ 70, 70 }));
    right->setNeedsDisplay(true);
    pump();
    forget();
    pass(2);
    EXPECT_FALSE(isTinted({ 250, 70 }));
    EXPECT_EQ(right->drawCount, 1);
}

TEST_F(InspectorTest, TintsNoMoreWhenItIsSwitchedOff)
{
    open();
    press(panel().flashesSwitch());
    right->setNeedsDisplay(true);
    pump();
    ASSERT_TRUE(isTinted({ 250, 70 }));
    press(panel().flashesSwitch());
    EXPECT_FALSE(isTinted({ 250, 70 }));
    right->setNeedsDisplay(true);
    pump();
    EXPECT_FALSE(isTinted({ 250, 70 }));
}

/// A scroll view over all of the window, whose document is white with nothing in it, and a view in that.
class ScrolledInspectorTest : public InspectorTest {
protected:
    void SetUp() override
    {
        InspectorTest::SetUp();
        scrollView = make<NSScrollView>(Rect { 0, 0, 400, 300 });
        document = make<CountingView>(Rect { 0, 0, 400, 2000 });
        document->color = NSColor::whiteColor();
        document->opaque = true;
        document->flipped = true;
        inside = make<CountingView>(Rect { 50, 100, 100, 40 });
        document->addSubview(*inside);
        scrollView->setDocumentView(document);
        content->addSubview(*scrollView);
        pump();
        open();
    }
    void scrollTo(float y)
    {
        scrollView->contentView()->scrollToPoint({ 0, y });
        pump();
    }
    int tintedPixels()
    {
        return countPixels(shown(), [](std::uint32_t pixel) { return (pixel & 0xFFFFFF) != 0xFFFFFF; });
    }

    Ref<NSScrollView> scrollView;
    Ref<CountingView> document;
    Ref<CountingView> inside;
};

TEST_F(ScrolledInspectorTest, IsNotSmearedByPixelsThatMove)
{
    session().selectView(inside.get());
    pump();
    auto const before = shown();
    float drawnArea = 0;
    document->whenDrawn = [&](Rect) {
        for (auto const rect : document->getRectsBeingDrawn())
            drawnArea += rect.width * rect.height;
    };
    scrollTo(30);
    document->whenDrawn = nullptr;
    // Most of it was moved, not drawn.
    EXPECT_LT(drawnArea, 400 * 150);
    auto const moved = shown();
    content->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(countDifferences(moved, shown()), 0);
    scrollTo(0);
    EXPECT_EQ(countDifferences(before, shown()), 0);
}

TEST_F(ScrolledInspectorTest, LeavesNoFlashBehindWhenPixelsMove)
{
    press(panel().flashesSwitch());
    pass(1);
    auto const before = shown();
    inside->setNeedsDisplay(true);
    pump();
    ASSERT_NE(countDifferences(before, shown()), 0);
    scrollTo(20);
    scrollTo(50);
    pass(1);
    EXPECT_EQ(tintedPixels(), 0);
}

TEST_F(ScrolledInspectorTest, ShowsFramesOnlyWhereTheirViewsAreSeen)
{
    press(panel().framesSwitch());
    scrollTo(130);
    // The view's last ten points are at the top; its other lines are out of sight.
    EXPECT_TRUE(isTinted({ 100, 290 }));
    EXPECT_FALSE(isTinted({ 100, 295 }));
    scrollTo(500);
    auto const far = shown();
    inside->setHidden(true);
    pump();
    EXPECT_EQ(countDifferences(far, shown()), 0);
}

}
}
