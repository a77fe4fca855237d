// Plays random events over the gallery and looks for what must hold.

#include "GalleryRun.h"
#include "options.h"
#include "shrinking.h"
#include "write_fence.h"

#include <examples/gallery/pages.h>

#include <plix/app/PLIXApplication.h>
#include <plix/platform/base/NSLog.h>
#include <plix/platform/host/headless/HeadlessHost.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <optional>

#include <sys/wait.h>
#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define SOAK_SANITIZED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SOAK_SANITIZED 1
#endif
#endif
#ifdef SOAK_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

namespace {

using namespace plix;

char const usage[] = "Usage: soak_gallery [OPTIONS]\nPlays random events over the gallery.\n"
                     "  --events N        how many (1000000)\n"
                     "  --seed N          which (1)\n"
                     "  --chapter N       events between a page's opening and its closing (400)\n"
                     "  --page NAME       only over this page\n"
                     "  --replay-from N   begin with the chapter that has this event\n"
                     "  --shrink          of the first chapter that fails, look for the few events that it takes\n";

struct Options {
    soak::GalleryRun::Options run;
    long events { 1000000 };
    long firstEvent { 0 };
    bool shrinks { false };
};

soak::GalleryRun const* s_run = nullptr;

void tell()
{
    if (auto const* const run = std::exchange(s_run, nullptr))
        std::fprintf(stderr, "soak_gallery: %s", run->story().c_str());
}

void tellAndDie(int signal)
{
    if (signal == SIGALRM)
        std::fprintf(stderr, "soak_gallery: hangs\n");
    tell();
    std::signal(SIGABRT, SIG_DFL);
    std::abort();
}

class Delegate : public NSObject {
public:
    NSApplicationTerminateReply applicationShouldTerminate(NSApplication&) { return NSTerminateCancel; }
};

/// A machine and an application of its own, whose settings are in a folder that goes with it.
class Stage {
public:
    Stage()
    {
        auto const runs = soak::folderOfRuns();
        m_home = soak::makeRunFolder();
        ::setenv("HOME", m_home.c_str(), 1);
        ::setenv("XDG_CONFIG_HOME", m_home.c_str(), 1);
        ::setenv("TMPDIR", m_home.c_str(), 1);
        ::setenv("TZ", "UTC", 1);
        if (!soak::fenceWrites(runs)) {
            std::fprintf(stderr, "soak_gallery: writing can't be confined to a folder here\n");
            std::_Exit(EXIT_FAILURE);
        }
        auto machine = std::make_unique<HeadlessHost>(HeadlessHost::Time::Movable);
        host = machine.get();
        installHost(std::move(machine));
        application = make<PLIXApplication>();
        delegate = make<Delegate>();
        application->setDelegate(delegate);
        installLogSink([](std::string_view) {});
    }
    ~Stage()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_home, ignored);
    }

    HeadlessHost* host;
    Ref<PLIXApplication> application;
    Ref<Delegate> delegate;

private:
    std::string m_home;
};

void dieTelling()
{
    constexpr unsigned hang = 900;
    std::signal(SIGABRT, tellAndDie);
    std::signal(SIGALRM, tellAndDie);
    ::alarm(hang);
#ifdef SOAK_SANITIZED
    __sanitizer_set_death_callback(tell);
#endif
}

/// In a process of its own, which may die. True where the events make the chapter fail.
bool failsWith(Options const& options, std::uint32_t chapter, std::vector<soak::RandomEvent> const& events)
{
    auto const child = ::fork();
    if (child == 0) {
        if (!std::freopen("/dev/null", "w", stderr) || !std::freopen("/dev/null", "w", stdout))
            ::_exit(0);
        ::alarm(60);
        Stage const stage;
        soak::GalleryRun run(*stage.host, options.run);
        ::_exit(run.playChapter(chapter, events) ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

void shrink(Options const& options, std::uint32_t chapter)
{
    auto events = soak::chapterEvents(options.run.seed, chapter, options.run.eventsAChapter);
    if (!failsWith(options, chapter, events)) {
        std::printf("chapter %u does not fail by itself\n", chapter);
        return;
    }
    events = soak::shrunk(std::move(events), [&](auto const& fewer) { return failsWith(options, chapter, fewer); });
    std::printf("%zu events are enough:\n", events.size());
    for (auto const& event : events)
        std::printf("  %s\n", soak::description(event).c_str());
    std::fflush(stdout);
    // Once more, to be seen.
    Stage const stage;
    soak::GalleryRun run(*stage.host, options.run);
    s_run = &run;
    dieTelling();
    run.playChapter(chapter, events);
    s_run = nullptr;
    std::printf("%s\n", run.failure().c_str());
}

int run(Options const& options)
{
    auto const started = std::chrono::steady_clock::now();
    auto const seconds = [&] { return std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count(); };
    Stage const stage;
    soak::GalleryRun run(*stage.host, options.run);
    s_run = &run;
    auto const perChapter = static_cast<long>(options.run.eventsAChapter);
    auto const first = options.firstEvent / perChapter;
    auto const end = first + (options.events + perChapter - 1) / perChapter;
    double lastTold = 0;
    for (auto chapter = first; chapter < end; ++chapter) {
        dieTelling();
        if (!run.playChapter(static_cast<std::uint32_t>(chapter))) {
            std::fprintf(stderr, "soak_gallery: %s\n", run.failure().c_str());
            tell();
            // What is in the middle of something is not taken down.
            std::fflush(nullptr);
            std::_Exit(EXIT_FAILURE);
        }
        if (seconds() - lastTold > 10 || chapter + 1 == end) {
            lastTold = seconds();
            std::printf("%9ld events, %.0f a second\n", (chapter + 1 - first) * perChapter,
                static_cast<double>((chapter + 1 - first) * perChapter) / seconds());
            std::fflush(stdout);
        }
    }
    ::alarm(0);
    s_run = nullptr;
    std::printf("%ld events over %zu pages, seed %u, in %.0f seconds: all held\n", (end - first) * perChapter,
        gallery::pages().size(), options.run.seed, seconds());
    return EXIT_SUCCESS;
}

}

int main(int argc, char** argv)
{
    soak::CommandLine words(argc, argv, { "events", "seed", "chapter", "page", "replay-from" }, { "shrink", "help" });
    Options options;
    options.events = static_cast<long>(words.number("events", 1e6));
    options.run.seed = static_cast<std::uint32_t>(words.number("seed", 1));
    options.run.eventsAChapter = std::max<std::size_t>(1, static_cast<std::size_t>(words.number("chapter", 400)));
    options.run.page = words.text("page").value_or("");
    options.firstEvent = static_cast<long>(words.number("replay-from", 0));
    options.shrinks = words.has("shrink");
    auto problem = words.problem();
    if (!options.run.page.empty()
        && std::ranges::find(gallery::pages(), options.run.page, &gallery::Page::name) == gallery::pages().end())
        problem = "there is no page " + options.run.page;
    if (!problem.empty() || words.has("help")) {
        std::fprintf(words.has("help") ? stdout : stderr, "%s%s%s", problem.c_str(), problem.empty() ? "" : "\n", usage);
        return problem.empty() ? EXIT_SUCCESS : 2;
    }
    if (options.shrinks) {
        shrink(options, static_cast<std::uint32_t>(static_cast<std::size_t>(options.firstEvent) / options.run.eventsAChapter));
        return EXIT_SUCCESS;
    }
    return run(options);
}
