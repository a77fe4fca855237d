#include <plix/tables/disclosure_plan.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(DisclosureOrigin, IsLeftOfTheCellAndInItsMiddleOnWholePoints)
{
    struct Row {
        Rect cell;
        Size image;
        Point expected;
    };
    for (auto const& row : {
             Row { { 20, 40, 100, 18 }, { 10, 10 }, { 10, 44 } },
             Row { { 20, 40, 100, 17 }, { 10, 10 }, { 10, 43 } },
             Row { { 20.75F, 40, 100, 18 }, { 10.5F, 10 }, { 10, 44 } },
             Row { { 20, 40.5F, 100, 18 }, { 10, 9 }, { 10, 44.5F } },
             Row { { 5, 0, 100, 18 }, { 10.5F, 8 }, { -5, 5 } },
             Row { { 20, 0, 100, 9 }, { 10, 12 }, { 10, -1 } },
         })
        EXPECT_EQ(disclosureOrigin(row.cell, row.image), row.expected) << row.cell.x << " " << row.cell.height;
}

}
}
