#include <tests/support/FakeToolkit.h>

#include <plix/platform/appkit/EmbeddedTree.h>
#include <plix/platform/appkit/NSApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/host/embedding/toolkit_keys.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class EmbeddedTreeTest : public testing::Test {
protected:
    using Way = EmbeddedTree::Way;

    EmbeddedTreeTest()
    {
        auto made = std::make_unique<FakeToolkit>();
        toolkit = made.get();
        m_before = installHost(std::move(made));
        NSApplication::sharedApplication();
        view->addSubview(*upper);
        view->addSubview(*lower);
        view->addSubview(*popUp);
        popUp->addItemWithTitle("One");
        popUp->addItemWithTitle("Two");
        tree = embed(view, { 100, 100, 300, 200 });
        tree->setFocusLeaves([this](Way way) {
            ways.push_back(way);
            return mayLeave;
        });
        turn();
    }
    ~EmbeddedTreeTest() override
    {
        tree.reset();
        view = nullptr;
        NSApp = nullptr;
        installHost(std::move(m_before));
    }

    std::unique_ptr<EmbeddedTree> embed(Ref<NSView> const& root, Rect rect)
    {
        HostWindowAttributes attributes;
        attributes.contentRect = rect;
        return std::make_unique<EmbeddedTree>(
            toolkit->fakeDisplay, std::make_unique<FakeToolkitWindow>(toolkit->fakeDisplay, attributes), root);
    }
    void turn() { takeTurn(toolkit->embeddingEvents); }
    void focus(bool hasFocus = true)
    {
        toolkit->fakeDisplay.focusChanged(*tree->place(), hasFocus);
        turn();
    }
    void key(std::uint32_t keysym, std::uint32_t modifiers = 0)
    {
        auto const isText = keysym < 0xFF;
        toolkit->fakeDisplay.keyPressed(*tree->place(),
            { keysym, isText ? char32_t { keysym } : 0, isText ? std::string(1, static_cast<char>(keysym)) : "", modifiers });
        turn();
    }
    /// Enters the press; what follows it is the test's.
    void press(NSView const& target) { toolkit->fakeDisplay.buttonPressed(tree->place(), centerOf(target), 0, 0); }
    void release(NSView const& target) { toolkit->fakeDisplay.buttonReleased(tree->place(), centerOf(target), 0, 0); }
    static Point centerOf(NSView const& target)
    {
        Rect const bounds = target.bounds();
        return target.window()->convertBaseToScreen(target.convertPointToView({ bounds.midX(), bounds.midY() }, nullptr));
    }
    bool hasKeyboard(NSTextField const& field) const
    {
        auto const* const responder = dynamic_cast<NSView*>(tree->window().firstResponder());
        return responder && responder->isDescendantOf(field);
    }

    FakeToolkit* toolkit { nullptr };
    Ref<NSView> view { make<NSView>(Rect { 0, 0, 300, 200 }) };
    Ref<NSTextField> upper { make<NSTextField>(Rect { 20, 150, 100, 22 }) };
    Ref<NSTextField> lower { make<NSTextField>(Rect { 20, 100, 100, 22 }) };
    Ref<NSPopUpButton> popUp { make<NSPopUpButton>(Rect { 20, 50, 100, 22 }, false) };
    std::unique_ptr<EmbeddedTree> tree;
    std::vector<Way> ways;
    bool mayLeave { true };

private:
    std::unique_ptr<Host> m_before;
};

constexpr std::uint32_t s_tab = 0xFF09;

TEST_F(EmbeddedTreeTest, TheTreeFillsItsPlaceAndIsDrawn)
{
    ASSERT_NE(tree->place(), nullptr);
    EXPECT_EQ(tree->window().frame(), (Rect { 100, 100, 300, 200 }));
    EXPECT_NE(tree->place()->shownPixels().pixels, nullptr);
    tree->place()->placed({ 100, 100, 340, 260 }, 2);
    EXPECT_EQ(view->frame(), (Rect { 0, 0, 340, 260 }));
    EXPECT_EQ(tree->place()->shownPixels().pixels, nullptr);
    drawEmbeddedWindow(*tree->place());
    EXPECT_EQ(tree->place()->shownPixels().width, 680);
}

TEST_F(EmbeddedTreeTest, TheWindowIsKeyWhileTheWidgetHasTheFocus)
{
    EXPECT_FALSE(tree->window().isKeyWindow());
    focus();
    EXPECT_TRUE(tree->window().isKeyWindow());
    focus(false);
    EXPECT_FALSE(tree->window().isKeyWindow());
    EXPECT_FALSE(NSApp->isActive());
}

TEST_F(EmbeddedTreeTest, TabEntersAtEitherEnd)
{
    focus();
    tree->focusEnters(Way::forward);
    EXPECT_TRUE(hasKeyboard(*upper));
    tree->focusEnters(Way::backward);
    EXPECT_FALSE(hasKeyboard(*upper));
    EXPECT_EQ(tree->window().firstResponder(), popUp->acceptsFirstResponder() ? popUp.get() : tree->window().firstResponder());
    EXPECT_TRUE(ways.empty());
}

TEST_F(EmbeddedTreeTest, TabGoesThroughTheTreeAndOutAtTheEnd)
{
    popUp->setRefusesFirstResponder(true);
    focus();
    tree->focusEnters(Way::forward);
    key(s_tab);
    EXPECT_TRUE(hasKeyboard(*lower));
    EXPECT_TRUE(ways.empty());
    key(s_tab);
    EXPECT_EQ(ways, std::vector { Way::forward });
    EXPECT_EQ(tree->window().firstResponder(), &tree->edge());
}

TEST_F(EmbeddedTreeTest, ShiftTabGoesOutAtTheBeginning)
{
    focus();
    tree->focusEnters(Way::forward);
    key(s_tab, HostModifierShift);
    EXPECT_EQ(ways, std::vector { Way::backward });
}

TEST_F(EmbeddedTreeTest, TabGoesRoundWhereTheToolkitHasNothingElse)
{
    mayLeave = false;
    focus();
    tree->focusEnters(Way::forward);
    key(s_tab, HostModifierShift);
    key(s_tab);
    EXPECT_EQ(ways, (std::vector { Way::backward, Way::forward }));
    EXPECT_TRUE(hasKeyboard(*upper));
}

TEST_F(EmbeddedTreeTest, ATreeWithoutKeyViewsStandsInNobodysWay)
{
    auto const other = embed(make<NSView>(Rect { 0, 0, 10, 10 }), { 500, 100, 10, 10 });
    other->setFocusLeaves([](Way) { return true; });
    other->focusEnters(Way::forward);
    other->focusEnters(Way::backward);
    EXPECT_FALSE(other->window().isKeyWindow());
}

TEST_F(EmbeddedTreeTest, WhatIsTypedArrives)
{
    focus();
    tree->focusEnters(Way::forward);
    EXPECT_TRUE(toolkit->fakeDisplay.caret.has_value() || (turn(), toolkit->fakeDisplay.caret.has_value()));
    key('h');
    key('i');
    toolkit->fakeDisplay.textEntered(*tree->place(), "é");
    key(s_tab);
    EXPECT_EQ(upper->stringValue(), "hié");
}

TEST_F(EmbeddedTreeTest, AMenuRunsInPassesOfTheToolkit)
{
    focus();
    int turns = 0;
    press(*popUp);
    toolkit->loop.events.emplace_back([&] { release(*popUp); });
    toolkit->loop.events.emplace_back([&] {
        turns += toolkit->embeddingEvents.toolkitWillSleep() ? 1 : 0;
        // One that comes late does no harm.
        takeTurn(toolkit->embeddingEvents);
        EXPECT_EQ(toolkit->fakeDisplay.windows().size(), 2U);
        toolkit->fakeDisplay.keyPressed(*tree->place(), { .keysym = 0xFF54 });
    });
    toolkit->loop.events.emplace_back([&] { toolkit->fakeDisplay.keyPressed(*tree->place(), { .keysym = 0xFF0D }); });
    turn();
    EXPECT_EQ(turns, 0);
    EXPECT_EQ(popUp->titleOfSelectedItem(), "Two");
    EXPECT_EQ(toolkit->fakeDisplay.windows().size(), 1U);
}

TEST_F(EmbeddedTreeTest, TheTreeMayGoWhileItsMenuIsOpen)
{
    focus();
    press(*popUp);
    toolkit->loop.events.emplace_back([&] { release(*popUp); });
    toolkit->loop.events.emplace_back([&] { tree.reset(); });
    turn();
    EXPECT_EQ(toolkit->fakeDisplay.windows().size(), 0U);
    EXPECT_EQ(popUp->titleOfSelectedItem(), "One");
}

TEST_F(EmbeddedTreeTest, OneOfTheToolkitsButtonsMayStopAModalLoop)
{
    auto const alert = make<NSWindow>(Rect { 0, 0, 100, 50 }, unsigned { NSTitledWindowMask }, NSBackingStoreBuffered, true);
    toolkit->loop.events.emplace_back([] { NSApp->stopModalWithCode(7); });
    EXPECT_EQ(NSApp->runModalForWindow(*alert), 7);
    alert->close();
}

TEST_F(EmbeddedTreeTest, ATurnDrawsWhatATimerHasChanged)
{
    auto* const place = static_cast<FakeToolkitWindow*>(tree->place());
    auto const before = place->paintings;
    bool hasFired = false;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        0.001,
        [&](NSTimer&) {
            hasFired = true;
            view->setNeedsDisplay(true);
        },
        false);
    while (!hasFired)
        turn();
    EXPECT_FALSE(tree->window().viewsNeedDisplay());
    EXPECT_GT(place->paintings, before);
    EXPECT_FALSE(toolkit->embeddingEvents.toolkitWillSleep());
}

TEST_F(EmbeddedTreeTest, AHiddenTreeIsNotDrawn)
{
    tree->setShown(false);
    EXPECT_FALSE(tree->window().isVisible());
    EXPECT_FALSE(tree->place()->isVisible());
    tree->setShown(true);
    EXPECT_TRUE(tree->window().isVisible());
    EXPECT_TRUE(tree->place()->isVisible());
}

TEST_F(EmbeddedTreeTest, AClosedWindowLeavesThePlaceEmpty)
{
    tree->window().close();
    EXPECT_EQ(tree->place(), nullptr);
    tree->setShown(true);
    EXPECT_FALSE(tree->window().isVisible());
}

TEST_F(EmbeddedTreeTest, TwoTreesShareTheKeyboardAsTheToolkitSays)
{
    auto const field = make<NSTextField>(Rect { 0, 0, 100, 22 });
    auto const root = make<NSView>(Rect { 0, 0, 100, 22 });
    root->addSubview(*field);
    auto const other = embed(root, { 500, 100, 100, 22 });
    focus();
    toolkit->fakeDisplay.focusChanged(*other->place(), true);
    turn();
    EXPECT_TRUE(other->window().isKeyWindow());
    EXPECT_TRUE(NSApp->isActive());
    toolkit->fakeDisplay.focusChanged(*tree->place(), true);
    turn();
    EXPECT_TRUE(tree->window().isKeyWindow());
}

}
}
