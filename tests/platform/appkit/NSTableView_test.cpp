#include <tests/support/TableTest.h>

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>

namespace plix {
namespace {

using Tables = TableTest;
using Indexes = std::vector<long>;

TEST_F(Tables, ShowsRowsBelowItsHeader)
{
    EXPECT_EQ(table->numberOfRows(), 5);
    EXPECT_EQ(table->rectOfRow(1), (Rect { 0, 18, 400, 18 }));
    EXPECT_EQ(table->frameOfCellAtColumn(1, 2), (Rect { 104, 37, 100, 16 }));
    EXPECT_EQ(scrollView->contentView()->frame(), (Rect { 0, 22, 400, 200 }));
    EXPECT_EQ(table->headerView()->frame().size(), (Size { 400, 22 }));
}

TEST_F(Tables, AClickSelectsARow)
{
    clickRow(2);
    EXPECT_EQ(selected(), (Indexes { 2 }));
    EXPECT_EQ(table->clickedRow(), 2);
}

}
}
