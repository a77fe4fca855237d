#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/foundation/NSTimer.h>
#include <plix/speech/classes.h>
#include <tests/support/HeadlessTest.h>
#include <tests/support/SystemVersion.h>

#include <gmock/gmock.h>

#include <limits>
#include <optional>

namespace plix {
namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

using Strings = ObjectValue::Array;

/// At each system version, which chooses the way to speak.
class PLIXSpeechSynthesizerTest : public HeadlessTest, public testing::WithParamInterface<std::uint32_t> {
protected:
    PLIXSpeechSynthesizerTest()
        : m_version(GetParam())
    {
        // A new one for each test, as in a new process.
        plix::sharedSpeechSynthesizer = nullptr;
    }
    void SetUp() override
    {
        HeadlessTest::SetUp();
        synthesizer = PLIXSpeechSynthesizer::sharedSpeechSynthesizer();
        speech().setDuration([](std::string const&) { return 1.0; });
    }

    void TearDown() override { synthesizer->stopSpeaking(); }

    bool speaksOnChannel() const { return GetParam() < 0x1030; }
    HeadlessSpeech& speech() { return machine().headlessSpeech(); }
    std::vector<std::string> spoken() { return speech().texts(); }
    /// The silences between the end of each and the start of the next.
    std::vector<double> gaps()
    {
        std::vector<double> seconds;
        auto const& all = speech().utterances();
        for (std::size_t i = 1; i < all.size(); ++i)
            seconds.push_back(all[i].begin.timeIntervalSinceDate(all[i - 1].end.value_or(NSDate::distantFuture())));
        return seconds;
    }
    static bool hasTimer() { return NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode).has_value(); }

    Ref<PLIXSpeechSynthesizer> synthesizer;

private:
    SystemVersion m_version;
};

INSTANTIATE_TEST_SUITE_P(Versions, PLIXSpeechSynthesizerTest, testing::Values(0x1029U, 0x102FU, 0x1030U, 0x1049U, 0x1050U),
    [](auto const& version) { return testing::PrintToString(version.param); });

// What a look a tenth of a second after the other may add.
constexpr double slack = 0.11;

TEST_P(PLIXSpeechSynthesizerTest, TheSharedOneIsMadeOnce)
{
    EXPECT_EQ(PLIXSpeechSynthesizer::sharedSpeechSynthesizer(), synthesizer);
    EXPECT_EQ(plix::sharedSpeechSynthesizer.get(), synthesizer.get());
    EXPECT_EQ(PLIXSpeechSynthesizer::classSpeechSynthesizer(), synthesizer->speechSynthesizer());
    EXPECT_EQ(PLIXSpeechSynthesizer::classSpeechChannel(), synthesizer->speechChannel());
    EXPECT_TRUE(synthesizer->speechChannel());
    EXPECT_EQ(synthesizer->speechSynthesizer()->voice(), "");
}

TEST_P(PLIXSpeechSynthesizerTest, SpeaksAStringThroughTheWayOfItsVersion)
{
    EXPECT_FALSE(PLIXSpeechSynthesizer::classIsSpeaking());
    PLIXSpeechSynthesizer::classSpeakString("hello");
    EXPECT_TRUE(PLIXSpeechSynthesizer::classIsSpeaking());
    EXPECT_EQ(synthesizer->speechSynthesizer()->isSpeaking(), !speaksOnChannel());
    EXPECT_EQ(speech().isSpeaking(synthesizer->speechChannel()), speaksOnChannel());
    pass(1.1);
    EXPECT_FALSE(PLIXSpeechSynthesizer::classIsSpeaking());
    EXPECT_THAT(spoken(), ElementsAre("hello"));
}

TEST_P(PLIXSpeechSynthesizerTest, OnlyTheOlderWayHearsOthers)
{
    speech().setOtherApplicationSpeaking(true);
    EXPECT_EQ(synthesizer->isSpeaking(), speaksOnChannel());
}

TEST_P(PLIXSpeechSynthesizerTest, SpeaksAListWithTheUsualSilence)
{
    synthesizer->speakStrings(Strings { "one", "two", "three" });
    EXPECT_THAT(spoken(), IsEmpty());
    pass(20);
    EXPECT_THAT(spoken(), ElementsAre("one", "two", "three"));
    EXPECT_THAT(gaps(), Each(testing::AllOf(testing::Ge(1.8), testing::Le(1.8 + slack))));
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeechSynthesizerTest, SpeaksTheFirstStringAtOnce)
{
    auto const before = clock().now();
    PLIXSpeechSynthesizer::classSpeakStrings(Strings { "one" }, 30);
    pass(0.01);
    ASSERT_THAT(spoken(), ElementsAre("one"));
    EXPECT_LT(speech().utterances().front().begin.timeIntervalSinceDate(before), 0.01);
}

TEST_P(PLIXSpeechSynthesizerTest, SpeaksBackToBackWithoutASilence)
{
    synthesizer->speakStrings(Strings { "one", "two", "three" }, 0);
    pass(5);
    EXPECT_THAT(spoken(), ElementsAre("one", "two", "three"));
    EXPECT_THAT(gaps(), Each(testing::AllOf(testing::Ge(0), testing::Le(slack))));
}

TEST_P(PLIXSpeechSynthesizerTest, AnyIntervalBelowZeroIsTheUsualOne)
{
    for (double const interval : { -1.0, -0.5, -100.0 }) {
        speech().forgetUtterances();
        synthesizer->speakStrings(Strings { "one", "two" }, interval);
        pass(10);
        EXPECT_THAT(gaps(), ElementsAre(DoubleNear(1.85, 0.06))) << interval;
    }
}

TEST_P(PLIXSpeechSynthesizerTest, KeepsTheGivenSilence)
{
    synthesizer->speakStrings(Strings { "one", "two" }, 4.25);
    pass(10);
    EXPECT_THAT(gaps(), ElementsAre(DoubleNear(4.3, 0.06)));
}

TEST_P(PLIXSpeechSynthesizerTest, EndsItsTimerAtTheFirstLookAfterTheLastString)
{
    synthesizer->speakStrings(Strings { "one" });
    pass(0.95);
    EXPECT_TRUE(hasTimer());
    pass(0.2);
    EXPECT_FALSE(hasTimer());
    EXPECT_FALSE(synthesizer->isSpeaking());
}

TEST_P(PLIXSpeechSynthesizerTest, IgnoresWhatIsNoFilledArray)
{
    synthesizer->speakStrings(Strings { "one", "two" });
    pass(0.5);
    for (auto const& ignored : { ObjectValue(), ObjectValue(Strings {}), ObjectValue("text"), ObjectValue(5),
             ObjectValue(ObjectValue::Dictionary { { "a", "b" } }) })
        synthesizer->speakStrings(ignored);
    EXPECT_TRUE(synthesizer->isSpeaking());
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
}

TEST_P(PLIXSpeechSynthesizerTest, StoppingSilencesTheListAndEndsTheTimer)
{
    synthesizer->speakStrings(Strings { "one", "two" });
    pass(0.5);
    PLIXSpeechSynthesizer::classStopSpeaking();
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_FALSE(hasTimer());
    synthesizer->stopSpeaking();
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one"));
}

TEST_P(PLIXSpeechSynthesizerTest, StoppingWithinASilenceOrBeforeTheFirstStringEndsTheList)
{
    synthesizer->speakStrings(Strings { "one", "two" });
    synthesizer->stopSpeaking();
    pass(5);
    EXPECT_THAT(spoken(), IsEmpty());
    synthesizer->speakStrings(Strings { "one", "two" });
    pass(2);
    synthesizer->stopSpeaking();
    pass(5);
    EXPECT_THAT(spoken(), ElementsAre("one"));
}

TEST_P(PLIXSpeechSynthesizerTest, ANewListStopsTheOneBefore)
{
    PLIXSpeechSynthesizer::classSpeakStrings(Strings { "one", "two" });
    pass(0.5);
    PLIXSpeechSynthesizer::classSpeakStrings(Strings { "three", "four" });
    EXPECT_FALSE(synthesizer->isSpeaking());
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one", "three", "four"));
    EXPECT_EQ(speech().utterances().front().how, SpeechEnd::Stopped);
}

TEST_P(PLIXSpeechSynthesizerTest, KeepsItsOwnCopyOfTheList)
{
    ObjectValue strings(Strings { "one", "two" });
    synthesizer->speakStrings(strings);
    strings = Strings { "three" };
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
}

TEST_P(PLIXSpeechSynthesizerTest, SpeakingAStringLeavesTheListAlone)
{
    synthesizer->speakStrings(Strings { "one", "two" });
    pass(0.5);
    synthesizer->speakString("between");
    pass(10);
    ASSERT_THAT(spoken(), ElementsAre("one", "between", "two"));
    auto const& said = speech().utterances();
    EXPECT_EQ(said[0].how, SpeechEnd::Stopped);
    EXPECT_EQ(said[0].end, said[1].begin);
    EXPECT_EQ(said[1].how, SpeechEnd::Finished);
    EXPECT_EQ(said[2].how, SpeechEnd::Finished);
}

TEST_P(PLIXSpeechSynthesizerTest, AListRunsThroughInSilenceWithoutSpeech)
{
    speech().setUnavailable(true);
    synthesizer->speakStrings(Strings { "one", "two" });
    pass(1);
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_TRUE(hasTimer());
    pass(2);
    EXPECT_FALSE(hasTimer());
    EXPECT_THAT(spoken(), IsEmpty());
}

TEST_P(PLIXSpeechSynthesizerTest, GoesOnWhenTheServiceDiesAndSpeaksWhenItIsBack)
{
    synthesizer->speakStrings(Strings { "one", "two", "three" });
    pass(0.5);
    speech().setUnavailable(true);
    EXPECT_FALSE(synthesizer->isSpeaking());
    pass(3);
    speech().setUnavailable(false);
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one", "three"));
}

TEST_P(PLIXSpeechSynthesizerTest, LooksTenTimesASecondWhileAStringIsSpoken)
{
    speech().setDuration([](std::string const&) { return -1.0; });
    synthesizer->speakStrings(Strings { "one" });
    pass(0.01);
    auto const next = NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode);
    ASSERT_TRUE(next);
    EXPECT_NEAR(next->timeIntervalSinceNow(), 0.1, 0.011);
    pass(60);
    EXPECT_TRUE(hasTimer());
    synthesizer->stopSpeaking();
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeechSynthesizerTest, TheHeldTimerIsSetWhicheverFired)
{
    auto const other = NSTimer::scheduledTimerWithTimeInterval(
        100, [](NSTimer&) {}, false);
    auto const before = other->fireDate();
    synthesizer->speakStrings(Strings { "one" });
    synthesizer->speakingStringsTimer(*other);
    EXPECT_THAT(spoken(), ElementsAre("one"));
    EXPECT_EQ(other->fireDate(), before);
    EXPECT_NEAR(NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode)->timeIntervalSinceNow(), 0.1, 0.001);
    other->invalidate();
}

TEST_P(PLIXSpeechSynthesizerTest, ALookWithoutAListSetsNoTimer)
{
    auto const other = NSTimer::scheduledTimerWithTimeInterval(
        100, [](NSTimer&) {}, false);
    auto const before = other->fireDate();
    synthesizer->speakString("one");
    synthesizer->speakingStringsTimer(*other);
    EXPECT_TRUE(synthesizer->isSpeaking());
    pass(1.1);
    synthesizer->speakingStringsTimer(*other);
    EXPECT_EQ(other->fireDate(), before);
    EXPECT_TRUE(other->isValid());
    other->invalidate();
    EXPECT_FALSE(hasTimer());
    EXPECT_THAT(spoken(), ElementsAre("one"));
}

TEST_P(PLIXSpeechSynthesizerTest, AChannelOfAHostThatWasReplacedIsLetGo)
{
    auto const own = make<PLIXSpeechSynthesizer>();
    auto const old = own->speechChannel();
    auto before = installHost(std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable));
    auto const fresh = own->speechChannel();
    EXPECT_NE(fresh, old);
    EXPECT_TRUE(host().speech()->hasChannel(fresh));
    EXPECT_FALSE(Speech::knowing(old));
    EXPECT_EQ(own->speechChannel(), fresh);
    installHost(std::move(before));
}

TEST_P(PLIXSpeechSynthesizerTest, AClockSetBackLengthensTheSilence)
{
    synthesizer->speakStrings(Strings { "one", "two" }, 2);
    pass(1.5);
    machine().headlessClock().setNow(clock().now().addTimeInterval(-100));
    pass(95);
    EXPECT_THAT(spoken(), ElementsAre("one"));
    pass(10);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
}

TEST_P(PLIXSpeechSynthesizerTest, ASilenceWithoutEndIsEndedByStopping)
{
    synthesizer->speakStrings(Strings { "one", "two" }, std::numeric_limits<double>::infinity());
    pass(1000);
    EXPECT_THAT(spoken(), IsEmpty());
    synthesizer->stopSpeaking();
    EXPECT_FALSE(hasTimer());
}

TEST_P(PLIXSpeechSynthesizerTest, SpeaksEmptyHugeAndIllFormedStrings)
{
    std::string const huge(1 << 20, 'x');
    synthesizer->speakStrings(Strings { "", huge, "a\xFF<b>&amp;", 42, "last" }, 0);
    pass(20);
    EXPECT_THAT(spoken(), ElementsAre(huge, "a\xEF\xBF\xBD<b>&amp;", "42", "last"));
}

TEST_P(PLIXSpeechSynthesizerTest, TheOlderWayReadsUpToTheFirstNul)
{
    synthesizer->speakString(std::string("one\0two", 7));
    EXPECT_THAT(spoken(), ElementsAre(speaksOnChannel() ? "one" : std::string("one\0two", 7)));
}

TEST_P(PLIXSpeechSynthesizerTest, AListTimerHoldsTheSynthesizer)
{
    Weak<PLIXSpeechSynthesizer> weak;
    {
        auto const own = make<PLIXSpeechSynthesizer>();
        weak = own;
        own->speakStrings(Strings { "one", "two" });
    }
    EXPECT_TRUE(weak);
    pass(20);
    EXPECT_FALSE(weak);
    EXPECT_THAT(spoken(), ElementsAre("one", "two"));
}

TEST_P(PLIXSpeechSynthesizerTest, DoesNothingWithoutADoor)
{
    struct SilentHost : Host {
        std::string_view name() const override { return "silent"; }
        Display& display() override { return inner.display(); }
        Clipboard& clipboard() override { return inner.clipboard(); }
        EventSource& events() override { return inner.events(); }
        HeadlessHost inner { HeadlessHost::Time::Movable };
    };
    auto before = installHost(std::make_unique<SilentHost>());
    auto const own = make<PLIXSpeechSynthesizer>();
    own->speakString("hello");
    own->stopSpeaking();
    EXPECT_FALSE(own->isSpeaking());
    EXPECT_FALSE(own->speechChannel());
    EXPECT_FALSE(own->speechSynthesizer()->startSpeakingString("hello"));
    EXPECT_THAT(NSSpeechSynthesizer::availableVoices(), IsEmpty());
    installHost(std::move(before));
}

TEST(SpeechClasses, AreKnownByName)
{
    registerSpeechClasses();
    EXPECT_NE(NSClassFromString("PLIXSpeechSynthesizer"), nullptr);
    EXPECT_NE(NSClassFromString("PLIXSpeakingTextField"), nullptr);
}

}
}
