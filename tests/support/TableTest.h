#pragma once

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTableView.h>
#include <tests/support/HeadlessTest.h>

#include <string>
#include <utility>
#include <vector>

namespace plix {

/// Rows of texts, and what a table asked and told.
class TableRows : public NSObject {
public:
    bool init() { return true; }

    long numberOfRowsInTableView(NSTableView&) { return count < 0 ? static_cast<long>(rows.size()) : count; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        ++asked;
        lastAsked = row;
        if (onAsk)
            onAsk();
        auto const name = column.identifier().description();
        if (row < 0 || row >= static_cast<long>(rows.size()))
            return name + std::to_string(row);
        auto const& values = rows[static_cast<std::size_t>(row)];
        auto const index = static_cast<std::size_t>(name[0] - 'a');
        return index < values.size() ? ObjectValue(values[index]) : ObjectValue();
    }
    void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn& column, long row)
    {
        auto const name = column.identifier().description();
        taken.push_back(name + std::to_string(row) + "=" + value.description());
        if (row < static_cast<long>(rows.size()))
            rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(name[0] - 'a')] = value;
    }

    std::vector<std::vector<ObjectValue>> rows;
    /// In place of the rows' number; those that are not there have texts of their own.
    long count { -1 };
    long asked { 0 };
    long lastAsked { -1 };
    std::vector<std::string> taken;
    std::function<void()> onAsk;
};

/// Rows that can be dragged out, and dropped on.
class DraggableRows : public TableRows {
public:
    bool writeRowsWithIndexes(NSTableView&, NSIndexSet const& rowIndexes, NSPasteboard& pasteboard)
    {
        ++asksToWrite;
        dragged = rowIndexes.indexes();
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString("rows", NSStringPboardType);
        return writes;
    }
    unsigned validateDrop(NSTableView& table, NSDraggingInfo&, long row, NSTableViewDropOperation operation)
    {
        proposed.emplace_back(row, operation);
        if (onValidate)
            onValidate(table);
        return answered;
    }
    bool acceptDrop(NSTableView&, NSDraggingInfo&, long row, NSTableViewDropOperation operation)
    {
        dropped = { row, operation };
        return true;
    }

    std::vector<long> dragged;
    bool writes { true };
    int asksToWrite { 0 };
    unsigned answered { NSDragOperationMove };
    std::vector<std::pair<long, NSTableViewDropOperation>> proposed;
    std::pair<long, NSTableViewDropOperation> dropped { -9, NSTableViewDropOn };
    std::function<void(NSTableView&)> onValidate;
};

/// A table with columns "a", "b" and "c" in a scroll view that fills a window.
class TableTest : public HeadlessTest {
protected:
    static constexpr float pitch = 18;
    static constexpr float headerHeight = 22;

    using HeadlessTest::HeadlessTest;

    void SetUp() override
    {
        HeadlessTest::SetUp();
        data = make<TableRows>();
        for (auto const* name : { "Alpha", "Beta", "Gamma", "Delta", "Epsilon" })
            data->rows.push_back({ name, std::string(name) + " b", 7 });
        scrollView = make<NSScrollView>(Rect { 0, 0, 400, 222 });
        scrollView->setHasVerticalScroller(true);
        scrollView->setHasHorizontalScroller(true);
        scrollView->setAutohidesScrollers(true);
        scrollView->setAutoresizingMask(NSViewWidthSizable | NSViewHeightSizable);
        table = makeTable();
        for (auto const* name : { "a", "b", "c" })
            addColumn(name);
        table->setDataSource(data);
        scrollView->setDocumentView(table);
        window = showWindowWith(scrollView, { 100, 200, 400, 222 });
        window->makeFirstResponder(table.get());
        pump();
    }
    virtual Ref<NSTableView> makeTable() { return make<NSTableView>(Rect { 0, 0, 380, 200 }); }

    NSTableColumn& addColumn(std::string const& name, float width = 100)
    {
        auto const column = make<NSTableColumn>(name);
        column->setWidth(width);
        column->headerCell()->setStringValue("Column " + name);
        table->addTableColumn(*column);
        return *column;
    }
    NSTableColumn& column(long index) const { return *table->tableColumns()[static_cast<std::size_t>(index)]; }
    void setRows(long count)
    {
        data->rows.clear();
        data->count = count;
        table->reloadData();
        pump();
    }

    /// In the middle of a row, or of a cell.
    Point rowPoint(long row, float x = 40) const { return { x, table->rectOfRow(row).midY() }; }
    Point cellPoint(long columnIndex, long row) const
    {
        auto const frame = table->frameOfCellAtColumn(columnIndex, row);
        return { frame.midX(), frame.midY() };
    }
    void clickRow(long row, unsigned modifiers = 0) { click(*table, rowPoint(row), { .modifiers = modifiers }); }
    std::vector<long> selected() const { return table->selectedRowIndexes().indexes(); }
    float scrolled() const { return scrollView->contentView()->bounds().y; }
    std::vector<std::string> order() const
    {
        std::vector<std::string> names;
        for (auto const& each : table->tableColumns())
            names.push_back(each->identifier().description());
        return names;
    }

    Ref<TableRows> data;
    Ref<NSTableView> table;
    Ref<NSScrollView> scrollView;
    Ref<NSWindow> window;
};

}
