#include <plix/platform/appkit/NSSpeechSynthesizer.h>

#include <plix/platform/foundation/NSNotificationCenter.h>
#include <tests/support/HeadlessTest.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SpeechDelegate : public NSObject {
public:
    void didFinishSpeaking(NSSpeechSynthesizer&, bool finished) { log.push_back(finished ? "finished" : "stopped"); }
    void willSpeakWord(NSSpeechSynthesizer&, NSRange word, std::string const& text)
    {
        log.push_back(text.substr(static_cast<std::size_t>(word.location), static_cast<std::size_t>(word.length)));
    }

    std::vector<std::string> log;
};

class NSSpeechSynthesizerTest : public HeadlessTest {
protected:
    HeadlessSpeech& speech() { return machine().headlessSpeech(); }
    std::vector<std::string> spoken() { return speech().texts(); }
};

TEST_F(NSSpeechSynthesizerTest, SpeaksAndTellsItsDelegate)
{
    auto const synthesizer = make<NSSpeechSynthesizer>();
    auto const delegate = make<SpeechDelegate>();
    synthesizer->setDelegate(delegate);
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_TRUE(synthesizer->startSpeakingString("hello world"));
    EXPECT_TRUE(synthesizer->isSpeaking());
    EXPECT_TRUE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
    pass(5);
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_THAT(spoken(), ElementsAre("hello world"));
    EXPECT_THAT(delegate->log, ElementsAre("finished"));
}

TEST_F(NSSpeechSynthesizerTest, StopsAndTellsThatItDidNotFinish)
{
    auto const synthesizer = make<NSSpeechSynthesizer>();
    auto const delegate = make<SpeechDelegate>();
    synthesizer->setDelegate(delegate);
    synthesizer->stopSpeaking();
    synthesizer->startSpeakingString("hello");
    synthesizer->stopSpeaking();
    synthesizer->stopSpeaking();
    EXPECT_FALSE(synthesizer->isSpeaking());
    pass(5);
    EXPECT_THAT(delegate->log, ElementsAre("stopped"));
}

TEST_F(NSSpeechSynthesizerTest, EachKnowsItsOwnState)
{
    auto const one = make<NSSpeechSynthesizer>();
    auto const two = make<NSSpeechSynthesizer>();
    one->startSpeakingString("hello");
    EXPECT_FALSE(two->isSpeaking());
    two->stopSpeaking();
    EXPECT_TRUE(one->isSpeaking());
    speech().setOtherApplicationSpeaking(true);
    one->stopSpeaking();
    EXPECT_FALSE(one->isSpeaking());
    EXPECT_TRUE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
}

TEST_F(NSSpeechSynthesizerTest, AServiceThatIsNotThereAnswersFalse)
{
    speech().setUnavailable(true);
    auto const synthesizer = make<NSSpeechSynthesizer>();
    EXPECT_FALSE(synthesizer->startSpeakingString("hello"));
    EXPECT_FALSE(synthesizer->isSpeaking());
}

TEST_F(NSSpeechSynthesizerTest, OneThatIsGoneIsSilentAndTellsNothing)
{
    auto const delegate = make<SpeechDelegate>();
    {
        auto const synthesizer = make<NSSpeechSynthesizer>();
        synthesizer->setDelegate(delegate);
        synthesizer->startSpeakingString("hello");
    }
    EXPECT_FALSE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
    pass(5);
    EXPECT_THAT(delegate->log, IsEmpty());
}

TEST_F(NSSpeechSynthesizerTest, ADelegateMayLetGoOfItInsideTheNews)
{
    auto synthesizer = make<NSSpeechSynthesizer>();
    struct Releasing : NSObject {
        void didFinishSpeaking(NSSpeechSynthesizer&, bool) { *held = nullptr; }
        Ref<NSSpeechSynthesizer>* held { nullptr };
    };
    auto const delegate = make<Releasing>();
    delegate->held = &synthesizer;
    synthesizer->setDelegate(delegate);
    synthesizer->startSpeakingString("hello");
    pass(5);
    EXPECT_EQ(synthesizer, nullptr);
}

TEST_F(NSSpeechSynthesizerTest, AVoiceIsSetWhileItIsSilent)
{
    auto const synthesizer = make<NSSpeechSynthesizer>("headless.tenor");
    EXPECT_EQ(synthesizer->voice(), "headless.tenor");
    synthesizer->startSpeakingString("one");
    EXPECT_FALSE(synthesizer->setVoice("headless.alto"));
    EXPECT_EQ(synthesizer->voice(), "headless.tenor");
    synthesizer->stopSpeaking();
    EXPECT_TRUE(synthesizer->setVoice("headless.alto"));
    synthesizer->startSpeakingString("two");
    synthesizer->stopSpeaking();
    EXPECT_TRUE(synthesizer->setVoice(std::nullopt));
    synthesizer->startSpeakingString("three");
    std::vector<std::string> voices;
    for (auto const& utterance : speech().utterances())
        voices.push_back(utterance.voice);
    EXPECT_THAT(voices, ElementsAre("headless.tenor", "headless.alto", ""));
}

TEST_F(NSSpeechSynthesizerTest, ListsVoicesLazily)
{
    int notifications = 0;
    auto const token = NSNotificationCenter::defaultCenter().addObserver(
        [&](NSNotification const&) { ++notifications; }, NSSpeechSynthesizerAvailableVoicesDidChangeNotification);
    EXPECT_THAT(NSSpeechSynthesizer::availableVoices(), IsEmpty());
    EXPECT_THAT(NSSpeechSynthesizer::attributesForVoice("headless.tenor"), IsEmpty());
    pump();
    EXPECT_EQ(notifications, 1);
    EXPECT_THAT(NSSpeechSynthesizer::availableVoices(), ElementsAre("headless.alto", "headless.tenor"));
    auto const attributes = NSSpeechSynthesizer::attributesForVoice("headless.tenor");
    EXPECT_EQ(attributes.at(NSVoiceIdentifier), ObjectValue("headless.tenor"));
    EXPECT_EQ(attributes.at(NSVoiceName), ObjectValue("Tenor"));
    EXPECT_EQ(attributes.at(NSVoiceLanguage), ObjectValue("de"));
    EXPECT_EQ(NSSpeechSynthesizer::defaultVoice(), "");
}

TEST_F(NSSpeechSynthesizerTest, TellsWordsOfTheText)
{
    auto const synthesizer = make<NSSpeechSynthesizer>();
    auto const delegate = make<SpeechDelegate>();
    synthesizer->setDelegate(delegate);
    synthesizer->startSpeakingString("one two");
    speech().tellWord(speech().utterances().back().channel, { 4, 3 });
    pump();
    EXPECT_THAT(delegate->log, ElementsAre("two"));
}

TEST_F(NSSpeechSynthesizerTest, GoesOnWhenTheMachineChanges)
{
    auto const synthesizer = make<NSSpeechSynthesizer>();
    synthesizer->startSpeakingString("one");
    auto first = installHost(std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable));
    EXPECT_TRUE(synthesizer->isSpeaking());
    EXPECT_TRUE(synthesizer->startSpeakingString("two"));
    EXPECT_EQ(static_cast<HeadlessHost&>(host()).headlessSpeech().utterances().size(), 1U);
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
    installHost(std::move(first));
    EXPECT_FALSE(synthesizer->isSpeaking());
}

TEST_F(NSSpeechSynthesizerTest, SpeaksHugeAndIllFormedText)
{
    auto const synthesizer = make<NSSpeechSynthesizer>();
    EXPECT_TRUE(synthesizer->startSpeakingString(std::string(1 << 20, 'x')));
    EXPECT_TRUE(synthesizer->startSpeakingString("a\xFF<&>"));
    EXPECT_TRUE(synthesizer->startSpeakingString(""));
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_THAT(spoken(), ElementsAre(std::string(1 << 20, 'x'), "a\xEF\xBF\xBD<&>"));
}

}
}
