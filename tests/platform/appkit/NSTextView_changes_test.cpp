#include <tests/support/TextTest.h>

#include <plix/platform/appkit/NSTextDelegate.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSTextStorage.h>

namespace plix {
namespace {

constexpr unsigned control = NSControlKeyMask;
constexpr char32_t backspace = NSDeleteCharacter;

class Asked : public NSObject {
public:
    bool textShouldBeginEditing(NSText&)
    {
        log += "begin? ";
        return mayBegin;
    }
    bool textShouldEndEditing(NSText&)
    {
        log += "end? ";
        return mayEnd;
    }
    bool shouldChangeTextInRange(NSTextView&, NSRange range, std::string_view text)
    {
        log += std::to_string(range.location) + "+" + std::to_string(range.length) + "=" + std::string(text) + " ";
        return mayChange;
    }
    NSRange willChangeSelectionFromCharacterRange(NSTextView&, NSRange, NSRange wanted)
    {
        return keepsSelection ? NSRange { 1, 1 } : wanted;
    }
    bool textViewDoCommandBySelector(NSTextView&, Selector command) { return command == taken; }
    void textDidBeginEditing(NSNotification const&) { log += "begun "; }
    void textDidChange(NSNotification const&) { log += "changed "; }
    void textDidEndEditing(NSNotification const&) { log += "ended "; }
    void textViewDidChangeSelection(NSNotification const& notification)
    {
        selections += *notification.userInfo.at("NSOldSelectedCharacterRange").string() + " ";
    }

    std::string log;
    std::string selections;
    Selector taken;
    bool mayBegin { true };
    bool mayEnd { true };
    bool mayChange { true };
    bool keepsSelection { false };
};

class NSTextViewChanges : public TextTest {
protected:
    void SetUp() override
    {
        TextTest::SetUp();
        view = addTextView({ 10, 10, 300, 200 }, "");
    }
    void start(std::string_view withMarks)
    {
        auto const wanted = parse(withMarks);
        view->setString(wanted.text);
        view->setSelectedRange(wanted.selection);
    }
    std::string shown() const { return marked(*view); }
    void undo() { key(U'z', control); }
    void redo() { key(U'y', control); }

    Ref<NSTextView> view;
};

TEST_F(NSTextViewChanges, TypingReplacesTheSelection)
{
    start("a[bc]d");
    type("xy");
    EXPECT_EQ(shown(), "axy|d");
}

TEST_F(NSTextViewChanges, TypesBeyondTheBasicPlaneAndCountsUnits)
{
    start("|");
    type("\U0001F600e");
    EXPECT_EQ(view->string(), "\U0001F600e");
    EXPECT_EQ(view->length(), 3);
    EXPECT_EQ(view->selectedRange().location, 3);
}

TEST_F(NSTextViewChanges, InvalidBytesBecomeReplacementCharacters)
{
    start("|");
    view->insertText("a\xFFz");
    EXPECT_EQ(view->string(), "a\uFFFDz");
    view->setString("\xC3");
    EXPECT_EQ(view->string(), "\uFFFD");
}

TEST_F(NSTextViewChanges, ASelectionIsCutToTheTextAndToCharacters)
{
    start("a\U0001F600b");
    view->setSelectedRange({ 2, 100 });
    EXPECT_EQ(view->selectedRange(), (NSRange { 1, 3 }));
    view->setSelectedRange({ -5, 2 });
    EXPECT_EQ(view->selectedRange(), (NSRange { 0, 1 }));
    view->setSelectedRange({ NSNotFound, NSNotFound });
    EXPECT_EQ(view->selectedRange(), (NSRange { 4, 0 }));
}

TEST_F(NSTextViewChanges, UndoTakesATypedRunBackAtOnce)
{
    start("x|y");
    type("abc");
    undo();
    EXPECT_EQ(shown(), "x|y");
    redo();
    EXPECT_EQ(shown(), "xabc|y");
}

TEST_F(NSTextViewChanges, UndoGivesTheReplacedSelectionBack)
{
    start("a[bc]d");
    type("x");
    undo();
    EXPECT_EQ(shown(), "a[bc]d");
}

TEST_F(NSTextViewChanges, MovingTheCaretStartsANewUndo)
{
    start("|");
    type("ab");
    key(NSLeftArrowFunctionKey);
    type("x");
    undo();
    EXPECT_EQ(shown(), "a|b");
    undo();
    EXPECT_EQ(shown(), "|");
}

TEST_F(NSTextViewChanges, DeletedCharactersComeBackTogether)
{
    start("hello|");
    for (int i = 0; i < 3; ++i)
        key(backspace);
    EXPECT_EQ(shown(), "he|");
    undo();
    EXPECT_EQ(shown(), "hello|");
    redo();
    EXPECT_EQ(shown(), "he|");
}

TEST_F(NSTextViewChanges, ForwardDeletionsComeBackTogether)
{
    start("|hello");
    key(NSDeleteFunctionKey);
    key(NSDeleteFunctionKey);
    undo();
    EXPECT_EQ(shown(), "|hello");
}

TEST_F(NSTextViewChanges, TypingAndDeletingAreUndoneOneAfterTheOther)
{
    start("|");
    type("abc");
    key(backspace);
    type("d");
    EXPECT_EQ(shown(), "abd|");
    undo();
    EXPECT_EQ(shown(), "ab|");
    undo();
    EXPECT_EQ(shown(), "abc|");
    undo();
    EXPECT_EQ(shown(), "|");
    for (int i = 0; i < 3; ++i)
        redo();
    EXPECT_EQ(shown(), "abd|");
}

TEST_F(NSTextViewChanges, ALineEndIsAnUndoOfItsOwn)
{
    start("|");
    type("ab");
    key(NSCarriageReturnCharacter);
    type("cd");
    undo();
    EXPECT_EQ(view->string(), "ab\n");
    undo();
    EXPECT_EQ(view->string(), "ab");
    undo();
    EXPECT_EQ(view->string(), "");
}

TEST_F(NSTextViewChanges, TypingAfterUndoForgetsTheRedo)
{
    start("|");
    type("a");
    undo();
    type("b");
    redo();
    EXPECT_EQ(view->string(), "b");
}

TEST_F(NSTextViewChanges, NothingToUndoBeeps)
{
    start("abc|");
    auto const before = display().beepCount();
    undo();
    redo();
    EXPECT_EQ(view->string(), "abc");
    EXPECT_EQ(display().beepCount(), before + 2);
}

TEST_F(NSTextViewChanges, AnotherChangeInBetweenIsUndoneInItsTurn)
{
    struct Other : NSObject { };
    auto const other = make<Other>();
    std::string log;
    start("|");
    type("a");
    view->undoManager()->registerUndoWithTarget<Other>(*other, [&](Other&) { log += "other"; });
    pump();
    type("b");
    undo();
    EXPECT_EQ(view->string(), "a");
    EXPECT_EQ(log, "");
    undo();
    EXPECT_EQ(log, "other");
    EXPECT_EQ(view->string(), "a");
    undo();
    EXPECT_EQ(view->string(), "");
}

TEST_F(NSTextViewChanges, WithoutUndoNothingIsRecorded)
{
    view->setAllowsUndo(false);
    type("abc");
    EXPECT_FALSE(view->undoManager()->canUndo());
}

TEST_F(NSTextViewChanges, ASetStringCanNotBeUndone)
{
    type("abc");
    view->setString("other");
    EXPECT_FALSE(view->undoManager()->canUndo());
    undo();
    EXPECT_EQ(view->string(), "other");
}

TEST_F(NSTextViewChanges, NamesWhatIsUndone)
{
    type("a");
    EXPECT_EQ(view->undoManager()->undoMenuItemTitle(), "Undo Typing");
    setClipboard("more");
    key(U'v', control);
    EXPECT_EQ(view->undoManager()->undoMenuItemTitle(), "Undo Paste");
    undo();
    EXPECT_EQ(view->undoManager()->redoMenuItemTitle(), "Redo Paste");
}

TEST_F(NSTextViewChanges, AsksAndTellsTheDelegateInOrder)
{
    auto const asked = make<Asked>();
    view->setDelegate(asked);
    type("ab");
    key(backspace);
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(asked->log, "begin? begun 0+0=a changed 1+0=b changed 1+1= changed end? ended ");
}

TEST_F(NSTextViewChanges, EveryChangeIsAskedForAlsoUndo)
{
    auto const asked = make<Asked>();
    type("a");
    view->setDelegate(asked);
    undo();
    redo();
    EXPECT_EQ(asked->log, "0+1= changed 0+0=a changed ");
    asked->mayChange = false;
    undo();
    EXPECT_EQ(view->string(), "a");
}

TEST_F(NSTextViewChanges, ARefusedBeginningKeepsTheText)
{
    auto const asked = make<Asked>();
    asked->mayBegin = false;
    start("abc|");
    view->setDelegate(asked);
    type("x");
    setClipboard("y");
    key(U'v', control);
    EXPECT_EQ(view->string(), "abc");
    EXPECT_EQ(asked->log, "begin? begin? ");
}

TEST_F(NSTextViewChanges, ARefusedChangeKeepsTextAndSelection)
{
    auto const asked = make<Asked>();
    asked->mayChange = false;
    start("a[b]c");
    view->setDelegate(asked);
    type("x");
    key(backspace);
    key(U'x', control);
    EXPECT_EQ(shown(), "a[b]c");
    EXPECT_FALSE(view->undoManager()->canUndo());
}

TEST_F(NSTextViewChanges, ARefusedEndKeepsTheKeyboard)
{
    auto const asked = make<Asked>();
    asked->mayEnd = false;
    view->setDelegate(asked);
    EXPECT_FALSE(window->makeFirstResponder(field.get()));
    EXPECT_EQ(window->firstResponder(), view.get());
}

TEST_F(NSTextViewChanges, TheDelegateMayTakeCommandsAndChangeSelections)
{
    auto const asked = make<Asked>();
    start("abcd|");
    view->setDelegate(asked);
    asked->taken = Selector("deleteBackward:");
    key(backspace);
    EXPECT_EQ(view->string(), "abcd");
    asked->keepsSelection = true;
    key(NSHomeFunctionKey);
    EXPECT_EQ(shown(), "a[b]cd");
}

TEST_F(NSTextViewChanges, TellsOfSelectionsWithTheOneBefore)
{
    auto const asked = make<Asked>();
    start("abcd|");
    view->setDelegate(asked);
    key(NSLeftArrowFunctionKey);
    key(NSLeftArrowFunctionKey, NSShiftKeyMask);
    view->setSelectedRange(view->selectedRange());
    EXPECT_EQ(asked->selections, "4,0 3,0 ");
}

TEST_F(NSTextViewChanges, ADelegateThatDiesIsNotAsked)
{
    auto asked = make<Asked>();
    asked->mayChange = false;
    view->setDelegate(asked);
    asked = nullptr;
    type("a");
    EXPECT_EQ(view->string(), "a");
}

TEST_F(NSTextViewChanges, ADelegateMayReplaceTheTextWhileItIsAsked)
{
    struct Meddler : NSObject {
        bool shouldChangeTextInRange(NSTextView& asking, NSRange, std::string_view)
        {
            asking.replaceCharactersInRange({ 0, asking.length() }, "x");
            return true;
        }
    };
    auto const meddler = make<Meddler>();
    start("a long [text]");
    view->setDelegate(meddler);
    type("y");
    EXPECT_EQ(view->string(), "xy");
}

TEST_F(NSTextViewChanges, PostsToObserversToo)
{
    std::string log;
    auto const note = [&](NSNotification const& notification) {
        EXPECT_EQ(notification.object.get(), view.get());
        log += notification.name + " ";
    };
    auto& center = NSNotificationCenter::defaultCenter();
    auto const begin = center.addObserver(note, NSTextDidBeginEditingNotification);
    auto const changed = center.addObserver(note, NSTextDidChangeNotification);
    auto const end = center.addObserver(note, NSTextDidEndEditingNotification);
    type("a");
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(log, "NSTextDidBeginEditingNotification NSTextDidChangeNotification NSTextDidEndEditingNotification ");
}

TEST_F(NSTextViewChanges, AnEditOfTheStorageMovesTheSelectionAlong)
{
    start("abc [def] ghi");
    view->textStorage()->replaceCharactersInRange({ 0, 1 }, "12345");
    EXPECT_EQ(shown(), "12345bc [def] ghi");
    view->textStorage()->deleteCharactersInRange({ 0, view->length() });
    EXPECT_EQ(shown(), "|");
}

TEST_F(NSTextViewChanges, RangesOutsideRaise)
{
    start("abc");
    EXPECT_THROW(view->replaceCharactersInRange({ 2, 5 }, "x"), std::out_of_range);
    EXPECT_EQ(view->string(), "abc");
}

// MARK: clipboard

TEST_F(NSTextViewChanges, CopyLeavesAndCutTakesTheSelection)
{
    start("a[bc]d");
    key(U'c', control);
    EXPECT_EQ(clipboard(), "bc");
    EXPECT_EQ(shown(), "a[bc]d");
    start("[ab]cd");
    key(U'x', control);
    EXPECT_EQ(clipboard(), "ab");
    EXPECT_EQ(shown(), "|cd");
}

TEST_F(NSTextViewChanges, CopyOfNothingKeepsTheClipboard)
{
    setClipboard("kept");
    start("ab|cd");
    key(U'c', control);
    key(U'x', control);
    EXPECT_EQ(clipboard(), "kept");
    EXPECT_EQ(shown(), "ab|cd");
}

TEST_F(NSTextViewChanges, PasteReplacesTheSelectionAndIsUndoneWhole)
{
    setClipboard("paste d");
    start("a[bc]d");
    key(U'v', control);
    EXPECT_EQ(shown(), "apaste d|d");
    undo();
    EXPECT_EQ(shown(), "a[bc]d");
}

TEST_F(NSTextViewChanges, PasteDoesNotJoinTheTypingBeforeIt)
{
    setClipboard("zz");
    start("|");
    type("ab");
    key(U'v', control);
    undo();
    EXPECT_EQ(shown(), "ab|");
}

TEST_F(NSTextViewChanges, OldKeysOfTheClipboardWorkToo)
{
    start("[abc]");
    key(NSInsertFunctionKey, control);
    EXPECT_EQ(clipboard(), "abc");
    key(NSRightArrowFunctionKey);
    key(NSInsertFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(shown(), "abcabc|");
    key(U'a', control);
    key(NSDeleteFunctionKey, NSShiftKeyMask);
    EXPECT_EQ(shown(), "|");
    EXPECT_EQ(clipboard(), "abcabc");
}

TEST_F(NSTextViewChanges, PasteOfNothingBeeps)
{
    NSPasteboard::generalPasteboard().declareTypes({});
    auto const before = display().beepCount();
    start("a|");
    key(U'v', control);
    EXPECT_EQ(shown(), "a|");
    EXPECT_EQ(display().beepCount(), before + 1);
}

TEST_F(NSTextViewChanges, PastedLineEndsAreOfOneKind)
{
    setClipboard("a\r\nb\rc\nd");
    start("|");
    key(U'v', control);
    EXPECT_EQ(view->string(), "a\nb\nc\nd");
}

TEST_F(NSTextViewChanges, PastedInvalidBytesAreReplaced)
{
    setClipboard("a\xF0\x9Fz");
    start("|");
    key(U'v', control);
    EXPECT_TRUE(view->string().starts_with("a\uFFFD"));
    EXPECT_TRUE(view->string().ends_with("z"));
}

TEST_F(NSTextViewChanges, AMegabyteIsPastedAndTypedInto)
{
    std::string text;
    while (text.size() < (1U << 20U))
        text += "A line of a long text that somebody pastes.\n";
    setClipboard(text);
    start("|");
    key(U'v', control);
    EXPECT_EQ(view->length(), static_cast<long>(text.size()));
    key(NSHomeFunctionKey, control);
    type("x");
    EXPECT_EQ(view->length(), static_cast<long>(text.size()) + 1);
    undo();
    undo();
    EXPECT_EQ(view->length(), 0);
}

// MARK: input methods

TEST_F(NSTextViewChanges, ShowsWhatAnInputMethodHasNotEntered)
{
    start("a|b");
    person().preedit("ni", 2);
    pump();
    EXPECT_EQ(shown(), "ani|b");
    EXPECT_EQ(view->markedRange(), (NSRange { 1, 2 }));
    EXPECT_EQ(view->textStorage()->attribute(NSUnderlineStyleAttributeName, 1).intValue(), NSUnderlineStyleSingle);
    EXPECT_TRUE(view->textStorage()->attribute(NSUnderlineStyleAttributeName, 0).isNil());
}

TEST_F(NSTextViewChanges, EnteredTextTakesTheMarkedTextsPlace)
{
    start("a|b");
    person().preedit("ni", 2);
    person().preedit("nih", 3);
    person().type("\u4F60");
    pump();
    EXPECT_EQ(shown(), "a\u4F60|b");
    EXPECT_FALSE(view->hasMarkedText());
    EXPECT_TRUE(view->textStorage()->attribute(NSUnderlineStyleAttributeName, 1).isNil());
    undo();
    EXPECT_EQ(shown(), "a|b");
}

TEST_F(NSTextViewChanges, AnEmptyPreeditGivesTheSelectionBack)
{
    start("a[bc]d");
    person().preedit("x", 1);
    person().preedit("", 0);
    pump();
    EXPECT_EQ(shown(), "a[bc]d");
    EXPECT_FALSE(view->undoManager()->canUndo());
}

TEST_F(NSTextViewChanges, EscapeDropsWhatIsMarked)
{
    start("ab|");
    person().preedit("x", 1);
    pump();
    key(NSEscapeCharacter);
    EXPECT_EQ(shown(), "ab|");
}

TEST_F(NSTextViewChanges, AClickEntersWhatIsMarked)
{
    start("ab|");
    person().preedit("xy", 2);
    pump();
    click(*view, { 1, 8 });
    EXPECT_EQ(shown(), "|abxy");
    EXPECT_FALSE(view->hasMarkedText());
}

TEST_F(NSTextViewChanges, LosingTheKeyboardEntersWhatIsMarked)
{
    start("ab|");
    person().preedit("x", 1);
    pump();
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(view->string(), "abx");
    EXPECT_FALSE(view->hasMarkedText());
}

TEST_F(NSTextViewChanges, NobodyIsAskedForMarkedTextButForWhatIsEntered)
{
    auto const asked = make<Asked>();
    view->setDelegate(asked);
    person().preedit("x", 1);
    pump();
    EXPECT_EQ(asked->log, "");
    asked->mayChange = false;
    person().type("y");
    pump();
    EXPECT_EQ(asked->log, "begin? begun 0+0=y ");
    EXPECT_EQ(view->string(), "");
}

TEST_F(NSTextViewChanges, TellsInputMethodsWhereTheCaretIs)
{
    start("ab|");
    ASSERT_TRUE(display().textInputCaret());
    auto const caret = *display().textInputCaret();
    auto const expected = onScreen(*view, { view->caretRect().x, view->caretRect().maxY() });
    EXPECT_EQ(caret.origin(), expected);
    type("c");
    EXPECT_GT(display().textInputCaret()->x, caret.x);
    window->makeFirstResponder(nullptr);
    EXPECT_FALSE(display().textInputCaret());
}

TEST_F(NSTextViewChanges, ADeadKeyIsQuiet)
{
    auto const before = display().beepCount();
    person().key(std::string_view {});
    pump();
    EXPECT_EQ(display().beepCount(), before);
    key(NSF2FunctionKey);
    EXPECT_EQ(display().beepCount(), before + 1);
}

TEST_F(NSTextViewChanges, ReadOnlyTextTakesNoInputMethod)
{
    view->setEditable(false);
    EXPECT_FALSE(display().textInputCaret());
    EXPECT_FALSE(view->setMarkedText("x", { 1, 0 }));
    EXPECT_EQ(view->string(), "");
}

TEST_F(NSTextViewChanges, AClickEndsWhatIsMarkedThoughItsTextIsGone)
{
    view->setString("some text");
    view->setSelectedRange({ 9, 0 });
    ASSERT_TRUE(view->setMarkedText("marked", { 6, 0 }));
    view->textStorage()->replaceCharactersInRange({ 0, 15 }, *make<NSAttributedString>("none"));
    click(*view, { 5, 5 });
    EXPECT_FALSE(view->hasMarkedText());
    EXPECT_EQ(view->string().substr(0, 4), "none");
}

TEST_F(NSTextViewChanges, MarksAnewAtTheEndWhereTheMarkedTextIsGone)
{
    view->setString("some text");
    view->setSelectedRange({ 9, 0 });
    ASSERT_TRUE(view->setMarkedText("marked", { 6, 0 }));
    view->textStorage()->replaceCharactersInRange({ 0, 15 }, *make<NSAttributedString>("none"));
    EXPECT_EQ(view->markedRange(), (NSRange { 4, 0 }));
    ASSERT_TRUE(view->setMarkedText("new", { 3, 0 }));
    EXPECT_EQ(view->string(), "nonenew");
    EXPECT_EQ(view->markedRange(), (NSRange { 4, 3 }));
    view->textStorage()->replaceCharactersInRange({ 2, 5 }, *make<NSAttributedString>(""));
    ASSERT_TRUE(view->setMarkedText("", {}));
    EXPECT_FALSE(view->hasMarkedText());
    EXPECT_EQ(view->string(), "no");
}

}
}
