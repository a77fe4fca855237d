#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <plix/controls/PLIXTextAttachmentCell.h>
#include <plix/controls/TQComboBoxCell.h>
#include <plix/platform/appkit/NSDatePickerCell.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSTextAttachment.h>

namespace plix {
namespace {

// A table draws a column with one cell, and edits with a copy of it.
class CellCopies : public HeadlessTest { };

TEST_F(CellCopies, OfImageCells)
{
    auto const cell = make<NSImageCell>(imageOfColor({ 9, 4 }, colors::red));
    cell->setImageScaling(NSScaleNone);
    cell->setImageAlignment(NSImageAlignTopRight);
    cell->setImageFrameStyle(NSImageFramePhoto);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->image(), cell->image());
    EXPECT_EQ(copy->imageScaling(), NSScaleNone);
    EXPECT_EQ(copy->imageAlignment(), NSImageAlignTopRight);
    EXPECT_EQ(copy->cellSize(), cell->cellSize());
    copy->setImage(nullptr);
    EXPECT_NE(cell->image(), nullptr);
}

class Numbers : public NSObject {
public:
    long numberOfItemsInComboBoxCell(NSComboBoxCell&) { return 3; }
    ObjectValue objectValueForItemAtIndex(NSComboBoxCell&, long index) { return index; }
};

TEST_F(CellCopies, OfComboBoxCells)
{
    auto const cell = make<TQComboBoxCell>("text");
    cell->addItemsWithObjectValues({ "a", "b" });
    cell->setNumberOfVisibleItems(7);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->stringValue(), "text");
    EXPECT_EQ(copy->numberOfItems(), 2);
    EXPECT_EQ(copy->numberOfVisibleItems(), 7);
    copy->removeAllItems();
    EXPECT_EQ(cell->numberOfItems(), 2);
}

TEST_F(CellCopies, OfComboBoxCellsWithADataSource)
{
    auto const numbers = make<Numbers>();
    Ref<NSComboBoxCell> copy;
    {
        auto const cell = make<NSComboBoxCell>("");
        cell->setUsesDataSource(true);
        cell->setDataSource(numbers);
        EXPECT_EQ(cell->numberOfItems(), 3);
        copy = cell->copy();
    }
    // Asked in its own name, when the original is gone.
    EXPECT_EQ(copy->numberOfItems(), 3);
    EXPECT_EQ(copy->textOfItem(2), "2");
}

TEST_F(CellCopies, OfDatePickerCells)
{
    auto const cell = make<NSDatePickerCell>();
    cell->setDateValue(NSDate::dateWithTimeIntervalSinceReferenceDate(86400));
    cell->setMaxDate(NSDate::dateWithTimeIntervalSinceReferenceDate(90000));
    cell->setDatePickerElements(NSYearMonthDayDatePickerElementFlag);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->dateValue(), cell->dateValue());
    EXPECT_EQ(copy->stringValue(), cell->stringValue());
    copy->setDateValue(NSDate::dateWithTimeIntervalSinceReferenceDate(1e9));
    EXPECT_EQ(copy->dateValue(), *cell->maxDate());
    EXPECT_NE(cell->dateValue(), copy->dateValue());
}

TEST_F(CellCopies, OfSegmentedCells)
{
    auto const cell = make<NSSegmentedCell>();
    cell->setSegmentCount(2);
    cell->setLabel("One", 0);
    cell->setMenu(make<NSMenu>("menu"), 1);
    cell->setSelectedSegment(1);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->labelForSegment(0), "One");
    EXPECT_EQ(copy->selectedSegment(), 1);
    EXPECT_NE(copy->menuForSegment(1), cell->menuForSegment(1));
    copy->setSelectedSegment(0);
    EXPECT_TRUE(cell->isSelectedForSegment(1));
}

TEST_F(CellCopies, OfAttachmentCells)
{
    auto const cell = make<PLIXTextAttachmentCell>(imageOfColor({ 4, 4 }, colors::red));
    cell->plixSetCellBaselineOffset({ 0, -3 });
    auto const attachment = make<NSTextAttachment>();
    attachment->setAttachmentCell(cell);
    auto const copy = cell->copy();
    EXPECT_EQ(copy->cellBaselineOffset(), (Point { 0, -3 }));
    EXPECT_EQ(copy->attachment(), nullptr);
}

}
}
