#pragma once

#include "RandomEvent.h"

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/geometry.h>

#include <functional>

namespace plix {

class HeadlessHost;
class HeadlessWindow;
class NSView;
class NSWindow;

}

namespace soak {

/// Enters random events where a person would: at the machine in memory. What an event meets is what is there when it is played.
class EventPlayer {
public:
    explicit EventPlayer(plix::HeadlessHost&);

    /// A page for the event that changes it.
    void setPageMaker(std::function<plix::Ref<plix::NSView>(RandomEvent const&)> maker) { m_makePage = std::move(maker); }
    /// What it enters takes place when the application looks for it.
    void play(RandomEvent const&);
    /// Lets go of buttons, keys and what an input method shows.
    void letGo();

private:
    void playMouse(RandomEvent const&);
    void playKey(RandomEvent const&);
    void playMachine(RandomEvent const&);
    void playProgram(RandomEvent const&);
    plix::NSWindow* chosenWindow(std::uint32_t lot) const;
    plix::HeadlessWindow* chosenHostWindow(std::uint32_t lot) const;
    plix::NSView* chosenView(plix::NSWindow&, RandomEvent const&) const;
    plix::Point place(RandomEvent const&) const;
    void resize(RandomEvent const&);

    plix::HeadlessHost& m_host;
    std::function<plix::Ref<plix::NSView>(RandomEvent const&)> m_makePage;
    int m_heldButton { -1 };
};

}
