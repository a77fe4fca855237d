#include <tests/support/FieldTest.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/foundation/NSUndoManager.h>
#include <plix/platform/graphics/NSAttributedString.h>

namespace plix {
namespace {

constexpr unsigned control = NSControlKeyMask;
constexpr unsigned shift = NSShiftKeyMask;
constexpr char32_t tab = NSTabCharacter;
constexpr char32_t returnKey = NSCarriageReturnCharacter;
constexpr char32_t escape = NSEscapeCharacter;
constexpr char32_t backspace = NSDeleteCharacter;

using NSTextFieldEditing = FieldTest;

TEST_F(NSTextFieldEditing, TypesIntoTheFieldThatWasClicked)
{
    clickCenter(*field);
    type("hello");
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(field->stringValue(), "hello");
}

TEST_F(NSTextFieldEditing, TheKeyboardSelectsEverything)
{
    begin("some text");
    EXPECT_EQ(marked(), "[some text]");
    type("x");
    EXPECT_EQ(field->stringValue(), "x");
}

TEST_F(NSTextFieldEditing, AClickPutsTheCaretWhereItIs)
{
    field->setStringValue("some text");
    click(*field, { 195, 11 });
    EXPECT_EQ(marked(), "some text|");
    click(*field, { 3, 11 });
    EXPECT_EQ(marked(), "|some text");
}

TEST_F(NSTextFieldEditing, OneEditorServesAllFieldsOfAWindow)
{
    begin("first");
    auto const* const used = field->currentEditor();
    window->makeFirstResponder(second.get());
    EXPECT_EQ(second->currentEditor(), used);
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(used->string(), "second");
    auto const other = showWindow({ 500, 200, 200, 100 });
    EXPECT_NE(other->fieldEditor(true, nullptr), used);
}

TEST_F(NSTextFieldEditing, AnEditorThatWasHiddenIsSeenInTheNextField)
{
    begin("first");
    Ref<NSText> const editor(field->currentEditor());
    editor->setHidden(true);
    EXPECT_FALSE(isEditing(*field));
    clickCenter(*second);
    EXPECT_TRUE(isEditing(*second));
    EXPECT_EQ(second->currentEditor(), editor);
    EXPECT_FALSE(editor->isHiddenOrHasHiddenAncestor());
    type("x");
    EXPECT_NE(second->stringValue().find('x'), std::string::npos);
}

TEST_F(NSTextFieldEditing, TabTakesTheTextAndGoesOn)
{
    begin("first");
    type("new");
    key(tab);
    EXPECT_TRUE(isEditing(*second));
    EXPECT_EQ(marked(), "[second]");
    EXPECT_EQ(field->cell()->stringValue(), "new");
    EXPECT_EQ(log, "");
}

TEST_F(NSTextFieldEditing, BacktabGoesBackAndAroundTheLoop)
{
    begin("first");
    key(tab, shift);
    EXPECT_TRUE(isEditing(*third));
    key(tab, shift);
    EXPECT_TRUE(isEditing(*second));
    key(tab);
    key(tab);
    EXPECT_TRUE(isEditing(*field));
}

TEST_F(NSTextFieldEditing, TabPassesDisabledHiddenAndReadOnlyFields)
{
    second->setEnabled(false);
    third->setEditable(false);
    third->setSelectable(true);
    auto const fourth = addField({ 20, 120, 200, 22 });
    fourth->setHidden(true);
    auto const fifth = addField({ 20, 80, 200, 22 });
    window->recalculateKeyViewLoop();
    begin("first");
    key(tab);
    EXPECT_TRUE(isEditing(*fifth));
}

TEST_F(NSTextFieldEditing, TabInTheOnlyFieldSelectsItAgain)
{
    second->removeFromSuperview();
    third->removeFromSuperview();
    begin("only");
    type("changed");
    key(tab);
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "[changed]");
}

TEST_F(NSTextFieldEditing, FollowsTheLoopThatWasSet)
{
    field->setNextKeyView(third.get());
    begin("first");
    key(tab);
    EXPECT_TRUE(isEditing(*third));
}

TEST_F(NSTextFieldEditing, TabSendsTheActionWhereTheCellSaysSo)
{
    field->cell()->setSendsActionOnEndEditing(true);
    begin("first");
    type("x");
    key(tab);
    EXPECT_EQ(log, "action 'x' ");
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(NSTextFieldEditing, ReturnSendsTheActionAndSelectsEverything)
{
    begin("first");
    type("typed");
    key(returnKey);
    EXPECT_EQ(log, "action 'typed' ");
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "[typed]");
}

TEST_F(NSTextFieldEditing, EnterIsLikeReturn)
{
    begin("first");
    key(NSEnterCharacter);
    EXPECT_EQ(log, "action 'first' ");
}

TEST_F(NSTextFieldEditing, ReturnWithoutAnActionPressesTheDefaultButton)
{
    struct Button : NSControl {
        void performClick(NSObject*) override { ++clicks; }
        int clicks { 0 };
    };
    auto const button = make<Button>(Rect { 0, 0, 10, 10 });
    window->setDefaultButton(button.get());
    window->makeFirstResponder(second.get());
    key(returnKey);
    EXPECT_EQ(button->clicks, 1);
    EXPECT_TRUE(isEditing(*second));
    begin("with an action");
    key(returnKey);
    EXPECT_EQ(button->clicks, 1);
}

TEST_F(NSTextFieldEditing, AnActionMayGiveTheKeyboardAway)
{
    field->setActionFunction([&](NSObject*) { window->makeFirstResponder(third.get()); });
    begin("first");
    key(returnKey);
    EXPECT_TRUE(isEditing(*third));
}

TEST_F(NSTextFieldEditing, AnActionMayCloseTheWindowOrTakeTheFieldOut)
{
    field->setActionFunction([&](NSObject*) { field->removeFromSuperview(); });
    begin("first");
    key(returnKey);
    EXPECT_EQ(field->currentEditor(), nullptr);
    second->setActionFunction([&](NSObject*) { window->close(); });
    window->makeFirstResponder(second.get());
    key(returnKey);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(NSTextFieldEditing, EscapeBringsTheOldTextBack)
{
    begin("before");
    type("after");
    key(escape);
    EXPECT_EQ(field->stringValue(), "before");
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "[before]");
    EXPECT_EQ(log, "");
}

TEST_F(NSTextFieldEditing, EscapeWithoutAChangeGoesToTheWindowsButtons)
{
    struct Canceller : NSView {
        bool performKeyEquivalent(NSEvent& event) override
        {
            presses += event.characterIgnoringModifiers() == NSEscapeCharacter ? 1 : 0;
            return event.characterIgnoringModifiers() == NSEscapeCharacter;
        }
        int presses { 0 };
    };
    auto const canceller = make<Canceller>(Rect { 0, 0, 10, 10 });
    window->contentView()->addSubview(*canceller);
    begin("same");
    key(escape);
    EXPECT_EQ(canceller->presses, 1);
    EXPECT_EQ(marked(), "[same]");
    type("x");
    key(escape);
    EXPECT_EQ(canceller->presses, 1);
}

TEST_F(NSTextFieldEditing, AnEditInProgressIsTakenInWhenTheValueIsAsked)
{
    begin("1");
    type("42");
    EXPECT_EQ(field->stringValue(), "42");
    EXPECT_EQ(field->intValue(), 42);
    EXPECT_EQ(field->doubleValue(), 42);
    EXPECT_EQ(*field->objectValue().string(), "42");
    EXPECT_EQ(field->attributedStringValue()->string(), "42");
    EXPECT_TRUE(isEditing(*field));
}

TEST_F(NSTextFieldEditing, ASetValueShowsInTheEditor)
{
    begin("old");
    type("typed");
    field->setStringValue("set");
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "set|");
    field->setIntValue(7);
    EXPECT_EQ(marked(), "7|");
    EXPECT_EQ(field->stringValue(), "7");
}

TEST_F(NSTextFieldEditing, AClickElsewhereEndsTheEdit)
{
    begin("old");
    type("new");
    clickCenter(*second);
    EXPECT_EQ(field->cell()->stringValue(), "new");
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(NSTextFieldEditing, MakingTheWindowFirstResponderEndsTheEdit)
{
    begin("old");
    type("new");
    EXPECT_TRUE(window->makeFirstResponder(window.get()));
    EXPECT_EQ(window->firstResponder(), window.get());
    EXPECT_EQ(field->cell()->stringValue(), "new");
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_TRUE(field->subviews().empty());
}

TEST_F(NSTextFieldEditing, AbortingDropsWhatWasTyped)
{
    begin("old");
    type("new");
    EXPECT_TRUE(field->abortEditing());
    EXPECT_EQ(field->stringValue(), "old");
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(window->firstResponder(), window.get());
    EXPECT_FALSE(field->abortEditing());
}

TEST_F(NSTextFieldEditing, DisablingEndsTheEdit)
{
    begin("old");
    field->setEnabled(false);
    EXPECT_EQ(field->currentEditor(), nullptr);
    clickCenter(*field);
    type("x");
    EXPECT_EQ(field->stringValue(), "old");
}

TEST_F(NSTextFieldEditing, ALabelIsNotEdited)
{
    auto const label = NSTextField::labelWithString("label");
    window->contentView()->addSubview(*label);
    clickCenter(*label);
    type("x");
    EXPECT_EQ(label->currentEditor(), nullptr);
    EXPECT_EQ(label->stringValue(), "label");
}

TEST_F(NSTextFieldEditing, ASelectableFieldCopiesAndTakesNoText)
{
    field->setEditable(false);
    field->setSelectable(true);
    field->setStringValue("fixed");
    click(*field, { 5, 11 }, { .count = 2 });
    type("x");
    key(backspace);
    key(U'c', control);
    EXPECT_EQ(field->stringValue(), "fixed");
    EXPECT_EQ(clipboard(), "fixed");
}

TEST_F(NSTextFieldEditing, RemovingTheFieldEndsTheEdit)
{
    begin("old");
    type("new");
    field->removeFromSuperview();
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "new");
    EXPECT_EQ(window->firstResponder(), window.get());
    window->makeFirstResponder(second.get());
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(NSTextFieldEditing, RemovingWhatTheFieldIsInEndsTheEditToo)
{
    auto const box = make<NSView>(Rect { 200, 0, 200, 200 });
    window->contentView()->addSubview(*box);
    box->addSubview(*field);
    begin("old");
    type("new");
    box->removeFromSuperview();
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "new");
    EXPECT_TRUE(field->subviews().empty());
}

TEST_F(NSTextFieldEditing, HidingTheFieldGivesTheKeyboardOn)
{
    begin("old");
    type("new");
    field->setHidden(true);
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "new");
}

TEST_F(NSTextFieldEditing, AFieldMayGoAwayWhileItIsEdited)
{
    begin("old");
    type("new");
    Weak<NSTextField> const gone(field.get());
    field->removeFromSuperview();
    field = nullptr;
    pump();
    EXPECT_FALSE(gone);
    window->makeFirstResponder(second.get());
    type("x");
    EXPECT_EQ(second->stringValue(), "x");
}

TEST_F(NSTextFieldEditing, UndoIsForgottenWithTheEdit)
{
    begin("old");
    type("new");
    key(U'z', control);
    EXPECT_EQ(marked(), "[old]");
    key(U'y', control);
    EXPECT_EQ(field->stringValue(), "new");
    key(tab);
    EXPECT_FALSE(window->undoManager()->canUndo());
    EXPECT_FALSE(window->undoManager()->canRedo());
}

TEST_F(NSTextFieldEditing, LineEndsBecomeBlanksInAFieldOnOneLine)
{
    setClipboard("one\ntwo\r\nthree");
    begin("");
    key(U'v', control);
    EXPECT_EQ(field->stringValue(), "one two three");
}

TEST_F(NSTextFieldEditing, AWrappingFieldKeepsLineEnds)
{
    field->cell()->setWraps(true);
    field->setFrame({ 20, 220, 200, 60 });
    setClipboard("one\ntwo");
    begin("");
    key(U'v', control);
    key(returnKey, NSAlternateKeyMask);
    type("x");
    EXPECT_EQ(field->stringValue(), "one\ntwo\nx");
}

TEST_F(NSTextFieldEditing, LongTextScrollsToTheCaret)
{
    begin(std::string(200, 'w'));
    auto& view = editor();
    key(NSEndFunctionKey);
    EXPECT_TRUE(NSContainsRect(view.visibleRect(), view.caretRect()));
    EXPECT_GT(view.visibleRect().x, 500);
    key(NSHomeFunctionKey);
    EXPECT_EQ(view.visibleRect().x, 0);
    EXPECT_TRUE(NSContainsRect(view.visibleRect(), view.caretRect()));
}

TEST_F(NSTextFieldEditing, TheEditorStandsWhereTheTextIsDrawn)
{
    begin("some text");
    auto const text = field->cell()->titleRectForBounds(field->bounds());
    EXPECT_EQ(editor().convertRectToView(editor().visibleRect(), field.get()), text);
    field->setFrameSize({ 300, 22 });
    EXPECT_EQ(editor().convertRectToView(editor().visibleRect(), field.get()), field->cell()->titleRectForBounds(field->bounds()));
}

TEST_F(NSTextFieldEditing, AlignedTextIsEditedWhereItIsShown)
{
    field->setAlignment(NSRightTextAlignment);
    begin("12");
    key(NSEndFunctionKey);
    EXPECT_GT(editor().caretRect().x, editor().visibleRect().maxX() - 8);
    EXPECT_TRUE(NSContainsRect(editor().visibleRect(), editor().caretRect()));
    type(std::string(80, 'w'));
    EXPECT_TRUE(NSContainsRect(editor().visibleRect(), editor().caretRect()));
    key(U'a', control);
    type("7");
    EXPECT_EQ(editor().visibleRect().x, 0);
    EXPECT_GT(editor().caretRect().x, editor().visibleRect().maxX() - 8);
}

TEST_F(NSTextFieldEditing, AttributesOfTheCellAreThoseOfTheEditor)
{
    auto const font = NSFont::boldSystemFontOfSize(15);
    field->setFont(font);
    begin("x");
    EXPECT_EQ(editor().font(), font.get());
    window->makeFirstResponder(second.get());
    EXPECT_EQ(editor().font(), second->font());
}

// MARK: delegate

TEST_F(NSTextFieldEditing, AsksAndTellsTheDelegateInOrder)
{
    auto const asked = addDelegate();
    begin("old");
    EXPECT_EQ(asked->log, "");
    type("n");
    EXPECT_EQ(asked->log, "begin? begun changed ");
    asked->log.clear();
    key(tab);
    EXPECT_EQ(asked->log, "valid n? end? ended " + std::to_string(int { NSTabTextMovement }) + " ");
}

TEST_F(NSTextFieldEditing, TellsWhatEndedTheEdit)
{
    auto const asked = addDelegate();
    auto const endedBy = [&](auto act) {
        window->makeFirstResponder(field.get());
        asked->log.clear();
        act();
        return asked->log.substr(asked->log.find("ended"));
    };
    EXPECT_EQ(endedBy([&] { key(returnKey); }), "ended 16 ");
    EXPECT_EQ(endedBy([&] { key(tab); }), "ended 17 ");
    EXPECT_EQ(endedBy([&] { key(tab, shift); }), "ended 18 ");
    EXPECT_EQ(endedBy([&] { clickCenter(*second); }), "ended 0 ");
}

TEST_F(NSTextFieldEditing, ARefusedBeginningKeepsTheText)
{
    auto const asked = addDelegate();
    asked->mayBegin = false;
    begin("old");
    type("x");
    EXPECT_EQ(field->stringValue(), "old");
}

TEST_F(NSTextFieldEditing, ARefusedEndKeepsTheKeyboard)
{
    auto const asked = addDelegate();
    asked->mayEnd = false;
    begin("old");
    type("new");
    key(tab);
    EXPECT_TRUE(isEditing(*field));
    clickCenter(*second);
    EXPECT_TRUE(isEditing(*field));
    EXPECT_EQ(marked(), "new|");
    EXPECT_FALSE(window->makeFirstResponder(nullptr));
    asked->mayEnd = true;
    key(tab);
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(NSTextFieldEditing, EndEditingForTakesTheKeyboardFromOneWhoRefuses)
{
    auto const asked = addDelegate();
    asked->mayEnd = false;
    begin("old");
    type("new");
    window->endEditingFor(nullptr);
    EXPECT_EQ(window->firstResponder(), window.get());
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "old");
    EXPECT_FALSE(field->cell()->isBeingEdited());
}

TEST_F(NSTextFieldEditing, AFieldThatRefusesToEndMayStillBeRemoved)
{
    auto const asked = addDelegate();
    asked->mayEnd = false;
    begin("old");
    type("new");
    field->removeFromSuperview();
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_EQ(field->stringValue(), "old");
    EXPECT_TRUE(field->subviews().empty());
}

TEST_F(NSTextFieldEditing, TheDelegateMayTakeCommands)
{
    auto const asked = addDelegate();
    asked->taken = Selector("insertTab:");
    begin("old");
    key(tab);
    EXPECT_TRUE(isEditing(*field));
    key(tab, shift);
    EXPECT_TRUE(isEditing(*third));
}

TEST_F(NSTextFieldEditing, ADelegateThatDiesWhileAFieldIsEditedIsNotAsked)
{
    auto asked = addDelegate();
    asked->mayEnd = false;
    begin("old");
    type("new");
    asked = nullptr;
    key(tab);
    EXPECT_TRUE(isEditing(*second));
    EXPECT_EQ(field->stringValue(), "new");
}

TEST_F(NSTextFieldEditing, PostsToObserversWithTheEditor)
{
    std::string posted;
    auto const note = [&](NSNotification const& notification) {
        EXPECT_EQ(notification.object.get(), field.get());
        EXPECT_EQ(notification.userInfo.at("NSFieldEditor").object(), &editor());
        posted += notification.name + " ";
    };
    auto& center = NSNotificationCenter::defaultCenter();
    auto const begun = center.addObserver(note, NSControlTextDidBeginEditingNotification);
    auto const changed = center.addObserver(note, NSControlTextDidChangeNotification);
    auto const ended = center.addObserver(note, NSControlTextDidEndEditingNotification);
    begin("old");
    type("n");
    key(tab);
    EXPECT_EQ(posted,
        "NSControlTextDidBeginEditingNotification NSControlTextDidChangeNotification NSControlTextDidEndEditingNotification ");
}

TEST_F(NSTextFieldEditing, TheEditorTellsItsEndOnce)
{
    int count = 0;
    auto const ended = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) { ++count; }, NSTextDidEndEditingNotification);
    begin("old");
    type("n");
    key(tab);
    EXPECT_EQ(count, 1);
    key(returnKey);
    EXPECT_EQ(count, 2);
}

TEST_F(NSTextFieldEditing, AWindowsDelegateMayGiveAnotherEditor)
{
    struct Giver : NSObject {
        NSResponder* windowWillReturnFieldEditor(NSWindow&, NSObject* client) { return client == special ? own.get() : nullptr; }
        NSObject* special { nullptr };
        Ref<NSTextView> own;
    };
    auto const giver = make<Giver>();
    giver->special = second.get();
    giver->own = make<NSTextView>();
    window->setDelegate(giver);
    begin("first");
    EXPECT_NE(field->currentEditor(), giver->own.get());
    key(tab);
    EXPECT_EQ(second->currentEditor(), giver->own.get());
    type("x");
    key(tab);
    EXPECT_EQ(second->stringValue(), "x");
    EXPECT_TRUE(isEditing(*third));
    window->setDelegate(nullptr);
}

TEST_F(NSTextFieldEditing, ADelegateMayTakeTheFieldAwayWhileItIsAsked)
{
    struct Remover : NSObject {
        bool textShouldEndEditing(NSControl& asking, NSText&)
        {
            asking.removeFromSuperview();
            return true;
        }
    };
    auto const remover = make<Remover>();
    field->setDelegate(remover);
    begin("old");
    type("new");
    key(tab);
    EXPECT_EQ(field->currentEditor(), nullptr);
    EXPECT_TRUE(field->subviews().empty());
    window->makeFirstResponder(second.get());
    EXPECT_TRUE(isEditing(*second));
}

TEST_F(NSTextFieldEditing, ADelegateMayCloseTheWindowWhileTextChanges)
{
    struct Closer : NSObject {
        void controlTextDidChange(NSNotification const& notification)
        {
            static_cast<NSControl*>(notification.object.get())->window()->close();
        }
    };
    auto const closer = make<Closer>();
    field->setDelegate(closer);
    begin("old");
    type("new");
    EXPECT_FALSE(window->isVisible());
}

TEST_F(NSTextFieldEditing, ADelegateMayCorrectTheTextWhileItIsTyped)
{
    struct Upper : NSObject {
        void controlTextDidChange(NSNotification const& notification)
        {
            auto& changed = *static_cast<NSTextField*>(notification.object.get());
            std::string text = changed.stringValue();
            for (auto& character : text)
                character = static_cast<char>(std::toupper(character));
            changed.setStringValue(text);
        }
    };
    auto const upper = make<Upper>();
    field->setDelegate(upper);
    begin("");
    type("abc");
    EXPECT_EQ(marked(), "ABC|");
    EXPECT_TRUE(isEditing(*field));
}

TEST_F(NSTextFieldEditing, ASubclassIsAskedBeforeEachChange)
{
    struct DigitField : NSTextField {
        bool shouldChangeTextInRange(NSTextView& view, NSRange range, std::string_view text) override
        {
            return NSTextField::shouldChangeTextInRange(view, range, text)
                && text.find_first_not_of("0123456789") == std::string_view::npos;
        }
    };
    auto const digits = make<DigitField>(Rect { 20, 20, 100, 22 });
    window->contentView()->addSubview(*digits);
    window->makeFirstResponder(digits.get());
    type("a1b2");
    EXPECT_EQ(digits->stringValue(), "12");
}

}
}
