#include <tests/support/TableTest.h>

#include <plix/platform/graphics/NSImage.h>

namespace plix {
namespace {

using Indexes = std::vector<long>;
using Place = std::pair<long, NSTableViewDropOperation>;

/// Notes which of its operations a drag calls.
class DraggedTable : public NSTableView {
public:
    Ref<NSImage> dragImageForRowsWithIndexes(
        NSIndexSet const& rows, std::vector<Ref<NSTableColumn>> const& columns, NSEvent& event, Point& offset) override
    {
        auto const image = NSTableView::dragImageForRowsWithIndexes(rows, columns, event, offset);
        imageSize = image ? image->size() : Size {};
        imageOffset = offset;
        return image;
    }
    void draggedImageBeganAt(NSImage*, Point) override { ++began; }
    void draggedImage(NSImage*, Point, unsigned operation) override { ended = operation; }
    void _drawDropHighlightOnRow(long row) override { highlighted.push_back(row); }
    void _drawDropHighlightBetweenUpperRow(long upper, long lower, float) override { between = { upper, lower }; }

    Size imageSize;
    Point imageOffset;
    int began { 0 };
    unsigned ended { 99 };
    Indexes highlighted;
    std::pair<long, long> between { -9, -9 };
};

class TableDragging : public TableTest {
protected:
    Ref<NSTableView> makeTable() override
    {
        dragged = make<DraggedTable>(Rect { 0, 0, 380, 200 });
        return dragged;
    }
    void SetUp() override
    {
        TableTest::SetUp();
        rows = make<DraggableRows>();
        rows->rows = data->rows;
        table->setDataSource(rows);
        table->setAllowsMultipleSelection(true);
        table->registerForDraggedTypes({ NSStringPboardType });
    }
    Ref<DraggedTable> dragged;
    Ref<DraggableRows> rows;
};

TEST_F(TableDragging, ASelectedRowIsDraggedAndDropped)
{
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(rows->dragged, (Indexes { 1 }));
    EXPECT_EQ(rows->dropped, (Place { 3, NSTableViewDropOn }));
    EXPECT_EQ(dragged->began, 1);
    EXPECT_EQ(dragged->ended, NSDragOperationMove);
    EXPECT_EQ(dragged->imageSize, (Size { 400, 18 }));
    EXPECT_EQ(table->selectedRow(), 1);
}

TEST_F(TableDragging, AllSelectedRowsGoTogether)
{
    table->selectRowIndexes({ 0, 2 }, false);
    drag(*table, rowPoint(2), rowPoint(4));
    EXPECT_EQ(rows->dragged, (Indexes { 0, 2 }));
    EXPECT_EQ(dragged->imageSize, (Size { 400, 54 }));
    EXPECT_EQ(dragged->imageOffset, (Point { 160, -18 }));
    EXPECT_EQ(table->selectedRowIndexes().indexes(), (Indexes { 0, 2 }));
}

struct DropCase {
    char const* name;
    float y;
    Place place;
};

class TableDrops : public TableDragging, public testing::WithParamInterface<DropCase> { };

TEST_P(TableDrops, GoWhereThePointerIs)
{
    drag(*table, rowPoint(1), { 40, GetParam().y });
    EXPECT_EQ(rows->dropped, GetParam().place);
}

INSTANTIATE_TEST_SUITE_P(Places, TableDrops,
    testing::Values(DropCase { "aboveTheFirst", 1, { 0, NSTableViewDropAbove } },
        DropCase { "onTheFirst", 9, { 0, NSTableViewDropOn } }, DropCase { "betweenFromAbove", 70, { 4, NSTableViewDropAbove } },
        DropCase { "betweenFromBelow", 74, { 4, NSTableViewDropAbove } },
        DropCase { "belowTheLast", 120, { 5, NSTableViewDropAbove } }),
    [](auto const& tested) { return tested.param.name; });

TEST_F(TableDragging, TheDataSourceChoosesAnotherPlace)
{
    rows->onValidate = [](NSTableView& view) { view.setDropRow(-1, NSTableViewDropOn); };
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(rows->dropped, (Place { -1, NSTableViewDropOn }));
    rows->onValidate = [](NSTableView& view) { view.setDropRow(99, NSTableViewDropAbove); };
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(rows->dropped, (Place { 5, NSTableViewDropAbove }));
}

TEST_F(TableDragging, ARefusedDropDoesNothing)
{
    rows->answered = NSDragOperationNone;
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(rows->dropped.first, -9);
    EXPECT_EQ(dragged->ended, NSDragOperationNone);
}

TEST_F(TableDragging, RowsThatAreNotWrittenAreSelectedInstead)
{
    rows->writes = false;
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(dragged->began, 0);
    EXPECT_EQ(rows->asksToWrite, 1);
    EXPECT_EQ(selected(), (Indexes { 1, 2, 3 }));
}

TEST_F(TableDragging, OnlySidewaysWhereUpAndDownSelects)
{
    table->setVerticalMotionCanBeginDrag(false);
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(dragged->began, 0);
    EXPECT_EQ(selected(), (Indexes { 1, 2, 3 }));
    table->selectRow(1, false);
    drag(*table, rowPoint(1), { 200, 30 });
    EXPECT_EQ(dragged->began, 1);
}

TEST_F(TableDragging, PlacesAreMarkedWhileADragIsOverThem)
{
    person().press(onScreen(*table, rowPoint(1)));
    person().dragTo(onScreen(*table, { 60, 30 }));
    person().dragTo(onScreen(*table, rowPoint(3)));
    person().then([&] { window->displayIfNeeded(); });
    person().dragTo(onScreen(*table, { 40, 73 }));
    person().then([&] { window->displayIfNeeded(); });
    person().release(onScreen(*table, { 40, 73 }));
    pump();
    EXPECT_EQ(dragged->highlighted.back(), 3);
    EXPECT_EQ(dragged->between, (std::pair<long, long> { 3, 4 }));
}

TEST_F(TableDragging, ADragNearTheEdgeScrolls)
{
    rows->rows.clear();
    rows->count = 100;
    table->reloadData();
    pump();
    person().press(onScreen(*table, rowPoint(1)));
    for (int i = 0; i < 12; ++i)
        person().dragTo(onScreen(*scrollView, { 60.F + static_cast<float>(i), 215 }));
    person().release(onScreen(*scrollView, { 80, 215 }));
    pump();
    EXPECT_GT(scrolled(), 2 * pitch);
}

TEST_F(TableDragging, DisabledTablesTakeNothing)
{
    person().press(onScreen(*table, rowPoint(1)));
    person().dragTo(onScreen(*table, { 60, 30 }));
    person().then([&] { table->setEnabled(false); });
    person().dragTo(onScreen(*table, rowPoint(3)));
    person().release(onScreen(*table, rowPoint(3)));
    pump();
    EXPECT_EQ(rows->dropped.first, -9);
}

TEST_F(TableDragging, TheMaskSaysWhatASourceAllows)
{
    table->setDraggingSourceOperationMask(NSDragOperationCopy, true);
    EXPECT_EQ(table->draggingSourceOperationMaskForLocal(true), NSDragOperationCopy);
    drag(*table, rowPoint(1), rowPoint(3));
    EXPECT_EQ(dragged->ended, NSDragOperationNone);
}

}
}
