#include <tests/support/StyledTableTest.h>

#include <plix/platform/appkit/NSCursor.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/tables/PLIXNSTableHeaderView.h>
#include <plix/tables/table_column_additions.h>
#include <plix/tables/table_view_additions.h>

#include <plix/tables/CellWidths.h>

#include <random>

namespace plix {
namespace {

// MARK: colours

class SelectionColors : public StyledTableTest {
protected:
    void SetUp() override
    {
        StyledTableTest::SetUp();
        NSColor::setUserHighlightColor(NSColor::colorWithCalibratedRed(0.2F, 0.4F, 0.8F, 1));
    }
    void TearDown() override { NSColor::setUserHighlightColor(nullptr); }
    static constexpr ColorComponents gray { 0.7F, 0.7F, 0.7F, 1 };
    static bool isTheUsers(ColorComponents const& color)
    {
        return std::abs(color.red - 0.2F) < 1e-5 && std::abs(color.green - 0.4F) < 1e-5 && std::abs(color.blue - 0.8F) < 1e-5;
    }
};

TEST_F(SelectionColors, AreTheUsersWhileTheTableHasTheKeyboard)
{
    window->makeFirstResponder(table.get());
    EXPECT_TRUE(isTheUsers(selectionColor(*table)->components()));
    EXPECT_NEAR(selectionOutlineColor(*table)->blueComponent(), 0.64F, 1e-4);
    EXPECT_TRUE(selectionShouldDrawGradient(*table));
}

TEST_F(SelectionColors, AreGreyWhereTheWindowIsNotKey)
{
    window->makeFirstResponder(table.get());
    person().focusNothing();
    pump();
    EXPECT_EQ(selectionColor(*table)->components(), gray);
    EXPECT_NEAR(selectionOutlineColor(*table)->redComponent(), 0.56F, 1e-4);
    EXPECT_FALSE(selectionShouldDrawGradient(*table));
}

TEST_F(SelectionColors, AreGreyWhereSomebodyElseHasTheKeyboard)
{
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(selectionColor(*table)->components(), gray);
    EXPECT_FALSE(selectionShouldDrawGradient(*table));
}

TEST_F(SelectionColors, AreTheUsersWhileACellIsEdited)
{
    table->tableColumns()[0]->dataCell()->setEditable(true);
    window->makeFirstResponder(table.get());
    table->selectRow(1, false);
    table->editColumn(0, 1, nullptr, true);
    ASSERT_EQ(table->editedRow(), 1);
    ASSERT_NE(window->firstResponder(), table.get());
    EXPECT_TRUE(isTheUsers(selectionColor(*table)->components()));
    EXPECT_TRUE(selectionShouldDrawGradient(*table));
}

TEST_F(SelectionColors, OfADisabledTableAreAGreyEvenWhileActive)
{
    window->makeFirstResponder(table.get());
    table->setEnabled(false);
    window->makeFirstResponder(table.get());
    auto const color = selectionColor(*table)->components();
    EXPECT_EQ(color.red, color.green);
    EXPECT_EQ(color.green, color.blue);
    EXPECT_EQ(color.alpha, 1);
    EXPECT_NEAR(selectionOutlineColor(*table)->redComponent(), color.red * 0.8F, 1e-4);
    EXPECT_FALSE(selectionShouldDrawGradient(*table));
}

TEST_F(SelectionColors, AreThereForPlainTablesToo)
{
    auto const plain = make<NSTableView>(Rect { 0, 0, 100, 100 });
    EXPECT_EQ(selectionColor(*plain)->components(), gray);
    EXPECT_FALSE(selectionShouldDrawGradient(*plain));
}

// MARK: widths

class ColumnWidths : public StyledTableTest {
protected:
    NSTableColumn& column(std::size_t index = 0) { return *table->tableColumns()[index]; }
    void setTexts(Strings texts)
    {
        source->count = static_cast<long>(texts.size());
        source->value = [texts](NSTableColumn&, long row) { return ObjectValue(texts[static_cast<std::size_t>(row)]); };
        table->reloadData();
    }
    float widthOf(ObjectValue const& value)
    {
        auto const cell = Ref(column().dataCell())->copy();
        cell->setObjectValue(value);
        return cell->cellSize().width;
    }
};

TEST_F(ColumnWidths, WithoutRowsTheLeastWidthCounts)
{
    setTexts({});
    EXPECT_EQ(column().minWidth(), 10);
    EXPECT_EQ(dataWidth(column()), 15);
    column().setMinWidth(40);
    EXPECT_EQ(dataWidth(column()), 48);
}

TEST_F(ColumnWidths, WithoutTableOrDataSourceItIsTheLeastWidthItself)
{
    auto const alone = make<NSTableColumn>(ObjectValue("alone"));
    EXPECT_EQ(dataWidth(*alone), 10);
    table->setDataSource(nullptr);
    EXPECT_EQ(dataWidth(column()), 10);
}

TEST_F(ColumnWidths, TheWidestValueAndATenth)
{
    setTexts({ "short", "the longest of them", "longer" });
    float const widest = widthOf("the longest of them");
    EXPECT_EQ(dataWidth(column()), std::trunc(static_cast<double>(widest) * 1.1) + 4);
}

TEST_F(ColumnWidths, SizingStaysWithinTheGreatestWidth)
{
    setTexts({ "a value that is much too wide for its column" });
    column().setMaxWidth(120);
    sizeToFitData(column());
    EXPECT_EQ(column().width(), 120);
    setTexts({ "x" });
    column().setMinWidth(30);
    sizeToFitData(column());
    EXPECT_EQ(column().width(), 37);
}

TEST_F(ColumnWidths, TheCellKeepsItsValue)
{
    column().dataCell()->setObjectValue("mine");
    dataWidth(column());
    EXPECT_EQ(column().dataCell()->objectValue(), ObjectValue("mine"));
}

TEST_F(ColumnWidths, EveryRowIsAskedForOnceAndWithoutDelegate)
{
    source->asked.clear();
    dataWidth(column(1));
    EXPECT_EQ(source->asked, (Strings { "b 0", "b 1", "b 2", "b 3", "b 4" }));
}

TEST_F(ColumnWidths, RowsMayGoAwayMeanwhile)
{
    source->count = 100;
    table->reloadData();
    source->asked.clear();
    source->onAsk = [&](long row) {
        if (row == 10) {
            source->count = 3;
            table->reloadData();
        }
    };
    dataWidth(column());
    EXPECT_LT(source->asked.size(), 20U);
}

TEST_F(ColumnWidths, ValuesOfAllKindsAreMeasured)
{
    Attributes const large { { NSFontAttributeName, NSFont::systemFontOfSize(40) } };
    for (auto const& value : { ObjectValue(), ObjectValue(12345678), ObjectValue(make<NSAttributedString>("large", large)),
             ObjectValue("two\nlines"), ObjectValue("tab\there"), ObjectValue("\u05E2\u05D1\u05E8\u05D9\u05EA"),
             ObjectValue("e\u0301\u0302 \u4E2D\u6587"), ObjectValue("broken \xFF bytes"), ObjectValue("") }) {
        CellWidths widths(*column().dataCell());
        EXPECT_NEAR(widths.widthOf(value), widthOf(value), 1.0 / 64) << value.description();
    }
}

class OddCell : public NSTextFieldCell {
    PLIX_CLASS(OddCell, NSTextFieldCell);

public:
    using NSTextFieldCell::init;
    Size cellSize() const override { return { 50, 10 }; }
};

PLIX_DESCRIBE(OddCell)
{
}

TEST_F(ColumnWidths, CellsOfOtherClassesMeasureThemselves)
{
    column().setDataCell(make<OddCell>(""));
    EXPECT_EQ(dataWidth(column()), 59);
}

TEST_F(ColumnWidths, AreAsIfEveryTextHadBeenShaped)
{
    std::mt19937 random(7);
    static constexpr char alphabet[]
        = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789 .,-:;/()'\"!?&%+=fifflTaVATo";
    auto const below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    Ref<NSCell> const shaping(Ref(column().dataCell())->copy());
    CellWidths widths(*column().dataCell());
    int differences = 0;
    for (int i = 0; i < 100000; ++i) {
        std::string text;
        for (auto length = below(24); length > 0; --length)
            text += alphabet[below(sizeof alphabet - 1)];
        if (below(50) == 0)
            text += "\u00E4\u2019";
        float const fast = widths.widthOf(ObjectValue(text));
        Attributes const attributes { { NSFontAttributeName, Ref<NSFont>(shaping->font()) }, { NSLigatureAttributeName, 1 },
            { NSKernAttributeName, 0 } };
        shaping->setAttributedStringValue(make<NSAttributedString>(text, attributes));
        differences += std::abs(fast - shaping->cellSize().width) > 1.0F / 64;
    }
    EXPECT_EQ(differences, 0);
}

// MARK: the header

class HeaderTest : public ColumnWidths {
protected:
    PLIXNSTableHeaderView& header() { return dynamic_cast<PLIXNSTableHeaderView&>(*table->headerView()); }
    float edgeOf(long column) { return header().headerRectOfColumn(column).maxX(); }
    void doubleClick(float x) { click(header(), { x, header().bounds().midY() }, { .count = 2 }); }
    static float fitted(NSTableColumn& column) { return std::min(dataWidth(column), column.maxWidth()); }
};

TEST_F(HeaderTest, ADoubleClickOnADividerFitsTheColumnBeforeIt)
{
    setTexts({ "the longest of them", "x" });
    float const other = column(1).width();
    doubleClick(edgeOf(0));
    EXPECT_EQ(column(0).width(), fitted(column(0)));
    EXPECT_EQ(column(1).width(), other);
    doubleClick(edgeOf(1) - 1);
    EXPECT_EQ(column(1).width(), fitted(column(1)));
}

TEST_F(HeaderTest, ADividerIsDraggedAsInAnyHeader)
{
    setTexts({ "the longest of them", "x" });
    drag(header(), { edgeOf(0), 5 }, { edgeOf(0) + 40, 5 });
    EXPECT_EQ(column(0).width(), 140);
    click(header(), { edgeOf(0), 5 });
    EXPECT_EQ(column(0).width(), 140);
}

TEST_F(HeaderTest, ElsewhereOrSwitchedOffItIsAClickLikeAny)
{
    setTexts({ "the longest of them", "x" });
    float const before = column(0).width();
    doubleClick(edgeOf(0) / 2);
    EXPECT_EQ(column(0).width(), before);
    header().setResizeColumnsOnDoubleClick(false);
    doubleClick(edgeOf(0));
    EXPECT_EQ(column(0).width(), before);
}

TEST_F(HeaderTest, TheNearestDividerWithinTenPointsIsMeantAndTheLeftOfTwo)
{
    setTexts({ "the longest of them", "x" });
    struct Row {
        float fromEdge;
        bool fits;
    };
    for (auto const& row : { Row { 0, true }, Row { 9, true }, Row { -9.5F, true }, Row { 12, false }, Row { -10, false } }) {
        column(0).setWidth(100);
        NSCursor::resizeLeftRightCursor().set();
        auto const event = mouseEvent(NSLeftMouseDown, header(), { edgeOf(0) + row.fromEdge, 5 }, 0, 2);
        person().release(onScreen(header(), { edgeOf(0) + row.fromEdge, 5 }));
        header().mouseDown(*event);
        pump();
        EXPECT_EQ(column(0).width() != 100, row.fits) << row.fromEdge;
    }
    NSCursor::arrowCursor().set();
}

TEST_F(HeaderTest, OfADisabledTableIgnoresEveryClick)
{
    setTexts({ "the longest of them", "x" });
    table->setEnabled(false);
    float const before = column(0).width();
    doubleClick(edgeOf(0));
    drag(header(), { edgeOf(0), 5 }, { edgeOf(0) + 40, 5 });
    EXPECT_EQ(column(0).width(), before);
}

TEST_F(HeaderTest, ResizesByDoubleClicksUnlessToldOtherwise)
{
    EXPECT_TRUE(header().resizeColumnsOnDoubleClick());
    EXPECT_TRUE(make<PLIXNSTableHeaderView>()->resizeColumnsOnDoubleClick());
    header().setResizeColumnsOnDoubleClick(false);
    EXPECT_FALSE(header().resizeColumnsOnDoubleClick());
}

TEST_F(HeaderTest, TheDataSourceMayTakeTheTableAwayMeanwhile)
{
    for (bool const hides : { true, false }) {
        source = make<NumberedRows>();
        table = make<PLIXTableView>(Rect { 0, 0, 300, 180 });
        prepare(*table);
        table->setDataSource(source);
        show(*table);
        bool isDone = false;
        source->onAsk = [&](long row) {
            if (row != 2 || isDone)
                return;
            isDone = true;
            if (hides) {
                table->hideColumn(0);
                return;
            }
            scrollView->setDocumentView(nullptr);
            table = nullptr;
        };
        Ref<NSTableColumn> const kept(column());
        sizeToFitData(*kept);
        EXPECT_TRUE(isDone);
    }
}

}
}
