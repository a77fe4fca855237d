#include <tests/support/SystemVersion.h>
#include <tests/support/images.h>
#include <tests/tables/PlainTable.h>

#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSParagraphStyle.h>
#include <plix/tables/selection_colors.h>
#include <plix/tables/table_view_additions.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::NotNull;

/// Notes with what it is drawn.
class NotingCell : public NSTextFieldCell {
    PLIX_CLASS(NotingCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    struct Drawing {
        Rect frame;
        bool isHighlighted { true };
        Ref<NSAttributedString> text;
    };
    void drawWithFrame(Rect frame, NSView&) override { drawings.push_back({ frame, isHighlighted(), attributedStringValue() }); }
    static std::vector<Drawing> drawings;
};

std::vector<NotingCell::Drawing> NotingCell::drawings;

PLIX_DESCRIBE(NotingCell)
{
}

class TableDrawing : public PlainTable {
protected:
    void SetUp() override
    {
        PlainTable::SetUp();
        NotingCell::drawings.clear();
    }
    void noteCells()
    {
        for (auto const& column : table->tableColumns()) {
            auto const cell = make<NotingCell>("");
            cell->setFont(NSFont::systemFontOfSize(13));
            column->setDataCell(cell);
        }
    }
    /// The row drawn by itself, outside the window's drawing.
    std::vector<NotingCell::Drawing> const& drawRow(long row, Rect clip = {})
    {
        NotingCell::drawings.clear();
        renderBitmap({ 300, 200 }, 1, [&] { table->drawRow(row, clip); });
        return NotingCell::drawings;
    }
};

// MARK: the selection

TEST_F(TableDrawing, ActiveRowsHaveTheGradientWithinTheirEdge)
{
    hideTexts();
    table->selectRow(1, false);
    activate();
    auto const shown = picture();
    auto const base = NSColor::alternateSelectedControlColor()->components();
    auto const gradient = highlightGradientColors(base);
    auto const row = table->rectOfRow(1);
    EXPECT_TRUE(near(colorAt(shown, { 50, row.y + 2 }), gradient.top, 0.12F));
    EXPECT_TRUE(near(colorAt(shown, { 50, row.maxY() - 4 }), gradient.bottom, 0.12F));
    EXPECT_GT(colorAt(shown, { 50, row.y + 2 }).blue, colorAt(shown, { 50, row.maxY() - 4 }).blue);
    EXPECT_TRUE(near(colorAt(shown, { 50, row.maxY() - 0.5F }), colors::white));
    EXPECT_TRUE(near(colorAt(shown, { 50, row.y - 2 }), colors::white));
}

TEST_F(TableDrawing, InactiveRowsAreGrey)
{
    hideTexts();
    table->selectRow(1, false);
    activate();
    auto const row = table->rectOfRow(1);
    constexpr ColorComponents gray { 0.7F, 0.7F, 0.7F, 1 };
    EXPECT_FALSE(near(colorAt(picture(), { 50, row.midY() }), gray));
    person().focusNothing();
    EXPECT_TRUE(near(colorAt(picture(), { 50, row.midY() }), gray));
}

TEST_F(TableDrawing, StylesRoundTheCorners)
{
    hideTexts();
    table->selectRow(1, false);
    auto const row = table->rectOfRow(1);
    struct Row {
        std::uint32_t style;
        bool fillsCorner;
    };
    for (auto const& each : { Row { 0, true }, Row { 1, false }, Row { 2, false }, Row { 3, true } }) {
        table->setHighlightStyle(each.style);
        table->setNeedsDisplay(true);
        bool const isWhite = bool(near(colorAt(picture(), { 0.5F, row.y + 0.5F }), colors::white, 0.05F));
        EXPECT_EQ(!isWhite, each.fillsCorner) << each.style;
        EXPECT_FALSE(near(colorAt(picture(), { 50, row.midY() }), colors::white)) << each.style;
    }
}

TEST_F(TableDrawing, NothingSelectedDrawsNothing)
{
    hideTexts();
    activate();
    auto const shown = picture();
    EXPECT_TRUE(areaNear(shown, inWindow(*table, table->rectOfRow(1)), colors::white));
}

TEST_F(TableDrawing, EverySelectedRowInViewIsHighlighted)
{
    hideTexts();
    source->count = 1000000;
    table->reloadData();
    table->selectAll(nullptr);
    window->makeFirstResponder(nullptr);
    auto const shown = picture();
    for (long row = 0; row < 5; ++row)
        EXPECT_TRUE(near(colorAt(shown, { 50, table->rectOfRow(row).midY() }), { 0.7F, 0.7F, 0.7F, 1 })) << row;
}

class Painter : public NSObject {
public:
    Ref<NSImage> customHighlightImageForRow(NSTableView&, long row)
    {
        asked.push_back(row);
        return row == 1 ? imageOfColor({ 4, 4 }, colors::green) : nullptr;
    }
    std::vector<long> asked;
};

TEST_F(TableDrawing, TheDelegateMayPaintARow)
{
    hideTexts();
    auto const painter = make<Painter>();
    table->setDelegate(painter);
    table->selectRowIndexes({ 1, 2 }, false);
    window->makeFirstResponder(nullptr);
    auto const shown = picture();
    EXPECT_TRUE(areaNear(shown, inWindow(*table, table->rectOfRow(1)), colors::green));
    EXPECT_TRUE(near(colorAt(shown, { 50, table->rectOfRow(2).midY() }), { 0.7F, 0.7F, 0.7F, 1 }));
    EXPECT_THAT(painter->asked, ElementsAre(1, 2));
}

// MARK: rows

TEST_F(TableDrawing, EveryCellIsDrawnUnhighlightedWhateverTheClip)
{
    noteCells();
    table->selectRow(2, false);
    for (auto const& column : table->tableColumns())
        column->dataCell()->setHighlighted(true);
    auto const& drawn = drawRow(2, { 0, 0, 1, 1 });
    ASSERT_EQ(drawn.size(), 3U);
    for (long column = 0; column < 3; ++column) {
        auto const& each = drawn[static_cast<std::size_t>(column)];
        EXPECT_EQ(each.frame, table->frameOfCellAtColumn(column, 2));
        EXPECT_FALSE(each.isHighlighted);
    }
    EXPECT_EQ(drawn[1].text->string(), "b 2");
}

TEST_F(TableDrawing, RoundStylesLeaveTheTextRoom)
{
    noteCells();
    // 18 points: a quarter is 4.5, cut to 4.
    for (std::uint32_t const style : { 1U, 2U }) {
        table->setHighlightStyle(style);
        auto const& drawn = drawRow(0);
        ASSERT_EQ(drawn.size(), 3U);
        auto const first = table->frameOfCellAtColumn(0, 0);
        auto const last = table->frameOfCellAtColumn(2, 0);
        EXPECT_EQ(drawn[0].frame, (Rect { first.x + 4, first.y, first.width - 4, first.height }));
        EXPECT_EQ(drawn[1].frame, table->frameOfCellAtColumn(1, 0));
        EXPECT_EQ(drawn[2].frame, (Rect { last.x, last.y, last.width - 4, last.height }));
    }
}

TEST_F(TableDrawing, ColumnsThatAreNotSeenAreNotDrawnAndTakeNoEnds)
{
    noteCells();
    table->setHighlightStyle(PLIXHighlightCapsule);
    table->tableColumns()[0]->setHidden(true);
    auto const& drawn = drawRow(0);
    ASSERT_EQ(drawn.size(), 2U);
    auto const first = table->frameOfCellAtColumn(1, 0);
    EXPECT_EQ(drawn[0].frame, (Rect { first.x + 4, first.y, first.width - 4, first.height }));
    table->tableColumns()[2]->setHidden(true);
    auto const& only = drawRow(0);
    ASSERT_EQ(only.size(), 1U);
    auto const alone = table->frameOfCellAtColumn(1, 0);
    EXPECT_EQ(only[0].frame, (Rect { alone.x + 4, alone.y, alone.width - 8, alone.height }));
}

TEST_F(TableDrawing, TheTextOfAnEditedCellIsTheEditors)
{
    noteCells();
    for (auto const& column : table->tableColumns())
        column->dataCell()->setEditable(true);
    table->selectRow(1, false);
    activate();
    table->editColumn(1, 1, nullptr, true);
    ASSERT_EQ(table->editedRow(), 1);
    auto const drawn = drawRow(1);
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].text->string(), "a 1");
    EXPECT_EQ(drawn[1].text->string(), "");
    EXPECT_EQ(drawRow(2)[1].text->string(), "b 2");
}

TEST_F(TableDrawing, SelectedTextIsBoldAndWhiteWithTheShadow)
{
    noteCells();
    table->selectRow(1, false);
    auto const text = drawRow(1)[0].text;
    ASSERT_TRUE(text);
    EXPECT_EQ(text->string(), "a 1");
    EXPECT_EQ(text->attribute(NSFontAttributeName, 0).as<NSFont>()->fontName(), NSFont::boldSystemFontOfSize(13)->fontName());
    EXPECT_EQ(text->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white);
    EXPECT_EQ(text->attribute(NSShadowAttributeName, 2).object(), PLIXTableView::standardShadow().get());
    EXPECT_EQ(text->runs().size(), 1U);
}

TEST_F(TableDrawing, OtherTextStaysAsItIs)
{
    noteCells();
    table->selectRow(1, false);
    auto const text = drawRow(0)[0].text;
    EXPECT_EQ(text->attribute(NSShadowAttributeName, 0).object(), nullptr);
    EXPECT_EQ(text->attribute(NSFontAttributeName, 0).as<NSFont>()->fontName(), NSFont::systemFontOfSize(13)->fontName());
}

TEST_F(TableDrawing, TheCellGetsItsFontAndColorBack)
{
    noteCells();
    auto* cell = static_cast<NSTextFieldCell*>(table->tableColumns()[0]->dataCell());
    auto const font = NSFont::systemFontOfSize(11);
    auto const color = NSColor::redColor();
    cell->setFont(font);
    cell->setTextColor(color);
    table->selectRow(1, false);
    auto const text = drawRow(1)[0].text;
    EXPECT_EQ(text->attribute(NSFontAttributeName, 0).as<NSFont>()->pointSize(), 11);
    EXPECT_EQ(cell->font(), font.get());
    EXPECT_EQ(cell->textColor(), color.get());
}

/// Changes its own looks while it draws.
class VainCell : public NSTextFieldCell {
    PLIX_CLASS(VainCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    void drawWithFrame(Rect, NSView&) override
    {
        setFont(NSFont::systemFontOfSize(30));
        setTextColor(NSColor::greenColor());
    }
};

PLIX_DESCRIBE(VainCell)
{
}

TEST_F(TableDrawing, ACellThatChangesItsLooksInASelectedRowGetsThemBack)
{
    auto const cell = make<VainCell>("");
    auto const font = NSFont::systemFontOfSize(11);
    auto const color = NSColor::redColor();
    cell->setFont(font);
    cell->setTextColor(color);
    table->tableColumns()[0]->setDataCell(cell);
    table->selectRow(1, false);
    drawRow(1);
    EXPECT_EQ(cell->font(), font.get());
    EXPECT_EQ(cell->textColor(), color.get());
    drawRow(0);
    EXPECT_EQ(cell->font(), NSFont::systemFontOfSize(30).get());
}

TEST_F(TableDrawing, AttributedTextKeepsWhatTheSelectionDoesNotTouch)
{
    noteCells();
    auto const text = make<NSMutableAttributedString>("two parts");
    text->addAttribute(NSFontAttributeName, NSFont::userFixedPitchFontOfSize(9), { 0, 9 });
    text->addAttribute(NSUnderlineStyleAttributeName, NSUnderlineStyleSingle, { 4, 5 });
    text->addAttribute(NSForegroundColorAttributeName, NSColor::redColor(), { 0, 3 });
    source->value = [&](NSTableColumn&, long) { return ObjectValue(text); };
    table->selectRow(0, false);
    auto const drawn = drawRow(0)[0].text;
    EXPECT_EQ(drawn->attribute(NSUnderlineStyleAttributeName, 5).intValue(), NSUnderlineStyleSingle);
    EXPECT_EQ(drawn->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white);
    EXPECT_EQ(drawn->attribute(NSFontAttributeName, 0).as<NSFont>()->pointSize(), 9);
    EXPECT_EQ(text->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::red);
}

TEST_F(TableDrawing, EmptyTextIsLeftAlone)
{
    noteCells();
    source->value = [](NSTableColumn&, long) { return ObjectValue(""); };
    table->selectRow(0, false);
    EXPECT_EQ(drawRow(0)[0].text->length(), 0);
    EXPECT_EQ(table->tableColumns()[0]->dataCell()->objectValue(), ObjectValue(""));
}

TEST_F(TableDrawing, SelectedTextFollowsItsTextFontAndStyle)
{
    noteCells();
    for (auto const& column : table->tableColumns()) {
        column->setDataCell(make<NSTextFieldCell>(""));
        column->dataCell()->setFont(NSFont::systemFontOfSize(13));
    }
    source->value = [](NSTableColumn&, long) { return ObjectValue("same"); };
    table->selectAll(nullptr);
    auto* cell = table->tableColumns()[0]->dataCell();
    auto const dressed = [&] {
        drawRow(1);
        return cell->objectValue().as<NSAttributedString>();
    };
    auto const first = dressed();
    ASSERT_TRUE(first);
    EXPECT_EQ(dressed(), first);
    cell->setFont(NSFont::systemFontOfSize(20));
    EXPECT_EQ(dressed()->attribute(NSFontAttributeName, 0).as<NSFont>()->pointSize(), 20);
    cell->setAlignment(NSRightTextAlignment);
    auto const right = dressed()->attribute(NSParagraphStyleAttributeName, 0).as<NSParagraphStyle>();
    ASSERT_TRUE(right);
    EXPECT_EQ(right->alignment(), NSRightTextAlignment);
    source->value = [](NSTableColumn&, long) { return ObjectValue("other"); };
    EXPECT_EQ(dressed()->string(), "other");
}

TEST_F(TableDrawing, TheTextsOfAllSelectedRowsInViewAreMadeOnce)
{
    table->setRowHeight(1);
    table->setIntercellSpacing({ 3, 0 });
    source->count = 100;
    table->reloadData();
    table->selectAll(nullptr);
    pump();
    auto const drawnTexts = [&] {
        std::vector<Ref<NSAttributedString>> texts;
        for (long row = 0; row < source->count; ++row) {
            drawRow(row);
            for (auto const& column : table->tableColumns())
                texts.push_back(column->dataCell()->objectValue().as<NSAttributedString>());
        }
        return texts;
    };
    auto const first = drawnTexts();
    EXPECT_THAT(first, Each(NotNull()));
    EXPECT_TRUE(drawnTexts() == first);
}

TEST_F(TableDrawing, OnOldSystemsSelectedTextKeepsItsWeight)
{
    noteCells();
    table->selectRow(0, false);
    struct Row {
        std::uint32_t version;
        bool isBold;
    };
    for (auto const& row : { Row { 0x1028, false }, Row { 0x103F, false }, Row { 0x1040, true }, Row { 0x1049, true } }) {
        SystemVersion const system(row.version);
        auto const text = drawRow(0)[0].text;
        EXPECT_EQ(text->attribute(NSFontAttributeName, 0).as<NSFont>()->fontName() == NSFont::boldSystemFontOfSize(13)->fontName(),
            row.isBold)
            << row.version;
        EXPECT_EQ(text->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white) << row.version;
        EXPECT_EQ(text->attribute(NSShadowAttributeName, 0).object(), PLIXTableView::standardShadow().get()) << row.version;
    }
}

class PreparingTable : public PLIXTableView {
    PLIX_CLASS(PreparingTable, PLIXTableView);

public:
    using PLIXTableView::init;
    NSCell* preparedCellAtColumn(long column, long row) override
    {
        ++asked;
        return PLIXTableView::preparedCellAtColumn(column, row);
    }
    int asked { 0 };
};

PLIX_DESCRIBE(PreparingTable)
{
}

TEST_F(TableDrawing, OnNewSystemsCellsArePrepared)
{
    auto const preparing = make<PreparingTable>(Rect { 0, 0, 300, 100 });
    prepare(*preparing);
    preparing->setDataSource(source);
    show(*preparing);
    auto const asked = [&](std::uint32_t version) {
        SystemVersion const system(version);
        preparing->asked = 0;
        renderBitmap({ 300, 100 }, 1, [&] { preparing->drawRow(0, {}); });
        return preparing->asked;
    };
    EXPECT_EQ(asked(0x1049), 0);
    EXPECT_EQ(asked(0x104F), 0);
    EXPECT_EQ(asked(0x1050), 3);
}

TEST_F(TableDrawing, PopUpCellsShowTheirItemsTitle)
{
    auto const cell = make<TQPopUpButtonCell>("", false);
    cell->addItemWithTitle("First");
    cell->addItemWithTitle("Second");
    table->tableColumns()[1]->setDataCell(cell);
    source->value = [](NSTableColumn&, long row) { return ObjectValue(row); };
    table->selectRow(1, false);
    drawRow(0);
    auto const plain = cell->displayAttributedString();
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->string(), "First");
    EXPECT_EQ(plain->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::black);
    EXPECT_EQ(plain->attribute(NSFontAttributeName, 0).as<NSFont>(), NSFont::systemFontOfSize(11));
    drawRow(1);
    auto const selected = cell->displayAttributedString();
    EXPECT_EQ(selected->string(), "Second");
    EXPECT_EQ(selected->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white);
    EXPECT_EQ(selected->attribute(NSFontAttributeName, 0).as<NSFont>()->fontName(), NSFont::boldSystemFontOfSize(11)->fontName());
    EXPECT_EQ(selected->attribute(NSShadowAttributeName, 0).object(), PLIXTableView::standardShadow().get());
    SystemVersion const system(0x103F);
    drawRow(1);
    auto const old = cell->displayAttributedString();
    EXPECT_EQ(old->attribute(NSForegroundColorAttributeName, 0).as<NSColor>()->components(), colors::white);
    EXPECT_EQ(old->attribute(NSFontAttributeName, 0).as<NSFont>(), NSFont::systemFontOfSize(11));
    EXPECT_EQ(old->attribute(NSShadowAttributeName, 0).object(), nullptr);
}

TEST_F(TableDrawing, APopUpCellWithoutItemsShowsNothing)
{
    auto const cell = make<TQPopUpButtonCell>("", false);
    cell->removeAllItems();
    table->tableColumns()[1]->setDataCell(cell);
    drawRow(0);
    ASSERT_TRUE(cell->displayAttributedString());
    EXPECT_EQ(cell->displayAttributedString()->length(), 0);
}

class CellWatcher : public NSObject {
public:
    void willDisplayCell(NSTableView&, NSCell& cell, NSTableColumn& column, long row)
    {
        calls.push_back(column.identifier().description() + std::to_string(row) + "=" + cell.stringValue());
        if (onCall)
            onCall(row);
    }
    Strings calls;
    std::function<void(long row)> onCall;
};

TEST_F(TableDrawing, TheDelegateSeesEachCellWithItsValue)
{
    auto const watcher = make<CellWatcher>();
    table->setDelegate(watcher);
    drawRow(1);
    EXPECT_THAT(watcher->calls, ElementsAre("a1=a 1", "b1=b 1", "c1=c 1"));
}

TEST_F(TableDrawing, WithoutDataSourceTheCellsKeepTheirValues)
{
    noteCells();
    table->setDataSource(nullptr);
    table->tableColumns()[0]->dataCell()->setObjectValue("kept");
    drawRow(0);
    EXPECT_EQ(table->tableColumns()[0]->dataCell()->stringValue(), "kept");
}

// MARK: what hooks may do while it draws

TEST_F(TableDrawing, HooksMayTakeRowsColumnsAndTheTableAway)
{
    auto const watcher = make<CellWatcher>();
    struct Deed {
        char const* name;
        std::function<void()> act;
    };
    Weak<PLIXTableView> const watched(table);
    for (auto const& deed : std::vector<Deed> {
             { "shrinks",
                 [&] {
                     source->count = 1;
                     watched->reloadData();
                 } },
             { "hides columns",
                 [&] {
                     while (watched->numberOfColumns() > 0)
                         watched->hideColumn(0);
                 } },
             { "lets go of the data source", [&] { watched->setDataSource(nullptr); } },
             { "lets go of the delegate", [&] { watched->setDelegate(nullptr); } },
             { "closes the window", [&] { window->close(); } },
             { "destroys the table",
                 [&] {
                     scrollView->setDocumentView(nullptr);
                     table = nullptr;
                 } },
         }) {
        source = make<NumberedRows>();
        table = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
        const_cast<Weak<PLIXTableView>&>(watched) = table;
        prepare(*table);
        table->setDataSource(source);
        show(*table);
        bool isDone = false;
        watcher->onCall = [&](long row) {
            if (row == 2 && !isDone) {
                isDone = true;
                deed.act();
            }
        };
        table->setDelegate(watcher);
        table->selectRowIndexes({ 1, 2, 3 }, false);
        table->setNeedsDisplay(true);
        pump();
        EXPECT_TRUE(isDone) << deed.name;
        pump();
    }
}

TEST_F(TableDrawing, TheWrongKindsOfValuesAreDrawnSomehow)
{
    std::vector<ObjectValue> const values { {}, 17, 2.5, true, ObjectValue(make<Painter>()), std::string(1000000, 'x'),
        "line\nfeed", "\xFF\xFE" };
    source->count = static_cast<long>(values.size());
    source->value = [&](NSTableColumn&, long row) { return values[static_cast<std::size_t>(row)]; };
    table->reloadData();
    table->selectAll(nullptr);
    activate();
    auto const shown = picture();
    EXPECT_TRUE(hasInk(shown, inWindow(*table, table->rectOfRow(0)), colors::white));
}

}
}
