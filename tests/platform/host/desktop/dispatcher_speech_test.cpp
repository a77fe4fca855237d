#ifdef PLIX_SPEECH

#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>
#include <tests/support/SpeakingHost.h>
#include <tests/support/StandInService.h>
#include <tests/support/run_until.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace plix {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::Ge;
using testing::Le;

using Strings = ObjectValue::Array;

void runFor(NSTimeInterval seconds)
{
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(seconds));
}

constexpr char const* longText
    = "This is a long text that goes on and on, for quite a while, with many words, until it is stopped at last, "
      "or the server is gone, or the test has run out of patience, which would be a pity indeed.";

/// The services run as long as the test.
class DispatcherSpeechTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!SpeechServer::isInstalled())
            GTEST_SKIP() << "speech-dispatcher with espeak-ng, or pulseaudio, is not installed";
        sound = std::make_unique<PulseServer>();
        service = std::make_unique<SpeechServer>(*sound);
        use(optionsFor(service->socketPath()));
    }
    void TearDown() override
    {
        plix::sharedSpeechSynthesizer = nullptr;
        installHost(std::move(m_before));
    }
    void use(DispatcherOptions options)
    {
        auto before = installHost(std::make_unique<SpeakingHost>(std::move(options)));
        if (!m_before)
            m_before = std::move(before);
    }
    Speech& speech() { return *host().speech(); }
    SpeechChannel open()
    {
        SpeechNews news;
        news.ended = [this](SpeechEnd end) { ends.push_back(end); };
        return speech().openChannel("", std::move(news));
    }
    /// What a text that is said to its end leaves.
    bool speaksToTheEnd(std::string_view text)
    {
        auto const channel = open();
        ends.clear();
        return speech().start(channel, text) && runUntil([this] { return !ends.empty(); }) && ends.front() == SpeechEnd::Finished;
    }

    std::unique_ptr<PulseServer> sound;
    std::unique_ptr<SpeechServer> service;
    std::vector<SpeechEnd> ends;

private:
    std::unique_ptr<Host> m_before;
};

TEST_F(DispatcherSpeechTest, AListIsHeardWithSilenceBetweenItsStrings)
{
    PulseRecorder recorder(*sound);
    auto const synthesizer = make<PLIXSpeechSynthesizer>();
    synthesizer->speakStrings(Strings { "one", "two", "three" }, 1.2);
    auto const spokenAll = [&] { return !NSRunLoop::currentRunLoop().nextFireDate(NSDefaultRunLoopMode); };
    EXPECT_TRUE(listenUntil(recorder, spokenAll));
    recorder.recordUntilStill();
    auto const stretches = soundingStretches(recorder.samples(), 0.8);
    ASSERT_EQ(stretches.size(), 3U);
    for (std::size_t index = 1; index < stretches.size(); ++index)
        EXPECT_THAT(stretches[index].first - stretches[index - 1].second, AllOf(Ge(1.0), Le(3.0)));
    EXPECT_GT(loudness(recorder.samples()), 0.01);
}

TEST_F(DispatcherSpeechTest, StoppingSilencesIt)
{
    PulseRecorder recorder(*sound);
    auto const synthesizer = make<NSSpeechSynthesizer>();
    EXPECT_TRUE(synthesizer->startSpeakingString(longText));
    EXPECT_TRUE(synthesizer->isSpeaking());
    EXPECT_TRUE(listenUntil(recorder, [&] { return soundingTime(recorder.samples()) > 1; }));
    EXPECT_TRUE(synthesizer->isSpeaking());
    synthesizer->stopSpeaking();
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_TRUE(recorder.recordUntilStill(1.0));
    EXPECT_THAT(soundingTime(recorder.samples()), AllOf(Ge(1.0), Le(4.0)));
}

TEST_F(DispatcherSpeechTest, TheEndIsToldOnTheRunLoop)
{
    auto const channel = open();
    EXPECT_TRUE(speech().start(channel, "hello"));
    EXPECT_TRUE(speech().isSpeaking(channel));
    EXPECT_TRUE(speech().isAnyApplicationSpeaking());
    EXPECT_TRUE(ends.empty());
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Finished));
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
}

TEST_F(DispatcherSpeechTest, ATextReplacesTheOneBefore)
{
    auto const channel = open();
    speech().start(channel, longText);
    runFor(0.8);
    speech().start(channel, "now this");
    EXPECT_TRUE(runUntil([&] { return ends.size() == 2; }));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Stopped, SpeechEnd::Finished));
}

TEST_F(DispatcherSpeechTest, AnyTextIsSaidToItsEnd)
{
    for (std::string const text : { "a < b & c > d \"e\" 'f'", "<speak>&amp;<mark name='x'/></speak>", ".",
             "..\n.\r\n...\nQUIT\r\n", "-", "\xC3\xA4\xF0\x9D\x84\x9E", "a\xFF\xC3z", "\xED\xA0\x80", "line\n\nline" })
        // On a busy machine the service may not tell the end of a text that follows a very short one; that is given up, once.
        EXPECT_TRUE(speaksToTheEnd(text) || speaksToTheEnd(text)) << testing::PrintToString(text);
    EXPECT_TRUE(speaksToTheEnd(std::string("nul\0nul", 7)));
}

TEST_F(DispatcherSpeechTest, AHugeTextIsBegunAndStoppedAtOnce)
{
    PulseRecorder recorder(*sound);
    for (std::string const& word : { std::string("word "), std::string("x") }) {
        std::string text;
        while (text.size() < (1U << 20))
            text += word;
        auto const channel = open();
        EXPECT_TRUE(speech().start(channel, text));
        auto const before = recorder.samples().size();
        auto const isHeard = [&] {
            return loudness({ recorder.samples().begin() + static_cast<std::ptrdiff_t>(before), recorder.samples().end() }) > 0;
        };
        EXPECT_TRUE(listenUntil(recorder, isHeard));
        speech().stop(channel);
        speech().closeChannel(channel);
        EXPECT_TRUE(speaksToTheEnd("after"));
    }
}

TEST_F(DispatcherSpeechTest, BlankTextSaysNothing)
{
    auto const channel = open();
    EXPECT_TRUE(speech().start(channel, " \t\n"));
    EXPECT_TRUE(speech().start(channel, ""));
    EXPECT_FALSE(speech().isSpeaking(channel));
}

TEST_F(DispatcherSpeechTest, AServiceThatIsKilledIsSoonNotSpeakingAndSpeaksWhenItIsBack)
{
    auto const channel = open();
    speech().start(channel, longText);
    runFor(2);
    EXPECT_TRUE(speech().isSpeaking(channel));
    service->kill();
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Stopped));
    speech().start(channel, "nobody hears this");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    service->start();
    EXPECT_TRUE(speaksToTheEnd("hello again"));
}

TEST_F(DispatcherSpeechTest, AServiceThatIsRestartedBetweenTwoTextsIsNotNoticed)
{
    EXPECT_TRUE(speaksToTheEnd("one"));
    service->kill();
    service->start();
    EXPECT_TRUE(speaksToTheEnd("two"));
}

TEST_F(DispatcherSpeechTest, ASoundServerThatIsKilledIsSoonNotSpeakingAndSpeaksWhenItIsBack)
{
    auto const channel = open();
    // What watches the sound server does so for each text of a connection.
    speech().start(channel, "one");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }));
    speech().start(channel, longText);
    runFor(2);
    EXPECT_TRUE(speech().isSpeaking(channel));
    sound->kill();
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    speech().start(channel, "nobody hears this");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    sound->start();
    service->kill();
    service->start();
    EXPECT_TRUE(speaksToTheEnd("hello again"));
}

TEST_F(DispatcherSpeechTest, AFrozenServiceIsGivenUp)
{
    auto const channel = open();
    speech().start(channel, longText);
    runFor(1.5);
    service->freeze();
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 15));
    service->goOn();
    EXPECT_TRUE(speaksToTheEnd("hello again"));
}

TEST_F(DispatcherSpeechTest, WithoutAServiceNothingIsSaidQuietly)
{
    use(optionsFor("/nonexistent/socket"));
    auto const synthesizer = make<NSSpeechSynthesizer>();
    synthesizer->startSpeakingString("hello");
    EXPECT_TRUE(runUntil([&] { return !synthesizer->isSpeaking(); }, 5));
    use(optionsFor(""));
    EXPECT_FALSE(synthesizer->startSpeakingString("hello"));
    EXPECT_FALSE(synthesizer->isSpeaking());
    EXPECT_FALSE(NSSpeechSynthesizer::isAnyApplicationSpeaking());
}

TEST_F(DispatcherSpeechTest, WithoutASoundServerNothingIsSaidQuietly)
{
    sound->kill();
    auto const channel = open();
    speech().start(channel, "hello");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Stopped));
}

TEST_F(DispatcherSpeechTest, AFrozenSoundServerIsGivenUp)
{
    sound->freeze();
    auto const channel = open();
    speech().start(channel, "hello");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 10));
    sound->goOn();
    EXPECT_TRUE(speaksToTheEnd("hello again"));
}

TEST_F(DispatcherSpeechTest, StartsTheServiceWhereNobodyListens)
{
    service->kill();
    EnvironmentVariable const runtime("XDG_RUNTIME_DIR", service->folder());
    EnvironmentVariable const home("HOME", service->folder());
    EnvironmentVariable const address("SPEECHD_ADDRESS", std::nullopt);
    auto options = DispatcherOptions::fromEnvironment();
    EXPECT_EQ(options.socketPath, service->folder() + "/speech-dispatcher/speechd.sock");
    use(options);
    EXPECT_TRUE(speaksToTheEnd("hello from a service that was started"));
}

/// Begins to speak and never ends, whatever it is told; writes its number to a file, and gives up by itself after a minute. It
/// listens before its starter has ended.
constexpr char const* stuckService = R"(#!/usr/bin/env python3
import os, signal, socket, sys
path = sys.argv[-1]
listener = socket.socket(socket.AF_UNIX)
if os.fork():
    os.wait()
    signal.sigtimedwait([], 1)
    sys.exit(0)
if os.fork():
    sys.exit(0)
signal.alarm(60)
listener.bind(path)
listener.listen()
open(os.path.dirname(path) + '/pid', 'w').write(str(os.getpid()))
client = listener.accept()[0].makefile('rw', newline='')
for line in client:
    word = line.split()[0]
    if word == 'SPEAK':
        client.write('230 OK\r\n')
        client.flush()
        while client.readline() != '.\r\n':
            pass
        client.write('225-1\r\n225 OK\r\n701-1\r\n701-1\r\n701 BEGIN\r\n')
    else:
        client.write('200 OK\r\n')
    client.flush()
)";

TEST_F(DispatcherSpeechTest, AServiceThatItStartedAndThatHangsIsEnded)
{
    StandInService const standIn(stuckService);
    auto options = optionsFor(standIn.socketPath());
    options.start = DispatcherOptions::Start::WhereMissing;
    use(options);
    auto const channel = open();
    speech().start(channel, longText);
    ASSERT_TRUE(runUntil([&] { return !standIn.text("pid").empty(); }));
    runFor(0.5);
    EXPECT_TRUE(speech().isSpeaking(channel));
    speech().stop(channel);
    auto const process = std::stoi(standIn.text("pid"));
    EXPECT_TRUE(runUntil([&] { return ::kill(process, 0) != 0; }, 10));
}

TEST_F(DispatcherSpeechTest, AServiceThatDoesNotGetReadyIsGivenUp)
{
    StandInService const standIn("#!/bin/sh\nexec tail -f /dev/null\n");
    auto options = optionsFor(standIn.socketPath());
    options.start = DispatcherOptions::Start::WhereMissing;
    use(options);
    auto const channel = open();
    speech().start(channel, "hello");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 20));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Stopped));
}

TEST_F(DispatcherSpeechTest, WhatIsNoSpeechServiceIsGivenUp)
{
    StandInService const standIn("#!/bin/sh\nexit 1\n");
    auto options = optionsFor(standIn.socketPath());
    options.start = DispatcherOptions::Start::WhereMissing;
    use(options);
    auto const channel = open();
    speech().start(channel, "hello");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(channel); }, 5));
    // Pulse's socket speaks another protocol.
    use(optionsFor(sound->address().substr(std::string_view("unix:").size())));
    auto const other = open();
    speech().start(other, "hello");
    EXPECT_TRUE(runUntil([&] { return !speech().isSpeaking(other); }, 15));
}

TEST_F(DispatcherSpeechTest, ListsVoicesWithoutVariantsAndSpeaksInOne)
{
    bool isTold = false;
    speech().setVoicesNews([&] { isTold = true; });
    EXPECT_TRUE(speech().voices().empty());
    EXPECT_TRUE(runUntil([&] { return isTold; }));
    auto const& voices = speech().voices();
    EXPECT_THAT(voices.size(), AllOf(Ge(20U), Le(1000U)));
    auto const german = std::find_if(voices.begin(), voices.end(), [](SpeechVoice const& voice) { return voice.language == "de"; });
    ASSERT_NE(german, voices.end());
    auto const channel = speech().openChannel(german->identifier, { [this](SpeechEnd end) { ends.push_back(end); }, nullptr });
    speech().start(channel, "guten Tag");
    EXPECT_TRUE(runUntil([this] { return !ends.empty(); }));
    EXPECT_THAT(ends, ElementsAre(SpeechEnd::Finished));
}

TEST_F(DispatcherSpeechTest, OtherApplicationsOfThisLibraryAreHeardOf)
{
    auto options = optionsFor(service->socketPath());
    options.mark = std::make_shared<SpeakingMark>(service->folder() + "/mark");
    use(options);
    options.mark = std::make_shared<SpeakingMark>(service->folder() + "/mark");
    DispatcherSpeech other(options);
    auto const channel = other.openChannel("", {});
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
    other.start(channel, "hello");
    EXPECT_TRUE(speech().isAnyApplicationSpeaking());
    EXPECT_TRUE(runUntil([&] { return !other.isSpeaking(channel); }));
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
}

TEST_F(DispatcherSpeechTest, ChannelsComeAndGoWhileTheyAreSpeaking)
{
    for (int i = 0; i < 20; ++i) {
        auto const channel = open();
        speech().start(channel, longText);
        if (i % 2)
            speech().stop(channel);
        speech().closeChannel(channel);
    }
    EXPECT_FALSE(speech().isAnyApplicationSpeaking());
    EXPECT_TRUE(speaksToTheEnd("after all"));
}

TEST(SpeakingMark, IsSeenByOthersAsLongAsItIsHeld)
{
    TestFolder const folder;
    SpeakingMark one(folder / "mark");
    SpeakingMark two(folder / "mark");
    EXPECT_FALSE(one.isHeldByOthers());
    one.setHeld(true);
    EXPECT_FALSE(one.isHeldByOthers());
    EXPECT_TRUE(two.isHeldByOthers());
    two.setHeld(true);
    EXPECT_TRUE(one.isHeldByOthers());
    one.setHeld(false);
    EXPECT_FALSE(two.isHeldByOthers());
    EXPECT_TRUE(one.isHeldByOthers());
}

TEST(SpeakingMark, WaitsForNobody)
{
    TestFolder const folder;
    auto const path = folder.write("mark");
    // Another program has the file alone, and keeps it.
    int const other = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
    SpeakingMark one(path);
    SpeakingMark two(path);
    one.setHeld(true);
    EXPECT_TRUE(two.isHeldByOthers());
    EXPECT_FALSE(one.isHeldByOthers());
    ::close(other);
}

TEST(SpeakingMark, WhoLooksIsNotSeenAndHidesNobody)
{
    TestFolder const folder;
    SpeakingMark looking(folder / "mark");
    SpeakingMark two(folder / "mark");
    SpeakingMark three(folder / "mark");
    std::atomic<bool> isOver { false };
    std::thread eye([&] {
        while (!isOver)
            looking.isHeldByOthers();
    });
    int falselySeen = 0;
    int notSeen = 0;
    for (int i = 0; i < 5000; ++i) {
        falselySeen += two.isHeldByOthers() ? 1 : 0;
        three.setHeld(true);
        notSeen += two.isHeldByOthers() ? 0 : 1;
        three.setHeld(false);
    }
    isOver = true;
    eye.join();
    EXPECT_EQ(falselySeen, 0);
    EXPECT_EQ(notSeen, 0);
}

TEST(SpeakingMark, WithoutAFileNobodyIsSeen)
{
    for (auto const* const path : { "", "/nonexistent/mark" }) {
        SpeakingMark one(path);
        SpeakingMark two(path);
        one.setHeld(true);
        EXPECT_FALSE(two.isHeldByOthers()) << path;
    }
}

}
}

#endif
