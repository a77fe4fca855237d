#include <tests/support/MenuTest.h>

#include <plix/platform/appkit/NSScreen.h>

namespace plix {
namespace {

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

}
}
