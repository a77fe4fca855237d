#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/graphics/NSColor.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

template <typename T> Ref<T> throughAnArchive(Ref<T> const& object)
{
    auto const again = NSUnarchiver::unarchiveObjectWithData(*NSArchiver::archivedDataWithRootObject(object));
    return again ? again->template as<T>() : nullptr;
}

template <typename T> Ref<T> filledTable()
{
    auto const table = make<T>(Rect { 0, 0, 300, 200 });
    for (auto const* name : { "a", "b" }) {
        auto const column = make<NSTableColumn>(name);
        column->headerCell()->setStringValue(std::string("Header ") + name);
        table->addTableColumn(*column);
    }
    return table;
}

TEST(NSTableColumn, ComesBackFromAnArchive)
{
    auto const column = make<NSTableColumn>("name");
    column->setMinWidth(30);
    column->setMaxWidth(300);
    column->setWidth(123);
    column->setEditable(false);
    column->setHidden(true);
    column->setResizingMask(NSTableColumnUserResizingMask);
    column->setHeaderToolTip("tip");
    column->headerCell()->setStringValue("Name");
    auto const again = throughAnArchive(column);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->identifier(), ObjectValue("name"));
    EXPECT_EQ(again->width(), 123);
    EXPECT_EQ(again->minWidth(), 30);
    EXPECT_EQ(again->maxWidth(), 300);
    EXPECT_FALSE(again->isEditable());
    EXPECT_TRUE(again->isHidden());
    EXPECT_EQ(again->resizingMask(), NSTableColumnUserResizingMask);
    EXPECT_EQ(again->headerToolTip(), "tip");
    EXPECT_EQ(again->headerCell()->stringValue(), "Name");
    EXPECT_TRUE(dynamic_cast<NSTableHeaderCell*>(again->headerCell()));
}

TEST(NSTableColumn, CopiesStandAlone)
{
    auto const column = make<NSTableColumn>("name");
    column->setWidth(77);
    auto const copy = column->copy();
    EXPECT_EQ(copy->width(), 77);
    EXPECT_NE(copy->dataCell(), column->dataCell());
    EXPECT_EQ(copy->tableView(), nullptr);
}

TEST(NSTableView, ComesBackFromAnArchive)
{
    auto const table = filledTable<NSTableView>();
    table->setRowHeight(21);
    table->setIntercellSpacing({ 5, 1 });
    table->setBackgroundColor(NSColor::yellowColor());
    table->setGridStyleMask(NSTableViewSolidHorizontalGridLineMask);
    table->setAllowsMultipleSelection(true);
    table->setAllowsEmptySelection(false);
    table->setAllowsColumnReordering(false);
    table->setUsesAlternatingRowBackgroundColors(true);
    table->setVerticalMotionCanBeginDrag(false);
    table->setColumnAutoresizingStyle(NSTableViewFirstColumnOnlyAutoresizingStyle);
    table->setCornerView(nullptr);
    auto const again = throughAnArchive(table);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->rowHeight(), 21);
    EXPECT_EQ(again->intercellSpacing(), (Size { 5, 1 }));
    EXPECT_EQ(again->backgroundColor()->components(), NSColor::yellowColor()->components());
    EXPECT_EQ(again->gridStyleMask(), NSTableViewSolidHorizontalGridLineMask);
    EXPECT_TRUE(again->allowsMultipleSelection());
    EXPECT_FALSE(again->allowsEmptySelection());
    EXPECT_FALSE(again->allowsColumnReordering());
    EXPECT_TRUE(again->allowsColumnResizing());
    EXPECT_TRUE(again->usesAlternatingRowBackgroundColors());
    EXPECT_FALSE(again->verticalMotionCanBeginDrag());
    EXPECT_EQ(again->columnAutoresizingStyle(), NSTableViewFirstColumnOnlyAutoresizingStyle);
    EXPECT_EQ(again->cornerView(), nullptr);
    ASSERT_EQ(again->numberOfColumns(), 2);
    EXPECT_EQ(again->tableColumns()[1]->identifier(), ObjectValue("b"));
    EXPECT_EQ(again->tableColumns()[1]->tableView(), again.get());
    EXPECT_EQ(again->tableHeaderView()->tableView(), again.get());
}

TEST(NSOutlineView, ComesBackFromAnArchive)
{
    auto const outline = filledTable<NSOutlineView>();
    outline->setOutlineTableColumn(outline->tableColumns()[1].get());
    outline->setIndentationPerLevel(9);
    outline->setDrawsIndentationMarkers(false);
    auto const again = throughAnArchive(outline);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->outlineTableColumn(), again->tableColumns()[1].get());
    EXPECT_EQ(again->indentationPerLevel(), 9);
    EXPECT_FALSE(again->drawsIndentationMarkers());
}

}
}
