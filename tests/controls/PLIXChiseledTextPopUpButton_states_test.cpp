#include <tests/support/ChiseledPopUpTest.h>
#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSImage.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>

namespace plix {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class Shower : public NSObject {
public:
    void willDisplayMenu(PLIXPopUpButton&, NSMenu&) { onCall(); }
    std::function<void()> onCall;
};

// MARK: pointer

TEST_F(ChiseledPopUpTest, ShowsTheHoverImageUnderThePointer)
{
    auto const idle = window->snapshot();
    enter();
    EXPECT_EQ(button->shown(), "over");
    EXPECT_GT(countDifferences(idle, window->snapshot()), 200);
    leave();
    EXPECT_EQ(button->shown(), "idle");
    EXPECT_EQ(countDifferences(idle, window->snapshot()), 0);
    EXPECT_THAT(button->news(), IsEmpty());
}

TEST_F(ChiseledPopUpTest, ShowsNoHoverImageInAWindowWithoutTheKeyboard)
{
    moveToOwnWindow();
    window->makeKeyWindow();
    enter();
    EXPECT_EQ(button->shown(), "idle");
    leave();
    ownWindow->makeKeyWindow();
    enter();
    EXPECT_EQ(button->shown(), "over");
}

TEST_F(ChiseledPopUpTest, ShowsNoHoverImageWhileDisabled)
{
    button->setEnabled(false);
    enter();
    EXPECT_EQ(button->shown(), "idle");
    leave();
    button->setEnabled(true);
    enter();
    EXPECT_EQ(button->shown(), "over");
}

TEST_F(ChiseledPopUpTest, LeavingAsksNeitherForTheKeyboardNorForBeingEnabled)
{
    moveToOwnWindow();
    enter();
    ASSERT_EQ(button->shown(), "over");
    window->makeKeyWindow();
    button->setEnabled(false);
    leave();
    EXPECT_EQ(button->shown(), "idle");
}

TEST_F(ChiseledPopUpTest, LeavingWhileInactiveKeepsTheImage)
{
    button->deactivate(nullptr);
    enter(); // asks for the key window only
    ASSERT_EQ(button->shown(), "over");
    leave();
    EXPECT_EQ(button->shown(), "over");
    button->activate(nullptr);
    EXPECT_EQ(button->shown(), "idle");
}

TEST_F(ChiseledPopUpTest, OutsideAWindowThePointerShowsNothing)
{
    auto const event = mouseEvent(NSMouseMoved, *button, { 5, 5 });
    auto const alone = make<WatchedPopUp>(Rect { 0, 0, 80, 20 });
    alone->mouseEntered(*event);
    EXPECT_EQ(alone->shown(), "idle");
}

// MARK: pressing

TEST_F(ChiseledPopUpTest, APressOpensTheMenuAndShowsThePressedImage)
{
    auto const idle = window->snapshot();
    int differences = 0;
    bool isHighlighted = false;
    person().press(centerOnScreen(*button));
    person().then([&] {
        window->displayIfNeeded();
        differences = countDifferences(idle, window->snapshot());
        isHighlighted = button->cell()->isHighlighted();
    });
    note(*button->menu());
    dismiss();
    person().release({ 5, 5 });
    pump();
    EXPECT_EQ(seen, Strings { "-" });
    EXPECT_TRUE(isHighlighted);
    EXPECT_GT(differences, 200);
    EXPECT_FALSE(button->cell()->isHighlighted());
    leave();
    EXPECT_EQ(countDifferences(idle, window->snapshot()), 0);
}

TEST_F(ChiseledPopUpTest, ChoosingSendsTheItemsAction)
{
    person().click(centerOnScreen(*button));
    clickItem(*button->menu(), 2);
    pump();
    EXPECT_EQ(receiver->chosen, Strings { "Month" });
    EXPECT_EQ(button->title(), "Week");
}

TEST_F(ChiseledPopUpTest, ThePointerChangesNothingWhilePressed)
{
    auto const event = mouseEvent(NSMouseMoved, *button, { 5, 5 });
    Strings during;
    auto const shower = make<Shower>();
    shower->onCall = [&] {
        button->mouseExited(*event);
        during.push_back(button->shown());
        button->setImage(button->idle);
        button->mouseEntered(*event);
        during.push_back(button->shown());
    };
    button->setDelegate(shower);
    person().click(centerOnScreen(*button));
    dismiss();
    pump();
    EXPECT_THAT(during, ElementsAre("over", "idle"));
    leave();
    enter();
    EXPECT_EQ(button->shown(), "over"); // the press has ended
    leave();
    EXPECT_EQ(button->shown(), "idle");
}

TEST_F(ChiseledPopUpTest, ADisabledOneThatIsPressedStaysSoUntilTheRelease)
{
    button->setEnabled(false);
    person().press(centerOnScreen(*button));
    note(*button->menu());
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
    EXPECT_FALSE(button->cell()->isHighlighted());
    button->setEnabled(true);
    auto const event = mouseEvent(NSMouseMoved, *button, { 5, 5 });
    button->mouseEntered(*event);
    EXPECT_EQ(button->shown(), "idle");
    person().release(centerOnScreen(*button));
    pump();
    button->mouseEntered(*event);
    EXPECT_EQ(button->shown(), "over");
}

TEST_F(ChiseledPopUpTest, ARightClickDoesNothing)
{
    person().click(centerOnScreen(*button), { .button = 1 });
    note(*button->menu());
    pump();
    EXPECT_EQ(seen, Strings { "closed" });
}

// MARK: activity

TEST_F(ChiseledPopUpTest, ChangesOfActivityComposeTheIdleImageAndShowIt)
{
    auto const before = button->idle;
    auto const over = button->over;
    button->deactivate(nullptr);
    EXPECT_THAT(button->news(), ElementsAre("deactivate", "idle", "display"));
    EXPECT_NE(button->idle, before);
    EXPECT_GT(countDifferences(before, button->idle), 0);
    EXPECT_EQ(button->shown(), "idle");
    EXPECT_EQ(button->over, over);
    button->activate(nullptr);
    EXPECT_THAT(button->news(), ElementsAre("activate", "idle", "display"));
    EXPECT_EQ(countDifferences(before, button->idle), 0);
}

TEST_F(ChiseledPopUpTest, FollowsTheKeyStateOfPlainWindowsAndPanels)
{
    auto const panel = show<NSPanel>({ 600, 200, 400, 300 });
    auto const inPanel = addButton(*panel->contentView());
    pump();
    EXPECT_THAT(button->news(), ElementsAre("deactivate", "idle", "display"));
    inPanel->news();
    window->makeKeyWindow();
    EXPECT_THAT(button->news(), ElementsAre("activate", "idle", "display"));
    EXPECT_THAT(inPanel->news(), ElementsAre("deactivate", "idle", "display"));
    person().focusNothing();
    pump();
    EXPECT_THAT(button->news(), ElementsAre("deactivate", "idle", "display"));
    EXPECT_THAT(inPanel->news(), IsEmpty());
}

TEST_F(ChiseledPopUpTest, FollowsTheApplicationInWindowsOfOtherClasses)
{
    moveToOwnWindow();
    window->makeKeyWindow();
    ownWindow->makeKeyWindow();
    EXPECT_THAT(button->news(), IsEmpty());
    person().focusNothing();
    pump();
    EXPECT_THAT(button->news(), ElementsAre("deactivate", "idle", "display"));
    person().focusWindow([&] { return hostWindow(*ownWindow); });
    pump();
    EXPECT_THAT(button->news(), ElementsAre("activate", "idle", "display"));
}

TEST_F(ChiseledPopUpTest, ASheetMakesItsWindowsOneInactive)
{
    auto const other = showWindow({ 600, 200, 200, 100 });
    auto const sheet = make<NSWindow>(Rect { 0, 0, 200, 100 }, NSTitledWindowMask, NSBackingStoreBuffered, false);
    button->activate(nullptr);
    button->news();
    app().beginSheet(*sheet, *window);
    pump();
    EXPECT_THAT(button->news(), Contains("deactivate"));
    app().endSheet(*sheet);
    sheet->orderOut(nullptr);
    pump();
}

TEST_F(ChiseledPopUpTest, ResigningTheKeyboardUnderThePointerShowsTheInactiveTitle)
{
    enter();
    ASSERT_EQ(button->shown(), "over");
    auto const other = showWindow({ 600, 200, 200, 100 });
    EXPECT_EQ(button->shown(), "idle");
    auto const inactive = button->idle;
    button->activate(nullptr);
    EXPECT_GT(countDifferences(inactive, button->idle), 0);
}

TEST_F(ChiseledPopUpTest, OldSystemsTellNothingOfActivity)
{
    SystemVersion const old(0x101F);
    auto const unaware = addButton(*view);
    auto const added = unaware->added.size();
    EXPECT_GT(added, 0U); // tracked all the same
    pump();
    unaware->news();
    person().focusNothing();
    pump();
    NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidResizeNotification, window);
    EXPECT_THAT(unaware->news(), IsEmpty());
    EXPECT_THAT(button->news(), Contains("deactivate"));
}

TEST_F(ChiseledPopUpTest, WhatAnEarlierWindowRegisteredStays)
{
    auto const other = showWindow({ 600, 200, 200, 100 });
    other->contentView()->addSubview(*button);
    pump();
    button->news();
    window->makeKeyWindow();
    auto const news = button->news();
    EXPECT_THAT(news, Contains("activate")); // by the window before
    EXPECT_THAT(news, Contains("deactivate")); // by the one it is in
}

TEST_F(ChiseledPopUpTest, OutOfItsWindowItFollowsTheApplication)
{
    moveToOwnWindow();
    button->removeFromSuperview();
    button->news();
    person().focusNothing();
    pump();
    EXPECT_THAT(button->news(), Contains("deactivate"));
}

// MARK: coming and going

TEST_F(ChiseledPopUpTest, NobodyIsToldOnceItIsGone)
{
    Weak<WatchedPopUp> const gone(button);
    enter();
    button->removeFromSuperview();
    button = nullptr;
    EXPECT_FALSE(gone);
    moveMouse(*view, { 5, 5 });
    person().focusNothing();
    pump();
    person().focusWindow([&] { return hostWindow(*window); });
    pump();
    NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidResizeNotification, window);
    EXPECT_TRUE(view->subviews().empty());
}

TEST_F(ChiseledPopUpTest, WindowsGoInEveryOrder)
{
    std::vector<int> order { 0, 1, 2 };
    do {
        std::vector<Ref<NSWindow>> windows { showWindow({ 100, 200, 300, 200 }), show<NSPanel>({ 420, 200, 300, 200 }),
            show<OwnWindow>({ 740, 200, 300, 200 }) };
        std::vector<Ref<WatchedPopUp>> buttons;
        for (auto const& each : windows)
            buttons.push_back(addButton(*each->contentView()));
        pump();
        // Each has been in another window too.
        windows[1]->contentView()->addSubview(*buttons[0]);
        for (int const place : order) {
            auto& closing = windows[static_cast<std::size_t>(place)];
            closing->makeKeyWindow();
            pump();
            closing->close();
            closing = nullptr;
            pump();
        }
        for (auto const& orphan : buttons) {
            orphan->news();
            orphan->setTitle("Still here");
            EXPECT_EQ(orphan->title(), "Still here");
        }
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(ChiseledPopUpTest, ItsWindowMayGoWhileTheMenuIsOpen)
{
    auto const shower = make<Shower>();
    shower->onCall = [this] {
        window->close();
        window = nullptr;
        button = nullptr;
    };
    button->setDelegate(shower);
    Weak<WatchedPopUp> const gone(button);
    auto const host = showWindow({ 600, 200, 200, 100 });
    person().click(centerOnScreen(*button));
    dismiss();
    pump();
    EXPECT_FALSE(gone);
}

}
}
