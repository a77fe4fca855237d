#include <plix/platform/appkit/row_selection.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

constexpr RowSelectionRules many { true, true };
constexpr RowSelectionRules one { false, true };
constexpr RowSelectionRules manyNeverNone { true, false };

RowSelection picked(std::initializer_list<long> rows, long anchor, long lead)
{
    return { NSIndexSet(rows), anchor, lead };
}

struct Change {
    char const* what;
    RowSelection before;
    long row;
    SelectionChange change;
    RowSelectionRules rules;
    RowSelection after;
};

TEST(RowSelection, FollowsClicks)
{
    using enum SelectionChange;
    Change const changes[] = {
        { "a click chooses one row", picked({ 1, 2 }, 1, 2), 5, replace, many, picked({ 5 }, 5, 5) },
        { "a shift click goes from the anchor", picked({ 2 }, 2, 2), 5, extend, many, picked({ 2, 3, 4, 5 }, 2, 5) },
        { "upwards too", picked({ 5 }, 5, 5), 3, extend, many, picked({ 3, 4, 5 }, 5, 3) },
        { "another shift click takes the first range back", picked({ 2, 3, 4, 5 }, 2, 5), 1, extend, many, picked({ 1, 2 }, 2, 1) },
        { "rows beside the range stay", picked({ 0, 4, 5 }, 4, 5), 6, extend, many, picked({ 0, 4, 5, 6 }, 4, 6) },
        { "without an anchor shift chooses one", {}, 3, extend, many, picked({ 3 }, 3, 3) },
        { "a control click adds", picked({ 1 }, 1, 1), 4, toggle, many, picked({ 1, 4 }, 4, 4) },
        { "and takes away", picked({ 1, 4 }, 4, 4), 1, toggle, many, picked({ 4 }, 1, 1) },
        { "also the last", picked({ 4 }, 4, 4), 4, toggle, many, picked({}, 4, 4) },
        { "unless one must be", picked({ 4 }, 4, 4), 4, toggle, manyNeverNone, picked({ 4 }, 4, 4) },
        { "with one row only, shift replaces", picked({ 1 }, 1, 1), 4, extend, one, picked({ 4 }, 4, 4) },
        { "and control replaces", picked({ 1 }, 1, 1), 4, toggle, one, picked({ 4 }, 4, 4) },
        { "or empties", picked({ 1 }, 1, 1), 1, toggle, one, picked({}, 1, 1) },
    };
    for (auto const& each : changes)
        EXPECT_EQ(selectionAfterChange(each.before, each.row, each.change, each.rules), each.after) << each.what;
}

TEST(RowSelection, TheKeyboardMovesWithinTheRows)
{
    EXPECT_EQ(rowAfterMove({}, 1, 10), 0);
    EXPECT_EQ(rowAfterMove({}, -1, 10), 9);
    EXPECT_EQ(rowAfterMove({}, 1, 0), std::nullopt);
    EXPECT_EQ(rowAfterMove(picked({ 3 }, 3, 3), 1, 10), 4);
    EXPECT_EQ(rowAfterMove(picked({ 3 }, 3, 3), -5, 10), 0);
    EXPECT_EQ(rowAfterMove(picked({ 3 }, 3, 3), 100, 10), 9);
    EXPECT_EQ(rowAfterMove(picked({ 30 }, 30, 30), -1, 10), 8);
    EXPECT_EQ(rowAfterMove(picked({ 3 }, 3, 3), std::numeric_limits<long>::max(), 10), 9);
}

TEST(RowSelection, RowsThatAreGoneAreNotSelected)
{
    EXPECT_EQ(selectionWithinRows(picked({ 1, 5, 6 }, 5, 6), 6), picked({ 1, 5 }, 5, 5));
    EXPECT_EQ(selectionWithinRows(picked({ 5, 6 }, 5, 6), 2), picked({}, -1, -1));
    EXPECT_EQ(selectionWithinRows(picked({ 1 }, 1, 1), 6), picked({ 1 }, 1, 1));
}

}
}
