#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSPanel.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NSWindowEvents : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow();
    }
    Ref<CountingView> addView(Rect frame, bool takesKeyboard = false)
    {
        auto view = make<CountingView>(frame);
        view->takesKeyboard = takesKeyboard;
        window->contentView()->addSubview(*view);
        view->forget();
        return view;
    }

    Ref<NSWindow> window;
};

TEST_F(NSWindowEvents, AClickReachesTheViewUnderThePointer)
{
    auto const lower = addView({ 0, 0, 100, 100 });
    auto const upper = addView({ 50, 50, 100, 100 });
    click(*upper, { 10, 10 });
    EXPECT_THAT(upper->log, ElementsAre("mouseDown", "mouseUp"));
    EXPECT_THAT(lower->log, IsEmpty());
    EXPECT_EQ(upper->lastEvent->locationInWindow(), (Point { 60, 60 }));
    EXPECT_EQ(upper->lastEvent->window(), window.get());
    EXPECT_EQ(upper->lastEvent->clickCount(), 1);
}

TEST_F(NSWindowEvents, ADoubleClickCountsToTwo)
{
    auto const view = addView({ 0, 0, 100, 100 });
    std::vector<long> counts;
    view->whenEvent = [&](NSEvent& event) { counts.push_back(event.clickCount()); };
    click(*view, { 10, 10 }, { .count = 2 });
    EXPECT_THAT(counts, ElementsAre(1, 1, 2, 2));
}

TEST_F(NSWindowEvents, ADragStaysWithTheViewThatWasPressed)
{
    auto const view = addView({ 0, 0, 50, 50 });
    auto const other = addView({ 100, 0, 50, 50 });
    drag(*view, { 10, 10 }, { 130, 10 });
    EXPECT_EQ(view->log.front(), "mouseDown");
    EXPECT_EQ(view->log.back(), "mouseUp");
    EXPECT_EQ(std::ranges::count(view->log, "mouseDragged"), 4);
    EXPECT_THAT(other->log, IsEmpty());
}

TEST_F(NSWindowEvents, ADragLeavesTheWindowAndStillArrives)
{
    auto const view = addView({ 0, 0, 50, 50 });
    drag(*view, { 10, 10 }, { -500, 10 });
    EXPECT_EQ(view->log.back(), "mouseUp");
    EXPECT_EQ(view->lastEvent->locationInWindow(), (Point { -500, 10 }));
}

TEST_F(NSWindowEvents, DragsCarryTheirDistance)
{
    auto const view = addView({ 0, 0, 50, 50 });
    float movedX = 0;
    float movedY = 0;
    view->whenEvent = [&](NSEvent& event) {
        if (event.type() == NSLeftMouseDragged) {
            movedX += event.deltaX();
            movedY += event.deltaY();
        }
    };
    drag(*view, { 10, 10 }, { 30, 40 });
    EXPECT_FLOAT_EQ(movedX, 20);
    EXPECT_FLOAT_EQ(movedY, -30);
}

TEST_F(NSWindowEvents, OtherButtonsHaveEventsOfTheirOwn)
{
    auto const view = addView({ 0, 0, 50, 50 });
    click(*view, { 10, 10 }, { .button = 1 });
    click(*view, { 10, 10 }, { .button = 2 });
    EXPECT_THAT(view->log, ElementsAre("rightMouseDown", "rightMouseUp", "otherMouseDown", "otherMouseUp"));
    EXPECT_EQ(view->lastEvent->buttonNumber(), 2);
    EXPECT_EQ(view->lastEvent->type(), NSOtherMouseUp);
}

TEST_F(NSWindowEvents, TheWheelGoesToTheViewUnderThePointer)
{
    auto const view = addView({ 0, 0, 50, 50 });
    scroll(*view, 1, -3);
    EXPECT_THAT(view->log, ElementsAre("scrollWheel"));
    EXPECT_EQ(view->lastEvent->deltaX(), 1);
    EXPECT_EQ(view->lastEvent->deltaY(), -3);
}

TEST_F(NSWindowEvents, UnhandledEventsGoUpTheChain)
{
    auto const parent = addView({ 0, 0, 100, 100 });
    auto const child = make<NSView>(Rect { 0, 0, 50, 50 });
    parent->addSubview(*child);
    clickCenter(*child);
    EXPECT_THAT(parent->log, ElementsAre("mouseDown", "mouseUp"));
}

TEST_F(NSWindowEvents, MovementsArriveOnlyWhereTheyAreAccepted)
{
    auto const view = addView({ 0, 0, 50, 50 }, true);
    window->makeFirstResponder(view.get());
    view->forget();
    moveMouse(*view, { 10, 10 });
    EXPECT_THAT(view->log, IsEmpty());
    window->setAcceptsMouseMovedEvents(true);
    moveMouse(*view, { 20, 20 });
    EXPECT_THAT(view->log, ElementsAre("mouseMoved"));
}

TEST_F(NSWindowEvents, MovementsThatWaitAreJoined)
{
    window->setAcceptsMouseMovedEvents(true);
    auto const view = addView({ 0, 0, 50, 50 }, true);
    window->makeFirstResponder(view.get());
    view->forget();
    for (float x : { 5.0F, 10.0F, 25.0F })
        person().moveMouse(onScreen(*view, { x, 5 }));
    // All of it is delivered before the application looks for an event.
    while (machine().headlessEvents().deliverPending()) { }
    pump();
    EXPECT_THAT(view->log, ElementsAre("mouseMoved"));
    EXPECT_EQ(view->lastEvent->locationInWindow(), (Point { 25, 5 }));
}

TEST_F(NSWindowEvents, AWindowThatIgnoresTheMouseGetsNone)
{
    auto const view = addView({ 0, 0, 50, 50 });
    window->setIgnoresMouseEvents(true);
    clickCenter(*view);
    EXPECT_THAT(view->log, IsEmpty());
}

TEST_F(NSWindowEvents, ClosingTheWindowInItsOwnPressIsSafe)
{
    auto const view = addView({ 0, 0, 50, 50 });
    Weak<NSWindow> const weak(window);
    view->whenEvent = [&](NSEvent& event) {
        if (event.type() == NSLeftMouseDown)
            weak->close();
    };
    person().drag(onScreen(*view, { 5, 5 }), onScreen(*view, { 30, 30 }));
    window = nullptr;
    pump();
    EXPECT_THAT(view->log, ElementsAre("mouseDown"));
    EXPECT_EQ(view->window(), nullptr);
    EXPECT_EQ(weak.get(), nullptr);
}

TEST_F(NSWindowEvents, RemovingThePressedViewEndsItsDrag)
{
    auto const view = addView({ 0, 0, 50, 50 });
    view->whenEvent = [&](NSEvent&) { view->removeFromSuperview(); };
    drag(*view, { 5, 5 }, { 30, 30 });
    EXPECT_EQ(view->log.front(), "mouseDown");
    EXPECT_EQ(std::ranges::count(view->log, "mouseDragged"), 0);
    EXPECT_EQ(std::ranges::count(view->log, "mouseUp"), 0);
}

// First responder.

TEST_F(NSWindowEvents, APressMakesAViewFirstResponderThatAccepts)
{
    auto const plain = addView({ 0, 0, 50, 50 });
    auto const field = addView({ 100, 0, 50, 50 }, true);
    clickCenter(*field);
    EXPECT_EQ(window->firstResponder(), field.get());
    EXPECT_THAT(field->log, ElementsAre("becomeFirstResponder", "mouseDown", "mouseUp"));
    clickCenter(*plain);
    EXPECT_EQ(window->firstResponder(), field.get());
    clickCenter(*field, { .button = 1 });
    EXPECT_EQ(window->firstResponder(), field.get());
}

TEST_F(NSWindowEvents, KeysGoToTheFirstResponderAndUpFromIt)
{
    auto const outer = addView({ 0, 0, 100, 100 });
    auto const inner = make<CountingView>(Rect { 0, 0, 50, 50 });
    inner->takesKeyboard = true;
    outer->addSubview(*inner);
    window->makeFirstResponder(inner.get());
    inner->forget();
    key(U'a');
    EXPECT_THAT(inner->log, ElementsAre("keyDown a", "keyUp a"));
    EXPECT_EQ(inner->lastEvent->window(), window.get());
    person().setModifiers(HostModifierShift);
    pump();
    EXPECT_EQ(inner->log.back(), "flagsChanged");
    EXPECT_EQ(inner->lastEvent->modifierFlags(), static_cast<unsigned>(NSShiftKeyMask));
}

TEST_F(NSWindowEvents, ARefusalToResignKeepsTheFirstResponder)
{
    auto const first = addView({ 0, 0, 50, 50 }, true);
    auto const second = addView({ 100, 0, 50, 50 }, true);
    EXPECT_TRUE(window->makeFirstResponder(first.get()));
    first->refusesToResign = true;
    EXPECT_FALSE(window->makeFirstResponder(second.get()));
    EXPECT_FALSE(window->makeFirstResponder(nullptr));
    EXPECT_EQ(window->firstResponder(), first.get());
    EXPECT_THAT(second->log, IsEmpty());
}

TEST_F(NSWindowEvents, ARefusalToBecomeMakesTheWindowFirstResponder)
{
    auto const first = addView({ 0, 0, 50, 50 }, true);
    auto const second = addView({ 100, 0, 50, 50 }, true);
    window->makeFirstResponder(first.get());
    second->refusesToBecome = true;
    EXPECT_TRUE(window->makeFirstResponder(second.get()));
    EXPECT_EQ(window->firstResponder(), window.get());
    EXPECT_EQ(first->log.back(), "resignFirstResponder");
}

TEST_F(NSWindowEvents, AViewThatDoesNotAcceptChangesNothing)
{
    auto const first = addView({ 0, 0, 50, 50 }, true);
    auto const plain = addView({ 100, 0, 50, 50 });
    window->makeFirstResponder(first.get());
    EXPECT_FALSE(window->makeFirstResponder(plain.get()));
    EXPECT_EQ(window->firstResponder(), first.get());
    EXPECT_TRUE(window->makeFirstResponder(first.get()));
    EXPECT_EQ(std::ranges::count(first->log, "becomeFirstResponder"), 1);
}

TEST_F(NSWindowEvents, AFirstResponderThatLeavesOrHidesGivesTheKeyboardUp)
{
    auto const first = addView({ 0, 0, 50, 50 }, true);
    window->makeFirstResponder(first.get());
    first->refusesToResign = true;
    first->removeFromSuperview();
    EXPECT_EQ(window->firstResponder(), window.get());
    auto const second = addView({ 0, 0, 50, 50 }, true);
    window->makeFirstResponder(second.get());
    second->setHidden(true);
    EXPECT_EQ(window->firstResponder(), window.get());
}

TEST_F(NSWindowEvents, PreeditReachesTheFirstResponderInOrderWithKeys)
{
    class Editor final : public CountingView {
    public:
        bool setMarkedText(std::string_view text, NSRange selected) override
        {
            log.push_back("marked " + std::string(text) + " " + std::to_string(selected.location));
            return true;
        }
    };
    auto const editor = make<Editor>(Rect { 0, 0, 50, 50 });
    editor->takesKeyboard = true;
    window->contentView()->addSubview(*editor);
    window->makeFirstResponder(editor.get());
    editor->forget();
    person().preedit("ni", 2);
    person().preedit("", 0);
    person().keyDown("\u4F60", 0, "", false);
    pump();
    EXPECT_THAT(editor->log, ElementsAre("marked ni 2", "marked  0", "keyDown \u4F60"));
}

// Key view loop.

TEST_F(NSWindowEvents, TabWalksTheExplicitLoopPastWhatCannotTakeTheKeyboard)
{
    auto const a = addView({ 0, 0, 10, 10 }, true);
    auto const hidden = addView({ 20, 0, 10, 10 }, true);
    auto const plain = addView({ 40, 0, 10, 10 });
    auto const b = addView({ 60, 0, 10, 10 }, true);
    hidden->setHidden(true);
    a->setNextKeyView(hidden.get());
    hidden->setNextKeyView(plain.get());
    plain->setNextKeyView(b.get());
    b->setNextKeyView(a.get());
    window->makeFirstResponder(a.get());
    window->selectNextKeyView(nullptr);
    EXPECT_EQ(window->firstResponder(), b.get());
    window->selectNextKeyView(nullptr);
    EXPECT_EQ(window->firstResponder(), a.get());
    window->selectPreviousKeyView(nullptr);
    EXPECT_EQ(window->firstResponder(), b.get());
    EXPECT_EQ(window->keyViewSelectionDirection(), NSDirectSelection);
}

/// Takes the keyboard and leaves every key to the next responder.
class StopView final : public NSView {
public:
    bool acceptsFirstResponder() const override { return true; }
    bool becomeFirstResponder() override
    {
        direction = window()->keyViewSelectionDirection();
        return true;
    }
    NSSelectionDirection direction { NSDirectSelection };
};

TEST_F(NSWindowEvents, TabKeysWalkTheCalculatedLoopInReadingOrder)
{
    auto const bottom = make<StopView>(Rect { 0, 0, 50, 20 });
    auto const topRight = make<StopView>(Rect { 100, 100, 50, 20 });
    auto const topLeft = make<StopView>(Rect { 0, 100, 50, 20 });
    for (auto const& view : { bottom, topRight, topLeft })
        window->contentView()->addSubview(*view);
    window->recalculateKeyViewLoop();
    std::vector<NSResponder*> visited;
    for (int i = 0; i < 4; ++i) {
        key(NSTabCharacter);
        visited.push_back(window->firstResponder());
    }
    EXPECT_THAT(visited, ElementsAre(topLeft.get(), topRight.get(), bottom.get(), topLeft.get()));
    EXPECT_EQ(topLeft->direction, NSSelectingNext);
    key(NSBackTabCharacter, NSShiftKeyMask);
    EXPECT_EQ(window->firstResponder(), bottom.get());
    EXPECT_EQ(bottom->direction, NSSelectingPrevious);
}

TEST_F(NSWindowEvents, TheLoopIsRecalculatedWhereTheWindowSaysSo)
{
    window->setAutorecalculatesKeyViewLoop(true);
    auto const first = make<StopView>(Rect { 0, 100, 50, 20 });
    window->contentView()->addSubview(*first);
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), first.get());
    auto const second = make<StopView>(Rect { 0, 50, 50, 20 });
    window->contentView()->addSubview(*second);
    key(NSTabCharacter);
    EXPECT_EQ(window->firstResponder(), second.get());
}

TEST_F(NSWindowEvents, TheInitialFirstResponderHasTheKeyboardWhenTheWindowAppears)
{
    auto const other = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
    auto const a = make<StopView>(Rect { 0, 100, 50, 20 });
    auto const b = make<StopView>(Rect { 0, 0, 50, 20 });
    other->contentView()->addSubview(*a);
    other->contentView()->addSubview(*b);
    other->setInitialFirstResponder(b.get());
    EXPECT_EQ(other->firstResponder(), other.get());
    other->makeKeyAndOrderFront(nullptr);
    EXPECT_EQ(other->firstResponder(), b.get());
}

TEST_F(NSWindowEvents, WithoutOneTheFirstInReadingOrderHasIt)
{
    auto const other = make<NSWindow>(usualContent, usualStyle, NSBackingStoreBuffered, true);
    auto const low = make<StopView>(Rect { 0, 0, 50, 20 });
    auto const high = make<StopView>(Rect { 0, 100, 50, 20 });
    other->contentView()->addSubview(*low);
    other->contentView()->addSubview(*high);
    other->makeKeyAndOrderFront(nullptr);
    EXPECT_EQ(other->firstResponder(), high.get());
}

// Key equivalents and what the window does with keys.

class ShortcutView final : public NSView {
public:
    char32_t key { 0 };
    unsigned count { 0 };
    bool performKeyEquivalent(NSEvent& event) override
    {
        if (event.characterIgnoringModifiers() != key)
            return NSView::performKeyEquivalent(event);
        ++count;
        return true;
    }
};

TEST_F(NSWindowEvents, ShortcutsGoThroughTheViewsBeforeTheFirstResponder)
{
    auto const field = addView({ 0, 0, 50, 50 }, true);
    window->makeFirstResponder(field.get());
    field->forget();
    auto const shortcut = make<ShortcutView>(Rect { 100, 0, 50, 50 });
    shortcut->key = U's';
    window->contentView()->addSubview(*shortcut);
    person().keyDown("\x13", HostModifierControl, "s", false);
    person().keyDown("s", HostModifierCommand, "s", false);
    person().keyDown("s", 0, "s", false);
    pump();
    EXPECT_EQ(shortcut->count, 2U);
    EXPECT_THAT(field->log, ElementsAre("keyDown s"));
    shortcut->setHidden(true);
    person().keyDown("s", HostModifierCommand, "s", false);
    pump();
    EXPECT_EQ(shortcut->count, 2U);
}

TEST_F(NSWindowEvents, KeysThatNobodyTakesAreOfferedAsEquivalentsAndThenBeep)
{
    auto const shortcut = make<ShortcutView>(Rect { 100, 0, 50, 50 });
    shortcut->key = U'x';
    window->contentView()->addSubview(*shortcut);
    key(U'x');
    EXPECT_EQ(shortcut->count, 1U);
    EXPECT_EQ(display().beepCount(), 0);
    key(U'y');
    EXPECT_EQ(display().beepCount(), 1);
}

class Button final : public NSResponder {
    PLIX_CLASS(Button, NSResponder);

public:
    int count { 0 };
    void performClick(NSObject*) { ++count; }
};
PLIX_DESCRIBE(Button)
{
    description.action("performClick:", &Button::performClick);
}

TEST_F(NSWindowEvents, ReturnPressesTheDefaultButton)
{
    auto const button = make<Button>();
    window->setDefaultButton(button.get());
    key(NSCarriageReturnCharacter);
    key(NSEnterCharacter);
    EXPECT_EQ(button->count, 2);
    window->disableKeyEquivalentForDefaultButtonCell();
    key(NSCarriageReturnCharacter);
    EXPECT_EQ(button->count, 2);
    EXPECT_EQ(display().beepCount(), 1);
}

TEST_F(NSWindowEvents, EscapeClosesAPanelThatCanBeClosed)
{
    auto const panel = make<NSPanel>(usualContent, NSTitledWindowMask | NSClosableWindowMask, NSBackingStoreBuffered, true);
    panel->makeKeyAndOrderFront(nullptr);
    key(NSEscapeCharacter);
    EXPECT_FALSE(panel->isVisible());
    auto const fixed = make<NSPanel>(usualContent, NSTitledWindowMask, NSBackingStoreBuffered, true);
    fixed->makeKeyAndOrderFront(nullptr);
    key(NSEscapeCharacter);
    EXPECT_TRUE(fixed->isVisible());
}

// Commands.

class Editor final : public NSView {
    PLIX_CLASS(Editor, NSView);

public:
    using NSView::init;
    std::vector<std::string> log;
    void deleteBackward(NSObject*) { log.emplace_back("deleteBackward"); }
    void insertText(std::string_view text) override { log.push_back("text " + std::string(text)); }
    void keyDown(NSEvent& event) override { interpretKeyEvents({ Ref<NSEvent>(event) }); }
    bool acceptsFirstResponder() const override { return true; }
};
PLIX_DESCRIBE(Editor)
{
    description.action("deleteBackward:", &Editor::deleteBackward);
}

TEST_F(NSWindowEvents, InterpretedKeysBecomeCommandsAndText)
{
    auto const editor = make<Editor>(Rect { 0, 0, 10, 10 });
    window->contentView()->addSubview(*editor);
    window->makeFirstResponder(editor.get());
    type("h\u00E9");
    key(NSDeleteCharacter);
    EXPECT_THAT(editor->log, ElementsAre("text h", "text \u00E9", "deleteBackward"));
    EXPECT_EQ(display().beepCount(), 0);
    key(NSUpArrowFunctionKey);
    EXPECT_EQ(display().beepCount(), 1);
}

class Host final : public NSObject {
    PLIX_CLASS(Host, NSObject);

public:
    int count { 0 };
    void sayHello(NSObject*) { ++count; }
};
PLIX_DESCRIBE(Host)
{
    description.action("sayHello:", &Host::sayHello);
}

TEST_F(NSWindowEvents, CommandsClimbTheChainToTheWindowAndItsDelegate)
{
    auto const host = make<Host>();
    auto const view = addView({ 0, 0, 10, 10 }, true);
    EXPECT_FALSE(view->tryToPerform(Selector("sayHello:"), nullptr));
    window->setDelegate(host);
    EXPECT_TRUE(view->tryToPerform(Selector("sayHello:"), nullptr));
    EXPECT_EQ(host->count, 1);
    EXPECT_TRUE(view->tryToPerform(Selector("performMiniaturize:"), nullptr));
    EXPECT_TRUE(window->isMiniaturized());
}

}
}
