#include <tests/tables/OutlineFixture.h>

#include <tests/support/images.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/tables/disclosure_plan.h>
#include <plix/tables/table_view_additions.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;

class FrameCell : public NSTextFieldCell {
    PLIX_CLASS(FrameCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    struct Drawing {
        Rect frame;
        Ref<NSAttributedString> text;
    };
    void drawWithFrame(Rect frame, NSView&) override { drawings.push_back({ frame, attributedStringValue() }); }
    static std::vector<Drawing> drawings;
};

std::vector<FrameCell::Drawing> FrameCell::drawings;

PLIX_DESCRIBE(FrameCell)
{
}

class OutlineDrawing : public OutlineTest {
protected:
    void SetUp() override
    {
        OutlineTest::SetUp();
        tree->showsText = false;
        window->makeFirstResponder(nullptr);
        FrameCell::drawings.clear();
    }
    void TearDown() override { NSBezierPath::setDefaultLineWidth(1); }
    void noteCells()
    {
        tree->showsText = true;
        for (auto const& column : outline->tableColumns())
            column->setDataCell(make<FrameCell>(""));
    }
    /// In the outline's coordinates, over white.
    Ref<NSBitmapImageRep> drawn(std::function<void()> const& draw, ColorComponents ground = colors::white)
    {
        return renderBitmap(
            { 300, 160 }, 1,
            [&] {
                auto const context = NSGraphicsContext::currentContext();
                context->translateBy(0, 160);
                context->scaleBy(1, -1);
                context->setFlipped(true);
                draw();
            },
            ground);
    }
    Ref<NSBitmapImageRep> selectionDrawn()
    {
        return drawn([&] { outline->highlightSelectionInClipRect(outline->bounds()); });
    }
    Ref<NSBitmapImageRep> rowDrawn(long row)
    {
        return drawn([&] { outline->drawRow(row, {}); });
    }
    /// Where the highlight of a row begins.
    int highlightLeft(long row)
    {
        outline->selectRow(row, false);
        auto const bitmap = selectionDrawn();
        int const y = static_cast<int>(outline->rectOfRow(row).midY());
        for (int x = 0; x < 300; ++x) {
            if (!pixelNear(bitmap, x, y, colors::white, 0.1F))
                return x;
        }
        return -1;
    }
    PixelRect marker(long row, Size size)
    {
        auto const origin = disclosureOrigin(outline->frameOfCellAtColumn(0, row), size);
        return { static_cast<int>(origin.x), static_cast<int>(origin.y), static_cast<int>(size.width),
            static_cast<int>(size.height) };
    }
};

// MARK: the selection

TEST_F(OutlineDrawing, TheHighlightFollowsTheIndentation)
{
    // Leaves below the top skip the marker's room too.
    struct Row {
        long row;
        int left;
    };
    for (auto const& row : { Row { 0, 0 }, Row { 1, 14 }, Row { 2, 28 + 16 }, Row { 3, 14 + 16 }, Row { 4, 0 }, Row { 5, 0 } })
        EXPECT_EQ(highlightLeft(row.row), row.left) << row.row;
}

TEST_F(OutlineDrawing, TheIndentationIsCutToWholePoints)
{
    outline->setIndentationPerLevel(10.75F);
    EXPECT_EQ(highlightLeft(1), 10);
    EXPECT_EQ(highlightLeft(2), 21 + 16);
}

TEST_F(OutlineDrawing, TheHighlightMayBeginAtTheEdge)
{
    outline->setHighlightFollowsIndentation(false);
    for (long row = 0; row < 6; ++row)
        EXPECT_EQ(highlightLeft(row), 0) << row;
}

class ItemPainter : public NSObject {
public:
    Ref<NSImage> customHighlightImageForItem(NSTableView&, NSObject* item)
    {
        items.push_back(item ? static_cast<Leaf*>(item)->name : "none");
        return answers ? imageOfColor({ 4, 4 }, colors::green) : nullptr;
    }
    Strings items;
    bool answers { true };
};

TEST_F(OutlineDrawing, TheDelegatePaintsByItemWithinTheIndentation)
{
    auto const painter = make<ItemPainter>();
    outline->setDelegate(painter);
    outline->selectRow(2, false);
    auto const bitmap = selectionDrawn();
    auto const row = outline->rectOfRow(2);
    auto const top = static_cast<int>(row.y);
    EXPECT_TRUE(areaNear(bitmap, { 44, top, static_cast<int>(row.width) - 44, static_cast<int>(row.height) }, colors::green));
    EXPECT_TRUE(areaNear(bitmap, { 0, top, 44, static_cast<int>(row.height) }, colors::white));
    EXPECT_THAT(painter->items, ElementsAre("Three"));
}

// MARK: rows

TEST_F(OutlineDrawing, MarkersStandJustLeftOfTheFirstCell)
{
    auto const expanded = NSImage::imageNamed("expanded");
    auto const collapsed = NSImage::imageNamed("collapsed");
    ASSERT_TRUE(expanded && collapsed);
    for (long const row : { 0L, 1L, 4L }) {
        auto const place = marker(row, (row == 4 ? collapsed : expanded)->size());
        auto const bitmap = rowDrawn(row);
        EXPECT_TRUE(hasInk(bitmap, place, colors::white)) << row;
        auto const ink = inkBounds(bitmap, colors::white);
        EXPECT_GE(ink.x, place.x) << row;
        EXPECT_LE(ink.x + ink.width, place.x + place.width) << row;
        EXPECT_GE(ink.y, place.y) << row;
        EXPECT_LE(ink.y + ink.height, place.y + place.height) << row;
    }
    for (long const row : { 2L, 3L, 5L })
        EXPECT_TRUE(inkBounds(rowDrawn(row), colors::white).width == 0) << row;
}

TEST_F(OutlineDrawing, MarkersStandUpright)
{
    // The triangle of an expanded item is widest at its top.
    auto const place = marker(0, NSImage::imageNamed("expanded")->size());
    auto const bitmap = rowDrawn(0);
    auto const half = [&](int y) {
        return countPixels(
            bitmap, { place.x, y, place.width, place.height / 2 }, [](std::uint32_t pixel) { return (pixel & 0xFF) < 0xC0; });
    };
    EXPECT_GT(half(place.y), half(place.y + (place.height + 1) / 2));
}

class Marker : public NSObject {
public:
    bool shouldShowIndentationMarkerForItem(NSOutlineView&, NSObject* item)
    {
        asked.push_back(item ? static_cast<Leaf*>(item)->name : "none");
        return shows;
    }
    Ref<NSImage> expandedIndicatorForItem(NSOutlineView&, NSObject*) { return expanded; }
    Ref<NSImage> collapsedIndicatorForItem(NSOutlineView&, NSObject*) { return collapsed; }
    Strings asked;
    bool shows { true };
    Ref<NSImage> expanded { imageOfColor({ 6, 4 }, colors::red) };
    Ref<NSImage> collapsed { imageOfColor({ 4, 6 }, colors::blue) };
};

TEST_F(OutlineDrawing, TheDelegateMayHaveOtherMarkers)
{
    auto const delegate = make<Marker>();
    outline->setDelegate(delegate);
    EXPECT_TRUE(areaNear(rowDrawn(1), marker(1, { 6, 4 }), colors::red));
    EXPECT_TRUE(areaNear(rowDrawn(4), marker(4, { 4, 6 }), colors::blue));
    EXPECT_EQ(countPixels(rowDrawn(2), colors::red), 0);
    delegate->expanded = nullptr;
    EXPECT_EQ(inkBounds(rowDrawn(1), colors::white).width, 0);
}

TEST_F(OutlineDrawing, AFlippedMarkerIsDrawnAsItLies)
{
    auto const delegate = make<Marker>();
    auto const flipped = make<NSImage>(Size { 4, 8 });
    flipped->setFlipped(true);
    {
        FocusLock const focus(flipped);
        NSColor::redColor()->set();
        NSRectFill({ 0, 0, 4, 4 });
        NSColor::blueColor()->set();
        NSRectFill({ 0, 4, 4, 4 });
    }
    delegate->expanded = flipped;
    outline->setDelegate(delegate);
    auto const place = marker(0, { 4, 8 });
    auto const bitmap = rowDrawn(0);
    // Its rows from the bottom up, since nothing mirrors it here.
    EXPECT_TRUE(areaNear(bitmap, { place.x, place.y, 4, 4 }, colors::blue));
    EXPECT_TRUE(areaNear(bitmap, { place.x, place.y + 4, 4, 4 }, colors::red));
}

TEST_F(OutlineDrawing, MarkersMayBeLeftOut)
{
    outline->setShowsIndentationMarker(false);
    EXPECT_EQ(inkBounds(rowDrawn(0), colors::white).width, 0);
    auto const delegate = make<Marker>();
    outline->setDelegate(delegate);
    EXPECT_GT(inkBounds(rowDrawn(0), colors::white).width, 0);
    EXPECT_THAT(delegate->asked, ElementsAre("One"));
    delegate->shows = false;
    EXPECT_EQ(inkBounds(rowDrawn(0), colors::white).width, 0);
}

class RowWatcher : public NSObject {
public:
    void willDrawItem(NSOutlineView&, NSObject* item, Rect row)
    {
        calls.push_back("item " + static_cast<Leaf*>(item)->name);
        rect = row;
    }
    void willDrawRect(NSTableView&, Rect) { calls.push_back("rect"); }
    void willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn&, long row)
    {
        calls.push_back("table " + cell.stringValue() + std::to_string(row));
    }
    void willDisplayCell(NSOutlineView&, NSCell& cell, NSTableColumn&, NSObject* item)
    {
        calls.push_back("outline " + cell.stringValue() + static_cast<Leaf*>(item)->name);
    }
    Strings calls;
    Rect rect;
};

TEST_F(OutlineDrawing, TellsOfTheItemAndThenOfEachCellInBothForms)
{
    tree->showsText = true;
    outline->hideColumn(2);
    auto const watcher = make<RowWatcher>();
    outline->setDelegate(watcher);
    rowDrawn(1);
    EXPECT_THAT(watcher->calls, ElementsAre("item Two", "table Twoa1", "outline TwoaTwo", "table Twob1", "outline TwobTwo"));
    EXPECT_EQ(watcher->rect, outline->rectOfRow(1));
}

TEST_F(OutlineDrawing, TellsOfTheRectangleUnderTheTablesName)
{
    auto const watcher = make<RowWatcher>();
    outline->setDelegate(watcher);
    pump();
    watcher->calls.clear();
    outline->setNeedsDisplayInRect({ 0, 150, 10, 10 });
    pump();
    EXPECT_THAT(watcher->calls, ElementsAre("rect"));
}

TEST_F(OutlineDrawing, RoundEndsNeedRoomOnTheLeftOnlyWhereTheColumnIsNotIndented)
{
    noteCells();
    outline->setHighlightStyle(PLIXHighlightCapsule);
    rowDrawn(0);
    ASSERT_EQ(FrameCell::drawings.size(), 3U);
    auto const last = outline->frameOfCellAtColumn(2, 0);
    EXPECT_EQ(FrameCell::drawings[0].frame, outline->frameOfCellAtColumn(0, 0));
    EXPECT_EQ(FrameCell::drawings[2].frame, (Rect { last.x, last.y, last.width - 4, last.height }));
    outline->setOutlineTableColumn(outline->tableColumns()[1].get());
    FrameCell::drawings.clear();
    rowDrawn(0);
    auto const first = outline->frameOfCellAtColumn(0, 0);
    EXPECT_EQ(FrameCell::drawings[0].frame, (Rect { first.x + 4, first.y, first.width - 4, first.height }));
}

TEST_F(OutlineDrawing, SelectedTextHasTheTablesShadow)
{
    noteCells();
    outline->selectRow(1, false);
    rowDrawn(1);
    auto const text = FrameCell::drawings[0].text;
    EXPECT_EQ(text->string(), "Twoa");
    EXPECT_EQ(text->attribute(NSShadowAttributeName, 0).object(), PLIXTableView::standardShadow().get());
    EXPECT_EQ(text->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white);
}

// MARK: drops

TEST_F(OutlineDrawing, ACustomImageDoesNotWidenTheDropTarget)
{
    auto const painter = make<ItemPainter>();
    outline->setDelegate(painter);
    auto const with = drawn([&] { outline->_drawDropHighlightOnRow(2); });
    EXPECT_THAT(painter->items, ElementsAre("Three"));
    outline->setDelegate(nullptr);
    auto const without = drawn([&] { outline->_drawDropHighlightOnRow(2); });
    EXPECT_EQ(countDifferences(with, without), 0);
    int const above = static_cast<int>(outline->rectOfRow(2).y) - 1;
    EXPECT_TRUE(pixelNear(with, 100, above, colors::white, 0.05F));
}

TEST_F(OutlineDrawing, TheMarkerOfADropIsMovedInByItsOffset)
{
    auto const bitmap = drawn([&] { outline->_drawDropHighlightBetweenUpperRow(1, 2, 42); });
    int const y = static_cast<int>(outline->rectOfRow(2).y);
    EXPECT_TRUE(areaNear(bitmap, { 50, y - 1, 100, 2 }, selectionOutlineColor(*outline)->components(), 0.02F));
    EXPECT_TRUE(areaNear(bitmap, { 0, y - 4, 34, 8 }, colors::white));
}

// MARK: what hooks may do while it draws

class Destroyer : public NSObject {
public:
    void willDrawItem(NSOutlineView&, NSObject*, Rect)
    {
        if (act)
            std::exchange(act, nullptr)();
    }
    std::function<void()> act;
};

TEST_F(OutlineDrawing, HooksMayCollapseReloadAndDestroyTheOutline)
{
    struct Deed {
        char const* name;
        std::function<void()> act;
    };
    for (auto const& deed : std::vector<Deed> {
             { "collapses", [&] { outline->collapseItem(tree->roots[0].get()); } },
             { "reloads",
                 [&] {
                     tree->roots.resize(1);
                     outline->reloadData();
                 } },
             { "closes the window", [&] { window->close(); } },
             { "destroys the outline",
                 [&] {
                     scrollView->setDocumentView(nullptr);
                     outline = nullptr;
                 } },
         }) {
        outline = make<PLIXOutlineView>(Rect { 0, 0, 300, 180 });
        prepare(*outline);
        tree->roots = { leaf("One", { leaf("Two") }), leaf("Three") };
        outline->setDataSource(tree);
        outline->expandItem(tree->roots[0].get());
        show(*outline);
        auto const destroyer = make<Destroyer>();
        destroyer->act = deed.act;
        outline->setDelegate(destroyer);
        outline->setNeedsDisplay(true);
        pump();
        EXPECT_FALSE(destroyer->act) << deed.name;
        pump();
    }
}

TEST_F(OutlineDrawing, AnItemThatIsItsOwnChildIsDrawn)
{
    auto const endless = leaf("Endless");
    endless->children = { endless };
    tree->roots = { endless };
    outline->reloadData();
    outline->expandItem(endless.get());
    outline->setNeedsDisplay(true);
    pump();
    EXPECT_GE(outline->numberOfRows(), 1);
    endless->children.clear();
}

}
}
