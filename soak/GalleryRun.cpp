#include "GalleryRun.h"

#include <examples/gallery/pages.h>

#include <plix/platform/appkit/NSApplication_internal.h>
#include <plix/platform/appkit/NSPasteboard.h>
#include <plix/platform/appkit/NSSpeechSynthesizer.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/NSWindow_internal.h>
#include <plix/platform/base/living_objects.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/host/headless/HeadlessHost.h>
#include <plix/speech/PLIXSpeechSynthesizer.h>

#include <algorithm>

namespace soak {

using namespace plix;

namespace {

constexpr double usualStep = 0.012;
constexpr std::size_t eventsBetweenViewChecks = 8;
/// How long it may take to get out of what random events left open.
constexpr int leavingSteps = 400;
/// Longer than anything that ends by itself.
constexpr int restingSteps = 30;
constexpr double restingStep = 0.5;
constexpr int mostSpeakingSteps = 10000;
/// Objects that caches may have taken in since: 1024 backgrounds of windows, 128 results of drawing and 64 files, each an image
/// with a representation, and 256 pictures of the theme.
constexpr std::size_t cachedObjects = 2 * (1024 + 128 + 64) + 256;
constexpr std::size_t chaptersToWarmUp = 3;
constexpr std::size_t toldEvents = 50;

}

GalleryRun::GalleryRun(HeadlessHost& host, Options options)
    : m_host(host)
    , m_options(std::move(options))
    , m_player(host)
{
    m_player.setPageMaker([](RandomEvent const& event) {
        auto const pages = gallery::pages();
        return pages[event.lots[1] % pages.size()].makeView();
    });
}

GalleryRun::~GalleryRun() = default;

gallery::Page const& GalleryRun::pageOf(std::uint32_t chapter) const
{
    auto const pages = gallery::pages();
    auto const wanted = std::ranges::find(pages, m_options.page, &gallery::Page::name);
    return wanted != pages.end() ? *wanted : pages[chapter % pages.size()];
}

std::vector<RandomEvent> GalleryRun::eventsOf(std::uint32_t chapter) const
{
    return chapterEvents(m_options.seed, chapter, m_options.eventsAChapter);
}

bool GalleryRun::playChapter(std::uint32_t chapter)
{
    return playChapter(chapter, eventsOf(chapter));
}

bool GalleryRun::playChapter(std::uint32_t chapter, std::vector<RandomEvent> events)
{
    m_chapter = chapter;
    m_page = &pageOf(chapter);
    m_events = std::move(events);
    m_next = 0;
    m_eventNumber = static_cast<long>(chapter) * static_cast<long>(m_options.eventsAChapter);
    m_failure.clear();
    m_phase = Phase::Playing;
    setCurrentAppearance(Appearance::light);
    m_host.headlessDisplay().setScreens({ HeadlessDisplay::defaultScreen(1) });
    NSPasteboard::generalPasteboard().declareTypes({});
    showPage();
    m_host.headlessEvents().whenIdle([this] { feed(); });
    NSApp->run();
    m_window = nullptr;
    m_host.headlessEvents().discardPending();
    if (m_failure.empty())
        checkObjects();
    return m_failure.empty();
}

void GalleryRun::showPage()
{
    auto const view = m_page->makeView();
    m_window = make<NSWindow>(rectWith({ 100, 100 }, view->frame().size()),
        NSTitledWindowMask | NSClosableWindowMask | NSMiniaturizableWindowMask | NSResizableWindowMask, NSBackingStoreBuffered,
        false);
    m_window->setTitle(m_page->title);
    m_window->setContentView(view);
    m_window->makeKeyAndOrderFront(nullptr);
}

// MARK: one event after the other

// Called whenever the application, in whatever loop, has nothing else to do.
void GalleryRun::feed()
{
    if (m_phase == Phase::Over)
        return;
    m_host.headlessEvents().whenIdle([this] { feed(); });
    if (m_phase == Phase::Playing) {
        for (auto problem : { brokenDrawing(), brokenWindows(), m_timers.brokenTimer(),
                 m_next % eventsBetweenViewChecks == 0 ? brokenViews() : "" }) {
            if (!problem.empty())
                return fail(std::move(problem));
        }
        if (m_next < m_events.size())
            return playNext();
        m_player.letGo();
        m_phase = Phase::Leaving;
        m_patience = leavingSteps;
        return;
    }
    if (m_phase == Phase::Leaving)
        leave();
    else
        rest();
}

void GalleryRun::playNext()
{
    auto const& event = m_events[m_next++];
    ++m_eventNumber;
    m_host.headlessClock().advance(usualStep);
    if (NSApp->orderedWindows().empty())
        showPage();
    m_player.play(event);
}

bool GalleryRun::isNested() const
{
    auto const& internals = NSApp->internals();
    auto const mode = NSRunLoop::currentRunLoop().currentMode();
    bool const hasSheet
        = std::ranges::any_of(NSWindow::Internals::all(), [](auto const* window) { return window->internals().sheet != nullptr; });
    return !internals.sessions.empty() || hasSheet || internals.runDepth > 1 || mode != std::string(NSDefaultRunLoopMode);
}

// As a person would at first, then as a program.
void GalleryRun::leave()
{
    if (--m_patience < 0)
        return fail("a loop or a sheet does not end");
    m_host.headlessClock().advance(restingStep);
    if (isNested()) {
        m_host.script().key(U'\x1B');
        if (m_patience < leavingSteps / 2 && m_patience % 4 == 0)
            NSApp->abortModal();
        if (m_patience < leavingSteps / 2 && m_patience % 4 == 2) {
            for (auto const& window : NSApp->windows()) {
                if (auto* const sheet = window->attachedSheet())
                    NSApp->endSheet(*sheet);
            }
        }
        return;
    }
    for (auto const& window : NSApp->windows())
        window->close();
    // What is said goes on without windows, for as long as a person has asked for.
    PLIXSpeechSynthesizer::classStopSpeaking();
    m_phase = Phase::Resting;
    m_patience = restingSteps;
    m_speakingSteps = mostSpeakingSteps;
}

void GalleryRun::rest()
{
    m_host.headlessClock().advance(restingStep);
    // What waits to be spoken is spoken to its end.
    if (NSSpeechSynthesizer::isAnyApplicationSpeaking() && --m_speakingSteps > 0)
        m_patience = restingSteps;
    if (--m_patience > 0)
        return;
    m_window = nullptr;
    if (auto problem = runningTimer(); !problem.empty())
        return fail("all windows are closed, and " + problem);
    if (auto problem = brokenWindows(); !problem.empty())
        return fail(std::move(problem));
    m_phase = Phase::Over;
    NSApp->stop(nullptr);
}

void GalleryRun::fail(std::string problem)
{
    m_failure = std::move(problem);
    m_phase = Phase::Over;
    NSApp->stop(nullptr);
}

// What is left when a page is gone may be caches; those fill up.
void GalleryRun::checkObjects()
{
    auto& counts = m_objectsAfter[m_page->name];
    counts.push_back(livingObjects());
    if (counts.size() > chaptersToWarmUp && counts.back() > counts[chaptersToWarmUp - 1] + cachedObjects)
        m_failure = "there are " + std::to_string(counts.back()) + " objects when all windows are closed, and there were "
            + std::to_string(counts[chaptersToWarmUp - 1]);
}

std::string GalleryRun::story() const
{
    std::string text = "seed " + std::to_string(m_options.seed) + ", chapter " + std::to_string(m_chapter) + ", page "
        + (m_page ? m_page->name : "") + ", event " + std::to_string(m_eventNumber) + "; the last events:\n";
    for (auto index = m_next > toldEvents ? m_next - toldEvents : 0; index < m_next; ++index)
        text += "  " + description(m_events[index]) + '\n';
    return text;
}

}
