#include <soak/GalleryRun.h>
#include <soak/invariants.h>
#include <soak/write_fence.h>

#include <examples/gallery/pages.h>

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/appkit/NSTableColumn.h>
#include <plix/platform/appkit/NSTableView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/appkit/view_timers.h>
#include <plix/platform/base/NSIndexSet.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSImage.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/TestSurroundings.h>

#include <filesystem>
#include <limits>

namespace soak {
namespace {

using namespace plix;

class Invariants : public HeadlessTest { };

/// Says what it is told to say.
class OddView : public NSView {
public:
    bool accepts { true };
    bool acceptsFirstResponder() const override { return accepts; }
};

class ShrinkingTable : public NSTableView {
public:
    long rows { 5 };
    long numberOfRows() const override { return rows; }
};

TEST_F(Invariants, HoldInAWindowThatIsAsItShouldBe)
{
    auto const window = showWindow();
    window->contentView()->addSubview(*make<NSTextField>(Rect { 10, 10, 100, 22 }));
    window->makeFirstResponder(window->contentView()->subviews()[0].get());
    pump();
    EXPECT_EQ(brokenDrawing(), "");
    EXPECT_EQ(brokenWindows(), "");
    EXPECT_EQ(brokenViews(), "");
}

TEST_F(Invariants, NoticeAFirstResponderThatIsNone)
{
    auto const window = showWindow();
    auto const view = make<OddView>();
    window->contentView()->addSubview(*view);
    window->makeFirstResponder(view.get());
    EXPECT_EQ(brokenFirstResponder(*window), "");
    view->accepts = false;
    EXPECT_NE(brokenWindows(), "");
    view->accepts = true;
    window->internals().firstResponder = nullptr;
    EXPECT_EQ(brokenWindows(), "");
    auto const elsewhere = make<OddView>();
    window->internals().firstResponder = elsewhere.get();
    EXPECT_NE(brokenWindows().find("not in its window"), std::string::npos);
}

TEST_F(Invariants, NoticeASelectionOutsideATable)
{
    auto const window = showWindow();
    auto const table = make<ShrinkingTable>();
    table->init(Rect { 0, 0, 100, 100 });
    table->addTableColumn(*make<NSTableColumn>("a"));
    window->contentView()->addSubview(*table);
    table->selectRowIndexes(NSIndexSet::indexSetWithIndex(4), false);
    ASSERT_EQ(table->selectedRow(), 4);
    EXPECT_EQ(brokenViews(), "");
    table->rows = 4;
    EXPECT_NE(brokenViews().find("a selected row is not in the table"), std::string::npos);
}

TEST_F(Invariants, NoticeFramesThatAreNone)
{
    auto const view = make<NSView>(Rect { 0, 0, std::numeric_limits<float>::quiet_NaN(), 1 });
    EXPECT_NE(brokenView(*view), "");
}

TEST_F(Invariants, NoticeWhatIsStillFocused)
{
    auto const image = make<NSImage>(Size { 4, 4 });
    FocusLock const focus(image);
    EXPECT_NE(brokenDrawing(), "");
}

TEST_F(Invariants, NoticeAWindowThatIsModalWithoutASession)
{
    auto const window = showWindow();
    auto const other = showWindow();
    window->internals().modalParent = other.get();
    EXPECT_NE(brokenWindows().find("modal without a session"), std::string::npos);
    window->internals().modalParent = nullptr;
    window->internals().sheet = other;
    EXPECT_NE(brokenWindows().find("a sheet does not know its window"), std::string::npos);
    window->internals().sheet = nullptr;
}

TEST_F(Invariants, NoticeTooManyWindows)
{
    std::vector<Ref<NSWindow>> windows;
    for (std::size_t i = 0; i <= mostWindows; ++i)
        windows.push_back(make<NSWindow>());
    EXPECT_NE(brokenWindows(), "");
}

TEST_F(Invariants, NoticeTimers)
{
    EXPECT_EQ(runningTimer(), "");
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1, [](NSTimer&) {}, true);
    EXPECT_NE(runningTimer(), "");
    timer->invalidate();
    EXPECT_EQ(runningTimer(), "");
}

TEST_F(Invariants, NoticeATimerOfAViewThatIsNotSeen)
{
    auto const window = showWindow();
    auto const view = make<OddView>();
    window->contentView()->addSubview(*view);
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1, [](NSTimer&) {}, true);
    noteViewTimer(*view, *timer);
    ViewTimerWatch watch;
    pass(1.5);
    EXPECT_EQ(watch.brokenTimer(), "");
    view->setHidden(true);
    EXPECT_EQ(watch.brokenTimer(), "");
    pass(1);
    EXPECT_NE(watch.brokenTimer().find("not seen"), std::string::npos);
    view->setHidden(false);
    EXPECT_EQ(watch.brokenTimer(), "");
    window->miniaturize(nullptr);
    EXPECT_EQ(watch.brokenTimer(), "");
    timer->invalidate();
    pass(2);
    EXPECT_EQ(watch.brokenTimer(), "");
}

TEST_F(Invariants, NoticeThatAProgressIndicatorMovesUnseen)
{
    auto const window = showWindow();
    auto const bar = make<NSProgressIndicator>(Rect { 20, 20, 200, 20 });
    window->contentView()->addSubview(*bar);
    bar->startAnimation(nullptr);
    pump();
    ASSERT_EQ(viewTimers().size(), 1U);
    EXPECT_EQ(viewTimers()[0].view, bar);
    ViewTimerWatch watch;
    EXPECT_EQ(watch.brokenTimer(), "");
    window->orderOut(nullptr);
    EXPECT_EQ(watch.brokenTimer(), "");
    pass(1);
    EXPECT_EQ(watch.brokenTimer(), "");
    EXPECT_TRUE(viewTimers().empty());
}

class GalleryRunTest : public HeadlessTest {
protected:
    GalleryRunTest()
    {
        m_sink = installLogSink([](std::string_view) {});
    }
    ~GalleryRunTest() override { installLogSink(m_sink); }
    // From then on in this whole program: what random events may do to files is not known.
    void SetUp() override
    {
        std::filesystem::create_directories(folderOfRuns());
        static bool const s_isFenced = fenceWrites(folderOfRuns());
        if (!s_isFenced)
            GTEST_SKIP() << "writing can't be confined here";
        HeadlessTest::SetUp();
        m_surroundings.temporary = m_folder;
    }
    void TearDown() override
    {
        HeadlessTest::TearDown();
        std::filesystem::remove_all(m_folder);
    }

private:
    LogSink m_sink;
    std::string const m_folder { makeRunFolder() };
    TestSurroundings m_surroundings;
};

TEST_F(GalleryRunTest, HoldsOverEveryPage)
{
    GalleryRun run(machine(), { .seed = 20, .eventsAChapter = 40 });
    for (std::uint32_t chapter = 0; chapter < gallery::pages().size(); ++chapter)
        ASSERT_TRUE(run.playChapter(chapter)) << run.failure() << '\n' << run.story();
}

TEST_F(GalleryRunTest, StaysOnThePageThatIsAskedFor)
{
    GalleryRun run(machine(), { .seed = 1, .eventsAChapter = 5, .page = "text" });
    EXPECT_STREQ(run.pageOf(0).name, "text");
    EXPECT_STREQ(run.pageOf(7).name, "text");
    EXPECT_TRUE(run.playChapter(7)) << run.failure();
    EXPECT_EQ(run.eventNumber(), 40);
    EXPECT_NE(run.story().find("seed 1, chapter 7, page text, event 40"), std::string::npos);
    EXPECT_TRUE(NSApp->windows().empty());
}

TEST_F(GalleryRunTest, WaitsForWhatIsStillSpoken)
{
    GalleryRun run(machine(), { .seed = 5, .page = "PLIXSpeakingTextField" });
    EXPECT_TRUE(run.playChapter(4)) << run.failure();
    EXPECT_FALSE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
}

// A timer that somebody left running is a failure of the chapter in which it is seen.
TEST_F(GalleryRunTest, FailsWhereSomethingDoesNotHold)
{
    GalleryRun run(machine(), { .seed = 1, .eventsAChapter = 3, .page = "text" });
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1, [](NSTimer&) {}, true);
    EXPECT_FALSE(run.playChapter(0));
    EXPECT_NE(run.failure().find("a timer still runs"), std::string::npos) << run.failure();
    timer->invalidate();
}

}
}
