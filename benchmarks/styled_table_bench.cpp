#include "allocations.h"
#include "bench.h"
#include "table_peer.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/tables/PLIXTableView.h>

namespace plix::bench {

namespace {

/// The library's own table in the shape of the others: a million rows, three of them selected and in view, active.
class StyledTable {
public:
    explicit StyledTable(PLIXHighlightStyle style)
    {
        installHost(std::make_unique<HeadlessHost>());
        view = make<PLIXTableView>(Rect { 0, 0, tableWidth, tableHeight });
        view->setIntercellSpacing({ 0, 0 });
        view->setRowHeight(tableRowHeight);
        view->setAllowsMultipleSelection(true);
        view->setHighlightStyle(style);
        for (int i = 0; i < tableColumns; ++i) {
            auto const column = make<NSTableColumn>(i);
            column->setWidth(tableColumnWidth);
            view->addTableColumn(*column);
        }
        PLIXTableViewDataSource hooks;
        hooks.numberOfRowsInTableView = [](NSTableView&) { return 1000000L; };
        hooks.objectValueForTableColumn = [this](NSTableView&, NSTableColumn& column, long row) {
            long const before = allocationCount();
            std::string text;
            formatTableCell(text, row, column.identifier().intValue());
            ObjectValue value(std::move(text));
            allocationsInHooks += allocationCount() - before;
            return value;
        };
        view->setDataSourceHooks(std::move(hooks));
        auto const scrollView = make<NSScrollView>(Rect { 0, 0, tableWidth, tableHeight });
        scrollView->setHasVerticalScroller(true);
        scrollView->setDocumentView(view);
        window = make<NSWindow>(Rect { 0, 0, tableWidth, tableHeight }, NSTitledWindowMask, NSBackingStoreBuffered, false);
        window->setContentView(scrollView);
        window->makeKeyAndOrderFront(nullptr);
        window->makeFirstResponder(view.get());
        view->selectRowIndexes({ 3, 10, 11 }, false);
        draw();
        draw();
    }
    ~StyledTable()
    {
        window->close();
        window = nullptr;
        view = nullptr;
        NSApp = nullptr;
        installHost(nullptr);
    }
    StyledTable(StyledTable const&) = delete;
    StyledTable& operator=(StyledTable const&) = delete;

    void draw() const
    {
        view->setNeedsDisplay(true);
        window->displayIfNeeded();
    }

    Ref<PLIXTableView> view;
    Ref<NSWindow> window;
    long allocationsInHooks { 0 };
};

void measureRedraw(Figure& figure, PLIXHighlightStyle style)
{
    StyledTable const table(style);
    Work const ours { [&] { table.draw(); } };
#ifdef PLIX_BENCH_QT
    auto const peer = qtTable(1000000);
    figure.timeAgainst("Qt", ours, { peer.draw });
#else
    figure.time(ours);
#endif
}

}

PLIX_FIGURE("table.redraw_styled")
{
    measureRedraw(figure, PLIXHighlightRectangle);
}

PLIX_FIGURE("table.redraw_capsule")
{
    measureRedraw(figure, PLIXHighlightCapsule);
}

// Operator new while a warm frame is drawn, less what the data source makes itself.
PLIX_FIGURE("table.allocations_styled")
{
    StyledTable table(PLIXHighlightCapsule);
    table.allocationsInHooks = 0;
    table.view->setNeedsDisplay(true);
    long const before = allocationCount();
    table.window->displayIfNeeded();
    figure.setUnit("allocations");
    figure.count(static_cast<double>(allocationCount() - before - table.allocationsInHooks));
}

}
