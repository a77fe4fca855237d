#include "../../support/TestEventSource.h"

#include <plix/platform/base/Weak.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/platform/foundation/RunLoopDescriptor.h>
#include <plix/platform/foundation/delayed_perform.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>

#include <unistd.h>

namespace plix {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;

class NSRunLoopTest : public testing::Test {
protected:
    void run(NSTimeInterval seconds, std::string_view mode = NSDefaultRunLoopMode)
    {
        auto const end = clock.now().addTimeInterval(seconds);
        while (clock.now() < end && loop.runOnce(mode, end) != NSRunLoop::Activity::None) { }
    }
    NSTimer::Callback logging(std::string text)
    {
        return [this, text = std::move(text)](NSTimer&) { log.push_back(text); };
    }
    /// A timer that is at `times` (since the test's start) whenever it fires.
    NSTimer::Callback timing(std::vector<double>& times)
    {
        return [this, &times](NSTimer&) { times.push_back(elapsed()); };
    }
    double elapsed() const { return clock.uptime() - start; }

    TestClock clock;
    TestEventSource source { clock };
    NSRunLoop& loop { NSRunLoop::currentRunLoop() };
    double const start { clock.uptime() };
    std::vector<std::string> log;
};

class Target : public NSObject {
public:
    void tick(NSTimer& timer) { ticks += timer.isValid(); }
    void poke() { ++pokes; }
    void prod() { ++prods; }
    bool perform(Selector selector, NSObject* argument) override
    {
        performed.push_back(selector.name() + (argument ? "+" : ""));
        return true;
    }
    int ticks { 0 };
    int pokes { 0 };
    int prods { 0 };
    std::vector<std::string> performed;
};

auto near(std::vector<double> const& values)
{
    return Pointwise(DoubleNear(1e-6), values);
}

TEST_F(NSRunLoopTest, TimersFireInTheOrderOfTheirDates)
{
    NSTimer::scheduledTimerWithTimeInterval(3, logging("third"), false);
    NSTimer::scheduledTimerWithTimeInterval(1, logging("first"), false);
    NSTimer::scheduledTimerWithTimeInterval(2, logging("second"), false);
    NSTimer::scheduledTimerWithTimeInterval(9, logging("late"), false)->invalidate();
    run(10);
    EXPECT_THAT(log, ElementsAre("first", "second", "third"));
    EXPECT_EQ(source.endlessWaits, 0);
}

TEST_F(NSRunLoopTest, TimersOfOneDateFireInTheOrderTheyWereAdded)
{
    auto const date = clock.now().addTimeInterval(1);
    for (auto const* name : { "a", "b", "c", "d" })
        loop.addTimer(*make<NSTimer>(date, 0, logging(name), nullptr, false), NSDefaultRunLoopMode);
    run(2);
    EXPECT_THAT(log, ElementsAre("a", "b", "c", "d"));
}

TEST_F(NSRunLoopTest, ARepeatingTimerFiresAgainAndAgain)
{
    std::vector<double> times;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(0.5, timing(times), true);
    run(2.25);
    timer->invalidate();
    run(2);
    EXPECT_THAT(times, near({ 0.5, 1, 1.5, 2 }));
}

TEST_F(NSRunLoopTest, ARepeatingTimerKeepsItsPhaseWhenFiringsWereMissed)
{
    std::vector<double> times;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(1, timing(times), true);
    clock.advance(3.4);
    run(2);
    timer->invalidate();
    EXPECT_THAT(times, near({ 3.4, 4, 5 }));
    EXPECT_NEAR(timer->fireDate().timeIntervalSinceDate(clock.now()), start + 6 - clock.uptime(), 1e-6);
}

TEST_F(NSRunLoopTest, TimeSpentInACallbackDoesNotShiftTheRhythm)
{
    std::vector<double> times;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [&](NSTimer&) {
            times.push_back(elapsed());
            clock.advance(1.3);
        },
        true);
    run(5);
    timer->invalidate();
    EXPECT_THAT(times, near({ 1, 3, 5 }));
}

TEST_F(NSRunLoopTest, AFireDateMayBeMovedEitherWay)
{
    std::vector<double> early, late;
    auto const a = NSTimer::scheduledTimerWithTimeInterval(10, timing(early), true);
    auto const b = NSTimer::scheduledTimerWithTimeInterval(1, timing(late), false);
    auto const date = clock.now().addTimeInterval(2);
    a->setFireDate(date);
    b->setFireDate(clock.now().addTimeInterval(5));
    EXPECT_EQ(a->fireDate(), date);
    run(13);
    a->invalidate();
    EXPECT_THAT(early, near({ 2, 12 }));
    EXPECT_THAT(late, near({ 5 }));
}

TEST_F(NSRunLoopTest, AFireDateSetInsideTheCallbackIsKept)
{
    std::vector<double> times;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [&](NSTimer& fired) {
            times.push_back(elapsed());
            fired.setFireDate(clock.now().addTimeInterval(3));
        },
        true);
    run(8);
    timer->invalidate();
    EXPECT_THAT(times, near({ 1, 4, 7 }));
}

TEST_F(NSRunLoopTest, SettingTheWallClockDoesNotMoveTimers)
{
    std::vector<double> times;
    NSTimer::scheduledTimerWithTimeInterval(5, timing(times), false);
    clock.setNow(clock.now().addTimeInterval(-3600));
    loop.runUntil([&] { return !times.empty(); });
    EXPECT_THAT(times, near({ 5 }));
}

TEST_F(NSRunLoopTest, ATimerMayInvalidateItselfInItsCallback)
{
    int fired = 0;
    auto const held = std::make_shared<int>(0);
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [&fired, held](NSTimer& self) {
            ++fired;
            self.invalidate();
            *held = self.isValid() ? 1 : 2;
        },
        true);
    run(5);
    EXPECT_EQ(fired, 1);
    EXPECT_EQ(*held, 2);
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(NSRunLoopTest, ATimerInvalidatedByAnotherOfTheSameDateDoesNotFire)
{
    Ref<NSTimer> second;
    auto const first = NSTimer::scheduledTimerWithTimeInterval(
        1, [&](NSTimer&) { second->invalidate(); }, false);
    second = NSTimer::scheduledTimerWithTimeInterval(1, logging("second"), false);
    run(3);
    EXPECT_FALSE(first->isValid());
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(NSRunLoopTest, TheTargetIsHeldUntilTheLastFiring)
{
    auto target = make<Target>();
    Weak<Target> const weak(target);
    auto const once = NSTimer::scheduledTimerWithTimeInterval(1, *target, &Target::tick, nullptr, false);
    auto const often = NSTimer::scheduledTimerWithTimeInterval(1, *target, &Target::poke, "info", true);
    target = nullptr;
    run(2.5);
    ASSERT_TRUE(weak);
    EXPECT_EQ(weak->ticks, 1);
    EXPECT_EQ(weak->pokes, 2);
    EXPECT_FALSE(once->isValid());
    EXPECT_EQ(often->userInfo(), ObjectValue("info"));
    often->invalidate();
    EXPECT_FALSE(weak);
}

TEST_F(NSRunLoopTest, FiringByHandLeavesTheRhythmAlone)
{
    std::vector<double> times;
    auto const often = NSTimer::scheduledTimerWithTimeInterval(1, timing(times), true);
    auto const once = NSTimer::scheduledTimerWithTimeInterval(1, logging("once"), false);
    clock.advance(0.25);
    often->fire();
    once->fire();
    run(1.9);
    often->invalidate();
    EXPECT_THAT(times, near({ 0.25, 1, 2 }));
    EXPECT_THAT(log, ElementsAre("once"));
}

TEST_F(NSRunLoopTest, AnIntervalOfZeroDoesNotKeepOthersOut)
{
    int quick = 0;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        0, [&](NSTimer&) { ++quick; }, true);
    NSTimer::scheduledTimerWithTimeInterval(0.01, logging("other"), false);
    loop.runUntil([&] { return !log.empty(); });
    timer->invalidate();
    EXPECT_NEAR(quick, 100, 2);
}

TEST_F(NSRunLoopTest, TimersFireOnlyInTheirModes)
{
    auto const onlyDefault = NSTimer::scheduledTimerWithTimeInterval(1, logging("default"), true);
    auto const common = NSTimer::timerWithTimeInterval(1, logging("common"), true);
    auto const tracking = NSTimer::timerWithTimeInterval(1, logging("tracking"), true);
    loop.addTimer(*common, NSRunLoopCommonModes);
    loop.addTimer(*tracking, NSEventTrackingRunLoopMode);
    run(1.5, NSEventTrackingRunLoopMode);
    EXPECT_THAT(log, ElementsAre("common", "tracking"));
    log.clear();
    run(0.1, NSModalPanelRunLoopMode);
    EXPECT_THAT(log, IsEmpty());
    run(0.1);
    EXPECT_THAT(log, ElementsAre("default"));
    log.clear();
    run(1, "a mode of somebody's own");
    EXPECT_THAT(log, IsEmpty());
    for (auto const& timer : { onlyDefault, common, tracking })
        timer->invalidate();
}

TEST_F(NSRunLoopTest, ATimerInTwoModesFiresOnceADate)
{
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(1, logging("tick"), true);
    loop.addTimer(*timer, NSEventTrackingRunLoopMode);
    loop.addTimer(*timer, NSEventTrackingRunLoopMode);
    run(1.5);
    run(1, NSEventTrackingRunLoopMode);
    run(1);
    timer->invalidate();
    EXPECT_THAT(log, ElementsAre("tick", "tick", "tick"));
}

TEST_F(NSRunLoopTest, TheLoopMayRunInsideACallbackAndAFiringTimerWaits)
{
    int depth = 0;
    int deepest = 0;
    auto const other = NSTimer::scheduledTimerWithTimeInterval(0.4, logging("other"), true);
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [&](NSTimer&) {
            deepest = std::max(deepest, ++depth);
            log.emplace_back("in");
            run(1.5);
            --depth;
        },
        true);
    loop.runUntil([&] { return elapsed() >= 2.45; });
    other->invalidate();
    timer->invalidate();
    EXPECT_EQ(deepest, 1);
    EXPECT_THAT(log, ElementsAre("other", "other", "in", "other", "other", "other", "other"));
}

TEST_F(NSRunLoopTest, AFiringTimerWaitsInAnotherModeToo)
{
    int depth = 0;
    int deepest = 0;
    auto const timer = NSTimer::scheduledTimerWithTimeInterval(
        1,
        [&](NSTimer&) {
            deepest = std::max(deepest, ++depth);
            run(3, NSEventTrackingRunLoopMode);
            --depth;
        },
        true);
    loop.addTimer(*timer, NSEventTrackingRunLoopMode);
    loop.runUntil([&] { return deepest > 0; });
    timer->invalidate();
    EXPECT_EQ(deepest, 1);
}

TEST_F(NSRunLoopTest, AWallClockSetBackDoesNotProlongTheWait)
{
    auto const date = clock.now().addTimeInterval(5);
    auto const token = loop.addObserverBeforeWaiting([&] {
        if (source.waits < 10)
            clock.setNow(date.addTimeInterval(-100));
    });
    EXPECT_FALSE(loop.runMode(NSDefaultRunLoopMode, date));
    EXPECT_NEAR(elapsed(), 5, 1e-6);
}

TEST_F(NSRunLoopTest, InvalidatedTimersAreLetGoWithoutWaitingForTheirDate)
{
    std::vector<Ref<NSTimer>> timers;
    for (int i = 0; i < 1000; ++i)
        timers.push_back(NSTimer::scheduledTimerWithTimeInterval(1e6 + i, logging("never"), false));
    for (auto const& timer : timers)
        timer->invalidate();
    auto const held = std::ranges::count_if(timers, [](auto const& timer) { return timer->retainCount() > 1; });
    EXPECT_LT(held, 50);
}

TEST_F(NSRunLoopTest, AnExceptionInACallbackLeavesTheOtherTimersAlone)
{
    auto const thrower = NSTimer::scheduledTimerWithTimeInterval(
        1, [](NSTimer&) { throw 7; }, true);
    NSTimer::scheduledTimerWithTimeInterval(1, logging("other"), false);
    EXPECT_THROW(run(2), int);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(loop.currentMode(), std::nullopt);
    EXPECT_FALSE(thrower->isFiring());
    EXPECT_THROW(run(2), int);
    thrower->invalidate();
    EXPECT_THAT(log, ElementsAre("other"));
}

TEST_F(NSRunLoopTest, ManyTimersComeInOrderAlsoWhenMostAreInvalidated)
{
    std::vector<double> times;
    std::vector<Ref<NSTimer>> timers;
    unsigned random = 12345;
    for (int i = 0; i < 3000; ++i) {
        random = random * 1103515245U + 12345U;
        timers.push_back(NSTimer::scheduledTimerWithTimeInterval(1 + (random >> 8) % 100000 / 1000.0, timing(times), false));
    }
    for (std::size_t i = 0; i < timers.size(); ++i) {
        if (i % 3)
            timers[i]->invalidate();
    }
    run(200);
    EXPECT_EQ(times.size(), 1000U);
    EXPECT_TRUE(std::ranges::is_sorted(times));
    EXPECT_EQ(timers[1]->retainCount(), 1U);
}

TEST_F(NSRunLoopTest, KnowsItsModeAndItsNextDate)
{
    EXPECT_EQ(loop.currentMode(), std::nullopt);
    EXPECT_EQ(loop.nextFireDate(NSModalPanelRunLoopMode), std::nullopt);
    auto const timer = NSTimer::timerWithTimeInterval(
        4, [&](NSTimer&) { log.push_back(loop.currentMode().value_or("none")); }, false);
    loop.addTimer(*timer, NSModalPanelRunLoopMode);
    EXPECT_NEAR(loop.nextFireDate(NSModalPanelRunLoopMode)->timeIntervalSinceNow(), 4, 1e-6);
    run(5, NSModalPanelRunLoopMode);
    EXPECT_THAT(log, ElementsAre(std::string(NSModalPanelRunLoopMode)));
}

TEST_F(NSRunLoopTest, RunModeReturnsForSourcesButNotForTimers)
{
    NSTimer::scheduledTimerWithTimeInterval(1, logging("timer"), false);
    EXPECT_FALSE(loop.runMode(NSDefaultRunLoopMode, clock.now().addTimeInterval(2)));
    EXPECT_NEAR(elapsed(), 2, 1e-6);
    source.pendingEvents = 1;
    EXPECT_TRUE(loop.runMode(NSDefaultRunLoopMode, clock.now().addTimeInterval(2)));
    EXPECT_NEAR(elapsed(), 2, 1e-6);
    EXPECT_THAT(log, ElementsAre("timer"));
}

TEST_F(NSRunLoopTest, ADateInThePastIsOneTurnWithoutSleep)
{
    source.pendingEvents = 1;
    EXPECT_EQ(loop.runOnce(NSDefaultRunLoopMode, NSDate::distantPast()), NSRunLoop::Activity::Sources);
    EXPECT_EQ(loop.runOnce(NSDefaultRunLoopMode, NSDate::distantPast()), NSRunLoop::Activity::None);
    EXPECT_EQ(elapsed(), 0);
}

TEST_F(NSRunLoopTest, AnIdleLoopWaitsWithoutADeadline)
{
    loop.runOnce(NSDefaultRunLoopMode, NSDate::distantFuture());
    EXPECT_EQ(source.waits, 1);
    EXPECT_THAT(source.deadlines, ElementsAre(std::nullopt));
}

TEST_F(NSRunLoopTest, AnInvalidatedTimerWakesNothing)
{
    NSTimer::scheduledTimerWithTimeInterval(1, logging("never"), true)->invalidate();
    loop.runOnce(NSDefaultRunLoopMode, NSDate::distantFuture());
    EXPECT_THAT(source.deadlines, ElementsAre(std::nullopt));
}

TEST_F(NSRunLoopTest, ObserversAreCalledBeforeEachWaitAndMayScheduleWork)
{
    int calls = 0;
    auto token = loop.addObserverBeforeWaiting([&] {
        if (++calls == 1)
            NSTimer::scheduledTimerWithTimeInterval(0, logging("scheduled"), false);
    });
    auto const tracking = loop.addObserverBeforeWaiting([&] { log.emplace_back("tracking"); }, NSEventTrackingRunLoopMode);
    run(1);
    EXPECT_THAT(log, ElementsAre("scheduled"));
    EXPECT_EQ(calls, source.waits);
    token = nullptr;
    run(1);
    EXPECT_LT(calls, source.waits);
}

TEST_F(NSRunLoopTest, AReadyDescriptorIsCalled)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    auto const descriptor = make<RunLoopDescriptor>(ends[0], short { POLLIN }, [&](short revents) {
        char byte = 0;
        EXPECT_TRUE(revents & POLLIN);
        EXPECT_EQ(::read(ends[0], &byte, 1), 1);
        log.push_back(std::string(1, byte));
    });
    loop.addDescriptor(*descriptor, NSRunLoopCommonModes);
    EXPECT_FALSE(loop.runMode(NSDefaultRunLoopMode, clock.now().addTimeInterval(1)));
    ASSERT_EQ(::write(ends[1], "xyz", 3), 3);
    EXPECT_TRUE(loop.runMode(NSDefaultRunLoopMode, clock.now()));
    EXPECT_FALSE(loop.runMode("a mode of somebody's own", clock.now()));
    EXPECT_TRUE(loop.runMode(NSModalPanelRunLoopMode, clock.now()));
    descriptor->invalidate();
    EXPECT_FALSE(loop.runMode(NSDefaultRunLoopMode, clock.now()));
    EXPECT_EQ(descriptor->retainCount(), 1U);
    ::close(ends[0]);
    ::close(ends[1]);
    EXPECT_THAT(log, ElementsAre("x", "y"));
}

TEST_F(NSRunLoopTest, AClosedDescriptorDoesNotSpinTheLoop)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    auto const descriptor = make<RunLoopDescriptor>(ends[0], short { POLLIN }, [](short) {});
    loop.addDescriptor(*descriptor, NSDefaultRunLoopMode);
    ::close(ends[0]);
    ::close(ends[1]);
    loop.runMode(NSDefaultRunLoopMode, clock.now());
    EXPECT_FALSE(descriptor->isValid());
}

TEST_F(NSRunLoopTest, CallsFromOtherThreadsAreMadeInOrder)
{
    std::thread caller([&] {
        for (auto const* text : { "1", "2", "3" })
            NSRunLoop::performOnMainThread([this, text] { log.emplace_back(text); });
    });
    caller.join();
    EXPECT_FALSE(loop.runMode("a mode of somebody's own", clock.now()));
    EXPECT_THAT(log, IsEmpty());
    EXPECT_TRUE(loop.runMode(NSEventTrackingRunLoopMode, NSDate::distantFuture()));
    EXPECT_THAT(log, ElementsAre("1", "2", "3"));
}

TEST_F(NSRunLoopTest, ACallMadeInACallIsForTheNextTurn)
{
    NSRunLoop::performOnMainThread([&] { NSRunLoop::performOnMainThread([&] { log.emplace_back("inner"); }); });
    loop.runOnce(NSDefaultRunLoopMode, clock.now());
    EXPECT_THAT(log, IsEmpty());
    loop.runOnce(NSDefaultRunLoopMode, clock.now());
    EXPECT_THAT(log, ElementsAre("inner"));
}

TEST(NSRunLoop, WithoutAHostACallFromAnotherThreadEndsItsSleep)
{
    bool called = false;
    std::thread caller([&] { NSRunLoop::performOnMainThread([&] { called = true; }); });
    bool const held = NSRunLoop::currentRunLoop().runUntil([&] { return called; });
    caller.join();
    EXPECT_TRUE(held);
}

TEST(NSRunLoop, WithoutAHostTimersFireByTheMachinesClock)
{
    bool fired = false;
    auto const before = plix::clock().uptime();
    NSTimer::scheduledTimerWithTimeInterval(
        0.02, [&](NSTimer&) { fired = true; }, false);
    NSRunLoop::currentRunLoop().runUntil([&] { return fired; });
    EXPECT_GE(plix::clock().uptime() - before, 0.02);
}

TEST_F(NSRunLoopTest, DelayedPerformsHappenOnceAndHoldTheirTarget)
{
    auto target = make<Target>();
    Weak<Target> const weak(target);
    performAfterDelay(*target, &Target::poke, 1);
    target = nullptr;
    ASSERT_TRUE(weak);
    run(0.9);
    EXPECT_EQ(weak->pokes, 0);
    Ref<Target> const again = weak.ref();
    run(5);
    EXPECT_EQ(again->pokes, 1);
    EXPECT_EQ(again->retainCount(), 1U);
}

TEST_F(NSRunLoopTest, DelayedPerformsAreCalledOffByTargetOperationOrArgument)
{
    auto const target = make<Target>();
    auto const other = make<Target>();
    performAfterDelay(*target, &Target::poke, 1);
    performAfterDelay(*target, &Target::prod, 1);
    performSelector(*target, Selector("go:"), other, 1);
    performSelector(*target, Selector("go:"), nullptr, 1);
    performSelector(*target, Selector("stay:"), other, 1);
    performAfterDelay(*other, &Target::poke, 1);
    cancelPreviousPerformRequests(*target, &Target::poke);
    cancelPreviousPerformRequests(*target, Selector("go:"), other.get());
    run(2);
    EXPECT_EQ(target->pokes, 0);
    EXPECT_EQ(target->prods, 1);
    EXPECT_THAT(target->performed, ElementsAre("go:", "stay:+"));
    EXPECT_EQ(other->pokes, 1);

    performAfterDelay(*target, &Target::poke, 1);
    performSelector(*target, Selector("go:"), nullptr, 1);
    cancelPreviousPerformRequests(*target);
    run(2);
    EXPECT_EQ(target->pokes, 0);
    EXPECT_EQ(target->performed.size(), 2U);
}

TEST_F(NSRunLoopTest, DelayedPerformsRunInTheModesTheyAreFor)
{
    auto const target = make<Target>();
    performAfterDelay(*target, &Target::poke, 0);
    performAfterDelay(*target, &Target::prod, 0, { NSDefaultRunLoopMode, NSEventTrackingRunLoopMode });
    run(1, NSEventTrackingRunLoopMode);
    EXPECT_EQ(target->pokes, 0);
    EXPECT_EQ(target->prods, 1);
    run(1);
    EXPECT_EQ(target->pokes, 1);
    EXPECT_EQ(target->prods, 1);
}

}
}
