#include <plix/platform/appkit/view_geometry.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr unsigned minX = NSViewMinXMargin;
constexpr unsigned width = NSViewWidthSizable;
constexpr unsigned maxX = NSViewMaxXMargin;
constexpr unsigned minY = NSViewMinYMargin;
constexpr unsigned height = NSViewHeightSizable;
constexpr unsigned maxY = NSViewMaxYMargin;

TEST(ViewGeometry, AutoresizingSharesTheChangeEvenlyAmongWhatGivesWay)
{
    struct Row {
        unsigned mask;
        Size newSize;
        Rect expected;
    };
    constexpr Rect frame { 10, 20, 30, 40 };
    constexpr Size oldSize { 100, 100 };
    constexpr Row rows[] = {
        { NSViewNotSizable, { 200, 300 }, { 10, 20, 30, 40 } },
        { maxX | maxY, { 112, 106 }, { 10, 20, 30, 40 } },
        { minX | minY, { 112, 106 }, { 22, 26, 30, 40 } },
        { width | height, { 112, 106 }, { 10, 20, 42, 46 } },
        { width | maxX, { 110, 100 }, { 10, 20, 35, 40 } },
        { minX | width, { 112, 106 }, { 16, 20, 36, 40 } },
        { minX | maxX, { 112, 106 }, { 16, 20, 30, 40 } },
        { minX | width | maxX, { 112, 106 }, { 14, 20, 34, 40 } },
        { minY | height | maxY, { 112, 106 }, { 10, 22, 30, 42 } },
        { minX | maxY, { 150, 150 }, { 60, 20, 30, 40 } },
        { width | height, { 80, 90 }, { 10, 20, 10, 30 } },
        { width, { 40, 100 }, { 10, 20, 0, 40 } },
        { width | maxX, { 20, 100 }, { 10, 20, 0, 40 } },
        { minX | width, { 20, 100 }, { -40, 20, 0, 40 } },
        { width | height, { 100, 100 }, frame },
    };
    for (auto const& row : rows)
        EXPECT_EQ(resizedFrame(frame, oldSize, row.newSize, row.mask), row.expected) << row.mask << " to " << row.newSize.width;
}

TEST(ViewGeometry, ThereAndBackAgainIsTheSameFrame)
{
    constexpr Rect frame { 10, 20, 30, 40 };
    for (unsigned mask = 0; mask < 64; ++mask) {
        auto const there = resizedFrame(frame, { 100, 100 }, { 112, 106 }, mask);
        EXPECT_EQ(resizedFrame(there, { 112, 106 }, { 100, 100 }, mask), frame) << mask;
    }
}

TEST(ViewGeometry, EnclosingFrameFollowsTheUnionOfTheSubviews)
{
    struct Row {
        std::vector<Rect> frames;
        Rect frame;
        Point boundsOrigin;
        Rect expected;
    };
    Row const rows[] = {
        { { { 10, 10, 20, 20 }, { 40, 5, 10, 10 } }, { 0, 0, 100, 100 }, {}, { 10, 5, 40, 25 } },
        { { { 5, 5, 10, 10 } }, { 100, 200, 7, 7 }, {}, { 105, 205, 10, 10 } },
        { { { 5, 5, 10, 10 } }, { 100, 200, 7, 7 }, { 5, 5 }, { 100, 200, 10, 10 } },
        { { { 10, 10, 5, 5 }, { 0, 0, 0, 0 } }, {}, {}, { 0, 0, 15, 15 } },
        { { { -10, -10, 5, 5 }, { 10, 10, 0, 0 } }, {}, {}, { -10, -10, 20, 20 } },
        { { { 0, 0, 50, 50 }, { 10, 10, 5, 5 } }, {}, {}, { 0, 0, 50, 50 } },
    };
    for (auto const& row : rows) {
        EXPECT_EQ(
            frameEnclosing(row.frames.data(), static_cast<long>(row.frames.size()), row.frame, row.boundsOrigin), row.expected);
    }
}

TEST(ViewGeometry, PlacementsMapBoundsToTheSuperview)
{
    struct Row {
        ViewPlacement placement;
        Point from;
        Point to;
    };
    constexpr Rect frame { 10, 20, 100, 50 };
    constexpr Rect bounds { 0, 0, 100, 50 };
    constexpr Row rows[] = {
        { { frame, bounds, 0, false, false }, { 1, 2 }, { 11, 22 } },
        { { frame, bounds, 0, true, true }, { 1, 2 }, { 11, 22 } },
        { { frame, bounds, 0, true, false }, { 1, 2 }, { 11, 68 } },
        { { frame, bounds, 0, false, true }, { 1, 2 }, { 11, 68 } },
        { { frame, { 30, 40, 100, 50 }, 0, false, false }, { 31, 42 }, { 11, 22 } },
        { { frame, { 30, 40, 100, 50 }, 0, true, false }, { 31, 42 }, { 11, 68 } },
        { { frame, { 0, 0, 50, 10 }, 0, false, false }, { 1, 2 }, { 12, 30 } },
        { { frame, { 0, 0, 50, 10 }, 0, true, false }, { 1, 2 }, { 12, 60 } },
        { { frame, bounds, 90, false, false }, { 1, 2 }, { 8, 21 } },
        { { frame, { 0, 0, 0, 0 }, 0, false, false }, { 1, 2 }, { 11, 22 } },
    };
    for (auto const& row : rows) {
        auto const mapped = transformToSuperview(row.placement).apply(row.from);
        EXPECT_NEAR(mapped.x, row.to.x, 1e-4);
        EXPECT_NEAR(mapped.y, row.to.y, 1e-4);
    }
}

}
}
