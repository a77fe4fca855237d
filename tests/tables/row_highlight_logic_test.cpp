#include <plix/tables/row_highlight.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(RowHighlight, KeepsHalfAPointFromEachSideAndEndsOnePointEarlier)
{
    Rect const row { 0, 34, 200, 17 };
    Rect const inset { 0.5F, 34.5F, 199, 15 };
    EXPECT_EQ(rowHighlight(row, PLIXHighlightRectangle, HighlightImage::none, 0), (RowHighlight { inset, std::nullopt }));
    EXPECT_EQ(rowHighlight(row, PLIXHighlightCapsule, HighlightImage::none, 0), (RowHighlight { inset, 7.5F }));
    EXPECT_EQ(rowHighlight(row, PLIXHighlightRounded, HighlightImage::none, 0), (RowHighlight { inset, 0.2F * 15 }));
    EXPECT_EQ(rowHighlight(row, 3, HighlightImage::none, 0), (RowHighlight { inset, std::nullopt }));
}

TEST(RowHighlight, ACustomImageFillsTheWholeRowButFollowsTheIndentation)
{
    Rect const row { 0, 34, 200, 17 };
    EXPECT_EQ(rowHighlight(row, PLIXHighlightCapsule, HighlightImage::custom, 0), (RowHighlight { row, 8.5F }));
    EXPECT_EQ(rowHighlight(row, PLIXHighlightRectangle, HighlightImage::custom, 30),
        (RowHighlight { { 30, 34, 170, 17 }, std::nullopt }));
}

TEST(RowHighlight, IndentationSkipsATriangleForLeavesBelowTheTop)
{
    EXPECT_EQ(highlightIndentation(0, 14, RowItem::leaf), 0);
    EXPECT_EQ(highlightIndentation(0, 14, RowItem::expandable), 0);
    EXPECT_EQ(highlightIndentation(2, 14, RowItem::expandable), 28);
    EXPECT_EQ(highlightIndentation(2, 14, RowItem::leaf), 44);
    EXPECT_EQ(highlightIndentation(3, 12.5F, RowItem::expandable), 37);
}

TEST(DropHighlight, IsInsetUnlessThereIsACustomImage)
{
    EXPECT_EQ(dropHighlightRect({ 0, 17, 100, 17 }, HighlightImage::none), (Rect { 1, 18, 98, 14 }));
    EXPECT_EQ(dropHighlightRect({ 0, 17, 100, 17 }, HighlightImage::custom), (Rect { 0, 17, 100, 17 }));
}

TEST(InsertionMarker, StandsAboveBetweenAndBelowRows)
{
    struct Row {
        char const* name;
        InsertionPlace place;
        float offset;
        InsertionMarker expected;
    };
    Rect const bounds { 0, 0, 100, 80 };
    Rect const upper { 0, 0, 100, 17 };
    Rect const lower { 0, 17, 100, 17 };
    for (auto const& row : {
             Row { "above the first", { -1, 0, 4, {}, upper, bounds }, 0, { { 1, 1 }, { 99, 1 }, { -5, -2, 6, 6 } } },
             Row { "between", { 0, 1, 4, upper, lower, bounds }, 20, { { 21, 17 }, { 99, 17 }, { 15, 14, 6, 6 } } },
             Row { "between rows apart", { 0, 3, 4, upper, lower, bounds }, 0, { { 1, 17 }, { 99, 17 }, { -5, 14, 6, 6 } } },
             Row { "after the last", { 3, 4, 4, lower, {}, bounds }, 0, { { 1, 33 }, { 99, 33 }, { -5, 30, 6, 6 } } },
             Row { "after the last of an empty table", { -1, 0, 0, {}, {}, bounds }, 0, { { 1, 1 }, { 99, 1 }, { -5, -2, 6, 6 } } },
             Row { "rows in the wrong order", { 2, 1, 4, upper, lower, bounds }, 5, { { 5, 0 }, { 0, 0 }, { -1, -3, 6, 6 } } },
             Row { "beyond the end", { 4, 5, 4, upper, lower, bounds }, 0, { { 0, 0 }, { 0, 0 }, { -6, -3, 6, 6 } } },
         })
        EXPECT_EQ(insertionMarker(row.place, row.offset), row.expected) << row.name;
}

TEST(TextRoom, MakesRoomForRoundedEndsOnly)
{
    Rect const cell { 10, 0, 100, 18 };
    EXPECT_EQ(textRoom(cell, PLIXHighlightRectangle, ColumnPlace::only, FirstColumn::plain), cell);
    EXPECT_EQ(textRoom(cell, 9, ColumnPlace::only, FirstColumn::plain), cell);
    EXPECT_EQ(textRoom(cell, PLIXHighlightCapsule, ColumnPlace::first, FirstColumn::plain), (Rect { 14, 0, 96, 18 }));
    EXPECT_EQ(textRoom(cell, PLIXHighlightRounded, ColumnPlace::last, FirstColumn::plain), (Rect { 10, 0, 96, 18 }));
    EXPECT_EQ(textRoom(cell, PLIXHighlightCapsule, ColumnPlace::only, FirstColumn::plain), (Rect { 14, 0, 92, 18 }));
    EXPECT_EQ(textRoom(cell, PLIXHighlightCapsule, ColumnPlace::middle, FirstColumn::plain), cell);
    EXPECT_EQ(textRoom(cell, PLIXHighlightCapsule, ColumnPlace::first, FirstColumn::indented), cell);
    EXPECT_EQ(textRoom(cell, PLIXHighlightCapsule, ColumnPlace::only, FirstColumn::indented), (Rect { 10, 0, 96, 18 }));
}

TEST(ColumnPlaces, AreByIndexAndCount)
{
    EXPECT_EQ(columnPlace(0, 1), ColumnPlace::only);
    EXPECT_EQ(columnPlace(0, 3), ColumnPlace::first);
    EXPECT_EQ(columnPlace(1, 3), ColumnPlace::middle);
    EXPECT_EQ(columnPlace(2, 3), ColumnPlace::last);
}

TEST(EmptyMessage, IsCentredAndNotShownWhereItDoesNotFit)
{
    Rect const frame { 0, 0, 200, 100 };
    EXPECT_EQ(emptyMessageWidth(frame), 180);
    EXPECT_EQ(emptyMessageRect(frame, { 0, 50, 200, 100 }, 20), (Rect { 10, 90, 180, 20 }));
    EXPECT_TRUE(emptyMessageRect(frame, frame, 100));
    EXPECT_FALSE(emptyMessageRect(frame, frame, 100.5F));
}

}
}
