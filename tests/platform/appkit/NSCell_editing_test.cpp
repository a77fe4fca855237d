#include <tests/support/TextTest.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/field_editing.h>
#include <plix/platform/foundation/NSNotification.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>

#include <vector>

namespace plix {
namespace {

/// Values below each other, drawn by one cell and edited in place by a copy of it, as lists do it.
class Column : public NSControl {
    PLIX_CLASS(Column, NSControl);

public:
    bool init(Rect frame)
    {
        Base::init(frame);
        auto const text = make<NSTextFieldCell>("");
        text->setEditable(true);
        text->setScrollable(true);
        setCell(text);
        return true;
    }
    Rect frameOfRow(std::size_t row) const { return { 0, static_cast<float>(row) * 20, bounds().width, 20 }; }
    void drawRect(Rect) override
    {
        for (std::size_t row = 0; row < values.size(); ++row) {
            cell()->setStringValue(values[row]);
            if (!editing || row != edited)
                cell()->drawWithFrame(frameOfRow(row), *this);
        }
        if (editing)
            editing->drawWithFrame(frameOfRow(edited), *this);
    }
    NSCell* selectedCell() const override { return editing ? editing.get() : cell(); }
    void mouseDown(NSEvent& event) override
    {
        edited = static_cast<std::size_t>(convertPointFromView(event.locationInWindow(), nullptr).y / 20);
        begin();
        editing->editWithFrame(frameOfRow(edited), *this, editor(), this, event);
    }
    void select(std::size_t row)
    {
        edited = row;
        begin();
        editing->selectWithFrame(frameOfRow(row), *this, editor(), this, 0, NSNotFound);
    }
    bool textShouldEndEditing(NSText& text) { return FieldEditing(*this, *editing, hooks).mayEnd(text); }
    void textDidEndEditing(NSNotification const& notification)
    {
        Ref<NSText> const text(currentEditor());
        validateEditing();
        auto const done = std::move(editing);
        values[edited] = done->stringValue();
        done->endEditing(*text);
        bool const goesOn = notification.userInfo.at("NSTextMovement").intValue() == NSReturnTextMovement;
        if (goesOn && edited + 1 < values.size())
            select(edited + 1);
    }

    std::vector<std::string> values { "one", "two", "three" };
    Ref<NSCell> editing;
    std::size_t edited { 0 };
    NSControlTextEditingDelegate hooks;

private:
    void begin()
    {
        window()->makeFirstResponder(nullptr);
        editing = cell()->copy();
        editing->setStringValue(values[edited]);
    }
    NSText& editor() { return static_cast<NSText&>(*window()->fieldEditor(true, this)); }
};

PLIX_DESCRIBE(Column)
{
    description.fillsHooks<NSTextViewDelegate>();
}

class EditingInPlace : public TextTest {
protected:
    void SetUp() override
    {
        TextTest::SetUp();
        column = make<Column>(Rect { 20, 20, 100, 100 });
        window->contentView()->addSubview(*column);
        pump();
    }
    bool hasInk(Rect inColumn)
    {
        pump();
        auto const snapshot = window->snapshot();
        auto const rect = column->convertRectToView(inColumn, window->contentView());
        float const top = static_cast<float>(snapshot->pixelsHigh()) - rect.maxY();
        for (float y = top; y < top + rect.height; y += 1) {
            for (float x = rect.x; x < rect.maxX(); x += 1) {
                if (snapshot->colorAtX(static_cast<int>(x), static_cast<int>(y))->greenComponent() < 0.5F)
                    return true;
            }
        }
        return false;
    }

    Ref<Column> column;
};

TEST_F(EditingInPlace, ACellIsEditedWhereItStands)
{
    click(*column, { 90, 30 });
    EXPECT_EQ(marked(), "two|");
    EXPECT_EQ(editor().convertRectToView(editor().visibleRect(), column.get()), column->frameOfRow(1));
    type("!");
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(column->values, (std::vector<std::string> { "one", "two!", "three" }));
    EXPECT_TRUE(column->subviews().empty());
}

TEST_F(EditingInPlace, ReturnMayGoOnToTheNextCell)
{
    column->select(0);
    type("1");
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(marked(), "[two]");
    EXPECT_EQ(column->edited, 1U);
    EXPECT_EQ(window->firstResponder(), column->currentEditor());
    key(NSCarriageReturnCharacter);
    type("3");
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(column->values, (std::vector<std::string> { "1", "two", "3" }));
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(EditingInPlace, OnlyTheEditedCellLeavesItsTextToTheEditor)
{
    ASSERT_TRUE(hasInk(column->frameOfRow(0)));
    column->select(0);
    editor().setDrawsBackground(false);
    editor().setString("");
    editor().setEditable(false);
    EXPECT_FALSE(hasInk(NSInsetRect(column->frameOfRow(0), 3, 3)));
    EXPECT_TRUE(hasInk(column->frameOfRow(1)));
    EXPECT_TRUE(hasInk(column->frameOfRow(2)));
}

TEST_F(EditingInPlace, TheNextOneGetsAnEditorAsItWasMade)
{
    auto const background = NSColor::textBackgroundColor();
    column->select(0);
    editor().setDrawsBackground(false);
    editor().setBackgroundColor(NSColor::redColor());
    window->makeFirstResponder(nullptr);
    column->select(1);
    EXPECT_TRUE(editor().drawsBackground());
    EXPECT_EQ(editor().backgroundColor(), background.get());
}

TEST_F(EditingInPlace, AFieldAndACellShareTheEditor)
{
    column->select(2);
    type("x");
    clickCenter(*field);
    type("y");
    EXPECT_EQ(column->values[2], "x");
    EXPECT_EQ(column->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "y");
}

TEST_F(EditingInPlace, ARefusalKeepsTheCellsEditor)
{
    column->hooks.textShouldEndEditing = [](NSControl&, NSText&) { return false; };
    column->select(2);
    type("x");
    clickCenter(*field);
    EXPECT_EQ(window->firstResponder(), column->currentEditor());
    EXPECT_EQ(field->currentEditor(), nullptr);
    column->hooks.textShouldEndEditing = {};
}

TEST_F(EditingInPlace, ACopyOfAnEditedCellIsNotEdited)
{
    column->select(0);
    EXPECT_TRUE(column->editing->isBeingEdited());
    EXPECT_FALSE(column->editing->copy()->isBeingEdited());
}

TEST_F(EditingInPlace, ACellThatIsNeitherEditableNorSelectableIsLeftAlone)
{
    auto const plain = make<NSTextFieldCell>("text");
    plain->selectWithFrame({ 0, 0, 50, 20 }, *column, editor(), column.get(), 0, 4);
    EXPECT_FALSE(plain->isBeingEdited());
    EXPECT_EQ(editor().superview(), nullptr);
}

TEST_F(EditingInPlace, EndingLeavesTheWindowWithTheKeyboardOnce)
{
    column->select(0);
    type("x");
    EXPECT_TRUE(window->makeFirstResponder(field.get()));
    EXPECT_TRUE(isEditing(*field));
    EXPECT_TRUE(field->cell()->showsFirstResponder());
}

}
}
