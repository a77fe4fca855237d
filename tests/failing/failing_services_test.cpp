#ifdef PLIX_SPEECH

#include "FailingTest.h"

#include <plix/platform/foundation/NSRunLoop.h>
#include <plix/platform/host/desktop/DesktopAudio.h>
#include <plix/platform/host/desktop/DispatcherSpeech.h>
#include <plix/platform/host/desktop/SoundReader.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/platform/host/sound_file_bytes.h>
#include <tests/support/PulseServer.h>
#include <tests/support/SpeechListener.h>
#include <tests/support/sound_files.h>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <thread>

namespace plix {
namespace {

class FailingSounds : public FailingTest {
protected:
    void SetUp() override
    {
        FailingTest::SetUp();
        if (SoundDecoder::fileTypes().empty())
            GTEST_SKIP() << "no sound files are read";
    }
};

TEST_F(FailingSounds, DecodingWithoutMemoryLeavesNothingBehind)
{
    auto const path = folder.write("tone.wav", wavFile({ .seconds = 0.1, .rate = 8000, .channels = 1 }));
    auto const calls = failEach(Call::allocate, [&](Made&) {
        auto bytes = SoundFileBytes::open(path);
        auto decoder = bytes ? SoundDecoder::open(std::move(bytes)) : nullptr;
        if (!decoder)
            return;
        SoundReader reader(std::move(decoder));
        std::vector<float> samples(2000);
        reader.read(samples);
        reader.rewind();
    });
    EXPECT_GT(calls, 3);
}

TEST_F(FailingSounds, FilesThatCanNotBeReadEndEarly)
{
    auto const path = folder.write("tone.wav", wavFile({ .seconds = 0.1, .rate = 8000, .channels = 1 }));
    for (auto const call : { Call::open, Call::read, Call::shortRead }) {
        auto const calls = failEach(call, [&](Made&) {
            auto bytes = SoundFileBytes::open(path);
            auto decoder = bytes ? SoundDecoder::open(std::move(bytes)) : nullptr;
            if (!decoder)
                return;
            SoundReader reader(std::move(decoder));
            std::vector<float> samples(2000);
            while (reader.read(samples) == samples.size()) { }
        });
        EXPECT_GE(calls, 1);
    }
}

/// A socket where somebody listens who takes connections and does nothing with them, or ends them at once.
class Listener {
public:
    enum class Manner { closes, keeps };
    Listener(std::string path, Manner manner)
        : m_path(std::move(path))
        , m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        sockaddr_un address {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, m_path.c_str(), sizeof address.sun_path - 1);
        if (::bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || ::listen(m_socket, 16) != 0)
            std::abort();
        m_thread = std::thread([this, manner] {
            for (;;) {
                int const taken = ::accept(m_socket, nullptr, nullptr);
                if (taken < 0)
                    return;
                ++m_taken;
                if (manner == Manner::closes)
                    ::close(taken);
                else
                    m_kept.push_back(taken);
            }
        });
    }
    ~Listener()
    {
        ::shutdown(m_socket, SHUT_RDWR);
        m_thread.join();
        ::close(m_socket);
        for (int const taken : m_kept)
            ::close(taken);
    }
    Listener(Listener const&) = delete;
    Listener& operator=(Listener const&) = delete;

    int taken() const { return m_taken; }

private:
    std::string m_path;
    int m_socket;
    std::vector<int> m_kept;
    std::atomic<int> m_taken { 0 };
    std::thread m_thread;
};

/// In the time of this machine.
class FailingSpeech : public testing::Test {
protected:
    FailingSpeech()
        : m_before(installHost(std::make_unique<HeadlessHost>()))
    {
    }
    ~FailingSpeech() override { installHost(std::move(m_before)); }

    // Without a sound server no connection is tried.
    void SetUp() override
    {
        if (!PulseServer::isInstalled())
            GTEST_SKIP() << "there is no sound server";
        m_sound = std::make_unique<PulseServer>();
    }
    std::string path() const { return folder / "speech.sock"; }
    DispatcherOptions options() const
    {
        DispatcherOptions all;
        all.user = "tester";
        all.application = "test";
        all.socketPath = path();
        all.start = DispatcherOptions::Start::Never;
        return all;
    }
    /// Whether it ended by being given up, in time, once.
    static testing::AssertionResult isGivenUp(DispatcherSpeech& speech, double patience)
    {
        std::vector<SpeechEnd> ends;
        auto const channel = speech.openChannel("", { [&](SpeechEnd end) { ends.push_back(end); }, {} });
        if (!speech.start(channel, "hello"))
            return testing::AssertionSuccess();
        NSRunLoop::currentRunLoop().runUntil(
            [&] { return !ends.empty(); }, NSDefaultRunLoopMode, NSDate::dateWithTimeIntervalSinceNow(patience));
        bool const isStopped = ends == std::vector { SpeechEnd::Stopped } && !speech.isSpeaking(channel);
        speech.closeChannel(channel);
        return isStopped ? testing::AssertionSuccess() : testing::AssertionFailure() << ends.size() << " ends";
    }

    TestFolder folder;

private:
    std::unique_ptr<PulseServer> m_sound;
    std::unique_ptr<Host> m_before;
};

TEST_F(FailingSpeech, IsGivenUpWhereConnectionsAreRefused)
{
    Listener const listener(path(), Listener::Manner::keeps);
    DispatcherSpeech speech(options());
    for (long nth = 1; nth <= 3; ++nth) {
        Failing const failing(Call::connect, nth);
        EXPECT_TRUE(isGivenUp(speech, 20)) << nth;
    }
}

TEST_F(FailingSpeech, IsGivenUpWhereConnectionsEndAtOnce)
{
    Listener const listener(path(), Listener::Manner::closes);
    DispatcherSpeech speech(options());
    EXPECT_TRUE(isGivenUp(speech, 20));
    EXPECT_TRUE(isGivenUp(speech, 20));
    EXPECT_GT(listener.taken(), 0);
}

TEST_F(FailingSpeech, IsGivenUpWhereNobodyAnswers)
{
    Listener const listener(path(), Listener::Manner::keeps);
    DispatcherSpeech speech(options());
    EXPECT_TRUE(isGivenUp(speech, 20));
    EXPECT_GE(listener.taken(), 1);
}

/// A text that is spoken by a service on this thread, while the other one has no memory once.
class FailingSpeaker {
public:
    explicit FailingSpeaker(DispatcherOptions const& options, SpeechListener::Manner manner = SpeechListener::Manner::Speaking)
        : m_listener(options.socketPath, manner)
        , m_speech(std::make_unique<DispatcherSpeech>(options))
        , m_channel(m_speech->openChannel("", { [this](SpeechEnd end) { m_ends.push_back(end); }, {} }))
    {
        m_speech->setVoicesNews([this] { ++m_voicesNews; });
    }

    bool begin() { return m_speech->start(m_channel, "hello. and on"); }
    /// How the text ended, once that is told.
    std::vector<SpeechEnd> speak()
    {
        m_ends.clear();
        EXPECT_TRUE(begin());
        EXPECT_TRUE(answerUntil([this] { return !m_ends.empty(); }));
        EXPECT_FALSE(m_speech->isSpeaking(m_channel));
        return m_ends;
    }
    bool listsVoices()
    {
        return answerUntil([this] {
            m_speech->voices();
            return m_voicesNews > 0;
        });
    }
    void takesText()
    {
        EXPECT_TRUE(answerUntil([this] { return !m_listener.texts().empty(); }));
    }
    void end() { m_speech.reset(); }

private:
    bool answerUntil(std::function<bool()> const& condition)
    {
        return waitUntil([&] {
            m_listener.answer();
            NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(0.001));
            return condition();
        });
    }

    SpeechListener m_listener;
    std::unique_ptr<DispatcherSpeech> m_speech;
    std::vector<SpeechEnd> m_ends;
    int m_voicesNews { 0 };
    SpeechChannel m_channel;
};

class FailingSpeechThread : public FailingSpeech {
protected:
    /// Answers how many allocations there were to fail.
    template <typename Operation> long failEach(Operation const& operation)
    {
        // What is made once and kept is there before anything fails.
        FailingSpeaker(options()).speak();
        for (long nth = 1;; ++nth) {
            SCOPED_TRACE(nth);
            std::filesystem::remove(path());
            auto const files = openFiles();
            bool const hasFailed = operation(nth);
            EXPECT_EQ(openFiles(), files);
            EXPECT_EQ(threads(), 1);
            if (!hasFailed || HasFailure()) {
                std::printf("%ld calls\n", nth - 1);
                return nth - 1;
            }
        }
    }
};

TEST_F(FailingSpeechThread, TextsWithoutMemoryAreGivenUpAndTheNextOneIsSpoken)
{
    auto const calls = failEach([this](long nth) {
        FailingSpeaker speaker(options());
        bool hasFailed = false;
        {
            Failing const failing(Call::allocateElsewhere, nth);
            auto const ends = speaker.speak();
            hasFailed = failing.hasFailed();
            EXPECT_EQ(ends.size(), 1U);
            EXPECT_TRUE(hasFailed || ends.front() == SpeechEnd::Finished);
        }
        EXPECT_EQ(speaker.speak(), std::vector { SpeechEnd::Finished });
        return hasFailed;
    });
    EXPECT_GT(calls, 50);
}

TEST_F(FailingSpeechThread, VoicesWithoutMemoryAreAskedForAgain)
{
    auto const calls = failEach([this](long nth) {
        FailingSpeaker speaker(options());
        Failing const failing(Call::allocateElsewhere, nth);
        EXPECT_TRUE(speaker.listsVoices());
        return failing.hasFailed();
    });
    EXPECT_GT(calls, 20);
}

TEST_F(FailingSpeechThread, EndsWithoutMemory)
{
    auto const calls = failEach([this](long nth) {
        FailingSpeaker speaker(options(), SpeechListener::Manner::Silent);
        EXPECT_TRUE(speaker.begin());
        speaker.takesText();
        Failing const failing(Call::allocateElsewhere, nth);
        speaker.end();
        // It goes on asking until the time for its farewell is over.
        constexpr long enough = 40;
        return failing.hasFailed() && nth < enough;
    });
    EXPECT_GE(calls, 2);
}

}
}

#endif
