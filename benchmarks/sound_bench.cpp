#include "bench.h"

#include <plix/platform/foundation/NSRunLoop.h>

#include <tests/support/PulseServer.h>
#include <tests/support/SoundHost.h>
#include <tests/support/sound_files.h>

#include <chrono>
#include <stdexcept>

#include <sys/resource.h>

namespace plix::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Seconds enough { 10 };
constexpr double millisecondsPerSecond = 1000;

/// Sounds of a person's machine: another rate than the output's.
struct Sounds {
    TestFolder folder;
    PulseServer server;
    std::string click { folder.write("click.wav", wavFile({ .seconds = 0.05, .rate = 44100 })) };
    std::string tone { folder.write("tone.wav", wavFile({ .seconds = 20, .amplitude = 0.02, .rate = 44100 })) };
};

Sounds& sounds()
{
    static Sounds s_sounds;
    return s_sounds;
}

double millisecondsToFirstSample(SoundHost& machine)
{
    auto const sound = machine.audio().openSound(sounds().click);
    sound->play();
    if (!waitUntil([&] { return machine.audio().lastDelay().has_value(); }, enough))
        throw std::runtime_error("the sound was not fetched");
    auto const delay = *machine.audio().lastDelay();
    NSRunLoop::currentRunLoop().runUntil([&] { return !sound->isPlaying(); });
    return delay * millisecondsPerSecond;
}

double processorSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval time) { return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Of one processor, while sixteen sounds play; the main thread does nothing meanwhile.
double percentForSixteen(SoundHost& machine)
{
    std::vector<std::unique_ptr<HostSound>> playing;
    for (int i = 0; i < 16; ++i) {
        playing.push_back(machine.audio().openSound(sounds().tone));
        playing.back()->play();
    }
    waitUntil([&] { return machine.audio().lastDelay().has_value(); }, enough);
    auto const begun = Clock::now();
    auto const before = processorSeconds();
    NSRunLoop::currentRunLoop().runUntilDate(NSDate::dateWithTimeIntervalSinceNow(2));
    auto const passed = std::chrono::duration<double>(Clock::now() - begun).count();
    return 100 * (processorSeconds() - before) / passed;
}

}

// From the call to the first sample that the device fetches, while the device is open.
PLIX_FIGURE("sound.first_sample")
{
    if (!PulseServer::isInstalled())
        return figure.skip("no sound server is installed");
    sounds();
    SoundHost machine;
    figure.setUnit("ms");
    figure.sample([&] { return millisecondsToFirstSample(machine); });
}

// The same while the device is closed.
PLIX_FIGURE("sound.first_sample_cold")
{
    if (!PulseServer::isInstalled())
        return figure.skip("no sound server is installed");
    sounds();
    figure.setUnit("ms");
    figure.setRuns(9);
    figure.sample([] {
        SoundHost machine;
        return millisecondsToFirstSample(machine);
    });
}

PLIX_FIGURE("sound.sixteen")
{
    if (!PulseServer::isInstalled())
        return figure.skip("no sound server is installed");
    sounds();
    SoundHost machine;
    figure.setUnit("% of a processor");
    figure.setRuns(5);
    figure.sample([&] { return percentForSixteen(machine); });
}

}
