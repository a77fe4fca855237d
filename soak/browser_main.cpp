// Uses the browser for a long time and says whether its memory stays as it is.

#include "BrowserLoop.h"
#include "options.h"
#include "write_fence.h"

#include <examples/support/example_options.h>
#include <plix/app/PLIXApplication.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace {

constexpr double allowedGrowth = 0.01;

char const usage[] = "Usage: soak_browser [OPTIONS]\nUses the browser and fails where its memory grows by more than 1 %.\n"
                     "  --minutes N   how long (60)\n"
                     "  --warm-up N   minutes at the beginning, at ten times the pace, that do not count (a sixth)\n"
                     "  --rate N      actions a second (20)\n"
                     "  --seed N      which actions (1)\n";

// False where it grew too much.
bool report(char const* name, double unit, char const* unitName, std::span<soak::MemorySample const> samples,
    double soak::MemorySample::*figure)
{
    auto const grown = soak::growth(samples, figure);
    bool const isFlat = std::abs(grown.share) <= allowedGrowth || grown.share < 0;
    std::printf("%-9s first quarter %.3f %s, last quarter %.3f %s, %+.3f %%%s\n", name, grown.first / unit, unitName,
        grown.last / unit, unitName, grown.share * 100, isFlat ? "" : ": too much");
    return isFlat;
}

int run(soak::BrowserLoop::Options const& options)
{
    auto machine = std::make_unique<plix::HeadlessHost>(plix::HeadlessHost::Time::Machine);
    auto& host = *machine;
    plix::installHost(std::move(machine));
    auto const application = plix::make<plix::PLIXApplication>();
    soak::BrowserLoop loop(host, options, [](soak::MemorySample const& sample) {
        std::printf("%8.1f s  own %9.0f KiB  heap %9.0f KiB  objects %.0f  (resident %.0f KiB)\n", sample.seconds,
            sample.ownBytes / 1024, sample.allocatedBytes / 1024, sample.objects, sample.residentBytes / 1024);
        std::fflush(stdout);
    });
    // Reading folders everywhere is harmless; nothing else is.
    auto const runs = soak::folderOfRuns();
    ::setenv("HOME", loop.folder().homeFolder().c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", loop.folder().homeFolder().c_str(), 1);
    ::setenv("TMPDIR", loop.folder().homeFolder().c_str(), 1);
    if (!soak::fenceWrites(runs)) {
        std::fprintf(stderr, "soak_browser: writing can't be confined to a folder here\n");
        return EXIT_FAILURE;
    }
    loop.run();
    auto const samples = soak::afterWarmUp(loop.samples(), options.warmUpMinutes * 60);
    std::printf("%ld actions in %.1f minutes, %zu samples after %.1f minutes of warming up\n", loop.actions(), options.minutes,
        samples.size(), options.warmUpMinutes);
    bool isFlat = report("own", 1024 * 1024, "MiB", samples, &soak::MemorySample::ownBytes);
    isFlat &= report("heap", 1024 * 1024, "MiB", samples, &soak::MemorySample::allocatedBytes);
    isFlat &= report("objects", 1, "", samples, &soak::MemorySample::objects);
    return isFlat ? EXIT_SUCCESS : EXIT_FAILURE;
}

}

int main(int argc, char** argv)
{
    example::returnMemory();
    soak::CommandLine words(argc, argv, { "minutes", "warm-up", "rate", "seed" }, { "help" });
    soak::BrowserLoop::Options options;
    options.minutes = words.number("minutes", options.minutes);
    options.actionsASecond = words.number("rate", options.actionsASecond);
    options.seed = static_cast<unsigned>(words.number("seed", options.seed));
    options.warmUpMinutes = words.number("warm-up", options.minutes / 6);
    if (!words.problem().empty() || words.has("help")) {
        std::fprintf(
            words.has("help") ? stdout : stderr, "%s%s%s", words.problem().c_str(), words.problem().empty() ? "" : "\n", usage);
        return words.problem().empty() ? EXIT_SUCCESS : 2;
    }
    return run(options);
}
