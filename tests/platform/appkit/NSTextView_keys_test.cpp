#include <tests/support/TextTest.h>

namespace plix {
namespace {

constexpr unsigned shift = NSShiftKeyMask;
constexpr unsigned control = NSControlKeyMask;
constexpr unsigned command = NSCommandKeyMask;
constexpr char32_t left = NSLeftArrowFunctionKey;
constexpr char32_t right = NSRightArrowFunctionKey;
constexpr char32_t up = NSUpArrowFunctionKey;
constexpr char32_t down = NSDownArrowFunctionKey;
constexpr char32_t home = NSHomeFunctionKey;
constexpr char32_t end = NSEndFunctionKey;
constexpr char32_t backspace = NSDeleteCharacter;
constexpr char32_t forwardDelete = NSDeleteFunctionKey;

/// A key in a text: `|` is the caret, brackets stand around a selection.
struct KeyRow {
    char const* name;
    char const* before;
    char32_t key;
    unsigned modifiers;
    char const* after;
};

void PrintTo(KeyRow const& row, std::ostream* out)
{
    *out << row.before << " becomes " << row.after;
}

class KeyInField : public TextTest, public testing::WithParamInterface<KeyRow> { };

TEST_P(KeyInField, DoesWhatItIsFor)
{
    auto const& row = GetParam();
    editMarked(row.before);
    key(row.key, row.modifiers);
    EXPECT_EQ(marked(), row.after);
}

std::string nameOf(testing::TestParamInfo<KeyRow> const& info)
{
    return info.param.name;
}

INSTANTIATE_TEST_SUITE_P(Moving, KeyInField,
    testing::Values(KeyRow { "LeftGoesOneBack", "ab|c", left, 0, "a|bc" }, //
        KeyRow { "LeftStaysAtTheStart", "|abc", left, 0, "|abc" }, //
        KeyRow { "RightGoesOneOn", "a|bc", right, 0, "ab|c" }, //
        KeyRow { "RightStaysAtTheEnd", "abc|", right, 0, "abc|" }, //
        KeyRow { "LeftOfASelectionIsItsStart", "a[bc]d", left, 0, "a|bcd" }, //
        KeyRow { "RightOfASelectionIsItsEnd", "a[bc]d", right, 0, "abc|d" }, //
        KeyRow { "WordLeft", "one two|", left, control, "one |two" }, //
        KeyRow { "WordLeftFromInside", "one tw|o", left, control, "one |two" }, //
        KeyRow { "WordRight", "|one two", right, control, "one| two" }, //
        KeyRow { "WordRightOverBlanks", "one|  two", right, control, "one  two|" }, //
        KeyRow { "Home", "one tw|o", home, 0, "|one two" }, //
        KeyRow { "End", "on|e two", end, 0, "one two|" }, //
        KeyRow { "CommandLeft", "one tw|o", left, command, "|one two" }, //
        KeyRow { "CommandRight", "o|ne two", right, command, "one two|" }, //
        KeyRow { "ControlHome", "one tw|o", home, control, "|one two" }, //
        KeyRow { "ControlEnd", "o|ne two", end, control, "one two|" }, //
        KeyRow { "UpInOneLineIsTheStart", "one tw|o", up, 0, "|one two" }, //
        KeyRow { "DownInOneLineIsTheEnd", "one| two", down, 0, "one two|" }, //
        KeyRow { "HomeOfASelection", "one [tw]o", home, 0, "|one two" }, //
        KeyRow { "EndOfASelection", "o[ne] two", end, 0, "one two|" }),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Extending, KeyInField,
    testing::Values(KeyRow { "ShiftLeft", "ab|c", left, shift, "a[b]c" }, //
        KeyRow { "ShiftRight", "a|bc", right, shift, "a[b]c" }, //
        KeyRow { "ShiftRightMovesTheEnd", "[a]bc", right, shift, "[ab]c" }, //
        KeyRow { "ShiftLeftShrinksFromTheEnd", "[ab]c", left, shift, "[a]bc" }, //
        KeyRow { "ShiftHome", "one t|wo", home, shift, "[one t]wo" }, //
        KeyRow { "ShiftEnd", "one t|wo", end, shift, "one t[wo]" }, //
        KeyRow { "ShiftWordLeft", "one two|", left, control | shift, "one [two]" }, //
        KeyRow { "ShiftWordRight", "|one two", right, control | shift, "[one] two" }, //
        KeyRow { "ShiftControlHome", "one t|wo", home, control | shift, "[one t]wo" }, //
        KeyRow { "ShiftControlEnd", "one t|wo", end, control | shift, "one t[wo]" }, //
        KeyRow { "ControlASelectsAll", "one| two", U'a', control, "[one two]" }, //
        KeyRow { "CommandASelectsAll", "one| two", U'a', command, "[one two]" }),
    nameOf);

INSTANTIATE_TEST_SUITE_P(Deleting, KeyInField,
    testing::Values(KeyRow { "Backspace", "ab|c", backspace, 0, "a|c" }, //
        KeyRow { "BackspaceAtTheStart", "|abc", backspace, 0, "|abc" }, //
        KeyRow { "BackspaceTakesTheSelection", "a[bc]d", backspace, 0, "a|d" }, //
        KeyRow { "DeleteForward", "a|bc", forwardDelete, 0, "a|c" }, //
        KeyRow { "DeleteForwardAtTheEnd", "abc|", forwardDelete, 0, "abc|" }, //
        KeyRow { "DeleteForwardTakesTheSelection", "[ab]c", forwardDelete, 0, "|c" }, //
        KeyRow { "WordBackward", "one two|", backspace, control, "one |" }, //
        KeyRow { "WordForward", "|one two", forwardDelete, control, "| two" }, //
        KeyRow { "LineBackward", "one t|wo", backspace, command, "|wo" }, //
        KeyRow { "ShiftBackspaceDeletesToo", "ab|c", backspace, shift, "a|c" }),
    nameOf);

// Family emoji, letters with marks, flags, Hangul: what a person counts as one moves and goes as one.
INSTANTIATE_TEST_SUITE_P(Characters, KeyInField,
    testing::Values(KeyRow { "LeftOverASurrogatePair", "a\U0001F600|b", left, 0, "a|\U0001F600b" }, //
        KeyRow { "RightOverASurrogatePair", "a|\U0001F600b", right, 0, "a\U0001F600|b" }, //
        KeyRow { "ShiftRightOverASurrogatePair", "|\U0001F600b", right, shift, "[\U0001F600]b" }, //
        KeyRow { "BackspaceTakesASurrogatePair", "a\U0001F600|b", backspace, 0, "a|b" }, //
        KeyRow { "DeleteForwardTakesASurrogatePair", "a|\U0001F600b", forwardDelete, 0, "a|b" }, //
        KeyRow { "LeftOverACombiningMark", "xe\u0301|y", left, 0, "x|e\u0301y" }, //
        KeyRow { "RightOverACombiningMark", "x|e\u0301y", right, 0, "xe\u0301|y" }, //
        KeyRow { "BackspaceTakesTheMarkAndItsLetter", "xe\u0301|y", backspace, 0, "x|y" }, //
        KeyRow { "DeleteForwardTakesTheMarkAndItsLetter", "x|e\u0301y", forwardDelete, 0, "x|y" }, //
        KeyRow { "RightOverSeveralMarks", "|e\u0323\u0301\u0302y", right, 0, "e\u0323\u0301\u0302|y" }, //
        KeyRow { "LeftOverAFamily", "a\U0001F469\u200D\U0001F467|", left, 0, "a|\U0001F469\u200D\U0001F467" }, //
        KeyRow { "BackspaceTakesAFamily", "a\U0001F469\u200D\U0001F467|", backspace, 0, "a|" }, //
        KeyRow { "RightOverAFlag", "|\U0001F1E9\U0001F1EAx", right, 0, "\U0001F1E9\U0001F1EA|x" }, //
        KeyRow { "BackspaceTakesASkinTone", "\U0001F44D\U0001F3FD|", backspace, 0, "|" }, //
        KeyRow { "WordLeftOverMarks", "a cafe\u0301|", left, control, "a |cafe\u0301" }),
    nameOf);

// Right to left: the arrows go as the text is seen, Backspace as it is read.
INSTANTIATE_TEST_SUITE_P(RightToLeft, KeyInField,
    testing::Values(KeyRow { "LeftGoesOn", "\u05D0|\u05D1\u05D2", left, 0, "\u05D0\u05D1|\u05D2" }, //
        KeyRow { "RightGoesBack", "\u05D0\u05D1|\u05D2", right, 0, "\u05D0|\u05D1\u05D2" }, //
        KeyRow { "LeftStaysAtTheEnd", "\u05D0\u05D1|", left, 0, "\u05D0\u05D1|" }, //
        KeyRow { "ShiftLeftExtendsOn", "\u05D0|\u05D1\u05D2", left, shift, "\u05D0[\u05D1]\u05D2" }, //
        KeyRow { "BackspaceTakesWhatWasReadBefore", "\u05D0\u05D1|\u05D2", backspace, 0, "\u05D0|\u05D2" }, //
        KeyRow { "DeleteForwardTakesWhatIsReadNext", "\u05D0|\u05D1\u05D2", forwardDelete, 0, "\u05D0|\u05D2" }, //
        KeyRow { "WordLeftGoesOn", "|\u05D0\u05D1 \u05D2\u05D3", left, control, "\u05D0\u05D1| \u05D2\u05D3" }, //
        KeyRow { "WordRightGoesBack", "\u05D0\u05D1 \u05D2\u05D3|", right, control, "\u05D0\u05D1 |\u05D2\u05D3" }, //
        KeyRow { "HomeIsWhereReadingStarts", "\u05D0\u05D1|\u05D2", home, 0, "|\u05D0\u05D1\u05D2" }, //
        KeyRow { "LeftOfASelectionIsItsEnd", "\u05D0[\u05D1\u05D2]\u05D3", left, 0, "\u05D0\u05D1\u05D2|\u05D3" }, //
        KeyRow { "RightOfASelectionIsItsStart", "\u05D0[\u05D1\u05D2]\u05D3", right, 0, "\u05D0|\u05D1\u05D2\u05D3" }),
    nameOf);

using NSTextView_ = TextTest;

TEST_F(NSTextView_, ExtendsAndShrinksASelectionAcrossItsAnchor)
{
    edit("abcdef", { 3, 0 });
    key(left, shift);
    key(left, shift);
    EXPECT_EQ(marked(), "a[bc]def");
    for (int i = 0; i < 4; ++i)
        key(right, shift);
    EXPECT_EQ(marked(), "abc[de]f");
}

TEST_F(NSTextView_, WalksMixedDirectionsAsTheyAreSeen)
{
    edit("ab \u05D0\u05D1\u05D2 cd", { 0, 0 });
    float last = editor().caretRect().x;
    for (int i = 0; i < 9; ++i) {
        key(right);
        EXPECT_GE(editor().caretRect().x, last - 0.01F) << "step " << i;
        last = editor().caretRect().x;
    }
    EXPECT_EQ(editor().selectedRange(), (NSRange { 9, 0 }));
}

TEST_F(NSTextView_, KeepsItsColumnOverShortLines)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "long line one\nab\nlong line two");
    view->setSelectedRange({ 8, 0 });
    key(down);
    EXPECT_EQ(marked(*view), "long line one\nab|\nlong line two");
    key(down);
    EXPECT_EQ(view->selectedRange(), (NSRange { 25, 0 }));
    key(up);
    key(up);
    EXPECT_EQ(view->selectedRange(), (NSRange { 8, 0 }));
}

TEST_F(NSTextView_, MovesThroughParagraphsAndTheWholeText)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "one\ntwo words\nthree");
    view->setSelectedRange({ 8, 0 });
    key(home);
    EXPECT_EQ(view->selectedRange().location, 4);
    key(end);
    EXPECT_EQ(view->selectedRange().location, 13);
    view->doCommandBySelector(Selector("moveToBeginningOfParagraph:"));
    EXPECT_EQ(view->selectedRange().location, 4);
    view->doCommandBySelector(Selector("moveToEndOfParagraph:"));
    EXPECT_EQ(view->selectedRange().location, 13);
    key(home, control);
    EXPECT_EQ(view->selectedRange().location, 0);
    key(end, control);
    EXPECT_EQ(view->selectedRange().location, 19);
}

TEST_F(NSTextView_, EndOfAWrappedLineStaysOnIt)
{
    auto const view = addTextView({ 10, 10, 80, 200 }, "several words that wrap at the edge");
    view->setSelectedRange({ 0, 0 });
    float const y = view->caretRect().y;
    key(end);
    EXPECT_EQ(view->caretRect().y, y);
    EXPECT_GT(view->selectedRange().location, 4);
    key(right);
    EXPECT_GT(view->caretRect().y, y);
}

TEST_F(NSTextView_, UpAndDownGoFromTheEndsOfASelection)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "aaaa\nbbbb\ncccc");
    view->setSelectedRange({ 5, 2 });
    key(down);
    EXPECT_EQ(view->selectedRange(), (NSRange { 12, 0 }));
    view->setSelectedRange({ 5, 2 });
    key(up);
    EXPECT_EQ(view->selectedRange(), (NSRange { 0, 0 }));
}

TEST_F(NSTextView_, ShiftDownSelectsLines)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "aaaa\nbbbb\ncccc");
    view->setSelectedRange({ 1, 0 });
    key(down, shift);
    EXPECT_EQ(marked(*view), "a[aaa\nb]bbb\ncccc");
    key(down, shift);
    key(down, shift);
    EXPECT_EQ(marked(*view), "a[aaa\nbbbb\ncccc]");
}

TEST_F(NSTextView_, PagesGoAsFarAsIsVisible)
{
    std::string text;
    for (int i = 0; i < 200; ++i)
        text += "line\n";
    auto const clip = make<NSClipView>(Rect { 10, 10, 300, 100 });
    auto const view = make<NSTextView>(Rect { 0, 0, 300, 100 });
    view->setString(text);
    window->contentView()->addSubview(*clip);
    clip->setDocumentView(view);
    window->makeFirstResponder(view.get());
    view->setSelectedRange({ 0, 0 });
    key(NSPageDownFunctionKey);
    float const y = view->caretRect().y;
    EXPECT_GT(y, 60);
    EXPECT_LE(y, 110);
    EXPECT_TRUE(NSContainsRect(view->visibleRect(), view->caretRect()));
    key(NSPageUpFunctionKey);
    EXPECT_EQ(view->selectedRange().location, 0);
    key(NSPageDownFunctionKey, shift);
    EXPECT_GT(view->selectedRange().length, 10);
}

TEST_F(NSTextView_, ReturnEntersALineAndTabATabulatorOutsideFields)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "ab");
    view->setSelectedRange({ 1, 0 });
    key(NSCarriageReturnCharacter);
    key(NSTabCharacter);
    EXPECT_EQ(view->string(), "a\n\tb");
}

TEST_F(NSTextView_, ReadOnlyTextTakesNoKeysButSelectsAndCopies)
{
    auto const view = addTextView({ 10, 10, 300, 200 }, "fixed text");
    view->setEditable(false);
    type("x");
    key(backspace);
    EXPECT_EQ(view->string(), "fixed text");
    key(U'a', control);
    key(U'c', control);
    EXPECT_EQ(clipboard(), "fixed text");
}

TEST_F(NSTextView_, TabLeavesATextThatCannotBeEdited)
{
    auto const view = addTextView({ 20, 20, 200, 100 }, "fixed text");
    view->setEditable(false);
    window->recalculateKeyViewLoop();
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), &editor());
    window->makeFirstResponder(view.get());
    key(NSBackTabCharacter, shift);
    EXPECT_EQ(window->firstResponder(), &editor());
    EXPECT_EQ(view->string(), "fixed text");
}

TEST_F(NSTextView_, KeysThatAreNotBoundGoOn)
{
    struct Catcher : NSView {
        void keyDown(NSEvent& event) override { keys += event.charactersIgnoringModifiers(); }
        std::string keys;
    };
    auto const around = make<Catcher>(Rect { 0, 0, 300, 200 });
    window->contentView()->addSubview(*around);
    auto const view = make<NSTextView>(Rect { 0, 0, 100, 100 });
    around->addSubview(*view);
    window->makeFirstResponder(view.get());
    key(U's', control);
    key(U'x');
    EXPECT_EQ(around->keys, "s");
    EXPECT_EQ(view->string(), "x");
}

}
}
