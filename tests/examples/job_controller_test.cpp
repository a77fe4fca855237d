#include <examples/browser/JobController.h>

#include <plix/platform/appkit/NSButton.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/windows/PLIXProgressWindow.h>

#include <tests/support/HeadlessTest.h>

#include <atomic>
#include <thread>

namespace browser {
namespace {

using namespace plix;

/// Work that goes on when the test says so, and ends when it is canceled or the test says so.
class JobControllerTest : public HeadlessTest {
protected:
    void begin()
    {
        controller = make<JobController>(
            "Copying things",
            [this](JobReport& report) {
                report.startItem("/a");
                report.startItem("/b");
                report.addBytes(2048);
                hasCounted = true;
                waitFor(mayWork, report);
                report.startWorking();
                report.startItem("/a");
                report.addBytes(1024);
                isWorking = true;
                waitFor(mayEnd, report);
            },
            [this](JobReport const& report) {
                ++timesFinished;
                wasCanceled = report.isCanceled();
            });
    }
    void TearDown() override
    {
        mayWork = mayEnd = true;
        controller->cancel();
        waitForEnd();
    }
    static void waitFor(std::atomic<bool> const& flag, JobReport const& report = {})
    {
        while (!flag && !report.isCanceled())
            std::this_thread::yield();
    }
    void waitForEnd()
    {
        EXPECT_TRUE(NSRunLoop::currentRunLoop().runUntil([this] { return !controller->isRunning(); }));
        pump();
    }
    PLIXProgressWindow& window() { return *controller->window(); }

    std::atomic<bool> hasCounted { false };
    std::atomic<bool> mayWork { false };
    std::atomic<bool> isWorking { false };
    std::atomic<bool> mayEnd { false };
    int timesFinished { 0 };
    bool wasCanceled { false };
    Ref<JobController> controller;
};

TEST_F(JobControllerTest, ShowsNothingOfWhatIsDoneInAMoment)
{
    begin();
    mayWork = mayEnd = true;
    waitForEnd();
    pass(1);
    EXPECT_FALSE(controller->window());
    EXPECT_EQ(timesFinished, 1);
    EXPECT_FALSE(wasCanceled);
}

TEST_F(JobControllerTest, ShowsHowFarItIsAfterAMoment)
{
    begin();
    waitFor(hasCounted);
    pass(0.3);
    EXPECT_FALSE(controller->window());
    pass(0.4);
    ASSERT_TRUE(controller->window());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().titleField()->stringValue(), "Copying things");
    EXPECT_EQ(window().stepField()->stringValue(), "Counting … 2 items");
    EXPECT_TRUE(window().progressIndicator()->isIndeterminate());
    mayWork = true;
    waitFor(isWorking);
    pass(0.2);
    EXPECT_EQ(window().stepField()->stringValue(), "1 of 2 items · 1.0KB of 2.0KB");
    EXPECT_FALSE(window().progressIndicator()->isIndeterminate());
    EXPECT_DOUBLE_EQ(window().progressIndicator()->doubleValue(), 0.5);
    auto const shown = Ref<NSWindow>(controller->window());
    mayEnd = true;
    waitForEnd();
    EXPECT_FALSE(shown->isVisible());
    EXPECT_FALSE(controller->window());
    EXPECT_FALSE(wasCanceled);
}

TEST_F(JobControllerTest, IsCanceledByAClick)
{
    begin();
    waitFor(hasCounted);
    pass(0.7);
    auto const shown = Ref<PLIXProgressWindow>(controller->window());
    clickCenter(*shown->cancelButton());
    EXPECT_FALSE(shown->cancelButton()->isEnabled());
    waitForEnd();
    EXPECT_TRUE(wasCanceled);
    EXPECT_EQ(timesFinished, 1);
    EXPECT_FALSE(shown->isVisible());
}

TEST_F(JobControllerTest, SaysThatItIsBeingCanceled)
{
    begin();
    waitFor(hasCounted);
    pass(0.7);
    auto const shown = Ref<PLIXProgressWindow>(controller->window());
    controller->cancel();
    controller->progressWindowCanceled(*shown);
    EXPECT_EQ(shown->stepField()->stringValue(), "Canceling …");
}

TEST_F(JobControllerTest, LivesUntilItsWorkIsDone)
{
    begin();
    Weak<JobController> const weakly(*controller);
    auto const kept = std::exchange(controller, nullptr).get();
    EXPECT_EQ(weakly.get(), kept);
    controller = Ref<JobController>(kept);
}

TEST_F(JobControllerTest, IsCanceledWhenTheApplicationEnds)
{
    begin();
    waitFor(hasCounted);
    pass(0.7);
    app().setExitHandler([] {});
    app().terminate(nullptr);
    EXPECT_FALSE(controller->isRunning());
    EXPECT_FALSE(controller->window());
    EXPECT_EQ(timesFinished, 0);
}

}
}
