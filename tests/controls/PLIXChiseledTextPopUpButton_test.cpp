#include <tests/support/ChiseledPopUpTest.h>

#include <plix/controls/classes.h>
#include <plix/platform/appkit/NSButtonCell.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSArchiver.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/foundation/NSNotificationCenter.h>
#include <plix/platform/graphics/NSImage.h>

#include <gmock/gmock.h>

#include <cmath>

namespace plix {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

// MARK: a new one

TEST_F(ChiseledPopUpTest, StartsWithoutTitleOrBorder)
{
    for (auto const& fresh : { make<WatchedPopUp>(), make<WatchedPopUp>(Rect { 10, 20, 150, 24 }) }) {
        EXPECT_EQ(fresh->title(), "");
        EXPECT_EQ(fresh->imagePosition(), NSImageOnly);
        EXPECT_FALSE(fresh->isBordered());
        EXPECT_EQ(fresh->bezelStyle(), NSRegularSquareBezelStyle);
        auto const& cell = dynamic_cast<NSButtonCell&>(*fresh->cell());
        EXPECT_EQ(cell.highlightsBy(), unsigned { NSContentsCellMask });
        EXPECT_FALSE(fresh->acceptsFirstResponder());
        EXPECT_EQ(fresh->menu()->numberOfItems(), 0);
        EXPECT_THAT(fresh->log, ElementsAre("anchor 1", "slices", "idle", "over", "down"));
        EXPECT_EQ(fresh->shown(), "idle");
        EXPECT_EQ(fresh->alternateImage(), fresh->down.get());
        for (auto const& image : { fresh->idle, fresh->over, fresh->down })
            EXPECT_EQ(image->size(), fresh->frame().size());
    }
}

TEST_F(ChiseledPopUpTest, WakingFromAnInterfaceFileChangesNothing)
{
    button->awakeFromNib();
    EXPECT_THAT(button->news(), IsEmpty());
}

TEST_F(ChiseledPopUpTest, TakesTheTitleOfTheCellOutOfAnArchive)
{
    registerControlClasses();
    auto const original = make<PLIXChiseledTextPopUpButton>(Rect { 10, 20, 150, 24 });
    dynamic_cast<NSButtonCell&>(*original->cell()).setTitle("From a file");
    original->SetFrameAnchorMask(0);
    auto const data = NSArchiver::archivedDataWithRootObject(original);
    auto const read = NSUnarchiver::unarchiveObjectWithData(*data)->as<PLIXChiseledTextPopUpButton>();
    ASSERT_TRUE(read);
    EXPECT_EQ(read->title(), "From a file");
    EXPECT_EQ(read->frame().maxX(), 160); // anchored again
    EXPECT_EQ(read->frame().height, 24);
    EXPECT_EQ(read->frame().width, std::trunc(sizeOfTitle("From a file").width + 20) + 4);
    EXPECT_EQ(read->imagePosition(), NSImageOnly);
    EXPECT_FALSE(read->isBordered());
    ASSERT_TRUE(read->image() && read->alternateImage());
    EXPECT_EQ(read->image()->size(), read->frame().size());
    EXPECT_EQ(read->menu()->title(), "Untitled");
}

// MARK: title and frame

TEST_F(ChiseledPopUpTest, ANewTitleFitsTheFrame)
{
    struct Row {
        long anchor;
        bool fitsHeight;
        Rect before;
        char const* title;
    };
    for (auto const& row : {
             Row { 1, false, { 100, 50, 80, 22.75F }, "A longer title than before" },
             Row { 1, false, { 100, 50, 300, 22 }, "A" },
             Row { 0, false, { 100, 50, 80, 22 }, "A longer title than before" },
             Row { 2, false, { 100, 50, 80, 22 }, "A" },
             Row { 3, true, { 100.5F, 50, 80, 40 }, "Fitted" },
             Row { -1, true, { 100, 50, 80, 4 }, "" },
         }) {
        auto const fitted = make<PLIXChiseledTextPopUpButton>(row.before);
        fitted->SetFrameAnchorMask(row.anchor);
        fitted->SetSizeHeightToFit(row.fitsHeight);
        fitted->setTitle(row.title);
        auto const title = sizeOfTitle(row.title);
        float const width = std::trunc(title.width + 10 + 10) + 8 - 4;
        float const height = std::trunc(row.fitsHeight ? title.height + 4 : row.before.height);
        float const x = (row.anchor & 1) != 0 ? row.before.x + row.before.width - width : row.before.x;
        EXPECT_EQ(fitted->frame(), (Rect { x, 50, width, height })) << row.title;
        EXPECT_EQ(fitted->title(), row.title);
        EXPECT_EQ(static_cast<NSButton&>(*fitted).title(), row.title);
        EXPECT_EQ(fitted->image()->size(), fitted->frame().size());
    }
}

TEST_F(ChiseledPopUpTest, ANewTitleTracksAndComposesAnew)
{
    button->added.clear();
    button->setTitle("Another title");
    EXPECT_THAT(button->news(), ElementsAre("track", "track", "track", "idle", "over", "down"));
    EXPECT_EQ(button->added.back().rect, button->bounds());
    EXPECT_EQ(button->shown(), "idle");
    EXPECT_EQ(button->alternateImage(), button->down.get());
}

TEST_F(ChiseledPopUpTest, ANewTitleRedisplaysWhereTheButtonWas)
{
    class Parent : public NSView {
    public:
        using NSView::init;
        void displayRect(Rect rect) override
        {
            displayed.push_back(rect);
            NSView::displayRect(rect);
        }
        std::vector<Rect> displayed;
    };
    auto const parent = make<Parent>(Rect { 0, 0, 400, 300 });
    view->addSubview(*parent);
    parent->addSubview(*button);
    auto const before = button->frame();
    button->setTitle("W");
    EXPECT_THAT(parent->displayed, ElementsAre(before));
    button->removeFromSuperview();
    button->setTitle("Outside");
    EXPECT_EQ(parent->displayed.size(), 1U);
}

TEST_F(ChiseledPopUpTest, TheItemThatIsSelectedGivesTheTitle)
{
    float const right = button->frame().maxX();
    button->selectItemAtIndex(2);
    EXPECT_EQ(button->title(), "Month");
    EXPECT_EQ(button->frame().maxX(), right);
    EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle("Month").width + 20) + 4);
}

TEST_F(ChiseledPopUpTest, AFontShowsWithTheNextTitle)
{
    auto const frame = button->frame();
    button->setFont(NSFont::boldSystemFontOfSize(18));
    EXPECT_THAT(button->news(), IsEmpty());
    EXPECT_EQ(button->frame(), frame);
    EXPECT_NE(button->font()->pointSize(), 18);
    button->setFont(nullptr);
    button->setTitle("Week");
    EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle("Week", 18).width + 20) + 4);
}

TEST_F(ChiseledPopUpTest, TakesItsOwnTitleAgain)
{
    button->setTitle("A title that is too long to be kept inside a string");
    auto const frame = button->frame();
    button->setTitle(button->title());
    EXPECT_EQ(button->title(), "A title that is too long to be kept inside a string");
    EXPECT_EQ(button->frame(), frame);
}

TEST_F(ChiseledPopUpTest, TakesTitlesOfAnyKind)
{
    for (std::string const& title : { std::string(20000, 'W'), std::string("two\nlines"), std::string("\xFF\xFE broken"),
             std::string("\0zero", 5), std::string("\u05E2\u05D1\u05E8\u05D9\u05EA") }) {
        button->setTitle(title);
        EXPECT_EQ(button->frame().width, std::trunc(sizeOfTitle(title).width + 20) + 4);
        EXPECT_EQ(button->image()->size(), button->frame().size());
        window->display();
    }
}

TEST_F(ChiseledPopUpTest, TakesFramesOfAnyKind)
{
    for (float const side : { 1e9F, -1e9F, 1e30F, std::nanf(""), 0.5F }) {
        auto const odd = make<PLIXChiseledTextPopUpButton>(Rect { 10, 10, side, side });
        EXPECT_TRUE(odd->image() != nullptr);
        odd->setTitle("Still a title");
        EXPECT_EQ(odd->frame().width, std::trunc(sizeOfTitle("Still a title").width + 20) + 4);
    }
}

// MARK: tracking

TEST_F(ChiseledPopUpTest, IsTrackedOnlyInASuperviewAndAWindow)
{
    auto const fresh = make<WatchedPopUp>(Rect { 0, 0, 80, 20 });
    fresh->UpdateTrackingRect();
    auto const parent = make<NSView>(Rect { 0, 0, 100, 100 });
    parent->addSubview(*fresh);
    fresh->UpdateTrackingRect();
    EXPECT_TRUE(fresh->added.empty());
    view->addSubview(*parent);
    ASSERT_FALSE(fresh->added.empty());
    EXPECT_TRUE(fresh->isTrackedPlainly);
    EXPECT_EQ(fresh->added.back().rect, fresh->bounds());
}

TEST_F(ChiseledPopUpTest, OneRectangleIsTrackedAtATime)
{
    auto const last = button->added.back().tag;
    button->removed.clear();
    button->UpdateTrackingRect();
    button->UpdateTrackingRect();
    ASSERT_GE(button->added.size(), 3U);
    EXPECT_THAT(button->removed, ElementsAre(last, button->added[button->added.size() - 2].tag));
}

TEST_F(ChiseledPopUpTest, EachChangeOfGeometryTracksTheBoundsBeforeIt)
{
    auto const lastAdded = [&] { return button->added.back().rect.size(); };
    button->setFrameSize({ 140, 20 });
    EXPECT_THAT(button->news(), Each("track"));
    auto const before = button->bounds().size();
    button->setFrameSize({ 200, 30 });
    EXPECT_THAT(button->news(), ElementsAre("track"));
    EXPECT_EQ(lastAdded(), before);
    button->setFrameOrigin({ 20, 30 });
    EXPECT_THAT(button->news(), ElementsAre("track"));
    EXPECT_EQ(lastAdded(), (Size { 200, 30 }));
    button->added.clear();
    button->setFrame({ 30, 40, 90, 25 });
    EXPECT_EQ(button->added.front().rect.size(), (Size { 200, 30 }));
    EXPECT_EQ(lastAdded(), (Size { 200, 30 }));
    button->viewDidEndLiveResize();
    EXPECT_EQ(lastAdded(), (Size { 90, 25 }));
}

TEST_F(ChiseledPopUpTest, WhatGrewIsTrackedFromTheNextUpdateOn)
{
    auto const width = button->bounds().width;
    button->setFrameSize({ width + 100, 20 });
    auto const added = button->added.size();
    for (int i = 0; i < 2; ++i) {
        moveMouse(*button, { width + 50, 10 });
        EXPECT_EQ(button->shown(), "idle");
        leave();
    }
    EXPECT_EQ(button->added.size(), added); // nothing else tracks the pointer
    button->UpdateTrackingRect();
    moveMouse(*button, { width + 51, 10 });
    EXPECT_EQ(button->shown(), "over");
}

TEST_F(ChiseledPopUpTest, MovingToAnotherSuperviewIsTrackedThere)
{
    auto const parent = make<NSView>(Rect { 0, 0, 300, 300 });
    view->addSubview(*parent);
    parent->addSubview(*button);
    parent->setFrameOrigin({ 50, -100 });
    enter();
    EXPECT_EQ(button->shown(), "over");
}

TEST_F(ChiseledPopUpTest, OnlyPlainWindowsTellOfTheirResizing)
{
    auto const panel = show<NSPanel>({ 600, 200, 400, 300 });
    auto const inPanel = addButton(*panel->contentView());
    moveToOwnWindow();
    pump();
    inPanel->news();
    auto const inOwn = button;
    for (auto const& resized : { Ref<NSWindow>(panel), Ref<NSWindow>(ownWindow) })
        NSNotificationCenter::defaultCenter().postNotificationName(NSWindowDidResizeNotification, resized);
    EXPECT_THAT(inPanel->news(), ElementsAre("track"));
    EXPECT_THAT(inOwn->news(), IsEmpty());
}

// MARK: other

TEST_F(ChiseledPopUpTest, LogsANotificationsNameAsItStands)
{
    Strings lines;
    auto const before = installLogSink([&](std::string_view line) { lines.emplace_back(line); });
    button->blah({ "50%s of %n", nullptr, {} });
    installLogSink(before);
    EXPECT_THAT(lines, ElementsAre("50%s of %n"));
}

}
}
