#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/foundation/NSNotification.h>

namespace plix {
namespace {

using Names = std::vector<std::string>;
using Indexes = std::vector<long>;

class Item : public NSObject {
public:
    bool init(std::string itsName)
    {
        name = std::move(itsName);
        return true;
    }
    std::string name;
    std::vector<Ref<Item>> children;
};

class Folders : public NSObject {
public:
    bool init() { return true; }

    static std::string nameOf(NSObject* item) { return item ? static_cast<Item*>(item)->name : "top"; }
    std::vector<Ref<Item>>& childrenOf(NSObject* item) { return item ? static_cast<Item*>(item)->children : top; }

    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return static_cast<long>(childrenOf(item).size()); }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject* item)
    {
        ++asked;
        return childrenOf(item)[static_cast<std::size_t>(index)];
    }
    bool isItemExpandable(NSOutlineView&, NSObject* item) { return !childrenOf(item).empty(); }
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn& column, NSObject* item)
    {
        return column.identifier() == ObjectValue("a") ? nameOf(item) : std::string("b");
    }
    void setObjectValue(NSOutlineView&, ObjectValue value, NSTableColumn&, NSObject* item)
    {
        static_cast<Item*>(item)->name = value.description();
    }
    bool writeItems(NSOutlineView&, std::vector<Ref<NSObject>> const& items, NSPasteboard& pasteboard)
    {
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString(nameOf(items.front().get()), NSStringPboardType);
        return writes;
    }
    unsigned validateDrop(NSOutlineView& outline, NSDraggingInfo&, NSObject* item, long index)
    {
        proposed = nameOf(item) + " " + std::to_string(index);
        if (onValidate)
            onValidate(outline);
        return NSDragOperationMove;
    }
    bool acceptDrop(NSOutlineView&, NSDraggingInfo&, NSObject* item, long index)
    {
        dropped = nameOf(item) + " " + std::to_string(index);
        return true;
    }

    bool shouldExpandItem(NSOutlineView&, NSObject* item) { return nameOf(item) != refused; }
    bool shouldCollapseItem(NSOutlineView&, NSObject* item) { return nameOf(item) != refused; }
    bool shouldSelectItem(NSOutlineView&, NSObject* item) { return nameOf(item) != refused; }
    void outlineViewItemWillExpand(NSNotification const& told) { note("will expand", told); }
    void outlineViewItemDidExpand(NSNotification const& told) { note("did expand", told); }
    void outlineViewItemWillCollapse(NSNotification const& told) { note("will collapse", told); }
    void outlineViewItemDidCollapse(NSNotification const& told) { note("did collapse", told); }
    void outlineViewSelectionDidChange(NSNotification const&) { log.emplace_back("selection"); }
    void note(std::string const& what, NSNotification const& told)
    {
        log.push_back(what + " " + nameOf(told.userInfo.at("NSObject").object()));
    }

    std::vector<Ref<Item>> top;
    std::string refused;
    Names log;
    std::string proposed;
    std::string dropped;
    std::function<void(NSOutlineView&)> onValidate;
    bool writes { true };
    long asked { 0 };
};

class Outlines : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        data = make<Folders>();
        for (auto const* name : { "A", "B", "C" }) {
            auto const item = make<Item>(name);
            data->top.push_back(item);
            for (int i = 1; i <= 2 && *name != 'C'; ++i)
                item->children.push_back(make<Item>(name + std::to_string(i)));
        }
        data->top[0]->children[0]->children.push_back(make<Item>("A11"));
        scrollView = make<NSScrollView>(Rect { 0, 0, 300, 222 });
        scrollView->setHasVerticalScroller(true);
        scrollView->setAutohidesScrollers(true);
        outline = make<NSOutlineView>(Rect { 0, 0, 300, 200 });
        for (auto const* name : { "a", "b" }) {
            auto const column = make<NSTableColumn>(name);
            column->setWidth(120);
            outline->addTableColumn(*column);
        }
        outline->setDataSource(data);
        outline->setDelegate(data);
        scrollView->setDocumentView(outline);
        window = showWindowWith(scrollView, { 100, 200, 300, 222 });
        window->makeFirstResponder(outline.get());
        pump();
    }

    Item* item(std::string const& name) { return find(name, data->top); }
    static Item* find(std::string const& name, std::vector<Ref<Item>> const& items)
    {
        for (auto const& each : items) {
            if (each->name == name)
                return each.get();
            if (auto* below = find(name, each->children))
                return below;
        }
        return nullptr;
    }
    std::string rows() const
    {
        std::string text;
        for (long row = 0; row < outline->numberOfRows(); ++row)
            text += (row ? " " : "") + Folders::nameOf(outline->itemAtRow(row));
        return text;
    }
    std::string selected() const
    {
        return outline->selectedRow() < 0 ? "" : Folders::nameOf(outline->itemAtRow(outline->selectedRow()));
    }
    void select(std::string const& name) { outline->selectRow(outline->rowForItem(item(name)), false); }
    Point triangle(std::string const& name) const
    {
        auto const rect = outline->frameOfOutlineCellAtRow(outline->rowForItem(const_cast<Outlines*>(this)->item(name)));
        return { rect.midX(), rect.midY() };
    }
    void drop(std::string const& name, Point at)
    {
        outline->registerForDraggedTypes({ NSStringPboardType });
        auto const from = outline->rectOfRow(outline->rowForItem(item(name)));
        drag(*outline, { 60, from.midY() }, at);
    }

    Ref<Folders> data;
    Ref<NSOutlineView> outline;
    Ref<NSScrollView> scrollView;
    Ref<NSWindow> window;
};

TEST_F(Outlines, ExpandByAClickOnTheTriangle)
{
    click(*outline, triangle("A"));
    EXPECT_EQ(rows(), "A A1 A2 B C");
    EXPECT_EQ(selected(), "");
    click(*outline, triangle("A"));
    EXPECT_EQ(rows(), "A B C");
}

TEST_F(Outlines, ATriangleThatIsLetGoOutsideDoesNothing)
{
    drag(*outline, triangle("A"), { 150, 100 });
    EXPECT_EQ(rows(), "A B C");
}

TEST_F(Outlines, ClickingATriangleWithAlternateExpandsAllBelow)
{
    click(*outline, triangle("A"), { .modifiers = NSAlternateKeyMask });
    EXPECT_EQ(rows(), "A A1 A11 A2 B C");
    click(*outline, triangle("A"), { .modifiers = NSAlternateKeyMask });
    outline->expandItem(item("A"));
    EXPECT_EQ(rows(), "A A1 A2 B C");
}

TEST_F(Outlines, CellsAreMovedInByTheirLevel)
{
    outline->expandItem(nullptr, true);
    EXPECT_EQ(rows(), "A A1 A11 A2 B B1 B2 C");
    EXPECT_EQ(outline->frameOfCellAtColumn(0, 0), (Rect { 17, 1, 104, 16 }));
    EXPECT_EQ(outline->frameOfCellAtColumn(0, 2), (Rect { 49, 37, 72, 16 }));
    EXPECT_EQ(outline->frameOfCellAtColumn(1, 2), (Rect { 124, 37, 120, 16 }));
    EXPECT_EQ(outline->frameOfOutlineCellAtRow(1), (Rect { 17, 19, 16, 16 }));
    EXPECT_EQ(outline->frameOfOutlineCellAtRow(2), (Rect {}));
}

TEST_F(Outlines, TheOutlineColumnMayBeAnother)
{
    outline->setOutlineTableColumn(outline->tableColumns()[1].get());
    EXPECT_EQ(outline->frameOfCellAtColumn(0, 0).x, 1);
    EXPECT_EQ(outline->frameOfCellAtColumn(1, 0).x, 140);
    outline->removeTableColumn(*Ref(outline->tableColumns()[1]));
    EXPECT_EQ(outline->outlineTableColumn(), outline->tableColumns()[0].get());
}

TEST_F(Outlines, WithoutMarkersNothingIsInFrontOfItems)
{
    outline->setDrawsIndentationMarkers(false);
    click(*outline, { 8, 9 });
    EXPECT_EQ(rows(), "A B C");
    EXPECT_EQ(selected(), "A");
}

TEST_F(Outlines, ArrowKeysExpandAndCollapse)
{
    select("A");
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(rows(), "A A1 A2 B C");
    EXPECT_EQ(selected(), "A");
    key(NSRightArrowFunctionKey);
    EXPECT_EQ(selected(), "A1");
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(selected(), "A");
    key(NSLeftArrowFunctionKey);
    EXPECT_EQ(rows(), "A B C");
    key(NSRightArrowFunctionKey, NSAlternateKeyMask);
    EXPECT_EQ(rows(), "A A1 A11 A2 B C");
}

TEST_F(Outlines, TheSelectionStaysOnItsItems)
{
    select("B");
    outline->expandItem(item("A"));
    EXPECT_EQ(selected(), "B");
    outline->collapseItem(item("A"));
    EXPECT_EQ(selected(), "B");
}

TEST_F(Outlines, CollapsingSelectsTheItemForWhatWasSelectedInIt)
{
    outline->expandItem(item("A"));
    select("A2");
    data->log.clear();
    outline->collapseItem(item("A"));
    EXPECT_EQ(selected(), "A");
    EXPECT_EQ(data->log, (Names { "will collapse A", "selection", "did collapse A" }));
}

TEST_F(Outlines, TheDelegateIsToldAndMayRefuse)
{
    outline->expandItem(item("A"));
    EXPECT_EQ(data->log, (Names { "will expand A", "did expand A" }));
    data->refused = "B";
    outline->expandItem(item("B"));
    EXPECT_FALSE(outline->isItemExpanded(item("B")));
    click(*outline, { 60, outline->rectOfRow(outline->rowForItem(item("B"))).midY() });
    EXPECT_EQ(selected(), "");
}

TEST_F(Outlines, ReloadingKeepsWhatIsExpandedAndSelected)
{
    outline->expandItem(item("B"));
    select("B2");
    data->top.insert(data->top.begin(), make<Item>("new"));
    outline->reloadData();
    EXPECT_EQ(rows(), "new A B B1 B2 C");
    EXPECT_EQ(selected(), "B2");
}

TEST_F(Outlines, ReloadingAnItemAsksForItsChildren)
{
    outline->expandItem(item("A"));
    item("A")->children.push_back(make<Item>("A3"));
    outline->reloadItem(item("A"), true);
    EXPECT_EQ(rows(), "A A1 A2 A3 B C");
}

TEST_F(Outlines, AnItemIsEditedInPlace)
{
    select("B");
    outline->editColumn(0, outline->rowForItem(item("B")), nullptr, true);
    type("Bee\r");
    EXPECT_EQ(rows(), "A Bee C");
}

TEST_F(Outlines, AskForNoMoreItemsThanAreSeen)
{
    for (int i = 0; i < 5000; ++i)
        data->top.push_back(make<Item>(std::to_string(i)));
    data->asked = 0;
    outline->reloadData();
    pump();
    EXPECT_LT(data->asked, 40);
}

// MARK: drops

struct DropCase {
    char const* what;
    /// The gap or row: rows in halves, 0 at the upper edge of the first.
    float rows;
    float x;
    char const* target;
};

class OutlineDrops : public Outlines, public testing::WithParamInterface<DropCase> { };

TEST_P(OutlineDrops, GoWhereThePointerSays)
{
    outline->expandItem(nullptr, true);
    drop("C", { GetParam().x, GetParam().rows * 18 });
    EXPECT_EQ(data->dropped, GetParam().target);
}

// Rows: A A1 A11 A2 B B1 B2 C.
INSTANTIATE_TEST_SUITE_P(Places, OutlineDrops,
    testing::Values(DropCase { "above the first", 0.1F, 60, "top 0" }, DropCase { "on an item", 0.5F, 60, "A -1" },
        DropCase { "first in an open item", 1, 60, "A 0" }, DropCase { "on a leaf", 2.5F, 60, "A11 -1" },
        DropCase { "behind the last of two, far right", 3, 90, "A1 1" },
        DropCase { "behind the last of two, further left", 3, 33, "A 1" }, DropCase { "behind all of A", 4, 5, "top 1" },
        DropCase { "behind the last in A", 4, 40, "A 2" }, DropCase { "below all", 9.5F, 60, "top 3" }),
    [](auto const& tested) {
        std::string name(tested.param.what);
        std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
        return name;
    });

TEST_F(Outlines, TheDataSourceMayChooseAnotherPlace)
{
    outline->expandItem(nullptr, true);
    data->onValidate = [this](NSOutlineView& view) { view.setDropItem(item("B"), 2); };
    drop("C", { 60, 5 });
    EXPECT_EQ(data->dropped, "B 2");
}

/// Rests on A with a drag from C, then lets go elsewhere.
class OutlineSprings : public Outlines {
protected:
    std::string restThenRelease(Point at)
    {
        outline->registerForDraggedTypes({ NSStringPboardType });
        std::string whileResting;
        person().press(onScreen(*outline, { 60, 45 }));
        for (int i = 0; i < 4; ++i)
            person().dragTo(onScreen(*outline, { 60, 45 - 9.F * static_cast<float>(i + 1) }));
        person().then([&] { machine().headlessClock().advance(1); });
        for (int i = 0; i < 3; ++i)
            person().dragTo(onScreen(*outline, { 60.F + static_cast<float>(i), 9 }));
        person().then([&] { whileResting = rows(); });
        person().release(onScreen(*outline, at));
        pump();
        return whileResting;
    }
};

TEST_F(OutlineSprings, OpenWhatADragRestsOn)
{
    EXPECT_EQ(restThenRelease({ 250, 190 }), "A A1 A2 B C");
    EXPECT_EQ(rows(), "A A1 A2 B C");
}

TEST_F(OutlineSprings, CloseItAgainWhereTheDragLeaves)
{
    EXPECT_EQ(restThenRelease({ 250, -300 }), "A A1 A2 B C");
    EXPECT_EQ(rows(), "A B C");
}

TEST_F(Outlines, ExpandingAboveTheSelectionKeepsWhereShiftGoesOnFrom)
{
    outline->setAllowsMultipleSelection(true);
    select("B");
    outline->expandItem(item("A"));
    key(NSDownArrowFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(outline->selectedRowIndexes().indexes(), (Indexes { 3, 4 }));
    outline->collapseItem(item("A"));
    key(NSUpArrowFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(outline->selectedRowIndexes().indexes(), (Indexes { 1 }));
}

/// Has both forms of the hooks that a table has too.
class BothForms : public Folders {
public:
    using Folders::objectValueForTableColumn;
    void willDisplayCell(NSTableView&, NSCell&, NSTableColumn&, long row) { log.push_back("row " + std::to_string(row)); }
    void willDisplayCell(NSOutlineView&, NSCell&, NSTableColumn&, NSObject* item) { log.push_back("item " + nameOf(item)); }
};

/// Has the table's form only.
class TableFormOnly : public NSObject {
public:
    bool init() { return true; }
    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return item ? 0 : 2; }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject*) { return items[static_cast<std::size_t>(index)]; }
    ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long row)
    {
        asked.push_back(row);
        return "text";
    }
    std::vector<Ref<Item>> items { make<Item>("x"), make<Item>("y") };
    Indexes asked;
};

TEST_F(Outlines, TheDelegateIsToldByTheTablesFormAndThenByItsOwn)
{
    auto const both = make<BothForms>();
    outline->setDelegate(both);
    outline->removeTableColumn(*Ref(outline->tableColumns()[1]));
    both->log.clear();
    pump();
    EXPECT_EQ(both->log, (Names { "row 0", "item A", "row 1", "item B", "row 2", "item C" }));
}

TEST_F(Outlines, ValuesComeByTheTablesFormWhereTheDataSourceHasOnlyThat)
{
    auto const source = make<TableFormOnly>();
    outline->setDataSource(source);
    outline->removeTableColumn(*Ref(outline->tableColumns()[1]));
    pump();
    EXPECT_EQ(source->asked, (Indexes { 0, 1 }));
}

TEST_F(Outlines, ADataSourceMayReloadWhileItIsAsked)
{
    NSOutlineViewDataSource hooks;
    hooks.numberOfChildrenOfItem = [](NSOutlineView& view, NSObject* item) {
        view.reloadData();
        return item ? 0L : 3L;
    };
    hooks.child = [](NSOutlineView& view, long, NSObject*) -> Ref<NSObject> {
        view.reloadData();
        return make<Item>("new");
    };
    outline->setOutlineDataSourceHooks(std::move(hooks));
    pump();
    EXPECT_EQ(outline->numberOfRows(), 3);
    outline->setOutlineDataSourceHooks({});
}

}
}
