#include <tests/support/TableTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/theme_palette.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/appearance.h>

namespace plix {
namespace {

struct Sheet {
    Appearance appearance;
    float scale;
    std::string suffix() const
    {
        return std::string(appearance == Appearance::dark ? "_dark" : "_light") + (scale > 1 ? "@2x" : "");
    }
};

class Leaf : public NSObject {
public:
    bool init(std::string itsName, int below = 0)
    {
        name = std::move(itsName);
        for (int i = 1; i <= below; ++i)
            children.push_back(make<Leaf>(name + " " + std::to_string(i)));
        return true;
    }
    std::string name;
    std::vector<Ref<Leaf>> children;
};

/// A table that shows where something would be dropped.
class MarkedTable : public NSTableView {
public:
    void drawRect(Rect rect) override
    {
        NSTableView::drawRect(rect);
        if (!showsMarks)
            return;
        _drawDropHighlightOnRow(1);
        _drawDropHighlightBetweenUpperRow(3, 4, 20);
    }
    bool showsMarks { false };
};

class TableSheets : public TableTest, public testing::WithParamInterface<Sheet> {
protected:
    TableSheets()
        : TableTest(GetParam().scale)
    {
        setCurrentAppearance(GetParam().appearance);
    }
    ~TableSheets() override { setCurrentAppearance(Appearance::light); }
    Ref<NSTableView> makeTable() override
    {
        marked = make<MarkedTable>(Rect { 0, 0, 380, 200 });
        return marked;
    }
    testing::AssertionResult looksLike(std::string const& what)
    {
        pump();
        return matchesReference(window->snapshot(), "appkit/table_" + what + GetParam().suffix());
    }
    static Ref<NSImage> sortImage()
    {
        auto const image = make<NSImage>(Size { 8, 6 });
        FocusLock const focus(image);
        NSColor::grayColor()->set();
        auto const path = NSBezierPath::bezierPath();
        path->moveToPoint({ 0, 0 });
        path->lineToPoint({ 4, 6 });
        path->lineToPoint({ 8, 0 });
        path->fill();
        return image;
    }
    Ref<MarkedTable> marked;
};

TEST_P(TableSheets, RowsInAllStates)
{
    table->setAllowsMultipleSelection(true);
    table->setUsesAlternatingRowBackgroundColors(true);
    table->setIndicatorImage(sortImage(), column(1));
    table->setHighlightedTableColumn(&column(1));
    table->selectRowIndexes({ 1, 2, 4 }, false);
    EXPECT_TRUE(looksLike("active"));
    person().focusNothing();
    EXPECT_TRUE(looksLike("inactive"));
    window->makeKeyWindow();
    table->setEnabled(false);
    EXPECT_TRUE(looksLike("disabled"));
}

TEST_P(TableSheets, EditingGridAndMarks)
{
    table->setGridStyleMask(NSTableViewSolidVerticalGridLineMask | NSTableViewSolidHorizontalGridLineMask);
    table->selectRow(2, false);
    table->editColumn(1, 2, nullptr, true);
    marked->showsMarks = true;
    table->setNeedsDisplay(true);
    EXPECT_TRUE(looksLike("editing"));
}

TEST_P(TableSheets, Outlines)
{
    auto const outline = make<NSOutlineView>(Rect { 0, 0, 400, 200 });
    for (auto const& each : std::vector<Ref<NSTableColumn>>(table->tableColumns()))
        outline->addTableColumn(*each);
    std::vector<Ref<Leaf>> top { make<Leaf>("Folder", 2), make<Leaf>("Closed", 1), make<Leaf>("File") };
    top[0]->children[0]->children.push_back(make<Leaf>("Deep"));
    NSOutlineViewDataSource hooks;
    auto const childrenOf
        = [&](NSObject* item) -> std::vector<Ref<Leaf>>& { return item ? static_cast<Leaf*>(item)->children : top; };
    hooks.numberOfChildrenOfItem = [&](NSOutlineView&, NSObject* item) { return static_cast<long>(childrenOf(item).size()); };
    hooks.child = [&](NSOutlineView&, long index, NSObject* item) -> Ref<NSObject> {
        return childrenOf(item)[static_cast<std::size_t>(index)];
    };
    hooks.isItemExpandable = [&](NSOutlineView&, NSObject* item) { return !childrenOf(item).empty(); };
    hooks.objectValueForTableColumn
        = [](NSOutlineView&, NSTableColumn&, NSObject* item) { return ObjectValue(static_cast<Leaf*>(item)->name); };
    outline->setOutlineDataSourceHooks(std::move(hooks));
    outline->expandItem(top[0].get(), true);
    scrollView->setDocumentView(outline);
    window->makeFirstResponder(outline.get());
    outline->selectRow(1, false);
    EXPECT_TRUE(looksLike("outline"));
    outline->setOutlineDataSourceHooks({});
}

INSTANTIATE_TEST_SUITE_P(Looks, TableSheets,
    testing::Values(Sheet { Appearance::light, 1 }, Sheet { Appearance::dark, 1 }, Sheet { Appearance::light, 2 },
        Sheet { Appearance::dark, 2 }),
    [](auto const& tested) {
        return std::string(tested.param.appearance == Appearance::dark ? "Dark" : "Light")
            + (tested.param.scale > 1 ? "Retina" : "");
    });

}
}
