#include <tests/support/MenuTest.h>

#include <tests/support/pixels.h>

#include <plix/platform/appkit/NSScreen.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>

namespace plix {
namespace {

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
