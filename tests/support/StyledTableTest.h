#pragma once

#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/tables/PLIXTableView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace plix {

using Strings = std::vector<std::string>;

/// Rows whose values say where they stand: "a 0".
class NumberedRows : public NSObject {
public:
    long numberOfRowsInTableView(NSTableView&) { return count; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        asked.push_back(column.identifier().description() + " " + std::to_string(row));
        if (onAsk)
            onAsk(row);
        return value ? value(column, row) : ObjectValue(asked.back());
    }

    long count { 5 };
    Strings asked;
    std::function<void(long row)> onAsk;
    std::function<ObjectValue(NSTableColumn&, long row)> value;
};

/// The library's table in a window of its own: columns "a", "b" and "c" of 100, 80 and 60 points, rows of 18 points with two
/// between.
class StyledTableTest : public HeadlessTest {
protected:
    StyledTableTest() = default;
    explicit StyledTableTest(float scale)
        : HeadlessTest(scale)
    {
    }

    static constexpr Rect content { 100, 200, 300, 200 };
    static constexpr float pitch = 20;

    void SetUp() override
    {
        HeadlessTest::SetUp();
        source = make<NumberedRows>();
        table = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
        prepare(*table);
        table->setDataSource(source);
        show(*table);
    }
    static void prepare(NSTableView& view)
    {
        view.setRowHeight(18);
        view.setIntercellSpacing({ 3, 2 });
        view.setAllowsMultipleSelection(true);
        view.setBackgroundColor(NSColor::whiteColor());
        view.setUsesAlternatingRowBackgroundColors(false);
        view.setColumnAutoresizingStyle(NSTableViewNoColumnAutoresizing);
        addColumn(view, "a", 100);
        addColumn(view, "b", 80);
        addColumn(view, "c", 60);
    }
    static Ref<NSTableColumn> addColumn(NSTableView& view, char const* identifier, float width)
    {
        auto column = make<NSTableColumn>(ObjectValue(identifier));
        column->setWidth(width);
        view.addTableColumn(*column);
        return column;
    }
    void show(NSTableView& view)
    {
        scrollView = make<NSScrollView>(Rect { 0, 0, content.width, content.height });
        scrollView->setHasVerticalScroller(true);
        scrollView->setDocumentView(&view);
        window = showWindowWith(scrollView, content);
        pump();
    }
    static Strings identifiers(std::vector<Ref<NSTableColumn>> const& columns)
    {
        Strings all;
        for (auto const& column : columns)
            all.push_back(column->identifier().description());
        return all;
    }
    static Point middleOf(NSTableView const& view, long column, long row)
    {
        auto const frame = view.frameOfCellAtColumn(column, row);
        return { frame.midX(), frame.midY() };
    }
    /// Where the pixel of a point of the table is in the window's picture.
    PixelRect inWindow(NSView const& view, Rect rect) const
    {
        auto const base = view.convertRectToView(rect, nullptr);
        return { static_cast<int>(base.x), static_cast<int>(content.height - base.maxY()), static_cast<int>(base.width),
            static_cast<int>(base.height) };
    }
    Ref<NSBitmapImageRep> picture()
    {
        pump();
        return window->snapshot();
    }

    Ref<NumberedRows> source;
    Ref<PLIXTableView> table;
    Ref<NSScrollView> scrollView;
    Ref<NSWindow> window;
};

}
