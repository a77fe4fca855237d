#include <tests/inspector/InspectorTest.h>

#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSWindow_internal.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(InspectorTest, IsOpenedByKeysAndClosedByTheSame)
{
    pressOpeningKeys();
    ASSERT_TRUE(isInspectorOpen());
    EXPECT_TRUE(panel().isVisible());
    EXPECT_EQ(panel().title(), "Inspector: Halves");
    Ref<NSWindow> const shownPanel(panel());
    pressOpeningKeys();
    EXPECT_FALSE(isInspectorOpen());
    EXPECT_FALSE(shownPanel->isVisible());
    pressOpeningKeys();
    EXPECT_TRUE(isInspectorOpen());
}

TEST_F(InspectorTest, TakesNothingButItsKeysFromTheApplication)
{
    pressOpeningKeys();
    EXPECT_THAT(left->log, IsEmpty());
    key(U'I', NSControlKeyMask);
    key(U'I', openingModifiers | NSAlternateKeyMask);
    key(U'i', NSShiftKeyMask);
    EXPECT_TRUE(isInspectorOpen());
    EXPECT_THAT(left->log, ElementsAre("keyDown \x09", "keyUp \x09", "keyDown \x09", "keyUp \x09", "keyDown i", "keyUp i"));
}

TEST_F(InspectorTest, IsOpenedByItsKeysInWhateverCase)
{
    key(U'i', openingModifiers);
    EXPECT_TRUE(isInspectorOpen());
}

TEST_F(InspectorTest, DoesNothingWhileItWasNeverOpened)
{
    click(*left, { 5, 5 });
    key(U'a');
    content->setNeedsDisplay(true);
    pump();
    EXPECT_EQ(WindowWatcher::current(), nullptr);
    EXPECT_EQ(InspectorSession::current(), nullptr);
    EXPECT_THAT(app().windows(), SizeIs(1));
    EXPECT_EQ(content->drawCount, 1);
}

TEST_F(InspectorTest, LeavesNothingBehindWhenItIsClosed)
{
    auto const before = shown();
    open();
    session().selectView(left.get());
    press(panel().framesSwitch());
    pump();
    ASSERT_NE(countDifferences(before, shown()), 0);
    pressOpeningKeys();
    pump();
    EXPECT_EQ(countDifferences(before, shown()), 0);
    EXPECT_EQ(WindowWatcher::current(), nullptr);
    forget();
    pass(1);
    EXPECT_EQ(content->drawCount, 0);
}

TEST_F(InspectorTest, GoesAwayWhole)
{
    open();
    press(panel().flashesSwitch());
    session().selectView(left.get());
    Weak<InspectorSession> const weakSession(session());
    Weak<InspectorPanel> const weakPanel(panel());
    pressOpeningKeys();
    pass(1);
    EXPECT_FALSE(weakSession);
    EXPECT_FALSE(weakPanel);
}

TEST_F(InspectorTest, LeavesKeyWindowFocusAndViewsAsTheyAre)
{
    auto const subviews = content->subviews();
    open();
    press(panel().framesSwitch());
    press(panel().views().outline());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_TRUE(window->isMainWindow());
    EXPECT_TRUE(content->looksActive());
    EXPECT_EQ(window->firstResponder(), left.get());
    EXPECT_EQ(content->subviews(), subviews);
    EXPECT_THAT(left->log, IsEmpty());
    EXPECT_FALSE(content->needsDisplay());
}

TEST_F(InspectorTest, ShowsTheViewsOfTheKeyWindow)
{
    right->setHidden(true);
    open();
    auto const& tree = panel().views().tree();
    EXPECT_EQ(tree.id, content->serialNumber());
    ASSERT_THAT(tree.children, SizeIs(2));
    EXPECT_EQ(tree.children[0].className, "CountingView");
    EXPECT_EQ(tree.children[0].frame, (Rect { 20, 30, 100, 80 }));
    EXPECT_TRUE(tree.children[1].isHidden);
    EXPECT_EQ(panel().views().outline().numberOfRows(), 3);
}

TEST_F(InspectorTest, TakesTitlesFromButtonsBoxesAndFieldsWithoutEndingAnEdit)
{
    auto const button = make<NSButton>(Rect { 0, 200, 80, 24 });
    button->setTitle("OK");
    auto const box = make<NSBox>(Rect { 100, 200, 80, 80 });
    box->setTitle("Size");
    auto const field = make<NSTextField>(Rect { 200, 200, 80, 24 });
    field->setStringValue("before");
    for (auto const& view : std::vector<Ref<NSView>> { button, box, field })
        content->addSubview(*view);
    window->makeFirstResponder(field.get());
    type("x");
    open();
    std::vector<std::string> titles;
    for (auto const& child : panel().views().tree().children)
        titles.push_back(child.title);
    EXPECT_THAT(titles, ElementsAre("", "", "OK", "Size", "before"));
    EXPECT_NE(field->currentEditor(), nullptr);
}

template <typename View> class Fixed final : public View {
};

TEST_F(InspectorTest, NamesClassesThatAreNotDescribed)
{
    content->addSubview(*make<Fixed<NSView>>(Rect { 0, 0, 1, 1 }));
    class Special final : public NSView { };
    content->addSubview(*make<Special>(Rect { 0, 0, 1, 1 }));
    open();
    EXPECT_EQ(panel().views().tree().children[2].className, "Fixed<NSView> (NSView)");
    EXPECT_EQ(panel().views().tree().children[3].className, "Special (NSView)");
}

TEST_F(InspectorTest, FollowsWhatHappensToTheViews)
{
    open();
    left->setFrame({ 40, 50, 60, 70 });
    content->addSubview(*make<NSView>(Rect { 5, 5, 5, 5 }));
    pass(0.2);
    auto const& tree = panel().views().tree();
    ASSERT_THAT(tree.children, SizeIs(3));
    EXPECT_EQ(tree.children[0].frame, (Rect { 40, 50, 60, 70 }));
}

TEST_F(InspectorTest, ShowsTheFieldsOfTheViewThatIsSelectedInTheTree)
{
    left->setToolTip("The left one");
    left->setNextKeyView(right.get());
    open();
    auto& outline = panel().views().outline();
    click(outline, { 60, outline.rectOfRow(1).midY() });
    EXPECT_EQ(session().selectedView(), left.get());
    EXPECT_EQ(field("Class"), "CountingView");
    EXPECT_EQ(field("Frame"), "20, 30   100 × 80");
    EXPECT_EQ(field("First responder"), "Yes");
    EXPECT_EQ(field("Tool tip"), "The left one");
    EXPECT_EQ(field("Next key view"), "CountingView");
    EXPECT_EQ(field("Enabled"), "none");
}

TEST_F(InspectorTest, ShowsACellsFields)
{
    auto const button = make<NSButton>(Rect { 0, 200, 80, 24 });
    button->setTitle("OK");
    button->setButtonType(NSSwitchButton);
    button->setState(NSOnState);
    button->setEnabled(false);
    button->setTag(42);
    content->addSubview(*button);
    open();
    session().selectView(button.get());
    EXPECT_EQ(field("Cell"), "NSButtonCell");
    EXPECT_EQ(field("Cell state"), "On");
    EXPECT_EQ(field("Enabled"), "No");
    EXPECT_EQ(field("Tag"), "42");
    EXPECT_NE(field("Cell font"), "None");
}

TEST_F(InspectorTest, IsWalkedThroughByKeysWhileTheWindowStaysKey)
{
    open();
    auto& outline = panel().views().outline();
    click(outline, { 60, outline.rectOfRow(0).midY() });
    key(NSDownArrowFunctionKey);
    key(NSDownArrowFunctionKey);
    EXPECT_EQ(session().selectedView(), right.get());
    EXPECT_TRUE(window->isKeyWindow());
    EXPECT_THAT(left->log, IsEmpty());
    key(NSEscapeCharacter);
    EXPECT_FALSE(isInspectorOpen());
}

TEST_F(InspectorTest, PicksTheViewUnderTheMouseWithoutTheApplication)
{
    open();
    press(panel().pickButton());
    ASSERT_TRUE(session().isPicking());
    moveMouse(*right, { 50, 40 });
    EXPECT_EQ(session().hoveredView(), right.get());
    EXPECT_TRUE(isTinted({ 250, 70 }));
    EXPECT_FALSE(isTinted({ 70, 70 }));
    click(*right, { 50, 40 });
    EXPECT_FALSE(session().isPicking());
    EXPECT_EQ(panel().pickButton().state(), NSOffState);
    EXPECT_EQ(session().selectedView(), right.get());
    EXPECT_EQ(panel().views().selectedView(), right->serialNumber());
    EXPECT_THAT(right->log, IsEmpty());
    EXPECT_EQ(window->firstResponder(), left.get());
    EXPECT_THAT(session().log().events(), IsEmpty());
    click(*right, { 50, 40 });
    EXPECT_THAT(right->log, Contains("mouseDown"));
}

TEST_F(InspectorTest, EndsPickingByEscape)
{
    open();
    press(panel().pickButton());
    key(NSEscapeCharacter);
    EXPECT_FALSE(session().isPicking());
    press(panel().pickButton());
    moveMouse(*right, { 50, 40 });
    person().focusWindow([this] { return hostWindow(*window); });
    key(NSEscapeCharacter);
    EXPECT_FALSE(session().isPicking());
    EXPECT_EQ(session().hoveredView(), nullptr);
    EXPECT_TRUE(isInspectorOpen());
    click(*right, { 50, 40 });
    EXPECT_THAT(right->log, Contains("mouseDown"));
}

TEST_F(InspectorTest, PicksInAnotherWindowToo)
{
    auto const other = showWindow({ 100, 560, 200, 200 });
    window->makeKeyAndOrderFront(nullptr);
    open();
    press(panel().pickButton());
    auto* const target = other->contentView();
    click(*target, { 50, 40 });
    EXPECT_EQ(session().window(), other.get());
    EXPECT_EQ(session().selectedView(), target);
}

TEST_F(InspectorTest, FollowsTheKeyWindow)
{
    open();
    auto const other = showWindow({ 600, 100, 200, 200 });
    EXPECT_EQ(session().window(), other.get());
    EXPECT_EQ(panel().views().tree().id, other->contentView()->serialNumber());
    window->makeKeyAndOrderFront(nullptr);
    EXPECT_EQ(session().window(), window.get());
}

TEST_F(InspectorTest, OutlivesTheWindowThatItLooksAt)
{
    auto const other = showWindow({ 600, 100, 200, 200 });
    window->makeKeyAndOrderFront(nullptr);
    open();
    session().selectView(left.get());
    press(panel().framesSwitch());
    press(panel().flashesSwitch());
    content->setNeedsDisplay(true);
    pump();
    window->close();
    window = nullptr;
    content = left = right = nullptr;
    pass(1);
    EXPECT_EQ(session().window(), other.get());
    EXPECT_EQ(session().selectedView(), nullptr);
    EXPECT_THAT(panel().fields().rows(), IsEmpty());
}

TEST_F(InspectorTest, GoesWithTheLastWindow)
{
    open();
    Ref<NSWindow> const shownPanel(panel());
    window->close();
    EXPECT_FALSE(isInspectorOpen());
    EXPECT_FALSE(shownPanel->isVisible());
}

TEST_F(InspectorTest, LetsAnApplicationEndWithItsLastWindow)
{
    struct Delegate : NSObject {
        bool applicationShouldTerminateAfterLastWindowClosed(NSApplication&) { return true; }
    };
    auto const delegate = make<Delegate>();
    app().setDelegate(delegate);
    bool hasEnded = false;
    app().setExitHandler([&] { hasEnded = true; });
    open();
    person().closeWindow([this] { return hostWindow(*window); });
    pump();
    EXPECT_TRUE(hasEnded);
}

TEST_F(InspectorTest, OutlivesTheViewThatIsSelected)
{
    open();
    press(panel().framesSwitch());
    session().selectView(right.get());
    right->removeFromSuperview();
    right = nullptr;
    pass(0.2);
    EXPECT_EQ(session().selectedView(), nullptr);
    EXPECT_THAT(panel().views().tree().children, SizeIs(1));
    EXPECT_THAT(panel().fields().rows(), IsEmpty());
    EXPECT_FALSE(isTinted({ 250, 70 }));
}

TEST_F(InspectorTest, DoesNotKeepViewsAlive)
{
    open();
    session().selectView(right.get());
    Weak<CountingView> const view = right;
    right->removeFromSuperview();
    right = nullptr;
    EXPECT_FALSE(view);
}

TEST_F(InspectorTest, IsClosedByAPersonWithItsWindow)
{
    open();
    person().closeWindow([this] { return hostWindow(panel()); });
    pump();
    EXPECT_FALSE(isInspectorOpen());
    EXPECT_EQ(WindowWatcher::current(), nullptr);
}

TEST_F(InspectorTest, OpensWhileAWindowIsModal)
{
    auto const modal = make<NSPanel>(Rect { 500, 300, 200, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    auto const modalSession = app().beginModalSessionForWindow(*modal);
    pump();
    open();
    EXPECT_EQ(session().window(), modal.get());
    press(panel().framesSwitch());
    EXPECT_EQ(panel().framesSwitch().state(), NSOnState);
    app().endModalSession(*modalSession);
}

TEST_F(InspectorTest, StandsBesideTheWindow)
{
    open();
    EXPECT_GE(panel().frame().x, window->frame().maxX());
    EXPECT_EQ(panel().frame().maxY(), std::max(window->frame().maxY(), panel().frame().height));
}

TEST_F(InspectorTest, OpensWithoutAnyWindow)
{
    window->close();
    openInspector();
    pump();
    ASSERT_TRUE(isInspectorOpen());
    EXPECT_EQ(session().window(), nullptr);
    EXPECT_EQ(panel().views().outline().numberOfRows(), 0);
    auto const later = showWindow();
    EXPECT_EQ(session().window(), later.get());
}

TEST_F(InspectorTest, MayEndWhileAButtonOfItsPanelIsHeld)
{
    open();
    Ref<NSButton> const held(panel().framesSwitch());
    person().press(centerOnScreen(*held));
    person().then([] { closeInspector(); });
    person().release(centerOnScreen(*held));
    pump();
    EXPECT_FALSE(isInspectorOpen());
    held->performClick(nullptr);
    EXPECT_FALSE(isInspectorOpen());
}

}
}
