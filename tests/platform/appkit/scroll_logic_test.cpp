#include <plix/platform/appkit/scroll_layout.h>
#include <plix/platform/appkit/scroller_geometry.h>

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

namespace plix {

static void PrintTo(Rect rect, std::ostream* stream)
{
    *stream << NSStringFromRect(rect);
}
static void PrintTo(Point point, std::ostream* stream)
{
    *stream << NSStringFromPoint(point);
}

namespace {

constexpr ScrollerMetrics metrics { .knobInset = 4, .slotEndInset = 2, .minimumKnobLength = 24, .arrowLength = 15 };

TEST(ScrollerPlan, PlacesTheKnobByValueAndProportion)
{
    struct Row {
        float value;
        float proportion;
        Rect knob;
    };
    // A slot of 204 leaves a way of 200.
    Row const rows[] = {
        { 0, 0.5F, { 4, 2, 7, 100 } },
        { 1, 0.5F, { 4, 102, 7, 100 } },
        { 0.5F, 0.25F, { 4, 77, 7, 50 } },
        { 0, 0, { 4, 2, 7, 24 } }, // never shorter than can be gripped
        { 1, 0, { 4, 178, 7, 24 } },
        { 0.3F, 1, { 4, 2, 7, 200 } },
        { -3, 0.5F, { 4, 2, 7, 100 } },
        { 7, 0.5F, { 4, 102, 7, 100 } },
        { std::nanf(""), std::nanf(""), { 4, 2, 7, 24 } },
    };
    for (auto const& row : rows) {
        auto const plan = scrollerPlan({ 0, 0, 15, 204 }, metrics, { row.value, row.proportion, NSScrollerArrowsNone });
        EXPECT_EQ(plan.knob, row.knob) << row.value << " " << row.proportion;
        EXPECT_EQ(plan.usableParts, NSAllScrollerParts);
    }
}

TEST(ScrollerPlan, LiesAlongItsLongerSide)
{
    auto const plan = scrollerPlan({ 10, 20, 204, 15 }, metrics, { 0.5F, 0.5F, NSScrollerArrowsNone });
    EXPECT_EQ(plan.axis, ScrollerAxis::horizontal);
    EXPECT_EQ(plan.knob, (Rect { 62, 24, 100, 7 }));
    EXPECT_EQ(plan.decrementPage, (Rect { 10, 20, 52, 15 }));
    EXPECT_EQ(plan.incrementPage, (Rect { 162, 20, 52, 15 }));
}

TEST(ScrollerPlan, PutsArrowsAtEitherEnd)
{
    auto const end = scrollerPlan({ 0, 0, 15, 234 }, metrics, { 0, 0.5F, NSScrollerArrowsMaxEnd });
    EXPECT_EQ(end.knobSlot, (Rect { 0, 0, 15, 204 }));
    EXPECT_EQ(end.decrementLine, (Rect { 0, 204, 15, 15 }));
    EXPECT_EQ(end.incrementLine, (Rect { 0, 219, 15, 15 }));
    auto const start = scrollerPlan({ 0, 0, 15, 234 }, metrics, { 0, 0.5F, NSScrollerArrowsMinEnd });
    EXPECT_EQ(start.decrementLine, (Rect { 0, 0, 15, 15 }));
    EXPECT_EQ(start.incrementLine, (Rect { 0, 15, 15, 15 }));
    EXPECT_EQ(start.knobSlot, (Rect { 0, 30, 15, 204 }));
    EXPECT_EQ(start.knob, (Rect { 4, 32, 7, 100 }));
}

TEST(ScrollerPlan, DropsTheKnobAndThenTheArrowsWhereThereIsNoRoom)
{
    EXPECT_EQ(scrollerPlan({ 0, 0, 15, 28 }, metrics, {}).usableParts, NSAllScrollerParts);
    EXPECT_EQ(scrollerPlan({ 0, 0, 15, 27 }, metrics, {}).usableParts, NSNoScrollerParts);
    ScrollerState const withArrows { 0, 0.5F, NSScrollerArrowsMaxEnd };
    EXPECT_EQ(scrollerPlan({ 0, 0, 15, 57 }, metrics, withArrows).usableParts, NSOnlyScrollerArrows);
    EXPECT_EQ(scrollerPlan({ 0, 0, 15, 29 }, metrics, withArrows).usableParts, NSAllScrollerParts);
    EXPECT_EQ(scrollerPlan({ 0, 0, 15, 29 }, metrics, withArrows).decrementLine, Rect {});
    EXPECT_EQ(scrollerPlan({}, metrics, withArrows).usableParts, NSNoScrollerParts);
}

TEST(ScrollerPlan, TellsWhichPartAPointHits)
{
    auto const plan = scrollerPlan({ 0, 0, 15, 204 }, metrics, { 0.5F, 0.5F, NSScrollerArrowsNone }); // knob at 52 to 152
    struct Row {
        Point point;
        NSScrollerPart part;
    };
    Row const rows[] = {
        { { 7, 0 }, NSScrollerDecrementPage },
        { { 7, 51 }, NSScrollerDecrementPage },
        { { 7, 52 }, NSScrollerKnob },
        { { 0, 60 }, NSScrollerKnob }, // the inset beside the drawn knob
        { { 14, 151 }, NSScrollerKnob },
        { { 7, 152 }, NSScrollerIncrementPage },
        { { 7, 203 }, NSScrollerIncrementPage },
        { { 7, 204 }, NSScrollerNoPart },
        { { -1, 60 }, NSScrollerNoPart },
        { { 15, 60 }, NSScrollerNoPart },
    };
    for (auto const& row : rows)
        EXPECT_EQ(plan.partAtPoint(row.point), row.part) << NSStringFromPoint(row.point);
}

TEST(ScrollerPlan, FindsTheValueBackFromWhereTheKnobIs)
{
    for (float value : { 0.F, 0.125F, 0.5F, 1.F }) {
        auto const plan = scrollerPlan({ 0, 0, 15, 204 }, metrics, { value, 0.2F, NSScrollerArrowsNone });
        EXPECT_FLOAT_EQ(scrollerValueForKnobStart(plan, metrics, knobStart(plan)), value);
    }
    auto const whole = scrollerPlan({ 0, 0, 15, 204 }, metrics, { 0, 1, NSScrollerArrowsNone });
    EXPECT_EQ(scrollerValueForKnobStart(whole, metrics, 50), 0);
    auto const half = scrollerPlan({ 0, 0, 15, 204 }, metrics, { 0, 0.5F, NSScrollerArrowsNone });
    EXPECT_EQ(scrollerValueForKnobStart(half, metrics, -40), 0);
    EXPECT_EQ(scrollerValueForKnobStart(half, metrics, 4000), 1);
}

ScrollViewShape shape()
{
    ScrollViewShape shape;
    shape.bounds = { 0, 0, 200, 100 };
    shape.hasVerticalScroller = shape.hasHorizontalScroller = true;
    return shape;
}

TEST(ScrollViewLayout, GivesTheContentWhatScrollersAndBorderLeave)
{
    auto plain = shape();
    auto layout = scrollViewLayout(plain);
    EXPECT_EQ(layout.content, (Rect { 0, 0, 185, 85 }));
    EXPECT_EQ(layout.verticalScroller, (Rect { 185, 0, 15, 85 }));
    EXPECT_EQ(layout.horizontalScroller, (Rect { 0, 85, 185, 15 }));
    EXPECT_EQ(layout.scrollerCorner, (Rect { 185, 85, 15, 15 }));

    plain.border = NSLineBorder;
    layout = scrollViewLayout(plain);
    EXPECT_EQ(layout.content, (Rect { 1, 1, 183, 83 }));
    EXPECT_EQ(layout.verticalScroller, (Rect { 184, 1, 15, 83 }));

    plain.hasHorizontalScroller = false;
    layout = scrollViewLayout(plain);
    EXPECT_EQ(layout.content, (Rect { 1, 1, 183, 98 }));
    EXPECT_EQ(layout.horizontalScroller, Rect {});
    EXPECT_EQ(layout.scrollerCorner, Rect {});
}

TEST(ScrollViewLayout, PutsTheHeaderAboveTheContentAndTheCornerBesideIt)
{
    auto headed = shape();
    headed.hasHorizontalScroller = false;
    headed.headerHeight = 17;
    auto layout = scrollViewLayout(headed);
    EXPECT_EQ(layout.header, (Rect { 0, 0, 185, 17 }));
    EXPECT_EQ(layout.content, (Rect { 0, 17, 185, 83 }));
    EXPECT_EQ(layout.verticalScroller, (Rect { 185, 0, 15, 100 }));
    EXPECT_EQ(layout.cornerView, Rect {});

    headed.hasCornerView = true;
    layout = scrollViewLayout(headed);
    EXPECT_EQ(layout.cornerView, (Rect { 185, 0, 15, 17 }));
    EXPECT_EQ(layout.verticalScroller, (Rect { 185, 17, 15, 83 }));
}

TEST(ScrollViewLayout, HidesAScrollerThatIsNotNeededAndCountsTheRoomOfTheOther)
{
    struct Row {
        Size document;
        bool vertical;
        bool horizontal;
    };
    Row const rows[] = {
        { { 200, 100 }, false, false },
        { { 200, 101 }, true, true }, // the vertical one takes the width that fitted
        { { 185, 101 }, true, false },
        { { 201, 100 }, true, true },
        { { 201, 85 }, false, true },
        { { 0, 0 }, false, false },
        { { 5000, 5000 }, true, true },
    };
    for (auto const& row : rows) {
        auto hiding = shape();
        hiding.autohidesScrollers = true;
        hiding.documentSize = row.document;
        auto const layout = scrollViewLayout(hiding);
        EXPECT_EQ(layout.showsVerticalScroller, row.vertical) << NSStringFromSize(row.document);
        EXPECT_EQ(layout.showsHorizontalScroller, row.horizontal) << NSStringFromSize(row.document);
    }
    auto headed = shape();
    headed.autohidesScrollers = true;
    headed.headerHeight = 20;
    headed.documentSize = { 100, 81 };
    EXPECT_TRUE(scrollViewLayout(headed).showsVerticalScroller);
}

TEST(ScrollViewLayout, NeverGivesNegativeSizes)
{
    auto tiny = shape();
    tiny.bounds = { 0, 0, 8, 6 };
    tiny.headerHeight = 17;
    tiny.border = NSBezelBorder;
    auto const layout = scrollViewLayout(tiny);
    for (Rect rect : { layout.content, layout.verticalScroller, layout.horizontalScroller, layout.header, layout.cornerView }) {
        EXPECT_GE(rect.width, 0);
        EXPECT_GE(rect.height, 0);
    }
}

TEST(Scrolling, StaysInsideTheDocument)
{
    struct Row {
        Point proposed;
        Rect document;
        Point expected;
    };
    Rect const document { 0, 0, 300, 500 };
    Row const rows[] = {
        { { 10, 20 }, document, { 10, 20 } },
        { { -1, -9 }, document, { 0, 0 } },
        { { 900, 900 }, document, { 200, 400 } },
        { { 50, 50 }, { 0, 0, 80, 90 }, { 0, 0 } }, // smaller than the clip
        { { 0, 0 }, { 30, -40, 300, 500 }, { 30, 0 } },
        { { -900, -900 }, { 30, -40, 300, 500 }, { 30, -40 } },
        { { std::nanf(""), std::nanf("") }, document, { 0, 0 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(constrainedScrollPoint(row.proposed, row.document, { 100, 100 }), row.expected)
            << NSStringFromPoint(row.proposed);
}

TEST(Scrolling, GoesToWholeDevicePixels)
{
    EXPECT_EQ(pixelAlignedPoint({ 1.4F, 2.6F }, 1), (Point { 1, 3 }));
    EXPECT_EQ(pixelAlignedPoint({ 1.4F, 2.6F }, 2), (Point { 1.5F, 2.5F }));
}

TEST(Scrolling, TellsTheScrollerWhereTheClipStandsAndBack)
{
    EXPECT_EQ(scrollerReading(0, 400, 100, 100, ScrollDirection::fromStart), (ScrollerReading { 1 / 3.F, 0.25F, true }));
    EXPECT_FLOAT_EQ(scrollerReading(0, 400, 100, 100, ScrollDirection::fromEnd).value, 2 / 3.F);
    EXPECT_EQ(scrollerReading(0, 100, 0, 100, ScrollDirection::fromStart), (ScrollerReading { 0, 1, false }));
    EXPECT_EQ(scrollerReading(0, 50, 0, 100, ScrollDirection::fromEnd), (ScrollerReading { 0, 1, false }));
    for (auto direction : { ScrollDirection::fromStart, ScrollDirection::fromEnd }) {
        for (float start : { -20.F, 0.F, 130.F, 280.F }) {
            auto const reading = scrollerReading(-20, 400, start, 100, direction);
            EXPECT_NEAR(clipStartForScrollerValue(-20, 400, 100, reading.value, direction), start, 1e-4);
        }
    }
}

TEST(Scrolling, MovesNoFurtherThanNeededToShowARectangle)
{
    Rect const visible { 0, 100, 200, 50 };
    struct Row {
        Rect rect;
        Point expected;
    };
    Row const rows[] = {
        { { 0, 110, 50, 20 }, { 0, 100 } }, // seen already
        { { 0, 90, 50, 20 }, { 0, 90 } },
        { { 0, 140, 50, 20 }, { 0, 110 } },
        { { 190, 110, 20, 20 }, { 10, 100 } },
        { { 0, 80, 50, 100 }, { 0, 100 } }, // fills all that is visible
        { { 0, 140, 50, 80 }, { 0, 140 } }, // too large: its near end
        { { 0, 40, 50, 80 }, { 0, 70 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(scrollPointShowing(row.rect, visible), row.expected) << NSStringFromRect(row.rect);
}

TEST(Scrolling, ExposesTheStripsThatCameIntoView)
{
    Rect const before { 0, 0, 100, 50 };
    EXPECT_EQ(exposedStrips(before, { 0, 20, 100, 50 }), (std::vector<Rect> { { 0, 50, 100, 20 } }));
    EXPECT_EQ(exposedStrips(before, { 0, -20, 100, 50 }), (std::vector<Rect> { { 0, -20, 100, 20 } }));
    EXPECT_EQ(exposedStrips(before, { 30, 10, 100, 50 }), (std::vector<Rect> { { 30, 50, 100, 10 }, { 100, 10, 30, 40 } }));
    EXPECT_EQ(exposedStrips(before, { 0, 50, 100, 50 }), (std::vector<Rect> { { 0, 50, 100, 50 } }));
    EXPECT_TRUE(exposedStrips(before, before).empty());
}

TEST(Scrolling, KeepsAnOverlapBetweenPages)
{
    EXPECT_EQ(pageScrollDistance(100, 10), 90);
    EXPECT_EQ(pageScrollDistance(12, 10), 6);
}

TEST(Scrolling, FollowsThePointerByItsDistanceOutside)
{
    Rect const visible { 10, 10, 100, 100 };
    EXPECT_EQ(autoscrollDistance({ 50, 50 }, visible), (Size { 0, 0 }));
    EXPECT_EQ(autoscrollDistance({ 4, 118 }, visible), (Size { -6, 8 }));
    EXPECT_EQ(autoscrollDistance({ 110, 10 }, visible), (Size { 0, 0 }));
}

}

}
