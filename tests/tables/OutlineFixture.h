#pragma once

#include <plix/tables/PLIXOutlineView.h>
#include <tests/support/StyledTableTest.h>

namespace plix {

/// An item that is told its name.
class Leaf : public NSObject {
public:
    std::string name;
    std::vector<Ref<Leaf>> children;
};

inline Ref<Leaf> leaf(std::string name, std::vector<Ref<Leaf>> children = {})
{
    auto made = make<Leaf>();
    made->name = std::move(name);
    made->children = std::move(children);
    return made;
}

class Tree : public NSObject {
public:
    long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return static_cast<long>(childrenOf(item).size()); }
    Ref<NSObject> child(NSOutlineView&, long index, NSObject* item) { return childrenOf(item)[static_cast<std::size_t>(index)]; }
    bool isItemExpandable(NSOutlineView&, NSObject* item) { return !childrenOf(item).empty(); }
    ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn& column, NSObject* item)
    {
        return showsText && item ? ObjectValue(static_cast<Leaf*>(item)->name + column.identifier().description())
                                 : ObjectValue("");
    }

    std::vector<Ref<Leaf>> roots;
    bool showsText { true };

private:
    std::vector<Ref<Leaf>> const& childrenOf(NSObject* item) const { return item ? static_cast<Leaf*>(item)->children : roots; }
};

/// The library's outline of "One" with "Two" with "Three" in it and "Four", all expanded, then "Five" (closed, with "Six") and
/// "Seven". Rows: 0 One, 1 Two, 2 Three, 3 Four, 4 Five, 5 Seven.
class OutlineTest : public StyledTableTest {
protected:
    using StyledTableTest::StyledTableTest;

    void SetUp() override
    {
        HeadlessTest::SetUp();
        tree = make<Tree>();
        tree->roots
            = { leaf("One", { leaf("Two", { leaf("Three") }), leaf("Four") }), leaf("Five", { leaf("Six") }), leaf("Seven") };
        outline = make<PLIXOutlineView>(Rect { 0, 0, 300, 180 });
        prepare(*outline);
        outline->setIndentationPerLevel(14);
        outline->setOutlineTableColumn(outline->tableColumns()[0].get());
        outline->setDataSource(tree);
        outline->expandItem(tree->roots[0].get(), true);
        show(*outline);
    }
    NSObject* item(long row) { return outline->itemAtRow(row); }

    Ref<Tree> tree;
    Ref<PLIXOutlineView> outline;
};

}
