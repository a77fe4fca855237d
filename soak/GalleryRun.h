#pragma once

#include "EventPlayer.h"
#include "RandomEvent.h"
#include "invariants.h"

#include <plix/platform/base/Ref.h>

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace gallery {

struct Page;

}

namespace plix {

class HeadlessHost;
class NSWindow;

}

namespace soak {

/// Random events over pages of the gallery. A run is a row of chapters: each shows a page in a window, plays its events, tests what
/// must hold between them, then closes everything and sees that nothing is left. What a chapter does depends on the seed and its
/// number alone, as far as chapters before it leave nothing behind.
class GalleryRun {
public:
    struct Options {
        std::uint32_t seed { 1 };
        std::size_t eventsAChapter { 400 };
        std::string page {}; ///< only this one; empty for all in turn
    };
    /// The host moves its clock; the application must be there.
    GalleryRun(plix::HeadlessHost&, Options);
    ~GalleryRun();
    GalleryRun(GalleryRun const&) = delete;
    GalleryRun& operator=(GalleryRun const&) = delete;

    /// False where something did not hold: failure() says what.
    bool playChapter(std::uint32_t chapter);
    /// The same with other events in place of the chapter's own.
    bool playChapter(std::uint32_t chapter, std::vector<RandomEvent> events);
    std::string const& failure() const { return m_failure; }
    std::vector<RandomEvent> eventsOf(std::uint32_t chapter) const;
    gallery::Page const& pageOf(std::uint32_t chapter) const;
    /// Of the whole run, counted from 0, with what was played just before: for messages.
    long eventNumber() const { return m_eventNumber; }
    std::string story() const;

private:
    enum class Phase { Playing, Leaving, Resting, Over };

    void showPage();
    void feed();
    void playNext();
    void leave();
    void rest();
    void fail(std::string problem);
    bool isNested() const;
    void checkObjects();

    plix::HeadlessHost& m_host;
    Options m_options;
    EventPlayer m_player;
    plix::Ref<plix::NSWindow> m_window;
    gallery::Page const* m_page { nullptr };
    ViewTimerWatch m_timers;
    std::vector<RandomEvent> m_events;
    std::size_t m_next { 0 };
    Phase m_phase { Phase::Over };
    int m_patience { 0 };
    int m_speakingSteps { 0 };
    std::uint32_t m_chapter { 0 };
    long m_eventNumber { 0 };
    std::string m_failure;
    /// How many objects there were after the page's first chapters.
    std::map<std::string, std::vector<std::size_t>> m_objectsAfter;
};

}
