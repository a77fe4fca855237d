#include <tests/support/MenuTest.h>

#include <plix/platform/appkit/NSModalSession.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSAttributedString.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

// MARK: the list

TEST(NSMenu, HoldsItemsInOrder)
{
    auto const menu = make<NSMenu>("Fruit");
    EXPECT_EQ(menu->title(), "Fruit");
    menu->addItemWithTitle("Apple", {}, "");
    menu->addItemWithTitle("Cherry", {}, "");
    menu->insertItemWithTitle("Banana", {}, "", 1);
    ASSERT_EQ(menu->numberOfItems(), 3);
    EXPECT_EQ(menu->itemAtIndex(1)->title(), "Banana");
    menu->removeItemAtIndex(0);
    EXPECT_EQ(menu->itemAtIndex(0)->title(), "Banana");
    EXPECT_EQ(menu->numberOfItems(), 2);
}

TEST(NSMenu, RaisesForIndexesOutside)
{
    auto const menu = make<NSMenu>();
    EXPECT_THROW(menu->itemAtIndex(0), NSRangeException);
    EXPECT_THROW(menu->itemAtIndex(-1), NSRangeException);
    EXPECT_THROW(menu->removeItemAtIndex(0), NSRangeException);
    EXPECT_THROW(menu->insertItem(*make<NSMenuItem>("x"), 1), NSRangeException);
}

TEST(NSMenu, FindsItems)
{
    auto const menu = make<NSMenu>();
    auto const apple = menu->addItemWithTitle("Apple", {}, "");
    auto const banana = menu->addItemWithTitle("Banana", {}, "");
    banana->setTag(7);
    banana->setRepresentedObject("yellow");
    auto const submenu = make<NSMenu>("Sub");
    banana->setSubmenu(submenu);
    auto const receiver = make<MenuReceiver>();
    apple->setTarget(Ref<NSObject>(receiver));
    EXPECT_EQ(menu->indexOfItem(*banana), 1);
    EXPECT_EQ(menu->indexOfItemWithTitle("Banana"), 1);
    EXPECT_EQ(menu->indexOfItemWithTitle("Fig"), -1);
    EXPECT_EQ(menu->indexOfItemWithTag(7), 1);
    EXPECT_EQ(menu->indexOfItemWithTag(8), -1);
    EXPECT_EQ(menu->itemWithTag(7), banana.get());
    EXPECT_EQ(menu->itemWithTag(8), nullptr);
    EXPECT_EQ(menu->itemWithTitle("Apple"), apple.get());
    EXPECT_EQ(menu->indexOfItemWithRepresentedObject("yellow"), 1);
    EXPECT_EQ(menu->indexOfItemWithSubmenu(submenu.get()), 1);
    EXPECT_EQ(menu->indexOfItemWithTarget(receiver.get(), {}), 0);
}

TEST(NSMenu, RefusesAnItemThatIsInAMenu)
{
    auto const menu = make<NSMenu>();
    auto const other = make<NSMenu>();
    auto const item = menu->addItemWithTitle("Apple", {}, "");
    other->addItem(*item);
    menu->addItem(*item);
    EXPECT_EQ(other->numberOfItems(), 0);
    EXPECT_EQ(menu->numberOfItems(), 1);
    menu->removeItem(*item);
    EXPECT_EQ(item->menu(), nullptr);
    other->addItem(*item);
    EXPECT_EQ(item->menu(), other.get());
}

TEST(NSMenu, AnItemOutlivesItsMenu)
{
    auto item = make<NSMenuItem>("Apple");
    {
        auto const menu = make<NSMenu>();
        menu->addItem(*item);
    }
    EXPECT_EQ(item->menu(), nullptr);
    item->setTitle("Alone");
    item->setState(NSOnState);
    EXPECT_EQ(item->title(), "Alone");
}

TEST(NSMenu, SubmenusKnowWhatIsAbove)
{
    auto const menu = make<NSMenu>();
    auto const submenu = make<NSMenu>();
    auto const item = menu->addItemWithTitle("More", {}, "");
    item->setSubmenu(submenu);
    EXPECT_EQ(submenu->supermenu(), menu.get());
    EXPECT_TRUE(item->hasSubmenu());
    item->setSubmenu(nullptr);
    EXPECT_EQ(submenu->supermenu(), nullptr);
}

TEST(NSMenu, AMenuIsNeverBelowItself)
{
    auto const menu = make<NSMenu>();
    auto const submenu = make<NSMenu>();
    menu->addItemWithTitle("More", {}, "")->setSubmenu(submenu);
    auto const inner = submenu->addItemWithTitle("Round", {}, "");
    inner->setSubmenu(menu);
    EXPECT_FALSE(inner->hasSubmenu());
}

TEST(NSMenu, ACopyHasItemsOfItsOwn)
{
    auto const menu = make<NSMenu>("Fruit");
    menu->setAutoenablesItems(false);
    auto const item = menu->addItemWithTitle("Apple", Selector("act:"), "a");
    item->setTag(3);
    item->setState(NSOnState);
    item->setSubmenu(make<NSMenu>("Sorts"));
    item->submenu()->addItemWithTitle("Boskoop", {}, "");
    auto const copy = menu->copy();
    ASSERT_EQ(copy->numberOfItems(), 1);
    auto const* copied = copy->itemAtIndex(0);
    EXPECT_NE(copied, item.get());
    EXPECT_EQ(copied->menu(), copy.get());
    EXPECT_EQ(copied->tag(), 3);
    EXPECT_EQ(copied->state(), NSOnState);
    EXPECT_EQ(copied->keyEquivalent(), "a");
    EXPECT_FALSE(copy->autoenablesItems());
    ASSERT_TRUE(copied->hasSubmenu());
    EXPECT_NE(copied->submenu(), item->submenu());
    EXPECT_EQ(copied->submenu()->supermenu(), copy.get());
    EXPECT_EQ(copied->submenu()->itemAtIndex(0)->title(), "Boskoop");
}

TEST(NSMenuItem, HasThePlatformsDefaults)
{
    auto const item = make<NSMenuItem>();
    EXPECT_EQ(item->title(), "");
    EXPECT_TRUE(item->isEnabled());
    EXPECT_EQ(item->state(), NSOffState);
    EXPECT_EQ(item->tag(), 0);
    EXPECT_EQ(item->keyEquivalentModifierMask(), NSCommandKeyMask);
    EXPECT_TRUE(NSMenuItem::separatorItem()->isSeparatorItem());
    EXPECT_FALSE(NSMenuItem::separatorItem()->isEnabled());
}

TEST(NSMenuItem, KeepsItsIndentationWithinBounds)
{
    auto const item = make<NSMenuItem>();
    item->setIndentationLevel(40);
    EXPECT_EQ(item->indentationLevel(), 15);
    item->setIndentationLevel(-3);
    EXPECT_EQ(item->indentationLevel(), 0);
}

TEST(NSMenuItem, MendsBrokenText)
{
    EXPECT_EQ(make<NSMenuItem>("a\xFF")->title(), "a\xEF\xBF\xBD");
}

// MARK: enabling

TEST_F(MenuTest, EnablesWhatSomebodyWouldTake)
{
    menu->setAutoenablesItems(true);
    auto const orphan = menu->addItemWithTitle("Orphan", Selector("nobodyTakesThis:"), "");
    auto const refused = add(*menu, "Refused");
    refused->setTag(99);
    auto const inert = menu->addItemWithTitle("Inert", {}, "");
    auto const called = menu->addItemWithTitle("Called", {}, "");
    called->setActionFunction([](NSObject*) {});
    menu->update();
    EXPECT_TRUE(menu->itemAtIndex(0)->isEnabled());
    EXPECT_FALSE(orphan->isEnabled());
    EXPECT_FALSE(refused->isEnabled());
    EXPECT_FALSE(inert->isEnabled());
    EXPECT_TRUE(called->isEnabled());
    refused->setTag(0);
    menu->update();
    EXPECT_TRUE(refused->isEnabled());
}

TEST_F(MenuTest, DisablesItemsWhoseTargetIsGone)
{
    menu->setAutoenablesItems(true);
    menu->update();
    ASSERT_TRUE(menu->itemAtIndex(0)->isEnabled());
    receiver = nullptr;
    menu->update();
    EXPECT_FALSE(menu->itemAtIndex(0)->isEnabled());
    EXPECT_FALSE(menu->itemAtIndex(0)->sendAction());
}

TEST_F(MenuTest, WithoutEnablingByItselfUpdateLeavesItems)
{
    auto const orphan = menu->addItemWithTitle("Orphan", Selector("nobodyTakesThis:"), "");
    menu->update();
    EXPECT_TRUE(orphan->isEnabled());
}

// MARK: keys

TEST_F(MenuTest, TheMainMenusKeysActWithoutAMenuOpen)
{
    menu->itemAtIndex(1)->setKeyEquivalent("b");
    app().setMainMenu(menu);
    key(U'b', NSControlKeyMask);
    EXPECT_EQ(receiver->chosen, Strings { "Banana" });
    key(U'b');
    EXPECT_EQ(receiver->chosen.size(), 1U);
    app().setMainMenu(nullptr);
}

TEST_F(MenuTest, KeysOfSubmenusActToo)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder" });
    submenu->itemAtIndex(0)->setKeyEquivalent("E");
    app().setMainMenu(menu);
    key(U'E', NSControlKeyMask | NSShiftKeyMask);
    EXPECT_EQ(receiver->chosen, Strings { "Elder" });
    key(U'e', NSControlKeyMask);
    EXPECT_EQ(receiver->chosen.size(), 1U) << "an upper case key wants Shift";
    app().setMainMenu(nullptr);
}

TEST_F(MenuTest, KeysOfDisabledItemsDoNothing)
{
    menu->itemAtIndex(1)->setKeyEquivalent("b");
    menu->itemAtIndex(1)->setEnabled(false);
    app().setMainMenu(menu);
    key(U'b', NSControlKeyMask);
    EXPECT_TRUE(receiver->chosen.empty());
    app().setMainMenu(nullptr);
}

class MenuTargetView final : public NSView {
    PLIX_CLASS(MenuTargetView, NSView);

public:
    using NSView::init;
    void act(NSObject*) { ++count; }
    bool acceptsFirstResponder() const override { return true; }
    int count { 0 };
};
PLIX_DESCRIBE(MenuTargetView)
{
    description.action("act:", &MenuTargetView::act);
}

/// A window with a view that acts, and a main menu whose keys reach it: a along the chain, t as the target, f by a function.
class MainMenuTest : public MenuTest {
protected:
    void SetUp() override
    {
        MenuTest::SetUp();
        behind = showWindow({ 600, 400, 200, 100 });
        target = viewThatActs(*behind);
        menu->addItemWithTitle("Along the chain", Selector("act:"), "a");
        menu->addItemWithTitle("At the view", Selector("act:"), "t")->setTarget(target);
        menu->addItemWithTitle("Of the view", {}, "f")->setActionFunction(target, [this](NSObject*) { ++target->count; });
        menu->itemAtIndex(1)->setKeyEquivalent("b");
        app().setMainMenu(menu);
    }
    void TearDown() override
    {
        app().setMainMenu(nullptr);
        MenuTest::TearDown();
    }
    /// Leaves the window behind the main one.
    static Ref<NSWindow> makeDialog() { return make<NSPanel>(Rect { 0, 0, 200, 100 }, usualStyle, NSBackingStoreBuffered, false); }
    static Ref<MenuTargetView> viewThatActs(NSWindow& window)
    {
        auto const made = make<MenuTargetView>(Rect { 0, 0, 10, 10 });
        window.contentView()->addSubview(*made);
        window.makeFirstResponder(made.get());
        return made;
    }
    void pressAll()
    {
        for (char32_t const character : { U'a', U't', U'f', U'b' })
            key(character, NSControlKeyMask);
    }
    Ref<NSWindow> behind;
    Ref<MenuTargetView> target;
};

TEST_F(MainMenuTest, ItsKeysDoNotReachAWindowBehindAModalOne)
{
    for (bool const enablesItself : { true, false }) {
        menu->setAutoenablesItems(enablesItself);
        auto const dialog = makeDialog();
        auto const inDialog = viewThatActs(*dialog);
        receiver->chosen.clear();
        target->count = 0;
        auto const session = app().beginModalSessionForWindow(*dialog);
        pressAll();
        EXPECT_EQ(target->count, 0);
        EXPECT_EQ(inDialog->count, 1) << "the modal window's own responders take it";
        EXPECT_EQ(receiver->chosen, Strings { "Banana" }) << "what stands in no window works on";
        EXPECT_EQ(app().targetForAction(Selector("act:")), inDialog.get());
        dialog->orderOut(nullptr);
        app().endModalSession(*session);
        pressAll();
        EXPECT_EQ(target->count, 3);
    }
}

TEST_F(MainMenuTest, ItsKeysDoNotReachAWindowThatHasASheet)
{
    menu->setAutoenablesItems(true);
    auto const sheet = makeDialog();
    app().beginSheet(*sheet, *behind);
    pressAll();
    EXPECT_EQ(target->count, 0);
    EXPECT_EQ(app().targetForAction(Selector("act:")), nullptr);
    EXPECT_EQ(receiver->chosen, Strings { "Banana" });
    app().endSheet(*sheet);
    sheet->orderOut(nullptr);
    behind->makeKeyAndOrderFront(nullptr);
    pressAll();
    EXPECT_EQ(target->count, 3);
}

TEST_F(MainMenuTest, ItsItemsForAWindowBehindAModalOneAreDisabled)
{
    menu->setAutoenablesItems(true);
    auto const enabled = [&] {
        menu->update();
        std::vector<std::string> titles;
        for (long i = 1; i < menu->numberOfItems(); ++i) {
            if (menu->itemAtIndex(i)->isEnabled())
                titles.push_back(menu->itemAtIndex(i)->keyEquivalent());
        }
        return titles;
    };
    auto const before = enabled();
    auto const dialog = makeDialog();
    auto const session = app().beginModalSessionForWindow(*dialog);
    auto during = enabled();
    behind->setLevel(NSPopUpMenuWindowLevel); // above all that is modal
    EXPECT_EQ(enabled(), before);
    app().endModalSession(*session);
    for (auto const* key : { "a", "t", "f" })
        during.emplace_back(key);
    EXPECT_THAT(during, testing::UnorderedElementsAreArray(before));
}

}
}
