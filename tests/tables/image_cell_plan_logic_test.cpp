#include <plix/tables/image_cell_plan.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(ImageCellPlan, TheBoxStandsTwoPointsInAndInTheMiddleRoundedUp)
{
    struct Row {
        Rect cell;
        Size box;
        Rect expected;
    };
    for (auto const& row : {
             Row { { 0, 0, 100, 20 }, { 16, 16 }, { 2, 2, 16, 16 } },
             Row { { 10, 40, 100, 17 }, { 16, 16 }, { 12, 41, 16, 16 } },
             Row { { 0, 0, 100, 19 }, { 16, 16 }, { 2, 2, 16, 16 } },
             Row { { 5, 5, 100, 16 }, { 16, 16 }, { 7, 5, 16, 16 } },
             Row { { 0, 0, 100, 15 }, { 16, 16 }, { 2, 0, 16, 16 } },
             Row { { 0, 0, 100, 13 }, { 16, 16 }, { 2, -1, 16, 16 } },
             Row { { 0, 10, 100, 10 }, { 4, 32 }, { 2, -1, 4, 32 } },
         })
        EXPECT_EQ(imageBoxInCell(row.cell, row.box), row.expected) << row.cell.height << " " << row.box.height;
}

TEST(ImageCellPlan, TheTextStandsTwoPointsBehindTheBoxWidthAndTheEditorThreeBehindTheImages)
{
    EXPECT_EQ(textBesideImageBox({ 10, 5, 100, 20 }, { 16, 16 }), (Rect { 28, 5, 82, 20 }));
    EXPECT_EQ(textBesideImageBox({ 10, 5, 12, 20 }, { 16, 16 }), (Rect { 22, 5, 0, 20 }));
    EXPECT_EQ(editorBesideImage({ 10, 5, 100, 20 }, 32), (Rect { 45, 5, 65, 20 }));
    EXPECT_EQ(editorBesideImage({ 10, 5, 100, 20 }, 0), (Rect { 13, 5, 97, 20 }));
}

TEST(ImageCellPlan, TheCellIsWiderByTheImagesOwnWidthAndFour)
{
    EXPECT_EQ(cellSizeWithImage({ 50, 17 }, 32), (Size { 86, 17 }));
    EXPECT_EQ(cellSizeWithImage({ 50, 17 }, 0), (Size { 54, 17 }));
}

TEST(ImageCellPlan, ScalesAsItsNumberSays)
{
    struct Row {
        char const* name;
        Size image;
        Rect box;
        int scaling;
        CellImagePlacement expected;
    };
    for (auto const& row : {
             Row { "down in proportion", { 32, 32 }, { 2, 2, 16, 16 }, 0, { { 0, 0, 32, 32 }, { 2, 2, 16, 16 } } },
             Row { "a wide one", { 32, 16 }, { 2, 2, 16, 16 }, 0, { { 0, 0, 32, 16 }, { 2, 6, 16, 8 } } },
             Row { "a high one", { 16, 32 }, { 2, 2, 16, 16 }, 0, { { 0, 0, 16, 32 }, { 6, 2, 8, 16 } } },
             Row { "up in proportion", { 8, 8 }, { 2, 2, 16, 16 }, 0, { { 0, 0, 8, 8 }, { 2, 2, 16, 16 } } },
             Row { "on whole points, halves to even", { 32, 30 }, { 2, 2, 16, 16 }, 0, { { 0, 0, 32, 30 }, { 2, 2, 16, 15 } } },
             Row { "other numbers are in proportion", { 32, 16 }, { 2, 2, 16, 16 }, 3, { { 0, 0, 32, 16 }, { 2, 6, 16, 8 } } },
             Row { "and negative ones", { 32, 16 }, { 2, 2, 16, 16 }, -1, { { 0, 0, 32, 16 }, { 2, 6, 16, 8 } } },
             Row { "to fit", { 32, 16 }, { 2, 2, 16, 16 }, 1, { { 0, 0, 32, 16 }, { 2, 2, 16, 16 } } },
             Row { "to fit a box between points", { 32, 16 }, { 2.25F, 2.75F, 16, 16 }, 1, { { 0, 0, 32, 16 }, { 2, 3, 16, 16 } } },
             Row { "the middle of a larger one", { 32, 24 }, { 2, 2, 16, 16 }, 2, { { 8, 4, 16, 16 }, { 2, 2, 16, 16 } } },
             Row { "more than a smaller one", { 8, 8 }, { 2, 2, 16, 16 }, 2, { { -4, -4, 16, 16 }, { 2, 2, 16, 16 } } },
         })
        EXPECT_EQ(cellImagePlacement(row.image, row.box, row.scaling), row.expected) << row.name;
}

}
}
