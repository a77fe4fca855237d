#include <examples/browser/BrowserController.h>
#include <examples/browser/ListView.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/pixels.h>

#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace browser {
namespace {

using namespace plix;

class BrowserTest : public HeadlessTest {
protected:
    void makeApplication() override { PLIXApplication::sharedApplication(); }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        makeFolder("alpha");
        makeFolder("beta");
        writeFile("alpha/inside.txt", "1234");
        for (int number = 1; number <= 60; ++number)
            writeFile("file " + std::to_string(number) + ".txt", std::string(static_cast<std::size_t>(number) * 100, 'x'));
        EXPECT_EQ(::symlink("nowhere", (folder / "lost").c_str()), 0);
    }

    void makeFolder(std::string const& name) { ::mkdir((folder / name).c_str(), 0755); }
    void writeFile(std::string const& name, std::string_view contents) { std::ofstream(folder / name) << contents; }

    void show(std::string const& path)
    {
        controller = make<BrowserController>(path);
        controller->window().setReleasedWhenClosed(false);
        controller->window().makeKeyAndOrderFront(nullptr);
        pump();
    }
    void show() { show(folder.path()); }
    void close()
    {
        if (controller)
            controller->window().close();
        controller = nullptr;
    }
    ListView& list() { return controller->list(); }
    std::string selectedName()
    {
        auto const row = list().selectedRow();
        return row ? controller->listing().entries().at(static_cast<std::size_t>(*row)).name : "";
    }
    Point rowPoint(long row) { return onScreen(list(), { 60, list().plan().rowRect(row).midY() }); }
    float scrolledTo() { return controller->scrollView().contentView()->bounds().y; }

    TestFolder folder;
    Ref<BrowserController> controller;
};

TEST_F(BrowserTest, ListsTheFolder)
{
    show();
    EXPECT_EQ(list().plan().rowCount, 63);
    EXPECT_EQ(controller->status(), "63 items");
    EXPECT_EQ(list().message(), "");
    EXPECT_EQ(controller->window().firstResponder(), &list());
}

TEST_F(BrowserTest, SelectsByClickAndByKeys)
{
    show();
    person().click(rowPoint(3));
    pump();
    EXPECT_EQ(selectedName(), "file 2.txt");
    struct Row {
        char32_t key;
        char const* name;
    };
    Row const rows[] = {
        { NSDownArrowFunctionKey, "file 3.txt" },
        { NSUpArrowFunctionKey, "file 2.txt" },
        { NSHomeFunctionKey, "alpha" },
        { NSUpArrowFunctionKey, "alpha" },
        { NSEndFunctionKey, "lost" },
        { NSDownArrowFunctionKey, "lost" },
    };
    for (auto const& row : rows) {
        person().key(row.key);
        pump();
        EXPECT_EQ(selectedName(), row.name) << "row " << &row - rows;
    }
    person().key(NSHomeFunctionKey);
    person().key(NSPageDownFunctionKey);
    pump();
    EXPECT_EQ(list().selectedRow(), list().plan().rowsOnPage(list().visibleRect().height));
    person().key(NSPageUpFunctionKey);
    pump();
    EXPECT_EQ(selectedName(), "alpha");
}

TEST_F(BrowserTest, KeepsTheSelectionInView)
{
    show();
    person().key(NSEndFunctionKey);
    pump();
    EXPECT_TRUE(NSContainsRect(list().visibleRect(), list().plan().rowRect(62)));
    person().key(NSHomeFunctionKey);
    pump();
    EXPECT_EQ(scrolledTo(), 0);
}

TEST_F(BrowserTest, FollowsADragOverTheRows)
{
    show();
    Point const below = onScreen(*controller->window().contentView(), { 60, -30 });
    std::optional<long> dragged;
    float scrolledOnce = 0;
    person().press(rowPoint(2));
    person().dragTo(rowPoint(5));
    person().then([&] { dragged = list().selectedRow(); });
    person().dragTo(below);
    person().then([&] { scrolledOnce = scrolledTo(); });
    machine().headlessEvents().postAfter(1, [&] { person().release(below); }); // the pointer rests
    pass(2);
    EXPECT_EQ(dragged, 5);
    EXPECT_GT(scrolledOnce, 0);
    EXPECT_GT(scrolledTo(), 2 * scrolledOnce);
    EXPECT_TRUE(NSContainsRect(list().visibleRect(), list().plan().rowRect(*list().selectedRow())));
}

TEST_F(BrowserTest, ScrollsByWheelAndScroller)
{
    show();
    person().scroll(rowPoint(3), 0, -2);
    pump();
    EXPECT_EQ(scrolledTo(), 44);
    auto& scroller = *controller->scrollView().verticalScroller();
    EXPECT_FALSE(scroller.isHidden());
    Rect const knob = scroller.rectForPart(NSScrollerKnob);
    person().drag(onScreen(scroller, { 7, knob.midY() }), onScreen(scroller, { 7, scroller.bounds().height }));
    pump();
    EXPECT_EQ(scrolledTo(), list().bounds().height - controller->scrollView().contentSize().height);
    EXPECT_EQ(list().selectedRow(), 0); // which is out of sight
}

TEST_F(BrowserTest, FindsNamesByTheirFirstLetters)
{
    show();
    person().type("b");
    pump();
    EXPECT_EQ(selectedName(), "beta");
    pass(1.5);
    person().type("FILE 31");
    pump();
    EXPECT_EQ(selectedName(), "file 31.txt");
    pass(1.5);
    person().type("zz");
    pump();
    EXPECT_EQ(selectedName(), "file 31.txt");
}

TEST_F(BrowserTest, OpensFoldersAndComesBackToThem)
{
    show();
    person().type("b");
    person().key("\r");
    pump();
    EXPECT_EQ(controller->listing().path(), folder / "beta");
    EXPECT_EQ(list().message(), "This folder is empty.");
    EXPECT_EQ(controller->status(), "Empty folder");
    person().key(NSDeleteCharacter);
    pump();
    EXPECT_EQ(controller->listing().path(), folder.path());
    EXPECT_EQ(selectedName(), "beta");
    EXPECT_EQ(list().message(), "");

    person().click(rowPoint(0), { .count = 2 });
    pump();
    EXPECT_EQ(controller->window().title(), "alpha");
    EXPECT_EQ(controller->status(), "1 item");
    person().key(NSUpArrowFunctionKey, HostModifierAlternate);
    pump();
    EXPECT_EQ(selectedName(), "alpha");
    person().key(NSRightArrowFunctionKey);
    person().key(NSLeftArrowFunctionKey);
    pump();
    EXPECT_EQ(selectedName(), "alpha");
}

TEST_F(BrowserTest, SaysWhatCannotBeOpenedUntilSomethingElseIsSelected)
{
    show();
    person().key(NSEndFunctionKey);
    person().key("\r");
    pump();
    EXPECT_EQ(controller->status(), "“lost” is a link that leads nowhere.");
    person().key(NSUpArrowFunctionKey);
    pump();
    EXPECT_EQ(controller->status(), "63 items");
    person().key("\r");
    pump();
    EXPECT_EQ(controller->status(), "“file 60.txt” is not a folder.");
    EXPECT_EQ(controller->listing().path(), folder.path());
}

TEST_F(BrowserTest, ShowsOneClearLineForAFolderThatIsNone)
{
    struct Row {
        char const* name;
        char const* line;
    };
    Row const rows[] = {
        { "file 1.txt", "“file 1.txt” is not a folder." },
        { "missing", "“missing” does not exist." },
        { "lost", "“lost” is a link that leads nowhere." },
    };
    for (auto const& row : rows) {
        show(folder / row.name);
        EXPECT_EQ(list().message(), row.line);
        EXPECT_EQ(controller->status(), row.line);
        EXPECT_EQ(list().plan().rowCount, 0);
        for (char32_t key : { NSDownArrowFunctionKey, NSPageDownFunctionKey, NSEndFunctionKey })
            person().key(key);
        person().key("\r");
        person().type("x");
        pump();
        person().key(NSDeleteCharacter);
        pump();
        EXPECT_EQ(controller->listing().path(), folder.path());
        EXPECT_EQ(list().message(), "");
        close();
    }
}

TEST_F(BrowserTest, SelectsNothingInNewEntries)
{
    show();
    list().selectRow(3);
    auto const& entries = controller->listing().entries();
    list().setEntries(&entries);
    EXPECT_EQ(list().selectedRow(), std::nullopt);
    list().selectRow(static_cast<long>(entries.size()));
    EXPECT_EQ(list().selectedRow(), std::nullopt);
}

TEST_F(BrowserTest, StaysAtTheRoot)
{
    show("/");
    person().key(NSDeleteCharacter);
    pump();
    EXPECT_EQ(controller->listing().path(), "/");
    EXPECT_EQ(controller->window().title(), "/");
}

TEST_F(BrowserTest, StaysUsableWhileItReadsALargeFolder)
{
    makeFolder("large");
    for (int number = 0; number < 2300; ++number)
        ASSERT_EQ(::symlink("x", (folder / "large/" + std::to_string(number)).c_str()), 0);
    controller = make<BrowserController>(folder / "large");
    controller->window().setReleasedWhenClosed(false);
    controller->window().makeKeyAndOrderFront(nullptr);
    EXPECT_EQ(controller->status(), "Reading … 1000 items");
    EXPECT_EQ(list().message(), "Reading the folder …");
    person().key(NSDownArrowFunctionKey);
    pump();
    pass(0.1);
    EXPECT_EQ(controller->status(), "2300 items");
    EXPECT_EQ(list().plan().rowCount, 2300);
    EXPECT_EQ(list().message(), "");
    // Another folder is opened while one is read.
    controller->open(folder / "large");
    controller->open(folder / "large");
    pass(0.1);
    list().selectRow(5);
    pass(0.1);
    EXPECT_EQ(list().selectedRow(), 5); // it is not read once more
    controller->open(folder / "large");
    controller->open(folder.path());
    pass(0.1);
    EXPECT_EQ(controller->status(), "64 items");
}

TEST_F(BrowserTest, DrawsTheRowsWhoseSelectionChangesAndNoOthers)
{
    show();
    click(list(), { 60, list().plan().rowRect(2).midY() });
    auto const before = controller->window().snapshot();
    click(list(), { 60, list().plan().rowRect(3).midY() });
    auto const after = controller->window().snapshot();
    Rect const changed = list().convertRectToView(NSUnionRect(list().plan().rowRect(2), list().plan().rowRect(3)), nullptr);
    float const height = controller->window().contentView()->bounds().height;
    int const top = static_cast<int>(height - changed.maxY());
    int differing = 0;
    for (int y = 50; y < 430; ++y) {
        bool const isInRows = y >= top && y < top + static_cast<int>(changed.height);
        for (int x = 0; x < 600; ++x) {
            bool const differs = Pixels(before).at(x, y) != Pixels(after).at(x, y);
            differing += differs;
            ASSERT_TRUE(isInRows || !differs) << x << ", " << y;
        }
    }
    EXPECT_GT(differing, 10000);
}

TEST_F(BrowserTest, CountsUserInputAndTellsTheTimeOfTheLastEvent)
{
    show();
    EXPECT_EQ(controller->inputStatus(), "0 inputs · no event yet");
    person().click(rowPoint(3)); // the list takes the release itself
    person().key("b"); // the key's release counts for nothing
    pump();
    app().updateWindows();
    EXPECT_TRUE(controller->inputStatus().starts_with("2 inputs · last event at ")) << controller->inputStatus();
    auto const& hub = static_cast<PLIXApplication&>(*NSApp);
    EXPECT_NEAR(hub.lastEventTimestamp(), NSDate::date().timeIntervalSince1970(), 1);
}

TEST_F(BrowserTest, FollowsTheWindowsSize)
{
    show();
    controller->window().setContentSize({ 320, 240 });
    pump();
    EXPECT_EQ(controller->scrollView().frame(), (Rect { 0, 24, 320, 168 }));
    EXPECT_EQ(list().frame().width, 305);
    controller->window().setContentSize({ 900, 2000 });
    pump();
    EXPECT_EQ(list().frame().width, 900); // all fits, the scroller is gone
    EXPECT_TRUE(controller->scrollView().verticalScroller()->isHidden());
}

TEST_F(BrowserTest, PalesTheSelectionInAWindowWithoutTheKeyboard)
{
    show();
    person().click(rowPoint(3));
    pump();
    Rect const row = list().convertRectToView(list().plan().rowRect(3), nullptr);
    int const y = static_cast<int>(controller->window().contentView()->bounds().height - row.midY());
    auto const active = Pixels(controller->window().snapshot()).colorAt(2, y);
    person().focusNothing();
    pass(0.1);
    auto const inactive = Pixels(controller->window().snapshot()).colorAt(2, y);
    EXPECT_GT(active.blue, active.red + 0.3F);
    EXPECT_NEAR(inactive.blue, inactive.red, 0.02F);
}

}
}
