#include "allocations.h"
#include "bench.h"
#include "headless_machine.h"
#include "table_peer.h"

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSWindow.h>

#include <fstream>
#include <string>
#include <vector>

#include <malloc.h>
#include <unistd.h>

namespace plix::bench {

namespace {

template <typename View> Ref<View> viewWithColumns()
{
    auto const view = make<View>(Rect { 0, 0, tableWidth, tableHeight });
    view->setIntercellSpacing({ 0, 0 });
    view->setRowHeight(tableRowHeight);
    view->setAllowsMultipleSelection(true);
    for (int i = 0; i < tableColumns; ++i) {
        auto const column = make<NSTableColumn>(i);
        column->setWidth(tableColumnWidth);
        column->headerCell()->setStringValue("Column " + std::to_string(i));
        view->addTableColumn(*column);
    }
    return view;
}

Ref<NSScrollView> scrollViewAround(Ref<NSTableView> const& table)
{
    auto const scrollView = make<NSScrollView>(Rect { 0, 0, tableWidth, tableHeight });
    scrollView->setHasVerticalScroller(true);
    scrollView->setDocumentView(table);
    return scrollView;
}

class Table {
public:
    explicit Table(long rows)
        : view(viewWithColumns<NSTableView>())
        , scrollView(scrollViewAround(view))
        , window(make<NSWindow>(Rect { 0, 0, tableWidth, tableHeight }, NSTitledWindowMask, NSBackingStoreBuffered, false))
    {
        NSTableViewDataSource hooks;
        hooks.numberOfRowsInTableView = [rows](NSTableView&) { return rows; };
        hooks.objectValueForTableColumn = [this](NSTableView&, NSTableColumn& column, long row) {
            std::string text;
            formatTableCell(text, row, column.identifier().intValue());
            lastText = text.size();
            return ObjectValue(std::move(text));
        };
        view->setDataSourceHooks(std::move(hooks));
        window->setContentView(scrollView);
        window->makeKeyAndOrderFront(nullptr);
        window->makeFirstResponder(view.get());
        for (long const row : { 3L, 10L, 11L })
            view->selectRow(row, true);
        window->displayIfNeeded();
    }
    ~Table() { window->close(); }
    Table(Table const&) = delete;
    Table& operator=(Table const&) = delete;

    void draw()
    {
        scrollView->setNeedsDisplay(true);
        window->displayIfNeeded();
    }
    void scrollRow()
    {
        m_isScrolled = !m_isScrolled;
        scrollView->contentView()->scrollTo({ 0, m_isScrolled ? float { tableRowHeight } : 0 });
        window->displayIfNeeded();
    }
    void reload()
    {
        view->reloadData();
        window->displayIfNeeded();
    }

    Ref<NSTableView> view;
    Ref<NSScrollView> scrollView;
    Ref<NSWindow> window;
    std::size_t lastText { 0 };

private:
    bool m_isScrolled { false };
};

class Node : public NSObject {
public:
    bool init() { return true; }
    int number { 0 };
    std::vector<Ref<Node>> children;
};

class Outline {
public:
    Outline(int roots, int below)
        : view(viewWithColumns<NSOutlineView>())
        , scrollView(scrollViewAround(view))
        , window(make<NSWindow>(Rect { 0, 0, tableWidth, tableHeight }, NSTitledWindowMask, NSBackingStoreBuffered, false))
    {
        for (int i = 0; i < roots; ++i) {
            top.push_back(make<Node>());
            top.back()->number = i;
        }
        NSOutlineViewDataSource hooks;
        hooks.numberOfChildrenOfItem
            = [this, below](NSOutlineView&, NSObject* item) { return item ? below : static_cast<long>(top.size()); };
        hooks.child = [this, below](NSOutlineView&, long index, NSObject* item) -> Ref<NSObject> {
            if (!item)
                return top[static_cast<std::size_t>(index)];
            auto& children = static_cast<Node*>(item)->children;
            children.resize(static_cast<std::size_t>(below));
            auto& child = children[static_cast<std::size_t>(index)];
            if (!child) {
                child = make<Node>();
                child->number = static_cast<int>(index);
            }
            return child;
        };
        hooks.isItemExpandable = [](NSOutlineView& outline, NSObject* item) { return outline.levelForItem(item) == 0; };
        hooks.objectValueForTableColumn = [](NSOutlineView&, NSTableColumn& column, NSObject* item) {
            std::string text;
            formatTableCell(text, static_cast<Node*>(item)->number, column.identifier().intValue());
            return ObjectValue(std::move(text));
        };
        view->setOutlineDataSourceHooks(std::move(hooks));
        window->setContentView(scrollView);
        window->makeKeyAndOrderFront(nullptr);
        window->displayIfNeeded();
    }
    ~Outline() { window->close(); }
    Outline(Outline const&) = delete;
    Outline& operator=(Outline const&) = delete;

    void collapseAll()
    {
        for (auto const& item : top)
            view->collapseItem(item.get());
    }
    void expandAll()
    {
        for (auto const& item : top)
            view->expandItem(item.get());
        window->displayIfNeeded();
    }
    void expandEach()
    {
        for (auto const& item : top) {
            view->expandItem(item.get());
            window->displayIfNeeded();
        }
    }
    void draw()
    {
        scrollView->setNeedsDisplay(true);
        window->displayIfNeeded();
    }

    std::vector<Ref<Node>> top;
    Ref<NSOutlineView> view;
    Ref<NSScrollView> scrollView;
    Ref<NSWindow> window;
};

/// Without what earlier figures left for later use.
double residentKibibytes()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1024;
}

}

PLIX_FIGURE("table.redraw")
{
    Machine const machine;
    Table table(1000000);
    Work const ours { [&] { table.draw(); } };
#ifdef PLIX_BENCH_QT
    auto const peer = qtTable(1000000);
    figure.wantRatio(6);
    figure.timeAgainst("Qt", ours, { peer.draw });
#else
    figure.time(ours);
#endif
}

PLIX_FIGURE("table.scroll_row")
{
    Machine const machine;
    Table table(1000000);
    Work const ours { [&] { table.scrollRow(); } };
#ifdef PLIX_BENCH_QT
    auto const peer = qtTable(1000000);
    figure.wantRatio(3);
    figure.timeAgainst("Qt", ours, { peer.scrollRow });
#else
    figure.time(ours);
#endif
}

// Near 1: the rows that are not seen cost nothing.
PLIX_FIGURE("table.redraw_10m")
{
    Machine const machine;
    Table many(10000000);
    Table few(1000);
    figure.timeAgainst("1,000 rows", { [&] { many.draw(); } }, { [&] { few.draw(); } });
}

PLIX_FIGURE("table.redraw_1k")
{
    Machine const machine;
    Table table(1000);
    figure.time({ [&] { table.draw(); } });
}

PLIX_FIGURE("table.reload_10m")
{
    Machine const machine;
    Table table(10000000);
    figure.time({ [&] { table.view->reloadData(); } });
}

/// Operator new while a warm frame is drawn, less what the data source makes itself.
struct FrameAllocations {
    long inFrame { 0 };
    /// From the first value that the table asks for to the last.
    long betweenHooks { 0 };
};

FrameAllocations allocationsOfWarmFrame()
{
    Machine const machine;
    Table table(1000000);
    struct Counts {
        long inHooks { 0 };
        long firstHook { -1 };
        long lastHook { 0 };
    } counts;
    NSTableViewDataSource hooks;
    hooks.numberOfRowsInTableView = [](NSTableView&) { return 1000000L; };
    // No larger than a hook of a class: std::function allocates for larger ones whenever it is copied.
    hooks.objectValueForTableColumn = [&counts](NSTableView&, NSTableColumn& column, long row) {
        long const before = allocationCount();
        if (counts.firstHook < 0)
            counts.firstHook = before;
        std::string text;
        formatTableCell(text, row, column.identifier().intValue());
        ObjectValue value(std::move(text));
        counts.lastHook = allocationCount();
        counts.inHooks += counts.lastHook - before;
        return value;
    };
    table.view->setDataSourceHooks(std::move(hooks));
    for (long const row : { 3L, 10L, 11L })
        table.view->selectRow(row, true);
    table.draw();
    table.draw();
    counts = {};
    table.view->setNeedsDisplay(true);
    long const before = allocationCount();
    table.window->displayIfNeeded();
    return { allocationCount() - before - counts.inHooks, counts.lastHook - counts.firstHook - counts.inHooks };
}

PLIX_FIGURE("table.allocations")
{
    figure.setUnit("allocations");
    figure.count(static_cast<double>(allocationsOfWarmFrame().betweenHooks));
}

// With what the window does about dirty areas.
PLIX_FIGURE("table.allocations_frame")
{
    figure.setUnit("allocations");
    figure.count(static_cast<double>(allocationsOfWarmFrame().inFrame));
}

PLIX_FIGURE("table.rss_1m")
{
    Machine const machine;
    {
        Table const warm(10);
    }
    double const before = residentKibibytes();
    Table const table(1000000);
    double const ours = std::max(4.0, residentKibibytes() - before);
    figure.setUnit("KiB");
#ifdef PLIX_BENCH_QT
    {
        auto const warm = qtTable(10);
    }
    double const beforePeer = residentKibibytes();
    auto const peer = qtTable(1000000);
    peer.draw();
    double const theirs = std::max(4.0, residentKibibytes() - beforePeer);
    figure.wantRatio(1 / 0.7);
    figure.countAgainst("Qt", ours, theirs);
#else
    figure.count(ours);
#endif
}

PLIX_FIGURE("outline.expand_all")
{
    Machine const machine;
    Outline outline(1000, 1000);
    Work const ours { [&] { outline.expandAll(); }, [&] { outline.collapseAll(); } };
    figure.setRuns(5);
#ifdef PLIX_BENCH_QT
    auto const peer = qtOutline(1000, 1000);
    figure.wantRatio(10);
    figure.timeAgainst("Qt", ours, { peer.expandAll, peer.collapseAll });
#else
    figure.time(ours);
#endif
}

// Ten times the items in about ten times the time.
PLIX_FIGURE("outline.expand_each")
{
    Machine const machine;
    Outline many(1000, 1000);
    Outline few(100, 1000);
    figure.setRuns(3);
    figure.wantRatio(0.08);
    figure.timeAgainst("a tenth of the items", { [&] { many.expandEach(); }, [&] { many.collapseAll(); } },
        { [&] { few.expandEach(); }, [&] { few.collapseAll(); } });
}

PLIX_FIGURE("outline.redraw")
{
    Machine const machine;
    Outline outline(1000, 1000);
    outline.expandAll();
    Work const ours { [&] { outline.draw(); } };
#ifdef PLIX_BENCH_QT
    auto const peer = qtOutline(1000, 1000);
    peer.expandAll();
    figure.timeAgainst("Qt", ours, { peer.draw });
#else
    figure.time(ours);
#endif
}

}
