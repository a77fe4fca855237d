#include <plix/controls/PLIXTabView.h>
#include <plix/controls/PLIXTabViewItem.h>

#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/base/NSData.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/CountingView.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

using Strings = std::vector<std::string>;

class FittingDelegate : public NSObject {
    PLIX_CLASS(FittingDelegate, NSObject);

public:
    bool init() { return true; }
    bool shouldSelectTabViewItem(NSTabView&, NSTabViewItem& item)
    {
        if (whenAsked)
            whenAsked();
        return item.label() != refused;
    }
    void didSelectTabViewItem(NSTabView&, NSTabViewItem& item) { log.push_back("did " + item.label()); }
    void reallyDidSelectTabViewItem(NSTabView& tabs, NSTabViewItem* item)
    {
        log.push_back("really " + (item ? item->label() : "nothing"));
        viewThen = item ? item->view() : nullptr;
        frameThen = tabs.frame();
    }
    void windowDidResize(NSNotification const&)
    {
        ++resizes;
        if (log.empty() || log.back() != "resize")
            log.emplace_back("resize");
        if (whenResized)
            whenResized();
    }

    Strings log;
    std::string refused;
    NSView* viewThen { nullptr };
    Rect frameThen;
    int resizes { 0 };
    std::function<void()> whenResized;
    std::function<void()> whenAsked;
};

PLIX_DESCRIBE(FittingDelegate)
{
}

/// A window with a tab view all over its content, and a first tab with nothing in its pane.
class FittingTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        window = showWindow({ 300, 400, 400, 200 });
        tabs = make<PLIXTabView>(window->contentView()->bounds());
        add<NSTabViewItem>("empty", nullptr);
        window->contentView()->addSubview(*tabs);
        delegate = make<FittingDelegate>();
        tabs->setDelegate(delegate);
        window->setDelegate(delegate);
        pump();
        before = window->frame();
        chrome = { tabs->frame().width - tabs->contentRect().width, tabs->frame().height - tabs->contentRect().height };
    }
    template <typename Item> Ref<Item> add(std::string_view label, Ref<NSView> const& view)
    {
        auto const item = make<Item>(label);
        item->setLabel(label);
        if (view)
            item->setView(view);
        tabs->addTabViewItem(*item);
        return item;
    }
    static Ref<CountingView> pane(std::vector<Rect> const& frames)
    {
        auto made = make<CountingView>();
        for (auto const& frame : frames)
            made->addSubview(*make<CountingView>(frame));
        return made;
    }
    /// A pane that is shown, with a field in it that has the keyboard.
    void showPaneWithField()
    {
        shownPane = pane({ { 0, 0, 10, 30 } });
        field = make<NSTextField>(Rect { 20, 20, 80, 22 });
        shownPane->addSubview(*field);
        add<NSTabViewItem>("first", shownPane);
        tabs->selectTabViewItemAtIndex(1);
        window->makeFirstResponder(field.get());
    }
    Ref<PLIXTabViewItem> addCustom(Size size)
    {
        auto const item = add<PLIXTabViewItem>("custom", nullptr);
        custom = make<CountingView>(rectWith({}, size));
        item->setCustomView(custom);
        return item;
    }
    static std::vector<Rect> framesIn(NSView const& view)
    {
        std::vector<Rect> frames;
        for (auto const& subview : view.subviews())
            frames.push_back(subview->frame());
        return frames;
    }

    Ref<NSWindow> window;
    Ref<PLIXTabView> tabs;
    Ref<FittingDelegate> delegate;
    Ref<CountingView> custom;
    Ref<CountingView> shownPane;
    Ref<NSTextField> field;
    Rect before;
    Size chrome;
};

// MARK: creation

TEST_F(FittingTest, IsSizableInBothDirectionsFromTheBeginning)
{
    for (auto const& view : { make<PLIXTabView>(), make<PLIXTabView>(Rect { 1, 2, 3, 4 }) }) {
        EXPECT_EQ(view->autoresizingMask(), 18U);
        EXPECT_EQ(view->contentResizeMode(), 1UL);
        EXPECT_EQ(view->windowResizeMode(), 17UL);
    }
    EXPECT_EQ(make<PLIXTabView>(Rect { 1, 2, 3, 4 })->frame(), (Rect { 1, 2, 3, 4 }));
}

TEST_F(FittingTest, WhatIsReadFromAnArchiveHasTheModesOfANewOne)
{
    tabs->setContentResizeMode(5);
    tabs->setWindowResizeMode(34);
    EXPECT_EQ(tabs->contentResizeMode(), 5UL);
    EXPECT_EQ(tabs->windowResizeMode(), 34UL);
    tabs->setAutoresizingMask(NSViewMinYMargin);
    auto const item = addCustom({ 10, 10 });
    item->setImage(imageOfDistinctPixels(4, 4));
    item->setResizable(true);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*NSArchiver::archivedDataWithRootObject(tabs));
    ASSERT_TRUE(read);
    auto const copy = read->as<PLIXTabView>();
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->contentResizeMode(), 1UL);
    EXPECT_EQ(copy->windowResizeMode(), 17UL);
    EXPECT_EQ(copy->autoresizingMask(), NSViewMinYMargin | 18U);
    auto const* other = dynamic_cast<PLIXTabViewItem*>(copy->tabViewItemAtIndex(1));
    ASSERT_TRUE(other);
    EXPECT_EQ(other->label(), "custom");
    EXPECT_EQ(other->image(), nullptr);
    EXPECT_EQ(other->customView(), nullptr);
    EXPECT_FALSE(other->resizable());
}

TEST_F(FittingTest, AnItemIsClearedByTheInitialiserWithoutArgument)
{
    auto const item = addCustom({ 10, 10 });
    auto const image = imageOfDistinctPixels(4, 4);
    item->setImage(image);
    item->setResizable(true);
    EXPECT_EQ(item->image(), image.get());
    EXPECT_EQ(item->customView(), custom.get());
    EXPECT_TRUE(item->resizable());
    EXPECT_TRUE(item->initWithCoder());
    EXPECT_EQ(item->image(), nullptr);
    EXPECT_EQ(item->customView(), nullptr);
    EXPECT_FALSE(item->resizable());
}

// MARK: by the subviews

TEST_F(FittingTest, TheWindowGrowsDownwardsByWhatThePaneWants)
{
    auto const view = pane({ { 30, 50, 80, 60 }, { 30, 90, 80, 60 } });
    add<NSTabViewItem>("plain", view);
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(tabs->frame().height, chrome.height + 135);
    float const growth = chrome.height + 135 - 200;
    EXPECT_EQ(window->frame(), (Rect { before.x, before.y - growth, before.width, before.height + growth }));
    EXPECT_EQ(view->superview(), tabs.get());
    EXPECT_EQ(view->frame(), tabs->contentRect());
    EXPECT_EQ(framesIn(*view), (std::vector<Rect> { { 30, 20, 80, 60 }, { 30, 60, 80, 60 } }));
    EXPECT_EQ(tabs->autoresizingMask(), 18U);
}

TEST_F(FittingTest, TheMaskIsWhatItWasWhenThePaneFits)
{
    add<NSTabViewItem>("plain", pane({ { 0, 0, 10, 300 } }));
    tabs->setAutoresizingMask(NSViewMinYMargin);
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(tabs->autoresizingMask(), static_cast<unsigned>(NSViewMinYMargin));
    EXPECT_EQ(window->frame().height, before.height + chrome.height + 335 - 200);
}

TEST_F(FittingTest, AViewWithoutSubviewsLeavesTheWindowAloneAndTheMaskSizable)
{
    add<NSTabViewItem>("another", make<NSView>());
    add<NSTabViewItem>("nothing at all", nullptr)->setView(nullptr);
    tabs->setAutoresizingMask(NSViewMinYMargin);
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(window->frame(), before);
    EXPECT_EQ(tabs->autoresizingMask(), NSViewMinYMargin | 18U);
    tabs->selectTabViewItemAtIndex(2);
    EXPECT_EQ(window->frame(), before);
    EXPECT_EQ(delegate->resizes, 0);
}

// With masks that a resize of the pane would follow.
TEST_F(FittingTest, ThePaneIsOutOfTheTreeMeanwhileAndNotStretched)
{
    auto const view = pane({ { 30, 40, 80, 60 }, { 30, 120, 80, 30 } });
    view->subviews()[0]->setAutoresizingMask(NSViewHeightSizable | NSViewMinYMargin);
    view->subviews()[1]->setAutoresizingMask(NSViewMinYMargin);
    add<NSTabViewItem>("plain", view);
    tabs->setFrameSize({ 400, 200 });
    view->setFrame(tabs->contentRect());
    auto const wanted = framesIn(*view);
    bool wasInTree = false;
    delegate->whenResized = [&] { wasInTree |= view->superview() != nullptr; };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_GT(delegate->resizes, 1);
    EXPECT_FALSE(wasInTree);
    float const moved = 20 - wanted[0].y;
    EXPECT_EQ(framesIn(*view), (std::vector<Rect> { NSOffsetRect(wanted[0], 0, moved), NSOffsetRect(wanted[1], 0, moved) }));
    EXPECT_TRUE(view->autoresizesSubviews());
}

TEST_F(FittingTest, TheAnimationIsOverWhenSelectingAnswers)
{
    add<NSTabViewItem>("plain", pane({ { 0, 0, 10, 400 } }));
    auto const start = clock().uptime();
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_GT(delegate->resizes, 5);
    EXPECT_NEAR(clock().uptime() - start, 0.2 * (chrome.height + 435 - 200) / 150, 0.02);
    EXPECT_EQ(delegate->frameThen.height, chrome.height + 435);
    EXPECT_EQ(delegate->log, (Strings { "did plain", "resize", "really plain" }));
}

TEST_F(FittingTest, WithoutAnimationItResizesOnce)
{
    NSUserDefaults::standardUserDefaults().setObject(0.0, "NSWindowResizeTime");
    add<NSTabViewItem>("plain", pane({ { 0, 0, 10, 400 } }));
    tabs->selectTabViewItemAtIndex(1);
    NSUserDefaults::standardUserDefaults().removeObjectForKey("NSWindowResizeTime");
    EXPECT_EQ(delegate->resizes, 1);
    EXPECT_EQ(tabs->frame().height, chrome.height + 435);
}

TEST_F(FittingTest, AgainAndAgainGivesTheSame)
{
    add<NSTabViewItem>("low", pane({ { 10, 77, 10, 21 } }));
    add<NSTabViewItem>("high", pane({ { 10, -5, 10, 333 }, { 30, 0, 10, 10 } }));
    for (int round = 0; round < 3; ++round) {
        tabs->selectTabViewItemAtIndex(1);
        EXPECT_EQ(tabs->frame().height, chrome.height + 21 + 35);
        EXPECT_EQ(framesIn(*tabs->selectedTabViewItem()->view())[0].y, 20);
        tabs->selectTabViewItemAtIndex(2);
        EXPECT_EQ(tabs->frame().height, chrome.height + 333 + 35);
        EXPECT_EQ(framesIn(*tabs->selectedTabViewItem()->view())[1].y, 25);
        EXPECT_EQ(window->frame().maxY(), before.maxY());
    }
}

// A list in a pane grows with its window, and is as high again when its tab comes back.
TEST_F(FittingTest, SizablePartsKeepTheirHeight)
{
    auto const tall = pane({ { 20, 20, 100, 300 } });
    tall->setFrameSize({ 140, 335 });
    tall->subviews()[0]->setAutoresizingMask(18);
    add<NSTabViewItem>("tall", tall);
    add<NSTabViewItem>("low", pane({ { 20, 20, 100, 40 } }));
    float const width = tabs->contentRect().width;
    for (int round = 0; round < 3; ++round) {
        tabs->selectTabViewItemAtIndex(1);
        EXPECT_EQ(framesIn(*tall), (std::vector<Rect> { { 20, 20, width - 40, 300 } })) << round;
        EXPECT_EQ(tabs->frame().height, chrome.height + 335) << round;
        tabs->selectTabViewItemAtIndex(2);
        EXPECT_EQ(tabs->frame().height, chrome.height + 75) << round;
    }
    tabs->selectTabViewItemAtIndex(1);
    auto frame = window->frame();
    frame.height += 50;
    frame.width += 60;
    window->setFrame(frame, true);
    EXPECT_EQ(framesIn(*tall), (std::vector<Rect> { { 20, 20, width + 20, 350 } }));
    EXPECT_TRUE(tall->autoresizesSubviews());
}

TEST_F(FittingTest, WithoutWindowOnlyTheSubviewsMove)
{
    auto const alone = make<PLIXTabView>(Rect { 0, 0, 300, 200 });
    auto const view = pane({ { 5, 5, 10, 300 } });
    auto const item = make<NSTabViewItem>("x");
    item->setView(view);
    alone->addTabViewItem(*item);
    EXPECT_EQ(alone->frame(), (Rect { 0, 0, 300, 200 }));
    EXPECT_EQ(framesIn(*view), (std::vector<Rect> { { 5, 20, 10, 300 } }));
    EXPECT_EQ(view->superview(), alone.get());
}

TEST_F(FittingTest, WithoutWindowSizablePartsFollowTheFirstPane)
{
    auto const alone = make<PLIXTabView>(Rect { 0, 0, 300, 200 });
    auto const view = pane({ { 5, 20, 90, 60 } });
    view->setFrameSize({ 100, 100 });
    view->subviews()[0]->setAutoresizingMask(18);
    auto const item = make<NSTabViewItem>("x");
    item->setView(view);
    alone->addTabViewItem(*item);
    auto const content = alone->contentRect().size();
    EXPECT_EQ(framesIn(*view), (std::vector<Rect> { { 5, 20, content.width - 10, content.height - 40 } }));
}

TEST_F(FittingTest, WhatIsNotSelectedIsNotTouched)
{
    auto const refused = pane({ { 5, 5, 90, 60 } });
    auto const foreign = pane({ { 5, 5, 90, 60 } });
    for (auto const& view : { refused, foreign }) {
        view->setFrameSize({ 100, 80 });
        view->subviews()[0]->setAutoresizingMask(18);
    }
    add<NSTabViewItem>("refused", refused);
    auto const elsewhere = make<NSTabViewItem>("elsewhere");
    elsewhere->setLabel("elsewhere");
    elsewhere->setView(foreign);
    delegate->refused = "refused";
    tabs->selectTabViewItemAtIndex(1);
    tabs->selectTabViewItem(elsewhere.get());
    for (auto const& view : { refused, foreign }) {
        EXPECT_EQ(view->frame(), (Rect { 0, 0, 100, 80 }));
        EXPECT_EQ(framesIn(*view), (std::vector<Rect> { { 5, 5, 90, 60 } }));
        EXPECT_TRUE(view->autoresizesSubviews());
    }
}

TEST_F(FittingTest, TheModePlaysNoPartForSubviews)
{
    add<NSTabViewItem>("plain", pane({ { 20, 20, 180, 300 } }));
    for (unsigned long const mode : { 0UL, 2UL, 33UL }) {
        window->setFrame(before, true);
        tabs->selectTabViewItemAtIndex(0);
        tabs->setWindowResizeMode(mode);
        tabs->selectTabViewItemAtIndex(1);
        EXPECT_EQ(tabs->frame().height, chrome.height + 335) << mode;
        EXPECT_EQ(window->frame().x, before.x) << mode;
        EXPECT_EQ(window->frame().maxY(), before.maxY()) << mode;
        tabs->resizeToFitContentXY();
        EXPECT_EQ(tabs->frame().size(), (Size { chrome.width + 220, chrome.height + 334 })) << mode;
        EXPECT_EQ(window->frame().midX(), before.midX()) << mode;
        EXPECT_EQ(window->frame().maxY(), before.maxY()) << mode;
    }
}

TEST_F(FittingTest, AWindowThatMayNotGrowShowsAsMuchAsItMay)
{
    window->setMaxSize({ 10000, before.height + 30 });
    auto const view = pane({ { 0, 0, 10, 700 } });
    add<NSTabViewItem>("plain", view);
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(window->frame().height, before.height + 30);
    EXPECT_EQ(view->frame(), tabs->contentRect());
}

// At the lower edge of the screen: the top edge stays there too.
TEST_F(FittingTest, AtTheScreensEdgeTheTopStays)
{
    auto const view = pane({ { 0, 0, 10, 300 } });
    add<NSTabViewItem>("high", view);
    addCustom({ 500, 260 });
    window->setFrameOrigin({ 0, 0 });
    before = window->frame();
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(tabs->frame().height, chrome.height + 335);
    EXPECT_EQ(window->frame().maxY(), before.maxY());
    EXPECT_LT(window->frame().y, 0);
    EXPECT_EQ(view->frame(), tabs->contentRect());
    tabs->selectTabViewItemAtIndex(2);
    EXPECT_EQ(window->frame().maxY(), before.maxY());
    EXPECT_EQ(window->frame().x, -60); // half of 500 - 380
    EXPECT_EQ(tabs->contentRect().size(), (Size { 500, 260 }));
    tabs->selectTabViewItemAtIndex(0);
    EXPECT_EQ(window->frame().maxY(), before.maxY());
}

TEST_F(FittingTest, BothDirectionsHaveTheirOwnMargins)
{
    auto const view = pane({ { 30, 50, 180, 60 }, { 130, 90, 180, 60 } });
    add<NSTabViewItem>("plain", view);
    tabs->selectTabViewItemAtIndex(1);
    before = window->frame();
    tabs->resizeToFitContentXY();
    EXPECT_EQ(tabs->frame().size(), (Size { chrome.width + 280 + 40, chrome.height + 100 + 34 }));
    EXPECT_EQ(framesIn(*view), (std::vector<Rect> { { 20, 18, 180, 60 }, { 120, 58, 180, 60 } }));
    EXPECT_EQ(window->frame().maxY(), before.maxY());
    EXPECT_EQ(window->frame().midX(), before.midX());
    EXPECT_EQ(view->frame(), tabs->contentRect());
    tabs->selectTabViewItemAtIndex(0);
    before = window->frame();
    tabs->setAutoresizingMask(0);
    tabs->resizeToFitContentXY();
    EXPECT_EQ(window->frame(), before);
    EXPECT_EQ(tabs->autoresizingMask(), 0U);
}

// MARK: by a custom view

TEST_F(FittingTest, ACustomViewIsAsLargeAsItsFrame)
{
    auto const item = addCustom({ 501, 261 });
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(item->view(), custom.get());
    EXPECT_EQ(custom->superview(), tabs.get());
    EXPECT_EQ(custom->frame(), tabs->contentRect());
    EXPECT_EQ(custom->frame().height, 261);
    EXPECT_EQ(window->frame().maxY(), before.maxY());
    EXPECT_EQ(delegate->viewThen, custom.get());
    EXPECT_EQ(delegate->log, (Strings { "did custom", "resize", "really custom" }));
}

TEST_F(FittingTest, TheModeSaysWhichEdgesMove)
{
    struct Row {
        unsigned long mode;
        float left;
        float bottom;
    };
    for (auto const& row : {
             Row { 1, 0, -60 },
             Row { 2, 0, -30 },
             Row { 16, -50, 0 },
             Row { 17, -50, -60 },
             Row { 32, -100, 0 },
             Row { 33, -100, -60 },
             Row { 64, 0, 0 },
         }) {
        window->setFrame(before, true);
        tabs->selectTabViewItemAtIndex(0);
        auto const size = tabs->contentRect().size();
        auto const item = addCustom({ size.width + 100, size.height + 60 });
        tabs->setWindowResizeMode(row.mode);
        tabs->selectTabViewItem(item.get());
        EXPECT_EQ(window->frame(), (Rect { before.x + row.left, before.y + row.bottom, before.width + 100, before.height + 60 }))
            << row.mode;
        tabs->removeTabViewItem(*item);
    }
}

TEST_F(FittingTest, WithoutModeACustomViewFillsTheContent)
{
    auto const item = addCustom({ 501, 261 });
    tabs->setWindowResizeMode(0);
    tabs->setAutoresizingMask(4);
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(window->frame(), before);
    EXPECT_EQ(custom->frame(), tabs->contentRect());
    EXPECT_EQ(tabs->autoresizingMask(), 4U);
}

TEST_F(FittingTest, TheWindowHasItsSizeBeforeTheCustomViewComes)
{
    auto const item = addCustom({ 600, 400 });
    bool wasThere = false;
    Rect placeholder;
    delegate->whenResized = [&] {
        wasThere |= item->view() == custom || custom->superview();
        placeholder = item->view()->frame();
    };
    tabs->selectTabViewItem(item.get());
    EXPECT_FALSE(wasThere);
    EXPECT_EQ(placeholder, tabs->contentRect());
    EXPECT_EQ(custom->frame().size(), (Size { 600, 400 }));
}

TEST_F(FittingTest, AnInitialFirstResponderOutsideTheCustomViewIsForgotten)
{
    auto const inside = make<NSTextField>(Rect { 5, 5, 50, 22 });
    auto const outside = make<NSTextField>(Rect { 5, 5, 50, 22 });
    auto const item = addCustom({ 300, 100 });
    custom->addSubview(*inside);
    item->setInitialFirstResponder(outside.get());
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(item->initialFirstResponder(), nullptr);
    tabs->selectTabViewItemAtIndex(0);
    item->setInitialFirstResponder(inside.get());
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(item->initialFirstResponder(), inside.get());
}

TEST_F(FittingTest, ACustomViewThatIsShownAlreadyIsFittedAgain)
{
    auto const item = addCustom({ 500, 260 });
    tabs->selectTabViewItem(item.get());
    auto const fitted = window->frame();
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(window->frame(), fitted);
    EXPECT_EQ(item->view(), custom.get());
    EXPECT_EQ(custom->superview(), tabs.get());
    EXPECT_EQ(delegate->log.back(), "really custom");
}

TEST_F(FittingTest, ACustomViewThatIsTakenBackLeavesThePlaceholder)
{
    auto const item = addCustom({ 500, 260 });
    delegate->whenResized = [&] { item->setCustomView(nullptr); };
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(custom->superview(), nullptr);
    EXPECT_NE(item->view(), custom.get());
    EXPECT_EQ(item->view()->frame(), tabs->contentRect());
}

TEST_F(FittingTest, ThePlaceholderIsOnePointLarge)
{
    auto const item = addCustom({ 500, 260 });
    Rect placeholder;
    delegate->whenAsked = [&] { placeholder = item->view()->frame(); };
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(placeholder, (Rect { 0, 0, 1, 1 }));
}

// MARK: hooks

TEST_F(FittingTest, TheLaterHookIsToldInAnyCase)
{
    auto const item = addCustom({ 500, 260 });
    delegate->refused = "custom";
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(tabs->selectedTabViewItem(), tabs->tabViewItemAtIndex(0));
    EXPECT_EQ(item->view(), custom.get());
    EXPECT_EQ(custom->superview(), nullptr);
    tabs->selectTabViewItem(nullptr);
    EXPECT_EQ(delegate->log, (Strings { "really custom", "really nothing" }));
    EXPECT_EQ(window->frame(), before);
}

TEST_F(FittingTest, AClickFitsTheWindow)
{
    add<NSTabViewItem>("plain", pane({ { 0, 0, 10, 300 } }));
    auto const tab = tabs->rectForTabViewItem(*tabs->tabViewItemAtIndex(1));
    click(*tabs, { tab.midX(), tab.midY() });
    EXPECT_EQ(tabs->frame().height, chrome.height + 335);
    EXPECT_EQ(delegate->log.back(), "really plain");
}

TEST_F(FittingTest, ADelegateMaySelectAnotherWhileTheWindowMoves)
{
    auto const first = pane({ { 0, 0, 10, 300 } });
    auto const second = pane({ { 0, 0, 10, 50 } });
    add<NSTabViewItem>("first", first);
    add<NSTabViewItem>("second", second);
    delegate->whenResized = [&] {
        delegate->whenResized = nullptr;
        tabs->selectTabViewItemAtIndex(2);
    };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(tabs->selectedTabViewItem()->label(), "second");
    EXPECT_EQ(first->superview(), nullptr);
    EXPECT_EQ(second->superview(), tabs.get());
    EXPECT_EQ(tabs->subviews().size(), 1U);
}

TEST_F(FittingTest, TheWindowMayCloseWhileItMoves)
{
    auto const view = pane({ { 0, 0, 10, 300 } });
    add<NSTabViewItem>("first", view);
    delegate->whenResized = [&] {
        delegate->whenResized = nullptr;
        window->close();
        window = nullptr;
    };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(delegate->log.back(), "really first");
    EXPECT_EQ(view->superview(), tabs.get());
}

TEST_F(FittingTest, TheTabViewMayGoAwayWhileTheWindowMoves)
{
    auto const view = pane({ { 0, 0, 10, 300 } });
    add<NSTabViewItem>("first", view);
    delegate->whenResized = [&] {
        delegate->whenResized = nullptr;
        tabs->removeFromSuperview();
        tabs = nullptr;
    };
    tabs->selectTabViewItemAtIndex(1);
    EXPECT_EQ(delegate->log.back(), "really first");
    EXPECT_EQ(view->window(), nullptr);
}

// MARK: the keyboard

TEST_F(FittingTest, TheKeyboardComesThroughTheMove)
{
    auto const view = pane({ { 0, 0, 10, 30 } });
    auto const first = make<NSTextField>(Rect { 20, 20, 80, 22 });
    view->addSubview(*first);
    auto const taller = pane({ { 0, 0, 10, 300 } });
    auto const other = make<NSTextField>(Rect { 20, 20, 80, 22 });
    taller->addSubview(*other);
    add<NSTabViewItem>("first", view);
    add<NSTabViewItem>("taller", taller);
    auto const item = addCustom({ 400, 100 });
    auto const inCustom = make<NSTextField>(Rect { 20, 20, 80, 22 });
    custom->addSubview(*inCustom);
    tabs->selectTabViewItemAtIndex(1);
    window->makeFirstResponder(first.get());
    type("abc");
    tabs->selectTabViewItemAtIndex(2);
    EXPECT_EQ(first->stringValue(), "abc");
    ASSERT_TRUE(other->currentEditor());
    type("def");
    tabs->selectTabViewItem(item.get());
    EXPECT_EQ(other->stringValue(), "def");
    ASSERT_TRUE(inCustom->currentEditor());
    tabs->resizeToFitContent();
    EXPECT_TRUE(inCustom->currentEditor());
    tabs->selectTabViewItemAtIndex(0);
    EXPECT_EQ(window->firstResponder(), tabs.get());
}

TEST_F(FittingTest, WhoHasTheKeyboardKeepsItWhenThePaneIsFitted)
{
    auto const view = pane({ { 0, 0, 10, 30 } });
    auto const other = make<NSTextField>(Rect { 20, 60, 80, 22 });
    field = make<NSTextField>(Rect { 20, 20, 80, 22 });
    view->addSubview(*other);
    view->addSubview(*field);
    add<NSTabViewItem>("first", view);
    tabs->selectTabViewItemAtIndex(1);
    window->makeFirstResponder(field.get());
    type("abc");
    tabs->resizeToFitContentXY();
    EXPECT_TRUE(field->currentEditor());
    EXPECT_EQ(field->stringValue(), "abc");
    tabs->resizeToFitContent();
    EXPECT_TRUE(field->currentEditor());
}

class FieldEndDelegate : public NSObject {
    PLIX_CLASS(FieldEndDelegate, NSObject);

public:
    bool init() { return true; }
    void controlTextDidEndEditing(NSNotification const&)
    {
        if (whenEnded)
            whenEnded();
    }

    std::function<void()> whenEnded;
};

PLIX_DESCRIBE(FieldEndDelegate)
{
}

TEST_F(FittingTest, AWindowThatMovesWhenEditingEndsStaysThere)
{
    showPaneWithField();
    auto const ending = make<FieldEndDelegate>();
    field->setDelegate(ending);
    auto const moved = NSOffsetRect(window->frame(), -40, 0);
    ending->whenEnded = [&] { window->setFrameOrigin(moved.origin()); };
    tabs->resizeToFitContent();
    EXPECT_EQ(window->frame(), moved);
}

TEST_F(FittingTest, WhoTookTheKeyboardMeanwhileKeepsIt)
{
    showPaneWithField();
    shownPane->addSubview(*make<CountingView>(Rect { 0, 0, 10, 90 }));
    delegate->whenResized = [&] { window->makeFirstResponder(tabs.get()); };
    tabs->resizeToFitContent();
    EXPECT_EQ(window->firstResponder(), tabs.get());
}

TEST_F(FittingTest, WhoWasHiddenMeanwhileDoesNotGetTheKeyboardBack)
{
    showPaneWithField();
    shownPane->addSubview(*make<CountingView>(Rect { 0, 0, 10, 90 }));
    delegate->whenResized = [&] { field->setHidden(true); };
    tabs->resizeToFitContent();
    EXPECT_FALSE(field->currentEditor());
    EXPECT_EQ(window->firstResponder(), window.get());
}

// MARK: labels

TEST_F(FittingTest, AnImageMakesItsLabelWider)
{
    auto const item = add<PLIXTabViewItem>("label", nullptr);
    auto const plain = item->sizeOfLabel(false);
    auto const least = item->sizeOfLabel(true);
    auto const tab = tabs->rectForTabViewItem(*item);
    item->setImage(imageOfDistinctPixels(9, 9));
    EXPECT_EQ(item->sizeOfLabel(false), (Size { plain.width + plain.height + 2, plain.height }));
    EXPECT_EQ(item->sizeOfLabel(true), (Size { least.width + least.height + 2, least.height }));
    EXPECT_EQ(tabs->rectForTabViewItem(*item).width, tab.width + plain.height + 2);
    pump();
    item->setImage(nullptr);
    EXPECT_TRUE(tabs->needsDisplay());
    EXPECT_EQ(item->sizeOfLabel(false), plain);
}

Ref<NSBitmapImageRep> drawnLabel(PLIXTabViewItem& item, Rect label)
{
    return renderBitmap(
        { 60, 30 }, 1,
        [&] {
            auto const context = NSGraphicsContext::currentContext();
            context->translateBy(0, 30);
            context->scaleBy(1, -1);
            context->setFlipped(true);
            item.drawLabel(false, label);
        },
        colors::white);
}

testing::AssertionResult showsImageAt(Pixels const& drawn, int left, int top, int side)
{
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (drawn.at(left + x, top + y) != distinctPixel(x, y))
                return testing::AssertionFailure() << x << ", " << y;
        }
    }
    return testing::AssertionSuccess();
}

TEST_F(FittingTest, AnImageStandsUprightBeforeItsLabel)
{
    auto const item = make<PLIXTabViewItem>();
    item->setImage(imageOfDistinctPixels(10, 10));
    // Slack 3.5: x = trunc(4 + 3.5), y = trunc(3.5 + 6) + 1.
    EXPECT_TRUE(showsImageAt(drawnLabel(*item, { 4, 6, 40, 17 }), 7, 10, 10));
    // As high as the label, or higher: the label's height.
    EXPECT_TRUE(showsImageAt(drawnLabel(*item, { 4, 6, 40, 10 }), 4, 7, 10));
    auto const flipped = imageOfDistinctPixels(10, 10);
    flipped->setFlipped(true);
    item->setImage(flipped);
    EXPECT_TRUE(showsImageAt(drawnLabel(*item, { 4, 6, 40, 10 }), 4, 7, 10));
}

TEST_F(FittingTest, ATallImageIsDrawnSquareAtTheTabsHeight)
{
    auto const item = make<PLIXTabViewItem>();
    item->setImage(imageOfColor({ 20, 40 }, colors::red));
    auto const ink = inkBounds(drawnLabel(*item, { 4, 6, 40, 16 }), colors::white);
    EXPECT_EQ(ink.x, 4);
    EXPECT_EQ(ink.y, 7);
    EXPECT_EQ(ink.width, 16);
    EXPECT_EQ(ink.height, 16);
}

TEST_F(FittingTest, TextFollowsItsImage)
{
    auto const item = make<PLIXTabViewItem>();
    item->setLabel("Label");
    auto const plain = inkBounds(drawnLabel(*item, { 4, 6, 40, 16 }), colors::white);
    auto const image = imageOfColor({ 12, 12 }, colors::white);
    item->setImage(image);
    auto const moved = inkBounds(drawnLabel(*item, { 4, 6, 40, 16 }), colors::white);
    EXPECT_EQ(moved.x, plain.x + 14);
    EXPECT_EQ(moved.width, plain.width);
}

}
}
