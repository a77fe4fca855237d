#include <plix/platform/appkit/column_layout.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

using Widths = std::vector<float>;

struct Fit {
    char const* what;
    std::vector<ColumnMeasure> columns;
    float room;
    NSTableViewColumnAutoresizingStyle style;
    Widths widths;
};

TEST(ColumnLayout, GivesRoomToTheColumnsThatTheStyleNames)
{
    std::vector<ColumnMeasure> const three { { 100, 10, 1000 }, { 100, 10, 1000 }, { 100, 10, 1000 } };
    std::vector<ColumnMeasure> const limited { { 100, 90, 110 }, { 100, 90, 110 }, { 100, 90, 1000 } };
    std::vector<ColumnMeasure> const fixed { { 100, 10, 1000 }, { 100, 10, 1000, false }, { 100, 10, 1000 } };
    Fit const fits[] = {
        { "nobody", three, 400, NSTableViewNoColumnAutoresizing, { 100, 100, 100 } },
        { "all the same", three, 360, NSTableViewUniformColumnAutoresizingStyle, { 120, 120, 120 } },
        { "the first ones the rest", three, 302, NSTableViewUniformColumnAutoresizingStyle, { 101, 101, 100 } },
        { "less", three, 240, NSTableViewUniformColumnAutoresizingStyle, { 80, 80, 80 } },
        { "not beyond what they may", limited, 400, NSTableViewUniformColumnAutoresizingStyle, { 110, 110, 180 } },
        { "not below it", limited, 100, NSTableViewUniformColumnAutoresizingStyle, { 90, 90, 90 } },
        { "not those that may not", fixed, 400, NSTableViewUniformColumnAutoresizingStyle, { 150, 100, 150 } },
        { "the last", three, 350, NSTableViewLastColumnOnlyAutoresizingStyle, { 100, 100, 150 } },
        { "the last until it is narrowest", three, 100, NSTableViewLastColumnOnlyAutoresizingStyle, { 100, 100, 10 } },
        { "the first", three, 350, NSTableViewFirstColumnOnlyAutoresizingStyle, { 150, 100, 100 } },
        { "from the last on", limited, 285, NSTableViewSequentialColumnAutoresizingStyle, { 100, 95, 90 } },
        { "from the first on", limited, 330, NSTableViewReverseSequentialColumnAutoresizingStyle, { 110, 110, 110 } },
        { "nothing to give", three, 300, NSTableViewUniformColumnAutoresizingStyle, { 100, 100, 100 } },
        { "no columns", {}, 300, NSTableViewUniformColumnAutoresizingStyle, {} },
        { "no number", three, std::numeric_limits<float>::quiet_NaN(), NSTableViewUniformColumnAutoresizingStyle,
            { 100, 100, 100 } },
    };
    for (auto const& fit : fits)
        EXPECT_EQ(columnWidthsFittingRoom(fit.columns, fit.room, fit.style), fit.widths) << fit.what;
}

TEST(ColumnLayout, ADraggedColumnTakesThePlaceWhereItsMiddleIs)
{
    std::vector<float> const edges { 0, 100, 200, 300 };
    struct Case {
        long column;
        float center;
        long place;
    };
    for (auto const& row : { Case { 0, 50, 0 }, Case { 0, 149, 0 }, Case { 0, 151, 1 }, Case { 0, 251, 2 }, Case { 0, 900, 2 },
             Case { 2, 249, 2 }, Case { 2, 149, 1 }, Case { 2, 49, 0 }, Case { 2, -400, 0 }, Case { 1, 150, 1 } })
        EXPECT_EQ(columnPlaceForDrag(edges, row.column, row.center), row.place) << row.column << " at " << row.center;
}

}
}
