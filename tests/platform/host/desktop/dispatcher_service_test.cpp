#ifdef PLIX_SPEECH

#include <plix/platform/host/desktop/DispatcherService.h>
#include <plix/platform/host/desktop/DispatcherSpeech.h>
#include <plix/platform/host/desktop/PulseVolumes.h>
#include <tests/support/ChildProcess.h>
#include <tests/support/SpeechListener.h>
#include <tests/support/StandInService.h>

#include <gmock/gmock.h>

#include <csignal>

#include <poll.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A service whose time the test lets pass, with a real sound server.
class DispatcherServiceTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!PulseServer::isInstalled())
            GTEST_SKIP() << "no sound server is installed";
        sound = std::make_unique<PulseServer>();
    }
    void make(std::string const& socketPath, DispatcherOptions::Start start)
    {
        DispatcherOptions options { "tester", "test", socketPath, start, std::make_shared<SpeakingMark>("") };
        service = std::make_unique<DispatcherService>(
            options, DispatcherService::News { [this](std::uint32_t channel, long, bool) { ended.push_back(channel); }, {} });
    }
    bool turnUntil(std::function<bool()> const& condition, SpeechListener* listener = nullptr)
    {
        return waitUntil([&] {
            turn(listener);
            return condition();
        });
    }
    void turn(SpeechListener* listener = nullptr)
    {
        if (listener)
            listener->answer();
        service->turn(now);
        service->wait(-1, now, now);
    }

    double now { 1000 };
    std::unique_ptr<PulseServer> sound;
    std::unique_ptr<DispatcherService> service;
    std::vector<std::uint32_t> ended;
};

constexpr char const* slowStarter = "#!/bin/sh\necho $$ > \"${0%/*}/pid\"\nexec tail -f /dev/null\n";

TEST_F(DispatcherServiceTest, ATextThatIsStoppedWhileTheServiceStartsLeavesNothingBehind)
{
    StandInService const standIn(slowStarter);
    make(standIn.socketPath(), DispatcherOptions::Start::WhereMissing);
    service->open(1, "");
    service->speak(1, 1, "hello");
    ASSERT_TRUE(turnUntil([&] { return standIn.text("pid").ends_with('\n'); }));
    service->stop(1);
    turn();
    now += 9;
    turn();
    ASSERT_TRUE(service->deadline());
    EXPECT_GT(*service->deadline(), now);
    // The starter is given up with nobody left who wants it.
    now += 2;
    turn();
    EXPECT_NE(::kill(std::stoi(standIn.text("pid")), 0), 0);
    EXPECT_FALSE(service->deadline());
    now += 10;
    SpeechListener listener(standIn.socketPath());
    service->speak(1, 2, "again");
    EXPECT_TRUE(turnUntil([&] { return !listener.texts().empty(); }, &listener));
    EXPECT_THAT(ended, IsEmpty());
}

TEST_F(DispatcherServiceTest, ATextBehindAnotherOfThisProgramWaitsForItsTurn)
{
    TestFolder const folder;
    SpeechListener listener(folder / "socket");
    make(folder / "socket", DispatcherOptions::Start::Never);
    for (std::uint32_t channel : { 1U, 2U }) {
        service->open(channel, "");
        service->speak(channel, channel, "text " + std::to_string(channel));
        ASSERT_TRUE(turnUntil([&] { return listener.texts().size() == channel; }, &listener));
    }
    EXPECT_THAT(listener.texts(), ElementsAre("text 1", "text 2"));
    std::string const paused = "701-1\r\n701-1\r\n701 BEGIN\r\n704-1\r\n704-1\r\n704 PAUSED\r\n";
    listener.send(0, paused);
    for (int second = 0; second < 60; ++second) {
        turn(&listener);
        now += 1;
    }
    turn(&listener);
    EXPECT_THAT(ended, IsEmpty());
    listener.send(0, "705-1\r\n705-1\r\n705 RESUMED\r\n702-1\r\n702-1\r\n702 END\r\n");
    EXPECT_TRUE(turnUntil([&] { return !ended.empty(); }, &listener));
    for (int second = 0; second < 45; ++second) {
        turn(&listener);
        now += 1;
    }
    EXPECT_THAT(ended, ElementsAre(1U, 2U));
}

TEST(DispatcherLine, APeerThatNeverPausesHoldsNobodyUp)
{
    TestFolder const folder;
    SpeechListener listener(folder / "socket");
    DispatcherLine line;
    ASSERT_EQ(line.connect(folder / "socket", { "me", "test", "" }, 0), DispatcherLine::Attempt::Connected);
    listener.answer();
    std::string events;
    while (events.size() < (100U << 10))
        events += "701-1\r\n701-1\r\n701 BEGIN\r\n";
    listener.send(0, events);
    int unread = 0;
    EXPECT_TRUE(line.transfer(POLLIN, 0));
    EXPECT_EQ(::ioctl(line.interest().fd, FIONREAD, &unread), 0);
    EXPECT_GT(unread, 0);
    EXPECT_TRUE(line.transfer(POLLIN, 0));
    EXPECT_EQ(::ioctl(line.interest().fd, FIONREAD, &unread), 0);
    EXPECT_EQ(unread, 0);
    // One that talks nonsense is not listened to.
    listener.send(0, std::string(60U << 10, '\n'));
    EXPECT_TRUE(line.transfer(POLLIN, 0));
    EXPECT_EQ(line.session().trouble(), SsipSession::Trouble::Silent);
    EXPECT_EQ(::ioctl(line.interest().fd, FIONREAD, &unread), 0);
    EXPECT_GT(unread, 0);
}

TEST(DispatcherStart, AProgramThatFailsIsLeftAloneForAWhile)
{
    StandInService const standIn("#!/bin/sh\necho run >> \"${0%/*}/runs\"\nexit 1\n");
    DispatcherStart start;
    start.begin(standIn.socketPath(), 100);
    EXPECT_EQ(start.state(), DispatcherStart::State::Starting);
    EXPECT_TRUE(waitUntil([&] {
        start.goOn(101);
        return start.state() == DispatcherStart::State::Failed;
    }));
    start.begin(standIn.socketPath(), 105.9);
    EXPECT_EQ(start.state(), DispatcherStart::State::Failed);
    start.begin(standIn.socketPath(), 106.1);
    EXPECT_EQ(start.state(), DispatcherStart::State::Starting);
    EXPECT_TRUE(waitUntil([&] { return standIn.text("runs") == "run\nrun\n"; }));
}

TEST(DispatcherStart, TheServiceInheritsNeitherFilesNorSignals)
{
    StandInService const standIn(
        "#!/bin/sh\nls /proc/$$/fd > \"${0%/*}/files\"\ngrep SigIgn /proc/$$/status > \"${0%/*}/signals\"\n");
    constexpr int number = 77;
    ASSERT_EQ(::dup2(STDERR_FILENO, number), number);
    auto const before = std::signal(SIGUSR1, SIG_IGN);
    DispatcherStart start;
    start.begin(standIn.socketPath(), 100);
    std::signal(SIGUSR1, before);
    ::close(number);
    EXPECT_TRUE(waitUntil([&] {
        start.goOn(101);
        return start.state() == DispatcherStart::State::Started;
    }));
    EXPECT_THAT(standIn.text("files"), testing::StartsWith("0\n1\n"));
    EXPECT_THAT(standIn.text("files"), testing::Not(testing::HasSubstr("77")));
    auto const signals = standIn.text("signals");
    EXPECT_EQ(std::stoull(signals.substr(signals.find('\t')), nullptr, 16) & (1U << (SIGUSR1 - 1)), 0U) << signals;
}

TEST(DispatcherOptions, AsTheServicesClientsFindIt)
{
    TestFolder const folder;
    EnvironmentVariable const runtime("XDG_RUNTIME_DIR", folder.path());
    EnvironmentVariable const address("SPEECHD_ADDRESS", std::nullopt);
    auto const options = DispatcherOptions::fromEnvironment();
    EXPECT_EQ(options.socketPath, folder / "speech-dispatcher/speechd.sock");
    auto const others = DispatcherOptions::fromEnvironment();
    options.mark->setHeld(true);
    EXPECT_TRUE(others.mark->isHeldByOthers());
}

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

TEST(DispatcherSpeech, WithoutDescriptorsNothingIsSaidAndNothingHangs)
{
    if (isSanitized)
        GTEST_SKIP() << "sanitizers need descriptors to look at objects";
    TestFolder const folder;
    DispatcherOptions options { "tester", "test", folder / "socket", DispatcherOptions::Start::Never, nullptr };
    DispatcherSpeech speech(options);
    rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
    rlimit const none { 0, before.rlim_max };
    ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    auto const channel = speech.openChannel("", {});
    auto const volumes = PulseVolumes::make([] {});
    ::setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_FALSE(speech.start(channel, "hello"));
    EXPECT_FALSE(speech.isSpeaking(channel));
    EXPECT_EQ(volumes, nullptr);
}

}
}

#endif
