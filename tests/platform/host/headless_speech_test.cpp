#include <plix/platform/host/headless/HeadlessHost.h>

#include <plix/platform/host/speech_manager.h>
#include <tests/support/HeadlessTest.h>

#include <gmock/gmock.h>

namespace plix {
namespace {

using testing::ElementsAre;

class HeadlessSpeechTest : public HeadlessTest {
protected:
    HeadlessSpeech& speech() { return machine().headlessSpeech(); }
    SpeechChannel open(std::string name)
    {
        SpeechNews news;
        news.ended = [this, name](SpeechEnd end) { log.push_back(name + (end == SpeechEnd::Finished ? " finished" : " stopped")); };
        news.word = [this, name](NSRange range) {
            log.push_back(name + " word " + std::to_string(range.location) + "+" + std::to_string(range.length));
        };
        return speech().openChannel("", std::move(news));
    }

    std::vector<std::string> log;
};

TEST_F(HeadlessSpeechTest, ATextTakesItsTimeAndIsToldWhenItEnds)
{
    speech().setDuration([](std::string const&) { return 2.0; });
    auto const channel = open("one");
    EXPECT_TRUE(speech().start(channel, "hello"));
    pass(1.9);
    EXPECT_TRUE(speech().isSpeaking(channel));
    EXPECT_TRUE(speech().isAnyApplicationSpeaking());
    pass(0.2);
    EXPECT_FALSE(speech().isSpeaking(channel));
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
    EXPECT_THAT(log, ElementsAre("one finished"));
}

TEST_F(HeadlessSpeechTest, StoppingIsToldOnTheRunLoop)
{
    auto const channel = open("one");
    speech().start(channel, "hello");
    speech().stop(channel);
    speech().stop(channel);
    EXPECT_FALSE(speech().isSpeaking(channel));
    EXPECT_TRUE(log.empty());
    pass(5);
    EXPECT_THAT(log, ElementsAre("one stopped"));
}

TEST_F(HeadlessSpeechTest, ATextReplacesTheOneBefore)
{
    speech().setDuration([](std::string const&) { return 2.0; });
    auto const channel = open("one");
    speech().start(channel, "first");
    pass(1);
    speech().start(channel, "second");
    pass(1.5);
    EXPECT_TRUE(speech().isSpeaking(channel));
    EXPECT_THAT(log, ElementsAre("one stopped"));
    pass(1);
    EXPECT_THAT(log, ElementsAre("one stopped", "one finished"));
    ASSERT_EQ(speech().utterances().size(), 2U);
    EXPECT_EQ(speech().utterances()[0].how, SpeechEnd::Stopped);
    EXPECT_EQ(speech().utterances()[1].how, SpeechEnd::Finished);
}

TEST_F(HeadlessSpeechTest, BlankTextOnlyStops)
{
    auto const channel = open("one");
    speech().start(channel, "first");
    EXPECT_TRUE(speech().start(channel, " \n"));
    EXPECT_FALSE(speech().isSpeaking(channel));
    EXPECT_EQ(speech().utterances().size(), 1U);
}

TEST_F(HeadlessSpeechTest, ChannelsSpeakApart)
{
    auto const one = open("one");
    auto const two = open("two");
    speech().start(one, "first");
    EXPECT_FALSE(speech().isSpeaking(two));
    speech().start(two, "second one");
    speech().stop(one);
    EXPECT_TRUE(speech().isSpeaking(two));
    pass(5);
    EXPECT_THAT(log, ElementsAre("one stopped", "two finished"));
}

TEST_F(HeadlessSpeechTest, AChannelThatIsClosedTellsNothingMore)
{
    auto const channel = open("one");
    speech().start(channel, "hello");
    speech().tellWord(channel, { 0, 5 });
    speech().stop(channel);
    speech().closeChannel(channel);
    pass(1);
    EXPECT_THAT(log, testing::IsEmpty());
}

TEST_F(HeadlessSpeechTest, UnknownChannelsAreHarmless)
{
    auto const channel = open("one");
    speech().start(channel, "first");
    speech().closeChannel(channel);
    speech().closeChannel(channel);
    for (auto const gone : { channel, SpeechChannel {}, SpeechChannel { 999999 } }) {
        EXPECT_FALSE(speech().start(gone, "text"));
        speech().stop(gone);
        EXPECT_FALSE(speech().isSpeaking(gone));
        EXPECT_EQ(Speech::knowing(gone), nullptr);
    }
    pass(5);
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(speech().utterances().front().end.has_value());
}

TEST_F(HeadlessSpeechTest, AServiceThatDiesStopsWhatItSpokeAndComesBack)
{
    auto const channel = open("one");
    speech().start(channel, "first");
    speech().setUnavailable(true);
    EXPECT_FALSE(speech().isSpeaking(channel));
    EXPECT_FALSE(speech().start(channel, "second"));
    speech().setUnavailable(false);
    EXPECT_TRUE(speech().start(channel, "third"));
    pass(5);
    EXPECT_THAT(log, ElementsAre("one stopped", "one finished"));
}

TEST_F(HeadlessSpeechTest, VoicesAreListedWhenAskedFor)
{
    int news = 0;
    speech().setVoicesNews([&] { ++news; });
    pump();
    EXPECT_EQ(news, 0);
    EXPECT_TRUE(speech().voices().empty());
    pump();
    EXPECT_EQ(news, 1);
    EXPECT_EQ(speech().voices().size(), 2U);
    speech().setVoices({ { "one", "One", "" } });
    pump();
    EXPECT_EQ(news, 2);
    EXPECT_THAT(speech().voices(), ElementsAre(SpeechVoice { "one", "One", "" }));
}

TEST_F(HeadlessSpeechTest, WordsAreToldWhileSpeaking)
{
    auto const channel = open("one");
    speech().tellWord(channel, { 0, 3 });
    speech().start(channel, "one two");
    speech().tellWord(channel, { 4, 3 });
    pump();
    EXPECT_THAT(log, ElementsAre("one word 4+3"));
}

TEST_F(HeadlessSpeechTest, OlderFunctionsSpeakOnTheirChannels)
{
    auto const channel = NewSpeechChannel();
    EXPECT_FALSE(SpeechBusy());
    SpeakText(channel, "text");
    EXPECT_TRUE(SpeechBusy());
    EXPECT_EQ(Speech::knowing(channel), &speech());
    SpeakText(channel, {});
    EXPECT_FALSE(SpeechBusy());
    SpeakString("string");
    EXPECT_TRUE(SpeechBusy());
    EXPECT_FALSE(speech().isSpeaking(channel));
    SpeakString("");
    EXPECT_FALSE(SpeechBusy());
    DisposeSpeechChannel(channel);
    DisposeSpeechChannel({});
    EXPECT_FALSE(speech().hasChannel(channel));
    speech().setOtherApplicationSpeaking(true);
    EXPECT_TRUE(SpeechBusy());
    EXPECT_EQ(speech().utterances().size(), 2U);
}

TEST_F(HeadlessSpeechTest, TheSharedChannelOfAHostThatWasReplacedIsLetGo)
{
    SpeakString("one");
    auto const old = speech().utterances().back().channel;
    auto before = installHost(std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable));
    SpeakString("two");
    EXPECT_FALSE(Speech::knowing(old));
    EXPECT_TRUE(SpeechBusy());
    installHost(std::move(before));
    EXPECT_FALSE(SpeechBusy());
}

}
}
