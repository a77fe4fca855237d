// A window with a table of forty rows ("table") or an outline ("outline"), whose lower left corner stands at (300, 400). Where its
// rows and the divider of its first column are on the screen (from its upper left corner), and what a person does to it, is
// reported on standard output, one line each.

#include <tests/desktop/programs/support/program.h>

#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/tables/PLIXTableView.h>

#include <string>
#include <vector>

namespace plix {
namespace {

void reportPlace(std::string const& what, NSView const& view, Point point)
{
    auto const place = onDisplay(view, point);
    report(what + " at " + std::to_string(static_cast<int>(place.x)) + ' ' + std::to_string(static_cast<int>(place.y)));
}

constexpr char const* rowType = "desktop test rows";

class Rows : public NSObject {
    PLIX_CLASS(Rows, NSObject);

public:
    Rows()
    {
        for (char const* name : { "Apple", "Banana", "Cherry", "Date", "Elderberry", "Fig", "Grape", "Hazelnut" }) {
            for (int i = 1; i <= 5; ++i)
                m_names.push_back(std::string(name) + ' ' + std::to_string(i));
        }
    }
    long numberOfRowsInTableView(NSTableView&) { return static_cast<long>(m_names.size()); }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn& column, long row)
    {
        if (column.identifier() == ObjectValue("name"))
            return m_names.at(static_cast<std::size_t>(row));
        return row * row;
    }
    void setObjectValue(NSTableView&, ObjectValue value, NSTableColumn&, long row)
    {
        m_names.at(static_cast<std::size_t>(row)) = value.description();
        report("edited " + std::to_string(row) + " [" + value.description() + ']');
    }
    bool writeRowsWithIndexes(NSTableView&, NSIndexSet const& rows, NSPasteboard& board)
    {
        board.declareTypes({ rowType });
        return board.setString(std::to_string(rows.firstIndex()), rowType);
    }
    unsigned validateDrop(NSTableView& table, NSDraggingInfo&, long row, NSTableViewDropOperation)
    {
        table.setDropRow(row, NSTableViewDropAbove);
        return NSDragOperationMove;
    }
    bool acceptDrop(NSTableView&, NSDraggingInfo& info, long row, NSTableViewDropOperation)
    {
        report("dropped " + info.draggingPasteboard().stringForType(rowType).value_or("?") + " before " + std::to_string(row));
        return true;
    }
    void tableViewSelectionDidChange(NSNotification const& notification)
    {
        auto const& table = static_cast<NSTableView const&>(*notification.object);
        std::string line = "selected";
        for (long row = 0; row < table.numberOfRows(); ++row)
            line += table.isRowSelected(row) ? ' ' + std::to_string(row) : std::string();
        report(line + " end");
    }
    void tableViewColumnDidMove(NSNotification const& notification)
    {
        auto const& table = static_cast<NSTableView const&>(*notification.object);
        report("first column " + table.tableColumns().front()->identifier().description());
    }
    void tableViewColumnDidResize(NSNotification const& notification)
    {
        auto const& table = static_cast<NSTableView const&>(*notification.object);
        report("name is " + std::to_string(static_cast<int>(table.tableColumnWithIdentifier("name")->width())) + " wide");
    }
    void didClickTableColumn(NSTableView&, NSTableColumn& column) { report("header of " + column.identifier().description()); }

private:
    std::vector<std::string> m_names;
};

PLIX_DESCRIBE(Rows)
{
}

/// Three folders with three things each.
class Tree : public NSObject {
    PLIX_CLASS(Tree, NSObject);

public:
    class Node : public NSObject {
    public:
        std::string name;
        std::vector<Ref<Node>> children;
    };
    Tree()
    {
        for (char const* folder : { "North", "South", "West" }) {
            m_roots.push_back(node(folder));
            for (int i = 1; i <= 3; ++i)
                m_roots.back()->children.push_back(node(std::string(folder) + ' ' + std::to_string(i)));
        }
    }
    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return static_cast<long>(childrenOf(item).size()); }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject* item) { return childrenOf(item).at(static_cast<std::size_t>(index)); }
    bool isItemExpandable(NSOutlineView&, NSObject* item) { return !childrenOf(item).empty(); }
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject* item) { return static_cast<Node*>(item)->name; }
    void outlineViewItemDidExpand(NSNotification const& notification) { tell("expanded", notification); }
    void outlineViewItemDidCollapse(NSNotification const& notification) { tell("collapsed", notification); }
    void outlineViewSelectionDidChange(NSNotification const& notification)
    {
        report("selected " + std::to_string(static_cast<NSTableView const&>(*notification.object).selectedRow()) + " end");
    }

private:
    static Ref<Node> node(std::string name)
    {
        auto made = make<Node>();
        made->name = std::move(name);
        return made;
    }
    std::vector<Ref<Node>> const& childrenOf(NSObject* item) { return item ? static_cast<Node*>(item)->children : m_roots; }
    static void tell(char const* what, NSNotification const& notification)
    {
        auto const found = notification.userInfo.find("NSObject");
        auto const item = found == notification.userInfo.end() ? nullptr : found->second.as<Node>();
        report(std::string(what) + ' ' + (item ? item->name : "?"));
    }

    std::vector<Ref<Node>> m_roots;
};

PLIX_DESCRIBE(Tree)
{
}

void addColumns(NSTableView& table)
{
    auto const name = make<NSTableColumn>("name");
    name->headerCell()->setStringValue("Name");
    name->setWidth(200);
    table.addTableColumn(*name);
    auto const size = make<NSTableColumn>("size");
    size->headerCell()->setStringValue("Size");
    size->setWidth(120);
    size->setEditable(false);
    table.addTableColumn(*size);
    table.setColumnAutoresizingStyle(NSTableViewNoColumnAutoresizing);
}

/// Sees the window get the keyboard.
class Keys : public NSObject {
public:
    void windowDidBecomeKey(NSNotification const&) { report("key"); }
};

int run(bool showsOutline)
{
    NSApplication::sharedApplication();
    auto const keys = make<Keys>();
    auto const window = make<NSWindow>(Rect { 300, 400, 400, 300 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    window->setTitle("tables");
    window->setDelegate(keys);
    auto const scroll = make<NSScrollView>(Rect { 0, 0, 400, 300 });
    scroll->setHasVerticalScroller(true);
    auto const rows = make<Rows>();
    auto const tree = make<Tree>();
    Ref<NSTableView> table;
    if (showsOutline) {
        auto const outline = make<NSOutlineView>(Rect { 0, 0, 380, 270 });
        addColumns(*outline);
        outline->setOutlineTableColumn(outline->tableColumns().front().get());
        outline->setDataSource(tree);
        outline->setDelegate(tree);
        table = outline;
    } else {
        auto const plain = make<PLIXTableView>(Rect { 0, 0, 380, 270 });
        addColumns(*plain);
        plain->setAllowsMultipleSelection(true);
        plain->setVerticalMotionCanBeginDrag(true);
        plain->registerForDraggedTypes({ rowType });
        plain->setDataSource(rows);
        plain->setDelegate(rows);
        table = plain;
    }
    scroll->setDocumentView(table);
    window->contentView()->addSubview(*scroll);
    table->reloadData();
    window->makeKeyAndOrderFront(nullptr);
    window->makeFirstResponder(table.get());
    window->displayIfNeeded();
    auto const first = table->rectOfRow(0);
    reportPlace("row 0", *table, { 40, first.midY() });
    report("pitch " + std::to_string(static_cast<int>(table->rectOfRow(1).y - first.y)));
    auto const* header = table->headerView();
    reportPlace("divider", *header, { table->rectOfColumn(0).maxX() - 1, header->bounds().midY() });
    auto const scrolled = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) {
            report("scrolled to " + std::to_string(static_cast<int>(scroll->contentView()->bounds().y)));
        },
        NSViewBoundsDidChangeNotification, scroll->contentView());
    scroll->contentView()->setPostsBoundsChangedNotifications(true);
    return runReporting();
}

}
}

int main(int count, char** arguments)
{
    return plix::run(count > 1 && std::string(arguments[1]) == "outline");
}
