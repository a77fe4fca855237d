#include <tests/support/TextTest.h>

#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>

#include <algorithm>

namespace plix {
namespace {

class NSTextViewLooks : public TextTest { };

TEST_F(NSTextViewLooks, TheCaretBlinksWhileTheFieldHasTheKeyboard)
{
    edit("ab", { 2, 0 });
    EXPECT_TRUE(editor().isCaretShown());
    pass(0.6);
    EXPECT_FALSE(editor().isCaretShown());
    pass(0.5);
    EXPECT_TRUE(editor().isCaretShown());
}

TEST_F(NSTextViewLooks, TypingAndMovingShowTheCaretAtOnce)
{
    edit("ab", { 2, 0 });
    pass(0.6);
    type("c");
    EXPECT_TRUE(editor().isCaretShown());
    pass(0.4);
    key(NSLeftArrowFunctionKey);
    pass(0.4);
    EXPECT_TRUE(editor().isCaretShown());
}

TEST_F(NSTextViewLooks, NothingBlinksWhereNothingIsTyped)
{
    auto const blinks = [&] {
        bool const before = editor().isCaretShown();
        pass(0.6);
        return before || editor().isCaretShown();
    };
    edit("ab", { 2, 0 });
    EXPECT_TRUE(blinks());
    editor().setSelectedRange({ 0, 1 });
    EXPECT_FALSE(blinks()) << "with a selection";
    editor().setSelectedRange({ 1, 0 });
    editor().setEditable(false);
    EXPECT_FALSE(blinks()) << "read only";
    editor().setEditable(true);
    EXPECT_TRUE(blinks());
    person().focusNothing();
    pump();
    EXPECT_FALSE(blinks()) << "in a window that is not key";
    person().focusWindow([&] { return hostWindow(*window); });
    pump();
    EXPECT_TRUE(blinks());
    window->makeFirstResponder(nullptr);
    EXPECT_FALSE(blinks()) << "without the keyboard";
}

TEST_F(NSTextViewLooks, AnIdleLoopHasNoTimerOnceTheEditIsOver)
{
    auto const hasTimer = [] { return NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode).has_value(); };
    bool const before = hasTimer();
    edit("ab", { 2, 0 });
    EXPECT_TRUE(hasTimer());
    window->makeFirstResponder(nullptr);
    EXPECT_EQ(hasTimer(), before);
    edit("ab", { 2, 0 });
    field->removeFromSuperview();
    EXPECT_EQ(hasTimer(), before);
}

TEST_F(NSTextViewLooks, ASelectionIsGreyInAWindowThatIsNotKey)
{
    edit("mmmmm", { 0, 5 });
    auto const at = [&] {
        pump();
        Point const point = field->convertPointToView({ 40, 4 }, window->contentView());
        auto const snapshot = window->snapshot();
        return snapshot->colorAtX(
            static_cast<int>(point.x), static_cast<int>(static_cast<float>(snapshot->pixelsHigh()) - point.y));
    };
    auto const active = at();
    person().focusNothing();
    auto const inactive = at();
    EXPECT_GT(active->blueComponent() - active->redComponent(), 0.05F);
    EXPECT_NEAR(inactive->blueComponent(), inactive->redComponent(), 0.02F);
}

// MARK: the mouse

TEST_F(NSTextViewLooks, DraggingSelectsCharacters)
{
    auto& view = edit("one two three", { 0, 0 });
    drag(view, before(view, 4), before(view, 7));
    EXPECT_EQ(marked(), "one [two] three");
    drag(view, before(view, 7), before(view, 1));
    EXPECT_EQ(marked(), "o[ne two] three");
}

TEST_F(NSTextViewLooks, ADoubleClickSelectsAWordAndATripleClickAll)
{
    auto& view = edit("one two three", { 0, 0 });
    click(view, before(view, 5), { .count = 2 });
    EXPECT_EQ(marked(), "one [two] three");
    click(view, before(view, 5), { .count = 3 });
    EXPECT_EQ(marked(), "[one two three]");
}

TEST_F(NSTextViewLooks, ADraggedDoubleClickGoesWordByWord)
{
    auto& view = edit("one two three four", { 0, 0 });
    person().click(onScreen(view, before(view, 5)));
    person().press(onScreen(view, before(view, 5)), { .count = 2 });
    person().dragTo(onScreen(view, before(view, 10)));
    person().release(onScreen(view, before(view, 10)), { .count = 2 });
    pump();
    EXPECT_EQ(marked(), "one [two three] four");
    person().press(onScreen(view, before(view, 10)), { .count = 2 });
    person().dragTo(onScreen(view, before(view, 1)));
    person().release(onScreen(view, before(view, 1)), { .count = 2 });
    pump();
    EXPECT_EQ(marked(), "[one two three] four");
}

TEST_F(NSTextViewLooks, ATripleClickSelectsAParagraphOfMany)
{
    auto const view = addTextView({ 10, 10, 300, 100 }, "first\nsecond line\nthird");
    click(*view, before(*view, 9), { .count = 3 });
    EXPECT_EQ(marked(*view), "first\n[second line\n]third");
}

TEST_F(NSTextViewLooks, AShiftedClickExtends)
{
    auto& view = edit("one two three", { 4, 0 });
    click(view, before(view, 8), { .modifiers = NSShiftKeyMask });
    EXPECT_EQ(marked(), "one [two ]three");
    click(view, before(view, 1), { .modifiers = NSShiftKeyMask });
    EXPECT_EQ(marked(), "o[ne ]two three");
}

TEST_F(NSTextViewLooks, AClickNeverLandsInsideACharacter)
{
    auto& view = edit("a\U0001F469\u200D\U0001F467e\u0301b", { 0, 0 });
    for (float x = 0; x < 80; x += 1) {
        click(view, { x, 8 });
        long const at = view.selectedRange().location;
        EXPECT_TRUE(at == 0 || at == 1 || at == 6 || at == 8 || at == 9) << at << " at " << x;
    }
}

TEST_F(NSTextViewLooks, ADragBeyondTheFieldScrolls)
{
    auto& view = edit(std::string(200, 'w'), { 0, 0 });
    key(NSHomeFunctionKey);
    auto const from = onScreen(*field, { 100, 11 });
    auto const to = onScreen(*field, { 260, 11 });
    person().press(from);
    for (int i = 0; i < 20; ++i)
        person().dragTo({ to.x + static_cast<float>(i % 2), to.y });
    person().release(to);
    pump();
    EXPECT_GT(view.visibleRect().x, 100);
    EXPECT_GT(view.selectedRange().end(), 25);
}

TEST_F(NSTextViewLooks, ThePointerIsABeamOverText)
{
    edit("text", { 0, 0 });
    moveMouse(*field, { 100, 11 });
    EXPECT_EQ(display().cursorShape(), CursorShape::iBeam);
}

TEST_F(NSTextViewLooks, TheTextDoesNotMoveWhenAnEditBegins)
{
    field->cell()->setFocusRingType(NSFocusRingTypeNone);
    for (auto const alignment : { NSLeftTextAlignment, NSCenterTextAlignment, NSRightTextAlignment }) {
        field->setAlignment(alignment);
        field->setStringValue("Some text");
        window->makeFirstResponder(nullptr);
        pump();
        auto const ink = [&] {
            pump();
            auto const snapshot = window->snapshot();
            auto const rect = field->convertRectToView(NSInsetRect(field->bounds(), 4, 4), window->contentView());
            std::string columns;
            float const top = static_cast<float>(snapshot->pixelsHigh()) - rect.maxY();
            for (float x = rect.x; x < rect.maxX(); x += 1) {
                float least = 1;
                for (float y = top; y < top + rect.height; y += 1)
                    least = std::min(least, snapshot->colorAtX(static_cast<int>(x), static_cast<int>(y))->greenComponent());
                columns += least < 0.5F ? 'x' : '.';
            }
            return columns;
        };
        auto const shown = ink();
        EXPECT_NE(shown.find('x'), std::string::npos);
        window->makeFirstResponder(field.get());
        editor().setSelectedRange({ 0, 0 });
        pass(0.6);
        EXPECT_EQ(ink(), shown) << "alignment " << alignment;
    }
}

TEST_F(NSTextViewLooks, AMegabyteOnOneLineIsPastedAndTypedInto)
{
    setClipboard(std::string(1U << 20U, 'x'));
    auto& view = edit("", { 0, 0 });
    key(U'v', NSControlKeyMask);
    type("e");
    EXPECT_TRUE(NSContainsRect(view.visibleRect(), view.caretRect()));
    key(NSHomeFunctionKey);
    type("s");
    EXPECT_TRUE(field->stringValue().starts_with("sxx"));
    EXPECT_TRUE(field->stringValue().ends_with("xxe"));
}

TEST_F(NSTextViewLooks, OnlyTheLineThatWasTypedIntoIsDrawn)
{
    struct Counting : NSTextView {
        void drawRect(Rect dirty) override
        {
            drawn = NSUnionRect(drawn, dirty);
            NSTextView::drawRect(dirty);
        }
        Rect drawn;
    };
    auto const view = make<Counting>(Rect { 0, 0, 300, 200 });
    std::string text;
    for (int i = 0; i < 10; ++i)
        text += "a line\n";
    view->setString(text);
    window->contentView()->addSubview(*view);
    window->makeFirstResponder(view.get());
    view->setSelectedRange({ 20, 0 });
    pump();
    view->drawn = {};
    type("x");
    EXPECT_GT(view->drawn.height, 10);
    EXPECT_LT(view->drawn.height, 40);
}

TEST_F(NSTextViewLooks, GrowsWithItsText)
{
    auto const view = addTextView({ 0, 0, 200, 20 }, "one");
    float const height = view->frame().height;
    view->setString("one\ntwo\nthree\nfour");
    EXPECT_GT(view->frame().height, height + 20);
    EXPECT_EQ(view->frame().width, 200);
    view->setString("one");
    EXPECT_EQ(view->frame().height, height);
}

TEST_F(NSTextViewLooks, RewrapsWhenItsWidthChanges)
{
    auto const view = addTextView({ 0, 0, 300, 20 }, "several words that wrap when there is little room for them");
    float const height = view->frame().height;
    view->setFrameSize({ 80, height });
    EXPECT_GT(view->frame().height, height * 2);
}

TEST_F(NSTextViewLooks, RightToLeftTextStartsAtTheRight)
{
    edit("\u05D0\u05D1\u05D2", { 0, 0 });
    float const start = editor().caretRect().x;
    key(NSEndFunctionKey);
    EXPECT_GT(start, editor().caretRect().x);
    EXPECT_GT(start, editor().visibleRect().maxX() - 8);
}

}
}
