#include "failing_calls.h"

#include <tests/support/SoundServiceTest.h>
#include <tests/support/run_until.h>
#include <tests/support/sound_files.h>

#include <gmock/gmock.h>

#include <cmath>
#include <cstdio>
#include <limits>

namespace plix {
namespace {

using testing::AnyOf;
using testing::ElementsAre;

struct FailingCase {
    Call call;
    char const* name;
    // How many there are at least when a sound is played, and when a volume is read.
    long leastOfSounds;
    long leastOfVolumes;
};

constexpr FailingCase s_cases[] = {
    { Call::allocateElsewhere, "allocate", 5, 0 },
    { Call::open, "open", 1, 1 },
    { Call::socket, "socket", 1, 1 },
    { Call::connect, "connect", 1, 1 },
    { Call::send, "send", 10, 5 },
    { Call::receive, "receive", 10, 5 },
    { Call::hangUp, "hang up", 10, 5 },
    { Call::wait, "wait", 15, 5 },
    { Call::pipe, "pipe", 1, 0 },
    { Call::share, "share", 1, 1 },
    { Call::map, "map", 1, 1 },
    { Call::startThread, "start a thread", 2, 1 },
};

/// One call after the other that a client of the sound server makes fails, once.
class FailingSoundServer : public SoundServiceTest {
protected:
    void SetUp() override
    {
        SoundServiceTest::SetUp();
        if (IsSkipped())
            return;
        m_recorder = std::make_unique<PulseRecorder>(*server);
        m_short = folder.write("short.wav", wavFile({ .seconds = 0.12 }));
        m_long = folder.write("long.wav", wavFile({ .seconds = 60 }));
    }
    /// Plays one to its end while the call fails. False when there was none to fail.
    bool playsWhileFailing(DesktopAudio& audio, Call call, long nth)
    {
        auto const sound = audio.openSound(m_short);
        std::vector<bool> ends;
        sound->setFinished([&](bool toEnd) { ends.push_back(toEnd); });
        bool hasFailed = false;
        {
            Failing const failing(call, nth);
            EXPECT_TRUE(sound->play());
            EXPECT_TRUE(runUntil([&] { return !ends.empty(); }));
            hasFailed = failing.hasFailed();
        }
        // What there was no memory or thread to play for is not played to its end.
        bool const mayBreakOff = call == Call::allocateElsewhere || call == Call::startThread;
        EXPECT_THAT(ends, AnyOf(ElementsAre(true), ElementsAre(!mayBreakOff)));
        EXPECT_FALSE(sound->isPlaying());
        return hasFailed;
    }
    /// Whether a sound reaches the server.
    bool isHeard(DesktopAudio& audio)
    {
        auto const sound = audio.openSound(m_long);
        sound->play();
        bool const isFetched = runUntil([&] { return audio.lastDelay().has_value(); });
        bool const isThere = runUntil([&] { return server->inputCount() > 0; });
        sound->stop();
        return isFetched && isThere;
    }

    using Operation = std::function<bool(Call, long nth)>;

    /// Does it for each kind of call while the first one fails, then the second, until it answers that none was left; looks after
    /// each time whether something is left behind.
    void failEach(long FailingCase::*least, Operation const& operation)
    {
        // What is made once and kept is there before anything fails.
        operation(Call::allocate, std::numeric_limits<long>::max());
        EXPECT_TRUE(runUntil([] { return threads() == 1; }));
        auto const files = openFiles();
        for (auto const& each : s_cases) {
            SCOPED_TRACE(each.name);
            auto const failed = failEach(each.call, files, operation);
            std::printf("%s: %ld calls\n", each.name, failed);
            EXPECT_GE(failed, each.*least);
            if (HasFailure())
                return;
        }
    }

private:
    static long failEach(Call call, long files, Operation const& operation)
    {
        for (long nth = 1;; ++nth) {
            SCOPED_TRACE(nth);
            bool const hasFailed = operation(call, nth);
            EXPECT_TRUE(runUntil([&] { return threads() == 1 && openFiles() == files; })) << openFiles() << " of " << files;
            if (!hasFailed || HasFailure())
                return nth - 1;
        }
    }

    /// Without somebody who listens in short pieces this output would take what it plays two seconds at a time.
    std::unique_ptr<PulseRecorder> m_recorder;
    std::string m_short;
    std::string m_long;
};

TEST_F(FailingSoundServer, SoundsEndAndTheNextOneIsHeard)
{
    failEach(&FailingCase::leastOfSounds, [&](Call call, long nth) {
        DesktopAudio audio([] {});
        bool const hasFailed = playsWhileFailing(audio, call, nth);
        EXPECT_TRUE(isHeard(audio));
        return hasFailed;
    });
}

TEST_F(FailingSoundServer, VolumesAreAnsweredAgain)
{
    server->setVolume("first", 30, 70);
    auto const isRead = [](std::optional<StereoVolume> volume) { return volume && std::abs(volume->left - 0.3) < 0.005; };
    failEach(&FailingCase::leastOfVolumes, [&](Call call, long nth) {
        DesktopAudio audio([] {});
        bool hasFailed = false;
        {
            Failing const failing(call, nth);
            auto const volume = audio.outputVolume();
            EXPECT_TRUE(!volume || isRead(volume));
            hasFailed = failing.hasFailed();
        }
        EXPECT_TRUE(runUntil([&] { return isRead(audio.outputVolume()); }));
        return hasFailed;
    });
}

TEST_F(FailingSoundServer, ChangesOfVolumeAreToldAgain)
{
    int percent = 30;
    failEach(&FailingCase::leastOfVolumes, [&](Call call, long nth) {
        DesktopAudio audio([] {});
        int told = 0;
        bool hasFailed = false;
        auto const isTold
            = [&] { return told > 0 && audio.outputVolume() && std::abs(audio.outputVolume()->left - percent / 100.0) < 0.005; };
        {
            Failing const failing(call, nth);
            auto const observer = audio.observeOutputVolume([&] { ++told; });
            runUntil([&] { return told > 0 || failing.hasFailed(); }, 2);
            hasFailed = failing.hasFailed();
        }
        auto const observer = audio.observeOutputVolume([&] { ++told; });
        percent = percent == 30 ? 60 : 30;
        server->setVolume("first", percent, percent);
        EXPECT_TRUE(runUntil(isTold));
        return hasFailed;
    });
}

}
}
