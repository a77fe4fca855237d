#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/ScrollHeader.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

/// Shows where it is by colour, and remembers what it was asked to draw.
class Document : public NSView {
    PLIX_CLASS(Document, NSView);

public:
    bool isFlipped() const override { return flipped; }
    bool isOpaque() const override { return true; }
    bool acceptsFirstResponder() const override { return true; }
    void drawRect(Rect dirty) override
    {
        for (Rect const rect : getRectsBeingDrawn()) {
            drawn.push_back(rect);
            drawnArea += rect.width * rect.height;
        }
        // Stripes of ten points, each of another grey.
        auto const first = static_cast<long>(dirty.y / 10);
        for (long stripe = first; static_cast<float>(stripe) * 10 < dirty.maxY(); ++stripe)
            Theme::current().fill({ dirty.x, static_cast<float>(stripe) * 10, dirty.width, 10 }, *stripeColor(stripe));
    }
    static Ref<NSColor> stripeColor(long stripe)
    {
        return NSColor::colorWithCalibratedRed(static_cast<float>(stripe % 16) / 16, static_cast<float>(stripe / 16) / 16, 0.5F, 1);
    }

    bool flipped { true };
    std::vector<Rect> drawn;
    float drawnArea { 0 };
};

PLIX_DESCRIBE(Document)
{
}

class DocumentWithHeader : public Document, public ScrollHeader {
    PLIX_CLASS(DocumentWithHeader, Document);

public:
    NSView* headerView() const override { return header.get(); }
    NSView* cornerView() const override { return corner.get(); }
    Ref<NSView> header;
    Ref<NSView> corner;
};

PLIX_DESCRIBE(DocumentWithHeader)
{
}

class ScrollViewTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 100, 100, 400, 300 });
        scrollView = make<NSScrollView>(Rect { 0, 0, 215, 115 });
        window->contentView()->addSubview(*scrollView);
        scrollView->setHasVerticalScroller(true);
        scrollView->setHasHorizontalScroller(true);
        document = make<Document>(Rect { 0, 0, 600, 1000 });
        scrollView->setDocumentView(document);
        pump();
        document->drawn.clear();
        document->drawnArea = 0;
    }

    NSClipView& clip() { return *scrollView->contentView(); }
    NSScroller& vertical() { return *scrollView->verticalScroller(); }
    NSScroller& horizontal() { return *scrollView->horizontalScroller(); }
    Point origin() { return clip().bounds().origin(); }

    Ref<NSWindow> window;
    Ref<NSScrollView> scrollView;
    Ref<Document> document;
};

TEST_F(ScrollViewTest, TilesItsParts)
{
    EXPECT_EQ(clip().frame(), (Rect { 0, 0, 200, 100 }));
    EXPECT_EQ(vertical().frame(), (Rect { 200, 0, 15, 100 }));
    EXPECT_EQ(horizontal().frame(), (Rect { 0, 100, 200, 15 }));
    EXPECT_EQ(scrollView->contentSize(), (Size { 200, 100 }));
    EXPECT_EQ(scrollView->documentVisibleRect(), (Rect { 0, 0, 200, 100 }));
    scrollView->setBorderType(NSLineBorder);
    EXPECT_EQ(clip().frame(), (Rect { 1, 1, 198, 98 }));
    scrollView->setHasHorizontalScroller(false);
    EXPECT_EQ(clip().frame(), (Rect { 1, 1, 198, 113 }));
    EXPECT_TRUE(horizontal().isHidden());
    scrollView->setFrameSize({ 315, 215 });
    EXPECT_EQ(clip().frame(), (Rect { 1, 1, 298, 213 }));
}

TEST_F(ScrollViewTest, TellsFrameFromContentSizeAndBack)
{
    EXPECT_EQ(NSScrollView::frameSizeForContentSize({ 100, 50 }, true, true, NSLineBorder), (Size { 117, 67 }));
    EXPECT_EQ(NSScrollView::contentSizeForFrameSize({ 117, 67 }, true, true, NSLineBorder), (Size { 100, 50 }));
    EXPECT_EQ(NSScrollView::frameSizeForContentSize({ 100, 50 }, false, true, NSNoBorder), (Size { 115, 50 }));
}

TEST_F(ScrollViewTest, ShowsWhereItStandsByItsScrollers)
{
    EXPECT_EQ(vertical().floatValue(), 0);
    EXPECT_FLOAT_EQ(vertical().knobProportion(), 0.1F);
    EXPECT_FLOAT_EQ(horizontal().knobProportion(), 200 / 600.F);
    EXPECT_TRUE(vertical().isEnabled());
    document->scrollPoint({ 200, 450 });
    EXPECT_EQ(origin(), (Point { 200, 450 }));
    EXPECT_FLOAT_EQ(vertical().floatValue(), 0.5F);
    EXPECT_FLOAT_EQ(horizontal().floatValue(), 0.5F);
    document->setFrameSize({ 100, 50 });
    EXPECT_EQ(origin(), (Point { 0, 0 }));
    EXPECT_FALSE(vertical().isEnabled());
    EXPECT_FALSE(horizontal().isEnabled());
}

TEST_F(ScrollViewTest, ScrollsByTheWheelInLinesAndFractions)
{
    person().scroll(centerOnScreen(clip()), 0, -3);
    pump();
    EXPECT_EQ(origin(), (Point { 0, 30 }));
    person().scroll(centerOnScreen(clip()), 0, 1);
    person().scroll(centerOnScreen(clip()), -2, 0);
    pump();
    EXPECT_EQ(origin(), (Point { 20, 20 }));
    for (int step = 0; step < 10; ++step)
        person().scroll(centerOnScreen(clip()), 0, -0.04F); // 0.4 points each
    pump();
    EXPECT_EQ(origin(), (Point { 20, 24 }));
    scrollView->setVerticalLineScroll(50);
    person().scroll(centerOnScreen(clip()), 0, -1);
    pump();
    EXPECT_EQ(origin(), (Point { 20, 74 }));
    person().scroll(centerOnScreen(clip()), 0, -1, HostModifierShift);
    pump();
    EXPECT_EQ(origin(), (Point { 30, 74 }));
    person().scroll(centerOnScreen(clip()), 0, 1000);
    pump();
    EXPECT_EQ(origin(), (Point { 30, 0 }));
}

TEST_F(ScrollViewTest, LeavesTheWheelToTheScrollViewAroundItWhereItCannotScroll)
{
    auto const inner = make<NSScrollView>(Rect { 0, 0, 100, 80 });
    inner->setDocumentView(make<Document>(Rect { 0, 0, 100, 80 }));
    document->addSubview(*inner);
    person().scroll(centerOnScreen(*inner), 0, -2);
    pump();
    EXPECT_EQ(origin(), (Point { 0, 20 }));
}

TEST_F(ScrollViewTest, ScrollsByKeys)
{
    window->makeFirstResponder(document.get());
    struct Row {
        char32_t key;
        Point origin;
    };
    Row const rows[] = {
        { NSPageDownFunctionKey, { 0, 90 } }, // ten points of the page before stay
        { NSPageDownFunctionKey, { 0, 180 } },
        { NSPageUpFunctionKey, { 0, 90 } },
        { NSDownArrowFunctionKey, { 0, 100 } },
        { NSUpArrowFunctionKey, { 0, 90 } },
        { NSRightArrowFunctionKey, { 10, 90 } },
        { NSLeftArrowFunctionKey, { 0, 90 } },
        { NSEndFunctionKey, { 0, 900 } },
        { NSPageDownFunctionKey, { 0, 900 } },
        { NSHomeFunctionKey, { 0, 0 } },
    };
    for (auto const& row : rows) {
        person().key(row.key);
        pump();
        EXPECT_EQ(origin(), row.origin) << "row " << &row - rows;
    }
}

TEST_F(ScrollViewTest, OffersItsActionsByName)
{
    EXPECT_TRUE(document->tryToPerform(Selector("scrollPageDown:"), nullptr));
    EXPECT_EQ(origin(), (Point { 0, 90 }));
    EXPECT_TRUE(document->tryToPerform(Selector("scrollToEndOfDocument:"), nullptr));
    EXPECT_EQ(origin(), (Point { 0, 900 }));
    EXPECT_TRUE(document->tryToPerform(Selector("scrollLineUp:"), nullptr));
    EXPECT_EQ(origin(), (Point { 0, 890 }));
}

TEST_F(ScrollViewTest, FollowsTheKnob)
{
    Rect const knob = vertical().rectForPart(NSScrollerKnob);
    Point const grip = onScreen(vertical(), { 7, knob.midY() });
    std::vector<Point> origins;
    auto note = [&] { origins.push_back(origin()); };
    person().press(grip);
    person().dragTo({ grip.x, grip.y - 36 }); // half of the knob's way of 72
    person().then(note);
    person().dragTo({ grip.x - 100, grip.y - 500 });
    person().then(note);
    person().release({ grip.x, grip.y });
    pump();
    note();
    EXPECT_EQ(origins, (std::vector<Point> { { 0, 450 }, { 0, 900 }, { 0, 0 } }));
    EXPECT_EQ(vertical().hitPart(), NSScrollerNoPart);
}

TEST_F(ScrollViewTest, WaitsForTheReleaseWhereItIsNotDynamic)
{
    scrollView->setScrollsDynamically(false);
    Point const grip = onScreen(vertical(), { 7, vertical().rectForPart(NSScrollerKnob).midY() });
    std::vector<Point> origins;
    person().press(grip);
    person().dragTo({ grip.x, grip.y - 36 });
    person().then([&] { origins.push_back(origin()); });
    person().release({ grip.x, grip.y - 36 });
    pump();
    origins.push_back(origin());
    EXPECT_EQ(origins, (std::vector<Point> { { 0, 0 }, { 0, 450 } }));
}

TEST_F(ScrollViewTest, PagesWhileTheSlotIsHeldUntilTheKnobComes)
{
    Point const slot = onScreen(vertical(), { 7, 60 });
    std::vector<Point> origins;
    person().press(slot);
    person().then([&] { origins.push_back(origin()); });
    machine().headlessEvents().postAfter(0.39, [&] { origins.push_back(origin()); });
    machine().headlessEvents().postAfter(0.47, [&] { origins.push_back(origin()); });
    machine().headlessEvents().postAfter(5, [&] {
        origins.push_back(origin());
        person().release(slot);
    });
    pass(6);
    ASSERT_EQ(origins.size(), 4U);
    EXPECT_EQ(origins[0], (Point { 0, 90 })); // at once
    EXPECT_EQ(origins[1], (Point { 0, 90 })); // not again for a while
    EXPECT_EQ(origins[2], (Point { 0, 270 }));
    // The knob has come to where the pointer is.
    EXPECT_EQ(vertical().testPart(vertical().convertPointToView({ 7, 60 }, nullptr)), NSScrollerKnob);
    EXPECT_EQ(origins[3], origin());
}

TEST_F(ScrollViewTest, JumpsToWhereTheSlotIsPressedWithAlternate)
{
    person().press(onScreen(vertical(), { 7, 50 }), { .modifiers = HostModifierAlternate });
    person().release(onScreen(vertical(), { 7, 50 }));
    pump();
    EXPECT_EQ(origin(), (Point { 0, 450 }));
}

TEST_F(ScrollViewTest, DoesNothingByADisabledScroller)
{
    document->setFrameSize({ 600, 100 });
    EXPECT_TRUE(vertical().rectForPart(NSScrollerKnob).isEmpty());
    person().click(onScreen(vertical(), { 7, 60 }));
    pump();
    EXPECT_EQ(origin(), (Point { 0, 0 }));
}

TEST_F(ScrollViewTest, HidesScrollersThatAreNotNeeded)
{
    scrollView->setAutohidesScrollers(true);
    EXPECT_FALSE(vertical().isHidden());
    document->setFrameSize({ 200, 100 });
    EXPECT_TRUE(vertical().isHidden());
    EXPECT_TRUE(horizontal().isHidden());
    EXPECT_EQ(clip().frame(), (Rect { 0, 0, 215, 115 }));
    document->setFrameSize({ 100, 116 });
    EXPECT_FALSE(vertical().isHidden());
    EXPECT_TRUE(horizontal().isHidden());
    EXPECT_EQ(clip().frame(), (Rect { 0, 0, 200, 115 }));
}

TEST_F(ScrollViewTest, LetsADocumentThatFollowsItsWidthDoWithOneScroller)
{
    document->setAutoresizingMask(NSViewWidthSizable);
    document->setFrameSize({ 200, 1000 });
    scrollView->setAutohidesScrollers(true);
    EXPECT_FALSE(vertical().isHidden());
    EXPECT_TRUE(horizontal().isHidden());
    document->setFrameSize({ document->frame().width, 20 });
    EXPECT_TRUE(vertical().isHidden());
    EXPECT_EQ(document->frame().width, 215);
    document->setFrameSize({ document->frame().width, 1000 });
    EXPECT_FALSE(vertical().isHidden());
    EXPECT_TRUE(horizontal().isHidden());
    EXPECT_EQ(document->frame().width, 200);
}

TEST_F(ScrollViewTest, SettlesWithADocumentThatIsNeverContent)
{
    /// Needs a scroller where it is wide, and none where one makes it narrow.
    class Contrary : public Document {
    public:
        using Document::init;
        void setFrameSize(Size size) override { Document::setFrameSize({ size.width, size.width > 210 ? 500.F : 50.F }); }
    };
    scrollView->setAutohidesScrollers(true);
    auto const contrary = make<Contrary>(Rect { 0, 0, 200, 50 });
    contrary->setAutoresizingMask(NSViewWidthSizable);
    scrollView->setDocumentView(contrary);
    scrollView->setFrameSize({ 216, 115 });
    pump();
    EXPECT_GT(clip().frame().width, 0);
}

TEST_F(ScrollViewTest, KeepsTheHeaderAboveAndMovesItSideways)
{
    auto const headed = make<DocumentWithHeader>(Rect { 0, 0, 600, 1000 });
    headed->header = make<NSView>(Rect { 0, 0, 600, 20 });
    scrollView->setDocumentView(headed);
    EXPECT_EQ(clip().frame(), (Rect { 0, 20, 200, 80 }));
    EXPECT_EQ(vertical().frame(), (Rect { 200, 0, 15, 100 }));
    headed->scrollPoint({ 130, 300 });
    auto* const headerClip = headed->header->superview();
    EXPECT_EQ(headerClip->frame(), (Rect { 0, 0, 200, 20 }));
    EXPECT_EQ(headerClip->bounds().origin(), (Point { 130, 0 }));

    headed->corner = make<NSView>(Rect {});
    scrollView->tile();
    EXPECT_EQ(headed->corner->frame(), (Rect { 200, 0, 15, 20 }));
    EXPECT_EQ(vertical().frame(), (Rect { 200, 20, 15, 80 }));
    scrollView->setDocumentView(document);
    EXPECT_EQ(headed->corner->superview(), nullptr);
    EXPECT_EQ(clip().frame(), (Rect { 0, 0, 200, 100 }));
}

TEST_F(ScrollViewTest, StartsAnUnflippedDocumentAtItsTop)
{
    auto const upright = make<Document>();
    upright->flipped = false;
    upright->setFrameSize({ 600, 1000 });
    scrollView->setDocumentView(upright);
    EXPECT_EQ(origin(), (Point { 0, 900 }));
    EXPECT_EQ(vertical().floatValue(), 0);
    person().scroll(centerOnScreen(clip()), 0, -2);
    pump();
    EXPECT_EQ(origin(), (Point { 0, 880 }));
    EXPECT_GT(vertical().floatValue(), 0);
    scrollView->setFrameSize({ 215, 155 }); // the top stays
    EXPECT_EQ(origin(), (Point { 0, 840 }));
}

TEST_F(ScrollViewTest, DrawsOnlyWhatComesIntoView)
{
    document->scrollPoint({ 0, 20 });
    pump();
    EXPECT_EQ(document->drawnArea, 200 * 20);
    for (Rect const rect : document->drawn)
        EXPECT_TRUE(NSContainsRect({ 0, 100, 200, 20 }, rect)) << NSStringFromRect(rect);
}

TEST_F(ScrollViewTest, ShowsTheSamePixelsAsIfAllWereDrawn)
{
    for (Point const target : { Point { 0, 20 }, { 0, 65 }, { 30, 55 }, { 30, 300 }, { 0, 290 } }) {
        document->scrollPoint(target);
        pump();
        auto const moved = window->snapshot();
        window->display();
        EXPECT_EQ(countDifferences(moved, window->snapshot()), 0) << NSStringFromPoint(target);
    }
}

TEST_F(ScrollViewTest, TakesDirtyPartsAlongWhenItMovesPixels)
{
    document->setNeedsDisplayInRect({ 0, 50, 200, 10 });
    document->scrollPoint({ 0, 20 });
    document->scrollPoint({ 0, 30 });
    pump();
    EXPECT_EQ(document->drawnArea, 200 * 10 + 200 * 30);
}

TEST_F(ScrollViewTest, DrawsAllAnewWhereItMayNotCopy)
{
    clip().setCopiesOnScroll(false);
    document->scrollPoint({ 0, 20 });
    pump();
    EXPECT_EQ(document->drawnArea, 200 * 100);
}

TEST_F(ScrollViewTest, DrawsRightUnderAViewThatLiesAbove)
{
    auto const above = make<Document>(Rect { 20, 30, 50, 50 });
    window->contentView()->addSubview(*above);
    pump();
    document->scrollPoint({ 0, 20 });
    pump();
    auto const moved = window->snapshot();
    window->display();
    EXPECT_EQ(countDifferences(moved, window->snapshot()), 0);
}

TEST_F(ScrollViewTest, DoesNotMoveWhatIsToBeDrawnAnew)
{
    auto const above = make<Document>(Rect { 20, 30, 50, 50 });
    auto differencesAfter = [&](auto change, float y) {
        window->contentView()->addSubview(*above);
        above->setHidden(false);
        pump();
        change();
        document->scrollPoint({ 0, y });
        pump();
        auto const moved = window->snapshot();
        window->display();
        return countDifferences(moved, window->snapshot());
    };
    EXPECT_EQ(differencesAfter([&] { above->setHidden(true); }, 20), 0);
    EXPECT_EQ(differencesAfter([&] { above->removeFromSuperview(); }, 40), 0);
}

TEST_F(ScrollViewTest, ScrollsToShowARectangle)
{
    EXPECT_TRUE(document->scrollRectToVisible({ 0, 150, 10, 10 }));
    EXPECT_EQ(origin(), (Point { 0, 60 }));
    EXPECT_FALSE(document->scrollRectToVisible({ 0, 150, 10, 10 }));
    EXPECT_TRUE(document->scrollRectToVisible({ 300, 20, 10, 10 }));
    EXPECT_EQ(origin(), (Point { 110, 20 }));
}

TEST_F(ScrollViewTest, PostsThatItsBoundsChanged)
{
    int posted = 0;
    clip().setPostsBoundsChangedNotifications(true);
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) { ++posted; }, NSViewBoundsDidChangeNotification, &clip());
    document->scrollPoint({ 0, 20 });
    EXPECT_EQ(posted, 1);
    document->scrollPoint({ 0, 20 });
    EXPECT_EQ(posted, 1);
}

TEST_F(ScrollViewTest, ScrollsTowardsADragOutside)
{
    auto const event = NSEvent::mouseEventWithType(
        NSLeftMouseDragged, document->convertPointToView({ 50, 112 }, nullptr), 0, 0, window->windowNumber(), nullptr, 0, 1, 1);
    EXPECT_TRUE(document->autoscroll(*event));
    EXPECT_EQ(origin(), (Point { 0, 12 }));
    auto const inside = NSEvent::mouseEventWithType(
        NSLeftMouseDragged, document->convertPointToView({ 50, 60 }, nullptr), 0, 0, window->windowNumber(), nullptr, 0, 1, 1);
    EXPECT_FALSE(document->autoscroll(*inside));
}

TEST_F(ScrollViewTest, ForgetsADocumentThatLeaves)
{
    document->removeFromSuperview();
    EXPECT_EQ(scrollView->documentView(), nullptr);
    pump();
    EXPECT_FALSE(vertical().isEnabled());
    document->setFrameSize({ 10, 10 });
    scrollView->setDocumentView(nullptr);
    pump();
}

TEST_F(ScrollViewTest, LightsTheKnobUnderThePointer)
{
    Rect const knob = vertical().convertRectToView(vertical().rectForPart(NSScrollerKnob), nullptr);
    int const x = static_cast<int>(knob.midX());
    int const y = static_cast<int>(300 - knob.midY());
    auto const& theme = Theme::current();
    EXPECT_TRUE(pixelNear(window->snapshot(), x, y, theme.color(ThemeRole::scrollerKnob)->components()));
    person().moveMouse(onScreen(vertical(), { 7, 90 }));
    pump();
    EXPECT_TRUE(pixelNear(window->snapshot(), x, y, theme.color(ThemeRole::scrollerKnobHovered)->components()));
    person().moveMouse(onScreen(*document, { 50, 50 }));
    pump();
    EXPECT_TRUE(pixelNear(window->snapshot(), x, y, theme.color(ThemeRole::scrollerKnob)->components()));
}

}
}
