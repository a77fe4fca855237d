#include <plix/platform/appkit/MenuTracker.h>
#include <plix/platform/appkit/MenuView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/exceptions.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

class Receiver : public NSObject, public NSMenuValidation {
    PLIX_CLASS(Receiver, NSObject);

public:
    void act(NSObject* sender)
    {
        if (auto const* item = dynamic_cast<NSMenuItem*>(sender))
            chosen.push_back(item->title());
    }
    bool validateMenuItem(NSMenuItem& item) override { return item.tag() != 99; }
    std::vector<std::string> chosen;
};

PLIX_DESCRIBE(Receiver)
{
    description.action("act:", &Receiver::act);
}

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
    auto const receiver = make<Receiver>();
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

// MARK: with an application

class MenuTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        receiver = make<Receiver>();
        window = showWindow({ 100, 200, 400, 300 });
        view = window->contentView();
        menu = make<NSMenu>("Menu");
        menu->setAutoenablesItems(false);
        for (auto const* title : { "Apple", "Banana", "Cherry", "Date" })
            add(*menu, title);
        view->setMenu(menu);
    }
    Ref<NSMenuItem> add(NSMenu& to, std::string_view title)
    {
        auto item = to.addItemWithTitle(title, Selector("act:"), "");
        item->setTarget(Ref<NSObject>(receiver));
        return item;
    }
    Ref<NSMenu> addSubmenu(NSMenu& to, std::string_view title, std::vector<char const*> const& titles)
    {
        auto submenu = make<NSMenu>(title);
        submenu->setAutoenablesItems(false);
        for (auto const* each : titles)
            add(*submenu, each);
        to.addItemWithTitle(title, {}, "")->setSubmenu(submenu);
        return submenu;
    }

    static constexpr Point spot { 50, 250 };
    /// A click of the right button: the menu stays open behind it.
    void openByClick() { person().click(onScreen(*view, spot), { .button = 1 }); }
    /// Where an item is, as long as its menu is open.
    static Point placeOf(NSMenu const& shown, long index)
    {
        auto const* host = MenuTracker::windowOfMenu(shown);
        if (!host)
            return {};
        auto const rect = static_cast<MenuView*>(host->contentView())->rectOfItem(index);
        return onScreen(*host->contentView(), { rect.midX(), rect.midY() });
    }
    void clickItem(NSMenu const& shown, long index)
    {
        person().then([this, &shown, index] { person().click(placeOf(shown, index)); });
    }
    void hover(NSMenu const& shown, long index)
    {
        person().then([this, &shown, index] { person().moveMouse(placeOf(shown, index)); });
    }
    /// Says what is lit when its turn comes.
    void note(NSMenu const& shown)
    {
        person().then([this, &shown] {
            auto const* item = shown.highlightedItem();
            seen.push_back(!shown.isTracking() ? "closed" : item ? item->title() : "-");
        });
    }
    void press(char32_t key, unsigned modifiers = 0) { person().key(key, modifiers); }
    void dismiss()
    {
        person().key(NSEscapeCharacter);
        person().key(NSEscapeCharacter);
        person().key(NSEscapeCharacter);
    }
    /// After a wait, so that what waits for time takes place.
    void later(double seconds, std::function<void()> action) { machine().headlessEvents().postAfter(seconds, std::move(action)); }

    Ref<Receiver> receiver;
    Ref<NSWindow> window;
    NSView* view { nullptr };
    Ref<NSMenu> menu;
    std::vector<std::string> seen;
};

using Strings = std::vector<std::string>;

TEST_F(MenuTest, ARightClickShowsTheViewsMenuAndAClickChooses)
{
    openByClick();
    note(*menu);
    clickItem(*menu, 1);
    note(*menu);
    pump();
    EXPECT_EQ(seen, (Strings { "-", "closed" }));
    EXPECT_EQ(receiver->chosen, Strings { "Banana" });
}

TEST_F(MenuTest, PressDragReleaseChooses)
{
    person().press(onScreen(*view, spot), { .button = 1 });
    person().then([this] {
        person().dragTo(placeOf(*menu, 2));
        person().release(placeOf(*menu, 2), { .button = 1 });
    });
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Cherry" });
    EXPECT_FALSE(menu->isTracking());
}

TEST_F(MenuTest, ADragThatEndsElsewhereChoosesNothing)
{
    person().press(onScreen(*view, spot), { .button = 1 });
    person().then([this] {
        person().dragTo(placeOf(*menu, 2));
        person().dragTo({ 900, 700 });
        person().release({ 900, 700 }, { .button = 1 });
    });
    note(*menu);
    person().then([this] { note(*menu); });
    pump();
    EXPECT_FALSE(menu->isTracking());
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, AClickElsewhereDismisses)
{
    openByClick();
    person().click({ 900, 700 });
    note(*menu);
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, EscapeDismisses)
{
    openByClick();
    press(NSEscapeCharacter);
    note(*menu);
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, LosingTheKeyboardDismisses)
{
    openByClick();
    person().focusNothing();
    person().then([] {});
    pump();
    EXPECT_FALSE(menu->isTracking());
    EXPECT_FALSE(app().isActive());
}

TEST_F(MenuTest, TheOwnersWindowClosingDismisses)
{
    openByClick();
    person().then([this] { window->close(); });
    person().moveMouse({ 10, 10 });
    pump();
    EXPECT_FALSE(menu->isTracking());
}

TEST_F(MenuTest, CancelTrackingDismisses)
{
    openByClick();
    person().then([this] { menu->cancelTracking(); });
    note(*menu);
    pump();
    EXPECT_FALSE(menu->isTracking());
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, ThePointerLightsItems)
{
    openByClick();
    for (long index : { 0, 3, 1 }) {
        hover(*menu, index);
        note(*menu);
    }
    person().moveMouse({ 900, 700 });
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "Apple", "Date", "Banana", "-" }));
}

TEST_F(MenuTest, DisabledItemsAndSeparatorsAreNotLitNorChosen)
{
    menu->itemAtIndex(1)->setEnabled(false);
    menu->insertItem(*NSMenuItem::separatorItem(), 2);
    openByClick();
    hover(*menu, 1);
    note(*menu);
    hover(*menu, 2);
    note(*menu);
    clickItem(*menu, 1);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "-", "-", "-" }));
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, ArrowsStepOverWhatCannotBeChosenAndAroundTheEnds)
{
    menu->itemAtIndex(1)->setEnabled(false);
    menu->insertItem(*NSMenuItem::separatorItem(), 2);
    openByClick();
    for (auto const key : { NSDownArrowFunctionKey, NSDownArrowFunctionKey, NSDownArrowFunctionKey, NSDownArrowFunctionKey,
             NSUpArrowFunctionKey, NSUpArrowFunctionKey }) {
        press(key);
        note(*menu);
    }
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "Apple", "Cherry", "Date", "Apple", "Date", "Cherry" }));
}

TEST_F(MenuTest, UpBeginsAtTheEnd)
{
    openByClick();
    press(NSUpArrowFunctionKey);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "Date" });
}

TEST_F(MenuTest, HomeAndEndGoToTheEnds)
{
    openByClick();
    press(NSEndFunctionKey);
    note(*menu);
    press(NSHomeFunctionKey);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "Date", "Apple" }));
}

TEST_F(MenuTest, ReturnEnterAndSpaceChoose)
{
    for (char32_t const key : { char32_t { NSCarriageReturnCharacter }, char32_t { NSEnterCharacter }, U' ' }) {
        openByClick();
        press(NSDownArrowFunctionKey);
        press(key);
        pump();
    }
    EXPECT_EQ(receiver->chosen, (Strings { "Apple", "Apple", "Apple" }));
}

TEST_F(MenuTest, ReturnWithNothingLitDoesNothing)
{
    openByClick();
    press(NSCarriageReturnCharacter);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "-" });
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, LettersGoToWhatBeginsWithThem)
{
    add(*menu, "Damson");
    openByClick();
    person().type("d");
    note(*menu);
    person().type("am");
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "Date", "Damson" }));
}

TEST_F(MenuTest, LettersIgnoreCaseAndGoOnWithTheSameLetter)
{
    add(*menu, "Damson");
    openByClick();
    person().type("D");
    note(*menu);
    dismiss();
    openByClick();
    person().type("d");
    person().type("d");
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "Date", "Damson" }));
}

TEST_F(MenuTest, LettersThatNothingBeginsWithLeaveTheLight)
{
    openByClick();
    press(NSDownArrowFunctionKey);
    person().type("q");
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "Apple" });
}

TEST_F(MenuTest, KeysDoNotReachTheWindow)
{
    openByClick();
    person().type("xyz");
    dismiss();
    pump();
    EXPECT_FALSE(menu->isTracking());
    EXPECT_TRUE(receiver->chosen.empty());
}

// MARK: submenus

TEST_F(MenuTest, RightAndLeftOpenAndCloseSubmenus)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    press(NSUpArrowFunctionKey);
    note(*menu);
    press(NSRightArrowFunctionKey);
    note(*submenu);
    press(NSLeftArrowFunctionKey);
    note(*submenu);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "More", "Elder", "closed", "More" }));
}

TEST_F(MenuTest, AnItemOfASubmenuIsChosenByKeys)
{
    addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    press(NSUpArrowFunctionKey);
    press(NSRightArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Fig" });
    EXPECT_FALSE(menu->isTracking());
}

TEST_F(MenuTest, ReturnOpensASubmenu)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    press(NSUpArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    note(*submenu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "Elder" });
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, EscapeClosesOneMenuAfterTheOther)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    press(NSUpArrowFunctionKey);
    press(NSRightArrowFunctionKey);
    press(NSEscapeCharacter);
    note(*submenu);
    note(*menu);
    press(NSEscapeCharacter);
    note(*menu);
    pump();
    EXPECT_EQ(seen, (Strings { "closed", "More", "closed" }));
}

TEST_F(MenuTest, AClickOpensASubmenuAtOnce)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    clickItem(*menu, 4);
    person().then([this, submenu] {
        note(*submenu);
        clickItem(*submenu, 1);
    });
    pump();
    EXPECT_EQ(seen, Strings { "-" });
    EXPECT_EQ(receiver->chosen, Strings { "Fig" });
}

TEST_F(MenuTest, ARestingPointerOpensASubmenuAfterAMoment)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    hover(*menu, 4);
    later(0.1, [&] { seen.push_back(submenu->isTracking() ? "open" : "not yet"); });
    later(0.3, [&] { seen.push_back(submenu->isTracking() ? "open" : "not yet"); });
    later(0.4, [&] { dismiss(); });
    pass(1);
    EXPECT_EQ(seen, (Strings { "not yet", "open" }));
}

TEST_F(MenuTest, ThePointerMayCrossOtherItemsOnItsWayToASubmenu)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    add(*menu, "Last");
    openByClick();
    clickItem(*menu, 4);
    later(0.1, [&] { hover(*menu, 5); });
    later(0.2, [&] { person().moveMouse(placeOf(*submenu, 1)); });
    later(0.6, [&] { note(*submenu); });
    later(0.7, [&] { dismiss(); });
    pass(1);
    EXPECT_EQ(seen, Strings { "Fig" });
}

TEST_F(MenuTest, APointerThatStaysOnAnotherItemClosesTheSubmenu)
{
    auto const submenu = addSubmenu(*menu, "More", { "Elder", "Fig" });
    openByClick();
    clickItem(*menu, 4);
    later(0.1, [&] { hover(*menu, 0); });
    later(0.5, [&] { note(*submenu); });
    later(0.6, [&] { note(*menu); });
    later(0.7, [&] { dismiss(); });
    pass(1);
    EXPECT_EQ(seen, (Strings { "closed", "Apple" }));
}

TEST_F(MenuTest, MenusNestAsDeepAsTheyLike)
{
    auto inner = menu;
    for (int depth = 0; depth < 6; ++depth)
        inner = addSubmenu(*inner, "Deeper", { "Stone" });
    openByClick();
    press(NSUpArrowFunctionKey);
    for (int depth = 0; depth < 6; ++depth) {
        press(NSRightArrowFunctionKey);
        if (depth < 5)
            press(NSUpArrowFunctionKey);
    }
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Stone" });
}

TEST_F(MenuTest, AnEmptySubmenuDoesNotOpen)
{
    auto const submenu = addSubmenu(*menu, "Empty", {});
    openByClick();
    press(NSUpArrowFunctionKey);
    press(NSRightArrowFunctionKey);
    note(*submenu);
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, (Strings { "closed", "Empty" }));
}

// MARK: place and size

TEST_F(MenuTest, StaysOnTheScreen)
{
    auto const visible = NSScreen::mainScreen().visibleFrame();
    auto const small = showWindow({ visible.maxX() - 60, visible.y + 5, 50, 50 }, NSBorderlessWindowMask);
    small->contentView()->setMenu(menu);
    std::vector<Rect> frames;
    person().click(onScreen(*small->contentView(), { 45, 5 }), { .button = 1 });
    person().then([&] { frames.push_back(MenuTracker::windowOfMenu(*menu)->frame()); });
    dismiss();
    pump();
    ASSERT_EQ(frames.size(), 1U);
    EXPECT_GE(frames[0].x, visible.x);
    EXPECT_GE(frames[0].y, visible.y);
    EXPECT_LE(frames[0].maxX(), visible.maxX());
    EXPECT_LE(frames[0].maxY(), visible.maxY());
}

TEST_F(MenuTest, OneHigherThanTheScreenScrolls)
{
    for (int i = 0; i < 200; ++i)
        add(*menu, "Item " + std::to_string(i));
    std::vector<float> scrolled;
    Rect frame;
    auto const noteScroll = [&] {
        person().then([&] {
            auto const* host = MenuTracker::windowOfMenu(*menu);
            frame = host->frame();
            scrolled.push_back(static_cast<MenuView*>(host->contentView())->scrolled());
        });
    };
    openByClick();
    noteScroll();
    press(NSEndFunctionKey);
    noteScroll();
    note(*menu);
    press(NSHomeFunctionKey);
    noteScroll();
    dismiss();
    pump();
    auto const visible = NSScreen::mainScreen().visibleFrame();
    EXPECT_LE(frame.height, visible.height);
    ASSERT_EQ(scrolled.size(), 3U);
    EXPECT_EQ(scrolled[0], 0);
    EXPECT_EQ(scrolled[1], menu->size().height - frame.height);
    EXPECT_EQ(scrolled[2], 0);
    EXPECT_EQ(seen, Strings { "Item 199" });
}

TEST_F(MenuTest, ThePointerOnAnArrowScrolls)
{
    for (int i = 0; i < 200; ++i)
        add(*menu, "Item " + std::to_string(i));
    std::vector<float> scrolled;
    MenuView* shown = nullptr;
    openByClick();
    person().then([&] {
        shown = static_cast<MenuView*>(MenuTracker::windowOfMenu(*menu)->contentView());
        person().moveMouse(onScreen(*shown, { 50, shown->bounds().height - 5 }));
    });
    later(0.2, [&] { scrolled.push_back(shown->scrolled()); });
    later(0.5, [&] { scrolled.push_back(shown->scrolled()); });
    later(0.6, [&] { dismiss(); });
    pass(1);
    ASSERT_EQ(scrolled.size(), 2U);
    EXPECT_GT(scrolled[0], 10);
    EXPECT_GT(scrolled[1], scrolled[0]);
}

TEST_F(MenuTest, TheWheelScrolls)
{
    for (int i = 0; i < 200; ++i)
        add(*menu, "Item " + std::to_string(i));
    float scrolled = 0;
    openByClick();
    person().then([&] { person().scroll(placeOf(*menu, 3), 0, -3); });
    person().then([&] {
        person().then([&] { scrolled = static_cast<MenuView*>(MenuTracker::windowOfMenu(*menu)->contentView())->scrolled(); });
        dismiss();
    });
    pump();
    EXPECT_EQ(scrolled, 60);
}

TEST_F(MenuTest, GrowsWithItsTitlesAndKeys)
{
    auto const before = menu->size();
    menu->itemAtIndex(0)->setTitle("A considerably longer title than the others");
    auto const wider = menu->size();
    EXPECT_GT(wider.width, before.width);
    EXPECT_EQ(wider.height, before.height);
    menu->itemAtIndex(0)->setKeyEquivalent("a");
    EXPECT_GT(menu->size().width, wider.width);
    menu->itemAtIndex(0)->setHidden(true);
    EXPECT_LT(menu->size().height, before.height);
}

TEST_F(MenuTest, FollowsChangesWhileItIsOpen)
{
    Rect before;
    Rect after;
    openByClick();
    person().then([&] {
        before = MenuTracker::windowOfMenu(*menu)->frame();
        add(*menu, "One that came while the menu was open");
        after = MenuTracker::windowOfMenu(*menu)->frame();
    });
    clickItem(*menu, 4);
    pump();
    EXPECT_GT(after.height, before.height);
    EXPECT_GT(after.width, before.width);
    EXPECT_EQ(after.maxY(), before.maxY());
    EXPECT_EQ(receiver->chosen, Strings { "One that came while the menu was open" });
}

TEST_F(MenuTest, ItemsMayGoWhileItIsOpen)
{
    openByClick();
    press(NSEndFunctionKey);
    person().then([&] {
        while (menu->numberOfItems() > 0)
            menu->removeItemAtIndex(0);
    });
    press(NSCarriageReturnCharacter);
    press(NSDownArrowFunctionKey);
    dismiss();
    pump();
    EXPECT_FALSE(menu->isTracking());
    EXPECT_TRUE(receiver->chosen.empty());
}

TEST_F(MenuTest, AMenuWithoutItemsDoesNotOpen)
{
    view->setMenu(make<NSMenu>());
    openByClick();
    pump();
    EXPECT_FALSE(view->menu()->isTracking());
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

// MARK: the delegate

class Watcher : public NSObject {
public:
    void menuNeedsUpdate(NSMenu&) { log.emplace_back("update"); }
    void menuWillOpen(NSMenu&) { log.emplace_back("open"); }
    void menuDidClose(NSMenu&) { log.emplace_back("close"); }
    void willHighlightItem(NSMenu&, NSMenuItem* item) { log.push_back(item ? item->title() : "-"); }
    Strings log;
};

TEST_F(MenuTest, TellsItsDelegate)
{
    auto const watcher = make<Watcher>();
    menu->setDelegate(watcher);
    openByClick();
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSEscapeCharacter);
    pump();
    EXPECT_EQ(watcher->log, (Strings { "update", "open", "Apple", "Banana", "close" }));
}

class Vanishing : public NSObject {
public:
    void willHighlightItem(NSMenu&, NSMenuItem*)
    {
        if (vanish)
            vanish();
    }
    std::function<void()> vanish;
};

TEST_F(MenuTest, ADelegateMayDieWhileItsMenuIsOpen)
{
    auto delegate = make<Vanishing>();
    delegate->vanish = [&] { delegate = nullptr; };
    menu->setDelegate(delegate);
    openByClick();
    press(NSDownArrowFunctionKey);
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(delegate, nullptr);
    EXPECT_EQ(receiver->chosen, Strings { "Banana" });
}

TEST_F(MenuTest, AnActionMayShowTheMenuAgain)
{
    int times = 0;
    menu->itemAtIndex(0)->setActionFunction([&](NSObject*) {
        if (++times == 1) {
            openByClick();
            press(NSDownArrowFunctionKey);
            press(NSCarriageReturnCharacter);
        }
    });
    openByClick();
    press(NSDownArrowFunctionKey);
    press(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(times, 2);
}

TEST_F(MenuTest, AViewMayAnswerAnotherMenuForEachEvent)
{
    class Asked : public NSView {
    public:
        NSMenu* menuForEvent(NSEvent& event) override
        {
            places.push_back(convertPointFromView(event.locationInWindow(), nullptr));
            return nullptr;
        }
        std::vector<Point> places;
    };
    auto const asked = make<Asked>(Rect { 0, 0, 100, 100 });
    view->addSubview(*asked);
    view->setMenu(nullptr);
    click(*asked, { 30, 40 }, { .button = 1 });
    EXPECT_EQ(asked->places, (std::vector<Point> { { 30, 40 } }));
    EXPECT_FALSE(menu->isTracking());
}

TEST_F(MenuTest, AViewInAViewWithAMenuPassesTheClickOn)
{
    auto const inside = make<NSView>(Rect { 0, 0, 100, 100 });
    view->addSubview(*inside);
    person().click(onScreen(*inside, { 30, 40 }), { .button = 1 });
    note(*menu);
    dismiss();
    pump();
    EXPECT_EQ(seen, Strings { "-" });
}

// MARK: looks

TEST_F(MenuTest, WhatIsLitIsDrawnOnTheHighlightColour)
{
    Ref<NSBitmapImageRep> picture;
    Rect lit;
    openByClick();
    press(NSDownArrowFunctionKey);
    person().then([&] {
        auto* host = MenuTracker::windowOfMenu(*menu);
        host->displayIfNeeded();
        picture = host->snapshot();
        lit = static_cast<MenuView*>(host->contentView())->rectOfItem(0);
    });
    dismiss();
    pump();
    ASSERT_TRUE(picture);
    auto const highlight = NSColor::selectedMenuItemColor()->colorUsingColorSpaceName(NSCalibratedRGBColorSpace);
    ColorComponents const expected { highlight->redComponent(), highlight->greenComponent(), highlight->blueComponent(), 1 };
    EXPECT_TRUE(pixelNear(picture, 4, static_cast<int>(lit.midY()), expected));
    EXPECT_FALSE(pixelNear(picture, 4, static_cast<int>(lit.maxY() + 10), expected));
}

TEST_F(MenuTest, TextIsReadable)
{
    for (auto const appearance : { Appearance::light, Appearance::dark }) {
        auto const contrast = [&](ThemeRole text) {
            return contrastRatio(themeColor(text, appearance), themeColor(ThemeRole::menuBackground, appearance));
        };
        EXPECT_GE(contrast(ThemeRole::menuText), 4.5F);
        EXPECT_GE(contrast(ThemeRole::menuKeyText), 4.5F);
        EXPECT_GE(contrast(ThemeRole::menuDisabledText), 2.5F);
        EXPECT_LT(contrast(ThemeRole::menuDisabledText), contrast(ThemeRole::menuText) / 2);
    }
}

}
}
