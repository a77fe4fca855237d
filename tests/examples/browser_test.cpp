#include <examples/browser/BrowserController.h>
#include <examples/browser/CSVTable.h>
#include <examples/browser/FactsView.h>
#include <examples/browser/FilesTable.h>
#include <examples/browser/FolderTree.h>
#include <examples/browser/InfoPanel.h>
#include <examples/browser/JobController.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSMenu.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSPanel.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSPopUpButton.h>
#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableHeaderView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>
#include <plix/windows/PLIXProgressWindow.h>

#include <plix/platform/host/headless/HeadlessAudio.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/pixels.h>

#include <fstream>

#include <fcntl.h>
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
    FilesTable& files() { return controller->files(); }
    PLIXTableView& table() { return files().table(); }
    PLIXOutlineView& outline() { return controller->tree().outline(); }
    std::string selectedName()
    {
        long const row = table().selectedRow();
        return row >= 0 ? files().entryAt(row).name : "";
    }
    std::string message() { return table().emptyString().value_or(""); }
    Point rowPoint(long row) { return onScreen(table(), { 60, table().rectOfRow(row).midY() }); }
    float scrolledTo() { return files().scrollView().contentView()->bounds().y; }
    bool exists(std::string const& name) { return ::access((folder / name).c_str(), F_OK) == 0; }

    void waitForJobs()
    {
        EXPECT_TRUE(NSRunLoop::currentRunLoop().runUntil([this] { return controller->jobs().empty(); }));
        pump();
    }

    TestFolder folder;
    Ref<BrowserController> controller;
};

TEST_F(BrowserTest, ListsTheFolder)
{
    show();
    EXPECT_EQ(table().numberOfRows(), 63);
    EXPECT_EQ(controller->status(), "63 items");
    EXPECT_EQ(message(), "");
    EXPECT_EQ(controller->window().firstResponder(), &table());
    EXPECT_EQ(selectedName(), "alpha");
    EXPECT_EQ(controller->tree().selectedPath(), folder.path());
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
    EXPECT_TRUE(NSContainsRect(table().visibleRect(), table().rectOfRow(62)));
}

TEST_F(BrowserTest, ScrollsByWheelAndScroller)
{
    show();
    person().scroll(rowPoint(3), 0, -2);
    pump();
    EXPECT_GT(scrolledTo(), 0);
    auto& scroller = *files().scrollView().verticalScroller();
    EXPECT_FALSE(scroller.isHidden());
    Rect const knob = scroller.rectForPart(NSScrollerKnob);
    person().drag(onScreen(scroller, { 7, knob.midY() }), onScreen(scroller, { 7, scroller.bounds().height }));
    pump();
    EXPECT_TRUE(NSContainsRect(table().visibleRect(), table().rectOfRow(62)));
    EXPECT_EQ(selectedName(), "alpha"); // which is out of sight
}

TEST_F(BrowserTest, FindsNamesByTheirFirstLetters)
{
    show();
    person().type("b");
    pump();
    EXPECT_EQ(selectedName(), "beta");
    pass(2);
    person().type("FILE 31");
    pump();
    EXPECT_EQ(selectedName(), "file 31.txt");
    pass(2);
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
    EXPECT_EQ(message(), "This folder is empty.");
    EXPECT_EQ(controller->status(), "Empty folder");
    EXPECT_EQ(controller->tree().selectedPath(), folder / "beta");
    person().key(NSUpArrowFunctionKey, HostModifierAlternate);
    pump();
    EXPECT_EQ(controller->listing().path(), folder.path());
    EXPECT_EQ(selectedName(), "beta");
    EXPECT_EQ(message(), "");

    person().click(rowPoint(0), { .count = 2 });
    pump();
    EXPECT_EQ(controller->window().title(), "alpha");
    EXPECT_EQ(controller->status(), "1 item");
    person().key(NSUpArrowFunctionKey, HostModifierAlternate);
    pump();
    EXPECT_EQ(selectedName(), "alpha");
}

TEST_F(BrowserTest, TheTreeChoosesTheFolder)
{
    show();
    long const row = outline().selectedRow();
    ASSERT_GE(row, 0);
    person().click(onScreen(outline(), { outline().frameOfCellAtColumn(0, row).x + 30, outline().rectOfRow(row).midY() }));
    person().key(NSRightArrowFunctionKey); // expands
    person().key(NSDownArrowFunctionKey);
    pump();
    EXPECT_EQ(controller->listing().path(), folder / "alpha");
    EXPECT_EQ(controller->status(), "1 item");
    person().key(NSDownArrowFunctionKey);
    pump();
    EXPECT_EQ(message(), "This folder is empty.");
    EXPECT_EQ(controller->window().firstResponder(), &outline());
}

TEST_F(BrowserTest, HeadersSort)
{
    show();
    auto const clickHeader = [&](char const* column) {
        auto& header = *table().tableHeaderView();
        auto const rect = header.headerRectOfColumn(table().columnWithIdentifier(column));
        person().click(onScreen(header, { rect.midX(), rect.midY() }));
        pump();
    };
    clickHeader("size");
    EXPECT_EQ(files().sortKey(), SortKey::size);
    EXPECT_EQ(files().entryAt(0).name, "alpha"); // folders first
    EXPECT_EQ(files().entryAt(2).name, "lost");
    EXPECT_EQ(files().entryAt(62).name, "file 60.txt");
    EXPECT_EQ(selectedName(), "alpha");
    clickHeader("size");
    EXPECT_TRUE(files().isDescending());
    EXPECT_EQ(files().entryAt(2).name, "file 60.txt");
    clickHeader("name");
    EXPECT_EQ(files().entryAt(2).name, "file 1.txt");
}

TEST_F(BrowserTest, ColumnsAreHiddenAndShown)
{
    show();
    table().hideColumnWithIdentifier("kind");
    pump();
    EXPECT_EQ(table().numberOfColumns(), 3);
    table().showColumnWithIdentifier("kind");
    EXPECT_EQ(table().numberOfColumns(), 4);
    EXPECT_TRUE(table().tableHeaderView()->offersColumnMenu());
}

TEST_F(BrowserTest, TheHighlightStyleIsChosen)
{
    show();
    for (long style = 0; style < 3; ++style) {
        controller->stylePopUp().selectItemAtIndex(style);
        controller->stylePopUp().cell()->sendAction();
        pump();
        EXPECT_EQ(table().highlightStyle(), static_cast<std::uint32_t>(style));
        EXPECT_EQ(outline().highlightStyle(), static_cast<std::uint32_t>(style));
    }
}

TEST_F(BrowserTest, DeleteAsksFirst)
{
    show();
    person().type("file 7.");
    person().key(NSDeleteCharacter);
    bool wasAsked = false;
    machine().headlessEvents().postAfter(1, [&] {
        wasAsked = controller->window().attachedSheet() != nullptr;
        EXPECT_TRUE(exists("file 7.txt"));
        person().key(NSEscapeCharacter);
    });
    pump();
    EXPECT_TRUE(wasAsked);
    EXPECT_EQ(controller->window().attachedSheet(), nullptr);
    EXPECT_TRUE(exists("file 7.txt"));
    person().key(NSDeleteCharacter);
    person().key("\r");
    pump();
    EXPECT_FALSE(exists("file 7.txt"));
    EXPECT_EQ(controller->status(), "62 items");
    EXPECT_EQ(files().rowOfName("file 7.txt"), -1);
}

TEST_F(BrowserTest, AFileIsMovedByDraggingItOntoAFolder)
{
    show();
    person().drag(rowPoint(2), rowPoint(1));
    pump();
    EXPECT_TRUE(exists("beta/file 1.txt"));
    EXPECT_FALSE(exists("file 1.txt"));
    EXPECT_EQ(controller->status(), "62 items");
}

TEST_F(BrowserTest, AFolderIsMovedOntoOneOfTheTree)
{
    show();
    controller->tree().showPath(folder / "beta");
    pump();
    long const row = outline().selectedRow();
    // Not at the edge, where a drag scrolls.
    outline().scrollPoint({ 0, outline().rectOfRow(row).y - 120 });
    pump();
    Point const place = onScreen(outline(), { outline().frameOfCellAtColumn(0, row).x + 20, outline().rectOfRow(row).midY() });
    person().drag(rowPoint(0), place);
    pump();
    EXPECT_TRUE(exists("beta/alpha/inside.txt"));
    EXPECT_FALSE(exists("alpha"));
}

TEST_F(BrowserTest, NothingIsMovedOverSomethingElse)
{
    writeFile("beta/file 1.txt", "other");
    show();
    person().drag(rowPoint(2), rowPoint(1));
    pump();
    EXPECT_TRUE(exists("file 1.txt"));
    EXPECT_EQ(controller->status(), "There is something called “file 1.txt” in “beta” already.");
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
        EXPECT_EQ(message(), row.line);
        EXPECT_EQ(controller->status(), row.line);
        EXPECT_EQ(table().numberOfRows(), 0);
        for (char32_t const key :
            std::initializer_list<char32_t> { NSDownArrowFunctionKey, NSPageDownFunctionKey, NSEndFunctionKey, NSDeleteCharacter })
            person().key(key);
        person().key("\r");
        person().type("x");
        pump();
        person().key(NSUpArrowFunctionKey, HostModifierAlternate);
        pump();
        EXPECT_EQ(controller->listing().path(), folder.path());
        EXPECT_EQ(message(), "");
        close();
    }
}

TEST_F(BrowserTest, StaysAtTheRoot)
{
    show("/");
    person().key(NSUpArrowFunctionKey, HostModifierAlternate);
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
    EXPECT_EQ(message(), "Reading the folder …");
    person().key(NSDownArrowFunctionKey);
    pump();
    pass(0.1);
    EXPECT_EQ(controller->status(), "2300 items");
    EXPECT_EQ(table().numberOfRows(), 2300);
    EXPECT_EQ(message(), "");
    // Another folder is opened while one is read.
    controller->open(folder / "large");
    controller->open(folder / "large");
    pass(0.1);
    table().selectRow(5, false);
    pass(0.1);
    EXPECT_EQ(table().selectedRow(), 5); // it is not read once more
    controller->open(folder / "large");
    controller->open(folder.path());
    pass(0.1);
    EXPECT_EQ(controller->status(), "64 items");
}

TEST_F(BrowserTest, CountsUserInputAndTellsTheTimeOfTheLastEvent)
{
    show();
    EXPECT_EQ(controller->inputStatus(), "0 inputs · no event yet");
    person().click(rowPoint(3)); // the table takes the release itself
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
    controller->window().setContentSize({ 600, 300 });
    pump();
    EXPECT_EQ(controller->tree().scrollView().frame().height, 228);
    EXPECT_EQ(files().scrollView().frame().maxX(), 600);
    controller->window().setContentSize({ 900, 2000 });
    pump();
    EXPECT_TRUE(files().scrollView().verticalScroller()->isHidden());
}

TEST_F(BrowserTest, PalesTheSelectionInAWindowWithoutTheKeyboard)
{
    show();
    person().click(rowPoint(3));
    pump();
    Rect const row = table().convertRectToView(table().rectOfRow(3), nullptr);
    int const x = static_cast<int>(row.x) + 1;
    int const y = static_cast<int>(controller->window().contentView()->bounds().height - row.midY());
    auto const active = Pixels(controller->window().snapshot()).colorAt(x, y);
    person().focusNothing();
    pass(0.1);
    auto const inactive = Pixels(controller->window().snapshot()).colorAt(x, y);
    EXPECT_GT(active.blue, active.red + 0.3F);
    EXPECT_NEAR(inactive.blue, inactive.red, 0.02F);
}

// MARK: copying

TEST_F(BrowserTest, CopiesWhatWasCopiedUnderAFreeName)
{
    show();
    files().selectName("file 2.txt");
    person().key('c', NSControlKeyMask);
    pump();
    EXPECT_EQ(NSPasteboard::generalPasteboard().stringForType(NSStringPboardType), folder / "file 2.txt");
    person().key('v', NSControlKeyMask);
    pump();
    waitForJobs();
    EXPECT_TRUE(exists("file 2 1.txt"));
    EXPECT_EQ(selectedName(), "file 2 1.txt");
    EXPECT_EQ(controller->status(), "64 items");
}

TEST_F(BrowserTest, CopiesFoldersIntoOthers)
{
    show();
    files().selectName("alpha");
    person().key('c', NSControlKeyMask);
    pump();
    controller->open(folder / "beta");
    pump();
    person().key('v', NSControlKeyMask);
    pump();
    waitForJobs();
    EXPECT_EQ(folder.read("beta/alpha/inside.txt"), "1234");
    EXPECT_EQ(selectedName(), "alpha");
}

TEST_F(BrowserTest, SaysWhyACopyFailed)
{
    show();
    files().selectName("alpha");
    person().key('c', NSControlKeyMask);
    pump();
    controller->open(folder / "alpha");
    pump();
    person().key('v', NSControlKeyMask);
    pump();
    waitForJobs();
    EXPECT_EQ(controller->status(), "“alpha” can't be copied into itself.");
    EXPECT_EQ(table().numberOfRows(), 1);
}

TEST_F(BrowserTest, LeavesAnotherFolderAloneWhenACopyIsMade)
{
    show();
    files().selectName("file 9.txt");
    person().key('c', NSControlKeyMask);
    person().key('v', NSControlKeyMask);
    pump();
    controller->open(folder / "alpha");
    pump();
    waitForJobs();
    EXPECT_TRUE(exists("file 9 1.txt"));
    EXPECT_EQ(selectedName(), "inside.txt");
}

TEST_F(BrowserTest, BeepsWhereThereIsNothingToCopyOrPaste)
{
    show();
    NSPasteboard::generalPasteboard().declareTypes({});
    long const before = machine().headlessAudio().beepCount();
    table().deselectAll(nullptr);
    person().key('c', NSControlKeyMask);
    person().key('v', NSControlKeyMask);
    pump();
    EXPECT_EQ(machine().headlessAudio().beepCount(), before + 2);
}

// MARK: info

TEST(TopLeftBeside, IsOnTheSideThatHasRoomAndOnTheScreen)
{
    Rect const screen { 0, 40, 1400, 860 };
    Size const panel { 400, 300 };
    struct Row {
        Rect window;
        Point place;
    };
    Row const rows[] {
        { { 100, 200, 800, 500 }, { 908, 700 } },
        { { 500, 200, 800, 500 }, { 92, 700 } },
        { { 300, 200, 800, 500 }, { 1000, 700 } },
        { { 100, 50, 800, 200 }, { 908, 340 } },
        { { 100, 700, 800, 300 }, { 908, 900 } },
        { { -900, 200, 800, 500 }, { 0, 700 } },
    };
    for (auto const& row : rows)
        EXPECT_EQ(topLeftBeside(row.window, panel, screen), row.place) << row.window.x;
}

TEST_F(BrowserTest, TellsWhatIsKnownOfTheSelectedFile)
{
    show();
    EXPECT_FALSE(controller->info());
    files().selectName("file 20.txt");
    person().key('i', NSControlKeyMask);
    pump();
    auto& info = *controller->info();
    EXPECT_TRUE(info.panel().isVisible());
    EXPECT_TRUE(controller->window().isKeyWindow());
    EXPECT_EQ(info.facts().facts()[1], (FileFact { "Size", "2.0KB (2,000 bytes)" }));
    EXPECT_FALSE(info.showsPreview());
    person().key(NSUpArrowFunctionKey);
    pump();
    EXPECT_EQ(info.facts().facts()[1], (FileFact { "Size", "1.9KB (1,900 bytes)" }));
    table().deselectAll(nullptr);
    EXPECT_TRUE(info.facts().facts().empty());
}

TEST_F(BrowserTest, CountsWhatIsInTheSelectedFolder)
{
    writeFile("alpha/more", std::string(2000, 'x'));
    show();
    person().key('i', NSControlKeyMask);
    pump();
    auto& info = *controller->info();
    EXPECT_EQ(info.facts().facts().back().label, "Contents");
    NSRunLoop::currentRunLoop().runUntil([&] { return !info.isCounting(); });
    EXPECT_EQ(info.facts().facts().back(), (FileFact { "Contents", "2 items, 2.0KB (2,004 bytes)" }));
    files().selectName("beta");
    NSRunLoop::currentRunLoop().runUntil([&] { return !info.isCounting(); });
    EXPECT_EQ(info.facts().facts().back(), (FileFact { "Contents", "Nothing" }));
    files().selectName("alpha");
    info.panel().close();
    EXPECT_FALSE(info.isCounting());
}

TEST_F(BrowserTest, CountsWhatIsSelectedWhenAsked)
{
    writeFile("alpha/more", std::string(2000, 'x'));
    show();
    person().key('t', NSControlKeyMask);
    pump();
    EXPECT_EQ(controller->jobs().size(), 1U);
    waitForJobs();
    // The folder itself, too.
    EXPECT_EQ(controller->status(), "In “alpha”: 3 items, 2.0KB");
    person().key(NSDownArrowFunctionKey, NSShiftKeyMask);
    pump();
    EXPECT_EQ(controller->status(), "63 items");
    table().menu()->itemWithTitle("Total Size")->sendAction();
    waitForJobs();
    EXPECT_EQ(controller->status(), "In 2 selected: 4 items, 2.0KB");
}

TEST_F(BrowserTest, TheMenuTellsTheKeys)
{
    show();
    for (auto const& [title, key] : { std::pair { "Info", "i" }, { "Total Size", "t" }, { "Copy", "c" }, { "Paste", "v" } }) {
        auto const* item = table().menu()->itemWithTitle(title);
        ASSERT_TRUE(item) << title;
        EXPECT_EQ(item->keyEquivalent(), key);
        EXPECT_EQ(item->keyEquivalentModifierMask(), NSCommandKeyMask) << title;
    }
}

TEST_F(BrowserTest, ALongCountShowsItsProgressAndIsCanceled)
{
    show();
    table().menu()->itemWithTitle("Total Size")->sendAction();
    auto const job = controller->jobs().back();
    job->showWindow();
    ASSERT_TRUE(job->window());
    EXPECT_EQ(job->window()->titleField()->stringValue(), "Counting “alpha”");
    // However fast it is, its end has not been told yet.
    job->window()->cancelButton()->performClick(nullptr);
    waitForJobs();
    EXPECT_EQ(job->window(), nullptr);
    EXPECT_EQ(controller->status(), "Counting “alpha” was canceled.");
}

TEST_F(BrowserTest, BeepsWhereThereIsNothingToCount)
{
    makeFolder("beta/none");
    show(folder / "beta/none");
    long const before = machine().headlessAudio().beepCount();
    person().key('t', NSControlKeyMask);
    pump();
    EXPECT_EQ(machine().headlessAudio().beepCount(), before + 1);
    EXPECT_TRUE(controller->jobs().empty());
}

TEST_F(BrowserTest, ShowsTheFirstLinesOfTables)
{
    writeFile("list.csv", "name,size\none,1\ntwo,22\n");
    show();
    files().selectName("list.csv");
    person().key('i', NSControlKeyMask);
    pump();
    auto& info = *controller->info();
    EXPECT_TRUE(info.showsPreview());
    auto& preview = info.preview().table();
    ASSERT_EQ(preview.numberOfColumns(), 2);
    EXPECT_EQ(preview.numberOfRows(), 2);
    EXPECT_EQ(preview.tableColumns()[1]->headerCell()->stringValue(), "size");
    float const top = info.panel().frame().maxY();
    float const height = info.panel().frame().height;
    files().selectName("file 1.txt");
    EXPECT_FALSE(info.showsPreview());
    EXPECT_LT(info.panel().frame().height, height);
    EXPECT_FLOAT_EQ(info.panel().frame().maxY(), top);
}

TEST_F(BrowserTest, SaysWhereAVideoHasNoHeaders)
{
    writeFile("film.mp4", "no film");
    ::mkfifo((folder / "pipe.h264").c_str(), 0600);
    show();
    files().selectName("film.mp4");
    person().key('i', NSControlKeyMask);
    pump();
    auto& info = *controller->info();
    EXPECT_EQ(info.facts().facts().back(), (FileFact { "Video", "No H.264 headers were found." }));
    files().selectName("pipe.h264");
    EXPECT_EQ(info.facts().facts().back().label, "Modified");
}

TEST_F(BrowserTest, ClosesItsInfoPanelWithItself)
{
    show();
    person().key('i', NSControlKeyMask);
    pump();
    auto const info = Ref<InfoPanel>(controller->info());
    controller->window().close();
    EXPECT_FALSE(info->panel().isVisible());
}

// MARK: dates

class BrowserDatesTest : public BrowserTest {
protected:
    void SetUp() override
    {
        BrowserTest::SetUp();
        // Of the files three are of March 2027, on the 1st, 2nd and 3rd.
        for (int number = 1; number <= 60; ++number) {
            auto const modified = number <= 3 ? NSCalendarDate::dateWithYear(2027, 3, number, 12, 0, 0)
                                              : NSCalendarDate::dateWithYear(2020, 1, 1, 12, 0, 0);
            timespec const times[] { { static_cast<time_t>(modified.timeIntervalSince1970()), 0 },
                { static_cast<time_t>(modified.timeIntervalSince1970()), 0 } };
            auto const path = folder / "file " + std::to_string(number) + ".txt";
            EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
        }
        show();
    }
    void chooseMarch(char const* from, char const* to)
    {
        person().click(centerOnScreen(controller->datesButton()));
        person().type(from);
        person().key(NSTabCharacter);
        person().type(to);
        person().key(NSCarriageReturnCharacter);
        pump();
    }
    std::vector<std::string> shown()
    {
        std::vector<std::string> names;
        for (long row = 0; row < table().numberOfRows(); ++row)
            names.push_back(files().entryAt(row).name);
        return names;
    }
    using Names = std::vector<std::string>;
};

TEST_F(BrowserDatesTest, OnlyFilesOfTheChosenDaysAreShown)
{
    EXPECT_TRUE(controller->filterBar().isHidden());
    chooseMarch("3/2/2027", "3/3/2027");
    EXPECT_EQ(shown(), (Names { "alpha", "beta", "file 2.txt", "file 3.txt" }));
    EXPECT_EQ(controller->status(), "4 of 63 items");
    EXPECT_FALSE(controller->filterBar().isHidden());
    EXPECT_EQ(controller->filter()->text(), "Modified 3/2/27 – 3/3/27");
    EXPECT_EQ(controller->window().firstResponder(), &table());
}

TEST_F(BrowserDatesTest, ShowAllEndsIt)
{
    chooseMarch("3/2/2027", "3/3/2027");
    float const height = files().scrollView().frame().height;
    person().click(rowPoint(3));
    pump();
    person().click(centerOnScreen(controller->showAllButton()));
    pump();
    EXPECT_EQ(shown().size(), 63U);
    EXPECT_EQ(controller->status(), "63 items");
    EXPECT_TRUE(controller->filterBar().isHidden());
    EXPECT_EQ(files().scrollView().frame().height, height + 30);
    EXPECT_EQ(selectedName(), "file 3.txt");
}

TEST_F(BrowserDatesTest, ThePanelBeginsWithThePresentFilter)
{
    chooseMarch("3/2/2027", "3/3/2027");
    // Only the day is typed: month and year are those of before.
    person().click(centerOnScreen(controller->datesButton()));
    person().key(NSRightArrowFunctionKey);
    person().type("01");
    person().key(NSCarriageReturnCharacter);
    pump();
    EXPECT_EQ(shown(), (Names { "alpha", "beta", "file 1.txt", "file 2.txt", "file 3.txt" }));
}

TEST_F(BrowserDatesTest, APanelThatIsTakenAwayWithoutAnAnswerChangesNothing)
{
    for (long const code : { 0L, static_cast<long>(NSRunAbortedResponse) }) {
        person().click(centerOnScreen(controller->datesButton()));
        person().then([=, this] {
            ASSERT_TRUE(app().modalWindow());
            app().stopModalWithCode(code);
        });
        pump();
        EXPECT_FALSE(app().modalWindow());
        EXPECT_FALSE(controller->filter());
        EXPECT_TRUE(controller->filterBar().isHidden());
        EXPECT_EQ(shown().size(), 63U);
        EXPECT_EQ(app().keyWindow(), &controller->window()) << "nothing is left before it";
    }
}

TEST_F(BrowserDatesTest, StaysOnInOtherFoldersAndSaysWhereNothingIs)
{
    chooseMarch("1/1/1990", "1/2/1990");
    EXPECT_EQ(shown(), (Names { "alpha", "beta" }));
    controller->open(folder / "alpha");
    pump();
    EXPECT_EQ(table().numberOfRows(), 0);
    EXPECT_EQ(message(), "Nothing here was modified between these dates.");
    EXPECT_EQ(controller->status(), "0 of 1 item");
    controller->setFilter(std::nullopt);
    EXPECT_EQ(message(), "");
    EXPECT_EQ(shown(), Names { "inside.txt" });
}

}
}
