#include <plix/platform/appkit/box_layout.h>
#include <plix/platform/appkit/combo_layout.h>
#include <plix/platform/appkit/image_layout.h>
#include <plix/platform/appkit/progress_layout.h>
#include <plix/platform/appkit/segment_layout.h>
#include <plix/platform/appkit/split_layout.h>

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

namespace plix {
namespace {

using Lengths = std::vector<float>;

std::vector<SplitPane> panesOf(Lengths const& lengths)
{
    std::vector<SplitPane> panes;
    for (float const length : lengths)
        panes.push_back({ std::abs(length), length < 0 });
    return panes;
}

Lengths shownLengths(std::vector<SplitPane> const& panes)
{
    Lengths lengths;
    for (auto const& pane : panes)
        lengths.push_back(pane.shownLength());
    return lengths;
}

// MARK: filling

struct FillCase {
    Lengths lengths; ///< below 0: collapsed
    float view;
    float thickness;
    Lengths expected;
};

TEST(SplitLayout, PanesKeepTheirShares)
{
    FillCase const cases[] {
        { { 100, 100 }, 209, 9, { 100, 100 } },
        { { 100, 300 }, 209, 9, { 50, 150 } },
        { { 1, 1, 1 }, 100, 0, { 33, 34, 33 } },
        { { 1, 2 }, 11, 1, { 3, 7 } },
        { { 0, 0 }, 107, 7, { 50, 50 } },
        { { 0, 0, 0, 0 }, 40, 0, { 10, 10, 10, 10 } },
        { { 100, 100 }, 5, 9, { 0, 0 } },
        { { 100, 100 }, 0, 9, { 0, 0 } },
        { { 100, -60, 100 }, 218, 9, { 100, 0, 100 } },
        { { -60, 30 }, 109, 9, { 0, 100 } },
        { { 50 }, 80, 9, { 80 } },
        { {}, 80, 9, {} },
    };
    for (auto const& test : cases) {
        auto const filled = splitPanesFilling(panesOf(test.lengths), test.view, test.thickness);
        EXPECT_EQ(shownLengths(filled), test.expected) << test.view;
    }
}

TEST(SplitLayout, ACollapsedPaneKeepsItsLength)
{
    auto const filled = splitPanesFilling(panesOf({ 100, -60 }), 209, 9);
    EXPECT_EQ(filled[1], (SplitPane { 60, true }));
    EXPECT_EQ(filled[0].length, 200);
}

TEST(SplitLayout, NothingIsLostToRounding)
{
    for (int view = 20; view < 400; ++view) {
        auto const filled = splitPanesFilling(panesOf({ 17, 5, 41, 3, 23 }), static_cast<float>(view), 3);
        auto const lengths = shownLengths(filled);
        EXPECT_EQ(std::accumulate(lengths.begin(), lengths.end(), 0.F), static_cast<float>(view - 12));
        for (float const length : lengths)
            EXPECT_EQ(length, std::floor(length));
    }
}

TEST(SplitLayout, PanesBeginBehindTheDividers)
{
    EXPECT_EQ(splitPaneStarts(panesOf({ 10, 20, 30 }), 5), (Lengths { 0, 15, 40 }));
    EXPECT_EQ(splitPaneStarts(panesOf({ 10, -20, 30 }), 5), (Lengths { 0, 15, 20 }));
}

// MARK: dragging

TEST(SplitLayout, ADividerReachesAsFarAsItsNeighbours)
{
    auto const panes = panesOf({ 10, 20, 30 });
    EXPECT_EQ(splitRange(panes, 0, 5), (SplitRange { 0, 30 }));
    EXPECT_EQ(splitRange(panes, 1, 5), (SplitRange { 15, 65 }));
}

struct DragCase {
    float position;
    SplitRange allowed;
    bool collapsesBefore;
    bool collapsesBehind;
    Lengths expected;
};

TEST(SplitLayout, DragsStayWithinWhatIsAllowed)
{
    // Three panes of 100 points, dividers of 10; the first divider may go from 0 to 200.
    DragCase const cases[] {
        { 60, { 0, 200 }, false, false, { 60, 140, 100 } },
        { 60.4F, { 0, 200 }, false, false, { 60, 140, 100 } },
        { -50, { 0, 200 }, false, false, { 0, 200, 100 } },
        { 500, { 0, 200 }, false, false, { 200, 0, 100 } },
        { 20, { 50, 150 }, false, false, { 50, 150, 100 } },
        { 190, { 50, 150 }, false, false, { 150, 50, 100 } },
        { 26, { 50, 150 }, true, true, { 50, 150, 100 } },
        { 25, { 50, 150 }, true, true, { 0, 200, 100 } },
        { 25, { 50, 150 }, false, true, { 50, 150, 100 } },
        { 174, { 50, 150 }, true, true, { 150, 50, 100 } },
        { 175, { 50, 150 }, true, true, { 200, 0, 100 } },
        { 175, { 50, 150 }, true, false, { 150, 50, 100 } },
        { 0, { 0, 200 }, true, false, { 0, 200, 100 } },
        // What makes no sense allows nothing beyond the neighbours.
        { 60, { 150, 50 }, false, false, { 150, 50, 100 } },
        { 60, { -500, 900 }, false, false, { 60, 140, 100 } },
        { NAN, { 50, 150 }, false, false, { 50, 150, 100 } },
    };
    for (auto const& test : cases) {
        auto const dragged = splitPanesDragged(
            panesOf({ 100, 100, 100 }), 0, test.position, 10, { test.allowed, test.collapsesBefore, test.collapsesBehind });
        EXPECT_EQ(shownLengths(dragged), test.expected) << test.position << " in " << test.allowed.lowest;
    }
}

TEST(SplitLayout, ACollapsedPaneComesBackOnTheWay)
{
    SplitLimits const limits { { 50, 150 }, true, false };
    auto panes = splitPanesDragged(panesOf({ 100, 100 }), 0, 10, 10, limits);
    EXPECT_TRUE(panes[0].isCollapsed);
    EXPECT_EQ(panes[0].length, 100);
    panes = splitPanesDragged(panes, 0, 80, 10, limits);
    EXPECT_FALSE(panes[0].isCollapsed);
    EXPECT_EQ(shownLengths(panes), (Lengths { 80, 120 }));
}

// MARK: segments

TEST(SegmentLayout, FlexibleSegmentsShareWhatIsLeft)
{
    struct Case {
        std::vector<SegmentWidth> segments;
        float length;
        Lengths expected;
    };
    Case const cases[] {
        { { { 0, 20 }, { 0, 20 }, { 0, 20 } }, 90, { 30, 30, 30 } },
        { { { 0, 20 }, { 0, 20 }, { 0, 20 } }, 91, { 30, 30, 31 } },
        { { { 50, 0 }, { 0, 20 } }, 100, { 50, 50 } },
        { { { 50, 0 }, { 40, 0 } }, 100, { 50, 40 } },
        { { { 0, 60 }, { 0, 20 } }, 60, { 50, 10 } },
        { { { 0, 60 }, { 0, 5 } }, 20, { 20, 0 } },
        { { { 50, 0 }, { 40, 0 } }, 60, { 50, 10 } },
        { { { 0, 20.3F } }, 30, { 30 } },
        { { { 0, 20 }, { 0, 20 } }, 0, { 0, 0 } },
        { {}, 50, {} },
    };
    for (auto const& test : cases)
        EXPECT_EQ(segmentWidths(test.segments, test.length), test.expected) << test.length;
}

// MARK: combo boxes

TEST(ComboLayout, TheListGoesBelowUnlessThereIsMoreRoomAbove)
{
    struct Case {
        Rect field;
        ComboListShape shape;
        Rect expected;
    };
    Rect const screen { 0, 0, 1000, 800 };
    Case const cases[] {
        { { 100, 400, 160, 22 }, { 7, 5, 20 }, { 100, 298, 160, 102 } },
        { { 100, 400, 160, 22 }, { 3, 5, 20 }, { 100, 338, 160, 62 } },
        { { 100, 50, 160, 22 }, { 7, 5, 20 }, { 100, 72, 160, 102 } },
        { { 100, 400, 160, 22 }, { 1000, 1000, 20 }, { 100, 18, 160, 382 } },
        { { -50, 400, 160, 22 }, { 3, 5, 20 }, { 0, 338, 160, 62 } },
        { { 900, 400, 160, 22 }, { 3, 5, 20 }, { 840, 338, 160, 62 } },
        { { 100, 400, 160, 22 }, { 0, 0, 20 }, { 100, 378, 160, 22 } },
    };
    for (auto const& test : cases)
        EXPECT_EQ(comboListFrame(test.field, test.shape, screen), test.expected) << test.field.x;
}

TEST(ComboLayout, KeysMoveWithinTheItems)
{
    EXPECT_EQ(comboItemAfterStep(-1, 1, 5), 0);
    EXPECT_EQ(comboItemAfterStep(-1, -1, 5), 4);
    EXPECT_EQ(comboItemAfterStep(-1, 3, 5), 2);
    EXPECT_EQ(comboItemAfterStep(4, 1, 5), 4);
    EXPECT_EQ(comboItemAfterStep(0, -10, 5), 0);
    EXPECT_EQ(comboItemAfterStep(2, 1, 0), -1);
    EXPECT_EQ(comboButtonRect({ 10, 0, 100, 22 }, 20), (Rect { 90, 0, 20, 22 }));
    EXPECT_EQ(comboButtonRect({ 10, 0, 15, 22 }, 20), (Rect { 10, 0, 15, 22 }));
}

// MARK: images

TEST(ImageLayout, ScalesAndAligns)
{
    struct Case {
        Size image;
        NSImageScaling scaling;
        NSImageAlignment alignment;
        Rect expected;
    };
    Rect const area { 10, 20, 100, 60 };
    Case const cases[] {
        { { 20, 10 }, NSScaleProportionally, NSImageAlignCenter, { 50, 45, 20, 10 } },
        { { 200, 60 }, NSScaleProportionally, NSImageAlignCenter, { 10, 35, 100, 30 } },
        { { 60, 120 }, NSScaleProportionally, NSImageAlignLeft, { 10, 20, 30, 60 } },
        { { 20, 10 }, NSScaleToFit, NSImageAlignTopLeft, area },
        { { 200, 200 }, NSScaleNone, NSImageAlignTopLeft, { 10, 20, 200, 200 } },
        { { 200, 200 }, NSScaleNone, NSImageAlignBottomRight, { -90, -120, 200, 200 } },
        { { 20, 10 }, NSScaleNone, NSImageAlignTop, { 50, 20, 20, 10 } },
        { { 20, 10 }, NSScaleNone, NSImageAlignTopRight, { 90, 20, 20, 10 } },
        { { 20, 10 }, NSScaleNone, NSImageAlignBottom, { 50, 70, 20, 10 } },
        { { 20, 10 }, NSScaleNone, NSImageAlignBottomLeft, { 10, 70, 20, 10 } },
        { { 20, 10 }, NSScaleNone, NSImageAlignRight, { 90, 45, 20, 10 } },
        { { 0, 10 }, NSScaleToFit, NSImageAlignCenter, { 10, 20, 0, 0 } },
        { { 100000, 1 }, NSScaleProportionally, NSImageAlignCenter, { 10, 49, 100, 1 } },
    };
    for (auto const& test : cases)
        EXPECT_EQ(alignedImageRect(area, test.image, test.scaling, test.alignment), test.expected) << test.alignment;
}

// MARK: boxes

TEST(BoxLayout, PlacesBorderTitleAndContent)
{
    struct Case {
        NSTitlePosition position;
        Rect border;
        Rect title;
        Rect content;
    };
    Rect const bounds { 0, 0, 200, 100 };
    Case const cases[] {
        { NSNoTitle, bounds, {}, { 6, 6, 188, 88 } },
        { NSAboveTop, { 0, 0, 200, 84 }, { 8, 84, 50, 16 }, { 6, 6, 188, 72 } },
        { NSAtTop, { 0, 0, 200, 92 }, { 8, 84, 50, 16 }, { 6, 6, 188, 72 } },
        { NSBelowTop, bounds, { 8, 83, 50, 16 }, { 6, 6, 188, 72 } },
        { NSAboveBottom, bounds, { 8, 1, 50, 16 }, { 6, 22, 188, 72 } },
        { NSAtBottom, { 0, 8, 200, 92 }, { 8, 0, 50, 16 }, { 6, 22, 188, 72 } },
        { NSBelowBottom, { 0, 16, 200, 84 }, { 8, 0, 50, 16 }, { 6, 22, 188, 72 } },
    };
    for (auto const& test : cases) {
        BoxShape const shape { test.position, { 50, 16 }, 1, { 5, 5 } };
        auto const layout = boxLayout(bounds, shape);
        EXPECT_EQ(layout.border, test.border) << test.position;
        EXPECT_EQ(layout.title, test.title) << test.position;
        EXPECT_EQ(layout.content, test.content) << test.position;
        EXPECT_EQ(boxSizeAround(layout.content.size(), shape), bounds.size()) << test.position;
    }
}

TEST(BoxLayout, HasNoSizeBelowZero)
{
    auto const layout = boxLayout({ 0, 0, 6, 4 }, { NSAtTop, { 50, 16 }, 1, { 5, 5 } });
    EXPECT_EQ(layout.content.size(), (Size { 0, 0 }));
    EXPECT_EQ(layout.border.height, 0);
    EXPECT_EQ(layout.title.width, 0);
}

// MARK: progress

TEST(ProgressLayout, SaysHowMuchIsDone)
{
    EXPECT_EQ(progressFraction(50, 0, 100), 0.5);
    EXPECT_EQ(progressFraction(-3, 0, 100), 0);
    EXPECT_EQ(progressFraction(300, 0, 100), 1);
    EXPECT_EQ(progressFraction(15, 10, 20), 0.5);
    EXPECT_EQ(progressFraction(5, 5, 5), 0);
    EXPECT_EQ(progressFraction(5, 9, 2), 0);
    EXPECT_EQ(progressFraction(NAN, 0, 100), 0);
    Rect const bar { 1, 1, 100, 10 };
    EXPECT_EQ(progressDoneRect(bar, 0).width, 0);
    EXPECT_EQ(progressDoneRect(bar, 0.0001).width, 1);
    EXPECT_EQ(progressDoneRect(bar, 0.509).width, 50);
    EXPECT_EQ(progressDoneRect(bar, 1), bar);
}

TEST(ProgressLayout, TheMovingPartGoesThereAndBack)
{
    Rect const bar { 10, 0, 90, 8 };
    EXPECT_EQ(progressMovingRect(bar, 0), (Rect { 10, 0, 30, 8 }));
    EXPECT_EQ(progressMovingRect(bar, 1), (Rect { 70, 0, 30, 8 }));
    EXPECT_EQ(progressMovingRect(bar, 2), (Rect { 10, 0, 30, 8 }));
    EXPECT_EQ(progressMovingRect(bar, 0.5), (Rect { 40, 0, 30, 8 }));
    for (int i = 0; i < 200; ++i) {
        auto const part = progressMovingRect(bar, i * 0.037);
        EXPECT_GE(part.x, bar.x);
        EXPECT_LE(part.maxX(), bar.maxX());
    }
}

TEST(ProgressLayout, TheWheelsHeadIsItsStrongestSpoke)
{
    for (int tick = 0; tick < 24; ++tick) {
        double const seconds = (tick + 0.5) / 12;
        int strongest = 0;
        for (int spoke = 1; spoke < progressSpokes; ++spoke) {
            if (progressSpokeStrength(spoke, seconds) > progressSpokeStrength(strongest, seconds))
                strongest = spoke;
        }
        EXPECT_EQ(strongest, tick % 12);
        EXPECT_EQ(progressSpokeStrength(strongest, seconds), 1);
    }
}

}
}
