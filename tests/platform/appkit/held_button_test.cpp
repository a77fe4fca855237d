#include <tests/support/HeadlessTest.h>

#include <plix/platform/appkit/NSActionCell.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSComboBox.h>
#include <plix/platform/appkit/NSDatePicker.h>
#include <plix/platform/appkit/NSOutlineView.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSSplitView.h>
#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/appkit/NSTabViewItem.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/graphics/NSImage.h>

#include <functional>

namespace plix {
namespace {

/// What takes a window off the screen while a button is held in it.
struct Leaving {
    char const* name;
    void (*act)(NSWindow&);
};

class HeldButton : public HeadlessTest, public testing::WithParamInterface<Leaving> {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        other = showWindow({ 700, 200, 200, 200 });
        window = showWindow();
    }

    /// Whether the mouse is followed in a loop of its own, and no longer when the window has gone.
    void expectIsLetGo(NSView& view, Point pressed, Point moved)
    {
        window->contentView()->addSubview(view);
        pump();
        person().press(onScreen(view, pressed));
        if (moved != pressed)
            person().dragTo(onScreen(view, moved));
        bool wasFollowed = false;
        machine().headlessEvents().postAfter(0.05, [&] {
            wasFollowed = NSRunLoop::currentRunLoop().currentMode() == std::string(NSEventTrackingRunLoopMode);
            GetParam().act(*window);
        });
        bool isFollowed = true;
        machine().headlessEvents().postAfter(2, [&] {
            isFollowed = NSRunLoop::currentRunLoop().currentMode() == std::string(NSEventTrackingRunLoopMode);
            // So that the test ends also where the loop does not.
            person().release(onScreen(view, pressed));
            NSApp->stop(nullptr);
        });
        NSApp->run();
        pump();
        EXPECT_TRUE(wasFollowed);
        EXPECT_FALSE(isFollowed);
    }
    void expectIsLetGo(NSView& view, Point pressed) { expectIsLetGo(view, pressed, pressed); }

    static Ref<NSTableView> table(Ref<NSTableView> made)
    {
        for (auto const* name : { "a", "b", "c" }) {
            auto const column = make<NSTableColumn>(name);
            column->setWidth(60);
            made->addTableColumn(*column);
        }
        return made;
    }

    Ref<NSWindow> other;
    Ref<NSWindow> window;
};

void hideApplication(NSWindow&)
{
    NSApp->hide(nullptr);
}

INSTANTIATE_TEST_SUITE_P(Windows, HeldButton,
    testing::Values(Leaving { "Miniaturized", [](NSWindow& window) { window.miniaturize(nullptr); } },
        Leaving { "OrderedOut", [](NSWindow& window) { window.orderOut(nullptr); } },
        Leaving { "Closed", [](NSWindow& window) { window.close(); } }, Leaving { "Hidden", hideApplication }),
    [](auto const& leaving) { return leaving.param.name; });

TEST_P(HeldButton, PressesNothing)
{
    int calls = 0;
    auto const button = make<NSButton>(Rect { 20, 20, 100, 30 });
    button->setActionFunction([&](NSObject*) { ++calls; });
    expectIsLetGo(*button, { 50, 15 });
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(button->cell()->isHighlighted());
}

TEST_P(HeldButton, StopsRepeatingWhatItDoes)
{
    auto const picker = make<NSDatePicker>(Rect { 20, 20, 160, 24 });
    expectIsLetGo(*picker, { 153, 18 });
}

TEST_P(HeldButton, LeavesTheKnobWhereItWasDragged)
{
    auto const scroller = make<NSScroller>(Rect { 20, 20, 200, 15 });
    scroller->setEnabled(true);
    scroller->setFloatValue(0, 0.5F);
    expectIsLetGo(*scroller, { 50, 7 }, { 80, 7 });
    EXPECT_GT(scroller->floatValue(), 0.1F);
    EXPECT_LT(scroller->floatValue(), 0.9F);
}

TEST_P(HeldButton, SelectsNoSegment)
{
    auto const segments = make<NSSegmentedControl>(Rect { 20, 20, 200, 24 });
    segments->setSegmentCount(2);
    expectIsLetGo(*segments, { 150, 12 });
    EXPECT_EQ(segments->selectedSegment(), -1);
}

TEST_P(HeldButton, SelectsNoTab)
{
    auto const tabs = make<NSTabView>(Rect { 20, 20, 300, 200 });
    for (auto const* label : { "One", "Two" }) {
        auto const item = make<NSTabViewItem>(ObjectValue(label));
        item->setLabel(label);
        tabs->addTabViewItem(*item);
    }
    window->contentView()->addSubview(*tabs);
    pump();
    Point place { 0, tabs->isFlipped() ? 12.0F : 188.0F };
    while (tabs->tabViewItemAtPoint(place) != tabs->tabViewItemAtIndex(1) && place.x < 300)
        place.x += 1;
    place.x += 10;
    expectIsLetGo(*tabs, place);
    EXPECT_EQ(tabs->selectedTabViewItem(), tabs->tabViewItemAtIndex(0));
}

TEST_P(HeldButton, LeavesADividerWhereItIs)
{
    auto const split = make<NSSplitView>(Rect { 20, 20, 300, 200 });
    split->setVertical(true);
    split->addSubview(*make<NSView>(Rect { 0, 0, 100, 200 }));
    split->addSubview(*make<NSView>(Rect { 0, 0, 100, 200 }));
    split->adjustSubviews();
    float const middle = split->subviews()[0]->frame().maxX() + split->dividerThickness() / 2;
    expectIsLetGo(*split, { middle, 100 }, { middle + 30, 100 });
    EXPECT_GT(split->subviews()[0]->frame().width, middle + 20);
}

TEST_P(HeldButton, KeepsTheSelectionOfAText)
{
    auto const text = make<NSTextView>(Rect { 20, 20, 300, 100 });
    text->setString("Some words that are selected");
    expectIsLetGo(*text, { 10, 95 }, { 80, 95 });
}

TEST_P(HeldButton, ClicksNoHeaderAndMovesNoColumn)
{
    class Host : public NSObject {
    public:
        void didClickTableColumn(NSTableView&, NSTableColumn&) { ++clicks; }
        int clicks { 0 };
    };
    auto const host = make<Host>();
    auto const view = table(make<NSTableView>(Rect { 0, 0, 300, 100 }));
    view->setDelegate(host);
    Ref<NSTableHeaderView> const header(view->tableHeaderView());
    auto const first = header->headerRectOfColumn(0);
    expectIsLetGo(*header, { first.midX(), first.midY() });
    EXPECT_EQ(host->clicks, 0);
}

TEST_P(HeldButton, MovesNoColumn)
{
    auto const view = table(make<NSTableView>(Rect { 0, 0, 300, 100 }));
    Ref<NSTableHeaderView> const header(view->tableHeaderView());
    auto const first = header->headerRectOfColumn(0);
    auto const last = header->headerRectOfColumn(2);
    expectIsLetGo(*header, { first.midX(), first.midY() }, { last.midX() + 20, first.midY() });
    EXPECT_EQ(view->tableColumns()[0]->identifier(), ObjectValue("a"));
}

TEST_P(HeldButton, EndsSelectingRows)
{
    class Rows : public NSObject {
    public:
        long numberOfRowsInTableView(NSTableView&) { return 3; }
        ObjectValue objectValueForTableColumn(NSTableView&, NSTableColumn&, long) { return "x"; }
    };
    auto const rows = make<Rows>();
    auto const view = table(make<NSTableView>(Rect { 20, 20, 200, 100 }));
    view->setDataSource(rows);
    expectIsLetGo(*view, { 30, view->rectOfRow(1).midY() });
    EXPECT_EQ(view->selectedRow(), 1);
}

TEST_P(HeldButton, ExpandsNoItem)
{
    class Folder : public NSObject {
    public:
        long numberOfChildrenOfItem(NSOutlineView&, NSObject* item) { return item ? 0 : 1; }
        Ref<NSObject> child(NSOutlineView&, long, NSObject*) { return inside; }
        bool isItemExpandable(NSOutlineView&, NSObject*) { return true; }
        ObjectValue objectValueForTableColumn(NSOutlineView&, NSTableColumn&, NSObject*) { return "x"; }
        Ref<NSObject> inside { make<NSView>() };
    };
    auto const folder = make<Folder>();
    auto const outline = make<NSOutlineView>(Rect { 20, 20, 200, 100 });
    table(outline);
    outline->setOutlineTableColumn(outline->tableColumns()[0].get());
    outline->setDataSource(folder);
    auto const triangle = outline->frameOfOutlineCellAtRow(0);
    expectIsLetGo(*outline, { triangle.midX(), triangle.midY() });
    EXPECT_FALSE(outline->isItemExpanded(folder->inside.get()));
}

TEST_P(HeldButton, ChoosesFromNoMenu)
{
    auto const popUp = make<NSPopUpButton>(Rect { 20, 20, 100, 26 }, false);
    popUp->addItemsWithTitles({ "One", "Two" });
    expectIsLetGo(*popUp, { 50, 13 });
    EXPECT_EQ(popUp->indexOfSelectedItem(), 0);
}

TEST_P(HeldButton, ChoosesFromNoList)
{
    auto const combo = make<NSComboBox>(Rect { 20, 20, 100, 22 });
    combo->addItemsWithObjectValues({ "One", "Two" });
    expectIsLetGo(*combo, { 90, 11 });
    EXPECT_EQ(combo->indexOfSelectedItem(), -1);
}

TEST_P(HeldButton, DropsNothing)
{
    class Source : public NSView {
    public:
        using NSView::init;
        void mouseDragged(NSEvent& event) override
        {
            auto& pasteboard = NSPasteboard::pasteboardWithName(NSDragPboard);
            pasteboard.declareTypes({ NSStringPboardType });
            dragImage(nullptr, {}, {}, event, pasteboard, *this, false);
        }
        void draggedImage(NSImage*, Point, unsigned operation) override { ended = operation; }
        std::optional<unsigned> ended;
    };
    class Target : public NSView {
    public:
        using NSView::init;
        unsigned draggingEntered(NSDraggingInfo&) override { return NSDragOperationCopy; }
        bool performDragOperation(NSDraggingInfo&) override { return isDropped = true; }
        bool isDropped { false };
    };
    auto const source = make<Source>(Rect { 20, 20, 50, 50 });
    auto const target = make<Target>(Rect { 0, 0, 200, 200 });
    target->registerForDraggedTypes({ NSStringPboardType });
    other->contentView()->addSubview(*target);
    window->contentView()->addSubview(*source);
    Point const over = source->convertPointFromView(window->convertScreenToBase(centerOnScreen(*target)), nullptr);
    expectIsLetGo(*source, { 10, 10 }, over);
    EXPECT_EQ(source->ended, static_cast<unsigned>(NSDragOperationNone));
    EXPECT_FALSE(target->isDropped);
}

TEST_F(HeadlessTest, AViewIsToldOfTheReleaseWhereItsWindowIsMiniaturized)
{
    class Pressed : public NSView {
    public:
        using NSView::init;
        void mouseDown(NSEvent&) override { isDown = true; }
        void mouseUp(NSEvent&) override { isDown = false; }
        bool isDown { false };
    };
    auto const window = showWindow();
    auto const view = make<Pressed>(Rect { 20, 20, 50, 50 });
    window->contentView()->addSubview(*view);
    person().press(centerOnScreen(*view));
    pump();
    EXPECT_TRUE(view->isDown);
    window->miniaturize(nullptr);
    pump();
    EXPECT_FALSE(view->isDown);
}

TEST_F(HeadlessTest, AClickThatComesAfterItsWindowWasMiniaturizedDoesNotMakeItKey)
{
    auto const other = showWindow({ 700, 200, 200, 200 });
    auto const window = showWindow();
    person().click(centerOnScreen(*window->contentView()));
    // Entered, but the application has not looked at it yet.
    NSRunLoop::currentRunLoop().runOnce(NSDefaultRunLoopMode, NSDate::distantPast());
    window->miniaturize(nullptr);
    pump();
    EXPECT_TRUE(other->isKeyWindow());
    EXPECT_FALSE(window->isVisible());
}

}
}
