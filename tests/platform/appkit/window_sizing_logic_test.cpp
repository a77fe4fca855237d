#include <plix/platform/appkit/window_sizing.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(WindowSizing, FollowsTheAspectRatioOrTheIncrements)
{
    struct Row {
        Size proposed;
        Size aspectRatio;
        Size increments;
        Size expected;
    };
    constexpr Size now { 200, 100 };
    constexpr Row rows[] = {
        { { 333, 77 }, {}, { 1, 1 }, { 333, 77 } },
        { { 333, 77 }, { 2, 1 }, { 1, 1 }, { 333, 167 } },
        { { 333, 77 }, { 2, 1 }, { 50, 50 }, { 333, 167 } },
        { { 257, 133 }, {}, { 10, 20 }, { 250, 120 } },
        { { 143, 61 }, {}, { 10, 20 }, { 150, 80 } },
        { { 257, 133 }, { 0, 1 }, {}, { 257, 133 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(resizedWindowSize(row.proposed, now, row.aspectRatio, row.increments), row.expected) << row.proposed.width;
}

}
}
