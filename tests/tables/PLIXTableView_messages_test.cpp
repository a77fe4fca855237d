#include <tests/tables/PlainTable.h>

#include <tests/support/images.h>

#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSDraggingInfo.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/inline_object.h>
#include <plix/tables/table_view_additions.h>

#include <gmock/gmock.h>

#include <algorithm>

namespace plix {
namespace {

using testing::ElementsAre;

// MARK: the empty table

class EmptyTable : public PlainTable {
protected:
    void SetUp() override
    {
        PlainTable::SetUp();
        source->count = 0;
        table->reloadData();
    }
    /// Of what is drawn in the visible part of the table.
    PixelRect ink()
    {
        auto const shown = picture();
        auto const clip = inWindow(*scrollView->contentView(), scrollView->contentView()->bounds());
        int left = clip.x + clip.width;
        int top = clip.y + clip.height;
        int right = clip.x;
        int bottom = clip.y;
        Pixels const pixels(shown);
        for (int y = clip.y; y < clip.y + clip.height; ++y) {
            for (int x = clip.x; x < clip.x + clip.width; ++x) {
                if (!pixelNear(pixels, x, y, colors::white, 0.1F)) {
                    left = std::min(left, x);
                    right = std::max(right, x + 1);
                    top = std::min(top, y);
                    bottom = std::max(bottom, y + 1);
                }
            }
        }
        return right > left ? PixelRect { left, top, right - left, bottom - top } : PixelRect {};
    }
    PixelRect visible() const { return inWindow(*scrollView->contentView(), scrollView->contentView()->bounds()); }
    void redraw() { table->setNeedsDisplay(true); }
};

TEST_F(EmptyTable, WithoutMessageShowsNothing)
{
    EXPECT_EQ(ink().width, 0);
}

TEST_F(EmptyTable, ShowsItsMessageInTheMiddle)
{
    table->setEmptyString("Nothing here");
    redraw();
    auto const drawn = ink();
    ASSERT_GT(drawn.width, 60);
    EXPECT_NEAR(drawn.x + drawn.width / 2.0, visible().x + visible().width / 2.0, 3);
    EXPECT_NEAR(drawn.y + drawn.height / 2.0, visible().y + visible().height / 2.0, 4);
    auto const shown = picture();
    int const gray = countPixels(shown, drawn, { 0.5F, 0.5F, 0.5F, 1 }, 0.03F);
    EXPECT_GT(gray, 20);
    EXPECT_EQ(countPixels(shown, drawn, colors::black, 0.3F), 0);
}

TEST_F(EmptyTable, PrefersTheAttributedMessage)
{
    table->setEmptyString("Nothing here");
    Attributes const red { { NSForegroundColorAttributeName, NSColor::redColor() },
        { NSFontAttributeName, NSFont::systemFontOfSize(20) } };
    table->setEmptyAttributedString(make<NSAttributedString>("Red", red));
    redraw();
    auto const drawn = ink();
    EXPECT_GT(countPixels(picture(), drawn, colors::red, 0.1F), 10);
    EXPECT_LT(drawn.x, visible().x + 20);
}

class SmoothingProbe : public NSObject, public InlineObject {
public:
    Size inlineSize() const override { return { 20, 10 }; }
    void drawInline(Rect) override
    {
        ++drawings;
        smooths = NSGraphicsContext::currentContext()->shouldSmoothFonts();
    }
    int drawings { 0 };
    bool smooths { true };
};

TEST_F(EmptyTable, ItsMessageIsNotSmoothed)
{
    auto const probe = make<SmoothingProbe>();
    table->setEmptyAttributedString(attributedStringWithAttachment(Ref<NSObject>(probe)));
    bool smoothsBefore = false;
    PLIXTableViewDelegate hooks;
    hooks.willDrawRect = [&](NSTableView&, Rect) {
        NSGraphicsContext::currentContext()->setShouldSmoothFonts(true);
        smoothsBefore = NSGraphicsContext::currentContext()->shouldSmoothFonts();
    };
    table->setDelegateHooks(hooks);
    redraw();
    pump();
    EXPECT_TRUE(smoothsBefore);
    EXPECT_GT(probe->drawings, 0);
    EXPECT_FALSE(probe->smooths);
}

TEST_F(EmptyTable, ATallMessageIsNotShown)
{
    std::string lines;
    for (int i = 0; i < 40; ++i)
        lines += "Nothing\n";
    table->setEmptyString(lines);
    redraw();
    EXPECT_EQ(ink().width, 0);
}

TEST_F(EmptyTable, ShowsTheMessageOnlyWithoutRows)
{
    hideTexts();
    table->setEmptyString("Nothing here");
    source->count = 1;
    table->reloadData();
    EXPECT_EQ(ink().width, 0);
}

TEST_F(EmptyTable, TellsTheDelegateBeforeItDraws)
{
    class Teller : public NSObject {
    public:
        void willDrawRect(NSTableView& table, Rect rect)
        {
            rects.push_back(rect);
            told = &table;
        }
        std::vector<Rect> rects;
        NSTableView* told { nullptr };
    };
    auto const teller = make<Teller>();
    table->setDelegate(teller);
    pump();
    teller->rects.clear();
    table->setNeedsDisplayInRect({ 10, 20, 30, 40 });
    pump();
    EXPECT_THAT(teller->rects, ElementsAre(Rect { 10, 20, 30, 40 }));
    EXPECT_EQ(teller->told, table.get());
}

// MARK: drops

class DropDrawing : public PlainTable {
protected:
    void SetUp() override
    {
        PlainTable::SetUp();
        hideTexts();
    }
    /// Drawn by itself over white, in the table's coordinates.
    Ref<NSBitmapImageRep> drawn(std::function<void()> const& draw)
    {
        return renderBitmap(
            { 300, 120 }, 1,
            [&] {
                auto const context = NSGraphicsContext::currentContext();
                context->translateBy(0, 120);
                context->scaleBy(1, -1);
                context->setFlipped(true);
                draw();
            },
            colors::white);
    }
    ColorComponents edge() { return selectionOutlineColor(*table)->components(); }
};

TEST_F(DropDrawing, ARowIsOutlinedAndWashed)
{
    auto const shown = drawn([&] { table->_drawDropHighlightOnRow(1); });
    auto const row = table->rectOfRow(1);
    int const middle = static_cast<int>(row.midY());
    EXPECT_TRUE(pixelNear(shown, 100, middle, blended(colors::white, selectionColor(*table)->components(), 0.15F), 0.02F));
    EXPECT_TRUE(pixelNear(shown, 1, middle, blended(colors::white, edge(), 0.9F), 0.02F));
    EXPECT_TRUE(pixelNear(shown, 100, static_cast<int>(row.maxY()) + 1, colors::white));
    EXPECT_EQ(NSBezierPath::defaultLineWidth(), 2);
}

TEST_F(DropDrawing, ASelectedRowIsOutlinedOnly)
{
    table->selectRow(1, false);
    auto const shown = drawn([&] { table->_drawDropHighlightOnRow(1); });
    int const middle = static_cast<int>(table->rectOfRow(1).midY());
    EXPECT_TRUE(pixelNear(shown, 100, middle, colors::white));
    EXPECT_TRUE(pixelNear(shown, 1, middle, edge(), 0.02F));
}

TEST_F(DropDrawing, BelowTheFirstRowTheWholeTableIsFramed)
{
    auto const shown = drawn([&] { table->_drawDropHighlightOnRow(-1); });
    EXPECT_FALSE(pixelNear(shown, 0, 60, colors::white, 0.1F));
    EXPECT_FALSE(pixelNear(shown, 1, 60, colors::white, 0.1F));
    EXPECT_TRUE(pixelNear(shown, 2, 60, colors::white));
    EXPECT_TRUE(pixelNear(shown, 100, 30, colors::white));
}

TEST_F(DropDrawing, ARowThatIsNotThereIsNotDrawn)
{
    auto const shown = drawn([&] { table->_drawDropHighlightOnRow(5); });
    EXPECT_TRUE(areaNear(shown, { 0, 0, 300, 120 }, colors::white));
}

class ItemPainter : public NSObject {
public:
    Ref<NSImage> customHighlightImageForItem(NSTableView&, NSObject* item)
    {
        ++asked;
        wasNull = item == nullptr;
        return answers ? imageOfColor({ 4, 4 }, colors::green) : nullptr;
    }
    int asked { 0 };
    bool wasNull { false };
    bool answers { true };
};

TEST_F(DropDrawing, ACustomImageDecidesTheRectangleAndIsNotDrawn)
{
    auto const painter = make<ItemPainter>();
    table->setDelegate(painter);
    auto const row = table->rectOfRow(1);
    auto const whole = drawn([&] { table->_drawDropHighlightOnRow(1); });
    EXPECT_EQ(painter->asked, 1);
    EXPECT_TRUE(painter->wasNull);
    EXPECT_EQ(countPixels(whole, colors::green), 0);
    int const above = static_cast<int>(row.y) - 1;
    EXPECT_FALSE(pixelNear(whole, 100, above, colors::white, 0.05F));
    painter->answers = false;
    auto const inset = drawn([&] { table->_drawDropHighlightOnRow(1); });
    EXPECT_TRUE(pixelNear(inset, 100, above, colors::white, 0.05F));
}

TEST_F(DropDrawing, TheMarkerStandsBetweenRows)
{
    auto const shown = drawn([&] { table->_drawDropHighlightBetweenUpperRow(0, 1, 10); });
    int const y = static_cast<int>(table->rectOfRow(1).y);
    EXPECT_TRUE(areaNear(shown, { 20, y - 1, 100, 2 }, edge(), 0.02F));
    EXPECT_TRUE(areaNear(shown, { 20, y + 2, 100, 4 }, colors::white));
    EXPECT_TRUE(pixelNear(shown, 8, y, colors::white, 0.02F));
    EXPECT_FALSE(pixelNear(shown, 5, y, colors::white, 0.1F));
}

TEST_F(DropDrawing, TheMarkerStandsBelowTheLastRow)
{
    auto const shown = drawn([&] { table->_drawDropHighlightBetweenUpperRow(4, 5, 0); });
    int const y = static_cast<int>(table->rectOfRow(4).maxY()) - 1;
    EXPECT_TRUE(areaNear(shown, { 20, y - 1, 100, 2 }, edge(), 0.02F));
}

TEST_F(DropDrawing, AMarkerBetweenNoNeighboursStandsAtTheOriginMovedByTheOffset)
{
    auto const shown = drawn([&] { table->_drawDropHighlightBetweenUpperRow(7, 3, 12); });
    EXPECT_FALSE(areaNear(shown, { 6, 0, 6, 3 }, colors::white, 0.1F));
    EXPECT_TRUE(areaNear(shown, { 20, 0, 280, 120 }, colors::white));
}

// MARK: dragging through the window

class DraggableRows : public NumberedRows {
public:
    bool writeRowsWithIndexes(NSTableView&, NSIndexSet const& rows, NSPasteboard& pasteboard)
    {
        dragged = rows.indexes();
        pasteboard.declareTypes({ NSStringPboardType });
        pasteboard.setString("rows", NSStringPboardType);
        return true;
    }
    unsigned validateDrop(NSTableView&, NSDraggingInfo&, long, NSTableViewDropOperation) { return NSDragOperationMove; }
    bool acceptDrop(NSTableView&, NSDraggingInfo&, long row, NSTableViewDropOperation operation)
    {
        droppedAt = row;
        isAbove = operation == NSTableViewDropAbove;
        return true;
    }

    std::vector<long> dragged;
    long droppedAt { -1 };
    bool isAbove { false };
};

class DragDrawing : public PlainTable {
protected:
    void SetUp() override
    {
        PlainTable::SetUp();
        rows = make<DraggableRows>();
        rows->value = [](NSTableColumn&, long) { return ObjectValue(""); };
        table->setDataSource(rows);
        table->registerForDraggedTypes({ NSStringPboardType });
        activate();
        pump();
    }
    /// What is seen while row 0 rests at a height over the table, before it is dropped there.
    Ref<NSBitmapImageRep> dragTo(float y)
    {
        Ref<NSBitmapImageRep> seen;
        person().press(onScreen(*table, { 150, 9 }));
        for (int i = 1; i <= 4; ++i)
            person().dragTo(onScreen(*table, { 150, 9 + (y - 9) * static_cast<float>(i) / 4 }));
        person().then([&] { prepWhileDragging = table->inDragPrep(); });
        person().then([&] { seen = window->snapshot(); });
        person().release(onScreen(*table, { 150, y }));
        pump();
        return seen;
    }

    Ref<DraggableRows> rows;
    int prepWhileDragging { -1 };
};

TEST_F(DragDrawing, BetweenRowsTheMarkerIsShown)
{
    auto const seen = dragTo(3 * pitch);
    ASSERT_TRUE(seen);
    EXPECT_EQ(rows->dragged, (std::vector<long> { 0 }));
    EXPECT_EQ(rows->droppedAt, 3);
    EXPECT_TRUE(rows->isAbove);
    EXPECT_TRUE(near(colorAt(seen, { 60, table->rectOfRow(3).y }), selectionOutlineColor(*table)->components(), 0.05F));
    EXPECT_EQ(prepWhileDragging, 0);
    EXPECT_EQ(table->inDragPrep(), 0);
    EXPECT_TRUE(near(colorAt(picture(), { 60, table->rectOfRow(3).y }), colors::white));
}

TEST_F(DragDrawing, OnARowItIsOutlined)
{
    auto const seen = dragTo(2.5F * pitch);
    ASSERT_TRUE(seen);
    EXPECT_EQ(rows->droppedAt, 2);
    EXPECT_FALSE(rows->isAbove);
    auto const row = table->rectOfRow(2);
    auto const edge = selectionOutlineColor(*table)->components();
    EXPECT_TRUE(near(colorAt(seen, { 60, row.y + 1 }), blended(colors::white, edge, 0.9F), 0.05F));
    EXPECT_TRUE(
        near(colorAt(seen, { 60, row.midY() }), blended(colors::white, selectionColor(*table)->components(), 0.15F), 0.05F));
    EXPECT_TRUE(near(colorAt(picture(), { 60, row.midY() }), colors::white));
}

}
}
